// .PLU files: the contents of each line, and the effect of a whole file on the catalogue.
#include "articles/importar/ImpPLU.h"

#include "importar/TiendaDeImportar.h"

namespace tarvo::importar {
namespace {

// A long record: section, code, name, unit, cost, two prices, department and format.
QByteArray larga(int seccion, qint64 codigo, const QString& nombre, const QByteArray& cada = "0") {
  const QString r = Ceros(seccion, 3) + Ceros(codigo, 7) + nombre.leftJustified(20) +
                    QString::fromLatin1(cada) + u"000321"_s + u"000150"_s + QString(22 * 6, u'0') +
                    u"000099"_s + u"0712"_s + u"XXXXXXXX"_s;
  return r.toLatin1();
}

QByteArray corta(int seccion, qint64 codigo, const QString& nombre) {
  const QString r = Ceros(seccion, 2) + Ceros(codigo, 4) + nombre.leftJustified(20) +
                    u"..........2000400000500----03"_s + QString(21, u'*');
  return r.toLatin1();
}

TEST(LineaPLU, DosFormatos) {
  const auto l = leerLineaPLU(QString::fromLatin1(larga(12, 1234567, u" ÑORA "_s, "1")));
  ASSERT_TRUE(l);
  EXPECT_EQ(l->clave, (articles::ClaveArticulo{12, 1234567}));
  EXPECT_EQ(l->nombre, u" ÑORA "_s.leftJustified(20));
  EXPECT_EQ((std::array<qint64, 6>{l->cada, l->coste, l->precios[0][0], l->precios[2][7], l->depto,
                                   l->formato}),
            (std::array<qint64, 6>{1, 321, 150, 99, 7, 12}));
  const auto c = leerLineaPLU(QString::fromLatin1(corta(3, 45, u"PAN"_s)));
  ASSERT_TRUE(c);
  EXPECT_EQ(c->clave, (articles::ClaveArticulo{3, 45}));
  EXPECT_EQ((std::array<qint64, 6>{c->cada, c->coste, c->precios[0][0], c->precios[2][7], c->depto,
                                   c->formato}),
            (std::array<qint64, 6>{2, 400, 500, 0, 3, 1}));
}

TEST(LineaPLU, LoQueNoEsUnaLinea) {
  const QString buena = QString::fromLatin1(larga(1, 10, u"PAN"_s));
  const auto con = [&](qsizetype columna, const QString& que) {
    return QString(buena).replace(columna - 1, que.size(), que);
  };
  const struct {
    QString linea;
    FaltaPLU falta;
  } casos[] = {
      {u""_s, {FaltaPLU::Longitud}},
      {buena.chopped(1), {FaltaPLU::Longitud}},
      {buena + u' ', {FaltaPLU::Longitud}},
      {QString(77, u'0'), {FaltaPLU::Longitud}},
      {con(38, u"1,5000"_s), {FaltaPLU::Cifras, 38, 6}},
      {con(32, u"-00001"_s), {FaltaPLU::Cifras, 32, 6}},
      {con(4, u"00000A0"_s), {FaltaPLU::Cifras, 4, 7}},
      {con(182, u"X"_s), {FaltaPLU::Cifras, 182, 2}},
      {con(31, u"3"_s), {FaltaPLU::Unidad, 31, 1}},
  };
  for (const auto& c : casos) {
    const auto r = leerLineaPLU(c.linea);
    ASSERT_FALSE(r) << qPrintable(c.linea);
    EXPECT_EQ(r.error(), c.falta) << qPrintable(c.linea);
  }
  EXPECT_EQ(leerLineaPLU(con(38, u"   12 "_s))->precios[0][0], 12);
  EXPECT_EQ(leerLineaPLU(con(182, u"  "_s))->depto, 0);
}

struct ConImpPLU : TiendaDeImportar {
  std::unique_ptr<ImpPLU> importar(const QByteArray& bytes,
                                   SiExiste si = SiExiste::Sobreescribirlo) {
    auto i = bien(ImpPLU::abrir(catalogo, fichero(bytes)));
    while (bien(i->paso(si))) continue;
    bien(i->acabar());
    return i;
  }
  QString malas(const ImpPLU& i) {
    QStringList s;
    for (const auto& m : i.cuenta().malas) s << u"%1: %2"_s.arg(m.numero).arg(m.motivo);
    return s.join(u" | ");
  }
};

TEST_F(ConImpPLU, NuevosConSusDefectos) {
  const auto i = importar("\r\n" + larga(1, 10, u"ÑORA"_s) + "\r\n\r\n" + corta(2, 11, u"PAN"_s) +
                          "\n" + larga(1, 12, u"FIN"_s) + "\x1A");
  EXPECT_EQ(i->cuenta().lineas, 3);
  EXPECT_EQ(i->cuenta().nuevos, 3);
  EXPECT_EQ(malas(*i), u""_s);
  EXPECT_EQ(
      articulos(u"trim(NOMPLU), CADA, COSTE, PRECIO_00, PRECIO_27, DEPTO, FORMATO"_s),
      u"1 10 ÑORA 0 321 150 99 7 12 | 1 12 FIN 0 321 150 99 7 12 | 2 11 PAN 2 400 500 0 3 1"_s);
  EXPECT_EQ(leer(u"SELECT DISTINCT MDF_PRE, minimo, BARRAS, PFX_BAR, CodBarExt, DESCTO, HASTA_1, "
                 u"HASTA_2, STK_MAX, STK_MIN, TEXTO_ETQ, Tara, NUMDIAS_1, NUMDIAS_2 FROM PLUSES "
                 u"WHERE CODPLU>2"_s),
            u"1 0 1 0 - 0 0 0 0 0  1 0 0"_s);
}

TEST_F(ConImpPLU, UtfConSuMarca) {
  const QByteArray utf = "\xEF\xBB\xBF" + QString::fromLatin1(larga(1, 10, u"ÑORA"_s)).toUtf8();
  EXPECT_EQ(importar(utf)->cuenta().nuevos, 1);
  EXPECT_EQ(articulos(u"trim(NOMPLU)"_s), u"1 10 ÑORA"_s);
}

// Overwriting leaves alone the fields not in the record, the machines' state and the stock.
TEST_F(ConImpPLU, SobreescribirYConservar) {
  articulo({.codigo = 10,
            .nombre = u"VIEJO",
            .precio = 9,
            .barras = u"84",
            .mas = {{u"PRECIO_27", 8}, {u"minimo", 7}}});
  cruce(7, {10});
  const auto c = importar(corta(1, 10, u"NUEVO"_s), SiExiste::Conservarlo);
  EXPECT_EQ(c->cuenta().conservados, 1);
  EXPECT_EQ(c->lote(), 0);
  EXPECT_EQ(articulos(), u"1 10 VIEJO 9"_s);
  const auto i = importar(corta(1, 10, u"NUEVO"_s));
  EXPECT_EQ(i->cuenta().sobreescritos, 1);
  EXPECT_EQ(articulos(u"trim(NOMPLU), PRECIO_00, PRECIO_27, minimo, CodBarExt"_s),
            u"1 10 NUEVO 500 0 7 84"_s);
  EXPECT_EQ(leer(u"SELECT plu, borra FROM [Cross]"_s), u"10 0"_s);
  EXPECT_TRUE(catalogo.cambios().SeccionesModificadas().empty());
  EXPECT_EQ(leer(u"SELECT CODPLU, NIVEL, TARIFA, ANTES, AHORA, VENTANA FROM HistoriaPrecios ORDER "
                 u"BY NIVEL"_s),
            u"10 0 0 9 500 ImpPLU | 10 2 7 8 0 ImpPLU"_s);
}

// A new article's history begins with the first price of its record, also when a later line of the
// file overwrites it.
TEST_F(ConImpPLU, LaHistoriaDeUnoNuevo) {
  QByteArray sinBase = larga(1, 11, u"B"_s);
  sinBase.replace(37, 6, "000000");
  importar(larga(1, 10, u"A"_s) + "\n" + sinBase + "\n" + corta(1, 10, u"A"_s) + "\n");
  EXPECT_EQ(leer(u"SELECT CODPLU, NIVEL, TARIFA, ANTES, AHORA, QUIEN, VENTANA FROM HistoriaPrecios "
                 u"ORDER BY ID"_s),
            u"10 0 0 0 150 Ana ImpPLU | 11 2 7 0 99 Ana ImpPLU | 10 0 0 150 500 Ana ImpPLU | "
            u"10 2 7 99 0 Ana ImpPLU"_s);
  EXPECT_EQ(leer(u"SELECT min(CUANDO)=max(CUANDO) FROM HistoriaPrecios"_s), u"1"_s);
}

TEST_F(ConImpPLU, LineasMalas) {
  const QByteArray bytes = larga(1, 10, u"A"_s) + "\n" + larga(1, 1, u"SISTEMA"_s) + "\n" +
                           larga(9, 11, u"SIN SECCION"_s) + "\n" + larga(1, 12, u"B"_s, "7") +
                           "\n" + larga(1, 13, u"C"_s) + "\n";
  const auto i = importar(bytes);
  EXPECT_EQ(i->cuenta().lineas, 5);
  EXPECT_FALSE(i->cuenta().parado);
  EXPECT_EQ(malas(*i),
            u"2: El código 0000001 lo usa el programa y no se sobreescribe. | "
            u"3: No hay ninguna sección 009: créela antes de importar. | "
            u"4: Columna 31: la unidad de venta es «7» y debe ser 0, 1 o 2."_s);
  EXPECT_EQ(articulos(u"trim(NOMPLU)"_s), u"1 10 A | 1 13 C"_s);
  EXPECT_EQ(leer(u"SELECT NOMPLU FROM PLUSES WHERE CODPLU=1"_s), u"VENTA LIBRE"_s);
}

TEST_F(ConImpPLU, LosLimitesDelCatalogo) {
  const auto con = [](int codigo, const char* deptoYFormato) {
    return larga(1, codigo, u"A"_s).replace(181, 4, deptoYFormato) + "\n";
  };
  const auto i = importar(con(10, "0001") + con(11, "4101") + con(12, "4020") + con(13, "0121"));
  EXPECT_EQ(malas(*i),
            u"1: El departamento va del 1 al 40, y se ha dado el 0. | "
            u"2: El departamento va del 1 al 40, y se ha dado el 41. | "
            u"4: El formato de etiqueta va del 1 al 20, y se ha dado el 21."_s);
  EXPECT_EQ(articulos(u"DEPTO, FORMATO"_s), u"1 12 40 20"_s);
}

TEST_F(ConImpPLU, UnaLongitudMalaParaYLoHechoSeQueda) {
  QByteArray bytes;
  for (int n = 0; n < 1000; ++n) bytes += larga(1, 100 + n, u"A"_s) + "\n";
  bytes += larga(1, 10, u"A"_s).chopped(1) + "\n" + larga(1, 11, u"B"_s) + "\n";
  const auto i = importar(bytes);
  EXPECT_TRUE(i->cuenta().parado);
  EXPECT_EQ(i->cuenta().lineas, 1000);
  EXPECT_EQ(malas(*i), u"1001: Tiene 192 caracteres: una línea de artículo tiene 193 o 76."_s);
  EXPECT_EQ(leer(u"SELECT count(*), max(CODPLU) FROM PLUSES WHERE CODPLU>2"_s), u"1000 1099"_s);
}

TEST_F(ConImpPLU, SeDeshaceEntero) {
  articulo({.codigo = 10, .nombre = u"VIEJO", .precio = 9});
  // The second line of code 11 overwrites the article of the first.
  const auto i = importar(larga(1, 10, u"A"_s) + "\n" + larga(1, 11, u"B"_s) + "\n" +
                          corta(1, 11, u"C"_s) + "\n");
  EXPECT_EQ(i->cuenta().nuevos, 1);
  EXPECT_EQ(i->cuenta().sobreescritos, 2);
  const auto d = bien(lotes.deshacer(i->lote(), u"ImpPLU"_s));
  EXPECT_EQ(d.repuestos, 1);
  EXPECT_EQ(d.quitados, 1);
  EXPECT_EQ(articulos(), u"1 10 VIEJO 9"_s);
}

}  // namespace
}  // namespace tarvo::importar
