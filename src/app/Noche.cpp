#include "app/Noche.h"

#include <algorithm>
#include <random>
#include <ranges>

#include "app/Consola.h"
#include "app/Ordenes.h"
#include "app/TextosApp.h"
#include "automation/Ejecutor.h"
#include "comm/cables/FabricaReal.h"
#include "comm/tareas/Repertorio.h"

namespace tarvo::app {

namespace {

constexpr int kOtraVezMs = 1000;

}  // namespace

Noche::Noche(const Puesto& puesto, Encargo encargo, std::unique_ptr<Fondo> fondo,
             std::function<void(int)> alAcabar)
    : puesto_(puesto),
      encargo_(std::move(encargo)),
      alAcabar_(std::move(alAcabar)),
      datos_(puesto.datos, puesto.textos),
      fondo_(std::move(fondo)),
      turno_(puesto.reloj.temporizador([this] { luego_ == Luego::Probar ? probar() : acabar(); })) {
  despues(Luego::Probar);
}

Noche::~Noche() = default;

void Noche::despues(Luego que, int ms) {
  luego_ = que;
  turno_->unaVez(ms);
}

void Noche::probar() {
  entrega_.reset();
  if (parada_) {
    estado_ = kAbortado;
    return acabar();
  }
  if (fondo_) return correrAqui();
  auto fondo = Fondo::abrir(puesto_.carpeta, puesto_.idioma, puesto_.textos, puesto_.reloj);
  if (fondo) {
    fondo_ = std::move(*fondo);
    return correrAqui();
  }
  if (fondo.error().clase == Fallo::Ocupado) return entregar(fondo.error().texto);
  avisar(fondo.error().texto);
  estado_ = kSinBase;
  acabar();
}

// --- here ---------------------------------------------------------------------------------------

void Noche::correrAqui() {
  const Textos& t = puesto_.textos;
  fabrica_ = std::make_unique<enlace::FabricaReal>(puesto_.reloj, fondo_->ajustes);
  aplicacion_ = std::make_unique<Aplicacion>(*fondo_, puesto_.reloj, *fabrica_,
                                             std::random_device{}(), datos_);
  const auto avisos = aplicacion_->empezar();
  if (!avisos) {
    avisar(t(kTxSinArranque).arg(avisos.error().texto));
    estado_ = kSinBase;
    return despues(Luego::Acabar);
  }
  automation::Automat& automat = aplicacion_->automat();
  automat.desatendido = true;
  automat.alEscribir = decir;
  automat.alTerminar = [this](automation::ResultadoProceso r) {
    estado_ = std::max(guardarAjustes(*fondo_, static_cast<int>(r)), parada_ ? int{kAbortado} : 0);
    despues(Luego::Acabar);
  };
  automat.PROCESO(encargo_.pasos, encargo_.traza, encargo_.nombre,
                  dudasDe(fondo_->ajustes, t) + *avisos + encargo_.omitidas);
}

// --- elsewhere ----------------------------------------------------------------------------------

// `motivo`: why it can't run here, in case it can't run there either.
void Noche::entregar(const QString& motivo) {
  const auto ajustes =
      Fondo::leerAjustes(puesto_.carpeta, puesto_.idioma, puesto_.textos, puesto_.reloj);
  if (!ajustes) return despues(Luego::Probar, kOtraVezMs);
  const motor::RepertorioTareas repertorio = tareas::repertorio();
  const automation::Lenguaje lenguaje(repertorio, *ajustes, puesto_.textos);
  Peticion p{.que = Peticion::Que::Proceso,
             .ventana = {},
             .nombre = encargo_.nombre,
             .traza = encargo_.traza,
             .pasos = {},
             .omitidas = encargo_.omitidas,
             .datos = puesto_.datos};
  for (const auto& paso : encargo_.pasos) p.pasos += lenguaje.EscribirPaso(paso);
  entrega_ =
      std::make_unique<Entrega>(ajustes->BaseDatos, p,
                                Entrega::Oyente{.decir = decir,
                                                .avisar = avisar,
                                                .alAcabar =
                                                    [this](int estado) {
                                                      estado_ = estado;
                                                      despues(Luego::Acabar);
                                                    },
                                                .alCortarse = [this, motivo] { esperar(motivo); }},
                                puesto_.reloj);
}

// No program takes it: another one without a screen has the database, or a window that has gone.
// What was begun there is resumed here.
void Noche::esperar(const QString& motivo) {
  const qint64 ahora = puesto_.reloj.monotono();
  if (esperaDesde_ < 0) {
    esperaDesde_ = ahora;
    if (puesto_.paciencia > 0) avisar(puesto_.textos(kTxSeEspera).arg(encargo_.nombre));
  }
  if (ahora - esperaDesde_ < puesto_.paciencia) return despues(Luego::Probar, kOtraVezMs);
  avisar(motivo);
  estado_ = kSinBase;
  despues(Luego::Acabar);
}

// --- the end ------------------------------------------------------------------------------------

void Noche::parar() {
  parada_ = true;
  if (aplicacion_) {
    aplicacion_->automat().conservarAlAbortar = true;
    return aplicacion_->automat().abortar();
  }
  entrega_ ? entrega_->parar() : despues(Luego::Probar);
}

void Noche::acabar() {
  turno_->parar();
  entrega_.reset();
  aplicacion_.reset();
  fabrica_.reset();
  fondo_.reset();
  const auto alAcabar = alAcabar_;
  alAcabar(estado_);
}

int guardarAjustes(Fondo& fondo, int estado) {
  const size_t antes = fondo.ajustes.pisadas.size();
  const auto guardado = fondo.ajustes.GuardarConfig();
  for (const auto& p : fondo.ajustes.pisadas | std::views::drop(antes))
    avisar(automation::decirPisada(p, fondo.textos));
  if (guardado) return estado;
  avisar(fondo.textos(kTxAjustesNoGuardados).arg(guardado.error().texto));
  return std::max<int>(estado, kProblemas);
}

}  // namespace tarvo::app
