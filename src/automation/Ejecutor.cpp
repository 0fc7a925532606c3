#include "automation/Ejecutor.h"

#include <utility>

#include "automation/TextosAutomation.h"
#include "automation/lenguaje/TextosLenguaje.h"
#include "comm/motor/TextosMotor.h"
#include "core/dao/Recorrido.h"
#include "core/dinero/Dinero.h"
#include "totals/periodos/AjustesPeriodos.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMayorGrupo = 32767, kMayorReintento = 32767;
// When unattended: an unanswering machine must not cost the night.
constexpr int kReintentosSinNadie = 100;
constexpr int kUltimoMensaje = 14;
constexpr int kErrorCrear = 7, kErrorSeleccionar = 10;
// Outside these years a date is a typing error, and nobody is there to be asked.
constexpr int kPrimerAno = 1990, kAnosPorVenir = 10;

void contar(const std::vector<totals::Aviso>& avisos, Hecho& h) {
  for (const auto& a : avisos) h.decir(a.texto, a.grave, a.grupo);
}

// The code for a verb of P that did not do what it promises.
int codigoPeriodos(VerboPeriodos verbo) {
  switch (verbo) {
    case VerboPeriodos::Crear:
      return kErrorCrear;
    case VerboPeriodos::Borrar:
      return 8;
    case VerboPeriodos::Limpiar:
      return 9;
    case VerboPeriodos::Seleccionar:
    case VerboPeriodos::SelUltimo:
      return kErrorSeleccionar;
    case VerboPeriodos::Acumular:
    case VerboPeriodos::Desacumular:
      return 11;
    case VerboPeriodos::Stock:
      return 12;
    case VerboPeriodos::Sumar:
      return 13;
  }
  std::unreachable();
}

// A non-numeric number of retries counts as none.
int reintentosDe(const PasoControl& p) {
  const auto* n = std::get_if<qint64>(&p.reintentos);
  return n ? static_cast<int>(std::clamp<qint64>(*n, 0, kMayorReintento)) : 0;
}

// A task step's request to the engine; nothing while a reference in it has no value.
struct Orden {
  bool todo = true;
  qint64 desde = 0, hasta = 0;
};

std::optional<Orden> ordenDe(const PasoTarea& p) {
  if (!p.rango) return Orden{p.todo.value_or(true), 0, 0};
  const auto* desde = std::get_if<qint64>(&p.rango->desde);
  const auto* hasta = std::get_if<qint64>(&p.rango->hasta);
  if (!desde || !hasta) return std::nullopt;
  return Orden{p.todo.value_or(true), *desde, *hasta};
}

// The groups named by a task step; nothing for a reference without a value or a number of no group.
Resultado<std::optional<std::vector<int>>> gruposDe(const PasoTarea& p, dao::Database& db) {
  if (const auto* n = std::get_if<qint64>(&p.grupo)) {
    if (*n < 0 || *n > kMayorGrupo) return std::nullopt;
    return std::vector{static_cast<int>(*n)};
  }
  if (std::get<QString>(p.grupo) != kTodosLosGrupos) return std::nullopt;
  return dao::reunir(db.consultar(u"SELECT CODGPO FROM GRUPOS ORDER BY CODGPO"),
                     [](const dao::Recordset& rs) { return static_cast<int>(rs.entero(0)); });
}

}  // namespace

Hecho deFallo(const Error& error, int codigo) {
  Hecho h;
  h.error(codigo);
  h.decir(error.texto);
  return h;
}

QString decirPisada(const Ajustes::Pisada& p, const Textos& textos) {
  return textos(kTxPisada, {p.clave, p.vale, p.perdido});
}

QString mensajePaso(int codigo, const Textos& textos) {
  return codigo > 0 && codigo <= kUltimoMensaje ? textos(kTxMensajePaso + codigo) : QString();
}

Resultado<Hecho> Ejecutor::hacer(const PasoProceso& p, Ejecucion& e, Vigilancia& vigilancia) {
  using R = Resultado<Hecho>;
  return std::visit(SegunPaso{[](std::monostate) -> R { return Hecho{}; },
                              [&](const PasoTarea& paso) { return tarea(paso, e); },
                              [&](const PasoSesion& paso) -> R { return sesion(paso, e); },
                              [&](const PasoControl& paso) -> R {
                                Hecho h = control(paso);
                                h.completo = colaVacia(paso, vigilancia);
                                return h;
                              },
                              [&](const PasoPeriodos& paso) -> R { return periodos(paso, e); },
                              [&](const PasoExportar& paso) -> R { return exportar(paso, e); },
                              [](const PasoNoper&) -> R { return Hecho{}; }},
                    p);
}

