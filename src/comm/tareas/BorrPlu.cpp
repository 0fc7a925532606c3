#include <algorithm>
#include <utility>

#include "comm/envios/Tenencias.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/tareas/EnvioArticulos.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"

namespace tarvo::tareas {

namespace {

using motor::Siguiente;

// Wipes the articles of machines that can't delete single ones. It loses no sales: an Ebony machine
// with sales refuses it, and registers keep theirs. The link never repeats the order, since a late
// repeat would wipe articles sent after it; while it is under way no article counts as proved to be
// held.
class Borrado final : public motor::CursoTarea {
 public:
  Borrado(const motor::DatosTarea& t, const motor::Entorno& e)
      : t_(t), e_(e), tenencias_(e.db, e.reloj, destinoDe(t)) {
    const std::vector<int> una{t.Addr};
    for (const int addr : t.Tipo == TipoGrupo::Registradoras ? t.Direcciones : una)
      if (std::ranges::find(maquinas_, addr) == maquinas_.end()) maquinas_.push_back(addr);
  }

  Resultado<Siguiente> siguiente() override {
    if (paso_ > kPasos) return Siguiente::fin();
    TARVO_INTENTAR(anunciar());
    if (t_.Tipo == TipoGrupo::Ebony && paso_ == kPasos)
      return Siguiente{
          Siguiente::EsperarNODAL, t_.Addr, 0, {}, e_.ajustes.de<motor::AjustesMotor>().TimeCero};
    const maquinas::Peticion p = maquinas::borrarArticulos(t_.Tipo);
    return Siguiente{Siguiente::Enviar,
                     maquinas_[indice_],
                     p.codigo,
                     p.datos,
                     0,
                     {.unaVez = true, .limpia = true}};
  }
  // Any frame of an Ebony machine after the order is its answer.
  bool encaja(int addr, int codigo, const QByteArray&) const override {
    if (t_.Tipo == TipoGrupo::Ebony) return true;
    return codigo == maquinas::borrarArticulos(t_.Tipo).codigo &&
           (addr < 0 || addr == maquinas_[indice_]);
  }
  // A register may have answered, under the number of another's frame: it is asked once more, on a
  // wire that is quiet by now.
  bool sinRespuesta(int error) override {
    constexpr int kSinRespuestaLogica = 17;
    return t_.Tipo == TipoGrupo::Registradoras && error == kSinRespuestaLogica &&
           !std::exchange(insistida_, true);
  }
  Resultado<> respuesta(int, int, const QByteArray&) override {
    insistida_ = false;
    if (++indice_ < maquinas_.size()) return {};
    indice_ = 0;
    return ++paso_ > kPasos ? enTransaccion(&envios::Tenencias::borradoHecho) : Resultado<>{};
  }
  // Nothing was wiped.
  bool rechazada(int) override {
    if (t_.Tipo == TipoGrupo::Ebony && enTransaccion(&envios::Tenencias::borradoRechazado))
      anunciada_ = false;
    return false;
  }
  void reanudar() override {
    if (t_.Tipo == TipoGrupo::Ebony) paso_ = 1;
  }
  Resultado<std::vector<totals::Aviso>> cerrar() override {
    return std::vector<totals::Aviso>{
        {t_.Grupo, e_.textos(kTxArticulosBorrados, {t_.Grupo}), false}};
  }
  qint64 avance() const override { return paso_ * 1000 + static_cast<qint64>(indice_); }

 private:
  static constexpr int kPasos = 2;
  Resultado<> anunciar() {
    if (maquinas_.empty())
      return tarvo::fallo(Fallo::Restriccion, e_.textos(kTxSinCajasALasQueEnviar, {t_.Grupo}),
                          motor::kErrorSuprimido);
    if (!abierta_) TARVO_INTENTAR(enTransaccion(&envios::Tenencias::empezar));
    abierta_ = true;
    if (!anunciada_) TARVO_INTENTAR(enTransaccion(&envios::Tenencias::anunciarBorrado));
    anunciada_ = true;
    return {};
  }
  Resultado<> enTransaccion(Resultado<> (envios::Tenencias::*que)()) {
    TARVO_TOMAR(auto tr, dao::Transaccion::empezar(e_.db));
    TARVO_INTENTAR((tenencias_.*que)());
    return tr.confirmar();
  }

  const motor::DatosTarea t_;
  const motor::Entorno e_;
  envios::Tenencias tenencias_;
  std::vector<int> maquinas_;
  size_t indice_ = 0;
  int paso_ = 1;
  bool abierta_ = false, anunciada_ = false, insistida_ = false;
};

}  // namespace

Curso crearBorrPlu(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<Borrado>(t, e);
}

}  // namespace tarvo::tareas
