// Default keyboards, sizes by model, and the clipboard form of machines.
#include <gtest/gtest.h>

#include "devices/Maquina.h"
#include "devices/Modelos.h"
#include "devices/TecladosDefault.h"

using namespace tarvo;
using namespace tarvo::devices;
using namespace Qt::StringLiterals;

namespace {

// The line of a key in the default keyboard of a model.
QString tecla(int modelo, int n, Idioma idioma = Idioma::Espanol) {
  return TecladoDefecto(modelo, idioma).split(u"\r\n"_s).value(n - 1);
}

Balanza balanzaRara() {
  Balanza b;
  b.tipo(kHazel);
  b.Formato(11, u"uno"_s);
  b.Formato(20, u"diez"_s);
  b.CassModo(2, 7);
  b.CassOper(3, 9);
  b.Teclado.Teclado = u"001:999:\r\n"_s;
  b.Publici = {u"¡Compre! | hoy"_s, 2, 30};
  b.RazonSo = u"C:1:Carnes\r\nP:0:Gracias\r\n"_s;
  b.CB_Habil = false;
  b.CB_pFija = 84;
  b.FG_Devol = false;
  b.FG_HabDp = true;
  b.PL_digEn = 4;
  b.PL_pFija = 123;
  return b;
}

}  // namespace

TEST(Teclados, TeclasConocidas) {
  const struct {
    int modelo, n;
    Idioma idioma;
    const char16_t* linea;
  } casos[] = {
      {kCedar, 1, Idioma::Espanol, u"001:021"},   {kCedar, 6, Idioma::Espanol, u"006:133"},
      {kCedar, 9, Idioma::Espanol, u"009:026"},   {kCedar, 80, Idioma::Espanol, u"080:012"},
      {kMaple, 2, Idioma::Espanol, u"002:033"},   {kMaple, 9, Idioma::Espanol, u"009:022"},
      {kRowan, 90, Idioma::Espanol, u"090:110"},  {kRowan, 91, Idioma::Espanol, u"091:111"},
      {kRowan, 92, Idioma::Espanol, u"092:112"},  {kRowan, 100, Idioma::Espanol, u"100:018"},
      {kRowan, 104, Idioma::Espanol, u"104:131"}, {kRowan, 104, Idioma::UK, u"104:999"},
      {kRowan, 104, Idioma::F, u"104:161"},       {kRowan, 95, Idioma::P, u"095:000"},
      {kHazel, 54, Idioma::Espanol, u"054:074"},  {kHazel, 55, Idioma::Espanol, u"055:131"},
      {kHazel, 61, Idioma::I, u"061:014"},        {kLarch, 84, Idioma::F, u"084:156"},
      {kBirch, 14, Idioma::Espanol, u"014:012"},  {kBirch, 42, Idioma::Espanol, u"042:199"},
      {kBirch, 57, Idioma::P, u"057:131"},        {kBirch, 66, Idioma::Espanol, u"066:019"},
      {kCedar, 6, Idioma::P, u"006:000"}};
  for (const auto& c : casos)
    EXPECT_EQ(tecla(c.modelo, c.n, c.idioma), QStringView(c.linea)) << c.modelo << ' ' << c.n;
}

TEST(Teclados, NumeroDeLineasYTamanosPorModelo) {
  const int lineas[] = {0, 125, 96, 80, 84, 84, 84, 84, 66, 0};
  const int teclas[] = {0, 125, 96, 80, 110, 84, 84, 28, 66, 0};
  const int tipos[] = {0, 1, 1, 1, 1, 1, 1, 2, 4, 0};
  for (int m = 0; m < 10; ++m) {
    EXPECT_EQ(TecladoDefecto(m, Idioma::Espanol).count(u'\n'), lineas[m]) << m;
    EXPECT_EQ(MaxTeclas(m), teclas[m]) << m;
    EXPECT_EQ(numeroDe(TipoDeGrupo(m), 0), tipos[m]) << m;
  }
  const int operadores[] = {0, 20, 10, 20, 20, 0}, departamentos[] = {0, 10, 10, 40, 20, 0};
  for (int t = 0; t < 6; ++t) {
    EXPECT_EQ(MaxOperadores(deNumero<TipoGrupo>(t)), operadores[t]) << t;
    EXPECT_EQ(MaxDepartamentos(deNumero<TipoGrupo>(t)), departamentos[t]) << t;
  }
  EXPECT_TRUE(HardPluDefecto().startsWith(u"001:0000071\r\n002:0000072\r\n003:0000003\r\n"));
  EXPECT_TRUE(HardPluDefecto().endsWith(u"110:0000110\r\n"));
  EXPECT_TRUE(TarasDefecto().startsWith(u"01:\r\n"));
  EXPECT_EQ(TarasDefecto().count(u'\n'), 20);
}

TEST(Portapapeles, UnaBalanzaVuelveIgual) {
  const Balanza b = balanzaRara();
  Balanza leida;
  leida.Numero = b.Numero;
  ASSERT_TRUE(leida.Texto(b.Texto()));
  EXPECT_EQ(leida, b);
  EXPECT_TRUE(b.Texto().startsWith(u"[THIS IS A SCALE]\r\n5||\r\nuno|\r\n"));
  EXPECT_TRUE(b.Texto().endsWith(u"4||\r\n123"));
}

TEST(Portapapeles, UnaRegistradoraVuelveIgualYNoPasaPorBalanza) {
  Registradora r, leida;
  r.tipo(kCedar);
  r.Direccion = 12;
  r.PL_digEn = 5;
  ASSERT_TRUE(leida.Texto(r.Texto()));
  EXPECT_EQ(leida, r);
  r.Direccion.reset();
  ASSERT_TRUE(leida.Texto(r.Texto()));
  EXPECT_EQ(leida, r);
  Balanza b = balanzaRara();
  EXPECT_FALSE(b.Texto(r.Texto()));
  EXPECT_FALSE(leida.Texto(b.Texto()));
  EXPECT_EQ(b, balanzaRara());
}

TEST(Portapapeles, UnTextoCortadoNoCambiaNada) {
  const QString entero = balanzaRara().Texto();
  const qsizetype ultimoBloque = entero.lastIndexOf(u"||");
  for (qsizetype n = 0; n < ultimoBloque; ++n) {
    Balanza b;
    b.tipo(kMaple);
    const Balanza antes = b;
    ASSERT_FALSE(b.Texto(entero.left(n))) << n;
    ASSERT_EQ(b, antes);
  }
}

TEST(Portapapeles, ElPrefijoDeSieteCifrasQuedaVacio) {
  Balanza b = balanzaRara();
  b.PL_digEn = 7;
  Balanza leida;
  ASSERT_TRUE(leida.Texto(b.Texto()));
  EXPECT_FALSE(leida.PL_pFija);
}
