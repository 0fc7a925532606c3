// Machines that confirm their zeroing: those that obey count all their sales, those that don't only
// the new ones, and where the counters don't tell, a person does.
#include <gtest/gtest.h>

#include "libros/TiendaDeLibros.h"
#include "totals/libros/Dudas.h"

namespace tarvo::prueba {

namespace {

enum class Dicho { Nada, Nombrada, Preguntada };

struct Caso {
  const char* que;
  bool obedece;
  int articulos;  // of the first day, a sale each
  qint64 gramos;  // of each sale
  int iguales;    // articles with the same sale the next day
  int otras;      // articles with a greater sale
  Dicho dicho;
  Tras tras = Tras::SinVer;
  int nuevos = 0;  // articles that only the next day has
};

constexpr Caso kCasosConfirmados[] = {
    {"miente y vende uno", false, 12, 150, 1, 0, Dicho::Nombrada},
    {"miente y no vende", false, 12, 150, 0, 0, Dicho::Nombrada},
    {"miente y vende la mitad", false, 60, 0, 10, 20, Dicho::Nombrada},
    {"miente y le devuelven uno", false, 60, 0, -1, 1, Dicho::Nombrada},
    {"miente, sólo piezas, y vende uno", false, 12, 0, 1, 0, Dicho::Preguntada},
    {"miente, sólo piezas, y no vende", false, 12, 0, 0, 0, Dicho::Preguntada},
    {"obedece y vende lo mismo", true, 12, 0, 12, 0, Dicho::Preguntada},
    {"obedece, se ve, y vende lo mismo", true, 12, 150, 12, 0, Dicho::Nada, Tras::Cero},
    {"obedece y vende la mitad, igual", true, 12, 150, 6, 0, Dicho::Preguntada},
    {"obedece y vende pocas, igual", true, 24, 150, 5, 0, Dicho::Nada},
    {"obedece y vende otras cosas", true, 4, 150, 0, 0, Dicho::Nada, Tras::SinVer, 6},
    {"miente y le devuelven una de tres", false, 3, 150, -1, 0, Dicho::Preguntada},
    {"miente, le devuelven dos de tres y vende otras", false, 3, 150, -2, 0, Dicho::Preguntada,
     Tras::SinVer, 2},
    {"miente, le devuelven tres de doce y vende otras", false, 12, 150, -3, 0, Dicho::Preguntada,
     Tras::SinVer, 2},
    {"obedece y vende más de todo", true, 12, 150, 0, 12, Dicho::Preguntada},
    {"obedece, se ve, y vende más de todo", true, 12, 150, 0, 12, Dicho::Nada, Tras::Cero},
    {"obedece y no vende", true, 12, 150, 0, 0, Dicho::Nada},
    {"obedece y vende el único artículo", true, 1, 150, 1, 0, Dicho::Preguntada},
    {"miente y le devuelven cuatro", false, 27, 150, -4, 0, Dicho::Preguntada},
    {"miente, se ve, y le devuelven cuatro", false, 27, 150, -4, 0, Dicho::Nada, Tras::Igual},
    {"miente, se ve, y vende de todo", false, 5, 0, 0, 5, Dicho::Preguntada, Tras::Igual},
    {"obedece tarde y vende más de todo", true, 5, 0, 0, 5, Dicho::Preguntada, Tras::Igual},
    {"miente y vende de todo", false, 5, 0, 0, 5, Dicho::Preguntada},
    {"obedece, por unidades, y vende casi lo mismo", true, 27, 0, 21, 0, Dicho::Preguntada},
    {"obedece, de peso fijo, y vende casi lo mismo", true, 6, 150, 5, 0, Dicho::Preguntada},
    {"obedece, de peso fijo, y vende uno por otro", true, 24, 150, 20, 0, Dicho::Preguntada,
     Tras::SinVer, 4},
    {"miente y vende casi de todo", false, 12, 0, 0, 11, Dicho::Preguntada},
};

void PrintTo(const Caso& c, std::ostream* os) {
  *os << c.que;
}

class ConConfirmados : public testing::Test {
 protected:
  ConConfirmados() : t(Fecha::de(QDate(2026, 11, 23), QTime(21, 0))) {
    t.grupo(1);
    t.grupo(2, {1, 2}, 3);
    t.desdeCero();
  }
  // Registers don't weigh.
  void vender(int desde, int hasta, qint64 gramos, qint64 veces = 1) {
    for (const int g : {1, 2})
      for (int n = desde; n < hasta; ++n)
        t.grupos.at(g).at(g == 1 ? 0 : 1).vender(10 + n, veces * (300 + n), veces * gramos, veces);
  }
  void leerYMemorizar() {
    t.avisos.clear();
    for (const int g : {1, 2}) t.leer(g);
    t.memorizar();
  }
  Dicho dicho() const {
    const QString texto = t.textoAvisos();
    return texto.contains(u"y no lo hizo")      ? Dicho::Nombrada
           : texto.contains(u"--puesta-a-cero") ? Dicho::Preguntada
                                                : Dicho::Nada;
  }
  TiendaDeLibros t;
};

class ConCasoDeConfirmados : public ConConfirmados, public testing::WithParamInterface<Caso> {};

}  // namespace

TEST_P(ConCasoDeConfirmados, CadaVentaEstaUnaVez) {
  const Caso& c = GetParam();
  t.masTarde(23 * 60);
  vender(0, c.articulos, c.gramos);
  for (int n = 40; n < 50; ++n) t.grupos.at(2).at(2).vender(n, 70, 0);
  leerYMemorizar();
  for (const int noche : {1, 2}) {
    SCOPED_TRACE(noche);
    for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g, c.obedece, true, c.tras));
    t.grupos.at(2).at(2).ponerACero();  // the other register always does
    t.amanecer();
    if (noche == 2) vender(0, 1, 70);
    if (noche == 1 && c.iguales > 0) vender(0, c.iguales, c.gramos);
    if (noche == 1 && c.iguales < 0) vender(0, -c.iguales, c.gramos, -1);
    if (noche == 1) vender(c.articulos, c.articulos + c.nuevos, c.gramos);
    if (noche == 1)
      vender(c.iguales > 0 ? c.iguales : 0, std::max(c.iguales, 0) + c.otras, c.gramos, 2);
    leerYMemorizar();
    if (noche == 1) {
      EXPECT_EQ(dicho(), c.dicho) << t.textoAvisos().toStdString();
    }
    for (const auto& d : bien(totals::dudasAbiertas(t.db()))) {
      EXPECT_FALSE(t.ponerACero(d.grupo));
      t.responder(d.grupo, d.addr, c.obedece);
    }
    for (const int g : {1, 2}) t.cuadra(g);
  }
}

