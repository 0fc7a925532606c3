#include "totals/ventanas/NoStkBleVentana.h"

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::totals {

NoStkBleVentana::NoStkBleVentana(ventanas::Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  const int lado = ventanas::escalar(2 * ventanas::kIcono);
  ui_.imagen->setPixmap(ventanas::iconoEstado(ventanas::Estado::Duda).pixmap(lado, lado));
  connect(ui_.Procesar, &QPushButton::clicked, this, &NoStkBleVentana::aceptar);
  connect(ui_.Cancelar, &QPushButton::clicked, this, &NoStkBleVentana::rechazar);
  ui_.Cancelar->setFocus();
}

}  // namespace tarvo::totals
