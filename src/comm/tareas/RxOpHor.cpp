#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"
#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

namespace {

// The scale skips what has no sales: an answer stands at the question or behind it, and the walk
// goes on from there.
class CruzadoVek final : public PreguntasVek {
 public:
  using PreguntasVek::PreguntasVek;
  QString MostrarTraza() const override { return e_.textos(kTxPasoOperadorHora, {n_, h_}); }
  qint64 codigoActual() const override { return n_; }

 protected:
  Resultado<> preparar() override {
    auto r = leerOperadores(e_, t_.Grupo);
    if (!r) return std::unexpected(r.error());
    operadores_ = *r;
    return {};
  }
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
    const auto r = maquinas::vek::leerOperadorHora(datos);
    if (!r) return malRegistro(r.error(), e_.textos);
    if (r->numero > maquinas::MaxOperadores(t_.Tipo) || r->numero < 1 || r->hora < 0 ||
        r->hora > 23)
      return tarvo::fallo(Fallo::Formato, e_.textos(kTxSinOperadorHora, {r->numero, r->hora}), 7);
    if (r->imp > 0 || r->pes > 0 || r->con > 0)
      filasGrupo()[{operadores_[static_cast<size_t>(r->numero)], r->hora}] += contadores(*r);
    n_ = static_cast<int>(r->numero);
    h_ = r->hora + 1;
    if (h_ == 24) ++n_, h_ = 0;
    return {};
  }

 private:
  int n_ = 1, h_ = 0;
  std::array<qint64, 21> operadores_{};
};

class CruzadoNodal final : public ListaNodal {
 public:
  using ListaNodal::ListaNodal;

 protected:
  Resultado<> preparar() override {
    auto r = leerOperadores(e_, t_.Grupo);
    if (!r) return std::unexpected(r.error());
    operadores_ = *r;
    return {};
  }
  maquinas::Peticion pregunta() const override { return maquinas::nodal::operadoresHoras(); }
  QString lugar() const override { return e_.textos(kTxLugarOperadoresHoras); }
  Resultado<> registros(const QByteArray& datos) override {
    const auto r = maquinas::nodal::leerOperadoresHoras(datos);
    if (!r) return malRegistro(r.error(), e_.textos);
    for (const maquinas::Total& t : *r)
      if (t.numero < 1 || t.numero >= static_cast<qint64>(operadores_.size()) || t.hora > 23)
        return tarvo::fallo(Fallo::Formato, e_.textos(kTxSinOperadorHora, {t.numero, t.hora}), 7);
    for (const maquinas::Total& t : *r)
      anotar(t, {operadores_[static_cast<size_t>(t.numero)], t.hora});
    return {};
  }

 private:
  std::array<qint64, 21> operadores_{};
};

}  // namespace

Trabajo crearRxOpHor(const motor::DatosTarea& t, const motor::Entorno& e) {
  if (t.Tipo == 2) return std::make_unique<CruzadoNodal>(t, e);
  return std::make_unique<CruzadoVek>(t, e);
}

}  // namespace tarvo::tareas
