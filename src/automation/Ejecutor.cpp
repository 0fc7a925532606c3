#include "automation/Ejecutor.h"

#include "automation/TextosAutomation.h"
#include "comm/motor/TextosMotor.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMayorGrupo = 32767, kMayorReintento = 32767;
// Where nobody is there: a machine that doesn't answer must not cost the night.
constexpr int kReintentosSinNadie = 100;
constexpr int kUltimoMensaje = 14;
constexpr int kErrorCrear = 7;

void contar(const std::vector<totals::Aviso>& avisos, Hecho& h) {
  for (const auto& a : avisos) h.decir(a.texto, a.grave, a.grupo);
}

// The code with which a verb of P answers that it did not do what it promises.
int codigoPeriodos(int verbo) {
  constexpr std::array codigos{0, 7, 8, 9, 10, 10, 11, 12, 13, 11};
  return verbo >= 0 && verbo < static_cast<int>(codigos.size())
             ? codigos[static_cast<size_t>(verbo)]
             : 0;
}

// A field of retries that is no number counts as none.
int reintentosDe(const PasoProceso& p) {
  return static_cast<int>(std::clamp<qint64>(p.numero(2), 0, kMayorReintento));
}

// What a task step asks of the engine; nothing while a reference in it has no value.
struct Orden {
  TipoTarea clase = TipoTarea::TxHora;
  bool todo = true;
  qint64 desde = 0, hasta = 0;
};

std::optional<Orden> ordenDe(const PasoProceso& p) {
  const auto esNumero = [&p](size_t i) { return std::holds_alternative<qint64>(p.c[i]); };
  const auto tarea = deNumero<TipoTarea>(p.verbo());
  if (!tarea) return std::nullopt;
  if (std::holds_alternative<std::monostate>(p.c[3])) return Orden{*tarea, true, 0, 0};
  if (std::holds_alternative<std::monostate>(p.c[4])) return Orden{*tarea, p.logico(3), 0, 0};
  if (!esNumero(4) || !esNumero(5)) return std::nullopt;
  return Orden{*tarea, p.logico(3), p.numero(4), p.numero(5)};
}

// The groups that a task step names; nothing for a reference without a value or a number that is no
// group's.
Resultado<std::optional<std::vector<int>>> gruposDe(const PasoProceso& p, dao::Database& db) {
  std::vector<int> grupos;
  if (const auto* n = std::get_if<qint64>(&p.c[2])) {
    if (*n < 0 || *n > kMayorGrupo) return std::nullopt;
    return std::vector{static_cast<int>(*n)};
  }
  if (p.texto(2) != u"ALL") return std::nullopt;
  TARVO_TOMAR(auto rs, db.consultar(u"SELECT CODGPO FROM GRUPOS ORDER BY CODGPO"));
  while (!rs->Eof()) {
    grupos.push_back(static_cast<int>(rs->entero(0)));
    TARVO_INTENTAR(rs->MoveNext());
  }
  return grupos;
}

}  // namespace

Hecho deFallo(const Error& error, int codigo) {
  Hecho h;
  h.error(codigo);
  h.decir(error.texto);
  return h;
}

QString mensajePaso(int codigo, const Textos& textos) {
  return codigo > 0 && codigo <= kUltimoMensaje ? textos(kTxMensajePaso + codigo) : QString();
}

Resultado<Hecho> Ejecutor::hacer(const PasoProceso& p, Ejecucion& e, Vigilancia& vigilancia) {
  switch (p.clase()) {
    case kTarea:
      return tarea(p, e);
    case kSesion:
      return sesion(p, e);
    case kControl: {
      Hecho h = control(p);
      h.completo = colaVacia(p, vigilancia);
      return h;
    }
    case kPeriodos:
      return periodos(p, e);
    case kExportar:
      return exportar(p, e);
    default:
      return Hecho{};
  }
}

// --- tasks --------------------------------------------------------------------------------------

