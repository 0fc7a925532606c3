#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"
#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

namespace {

// The scale skips positions and hours without sales: an answer is at the question or after it, and
// the walk continues from there.
class CruzadoVek final : public ConOperadores<PreguntasVek> {
 public:
  using ConOperadores::ConOperadores;
  QString MostrarTraza() const override { return e_.textos(kTxPasoOperadorHora, {n_, h_}); }
  qint64 codigoActual() const override { return n_; }

 protected:
  bool acabada() const override { return n_ > maquinas::MaxOperadores(t_.Tipo); }
  maquinas::Peticion pregunta() const override { return maquinas::vek::operadorHora(n_, h_); }
  bool responde(const QByteArray& datos) const override {
    const auto n = maquinas::vek::cabeza(datos, 1, 2);
    const auto h = maquinas::vek::cabeza(datos, 3, 2);
    if (!n || *n == 0 || !h) return true;
    return std::pair<qint64, qint64>(*n, *h) >= std::pair<qint64, qint64>(n_, h_);
  }
  QString lugar() const override { return e_.textos(kTxLugarOperadorHora, {n_, h_}); }
  Resultado<> registro(const QByteArray& datos) override {
    if (maquinas::vek::cabeza(datos, 1, 2) == 0) {
      n_ = maquinas::MaxOperadores(t_.Tipo) + 1;
      return {};
    }
    const auto r = maquinas::vek::leerOperadorHora(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    if (r->numero > maquinas::MaxOperadores(t_.Tipo) || r->numero < 1 || r->hora < 0 ||
        r->hora > 23)
      return tarvo::fallo(Fallo::Formato, e_.textos(kTxSinOperadorHora, {r->numero, r->hora}), 7);
    if (r->imp > 0 || r->pes > 0 || r->con > 0)
      filasGrupo()[{operador(r->numero), r->hora}] += contadores(*r);
    n_ = static_cast<int>(r->numero);
    h_ = r->hora + 1;
    if (h_ == 24) ++n_, h_ = 0;
    return {};
  }

 private:
  int n_ = 1, h_ = 0;
};

class CruzadoNodal final : public ConOperadores<ListaNodal> {
 public:
  using ConOperadores::ConOperadores;

 protected:
  maquinas::Peticion pregunta() const override { return maquinas::nodal::operadoresHoras(); }
  QString lugar() const override { return e_.textos(kTxLugarOperadoresHoras); }
  Resultado<> registros(const QByteArray& datos) override {
    const auto r = maquinas::nodal::leerOperadoresHoras(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    for (const maquinas::Total& t : *r)
      if (!esPosicion(t.numero) || t.hora > 23)
        return tarvo::fallo(Fallo::Formato, e_.textos(kTxSinOperadorHora, {t.numero, t.hora}), 7);
    for (const maquinas::Total& t : *r) anotar(t, {operador(t.numero), t.hora});
    return {};
  }
};

}  // namespace

Curso crearRxOpHor(const motor::DatosTarea& t, const motor::Entorno& e) {
  if (t.Tipo == TipoGrupo::Ebony) return std::make_unique<CruzadoNodal>(t, e);
  return std::make_unique<CruzadoVek>(t, e);
}

}  // namespace tarvo::tareas
