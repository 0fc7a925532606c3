// Articles to one group of scales over TCP on this computer, compared with the same frames through
// the bare link, without engine, database or articles.
#include "Razones.h"
#include "TcpLocal.h"
#include "comm/cables/AjustesCables.h"
#include "comm/cables/FabricaReal.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/envios/TablasEnvios.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/motor/gestcomm.h"
#include "comm/tareas/Repertorio.h"
#include "textos/TextosDePrueba.h"
#include "totals/libros/AjustesSesion.h"

namespace tarvo::banco {
namespace {

constexpr int kArticulosTcp = 10'000, kVueltasTcp = 7, kCodigoArticulo = 100;

struct Cliente final : ClienteMudo {
  enlace::Enlaces* enlaces = nullptr;
  QByteArray registro;
  int faltan = 0;
  bool abierto = false;
  void Abrir_Evento(int, int error) override { abierto = error == 0; }
  void EnvioVEK_Evento(int canal, int, int, int, const QByteArray&) override {
    if (--faltan > 0) (*enlaces)[canal]->Enviar(0, kCodigoArticulo, registro);
  }
  bool encaja(int, int, int codigo, const QByteArray&) override {
    return codigo == kCodigoArticulo;
  }
};

// The engine with its database on connector G1, and a bare link on connector G2.
class Mesa {
 public:
  explicit Mesa(quint16 puerto) {
    bien(envios::asegurarTablasEnvios(*db_));
    bien(db_->ejecutar(u"UPDATE PLUSES SET DEPTO=1"));
    escribirConectores(carpeta_, u'G', 2, puerto);
    bien(sesion_.cargar());
    cliente_.enlaces = &enlaces_;
    cliente_.registro = QByteArray(90, '7');
    enlaces_.AbrirEnlace(enlace::Para::VekMotor, kCanalDesnudo, 0, QStringLiteral("G2"), &cliente_);
    esperarTcp([&] { return cliente_.abierto; });
  }
  // Every article, to a group that has none yet; opening and closing aren't timed.
  void enviar(const Cronometro& medir) {
    for (const char16_t* t : {u"DELETE FROM [Cross]", u"DELETE FROM Enviados"})
      bien(db_->ejecutar(t));
    if (motor_.NuevaTarea(1, true, 0, 9'999'999, TipoTarea::TxPlus) != 0)
      morir(QStringLiteral("sin tarea"));
    const auto tarea = [&] { return motor_.tareas().front(); };
    esperarTcp([&] { return tarea().Traza >= 0; });
    medir([&] { esperarTcp([&] { return motor_.puedeCerrar(); }); });
    esperarTcp([&] { return motor_.tareas().empty(); });
    const auto filas = bien(db_->uno(u"SELECT count(*) FROM [Cross] WHERE borra=0")).entero();
    if (filas < kArticulosTcp - 2) morir(QStringLiteral("%1 artículos").arg(filas));
  }
  void preguntar() {
    cliente_.faltan = kArticulosTcp;
    enlaces_[kCanalDesnudo]->Enviar(0, kCodigoArticulo, cliente_.registro);
    esperarTcp([&] { return cliente_.faltan == 0; });
  }

 private:
  static constexpr int kCanalDesnudo = 20;
  QTemporaryDir carpeta_;
  std::unique_ptr<dao::Database> db_ =
      hacerTienda(carpeta_.filePath(QStringLiteral("TARVO.MDB")), 1, kArticulosTcp);
  RelojReal reloj_;
  Ajustes ajustes_{carpeta_.path(),
                   Idioma::Espanol,
                   {enlace::ajustesCables(), enlace::ajustesEnlace(), motor::ajustesMotor(),
                    totals::ajustesSesion()}};
  enlace::FabricaReal fabrica_{reloj_, ajustes_};
  Azar azar_{1};
  Cliente cliente_;
  enlace::Enlaces enlaces_{reloj_, ajustes_, fabrica_, azar_};
  totals::Sesion sesion_{*db_, ajustes_, reloj_, textosDePrueba()};
  motor::RepertorioTareas repertorio_ = tareas::repertorio();
  motor::gestcomm motor_{
      {*db_, ajustes_, reloj_, sesion_, textosDePrueba()}, enlaces_, repertorio_};
};

double medirTcp() {
  const Bucle bucle;
  LadoLejano balanza(tramas::cuerpoVEK(0, kCodigoArticulo, {}));  // accepts everything
  Mesa mesa(balanza.arrancar());
  return razonDe([&](const Cronometro& c) { mesa.enviar(c); },
                 [&](const Cronometro& c) { c([&] { mesa.preguntar(); }); }, kVueltasTcp);
}

const AltaMedida kTcp("envios.tcp", 0.7, medirTcp);

}  // namespace
}  // namespace tarvo::banco