// --- tasks --------------------------------------------------------------------------------------

Resultado<Hecho> Ejecutor::tarea(const PasoTarea& p, Ejecucion& e) {
  Hecho h;
  const auto orden = ordenDe(p);
  const auto grupos = gruposDe(p, t_.db);
  if (!grupos) return deFallo(grupos.error());
  if (!orden || !*grupos) {
    h.error(2);
    return h;
  }
  if (const auto codigo = p.rango ? p.rango->imposible() : std::nullopt) {
    h.decir(t_.textos(kTxCodigoImposible, {*codigo, Ceros(kPrimerCodigo, 7), kUltimoCodigo}));
    return h;
  }
  if (p.rango && p.rango->alReves()) {
    h.decir(t_.textos(kTxPasoAlReves, {orden->desde, orden->hasta}));
    return h;
  }
  QStringList rechazados, motivos;
  for (const int g : **grupos) {
    const auto pedida =
        t_.motor.NuevaTarea(g, orden->todo, orden->desde, orden->hasta, p.tarea, e.paso);
    if (pedida == motor::Pedida::EnCola) {
      TARVO_INTENTAR(diario_.tareaEnCola(e.numero, e.paso, g, p.tarea));
      continue;
    }
    const QString motivo = motivoRechazo(pedida, g, p.tarea);
    h.problemas = true;
    if (!motivos.contains(motivo)) motivos += motivo;
    rechazados += Ceros(g, 4);
    TARVO_INTENTAR(diario_.tareaRechazada(e.numero, e.paso, g, p.tarea, motivo));
    // The group's present sales are not read in this run, so it must not be told to forget them.
    if (pedida == motor::Pedida::YaUsada) {
      e.fallidos.insert(g);
      t_.motor.anadirGrupoFallido(g);
    }
  }
  for (const QString& motivo : motivos) h.decir(motivo);
  if (!rechazados.isEmpty()) h.decir(t_.textos(kTxRechazados, {rechazados.join(u", ")}));
  return h;
}

// In words. The engine has the same code for a missing group and for a kind of task unknown to it,
// to this build or to the group.
QString Ejecutor::motivoRechazo(motor::Pedida pedida, int grupo, TipoTarea clase) const {
  if (pedida == motor::Pedida::Repetida)
    if (const auto mismas = t_.motor.MismasMaquinas(grupo)) return *mismas;
  const auto* c = t_.repertorio.de(clase);
  const auto numero = t_.db.uno(u"SELECT TIPO FROM GRUPOS WHERE CODGPO=?", grupo);
  const bool hayGrupo = numero && !numero->nulo();
  const auto tipo = hayGrupo ? deNumero<TipoGrupo>(numero->entero()) : std::nullopt;
  const bool nadie = !c || !c->crear || (*c->clave != 0 && !t_.ajustes.clases.tiene(clase));
  const bool ajena = hayGrupo && c && (!tipo || !c->valePara(*tipo));
  return pedida == motor::Pedida::DestinoMalo && (nadie || ajena)
             ? t_.textos(motor::kTxSinQuienEnvie)
             : mensajePaso(static_cast<int>(pedida), t_.textos);
}

motor::Pedida Ejecutor::repetir(const PasoProceso& p, const Diario::Tarea& tarea) {
  const auto* paso = std::get_if<PasoTarea>(&p);
  const auto orden = paso ? ordenDe(*paso) : std::nullopt;
  if (!orden) return motor::Pedida::DestinoMalo;
  return t_.motor.NuevaTarea(tarea.grupo, orden->todo, orden->desde, orden->hasta, paso->tarea,
                             tarea.paso);
}

// --- session ------------------------------------------------------------------------------------

Hecho Ejecutor::sesion(const PasoSesion& p, Ejecucion& e) {
  Hecho h;
  h.sesionMovida = true;
  const int estado = t_.sesion.estado();
  const bool cierra = p.verbo == VerboSesion::Cerrar;
  if (p.verbo == VerboSesion::Abrir) {
    if (estado == 2)
      h.error(4);
    else if (auto r = t_.motor.LaSesion(1); !r)
      h.decir(r.error().texto);
  } else if (cierra && estado == 0) {
    h.error(5);
  } else if (cierra && estado == 2) {
    cerrar(p, e, h);
  } else if (cierra || puedeOlvidar(h)) {
    std::vector<totals::Aviso> avisos;
    const auto r = t_.cerrSes.LaSesion(cierra, 0, avisos);
    contar(avisos, h);
    if (!r) h.decir(r.error().texto);
  }
  return h;
}

