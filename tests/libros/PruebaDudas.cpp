// Machines with a count that went down, or may have: what the books take as certain, and what they
// leave to a person. Nothing is lost or counted twice either way.
#include <gtest/gtest.h>

#include "libros/TiendaDeLibros.h"
#include "totals/libros/Dudas.h"
#include "totals/libros/Grupos.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

namespace {

struct Cuenta {
  int articulo;
  int piezas;
};

class ConDudas : public testing::Test {
 protected:
  ConDudas() : t(Fecha::de(QDate(2026, 11, 23), QTime(21, 0))) {
    t.grupo(1);
    t.desdeCero();
  }
  MaquinaContable& m() { return t.grupos.at(1).begin()->second; }
  // A day of sales and returns, each of a single piece.
  void vender(const std::vector<Cuenta>& ventas, bool bajaCuenta = true) {
    t.amanecer();
    t.avisos.clear();
    for (const auto& [articulo, piezas] : ventas)
      for (int n = 0; n < std::abs(piezas); ++n)
        m().vender(articulo, piezas > 0 ? articulo * 10 : -articulo * 10, 0,
                   piezas < 0 && bajaCuenta ? -1 : 1);
  }
  void noche(const std::vector<Cuenta>& ventas, bool bajaCuenta = true) {
    vender(ventas, bajaCuenta);
    t.leer(1);
    t.memorizar();
  }
  void cuadra() { t.cuadra(1); }
  bool preguntado() const { return t.textoAvisos().contains(u"--puesta-a-cero"); }
  TiendaDeLibros t;
};

const std::vector<Cuenta> kVentasDelLunes{{11, 3}, {12, 2}, {13, 4}, {14, 1}, {15, 2}};

}  // namespace

// What each day shows about the previous one, with or without an unconfirmed order to forget.
TEST_F(ConDudas, UnaCuentaQueBajaNoPruebaNada) {
  struct Caso {
    const char* que;
    bool orden, obedecida;
    std::vector<Cuenta> martes;
    bool pregunta;
  };
  const Caso casos[] = {
      {"una pieza devuelta, lo demás quieto", false, false, {{16, 2}, {11, -1}}, false},
      {"lo mismo tras una orden que nadie oyó", true, false, {{16, 2}, {11, -1}}, false},
      {"día sin ventas", true, false, {}, false},
      {"sólo una devolución", true, false, {{13, -1}}, false},
      {"se vendió otra vez de todo, y una vuelve",
       true,
       false,
       {{11, -1}, {12, 1}, {13, 1}, {14, 1}, {15, 1}},
       true},
      {"se vendió más de todo", true, false, {{11, 1}, {12, 1}, {13, 1}, {14, 1}, {15, 1}}, true},
      {"orden obedecida y casi lo mismo otra vez",
       true,
       true,
       {{11, 3}, {12, 2}, {13, 4}, {15, 2}},
       true},
      {"orden obedecida y un día flojo", true, true, {{12, 1}, {16, 1}}, false},
      {"orden obedecida y un día mayor", true, true, {{12, 1}, {16, 30}}, true},
      {"borrada a mano y un día flojo", false, true, {{12, 1}, {16, 1}}, false},
      {"borrada a mano y un día mayor", false, true, {{12, 1}, {16, 30}}, true},
      {"borrada y lo mismo otra vez, más",
       true,
       true,
       {{11, 4}, {12, 3}, {13, 5}, {14, 2}, {15, 3}},
       true},
  };
  for (const Caso& c : casos) {
    SCOPED_TRACE(c.que);
    noche(kVentasDelLunes);
    if (c.orden) {
      EXPECT_TRUE(t.ponerACero(1, c.obedecida, false));
    }
    if (!c.orden && c.obedecida) m().ponerACero();
    t.cortar();
    noche(c.martes);
    EXPECT_EQ(preguntado(), c.pregunta) << t.textoAvisos().toStdString();
    if (c.pregunta) {
      EXPECT_FALSE(t.ponerACero(1));
      t.avisos.clear();
      EXPECT_EQ(t.responder(1, 0, c.obedecida).size(), 1U);
      EXPECT_TRUE(std::ranges::none_of(t.avisos, &totals::Aviso::grave))
          << t.textoAvisos().toStdString();
    }
    cuadra();
    EXPECT_TRUE(t.ponerACero(1));
  }
}

