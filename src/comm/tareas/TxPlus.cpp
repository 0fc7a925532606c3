#include <algorithm>

#include "comm/maquinas/Articulo.h"
#include "comm/tareas/EnvioArticulos.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"

namespace tarvo::tareas {

namespace {

using motor::Siguiente;

constexpr int kNoExiste = 105;

// A list of articles, then what the scales must delete, then once more what was refused.
class ListaDeArticulos : public EnvioArticulos {
 public:
  using EnvioArticulos::EnvioArticulos;

  bool encaja(int, int codigo, const QByteArray&) const override {
    return t_.Protocolo == 2 || codigo == codigo_;
  }
  Resultado<> respuesta(int, int, const QByteArray& datos) override {
    // Whoever doesn't know an article has deleted it, and hasn't taken it.
    if (fase_ != kBorrados && datos.startsWith("ERR") && !rechazada(kNoExiste))
      return tarvo::fallo(Fallo::Comunicacion, {}, kNoExiste);
    if (!datos.startsWith("ERR") || fase_ == kBorrados) tomada();
    return {};
  }
  bool rechazada(int error) override {
    if (fase_ != kBorrados) return negada(error);
    if (error == kNoExiste) return tomada(), true;
    remesa_.borradoNegado();
    return false;
  }

 protected:
  Resultado<Siguiente> paso() override {
    for (; fase_ != kFin; siguienteFase()) {
      if (fase_ == kBorrados) {
        if (const auto codigo = remesa_.porBorrar())
          return enviar(0, maquinas::borrarArticulo(*codigo));
        continue;
      }
      const auto sale = remesa_.actual();
      if (!sale) return std::unexpected(sale.error());
      if (*sale) return articulo((*sale)->registro);
      if (fase_ == kLista && conBorrados()) TARVO_INTENTAR(remesa_.empezarBorrados());
    }
    return fin();
  }
  virtual Siguiente articulo(const QByteArray& registro) {
    return enviar(t_.Tipo == 2 ? t_.Addr : 0, soloPrecios()
                                                  ? maquinas::enviarPrecios(registro)
                                                  : maquinas::enviarArticulo(t_.Tipo, registro));
  }
  // The machine has taken the present article or deletion.
  virtual void tomada() {
    if (fase_ == kBorrados)
      remesa_.borrado();
    else
      remesa_.enviado();
  }
  virtual bool negada(int error) {
    if (soloPrecios() && error == kNoExiste && remesa_.codigoActual() > 0)
      remesa_.hueco(remesa_.codigoActual(), remesa_.codigoActual());
    return rechazarActual(error);
  }
  Siguiente enviar(int addr, const maquinas::Peticion& p) {
    codigo_ = p.codigo;
    return {Siguiente::Enviar, addr, p.codigo, p.datos};
  }

 private:
  enum Fase { kLista = 1, kBorrados = 2, kRechazados = 3, kFin = 0 };
  bool conBorrados() const { return t_.Tipo == 1 || t_.Tipo == 4; }
  void siguienteFase() {
    if (fase_ == kLista)
      fase_ = kBorrados;
    else
      fase_ = fase_ == kBorrados && remesa_.empezarFinal() ? kRechazados : kFin;
  }

  int fase_ = kLista;
  int codigo_ = 0;  // of the frame that was sent last
};

// Kind 3: each article to each register in turn.
class ListaDeCajas final : public ListaDeArticulos {
 public:
  ListaDeCajas(const motor::DatosTarea& t, const motor::Entorno& e) : ListaDeArticulos(t, e) {
    for (const int addr : t.Direcciones)
      if (std::ranges::find(cajas_, addr) == cajas_.end()) cajas_.push_back(addr);
  }
  bool encaja(int addr, int codigo, const QByteArray& datos) const override {
    return (addr < 0 || addr == caja()) && ListaDeArticulos::encaja(addr, codigo, datos);
  }
  // A register heard the frame and says nothing: on its wire a refusal looks like that.
  bool sinRespuesta(int error) override {
    constexpr int kSinRespuestaLogica = 17;
    return error == kSinRespuestaLogica && rechazada(error);
  }

 protected:
  Resultado<> preparar() override {
    if (cajas_.empty())
      return tarvo::fallo(Fallo::Restriccion, e_.textos(kTxSinCajasALasQueEnviar, {t_.Grupo}),
                          motor::kErrorSuprimido);
    return ListaDeArticulos::preparar();
  }
  Siguiente articulo(const QByteArray& registro) override {
    return enviar(caja(), maquinas::enviarArticulo(t_.Tipo, registro));
  }
  void tomada() override {
    if (++indice_ < cajas_.size()) return;
    indice_ = 0;
    ListaDeArticulos::tomada();
  }
  bool negada(int error) override {
    indice_ = 0;
    return ListaDeArticulos::negada(error);
  }

 private:
  int caja() const { return cajas_[indice_]; }
  std::vector<int> cajas_;
  size_t indice_ = 0;
};

}  // namespace

Trabajo crearTxPlus(const motor::DatosTarea& t, const motor::Entorno& e) {
  if (t.Tipo == 3) return std::make_unique<ListaDeCajas>(t, e);
  return std::make_unique<ListaDeArticulos>(t, e);
}

Trabajo crearTPreci(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<ListaDeArticulos>(t, e, envios::Remesa::Que::Precios);
}

}  // namespace tarvo::tareas
