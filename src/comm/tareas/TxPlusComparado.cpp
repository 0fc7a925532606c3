#include <algorithm>
#include <utility>

#include "comm/motor/Negativa.h"
#include "comm/tareas/EnvioArticulos.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"

namespace tarvo::tareas {

namespace {

using motor::Siguiente;

// Walks the scales' own list beside ours and deletes their articles that we don't have. A held-back
// or refused article counts as ours, so that theirs stays as it is.
class Comparacion final : public EnvioArticulos {
 public:
  Comparacion(const motor::DatosTarea& t, const motor::Entorno& e)
      : EnvioArticulos(t, e), desde_(std::max(t.Desde, maquinas::kPrimerArticulo)) {}

  bool encaja(int, int codigo, const QByteArray& datos) const override {
    if (codigo != codigoEnviado()) return false;
    const qint64 numero = maquinas::codigoDeFicha(datos).value_or(-1);
    return fase_ == kPreguntar ? numero >= desde_ : fase_ != kContrastar || numero >= nuestro_;
  }
  Resultado<> respuesta(int, int, const QByteArray& datos) override {
    const auto numero = motor::numeroDeNegativa(datos);
    const bool preguntado = fase_ == kPreguntar || fase_ == kContrastar;
    if (preguntado && numero && *numero != kNumeroNoExiste)
      return sinFicha(fase_ == kPreguntar ? desde_ : nuestro_, datos);
    if (fase_ == kPreguntar)
      return tienen(numero ? kDetrasDeTodos : *maquinas::codigoDeFicha(datos));
    if (fase_ == kHacerSitio) {
      remesa_.borrado();
    } else if (fase_ == kBorrar) {
      remesa_.borrado(desde_);
      sabida_ = false;
      // It costs no extra frame: if the article is gone, they answer with the one after it.
      mirando_ = ++borradosSinMirar_ == kBorradosSinMirar;
      if (!mirando_) ++desde_;
    } else if (fase_ == kContrastar) {
      return contrastado(datos);
    } else if (numero) {
      contestadoConNumero(registro_, *numero);
      dudosa_ = true;
    } else {
      tomado();
    }
    return {};
  }
  // Another answer may come: the next frame has another code, and its answer settles what they owe.
  void repetida() override {
    dudosa_ = dudosa_ || fase_ == kEnviar;
    deben_ = deben_ || fase_ == kHacerSitio;
  }
  // They may have done it although no answer arrived, and are asked. That also shows whether they
  // are there at all.
  bool sinRespuesta(int error) override {
    if (!esSilencio(error)) return false;
    if (fase_ == kEnviar) {
      dudosa_ = true;
      callo(nuestro_, error);
      return true;
    }
    if (fase_ != kBorrar) return false;
    if (std::exchange(borradoCallado_, desde_) == desde_) return rechazada(error);
    sabida_ = false;
    return true;
  }
  bool rechazada(int error) override {
    if (fase_ == kEnviar) {
      siguienteNuestro();
      return rechazarActual(error);
    }
    if (fase_ == kHacerSitio) remesa_.borradoNegado();
    if (fase_ != kBorrar) return false;
    sabida_ = false;
    return remesa_.borradoNegado(desde_++, error, motivoDeRechazo(error, e_.textos));
  }
  qint64 codigoActual() const override {
    return fase_ == kEnviar || fase_ == kContrastar ? EnvioArticulos::codigoActual()
                                                    : std::min(desde_, t_.Hasta);
  }

