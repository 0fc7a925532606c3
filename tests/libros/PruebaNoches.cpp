// Nights of the books: each sale is in the periods once, whatever was unconfirmed, interrupted or
// read again.
#include <gtest/gtest.h>

#include "libros/TiendaDeLibros.h"
#include "totals/libros/Dudas.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

namespace {

const Fecha kLunes = Fecha::de(QDate(2026, 11, 23), QTime(21, 0));
constexpr qint64 kMinuto = 60'000;

// `calla`: how likely a machine sells nothing.
void venderDia(TiendaDeLibros& t, int grupo, Azar& azar, double calla = 0) {
  for (auto& [addr, maquina] : t.grupos.at(grupo)) {
    if (calla > 0 && azar.ocurre(calla)) continue;
    for (int articulo = 10; articulo < 160; ++articulo)
      for (int n = azar.entero(0, 4); n > 0; --n)
        maquina.vender(articulo, azar.entero(-200, 900), azar.entero(0, 2000));
  }
}

// Whoever has the tickets answers for each machine. A group whose sales are all in the periods
// begins anew.
void contestar(TiendaDeLibros& t) {
  for (const auto& d : bien(totals::dudasAbiertas(t.db())))
    t.responder(d.grupo, d.addr, t.grupos.at(d.grupo).at(d.addr).olvido);
  for (auto& [grupo, maquinas] : t.grupos)
    if (t.enPeriodos(grupo, TipoTotal::GranTotal) == t.vendido(grupo))
      for (auto& [addr, maquina] : maquinas) maquina.olvido = false;
}

// The zeroing of a register breaks off at one of its frames, which may have been heard. `tramas`:
// the frame that clears each kind.
void cortarTramas(TiendaDeLibros& t, Azar& azar, const std::array<int, 3>& tramas) {
  if (!bien(t.sesion().permisoCero(2)).permitido) return;
  const int addr = azar.entero(1, 2), muere = azar.entero(1, 3);
  const bool oida = azar.ocurre(0.5);
  auto& caja = t.grupos.at(2).at(addr);
  for (int trama = 1; trama <= muere; ++trama) {
    bien(t.sesion().anunciarCero(2, addr, trama));
    constexpr std::array kClases{TipoTotal::PLUs, TipoTotal::GranTotal, TipoTotal::Departamentos};
    for (size_t k = 0; k < kClases.size(); ++k)
      if (tramas[k] == trama && (trama < muere || oida)) {
        caja.olvido = caja.olvido || !caja.de(kClases[k]).empty();
        caja.de(kClases[k]).clear();
      }
    if (trama < muere) bien(t.sesion().parteHecha(2, addr, trama));
  }
  t.cortar();
}

// What the rounds of a seed share: the frame that clears each kind, and the groups whose machines
// confirmed without obeying. Those are read in the next round; after more sales of everything they
// would look like machines that obeyed.
struct Suerte {
  std::array<int, 3> tramas;
  std::set<int> mienten = {};
};

// One round drawn by a seed: readings that fail, zeroings lost before or after the machine, or
// confirmed and not obeyed, or broken off between frames, power cuts. In the last one every group
// is read.
void rondaAlAzar(TiendaDeLibros& t, Azar& azar, Suerte& suya, bool ultima) {
  for (const int g : {1, 2}) {
    if (ultima || suya.mienten.erase(g) > 0 || !azar.ocurre(0.2)) {
      t.leer(g);
    } else {
      (void)t.sesion().PrepararRecepcion(g, TipoTotal::PLUs);
      if (azar.ocurre(0.5)) (void)t.sesion().lecturaFallida(g, TipoTotal::PLUs);
    }
    if (azar.ocurre(0.2)) t.cortar();
  }
  if (t.sesion().estado() == 2) t.memorizar(azar.ocurre(0.7), azar.ocurre(0.5));
  contestar(t);
  if (azar.ocurre(0.2)) t.cortar();
  for (const int g : {1, 2}) {
    const int suerte = azar.entero(0, 7);
    if (suerte < 5) t.ponerACero(g, suerte != 1, suerte > 1);
    if (suerte == 6 && t.ponerACero(g, false, true, azar.ocurre(0.5) ? Tras::Igual : Tras::SinVer))
      suya.mienten.insert(g);
    if (suerte == 7 && g == 2) cortarTramas(t, azar, suya.tramas);
  }
  if (azar.ocurre(0.2)) t.cortar();
}

class ConLibros : public testing::Test {
 protected:
  ConLibros() : t(kLunes), azar(7) {
    t.grupo(1);
    t.grupo(2, {1, 2}, 3);
    t.desdeCero();
  }
  void dia() {
    t.amanecer();
    for (const int g : {1, 2}) venderDia(t, g, azar);
  }
  void leerTodo() {
    for (const int g : {1, 2}) t.leer(g);
  }
  // Group 1 obeys its order, but its answer is lost.
  void nocheSinConfirmar() {
    dia();
    leerTodo();
    t.memorizar();
    EXPECT_TRUE(t.ponerACero(1, true, false));
    EXPECT_TRUE(t.ponerACero(2));
  }
  TiendaDeLibros t;
  Azar azar;
};

}  // namespace

