#include "articles/ventanas/SelOpe.h"

#include "articles/Listas.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::Clase;

SelOpe::SelOpe(ventanas::Contexto& contexto, const QString& nombre) : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  ui_.Grid->preparar(
      contexto, nombre,
      {{.titulo = ventanas::kTxCodigo, .campo = u"CODOPE"_s, .clase = Clase::Codigo, .cifras = 4},
       {.titulo = ventanas::kTxNombre, .campo = u"NOMOPE"_s, .ancho = 260}});
  ui_.Grid->ponerUnaSola(true);
  ui_.Grid->ponerVacia(t(kTxSinOperadores));
  connect(ui_.Grid, &ventanas::Parrilla::activada, this, &SelOpe::elegir);
  connect(ui_.Acepto, &QPushButton::clicked, this, &SelOpe::elegir);
  connect(ui_.Cancelo, &QPushButton::clicked, this, [this] { rechazar(); });
}

Resultado<> SelOpe::entrar(const PuertaSelOpe&) {
  TARVO_INTENTAR(ui_.Grid->abrir(listaOperadores()));
  ui_.Acepto->setEnabled(ui_.Grid->filas() > 0);
  ui_.Grid->setFocus();
  return {};
}

void SelOpe::elegir() {
  const int fila = ui_.Grid->filaActual();
  if (fila < 0) return;
  entregar(static_cast<int>(ui_.Grid->valor(fila, u"CODOPE").entero()));
}

}  // namespace tarvo::articles
