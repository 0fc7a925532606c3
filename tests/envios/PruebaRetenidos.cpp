// Articles that don't fit their record: held back and named, while the rest is sent.
#include "articles/LotesAMedias.h"
#include "articles/TablasArticulos.h"
#include "envios/Envios.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::prueba {

TEST_F(Envios, LoQueNoCabeSeRetieneYLoDemasVa) {
  for (const qint64 c : {10, 20, 30}) alta(c, c);
  cambiar(20, u"PRECIO_00=1000000"_s);
  EXPECT_EQ(enviar(1), u"100 10,100 30"_s);
  EXPECT_EQ(cruz(1), u"10 30");
  EXPECT_EQ(retenidos(1), u"20/0");
  EXPECT_TRUE(avisos.join(u'\n').contains(
      u"Grupo 1: el artículo 0000020 no se envía, porque el precio base tiene más de 6 cifras."));
  const QString desde = filas(u"SELECT DESDE FROM Retenidos"_s);
  reloj.avanzar(3600 * 1000);
  enviar(1);
  EXPECT_EQ(filas(u"SELECT DESDE FROM Retenidos"_s), desde);
  EXPECT_NE(filas(u"SELECT CUANDO FROM Retenidos"_s), desde);
  cambiar(20, u"PRECIO_00=999999"_s);
  EXPECT_EQ(enviar(1), u"100 20"_s);
  EXPECT_EQ(retenidos(1), u"");
  esCierto(1);
}

// The price is sent whatever the letters are; their replacement is reported once, until the text
// changes.
TEST_F(Envios, LasLetrasQueFaltanNoRetienenNada) {
  grupo(2, 2, u"cable 2"_s, {1});
  grupo(4, 4, u"cable 4"_s);
  alta(10, 10, u"MORTADEL·LA"_s);
  cambiar(10, u"TEXTO_ETQ='Sal ½ %'"_s);
  alta(20, 20, u"Ω"_s);
  struct Caso {
    int grupo;
    QString nombre, dicho;
  };
  for (const Caso& c : {Caso{1, u"MORTADEL.LA"_s, u"·½"_s}, Caso{2, u"MORTADEL.LA"_s, u"·"_s}}) {
    const QString frase =
        u"Grupo %1: el artículo 0000010 lleva letras que esta máquina no tiene («%2»)"_s
            .arg(c.grupo)
            .arg(c.dicho);
    const auto dicho = [&] { return avisos.join(u'\n').count(frase); };
    enviar(c.grupo, kTxPlus, true);
    EXPECT_EQ(tiene(c.grupo), u"10:%1/10 20:?/20"_s.arg(c.nombre));
    EXPECT_EQ(retenidos(c.grupo), u"");
    EXPECT_EQ(dicho(), 1) << avisos.join(u'\n').toStdString();
    cambiar(10, u"PRECIO_00=11"_s);
    enviar(c.grupo, kTxPlus, true);
    EXPECT_EQ(tiene(c.grupo), u"10:%1/11 20:?/20"_s.arg(c.nombre));
    EXPECT_EQ(dicho(), 1);
    cambiar(10, u"NOMPLU='MORTADEL·LA 2', PRECIO_00=10"_s);
    enviar(c.grupo, kTxPlus, true);
    EXPECT_EQ(dicho(), 2);
    cambiar(10, u"NOMPLU='MORTADEL·LA'"_s);
  }
  // Windows-1252 has them; characters that it lacks are replaced too.
  enviar(4, kTxPlus, true);
  EXPECT_EQ(retenidos(4), u"");
  EXPECT_FALSE(avisos.join(u'\n').contains(u"Grupo 4: el artículo 0000010"_s));
  EXPECT_TRUE(avisos.join(u'\n').contains(u"Grupo 4: el artículo 0000020 lleva letras"_s));
}

