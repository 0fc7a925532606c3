#include "comm/maquinas/Letras.h"

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

// For every family.
char16_t comun(char16_t c) {
  switch (c) {
    case u'´':
    case u'`':
    case u'¨':
    case 0xA0:  // a blank that doesn't break, which nobody sees
      return u' ';
    case u'á':
    case u'à':
    case u'ä':
    case u'ª':
      return u'a';
    case u'é':
    case u'è':
    case u'ë':
      return u'e';
    case u'í':
    case u'ì':
    case u'ï':
      return u'i';
    case u'ó':
    case u'ò':
    case u'ö':
    case u'º':
      return u'o';
    case u'ú':
    case u'ù':
    case u'ü':
      return u'u';
    case u'Á':
    case u'À':
    case u'Ä':
      return u'A';
    case u'É':
    case u'È':
    case u'Ë':
      return u'E';
    case u'Í':
    case u'Ì':
    case u'Ï':
      return u'I';
    case u'Ó':
    case u'Ò':
    case u'Ö':
      return u'O';
    case u'Ú':
    case u'Ù':
    case u'Ü':
      return u'U';
    case u'¡':
      return u'!';
    case u'€':
      return kEuroDeBalanza;
    default:
      return c;
  }
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
  for (const Cambio& k : propios(tipo))
    if (c == k.de) return k.a;
  return comun(c);
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
