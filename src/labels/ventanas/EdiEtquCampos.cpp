// The fields of the format being edited.
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSpinBox>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/Ventanas.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "labels/ventanas/EdiEtqu.h"
#include "labels/ventanas/NombresCampos.h"
#include "labels/ventanas/TextosLabelsVentanas.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kPegadoAparte = 8;  // dots between a pasted field and its original
const QString kFin = u"\r\n"_s;

}  // namespace

QString EdiEtqu::nombreDeCampo(const CampoEtiqueta& c) const {
  return labels::nombreDeCampo(contexto().textos, c, lector());
}

// The chosen fields in words.
QString EdiEtqu::queCampos() const {
  const auto& cuales = lienzo_->elegidos();
  if (cuales.size() != 1) return t(kTxCampos, static_cast<int>(cuales.size()));
  return u'«' + nombreDeCampo(borrador_.formato().campos[cuales.front()]) + u'»';
}

// --- steps

void EdiEtqu::poner(const QString& que, Formato nuevo, bool sigue) {
  ponerEstado(que, EstadoFormato{std::move(nuevo), borrador_.estado().juego}, sigue);
}

void EdiEtqu::ponerEstado(const QString& que, EstadoFormato nuevo, bool sigue) {
  const bool cambiaJuego = nuevo.juego != borrador_.estado().juego;
  const bool sigueElPaso = sigue && borrador_.sePuedeDeshacer();
  if (!borrador_.poner(std::move(nuevo), sigue)) return mostrar();
  sigueElPaso ? deshacer_->olvidarIdas() : apuntar(que);
  if (cambiaJuego) leerTextos();
  mostrar();
}

void EdiEtqu::apuntar(const QString& que) {
  pasos_.push_back(deshacer_->apuntarIdaYVuelta(
      que,
      [this]() -> Resultado<Vuelto> {
        borrador_.deshacer();
        leerTextos();
        mostrar();
        return Vuelto();
      },
      [this]() -> Resultado<> {
        borrador_.rehacer();
        leerTextos();
        mostrar();
        return {};
      }));
}

void EdiEtqu::mostrar() {
  const QScopedValueRollback en(llenando_, true);
  const Formato& f = borrador_.formato();
  lienzo_->setEnabled(editable());
  lienzo_->poner(f, lector());
  x0_->setValue(f.x0);
  y0_->setValue(f.y0);
  for (QSpinBox* campo : {x0_, y0_}) campo->setEnabled(editable());
  lbx0_->setText(u"x0 "_s + QString::number(f.x0));
  lby0_->setText(u"y0 "_s + QString::number(f.y0));
  const auto& juego = borrador_.estado().juego;
  juego_->setText(juego ? contexto().textos(kTxConJuego, {*juego}) : t(kTxSinJuego));
  juego_->setEnabled(!actual_.isEmpty());
  mostrarCampos();
  setWindowModified(borrador_.cambiado());
  setWindowTitle(actual_.isEmpty() ? t(kTxEdiEtqu) : actual_ + u"[*] - "_s + t(kTxEdiEtqu));
  actualizarOrdenes();
}

void EdiEtqu::actualizarOrdenes() {
  for (Ordenes* o : {ordenes_, ordenesEtiqueta_, ordenesLista_}) o->actualizar();
}

void EdiEtqu::mostrarCampos() {
  campos_->ponerVacia(t(actual_.isEmpty() ? kTxEligeEtiqueta : kTxSinCampos));
  std::vector<FilaViva> filas;
  const auto& campos = borrador_.formato().campos;
  for (size_t i = 0; i < campos.size(); ++i) {
    const CampoEtiqueta& c = campos[i];
    filas.push_back({static_cast<qint64>(i),
                     {static_cast<qint64>(i + 1), nombreDeCampo(c), c.X, c.Y,
                      esTexto(c.tipo) ? nombreDeFuente(c.fuente) : QString()}});
  }
  campos_->vivas().poner(std::move(filas));
  const auto& cuales = lienzo_->elegidos();
  campos_->limpiarSeleccion();
  campos_->elegir({cuales.begin(), cuales.end()});
}

// --- commands

void EdiEtqu::pedirNuevo() {
  if (std::ssize(borrador_.formato().campos) >= kCamposMaximos) return decirPista(t(kTxNoCabenMas));
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto anadir = [&](TipoCampo tipo) {
    QAction* a = menu->addAction(t(kTxTipoCampo + static_cast<int>(tipo) - 1));
    a->setData(static_cast<int>(tipo));
  };
  for (int n = 1; n <= 18; ++n)
    if (const auto tipo = static_cast<TipoCampo>(n); esTexto(tipo)) anadir(tipo);
  menu->addSeparator();
  for (const TipoCampo tipo :
       {TipoCampo::CodigoDeBarras, TipoCampo::LineaGrafica, TipoCampo::Rectangulo})
    anadir(tipo);
  ponerLetras(*menu);
  connect(menu, &QMenu::triggered, this,
          [this](const QAction* a) { nuevo(static_cast<TipoCampo>(a->data().toInt())); });
  desplegar(*menu, bajo(*barra_, *nuevoCampo_));
}