// Unreadable prices, or those with too many digits for any machine, are neither 0 nor forgotten.
TEST_F(Envios, PreciosQueNoSePuedenLeer) {
  grupo(2, 2, u"cable 2"_s, {5});
  for (const qint64 c : {10, 20, 30, 40}) alta(c, c);
  alta(10'000'000, 5);
  cambiar(20, u"PRECIO_10='1234,5'"_s);
  cambiar(30, u"PRECIO_00=NULL"_s);
  for (const bool completo : {true, false}) {
    avisos.clear();
    EXPECT_EQ(enviar(1, kTxPlus, completo), completo ? u"100 10,100 40"_s : u""_s);
    EXPECT_EQ(cruz(1), u"10 40");
    EXPECT_EQ(retenidos(1), u"20/0 30/0 10000000/0");
    for (const char16_t* frase : {u"0000020 no se envía, porque el segundo precio no se puede leer "
                                  u"(«1234,5»)",
                                  u"0000030 no se envía, porque el precio base no se puede leer: "
                                  u"está vacío",
                                  u"10000000 no se envía, porque el código tiene más de 7 cifras"})
      EXPECT_TRUE(avisos.join(u'\n').contains(QString::fromUtf16(frase)))
          << avisos.join(u'\n').toStdString();
  }
  EXPECT_EQ(enviar(1, kTPreci, true), u"101 10,101 40");
  // An Ebony machine has one price only.
  EXPECT_EQ(enviar(2, kTxPlus, true, 0, 9999999, 5), u"32 10,32 20,32 40");
  grupo(4, 4, u"cable 3"_s);
  enviar(4, kTxPlus, true);
  EXPECT_EQ(cruz(4), u"10 40");
  EXPECT_EQ(retenidos(4), u"20/0 30/0 10000000/0");
}

// A machine with the former price doesn't hold the article in its present form.
TEST_F(Envios, UnaOfertaQueNoCabe) {
  alta(10, 10);
  enviar(1);
  oferta(1, 10, 12345678, 0, 1);
  EXPECT_EQ(enviar(1), u"");
  EXPECT_EQ(retenidos(1), u"10/0");
  EXPECT_EQ(cruz(1), u"");
}

TEST_F(Envios, TodosLosQueNoVanSeNombran) {
  for (int c = 10; c < 100; ++c) alta(c, 10'000'000);
  enviar(1);
  const QString dicho = avisos.join(u'\n');
  for (int c = 10; c < 100; ++c) EXPECT_EQ(dicho.count(Ceros(c, 7)), 1) << c;
  EXPECT_LT(avisos.size(), 25);
}

// Half of the articles have their new prices: none of the section is sent until the change is
// finished or undone.
TEST_F(Envios, UnCambioAMediasRetieneSuSeccion) {
  std::optional<articles::Catalogo> catalogo;
  enEspera = [&](int seccion) { return articles::motivoDeEspera(*catalogo, seccion); };
  arrancar(false);
  bien(articles::asegurarTablasArticulos(*db));
  catalogo.emplace(*db, textosDePrueba(), reloj, u"Ana"_s);
  articles::Lotes lotes(*catalogo);
  for (const qint64 c : {10, 20}) alta(c, c);
  const qint64 lote = bien(lotes.empezar(u"CambioLote"_s));
  bien(lotes.guardar(lote, {1, 10}));
  cambiar(10, u"PRECIO_00=11"_s);
  for (const int clase : {kTxPlus, kTPreci}) {
    EXPECT_EQ(enviar(1, clase, true), u"");
    EXPECT_TRUE(avisos.last().contains(u"no se envían los artículos de su sección"))
        << avisos.join(u'\n').toStdString();
  }
  EXPECT_EQ(cruz(1), u"");
  bien(lotes.deshacer(lote, u"CambioLote"_s));
  EXPECT_EQ(enviar(1), u"100 10,100 20");
  EXPECT_EQ(tiene(1), u"10:Tomate/10 20:Tomate/20");
}

}  // namespace tarvo::prueba
