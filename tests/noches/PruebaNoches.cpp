// Whole nights by seed. CTest runs each case separately, so that the cores share them.
#include "noches/Mundo.h"
#include "noches/ProbarSemillas.h"
#include "noches/Semillas.h"

namespace tarvo::noches {

namespace {

Veredicto correr(quint64 semilla) {
  return correrSemilla(semilla);
}

class ConNoches : public testing::TestWithParam<int> {};

}  // namespace

TEST(NochesGuardadas, LasQueUnaVezFallaron) {
  for (const quint64 s : kGuardadas)
    probarSemilla(s, [](quint64 semilla) { return correrSemilla(semilla, {}, false); });
}

TEST_P(ConNoches, LosLibrosCuadran) {
  probarCaso(GetParam(), 250, correr);
}

INSTANTIATE_TEST_SUITE_P(Semillas, ConNoches, testing::Range(0, 4));

}  // namespace tarvo::noches
