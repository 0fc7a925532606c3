// A register whose zeroing broke off between its frames, where the readings behind it are not all
// that a night gives.
#include <gtest/gtest.h>

#include "libros/Tienda.h"

namespace tarvo::prueba {

using totals::kDepartamentos, totals::kGranTotal, totals::kPLUs;

namespace {

constexpr qint64 kUnDia = 24 * 3600 * 1000LL;

class PartesTest : public testing::Test {
 protected:
  PartesTest() : t(Fecha::de(QDate(2026, 11, 23), QTime(21, 0))) { t.grupo(2, {1, 2}, 3); }
  // A day of `ventas` sales in each register. The totals are read by `leer`.
  void dia(int ventas) {
    t.reloj.avanzar(kUnDia);
    t.sesion().ponerEjecucion(++t.ejecucion, false);
    for (auto& [addr, m] : t.grupos.at(2))
      for (int n = 0; n < ventas; ++n) m.vender(10 + n % 7, 100 + 10 * n + addr, 0);
  }
  void leidaYMemorizada(int ventas) {
    dia(ventas);
    t.leer(2);
    t.memorizar();
  }
  // The first register clears its articles, and nobody hears of it.
  void borrarArticulosSinSaberlo() {
    ASSERT_TRUE(t.sesion().anunciarCero(2, 1, 1).has_value());
    t.grupos.at(2).at(1).articulos.clear();
    t.cortar();
    t.avisos.clear();
  }
  void cuadra() {
    for (const int clase : {kPLUs, kGranTotal, kDepartamentos})
      EXPECT_EQ(t.enPeriodos(2, clase), t.vendido(2)) << clase << "\n"
                                                      << t.textoAvisos().toStdString();
    EXPECT_FALSE(t.textoAvisos().contains(u"no cuadra")) << t.textoAvisos().toStdString();
  }
  Tienda t;
};

}  // namespace

TEST_F(PartesTest, ElDiaSiguienteSeSabeVendaMasOMenos) {
  for (const int ventas : {3, 40}) {
    leidaYMemorizada(20);
    borrarArticulosSinSaberlo();
    leidaYMemorizada(ventas);
    cuadra();
    leidaYMemorizada(5);  // and once more without a zeroing
    cuadra();
    EXPECT_TRUE(t.ponerACero(2));
  }
}

TEST_F(PartesTest, LoQueNoSePuedeSaberEsperaALaLecturaEntera) {
  leidaYMemorizada(20);
  borrarArticulosSinSaberlo();
  dia(30);
  t.leerSolo(2, kPLUs);
  t.memorizar();
  EXPECT_TRUE(t.textoAvisos().contains(u"quedó a medias")) << t.textoAvisos().toStdString();
  EXPECT_FALSE(t.ponerACero(2));
  t.avisos.clear();
  leidaYMemorizada(1);
  cuadra();
  EXPECT_TRUE(t.ponerACero(2));
}

TEST_F(PartesTest, UnCeroAntesDeMemorizarNoPierdeLaDuda) {
  leidaYMemorizada(20);
  borrarArticulosSinSaberlo();
  dia(30);
  t.leer(2);
  EXPECT_TRUE(t.ponerACero(2));
  t.memorizar();
  cuadra();
  leidaYMemorizada(4);
  cuadra();
}

TEST_F(PartesTest, QuienLaAcabaAManoNoEstorba) {
  leidaYMemorizada(20);
  ASSERT_TRUE(t.sesion().anunciarCero(2, 1, 1).has_value());
  ASSERT_TRUE(t.sesion().parteHecha(2, 1, 1).has_value());
  t.grupos.at(2).at(1).ponerACero();
  t.cortar();
  leidaYMemorizada(6);
  cuadra();
  EXPECT_TRUE(t.ponerACero(2));
}

TEST_F(PartesTest, LaCajaQueSeCambiaPorOtraNoDejaDuda) {
  leidaYMemorizada(20);
  borrarArticulosSinSaberlo();
  auto& cajas = t.grupos.at(2);
  cajas[3].vendido = cajas.at(1).vendido;  // only for the ledger
  cajas.erase(1);
  for (const int ventas : {4, 6}) {
    leidaYMemorizada(ventas);
    cuadra();
  }
  EXPECT_TRUE(t.ponerACero(2));
}

// The tables of the version before this bookkeeping.
TEST_F(PartesTest, UnaBaseAnteriorSePoneAlDia) {
  leidaYMemorizada(20);
  ASSERT_TRUE(
      t.db()
          .ejecutarGuion(u"DROP TABLE CerosParte;\nALTER TABLE Lecturas DROP COLUMN AJUSTE;\n")
          .has_value());
  t.cortar();
  borrarArticulosSinSaberlo();
  leidaYMemorizada(30);
  cuadra();
}

}  // namespace tarvo::prueba
