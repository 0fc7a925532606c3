// The assistant of explorations: what was found, what will be done with it, and doing it.
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "comm/exploracion/Resumen.h"
#include "comm/exploracion/ventanas/TextosExploracionVentanas.h"
#include "comm/exploracion/ventanas/WizInicio.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::exploracion {

using namespace Qt::StringLiterals;
using ventanas::FilaViva;

bool WizInicio::mirarGrupos() {
  auto ya = aplicador_.quienesLasTienen(hallazgos_);
  if (!haIdoBien(ya)) return false;
  yaEstan_ = std::move(*ya);
  return true;
}

void WizInicio::resumir() {
  Cuentas cuentas = contar(hallazgos_);
  if (!mirarGrupos()) return;
  for (const auto& suyos : yaEstan_)
    cuentas.yaEstan += static_cast<int>(std::ranges::count_if(
        suyos, [](const std::optional<int>& grupo) { return grupo.has_value(); }));
  Resumen_->setText(resumen(cuentas, contexto().textos));
  Consecuencia_->setText(consecuencia(cuentas, contexto().textos).trimmed());
  QPalette colores = Consecuencia_->palette();
  colores.setColor(QPalette::WindowText, ventanas::colorDe(cuentas.algo() ? ventanas::Tinte::Acento
                                                                          : ventanas::Tinte::Mal));
  Consecuencia_->setPalette(colores);
}

// --- applying

// What becomes of a group that was found.
QString WizInicio::destino(size_t hallazgo, size_t cual) const {
  const Textos& textos = contexto().textos;
  const auto ya = sustituye() ? sustitucion_.mismos[hallazgo][cual] : yaEstan_[hallazgo][cual];
  if (!ya) return t(kTxSeCreara);
  if (!sustituye()) return textos(kTxYaEsDelGrupo, {*ya});
  const auto suyo = std::ranges::find(sustitucion_.quedan, *ya, &groups::Resumen::codigo);
  return suyo == sustitucion_.quedan.end()
             ? QString()
             : textos(kTxSeQuedaComoEsta, {suyo->codigo, suyo->nombre});
}

// A line for each modem and each group found.
std::vector<FilaViva> WizInicio::filasHalladas() const {
  const Textos& textos = contexto().textos;
  std::vector<FilaViva> filas;
  for (size_t i = 0; i < hallazgos_.size(); ++i) {
    const Hallazgo& h = hallazgos_[i];
    const QString acceso = exploracion::nombre(h.acceso, textos);
    const auto poner = [&](int que, const dao::Valor& n, const QString& suyas, const QString& de) {
      filas.push_back({static_cast<qint64>(filas.size()), {acceso, t(que), n, suyas, de}});
    };
    if (h.resultado == ResultadoCanal::Modem) poner(kTxUnModem, {}, {}, {});
    for (size_t n = 0; n < h.grupos.size(); ++n) {
      const GrupoHallado& g = h.grupos[n];
      const QString suyas = balanzas(g, textos);
      poner(h.resultado == ResultadoCanal::Nodal ? kTxBalanzasNodal : kTxBalanzasVek, g.estacion,
            suyas, suyas.isEmpty() ? QString() : destino(i, n));
    }
  }
  return filas;
}

// Those that are created, and of which the answers don't tell the model.
WizInicio::Creados WizInicio::creados() const {
  const YaEstan& ya = sustituye() ? sustitucion_.mismos : yaEstan_;
  Creados c;
  for (size_t i = 0; i < hallazgos_.size(); ++i)
    for (size_t n = 0; n < hallazgos_[i].grupos.size(); ++n) {
      if (ya[i][n] || std::ranges::count(hallazgos_[i].grupos[n].balanzas, true) == 0) continue;
      c.alguno = true;
      c.sinModelo |= hallazgos_[i].resultado == ResultadoCanal::Vek;
    }
  return c;
}

