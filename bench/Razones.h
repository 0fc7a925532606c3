// Measurements compared with their limit in the same run.
//
// A file of this folder registers one with a static object:
//
//   const banco::AltaMedida kMedida("store.seek", 0.7, [] { return banco::razon(ours, limit); });
//
// `tarvo-bench --razones` runs them all and prints "name ratio least ok|short" for each.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tarvo::banco {

struct Medida {
  std::string nombre;
  double minimo;                  // the ratio that is good enough
  std::function<double()> medir;  // our rate divided by the limit's
};

std::vector<Medida>& medidas();

struct AltaMedida {
  AltaMedida(std::string nombre, double minimo, std::function<double()> medir);
};

// The limit's time divided by ours for the same work. After one warm-up run the sides run
// alternately, `vueltas` times each; the result is the median of the ratios of neighbours, so that
// a temporarily slower computer slows both sides of a ratio.
double razon(const std::function<void()>& nuestro, const std::function<void()>& limite,
             int vueltas = 5);

// The same for a side with preparation and clean-up: it calls its argument once with its work, and
// only that is timed.
using Cronometro = std::function<void(const std::function<void()>&)>;
using Lado = std::function<void(const Cronometro&)>;
double razonDe(const Lado& nuestro, const Lado& limite, int vueltas = 5);

// The same for sides that measure themselves, such as processes that print their cost; without a
// warm-up, as each starts anew.
using Cifra = std::function<double()>;
double razonDeCifras(const Cifra& nuestra, const Cifra& limite, int vueltas = 3);

// For a figure with a fixed limit: one run says nothing about the next.
double mediana(std::vector<double> v);
double medianaDe(int veces, const Cifra& medir);

}  // namespace tarvo::banco
