// The inside of a link: its clients, its purpose, its wire and its frame machine.
#pragma once

#include <functional>
#include <map>

#include "comm/cables/AjustesCables.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/enlace/MaquinaDeEstados.h"
#include "comm/enlace/comtvIP.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo::enlace {

// A link is destroyed this long after its end, so that calls still inside it can return.
inline constexpr int kMsDescarga = 10;

struct Enlaces::Datos {
  Reloj& reloj;
  const Ajustes& ajustes;
  FabricaEnlaces& fabrica;
  Azar& azar;
  AlPasar alPasar = {};
  const AjustesCables& cables = ajustes.de<AjustesCables>();
  const AjustesEnlace& tiempos = ajustes.de<AjustesEnlace>();
  std::map<QString, Deudas> deudas = {};  // by wire
  std::vector<std::unique_ptr<comtvIP>> canales;
  struct Muerto {
    qint64 cuando;
    std::unique_ptr<comtvIP> enlace;
  };
  std::vector<Muerto> muertos;  // out of their slots, not destroyed yet
  std::unique_ptr<Temporizador> entierro;

  comtvIP* en(int canal) const;
  const ParamCanal& param(int canal) const { return cables.canales[static_cast<size_t>(canal)]; }
  void retirar(comtvIP* enlace);  // empties its slot, if it is in one
  void soltar(int canal);
  void enterrar();
  bool enUso(const QString& acceso, int canal) const;
};

struct comtvIP::Estado final : MaquinaDeEstados::Exterior {
  Estado(Enlaces::Datos& laCasa, comtvIP& elDueno, int elCanal);

  Enlaces::Datos& casa;
  comtvIP& dueno;
  const int canal;
  std::unique_ptr<LinkSocket> cable;
  ClienteEnlace* cliente = nullptr;
  ClienteLinea* clienteLinea = nullptr;
  Para paraPendiente = Para::Nada, paraAbierto = Para::Nada;
  TipoAcceso device = TipoAcceso::Ninguno;
  QString acceso;
  bool conector = false;
  bool portadora = false;
  bool uniendo = false;                         // a second client is joining the open link
  bool saleMotor = false, saleCaptura = false;  // it is leaving a shared one
  bool cerrando = false;                        // the wire was told to close
  bool acabado = false;                         // no event follows any more
  int esperaColgar = 0;
  qint64 oidos = 0;  // bytes
  int dentro = 0;    // events of clients that have not returned yet
  std::unique_ptr<Temporizador> limite, luego;
  std::vector<std::function<void()>> aplazados;  // calls to make 10 ms later
  MaquinaDeEstados maquina;

  // Opening and closing.
  int abrir(Para para, int baudios, const QString& texto);
  int abrirConector();
  int abrirConfigurado(int baudios);
  bool puedeUnirse(Para para, const QString& texto) const;
  void unir(Para para);
  void terminarUnion(bool motor);
  void terminarApertura(int error);
  int cerrar(Para para);
  void dejar(bool motor);
  void cancelarApertura(bool motor);
  void terminarSalida(bool motor);
  void cerrarCable();
  void terminarCierre(int error);
  void venceLimite();
  void abandonar();
  void desalojar(const ClienteEnlace* nuevo, const ClienteLinea* nuevaLinea);

  // Helpers.
  QString normalizado(const QString& texto) const;
  bool& sale(bool motor) { return motor ? saleMotor : saleCaptura; }
  bool listo() const { return paraAbierto != Para::Nada && !cerrando && !acabado; }
  bool esVek() const { return paraAbierto != Para::Nada && paraAbierto != Para::NodalMotor; }
  void pasan(Sentido sentido, const QByteArray& bytes) const;
  void aplazar(std::function<void()> accion);
  void soltar();
  void avisarApertura(bool motor, int error);
  void avisarCierre(bool motor, int error);
  template <class F>
  void avisar(F evento) {
    ++dentro;
    evento();
    --dentro;
  }

  // The side seen by the frame machine.
  void escribir(const QByteArray& bytes) override;
  void vaciarCable() override;
  Para para() const override { return paraAbierto; }
  Deudas& deudas() override;
  bool encaja(int addr, int codigo, const QByteArray& datos) override;
  void envioVEK(int error, int addr, int codigo, const QByteArray& datos) override;
  void reciboVEK(int error, int addr, int codigo, const QByteArray& datos) override;
  void envioNDL(int error) override;
  void reciboNDL(int error, int codigo, const QByteArray& datos) override;
  void transaccion(int addr, const QByteArray& datos) override;
};

}  // namespace tarvo::enlace
