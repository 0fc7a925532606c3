// The keyboard of a scale: what is shown.
#include "devices/ventanas/TecladoVentana.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QTabWidget>
#include <QTableView>
#include <algorithm>
#include <iterator>

#include "articles/Listas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Recuerdos.h"
#include "devices/ventanas/TextosDevicesVentanas.h"

namespace tarvo::devices {

using namespace Qt::StringLiterals;
using ventanas::FilaViva;

namespace {

enum Pestana : int { kDeTecla, kDePlus, kDeTaras, kDeRelleno, kDeAvisos };

// "3, 17", by number within the kind.
std::map<int, QString> teclasDe(const LienzoTeclado& lienzo, TipoTecla tipo) {
  std::map<int, QString> todas;
  for (int tecla = 1; tecla <= lienzo.teclas(); ++tecla) {
    const CaraDeTecla& c = lienzo.cara(tecla);
    if (c.tipo != tipo) continue;
    QString& suyas = todas[c.numero];
    suyas += (suyas.isEmpty() ? QString() : u", "_s) + QString::number(tecla);
  }
  return todas;
}

}  // namespace

Resultado<> TecladoVentana::entrar(const PuertaTeclado& puerta) {
  if (TeclasDeFormulario(puerta.tipo) == 0) return fallo(Fallo::NoExiste, t(kTxSinFormulario));
  setWindowTitle(t(kTxTituloTeclado)
                     .replace(u"#B"_s, QString::number(puerta.balanza + 1))
                     .replace(u"#N"_s, puerta.grupo));
  seccion_ = puerta.seccion;
  TARVO_TOMAR(const auto departamentos, contexto().nombres.departamentos(seccion_));
  ventanas::Opciones todos = ventanas::conCodigo(departamentos, 2);
  todos.insert(todos.begin(), {0, t(ventanas::kTxTodos)});
  ventanas::llenar(*departamento_, todos);
  TecladoEditado teclado(puerta.tipo);
  teclado.leer(puerta.textos);
  deshacer_->olvidar();
  antesDeTanda_.reset();
  mirados_.clear();
  existen_.clear();
  soloDe(teclado.esEbony());
  PanEdi_->preparar(puerta.tipo == kBirch);
  faltaban_ = codigosQueFaltan(teclado, contexto().ajustes.idioma);
  TARVO_INTENTAR(editar(teclado));
  Option1_->setCurrentIndex(
      std::clamp(contexto().recuerdos.leer(nombre(), u"dibujo"_s).toInt(), 0, 2));
  dibujo();
  pintar();
  listarArticulos();
  lienzo_->irA(1);
  lienzo_->setFocus();
  return {};
}

void TecladoVentana::soloDe(bool ebony) {
  PanEdi_->setVisible(!ebony);
  PanelEdi_->setVisible(ebony);
  fichas_->setTabVisible(kDePlus, !ebony);
  fichas_->setTabVisible(kDeTaras, !ebony);
  for (QAction* a : {accionCopiar_, accionPegar_, accionLeer_, accionGuardar_})
    a->setVisible(!ebony);
}

void TecladoVentana::dibujo() {
  const bool birch = r.modelo() == kBirch;
  EtqDibujo_->setVisible(birch);
  Option1_->setVisible(birch);
  lienzo_->poner(geometriaDe(r.modelo(), static_cast<ArregloBirch>(Option1_->currentIndex())),
                 NombreModelo(r.modelo()));
}

Panel& TecladoVentana::panel() const {
  return r.esEbony() ? static_cast<Panel&>(*PanelEdi_) : *PanEdi_;
}

// Looks up the articles of the keys that it doesn't know yet; all of them when the store has
// changed since.
Resultado<> TecladoVentana::mirarArticulos() {
  if (const qint64 ahora = contexto().base.cambios(); ahora != cambios_) {
    cambios_ = ahora;
    mirados_.clear();
    existen_.clear();
  }
  std::vector<articles::ClaveArticulo> claves;
  for (const qint64 codigo : r.articulos())
    if (mirados_.insert(codigo).second) claves.push_back({seccion_, codigo});
  TARVO_TOMAR(const auto hallados, catalogo_.leerVarios(claves));
  for (const auto& a : hallados) existen_[a.clave.codigo] = {a.nombre, a.depto};
  return {};
}

void TecladoVentana::pintar() {
  haIdoBien(mirarArticulos());
  lienzo_->ponerCaras(caras(r, codigos_, existen_, contexto().textos));
  pintarListas();
  mostrarTecla(lienzo_->actual());
  ordenes_->actualizar();
}

void TecladoVentana::pintarListas() {
  std::vector<FilaViva> malas;
  for (int tecla = 1; tecla <= lienzo_->teclas(); ++tecla)
    if (const CaraDeTecla& c = lienzo_->cara(tecla); c.reparo)
      malas.push_back({tecla, {tecla, c.queLePasa}});
  if (const auto faltan = codigosQueFaltan(r, contexto().ajustes.idioma); !faltan.empty())
    malas.insert(malas.begin(),
                 {0, {dao::Valor(), contexto().textos(kTxSinTeclaDe, {enPalabras(faltan)})}});
  fichas_->setTabText(kDeAvisos,
                      malas.empty() ? t(kTxFichaAvisos) : t(kTxFichaAvisosHay).arg(malas.size()));
  avisos_->vivas().poner(std::move(malas));
  if (r.esEbony()) return;
  std::vector<FilaViva> plus, taras;
  auto suyas = teclasDe(*lienzo_, TipoTecla::PluDirecto);
  for (int n = 1; n <= kPlusDirectos; ++n) {
    const auto a = r.comun().articulo(n);
    const auto esta = a ? existen_.find(*a) : existen_.end();
    plus.push_back({n,
                    {n, a ? dao::Valor(*a) : dao::Valor(),
                     esta == existen_.end() ? QString() : esta->second.nombre, suyas[n]}});
  }
  LisHplu_->vivas().poner(std::move(plus));
  suyas = teclasDe(*lienzo_, TipoTecla::Tara);
  for (int n = 1; n <= kTarasDirectas; ++n) {
    const auto gramos = r.comun().tara(n);
    taras.push_back({n, {n, gramos ? dao::Valor(*gramos) : dao::Valor(), suyas[n]}});
  }
  LisTara_->vivas().poner(std::move(taras));
}

void TecladoVentana::mostrarTecla(int tecla) {
  if (tecla < 1 || tecla > lienzo_->teclas()) return;
  const CaraDeTecla& c = lienzo_->cara(tecla);
  NmT_->setText(c.queLePasa.isEmpty() ? t(kTxTecla).arg(tecla)
                                      : contexto().textos(kTxTeclaConAviso, {tecla, c.queLePasa}));
  NFu_->setText(c.queHace);
  NFu_->setToolTip(c.queHace);
  if (r.esEbony())
    PanelEdi_->mostrar(r.ebony().tecla(tecla));
  else
    PanEdi_->mostrar(r.comun().codigo(tecla));
  // The list follows the key, unless somebody is working in it.
  const auto seguir = [&](ventanas::Parrilla* lista, TipoTecla tipo) {
    if (c.tipo == tipo && !r.esEbony() && !lista->isAncestorOf(QApplication::focusWidget()))
      lista->irA(lista->filaDe(c.numero));
  };
  seguir(LisHplu_, TipoTecla::PluDirecto);
  seguir(LisTara_, TipoTecla::Tara);
}

void TecladoVentana::editarTecla() {
  fichas_->setCurrentIndex(kDeTecla);
  panel().enfocar();
}

void TecladoVentana::irARelleno() {
  fichas_->setCurrentIndex(kDeRelleno);
  departamento_->setFocus();
}

void TecladoVentana::listarArticulos() {
  haIdoBien(articulos_->abrir(
      articles::listaArticulos({.seccion = seccion_, .texto = Busca_->text(), .deVenta = true})));
  articulos_->ponerVacia(
      Busca_->text().trimmed().isEmpty() ? QString() : t(kTxSinEseArticulo).arg(Busca_->text()));
  if (articulos_->filas() > 0) articulos_->irA(0);
}

void TecladoVentana::menu(const QPoint& global) {
  auto* m = new QMenu(this);
  m->setAttribute(Qt::WA_DeleteOnClose);
  m->addActions(lienzo_->actions());
  ventanas::ponerLetras(*m);
  ventanas::desplegar(*m, global);
}

void TecladoVentana::irABuscar() {
  Busca_->setFocus();
  Busca_->selectAll();
}

// Another window may have renamed an article, or deleted it.
bool TecladoVentana::event(QEvent* evento) {
  if (evento->type() == QEvent::WindowActivate && lienzo_->teclas() > 0 &&
      cambios_ != contexto().base.cambios())
    pintar();
  return FichaDe::event(evento);
}

bool TecladoVentana::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == Busca_ && evento->type() == QEvent::KeyPress) {
    const int tecla = static_cast<QKeyEvent*>(evento)->key();
    if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
      venderElegido();
      return true;
    }
    if (tecla == Qt::Key_Down) {
      articulos_->vista()->setFocus();
      return true;
    }
    if (tecla == Qt::Key_Escape && !Busca_->text().isEmpty()) {
      Busca_->clear();
      lienzo_->setFocus();
      return true;
    }
  }
  return FichaDe::eventFilter(objeto, evento);
}