// A process is written once and runs without anybody who looks: sales that are left in the session
// alone are a person's to forget.
bool Ejecutor::puedeOlvidar(Hecho& h) {
  const auto grupos = t_.sesion.soloEnBandeja();
  if (!grupos) {
    h.decir(grupos.error().texto);
    return false;
  }
  for (const int g : *grupos) {
    const auto importe = t_.sesion.sinPeriodo(g);
    h.decir(importe ? t_.textos(kTxNoSeOlvida, {g, VerImporte(t_.ajustes, importe->value_or(0),
                                                              t_.ajustes.MonedaNativa ? 1 : 0)})
                    : importe.error().texto,
            true, g);
  }
  return grupos->empty();
}

void Ejecutor::cerrar(const PasoSesion& p, Ejecucion& e, Hecho& h) {
  e.ultimos.clear();
  t_.cerrSes.Descrip = ExpandirNombre(p.descripcion, t_.reloj.ahora(), t_.db);
  t_.cerrSes.TodoAUno = p.todoAUno;
  t_.cerrSes.OverWr = p.sustituir;
  std::vector<totals::Aviso> avisos;
  auto links = t_.cerrSes.LaSesion(true, 0, avisos);
  contar(avisos, h);
  if (!links) h.decir(links.error().texto);
  if (!links || links->empty() || t_.sesion.estado() != 0) return noMemorizado(e, h);
  e.ultimos = std::move(*links);
  h.periodos = e.ultimos;
  t_.ajustes.de<totals::AjustesPeriodos>().UltimosPeriodos.assign(e.ultimos.begin(),
                                                                  e.ultimos.end());
}

// Their sales are in no period: they must stay in the machines of these groups.
void Ejecutor::noMemorizado(Ejecucion& e, Hecho& h) {
  h.error(6);
  for (const auto& r : t_.cerrSes.recibidos()) {
    e.fallidos.insert(r.CODGPO);
    t_.motor.anadirGrupoFallido(r.CODGPO);
  }
}

// --- control ------------------------------------------------------------------------------------

Hecho Ejecutor::control(const PasoControl& p) {
  Hecho h;
  if (const auto* texto = std::get_if<QString>(&p.reintentos))
    h.decir(t_.textos(kTxReintentosMalos, {*texto}));
  if (const auto* n = std::get_if<qint64>(&p.reintentos); n && *n != reintentosDe(p))
    h.decir(t_.textos(kTxReintentosDeMas, {*n, reintentosDe(p)}));
  return h;
}

bool Ejecutor::colaVacia(const PasoControl& espera, Vigilancia& vigilancia) {
  vigilancia.reintentos = reintentosDe(espera);
  if (vigilancia.borrarSiempre)
    vigilancia.reintentos = std::min(vigilancia.reintentos, kReintentosSinNadie);
  if (t_.motor.CuantosQuedan().total == 0) return true;
  t_.motor.VigilaProcesos(vigilancia.reintentos, espera.borrarFallos || vigilancia.borrarSiempre,
                          vigilancia.vigilante);
  return false;
}

// --- periods ------------------------------------------------------------------------------------

Hecho Ejecutor::periodos(const PasoPeriodos& p, const Ejecucion& e) {
  Hecho h;
  if (!p.verbo) {
    h.decir(t_.textos(kTxOrdenNoExiste));
    return h;
  }
  const VerboPeriodos verbo = *p.verbo;
  if (verbo == VerboPeriodos::SelUltimo) return selUltimo(e);
  if (verbo == VerboPeriodos::Crear) return crear(p);
  if (verbo == VerboPeriodos::Sumar) return sumar();
  const std::vector<qint64> elegidos = t_.verTot.LosSelec();
  if (verbo == VerboPeriodos::Stock)
    avisarDeDobles(t_.verTot.yaEnStock(elegidos), kTxStockDosVeces, h);
  if (verbo == VerboPeriodos::Acumular)
    avisarDeDobles(t_.verTot.yaAcumulados(elegidos, static_cast<int>(p.tipo)), kTxAcumuladoDosVeces,
                   h);
  if (verbo == VerboPeriodos::Borrar) avisarDeLoQueNoVuelve(p, h);
  const auto r = operacion(p);
  if (!r && r.error().clase == Fallo::Restriccion && verbo == VerboPeriodos::Borrar)
    h.decir(r.error().texto);  // what could go has gone
  else if (!r)
    h = deFallo(r.error());
  else if (!*r && elegidos.empty())
    sinElegidos(codigoPeriodos(verbo), e, h);
  else if (!*r)
    h.error(codigoPeriodos(verbo));
  if (verbo == VerboPeriodos::Acumular || verbo == VerboPeriodos::Stock)
    pendientes(p, r ? std::vector<qint64>{} : elegidos, h);
  return h;
}