TEST_F(ConLibros, UnaNocheQueVaBienHaceElDia) {
  dia();
  leerTodo();
  const auto links = t.memorizar();
  ASSERT_EQ(links.size(), 1U);
  const auto c = t.periodos().columna(links[0]);
  EXPECT_EQ((*c)->periodo.tipo, totals::kDiario);
  EXPECT_EQ((*c)->periodo.desde.qdate(), QDate(2026, 11, 24));
  for (const int g : {1, 2}) t.cuadra(g);
  EXPECT_TRUE(t.avisos.empty()) << t.textoAvisos().toStdString();
}

// A part of the codes was read: what the others sold would be in no book. Only a grand total of the
// same session that has no more than the part shows that there is no rest.
TEST_F(ConLibros, ConSoloUnaParteNoSePoneACero) {
  enum class Resto { Nada, Vende, SumaCero };
  static constexpr struct {
    bool granTotal;
    Resto resto;
    bool seBorra;
  } kCasos[] = {{true, Resto::Vende, false},
                {true, Resto::SumaCero, false},
                {true, Resto::Nada, true},
                {false, Resto::Nada, false}};
  for (const auto& c : kCasos) {
    TiendaDeLibros otra(Fecha::de(QDate(2026, 11, 24), QTime(21, 0)));
    otra.grupo(1);
    auto& maquina = otra.grupos.at(1).at(0);
    maquina.vender(11, 500, 0);
    if (c.resto != Resto::Nada) maquina.vender(12, 300, 0);
    if (c.resto == Resto::SumaCero) maquina.vender(13, -300, 0);
    totals::Lectura parte;
    parte.maquinas[0] = {{{11, 0}, {1, 0, 500, 0}}};
    parte.entera = false;
    if (c.granTotal) otra.leerSolo(1, TipoTotal::GranTotal);
    bien(otra.sesion().PrepararRecepcion(1, TipoTotal::PLUs));
    bien(otra.sesion().guardarLectura(1, TipoTotal::PLUs, parte, otra.avisos));
    otra.memorizar();
    EXPECT_EQ(otra.ponerACero(1), c.seBorra) << c.granTotal << static_cast<int>(c.resto);
  }
}

// Several ranges of codes of one session are all kept, and the later one counts where they overlap.
// Once they hold what the grand total has, nothing is missing.
TEST_F(ConLibros, VariasPartesDeUnaSesionSeJuntan) {
  dia();
  for (const auto& [desde, hasta] : {std::pair{10, 80}, {70, 120}, {120, 160}}) {
    for (const int g : {1, 2}) {
      if (desde == 70) t.grupos.at(g).begin()->second.vender(75, 300, 0);
      totals::Lectura parte;
      parte.entera = false;
      for (const auto& [addr, maquina] : t.grupos.at(g))
        for (const auto& [codigo, c] : maquina.articulos)
          if (codigo >= desde && codigo < hasta) parte.maquinas[addr][{codigo, 0}] = c;
      bien(t.sesion().PrepararRecepcion(g, TipoTotal::PLUs));
      bien(t.sesion().guardarLectura(g, TipoTotal::PLUs, parte, t.avisos));
    }
    for (const int g : {1, 2}) EXPECT_FALSE(t.ponerACero(g));
  }
  for (const int g : {1, 2})
    for (const TipoTotal k : {TipoTotal::GranTotal, TipoTotal::Departamentos}) t.leerSolo(g, k);
  t.memorizar();
  for (const int g : {1, 2}) {
    t.cuadra(g);
    EXPECT_TRUE(t.ponerACero(g)) << t.textoAvisos().toStdString();
  }
}