QString TecladoVentana::cual(int tecla) const {
  const QString& rotulo = lienzo_->cara(tecla).rotulo;
  return lienzo_->cara(tecla).nula || rotulo.isEmpty()
             ? QString::number(tecla)
             : contexto().textos(kTxTeclaQueMuestra, {tecla, rotulo});
}

QString TecladoVentana::enPalabras(const std::set<int>& codigos) const {
  QStringList nombres;
  for (const int c : codigos)
    nombres << (codigos_.tipo(c) == TipoTecla::Numerica ? QString::number(c) : codigos_.nombre(c));
  return nombres.join(u", "_s);
}

std::vector<TecladoVentana::FaltaCampo> TecladoVentana::comprobar() {
  if (panel().acabar()) return {};
  return {{nullptr, t(kTxValorSinTerminar).arg(cual(lienzo_->actual()))}};
}

// Asked of what this edition took away: what was missing already has been seen.
bool TecladoVentana::conforme() {
  std::set<int> quitados;
  std::ranges::set_difference(codigosQueFaltan(r, contexto().ajustes.idioma), faltaban_,
                              std::inserter(quitados, quitados.end()));
  return quitados.empty() ||
         ventanas::MyMsgBox::Decide(this, contexto().textos,
                                    contexto().textos(kTxAceptarSinTeclaDe, {enPalabras(quitados)}),
                                    ventanas::kAceptoCancelo | ventanas::kExclamacion);
}

}  // namespace tarvo::devices
