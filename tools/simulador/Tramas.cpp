#include "simulador/Tramas.h"

#include <algorithm>

namespace tarvo::simulador {
namespace {

constexpr char kStx = 0x02, kEtx = 0x03, kAck = 0x06, kNak = 0x15, kCr = 0x0D;
constexpr qsizetype kTramaMaxima = 4096;

int sumaAnsi(const QByteArray& bytes, qsizetype desde, qsizetype hasta) {
  int suma = 0;
  for (qsizetype i = desde; i < hasta; ++i) suma += static_cast<unsigned char>(bytes[i]);
  return suma;
}

int valorEstacion(char letra) {
  if (letra == 'V') return 0;
  if (letra >= '1' && letra <= '9') return letra - '0';
  if (letra >= 'A' && letra <= 'F') return letra - 'A' + 10;
  return -1;
}

char letraEstacion(int estacion) {
  return "V123456789ABCDEF"[estacion & 15];
}

int dosHex(const QByteArray& trama, qsizetype desde) {
  int valor = 0;
  for (qsizetype i = desde; i < desde + 2; ++i) {
    const char c = trama[i];
    if (c >= '0' && c <= '9')
      valor = valor * 16 + (c - '0');
    else if (c >= 'A' && c <= 'F')
      valor = valor * 16 + (c - 'A' + 10);
    else
      return -1;
  }
  return valor;
}

QByteArray hex2(int valor) {
  return QByteArray::number(valor & 255, 16).toUpper().rightJustified(2, '0');
}

// STX SS station AA CCC[C] data KK ETX
bool interpretarVEK(const QByteArray& trama, bool ancha, Peticion& peticion) {
  const qsizetype largo = trama.size(), inicioDatos = ancha ? 10 : 9;
  if (largo < inicioDatos + 3) return false;
  const qint64 control = leerCampo(trama, int(largo) - 3, 2);
  if (control != sumaAnsi(trama, 1, largo - 3) % 100) return false;
  peticion.secuencia = int(leerCampo(trama, 1, 2));
  peticion.estacion = valorEstacion(trama[3]);
  peticion.addr = int(leerCampo(trama, 4, 2));
  peticion.codigo = int(leerCampo(trama, 6, ancha ? 4 : 3));
  peticion.datos = trama.mid(inicioDatos, largo - 3 - inicioDatos);
  return peticion.secuencia >= 0 && peticion.estacion >= 0 && peticion.addr >= 0 &&
         peticion.codigo >= 0;
}

// STX source destination sequence code data ETX KK CR
bool interpretarNODAL(const QByteArray& trama, Peticion& peticion) {
  const qsizetype largo = trama.size();
  if (largo < 13 || trama[largo - 4] != kEtx) return false;
  peticion.origen = dosHex(trama, 1);
  peticion.addr = dosHex(trama, 3);
  peticion.secuencia = dosHex(trama, 5);
  peticion.codigo = dosHex(trama, 7);
  const int control = dosHex(trama, largo - 3);
  if (std::min({peticion.origen, peticion.addr, peticion.secuencia, peticion.codigo, control}) < 0)
    return false;
  peticion.datos = trama.mid(9, largo - 13);
  const int suma = peticion.origen + peticion.addr + peticion.secuencia + peticion.codigo +
                   sumaAnsi(trama, 9, largo - 4) + control;
  return suma % 256 == 0;
}

QByteArray cerrarVEK(QByteArray trama) {
  const int control = sumaAnsi(trama, 1, trama.size()) % 100;
  return trama + campo(control, 2) + kEtx;
}

}  // namespace

std::vector<Entrada> LectorVEK::leer(const QByteArray& bytes) {
  std::vector<Entrada> entradas;
  for (const char c : bytes) {
    if (c == kStx) {
      trama_ = QByteArray(1, c);
    } else if (trama_.isEmpty()) {
      if (c == kAck) entradas.push_back({Clase::Ack});
      if (c == kNak) entradas.push_back({Clase::Nak});
    } else if (trama_.size() >= kTramaMaxima) {
      trama_.clear();
    } else {
      trama_ += c;
      if (c != kEtx) continue;
      Peticion peticion;
      if (interpretarVEK(trama_, ancha_, peticion)) entradas.push_back({Clase::Peticion, peticion});
      trama_.clear();
    }
  }
  return entradas;
}

std::vector<Entrada> LectorNODAL::leer(const QByteArray& bytes) {
  std::vector<Entrada> entradas;
  for (const char c : bytes) {
    if (c == kStx) {
      trama_ = QByteArray(1, c);
    } else if (!trama_.isEmpty()) {
      trama_ += c;
      if (c == kCr) {
        Peticion peticion;
        if (interpretarNODAL(trama_, peticion)) entradas.push_back({Clase::Peticion, peticion});
        trama_.clear();
      } else if (trama_.size() >= kTramaMaxima) {
        trama_.clear();
      }
    }
  }
  return entradas;
}

QByteArray tramaVEK(int secuencia, int estacion, int addr, int codigo, const QByteArray& datos) {
  return cerrarVEK(kStx + campo(secuencia, 2) + letraEstacion(estacion) + campo(addr, 2) +
                   campo(codigo, 3) + datos);
}

QByteArray tramaVEKAncha(int secuencia, int estacion, int codigo, const QByteArray& datos) {
  return cerrarVEK(kStx + campo(secuencia, 2) + letraEstacion(estacion) + campo(codigo, 4) + datos);
}

QByteArray tramaNODAL(int origen, int destino, int secuencia, int codigo, const QByteArray& datos) {
  const int suma = origen + destino + secuencia + codigo + sumaAnsi(datos, 0, datos.size());
  return kStx + hex2(origen) + hex2(destino) + hex2(secuencia) + hex2(codigo) + datos + kEtx +
         hex2(-suma) + kCr;
}

QByteArray campo(qint64 numero, int ancho) {
  const QByteArray texto = QByteArray::number(numero).rightJustified(ancho, '0');
  return texto.right(ancho);
}

qint64 leerCampo(const QByteArray& datos, int desde, int ancho) {
  if (desde < 0 || datos.size() < desde + ancho) return -1;
  qint64 valor = 0;
  for (int i = desde; i < desde + ancho; ++i) {
    if (datos[i] < '0' || datos[i] > '9') return -1;
    valor = valor * 10 + (datos[i] - '0');
  }
  return valor;
}

}  // namespace tarvo::simulador
