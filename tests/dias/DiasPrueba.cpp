// Whole days by seed. CTest runs each case apart, so that the cores share them.
#include <gtest/gtest.h>

#include "dias/Mundo.h"
#include "dias/Semillas.h"

namespace tarvo::dias {

namespace {

void correr(quint64 semilla) {
  const Veredicto v = correrSemilla(semilla);
  EXPECT_TRUE(v.diferencias.isEmpty())
      << "semilla " << semilla << ": " << v.diferencias.join(QStringLiteral("\n  ")).toStdString();
  if (semilla % 20 != 0) return;
  EXPECT_EQ(v.huella, correrSemilla(semilla).huella)
      << "semilla " << semilla << " no se repite igual";
}

class DiasTest : public testing::TestWithParam<int> {};

}  // namespace

TEST(DiasGuardados, LosQueUnaVezFallaron) {
  for (const quint64 s : kGuardadas) correr(s);
}

TEST_P(DiasTest, LasMaquinasTienenLoQueDebe) {
#ifdef __SANITIZE_ADDRESS__
  constexpr int kPorCaso = 15;  // each day takes many times longer
#else
  constexpr int kPorCaso = 200;
#endif
  for (int i = 0; i < kPorCaso; ++i) correr(static_cast<quint64>(GetParam() * kPorCaso + i));
}

INSTANTIATE_TEST_SUITE_P(Semillas, DiasTest, testing::Range(0, 2));

}  // namespace tarvo::dias
