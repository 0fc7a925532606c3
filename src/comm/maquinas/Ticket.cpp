// The header lines of the ticket, stored as "L:f:text": C above the ticket's body, P below it.
#include "comm/maquinas/EscritorPieza.h"

namespace tarvo::maquinas {

namespace {

constexpr int kCodigoTicket = 300, kCodigoTicketNodal = 33;
constexpr int kLineasDeTicket = 6, kLineasDeTicketNodal = 5;
constexpr int kPrimeraLetra = 14;  // code of font 0

struct LineaGuardada {
  bool hay = false;
  QChar letra;
  int fuente = 0;
  QString texto;
  QString entera = {};
};

LineaGuardada leerLinea(const QString& linea) {
  LineaGuardada l{true, linea.isEmpty() ? QChar() : linea[0], 0, {}, linea};
  if (linea.size() > 2) l.fuente = std::max(linea[2].digitValue(), 0);
  if (linea.size() > 3) l.texto = linea.mid(4);
  return l;
}

QStringList lineasDelTicket(const QString& RZSOCIAL) {
  QStringList lineas = RZSOCIAL.split(QStringLiteral("\r\n"));
  if (lineas.last().isEmpty()) lineas.removeLast();
  return lineas;
}

int cuantasLineas(TipoGrupo tipo) {
  return tipo == TipoGrupo::Ebony ? kLineasDeTicketNodal : kLineasDeTicket;
}

// A line of another shape: what has been read of it goes. `letra`: the one that has a meaning.
void compararLinea(const LineaGuardada& l, QChar letra, EscritorPieza& e) {
  const QString va = letra + QStringLiteral(":%1:%2").arg(l.fuente).arg(l.texto);
  if (va.startsWith(l.entera)) return;
  if (l.texto.trimmed().isEmpty())
    e.distinta(Causa::EnBlanco, l.entera);
  else
    e.distinta(Causa::OtrasCifras, l.entera, va);
}

Pieza piezaDeLinea(TipoGrupo tipo, int numero, const LineaGuardada& l) {
  const bool birch = tipo == TipoGrupo::Birch;
  const char sitio = l.letra == u'C' ? '1' : l.letra == u'P' ? '2' : '0';
  const int fuente = l.hay ? kPrimeraLetra + (birch ? 1 : 0) + l.fuente : kPrimeraLetra;
  EscritorPieza e(tipo, Asunto::LineaDeTicket, kCodigoTicket, numero);
  compararLinea(l, sitio == '0' ? u' ' : l.letra, e);
  return e.numero(numero, 1)
      .caracter(fuente)
      .texto(l.texto, birch ? 37 : 27)
      .crudo(QByteArray(1, l.hay ? sitio : '0'))
      .pieza();
}

Pieza piezaDeLineaNodal(int maquina, int numero, const LineaGuardada& l) {
  EscritorPieza e(TipoGrupo::Ebony, Asunto::LineaDeTicket, kCodigoTicketNodal, numero);
  compararLinea(l, l.letra, e);
  e.numero(maquina, 2).numero(numero, 1).numero(l.fuente, 1);
  return e.texto(l.hay ? QString(l.letra) : QStringLiteral("P"), 1).texto(l.texto, 32).pieza();
}

}  // namespace

Piezas piezasDeTicket(TipoGrupo tipo, int maquina, const QString& RZSOCIAL) {
  const bool nodal = tipo == TipoGrupo::Ebony;
  const QStringList lineas = lineasDelTicket(RZSOCIAL);
  Piezas salida;
  for (int numero = 1; numero <= cuantasLineas(tipo); ++numero) {
    const LineaGuardada l =
        numero <= lineas.size() ? leerLinea(lineas[numero - 1]) : LineaGuardada{};
    salida.push_back(nodal ? piezaDeLineaNodal(maquina, numero, l) : piezaDeLinea(tipo, numero, l));
  }
  return salida;
}

Diferencias perdidasDeTicket(TipoGrupo tipo, const QString& RZSOCIAL) {
  const QStringList lineas = lineasDelTicket(RZSOCIAL);
  Diferencias salida;
  for (int n = cuantasLineas(tipo); n < lineas.size(); ++n)
    if (const LineaGuardada l = leerLinea(lineas[n]); !l.texto.trimmed().isEmpty())
      salida.push_back({Asunto::LineaDeTicket, n + 1, Causa::DeSobra, l.texto});
  return salida;
}

}  // namespace tarvo::maquinas
