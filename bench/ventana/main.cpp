// The program with windows, up to its first paint.
#include "PrimerPintado.h"
#include "app/ventanas/PrincipalVentanas.h"

using tarvo::banco::vigilarPintado;
Q_COREAPP_STARTUP_FUNCTION(vigilarPintado)

int main(int argc, char** argv) {
  return tarvo::app::principalVentanas(argc, argv);
}
