// The cost of a night by its number of groups, and its memory. Groups of 2,000 articles: their
// totals and grand totals are read, memorised, the machines reset, the stock brought up to date.
#include "Noche.h"

#include <time.h>

#include <QProcess>

#include "MotorNoche.h"
#include "Razones.h"
#include "comm/cables/AjustesCables.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/tramas/Trama.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/periodos/AjustesPeriodos.h"

namespace tarvo::banco {
namespace {

constexpr int kArticulosNoche = 2000;

class Balanza final : public enlace::LinkSocket {
 public:
  explicit Balanza(Reloj& reloj) : timer_(reloj.temporizador([this] { vencer(); })) {}
  bool configurar(const enlace::ParametrosLinea&) override { return true; }
  void abrir(Oyente& oyente) override {
    oyente_ = &oyente;
    timer_->unaVez(1);
  }
  void cerrar() override {
    cierra_ = true;
    timer_->unaVez(1);
  }
  void enviar(const QByteArray& trama) override {
    if (trama.back() != tramas::kETX) return;
    turno_ = (turno_ + 1) % 100;
    entrada_ = tramas::kACK + tramas::construirVEK(turno_, ventas_.responder(trama));
    timer_->unaVez(1);
  }
  void vaciarRecepcion() override { entrada_.clear(); }
  int estado() const override { return abierta_ ? 5 : 1; }

 private:
  void vencer() {
    if (cierra_) {
      abierta_ = false;
      return oyente_->cierre(0);
    }
    if (!std::exchange(abierta_, true)) return oyente_->finApertura(0);
    oyente_->recepcion(entrada_);
  }

  std::unique_ptr<Temporizador> timer_;
  Ventas ventas_{kArticulosNoche};
  Oyente* oyente_ = nullptr;
  QByteArray entrada_;
  int turno_ = 0;
  bool abierta_ = false, cierra_ = false;
};

class FabricaBalanzas final : public enlace::FabricaEnlaces {
 public:
  explicit FabricaBalanzas(Reloj& reloj) : reloj_(reloj) {}
  std::unique_ptr<enlace::LinkSocket> crear(TipoAcceso) override {
    return std::make_unique<Balanza>(reloj_);
  }
  std::unique_ptr<enlace::LinkSocket> crearConector(const QString&, int& razon) override {
    razon = 0;
    return std::make_unique<Balanza>(reloj_);
  }

 private:
  Reloj& reloj_;
};

double segundosCpu() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

struct Coste {
  double cpu = 0, pico = 0;
};

Coste nocheAparte(int grupos) {
  QProcess hijo;
  hijo.start(QStringLiteral("/proc/self/exe"),
             {QStringLiteral("--noche"), QString::number(grupos)});
  if (!hijo.waitForFinished(120'000) || hijo.exitCode() != 0)
    morir(QString::fromLocal8Bit(hijo.readAllStandardError()));
  const QByteArrayList salida = hijo.readAllStandardOutput().trimmed().split(' ');
  return {salida.value(0).toDouble(), salida.value(1).toDouble()};
}

// Several short nights beside a long one, so that neither side is a matter of a moment.
double linealidad() {
  constexpr int kCortas = 3;
  return razonDeCifras([] { return nocheAparte(100).cpu / 100; },
                       [] {
                         double cpu = 0;
                         for (int i = 0; i < kCortas; ++i) cpu += nocheAparte(10).cpu;
                         return cpu / (10 * kCortas);
                       },
                       5);
}

const AltaMedida kMedidasNoche[] = {
    {"noche.coste_por_grupo", 0.9, linealidad},
};

}  // namespace

long picoKiB() {
  QFile f(QStringLiteral("/proc/self/status"));
  if (!f.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& linea : f.readAll().split('\n'))
    if (linea.startsWith("VmHWM:")) return linea.mid(6).trimmed().split(' ').first().toLong();
  return 0;
}

int noche(int grupos) {
  const QTemporaryDir carpeta;
  const auto db =
      hacerTienda(carpeta.filePath(QStringLiteral("TARVO.MDB")), grupos, kArticulosNoche);
  RelojVirtual reloj(Fecha::de(QDate(2026, 3, 4), QTime(22, 0)));
  FabricaBalanzas fabrica(reloj);
  Ajustes ajustes(carpeta.path(), Idioma::Espanol,
                  {enlace::ajustesCables(), enlace::ajustesEnlace(), motor::ajustesMotor(),
                   totals::ajustesSesion(), totals::ajustesPeriodos()});
  Motor m(ajustes, *db, reloj, fabrica);
  const double inicio = segundosCpu();
  m.empezar();
  while (!m.fin && reloj.siguiente()) {
  }
  const double cpu = segundosCpu() - inicio;
  m.comprobar(grupos * kArticulosNoche);
  std::printf("%.4f %ld\n", cpu, picoKiB());
  return 0;
}

}  // namespace tarvo::banco