QString WizInicio::loQueHara() const {
  if (hallados_->filas() == 0) return t(kTxNadaQueConfigurar);
  QStringList frases{t(porEstrenar_  ? kTxSeranLosPrimeros
                       : sustituye() ? kTxEnLugarDeLosQueHay
                                     : kTxQueSeHace)};
  if (cortada()) frases.prepend(loExplorado(kTxSoloSeHanExplorado));
  const Creados suyos = creados();
  if (suyos.alguno && seccion_)
    frases << contexto().textos(kTxIranALaSeccion, {seccion_->numero, seccion_->nombre});
  if (suyos.sinModelo) frases << t(kTxModeloSinSaber);
  return frases.join(u' ');
}

void WizInicio::mostrarResultados() {
  const auto nueva = aplicador_.porEstrenar();
  auto seccion = aplicador_.seccionDeNuevos();
  if (!haIdoBien(nueva) || !haIdoBien(seccion) || !mirarGrupos()) return;
  porEstrenar_ = *nueva;
  seccion_ = std::move(*seccion);
  anadir_->setChecked(true);
  ir(Paso::Resultados);
  listarLoQueSeVa();
  const bool hay = hallados_->filas() > 0, eligen = hay && !porEstrenar_;
  anadir_->setVisible(eligen);
  sustituir_->setVisible(eligen);
  StartPoll_->setEnabled(hay);
  if (!hay) Atras_->setFocus();
}

bool WizInicio::sustituye() const {
  return PasoWiz_ == Paso::Resultados && !porEstrenar_ && sustituir_->isChecked();
}

QString WizInicio::callan(const Silencio& silencio) const {
  if (silencio.por != Silencio::Por::Callan)
    return t(kTxNoSeBuscan + static_cast<int>(silencio.por));
  QStringList numeros;
  for (const int numero : silencio.numeros) numeros << QString::number(numero);
  return numeros.join(u", "_s);
}

bool WizInicio::listarLoQueSeVa() {
  const bool si = sustituye();
  if (si) {
    auto todo = aplicador_.siSustituye(hallazgos_);
    if (!haIdoBien(todo)) return false;
    sustitucion_ = std::move(*todo);
  }
  if (PasoWiz_ == Paso::Resultados) {
    hallados_->vivas().poner(filasHalladas());
    queHara_->setText(loQueHara());
  }
  rotuloSeVan_->setVisible(si && !sustitucion_.seVan.empty());
  seVan_->setVisible(si && !sustitucion_.seVan.empty());
  if (!si) return true;
  std::vector<FilaViva> filas;
  filas.reserve(sustitucion_.seVan.size());
  for (const auto& [grupo, c, silencio] : sustitucion_.seVan)
    filas.push_back({grupo.codigo,
                     {grupo.codigo, grupo.nombre, grupo.seccion, c.maquinas, callan(silencio),
                      c.ofertas, c.tareas, c.ventas ? dao::Valor(*c.ventas) : dao::Valor()}});
  seVan_->vivas().poner(std::move(filas));
  return true;
}