// With few articles sold once a day looks like the one before, and two returns like a zeroing.
TEST_F(ConDudas, PocasCuentasNoPruebanNada) {
  struct Caso {
    const char* que;
    bool orden, obedecida;
    std::vector<Cuenta> lunes, martes;
  };
  const Caso casos[] = {
      {"lo mismo otra vez",
       true,
       true,
       {{11, 1}, {12, 1}, {13, 1}},
       {{11, 1}, {12, 1}, {13, 1}, {14, 1}}},
      {"no la oyó", true, false, {{11, 1}, {12, 1}, {13, 1}}, {{14, 1}}},
      {"vuelven dos de tres",
       false,
       false,
       {{11, 2}, {12, 2}, {13, 2}},
       {{11, -1}, {12, -1}, {13, 1}}},
      {"vuelven dos de tres piezas", true, false, {{11, 3}}, {{11, -2}}},
      {"vuelve todo lo de un día flojo", false, false, {{11, 2}, {12, 1}}, {{11, -2}, {12, -1}}},
  };
  for (const Caso& c : casos) {
    SCOPED_TRACE(c.que);
    noche(c.lunes);
    if (c.orden) {
      EXPECT_TRUE(t.ponerACero(1, c.obedecida, false));
    }
    t.cortar();
    noche(c.martes);
    EXPECT_TRUE(preguntado()) << t.textoAvisos().toStdString();
    t.responder(1, 0, c.obedecida);
    cuadra();
    EXPECT_TRUE(t.ponerACero(1));
  }
}

// A day of returns alone leaves counts below zero; more of them are no zeroing.
TEST_F(ConDudas, LasDevolucionesSolasNoSonUnaPuestaACero) {
  noche({{11, -1}});
  t.cortar();
  noche({{11, -2}, {12, -1}});
  EXPECT_FALSE(preguntado()) << t.textoAvisos().toStdString();
  cuadra();
}

// A return that raises the count is still a return.
TEST_F(ConDudas, LaDevolucionQueSumaCuentaTampoco) {
  noche(kVentasDelLunes);
  EXPECT_TRUE(t.ponerACero(1, false, false));
  noche({{16, 2}, {11, -1}}, false);
  EXPECT_FALSE(preguntado());
  cuadra();
}

// A day without any movement raises no question, unless so few pieces may have been sold again
// after an order without an answer.
TEST_F(ConDudas, UnDiaCerradoPreguntaSoloSiPudoRepetirse) {
  struct Caso {
    std::vector<Cuenta> lunes, martes;
    bool orden, obedecida, pregunta;
  };
  for (const Caso& c : {Caso{{{11, 1}}, {}, true, false, true},
                        {{{11, 1}}, {{11, 1}}, true, true, true},
                        {{{11, 1}}, {}, false, false, false},
                        {kVentasDelLunes, {}, true, false, false}}) {
    noche(c.lunes);
    if (c.orden) {
      EXPECT_TRUE(t.ponerACero(1, c.obedecida, false));
    }
    noche(c.martes);
    EXPECT_EQ(preguntado(), c.pregunta) << t.textoAvisos().toStdString();
    if (c.pregunta) t.responder(1, 0, c.obedecida);
    cuadra();
    EXPECT_TRUE(t.ponerACero(1));
  }
}

// A question doesn't go away because the counters come back to where they were: they were lower.
TEST_F(ConDudas, LoQueSeVioMenorNoSeRetira) {
  noche({{11, 2}, {12, 4}});
  m().ponerACero();
  for (int n = 0; n < 2; ++n) {
    noche({{11, 1}, {12, 2}});
    EXPECT_TRUE(preguntado()) << t.textoAvisos().toStdString();
  }
  t.responder(1, 0, true);
  cuadra();
}

TEST_F(ConDudas, LaDudaEsperaCuantasNochesHagaFalta) {
  noche({{11, 5}});
  EXPECT_TRUE(t.ponerACero(1, false, false));
  for (int n = 0; n < 3; ++n) {
    noche({{11, n == 0 ? -1 : 1}, {12, 1}});
    EXPECT_TRUE(preguntado());
    EXPECT_FALSE(t.ponerACero(1));
    t.cortar();
  }
  EXPECT_EQ(t.responder(1, 0, false).size(), 1U);
  cuadra();
  EXPECT_TRUE(t.ponerACero(1));
  EXPECT_FALSE(t.cierre().responder(1, 0, true, t.avisos).has_value());  // no longer asked
  noche({{11, 1}});
  cuadra();
}

