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
  bool visto = false;  // its grand total was seen to be zero
};

constexpr Caso kCasos[] = {
    {"miente y vende uno", false, 12, 150, 1, 0, Dicho::Nombrada},
    {"miente y no vende", false, 12, 150, 0, 0, Dicho::Nombrada},
    {"miente y vende la mitad", false, 60, 0, 10, 20, Dicho::Nombrada},
    {"miente y le devuelven uno", false, 60, 0, -1, 1, Dicho::Nombrada},
    {"miente, sólo piezas, y vende uno", false, 12, 0, 1, 0, Dicho::Preguntada},
    {"miente, sólo piezas, y no vende", false, 12, 0, 0, 0, Dicho::Preguntada},
    {"obedece y vende lo mismo", true, 12, 0, 12, 0, Dicho::Preguntada},
    {"obedece, se ve, y vende lo mismo", true, 12, 150, 12, 0, Dicho::Nada, true},
    {"obedece y vende la mitad, igual", true, 12, 150, 6, 0, Dicho::Nada},
    {"obedece y vende más de todo", true, 12, 150, 0, 12, Dicho::Nada},
    {"obedece y no vende", true, 12, 150, 0, 0, Dicho::Nada},
    {"obedece y vende el único artículo", true, 1, 150, 1, 0, Dicho::Nada},
};

class ConfirmadosTest : public testing::TestWithParam<Caso> {
 protected:
  ConfirmadosTest() : t(Fecha::de(QDate(2026, 11, 23), QTime(21, 0))) {
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

}  // namespace

TEST_P(ConfirmadosTest, CadaVentaEstaUnaVez) {
  const Caso& c = GetParam();
  t.masTarde(23 * 60);
  vender(0, c.articulos, c.gramos);
  t.grupos.at(2).at(2).vender(40, 700, 0);
  leerYMemorizar();
  for (const int noche : {1, 2}) {
    SCOPED_TRACE(noche);
    for (const int g : {1, 2}) EXPECT_TRUE(t.ponerACero(g, c.obedece, true, c.visto));
    t.grupos.at(2).at(2).ponerACero();  // the other register always does
    t.amanecer();
    if (noche == 2) vender(0, 1, 70);
    if (noche == 1 && c.iguales > 0) vender(0, c.iguales, c.gramos);
    if (noche == 1 && c.iguales < 0) vender(0, -c.iguales, c.gramos, -1);
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

INSTANTIATE_TEST_SUITE_P(Casos, ConfirmadosTest, testing::ValuesIn(kCasos),
                         [](const auto& caso) { return std::to_string(caso.index); });

}  // namespace tarvo::prueba
