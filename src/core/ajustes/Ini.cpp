#include "core/ajustes/Ini.h"

#include <algorithm>
#include <cmath>

namespace tarvo::ini {

namespace {

bool cifra(QChar c) {
  return c >= u'0' && c <= u'9';
}

qsizetype trasCifras(QStringView texto, qsizetype i) {
  while (i < texto.size() && cifra(texto[i])) ++i;
  return i;
}

// Splits "Puerto(2)" into its name and its index; false if the brackets don't contain a number.
bool partirIndice(QStringView clave, Linea& linea) {
  const qsizetype abre = clave.indexOf(u'(');
  if (abre < 0 || !clave.endsWith(u')')) {
    linea.clave = clave.toString().toUpper();
    return true;
  }
  bool numerico = false;
  linea.indice = clave.mid(abre + 1, clave.size() - abre - 2).trimmed().toInt(&numerico);
  linea.clave = clave.left(abre).trimmed().toString().toUpper();
  return numerico && linea.indice >= 0;
}

}  // namespace

void recorrer(QStringView texto, const std::function<void(const Linea&)>& recibe) {
  while (!texto.isEmpty()) {
    // A carriage return alone ends a line too; the empty one between CR and LF is blank.
    const auto salto =
        std::ranges::find_if(texto, [](QChar c) { return c == u'\n' || c == u'\r'; });
    const qsizetype fin = salto == texto.end() ? -1 : salto - texto.begin();
    const QStringView renglon = fin < 0 ? texto : texto.left(fin);
    texto = fin < 0 ? QStringView() : texto.mid(fin + 1);
    const qsizetype igual = renglon.indexOf(u'=');
    Linea linea;
    linea.entera = renglon.trimmed().toString();
    if (linea.entera.isEmpty()) continue;
    if (igual >= 0 && partirIndice(renglon.left(igual).trimmed(), linea))
      linea.valor = renglon.mid(igual + 1).trimmed().toString();
    else
      linea.clave.clear();
    recibe(linea);
  }
}

namespace {

// The end of the longest leading number of a text.
qsizetype finDelNumero(QStringView texto) {
  qsizetype i = !texto.isEmpty() && (texto[0] == u'-' || texto[0] == u'+') ? 1 : 0;
  i = trasCifras(texto, i);
  if (i < texto.size() && (texto[i] == u'.' || texto[i] == u',')) i = trasCifras(texto, i + 1);
  if (i < texto.size() && (texto[i] == u'e' || texto[i] == u'E')) {
    qsizetype j = i + 1;
    if (j < texto.size() && (texto[j] == u'-' || texto[j] == u'+')) ++j;
    if (trasCifras(texto, j) > j) i = trasCifras(texto, j);
  }
  return i;
}

}  // namespace

bool esReal(QStringView texto) {
  texto = texto.trimmed();
  bool bien = false;
  const double x = texto.toString().replace(u',', u'.').toDouble(&bien);
  return bien && std::isfinite(x) && finDelNumero(texto) == texto.size();
}

bool esEntero(QStringView texto) {
  return esReal(texto) && std::trunc(real(texto)) == real(texto);
}

double real(QStringView texto) {
  texto = texto.trimmed();
  bool bien = false;
  const double x = texto.left(finDelNumero(texto)).toString().replace(u',', u'.').toDouble(&bien);
  return bien && std::isfinite(x) ? x : 0;
}

int entero(QStringView texto, int minimo, int maximo) {
  // A comma separates the values of a list; it is no decimal mark of a whole number.
  const qsizetype coma = texto.indexOf(u',');
  const double x = std::trunc(real(coma < 0 ? texto : texto.left(coma)));
  return static_cast<int>(std::clamp<double>(x, minimo, maximo));
}

QString enUnaLinea(QString valor) {
  for (QChar& c : valor)
    if (c == u'\r' || c == u'\n' || c.isNull()) c = u' ';
  return valor;
}

}  // namespace tarvo::ini
