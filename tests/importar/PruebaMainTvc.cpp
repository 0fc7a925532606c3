// Files of the former system: where each line goes, and the result.
#include "articles/importar/MainTvc.h"

#include "importar/TiendaDeImportar.h"

namespace tarvo::importar {
namespace {

QByteArray vieja(int seccion, int codigo, const QString& nombre, char clase, int precio,
                 int depto = 3) {
  const QString r = Ceros(seccion, 2) + Ceros(codigo, 4) + nombre.leftJustified(30) +
                    QChar::fromLatin1(clase) + u"000200"_s + Ceros(precio, 6) + u"----"_s +
                    Ceros(depto, 2) + QString(13, u'8') + u"00001500"_s;
  return r.toLatin1() + "\r\n";
}

TEST(LineaTvc, Columnas) {
  const auto r =
      leerLineaTvc(QString::fromLatin1(vieja(12, 345, u"  PIÑA AVIÓN "_s, '5', 678, 14)));
  EXPECT_EQ(r, (RegistroTvc{12, 345, 120345, u"PIÑA AVIÓN"_s, true, 200, 678, 14, 1500}));
  EXPECT_FALSE(leerLineaTvc(QString::fromLatin1(vieja(1, 3, u"A"_s, '2', 1))).porPeso);
  EXPECT_TRUE(leerLineaTvc(QString::fromLatin1(vieja(1, 3, u"A"_s, '1', 1))).porPeso);
  // A short or non-numeric field counts as 0.
  EXPECT_EQ(leerLineaTvc(u"01x003PAN"), (RegistroTvc{1, 0, 0, u"PAN"_s, false, 0, 0, 0, 0}));
  EXPECT_EQ(leerLineaTvc(u""), RegistroTvc{});
}

TEST(LineaTvc, TresSitios) {
  const RegistroTvc r{.seccion = 2, .codigo = 45, .codigoLargo = 20045};
  DestinoTvc d;
  EXPECT_EQ(sitioDe(r, d), (SitioTvc{{2, 45}, 0}));
  d.unaSeccion = 9;
  EXPECT_EQ(sitioDe(r, d), (SitioTvc{{9, 20045}, 0}));
  d.seccionPorTarifa = true;
  EXPECT_EQ(sitioDe(r, d), std::nullopt);
  d.secciones = {u"1"_s, u"x"_s, u""_s, u" 02 "_s, u"2"_s};
  EXPECT_EQ(sitioDe(r, d), (SitioTvc{{9, 45}, 3}));
  d.prefijos[0] = u"20"_s;
  d.prefijos[7] = u"27"_s;
  EXPECT_EQ(prefijoDe(7, d) + prefijoDe(10, d) + prefijoDe(-1, d), u"272020"_s);
}

struct ConMainTvc : TiendaDeImportar {
  std::unique_ptr<MainTvc> convertir(const QByteArray& bytes, const DestinoTvc& destino) {
    auto m = bien(MainTvc::abrir(catalogo, fichero(bytes)));
    while (bien(m->paso(destino))) continue;
    bien(m->acabar());
    return m;
  }
};

// New articles bring their stock to the first warehouse; a second line with the same key replaces
// them, and fills the price of another tarifa.
TEST_F(ConMainTvc, DosLineasDeUnArticulo) {
  sql(u"DELETE FROM GRUPOS"_s);
  sql(u"DELETE FROM ALMACEN"_s);
  almacen(4, u"B").almacen(2, u"A");
  DestinoTvc d{.unaSeccion = 5, .seccionPorTarifa = true};
  d.secciones[0] = u"1"_s;
  d.secciones[6] = u"3"_s;
  d.prefijos[3] = u"23"_s;
  const auto m =
      convertir(vieja(1, 45, u"PAN"_s, '2', 100) + vieja(3, 45, u"PAN ALTO"_s, '1', 130) +
                    vieja(2, 46, u"NADIE"_s, '1', 1) + vieja(1, 2, u"SISTEMA"_s, '1', 1),
                d);
  EXPECT_EQ(m->cuenta().nuevos, 1);
  EXPECT_EQ(m->cuenta().cambiados, 1);
  EXPECT_EQ(m->cuenta().sinTarifa, 1);
  ASSERT_EQ(m->cuenta().malas.size(), 1U);
  EXPECT_EQ(m->cuenta().malas[0].numero, 4);
  EXPECT_EQ(articulos(u"NOMPLU, PRECIO_00, PRECIO_06, CADA, COSTE, DEPTO, PFX_BAR, Tara"_s),
            u"5 45 PAN ALTO 100 130 0 200 3 23 1"_s);
  EXPECT_EQ(leer(u"SELECT NOMSEC FROM SECCS WHERE NMSECC=5"_s), u"SECCIÓN 5"_s);
  EXPECT_EQ(leer(u"SELECT CODALM, CODIGO, Inicial FROM MovsAlm"_s), u"2 45 1500"_s);
  EXPECT_EQ(catalogo.cambios().SeccionesModificadas(), std::vector<int>{5});

  EXPECT_EQ(bien(lotes.deshacer(bien(lotes.ultimo(u"MainTvc"_s))->numero, u"MainTvc"_s)).quitados,
            1);
  EXPECT_EQ(articulos(), u""_s);
}

// Undoing a run removes the sections it made: the empty ones, and only those.
TEST_F(ConMainTvc, LasSeccionesQueHizoSeVanAlDeshacer) {
  const QString secciones = u"SELECT NMSECC FROM SECCS ORDER BY 1"_s;
  SeccionesHechas hechas{catalogo};
  const auto deshacer = [&] {
    const qint64 lote = bien(lotes.ultimo(u"MainTvc"_s))->numero;
    bien(lotes.deshacer(lote, u"MainTvc"_s));
    return bien(hechas.quitar(lote));
  };
  EXPECT_EQ(bien(hechas.quitar(99)), 0) << "no run was ever made";
  const QByteArray lineas = vieja(2, 45, u"PAN"_s, '2', 100) + vieja(5, 46, u"SAL"_s, '2', 100) +
                            vieja(6, 47, u"AJO"_s, '2', 100);
  convertir(lineas, {});
  EXPECT_EQ(leer(secciones), u"1 | 2 | 5 | 6"_s);
  en(6).departamento(1, u"De otro");
  EXPECT_EQ(deshacer(), 1);
  EXPECT_EQ(leer(secciones), u"1 | 2 | 6"_s) << "2 was there, 6 has a department now";
  convertir(lineas, {});  // under the forgotten number
  EXPECT_EQ(deshacer(), 1);
  EXPECT_EQ(leer(secciones), u"1 | 2 | 6"_s);
}

// A line in another layout is reported with its own reason, and creates nothing.
TEST_F(ConMainTvc, LineasQueNoSonDeArticulos) {
  const QByteArray buena = vieja(1, 45, u"PAN"_s, '2', 100);
  const QByteArray sinFin = buena.chopped(2);
  const struct {
    QByteArray linea;
    const char16_t* motivo;
  } casos[] = {
      {QByteArray(193, '0'), u"Longitud 193: una línea de este formato tiene 76."},
      {sinFin + "1", u"Longitud 77: una línea de este formato tiene 76."},
      {sinFin.left(54), u"Longitud 54: una línea de este formato tiene 76."},
      {"1", u"Longitud 1: una línea de este formato tiene 76."},
      {"00" + sinFin.mid(2), u"Columnas 1 a 2: «00» no es una sección."},
      {"x?" + sinFin.mid(2), u"Columnas 1 a 2: «x?» no es una sección."},
      {"010000" + sinFin.mid(6), u"Columnas 3 a 6: «0000» no es un código de artículo."},
      {"010002" + sinFin.mid(6), u"El código 0000002 lo usa el programa y no se sobreescribe."},
  };
  QByteArray todas = buena + sinFin.left(55) + "\n" + sinFin + "   \n";
  for (const auto& c : casos) todas += c.linea + "\n";
  const auto m = convertir(todas, {});
  EXPECT_EQ(m->cuenta().nuevos + m->cuenta().cambiados, 3) << "short of stock, long by blanks";
  ASSERT_EQ(m->cuenta().malas.size(), std::size(casos));
  for (size_t i = 0; i < std::size(casos); ++i)
    EXPECT_EQ(m->cuenta().malas[i].motivo, QString::fromUtf16(casos[i].motivo));
  EXPECT_EQ(leer(u"SELECT count(*) FROM SECCS"_s), u"2"_s);
  const auto otro = MainTvc::abrir(catalogo, fichero("\r\n" + QByteArray(193, '0') + "\r\n"));
  ASSERT_FALSE(otro);
  EXPECT_TRUE(otro.error().texto.startsWith(u"F.PLU es de otro formato, con líneas de 193"_s));
}

TEST_F(ConMainTvc, SinAlmacenYFicherosVacios) {
  sql(u"DELETE FROM GRUPOS"_s);
  sql(u"DELETE FROM ALMACEN"_s);
  convertir(vieja(1, 45, u"PAN"_s, '2', 100), {});
  EXPECT_EQ(articulos(), u"1 45 PAN 100"_s);
  EXPECT_EQ(leer(u"SELECT count(*) FROM MovsAlm"_s), u"0"_s);
  EXPECT_EQ(MainTvc::abrir(catalogo, fichero("\r\n")).error().clase, Fallo::Formato);
  EXPECT_EQ(MainTvc::abrir(catalogo, ruta(u"NO.PLU"_s)).error().clase, Fallo::NoExiste);
}

}  // namespace
}  // namespace tarvo::importar