// The next order comes before the memorisation: it must not hide the unconfirmed one.
TEST_F(ConDudas, UnCeroAntesDeMemorizarNoTapaAlAnterior) {
  noche({{11, 2}});
  EXPECT_TRUE(t.ponerACero(1, true, false));
  vender({{11, 5}});
  t.leer(1);
  const auto permiso = t.sesion().permisoCero(1);
  EXPECT_FALSE(permiso->permitido);
  EXPECT_TRUE(permiso->motivo.contains(u"--puesta-a-cero 1")) << permiso->motivo.toStdString();
  t.memorizar();
  EXPECT_EQ(t.responder(1, 0, true).size(), 1U);
  cuadra();
  EXPECT_TRUE(t.ponerACero(1));
  noche({{11, 15}});
  EXPECT_TRUE(t.ponerACero(1, true, false));
  vender({{11, 1}});
  t.leer(1);
  ASSERT_TRUE(t.ponerACero(1));
  t.memorizar();
  cuadra();
}

// Clearing the machine instead of answering loses nothing: its reading stays.
TEST_F(ConDudas, QuienLaBorraAManoEnPlenaDudaNoPierdeNada) {
  noche({{11, 15}});
  EXPECT_TRUE(t.ponerACero(1, false, false));
  noche({{11, -1}, {12, 1}});
  EXPECT_TRUE(preguntado());
  m().ponerACero();
  t.amanecer();
  m().vender(12, 200, 0);
  const totals::Lectura lectura{{{0, {{{12, 0}, {1, 0, 200, 0}}}}}};
  EXPECT_FALSE(t.sesion().guardarLectura(1, TipoTotal::PLUs, lectura, t.avisos).has_value());
  EXPECT_EQ(t.responder(1, 0, false).size(), 1U);
  t.avisos.clear();
  t.leer(1);
  t.memorizar();
  EXPECT_TRUE(t.textoAvisos().contains(u"se entiende que se puso a cero"));
  cuadra();
}

// Its grand total is higher and is read first; all that waits stays together.
TEST_F(ConDudas, LoQueEsperaSoloSeSustituyeEntero) {
  noche({{11, 15}});
  EXPECT_TRUE(t.ponerACero(1, false, false));
  noche({{11, -1}, {12, 1}});
  m().ponerACero();
  vender({{12, 20}});
  m().granTotal = {{11, {20, 0, 2400, 0}}};
  t.leerSolo(1, TipoTotal::GranTotal);
  const totals::Lectura lectura{{{0, {{{12, 0}, {20, 0, 2400, 0}}}}}};
  EXPECT_FALSE(t.sesion().guardarLectura(1, TipoTotal::PLUs, lectura, t.avisos).has_value());
  t.memorizar();
  EXPECT_TRUE(t.textoAvisos().contains(u"se guarda la lectura que esperaba"));
  EXPECT_EQ(t.responder(1, 0, false).size(), 1U);
  EXPECT_EQ(t.enPeriodos(1, TipoTotal::GranTotal), t.enPeriodos(1, TipoTotal::PLUs));
  m().granTotal = m().articulos;
  noche({{12, 1}});
  t.responder(1, 0, true);
  cuadra();
}

// A machine cleared by hand shows it in one reading, which nobody judges; the next one is higher
// everywhere.
TEST_F(ConDudas, LaSenalDeUnaPuestaACeroNoSePierde) {
  using Paso = void (*)(TiendaDeLibros&);
  struct Caso {
    const char* que;
    bool olvido;
    Paso martes;
  };
  for (const Caso& c : {Caso{"el Gran Total no llegó", true,
                             [](TiendaDeLibros& tienda) {
                               tienda.leerSolo(1, TipoTotal::PLUs);
                               tienda.memorizar();
                             }},
                        Caso{"la sesión se cerró sin memorizar", true,
                             [](TiendaDeLibros& tienda) {
                               tienda.leer(1);
                               EXPECT_TRUE(tienda.sesion().cerrarSinMemorizar().has_value());
                             }},
                        Caso{"se perdieron registros", false, [](TiendaDeLibros& tienda) {
                               tienda.leerSin(1, TipoTotal::PLUs, {11, 12, 13});
                               tienda.memorizar();
                             }}}) {
    SCOPED_TRACE(c.que);
    noche(kVentasDelLunes);
    if (c.olvido) m().ponerACero();
    vender({{11, 1}, {12, 1}});
    c.martes(t);
    t.cortar();
    noche({{11, 3}, {12, 3}, {13, 5}, {14, 3}, {15, 4}});
    EXPECT_TRUE(preguntado()) << t.textoAvisos().toStdString();
    t.responder(1, 0, c.olvido);
    cuadra();
    noche({{11, 1}, {12, 1}, {13, 1}, {14, 1}, {15, 1}});
    EXPECT_FALSE(preguntado()) << t.textoAvisos().toStdString();
    cuadra();
    EXPECT_TRUE(t.ponerACero(1));
  }
}

