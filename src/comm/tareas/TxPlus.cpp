#include <algorithm>
#include <set>
#include <utility>

#include "comm/enlace/Errores.h"
#include "comm/maquinas/Articulo.h"
#include "comm/motor/Negativa.h"
#include "comm/tareas/EnvioArticulos.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"

namespace tarvo::tareas {

namespace {

using motor::Siguiente;

// A list of articles, then the deletions of the scales, then the refused articles once more.
//
// After a silence the scales are asked for their record of the article: they may have taken it
// although no answer arrived. If they answer without it, it is this article that they don't answer:
// it moves after the others. After a frame that went out more than once they are asked about the
// next article, since that question has another code: its answer settles what they owe.
class ListaDeArticulos : public EnvioArticulos {
 public:
  using EnvioArticulos::EnvioArticulos;

  bool encaja(int, int codigo, const QByteArray& datos) const override {
    if (t_.protocolo == Protocolo::Nodal) return true;
    if (codigo != codigoEnviado()) return false;
    const auto suyo = maquinas::codigoDeFicha(datos);
    return preguntando_ ? suyo.value_or(-1) >= numero_ : !soloPrecios() || !suyo;
  }
  void repetida() override { dudosa_ = dudosa_ || (conCross() && !soloPrecios()); }
  Resultado<> respuesta(int, int, const QByteArray& datos) override {
    const auto numero = motor::numeroDeNegativa(datos);
    if (preguntando_ && numero && *numero != kNumeroNoExiste) return sinFicha(numero_, datos);
    if (preguntando_) return contrastar(datos);
    // A machine that doesn't know an article has deleted it, but need not have taken it.
    if (fase_ == kBorrados || !numero) return tomada(), Resultado<>{};
    contestadoConNumero(registro_, *numero);
    dudosa_ = true;
    return {};
  }
  bool rechazada(int error) override {
    if (preguntando_ && error == kNoExiste) return contrastar({}).has_value();
    if (preguntando_) return false;
    if (fase_ != kBorrados) return negada(error);
    if (error == kNoExiste) return tomada(), true;
    return borradoNegado();
  }
  // Its answer to the question shows whether the machine is there at all.
  bool sinRespuesta(int error) override {
    if (!esSilencio(error)) return false;
    if (!conCross()) return !otraVezCallada(t_.Addr) && negada(error);
    dudosa_ = true;
    if (preguntando_) return false;
    callo(numero_, error);
    return true;
  }

 protected:
  bool borrando() const override { return fase_ == kBorrados; }
  Resultado<Siguiente> paso() override {
    for (; fase_ != kFin; siguienteFase()) {
      if (fase_ == kBorrados) {
        if (const auto codigo = remesa_.porBorrar())
          return preguntarAntes(*codigo, maquinas::borrarArticulo(*codigo));
        continue;
      }
      if (fase_ == kLista && remesa_.faltaSitio()) {
        TARVO_INTENTAR(remesa_.empezarBorrados());
        interrumpida_ = true;
        continue;
      }
      TARVO_TOMAR(const auto sale, remesa_.actual());
      if (sale) return articulo(*sale);
      if (fase_ == kLista && conCross()) TARVO_INTENTAR(remesa_.empezarBorrados());
    }
    return fin();
  }
  virtual Siguiente articulo(const envios::Remesa::Saliente& sale) {
    registro_ = sale.registro;
    if (t_.Tipo == TipoGrupo::Ebony)
      return enviar(t_.Addr, maquinas::enviarArticulo(t_.Tipo, registro_));
    return preguntarAntes(sale.codigo, soloPrecios()
                                           ? maquinas::enviarPrecios(registro_)
                                           : maquinas::enviarArticulo(t_.Tipo, registro_));
  }
  // The machine has taken the present article or deletion.
  virtual void tomada() {
    oida(t_.Addr);
    if (fase_ == kBorrados)
      remesa_.borrado();
    else
      remesa_.enviado();
  }
  virtual bool negada(int error) {
    if (soloPrecios() && error == kNoExiste) remesa_.hueco(numero_, numero_);
    return rechazarActual(error);
  }
  // For a machine that can't be asked: two silences running mean that it isn't there.
  bool otraVezCallada(int addr) { return std::exchange(muda_, addr) == addr; }
  void oida(int addr) { muda_ = muda_ == addr ? -1 : muda_; }

