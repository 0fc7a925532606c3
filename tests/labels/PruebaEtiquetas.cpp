// Formats and text sets in the store, and what an article of it prints.
#include <gtest/gtest.h>

#include "labels/Etiquetas.h"
#include "labels/JuegosTextos.h"
#include "labels/Muestra.h"
#include "textos/TextosDePrueba.h"
#include "tienda/TiendaVacia.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;
using namespace labels;

namespace {

using Tipo = TipoCampo;

struct TiendaDeEtiquetas : TiendaVacia {
  TiendaDeEtiquetas() {
    seccion(1);
    grupo({.codigo = 1, .mas = {{u"SECCION", 1}}});
    for (const int n : {1, 2}) fila(u"BZAS", {{u"SUGPO", 1}, {u"NMBZA", n}});
    bien(etiquetas.crear(u"  UNO "_s));
    sql(u"update BZAS set ETQ11='UNO', ETQ20='UNO', ETQ12='OTRA' where NMBZA=1"_s);
  }
  QString posiciones() {
    return leer(u"select NMBZA, ETQ11, ETQ12, ETQ20 from BZAS order by NMBZA"_s);
  }

  RelojVirtual reloj{*Fecha::leer(u"04/06/2018 10:00:00"_s)};
  Textos textos = textosDePrueba();
  Ajustes ajustes{carpeta.path(), Idioma::Espanol};
  articles::Catalogo catalogo{*db, textos, reloj, u"ana"_s};
  Etiquetas etiquetas{catalogo};
  JuegosTextos juegos{catalogo, ajustes};
};

}  // namespace

TEST(EtiquetasGuardadas, ElNombreCambiaEnTodasLasBalanzas) {
  TiendaDeEtiquetas t;
  EXPECT_EQ(bien(t.etiquetas.balanzasCon(u"UNO"_s)), 1);
  EXPECT_EQ(bien(t.etiquetas.renombrar(u"UNO"_s, u"DOS"_s)), u"DOS");
  EXPECT_EQ(t.posiciones(), u"1 DOS OTRA DOS | 2   ");
  // Digits are stored as a number; the scales get the same.
  EXPECT_EQ(bien(t.etiquetas.renombrar(u"DOS"_s, u"007"_s)), u"7");
  EXPECT_EQ(t.posiciones(), u"1 7 OTRA 7 | 2   ");
  const auto ida = bien(t.etiquetas.borrar(u"7"_s));
  EXPECT_EQ(t.posiciones(), u"1 - OTRA - | 2   ");
  EXPECT_EQ(t.cuenta(u"ETIQUETAS"_s), 0);
  // A position that has another one by now stays as it is.
  t.sql(u"update BZAS set ETQ20='NUEVA' where NMBZA=1"_s);
  EXPECT_EQ(bien(t.etiquetas.reponer(ida)), 1);
  EXPECT_EQ(t.posiciones(), u"1 7 OTRA NUEVA | 2   ");
}

TEST(EtiquetasGuardadas, LoQueNoSePuedeSeDice) {
  TiendaDeEtiquetas t;
  bien(t.etiquetas.crear(u"DOS"_s));
  EXPECT_EQ(t.etiquetas.crear(u"  "_s).error().texto, u"La etiqueta debe tener un nombre no vacío");
  EXPECT_EQ(t.etiquetas.renombrar(u"UNO"_s, u" "_s).error().clase, Fallo::Restriccion);
  EXPECT_EQ(t.etiquetas.crear(u"UNO"_s).error().clase, Fallo::Duplicado);
  EXPECT_EQ(t.etiquetas.renombrar(u"UNO"_s, u"DOS"_s).error().clase, Fallo::Duplicado);
  EXPECT_EQ(t.posiciones(), u"1 UNO OTRA UNO | 2   ");
  for (const auto& r : {t.etiquetas.guardar({u"NO"_s}), t.etiquetas.ponerJuego(u"NO"_s, {})})
    EXPECT_EQ(r.error().clase, Fallo::NoExiste);
  bien(t.etiquetas.guardar({u"UNO"_s, u"001910000000000\r\n"_s, u"CARNE"_s}));
  const auto leida = bien(t.etiquetas.leer(u"UNO"_s));
  EXPECT_EQ(leida.campos, u"001910000000000\r\n"_s);
  EXPECT_EQ(leida.juego, u"CARNE"_s);
  bien(t.etiquetas.ponerJuego(u"UNO"_s, {}));
  EXPECT_FALSE(bien(t.etiquetas.leer(u"UNO"_s)).juego);
  // The column's default is no set.
  t.sql(u"insert into ETIQUETAS (NUMETQ) values ('VIEJA')"_s);
  EXPECT_FALSE(bien(t.etiquetas.leer(u"VIEJA"_s)).juego);
}

