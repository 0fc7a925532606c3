#include "automation/Automat.h"

#include "automation/AutomatInterior.h"
#include "automation/Relacion.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTic = 500;
constexpr qint64 kPacienciaAborto = 5 * 60 * 1000;
const QString kSangria = QStringLiteral("    ");

}  // namespace

Automat::Interior::Interior(Automat& automat, const Taller& taller, Preguntas& quienResponde)
    : yo(automat),
      t(taller),
      preguntas(quienResponde),
      lenguaje(t.repertorio, t.ajustes, t.textos),
      diario(t.db, t.textos),
      ejecutor(t, diario),
      fichero(t.textos),
      reloj(t.reloj.temporizador([this] { vencer(); })),
      pronto(t.reloj.temporizador([this] {
        if (reloj->activo()) vencer();
      })) {
  vigilancia.vigilante = &automat;
}

// --- the tick -----------------------------------------------------------------------------------

void Automat::Interior::vencer() {
  if (enTic) return;  // a question is on the screen
  if (fase == kAcabado || fase == kAbortado) return anunciarFin();
  enTic = true;
  const bool fin = tic();
  enTic = false;
  cambio();
  if (fin) anunciarFin();
}

bool Automat::Interior::tic() {
  switch (fase) {
    case kEjecutando:
    case kPasoAPaso:
      return avanzar();
    case kAbortando:
      return vaciar();
    case kAcabando:
      return acabar();
    default:
      return false;
  }
}

bool Automat::Interior::avanzar() {
  const auto total = static_cast<qint64>(pasos.size());
  if (indice < 0 || indice >= total) {
    fase = kAcabando;
    mirarPronto();
    return false;
  }
  if (!pendiente) {
    ++indice;
    pendiente = true;
    if (indice >= total) {
      mirarPronto();
      return false;
    }
    if (fase == kPasoAPaso) {
      quedarEnPaso();
      return false;
    }
  }
  if (vistas[static_cast<size_t>(indice)].estado == EstadoPaso::Pendiente) {
    marcar(EstadoPaso::EnCurso);
    cambio();
  }
  const auto hecho = hacerPaso();
  if (!hecho)
    fallar(hecho.error());
  else if (*hecho) {
    pendiente = false;
    pasoHecho();
    mirarPronto();
  }
  return false;
}

// The tick only sets the pace of checking a wait. After a finished step or an emptied queue there
// is nothing to wait for.
void Automat::Interior::mirarPronto() {
  if (!pronto->activo()) pronto->unaVez(0);
}

void Automat::Interior::colaCambiada() {
  if (reloj->activo() && t.motor.CuantosQuedan().total == 0) mirarPronto();
}

void Automat::Interior::quedarEnPaso() {
  fase = kDetenidoEnPaso;
  reloj->parar();
  t.motor.FijarModo(false);
  escribirMomento(kTxRetenida);
}

void Automat::Interior::empezarAborto() {
  fase = kAbortando;
  indice = -1;
  interrumpirVistas();
  inicioAborto = t.reloj.monotono();
  if (motorAbierto) t.motor.terminator();
  if (!reloj->activo()) reloj->cada(kTic);
}

bool Automat::Interior::vaciar() {
  if (motorAbierto && t.motor.CuantosQuedan().total > 0) {
    t.motor.terminator();
    if (t.reloj.monotono() - inicioAborto < kPacienciaAborto) return false;
    escribir({t.textos(kTxTareasTercas)});
  }
  return terminarMal();
}

bool Automat::Interior::terminarMal() {
  terminar(averiado ? ResultadoProceso::Problemas : ResultadoProceso::Abortado, kAbortado,
           kTxInterrumpida);
  return true;
}

bool Automat::Interior::acabar() {
  if (motorAbierto && t.motor.CuantosQuedan().total > 0) {
    if (vigilancia.borrarSiempre)
      t.motor.VigilaProcesos(vigilancia.reintentos, true, vigilancia.vigilante);
    return false;
  }
  asentarVistas();
  terminar(resultado, kAcabado, kTxFinalizada);
  return true;
}

// The row of the run is deleted last: until then, restarting the same process finds nothing left to
// do.
void Automat::Interior::terminar(ResultadoProceso con, int faseFinal, int linea) {
  soltarMotor();
  reloj->parar();
  indice = -1;
  interrumpirVistas();
  resultado = con;
  contarLoHecho();
  escribirMomento(linea);
  fase = faseFinal;
  if (averiado || pasos.empty()) return;
  if (con == ResultadoProceso::Abortado && yo.conservarAlAbortar)
    return escribir({u"    "_s + t.textos(kTxEjecuteDeNuevo)});
  if (auto r = diario.cerrar(e.numero, static_cast<FinEjecucion>(con), t.reloj.ahora()); !r) {
    escribir({r.error().texto});
    resultado = std::max(resultado, ResultadoProceso::Problemas);
  }
}

// The results group by group, last before the end.
void Automat::Interior::contarLoHecho() {
  if (averiado || pasos.empty()) return;
  const auto relacion = relacionDe(t, e.numero);
  if (!relacion) return escribir({kSangria + relacion.error().texto});
  QStringList entrada;
  for (const QString& hecho : *relacion) entrada += kSangria + hecho;
  if (!entrada.isEmpty()) escribir(entrada);
}

