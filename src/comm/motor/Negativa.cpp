#include "comm/motor/Negativa.h"

#include <QByteArray>
#include <algorithm>

namespace tarvo::motor {

std::optional<int> numeroDeNegativa(QByteArrayView datos) {
  if (!datos.startsWith(kMarcaNegativa)) return {};
  const QByteArrayView resto = datos.sliced(kMarcaNegativa.size());
  const QByteArray cifras = resto.first(std::min<qsizetype>(2, resto.size())).toByteArray();
  const auto esCifra = [](char c) { return c >= '0' && c <= '9'; };
  const bool dos = cifras.size() == 2 && std::ranges::all_of(cifras, esCifra);
  const int n = cifras.trimmed().toInt();
  if (!dos && (n < 1 || n > kUltimaNegativa)) return {};
  return n;
}

}  // namespace tarvo::motor
