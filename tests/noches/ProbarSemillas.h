// Shared by the tests that run seeds.
#pragma once

#include <gtest/gtest.h>

#include <QString>

namespace tarvo::noches {

// The number of seeds of a case; far fewer under the address sanitizer, where each takes many times
// longer.
constexpr int semillasPorCaso(int cuantas) {
#ifdef __SANITIZE_ADDRESS__
  constexpr int kPocas = 15;
  return cuantas < kPocas ? cuantas : kPocas;
#else
  return cuantas;
#endif
}

// `correr` gives the verdict on a seed. No difference may be found; every twentieth seed runs
// twice, with the same result.
template <class Correr>
void probarSemilla(quint64 semilla, const Correr& correr) {
  const auto v = correr(semilla);
  EXPECT_TRUE(v.diferencias.isEmpty())
      << "semilla " << semilla << ": " << v.diferencias.join(QStringLiteral("\n  ")).toStdString();
  if (semilla % 20 != 0) return;
  EXPECT_EQ(v.huella, correr(semilla).huella) << "semilla " << semilla << " no se repite igual";
}

// Case number `caso`, with that many seeds in each.
template <class Correr>
void probarCaso(int caso, int cuantas, const Correr& correr) {
  const int n = semillasPorCaso(cuantas);
  for (int i = 0; i < n; ++i) probarSemilla(static_cast<quint64>(caso * n + i), correr);
}

}  // namespace tarvo::noches
