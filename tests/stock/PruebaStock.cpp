#include "stock/Almacenes.h"
#include "textos/TextosDePrueba.h"
#include "tienda/TiendaVacia.h"

using namespace tarvo;
using namespace tarvo::stock;
using namespace Qt::StringLiterals;
using tarvo::prueba::bien;

namespace {

// Section 1 with article 10 by weight, 11 by the 100 grams and 12 by unit; groups 1 and 2 in
// warehouse 1, group 3 in 2, group 4 in none.
struct TiendaDeStock : testing::Test, prueba::TiendaVacia {
  RelojVirtual reloj{*Fecha::leer(u"05/06/2018 22:15:00")};
  Almacenes almacenes{*db, reloj, textosDePrueba()};

  TiendaDeStock() {
    seccion(1);
    for (const auto& [codigo, cada] : {std::pair{10, 0}, {11, 1}, {12, 2}})
      articulo(
          {.codigo = codigo, .nombre = u"Artículo %1"_s.arg(codigo), .coste = 100, .cada = cada});
    Tienda::almacen(1).almacen(2, u"Cámara");
    for (const auto& [codigo, almacen] : {std::pair{1, 1}, {2, 1}, {3, 2}})
      grupo({.codigo = codigo, .nombre = u"G%1"_s.arg(codigo), .almacen = almacen});
    grupo({.codigo = 4, .nombre = u"G4", .mas = {{u"Almacen", {}}}});
  }
  Almacen elAlmacen(int c) { return *bien(almacenes.almacen(c)); }
  QString movs() {
    return leer(
        u"select CODALM, CODIGO, Inicial, Entrada, Compra, Salida, Venta, Merma "
        "from MovsAlm order by CODALM, CODIGO"_s);
  }
  void nota(int numero, const dao::Valor& origen = {}) {
    fila(u"ALBA_CAB", {{u"NUMALB", numero}, {u"Origen", origen}});
  }
  void linea(int numero, int codigo, int unidades, int peso, int coste) {
    fila(u"ALBA_LIN", {{u"NUMALB", numero},
                       {u"SECCION", 1},
                       {u"CODIGO", codigo},
                       {u"UNIDS", unidades},
                       {u"PESO", peso},
                       {u"COSTE", coste}});
  }
  void venta(int link, int grupo, int codigo, const dao::Valor& con, const dao::Valor& pes) {
    fila(u"TOTPLU",
         {{u"LINK", link}, {u"GRUPO", grupo}, {u"CODI", codigo}, {u"CON", con}, {u"PES", pes}});
  }
};

TEST_F(TiendaDeStock, LosContadoresHacenElStock) {
  ItmAlm item = bien(elAlmacen(1).Item(1, 10));
  EXPECT_EQ(item.Stock(), 0);
  bien(item.poner(ItmAlm::Inicial, 1000));
  bien(item.poner(ItmAlm::Venta, 300));
  EXPECT_EQ(item.Stock(), 700);
  bien(item.ponerStock(700));
  EXPECT_EQ(item.contador(ItmAlm::Merma), 0);
  bien(item.ponerStock(900));
  EXPECT_EQ(item.contador(ItmAlm::Merma), -200);
  EXPECT_EQ(movs(), u"1 10 1000 0 0 0 300 -200"_s);
  EXPECT_EQ(bien(elAlmacen(1).Item(1, 10)).Stock(), 900);
  EXPECT_EQ(bien(elAlmacen(1).Item(1, 12)).cada(), 2);
  // Not an article: nothing is written, and nothing changes in memory.
  ItmAlm nadie = bien(elAlmacen(1).Item(1, 99));
  EXPECT_FALSE(nadie.poner(ItmAlm::Inicial, 5));
  EXPECT_EQ(nadie.Stock(), 0);
}

TEST_F(TiendaDeStock, LasListasDanTodosConStockOConMovimiento) {
  bien(bien(elAlmacen(1).Item(1, 10)).poner(ItmAlm::Inicial, 5));
  bien(bien(elAlmacen(2).Item(1, 10)).poner(ItmAlm::Compra, 7));
  ItmAlm parado = bien(elAlmacen(1).Item(1, 12));
  bien(parado.poner(ItmAlm::Entrada, 3));
  bien(parado.poner(ItmAlm::Salida, 3));
  EXPECT_EQ(bien(elAlmacen(1).Lista(0, 0, 0)).size(), 3U);
  const auto con = bien(elAlmacen(1).Lista(1, 1, 0));
  ASSERT_EQ(con.size(), 1U);
  EXPECT_EQ(con[0].codigo, 10);
  EXPECT_EQ(con[0].stock, 5);
  EXPECT_EQ(bien(elAlmacen(1).Lista(1, 2, 1)).size(), 2U);
  EXPECT_EQ(bien(elAlmacen(1).Lista(2, 0, 0)).size(), 0U);
  const auto todos = bien(almacenes.ListaStock(0, 1, 1));
  ASSERT_EQ(todos.size(), 1U);
  EXPECT_EQ(todos[0].stock, 12);
  EXPECT_EQ(todos[0].contadores, (std::array<qint64, 6>{5, 0, 7, 0, 0, 0}));
}

TEST_F(TiendaDeStock, CadaGrupoTieneAlmacen) {
  sql(u"update ALMACEN set NOMALM='Almacén único' where CODALM=2"_s);
  bien(almacenes.asegurar());
  EXPECT_EQ(leer(u"select CODALM, NOMALM from ALMACEN order by CODALM"_s),
            u"1 Tienda | 2 Almacén 0002 | 3 Almacén de G4"_s);
  EXPECT_EQ(leer(u"select Almacen from GRUPOS where CODGPO=4"_s), u"3"_s);
  EXPECT_EQ(bien(elAlmacen(3).GruposInvolucrados()), std::vector<int>{4});
  bien(almacenes.asegurar());
  EXPECT_EQ(bien(almacenes.Siguiente()), 4);
}

TEST_F(TiendaDeStock, ElPrimerAlmacenTomaTodosLosGrupos) {
  sql(u"update GRUPOS set Almacen=Null"_s);
  sql(u"delete from ALMACEN"_s);
  EXPECT_EQ(bien(almacenes.Siguiente()), 1);
  bien(almacenes.asegurar());
  EXPECT_EQ(leer(u"select CODALM, NOMALM, FCHINI from ALMACEN"_s), u"1 Almacén único -"_s);
  EXPECT_EQ(leer(u"select distinct Almacen from GRUPOS"_s), u"1"_s);
}

TEST_F(TiendaDeStock, CadaAlmacenSeNombraUnaVez) {
  EXPECT_FALSE(bien(almacenes.Nuevo(1, u"Otro"_s)));
  EXPECT_FALSE(bien(almacenes.Nuevo(7, u"  tien DA"_s)));
  EXPECT_TRUE(bien(almacenes.Nuevo(7, u"Nave"_s)));
  EXPECT_EQ(bien(almacenes.CodigoAlmacen(u"cámara"_s)), 2);
  Almacen a = elAlmacen(7);
  EXPECT_FALSE(bien(a.ponerNombre(u"TIENDA"_s)));
  EXPECT_TRUE(bien(a.ponerNombre(u"Nave 2"_s)));
  EXPECT_TRUE(bien(a.ponerFechaRegulacion(reloj.ahora())));
  EXPECT_TRUE(bien(a.ponerFechaInicio(reloj.ahora())));
  EXPECT_FALSE(a.FechaRegulacion());
  // A new code of a warehouse takes its groups and counters along; a code in use is loaded.
  Almacen b = elAlmacen(2);
  bien(bien(b.Item(1, 10)).poner(ItmAlm::Inicial, 5));
  EXPECT_TRUE(bien(b.ponerCodigo(20)));
  EXPECT_EQ(bien(b.GruposInvolucrados()), std::vector<int>{3});
  // A transfer counts for both of its warehouses.
  fila(u"ALBA_CAB", {{u"NUMALB", 901}, {u"Almacen", 1}, {u"Origen", 20}});
  EXPECT_EQ(bien(b.AlbaranesInvolucrados()), std::vector<int>{901});
  EXPECT_EQ(bien(elAlmacen(1).AlbaranesInvolucrados()), std::vector<int>{901});
  sql(u"delete from ALBA_CAB where NUMALB=901"_s);
  EXPECT_EQ(bien(b.Item(1, 10)).Stock(), 5);
  EXPECT_TRUE(bien(b.ponerCodigo(1)));
  EXPECT_EQ(b.Nombre(), u"Tienda"_s);
  EXPECT_TRUE(bien(almacenes.Eliminar(7)));
  EXPECT_FALSE(bien(almacenes.Eliminar(7)));
}

TEST_F(TiendaDeStock, InicializarConservaElStockOLoBorra) {
  ItmAlm item = bien(elAlmacen(1).Item(1, 10));
  bien(item.poner(ItmAlm::Inicial, 10));
  bien(item.poner(ItmAlm::Compra, 5));
  bien(item.poner(ItmAlm::Venta, 3));
  bien(bien(elAlmacen(1).Item(1, 12)).poner(ItmAlm::Merma, 0));
  bien(bien(elAlmacen(2).Item(1, 12)).poner(ItmAlm::Merma, 4));
  Almacen a = elAlmacen(1);
  EXPECT_FALSE(bien(a.Inicializar(3)));
  EXPECT_TRUE(bien(a.Inicializar(1)));
  EXPECT_EQ(movs(), u"1 10 12 0 0 0 0 0 | 2 12 0 0 0 0 0 4"_s);
  EXPECT_EQ(a.FechaInicio()->general(), u"05/06/2018 00:00:00"_s);
  EXPECT_TRUE(bien(a.Inicializar(2)));
  EXPECT_EQ(movs(), u"2 12 0 0 0 0 0 4"_s);
  EXPECT_FALSE(bien(a.Inicializar(1)));  // no row
}

TEST_F(TiendaDeStock, UnAlbaranDeCompraMueveStockYCoste) {
  bien(bien(elAlmacen(1).Item(1, 10)).poner(ItmAlm::Inicial, 1000));
  bien(bien(elAlmacen(2).Item(1, 10)).poner(ItmAlm::Inicial, 1000));
  nota(1);
  linea(1, 10, 0, 2000, 200);
  linea(1, 12, 5, 0, 70);
  EXPECT_TRUE(bien(elAlmacen(1).IncorporarAlbaran(1, 2, false)));
  EXPECT_EQ(leer(u"select COSTE from PLUSES where CODPLU in (10, 12) order by CODPLU"_s),
            u"150 | 70"_s);
  EXPECT_EQ(movs(), u"1 10 1000 0 2000 0 0 0 | 1 12 0 0 5 0 0 0 | 2 10 1000 0 0 0 0 0"_s);
  EXPECT_FALSE(bien(elAlmacen(2).IncorporarAlbaran(1, 0, false)));  // in stock elsewhere
  EXPECT_TRUE(bien(elAlmacen(1).IncorporarAlbaran(1, 0, true)));
  EXPECT_EQ(movs(), u"1 10 1000 0 0 0 0 0 | 2 10 1000 0 0 0 0 0"_s);
  EXPECT_EQ(leer(u"select stkADO, Almacen from ALBA_CAB"_s), u"0 -"_s);
  EXPECT_FALSE(bien(elAlmacen(1).IncorporarAlbaran(9, 0, false)));
}

TEST_F(TiendaDeStock, LaMediaDeNadaNoCambiaElCoste) {
  bien(bien(elAlmacen(1).Item(1, 12)).poner(ItmAlm::Merma, 5));
  nota(1);
  linea(1, 12, 5, 0, 70);
  EXPECT_TRUE(bien(elAlmacen(1).IncorporarAlbaran(1, 2, false)));
  EXPECT_EQ(leer(u"select COSTE from PLUSES where CODPLU=12"_s), u"100"_s);
  EXPECT_TRUE(bien(elAlmacen(1).IncorporarAlbaran(1, 1, false)));
  EXPECT_EQ(leer(u"select COSTE from PLUSES where CODPLU=12"_s), u"70"_s);
  EXPECT_EQ(leer(u"select stkADO, Almacen from ALBA_CAB"_s), u"2 1"_s);
}

TEST_F(TiendaDeStock, UnTraspasoEntraEnteroONoEntra) {
  nota(1, 2);
  linea(1, 10, 0, 300, 0);
  EXPECT_TRUE(bien(elAlmacen(1).IncorporarAlbaran(1, 2, false)));
  EXPECT_EQ(movs(), u"1 10 0 300 0 0 0 0 | 2 10 0 0 0 300 0 0"_s);
  EXPECT_TRUE(bien(elAlmacen(1).IncorporarAlbaran(1, 2, true)));
  EXPECT_EQ(movs(), QString());
  linea(1, 99, 1, 0, 0);  // no such article
  EXPECT_FALSE(elAlmacen(1).IncorporarAlbaran(1, 2, false));
  EXPECT_EQ(movs(), QString());
  EXPECT_EQ(leer(u"select stkADO from ALBA_CAB"_s), u"0"_s);
}

TEST_F(TiendaDeStock, LasVentasSalenUnaVezPorArticuloYAlmacen) {
  periodo({.link = 7, .stkABLE = 1}).periodo({.link = 8, .stkABLE = 0});
  venta(7, 1, 10, 4, 1500);
  venta(7, 2, 10, 1, 500);  // the same warehouse
  venta(7, 3, 11, 2, 250);
  venta(7, 1, 12, 6, 9999);  // by unit
  venta(7, 2, 11, 3, 0);     // sold, but no grams
  venta(7, 1, 11, dao::Valor(), 40);
  venta(7, 4, 10, 1, 800);  // no warehouse
  venta(7, 1, 99, 1, 800);  // a deleted article
  venta(8, 1, 10, 1, 1);
  venta(0, 1, 10, 1, 1);
  EXPECT_TRUE(bien(almacenes.DescontarVenta(7, 1)));
  const QString unaVez =
      u"1 10 0 0 0 0 2000 0 | 1 11 0 0 0 0 40 0 | 1 12 0 0 0 0 6 0 | 2 11 0 0 0 0 250 0"_s;
  EXPECT_EQ(movs(), unaVez);
  EXPECT_FALSE(bien(almacenes.DescontarVenta(8, 1)));
  EXPECT_FALSE(bien(almacenes.DescontarVenta(99, 1)));
  EXPECT_EQ(movs(), unaVez);
  EXPECT_TRUE(bien(almacenes.DescontarVenta(7, 1)));
  EXPECT_EQ(leer(u"select stkADO from COLUMNA where LINK=7"_s), u"2"_s);
  EXPECT_TRUE(bien(almacenes.DescontarVenta(7, -2)));
  EXPECT_EQ(movs(), QString());
  EXPECT_EQ(leer(u"select stkADO from COLUMNA where LINK=7"_s), u"0"_s);
}

}  // namespace