// A refused reading shows it too, once what waited is memorised.
TEST_F(ConDudas, LoRechazadoTampocoSeOlvida) {
  vender({{11, 1}});
  t.leer(1);
  m().ponerACero();
  t.amanecer();
  const totals::Lectura nada{{{0, {}}}};
  for (const TipoTotal clase : {TipoTotal::GranTotal, TipoTotal::PLUs})
    EXPECT_TRUE(!t.sesion().guardarLectura(1, clase, nada, t.avisos) &&
                t.sesion().lecturaFallida(1, clase));
  t.memorizar();
  noche({{11, 1}, {12, 1}});
  EXPECT_TRUE(preguntado()) << t.textoAvisos().toStdString();
  t.responder(1, 0, true);
  cuadra();
  EXPECT_TRUE(t.ponerACero(1));
}

// Lost records look like a zeroing; matching sums show which kinds to believe.
TEST_F(ConDudas, UnaLecturaConRegistrosDeMenosNoEsUnaPuestaACero) {
  for (const bool todas : {false, true}) {
    SCOPED_TRACE(todas);
    noche(kVentasDelLunes);
    vender({{16, 1}});
    t.leerSin(1, TipoTotal::PLUs, {11, 12, 13, 14});
    t.leerSin(1, TipoTotal::GranTotal, todas ? std::set<qint64>{11, 12} : std::set<qint64>{});
    t.leerSin(1, TipoTotal::Departamentos, todas ? std::set<qint64>{13} : std::set<qint64>{});
    t.memorizar();
    EXPECT_FALSE(t.textoAvisos().contains(u"se entiende que se puso a cero"));
    EXPECT_TRUE(t.textoAvisos().contains(todas ? u"no cuadran entre sí" : u"no cuadra con"))
        << t.textoAvisos().toStdString();
    EXPECT_FALSE(t.ponerACero(1));
    noche({{17, 1}});
    cuadra();
    EXPECT_TRUE(t.ponerACero(1));
  }
}

// A group that didn't foot isn't zeroed by us, but perhaps by hand: its next reading, below what is
// memorised, leaves nothing out of the books before a person has told. A return asks nothing.
TEST_F(ConDudas, LaQueNoCuadrabaYSePusoACeroAMano) {
  const auto leer = [&](bool cuadra) {
    t.avisos.clear();
    const auto sin = [cuadra](qint64 n) { return cuadra ? std::set<qint64>{} : std::set{n}; };
    t.leerSin(1, TipoTotal::PLUs, sin(11));
    t.leerSin(1, TipoTotal::GranTotal, sin(12));
    t.leerSin(1, TipoTotal::Departamentos, sin(13));
    t.memorizar();
  };
  const auto articulos = [&] { return t.enPeriodos(1, TipoTotal::PLUs).IMP; };
  for (const bool aMano : {false, true})
    for (const bool siempre : {false, true}) {
      SCOPED_TRACE(testing::Message() << aMano << siempre);
      vender(kVentasDelLunes);
      leer(false);
      const qint64 antes = articulos();
      if (aMano) m().ponerACero();
      t.amanecer();
      m().vender(14, 70, 0, aMano ? 1 : 4);
      if (!aMano) m().vender(15, -150, 0, -1);
      leer(!siempre);
      ASSERT_EQ(bien(totals::dudasAbiertas(t.db())).size(), aMano ? 1U : 0U)
          << t.textoAvisos().toStdString();
      if (aMano) {
        EXPECT_EQ(articulos(), antes);
        t.responder(1, 0, true);
        EXPECT_EQ(articulos(), antes + 70);
      }
      if (!siempre && !aMano) cuadra();  // whole again
      t.desdeCero();
    }
}

// Amounts that cancel, in articles that aren't read: all sums foot, and only the counts show it,
// where the machines keep them alike in all kinds.
TEST_F(ConDudas, LoQueSumaCeroYNoSeRecogeNoSePierde) {
  t.grupo(2, {1}, 3);
  struct Caso {
    const char* que;
    int grupo;
    qint64 deMas;  // in the count of the departments
    bool falta, seBorra;
  };
  for (const Caso& c : {Caso{"falta", 1, 0, true, false},
                        {"está todo", 1, 0, false, true},
                        {"cada clase cuenta a su modo", 1, 5, true, true},
                        {"una caja cuenta clientes", 2, 0, true, true}}) {
    SCOPED_TRACE(c.que);
    t.amanecer();
    t.avisos.clear();
    auto& m = t.grupos.at(c.grupo).begin()->second;
    for (const auto& [articulo, importe] : {std::pair{11, 300}, {98, 777}, {99, -777}})
      m.vender(articulo, importe, 0);
    m.departamentos[11].CON += c.deMas;
    t.leerSin(c.grupo, TipoTotal::PLUs, c.falta ? std::set<qint64>{98, 99} : std::set<qint64>{});
    t.leerSolo(c.grupo, TipoTotal::GranTotal);
    t.leerSolo(c.grupo, TipoTotal::Departamentos);
    t.memorizar();
    EXPECT_EQ(t.textoAvisos().contains(u"el Gran Total cuenta 3 ventas y los artículos 1"),
              !c.seBorra)
        << t.textoAvisos().toStdString();
    EXPECT_EQ(t.ponerACero(c.grupo), c.seBorra);
    if (c.seBorra) continue;
    t.leer(c.grupo);
    t.memorizar();
    t.cuadra(c.grupo);
    EXPECT_TRUE(t.ponerACero(c.grupo));
  }
}