INSTANTIATE_TEST_SUITE_P(Casos, ConCasoDeConfirmados, testing::ValuesIn(kCasosConfirmados),
                         [](const auto& caso) { return std::to_string(caso.index); });

// What is sold while a question waits for its answer is no answer.
TEST_F(ConConfirmados, LaPreguntaEsperaSuRespuesta) {
  for (const Tras tras : {Tras::SinVer, Tras::Igual}) {
    SCOPED_TRACE(static_cast<int>(tras));
    t.masTarde(23 * 60);
    vender(0, 5, 0);
    leerYMemorizar();
    for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g, false, true, tras));
    for (int noche = 0; noche < 3; ++noche) {
      t.amanecer();
      vender(0, 5 - noche, 0, 2);
      leerYMemorizar();
      EXPECT_EQ(dicho(), Dicho::Preguntada) << noche << t.textoAvisos().toStdString();
    }
    for (const auto& d : bien(totals::dudasAbiertas(t.db()))) t.responder(d.grupo, d.addr, false);
    for (const int g : {1, 2}) t.cuadra(g);
    t.desdeCero();
  }
}

// A reading of some kinds alone may not show what a register did with the others: the whole one
// asks, once, and its answer holds for all of them. A scale's articles are enough.
TEST_F(ConConfirmados, SePreguntaUnaVez) {
  for (const bool obedece : {true, false})
    for (const TipoTotal k : {TipoTotal::GranTotal, TipoTotal::PLUs, TipoTotal::Departamentos}) {
      SCOPED_TRACE(obedece);
      SCOPED_TRACE(numeroDe(k));
      t.masTarde(23 * 60);
      vender(0, 5, 0);
      leerYMemorizar();
      for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g, obedece, true, Tras::SinVer));
      t.amanecer();
      vender(0, 5, 0, 2);
      for (const int g : {1, 2}) t.leerSolo(g, k);
      t.memorizar();
      EXPECT_TRUE(t.textoAvisos().contains(u"Grupo 2: falta leer"))
          << t.textoAvisos().toStdString();
      EXPECT_FALSE(t.ponerACero(2));
      EXPECT_EQ(bien(totals::dudasAbiertas(t.db())).size(), k == TipoTotal::PLUs ? 1 : 0);
      leerYMemorizar();
      EXPECT_EQ(bien(totals::dudasAbiertas(t.db())).size(), 2);
      for (const auto& d : bien(totals::dudasAbiertas(t.db())))
        t.responder(d.grupo, d.addr, obedece);
      for (const int g : {1, 2}) t.cuadra(g);
      t.amanecer();
      vender(0, 2, 0);
      leerYMemorizar();
      EXPECT_EQ(dicho(), Dicho::Nada) << t.textoAvisos().toStdString();
      for (const int g : {1, 2}) t.cuadra(g);
      t.desdeCero();
    }
}

