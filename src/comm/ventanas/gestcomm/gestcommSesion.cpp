// The session's menu and icons.
#include "comm/ventanas/TextosCommVentanas.h"
#include "comm/ventanas/gestcomm/gestcommVentana.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Ventanas.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

void gestcommVentana::conectarSesion() {
  ui_.ImgLlena->setIcon(icono(u"sesionAbierta"_s));
  connect(ui_.MnAbrSs, &QAction::triggered, this, [this] { LaSesion(1); });
  connect(ui_.MnCerSs, &QAction::triggered, this, [this] { cerrarSesion(); });
  connect(ui_.MnCanSs, &QAction::triggered, this, [this] { cancelarSesion(); });
  ui_.ImgLlena->installEventFilter(this);
}

// The session is closed by a double click on the icon of a session with data, or a key on it, but
// not by a single accidental click.
bool gestcommVentana::eventFilter(QObject* objeto, QEvent* evento) {
  const auto tecla = [&] {
    const int cual = static_cast<QKeyEvent*>(evento)->key();
    return cual == Qt::Key_Space || cual == Qt::Key_Return || cual == Qt::Key_Enter;
  };
  const bool cierra = objeto == ui_.ImgLlena && (evento->type() == QEvent::MouseButtonDblClick ||
                                                 (evento->type() == QEvent::KeyPress && tecla()));
  if (!cierra) return Ventana::eventFilter(objeto, evento);
  if (s_.motor.CuantosQuedan().total == 0) cerrarSesion();
  return true;
}

void gestcommVentana::ponerSesion() {
  const int estado = s_.sesion.estado();
  const bool colaVacia = s_.motor.CuantosQuedan().total == 0;
  ui_.MnSes->menuAction()->setEnabled(colaVacia);
  ui_.MnAbrSs->setEnabled(estado == 0);
  ui_.MnCerSs->setEnabled(estado == 2);
  ui_.MnCanSs->setEnabled(estado == 1 || estado == 2);
  ui_.ImgLlena->setVisible(estado == 2);
  ui_.ImgLlena->setEnabled(colaVacia);
  ui_.imgVacia->setVisible(estado != 2);
  const QString espera = colaVacia ? QString() : t(kTxSesionEspera);
  ui_.imgVacia->setToolTip(espera);
  ui_.ImgLlena->setToolTip(colaVacia ? t(kTxCierraSesion) : espera);
  ui_.LblSesion->setText(s_.motor.hayReintentables() ? espera : QString());
  ui_.LblSesion->setHidden(ui_.LblSesion->text().isEmpty());
  const QString texto = t(estado == 0 ? kTxSesionCerrada : kTxSesionVacia);
  if (ui_.imgVacia->text() != texto) ui_.imgVacia->setText(texto);
}

void gestcommVentana::LaSesion(int nuevo) {
  haIdoBien(s_.motor.LaSesion(nuevo));
  ponerSesion();
}

// What was received is forgotten in the window that can bring it back.
void gestcommVentana::cancelarSesion() {
  if (s_.sesion.estado() == 1) return LaSesion(0);
  if (s_.sesion.estado() == 2) abrir(totals::PuertaCerrSes{.olvidar = true});
}

void gestcommVentana::cerrarSesion() {
  if (s_.sesion.estado() == 1) return LaSesion(0);
  if (s_.sesion.estado() == 2) abrir(totals::PuertaCerrSes());
}

}  // namespace tarvo::comm
