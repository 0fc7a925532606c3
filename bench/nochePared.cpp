// A night by the wall clock: real sockets on this computer to scales in a separate thread, over
// connectors (a link for each group at once) and over the four TCP channels (four at a time).
#include <QProcess>
#include <chrono>
#include <vector>

#include "MotorNoche.h"
#include "Noche.h"
#include "Razones.h"
#include "TcpLocal.h"
#include "comm/cables/AjustesCables.h"
#include "comm/cables/FabricaReal.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/motor/AjustesMotor.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/periodos/AjustesPeriodos.h"

namespace tarvo::banco {
namespace {

constexpr double kMemoriaMiB = 80;
constexpr double kUnaHora = 1 / 24.0;  // in days

// The time limit of a night of that size, in seconds.
constexpr double kCorta = 1.5, kConectores = 8, kCanales = 15;

void porCanales(dao::Database& db, Ajustes& ajustes, quint16 puerto) {
  for (auto& canal : ajustes.de<enlace::AjustesCables>().canales) canal.Device = TipoAcceso::TcpIp;
  // A computer has many addresses, so each group is a separate access.
  bien(
      db.ejecutar(u"UPDATE GRUPOS SET remoto=3, TELEF='127.0.' & (CODGPO \\ 200) & '.' & (CODGPO "
                  u"MOD 200 + 1) & ':' & ?",
                  puerto));
}

struct Coste {
  double segundos = 0, pico = 0;
};

Coste aparte(int grupos, int articulos, const QString& enlaces) {
  QProcess hijo;
  hijo.start(QStringLiteral("/proc/self/exe"),
             {QStringLiteral("--noche-pared"), QString::number(grupos), QString::number(articulos),
              enlaces});
  if (!hijo.waitForFinished(300'000) || hijo.exitCode() != 0)
    morir(QString::fromLocal8Bit(hijo.readAllStandardError()));
  const QByteArrayList salida = hijo.readAllStandardOutput().trimmed().split(' ');
  return {salida.value(0).toDouble(), salida.value(1).toDouble()};
}

constexpr int kVeces = 3;
const QString kPorConectores = QStringLiteral("conectores"), kPorCanales = QStringLiteral("tcp");

double segundos(int grupos, int articulos, const QString& enlaces) {
  return medianaDe(kVeces, [&] { return aparte(grupos, articulos, enlaces).segundos; });
}

// The long nights over connectors: three figures are taken from them.
const std::vector<Coste>& nochesDeCien() {
  static const std::vector<Coste> kNoches = [] {
    std::vector<Coste> v;
    for (int i = 0; i < kVeces; ++i) v.push_back(aparte(100, 2000, kPorConectores));
    return v;
  }();
  return kNoches;
}

double memoria() {
  size_t i = 0;
  return kMemoriaMiB * 1024 / medianaDe(kVeces, [&] { return nochesDeCien()[i++].pico; });
}

double memoriaDoble() {
  size_t i = 0;
  return razonDeCifras([] { return aparte(200, 2000, kPorConectores).pico; },
                       [&] { return nochesDeCien()[i++].pico; }, kVeces);
}

double porConectores() {
  size_t i = 0;
  return kConectores / medianaDe(kVeces, [&] { return nochesDeCien()[i++].segundos; });
}

const AltaMedida kMedidas[] = {
    {"noche.pared.corta", 1.0, [] { return kCorta / segundos(10, 200, kPorConectores); }},
    {"noche.pared.conectores", 1.0, porConectores},
    {"noche.pared.canales", 1.0, [] { return kCanales / segundos(100, 2000, kPorCanales); }},
    {"noche.memoria", 1.0, memoria},
    {"noche.memoria_doble", 0.9, memoriaDoble},
};

}  // namespace

int nochePared(int grupos, int articulos, bool canales) {
  const Bucle bucle;
  LadoLejano balanzas([articulos]() -> LadoLejano::Responder {
    return [ventas = Ventas(articulos)](QByteArrayView trama) mutable {
      return ventas.responder(trama);
    };
  });
  const quint16 puerto = balanzas.arrancar();
  const QTemporaryDir carpeta;
  const auto db = hacerTienda(carpeta.filePath(QStringLiteral("TARVO.MDB")), grupos, articulos);
  escribirConectores(carpeta, u'G', grupos, puerto);
  Ajustes ajustes(carpeta.path(), Idioma::Espanol,
                  {enlace::ajustesCables(), enlace::ajustesEnlace(), motor::ajustesMotor(),
                   totals::ajustesSesion(), totals::ajustesPeriodos()});
  if (canales) porCanales(*db, ajustes, puerto);
  RelojReal reloj;
  bien(
      db->ejecutar(u"UPDATE Sesiones SET PZERO=?", Fecha::deDias(reloj.ahora().dias() - kUnaHora)));
  enlace::FabricaReal fabrica(reloj, ajustes);
  Motor m(ajustes, *db, reloj, fabrica);
  const auto inicio = std::chrono::steady_clock::now();
  m.empezar();
  esperarTcp([&] { return m.fin.has_value(); });
  const std::chrono::duration<double> tardado = std::chrono::steady_clock::now() - inicio;
  m.comprobar(grupos * articulos);
  std::printf("%.3f %ld\n", tardado.count(), picoKiB());
  return 0;
}

}  // namespace tarvo::banco
