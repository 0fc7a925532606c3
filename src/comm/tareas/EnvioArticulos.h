// The common part of all sendings of articles: the list, the closing notices, and the effect of a
// refusal. The dialogue with each family is in the derived classes.
#pragma once

#include <utility>

#include "comm/envios/Remesa.h"
#include "comm/motor/Tarea.h"

namespace tarvo::tareas {

inline constexpr int kNoExiste = 105;  // the machine doesn't have the article
inline constexpr int kNumeroNoExiste = 5;

// The machine didn't answer a frame, or never acknowledged it.
bool esSilencio(int error);
envios::Destino destinoDe(const motor::DatosTarea& t);
// A refusal in words that follow the article's name.
QString motivoDeRechazo(int error, const Textos& textos);

class EnvioArticulos : public motor::CursoTarea {
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
  // The next step; Fin REQUIRES that all results are on disk.
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
  // The present article was refused; returns as Remesa::rechazado.
  bool rechazarActual(int error);
  // The same for an article left unanswered, `error`, by a machine that answers other frames. It
  // fails where the refusal would.
  Resultado<> noContesto(int error);
  // The scales didn't answer this article and are asked for it.
  void callo(qint64 codigo, int error) { callada_ = {codigo, error}; }
  // The error of that silence, if it was about this article, else 0. Returned once.
  int callado(qint64 codigo) {
    const Callada c = std::exchange(callada_, {});
    return c.codigo == codigo ? c.error : 0;
  }
  // A number that refuses nothing is a good answer to the article sent as `registro`, but doesn't
  // prove that the scales hold it: they are asked. Their answer settles it: true if the article is
  // finished, taken or not.
  void contestadoConNumero(const QByteArray& registro, int numero) {
    porProbar_ = {registro, 100 + numero};
  }
  bool zanjado(qint64 codigo, const QByteArray& registro, const QByteArray& suya);
  // The answer to a question about an article is neither its record nor that they don't have it.
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
  int codigo_ = 0;  // of the last frame sent
  struct PorProbar {
    QByteArray registro;
    int error = 0;
  } porProbar_;
  bool preparada_ = false;
};

// The complete sending to a group of kind 4, which compares its list with ours.
std::unique_ptr<motor::CursoTarea> crearComparacion(const motor::DatosTarea& t,
                                                    const motor::Entorno& e);

}  // namespace tarvo::tareas
