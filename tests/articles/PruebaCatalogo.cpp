// What belongs to an article: its history, offers, stock, bar codes; sections, departments and
// operators.

#include "articles/BorradoSeccion.h"
#include "articles/CodigoBarras.h"
#include "articles/Existencias.h"
#include "articles/Listas.h"
#include "articles/TiendaDeArticulos.h"

namespace tarvo::prueba {

TEST(Catalogo, LaHistoriaDiceQuienPusoQue) {
  TiendaDeArticulos t;
  Articulo a = t.articulo(3, 10);
  a.precios[0][0] = 120;
  a.precios[1][3] = 90;
  bien(t.catalogo.modificar(a.clave, a, u"xEditPLU"_s));
  a.clave.codigo = 12;
  bien(t.catalogo.modificar({3, 10}, a, u"xEditPLU"_s));
  bien(t.catalogo.mover(std::vector{a.clave}, 7));
  EXPECT_EQ(
      t.leer(
          u"select SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, QUIEN, VENTANA from HistoriaPrecios order by ID"_s),
      u"7 12 0 0 100 120 ana@caja xEditPLU | 7 12 1 3 0 90 ana@caja xEditPLU");
}

TEST(Catalogo, LasOfertasSiguenAlCodigoYNoSeHeredan) {
  TiendaDeArticulos t;
  const auto oferta = [&](qint64 codigo) {
    t.oferta({.grupo = 1, .codigo = codigo, .precio = codigo, .enviado = 1});
  };
  oferta(10);
  oferta(12);  // of a deleted article
  oferta(50);
  Articulo a = t.articulo(3, 10);
  a.clave.codigo = 12;
  bien(t.catalogo.modificar({3, 10}, a, u"xEditPLU"_s));
  a.clave.codigo = 50;
  bien(t.catalogo.crear(a, u"xEditPLU"_s));
  EXPECT_EQ(t.leer(u"select CODIGO, PRECIO_0, enviado from OFERTAS"_s), u"12 10 0");
}

TEST(Catalogo, UnaFaltaNoDejaNadaAMedias) {
  TiendaDeArticulos t;
  Articulo a = t.articulo(3, 10);
  a.precios[0][0] = 999;
  a.clave.codigo = 11;
  const auto repetido = t.catalogo.modificar({3, 10}, a, u"xEditPLU"_s);
  ASSERT_FALSE(repetido);
  EXPECT_EQ(repetido.error().clase, Fallo::Duplicado);
  a.clave = {3, 60};
  a.codBarExt = u"8412345678905"_s;
  bien(t.catalogo.crear(a, u"xEditPLU"_s));
  a.clave.codigo = 61;
  const auto barras = t.catalogo.crear(a, u"xEditPLU"_s);
  ASSERT_FALSE(barras);
  EXPECT_EQ(barras.error().clase, Fallo::Duplicado);
  EXPECT_EQ(t.leer(u"select count(*) from HistoriaPrecios where CODPLU in (10, 11, 61)"_s), u"0");
  EXPECT_EQ(t.cruces(), u"3 10 1 0 | 3 10 4 0");
  // A missing one stops the whole move.
  EXPECT_FALSE(t.catalogo.mover(std::vector<ClaveArticulo>{{3, 20}, {3, 99}}, 7));
  EXPECT_EQ(t.leer(u"select SECCION from PLUSES where CODPLU=20"_s), u"3");
}

TEST(CodigoBarras, ElDigitoDeControl) {
  const struct {
    const char* codigo;
    int debido;  // -1: nothing to report
  } casos[] = {{"8412345678905", -1}, {"8412345678904", 5},  {"96385074", -1},
               {"96385070", 4},       {"0000000000000", -1}, {"ABC", -1},
               {"123456", -1},        {"841234567890A", -1}};
  for (const auto& c : casos)
    EXPECT_EQ(controlDebido(QString::fromLatin1(c.codigo)).value_or(-1), c.debido) << c.codigo;
  const struct {
    int barras;
    const char* prefijo;
    qint64 codigo;
    const char* impreso;
  } compuestos[] = {{kEAN13, "21", 123, "2100012300001"},
                    {kEAN8, "2", 123, "20001230"},
                    {kEAN8, "21", 123, ""},     // a digit too many
                    {kEAN8, "0", 1234567, ""},  // a code of seven digits
                    {kEAN13, "21A", 5, ""}};
  for (const auto& c : compuestos) {
    Articulo a;
    a.clave = {1, c.codigo};
    a.barras = c.barras;
    a.pfxBar = QString::fromLatin1(c.prefijo);
    EXPECT_EQ(codigoImpreso(a).toStdString(), c.impreso) << c.prefijo << ' ' << c.codigo;
    EXPECT_FALSE(controlDebido(codigoImpreso(a))) << c.impreso;
  }
}

TEST(Busqueda, PorCualquierParteDeNombreCodigoOBarras) {
  TiendaDeArticulos t;
  t.sql(
      u"update PLUSES set NOMPLU='Jamón Ibérico 5*', CodBarExt='8412345678905' where CODPLU=20"_s);
  t.sql(u"update PLUSES set NOMPLU='PIÑA', PFX_BAR=' 29 ' where CODPLU=10"_s);
  const struct {
    const char* texto;
    const char* codigos;
  } casos[] = {
      {"jamon", "20"},  {"IBERICO jam", "20"},  {"ñ", "10"},        {"n", "20"},  {"345678", "20"},
      {"000020", "20"}, {"2900", "10"},         {"5*", "20"},       {"pina", ""}, {"[", ""},
      {"'", ""},        {"  ", "10 | 11 | 20"}, {"iberico 999", ""}};
  for (const auto& c : casos) {
    const Condicion condicion = condicionBusqueda(QString::fromUtf8(c.texto));
    auto rs = bien(t.db->OpenQuery(
        u"select CODPLU from PLUSES where SECCION=3 and CODPLU>2"_s +
            (condicion.sql.isEmpty() ? QString() : QString(u" and "_s + condicion.sql)) +
            u" order by CODPLU"_s,
        condicion.valores));
    QStringList codigos;
    for (; !rs->Eof(); bien(rs->MoveNext())) codigos << rs->texto(0);
    if (QLatin1String(c.texto) == QLatin1String("n")) codigos.removeAll(u"11"_s);
    EXPECT_EQ(codigos.join(u" | "_s).toStdString(), c.codigos) << c.texto;
  }
}

TEST(Existencias, SoloSeEscribeLoQueCambia) {
  TiendaDeArticulos t;
  t.almacen(1);
  t.existencias({.almacen = 1, .codigo = 10, .inicial = 5000, .venta = 1000});
  const auto antes = bien(leerExistencias(*t.db, {3, 10}));
  ASSERT_EQ(antes.size(), 2u);
  EXPECT_EQ(antes[1].actual(), 4000);
  EXPECT_EQ(antes[1].valoracion(kPorKilo, 250), 1000);
  EXPECT_EQ(antes[1].valoracion(kPorUnidad, 250), 1'000'000);
  auto ahora = antes;
  ahora[1].inicial = 7000;
  t.sql(u"update MovsAlm set Venta=1500 where CODALM=1"_s);  // sold while the editor was open
  bien(ponerExistencias(*t.db, {3, 10}, antes, ahora));
  EXPECT_EQ(t.leer(u"select CODALM, Inicial, Venta from MovsAlm order by CODALM"_s),
            u"0 0 0 | 1 7000 1500");
}

TEST(Secciones, LaCopiaYLaBorrada) {
  TiendaDeArticulos t;
  bien(t.secciones.ponerIvas(3, {400, 1000, 2100, 550, 0}));
  CopiaSeccion copia(t.catalogo, 3);
  qint64 hechos = 0, total = 0;
  bien(copia.paso(hechos, total));
  EXPECT_EQ(t.leer(u"select NOMSEC from SECCS where NMSECC=8"_s),
            u"Copia de Sección 3 (sin terminar)");
  while (bien(copia.paso(hechos, total))) {
  }
  EXPECT_EQ(hechos, 5);
  EXPECT_EQ(total, 5);
  EXPECT_EQ(t.leer(u"select NOMSEC, IVAs from SECCS where NMSECC=8"_s),
            u"Copia de Sección 3 4@10@21@5.5@0");
  const auto articulos = [&](int seccion) {
    const QString que = columnasArticulo().mid(1).join(u", "_s);
    return t.leer(
        u"select %1 from PLUSES where SECCION=%2 order by CODPLU"_s.arg(que).arg(seccion));
  };
  EXPECT_EQ(articulos(8), articulos(3));
  EXPECT_EQ(t.leer(u"select NUMDEP, NomDep, IVA from DEPTS where SECCION=8"_s),
            u"1 Dep 1 | 2 Dep 1");
  bien(copia.deshacer());
  EXPECT_EQ(t.leer(u"select count(*) from SECCS where NMSECC=8"_s), u"0");

  t.fila(u"BZAS", {{u"SUGPO", 1}, {u"NMBZA", 0}});
  t.fila(u"BZAS", {{u"SUGPO", 5}, {u"NMBZA", 0}});
  t.fila(u"Sesiones", {{u"CODGPO", 4}});
  t.oferta({.grupo = 1, .codigo = 10});
  const auto c = bien(t.secciones.cuentas(3));
  EXPECT_EQ(std::tuple(c.plus, c.depts, c.grupos), std::tuple(5, 2, 4));
  bien(t.secciones.borrar(3));
  EXPECT_EQ(t.leer(u"select SUGPO from BZAS"_s), u"5");
  EXPECT_EQ(
      t.leer(
          u"select (select count(*) from Sesiones), (select count(*) from OFERTAS), (select count(*) from PLUSES), (select count(*) from GRUPOS)"_s),
      u"0 0 3 1");
}

// Deleted with a copy of everything, and restored as it was; what has been taken by another stays
// so.
TEST(Secciones, UnaBorradaVuelveEntera) {
  TiendaDeArticulos t;
  t.fila(u"BZAS", {{u"SUGPO", 1}, {u"NMBZA", 0}});
  t.fila(u"Sesiones", {{u"CODGPO", 4}});
  t.oferta({.grupo = 1, .codigo = 10, .precio = 7});
  t.existencias({.codigo = 10, .inicial = 500});
  Precios p = t.articulo(3, 10).precios;
  p[0][0] = 1;
  bien(t.catalogo.ponerPrecios({3, 10}, p, u"V"_s));
  const auto todo = [&] {
    QString s;
    for (const char* que :
         {"* from SECCS order by 1", "* from DEPTS order by 1, 2", "* from PLUSES order by 1, 2",
          "* from GRUPOS order by CODGPO", "* from BZAS", "* from Sesiones", "* from OFERTAS",
          "* from MovsAlm", "SECCION, CODPLU, AHORA, QUIEN from HistoriaPrecios",
          "* from [Cross] order by 1, 2, 3"})
      s += t.leer(u"select "_s + QString::fromLatin1(que)) + u'\n';
    return s.toStdString();
  };
  const auto va = bien(t.secciones.loQueSeVa(3));
  EXPECT_EQ(std::tuple(va.cuentas.plus, va.cuentas.depts, va.cuentas.grupos, va.maquinas,
                       va.ofertas, va.existencias, va.historia),
            std::tuple(3, 2, 4, 1, 1, 1, 1));
  EXPECT_FALSE(va.vacia());
  QStringList idos;
  t.sql(u"create table DeOtra (GRUPO, LINK, X)"_s);
  t.sql(u"insert into DeOtra values (1, 0, 10), (1, 5, 11), (8, 0, 12)"_s);
  t.catalogo.cambios().guardaPorGrupo(
      {[&](int grupo) -> Resultado<> {
         idos << QString::number(grupo) + t.leer(u"select count(*) from GRUPOS"_s);
         t.sql(u"delete from DeOtra where LINK=0 and GRUPO=%1"_s.arg(grupo));
         return {};
       },
       {{u"DeOtra"_s, u"LINK=0 AND "_s}},
       [](int grupo) -> Resultado<std::optional<qint64>> {
         return grupo == 2 ? std::optional<qint64>(1250) : std::nullopt;
       }});
  const auto ventas = bien(t.secciones.loQueSeVa(3)).ventas;
  ASSERT_EQ(ventas.size(), 1U) << "only groups with sales in no period";
  EXPECT_EQ(std::pair(ventas[0].grupo, ventas[0].importe), std::pair(2, qint64{1250}));
  const std::string antes = todo();
  BorradoSeccion ida(t.catalogo, 3);
  const QString copia = bien(ida.borrar(t.carpeta.path(), t.reloj.ahora()));
  EXPECT_EQ(idos.join(u' '), u"15 25 35 45") << "each, while it is still there";
  EXPECT_EQ(t.leer(u"select NMSECC from SECCS"_s), u"7");
  EXPECT_EQ(t.leer(u"select X from DeOtra order by X"_s), u"11 | 12");
  EXPECT_EQ(
      bien(bien(dao::Database::OpenDatabase(copia))->uno(u"select count(*) from SECCS")).entero(),
      2);
  bien(ida.reponer());
  EXPECT_EQ(todo(), antes);
  EXPECT_EQ(t.leer(u"select X from DeOtra order by X"_s), u"10 | 11 | 12");

  bien(ida.borrar(t.carpeta.path(), t.reloj.ahora() + 1));
  t.seccion(9, u"OTRA").grupo({.codigo = 4});
  EXPECT_EQ(ida.reponer().error().clase, Fallo::Duplicado);
  EXPECT_EQ(t.leer(u"select NMSECC from SECCS order by 1"_s), u"7 | 9") << "nothing by halves";
  // Without its copy nothing is deleted.
  BorradoSeccion otra(t.catalogo, 7);
  EXPECT_FALSE(otra.borrar(t.ruta(u"no/hay"_s), t.reloj.ahora()));
  EXPECT_EQ(t.leer(u"select NMSECC from SECCS order by 1"_s), u"7 | 9");
}

TEST(Secciones, NumerosYNombres) {
  TiendaDeArticulos t;
  EXPECT_EQ(bien(t.secciones.nueva()), 8);
  EXPECT_EQ(bien(t.secciones.nuevoDepartamento(3)), 3);
  EXPECT_EQ(bien(t.secciones.nuevoDepartamento(7)), 1);
  t.departamento(40);
  EXPECT_EQ(bien(t.secciones.nuevoDepartamento(3)), 4) << "articles take departments up to 40";
  EXPECT_FALSE(t.secciones.renombrar(3, u"  "_s));
  EXPECT_FALSE(t.secciones.ponerTipoIva(3, 1, 6));
  t.sql(u"update PLUSES set DEPTO=1 where SECCION=3 and CODPLU<3"_s);
  bien(t.secciones.borrarDepartamento(3, 1));
  EXPECT_EQ(t.leer(u"select CODPLU from PLUSES where SECCION=3"_s), u"1 | 2 | 20");
  EXPECT_EQ(leerIvas(u"7@ 5,5@x"_s), (Ivas{700, 550, 0, 0, 0}));
  t.sql(u"delete from SECCS"_s);
  EXPECT_EQ(bien(t.secciones.nueva()), 1);
}

TEST(Operadores, ElCodigoVaEnTodosLosHuecos) {
  TiendaDeArticulos t;
  bien(t.operadores.anadir(5, u"Ana"_s));
  bien(t.operadores.anadir(6, u"Luis"_s));
  EXPECT_FALSE(t.operadores.anadir(0, {}));
  EXPECT_FALSE(t.operadores.anadir(10'000, {}));
  EXPECT_EQ(t.operadores.anadir(6, {}).error().clase, Fallo::Duplicado);
  t.sql(u"update GRUPOS set OP01_C=5, OP01_T=1, OP10_C=5, OP11_C=5, OP20_C=6"_s);
  EXPECT_FALSE(t.operadores.cambiarCodigo(5, 6));
  bien(t.operadores.cambiarCodigo(5, 77));
  const QString huecos =
      u"select TIPO, OP01_C, OP01_T, OP10_C, OP11_C, OP20_C from GRUPOS order by CODGPO"_s;
  EXPECT_EQ(t.leer(huecos),
            u"1 77 1 77 77 6 | 2 77 1 77 5 6 | 3 77 1 77 77 6 | 4 77 1 77 77 6 | 1 77 1 77 77 6");
  const auto idos = bien(t.operadores.borrar(std::vector<int>{77, 6}));
  EXPECT_EQ(t.leer(huecos), u"1 0 0 0 0 0 | 2 0 0 0 5 6 | 3 0 0 0 0 0 | 4 0 0 0 0 0 | 1 0 0 0 0 0");
  EXPECT_EQ(t.leer(u"select count(*) from OPERS"_s), u"0");
  t.sql(u"update GRUPOS set OP10_C=8 where CODGPO=1"_s);  // a slot taken meanwhile
  EXPECT_EQ(bien(t.operadores.reponer(idos)), 1);
  EXPECT_EQ(t.leer(huecos),
            u"1 77 1 8 77 6 | 2 77 1 77 5 6 | 3 77 1 77 77 6 | 4 77 1 77 77 6 | 1 77 1 77 77 6");
}

}  // namespace tarvo::prueba
