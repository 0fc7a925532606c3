#include "core/textos/Textos.h"

#include <QFile>
#include <QStringTokenizer>

namespace tarvo {

namespace {

constexpr int kMayorNumero = 22023;

// Takes one line; false if it is neither an entry nor a comment.
bool anadir(QStringView linea, std::unordered_map<int, QStringView>& tabla) {
  if (linea.endsWith(u'\r')) linea.chop(1);
  if (linea.trimmed().isEmpty() || linea.startsWith(u'#')) return true;
  const qsizetype tab = linea.indexOf(u'\t');
  bool bien = false;
  const int numero = tab < 0 ? -1 : linea.left(tab).toInt(&bien);
  if (!bien || numero < 0 || numero > kMayorNumero) return false;
  const QStringView resto = linea.mid(tab + 1);
  const qsizetype fin = resto.indexOf(u'\t');
  return tabla.emplace(numero, fin < 0 ? resto : resto.left(fin)).second;
}

}  // namespace

Resultado<Textos> Textos::leer(const QString& ruta) {
  QFile fichero(ruta);
  if (!fichero.open(QIODevice::ReadOnly))
    return fallo(Fallo::NoExiste,
                 QStringLiteral("No se puede leer la tabla de textos %1").arg(ruta));
  QByteArray bytes = fichero.readAll();
  if (bytes.startsWith("\xEF\xBB\xBF")) bytes.remove(0, 3);
  Textos textos;
  textos.contenido_ = QString::fromUtf8(bytes);
  textos.tabla_.reserve(static_cast<size_t>(bytes.count('\n')));
  int numeroLinea = 0;
  for (const QStringView linea : qTokenize(std::as_const(textos.contenido_), u'\n')) {
    ++numeroLinea;
    if (!anadir(linea, textos.tabla_))
      return fallo(Fallo::Formato, QStringLiteral("La línea %1 de la tabla de textos %2 no vale")
                                       .arg(QString::number(numeroLinea), ruta));
  }
  return textos;
}

QString Textos::operator()(int numero) const {
  const auto hallado = tabla_.find(numero);
  if (hallado == tabla_.end()) return {};
  QStringView texto = hallado->second;
  if (texto.endsWith(u'\'')) texto.chop(1);
  return texto.toString();
}

QString Textos::operator()(int numero, std::initializer_list<Dato> datos) const {
  const QString texto = (*this)(numero);
  QString lleno;
  lleno.reserve(texto.size() + 32);
  for (qsizetype i = 0; i < texto.size(); ++i) {
    const int marca = texto[i] == u'%' && i + 1 < texto.size() ? texto[i + 1].unicode() - u'1' : -1;
    if (marca < 0 || marca > 8 || marca >= static_cast<int>(datos.size())) {
      lleno += texto[i];
    } else {
      lleno += (datos.begin() + marca)->texto();
      ++i;
    }
  }
  return lleno;
}

bool Textos::tiene(int numero) const {
  return tabla_.contains(numero);
}

}  // namespace tarvo
