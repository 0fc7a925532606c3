#include "comm/enlace/Escucha.h"

#include <cstdlib>

#include "comm/enlace/LecturaTrama.h"
#include "comm/tramas/Trama.h"

namespace tarvo::enlace {

namespace {

constexpr qsizetype kRestoMax = 1024;  // of bytes that don't end in a frame
constexpr int kDesvio = 1500;          // ms by which the clocks may differ before one is reset
constexpr qint64 kMsDia = 24LL * 3600 * 1000;

// Length of the first piece of `b`: an acknowledgement, a frame, or the bytes before one. 0 while
// it isn't complete.
qsizetype primera(const QByteArray& b, bool nodal) {
  if (b.front() == tramas::kACK || b.front() == tramas::kNAK) return 1;
  const qsizetype otra = b.indexOf(tramas::kSTX, 1);
  const qsizetype fin =
      b.front() == tramas::kSTX ? b.indexOf(nodal ? tramas::kCR : tramas::kETX) : -1;
  if (fin >= 0 && (otra < 0 || fin < otra)) return fin + 1;
  if (otra >= 0) return otra;
  return b.size() >= kRestoMax ? b.size() : 0;
}

}  // namespace

Escucha::Escucha(Enlaces& enlaces, Reloj& reloj, size_t porCanal)
    : enlaces_(enlaces), reloj_(reloj), porCanal_(porCanal) {
  enlaces_.escuchar([this](int canal, Sentido sentido, bool nodal, const QByteArray& bytes) {
    pasar(canal, sentido, nodal, bytes);
  });
}

Escucha::~Escucha() {
  enlaces_.escuchar(nullptr);
}

// The wall clock gives whole seconds; the fraction comes from the other clock.
int Escucha::hora() {
  const qint64 pared = reloj_.ahora().qtime().msecsSinceStartOfDay();
  const qint64 mono = reloj_.monotono();
  if (std::llabs(base_ + mono - pared) > kDesvio) base_ = pared - mono;
  return static_cast<int>(((base_ + mono) % kMsDia + kMsDia) % kMsDia);
}

void Escucha::pasar(int canal, Sentido sentido, bool nodal, const QByteArray& bytes) {
  Hilo& h = hilos_[canal];
  if (h.sentido != sentido && !h.resto.isEmpty()) anotar(canal, h, std::exchange(h.resto, {}));
  h.sentido = sentido;
  h.nodal = nodal;
  h.resto += bytes;
  partir(canal, h);
}

void Escucha::partir(int canal, Hilo& h) {
  while (!h.resto.isEmpty()) {
    const qsizetype n = primera(h.resto, h.nodal);
    if (n == 0) return;
    anotar(canal, h, h.resto.left(n));
    h.resto.remove(0, n);
  }
}

void Escucha::anotar(int canal, Hilo& h, const QByteArray& bytes) {
  if (h.sentido == Sentido::Sale && bytes.front() == tramas::kSTX)
    h.ancha = !h.nodal && llevaCodigoAncho(bytes);
  h.pasos.push_back({++ultimo_, hora(), canal, h.sentido, h.nodal, h.ancha, bytes});
  if (h.pasos.size() > porCanal_) h.pasos.pop_front();
}

void Escucha::recorrer(qint64 desde, int canal,
                       const std::function<void(const Paso&)>& cada) const {
  // The lists of the channels are merged by number.
  std::vector<std::pair<const std::deque<Paso>*, size_t>> listas;
  for (const auto& [c, h] : hilos_) {
    if (canal >= 0 && c != canal) continue;
    size_t i = h.pasos.size();
    while (i > 0 && h.pasos[i - 1].numero > desde) --i;
    if (i < h.pasos.size()) listas.emplace_back(&h.pasos, i);
  }
  while (!listas.empty()) {
    size_t menor = 0;
    for (size_t l = 1; l < listas.size(); ++l)
      if ((*listas[l].first)[listas[l].second].numero <
          (*listas[menor].first)[listas[menor].second].numero)
        menor = l;
    auto& [pasos, i] = listas[menor];
    cada((*pasos)[i]);
    if (++i == pasos->size()) listas.erase(listas.begin() + static_cast<std::ptrdiff_t>(menor));
  }
}

void Escucha::olvidar() {
  hilos_.clear();
}

}  // namespace tarvo::enlace