// Nothing that a person forgets of the inbox takes away what shows whether the machine obeyed.
TEST_F(ConConfirmados, OlvidarLaSesionNoOlvidaLaDuda) {
  for (const bool vende : {false, true}) {
    SCOPED_TRACE(vende);
    t.masTarde(23 * 60);
    vender(0, 12, 150);
    leerYMemorizar();
    for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g, false, true, Tras::SinVer));
    t.amanecer();
    for (const int g : {1, 2}) t.leer(g);
    bien(t.sesion().cerrarSinMemorizar());
    t.amanecer();
    if (vende) vender(0, 3, 70);
    leerYMemorizar();
    for (const auto& d : bien(totals::dudasAbiertas(t.db()))) t.responder(d.grupo, d.addr, false);
    for (const int g : {1, 2}) t.cuadra(g);
    t.desdeCero();
  }
}

// A scale's grand total or departments alone, or a range of codes, tell nothing of its zeroing.
TEST_F(ConConfirmados, SinTodosLosArticulosNoSeDecide) {
  for (const TipoTotal k : {TipoTotal::GranTotal, TipoTotal::Departamentos}) {
    SCOPED_TRACE(numeroDe(k));
    t.masTarde(23 * 60);
    vender(0, 25, 150);
    leerYMemorizar();
    EXPECT_TRUE(t.ponerACero(1, false, true, Tras::SinVer));
    EXPECT_TRUE(t.ponerACero(2));
    t.amanecer();
    t.grupos.at(1).at(0).vender(10, -300, -150, -1);
    t.avisos.clear();
    t.leerSolo(1, k);
    t.memorizar();
    EXPECT_TRUE(t.textoAvisos().contains(u"falta leer")) << t.textoAvisos().toStdString();
    leerYMemorizar();
    for (const auto& d : bien(totals::dudasAbiertas(t.db()))) t.responder(d.grupo, d.addr, false);
    t.cuadra(1);
    t.desdeCero();
  }
}

// A process that only zeroes looks first at a machine whose earlier zeroing nothing has shown.
TEST_F(ConConfirmados, ElCeroSueltoMiraAntesLaQueNoSeVio) {
  using C = totals::Sesion::Comparacion;
  t.masTarde(23 * 60);
  vender(0, 12, 150);
  leerYMemorizar();
  for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g, false, true, Tras::SinVer));
  t.amanecer();
  t.sesion().ponerEnProceso(true);
  for (const auto& [grupo, addr] : {std::pair{1, 0}, {2, 1}}) {
    EXPECT_TRUE(bien(t.sesion().permisoCero(grupo)).comprobar);
    EXPECT_EQ(bien(t.sesion().compararGranTotal(grupo, addr, {13, 0, 4000, 0})), C::Mas);
    EXPECT_EQ(bien(t.sesion().compararGranTotal(grupo, addr, {})), C::Cero);
  }
}

