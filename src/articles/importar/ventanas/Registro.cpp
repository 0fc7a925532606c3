#include "articles/importar/ventanas/Registro.h"

namespace tarvo::importar {

void registrarVentanasImportar(ventanas::Ventanas&, articles::Catalogo&) {}

}  // namespace tarvo::importar
