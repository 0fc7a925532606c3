// The exact bytes of every request.
#include <gtest/gtest.h>

#include "comm/maquinas/Caja.h"
#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"

namespace tarvo::maquinas {

TEST(Peticiones, DeCadaFamilia) {
  const Fecha f = Fecha::de(QDate(2026, 5, 18), QTime(14, 30, 5));
  struct Caso {
    Peticion p;
    int codigo;
    QByteArray datos;
  };
  const Caso casos[] = {
      {vek::fechaHora(f), 10, "180520261430"},
      {vek::puestaACero(true), 915, ""},
      {vek::puestaACero(false), 910, ""},
      {vek::articulo(17), 830, "0000017"},
      {vek::siguienteArticulo(1234567), 835, "12345670300"},
      {vek::granTotal(TipoGrupo::Balanzas), 850, ""},
      {vek::granTotal(TipoGrupo::Birch), 860, ""},
      {vek::operador(3), 800, "03"},
      {vek::departamento(12), 810, "12"},
      {vek::hora(0), 840, "00"},
      {vek::operadorHora(20, 7), 820, "2007"},
      {vek::lineas(6, false), 610, "0060"},
      {vek::lineas(123, true), 610, "1231"},
      {vek::olvidarLista(false), 880, "0"},
      {vek::olvidarLista(true), 880, "1"},
      {nodal::fechaHora(f), 36, "18052026143005"},
      {nodal::cerrarTickets(), 39, "99"},
      {nodal::puestaACero(), 71, ""},
      {nodal::articulos(0, 9999999), 67, "9900009999"},
      {nodal::articulos(12, 345), 67, "9900120345"},
      {nodal::granTotal(), 64, ""},
      {nodal::operadores(), 65, ""},
      {nodal::departamentos(), 66, ""},
      {nodal::operadoresHoras(), 75, ""},
      {nodal::pedido(), 76, ""},
      {nodal::olvidarPedido(), 77, ""},
      {caja::articulos(), 2057, "            118000"},
      {caja::totales(), 2060, ""},
      {caja::puestaACero(1), 3054, ""},
      {caja::puestaACero(2), 3056, ""},
      {caja::puestaACero(3), 3058, ""},
  };
  for (const Caso& c : casos) EXPECT_EQ(c.p, (Peticion{c.codigo, c.datos})) << c.codigo;
}

}  // namespace tarvo::maquinas
