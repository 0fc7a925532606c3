#include <utility>

#include "comm/maquinas/Caja.h"
#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/GranTotal.h"
#include "comm/tareas/TextosTareas.h"

namespace tarvo::tareas {

namespace {

class GranTotalVek final : public PreguntasVek {
 public:
  using PreguntasVek::PreguntasVek;

 protected:
  bool acabada() const override { return hecha_; }
  maquinas::Peticion pregunta() const override { return maquinas::vek::granTotal(t_.Tipo); }
  bool responde(const QByteArray&) const override { return true; }
  QString lugar() const override { return e_.textos(kTxLugarGranTotal); }
  Resultado<> registro(const QByteArray& datos) override {
    const auto r = maquinas::vek::leerGranTotal(datos, t_.Tipo, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    filasGrupo()[{t_.Grupo, 0}] = contadores(*r);
    hecha_ = true;
    return {};
  }

 private:
  bool hecha_ = false;
};

class GranTotalNodal final : public ListaNodal {
 public:
  using ListaNodal::ListaNodal;

 protected:
  maquinas::Peticion pregunta() const override { return maquinas::nodal::granTotal(); }
  QString lugar() const override { return e_.textos(kTxLugarGranTotal); }
  Resultado<> registros(const QByteArray& datos) override {
    const auto r = maquinas::nodal::leerGranTotal(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    anotar(*r, {t_.Grupo, 0});
    return {};
  }
  bool puedeVenirVacia() const override { return false; }
};

class GranTotalCaja final : public ListasCaja {
 public:
  using ListasCaja::ListasCaja;

 protected:
  maquinas::Peticion pregunta() const override { return maquinas::caja::totales(); }
  QString lugar() const override { return e_.textos(kTxLugarGranTotal); }
  Resultado<> registro(const QByteArray& datos, totals::Lectura::Filas& filas) override {
    const auto r = maquinas::caja::leerGranTotal(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    if (*r) filas[{t_.Grupo, 0}] += contadores(**r);
    return {};
  }
};

}  // namespace

std::unique_ptr<Totales> crearGranTotal(const motor::DatosTarea& t, const motor::Entorno& e) {
  switch (t.Tipo) {
    case TipoGrupo::Ebony:
      return std::make_unique<GranTotalNodal>(t, e);
    case TipoGrupo::Registradoras:
      return std::make_unique<GranTotalCaja>(t, e);
    case TipoGrupo::Balanzas:
    case TipoGrupo::Birch:
      return std::make_unique<GranTotalVek>(t, e);
  }
  std::unreachable();
}

Curso crearRxGrTot(const motor::DatosTarea& t, const motor::Entorno& e) {
  return crearGranTotal(t, e);
}

}  // namespace tarvo::tareas
