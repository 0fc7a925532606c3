// Keyboards. A stored text lists its keys in ascending order and may leave some out.
#include "comm/maquinas/EscritorPieza.h"

namespace tarvo::maquinas {

namespace {

constexpr int kCodigoPlu = 0, kCodigoTara = 40, kCodigoTecla = 70, kCodigoTeclaNodal = 38;
constexpr int kSinFuncion = 999;

// The number at the head of a line, as far as it is one.
qint64 cabeza(QStringView linea, int ancho) {
  bool bien = false;
  const qint64 n = linea.left(ancho).toLongLong(&bien);
  return bien ? n : 0;
}

Pieza tecla(TipoGrupo tipo, int numero, const QString& linea) {
  return EscritorPieza(tipo, Asunto::Tecla, kCodigoTecla, numero)
      .cifras(QStringView(linea).left(3))
      .cifras(QStringView(linea).mid(4, 3))
      .pieza();
}

Pieza sinTecla(TipoGrupo tipo, int numero) {
  return EscritorPieza(tipo, Asunto::Tecla, kCodigoTecla, numero)
      .numero(numero, 3)
      .numero(kSinFuncion, 3)
      .pieza();
}

// "kk:L:vvvvvv"
Pieza teclaNodal(int maquina, int numero, const QString& linea) {
  bool bien = false;
  const qint64 valor = QStringView(linea).mid(5).toLongLong(&bien);
  EscritorPieza e(TipoGrupo::Ebony, Asunto::Tecla, kCodigoTeclaNodal, numero);
  e.numero(maquina, 2).numero(cabeza(linea, 2), 3);
  e.crudo(linea.mid(3, 1) == u'P' ? "00" : "01").numero(bien ? valor : -1, 5);
  return e.pieza();
}

Pieza sinTeclaNodal(int maquina, int numero) {
  return EscritorPieza(TipoGrupo::Ebony, Asunto::Tecla, kCodigoTeclaNodal, numero)
      .numero(maquina, 2)
      .numero(numero, 3)
      .crudo("0000000")
      .pieza();
}

// All key numbers in turn: a line is a key's if the number at its head isn't above it.
void teclas(TipoGrupo tipo, int maquina, int cuantas, const QString& texto, Piezas& salida) {
  const bool nodal = tipo == TipoGrupo::Ebony;
  const int ancho = nodal ? 11 : 7, enCabeza = nodal ? 2 : 3;
  const QStringList lineas = lineasDe(texto);
  qsizetype siguiente = 0;
  for (int numero = 1; numero <= cuantas; ++numero) {
    const bool suya = siguiente < lineas.size() && cabeza(lineas[siguiente], enCabeza) <= numero;
    if (!suya) {
      salida.push_back(nodal ? sinTeclaNodal(maquina, numero) : sinTecla(tipo, numero));
      continue;
    }
    const QString linea = lineas[siguiente++].leftJustified(ancho, u'0');
    salida.push_back(nodal ? teclaNodal(maquina, numero, linea) : tecla(tipo, numero, linea));
  }
}

}  // namespace

Piezas piezasDeTeclado(TipoGrupo tipo, int numero, int cuantas, const TextosDeTeclado& textos) {
  Piezas salida;
  if (tipo != TipoGrupo::Ebony) {
    for (const QString& corta : lineasDe(textos.HARDPLU)) {
      const QString linea = corta.leftJustified(11, u'0');
      salida.push_back(
          EscritorPieza(tipo, Asunto::PluDirecto, kCodigoPlu, static_cast<int>(cabeza(linea, 3)))
              .cifras(QStringView(linea).left(3))
              .cifras(QStringView(linea).mid(4, 7))
              .pieza());
    }
    for (const QString& corta : lineasDe(textos.TARASME)) {
      const QString linea = corta.leftJustified(7, u'0');
      salida.push_back(
          EscritorPieza(tipo, Asunto::TaraDirecta, kCodigoTara, static_cast<int>(cabeza(linea, 2)))
              .cifras(QStringView(linea).left(2))
              .cifras(QStringView(linea).mid(3, 4))
              .pieza());
    }
  }
  teclas(tipo, numero, cuantas, textos.Teclado, salida);
  return salida;
}

}  // namespace tarvo::maquinas
