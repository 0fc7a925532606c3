// Groups whose accesses somebody exchanged or handed on while their machines still held memorised
// sales: whatever the machines did, each sale is in the periods once, or its group waits.
#include <gtest/gtest.h>

#include "libros/TiendaDeLibros.h"
#include "totals/libros/Dudas.h"
#include "totals/libros/Grupos.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

namespace {

// A shop with two groups whose sales of Monday are memorised and still in their machines.
struct Canje {
  explicit Canje(int mayor = 1, int tipo = 1) : t(Fecha::de(QDate(2026, 11, 23), QTime(21, 0))) {
    for (const int g : {1, 2}) {
      t.grupo(g, {tipo == 3 ? 1 : 0}, tipo);
      if (tipo == 3) t.fila(u"BZAS", {{u"SUGPO", g}, {u"NMBZA", 1}, {u"ADDR", 1}});
      acceso(g, g);
    }
    t.amanecer();
    vender(1, 16, 7);
    mayor > 1 ? vender(2, 16 * mayor, 7) : vender(2, 21, 5);
    noche({1, 2});
    t.avisos.clear();
    t.amanecer();
  }
  void acceso(int grupo, int donde) {
    t.sql(u"UPDATE GRUPOS SET remoto=3, TELEF='10.0.0.%1:3000,%2' WHERE CODGPO=%2"_s.arg(donde).arg(
        grupo));
  }
  // The machines stay where they are, and each answers at the other group's place.
  void cambianDeGrupo() { std::swap(t.grupos.at(1), t.grupos.at(2)); }
  void canje() { acceso(1, 2), acceso(2, 1); }
  MaquinaContable& m(int grupo) { return t.grupos.at(grupo).begin()->second; }
  // Articles from 10 on, each as often as `paso` and the number of sales give.
  void vender(int grupo, int ventas, int paso) {
    for (int n = 0; n < ventas; ++n) m(grupo).vender(10 + n * paso % 12, 100 + n % 9, 50 + n % 12);
  }
  void noche(const std::vector<int>& grupos, bool corte = false) {
    for (const int g : grupos) t.leer(g);
    if (corte) t.cortar();
    t.memorizar();
  }
  qint64 enTodos() const {
    qint64 suma = 0;
    for (const int g : {1, 2, 3}) suma += t.enPeriodos(g, TipoTotal::PLUs).IMP;
    return suma;
  }
  bool pendiente(int grupo) {
    return std::ranges::count(bien(totals::dudasAbiertas(t.db())), grupo,
                              &totals::DudaAbierta::grupo) > 0;
  }
  // The periods hold what was sold in the whole shop.
  void cuadra(const char* que) {
    for (const TipoTotal clase :
         {TipoTotal::PLUs, TipoTotal::GranTotal, TipoTotal::Departamentos}) {
      totals::Contadores libros, ventas;
      for (const auto& [g, maquinas] : t.grupos)
        libros += t.enPeriodos(g, clase), ventas += t.vendido(g);
      EXPECT_EQ(libros.IMP, ventas.IMP) << que << " clase " << numeroDe(clase) << '\n'
                                        << t.textoAvisos().toStdString();
      EXPECT_EQ(libros.CON, ventas.CON) << que;
    }
  }
  bool dicho(const char16_t* texto) const { return t.textoAvisos().contains(texto); }
  TiendaDeLibros t;
};

constexpr auto kSonDelOtro = u"están ahora las máquinas del grupo";
constexpr auto kDeQuien = u"no muestran de quién son";

}  // namespace

// The machines stayed: what is known of them changes places, also where one of the groups had been
// zeroed, in a night that was cut, before a zeroing that precedes the memorisation, and if only one
// was read that sold nothing.
TEST(Canjes, LasMaquinasSeSiguenPorSusVentas) {
  enum Como { Leidas, Cortada, CeroAntes, UnaACero, Cajas, UnaSola };
  for (const Como como : {Leidas, Cortada, CeroAntes, UnaACero, Cajas, UnaSola}) {
    SCOPED_TRACE(como);
    Canje c(1, como == Cajas ? 3 : 1);
    if (como == UnaACero) {
      EXPECT_TRUE(c.t.ponerACero(1));
    }
    c.canje(), c.cambianDeGrupo();
    if (como != UnaSola) c.vender(1, 5, 5), c.vender(2, 4, 7);
    if (como == UnaSola) {
      c.noche({1});
      EXPECT_FALSE(c.t.ponerACero(2));  // not read where it is now
      c.vender(2, 4, 7);
    }
    if (como == CeroAntes) {
      for (const int g : {1, 2}) c.t.leer(g);
      for (const int g : {1, 2}) EXPECT_TRUE(c.t.ponerACero(g)) << g;
      c.t.memorizar();
    } else {
      c.noche({1, 2}, como == Cortada);
    }
    EXPECT_TRUE(c.dicho(kSonDelOtro));
    EXPECT_FALSE(c.dicho(kDeQuien));
    c.cuadra("la noche del canje");
    c.t.amanecer();
    c.vender(1, 9, 5), c.vender(2, 9, 5);
    c.noche({1, 2});
    c.cuadra("la siguiente");
    for (const int g : {1, 2}) EXPECT_TRUE(c.t.ponerACero(g)) << g;
  }
}

