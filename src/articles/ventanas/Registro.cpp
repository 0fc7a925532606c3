#include "articles/ventanas/Registro.h"

namespace tarvo::articles {

void registrarVentanasArticulos(ventanas::Ventanas&, articles::Catalogo&, motor::gestcomm&) {}

}  // namespace tarvo::articles
