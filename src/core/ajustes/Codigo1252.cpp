#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <optional>

#include "core/ajustes/Ficheros.h"

namespace tarvo::ficheros {

namespace {

// Bytes 0x80 to 0x9F of Windows-1252; all others are Latin-1. The five bytes without a character
// stand for themselves, so that every byte comes back as it was.
constexpr std::array<char16_t, 32> kAltos = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char kMarca[] = "\xEF\xBB\xBF";

// The byte of a character, or -1.
int byteDe(char16_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return c;
  for (size_t i = 0; i < kAltos.size(); ++i)
    if (kAltos[i] == c) return static_cast<int>(0x80 + i);
  return -1;
}

// The text of bytes above ASCII that are UTF-8 throughout: in Windows-1252 they would be a capital
// letter with an accent before each sign, which nobody writes.
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
  for (QChar& c : texto)
    if (c.unicode() >= 0x80 && c.unicode() < 0xA0) c = QChar(kAltos[c.unicode() - 0x80]);
  return texto;
}

QByteArray codificar1252(const QString& texto, char reemplazo) {
  QByteArray bytes;
  bytes.reserve(texto.size());
  for (const QChar c : texto) {
    if (c.isLowSurrogate()) continue;  // its high half has given the one replacement
    const int b = byteDe(c.unicode());
    bytes.append(b < 0 ? reemplazo : static_cast<char>(b));
  }
  return bytes;
}

QByteArray codificar(const QString& texto) {
  for (const QChar c : texto)
    if (byteDe(c.unicode()) < 0) return kMarca + texto.toUtf8();
  QByteArray bytes = codificar1252(texto);
  if (deUtf8(bytes)) return kMarca + texto.toUtf8();
  return bytes;
}

}  // namespace tarvo::ficheros
