#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"
#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

namespace {

// Positions with the same operator are added up; a position without one counts for operator 0.
class OperadoresVek final : public ConOperadores<PreguntasVek> {
 public:
  using ConOperadores::ConOperadores;
  QString MostrarTraza() const override { return e_.textos(kTxPasoOperador, {n_}); }
  qint64 codigoActual() const override { return n_; }

 protected:
  bool acabada() const override { return n_ > maquinas::MaxOperadores(t_.Tipo); }
  maquinas::Peticion pregunta() const override { return maquinas::vek::operador(n_); }
  bool responde(const QByteArray& datos) const override {
    // The head repeats the position where the scale fills it in.
    const auto posicion = maquinas::vek::cabeza(datos, 1, 2);
    return !posicion || *posicion == 0 || *posicion == n_;
  }
  QString lugar() const override { return e_.textos(kTxLugarOperador, {n_}); }
  Resultado<> registro(const QByteArray& datos) override {
    const auto r = maquinas::vek::leerOperador(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    filasGrupo()[{operador(n_), 0}] += contadores(*r);
    ++n_;
    return {};
  }

 private:
  int n_ = 1;
};

class OperadoresNodal final : public ConOperadores<ListaNodal> {
 public:
  using ConOperadores::ConOperadores;

 protected:
  maquinas::Peticion pregunta() const override { return maquinas::nodal::operadores(); }
  QString lugar() const override { return e_.textos(kTxLugarOperadores); }
  Resultado<> registros(const QByteArray& datos) override {
    const auto r = maquinas::nodal::leerOperadores(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    for (const maquinas::Total& t : *r)
      if (!esPosicion(t.numero))
        return tarvo::fallo(Fallo::Formato, e_.textos(kTxSinOperador, {t.numero}), 7);
    for (const maquinas::Total& t : *r) anotar(t, {operador(t.numero), 0});
    return {};
  }
};

}  // namespace

Curso crearRxOpera(const motor::DatosTarea& t, const motor::Entorno& e) {
  if (t.Tipo == TipoGrupo::Ebony) return std::make_unique<OperadoresNodal>(t, e);
  return std::make_unique<OperadoresVek>(t, e);
}

}  // namespace tarvo::tareas
