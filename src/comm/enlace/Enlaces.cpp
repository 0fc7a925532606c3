#include <algorithm>

#include "comm/enlace/Errores.h"
#include "comm/enlace/EstadoComtvIP.h"

namespace tarvo::enlace {

namespace {
constexpr size_t kCanalesAlEmpezar = 4;
constexpr int kCanalesMax = 4096;
}  // namespace

comtvIP* Enlaces::Datos::en(int canal) const {
  const auto i = static_cast<size_t>(canal);
  return canal >= 0 && i < canales.size() ? canales[i].get() : nullptr;
}

void Enlaces::Datos::retirar(comtvIP* enlace) {
  const auto hueco = std::ranges::find(canales, enlace, &std::unique_ptr<comtvIP>::get);
  if (hueco == canales.end()) return;
  muertos.push_back({reloj.monotono() + kMsDescarga, std::move(*hueco)});
  if (!entierro->activo()) entierro->unaVez(kMsDescarga);
}

// If another event loop runs inside an event of a link, the link waits until that event has
// returned.
void Enlaces::Datos::enterrar() {
  const auto queda = [this](const Muerto& m) {
    return m.cuando > reloj.monotono() || m.enlace->d->dentro > 0;
  };
  const auto fuera = std::ranges::stable_partition(muertos, queda);
  const std::vector<Muerto> ya(std::make_move_iterator(fuera.begin()),
                               std::make_move_iterator(fuera.end()));
  muertos.erase(fuera.begin(), fuera.end());
  if (!muertos.empty()) entierro->unaVez(kMsDescarga);
}

bool Enlaces::Datos::enUso(const QString& acceso, int canal) const {
  return std::ranges::any_of(canales, [&](const auto& enlace) {
    return enlace && enlace->d->conector && !enlace->d->acabado && enlace->d->canal != canal &&
           enlace->d->acceso.compare(acceso, Qt::CaseInsensitive) == 0;
  });
}

Enlaces::Enlaces(Reloj& reloj, const Ajustes& ajustes, FabricaEnlaces& fabrica, Azar& azar)
    : d(std::make_unique<Datos>(reloj, ajustes, fabrica, azar)) {
  d->canales.resize(kCanalesAlEmpezar);
  d->entierro = reloj.temporizador([this] { d->enterrar(); });
}

Enlaces::~Enlaces() {
  for (int canal = 0; canal < tamano(); ++canal) d->soltar(canal);
}

comtvIP* Enlaces::operator[](int canal) const {
  return d->en(canal);
}

int Enlaces::tamano() const {
  return static_cast<int>(d->canales.size());
}

void Enlaces::escuchar(AlPasar alPasar) {
  d->alPasar = std::move(alPasar);
}

void Enlaces::abandonar(int canal, const ClienteEnlace* motor, const ClienteLinea* linea) {
  comtvIP* const enlace = d->en(canal);
  if (!enlace) return;
  d->retirar(enlace);
  enlace->d->desalojar(motor, linea);
}

// Without an event, since no client is left.
void Enlaces::Datos::soltar(int canal) {
  comtvIP* const enlace = en(canal);
  if (!enlace) return;
  enlace->d->abandonar();
  retirar(enlace);
}

int Enlaces::AbrirEnlace(Para para, int canal, int baudios, const QString& acceso,
                         ClienteEnlace* cliente, ClienteLinea* linea) {
  if (canal < 0 || canal >= kCanalesMax || para == Para::Nada || para == Para::VekAmbos)
    return kErrorSinCanal;
  if (canal >= tamano()) d->canales.resize(static_cast<size_t>(canal) + 1);
  comtvIP* const actual = d->en(canal);
  const bool vivo = actual && !actual->d->acabado;
  if (vivo && actual->d->puedeUnirse(para, acceso)) {
    (para == Para::VekCaptura ? void(actual->d->clienteLinea = linea)
                              : void(actual->d->cliente = cliente));
    actual->d->unir(para);
    return 0;
  }
  if (actual) d->retirar(actual);
  if (vivo) actual->d->desalojar(cliente, linea);
  if (d->en(canal)) return kErrorEnUso;  // the evicted client has taken it again
  auto& hueco = d->canales[static_cast<size_t>(canal)];
  hueco = std::make_unique<comtvIP>(*this, canal);
  (para == Para::VekCaptura ? void(hueco->d->clienteLinea = linea)
                            : void(hueco->d->cliente = cliente));
  const int error = hueco->d->abrir(para, baudios, acceso);
  if (error != 0) d->soltar(canal);
  return error;
}

}  // namespace tarvo::enlace
