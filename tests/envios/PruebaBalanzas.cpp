// Sendings to scales, from the row to the machine's contents and the knowledge about them.
#include "envios/Envios.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

TEST_F(Envios, LoCambiadoYNadaMas) {
  for (const qint64 c : {1, 2, 10, 20, 30}) alta(c, c * 10);
  EXPECT_EQ(enviar(1), u"100 10,100 20,100 30"_s);
  EXPECT_EQ(tiene(1), u"10:Tomate/100 20:Tomate/200 30:Tomate/300");
  EXPECT_EQ(cruz(1), u"10 20 30");
  EXPECT_EQ(probados(1), u"10 20 30");
  EXPECT_TRUE(avisos.last().contains(u"enviados 3, borrados 0"));
  EXPECT_TRUE(enviar(1).isEmpty());
  EXPECT_TRUE(avisos.last().contains(u"no había cambios"));
  cambiar(20, QStringLiteral("NOMPLU='Pera', PRECIO_00=55"));
  EXPECT_EQ(enviar(1), u"100 20"_s);
  EXPECT_EQ(tiene(1), u"10:Tomate/100 20:Pera/55 30:Tomate/300");
  borrar(30);
  EXPECT_EQ(cruz(1), u"10 20 30x");
  EXPECT_EQ(enviar(1), u"120 30"_s);
  EXPECT_EQ(tiene(1), u"10:Tomate/100 20:Pera/55");
  EXPECT_EQ(cruz(1), u"10 20");
  EXPECT_EQ(probados(1), u"10 20");
  esCierto(1);
  // All of a range, whatever the machine is known to hold.
  EXPECT_EQ(enviar(1, kTxPlus, true, 15, 99), u"100 20,120 30"_s);
  EXPECT_TRUE(problemas.isEmpty() && reintentos.isEmpty());
}

TEST_F(Envios, UnaFichaVuelveAIrAunqueEsteBorrada) {
  for (const qint64 c : {10, 20}) alta(c, c);
  enviar(1);
  borrar(10);
  alta(10, 77);
  cruce(1, {10}, true);
  // Outside the range it waits: articles of the catalogue aren't deleted from the machine.
  EXPECT_TRUE(enviar(1, kTxPlus, false, 15, 99).isEmpty());
  EXPECT_EQ(cruz(1), u"10x 20");
  EXPECT_EQ(enviar(1), u"100 10"_s);
  EXPECT_EQ(cruz(1), u"10 20");
  esCierto(1);
}

TEST_F(Envios, LasOfertasSegunSusFechas) {
  for (const qint64 c : {10, 20, 30}) alta(c, 1000);
  enviar(1);
  oferta(1, 10, 500, 0, 0);    // today, to midnight
  oferta(1, 20, 600, 1, 2);    // from tomorrow
  oferta(1, 30, 700, -5, -1);  // over, and never sent
  EXPECT_EQ(enviar(1), u"100 10"_s);
  EXPECT_EQ(tiene(1), u"10:Tomate/500 20:Tomate/1000 30:Tomate/1000");
  EXPECT_EQ(filas(QStringLiteral("SELECT CODIGO, enviado FROM OFERTAS ORDER BY CODIGO")),
            u"10,1;20,0;30,0");
  EXPECT_TRUE(enviar(1).isEmpty());
  reloj.avanzar(3 * 3600 * 1000);  // past midnight
  EXPECT_EQ(enviar(1), u"100 10,100 20"_s);
  EXPECT_EQ(tiene(1), u"10:Tomate/1000 20:Tomate/600 30:Tomate/1000");
  EXPECT_EQ(filas(QStringLiteral("SELECT CODIGO, enviado FROM OFERTAS ORDER BY CODIGO")),
            u"10,0;20,1;30,0");
  // If withdrawn here, it is removed from the scales, and only then forgotten.
  sql(u"UPDATE OFERTAS SET borrado=1 WHERE CODIGO=20"_s);
  estorbos(1, {{Averia::Sorda, 0, 100}});
  enviar(1);
  EXPECT_EQ(filas(QStringLiteral("SELECT CODIGO, borrado FROM OFERTAS WHERE CODIGO=20")), u"20,1");
  estorbos(1, {});
  EXPECT_EQ(enviar(1), u"100 20"_s);
  EXPECT_EQ(filas(QStringLiteral("SELECT CODIGO FROM OFERTAS WHERE CODIGO=20")), u"");
  EXPECT_EQ(tiene(1), u"10:Tomate/1000 20:Tomate/1000 30:Tomate/1000");
  // On the scales, but now postponed: it has to be removed from them.
  oferta(1, 20, 400, 0, 9);
  enviar(1);
  sql(u"UPDATE OFERTAS SET FECHA_INI=FECHA_INI+5 WHERE CODIGO=20"_s);
  EXPECT_EQ(enviar(1), u"100 20"_s);
  EXPECT_EQ(tiene(1), u"10:Tomate/1000 20:Tomate/1000 30:Tomate/1000");
  EXPECT_TRUE(enviar(1).isEmpty());
  esCierto(1);
}

}  // namespace tarvo::prueba
