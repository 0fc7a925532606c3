// Records as machines send them, and the same records cut or garbled.
#include <gtest/gtest.h>

#include <functional>

#include "comm/maquinas/Caja.h"
#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"

namespace tarvo::maquinas {

namespace {

using Leer = std::function<Leido<Total>(QByteArrayView, Rigor)>;

Leido<Total> unico(Leido<std::vector<Total>> r) {
  if (!r) return std::unexpected(r.error());
  EXPECT_EQ(r->size(), 1U);
  return r->front();
}

Leido<Total> hay(Leido<std::optional<Total>> r) {
  if (!r) return std::unexpected(r.error());
  return r->value_or(Total{});
}

struct Caso {
  const char* nombre;
  Leer leer;
  QByteArray registro;
  Total total;
};

const QByteArray k14(14, '0'), k28(28, '0'), k33(33, '0'), k18(18, 'x');

std::vector<Caso> casos() {
  return {
      {"artículo",
       vek::leerArticulo,
       "0000017"
       "000001250"
       "000000750"
       "00003"
       "999999999"
       "000000040",
       {17, 0, 3, 750, 1250, 40}},
      {"devolución",
       vek::leerArticulo,
       "0000017"
       "00000-500"
       "000000250"
       "00001"
       "000000000"
       "000000000",
       {17, 0, 1, -250, -500, 0}},
      {"gran total 1",
       [](auto r, Rigor g) { return vek::leerGranTotal(r, TipoGrupo::Balanzas, g); },
       "000012345"
       "000006000"
       "99999"
       "00042",
       {0, 0, 42, 6000, 12345, 0}},
      {"gran total 4",
       [](auto r, Rigor g) { return vek::leerGranTotal(r, TipoGrupo::Birch, g); },
       "000012345"
       "000006000"
       "99999"
       "00042" +
           k28 +
           "000000030"
           "99999"
           "000000012",
       {0, 0, 42, 6000, 12345, 42}},
      {"operador",
       vek::leerOperador,
       "03"
       "000000900"
       "00002" +
           k33 + "000000010",
       {0, 0, 2, 0, 900, 10}},
      {"departamento",
       vek::leerDepartamento,
       "07"
       "000000900"
       "000000300"
       "00002",
       {7, 0, 2, 300, 900, 0}},
      {"hora",
       vek::leerHora,
       "21"
       "000000900"
       "000000300"
       "00002",
       {21, 0, 2, 300, 900, 0}},
      {"operador y hora",
       vek::leerOperadorHora,
       "05"
       "13"
       "000000900"
       "000000300"
       "00002",
       {5, 13, 2, 300, 900, 0}},
      {"nodal artículo",
       [](auto r, Rigor g) { return unico(nodal::leerArticulos(r, g)); },
       "99"
       "0017"
       "-0000500"
       "00000250"
       "000003",
       {17, 0, 3, -250, -500, 0}},
      {"nodal gran total",
       nodal::leerGranTotal,
       k18 + "0000012345"
             "0000000042"
             "00006000"
             "000007",
       {0, 0, 7, 6000, 12345, 42}},
      {"nodal operador",
       [](auto r, Rigor g) { return unico(nodal::leerOperadores(r, g)); },
       "99"
       "04"
       "0000000900"
       "0000000010"
       "00000300"
       "000002",
       {5, 0, 2, 300, 900, 10}},
      {"nodal departamento",
       [](auto r, Rigor g) { return unico(nodal::leerDepartamentos(r, g)); },
       "99"
       "00"
       "0000000900"
       "0000000010"
       "00000300"
       "000002",
       {1, 0, 2, 300, 900, 10}},
      {"nodal operador y hora",
       [](auto r, Rigor g) { return unico(nodal::leerOperadoresHoras(r, g)); },
       "99"
       "0413"
       "0000000900"
       "0000000010"
       "00000300"
       "000002",
       {5, 13, 2, 300, 900, 0}},
      {"caja artículo",
       [](auto r, Rigor g) { return hay(caja::leerArticulo(r, g)); },
       "xx"
       "0008412345678"
       "00000-2000"
       "0000000500",
       {8412345678, 0, 2, 0, 500, 0}},
      {"caja gran total",
       [](auto r, Rigor g) { return hay(caja::leerGranTotal(r, g)); },
       "0017"
       "xx"
       "0000000003"
       "00000-0500",
       {17, 0, 3, 0, -500, 0}},
      {"caja departamento",
       [](auto r, Rigor g) { return hay(caja::leerDepartamento(r, g)); },
       "0001"
       "07"
       "0000003000"
       "0000000500",
       {7, 0, 3, 0, 500, 0}},
  };
}

}  // namespace

TEST(Registros, SeLeenEnterosYNoCortados) {
  for (const Caso& c : casos()) {
    constexpr Rigor kEstricto = Rigor::Estricto, kTolerante = Rigor::Tolerante;
    const auto r = c.leer(c.registro, kEstricto);
    ASSERT_TRUE(r) << c.nombre << ": " << r.error().donde;
    EXPECT_EQ(*r, c.total) << c.nombre;
    // One character short at the end, or a letter in the last digit, is no record of zeros.
    const auto corto = c.leer(c.registro.chopped(1), kEstricto);
    ASSERT_FALSE(corto) << c.nombre;
    EXPECT_EQ(corto.error().que, RegistroMalo::Corto) << c.nombre;
    EXPECT_FALSE(c.leer(c.registro.chopped(1) + "x", kEstricto)) << c.nombre;
    EXPECT_FALSE(c.leer({}, kEstricto)) << c.nombre;
    // Read tolerantly, a garbled counter is 0 and the others stay; a truncated one is still no
    // number.
    EXPECT_EQ(*c.leer(c.registro, kTolerante), *r) << c.nombre;
    EXPECT_FALSE(c.leer(c.registro.chopped(1), kTolerante)) << c.nombre;
    const auto comoVenga = c.leer(c.registro.chopped(1) + "x", kTolerante);
    ASSERT_TRUE(comoVenga) << c.nombre;
    const Total& t = *comoVenga;
    EXPECT_LE((t.con != c.total.con) + (t.pes != c.total.pes) + (t.imp != c.total.imp) +
                  (t.sco != c.total.sco),
              c.nombre == QByteArrayView("caja departamento") ? 2 : 1)
        << c.nombre;
  }
}

TEST(Registros, VariosPorTramaYLoQueSobra) {
  const QByteArray uno =
                       "0017"
                       "00000500"
                       "00000250"
                       "000003",
                   dos =
                       "0018"
                       "00000600"
                       "00000100"
                       "000001";
  const auto r = nodal::leerArticulos("99" + uno + dos);
  ASSERT_TRUE(r);
  EXPECT_EQ(*r, (std::vector<Total>{{17, 0, 3, 250, 500, 0}, {18, 0, 1, 100, 600, 0}}));
  EXPECT_TRUE(nodal::leerArticulos("99")->empty());
  EXPECT_FALSE(nodal::leerArticulos("9"));
  EXPECT_FALSE(nodal::leerArticulos("99" + uno + "0018"));
  // Read tolerantly: a record without its last field, blanks for a counter, extra blanks. The key
  // of a record is never guessed.
  using V = std::vector<Total>;
  const auto leer = [](const QByteArray& d) { return nodal::leerArticulos(d, Rigor::Tolerante); };
  const QByteArray blanco(8, ' ');
  EXPECT_EQ(*leer("99" + uno + dos.left(20)),
            (V{{17, 0, 3, 250, 500, 0}, {18, 0, 0, 100, 600, 0}}));
  EXPECT_EQ(*leer("99" + uno + "0018" + blanco + blanco + blanco.left(6) + blanco),
            (V{{17, 0, 3, 250, 500, 0}, {18, 0, 0, 0, 0, 0}}));
  EXPECT_FALSE(leer("99" + uno + blanco + "00000600"));
  EXPECT_FALSE(leer("99" + uno + "00"));
  EXPECT_FALSE(leer("9"));
  EXPECT_FALSE(vek::leerArticulo("       000001250", Rigor::Tolerante));
  EXPECT_FALSE(caja::leerDepartamento("0001  0000003000", Rigor::Tolerante));
}

// The quantity of an article is a number of pieces whatever its sign; the other records keep it.
TEST(Registros, ElSignoDeLasCantidadesDeUnaCaja) {
  const QByteArray menos = "000000-003", importe = "00000-0500";
  const auto articulo = caja::leerArticulo("xx0008412345678" + QByteArray("00000-3000") + importe);
  const auto granTotal = caja::leerGranTotal("001200" + menos + importe);
  const auto departamento = caja::leerDepartamento("000107" + QByteArray("00000-3000") + importe);
  const auto soloCantidad =
      caja::leerDepartamento("000107" + QByteArray("00000-3000") + "0000000000");
  EXPECT_EQ(**articulo, (Total{8412345678, 0, 3, 0, -500, 0}));
  EXPECT_EQ(**granTotal, (Total{12, 0, -3, 0, -500, 0}));
  EXPECT_EQ(**departamento, (Total{7, 0, -3, 0, -500, 0}));
  EXPECT_EQ(**soloCantidad, (Total{7, 0, -3, 0, 0, 0}));
}

TEST(Registros, LoQueUnaCajaNoCuenta) {
  EXPECT_EQ(caja::leerGranTotal("0002"
                                "00"
                                "0000000003"
                                "0000000500"),
            std::nullopt);
  EXPECT_EQ(caja::leerDepartamento("0012"
                                   "00"
                                   "0000000003"
                                   "0000000500"),
            std::nullopt);
  EXPECT_EQ(caja::leerDepartamento("0001"
                                   "07"
                                   "0000003000"
                                   "0000000000"),
            std::nullopt);
  EXPECT_EQ(caja::leerArticulo("xx"
                               "0008412345678"
                               "0000000000"
                               "0000000000"),
            std::nullopt);
  EXPECT_TRUE(caja::finDeLista(2057, "xx             0000"));
  EXPECT_FALSE(caja::finDeLista(2057, "xx            10000"));
  EXPECT_TRUE(caja::finDeLista(2060, "009900"));
  EXPECT_FALSE(caja::finDeLista(2060, "0009"));
  EXPECT_FALSE(caja::finDeLista(3054, "0099"));
}

TEST(Registros, LineasDePedido) {
  const QByteArray a = "0000017"
                       "00001500"
                       "00000000",
                   b = "0000018"
                       "00000000"
                       "00000006",
                   fin(23, '0');
  using T = vek::TrozoLista;
  const std::vector<Linea> dos{{17, 1500, 0}, {18, 0, 6}};
  EXPECT_EQ(*vek::leerLineas("0" + a + b), (T{dos, false}));
  EXPECT_EQ(*vek::leerLineas("0" + a + b + "0123456789"), (T{dos, false}));
  EXPECT_EQ(*vek::leerLineas("0" + a + b + fin + a), (T{dos, true}));
  EXPECT_EQ(*vek::leerLineas("0" + fin), (T{{}, true}));
  EXPECT_FALSE(vek::leerLineas("0123456789"));  // neither a line nor the end
  EXPECT_FALSE(vek::leerLineas("0" + a +
                               "00000x8"
                               "00000000"
                               "00000006"));

  const QByteArray n = "0017"
                       "01500000"
                       "00000002",
                   f(20, '0');
  EXPECT_EQ(*nodal::leerPedido("99" + n + "   "), (std::vector<Linea>{{17, 1500, 2}}));
  EXPECT_FALSE(nodal::leerPedido("99" + n + "0123456789"));  // a cut line
  EXPECT_EQ(*nodal::leerPedido("99" + n + f + n), (std::vector<Linea>{{17, 1500, 2}}));
  EXPECT_EQ(*nodal::leerPedido("99"
                               "0017"
                               "00001500"
                               "00000002"),
            (std::vector<Linea>{{17, 2, 2, true}}));
  EXPECT_TRUE(nodal::leerPedido("99")->empty());
  EXPECT_FALSE(nodal::leerPedido("990017"));

  // Read tolerantly, a line without its last field is one, unless it will be asked for again.
  constexpr Rigor kTolerante = Rigor::Tolerante;
  const Linea sinUnidades{17, 1500, 0};
  for (const QByteArray& detras : {QByteArray(), b.left(15)})
    EXPECT_EQ(*vek::leerLineas("0" + a + detras, kTolerante), (T{{sinUnidades}, false}));
  EXPECT_EQ(*vek::leerLineas("0" + a.left(15), kTolerante), (T{{sinUnidades}, false}));
  EXPECT_FALSE(vek::leerLineas("0" + a.left(14), kTolerante));
  EXPECT_EQ(*nodal::leerPedido("99" + n.left(12), kTolerante), std::vector{sinUnidades});
  EXPECT_EQ(*nodal::leerPedido("99" + n + n.left(12), kTolerante),
            (std::vector<Linea>{{17, 1500, 2}, sinUnidades}));
  EXPECT_FALSE(nodal::leerPedido("99" + n + n.left(10), kTolerante));
}

}  // namespace tarvo::maquinas