Resultado<Hecho> Ejecutor::tarea(const PasoProceso& p, Ejecucion& e) {
  Hecho h;
  const auto orden = ordenDe(p);
  const auto grupos = gruposDe(p, t_.db);
  if (!grupos) return deFallo(grupos.error());
  if (!orden || !*grupos) {
    h.error(2);
    return h;
  }
  QStringList rechazados, motivos;
  for (const int g : **grupos) {
    const int codigo =
        t_.motor.NuevaTarea(g, orden->todo, orden->desde, orden->hasta, orden->clase, e.paso);
    if (codigo == 0) {
      TARVO_INTENTAR(diario_.tareaEnCola(e.numero, e.paso, g, orden->clase));
      continue;
    }
    const QString motivo = motivoRechazo(codigo, g, orden->clase);
    h.problemas = true;
    if (!motivos.contains(motivo)) motivos += motivo;
    rechazados += Ceros(g, 4);
    TARVO_INTENTAR(diario_.tareaRechazada(e.numero, e.paso, g, orden->clase, motivo));
    // What the group holds now isn't read in this run, so it must not be told to forget it.
    if (codigo == 1) {
      e.fallidos.insert(g);
      t_.motor.anadirGrupoFallido(g);
    }
  }
  for (const QString& motivo : motivos) h.decir(motivo);
  if (!rechazados.isEmpty()) h.decir(t_.textos(kTxRechazados, {rechazados.join(u", ")}));
  return h;
}

// In words. The engine has one code for a group that isn't there and for a kind of task that it or
// the group doesn't know.
QString Ejecutor::motivoRechazo(int codigo, int grupo, TipoTarea clase) const {
  constexpr int kDestinoMalo = 2;
  const auto* c = t_.registro.de(clase);
  const auto numero = t_.db.uno(u"SELECT TIPO FROM GRUPOS WHERE CODGPO=?", grupo);
  const auto tipo = numero ? deNumero<TipoGrupo>(numero->entero()) : std::nullopt;
  const bool nadie = !c || !c->crear;
  const bool ajena = tipo && c && !c->valePara(*tipo);
  return codigo == kDestinoMalo && (nadie || ajena) ? t_.textos(motor::kTxSinQuienEnvie)
                                                    : mensajePaso(codigo, t_.textos);
}

int Ejecutor::repetir(const PasoProceso& p, const Diario::Tarea& tarea) {
  const auto orden = p.clase() == kTarea ? ordenDe(p) : std::nullopt;
  if (!orden) return 2;
  return t_.motor.NuevaTarea(tarea.grupo, orden->todo, orden->desde, orden->hasta, orden->clase,
                             tarea.paso);
}

// --- session ------------------------------------------------------------------------------------

Hecho Ejecutor::sesion(const PasoProceso& p, Ejecucion& e) {
  Hecho h;
  h.sesionMovida = true;
  const int estado = t_.sesion.estado();
  if (p.verbo() == kAbrir) {
    if (estado == 2)
      h.error(4);
    else if (auto r = t_.motor.LaSesion(1); !r)
      h.decir(r.error().texto);
  } else if (p.verbo() == kCerrar && estado == 0) {
    h.error(5);
  } else if (p.verbo() == kCerrar && estado == 2) {
    cerrar(p, e, h);
  } else {
    std::vector<totals::Aviso> avisos;
    const auto r = t_.cerrSes.LaSesion(p.verbo() == kCerrar, 0, avisos);
    contar(avisos, h);
    if (!r) h.decir(r.error().texto);
  }
  return h;
}

void Ejecutor::cerrar(const PasoProceso& p, Ejecucion& e, Hecho& h) {
  e.ultimos.clear();
  t_.cerrSes.Descrip = ExpandirNombre(p.texto(2), t_.reloj.ahora(), t_.db);
  t_.cerrSes.TodoAUno = p.logico(3);
  t_.cerrSes.OverWr = p.logico(4);
  std::vector<totals::Aviso> avisos;
  auto links = t_.cerrSes.LaSesion(true, 0, avisos);
  contar(avisos, h);
  if (!links) h.decir(links.error().texto);
  if (!links || links->empty() || t_.sesion.estado() != 0) return noMemorizado(e, h);
  e.ultimos = std::move(*links);
  h.periodos = e.ultimos;
  t_.ajustes.UltimosPeriodos.assign(e.ultimos.begin(), e.ultimos.end());
}

// Their sales are in no period: what these groups hold must stay in the machines.
void Ejecutor::noMemorizado(Ejecucion& e, Hecho& h) {
  h.error(6);
  for (const auto& r : t_.cerrSes.recibidos()) {
    e.fallidos.insert(r.CODGPO);
    t_.motor.anadirGrupoFallido(r.CODGPO);
  }
}

// --- control ------------------------------------------------------------------------------------

Hecho Ejecutor::control(const PasoProceso& p) {
  Hecho h;
  if (!std::holds_alternative<qint64>(p.c[2])) h.decir(t_.textos(kTxReintentosMalos, {p.texto(2)}));
  return h;
}

