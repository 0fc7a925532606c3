#include <cmath>
#include <map>
#include <unordered_map>

#include "core/tiempo/Reloj.h"

namespace tarvo {

// Running timers by due time and start order. A timer is known by its number, so that one destroyed
// by its own handler is simply no longer here; it is found without a linear search, since a busy
// night has a timer or two for each link.
struct RelojVirtual::Agenda {
  struct Cita {
    std::shared_ptr<std::function<void()>> alVencer;
    int repetir = 0;  // ms, 0 for once
    qint64 dueno = 0;
  };
  qint64 ahora = 0;
  double pared = 0;
  qint64 orden = 0;
  qint64 ultimo = 0;
  using Clave = std::pair<qint64, qint64>;
  std::map<Clave, Cita> citas;
  std::unordered_map<qint64, Clave> donde;  // the running timers
};

class TemporizadorVirtual final : public Temporizador {
 public:
  TemporizadorVirtual(RelojVirtual::Agenda& agenda, std::function<void()> alVencer)
      : agenda_(agenda),
        alVencer_(std::make_shared<std::function<void()>>(std::move(alVencer))),
        numero_(++agenda.ultimo) {}
  ~TemporizadorVirtual() override { parar(); }
  void unaVez(int ms) override { citar(ms, 0); }
  void cada(int ms) override { citar(ms, std::max(ms, 1)); }
  void parar() override {
    const auto it = agenda_.donde.find(numero_);
    if (it == agenda_.donde.end()) return;
    agenda_.citas.erase(it->second);
    agenda_.donde.erase(it);
  }
  bool activo() const override { return agenda_.donde.contains(numero_); }
  int intervalo() const override { return intervalo_; }

 private:
  void citar(int ms, int repetir) {
    parar();
    intervalo_ = ms;
    const RelojVirtual::Agenda::Clave clave{agenda_.ahora + std::max(ms, 0), ++agenda_.orden};
    agenda_.citas[clave] = {alVencer_, repetir, numero_};
    agenda_.donde[numero_] = clave;
  }
  RelojVirtual::Agenda& agenda_;
  std::shared_ptr<std::function<void()>> alVencer_;
  qint64 numero_;
  int intervalo_ = 0;
};

RelojVirtual::RelojVirtual(Fecha inicio) : agenda_(std::make_unique<Agenda>()) {
  agenda_->pared = inicio.dias();
}

RelojVirtual::~RelojVirtual() = default;

Fecha RelojVirtual::ahora() const {
  const qint64 segundos = agenda_->ahora / 1000;
  const double dias = agenda_->pared + static_cast<double>(segundos) / 86400.0;
  const double entero = std::floor(dias);
  return Fecha::deDias(entero +
                       static_cast<double>(std::llround((dias - entero) * 86400.0)) / 86400.0);
}

qint64 RelojVirtual::monotono() const {
  return agenda_->ahora;
}

std::unique_ptr<Temporizador> RelojVirtual::temporizador(std::function<void()> alVencer) {
  return std::make_unique<TemporizadorVirtual>(*agenda_, std::move(alVencer));
}

bool RelojVirtual::siguiente() {
  if (agenda_->citas.empty()) return false;
  auto nodo = agenda_->citas.extract(agenda_->citas.begin());
  agenda_->ahora = std::max(agenda_->ahora, nodo.key().first);
  auto& cita = nodo.mapped();
  const auto alVencer = cita.alVencer;
  if (cita.repetir > 0) {
    nodo.key() = {agenda_->ahora + cita.repetir, ++agenda_->orden};
    agenda_->donde[cita.dueno] = nodo.key();
    agenda_->citas.insert(std::move(nodo));
  } else {
    agenda_->donde.erase(cita.dueno);
  }
  (*alVencer)();
  return true;
}

void RelojVirtual::avanzar(qint64 ms) {
  const qint64 fin = agenda_->ahora + ms;
  while (!agenda_->citas.empty() && agenda_->citas.begin()->first.first <= fin) siguiente();
  agenda_->ahora = fin;
}

void RelojVirtual::saltarPared(double dias) {
  agenda_->pared += dias;
}

}  // namespace tarvo
