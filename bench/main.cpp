// tarvo-bench: with --razones the measurements with their limits (status 1 if one falls short),
// with --noche or --noche-pared one night that prints its cost, with --exporta an export that
// prints its cost, with anything else Google Benchmark.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Exporta.h"
#include "Noche.h"
#include "Razones.h"

namespace tarvo::banco {

namespace {

double segundos(const std::function<void()>& f) {
  const auto inicio = std::chrono::steady_clock::now();
  f();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - inicio).count();
}

// An optional text after --razones selects the measurements whose name contains it.
int razones(const char* filtro) {
  int cortas = 0;
  for (const Medida& m : medidas()) {
    if (m.nombre.find(filtro) == std::string::npos) continue;
    const double r = m.medir();
    const bool bien = r >= m.minimo;
    cortas += bien ? 0 : 1;
    std::printf("%s %.2f %.2f %s\n", m.nombre.c_str(), r, m.minimo, bien ? "ok" : "short");
    std::fflush(stdout);
  }
  return cortas > 0 ? 1 : 0;
}

}  // namespace

std::vector<Medida>& medidas() {
  static std::vector<Medida> todas;
  return todas;
}

AltaMedida::AltaMedida(std::string nombre, double minimo, std::function<double()> medir) {
  medidas().push_back({std::move(nombre), minimo, std::move(medir)});
}

double mediana(std::vector<double> v) {
  std::ranges::nth_element(v, v.begin() + static_cast<std::ptrdiff_t>(v.size() / 2));
  return v[v.size() / 2];
}

double medianaDe(int veces, const Cifra& medir) {
  std::vector<double> v;
  for (int i = 0; i < veces; ++i) v.push_back(medir());
  return mediana(std::move(v));
}

double razonDeCifras(const Cifra& nuestra, const Cifra& limite, int vueltas) {
  std::vector<double> razones;
  for (int i = 0; i < vueltas; ++i) {
    const bool primeroNuestra = i % 2 == 0;
    const double a = primeroNuestra ? nuestra() : limite();
    const double b = primeroNuestra ? limite() : nuestra();
    razones.push_back(primeroNuestra ? b / a : a / b);
  }
  return mediana(std::move(razones));
}

double razonDe(const Lado& nuestro, const Lado& limite, int vueltas) {
  const auto medir = [](const Lado& lado) {
    double s = 0;
    lado([&s](const std::function<void()>& f) { s = segundos(f); });
    return s;
  };
  medir(nuestro);
  medir(limite);
  return razonDeCifras([&] { return medir(nuestro); }, [&] { return medir(limite); }, vueltas);
}

double razon(const std::function<void()>& nuestro, const std::function<void()>& limite,
             int vueltas) {
  return razonDe([&](const Cronometro& c) { c(nuestro); }, [&](const Cronometro& c) { c(limite); },
                 vueltas);
}

}  // namespace tarvo::banco

int main(int argc, char** argv) {
  if (argc > 1 && std::strcmp(argv[1], "--razones") == 0)
    return tarvo::banco::razones(argc > 2 ? argv[2] : "");
  if (argc > 2 && std::strcmp(argv[1], "--noche") == 0)
    return tarvo::banco::noche(std::atoi(argv[2]));
  if (argc > 2 && std::strcmp(argv[1], "--exporta") == 0)
    return tarvo::banco::exporta(std::atoi(argv[2]));
  if (argc > 4 && std::strcmp(argv[1], "--noche-pared") == 0)
    return tarvo::banco::nochePared(std::atoi(argv[2]), std::atoi(argv[3]),
                                    std::strcmp(argv[4], "tcp") == 0);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 64;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
