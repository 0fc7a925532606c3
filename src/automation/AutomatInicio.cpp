// How a run begins: afresh, where an earlier one was interrupted, or after completing the notes of
// an old one.
#include <algorithm>
#include <ranges>
#include <utility>

#include "automation/AutomatInterior.h"

namespace tarvo::automation {

namespace {

constexpr double kDiasParaSeguir = 0.5;  // 12 hours

bool memorizo(const std::vector<PasoProceso>& pasos, const Ejecucion& e) {
  const auto hasta = pasos.begin() + std::min<qint64>(e.paso, static_cast<qint64>(pasos.size()));
  return !e.ultimos.empty() && std::any_of(pasos.begin(), hasta, memoriza);
}

// Steps that only carry memorised sales on in the books: they call no machine and delete nothing.
bool esAnotacion(const PasoProceso& p) {
  if (std::holds_alternative<PasoExportar>(p)) return true;
  const auto* periodos = std::get_if<PasoPeriodos>(&p);
  if (!periodos || !periodos->verbo) return false;
  switch (*periodos->verbo) {
    case VerboPeriodos::Acumular:
    case VerboPeriodos::Stock:
    case VerboPeriodos::SelUltimo:
    case VerboPeriodos::Seleccionar:
    case VerboPeriodos::Limpiar:
      return true;
    case VerboPeriodos::Crear:
    case VerboPeriodos::Borrar:
    case VerboPeriodos::Sumar:
    case VerboPeriodos::Desacumular:
      return false;
  }
  std::unreachable();
}

// The first step after the last point where the queue was known to be empty.
qint64 trasUltimaEspera(const std::vector<PasoProceso>& pasos, qint64 hechos) {
  for (qint64 i = hechos; i > 0; --i)
    if (std::holds_alternative<PasoControl>(pasos[static_cast<size_t>(i - 1)])) return i;
  return 0;
}

}  // namespace

void Automat::Interior::cargar(std::vector<PasoProceso> lista, const QString& traza,
                               const QString& proceso) {
  if (vigila() || fase == kAbortando) return;
  decirFin();
  std::erase_if(lista, enBlanco);
  originales = std::move(lista);
  lineas.clear();
  for (const auto& p : originales) lineas += lenguaje.EscribirPaso(p);
  escrito.clear();
  nombre = proceso;
  diferida = !traza.isEmpty();
  fichero.empezar(t.ajustes, traza, nombre);
  fase = kCargado;
  indice = -1;
  pasosDesdeElPrincipio();
  cambio();
}

// Ends in the phase in which the run goes on, or in its final one if it has already ended.
void Automat::Interior::empezar() {
  vigilancia.borrarSiempre = diferida || yo.desatendido;
  pasos = originales;
  pasosDesdeElPrincipio();
  averiado = false;
  pendiente = true;
  indice = 0;
  conCabecera = -1;
  if (pasos.empty()) {
    decirOmitidas();
    terminar(resultado, kAcabado, kTxFinalizada);
    return;
  }
  if (auto r = prepararEjecucion(); !r) {
    averiado = true;
    escribir({t.textos(kTxSinDiario, {r.error().texto})});
    terminarMal();
    return;
  }
  decirOmitidas();
}

void Automat::Interior::decirOmitidas() {
  for (const QString& linea : omitidas) {
    problema();
    recordar({0, linea, PesoAviso::Grave});
    escribir({linea});
  }
}

Resultado<> Automat::Interior::prepararEjecucion() {
  const Fecha ahora = t.reloj.ahora();
  e = {};
  e.nombre = nombre.toUpper();
  e.lineas = lineas;
  e.inicio = e.latido = ahora;
  TARVO_INTENTAR(diario.asegurar());
  TARVO_TOMAR(auto vieja, diario.pendiente(e.nombre));
  if (vieja) {
    const bool reciente = std::abs(ahora - vieja->latido) < kDiasParaSeguir;
    if (reciente && vieja->lineas == lineas) return reanudar(std::move(*vieja));
    TARVO_INTENTAR(liquidar(std::move(*vieja)));
  }
  t.verTot.ponerSeleccion({});
  e.ultimos = ultimos;
  e.problemas = resultado != ResultadoProceso::Bien;
  TARVO_INTENTAR(diario.abrir(e, NombreFichero(fichero.ruta())));
  t.sesion.ponerEjecucion(e.numero, false);
  t.sesion.ponerEnProceso(true);
  ultimoLatido = t.reloj.monotono();
  return anotarNombre(0);
}

// That of the next memorisation.
Resultado<> Automat::Interior::anotarNombre(qint64 desde) {
  const auto faltan =
      pasos | std::views::drop(std::clamp<qint64>(desde, 0, static_cast<qint64>(pasos.size())));
  const auto suyo = std::ranges::find_if(faltan, memoriza);
  const auto* sesion = suyo == faltan.end() ? nullptr : std::get_if<PasoSesion>(&*suyo);
  return t.sesion.ponerNombre(sesion ? ExpandirNombre(sesion->descripcion, t.reloj.ahora(), t.db)
                                     : QString());
}

Resultado<std::vector<PasoProceso>> Automat::Interior::pasosDe(const Ejecucion& de) const {
  std::vector<PasoProceso> lista;
  for (const auto& linea : de.lineas) {
    TARVO_TOMAR(auto p, lenguaje.LeerPaso(linea));
    lista.push_back(p.value_or(PasoProceso{}));
  }
  for (const auto& r : de.respuestas) rellenar(lista, r);
  return lista;
}

// --- going on -----------------------------------------------------------------------------------

Resultado<> Automat::Interior::reanudar(Ejecucion vieja) {
  e = std::move(vieja);
  for (const auto& r : e.respuestas) rellenar(pasos, r);
  TARVO_TOMAR(const auto tareas, diario.tareasPorHacer(e.numero, trasUltimaEspera(pasos, e.paso)));
  t.sesion.ponerEjecucion(e.numero, true);
  t.sesion.ponerEnProceso(true);
  TARVO_INTENTAR(anotarNombre(e.paso));
  t.verTot.ponerSeleccion(e.seleccion);
  ultimos = e.ultimos;
  if (e.problemas) resultado = ResultadoProceso::Problemas;
  for (const int g : e.fallidos) t.motor.anadirGrupoFallido(g);
  escribir({t.textos(kTxSeReanuda, {e.latido.general(), e.paso + 1})});
  recordar({0, t.textos(kTxSeReanuda, {e.latido.general(), e.paso + 1}), PesoAviso::Nota});
  encolarDeNuevo(tareas);
  for (size_t i = 0; i < std::min(vistas.size(), static_cast<size_t>(e.paso)); ++i)
    if (vistas[i].estado == EstadoPaso::Pendiente) vistas[i].estado = EstadoPaso::Hecho;
  indice = e.paso;
  return {};
}

void Automat::Interior::encolarDeNuevo(const std::vector<Diario::Tarea>& tareas) {
  if (tareas.empty()) return;
  abrirMotor();
  for (const auto& tarea : tareas) {
    if (tarea.paso >= static_cast<qint64>(pasos.size())) continue;
    const auto pedida = ejecutor.repetir(pasos[static_cast<size_t>(tarea.paso)], tarea);
    if (pedida == motor::Pedida::EnCola) continue;
    Hecho h;
    h.error(static_cast<int>(pedida));
    h.decir(t.textos(kTxRechazadoAlReanudar, {tarea.grupo}));
    indice = tarea.paso;
    informar(h);
  }
}

// --- an old run ---------------------------------------------------------------------------------

// Its tasks would send or read at the wrong time. But what it memorised belongs in the week, the
// stock and the export exactly once, and nothing else will put it there.
Resultado<> Automat::Interior::liquidar(Ejecucion vieja) {
  auto antiguos = pasosDe(vieja);
  const bool completar = antiguos && memorizo(*antiguos, vieja);
  escribir({t.textos(kTxNoSeReanuda, {vieja.latido.general()})});
  if (!antiguos) escribir({t.textos(kTxPasosViejos, {antiguos.error().texto})});
  if (!antiguos || vieja.problemas) problema();
  const qint64 numero = vieja.numero;
  if (completar) {
    escribir({t.textos(kTxHabiaMemorizado)});
    const Ejecucion nueva = std::exchange(e, std::move(vieja));
    const auto nuevos = std::exchange(pasos, std::move(*antiguos));
    const auto susUltimos = ultimos;
    deOtra = true;
    const auto completas = completarAnotaciones();
    deOtra = false;
    TARVO_INTENTAR(completas);
    e = nueva;
    pasos = nuevos;
    ultimos = susUltimos;
    indice = 0;
    conCabecera = -1;
    escribir({t.textos(kTxAnotacionesHechas)});
  }
  return diario.cerrar(numero, FinEjecucion::Interrumpida, t.reloj.ahora());
}

// REQUIRES that the old run and its steps are in place of the new ones.
Resultado<> Automat::Interior::completarAnotaciones() {
  t.sesion.ponerEjecucion(e.numero, true);
  t.sesion.ponerEnProceso(true);
  t.verTot.ponerSeleccion(e.seleccion);
  for (indice = e.paso; indice < static_cast<qint64>(pasos.size()); ++indice) {
    const PasoProceso p = pasos[static_cast<size_t>(indice)];
    if (memoriza(p)) break;  // what follows belongs to that one
    if (!esAnotacion(p)) continue;
    e.paso = indice;
    TARVO_INTENTAR(llevarACabo(p));
  }
  return {};
}

}  // namespace tarvo::automation
