// Whole nights by seed. CTest runs each case apart, so that the cores share them.
#include <gtest/gtest.h>

#include "noches/Mundo.h"
#include "noches/Semillas.h"

namespace tarvo::noches {

namespace {

void correr(quint64 semilla) {
  const Veredicto v = correrSemilla(semilla);
  EXPECT_TRUE(v.diferencias.isEmpty())
      << "semilla " << semilla << ": " << v.diferencias.join(QStringLiteral("\n  ")).toStdString();
  if (semilla % 20 != 0) return;
  EXPECT_EQ(v.huella, correrSemilla(semilla).huella)
      << "semilla " << semilla << " no se repite igual";
}

class NochesTest : public testing::TestWithParam<int> {};

}  // namespace

TEST(NochesGuardadas, LasQueUnaVezFallaron) {
  for (const quint64 s : kGuardadas) correr(s);
}

TEST_P(NochesTest, LosLibrosCuadran) {
#ifdef __SANITIZE_ADDRESS__
  constexpr int kPorCaso = 15;  // each night takes many times longer
#else
  constexpr int kPorCaso = 250;
#endif
  for (int i = 0; i < kPorCaso; ++i) correr(static_cast<quint64>(GetParam() * kPorCaso + i));
}

INSTANTIATE_TEST_SUITE_P(Semillas, NochesTest, testing::Range(0, 4));

}  // namespace tarvo::noches