// The record of the grand total is lost, and the rest foots with itself.
TEST_F(ConDudas, UnGranTotalQueNoVieneSeDice) {
  vender(kVentasDelLunes);
  t.leerSolo(1, TipoTotal::PLUs);
  t.leerSin(1, TipoTotal::GranTotal, {11, 12, 13, 14, 15});
  t.memorizar();
  EXPECT_TRUE(t.textoAvisos().contains(u"el Gran Total (0,00) no cuadra"))
      << t.textoAvisos().toStdString();
  EXPECT_FALSE(t.ponerACero(1));
}

TEST_F(ConDudas, ElMismoNumeroDeVentasConOtroImporteNoEsIgual) {
  vender(kVentasDelLunes);
  t.leer(1);
  using C = totals::Sesion::Comparacion;
  const totals::Contadores leido = t.vendido(1);
  const struct {
    totals::Contadores ahora;
    C es;
  } casos[] = {{leido, C::Igual},          {{12, 0, 1500, 0}, C::Mas},
               {{12, 5, 1530, 0}, C::Mas}, {{13, 0, 1530, 0}, C::Mas},
               {{11, 0, 1400, 0}, C::Mas},  // a piece was returned
               {{5, 0, 600, 0}, C::Cero},  {{}, C::Cero}};
  for (const auto& c : casos)
    EXPECT_EQ(*t.sesion().compararGranTotal(1, 0, c.ahora), c.es) << c.ahora.IMP;
}

// After a group is deleted, the next group with its code begins with nothing.
TEST_F(ConDudas, UnGrupoBorradoNoDejaNadaAlQueLleveSuCodigo) {
  t.grupo(2, {1, 2}, 3);
  noche(kVentasDelLunes);
  for (const int n : {10, 11}) t.grupos.at(2).at(1).vender(n, 100, 0);
  t.leer(2);
  t.memorizar();
  ASSERT_TRUE(t.sesion().anunciarCero(2, 1, 1).has_value());
  t.leer(2);
  const auto filas = [&](int grupo) {
    qint64 n = 0;
    for (const char16_t* tabla : {u"Lecturas", u"LectFilas", u"BaseFilas", u"Ceros", u"CerosParte",
                                  u"CerosClase", u"TOTPLU"})
      n += t.db()
               .uno(QString(u"SELECT count(*) FROM "_s + QString::fromUtf16(tabla) +
                            u" WHERE GRUPO=?"_s +
                            (tabla == u"TOTPLU"_s ? u" AND LINK=0"_s : QString())),
                    grupo)
               ->entero();
    return n;
  };
  const qint64 delOtro = filas(1);
  EXPECT_GT(filas(2), 10);
  ASSERT_TRUE(totals::olvidarGrupo(t.db(), 2).has_value());
  EXPECT_EQ(filas(2), 0);
  EXPECT_EQ(filas(1), delOtro);
  for (auto& [addr, caja] : t.grupos.at(2)) caja = {};
  t.grupos.at(2).at(1).vender(10, 50, 0);
  t.leer(2);
  t.memorizar();
  EXPECT_TRUE(t.textoAvisos().isEmpty() || !t.textoAvisos().contains(u"Grupo 2: sus contadores"));
  EXPECT_EQ(t.enPeriodos(2, TipoTotal::PLUs).IMP,
            250);  // the former one's sales stay in its periods
  for (int n = 0; n < 9; ++n) t.grupos.at(2).at(1).vender(10, 50, 0);
  ASSERT_TRUE(totals::olvidarGrupo(t.db(), 2).has_value());
  t.leer(2);
  t.memorizar();
  EXPECT_EQ(t.enPeriodos(2, TipoTotal::PLUs).IMP, 750);  // also beside more sales of the next one
}

}  // namespace tarvo::prueba