bool Ejecutor::colaVacia(const PasoProceso& espera, Vigilancia& vigilancia) {
  vigilancia.reintentos = reintentosDe(espera);
  if (vigilancia.borrarSiempre)
    vigilancia.reintentos = std::min(vigilancia.reintentos, kReintentosSinNadie);
  if (t_.motor.CuantosQuedan().total == 0) return true;
  t_.motor.VigilaProcesos(vigilancia.reintentos, espera.logico(3) || vigilancia.borrarSiempre,
                          vigilancia.vigilante);
  return false;
}

// --- periods ------------------------------------------------------------------------------------

Hecho Ejecutor::periodos(const PasoProceso& p, const Ejecucion& e) {
  Hecho h;
  if (p.verbo() == kSelUltimo) return selUltimo(e);
  if (p.verbo() == 0) {
    h.decir(t_.textos(kTxOrdenNoExiste));
    return h;
  }
  if (p.verbo() == kCrear) return crear(p);
  if (p.verbo() == kSumar) decirSolapes(h);
  const std::vector<qint64> elegidos = t_.verTot.LosSelec();
  const auto r = operacion(p);
  if (!r)
    h = deFallo(r.error());
  else if (!*r)
    h.error(codigoPeriodos(p.verbo()));
  if (p.verbo() == kAcumular || p.verbo() == kStock)
    pendientes(p, r ? std::vector<qint64>{} : elegidos, h);
  return h;
}

Hecho Ejecutor::crear(const PasoProceso& p) {
  Hecho h;
  const auto* i = std::get_if<Intervalo>(&p.c[2]);
  if (!i) {
    h.error(kErrorCrear);
    return h;
  }
  const totals::Periodo periodo{i->tipo, i->desde, i->hasta};
  const auto creado = t_.verTot.CrearIntvalo(periodo, p.texto(3));
  if (!creado) return deFallo(creado.error(), kErrorCrear);
  if (creado->existia) h.decir(t_.textos(kTxYaExistia, {nombrePeriodo(creado->link)}), false);
  return h;
}

// What its author asks for is done, and what it counts twice is named.
void Ejecutor::decirSolapes(Hecho& h) {
  const auto suma = t_.verTot.destinoDeSuma();
  if (!suma || !*suma || !(*suma)->existente) return;
  for (const auto& s : (*suma)->solapes)
    h.decir(t_.textos(
        s.yaDentro ? kTxSumaYaDentro : kTxSumaSolapa,
        {totals::TextoPeriodo(s.uno).simplified(), totals::TextoPeriodo(s.otro).simplified()}));
}

QString Ejecutor::nombrePeriodo(qint64 link) const {
  const auto c = t_.verTot.columna(link);
  return c && *c ? totals::TextoPeriodo((*c)->periodo) : QString::number(link);
}

// Does what earlier runs still owe of this verb, and notes what this one owes from now on.
void Ejecutor::pendientes(const PasoProceso& p, const std::vector<qint64>& debidos, Hecho& h) {
  const OrdenPeriodos orden{p.verbo(), p.verbo() == kAcumular ? p.numero(2) : 0};
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
}

Resultado<bool> Ejecutor::operacion(const PasoProceso& p) {
  const auto tipo = static_cast<int>(p.numero(2));
  const auto* desde = std::get_if<Fecha>(&p.c[3]);
  const auto* hasta = std::get_if<Fecha>(&p.c[4]);
  switch (p.verbo()) {
    case kBorrar:
      return desde && hasta ? t_.verTot.BorrarIntvalo(tipo, *desde, *hasta) : false;
    case kLimpiar:
      return t_.verTot.ClrSelec();
    case kSeleccionar:
      return desde && hasta ? t_.verTot.Seleccionar(tipo, *desde, *hasta) : false;
    case kAcumular:
      return t_.verTot.AcumularIntv(tipo, 1);
    case kDesacumular:
      return t_.verTot.AcumularIntv(tipo, -1);
    case kStock:
      return t_.verTot.StockIntv();
    default:
      return t_.verTot.SumarIntv();
  }
}

Hecho Ejecutor::selUltimo(const Ejecucion& e) {
  Hecho h;
  for (const qint64 link : e.ultimos) {
    const auto r = t_.verTot.SelecHnd(link);
    if (!r)
      h.decir(r.error().texto);
    else if (!*r)
      h.error(10);
  }
  return h;
}

}  // namespace tarvo::automation