// What its author ordered is done, and reported.
void Ejecutor::avisarDeDobles(const Resultado<std::vector<totals::VerTot::Solape>>& dobles,
                              int texto, Hecho& h) {
  if (!dobles) return h.decir(dobles.error().texto);
  for (const auto& d : *dobles)
    h.decir(t_.textos(texto, {totals::TextoPeriodo(d.uno).simplified(),
                              totals::TextoPeriodo(d.otro).simplified()}));
}

void Ejecutor::avisarDeLoQueNoVuelve(const PasoPeriodos& p, Hecho& h) {
  const auto* desde = std::get_if<Fecha>(&p.desde);
  const auto* hasta = std::get_if<Fecha>(&p.hasta);
  if (!desde || !hasta) return;
  const auto grupos = t_.verTot.gruposSinCero(static_cast<int>(p.tipo), *desde, *hasta);
  if (!grupos) return h.decir(grupos.error().texto);
  if (!grupos->isEmpty()) h.decir(t_.textos(kTxBorradoSinCero, {*grupos}), false);
}

// A run that selects what it has memorised, and has memorised nothing, lacks nothing.
void Ejecutor::sinElegidos(int codigo, const Ejecucion& e, Hecho& h) const {
  const auto hasta = std::min<qint64>(e.paso, e.lineas.size());
  const bool losUltimos =
      std::any_of(e.lineas.begin(), e.lineas.begin() + hasta,
                  [](const QString& linea) { return linea.startsWith(u"P:SEL. ULTIMO"); });
  if (losUltimos && e.ultimos.empty())
    h.sinQueHacer(codigo, t_.textos(kTxSinMemorizado));
  else
    h.error(codigo);
}

Hecho Ejecutor::crear(const PasoPeriodos& p) {
  Hecho h;
  const Intervalo& i = p.intervalo;
  const int ahora = t_.reloj.ahora().qdate().year();
  const auto lejos = [ahora](Fecha f) {
    return f.qdate().year() < kPrimerAno || f.qdate().year() > ahora + kAnosPorVenir;
  };
  if (i.hasta <= i.desde || lejos(i.desde) || lejos(i.hasta)) {
    h.error(kErrorCrear);
    const int motivo = i.hasta < i.desde    ? kTxAcabaAntes
                       : i.hasta == i.desde ? kTxPeriodoSinDuracion
                                            : kTxFechasLejanas;
    h.decir(t_.textos(motivo, {i.desde.corta(), i.hasta.corta()}));
    return h;
  }
  const auto creado =
      t_.verTot.CrearIntvalo(totals::Periodo{i.tipo, i.desde, i.hasta}, p.descripcion);
  if (!creado) return deFallo(creado.error(), kErrorCrear);
  if (creado->existia) h.decir(t_.textos(kTxYaExistia, {nombrePeriodo(creado->link)}), false);
  if (i.hasta == i.hasta.dia()) h.decir(t_.textos(kTxAcabaALasCero, {i.hasta.corta()}), false);
  return h;
}

// A sum that fails is owed: a later step of the same process may delete its parts.
void Ejecutor::deberSuma(Hecho& h) {
  const std::vector<qint64> elegidos = t_.verTot.LosSelec();
  if (elegidos.size() < 2) return;
  const OrdenPeriodos orden{VerboPeriodos::Sumar, OrdenPeriodos::kEnSuma};
  if (const auto r = Pendientes(t_.db).anotar(orden, elegidos); !r) h.decir(r.error().texto);
}

