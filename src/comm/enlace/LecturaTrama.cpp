#include "comm/enlace/LecturaTrama.h"

#include <algorithm>

#include "comm/enlace/Escucha.h"
#include "comm/tramas/Trama.h"

namespace tarvo::enlace {

namespace {

// The codes above 999; none of them begins with the digits of a code of three.
constexpr int kAnchos[] = {2057, 2060, 3054, 3056, 3058, 4003, 4098};
constexpr qsizetype kDondeVek = 6, kFinVek = 3;  // start of the code; check and end sign

bool sonCifras(const QByteArray& b, qsizetype desde, qsizetype cuantas, bool hexa) {
  if (b.size() < desde + cuantas) return false;
  return std::all_of(b.begin() + desde, b.begin() + desde + cuantas, [hexa](char c) {
    return (c >= '0' && c <= '9') || (hexa && c >= 'A' && c <= 'F');
  });
}

void leerVek(const QByteArray& b, bool sale, bool ancha, LecturaTrama& l) {
  if (!sonCifras(b, 1, 2, false) || !sonCifras(b, 4, 4, false) || b.size() < 11) return;
  QByteArray copia = b;
  l.buena = tramas::leerVEK(copia, false).trama.has_value();
  l.que = LecturaTrama::Vek;
  l.secuencia = b.mid(1, 2).toInt();
  l.estacion = b.mid(3, 1);
  const bool sinAddr = ancha && !sale;
  const qsizetype donde = sinAddr ? 4 : kDondeVek, ancho = ancha ? 4 : 3;
  if (!sinAddr) l.addr = b.mid(4, 2).toInt();
  l.codigo = b.mid(donde, ancho).toInt();
  l.datos = b.mid(donde + ancho, std::max<qsizetype>(b.size() - kFinVek - donde - ancho, 0));
}

void leerNodal(const QByteArray& b, LecturaTrama& l) {
  if (!sonCifras(b, 1, 8, true) || b.size() < 13) return;
  QByteArray copia = b;
  l.buena = tramas::leerNODAL(copia).trama.has_value();
  l.que = LecturaTrama::Nodal;
  l.estacion = b.mid(1, 2) + '>' + b.mid(3, 2);
  l.secuencia = b.mid(5, 2).toInt(nullptr, 16);
  l.codigo = b.mid(7, 2).toInt(nullptr, 16);
  l.datos = b.mid(9, b.size() - 13);
}

}  // namespace

bool llevaCodigoAncho(const QByteArray& trama) {
  return sonCifras(trama, kDondeVek, 4, false) &&
         std::ranges::find(kAnchos, trama.mid(kDondeVek, 4).toInt()) != std::end(kAnchos);
}

LecturaTrama leerPaso(const Paso& paso) {
  LecturaTrama l;
  const QByteArray& b = paso.bytes;
  if (b.size() == 1 && (b.front() == tramas::kACK || b.front() == tramas::kNAK)) {
    l.que = b.front() == tramas::kACK ? LecturaTrama::Ack : LecturaTrama::Nak;
    l.buena = true;
  } else if (b.startsWith(tramas::kSTX) && b.endsWith(paso.nodal ? tramas::kCR : tramas::kETX)) {
    paso.nodal ? leerNodal(b, l) : leerVek(b, paso.sentido == Sentido::Sale, paso.ancha, l);
  }
  if (l.que == LecturaTrama::Ruido) l.datos = b;
  return l;
}

}  // namespace tarvo::enlace
