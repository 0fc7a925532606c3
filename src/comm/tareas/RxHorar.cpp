#include "comm/maquinas/Vek.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"
#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

namespace {

class Horas final : public PreguntasVek {
 public:
  using PreguntasVek::PreguntasVek;
  QString MostrarTraza() const override { return e_.textos(kTxPasoHora, {h_}); }
  qint64 codigoActual() const override { return h_; }

 protected:
  bool acabada() const override { return h_ > 23; }
  maquinas::Peticion pregunta() const override { return maquinas::vek::hora(h_); }
  bool responde(const QByteArray& datos) const override {
    const auto hora = maquinas::vek::cabeza(datos, 1, 2);
    return !hora || *hora == h_;
  }
  QString lugar() const override { return e_.textos(kTxLugarHora, {h_}); }
  Resultado<> registro(const QByteArray& datos) override {
    const auto r = maquinas::vek::leerHora(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    filasGrupo()[{r->numero, 0}] = contadores(*r);
    ++h_;
    return {};
  }

 private:
  int h_ = 0;
};

}  // namespace

Curso crearRxHorar(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<Horas>(t, e);
}

}  // namespace tarvo::tareas
