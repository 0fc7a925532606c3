// What all sendings of articles share: the list, the words at the end, and what a refusal does. How
// a family is talked to is below it.
#pragma once

#include <utility>

#include "comm/envios/Remesa.h"
#include "comm/motor/Tarea.h"

namespace tarvo::tareas {

inline constexpr int kNoExiste = 105;  // the machine hasn't the article
inline constexpr int kNumeroNoExiste = 5;

// The machine said nothing to a frame, or never acknowledged it.
bool esSilencio(int error);
envios::Destino destinoDe(const motor::DatosTarea& t);
// A refusal in words that come after the article's name.
QString motivoDeRechazo(int error, const Textos& textos);

class EnvioArticulos : public motor::TrabajoTarea {
 public:
  EnvioArticulos(const motor::DatosTarea& t, const motor::Entorno& e,
                 envios::Remesa::Que que = envios::Remesa::Que::Articulos);

  Resultado<motor::Siguiente> siguiente() final;
  void reposo() final { static_cast<void>(remesa_.asentar()); }
  Resultado<std::vector<totals::Aviso>> cerrar() final { return avisos(true); }
  std::vector<totals::Aviso> abandonar() final;
  QString reparo() const final;
  QString MostrarTraza() const final;
  qint64 codigoActual() const override { return remesa_.codigoActual(); }
  qint64 avance() const override { return remesa_.hechos(); }

 protected:
  virtual Resultado<> preparar();
  virtual bool borrando() const = 0;  // the present step is a deletion
  // The next step; Fin REQUIRES that everything is on disk.
  virtual Resultado<motor::Siguiente> paso() = 0;
  Resultado<motor::Siguiente> fin();
  envios::Rango rango() const { return {t_.Desde, t_.Hasta}; }
  bool soloPrecios() const { return que_ == envios::Remesa::Que::Precios; }
  // A frame whose answer proves something.
  motor::Siguiente enviar(int addr, const maquinas::Peticion& p) {
    codigo_ = p.codigo;
    return {motor::Siguiente::Enviar, addr, p.codigo, p.datos, 0, {.limpia = true}};
  }
  int codigoEnviado() const { return codigo_; }
  // The present article was refused; what Remesa::rechazado answers.
  bool rechazarActual(int error);
  // The same of an article that got no answer, `error`, from a machine that answers other frames.
  // It fails where the refusal would.
  Resultado<> noContesto(int error);
  // The scales said nothing to this article and are asked for it.
  void callo(qint64 codigo, int error) { callada_ = {codigo, error}; }
  // The error of that silence, where it was about this article; 0 for none. Once.
  int callado(qint64 codigo) {
    const Callada c = std::exchange(callada_, {});
    return c.codigo == codigo ? c.error : 0;
  }
  // A number that refuses nothing is a good answer to the article that went as `registro`, and
  // doesn't say that the scales hold it: they are asked. What they tell settles it: true when the
  // article is done with, be it taken or not.
  void contestadoConNumero(const QByteArray& registro, int numero) {
    porProbar_ = {registro, 100 + numero};
  }
  bool zanjado(qint64 codigo, const QByteArray& registro, const QByteArray& suya);
  // Their answer to a question about an article is neither its record nor that they haven't it.
  Resultado<> sinFicha(qint64 codigo, const QByteArray& datos) const;

  const motor::DatosTarea t_;
  const motor::Entorno e_;
  envios::Remesa remesa_;

 private:
  Resultado<> comprobarEspera() const;
  std::vector<totals::Aviso> avisos(bool acabada) const;

  const envios::Remesa::Que que_;
  struct Callada {
    qint64 codigo = 0;
    int error = 0;
  } callada_;
  int codigo_ = 0;  // of the frame that was sent last
  struct PorProbar {
    QByteArray registro;
    int error = 0;
  } porProbar_;
  bool preparada_ = false;
};

// The complete sending to a group of kind 4, which compares its list with ours.
std::unique_ptr<motor::TrabajoTarea> crearComparacion(const motor::DatosTarea& t,
                                                      const motor::Entorno& e);

}  // namespace tarvo::tareas
