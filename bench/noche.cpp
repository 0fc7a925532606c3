// What a night costs by its number of groups, and how much memory it takes. Groups of 2,000
// articles: their totals and grand totals are read, memorised, the machines reset, the stock
// brought up to date.
#include "Noche.h"

#include <time.h>

#include <QFile>
#include <QProcess>
#include <algorithm>
#include <array>
#include <vector>

#include "Comun.h"
#include "Razones.h"
#include "automation/Automat.h"
#include "comm/maquinas/Campos.h"
#include "comm/tareas/Registro.h"
#include "comm/tramas/Trama.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::banco {
namespace {

constexpr int kArticulosNoche = 2000;
constexpr double kMemoriaMiB = 120;

// A scale that has sold the same of every article. It looks at no more of a frame than it must: the
// code, and the article asked for.
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
    entrada_ = tramas::kACK + tramas::construirVEK(turno_, "01" + trama.mid(6, 3) + datos(trama));
    timer_->unaVez(1);
  }
  void vaciarRecepcion() override { entrada_.clear(); }
  int estado() const override { return abierta_ ? 5 : 1; }

 private:
  // STX, two digits of the frame, one of the station, two of the address, three of the code, data.
  static QByteArray datos(const QByteArray& trama) {
    if (trama.sliced(6).startsWith("830"))
      return trama.mid(9, 7) + "000000250000001000" + "00001" + QByteArray(20, '0');
    if (trama.sliced(6).startsWith("850"))
      return maquinas::Ceros(250 * kArticulosNoche, 9) +
             maquinas::Ceros(1000 * kArticulosNoche, 9) + "00000" +
             maquinas::Ceros(kArticulosNoche, 5);
    return {};
  }
  void vencer() {
    if (cierra_) {
      abierta_ = false;
      return oyente_->cierre(0);
    }
    if (!std::exchange(abierta_, true)) return oyente_->finApertura(0);
    oyente_->recepcion(entrada_);
  }

  std::unique_ptr<Temporizador> timer_;
  Oyente* oyente_ = nullptr;
  QByteArray entrada_;
  int turno_ = 0;
  bool abierta_ = false, cierra_ = false;
};

class FabricaBalanzas final : public enlace::FabricaEnlaces {
 public:
  explicit FabricaBalanzas(Reloj& reloj) : reloj_(reloj) {}
  std::unique_ptr<enlace::LinkSocket> crear(int) override {
    return std::make_unique<Balanza>(reloj_);
  }
  std::unique_ptr<enlace::LinkSocket> crearConector(const QString&, int& razon) override {
    razon = 0;
    return std::make_unique<Balanza>(reloj_);
  }

 private:
  Reloj& reloj_;
};

class SinPreguntas final : public automation::Preguntas {
 public:
  std::optional<qint64> PromptNum(const QString&, const QString&) override { return {}; }
  std::optional<QString> PromptStr(const QString&, const QString&) override { return {}; }
  std::optional<std::pair<Fecha, Fecha>> PromptFch(const QString&, const QString&) override {
    return {};
  }
};

const QString kProceso = QStringLiteral(
    "T:RXPLUS,ALL,Sí\r\nT:RXGRTOT,ALL\r\nC:ESPERA,1,No\r\nS:CERRAR,Ventas #D,Sí,Sí\r\n"
    "T:TX_ZERO,ALL\r\nC:ESPERA,1,No\r\nP:LIMPIAR\r\nP:SEL. ULTIMO\r\nP:STOCK\r\nS:ABRIR\r\n");

// The program's engines, as Aplicacion joins them.
struct Motor {
  Motor(const QString& carpeta, dao::Database& base) : db(base), ajustes(carpeta, Idioma::Espanol) {
    bien(almacenes.asegurar());
    bien(sesion.cargar());
    automat.desatendido = true;
    automat.alEscribir = [this](const QString& linea) { lineas += linea + u'\n'; };
    automat.alTerminar = [this](automation::ResultadoProceso r) { fin = r; };
  }
  dao::Database& db;
  RelojVirtual reloj{Fecha::de(QDate(2026, 3, 4), QTime(22, 0))};
  Ajustes ajustes;
  FabricaBalanzas fabrica{reloj};
  SinPreguntas preguntas;
  Azar azar{1};
  stock::Almacenes almacenes{db, reloj, textosDePrueba()};
  totals::Sesion sesion{db, ajustes, reloj, textosDePrueba()};
  totals::Periodos periodos{db, ajustes, almacenes, textosDePrueba()};
  totals::CerrSes cerrSes{sesion, periodos};
  totals::VerTot verTot{periodos, db, ajustes};
  totals::XporTot xporTot{db, periodos, ajustes};
  motor::RegistroTareas registro = tareas::registro();
  enlace::Enlaces enlaces{reloj, ajustes, fabrica, azar};
  motor::gestcomm gestcomm{{db, ajustes, reloj, sesion, textosDePrueba()}, enlaces, registro};
  automation::Lenguaje lenguaje{registro, ajustes, textosDePrueba()};
  automation::Automat automat{
      {db, ajustes, reloj, sesion, gestcomm, registro, cerrSes, verTot, xporTot, textosDePrueba()},
      preguntas};
  QString lineas;
  std::optional<automation::ResultadoProceso> fin;
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

double linealidad() {
  constexpr int kVueltasNoche = 3;
  std::array<double, kVueltasNoche> diez, cien;
  for (int i = 0; i < kVueltasNoche; ++i) {
    // Several short nights beside a long one, so that both take about as long.
    diez[static_cast<size_t>(i)] =
        std::min({nocheAparte(10).cpu, nocheAparte(10).cpu, nocheAparte(10).cpu}) / 10;
    cien[static_cast<size_t>(i)] = nocheAparte(100).cpu / 100;
  }
  std::ranges::sort(diez);
  std::ranges::sort(cien);
  return diez[kVueltasNoche / 2] / cien[kVueltasNoche / 2];
}

const Registro kMedidasNoche[] = {
    {"noche.coste_por_grupo", 0.9, linealidad},
    {"noche.memoria", 1.0, [] { return kMemoriaMiB * 1024 / nocheAparte(100).pico; }},
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
  Motor m(carpeta.path(), *db);
  auto proceso = bien(m.lenguaje.leer(kProceso));
  const double inicio = segundosCpu();
  m.automat.PROCESO(std::move(proceso.pasos), {}, QStringLiteral("NOCHE"));
  while (!m.fin && m.reloj.siguiente()) {
  }
  const double cpu = segundosCpu() - inicio;
  const auto filas = bien(db->uno(u"SELECT count(*) FROM TOTPLU WHERE LINK>0"));
  if (m.fin != automation::ResultadoProceso::Bien || filas.entero() != grupos * kArticulosNoche)
    morir(QStringLiteral("%1 filas\n%2").arg(filas.entero()).arg(m.lineas));
  std::printf("%.4f %ld\n", cpu, picoKiB());
  return 0;
}

}  // namespace tarvo::banco
