#include "comm/tramas/Trama.h"

namespace tarvo::tramas {

namespace {

constexpr int kMinimoVEK = 12;  // STX, sequence, station, five digits, check, ETX

bool cifrasVEK(const QByteArray& texto, int desde, int cuantas) {
  for (int i = desde; i < desde + cuantas; ++i)
    if (texto[i] < '0' || texto[i] > '9') return false;
  return true;
}

QByteArray decimal(int numero, int cifras) {
  return QByteArray::number(numero).rightJustified(cifras, '0');
}

// The sum of the characters of `texto` in a range, modulo 100.
int controlVEK(const QByteArray& texto, int desde, qsizetype hasta) {
  unsigned suma = 0;
  for (qsizetype i = desde; i < hasta; ++i) suma += static_cast<unsigned char>(texto[i]);
  return static_cast<int>(suma % 100);
}

bool estacionVEK(char c) {
  return (c >= '1' && c <= '9') || (c >= 'A' && c <= 'F') || c == 'V';
}

// The value of any station sign, -1 for none: letters count on from 10, but V is 0.
int valorDeEstacion(char c) {
  if (c == 'V') return 0;
  if (c >= '1' && c <= '9') return c - '0';
  return c >= 'A' && c <= 'Z' ? c - 'A' + 10 : -1;
}

char letraDeEstacion(int estacion) {
  if (estacion == 0) return 'V';
  return static_cast<char>(estacion < 10 ? '0' + estacion : 'A' + estacion - 10);
}

// All of the form but the station.
bool formaVEK(const QByteArray& t) {
  return t.size() >= kMinimoVEK && t.front() == kSTX && t.back() == kETX && cifrasVEK(t, 1, 2) &&
         cifrasVEK(t, 4, 5) && cifrasVEK(t, static_cast<int>(t.size()) - 3, 2);
}

bool enteraVEK(const QByteArray& t) {
  return formaVEK(t) && t.mid(t.size() - 3, 2).toInt() == controlVEK(t, 1, t.size() - 3);
}

bool buenaVEK(const QByteArray& t) {
  return enteraVEK(t) && estacionVEK(t[3]);
}

TramaVEK campos(const QByteArray& t, bool ancha) {
  TramaVEK trama;
  trama.secuencia = t.mid(1, 2).toInt();
  if (!ancha) trama.addr = t.mid(4, 2).toInt();
  trama.codigo = ancha ? t.mid(4, 4).toInt() : t.mid(6, 3).toInt();
  const int inicio = ancha ? 8 : 9;
  trama.datos = t.mid(inicio, t.size() - 3 - inicio);
  return trama;
}

}  // namespace

QByteArray cuerpoVEK(int addr, int codigo, const QByteArray& datos) {
  QByteArray limpios = datos;
  limpios.replace(kETX, ' ');
  return decimal(addr, 2) + decimal(codigo, 3) + limpios;
}

QByteArray construirVEK(int secuencia, const QByteArray& cuerpo, int estacion) {
  QByteArray trama = kSTX + decimal(secuencia, 2) + letraDeEstacion(estacion) + cuerpo;
  const int control = controlVEK(trama, 1, trama.size());
  return trama + decimal(control, 2) + kETX;
}

LecturaVEK leerVEK(QByteArray& buffer, bool ancha) {
  LecturaVEK lectura;
  while (!buffer.isEmpty() && buffer.front() != kACK) {
    const qsizetype fin = buffer.indexOf(kETX);
    if (fin < 0) {
      if (buffer.size() > kMaxPendiente) buffer.clear();
      break;
    }
    const QByteArray cortada = buffer.left(fin + 1);
    buffer.remove(0, fin + 1);
    if (!buenaVEK(cortada)) return {{}, {}, true};
    if (lectura.trama) lectura.previas.push_back(std::move(*lectura.trama));
    lectura.trama = campos(cortada, ancha);
  }
  return lectura;
}

std::optional<RespuestaDeEstacion> leerRespuestaVEK(const QByteArray& pieza) {
  const qsizetype ack = pieza.lastIndexOf(QByteArray(1, kACK) + kSTX);
  if (ack < 0) return std::nullopt;
  const QByteArray trama = pieza.mid(ack + 1);
  if (!enteraVEK(trama) || valorDeEstacion(trama[3]) < 0) return std::nullopt;
  RespuestaDeEstacion r{valorDeEstacion(trama[3]), campos(trama, false)};
  return r.trama.addr == 0 ? std::optional(std::move(r)) : std::nullopt;
}

TramaVEK estrecha(const TramaVEK& ancha) {
  TramaVEK trama = ancha;
  trama.addr = ancha.codigo / 100;
  trama.codigo = ancha.codigo % 100 * 10 + (ancha.datos.isEmpty() ? 0 : ancha.datos.front() - '0');
  trama.datos = ancha.datos.mid(1);
  return trama;
}

}  // namespace tarvo::tramas
