#include "totals/Manuales.h"

#include "totals/FilasTotales.h"
#include "totals/TextosTotals.h"

namespace tarvo::totals {

namespace {

Resultado<> sumarEntrada(dao::Database& db, const Textos& textos, qint64 link,
                         const EntradaManual& e) {
  const ClaseTotal* c = clase(e.clase);
  if (!c) return fallo(Fallo::Interno, textos(kTxSinClaseDeTotal, {e.clase}));
  const auto s = prepararSuma(db, *c);
  if (!s) return std::unexpected(s.error());
  int i = 0;
  for (const qint64 x : {link, qint64{e.grupo}, e.codi}) (*s)->ligar(i++, x);
  if (c->conHora) (*s)->ligar(i++, qint64{e.hora});
  for (const qint64 x : {e.c.CON, e.c.PES, e.c.IMP, e.c.SCO}) (*s)->ligar(i++, x);
  TARVO_INTENTAR((*s)->ejecutar());
  return comprobarRango(db, *c, link, textos);
}

}  // namespace

Resultado<> aplicarManuales(dao::Database& db, Periodos& periodos, qint64 link,
                            const std::vector<EntradaManual>& entradas) {
  if (entradas.empty()) return {};
  auto t = dao::Transaccion::empezar(db);
  if (!t) return std::unexpected(t.error());
  const auto marcas = periodos.DesacumularTodo(link);
  if (!marcas) return std::unexpected(marcas.error());
  for (const int numero : {kGranTotal, kPLUs, kOperadores, kDepartamentos, kHorario, kOperHora})
    for (const EntradaManual& e : entradas)
      if (e.clase == numero) TARVO_INTENTAR(sumarEntrada(db, periodos.textos(), link, e));
  TARVO_INTENTAR(periodos.ReacumularTodo(link, *marcas));
  return t->confirmar();
}

}  // namespace tarvo::totals
