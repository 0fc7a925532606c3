// Sendings of articles: choosing the articles, compared with the bare join; and a complete sending
// over a line of 9600 baud, compared with the time for its bytes.
#include <time.h>

#include <utility>

#include "Comun.h"
#include "Razones.h"
#include "comm/cables/AjustesCables.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/envios/Decision.h"
#include "comm/envios/TablasEnvios.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/motor/gestcomm.h"
#include "comm/tareas/Repertorio.h"
#include "comm/tramas/Trama.h"
#include "textos/TextosDePrueba.h"
#include "totals/libros/AjustesSesion.h"

namespace tarvo::banco {
namespace {

// --- deciding ---

constexpr int kArticulosDecididos = 100'000, kGruposDecididos = 50, kCambiados = 10;

const char* const kUnion =
    "SELECT p.CODPLU FROM PLUSES p LEFT JOIN \"Cross\" c ON c.Secc=p.SECCION AND c.plu=p.CODPLU "
    "AND "
    "c.Grupo=7 LEFT JOIN OFERTAS o ON o.GRUPO=7 AND o.SECCION=p.SECCION AND o.CODIGO=p.CODPLU "
    "WHERE "
    "p.SECCION=1 AND p.CODPLU BETWEEN 3 AND 9999999 AND (c.plu IS NULL OR c.borra<>0 OR "
    "o.borrado<>0 "
    "OR (o.enviado<>0)<>((o.FECHA_INI IS NULL OR 46000>=floor(o.FECHA_INI)) AND (o.FECHA_FIN IS "
    "NULL "
    "OR 46000<floor(o.FECHA_FIN)+1))) ORDER BY p.CODPLU";

void llenarCross(dao::Database& db) {
  bien(db.BeginTrans());
  bien(db.ejecutar(
      u"INSERT INTO [Cross] (Secc, plu, Grupo, borra) SELECT 1, CODPLU, CODGPO, 0 FROM PLUSES, "
      u"GRUPOS WHERE PLUSES.SECCION=1 ORDER BY CODPLU, CODGPO"));
  bien(
      db.ejecutar(u"DELETE FROM [Cross] WHERE plu IN (SELECT CODPLU FROM PLUSES WHERE CODPLU>2 "
                  u"AND CODPLU mod 10000=101)"));
  bien(db.CommitTrans());
}

double decidir() {
  const QTemporaryDir carpeta;
  const QString ruta = carpeta.filePath(QStringLiteral("TARVO.MDB"));
  const auto db = hacerTienda(ruta, kGruposDecididos, kArticulosDecididos);
  bien(envios::asegurarTablasEnvios(*db));
  llenarCross(*db);
  Crudo crudo(ruta);
  sqlite3_stmt* s = crudo.preparar(kUnion);
  const envios::Destino destino{7, 1, TipoGrupo::Balanzas, 0};
  const Fecha ahora = Fecha::deDias(46000);
  const auto contar = [](size_t n) {
    if (n != kCambiados) morir(QStringLiteral("%1 artículos").arg(n));
  };
  const double r =
      razon([&] { contar(bien(envios::SaltarSinCambios(*db, destino, {}, ahora)).size()); },
            [&] {
              size_t n = 0;
              while (sqlite3_step(s) == SQLITE_ROW) ++n;
              sqlite3_reset(s);
              contar(n);
            });
  sqlite3_finalize(s);
  return r;
}

// --- a slow line ---

constexpr int kArticulosSerie = 1000, kEnviosSerie = 5;
constexpr double kByteMs = 1000.0 * 10 / 9600;  // seven bits, parity, start and stop

// A half-duplex line that takes time for every byte, and a scale at its end that answers at once.
class LineaLenta final : public enlace::LinkSocket {
 public:
  LineaLenta(Reloj& reloj, double& ocupada)
      : ocupada_(ocupada), timer_(reloj.temporizador([this] { vencer(); })) {}
  bool configurar(const enlace::ParametrosLinea&) override { return true; }
  void abrir(Oyente& oyente) override {
    oyente_ = &oyente;
    timer_->unaVez(1);
  }
  void cerrar() override {
    cierra_ = true;
    timer_->unaVez(1);
  }
  void enviar(const QByteArray& bytes) override {
    pasar(bytes.size());
    if (bytes.back() != tramas::kETX) return;
    turno_ = (turno_ + 1) % 100;
    entrada_ = tramas::kACK + tramas::construirVEK(turno_, "00" + bytes.mid(6, 3));
    pasar(entrada_.size());
    timer_->unaVez(static_cast<int>(pendiente_));
    pendiente_ -= static_cast<int>(pendiente_);
  }
  void vaciarRecepcion() override { entrada_.clear(); }
  int estado() const override { return abierta_ ? 5 : 1; }

