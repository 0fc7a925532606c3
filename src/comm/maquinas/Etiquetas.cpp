// Label formats: each position is cleared, and then filled line by line.
#include "comm/maquinas/EscritorPieza.h"

namespace tarvo::maquinas {

namespace {

constexpr int kVaciar = 420, kLineaDeFormato = 400, kTexto = 410, kTextoBirch = 440;
constexpr qsizetype kLargoDeLinea = 15;
// Before a text that has no header line.
const QString kCabecera = QStringLiteral("001910000000000");

Pieza vaciar(TipoGrupo tipo, int posicion, const QString& texto) {
  EscritorPieza e(tipo, Asunto::FormatoDeEtiqueta, kVaciar, posicion);
  const QStringList todas = todasLasLineasDe(texto);
  if (const qsizetype van = lineasDe(texto).size(); van < todas.size())
    e.distinta(Causa::LineaVacia, todas[van]);
  return e.numero(posicion, 2).pieza();
}

void formato(TipoGrupo tipo, int posicion, const QString& texto, Piezas& salida) {
  QStringList lineas = lineasDe(texto);
  if (lineas.isEmpty()) return;
  if (lineas.first().left(2) > u"00") lineas.prepend(kCabecera);
  const QString cabecera = lineas.first().mid(2, 7);
  int n = 0;
  for (const QString& linea : lineas) {
    Pieza p = EscritorPieza(tipo, Asunto::FormatoDeEtiqueta, kLineaDeFormato, posicion)
                  .numero(posicion, 2)
                  .cifras(cabecera)
                  .numero(++n, 2)
                  .cifras(linea)
                  .pieza();
    p.vale = p.vale && linea.size() == kLargoDeLinea;
    salida.push_back(p);
  }
}

}  // namespace

Piezas piezasDeEtiquetas(TipoGrupo tipo, const FormatosDeEtiqueta& formatos,
                         const std::optional<std::array<QString, 20>>& textos) {
  Piezas salida;
  int posicion = 0;
  for (const auto& f : formatos) {
    ++posicion;
    salida.push_back(vaciar(tipo, posicion, f.value_or(QString())));
    if (f) formato(tipo, posicion, *f, salida);
  }
  if (!textos) return salida;
  if (tipo == TipoGrupo::Birch) {
    constexpr int kJuegos = 9, kPorJuego = kTextosDeBirch;
    for (int n = 0; n < kJuegos * kPorJuego; ++n)
      salida.push_back(EscritorPieza(tipo, Asunto::TextoDeEtiqueta, kTextoBirch, n % kPorJuego + 21)
                           .numero(n / kPorJuego + 1, 1)
                           .numero(n % kPorJuego + 1, 1)
                           .texto((*textos)[static_cast<size_t>(n % kPorJuego)], 37)
                           .pieza());
    return salida;
  }
  int n = 0;
  for (const QString& texto : *textos) {
    ++n;
    salida.push_back(EscritorPieza(tipo, Asunto::TextoDeEtiqueta, kTexto, n + 20)
                         .numero(n, 2)
                         .texto(texto, 27)
                         .pieza());
  }
  return salida;
}

}  // namespace tarvo::maquinas
