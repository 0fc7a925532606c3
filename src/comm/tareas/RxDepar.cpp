#include <utility>

#include "comm/maquinas/Caja.h"
#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"
#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

namespace {

class DepartamentosVek final : public PreguntasVek {
 public:
  using PreguntasVek::PreguntasVek;
  QString MostrarTraza() const override { return e_.textos(kTxPasoDepartamento, {n_}); }
  qint64 codigoActual() const override { return n_; }

 protected:
  bool acabada() const override { return n_ > maquinas::MaxDepartamentos(t_.Tipo); }
  maquinas::Peticion pregunta() const override { return maquinas::vek::departamento(n_); }
  bool responde(const QByteArray& datos) const override {
    const auto numero = maquinas::vek::cabeza(datos, 1, 2);
    return !numero || *numero == n_;
  }
  QString lugar() const override { return e_.textos(kTxLugarDepartamento, {n_}); }
  Resultado<> registro(const QByteArray& datos) override {
    const auto r = maquinas::vek::leerDepartamento(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    filasGrupo()[{r->numero, 0}] = contadores(*r);
    ++n_;
    return {};
  }

 private:
  int n_ = 1;
};

class DepartamentosNodal final : public ListaNodal {
 public:
  using ListaNodal::ListaNodal;

 protected:
  maquinas::Peticion pregunta() const override { return maquinas::nodal::departamentos(); }
  QString lugar() const override { return e_.textos(kTxLugarDepartamentos); }
  Resultado<> registros(const QByteArray& datos) override {
    const auto r = maquinas::nodal::leerDepartamentos(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    for (const maquinas::Total& t : *r) anotar(t, {t.numero, 0});
    return {};
  }
};

class DepartamentosCaja final : public ListasCaja {
 public:
  using ListasCaja::ListasCaja;

 protected:
  maquinas::Peticion pregunta() const override { return maquinas::caja::totales(); }
  QString lugar() const override { return e_.textos(kTxLugarDepartamentos); }
  Resultado<> registro(const QByteArray& datos, totals::Lectura::Filas& filas) override {
    const auto r = maquinas::caja::leerDepartamento(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    if (*r) filas[{(*r)->numero, 0}] += contadores(**r);
    return {};
  }
};

}  // namespace

Curso crearRxDepar(const motor::DatosTarea& t, const motor::Entorno& e) {
  switch (t.Tipo) {
    case TipoGrupo::Ebony:
      return std::make_unique<DepartamentosNodal>(t, e);
    case TipoGrupo::Registradoras:
      return std::make_unique<DepartamentosCaja>(t, e);
    case TipoGrupo::Balanzas:
    case TipoGrupo::Birch:
      return std::make_unique<DepartamentosVek>(t, e);
  }
  std::unreachable();
}

}  // namespace tarvo::tareas
