#include "totals/periodos/Manuales.h"

#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
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

namespace {

// The larger periods that hold `c` and don't exist yet for the dates `p`.
Resultado<std::vector<Periodo>> mayoresNuevos(Periodos& periodos, const Columna& c,
                                              const Periodo& p) {
  std::vector<Periodo> v;
  for (int tipo = kSemanal; tipo <= kAnual; ++tipo) {
    const auto mayor = Periodos::mayorDe(tipo, p);
    if (!mayor || !c.acumulado(tipo)) continue;
    TARVO_TOMAR(const auto hay, periodos.BuscarPeriodo(tipo, mayor->desde, mayor->hasta));
    if (!hay) v.push_back(*mayor);
  }
  return v;
}

Resultado<> soltar(Periodos& periodos, const Periodo& mayor, Guardado& g) {
  if (mayor.tipo < kSemanal || mayor.tipo > kAnual || mayor == g.ahora) return {};
  TARVO_TOMAR(const auto links,
              dao::reunir(periodos.base().consultar(
                              dao::conMarcas(u"SELECT LINK FROM COLUMNA WHERE FECHA1>=? AND "
                                             u"FECHAF<=? AND TIPO<>? AND {marca}<>0",
                                             {{u"marca", marcaDe(mayor.tipo)}}),
                              mayor.desde, mayor.hasta, mayor.tipo),
                          [](const dao::Recordset& fila) { return fila.entero(0); }));
  for (const qint64 link : links) {
    TARVO_TOMAR(auto sumas, periodos.sumasDe(link));
    g.sueltos.emplace_back(link, std::move(sumas));
  }
  return periodos.soltarAcumulados(mayor);
}

Resultado<> recoger(Periodos& periodos, const Periodo& mayor, const Guardado& g) {
  for (const auto& [link, sumas] : g.sueltos) {
    TARVO_TOMAR(const auto suyo, periodos.columna(link));
    if (!suyo) continue;
    TARVO_TOMAR(const auto ahora, periodos.sumasDe(link));
    if (ahora != sumas || suyo->acumulado(mayor.tipo))
      return fallo(
          Fallo::Duplicado,
          periodos.textos()(kTxFechasCambiado, {TextoPeriodo(mayor), TextoPeriodo(suyo->periodo)}));
    TARVO_INTENTAR(
        periodos.base().ejecutar(dao::conMarcas(u"UPDATE COLUMNA SET {marca}=1 WHERE LINK=?",
                                                {{u"marca", marcaDe(mayor.tipo)}}),
                                 link));
  }
  return {};
}

Resultado<> cambiar(Periodos& periodos, Guardado& g) {
  TARVO_TOMAR(const auto c, periodos.columna(g.link));
  if (!c) return fallo(Fallo::NoExiste, periodos.textos()(kTxSinPeriodo, {g.link}));
  g.antes = c->periodo;
  TARVO_TOMAR(g.salio, periodos.saldriaDe(g.link, g.ahora.tipo, g.ahora.desde, g.ahora.hasta));
  TARVO_TOMAR(g.creados, mayoresNuevos(periodos, *c, g.ahora));
  TARVO_INTENTAR(periodos.CambiarPeriodo(g.link, g.ahora.tipo, g.ahora.desde, g.ahora.hasta, true));
  return soltar(periodos, *g.antes, g);
}

// Rows that are left all zero hold no information.
Resultado<> quitarCeros(dao::Database& db, qint64 link, const EntradaManual& e) {
  const ClaseTotal& c = claseDe(e.clase);
  const QString sql = dao::conMarcas(
      u"DELETE FROM {tabla} WHERE LINK=? AND GRUPO=? AND CODI=? AND {hora}=? AND CON=0 AND PES=0 "
      u"AND [IMP]=0 AND SCO=0",
      {{u"tabla", NombreTabla(e.clase)}, {u"hora", horaDe(c)}});
  TARVO_INTENTAR(db.ejecutar(sql, link, e.grupo, e.codi, c.conHora ? e.hora : 0));
  return {};
}

Resultado<> quitarEntradas(Periodos& periodos, const Guardado& g) {
  std::vector<EntradaManual> contrarias = g.entradas;
  for (EntradaManual& e : contrarias) e.c = -e.c;
  TARVO_INTENTAR(aplicarManuales(periodos, g.link, contrarias));
  for (const EntradaManual& e : contrarias) TARVO_INTENTAR(quitarCeros(periodos.base(), g.link, e));
  return {};
}

Resultado<> devolverFechas(Periodos& periodos, const Guardado& g) {
  const Periodo& antes = *g.antes;
  TARVO_INTENTAR(periodos.CambiarPeriodo(g.link, antes.tipo, antes.desde, antes.hasta, true));
  for (const Periodo& mayor : g.salio) {
    TARVO_TOMAR(const auto c, periodos.columna(g.link));
    TARVO_INTENTAR(periodos.AcumularPeriodo(mayor.tipo, *c));
  }
  for (const Periodo& p : g.creados) {
    TARVO_TOMAR(const auto mayor, periodos.BuscarPeriodo(p.tipo, p.desde, p.hasta));
    if (!mayor) continue;
    TARVO_TOMAR(const auto vacio, periodos.sinVentas(mayor->LINK));
    if (vacio) TARVO_INTENTAR(periodos.BorrarPeriodo(mayor->LINK));
  }
  return recoger(periodos, antes, g);
}

Resultado<> quitarNuevo(Periodos& periodos, const Guardado& g) {
  TARVO_TOMAR(const auto vacio, periodos.sinVentas(g.link));
  if (!vacio)
    return fallo(Fallo::Restriccion,
                 periodos.textos()(kTxYaTieneTotales, {TextoPeriodos({g.ahora})}));
  return periodos.BorrarPeriodo(g.link);
}

}  // namespace

Resultado<Guardado> guardarConManuales(Periodos& periodos, qint64 link, const Periodo& p,
                                       const std::vector<EntradaManual>& entradas) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(periodos.base()));
  Guardado g{link, LimitesPeriodo(p.tipo, p.desde, p.hasta), {}, entradas};
  if (link == 0) {
    TARVO_TOMAR(const auto hay, periodos.BuscarPeriodo(p.tipo, p.desde, p.hasta));
    if (hay) return fallo(Fallo::Duplicado, TextoPeriodo(p));
    TARVO_TOMAR(g.link, periodos.CrearPeriodo(p.tipo, p.desde, p.hasta, false, {}));
  } else {
    TARVO_INTENTAR(cambiar(periodos, g));
  }
  TARVO_INTENTAR(aplicarManuales(periodos, g.link, entradas));
  TARVO_INTENTAR(tr.confirmar());
  return g;
}

Resultado<> deshacerGuardado(Periodos& periodos, const Guardado& g) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(periodos.base()));
  TARVO_TOMAR(const auto c, periodos.columna(g.link));
  if (!c || c->periodo != g.ahora)
    return fallo(Fallo::NoExiste, periodos.textos()(kTxYaNoSonLosMismos));
  TARVO_INTENTAR(quitarEntradas(periodos, g));
  TARVO_INTENTAR(g.antes ? devolverFechas(periodos, g) : quitarNuevo(periodos, g));
  return tr.confirmar();
}

}  // namespace tarvo::totals
