#include "app/ventanas/Encargos.h"

#include <QApplication>
#include <algorithm>

#include "app/Ordenes.h"
#include "app/ventanas/Puertas.h"
#include "app/ventanas/TextosPrincipal.h"
#include "automation/ventanas/Puertas.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMiradaMs = 500;
constexpr int kLatidoMs = 20'000;

Respuesta aviso(const QString& texto) {
  return {Respuesta::Que::Aviso, texto};
}

void traerDelante(QWidget& w) {
  w.isMinimized() ? w.showNormal() : w.show();
  w.raise();
  w.activateWindow();
}

}  // namespace

Encargos::Encargos(Fondo& fondo, Aplicacion& app, PreguntasApp& preguntas,
                   ventanas::Ventanas& ventanas, Reloj& reloj)
    : fondo_(fondo),
      app_(app),
      preguntas_(preguntas),
      ventanas_(ventanas),
      mirada_(reloj.temporizador([this] { mirar(); })),
      latido_(reloj.temporizador([this] {
        for (const Encargo& e : cola_) e.visita->decir({});
        if (actual_) actual_->visita->decir({});
      })),
      cesion_(app.automat(), reloj) {
  app_.cronos().alEsperar = [this](const automation::Entrada& e) {
    if (!actual_) esperar(e.proceso);
  };
}

Encargos::~Encargos() {
  app_.cronos().alEsperar = nullptr;
  dejar();
}

Resultado<> Encargos::escuchar() {
  latido_->cada(kLatidoMs);
  return portero_.abrir(
      fondo_.ajustes.BaseDatos,
      [this](const Peticion& p, const std::shared_ptr<Visita>& v) { atender(p, v); });
}

void Encargos::atender(const Peticion& p, const std::shared_ptr<Visita>& visita) {
  if (p.que == Peticion::Que::Alzar) {
    alzar(p.ventana);
    return visita->acabar(kBien);
  }
  if (loLlevaElHorario(p)) {
    visita->decir(aviso(fondo_.textos(kTxYaLoLleva, {app_.cronos().nombre(), p.nombre})));
    return visita->acabar(kBien);
  }
  visita->alParar = [this, quien = visita.get()] { parar(quien); };
  visita->decir({});
  cola_.push_back({p, visita, false});
  if (!mirada_->activo()) mirada_->unaVez(0);
}

// --- coming to the front ------------------------------------------------------------------------

void Encargos::alzar(const QString& ventana) {
  if (ventanas_.conoce(ventana)) {
    ventanas_.abrir(ventana);
    return;
  }
  const auto abiertas = ventanas_.abiertas();
  if (abiertas.empty()) return;
  ventanas::Ventana* principal = ventanas_.cargada<PuertaMainTarvo>();
  traerDelante(*(principal ? principal : abiertas.front()));
  // A modal dialog must stay in front of it.
  if (QWidget* modal = QApplication::activeModalWidget()) traerDelante(*modal);
}

// --- processes ----------------------------------------------------------------------------------

// True if the same timetable is active both here and in the other program: one of them is enough.
bool Encargos::loLlevaElHorario(const Peticion& p) const {
  return !p.traza.isEmpty() && app_.cronos().activo() &&
         p.traza.compare(app_.cronos().nombre() + u".CRO"_s, Qt::CaseInsensitive) == 0;
}

void Encargos::mirar() {
  if (actual_ || cola_.empty()) return;
  if (app_.automat().libre()) return empezar();
  Encargo& primero = cola_.front();
  if (!std::exchange(primero.avisado, true))
    primero.visita->decir(aviso(fondo_.textos(kTxEsperaTurno, {app_.automat().nombre()})));
  esperar(primero.peticion.nombre);
  mirada_->unaVez(kMiradaMs);
}

// A process of another program or of the timetable waits for the run of a person.
void Encargos::esperar(const QString& proceso) {
  const bool pregunta = ventanas_.cargada<automation::PuertaEnParMac>() != nullptr;
  if (cesion_.agotada(pregunta))
    ceder(pregunta, fondo_.textos(kTxCedeElTurno, {app_.automat().nombre(), proceso}));
}

// The run of a person who doesn't answer ends as unanswered, a held one is stopped. Its record
// stays open: run again, it continues.
void Encargos::ceder(bool pregunta, const QString& frase) {
  if (!cola_.empty()) cola_.front().visita->decir(aviso(frase));
  app_.automat().conservarAlAbortar = true;
  pregunta ? preguntas_.retirar() : app_.automat().abortar();
  if (auto* v = ventanas_.cargada<automation::PuertaAutomat>()) v->decirDuda(frase);
}

Resultado<std::vector<automation::PasoProceso>> Encargos::pasosDe(const Peticion& p) const {
  std::vector<automation::PasoProceso> pasos;
  for (const QString& linea : p.pasos) {
    TARVO_TOMAR(auto paso, app_.lenguaje().LeerPaso(linea));
    if (paso) pasos.push_back(std::move(*paso));
  }
  return pasos;
}

void Encargos::empezar() {
  actual_ = std::move(cola_.front());
  cola_.pop_front();
  auto pasos = pasosDe(actual_->peticion);
  if (pasos) return correr(std::move(*pasos));
  actual_->visita->decir(aviso(pasos.error().texto));
  actual_->visita->acabar(kSinProceso);
  actual_.reset();
  mirada_->unaVez(0);
}

void Encargos::correr(std::vector<automation::PasoProceso> pasos) {
  automation::Automat& automat = app_.automat();
  preguntas_.encargo(actual_->peticion.datos,
                     [v = actual_->visita](const QString& texto) { v->decir(aviso(texto)); });
  automat.desatendido = true;
  automat.observar(*this);
  const Peticion p = actual_->peticion;
  // The run is visible and can be stopped.
  ventanas_.abrir(automation::PuertaAutomat());
  automat.PROCESO(std::move(pasos), p.traza, p.nombre,
                  dudasDe(fondo_.ajustes, fondo_.textos) + p.omitidas);
}

void Encargos::lineaEscrita(const QString& linea) {
  if (actual_) actual_->visita->decir({Respuesta::Que::Linea, linea});
}

bool Encargos::terminado(automation::ResultadoProceso resultado) {
  if (!actual_) {
    app_.automat().conservarAlAbortar = false;
    return false;
  }
  const auto visita = actual_->visita;
  soltar();
  visita->acabar(static_cast<int>(resultado));
  mirada_->unaVez(kMiradaMs);
  return true;
}

void Encargos::soltar() {
  if (!actual_) return;
  actual_.reset();
  app_.automat().dejarDeObservar(*this);
  app_.automat().desatendido = false;
  app_.automat().conservarAlAbortar = false;
  preguntas_.sinEncargo();
}

void Encargos::parar(const Visita* quien) {
  if (actual_ && actual_->visita.get() == quien) {
    app_.automat().conservarAlAbortar = true;
    return app_.automat().abortar();
  }
  const auto suyo =
      std::ranges::find_if(cola_, [&](const Encargo& e) { return e.visita.get() == quien; });
  if (suyo == cola_.end()) return;
  const auto visita = suyo->visita;
  cola_.erase(suyo);
  visita->acabar(kAbortado);
}

void Encargos::dejar() {
  mirada_->parar();
  for (const Encargo& e : std::exchange(cola_, {})) e.visita->cortar();
  if (!actual_) return;
  actual_->visita->cortar();
  soltar();
}

}  // namespace tarvo::app