// What the target holds already isn't added again: a process runs every night. Periods that overlap
// are added, as its author ordered, and reported.
Hecho Ejecutor::sumar() {
  Hecho h;
  const auto suma = t_.verTot.destinoDeSuma();
  if (!suma) h = deFallo(suma.error());
  if (!suma || !*suma || !(*suma)->existente) deberSuma(h);
  if (!suma) return h;
  if (!*suma || !(*suma)->existente) h.error(codigoPeriodos(VerboPeriodos::Sumar));
  if (!*suma) return h;
  const QString destino = totals::TextoPeriodo((*suma)->periodo).simplified();
  const QString sumandos = sumandosDe(**suma);
  if (!(*suma)->existente) h.decir(t_.textos(kTxSumaSinDestino, {sumandos, destino}));
  if ((*suma)->sumandos == 0) h.decir(t_.textos(kTxSumaDeUnoSolo, {destino}));
  if (!(*suma)->existente || (*suma)->sumandos == 0) return h;
  for (const qint64 link : (*suma)->dentro)
    h.decir(t_.textos(kTxNoSeSumaOtraVez, {nombrePeriodo(link).simplified(), destino}));
  for (const auto& s : (*suma)->solapes)
    if (!s.yaDentro)
      h.decir(t_.textos(kTxSumaSolapa, {totals::TextoPeriodo(s.uno).simplified(),
                                        totals::TextoPeriodo(s.otro).simplified()}));
  for (const auto& p : (*suma)->enStock)
    h.decir(t_.textos(kTxStockDosVeces, {totals::TextoPeriodo(p).simplified(), destino}));
  const auto hecho = t_.verTot.SumarIntv(0, (*suma)->dentro);
  if (!hecho) h.decir(hecho.error().texto);
  if (!hecho) deberSuma(h);
  if (hecho && !sumandos.isEmpty()) h.decir(t_.textos(kTxSumado, {sumandos, destino}), false);
  return h;
}

// The selected periods that a sum adds, by name.
QString Ejecutor::sumandosDe(const totals::VerTot::Suma& suma) const {
  QStringList nombres;
  for (const qint64 link : t_.verTot.LosSelec())
    if (std::ranges::find(suma.dentro, link) == suma.dentro.end() &&
        !(suma.existente && suma.existente->LINK == link))
      nombres += nombrePeriodo(link).simplified();
  return nombres.join(u", "_s);
}

QString Ejecutor::nombrePeriodo(qint64 link) const {
  const auto c = t_.verTot.columna(link);
  return c && *c ? totals::TextoPeriodo((*c)->periodo) : QString::number(link);
}

// Does what earlier runs still owe for this verb, and notes what this run owes from now on.
void Ejecutor::pendientes(const PasoPeriodos& p, const std::vector<qint64>& debidos, Hecho& h) {
  const OrdenPeriodos orden{*p.verbo, *p.verbo == VerboPeriodos::Acumular ? p.tipo : 0};
  Pendientes libro(t_.db);
  const auto viejos = libro.de(orden);
  if (!viejos) return h.decir(viejos.error().texto);
  for (const qint64 link : *viejos) {
    if (std::ranges::find(debidos, link) != debidos.end()) continue;
    t_.verTot.ponerSeleccion({link});
    const auto r = operacion(p);
    if (!r) {
      h.decir(t_.textos(kTxSiguePendiente, {nombrePeriodo(link), r.error().texto}));
      continue;
    }
    if (const auto hecho = libro.saldar(orden, link); !hecho) h.decir(hecho.error().texto);
    if (*r) h.decir(t_.textos(kTxPendienteHecho, {nombrePeriodo(link)}), false);
  }
  if (const auto hecho = libro.anotar(orden, debidos); !hecho) h.decir(hecho.error().texto);
  for (const qint64 link : debidos) h.decir(t_.textos(kTxQuedaPendiente, {nombrePeriodo(link)}));
  if (const auto hecho = borrarEntregados(h); !hecho) h.decir(hecho.error().texto);
}

Resultado<bool> Ejecutor::operacion(const PasoPeriodos& p) {
  const auto tipo = static_cast<int>(p.tipo);
  const auto* desde = std::get_if<Fecha>(&p.desde);
  const auto* hasta = std::get_if<Fecha>(&p.hasta);
  switch (*p.verbo) {
    case VerboPeriodos::Borrar:
      return desde && hasta ? t_.verTot.BorrarIntvalo(tipo, *desde, *hasta) : false;
    case VerboPeriodos::Limpiar:
      return t_.verTot.ClrSelec();
    case VerboPeriodos::Seleccionar:
      return desde && hasta ? t_.verTot.Seleccionar(tipo, *desde, *hasta) : false;
    case VerboPeriodos::Acumular:
      return t_.verTot.AcumularIntv(tipo, 1);
    case VerboPeriodos::Desacumular:
      return t_.verTot.AcumularIntv(tipo, -1);
    case VerboPeriodos::Stock:
      return t_.verTot.StockIntv();
    case VerboPeriodos::Sumar:
    case VerboPeriodos::Crear:
    case VerboPeriodos::SelUltimo:
      break;  // on their own
  }
  std::unreachable();
}

Hecho Ejecutor::selUltimo(const Ejecucion& e) {
  Hecho h;
  for (const qint64 link : e.ultimos) {
    const auto r = t_.verTot.SelecHnd(link);
    if (!r)
      h.decir(r.error().texto);
    else if (!*r)
      h.error(kErrorSeleccionar);
  }
  return h;
}

}  // namespace tarvo::automation