// The machines were given the new addresses too, or a place that is no other's: nothing happened.
// Where only the machine is read that has as much of everything as the other, somebody says so.
TEST(Canjes, QuienCambiaConSuDireccionSigueSiendoQuienEra) {
  const struct {
    bool canjeada;
    int mayor;
    bool solo;
  } casos[] = {{true, 1, false}, {true, 3, false}, {true, 3, true}, {false, 3, false}};
  for (const auto& caso : casos) {
    Canje c(caso.mayor);
    caso.canjeada ? c.canje() : c.acceso(1, 7);
    c.vender(2, 4, 7);
    if (!caso.solo) c.vender(1, 5, 5);
    c.noche(caso.solo ? std::vector{2} : std::vector{1, 2});
    EXPECT_EQ(c.dicho(kDeQuien), caso.solo) << c.t.textoAvisos().toStdString();
    EXPECT_FALSE(c.dicho(kSonDelOtro));
    if (caso.solo) c.t.responder(2, 0, false);
    c.cuadra("con su máquina");
    EXPECT_TRUE(c.t.ponerACero(2));
  }
}

// One machine sold as much of everything as the other: there is no telling. Nothing is memorised or
// zeroed, night after night, until the addresses are as before.
TEST(Canjes, LoQueNoSeSabeEsperaAQueVuelvanLasDirecciones) {
  Canje c(3);
  const auto antes = c.enTodos();
  c.canje(), c.cambianDeGrupo();
  for (int n = 0; n < 2; ++n) {
    c.t.avisos.clear();
    c.vender(1, 3, 7), c.vender(2, 2, 5);
    c.noche({1, 2}, n == 0);
    EXPECT_TRUE(c.dicho(u"Grupo 1: sus direcciones y las del grupo 2"));
    EXPECT_TRUE(c.dicho(u"Grupo 2: sus direcciones y las del grupo 1"));
    EXPECT_TRUE(std::ranges::any_of(c.t.avisos, &totals::Aviso::grave));
    for (const int g : {1, 2}) EXPECT_FALSE(c.t.ponerACero(g)) << g;
    c.t.amanecer();
  }
  EXPECT_EQ(c.enTodos(), antes);
  c.acceso(1, 1), c.acceso(2, 2), c.cambianDeGrupo();
  c.t.avisos.clear();
  c.noche({1, 2});
  EXPECT_FALSE(c.dicho(kDeQuien)) << c.t.textoAvisos().toStdString();
  c.cuadra("las direcciones de antes");
  for (const int g : {1, 2}) EXPECT_TRUE(c.t.ponerACero(g)) << g;
}

// The other way out: a person says that the machines were zeroed, or are new ones.
TEST(Canjes, QuienLoSabeContesta) {
  Canje c;
  c.acceso(2, 1), c.acceso(1, 8);
  std::swap(c.t.grupos.at(1), c.t.grupos.at(2));
  MaquinaContable vieja = std::exchange(c.m(1), {});
  vieja.libro.IMP = -vieja.libro.IMP, vieja.libro.CON = -vieja.libro.CON;
  c.vender(1, 2, 3), c.vender(2, 4, 7);
  c.noche({1, 2});
  EXPECT_TRUE(c.dicho(kSonDelOtro)) << c.t.textoAvisos().toStdString();
  EXPECT_TRUE(c.dicho(u"Grupo 1: sus direcciones y las del grupo 2"));
  ASSERT_TRUE(c.pendiente(1));
  EXPECT_FALSE(c.t.ponerACero(1));
  EXPECT_EQ(c.t.responder(1, 0, true).size(), 1U);
  c.t.grupos.at(1)[9].libro = {-vieja.libro.CON, 0, -vieja.libro.IMP, 0};  // sold, and gone
  c.cuadra("la máquina nueva");
  EXPECT_TRUE(c.t.ponerACero(1));
}

// Both groups are asked about, although one has no counters of its own: "no" for both means that
// each has its machine.
TEST(Canjes, LasRespuestasDeUnoNoTocanAlOtro) {
  for (const bool primeroElVacio : {false, true}) {
    Canje c;
    EXPECT_TRUE(c.t.ponerACero(1) && c.t.ponerACero(2));
    c.vender(1, 4, 7);
    c.noche({1});
    c.t.amanecer();
    c.canje();
    c.vender(1, 8, 7), c.vender(2, 24, 7);
    c.noche({1, 2});
    ASSERT_TRUE(c.pendiente(1) && c.pendiente(2)) << c.t.textoAvisos().toStdString();
    for (const int g : primeroElVacio ? std::array{2, 1} : std::array{1, 2})
      c.t.responder(g, 0, false);
    for (const int g : {1, 2}) c.t.cuadra(g);
    c.t.amanecer();
    c.vender(1, 3, 7), c.vender(2, 3, 5);
    c.noche({1, 2});
    for (const int g : {1, 2}) c.t.cuadra(g);
  }
}

// A deleted group's machines at a new group's place have its sales already, unless it comes back.
TEST(Canjes, LasDeUnGrupoBorradoNoCuentanDosVeces) {
  for (const bool porOtroPrograma : {false, true})
    for (const bool dondeOtro : {false, true}) {
      Canje c;
      if (!porOtroPrograma) bien(totals::olvidarGrupo(c.t.db(), 2));
      c.t.sql(u"DELETE FROM GRUPOS WHERE CODGPO=2"_s);
      const int quien = dondeOtro ? 1 : 3;
      if (!dondeOtro) c.t.grupo(3);
      c.m(quien) = c.m(2);
      c.acceso(quien, 2);
      c.vender(quien, 6, 5);
      const auto antes = c.enTodos();
      c.noche({quien});
      EXPECT_TRUE(c.dicho(kSonDelOtro)) << c.t.textoAvisos().toStdString();
      EXPECT_EQ(c.enTodos() - antes, 100 + 101 + 102 + 103 + 104 + 105);
    }
}

}  // namespace tarvo::prueba