 private:
  enum Fase { kLista = 1, kBorrados = 2, kRechazados = 3, kFin = 0 };
  bool conCross() const { return t_.Tipo == TipoGrupo::Balanzas || t_.Tipo == TipoGrupo::Birch; }
  Siguiente preguntarAntes(qint64 numero, const maquinas::Peticion& p) {
    numero_ = numero;
    preguntando_ = dudosa_;
    return enviar(0, preguntando_ ? maquinas::pedirArticulo(numero) : p);
  }
  // The record that the scales hold, nothing for no such article: the step may be done already.
  Resultado<> contrastar(const QByteArray& datos) {
    preguntando_ = dudosa_ = false;
    const int callada = callado(numero_);
    const bool tienen = maquinas::codigoDeFicha(datos).value_or(-1) == numero_;
    if (fase_ == kBorrados) {
      if (!tienen) return tomada(), Resultado<>{};
      if (callada == 0 || borradoNegado()) return {};
      return tarvo::fallo(Fallo::Comunicacion, {}, callada);
    }
    if (zanjado(numero_, registro_, datos)) return {};
    return callada == 0 ? Resultado<>{} : noContesto(callada);
  }
  // Moves it after the other deletions. False if it was moved before.
  bool borradoNegado() {
    remesa_.borradoNegado();
    return sinBorrar_.insert(numero_).second;
  }
  void siguienteFase() {
    if (fase_ == kLista)
      fase_ = kBorrados;
    else if (fase_ == kBorrados && std::exchange(interrumpida_, false))
      fase_ = kLista;
    else
      fase_ = fase_ == kBorrados && remesa_.empezarFinal() ? kRechazados : kFin;
  }

  int fase_ = kLista;
  qint64 numero_ = 0;    // of the article of the last frame
  QByteArray registro_;  // the record sent
  bool dudosa_ = false, preguntando_ = false;
  int muda_ = -1;               // address of the last silent machine
  std::set<qint64> sinBorrar_;  // refused deletions
  bool interrumpida_ = false;   // the list, by deletions that may make room
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
  // A register acknowledged the frame but doesn't answer: on its wire a refusal looks like that.
  // One that doesn't even acknowledge may be out of order or absent.
  bool sinRespuesta(int error) override {
    if (!esSilencio(error)) return false;
    if (error == enlace::kErrorSinRespuesta) return negada(error);
    return !otraVezCallada(caja()) && rechazarEn(error);
  }

 protected:
  Resultado<> preparar() override {
    if (cajas_.empty())
      return tarvo::fallo(Fallo::Restriccion, e_.textos(kTxSinCajasALasQueEnviar, {t_.Grupo}),
                          motor::kErrorSuprimido);
    return ListaDeArticulos::preparar();
  }
  Siguiente articulo(const envios::Remesa::Saliente& sale) override {
    return enviar(caja(), maquinas::enviarArticulo(t_.Tipo, sale.registro));
  }
  void tomada() override {
    oida(caja());
    if (++indice_ < cajas_.size()) return;
    indice_ = 0;
    ListaDeArticulos::tomada();
  }
  bool negada(int error) override {
    oida(caja());
    return rechazarEn(error);
  }

 private:
  bool rechazarEn(int error) {
    indice_ = 0;
    return ListaDeArticulos::negada(error);
  }
  int caja() const { return cajas_[indice_]; }
  std::vector<int> cajas_;
  size_t indice_ = 0;
};

}  // namespace

Curso crearTxPlus(const motor::DatosTarea& t, const motor::Entorno& e) {
  if (t.Tipo == TipoGrupo::Registradoras) return std::make_unique<ListaDeCajas>(t, e);
  if (t.Tipo == TipoGrupo::Birch && t.Todo) return crearComparacion(t, e);
  return std::make_unique<ListaDeArticulos>(t, e);
}

Curso crearTPreci(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<ListaDeArticulos>(t, e, envios::Remesa::Que::Precios);
}

}  // namespace tarvo::tareas
