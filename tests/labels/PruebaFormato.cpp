// Label formats as text, and the texts of labels.
#include <gtest/gtest.h>

#include "labels/Formato.h"
#include "labels/TextosEtiqueta.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;

// Each row: a field and its line.
TEST(FormatoDeEtiqueta, CadaCampoTieneSuLinea) {
  const struct {
    CampoEtiqueta campo;
    QString linea;
  } casos[] = {
      {{.tipo = TipoCampo::Peso, .X = 10, .Y = 20, .fuente = 2, .rotacion = 1},
       u"010100200160001"_s},
      {{.tipo = TipoCampo::CodigoDeBarras, .X = 0, .Y = 30, .Altu = 30}, u"060000300300000"_s},
      {{.tipo = TipoCampo::Rectangulo, .X = 5, .Y = 5, .Esp = 2, .X2 = 100, .Y2 = 30},
       u"150050051000302"_s},
      {{.tipo = TipoCampo::LineaGrafica, .X = 1, .Y = 2, .rotacion = 3, .Lon = 500, .Esp = 50},
       u"120010020505003"_s},
      {{.tipo = TipoCampo::LineaTexto, .X = 1, .Y = 2, .Ntxt = 25}, u"130010020140250"_s},
      {{.tipo = TipoCampo::RazonSocial, .X = 1, .Y = 2, .NmL = 6}, u"160010020140060"_s},
  };
  for (const auto& c : casos) {
    const Formato f{.x0 = 180, .y0 = 10, .campos = {c.campo}};
    const QString texto = u"001800100000000\r\n"_s + c.linea + u"\r\n"_s;
    EXPECT_EQ(f.texto(), texto);
    const auto leido = leerFormato(texto);
    ASSERT_TRUE(leido) << c.linea.toStdString();
    EXPECT_EQ(leido->formato.texto(), texto);
    EXPECT_EQ(leido->formato.campos.front().tipo, c.campo.tipo);
  }
  EXPECT_FALSE((Formato{.campos = {{.X = -1}}}.texto()));
  EXPECT_EQ(Formato{}.texto(), u"001910000000000\r\n"_s);
}

TEST(FormatoDeEtiqueta, ElPortapapelesSeCompruebaEntero) {
  const QString bueno = u"001910000000000\r\n010100200160001\r\n\r\nJT: Uno \r\n"_s;
  const auto leido = leerFormato(bueno);
  ASSERT_TRUE(leido);
  EXPECT_EQ(leido->juego, u"Uno"_s);
  EXPECT_EQ(leerFormato(*paraCopiar(leido->formato, u"Dos"_s))->juego, u"Dos"_s);
  EXPECT_EQ(leerFormato(u"JT:"_s)->juego, u""_s);
  EXPECT_FALSE(leerFormato({})->juego);
  EXPECT_EQ(leerFormato(QString(bueno).remove(u'\r'))->formato, leido->formato);
  for (const QString& mala :
       {u"01010020016000"_s, u"0101002001600010"_s, u"01010020016000x"_s, u"190100200160001"_s,
        u"011920200160001"_s, u"010104660160001"_s, u"010100200190001"_s, u"010100200160004"_s,
        u"130100200140410"_s, u"060000304660000"_s, u"120010020001001"_s, u"120010020505013"_s,
        u"150050051000300"_s, u"hola"_s})
    EXPECT_FALSE(leerFormato(bueno + mala)) << mala.toStdString();
}

TEST(FormatoDeEtiqueta, CadaReservaTieneSuLimite) {
  Formato f;
  for (int i = 0; i < 4; ++i) f.campos.push_back({.tipo = TipoCampo::CodigoDeBarras});
  EXPECT_FALSE(f.cabeOtro(TipoCampo::CodigoDeBarras));
  EXPECT_TRUE(f.cabeOtro(TipoCampo::Rectangulo));
  while (std::ssize(f.campos) < kCamposMaximos) f.campos.push_back({.tipo = TipoCampo::Peso});
  EXPECT_FALSE(f.cabeOtro(TipoCampo::Precio));
  f.campos.push_back({.tipo = TipoCampo::Rectangulo});
  f.campos.insert(f.campos.begin(), {.tipo = TipoCampo::CodigoDeBarras});
  EXPECT_EQ(f.recortar(), 2);
  EXPECT_FALSE(f.cabeOtro(TipoCampo::Rectangulo));
}

TEST(TextosDeEtiqueta, DelJuegoODeLaTienda) {
  Ajustes a(u"/"_s, Idioma::Espanol);
  a.TextoEtiquetas[1] = u"kg"_s;
  a.TextoEtiquetas[25] = u"Oferta"_s;
  std::optional<QString> juego = u"uno\r\n\r\ntres"_s;
  EXPECT_EQ(LeerTexto(1, juego, a), u"kg");
  EXPECT_EQ(LeerTexto(21, juego, a), u"uno");
  EXPECT_EQ(LeerTexto(25, juego, a), u"");
  EXPECT_EQ(LeerTexto(25, {}, a), u"Oferta");
  EXPECT_EQ(LeerTexto(41, {}, a), u"");
  PonerTexto(40, u"fin"_s, juego, a);
  PonerTexto(3, u"no"_s, juego, a);
  EXPECT_EQ(juego->count(u"\r\n"_s), 19);
  EXPECT_EQ(LeerTexto(40, juego, a), u"fin");
  std::optional<QString> ninguno;
  PonerTexto(25, u"Otra"_s, ninguno, a);
  EXPECT_EQ(a.TextoEtiquetas[25], u"Otra");
}

}  // namespace tarvo::labels