TEST(JuegosDeTextos, SeGuardaLoQueCambia) {
  TiendaDeEtiquetas t;
  const Juegos antes = bien(t.juegos.leer());
  Juegos r = antes;
  bien(t.juegos.crear(r, u" CARNE "_s));
  for (const QString& malo : {u" "_s, u"12"_s, u"CARNE"_s}) EXPECT_FALSE(t.juegos.crear(r, malo));
  EXPECT_EQ(r.juegos[u"CARNE"_s], u"\r\n");
  JuegosTextos::poner(r, u"CARNE"_s, 23, u"tres\r\nlíneas"_s);
  JuegosTextos::poner(r, {}, 40, u"de la tienda"_s);
  JuegosTextos::poner(r, {}, 20, u"no"_s);
  EXPECT_EQ(t.juegos.texto(r, u"CARNE"_s, 23), u"tres  líneas");
  EXPECT_EQ(t.juegos.texto(r, u"NO ESTA"_s, 40), u"de la tienda");
  bien(t.juegos.guardar(antes, r));
  EXPECT_EQ(bien(t.juegos.lineas(u"CARNE"_s))->count(u"\r\n"_s), 19);
  EXPECT_FALSE(bien(t.juegos.lineas(u"NO ESTA"_s)));
  Ajustes otros(t.carpeta.path(), Idioma::Espanol);
  bien(otros.LeerConfig());
  EXPECT_EQ(otros.TextoEtiquetas[40], u"de la tienda");
  EXPECT_EQ(bien(t.juegos.leer()), r);
  const Juegos con = std::exchange(r, antes);
  bien(t.juegos.guardar(con, r));
  EXPECT_EQ(t.cuenta(u"TEXTOSETQ"_s), 0);
}

TEST(MuestraDeArticulo, ElArticuloYElPeorCaso) {
  TiendaDeEtiquetas t;
  t.en(1)
      .articulo({.codigo = 1, .nombre = u"VENTA LIBRE A PESO, LA MÁS LARGA DE TODAS"})
      .articulo({.codigo = 10, .nombre = u"Jamón", .precio = 2500, .cada = 0})
      .articulo({.codigo = 777777, .nombre = u"Huevos de corral", .precio = 310, .cada = 2});
  t.sql(
      u"update PLUSES set TEXTO_ETQ='Bellota' & char(13) & 'puro', NUMDIAS_1=3 where CODPLU=10"_s);
  t.sql(u"update BZAS set RZSOCIAL='C:0:LUIS' & char(13) & char(10) & 'C:0:GIJON' where NMBZA=1"_s);
  t.sql(u"update BZAS set RZSOCIAL='C:0:LUIS E HIJOS' where NMBZA=2"_s);
  Muestras m(t.catalogo, t.ajustes);
  const auto de = [](const Ejemplo& e) {
    QStringList s;
    for (const Tipo tipo :
         {Tipo::Peso, Tipo::Precio, Tipo::Importe, Tipo::Unidades, Tipo::NombrePlu,
          Tipo::Descripcion, Tipo::Fecha, Tipo::Caducidad1, Tipo::CodigoPlu, Tipo::CodigoDeBarras})
      s << contenidoDe({.tipo = tipo}, e, {});
    for (const int n : {1, 2}) s << contenidoDe({.tipo = Tipo::RazonSocial, .NmL = n}, e, {});
    return s.join(u'|').toStdString();
  };
  EXPECT_EQ(de(bien(m.deArticulo({1, 10}))),
            "1,234|25,00|30,85|1|Jamón|Bellota puro|04/06/18|07/06/18|10|0000010000007|LUIS|GIJON");
  EXPECT_EQ(de(bien(m.deArticulo({1, 777777}))),
            "|3,10|3,10|1|Huevos de corral||04/06/18|04/06/18|777777|0777777000006|LUIS|GIJON");
  EXPECT_EQ(de(bien(m.peorCaso(1))),
            "99,999|25,00|2499,98|9999|Huevos de corral|Bellota puro|04/06/18|07/06/18|777777|"
            "0000010000007|LUIS E HIJOS|GIJON");
  EXPECT_EQ(m.deArticulo({1, 11}).error().clase, Fallo::NoExiste);
  EXPECT_EQ(m.peorCaso(9).error().clase, Fallo::NoExiste);
}

}  // namespace tarvo::prueba
