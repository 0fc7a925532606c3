// tarvo-bench-ventanas: the cost of the communications window while 30 channels work and 200 tasks
// are in the queue. Prints the share of one core that the program takes with and without the window
// open, and the limit. The machines are wires that answer as fast as a serial line of 9600 baud.
#include <sys/resource.h>

#include <QApplication>
#include <QTimer>
#include <chrono>

#include "Comun.h"
#include "comm/cables/AjustesCables.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/tareas/Repertorio.h"
#include "comm/tramas/Trama.h"
#include "comm/ventanas/RegistrarVentanas.h"
#include "core/ventanas/marco/Escritorio.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "totals/libros/AjustesSesion.h"

using namespace tarvo;
using namespace Qt::StringLiterals;

namespace {

constexpr int kGrupos = 30, kTareas = 200, kArticulos = 5000;
constexpr int kRespuestaMs = 50, kMedidaMs = 10'000, kCalienteMs = 2'000;
constexpr double kLimite = 0.05;  // share of one core for the window

// Acknowledges each question and answers it with its own number and zeros.
class CableFijo final : public enlace::LinkSocket {
 public:
  explicit CableFijo(Reloj& reloj) : timer_(reloj.temporizador([this] { vencer(); })) {}
  bool configurar(const enlace::ParametrosLinea&) override { return true; }
  void abrir(Oyente& oyente) override {
    oyente_ = &oyente;
    timer_->unaVez(1);
  }
  void cerrar() override {
    cerrando_ = true;
    timer_->unaVez(1);
  }
  void enviar(const QByteArray& bytes) override {
    if (bytes.size() < 2) return;  // our acknowledgement
    const QByteArray codigo = bytes.mid(6, 3), clave = bytes.mid(9, 7);
    respuesta_ =
        tramas::kACK +
        tramas::construirVEK(++secuencia_ % 100,
                             tramas::cuerpoVEK(0, codigo.toInt(), clave + QByteArray(41, '0')));
    timer_->unaVez(kRespuestaMs);
  }
  void vaciarRecepcion() override { buffer_.clear(); }
  int estado() const override { return abierto_ ? 5 : 1; }

 private:
  void vencer() {
    if (cerrando_) {
      abierto_ = false;
      return oyente_->cierre(0);
    }
    if (!std::exchange(abierto_, true)) return oyente_->finApertura(0);
    buffer_ += respuesta_;
    oyente_->recepcion(buffer_);
  }
  std::unique_ptr<Temporizador> timer_;
  Oyente* oyente_ = nullptr;
  QByteArray buffer_, respuesta_;
  int secuencia_ = 0;
  bool abierto_ = false, cerrando_ = false;
};

class FabricaFija final : public enlace::FabricaEnlaces {
 public:
  explicit FabricaFija(Reloj& reloj) : reloj_(reloj) {}
  std::unique_ptr<enlace::LinkSocket> crear(TipoAcceso) override {
    return std::make_unique<CableFijo>(reloj_);
  }
  std::unique_ptr<enlace::LinkSocket> crearConector(const QString&, int& razon) override {
    razon = 0;
    return std::make_unique<CableFijo>(reloj_);
  }

 private:
  Reloj& reloj_;
};

double segundosDeCpu() {
  rusage uso{};
  getrusage(RUSAGE_SELF, &uso);
  const auto s = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6;
  };
  return s(uso.ru_utime) + s(uso.ru_stime);
}

void correr(int ms) {
  QEventLoop bucle;
  QTimer::singleShot(ms, &bucle, &QEventLoop::quit);
  bucle.exec();
}

// The share of one core during a measurement.
double parte() {
  correr(kCalienteMs);
  const auto inicio = std::chrono::steady_clock::now();
  const double antes = segundosDeCpu();
  correr(kMedidaMs);
  const std::chrono::duration<double> pared = std::chrono::steady_clock::now() - inicio;
  return (segundosDeCpu() - antes) / pared.count();
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication qt(argc, argv);
  QTemporaryDir carpeta;
  auto db = banco::hacerTienda(carpeta.filePath(u"TARVO.MDB"_s), kGrupos, kArticulos);
  Ajustes ajustes(carpeta.path(), Idioma::Espanol,
                  {enlace::ajustesCables(), enlace::ajustesEnlace(), motor::ajustesMotor(),
                   totals::ajustesSesion()});
  RelojReal reloj;
  Azar azar(1);
  FabricaFija fabrica(reloj);
  const Textos textos = banco::bien(Textos::leer(u":/textos/es.txt"_s));
  totals::Sesion sesion(*db, ajustes, reloj, textos);
  enlace::Enlaces enlaces(reloj, ajustes, fabrica, azar);
  const motor::RepertorioTareas repertorio = tareas::repertorio();
  motor::gestcomm motor({*db, ajustes, reloj, sesion, textos}, enlaces, repertorio);
  ventanas::Escritorio escritorio(qt, *db, ajustes, textos, reloj, ventanas::Cara::Clara, {});
  const envios::Grupos grupos(*db, ajustes, textos, reloj);
  comm::registrarVentanasComm(escritorio.ventanas(), {motor, enlaces, sesion, repertorio, grupos});
  for (int i = 0; i < kTareas; ++i)
    if (motor.NuevaTarea(1 + i % kGrupos, true, 0, 9999999, TipoTarea::RxPlus) !=
        motor::Pedida::EnCola)
      banco::morir(u"a task couldn't be queued"_s);
  const double sin = parte();
  ventanas::Ventana* v = escritorio.ventanas().abrir(u"gestcomm"_s);
  v->resize(1366, 720);
  correr(500);
  v->findChild<ventanas::Parrilla*>(u"s_espe"_s)->irA(0);  // where the working tasks are
  const double con = parte();
  qint64 tramas = 0, tareas = 0;
  for (const motor::VistaTarea& t : motor.tareas()) tramas += std::max(t.Traza, 0), ++tareas;
  const double suya = std::max(con - sin, 1e-6);
  std::printf(
      "# engine alone %.2f %%, with the window %.2f %% of one core, %lld tasks, %lld frames\n",
      100 * sin, 100 * con, static_cast<long long>(tareas), static_cast<long long>(tramas));
  std::printf("ventana.comm_200 %.2f 1.00 %s  # window's part %.2f %%, limit %.0f %%\n",
              kLimite / suya, suya <= kLimite ? "ok" : "short", 100 * suya, 100 * kLimite);
  return suya <= kLimite ? 0 : 1;
}
