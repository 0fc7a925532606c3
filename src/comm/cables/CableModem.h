// A telephone modem on a serial port: initialises it, dials, watches the carrier and hangs up.
#pragma once

#include "comm/cables/CableReal.h"
#include "comm/cables/CableSerie.h"
#include "comm/cables/Hayes.h"
#include "comm/cables/PuertoSerie.h"

namespace tarvo::enlace {

class CableModem final : public CableReal {
 public:
  CableModem(Reloj& reloj, std::shared_ptr<Ocupados> ocupados, RutaDePuerto rutaDe);
  ~CableModem() override { cortar(); }
  bool configurar(const ParametrosLinea& parametros) override;
  void enviar(const QByteArray& bytes) override;

 protected:
  QString acceso() const override;
  int razonOcupado() const override { return kPuertoOcupado; }
  int empezar() override;
  void terminar() override;
  void cortar() override;
  void vencePlazo() override;

 private:
  // The steps of the dialogue. Those from CuelgaDTR on belong to the hang-up.
  enum class Paso {
    Senales,
    Guion,
    Marca,
    Pausa,
    EnLinea,
    CuelgaDTR,
    CuelgaGuarda,
    CuelgaEscape,
    CuelgaATH
  };

  void leer(const QByteArray& bytes);
  void leerLineas();
  void responde(RespuestaModem respuesta);
  void siguienteOrden();
  void marcar();
  void otroIntento(int razon);
  void conectar();
  void leerEnLinea(const QByteArray& bytes);
  void vigilar();
  void perderPortadora();
  void orden(const QByteArray& texto, Paso paso, int ms);
  void ir(Paso paso, int ms);
  bool portadoraCaida();

  const RutaDePuerto rutaDe_;
  ParametrosLinea p_;
  QString ruta_;
  Paso paso_ = Paso::Senales;
  std::vector<PasoGuion> guion_;
  size_t indice_ = 0;  // of the order awaiting its answer
  int intento_ = 0;
  bool oido_ = false;  // the modem has sent something
  bool hayPortadora_ = false, vistaDCD_ = false;
  QByteArray entrada_, cola_;
  std::unique_ptr<Temporizador> vigia_;
  PuertoSerie puerto_;
};

}  // namespace tarvo::enlace