// Everything that goes, and what stays.
QString WizInicio::pregunta() const {
  const Textos& textos = contexto().textos;
  const Ajustes& a = contexto().ajustes;
  groups::Grupos::LoQueSeVa todo;
  int callan = 0;
  QStringList cuales;
  for (const auto& [grupo, c, silencio] : sustitucion_.seVan) {
    cuales << textos(kTxGrupoConNombre, {grupo.codigo, grupo.nombre});
    todo.maquinas += c.maquinas;
    todo.ofertas += c.ofertas;
    todo.tareas += c.tareas;
    if (c.ventas) todo.ventas = todo.ventas.value_or(0) + *c.ventas;
    callan += static_cast<int>(silencio.numeros.size());
  }
  const int cuantos[] = {todo.maquinas, todo.ofertas, todo.tareas};
  QStringList cosas;
  for (int i = 0; i < 3; ++i)
    if (cuantos[i] > 0) cosas << t(kTxCuantoSeVa + i, cuantos[i]);
  QStringList lineas{t(kTxVaABorrarGrupos, static_cast<int>(sustitucion_.seVan.size())),
                     textos(kTxLosGruposSon, {enLista(cuales)})};
  if (!cosas.empty()) lineas << textos(kTxConEllosSeVan, {enLista(cosas)});
  if (cortada()) lineas.prepend(loExplorado(kTxSoloSeHanExplorado));
  if (callan > 0) lineas << t(kTxDeEsasNoContestan, callan);
  if (todo.ventas)
    lineas << textos(kTxSeVanSusVentas,
                     {VerImporte(a, *todo.ventas, a.MonedaPreferente),
                      a.MonedaLogo[static_cast<size_t>(a.MonedaPreferente != 0)].trimmed()});
  for (const groups::Resumen& g : sustitucion_.quedan)
    lineas << textos(kTxSeQuedaComoEsta, {g.codigo, g.nombre}) + u'.';
  if (creados().alguno && seccion_)
    lineas << textos(kTxIranALaSeccion, {seccion_->numero, seccion_->nombre});
  lineas << t(kTxSustituyeLosGrupos);
  return lineas.join(u'\n');
}

// "a, b y c"
QString WizInicio::enLista(QStringList cosas) const {
  const QString ultima = cosas.takeLast();
  return cosas.empty() ? ultima : contexto().textos(kTxUnaYOtra, {cosas.join(u", "_s), ultima});
}

void WizInicio::AplicarExploracion() {
  if (sustituye()) {
    if (!listarLoQueSeVa()) return;
    if (!sustitucion_.seVan.empty() &&
        !ventanas::MyMsgBox::Decide(this, contexto().textos, pregunta(),
                                    ventanas::kAceptoCancelo | ventanas::kExclamacion))
      return;
  }
  const bool sinModelo = creados().sinModelo;
  const auto hecho = aplicador_.aplicar(hallazgos_, sustituye());
  if (!haIdoBien(hecho)) return;
  s_.motor.cambiaronCanales();
  mostrarHecho(*hecho, sinModelo);
}

void WizInicio::mostrarHecho(const Aplicado& hecho, bool sinModelo) {
  const Textos& textos = contexto().textos;
  QStringList lineas;
  for (const auto& c : hecho.creados)
    lineas << textos(kTxGrupoHecho, {c.codigo, c.nombre, exploracion::nombre(c.acceso, textos)});
  if (sinModelo && !hecho.creados.empty()) lineas << t(kTxModeloSinSaber);
  for (const groups::Resumen& g : hecho.quedan)
    lineas << textos(kTxSeQuedoComoEstaba, {g.codigo, g.nombre});
  for (const groups::Resumen& g : hecho.borrados)
    lineas << textos(kTxGrupoBorrado, {g.codigo, g.nombre});
  lineas << hecho.avisos;
  const QString cuenta = cuentaDe(hecho);
  if (lineas.empty()) lineas << t(kTxCanalesPuestos);
  hecho_->setPlainText(lineas.join(u'\n'));
  ir(Paso::Aplicado);
  queHara_->setText(t(kTxConfigurado));
  if (!hecho.avisos.empty())
    decirDuda((cuenta.isEmpty() ? QString() : cuenta + u' ') + t(kTxLeaLosAvisos));
  else
    decirBien(cuenta.isEmpty() ? t(kTxCanalesPuestos) : cuenta);
}

// Created, kept and deleted groups; nothing where there are none.
QString WizInicio::cuentaDe(const Aplicado& hecho) const {
  const size_t cuantos[] = {hecho.creados.size(), hecho.quedan.size(), hecho.borrados.size()};
  QStringList partes;
  for (int i = 0; i < 3; ++i)
    if (cuantos[i] > 0) partes << t(kTxCreadosQuedanBorrados + i, static_cast<int>(cuantos[i]));
  return partes.empty() ? QString() : enLista(partes) + u'.';
}

}  // namespace tarvo::exploracion
