#include "comm/tramas/Trama.h"

namespace tarvo::tramas {

namespace {

constexpr int kMinimoNODAL = 13;  // STX, four fields, ETX, check, CR

QByteArray hexadecimal(int numero) {
  return QByteArray::number(numero & 0xFF, 16).toUpper().rightJustified(2, '0');
}

bool cifrasNODAL(const QByteArray& texto, int desde, int cuantas) {
  for (int i = desde; i < desde + cuantas; ++i) {
    const char c = texto[i];
    if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'))) return false;
  }
  return true;
}

int campoNODAL(const QByteArray& linea, qsizetype desde) {
  return linea.mid(desde, 2).toInt(nullptr, 16);
}

// The sum that the check must complete to a multiple of 256.
int sumaNODAL(const TramaNODAL& t) {
  unsigned suma = static_cast<unsigned>(t.origen + t.destino + t.secuencia + t.codigo);
  for (const char c : t.datos) suma += static_cast<unsigned char>(c);
  return static_cast<int>(suma & 0xFF);
}

bool formaNODAL(const QByteArray& l) {
  const int n = static_cast<int>(l.size());
  return n >= kMinimoNODAL && l.front() == kSTX && cifrasNODAL(l, 1, 8) && l[n - 4] == kETX &&
         cifrasNODAL(l, n - 3, 2);
}

std::optional<TramaNODAL> camposNODAL(const QByteArray& l) {
  if (!formaNODAL(l)) return std::nullopt;
  TramaNODAL t{campoNODAL(l, 1), campoNODAL(l, 3), campoNODAL(l, 5), campoNODAL(l, 7),
               l.mid(9, l.size() - kMinimoNODAL)};
  if (((sumaNODAL(t) + campoNODAL(l, l.size() - 3)) & 0xFF) != 0) return std::nullopt;
  return t;
}

}  // namespace

QByteArray construirNODAL(const TramaNODAL& trama) {
  TramaNODAL t{trama.origen & 0xFF, trama.destino & 0xFF, trama.secuencia & 0xFF,
               trama.codigo & 0xFF, trama.datos};
  t.datos.replace(kCR, ' ');
  return kSTX + hexadecimal(t.origen) + hexadecimal(t.destino) + hexadecimal(t.secuencia) +
         hexadecimal(t.codigo) + t.datos + kETX + hexadecimal(256 - sumaNODAL(t)) + kCR;
}

LecturaNODAL leerNODAL(QByteArray& buffer) {
  const qsizetype fin = buffer.indexOf(kCR);
  if (fin < 0) {
    if (buffer.size() > kMaxPendiente) buffer.clear();
    return {};
  }
  const QByteArray linea = buffer.left(fin + 1);
  buffer.remove(0, fin + 1);
  return {true, camposNODAL(linea)};
}

}  // namespace tarvo::tramas
