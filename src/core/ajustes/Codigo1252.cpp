#include <QStringDecoder>
#include <algorithm>
#include <optional>

#include "core/ajustes/Ficheros.h"
#include "core/valores/Codigo1252.h"

namespace tarvo::ficheros {

namespace {

constexpr char kMarca[] = "\xEF\xBB\xBF";

// The text of bytes that are valid UTF-8 throughout, some of them above ASCII: as Windows-1252 they
// would be an accented capital before each sign, which nobody writes.
std::optional<QString> deUtf8(const QByteArray& bytes) {
  if (std::ranges::none_of(bytes, [](char c) { return (c & 0x80) != 0; })) return std::nullopt;
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString texto = utf8(bytes);
  if (utf8.hasError()) return std::nullopt;
  return texto;
}

}  // namespace

QString descodificar(const QByteArray& bytes) {
  if (bytes.startsWith(kMarca)) return QString::fromUtf8(bytes.mid(3));
  if (auto texto = deUtf8(bytes)) return std::move(*texto);
  return descodificar1252(bytes);
}

QString descodificar1252(const QByteArray& bytes) {
  QString texto = QString::fromLatin1(bytes);
  for (QChar& c : texto) c = QChar(caracter1252(static_cast<unsigned char>(c.unicode())));
  return texto;
}

QByteArray codificar1252(const QString& texto, char reemplazo) {
  QByteArray bytes;
  bytes.reserve(texto.size());
  for (const QChar c : texto) {
    if (c.isLowSurrogate()) continue;  // its high half has been replaced already
    const int b = byte1252(c.unicode());
    bytes.append(b < 0 ? reemplazo : static_cast<char>(b));
  }
  return bytes;
}

QByteArray codificar(const QString& texto) {
  for (const QChar c : texto)
    if (byte1252(c.unicode()) < 0) return kMarca + texto.toUtf8();
  QByteArray bytes = codificar1252(texto);
  if (deUtf8(bytes)) return kMarca + texto.toUtf8();
  return bytes;
}

}  // namespace tarvo::ficheros
