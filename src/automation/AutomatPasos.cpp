// How the runner carries out its current step, and what it writes about it.
#include <algorithm>

#include "automation/AutomatInterior.h"
#include "comm/motor/AjustesMotor.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLatido = 60 * 1000;
constexpr qsizetype kLineasALaVista = 20'000;
const QString kMargen = QStringLiteral("    ");

// The steps that use the engine, as a window that must be open.
bool pideMotor(const PasoProceso& p) {
  return std::visit(
      SegunPaso{[](std::monostate) { return false; }, [](const PasoTarea&) { return true; },
                [](const PasoSesion& s) { return s.verbo == VerboSesion::Abrir; },
                [](const PasoControl&) { return true; }, [](const PasoPeriodos&) { return false; },
                [](const PasoExportar&) { return false; }, [](const PasoNoper&) { return false; }},
      p);
}

}  // namespace

// --- steps --------------------------------------------------------------------------------------

// True when the step is done and on record; false when it is to be tried again, or the run is being
// aborted.
Resultado<bool> Automat::Interior::hacerPaso() {
  const PasoProceso p = pasos[static_cast<size_t>(indice)];
  e.paso = indice;
  if (const auto parametro = parametroDe(p)) return preguntar(*parametro);
  if (pideMotor(p)) abrirMotor();
  const auto* espera = std::get_if<PasoControl>(&p);
  if (espera && !ejecutor.colaVacia(*espera, vigilancia)) {
    const qint64 ahora = t.reloj.monotono();
    // Only shows that the run is alive; what matters is whether a step can be recorded.
    if (ahora - ultimoLatido >= kLatido && diario.latir(e.numero, t.reloj.ahora()))
      ultimoLatido = ahora;
    return false;
  }
  return llevarACabo(p);
}

// An export keeps its own record, with the file: its mark identifies it when repeated. Everything
// else is done and recorded in one transaction.
Resultado<bool> Automat::Interior::llevarACabo(const PasoProceso& p) {
  std::optional<Hecho> hecho;
  if (std::holds_alternative<PasoExportar>(p)) {
    TARVO_TOMAR(auto h, ejecutor.hacer(p, e, vigilancia));
    hecho = std::move(h);
  }
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(t.db));
  if (!hecho) {
    TARVO_TOMAR(auto h, ejecutor.hacer(p, e, vigilancia));
    hecho = std::move(h);
  }
  if (hecho->sesionMovida) TARVO_INTENTAR(anotarNombre(indice + 1));
  const auto anotado = hecho->anotar ? hecho->anotar(*hecho) : Resultado<>();
  informar(*hecho);
  TARVO_INTENTAR(anotado);
  TARVO_INTENTAR(diario.historial().periodosHechos(e.numero, hecho->periodos));
  TARVO_INTENTAR(registrar());
  TARVO_INTENTAR(tr.confirmar());
  ultimos = e.ultimos;
  if (hecho->sesionMovida) sesionAlFichero();
  return true;
}

Resultado<bool> Automat::Interior::preguntar(const Parametro& parametro) {
  auto respuesta = respuestaA(parametro);
  if (fase == kAbortando) return false;  // meanwhile: no step is under way now
  if (!respuesta) {
    escribir({cabecera(),
              kMargen + t.textos(kTxFaltaParametro, {parametro.nombre, parametro.pregunta})});
    empezarAborto();
    return false;
  }
  rellenar(pasos, *respuesta);
  e.respuestas.push_back(std::move(*respuesta));
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(t.db));
  TARVO_INTENTAR(anotarNombre(indice + 1));
  TARVO_INTENTAR(registrar());
  TARVO_INTENTAR(tr.confirmar());
  return true;
}

std::optional<Respuesta> Automat::Interior::respuestaA(const Parametro& p) const {
  if (p.nombre[0] == u'%') {
    const auto n = preguntas.PromptNum(p.nombre, p.pregunta);
    const bool cabe = n && *n >= -32768 && *n <= 32767;
    return cabe ? std::optional(Respuesta{p.nombre, *n}) : std::nullopt;
  }
  if (p.nombre[0] == u'$') {
    const auto s = preguntas.PromptStr(p.nombre, p.pregunta);
    return s ? std::optional(Respuesta{p.nombre, *s}) : std::nullopt;
  }
  const auto f = preguntas.PromptFch(p.nombre, p.pregunta);
  return f ? std::optional(Respuesta{p.nombre, *f}) : std::nullopt;
}

Resultado<> Automat::Interior::registrar() {
  e.paso = indice + 1;
  e.seleccion = t.verTot.LosSelec();
  e.problemas = resultado != ResultadoProceso::Bien;
  // Completing an old run's notes must not refresh it: if interrupted now, it must not be resumed.
  if (!deOtra) e.latido = t.reloj.ahora();
  ultimoLatido = t.reloj.monotono();
  return diario.anotar(e);
}

void Automat::Interior::abrirMotor() {
  if (std::exchange(motorAbierto, true)) return;
  vigilancia.reintentos = t.ajustes.de<motor::AjustesMotor>().IntentosManual;
  t.motor.VigilaProcesos(vigilancia.reintentos, false, vigilancia.vigilante);
  t.motor.FijarModo(true);
  t.motor.observar(this);
}

void Automat::Interior::soltarMotor() {
  if (!std::exchange(motorAbierto, false)) return;
  t.motor.FijarModo(false);
  t.motor.dejarDeObservar(this);
  t.motor.VigilaProcesos(t.ajustes.de<motor::AjustesMotor>().IntentosManual, false, nullptr);
}

