// Writes the fields of a configuration frame, and notes what doesn't fit. Internal to the room.
#pragma once

#include "comm/maquinas/Articulo.h"
#include "comm/maquinas/Configuracion.h"
#include "comm/maquinas/Letras.h"

namespace tarvo::maquinas {

class EscritorPieza {
 public:
  EscritorPieza(TipoGrupo tipo, Asunto asunto, int codigo, int numero = 0) : tipo_(tipo) {
    pieza_.asunto = asunto;
    pieza_.numero = numero;
    pieza_.peticion.codigo = codigo;
  }
  EscritorPieza& numero(qint64 n, int ancho) {
    const QByteArray cifras = Ceros(n, ancho);
    pieza_.vale = pieza_.vale && n >= 0 && cifras.size() <= ancho;
    return crudo(cifras);
  }
  EscritorPieza& siNo(bool si) { return crudo(si ? "1" : "0"); }
  // A character by its code.
  EscritorPieza& caracter(qint64 codigo) {
    constexpr qint64 kMayor = 255;
    pieza_.vale = pieza_.vale && codigo >= 0 && codigo <= kMayor;
    return crudo(QByteArray(1, static_cast<char>(codigo)));
  }
  // A text of exactly that width, in the machine's letters, with `fin` after it.
  EscritorPieza& texto(const QString& t, int ancho, QByteArrayView fin = {}) {
    const Escrito e = escribirLetras(tipo_, t, ancho);
    anotarCambiadas(e);
    if (e.bytes.size() == ancho && largoDe(t) > ancho)
      distinta(Causa::NoCabe, t, textoDeBalanza(tipo_, e.bytes));
    return crudo(Campo(e.bytes + fin.toByteArray(), ancho));
  }
  // The last `ancho` characters of a bar code format, zeros on its left. `usado`: not only there to
  // fill a field that the machine won't look at.
  EscritorPieza& formatoDeCodigo(const QString& t, int ancho, bool usado = true) {
    constexpr qsizetype kMasLargo = 64;
    const Escrito e = escribirLetras(tipo_, t, kMasLargo);
    const QByteArray va = e.bytes.right(ancho);
    anotarCambiadas(e);
    if (usado && largoDe(t) > ancho) distinta(Causa::NoCabe, t, textoDeBalanza(tipo_, va));
    return crudo(va.rightJustified(ancho, '0'));
  }
  // Digits of a stored line as they are there; anything else can't be sent.
  EscritorPieza& cifras(QStringView t) {
    for (const QChar c : t) pieza_.vale = pieza_.vale && c >= u'0' && c <= u'9';
    return crudo(t.toLatin1());
  }
  EscritorPieza& crudo(const QByteArray& bytes) {
    pieza_.peticion.datos += bytes;
    return *this;
  }
  EscritorPieza& distinta(Causa causa, const QString& escrito, const QString& va = {}) {
    pieza_.diferencias.push_back({pieza_.asunto, pieza_.numero, causa, escrito, va});
    return *this;
  }
  Pieza pieza() const { return pieza_; }

 private:
  void anotarCambiadas(const Escrito& e) {
    for (const QChar c : e.cambiadas)
      if (!pieza_.cambiadas.contains(c)) pieza_.cambiadas += c;
  }
  // In the machine's letters, without blanks at its end.
  qsizetype largoDe(const QString& t) const {
    constexpr qsizetype kPorLetra = 4;
    const QByteArray todo = escribirLetras(tipo_, t, (t.size() + 1) * kPorLetra).bytes;
    qsizetype n = todo.size();
    while (n > 0 && todo[n - 1] == ' ') --n;
    return n;
  }

  TipoGrupo tipo_;
  Pieza pieza_;
};

// The lines of a stored text, up to the first empty one.
inline QStringList lineasDe(const QString& texto) {
  QStringList lineas;
  for (const QString& linea : texto.split(QStringLiteral("\r\n"))) {
    if (linea.trimmed().isEmpty()) break;
    lineas += linea.trimmed();
  }
  return lineas;
}
// All that aren't empty.
inline QStringList todasLasLineasDe(const QString& texto) {
  QStringList lineas;
  for (const QString& linea : texto.split(QStringLiteral("\r\n")))
    if (!linea.trimmed().isEmpty()) lineas += linea.trimmed();
  return lineas;
}

}  // namespace tarvo::maquinas
