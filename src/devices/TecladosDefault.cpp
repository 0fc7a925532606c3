#include "devices/TecladosDefault.h"

#include <span>

#include "core/textos/Textos.h"
#include "devices/Modelos.h"

namespace tarvo::devices {

namespace {

using Tabla = std::span<const char16_t* const>;

constexpr const char16_t* kA_Espanol[] = {
    u"PLU91,  18,  20,  19", u"PLU92, 152, 151, 153", u"PLU93, 154,  15,  13",
    u"PLU94,  17,  14,  16", u"PLU95, 131, 132, 133", u"PLU96,   7,   8,   9",
    u"PLU97,   4,   5,   6", u"PLU98,   1,   2,   3", u"PLU99,   0,  12,  12"};
constexpr const char16_t* kA_Otros[] = {
    u"PLU91,  18,  20,  19", u"PLU92, 152, 151, 153", u"PLU93, 154,  15,  13",
    u"PLU94,  17,  14,  16", u"PLU95, 999, 999, 999", u"PLU96,   7,   8,   9",
    u"PLU97,   4,   5,   6", u"PLU98,   1,   2,   3", u"PLU99,   0,  12,  12"};
constexpr const char16_t* kA_F[] = {
    u"PLU91,  18,  20,  19", u"PLU92, 152, 151, 153", u"PLU93, 154,  15,  13",
    u"PLU94,  17,  14,  16", u"PLU95, 161, 160, 159", u"    7,   8,   9, 158",
    u"    4,   5,   6, 157", u"    1,   2,   3, 156", u"    0,  10,  12,  12"};

constexpr const char16_t* kB_Espanol[] = {u"131,  19, 160,  14,  18", u"132,  17, 154, 151, 162",
                                          u"133,  15,   7,   8,   9", u"134, 153,   4,   5,   6",
                                          u"135,  16,   1,   2,   3", u"136,  13,   0,  10,  12"};
constexpr const char16_t* kB_Otros[] = {u"131,  14,  19, 160,  18", u"132,  17, 154, 151, 162",
                                        u"133,  15,   7,   8,   9", u"134, 159,   4,   5,   6",
                                        u"135,  16,   1,   2,   3", u"136,  13,   0,  10,  12"};
constexpr const char16_t* kB_F[] = {u"131,  14,  19, 160,  18", u"132,  17, 154, 151,  12",
                                    u"133,  15,   7,   8,   9", u"134, 159,   4,   5,   6",
                                    u"135,  13,   1,   2,   3", u" 16, 155,   0,  10, 156"};

constexpr const char16_t* kC[] = {u"133, 151,  17,   7,   8,   9,   0,  18,  14, 131",
                                  u"134, 153, 162,   4,   5,   6,  10,  15, 160, 132",
                                  u" 19,  20, 154,   1,   2,   3,  11,  13,  16,  12"};

constexpr const char16_t* kD[] = {
    u"PLU01,PLU02,PLU03,PLU04,PLU05,PLU06,PLU07,PLU08,PLU09,    7,    8,    9,   16,   12",
    u"PLU10,PLU11,PLU12,PLU13,PLU14,PLU15,PLU16,PLU17,PLU18,    4,    5,    6,  152,   15",
    u"PLU19,PLU20,PLU21,PLU22,PLU23,PLU24,PLU25,PLU26,PLU27,    1,    2,    3,  151,  199",
    u"PLU28,PLU29,PLU30,PLU31,PLU32,PLU33,PLU34,PLU35,PLU36,    0,   10,   13,   14,  160",
    u"OPE01,OPE02,OPE03,OPE04",
    u" 20, 17,162,154,159, 19"};

Tabla tablaA(Idioma idioma) {
  if (idioma == Idioma::Espanol) return kA_Espanol;
  if (idioma == Idioma::F) return kA_F;
  return idioma == Idioma::P ? Tabla() : Tabla(kA_Otros);
}
Tabla tablaB(Idioma idioma) {
  if (idioma == Idioma::Espanol) return kB_Espanol;
  if (idioma == Idioma::F) return kB_F;
  return idioma == Idioma::P ? Tabla() : Tabla(kB_Otros);
}
Tabla tablaC(Idioma idioma) {
  return idioma == Idioma::P ? Tabla() : Tabla(kC);
}

int celda(Tabla tabla, int cadena, int n) {
  if (cadena >= static_cast<int>(tabla.size())) return 0;
  const auto celdas = QStringView(tabla[static_cast<size_t>(cadena)]).split(u',');
  return n < celdas.size() ? codigoDeCelda(celdas[n]) : 0;
}

// Each gives the code of key number i + 1.
int teclaRowan(int i, Idioma idioma) {
  const int columna = i % 9, fila = i / 9;
  return fila < 10 ? 20 + i + 1 : celda(tablaA(idioma), columna, fila - 10);
}
int teclaMaple(int i) {
  return 20 + i % 8 * 12 + i / 8 + 1;
}
int teclaCedar(int i, Idioma idioma) {
  const int columna = i % 8, fila = i / 8;
  return columna < 5 ? 20 + fila * 5 + columna + 1 : celda(tablaC(idioma), columna - 5, fila);
}
int teclaHazel(int i, Idioma idioma) {
  return i < 54 ? 20 + i + 1 : celda(tablaB(idioma), i % 6, i / 6 - 9);
}
int teclaBirch(int i) {
  if (i < 56) return celda(kD, i / 14, i % 14);
  return i < 60 ? celda(kD, 4, i - 56) : celda(kD, 5, i - 60);
}

int tecla(int modelo, int i, Idioma idioma) {
  switch (modelo) {
    case kRowan:
      return teclaRowan(i, idioma);
    case kMaple:
      return teclaMaple(i);
    case kCedar:
      return teclaCedar(i, idioma);
    case kBirch:
      return teclaBirch(i);
    default:
      return teclaHazel(i, idioma);
  }
}

// The default of Aspen and Ebony is the layout of Hazel, whatever their number of keys.
int teclasDelDefecto(int modelo) {
  return modelo == kAspen || modelo == kEbony ? MaxTeclas(kHazel) : MaxTeclas(modelo);
}

}  // namespace

int codigoDeCelda(QStringView celda) {
  const QStringView c = celda.trimmed();
  if (c.startsWith(u"PLU")) return 20 + c.mid(3).toInt();
  if (c.startsWith(u"OPE")) return 130 + c.mid(3).toInt();
  return c.toInt();
}

QString TecladoDefecto(int modelo, Idioma idioma) {
  QString texto;
  for (int i = 0; i < teclasDelDefecto(modelo); ++i)
    texto += QStringLiteral("%1:%2\r\n").arg(Ceros(i + 1, 3), Ceros(tecla(modelo, i, idioma), 3));
  return texto;
}

QString HardPluDefecto() {
  QString texto;
  for (int k = 1; k <= 110; ++k)
    texto += QStringLiteral("%1:%2\r\n").arg(Ceros(k, 3), Ceros(k <= 2 ? k + 70 : k, 7));
  return texto;
}

QString TarasDefecto() {
  QString texto;
  for (int k = 1; k <= 20; ++k) texto += Ceros(k, 2) + QStringLiteral(":\r\n");
  return texto;
}

}  // namespace tarvo::devices
