#include "app/Principal.h"

int main(int argc, char** argv) {
  return tarvo::app::principal(argc, argv);
}
