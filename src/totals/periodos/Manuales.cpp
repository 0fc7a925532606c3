#include "totals/periodos/Manuales.h"

#include "totals/TextosTotals.h"
#include "totals/periodos/Calendario.h"
#include "totals/periodos/FilasTotales.h"

namespace tarvo::totals {

namespace {

Resultado<> sumarEntrada(dao::Database& db, const Textos& textos, qint64 link,
                         const EntradaManual& e) {
  const ClaseTotal& c = claseDe(e.clase);
  TARVO_TOMAR(const auto s, prepararSuma(db, c));
  int i = 0;
  for (const qint64 x : {link, qint64{e.grupo}, e.codi}) s->ligar(i++, x);
  if (c.conHora) s->ligar(i++, qint64{e.hora});
  for (const qint64 x : {e.c.CON, e.c.PES, e.c.IMP, e.c.SCO}) s->ligar(i++, x);
  TARVO_INTENTAR(s->ejecutar());
  return comprobarRango(db, c, link, textos);
}

}  // namespace

Resultado<> aplicarManuales(Periodos& periodos, qint64 link,
                            const std::vector<EntradaManual>& entradas) {
  if (entradas.empty()) return {};
  dao::Database& db = periodos.base();
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db));
  TARVO_TOMAR(const auto marcas, periodos.DesacumularTodo(link));
  for (const TipoTotal tipo : {TipoTotal::GranTotal, TipoTotal::PLUs, TipoTotal::Operadores,
                               TipoTotal::Departamentos, TipoTotal::Horario, TipoTotal::OperHora})
    for (const EntradaManual& e : entradas)
      if (e.clase == tipo) TARVO_INTENTAR(sumarEntrada(db, periodos.textos(), link, e));
  TARVO_INTENTAR(periodos.ReacumularTodo(link, marcas));
  return t.confirmar();
}

Resultado<qint64> guardarConManuales(Periodos& periodos, qint64 link, const Periodo& p,
                                     const std::vector<EntradaManual>& entradas) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(periodos.base()));
  if (link == 0) {
    TARVO_TOMAR(const auto hay, periodos.BuscarPeriodo(p.tipo, p.desde, p.hasta));
    if (hay) return fallo(Fallo::Duplicado, TextoPeriodo(p));
    TARVO_TOMAR(link, periodos.CrearPeriodo(p.tipo, p.desde, p.hasta, false, {}));
  } else {
    TARVO_INTENTAR(periodos.CambiarPeriodo(link, p.tipo, p.desde, p.hasta, true));
  }
  TARVO_INTENTAR(aplicarManuales(periodos, link, entradas));
  TARVO_INTENTAR(tr.confirmar());
  return link;
}

}  // namespace tarvo::totals
