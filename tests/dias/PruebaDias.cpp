// Whole days by seed. CTest runs each case separately, so that the cores share them.
#include "dias/Mundo.h"
#include "dias/Semillas.h"
#include "noches/ProbarSemillas.h"

namespace tarvo::dias {

namespace {

Veredicto correr(quint64 semilla) {
  return correrSemilla(semilla);
}

class ConDias : public testing::TestWithParam<int> {};

}  // namespace

TEST(DiasGuardados, LosQueUnaVezFallaron) {
  for (const quint64 s : kGuardadas) noches::probarSemilla(s, correr);
}

TEST_P(ConDias, LasMaquinasTienenLoQueDebe) {
  noches::probarCaso(GetParam(), 200, correr);
}

INSTANTIATE_TEST_SUITE_P(Semillas, ConDias, testing::Range(0, 2));

}  // namespace tarvo::dias
