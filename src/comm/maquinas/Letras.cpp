#include "comm/maquinas/Letras.h"

#include <algorithm>
#include <optional>
#include <span>

#include "comm/maquinas/Articulo.h"
#include "core/valores/Codigo1252.h"

namespace tarvo::maquinas {

namespace {

constexpr char16_t kEuroDeBalanza = 127;

struct Cambio {
  char16_t de, a;
};

// What a family shows in its own places.
constexpr Cambio kBalanzas[] = {
    {u'Ñ', u'\\'}, {u'ñ', u'|'}, {u'Ç', u'}'}, {u'ç', u'}'}, {u'¿', u']'}};
constexpr Cambio kEbony[] = {{u'Ñ', u'['}, {u'ñ', u'['}, {u'Ç', u'C'}, {u'ç', u'c'}, {u'¿', u'?'}};
constexpr Cambio kBirch[] = {{u'¿', u'?'}};

constexpr std::span<const Cambio> propios(int tipo) {
  switch (tipo) {
    case 1:
      return kBalanzas;
    case 2:
      return kEbony;
    case 4:
      return kBirch;
    default:
      return {};
  }
}

// For every family. The last is a blank that doesn't break, which nobody sees.
constexpr Cambio kComunes[] = {
    {u'´', u' '},           {u'`', u' '}, {u'¨', u' '}, {u'á', u'a'}, {u'à', u'a'}, {u'ä', u'a'},
    {u'ª', u'a'},           {u'é', u'e'}, {u'è', u'e'}, {u'ë', u'e'}, {u'í', u'i'}, {u'ì', u'i'},
    {u'ï', u'i'},           {u'ó', u'o'}, {u'ò', u'o'}, {u'ö', u'o'}, {u'º', u'o'}, {u'ú', u'u'},
    {u'ù', u'u'},           {u'ü', u'u'}, {u'Á', u'A'}, {u'À', u'A'}, {u'Ä', u'A'}, {u'É', u'E'},
    {u'È', u'E'},           {u'Ë', u'E'}, {u'Í', u'I'}, {u'Ì', u'I'}, {u'Ï', u'I'}, {u'Ó', u'O'},
    {u'Ò', u'O'},           {u'Ö', u'O'}, {u'Ú', u'U'}, {u'Ù', u'U'}, {u'Ü', u'U'}, {u'¡', u'!'},
    {u'€', kEuroDeBalanza}, {0xA0, u' '}};

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

}  // namespace

QString letrasCompuestas(const QString& texto) {
  return esAscii(texto) ? texto : texto.normalized(QString::NormalizationForm_C);
}

char16_t letraDeBalanza(int tipo, char16_t c) {
  if (const auto propia = cambiada(propios(tipo), c)) return *propia;
  if (c < 0x80 && c != u'`') return c;
  return cambiada(kComunes, c).value_or(c);
}

// No replacement gives a character that another one takes, so each stands for itself.
QString CaracteresBalanza(int tipo, const QString& texto) {
  QString salida = letrasCompuestas(texto);
  for (QChar& c : salida) c = QChar(letraDeBalanza(tipo, c.unicode()));
  return salida;
}

QString textoDeBalanza(int tipo, QByteArrayView bytes) {
  QString salida;
  salida.reserve(bytes.size());
  for (const char b : bytes) {
    char16_t c = caracter1252(static_cast<unsigned char>(b));
    if (tipo == 1 || tipo == 2)
      for (const Cambio& k : propios(tipo))
        if (c == k.a && k.a != u'C' && k.a != u'c' && k.a != u'?') {
          c = k.de;
          break;
        }
    salida += QChar(c == kEuroDeBalanza ? u'€' : c);
  }
  return salida;
}

int byteDeBalanza(int tipo, char16_t c) {
  if (c < 0x20) return -1;
  if (c <= kEuroDeBalanza) return c;
  return tipo == 3 || tipo == 4 ? byte1252(c) : -1;
}

}  // namespace tarvo::maquinas
