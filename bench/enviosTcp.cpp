// Articles, and the whole configuration, to one group of scales over TCP on this computer, compared
// with the same frames through the bare link, without engine, database or articles.
#include <array>
#include <span>

#include "Razones.h"
#include "TcpLocal.h"
#include "comm/cables/AjustesCables.h"
#include "comm/cables/FabricaReal.h"
#include "comm/configuracion/Aceptado.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/envios/TablasEnvios.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/motor/gestcomm.h"
#include "comm/tareas/Repertorio.h"
#include "core/dao/Marcas.h"
#include "core/dao/Pasos.h"
#include "devices/Modelos.h"
#include "devices/TecladosDefault.h"
#include "textos/TextosDePrueba.h"
#include "totals/libros/AjustesSesion.h"

namespace tarvo::banco {
namespace {

constexpr TipoTarea kConfiguran[] = {TipoTarea::TxCfBal, TipoTarea::TxEtiq, TipoTarea::TxCnfig,
                                     TipoTarea::TxTecla};
constexpr int kArticulosTcp = 10'000, kVueltasTcp = 7, kCodigoArticulo = 100, kBalanzas = 10;
// So few frames take less time than a computer is busy with something else.
constexpr int kVueltasConfiguracion = 31;

struct Trama {
  int addr = 0, codigo = 0;
  QByteArray datos;
};

struct Cliente final : ClienteMudo {
  enlace::Enlaces* enlaces = nullptr;
  std::vector<Trama> tramas;
  size_t cual = 0;
  bool abierto = false;
  void enviar(int canal) {
    const Trama& t = tramas[cual];
    (*enlaces)[canal]->Enviar(t.addr, t.codigo, t.datos);
  }
  void Abrir_Evento(int, int error) override { abierto = error == 0; }
  void EnvioVEK_Evento(int canal, int, int, int, const QByteArray&) override {
    if (++cual < tramas.size()) enviar(canal);
  }
  bool encaja(int, int, int codigo, const QByteArray&) override {
    return codigo == tramas[cual].codigo;
  }
};

// The engine with its database on connector G1, and a bare link on connector G2.
class Mesa {
 public:
  Mesa(quint16 puerto, int articulos)
      : db_(hacerTienda(carpeta_.filePath(QStringLiteral("TARVO.MDB")), 1, articulos)) {
    bien(envios::asegurarTablasEnvios(*db_));
    bien(dao::darPasos(*db_, {configuracion::tablasConfiguracion()}));
    bien(db_->ejecutar(u"UPDATE PLUSES SET DEPTO=1"));
    escribirConectores(carpeta_, u'G', 2, puerto);
    bien(sesion_.cargar());
    cliente_.enlaces = &enlaces_;
    enlaces_.AbrirEnlace(enlace::Para::VekMotor, kCanalDesnudo, 0, QStringLiteral("G2"), &cliente_);
    esperarTcp([&] { return cliente_.abierto; });
  }
  dao::Database& base() { return *db_; }
  const Ajustes& ajustes() const { return ajustes_; }
  // These tasks for the group; opening and closing aren't timed.
  void enviar(std::span<const TipoTarea> clases, const Cronometro& medir) {
    for (const TipoTarea clase : clases)
      if (motor_.NuevaTarea(1, true, 0, 9'999'999, clase) != motor::Pedida::EnCola)
        morir(QStringLiteral("sin tarea"));
    esperarTcp([&] { return motor_.tareas().front().Traza >= 0; });
    medir([&] { esperarTcp([&] { return motor_.CuantosQuedan().enCurso == 0; }); });
    esperarTcp([&] { return motor_.tareas().empty(); });
  }
  // The frames that the bare link sends.
  std::vector<Trama>& tramas() { return cliente_.tramas; }
  void preguntar() {
    cliente_.cual = 0;
    cliente_.enviar(kCanalDesnudo);
    esperarTcp([&] { return cliente_.cual == cliente_.tramas.size(); });
  }