// The last action of a tick: a listener may destroy the runner.
void Automat::Interior::anunciarFin() {
  reloj->parar();
  t.sesion.ponerEnProceso(false);
  const auto alCronos = diferida && !yo.avisarAlCerrar ? yo.alTerminarDiferida : nullptr;
  const auto aviso = yo.alTerminar;
  const auto con = resultado;
  finSinDecir = diferida && yo.avisarAlCerrar;
  if (alCronos) alCronos(con);
  if (aviso) aviso(con);
}

void Automat::Interior::decirFin() {
  if (std::exchange(finSinDecir, false) && yo.alTerminarDiferida) yo.alTerminarDiferida(resultado);
}

// --- the buttons --------------------------------------------------------------------------------

Automat::Automat(Taller taller, Preguntas& preguntas)
    : d(std::make_unique<Interior>(*this, taller, preguntas)) {}

Automat::~Automat() {
  d->soltarMotor();
}

void Automat::PROCESO(std::vector<PasoProceso> pasos, const QString& traza, const QString& nombre,
                      const QStringList& omitidas) {
  if (!enMarcha()) d->omitidas = omitidas;
  d->cargar(std::move(pasos), traza, nombre);
  ejecutar();
}

void Automat::ejecutar() {
  const bool nueva = d->fase == kCargado || d->fase == kAbortado;
  if (!nueva && d->fase != kPasoAPaso && d->fase != kDetenidoEnPaso) return;
  d->fase = kEjecutando;
  d->finSinDecir = false;
  d->resultado = ResultadoProceso::Bien;
  QStringList linea{d->t.textos(kTxIniciada, {d->t.reloj.ahora().general()})};
  if (!nueva) linea += kSangria + d->t.textos(kTxSigueEnPaso, {d->indice + 1});
  d->escribir(linea);
  if (nueva) d->empezar();
  if (d->motorAbierto) d->t.motor.FijarModo(true);
  if (d->fase == kAcabado || d->fase == kAbortado) {
    d->cambio();
    return d->reloj->unaVez(0);
  }
  d->reloj->cada(kTic);
  d->vencer();
}

void Automat::retener() {
  if (d->fase != kEjecutando) return;
  d->fase = kPasoAPaso;
  d->t.motor.FijarModo(false);
  d->cambio();
}

void Automat::paso() {
  if (d->reloj->activo() || d->fase == kAcabado) return;
  const bool nueva = d->indice < 0;
  d->fase = kPasoAPaso;
  d->finSinDecir = false;
  d->resultado = ResultadoProceso::Bien;
  if (nueva) d->empezar();
  d->cambio();
  if (d->fase == kAcabado || d->fase == kAbortado) return d->reloj->unaVez(0);
  d->reloj->cada(kTic);
}

void Automat::abortar() {
  const int f = d->fase;
  if (f == kCargado || f == kAbortando || f == kAbortado || f == kAcabado) return;
  d->empezarAborto();
  d->cambio();
}

void Automat::cerrado() {
  d->decirFin();
}

void Automat::confirmando(bool pregunta) {
  if (pregunta && d->fase == kEjecutando) d->fase = kConfirmando;
  if (!pregunta && d->fase == kConfirmando) d->fase = kEjecutando;
  d->cambio();
}

int Automat::fase() const {
  return d->fase;
}
ResultadoProceso Automat::resultado() const {
  return d->resultado;
}
std::optional<qint64> Automat::ejecucion() const {
  const bool viva = d->vigila() || d->fase == kAbortando;
  return viva && d->e.numero > 0 ? std::optional(d->e.numero) : std::nullopt;
}
int Automat::pasoActual() const {
  return static_cast<int>(d->indice);
}

// --- reports of the engine ----------------------------------------------------------------------

void Automat::InformeProblema(TipoTarea clase, int grupo, int error, int estado, qint64 codigo) {
  if (!d->vigila()) return;
  d->problema();
  d->recordarFallo(clase, grupo, error);
  d->informarTarea(clase, grupo, error, estado, codigo, kTxSeAbandona);
  d->cambio();
}

void Automat::InformeRetry(TipoTarea clase, int grupo, int error, int estado, qint64 codigo) {
  if (d->vigila()) d->informarTarea(clase, grupo, error, estado, codigo, kTxSeReintenta);
}

void Automat::InformeAviso(const totals::Aviso& aviso) {
  if (!d->vigila()) return;
  if (aviso.grave) {
    d->problema();
    d->marcar(EstadoPaso::ConProblemas, aviso.texto);
  }
  d->recordar({aviso.grupo, aviso.texto, pesoDe(aviso.grave)});
  d->cabeceraUnaVez();
  d->escribir({u"    "_s + aviso.texto});
}

Resultado<> Automat::TareaHecha(const motor::DatosTarea& tarea) {
  const bool cuenta = d->vigila() || d->fase == kAbortando;
  if (tarea.paso < 0 || !cuenta) return {};
  TARVO_INTENTAR(d->diario.tareaHecha(d->e.numero, tarea.paso, tarea.Grupo, d->t.reloj.ahora()));
  return d->asentarVista(tarea.paso);
}

}  // namespace tarvo::automation
