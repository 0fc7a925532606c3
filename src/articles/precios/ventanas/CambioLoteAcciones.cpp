// The change done, and taken back.
#include "articles/precios/ventanas/CambioLoteVentana.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/MyMsgBox.h"

namespace tarvo::precios {

using articles::ClaveArticulo;

void CambioLoteVentana::aplicar() {
  const auto que = orden();
  std::vector<ClaveArticulo> claves;
  for (const LineaLote& l : lineas_)
    if (l.desenlace == Desenlace::Cambia) claves.push_back(l.clave);
  if (!que || claves.empty()) return;
  if (!ventanas::MyMsgBox::Decide(
          this, contexto().textos,
          t(kTxVaACambiar, static_cast<int>(claves.size())) + u'\n' + t(kTxSePuedeDeshacerLote),
          ventanas::kAceptoCancelo | ventanas::kExclamacion))
    return;
  aplicarYa(claves, *que);
}

// The percentage goes, so that a second Enter doesn't raise the prices again.
void CambioLoteVentana::aplicarYa(const std::vector<ClaveArticulo>& claves,
                                  const OrdenLote& orden) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const auto hecho = motor_.aplicar(claves, orden, nombre());
  QApplication::restoreOverrideCursor();
  if (!haIdoBien(hecho)) return;
  ui_.txPc->clear();
  mirar();
  pintarDeshacer();
  if (lista_) lista_->refrescar();
  const QString bien = t(kTxCambiados, hecho->cambiados);
  if (hecho->fuera > 0) return decirDuda(t(kTxNoCambiaron, hecho->fuera), bien);
  decirBien(bien);
}

void CambioLoteVentana::pintarDeshacer() {
  const auto ultimo = lotes_.ultimo(nombre());
  const bool hay = haIdoBien(ultimo) && ultimo->has_value();
  ui_.Deshacer->setEnabled(hay);
  ui_.Deshacer->setToolTip(hay ? t(kTxDeshacerLote).arg((*ultimo)->cuando.general()) : QString());
}

void CambioLoteVentana::deshacer() {
  const auto ultimo = lotes_.ultimo(nombre());
  if (!haIdoBien(ultimo) || !*ultimo) return;
  const auto hecho = motor_.deshacer((*ultimo)->numero, nombre());
  if (!haIdoBien(hecho)) return;
  mirar();
  pintarDeshacer();
  if (lista_) lista_->refrescar();
  const QString bien = t(kTxRepuestos, hecho->repuestos);
  const auto fuera = static_cast<int>(hecho->fuera.size());
  if (fuera > 0) return decirDuda(t(kTxNoRepuestos, fuera), bien);
  decirBien(bien);
}

bool CambioLoteVentana::QueryUnload() {
  lista_.soltar();
  return false;
}

}  // namespace tarvo::precios