 private:
  static constexpr int kCanalDesnudo = 20;
  QTemporaryDir carpeta_;
  std::unique_ptr<dao::Database> db_;
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

double comparar(Mesa& mesa, const Lado& nuestro, int vueltas) {
  return razonDe(nuestro, [&](const Cronometro& c) { c([&] { mesa.preguntar(); }); }, vueltas);
}

// Every article, to a group that has none yet.
double medirArticulos() {
  const Bucle bucle;
  LadoLejano balanza(tramas::cuerpoVEK(0, kCodigoArticulo, {}));  // accepts everything
  Mesa mesa(balanza.arrancar(), kArticulosTcp);
  mesa.tramas().assign(kArticulosTcp, {0, kCodigoArticulo, QByteArray(90, '7')});
  return comparar(
      mesa,
      [&](const Cronometro& c) {
        for (const char16_t* t : {u"DELETE FROM [Cross]", u"DELETE FROM Enviados"})
          bien(mesa.base().ejecutar(t));
        mesa.enviar(std::array{TipoTarea::TxPlus}, c);
        const auto filas = bien(mesa.base().uno(u"SELECT count(*) FROM [Cross] WHERE borra=0"));
        if (filas.entero() < kArticulosTcp - 2)
          morir(QStringLiteral("%1 artículos").arg(filas.entero()));
      },
      kVueltasTcp);
}

// Ten scales with keyboards, and formats of labels of eight fields in all positions.
void ponerBalanzas(dao::Database& db) {
  QStringList etiquetas;
  for (int n = 11; n <= 20; ++n) etiquetas << QStringLiteral("ETQ%1='una'").arg(n);
  QString campos;
  for (const char16_t* tipo : {u"01", u"02", u"03", u"04", u"05", u"07", u"09", u"14"})
    campos += QString::fromUtf16(tipo) + QStringLiteral("0100200160001\r\n");
  bien(db.ejecutar(u"INSERT INTO ETIQUETAS (NUMETQ, CAMPOS) VALUES ('una', ?)", campos));
  for (int n = 1; n < kBalanzas; ++n)
    bien(db.ejecutar(u"INSERT INTO BZAS (SUGPO, NMBZA, ADDR, TIPO) VALUES (1, ?, ?, 1)", n, n + 1));
  bien(db.ejecutar(u"UPDATE BZAS SET TIPO=?, Teclado=?", int{devices::kMaple},
                   devices::TecladoDefecto(devices::kMaple, Idioma::Espanol)));
  bien(db.ejecutar(dao::conMarcas(u"UPDATE BZAS SET {etiquetas}",
                                  {{u"etiquetas", etiquetas.join(QStringLiteral(", "))}})));
}

// All frames are accepted.
double medirConfiguracion() {
  const Bucle bucle;
  LadoLejano balanza([]() -> LadoLejano::Responder {
    return [](QByteArrayView trama) { return trama.sliced(4, 5).toByteArray(); };
  });
  Mesa mesa(balanza.arrancar(), 0);
  ponerBalanzas(mesa.base());
  for (const TipoTarea clase : kConfiguran)
    for (const auto& envio :
         bien(configuracion::prepararEnvio(mesa.base(), mesa.ajustes(), clase, {.grupo = 1})))
      for (const auto& pieza : envio.piezas)
        mesa.tramas().push_back({envio.addr, pieza.peticion.codigo, pieza.peticion.datos});
  return comparar(
      mesa,
      [&](const Cronometro& c) {
        bien(mesa.base().ejecutar(u"UPDATE ConfigAceptada SET HUELLA='otra'"));
        mesa.enviar(kConfiguran, c);
        const auto hay = bien(mesa.base().uno(
            u"SELECT count(*) FROM ConfigAceptada WHERE HUELLA IS NOT NULL AND HUELLA<>'otra'"));
        if (hay.entero() != kBalanzas * std::ssize(kConfiguran))
          morir(QStringLiteral("%1 configuraciones").arg(hay.entero()));
      },
      kVueltasConfiguracion);
}

const AltaMedida kArticulos("envios.tcp", 0.7, medirArticulos);
const AltaMedida kConfiguracion("configuracion.tcp", 0.7, medirConfiguracion);

}  // namespace
}  // namespace tarvo::banco