 private:
  void pasar(qsizetype bytes) {
    ocupada_ += static_cast<double>(bytes) * kByteMs;
    pendiente_ += static_cast<double>(bytes) * kByteMs;
  }
  void vencer() {
    if (cierra_) {
      abierta_ = false;
      return oyente_->cierre(0);
    }
    if (!std::exchange(abierta_, true)) return oyente_->finApertura(0);
    oyente_->recepcion(entrada_);
  }

  double& ocupada_;
  double pendiente_ = 0;  // ms of bytes on the line, with fractions
  std::unique_ptr<Temporizador> timer_;
  Oyente* oyente_ = nullptr;
  QByteArray entrada_;
  int turno_ = 0;
  bool abierta_ = false, cierra_ = false;
};

struct FabricaLenta final : enlace::FabricaEnlaces {
  explicit FabricaLenta(Reloj& elReloj) : reloj(elReloj) {}
  std::unique_ptr<enlace::LinkSocket> crear(TipoAcceso) override {
    return std::make_unique<LineaLenta>(reloj, ocupada);
  }
  std::unique_ptr<enlace::LinkSocket> crearConector(const QString&, int& razon) override {
    razon = 0;
    return crear(TipoAcceso::TcpIp);
  }
  Reloj& reloj;
  double ocupada = 0;  // ms that the bytes took
};

double cpuMs() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_nsec) * 1e-6;
}

// The clock of the line jumps over our own work, so its time is added.
double lineaLenta() {
  const QTemporaryDir carpeta;
  const auto db = hacerTienda(carpeta.filePath(QStringLiteral("TARVO.MDB")), 1, kArticulosSerie);
  bien(envios::asegurarTablasEnvios(*db));
  bien(db->ejecutar(u"UPDATE PLUSES SET DEPTO=1, TEXTO_ETQ='Agua, sal, aceite'"));
  RelojVirtual reloj(Fecha::de(QDate(2026, 3, 4), QTime(22, 0)));
  Ajustes ajustes(carpeta.path(), Idioma::Espanol,
                  {enlace::ajustesCables(), enlace::ajustesEnlace(), motor::ajustesMotor(),
                   totals::ajustesSesion()});
  FabricaLenta fabrica(reloj);
  Azar azar(1);
  totals::Sesion sesion(*db, ajustes, reloj, textosDePrueba());
  bien(sesion.cargar());
  const auto repertorio = tareas::repertorio();
  enlace::Enlaces enlaces(reloj, ajustes, fabrica, azar);
  motor::gestcomm motor({*db, ajustes, reloj, sesion, textosDePrueba()}, enlaces, repertorio);
  if (motor.NuevaTarea(1, true, 0, 9'999'999, TipoTarea::TxPlus) != motor::Pedida::EnCola)
    morir(QStringLiteral("sin tarea"));
  while (motor.tareas().front().Traza < 0 && reloj.siguiente()) {
  }
  const qint64 inicio = reloj.monotono();
  const double cpu = cpuMs();
  while (motor.tareas().front().Estado == motor::kTransfiriendo && reloj.siguiente()) {
  }
  const double nuestro = static_cast<double>(reloj.monotono() - inicio) + cpuMs() - cpu;
  const auto filas = bien(db->uno(u"SELECT count(*) FROM [Cross] WHERE borra=0"));
  if (filas.entero() < kArticulosSerie - 2) morir(QStringLiteral("%1 filas").arg(filas.entero()));
  return fabrica.ocupada / nuestro;
}

const AltaMedida kDecidir("envios.decidir", 1 / 1.5, decidir);
const AltaMedida kSerie("envios.9600", 0.97, [] { return medianaDe(kEnviosSerie, lineaLenta); });

}  // namespace
}  // namespace tarvo::banco
