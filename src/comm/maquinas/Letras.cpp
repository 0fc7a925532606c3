#include "comm/maquinas/Letras.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "comm/maquinas/Articulo.h"
#include "core/valores/Codigo1252.h"

namespace tarvo::maquinas {

namespace {

constexpr char16_t kEuroDeBalanza = 127;

struct Cambio {
  char16_t de, a;
};

// Characters at a family's own code points.
constexpr Cambio kBalanzas[] = {
    {u'Ñ', u'\\'}, {u'ñ', u'|'}, {u'Ç', u'}'}, {u'ç', u'}'}, {u'¿', u']'}};
constexpr Cambio kEbony[] = {{u'Ñ', u'['}, {u'ñ', u'['}, {u'Ç', u'C'}, {u'ç', u'c'}, {u'¿', u'?'}};
constexpr Cambio kBirch[] = {{u'¿', u'?'}};

constexpr std::span<const Cambio> propios(TipoGrupo tipo) {
  switch (tipo) {
    case TipoGrupo::Balanzas:
      return kBalanzas;
    case TipoGrupo::Ebony:
      return kEbony;
    case TipoGrupo::Registradoras:
      return {};
    case TipoGrupo::Birch:
      return kBirch;
  }
  std::unreachable();
}

// For every family. The last is a non-breaking space, which nobody sees.
constexpr Cambio kComunes[] = {
    {u'´', u' '},           {u'`', u' '}, {u'¨', u' '}, {u'á', u'a'}, {u'à', u'a'}, {u'ä', u'a'},
    {u'ª', u'a'},           {u'é', u'e'}, {u'è', u'e'}, {u'ë', u'e'}, {u'í', u'i'}, {u'ì', u'i'},
    {u'ï', u'i'},           {u'ó', u'o'}, {u'ò', u'o'}, {u'ö', u'o'}, {u'º', u'o'}, {u'ú', u'u'},
    {u'ù', u'u'},           {u'ü', u'u'}, {u'Á', u'A'}, {u'À', u'A'}, {u'Ä', u'A'}, {u'É', u'E'},
    {u'È', u'E'},           {u'Ë', u'E'}, {u'Í', u'I'}, {u'Ì', u'I'}, {u'Ï', u'I'}, {u'Ó', u'O'},
    {u'Ò', u'O'},           {u'Ö', u'O'}, {u'Ú', u'U'}, {u'Ù', u'U'}, {u'Ü', u'U'}, {u'¡', u'!'},
    {u'€', kEuroDeBalanza}, {0xA0, u' '}};

// Replacements for characters that a machine lacks.
struct Parecida {
  char16_t de;
  std::string_view a;
};
constexpr Parecida kParecidas[] = {
    {u'æ', "ae"},  {u'Æ', "AE"},  {u'œ', "oe"},  {u'Œ', "OE"}, {u'ß', "ss"}, {u'ø', "o"},
    {u'Ø', "O"},   {u'đ', "d"},   {u'Đ', "D"},   {u'ð', "d"},  {u'ł', "l"},  {u'Ł', "L"},
    {u'ı', "i"},   {u'ŀ', "l."},  {u'Ŀ', "L."},  {u'·', "."},  {u'•', "-"},  {u'…', "..."},
    {u'½', "1/2"}, {u'¼', "1/4"}, {u'¾', "3/4"}, {u'⁄', "/"},  {u'÷', "/"},  {u'×', "x"},
    {u'−', "-"},   {u'°', "o"},   {u'µ', "u"},   {u'‘', "'"},  {u'’', "'"},  {u'‚', "'"},
    {u'‛', "'"},   {u'ʼ', "'"},   {u'′', "'"},   {u'‹', "'"},  {u'›', "'"},  {u'“', "\""},
    {u'”', "\""},  {u'„', "\""},  {u'‟', "\""},  {u'″', "\""}, {u'«', "\""}, {u'»', "\""},
};

std::optional<char16_t> cambiada(std::span<const Cambio> cambios, char16_t c) {
  const auto it = std::ranges::find(cambios, c, &Cambio::de);
  if (it == cambios.end()) return {};
  return it->a;
}

bool esAscii(QStringView texto) {
  for (const QChar c : texto)
    if (c.unicode() >= 0x80) return false;
  return true;
}

bool esControl(QChar c) {
  return c < u' ' || (c >= QChar(0x7F) && c < QChar(0xA0));
}

// A combining accent becomes part of its letter.
QString letrasCompuestas(const QString& texto) {
  return esAscii(texto) ? texto : texto.normalized(QString::NormalizationForm_C);
}

// One character in the characters of a kind of machine; itself if the machine lacks it.
char16_t letraDeBalanza(TipoGrupo tipo, char16_t c) {
  if (c < 0x80) return c == u'`' ? u' ' : c;
  if (const auto propia = cambiada(propios(tipo), c)) return *propia;
  return cambiada(kComunes, c).value_or(c);
}

// The byte of a result of letraDeBalanza; -1 if the machine lacks it.
int byteDeBalanza(TipoGrupo tipo, char16_t c) {
  if (c <= kEuroDeBalanza) return c;
  return tipo == TipoGrupo::Registradoras || tipo == TipoGrupo::Birch ? byte1252(c) : -1;
}

// ASCII, which every machine has; the second half of a surrogate pair is dropped with the first.
std::string_view loMasParecido(QChar c) {
  if (c.isMark() || c.isLowSurrogate() || c.category() == QChar::Other_Format) return "";
  if (c.isSpace() || esControl(c)) return " ";
  if (c.category() == QChar::Punctuation_Dash) return "-";
  const QChar base = QString(c).normalized(QString::NormalizationForm_D).front();
  if (const auto it = std::ranges::find(kParecidas, base.unicode(), &Parecida::de);
      it != std::end(kParecidas))
    return it->a;
  static constexpr std::string_view kAscii =
      " !\"#$%&'()*+,-./"
      "0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz";
  const size_t lugar = base.unicode() - size_t{0x20};
  return lugar < kAscii.size() ? kAscii.substr(lugar, 1) : "?";
}

bool seVe(std::string_view parecido) {
  return !parecido.empty() && parecido != " ";
}

bool acabaEnCifra(const QByteArray& bytes) {
  return !bytes.isEmpty() && bytes.back() >= '0' && bytes.back() <= '9';
}

}  // namespace

// No replacement yields the input of another, so their order doesn't matter.
QString CaracteresBalanza(TipoGrupo tipo, const QString& texto) {
  QString salida = letrasCompuestas(texto);
  for (QChar& c : salida) c = QChar(letraDeBalanza(tipo, c.unicode()));
  return salida;
}

QString textoDeBalanza(TipoGrupo tipo, QByteArrayView bytes) {
  QString salida;
  salida.reserve(bytes.size());
  for (const char b : bytes) {
    char16_t c = caracter1252(static_cast<unsigned char>(b));
    if (tipo == TipoGrupo::Balanzas || tipo == TipoGrupo::Ebony)
      for (const Cambio& k : propios(tipo))
        if (c == k.a && k.a != u'C' && k.a != u'c' && k.a != u'?') {
          c = k.de;
          break;
        }
    salida += QChar(c == kEuroDeBalanza ? u'€' : c);
  }
  return salida;
}

Escrito escribirLetras(TipoGrupo tipo, const QString& texto, qsizetype ancho, bool conLineas) {
  Escrito e;
  const QString letras = letrasCompuestas(texto);
  e.bytes.reserve(std::min(ancho, letras.size()));
  for (qsizetype i = 0; i < letras.size() && e.bytes.size() < ancho; ++i) {
    const QChar c = letras[i];
    const bool finDeLinea = conLineas && c == u'\r';
    const int b = finDeLinea     ? '\r'
                  : esControl(c) ? -1
                                 : byteDeBalanza(tipo, letraDeBalanza(tipo, c.unicode()));
    if (b >= 0) {
      e.bytes += static_cast<char>(b);
      continue;
    }
    const std::string_view parecido = loMasParecido(c);
    // "1½" isn't "11/2".
    if (parecido.size() > 1 && parecido[1] == '/' && acabaEnCifra(e.bytes)) e.bytes += ' ';
    e.bytes.append(parecido.data(), static_cast<qsizetype>(parecido.size()));
    const QString letra = letras.mid(i, c.isHighSurrogate() ? 2 : 1);
    if (seVe(parecido) && !e.cambiadas.contains(letra)) e.cambiadas += letra;
  }
  e.bytes.truncate(ancho);
  return e;
}

}  // namespace tarvo::maquinas
