#include <algorithm>
#include <utility>

#include "comm/enlace/AjustesEnlace.h"
#include "comm/maquinas/Caja.h"
#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/GranTotal.h"
#include "comm/tareas/TextosTareas.h"
#include "comm/tareas/Totales.h"
#include "core/dao/Recorrido.h"

namespace tarvo::tareas {

namespace {

constexpr qint64 kUltimoCodigo = 9999999;
constexpr qint64 kArticuloDesconocido = 2;  // the system article for sales of unknown codes

bool rangoEntero(const motor::DatosTarea& t) {
  return t.Desde <= 1 && t.Hasta >= kUltimoCodigo;
}

Resultado<std::vector<qint64>> leerCodigos(dao::Database& db, const motor::DatosTarea& t) {
  return dao::reunir(
      db.consultar(
          u"SELECT CODPLU FROM PLUSES WHERE (SECCION=?) AND (CODPLU>=?) AND (CODPLU<=?) ORDER BY "
          u"CODPLU",
          t.Seccion, t.Desde, t.Hasta),
      [](const dao::Recordset& rs) { return rs.entero(0); });
}

// Kinds 1 and 4: complete, with one question for each article of the section; or optimised, where
// the scale answers with the next article that has sales, at or after the one asked.
class ArticulosVek final : public PreguntasVek {
 public:
  using PreguntasVek::PreguntasVek;
  QString MostrarTraza() const override {
    return e_.textos(kTxPasoArticulo, {Ceros(codigoActual(), 7)});
  }
  qint64 codigoActual() const override { return acabada() ? t_.Desde : codigos_[pos_]; }

 protected:
  Resultado<> preparar() override {
    TARVO_TOMAR(auto r, leerCodigos(e_.db, t_));
    codigos_ = std::move(r);
    lectura_.entera = rangoEntero(t_);
    return {};
  }
  bool acabada() const override { return pos_ >= codigos_.size(); }
  maquinas::Peticion pregunta() const override {
    return t_.Todo ? maquinas::vek::articulo(codigos_[pos_])
                   : maquinas::vek::siguienteArticulo(codigos_[pos_]);
  }
  int timeOut() const override {
    if (t_.Todo) return 0;
    return e_.ajustes.de<enlace::AjustesEnlace>().TimeOut +
           300 * static_cast<int>(t_.Direcciones.size()) * 21;
  }
  bool responde(const QByteArray& datos) const override {
    const auto n = maquinas::vek::cabeza(datos, 1, 7);
    if (!n) return true;
    return t_.Todo ? *n == codigos_[pos_] : *n == 0 || *n >= codigos_[pos_];
  }
  QString lugar() const override { return e_.textos(kTxLugarArticulo, {Ceros(codigoActual(), 7)}); }
  Resultado<> registro(const QByteArray& datos) override {
    if (!t_.Todo && maquinas::vek::cabeza(datos, 1, 7) == 0) {
      pos_ = codigos_.size();
      return {};
    }
    const auto r = maquinas::vek::leerArticulo(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    const totals::Contadores c = contadores(*r);
    if (t_.Todo || !c.cero()) filasGrupo()[{r->numero, 0}] = c;
    pos_ = static_cast<size_t>(std::ranges::upper_bound(codigos_, r->numero) - codigos_.begin());
    return {};
  }

 private:
  std::vector<qint64> codigos_;
  size_t pos_ = 0;
};

// Kind 2. After a break it continues after the last article, provided that they came in order.
class ArticulosNodal final : public ListaNodal {
 public:
  ArticulosNodal(const motor::DatosTarea& t, const motor::Entorno& e)
      : ListaNodal(t, e),
        desde_(t.Desde),
        hasta_(std::min<qint64>(t.Hasta, maquinas::nodal::kUltimoArticulo)) {
    lectura_.entera = t.Desde <= 1 && t.Hasta >= maquinas::nodal::kUltimoArticulo;
  }
  QString MostrarTraza() const override { return e_.textos(kTxPasoArticulo, {Ceros(desde_, 7)}); }
  qint64 codigoActual() const override { return desde_; }
  qint64 avance() const override { return ListaNodal::avance() + desde_; }

 protected:
  maquinas::Peticion pregunta() const override {
    return maquinas::nodal::articulos(desde_, hasta_);
  }
  QString lugar() const override { return e_.textos(kTxLugarArticulo, {Ceros(desde_, 7)}); }
  Resultado<> registros(const QByteArray& datos) override {
    const auto r = maquinas::nodal::leerArticulos(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    for (const maquinas::Total& t : *r) {
      if (t.numero < desde_) enOrden_ = false;
      anotar(t, {t.numero, 0});
      desde_ = t.numero + 1;
    }
    return {};
  }
  void otraVez() override {
    if (!enOrden_ || desde_ > hasta_) deNuevo();
  }
  void deNuevo() override {
    ListaNodal::deNuevo();
    desde_ = t_.Desde;
    enOrden_ = true;
  }

 private:
  qint64 desde_, hasta_;
  bool enOrden_ = true;
};

// Kind 3: sales come by bar code, composed here as for sending: without blanks around its parts,
// and from prefix and number if there is none. An unknown code counts for a system article.
class ArticulosCaja final : public ListasCaja {
 public:
  using ListasCaja::ListasCaja;

 protected:
  Resultado<> preparar() override {
    lectura_.entera = rangoEntero(t_);
    TARVO_TOMAR(auto barras,
                dao::reunir(e_.db.consultar(
                                u"SELECT CODPLU, Val(iif(trim(CodBarExt)<>'', trim(CodBarExt), "
                                u"trim(PFX_BAR) & Format(CODPLU, '000000'))) AS bar FROM PLUSES "
                                u"WHERE SECCION=? ORDER BY 2, 1",
                                t_.Seccion),
                            [](const dao::Recordset& rs) {
                              return Barra{static_cast<qint64>(rs.real(1)), rs.entero(0)};
                            }));
    barras_ = std::move(barras);
    return {};
  }
  maquinas::Peticion pregunta() const override { return maquinas::caja::articulos(); }
  QString lugar() const override { return e_.textos(kTxLugarArticulos); }
  Resultado<> registro(const QByteArray& datos, totals::Lectura::Filas& filas) override {
    const auto r = maquinas::caja::leerArticulo(datos, rigor_);
    if (!r) return malRegistro(r.error(), e_.textos);
    if (!*r) return {};
    const auto it = std::ranges::lower_bound(barras_, (*r)->numero, {}, &Barra::bar);
    if (lectura_.entera || (it != barras_.end() && enRango(it->codigo)))
      filas[{it != barras_.end() && it->bar == (*r)->numero ? it->codigo : kArticuloDesconocido,
             0}] += contadores(**r);
    return {};
  }

 private:
  struct Barra {
    qint64 bar, codigo;
  };
  bool enRango(qint64 codigo) const { return codigo >= t_.Desde && codigo <= t_.Hasta; }
  std::vector<Barra> barras_;  // by bar
};

}  // namespace

std::unique_ptr<Totales> crearArticulosDeCaja(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<ArticulosCaja>(t, e);
}

Curso crearRxPlus(const motor::DatosTarea& t, const motor::Entorno& e) {
  switch (t.Tipo) {
    case TipoGrupo::Ebony:
      return std::make_unique<ArticulosNodal>(t, e);
    case TipoGrupo::Registradoras:
      return crearArticulosDeCaja(t, e);
    case TipoGrupo::Balanzas:
    case TipoGrupo::Birch:
      return std::make_unique<ArticulosVek>(t, e);
  }
  std::unreachable();
}

}  // namespace tarvo::tareas