void EdiEtqu::nuevo(TipoCampo tipo) {
  if (!borrador_.formato().cabeOtro(tipo))
    return decirPista(contexto().textos(
        kTxNoCabenDeEsos, {t(kTxTipoCampo + static_cast<int>(tipo) - 1), reservaDe(tipo)}));
  int numero = 0;
  if (tipo == TipoCampo::LineaTexto) {
    const auto elegido = preguntar(PuertaTxtFijos{borrador_.estado().juego});
    leerTextos();  // they may have been edited
    if (!elegido) return mostrar();
    numero = *elegido;
  }
  Formato f = borrador_.formato();
  f.campos.push_back(nuevoCampo(tipo, f, numero));
  const size_t cual = f.campos.size() - 1;
  const QString que = contexto().textos(kTxHizoAnadir, {nombreDeCampo(f.campos.back())});
  poner(que, std::move(f));
  lienzo_->elegir({cual});
  lienzo_->setFocus();
}

void EdiEtqu::propiedades() {
  if (enEtiquetas()) return static_cast<void>(lista_->editarCelda());
  if (lienzo_->elegidos().empty()) return decirPista(t(kTxEligeCampo));
  const size_t cual = lienzo_->elegidos().front();
  PuertaEdiCampo puerta{borrador_.formato().campos[cual], borrador_.formato(), {}};
  puerta.resto.campos.erase(puerta.resto.campos.begin() + static_cast<std::ptrdiff_t>(cual));
  for (int n = 1; n <= kUltimoTexto; ++n) puerta.textos[static_cast<size_t>(n)] = lector()(n);
  const auto editado = preguntar(puerta);
  if (!editado) return;
  Formato f = borrador_.formato();
  if (cual >= f.campos.size()) return;
  f.campos[cual] = *editado;
  poner(t(kTxHizoPropiedades).arg(queCampos()), std::move(f));
}

void EdiEtqu::borrar() {
  if (enEtiquetas()) return borrarEtiqueta();
  std::vector<size_t> cuales = lienzo_->elegidos();
  if (cuales.empty()) return decirPista(t(kTxEligeCampo));
  const QString que = t(kTxHizoBorrar).arg(queCampos());
  Formato f = borrador_.formato();
  for (size_t i = cuales.size(); i-- > 0;)
    f.campos.erase(f.campos.begin() + static_cast<std::ptrdiff_t>(cuales[i]));
  lienzo_->elegir({});
  poner(que, std::move(f));
  decirBien(t(kTxSePuedeDeshacer).arg(que));
}

void EdiEtqu::copiar() {
  if (enEtiquetas()) return lista_->copiar();
  Formato solo;
  for (const size_t i : lienzo_->elegidos()) solo.campos.push_back(borrador_.formato().campos[i]);
  if (solo.campos.empty()) return decirPista(t(kTxEligeCampo));
  const auto texto = solo.texto();
  if (!texto) return decirFallo(t(kTxNoSeCopio));
  QApplication::clipboard()->setText(texto->section(kFin, 1));  // without the header
  decirBien(t(kTxCopiados).arg(queCampos()));
}

// Fields without a header are added; a whole format takes the place of this one.
void EdiEtqu::pegar() {
  const auto leido = delPortapapeles();
  if (!leido) return;
  if (leido->juego || QApplication::clipboard()->text().startsWith(kCabeceraFormato))
    return pegarEntera(*leido);
  Formato f = borrador_.formato();
  std::vector<size_t> nuevos;
  int fuera = 0;
  for (CampoEtiqueta c : leido->formato.campos) {
    if (!f.cabeOtro(c.tipo)) {
      ++fuera;
      continue;
    }
    if (std::ranges::find(f.campos, c) != f.campos.end()) mover(c, {kPegadoAparte, kPegadoAparte});
    nuevos.push_back(f.campos.size());
    f.campos.push_back(c);
  }
  const int entran = static_cast<int>(nuevos.size());
  poner(t(kTxHizoPegar, entran), std::move(f));
  lienzo_->elegir(nuevos);
  if (fuera > 0) decirDuda(t(kTxPegadosFuera, fuera));
}

void EdiEtqu::pedirLado() {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (int i = 0; i < 6; ++i) menu->addAction(t(kTxLado + i))->setData(i);
  ponerLetras(*menu);
  connect(menu, &QMenu::triggered, this,
          [this](const QAction* a) { alinearPor(static_cast<Lado>(a->data().toInt())); });
  desplegar(*menu, bajo(*barra_, *alinear_));
}

void EdiEtqu::alinearPor(Lado lado) {
  Formato f = borrador_.formato();
  alinear(f, lienzo_->elegidos(), lado, lector());
  poner(t(kTxHizoAlinear).arg(queCampos()), std::move(f));
}

void EdiEtqu::reordenarElegidos(int pasos) {
  Formato f = borrador_.formato();
  const QString que = t(kTxHizoOrden).arg(queCampos());
  const auto cuales = reordenar(f, lienzo_->elegidos(), pasos);
  poner(que, std::move(f));
  lienzo_->elegir(cuales);
}

}  // namespace tarvo::labels
