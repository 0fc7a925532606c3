#include <cmath>

#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::ventanas {

const std::array<QColor, static_cast<size_t>(Tinte::Cuantos)>& tintes(Cara cara) {
  // In the order of Tinte.
  static const std::array<QColor, static_cast<size_t>(Tinte::Cuantos)> kClara{
      0xf3f5f7, 0xffffff, 0xf8f9fb, 0x1b1f24, 0x59616b, 0x7b838d, 0xdfe3e8, 0xffffff, 0x0b5cad,
      0xffffff, 0xd3e4f6, 0x0f1a26, 0x176532, 0x744700, 0xa3172b, 0xe2f2e6, 0xfff0d4, 0xfce5e7};
  static const std::array<QColor, static_cast<size_t>(Tinte::Cuantos)> kOscura{
      0x1f2328, 0x171a1e, 0x1b1f24, 0xe6e9ed, 0xa2aab4, 0x757e89, 0x343a42, 0x2b3138, 0x74b4f6,
      0x0b1620, 0x264563, 0xf2f6fa, 0x7ecd92, 0xe9b85d, 0xf69098, 0x1b3223, 0x382d15, 0x3e2024};
  return cara == Cara::Clara ? kClara : kOscura;
}

namespace {

double lineal(double canal) {
  return canal <= 0.04045 ? canal / 12.92 : std::pow((canal + 0.055) / 1.055, 2.4);
}

double luminancia(const QColor& c) {
  return 0.2126 * lineal(c.redF()) + 0.7152 * lineal(c.greenF()) + 0.0722 * lineal(c.blueF());
}

}  // namespace

double contraste(const QColor& a, const QColor& b) {
  const double x = luminancia(a) + 0.05, y = luminancia(b) + 0.05;
  return std::max(x, y) / std::min(x, y);
}

}  // namespace tarvo::ventanas