void Automat::Interior::sesionAlFichero() {
  const auto r = t.sesion.reflejar();
  Hecho h;
  for (; pisadasDichas < t.ajustes.pisadas.size(); ++pisadasDichas)
    h.decir(decirPisada(t.ajustes.pisadas[pisadasDichas], t.textos), false);
  if (!r) h.decir(t.textos(kTxConfiguracionSinGuardar, {r.error().texto}));
  if (!h.detalles.empty()) informar(h);
}

// The record of the run can't be kept, so nothing more may happen under it.
void Automat::Interior::fallar(const Error& error) {
  averiado = true;
  Hecho h;
  h.decir(t.textos(kTxAvanceSinAnotar, {error.texto}));
  if (auto r = t.sesion.cargar(); !r) h.decir(r.error().texto);
  informar(h);
  empezarAborto();
}

// --- trace --------------------------------------------------------------------------------------

void Automat::Interior::escribir(const QStringList& lineasNuevas) {
  const auto salida = [this](const QString& linea) {
    escrito += linea;
    if (escrito.size() > kLineasALaVista) escrito.remove(0, kLineasALaVista / 4);
    if (yo.alEscribir) yo.alEscribir(linea);
    for (auto* quien : observadores) quien->lineaEscrita(linea);
  };
  if (!fichero.escribir(lineasNuevas, salida))
    resultado = std::max(resultado, ResultadoProceso::Problemas);
}

void Automat::Interior::escribirMomento(int texto) {
  escribir({t.textos(texto, {t.reloj.ahora().general()})});
}

QString Automat::Interior::cabecera() const {
  const auto ultimo = static_cast<qint64>(pasos.size()) - 1;
  const qint64 n = std::clamp<qint64>(indice, 0, std::max<qint64>(ultimo, 0));
  const PasoProceso paso = ultimo < 0 ? PasoProceso() : pasos[static_cast<size_t>(n)];
  return Ceros(n + 1, 3) + u':' + palabraClase(paso);
}

void Automat::Interior::informar(const Hecho& hecho) {
  if (hecho.problemas) problema();
  QStringList entrada;
  const auto decir = [&](const AvisoHecho& aviso) {
    entrada += kMargen + aviso.texto;
    recordar(aviso);
  };
  const bool deBalde = std::ranges::find(hecho.detalles, PesoAviso::SinQueHacer,
                                         &AvisoHecho::peso) != hecho.detalles.end();
  if (hecho.codigo != 0)
    decir({0, mensajePaso(hecho.codigo, t.textos), pesoDe(hecho.problemas && !deBalde)});
  for (const auto& detalle : hecho.detalles) decir(detalle);
  if (hecho.problemas)
    marcar(EstadoPaso::ConProblemas, entrada.isEmpty() ? QString() : entrada.front().trimmed());
  if (entrada.isEmpty()) return;
  entrada.prepend(cabecera());
  conCabecera = indice;
  escribir(entrada);
}

// If it can't be written, neither can what counts: the record of the next step.
void Automat::Interior::recordar(const AvisoHecho& aviso) {
  if (e.numero > 0) static_cast<void>(diario.historial().aviso(e.numero, aviso));
}

void Automat::Interior::recordarFallo(TipoTarea clase, int grupo, int error) {
  const auto explicado = motor::textosError(error, t.textos);
  const QString palabras = QString(explicado.cabecera + u' ' + explicado.mensaje).simplified();
  const QString motivo = palabras.isEmpty() ? t.textos(kTxErrorSinTexto, {error}) : palabras;
  static_cast<void>(diario.historial().tareaFallida(e.numero, grupo, clase, motivo));
}

void Automat::Interior::cabeceraUnaVez() {
  if (std::exchange(conCabecera, indice) != indice) escribir({cabecera()});
}

void Automat::Interior::informarTarea(TipoTarea clase, int grupo, int error, int estado,
                                      qint64 codigo, int fin) {
  cabeceraUnaVez();
  const auto* c = t.repertorio.de(clase);
  const QString que = c ? t.textos(c->nombre) : QString();
  const QString tarea = u"   "_s + que + u":G"_s + Ceros(grupo, 4) + u"  "_s;
  QStringList informe{tarea + u'E' + Ceros(error, 2) + u"  C"_s + Ceros(codigo, 9) + u"  ["_s +
                      motor::TextoEstado(estado, t.textos) + u']'};
  const auto explicado = motor::textosError(error, t.textos);
  const QString explicacion = explicado.cabecera + explicado.mensaje;
  if (!explicacion.isEmpty()) informe += kMargen + explicacion;
  escribir(informe);
  escribir({tarea + u' ' + t.textos(fin)});
  if (fin == kTxSeAbandona)
    marcar(EstadoPaso::ConProblemas,
           t.textos(kTxMotivoTarea,
                    {que, Ceros(grupo, 4), explicacion.isEmpty() ? t.textos(fin) : explicacion}));
}

void Automat::Interior::problema() {
  if (resultado != ResultadoProceso::Bien) return;
  resultado = ResultadoProceso::Problemas;
  // Recorded at once: a report comes between two steps. If it fails, so does the record of the next
  // step.
  if (vigila()) static_cast<void>(diario.conProblemas(e.numero));
}

bool Automat::Interior::vigila() const {
  return fase == kEjecutando || fase == kPasoAPaso || fase == kDetenidoEnPaso ||
         fase == kConfirmando || fase == kAcabando;
}

}  // namespace tarvo::automation