// A reading that knows less never replaces one that knows more and is in no period yet; a whole
// reading that was given up meanwhile still forbids the zeroing.
TEST_F(ConLibros, UnaParteNoSustituyeALoEntero) {
  totals::Lectura parte;
  parte.maquinas[0] = {{{11, 0}, {1, 0, 500, 0}}};
  parte.entera = false;
  for (const bool fallida : {false, true}) {
    dia();
    leerTodo();
    if (fallida) {
      bien(t.sesion().PrepararRecepcion(1, TipoTotal::PLUs));
      bien(t.sesion().lecturaFallida(1, TipoTotal::PLUs));
    }
    t.avisos.clear();
    bien(t.sesion().PrepararRecepcion(1, TipoTotal::PLUs));
    bien(t.sesion().guardarLectura(1, TipoTotal::PLUs, parte, t.avisos));
    ASSERT_EQ(t.avisos.size(), 1U);
    EXPECT_TRUE(t.avisos[0].grave);
    EXPECT_EQ(
        t.avisos[0].texto,
        u"Grupo 1, artículos: lo recogido entero y sin memorizar se queda; lo recogido después "
        u"es sólo una parte y no lo sustituye");
    t.memorizar();
    for (const int g : {1, 2}) t.cuadra(g);
    EXPECT_EQ(t.ponerACero(1), !fallida);
    EXPECT_TRUE(t.ponerACero(2));
  }
}

// A memorised part of a list leaves the other codes with what is memorised of them: the next whole
// reading adds each sale once.
TEST_F(ConLibros, UnaParteMemorizadaConservaLoDemas) {
  dia();
  leerTodo();
  t.memorizar();
  for (const qint64 hasta : {60, 90}) {
    dia();
    for (const int g : {1, 2}) {
      totals::Lectura parte;
      parte.entera = false;
      for (const auto& [addr, maquina] : t.grupos.at(g))
        for (const auto& [codigo, c] : maquina.articulos)
          if (codigo >= 30 && codigo < hasta) parte.maquinas[addr][{codigo, 0}] = c;
      bien(t.sesion().PrepararRecepcion(g, TipoTotal::PLUs));
      bien(t.sesion().guardarLectura(g, TipoTotal::PLUs, parte, t.avisos));
    }
    t.memorizar();
  }
  dia();
  leerTodo();
  t.memorizar();
  for (const int g : {1, 2}) t.cuadra(g);
}

// Sales that a run forgot are in the machine alone: it isn't told to forget them too, until it has
// been read again. Nothing is missing where the session held only what a period has already.
TEST_F(ConLibros, LoOlvidadoSinMemorizarNoSePoneACero) {
  const auto olvidar = [&] { bien(t.cierre().LaSesion(false, 0, t.avisos)); };
  dia();
  leerTodo();
  t.memorizar();
  leerTodo();
  olvidar();
  EXPECT_TRUE(t.ponerACero(1));
  t.grupos.at(2).at(1).vender(11, 300, 0);
  t.leer(2);
  olvidar();
  EXPECT_FALSE(t.ponerACero(2));
  t.cortar();
  EXPECT_FALSE(t.ponerACero(2));
  t.masTarde(10);
  t.sesion().ponerEnProceso(true);
  EXPECT_FALSE(t.ponerACero(2));  // nor by a process of its own
  EXPECT_EQ(bien(t.sesion().permisoCero(2)).motivo,
            u"Grupo 2: un proceso olvidó sus ventas sin memorizarlas; no se pone a cero "
            u"hasta recogerlo otra vez entero");
  t.sesion().ponerEnProceso(false);
  EXPECT_TRUE(bien(t.sesion().permisoCero(2)).permitido);  // a person at a window may
  EXPECT_TRUE(bien(t.cierre().recuperar()));  // what a person brings back isn't forgotten
  t.memorizar();
  for (const int g : {1, 2}) t.cuadra(g);
  EXPECT_TRUE(t.ponerACero(2));
  t.grupos.at(2).at(1).vender(11, 300, 0);
  t.leer(2);
  olvidar();
  EXPECT_FALSE(t.ponerACero(2));
  t.leer(2);
  t.memorizar();
  t.cuadra(2);
  EXPECT_TRUE(t.ponerACero(2));
}

