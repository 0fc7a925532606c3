#include "app/ventanas/PrincipalVentanas.h"

int main(int argc, char** argv) {
  return tarvo::app::principalVentanas(argc, argv);
}