 protected:
  Resultado<> preparar() override { return remesa_.empezar(true, {desde_, t_.Hasta}, true); }
  bool borrando() const override { return fase_ == kBorrar || fase_ == kHacerSitio; }
  Resultado<Siguiente> paso() override {
    for (;;) {
      if (remesa_.faltaSitio()) {
        TARVO_INTENTAR(remesa_.empezarBorrados());
        sabida_ = false;
      }
      if (const auto codigo = remesa_.porBorrar()) {
        fase_ = std::exchange(deben_, false) ? kPreguntar : kHacerSitio;
        if (fase_ == kPreguntar)
          return enviar(maquinas::pedirArticulo(std::min(desde_, kDetrasDeTodos - 1)));
        return enviar(maquinas::borrarArticulo(*codigo));
      }
      TARVO_TOMAR(const auto sale, remesa_.actual(!final_));
      if (!sale && (final_ || desde_ > t_.Hasta)) {
        if (!final_ && remesa_.empezarNegados()) continue;
        if (final_ || !remesa_.empezarFinal()) return fin();
        final_ = true;
        continue;
      }
      nuestro_ = sale ? sale->codigo : kDetrasDeTodos;
      const bool suyaDelante = !final_ && desde_ < std::min(nuestro_, kDetrasDeTodos);
      fase_ = !suyaDelante ? kEnviar : sabida_ ? kBorrar : kPreguntar;
      if (fase_ == kPreguntar) return enviar(maquinas::pedirArticulo(desde_));
      if (fase_ == kBorrar) return enviar(maquinas::borrarArticulo(desde_));
      if (!sale->retenido()) return enviarNuestro(sale->registro);
      siguienteNuestro();
      remesa_.pasado();
    }
  }

 private:
  enum Fase { kPreguntar = 10, kEnviar = 11, kBorrar = 12, kContrastar = 13, kHacerSitio = 14 };
  static constexpr qint64 kDetrasDeTodos = 10'000'000;
  // This many deletions are trusted; then the scales are asked whether the last one is gone.
  static constexpr int kBorradosSinMirar = 16;
  Siguiente enviar(const maquinas::Peticion& p) { return EnvioArticulos::enviar(0, p); }
  // Their first number at or after the requested one.
  Resultado<> tienen(qint64 suyo) {
    dudosa_ = false;
    if (mirando_ && suyo == desde_) {
      remesa_.sigueTeniendo(suyo, e_.textos(kTxSigueTeniendolo));
      return tarvo::fallo(Fallo::Formato, e_.textos(kTxNoBorra, {t_.Grupo, Ceros(suyo, 7)}));
    }
    if (std::exchange(mirando_, false)) borradosSinMirar_ = 0;
    remesa_.hueco(desde_, std::min(suyo - 1, t_.Hasta));
    desde_ = suyo;
    sabida_ = true;
    return {};
  }
  Resultado<> contrastado(const QByteArray& datos) {
    dudosa_ = false;
    const int callada = callado(nuestro_);
    if (zanjado(nuestro_, registro_, datos)) return siguienteNuestro(), Resultado<>{};
    if (callada == 0) return {};
    siguienteNuestro();
    return noContesto(callada);
  }
  Siguiente enviarNuestro(const QByteArray& registro) {
    registro_ = registro;
    if (!dudosa_) return enviar(maquinas::enviarArticulo(t_.Tipo, registro));
    fase_ = kContrastar;
    return enviar(maquinas::pedirArticulo(nuestro_));
  }
  void tomado() {
    remesa_.enviado();
    siguienteNuestro();
  }
  // Our present article, and theirs of that number, are dealt with.
  void siguienteNuestro() {
    if (desde_ == nuestro_) ++desde_;
    sabida_ = false;
  }

  int fase_ = kPreguntar;
  qint64 desde_;         // their next number, or the one to ask from
  qint64 nuestro_ = 0;   // our next number
  bool sabida_ = false;  // they have just reported theirs
  QByteArray registro_;  // of ours, as sent
  bool final_ = false, dudosa_ = false, deben_ = false;
  qint64 borradoCallado_ = -1;  // the unanswered deletion
  int borradosSinMirar_ = 0;
  bool mirando_ = false;  // the requested number is one that they have deleted
};

}  // namespace

Curso crearComparacion(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<Comparacion>(t, e);
}

}  // namespace tarvo::tareas