TEST_F(ConLibros, UnGrupoQueNoSePusoACeroSoloAportaLaDiferencia) {
  dia();
  leerTodo();
  t.memorizar();
  EXPECT_TRUE(t.ponerACero(2));  // group 1 isn't zeroed
  dia();
  leerTodo();
  const auto links = t.memorizar();
  for (const int g : {1, 2}) t.cuadra(g);
  EXPECT_EQ((*t.periodos().columna(links[0]))->periodo.desde.qdate(), QDate(2026, 11, 25));
  EXPECT_TRUE(t.textoAvisos().contains(u"no se sabe que se pusiera a cero"));
}

TEST_F(ConLibros, LaPuestaACeroQueNadieAnotoNoPisaElDia) {
  for (const bool corta : {false, true}) {
    dia();
    leerTodo();
    t.memorizar();
    EXPECT_TRUE(t.ponerACero(1, true, false));
    EXPECT_TRUE(t.ponerACero(2, true, false));
    if (corta) t.cortar();
    t.reloj.avanzar(10 * kMinuto);
    t.grupos.at(1).at(0).vender(11, 300, 0);
    leerTodo();  // the same evening again
    t.memorizar();
    for (const int g : {1, 2}) t.cuadra(g);
    for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g));
  }
}

// A reading before an order can't show that it was obeyed: an earlier one was.
TEST_F(ConLibros, ElCeroQueVieneDetrasNoExplicaLaLectura) {
  nocheSinConfirmar();
  dia();
  leerTodo();
  EXPECT_TRUE(t.ponerACero(1, false, false));  // it never arrives
  t.memorizar();
  dia();
  leerTodo();
  t.memorizar();
  for (const int g : {1, 2}) t.cuadra(g);
}

// The order got no answer, and the next night only the grand total, which has caught up, is read.
TEST_F(ConLibros, TrasUnCeroSinRespuestaElGranTotalNoBasta) {
  nocheSinConfirmar();
  dia();
  for (int n = 0; n < 500; ++n) t.grupos.at(1).at(0).vender(10, 100, 0);
  t.leerSolo(1, TipoTotal::GranTotal);
  t.leer(2);
  t.memorizar();
  EXPECT_TRUE(t.textoAvisos().contains(u"no se memorizan. Vuelva a recogerlos"));
  EXPECT_FALSE(t.ponerACero(1));
  dia();
  leerTodo();
  t.memorizar();
  for (const int g : {1, 2}) t.cuadra(g);
}

TEST_F(ConLibros, ReleerElMismoDiaDejaElDiaEnteroUnaVez) {
  for (const bool sustituir : {true, false}) {
    dia();
    leerTodo();
    const auto primera = t.memorizar(sustituir);
    t.reloj.avanzar(20 * kMinuto);
    t.grupos.at(1).at(0).vender(12, 450, 0);
    leerTodo();
    const auto segunda = t.memorizar(sustituir);
    EXPECT_EQ(primera, segunda);
    for (const int g : {1, 2}) t.cuadra(g);
    for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g));
  }
}

// More sales after the zeroing than before look like a longer reading of the same sales. Group 1,
// which wasn't zeroed, makes it the same day again.
TEST_F(ConLibros, LoVendidoTrasElCeroSeSumaAlMismoDia) {
  dia();
  leerTodo();
  const auto primera = t.memorizar();
  EXPECT_TRUE(t.ponerACero(2));
  t.reloj.avanzar(10 * kMinuto);
  for (int vez = 0; vez < 2; ++vez)
    for (const int g : {1, 2}) venderDia(t, g, azar);
  leerTodo();
  EXPECT_EQ(t.memorizar(), primera);
  for (const int g : {1, 2}) t.cuadra(g);
}

TEST_F(ConLibros, LaSemanaSigueAUnDiaReleido) {
  dia();
  leerTodo();
  const auto link = t.memorizar();
  ASSERT_TRUE(*t.verTot().SelecHnd(link[0]));
  ASSERT_TRUE(*t.verTot().AcumularEn(totals::kSemanal));
  t.grupos.at(1).at(0).vender(12, 450, 0);
  leerTodo();
  const auto otra = t.memorizar();
  ASSERT_TRUE(*t.verTot().SelecHnd(otra[0]));
  ASSERT_TRUE(*t.verTot().AcumularEn(totals::kSemanal));
  const auto semana = t.db().uno(u"SELECT LINK FROM COLUMNA WHERE TIPO=2");
  EXPECT_EQ(t.enPeriodo(semana->entero(), TipoTotal::PLUs), t.enPeriodo(otra[0], TipoTotal::PLUs));
}

