#include <algorithm>

#include "comm/tareas/EnvioArticulos.h"
#include "comm/tareas/Fabricas.h"

namespace tarvo::tareas {

namespace {

using motor::Siguiente;

// Walks the scales' own list beside ours: what they hold and we don't have is deleted. An article
// that is held back or refused counts as one that we have, so that theirs stays as it is.
class Comparacion final : public EnvioArticulos {
 public:
  Comparacion(const motor::DatosTarea& t, const motor::Entorno& e)
      : EnvioArticulos(t, e), desde_(std::max(t.Desde, maquinas::kPrimerArticulo)) {}

  bool encaja(int, int codigo, const QByteArray& datos) const override {
    if (codigo != codigo_) return false;
    const qint64 numero = maquinas::codigoDeFicha(datos).value_or(-1);
    return fase_ == kPreguntar ? numero >= desde_ : fase_ != kContrastar || numero >= nuestro_;
  }
  Resultado<> respuesta(int, int, const QByteArray& datos) override {
    const bool noExiste = datos.startsWith("ERR");
    if (fase_ == kPreguntar) {
      const qint64 suyo = noExiste ? kDetrasDeTodos : *maquinas::codigoDeFicha(datos);
      remesa_.hueco(desde_, std::min(suyo - 1, t_.Hasta));
      desde_ = suyo;
      sabida_ = true;
    } else if (fase_ == kHacerSitio) {
      remesa_.borrado();
    } else if (fase_ == kBorrar) {
      remesa_.borrado(desde_++);
      sabida_ = false;
    } else if (fase_ == kContrastar) {
      dudosa_ = false;
      if (zanjado(registro_, datos)) siguienteNuestro();
    } else if (noExiste) {
      contestadoQueNoExiste(registro_);
      dudosa_ = true;
    } else {
      tomado();
    }
    return {};
  }
  // They may have taken it unheard: they are asked, and late answers, which bear no number, end.
  bool sinRespuesta(int) override {
    dudosa_ = dudosa_ || fase_ == kEnviar;
    return false;
  }
  bool rechazada(int error) override {
    if (fase_ == kEnviar) {
      siguienteNuestro();
      return rechazarActual(error);
    }
    if (fase_ == kHacerSitio) remesa_.borradoNegado();
    if (fase_ == kBorrar) {
      remesa_.borradoNegado(desde_++, motivoDeRechazo(error, e_.textos));
      sabida_ = false;
    }
    return false;
  }
  qint64 codigoActual() const override {
    return fase_ == kEnviar ? EnvioArticulos::codigoActual() : std::min(desde_, t_.Hasta);
  }

 protected:
  Resultado<> preparar() override { return remesa_.empezar(true, {desde_, t_.Hasta}, true); }
  Resultado<Siguiente> paso() override {
    for (;;) {
      if (remesa_.faltaSitio()) {
        TARVO_INTENTAR(remesa_.empezarBorrados());
        sabida_ = false;
      }
      if (const auto codigo = remesa_.porBorrar()) {
        fase_ = kHacerSitio;
        return enviar(maquinas::borrarArticulo(*codigo));
      }
      const auto sale = remesa_.actual(!final_);
      if (!sale) return std::unexpected(sale.error());
      if (!*sale && (final_ || desde_ > t_.Hasta)) {
        if (final_ || !remesa_.empezarFinal()) return fin();
        final_ = true;
        continue;
      }
      nuestro_ = *sale ? (*sale)->codigo : kDetrasDeTodos;
      const bool suyaDelante = !final_ && desde_ < std::min(nuestro_, kDetrasDeTodos);
      fase_ = !suyaDelante ? kEnviar : sabida_ ? kBorrar : kPreguntar;
      if (fase_ == kPreguntar) return enviar(maquinas::pedirArticulo(desde_));
      if (fase_ == kBorrar) return enviar(maquinas::borrarArticulo(desde_));
      if (!(*sale)->retenido()) return enviarNuestro((*sale)->registro);
      siguienteNuestro();
      remesa_.pasado();
    }
  }

 private:
  enum Fase { kPreguntar = 10, kEnviar = 11, kBorrar = 12, kContrastar = 13, kHacerSitio = 14 };
  static constexpr qint64 kDetrasDeTodos = 10'000'000;
  Siguiente enviar(const maquinas::Peticion& p) {
    codigo_ = p.codigo;
    return {Siguiente::Enviar, 0, p.codigo, p.datos};
  }
  Siguiente enviarNuestro(const QByteArray& registro) {
    registro_ = registro;
    if (!dudosa_) return enviar(maquinas::enviarArticulo(4, registro));
    fase_ = kContrastar;
    return enviar(maquinas::pedirArticulo(nuestro_));
  }
  void tomado() {
    remesa_.enviado();
    siguienteNuestro();
  }
  // Our present article is dealt with, and theirs of that number.
  void siguienteNuestro() {
    if (desde_ == nuestro_) ++desde_;
    sabida_ = false;
  }

  int fase_ = kPreguntar, codigo_ = 0;
  qint64 desde_;         // the number of theirs that comes next, or from which to ask
  qint64 nuestro_ = 0;   // ours that comes next
  bool sabida_ = false;  // theirs is the one that they just told
  QByteArray registro_;  // of ours, as it goes
  bool final_ = false, dudosa_ = false;
};

}  // namespace

Trabajo crearComparacion(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<Comparacion>(t, e);
}

}  // namespace tarvo::tareas