// The first night reads no grand total, which the next one finds higher than before the zeroing.
TEST_F(ConConfirmados, LaClaseQueNoSeLeyoNoPreguntaPorLoMemorizadoDespues) {
  for (const bool obedece : {true, false}) {
    SCOPED_TRACE(obedece);
    t.masTarde(23 * 60);
    vender(0, 12, 150);
    leerYMemorizar();
    for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g, obedece, true, Tras::SinVer));
    t.amanecer();
    vender(0, 6, 150);
    for (const int g : {1, 2})
      for (const TipoTotal k : {TipoTotal::PLUs, TipoTotal::Departamentos}) t.leerSolo(g, k);
    t.memorizar();
    t.amanecer();
    vender(0, 12, 150, 3);
    leerYMemorizar();
    for (const auto& d : bien(totals::dudasAbiertas(t.db()))) t.responder(d.grupo, d.addr, obedece);
    for (const int g : {1, 2}) t.cuadra(g);
    t.desdeCero();
  }
}

// A register that confirms all its frames and clears only some kinds of total: the sums of its next
// reading show which, and only what was sold since is added to the others.
TEST_F(ConConfirmados, LaCajaQueSoloBorraUnaParte) {
  const TipoTotal g = TipoTotal::GranTotal, p = TipoTotal::PLUs, d = TipoTotal::Departamentos;
  const struct {
    std::vector<TipoTotal> guarda;
    Tras tras;
    bool nombrada = true;
  } casos[] = {{{p}, Tras::Cero},       {{d}, Tras::Cero},     {{p, d}, Tras::Cero},
               {{}, Tras::Cero, false}, {{p}, Tras::SinVer},   {{g}, Tras::SinVer},
               {{g, p}, Tras::SinVer},  {{g, d}, Tras::SinVer}};
  for (int n = 0; const auto& c : casos) {
    SCOPED_TRACE(n++);
    auto& caja = t.grupos.at(2).at(1);
    t.masTarde(23 * 60);
    vender(0, 12, 0);
    t.grupos.at(2).at(2).vender(40, 700, 0);
    leerYMemorizar();
    for (const bool obedece : {false, false, true}) {
      EXPECT_TRUE(t.ponerACero(1));
      EXPECT_TRUE(t.ponerACero(2, obedece, true, obedece ? Tras::Cero : c.tras));
      if (!obedece) t.grupos.at(2).at(2).ponerACero();
      for (const TipoTotal k : {g, p, d})
        if (std::ranges::find(c.guarda, k) == c.guarda.end()) caja.de(k).clear();
      t.amanecer();
      vender(0, 3, 0, 2);
      leerYMemorizar();
      EXPECT_EQ(t.textoAvisos().contains(u"y no borró"), c.nombrada && !obedece)
          << t.textoAvisos().toStdString();
      EXPECT_FALSE(t.textoAvisos().contains(u"no cuadra")) << t.textoAvisos().toStdString();
      t.cuadra(2);
    }
    t.desdeCero();
  }
}

// Its grand total was seen at zero and the rest wasn't; a lost record hides what the sums would
// show.
TEST_F(ConConfirmados, LaPreguntaOfreceLoPosible) {
  t.masTarde(23 * 60);
  vender(0, 12, 0);
  leerYMemorizar();
  EXPECT_TRUE(t.ponerACero(2, false, true, Tras::Cero));
  t.grupos.at(2).at(1).granTotal.clear();
  t.amanecer();
  vender(0, 1, 0);
  t.leerSolo(2, TipoTotal::GranTotal);
  t.leerSolo(2, TipoTotal::PLUs);
  t.leerSin(2, TipoTotal::Departamentos, {15});
  t.memorizar();
  const auto dudas = bien(totals::dudasAbiertas(t.db()));
  ASSERT_EQ(dudas.size(), 1) << t.textoAvisos().toStdString();
  EXPECT_EQ(dudas[0].siNo, 300);
}

}  // namespace tarvo::prueba