TEST_F(ConLibros, SoloElRegistroQueNoSePusoACeroGuardaSuParte) {
  dia();
  leerTodo();
  t.memorizar();
  auto& cajas = t.grupos.at(2);
  ASSERT_TRUE(t.sesion().anunciarCero(2, 1).has_value());
  cajas.at(1).ponerACero();
  ASSERT_TRUE(t.sesion().ceroHecho(2, 1, false).has_value());
  t.cortar();
  EXPECT_TRUE(t.ponerACero(1));
  dia();
  leerTodo();
  t.memorizar();
  for (const int g : {1, 2}) t.cuadra(g);
}

TEST_F(ConLibros, UnaLecturaFallidaDejaLaAnteriorYProhibeElCero) {
  dia();
  leerTodo();
  ASSERT_TRUE(t.sesion().PrepararRecepcion(1, TipoTotal::PLUs).has_value());
  t.cortar();  // killed in the middle of rereading
  t.memorizar();
  for (const int g : {1, 2}) t.cuadra(g);
  EXPECT_FALSE(t.ponerACero(1));
  EXPECT_TRUE(t.ponerACero(2));
}

TEST_F(ConLibros, LoQueNoCuadraNoSePoneACeroYSeDice) {
  dia();
  t.leerSolo(1, TipoTotal::GranTotal);
  t.grupos.at(1).at(0).vender(11, 700, 0);
  t.leerSolo(1, TipoTotal::PLUs);
  t.leer(2);
  t.memorizar();
  EXPECT_FALSE(t.ponerACero(1));
  EXPECT_TRUE(t.ponerACero(2));
  EXPECT_TRUE(t.textoAvisos().contains(u"no cuadra")) << t.textoAvisos().toStdString();
  dia();
  leerTodo();
  t.memorizar();
  for (const int g : {1, 2}) t.cuadra(g);
  EXPECT_TRUE(t.ponerACero(1));
}

TEST_F(ConLibros, LoQueEsperaEnLaBandejaNoSePisa) {
  dia();
  leerTodo();
  EXPECT_TRUE(t.ponerACero(1));
  EXPECT_TRUE(t.ponerACero(2, true, false));
  t.cortar();
  for (const int g : {1, 2}) EXPECT_FALSE(*t.sesion().PuedeRecibir(g, TipoTotal::PLUs)) << g;
  EXPECT_TRUE(*t.sesion().PuedeRecibir(1, TipoTotal::Operadores));
  t.memorizar();
  for (const int g : {1, 2}) t.cuadra(g);
}

TEST_F(ConLibros, UnDiaQueExisteConservaLosGruposQueNoEstanEnLaSesion) {
  dia();
  t.leer(1);
  t.memorizar();
  t.leer(2);
  t.memorizar();
  for (const int g : {1, 2}) t.cuadra(g);
}

TEST_F(ConLibros, LaSesionQueNoSePuedeMemorizarQuedaComoEstaba) {
  dia();
  leerTodo();
  t.nadaSeMemoriza(u"BEFORE INSERT ON COLUMNA BEGIN SELECT RAISE(ABORT, 'lleno'); END"_s);
  EXPECT_TRUE(t.ponerACero(1));
}

// Days of one round, or of two: the second finds a period that has sales of the day.
TEST(LibrosAlAzar, CadaVentaEstaUnaVez) {
  for (int semilla = 1; semilla <= 60; ++semilla) {
    SCOPED_TRACE(semilla);
    Azar azar(static_cast<quint64>(semilla));
    TiendaDeLibros t(kLunes);
    t.grupo(1);
    t.grupo(2, {1, 2}, 3);
    const int una = azar.entero(1, 3);
    Suerte suya{{una, azar.entero(1, 3), una % 3 + 1}};
    t.desdeCero();
    for (int noche = 1; noche <= 6; ++noche) {
      const bool otra = noche < 6 && azar.ocurre(0.3);
      for (const int g : {1, 2}) venderDia(t, g, azar, 0.2);
      t.amanecer();
      rondaAlAzar(t, azar, suya, noche == 6);
      if (!otra) continue;
      for (const int g : {1, 2}) venderDia(t, g, azar, 0.3);
      t.masTarde(10);
      rondaAlAzar(t, azar, suya, false);
    }
    for (const int g : {1, 2}) t.cuadra(g);
    if (HasFailure()) break;
  }
}

}  // namespace tarvo::prueba
