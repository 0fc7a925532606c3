#include "comm/ventanas/EdiParms.h"

#include "comm/ventanas/TextosCommVentanas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

LineaSerie LineaSerie::leer(const QString& rs232) {
  const QStringList partes = rs232.split(u',');
  LineaSerie l;
  const auto numero = [&](qsizetype i, int& donde) {
    bool vale = false;
    const int n = partes.value(i).trimmed().toInt(&vale);
    if (vale) donde = n;
  };
  numero(0, l.baudios);
  numero(2, l.bits);
  numero(3, l.parada);
  const QString p = partes.value(1).trimmed().toUpper();
  if (p.size() == 1 && QStringView(u"EON").contains(p.front())) l.paridad = p.front().unicode();
  return l;
}

QString LineaSerie::escribir() const {
  return u"%1,%2,%3,%4"_s.arg(baudios).arg(QChar(paridad)).arg(bits).arg(parada);
}

EdiParms::EdiParms(Contexto& c, const QString& nombre) : FichaDe(c, nombre) {
  auto f = formulario(kTxEdiParms);
  f.fila(kTxPuerto, u"Puerto"_s, numero(r.puerto, 1, 16));
  f.fila(kTxBaudios, u"Baudios"_s, r.linea.baudios,
         numeros({300, 600, 1200, 2400, 4800, 9600, 19200}));
  f.fila(kTxParidad, u"Paridad"_s, r.linea.paridad,
         {{u'E', t(kTxParidadPar)}, {u'O', t(kTxParidadImpar)}, {u'N', t(kTxParidadNinguna)}});
  f.fila(kTxBitsDatos, u"BitsDatos"_s, r.linea.bits, numeros({5, 6, 7, 8}));
  f.fila(kTxBitsParada, u"BitsParada"_s, r.linea.parada, numeros({1, 2}));
  f.casilla(kTxVigilarCTS, u"CTS"_s, r.cts);
  f.casilla(kTxVigilarDSR, u"DSR"_s, r.dsr);
  f.muelle();
  acabar({520, 340});
}

Resultado<> EdiParms::entrar(const PuertaEdiParms& p) {
  canal_ = p.canal;
  setWindowTitle(u"%1. %2"_s.arg(t(kTxEdiParms), t(kTxCanal).arg(p.numero)));
  return editar({p.canal.Puerto, LineaSerie::leer(p.canal.RS232), (p.canal.ControlLinea & 1) != 0,
                 (p.canal.ControlLinea & 2) != 0});
}

void EdiParms::aplicada() {
  canal_.Puerto = r.puerto;
  canal_.RS232 = r.linea.escribir();
  canal_.ControlLinea = 2 * int{r.dsr} + int{r.cts};
  entregar(canal_);
}

}  // namespace tarvo::comm
