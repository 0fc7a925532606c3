// The dry run. The import itself is in ImpTablaAplicar.cpp.
#include "articles/importar/ImpTabla.h"

#include "articles/Limites.h"
#include "articles/importar/TextosImportar.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using articles::Articulo;
using articles::ClaveArticulo;

Signo averiguarSigno(const Tabla& tabla, const Plan& plan) {
  Escrutinio votos;
  for (int f = plan.primeraFila; f < tabla.filas(); ++f)
    for (size_t c = 0; c < plan.columnas.size(); ++c)
      if (plan.columnas[c] && esDecimal(*plan.columnas[c]))
        votos.contar(tabla.celda(f, static_cast<int>(c)));
  return votos.signo();
}

Plan planDe(const Tabla& tabla, const Textos& textos) {
  Titulos t = emparejar(tabla, textos);
  Plan plan{.columnas = std::move(t.columnas), .primeraFila = t.fila + 1};
  plan.signo = averiguarSigno(tabla, plan);
  return plan;
}

// The state of one pass over the rows.
struct ImpTabla::Pase {
  std::unique_ptr<dao::Recordset> rs;
  articles::ColumnasArticulo columnas;
  std::map<ClaveArticulo, int> vistas;  // line of each key
  explicit Pase(std::unique_ptr<dao::Recordset> abierto) : rs(std::move(abierto)), columnas(*rs) {}

  Resultado<std::optional<Articulo>> buscar(ClaveArticulo clave) {
    TARVO_TOMAR(const auto hay, rs->Seek(dao::Busca::Igual, clave.seccion, clave.codigo));
    if (!hay) return std::nullopt;
    return columnas.leer(*rs);
  }
};

ImpTabla::ImpTabla(articles::Catalogo& catalogo, const Ajustes& ajustes, const Tabla& tabla,
                   Plan plan, Departamentos deptos)
    : db_(catalogo.base()),
      catalogo_(catalogo),
      lotes_(catalogo),
      ajustes_(ajustes),
      tabla_(tabla),
      plan_(std::move(plan)),
      deptos_(std::move(deptos)),
      lector_(tabla_, plan_, deptos_, ajustes_, catalogo.textos()) {}
ImpTabla::~ImpTabla() = default;

Resultado<std::unique_ptr<ImpTabla>> ImpTabla::crear(articles::Catalogo& catalogo,
                                                     const Ajustes& ajustes, const Tabla& tabla,
                                                     const Plan& plan) {
  TARVO_TOMAR(auto deptos, Departamentos::leer(catalogo.base()));
  std::unique_ptr<ImpTabla> i(new ImpTabla(catalogo, ajustes, tabla, plan, std::move(deptos)));
  TARVO_TOMAR(auto pase, i->nuevoPase());
  i->ensayo_ = std::move(pase);
  return i;
}

int ImpTabla::filas() const {
  return std::max(0, tabla_.filas() - plan_.primeraFila);
}

Resultado<std::unique_ptr<ImpTabla::Pase>> ImpTabla::nuevoPase() {
  TARVO_TOMAR(auto rs, db_.OpenTable(u"PLUSES", u"PrimaryKey"));
  return std::make_unique<Pase>(std::move(rs));
}

Resultado<bool> ImpTabla::ensayar() {
  for (int i = 0; i < kFilasPorPaso && ensayadas() < filas(); ++i) {
    TARVO_TOMAR(auto p, proponer(*ensayo_, plan_.primeraFila + ensayadas()));
    ++cuantas_[static_cast<size_t>(p.que)];
    propuestas_.push_back(std::move(p));
  }
  if (ensayadas() < filas()) return true;
  negarCodigos();
  return false;
}

Resultado<Propuesta> ImpTabla::proponer(Pase& pase, int fila) {
  const Textos& t = catalogo_.textos();
  Propuesta p;
  p.linea = tabla_.linea(fila);
  const auto rechazar = [&p](const QString& motivo) {
    p.motivo = motivo;
    return p;
  };
  const auto clave = lector_.clave(fila);
  if (!clave) return rechazar(clave.error());
  p.clave = *clave;
  const auto [otra, primera] = pase.vistas.emplace(*clave, p.linea);
  if (!primera) return rechazar(t(kTxRepetido, {Ceros(clave->codigo, 7), otra->second}));
  TARVO_TOMAR(const auto antes, pase.buscar(*clave));
  if (antes) p.nombre = antes->nombre;
  const Leido ahora = leer(fila, *clave, antes);
  if (!ahora) return rechazar(ahora.error());
  TARVO_TOMAR(const auto ajeno, codigoAjeno(fila - plan_.primeraFila, antes, *ahora));
  if (ajeno) return rechazar(*ajeno);
  p.nombre = ahora->nombre;
  p.que = !antes ? Que::Nuevo : *antes == *ahora ? Que::Igual : Que::Cambia;
  if (p.que == Que::Igual) return p;
  p.cambios = comparar(antes, *ahora);
  p.avisos = preciosRaros(antes, *ahora);
  dudosas_ += p.avisos.isEmpty() ? 0 : 1;
  return p;
}

// The prices that the list and the form would warn of as well.
QStringList ImpTabla::preciosRaros(const std::optional<Articulo>& antes,
                                   const Articulo& ahora) const {
  QStringList avisos;
  for (size_t nivel = 0; nivel < ahora.precios.size(); ++nivel)
    for (size_t tarifa = 0; tarifa < ahora.precios[nivel].size(); ++tarifa) {
      const qint64 nuevo = ahora.precios[nivel][tarifa];
      const qint64 viejo = antes ? antes->precios[nivel][tarifa] : 0;
      if (nuevo == viejo) continue;
      const QString cual = articles::nombrePrecio(static_cast<int>(nivel), static_cast<int>(tarifa),
                                                  catalogo_.textos());
      if (const auto aviso =
              articles::avisoCambio(ahora.nombre, cual, viejo, nuevo, ajustes_, catalogo_.textos()))
        avisos << *aviso;
    }
  return avisos;
}

ImpTabla::Leido ImpTabla::leer(int fila, ClaveArticulo clave,
                               const std::optional<Articulo>& antes) const {
  if (!antes && !plan_.crearNuevos)
    return std::unexpected(catalogo_.textos()(kTxNoSeCrean, {Ceros(clave.codigo, 7)}));
  Articulo base = antes.value_or(Articulo{});
  base.clave = clave;
  return lector_.aplicar(fila, std::move(base), !antes);
}

Resultado<std::optional<QString>> ImpTabla::codigoAjeno(int fila,
                                                        const std::optional<Articulo>& antes,
                                                        const Articulo& ahora) {
  const auto viejo = antes ? antes->codBarExt : std::nullopt;
  if (ahora.codBarExt == viejo || !ahora.codBarExt) return std::nullopt;
  TARVO_TOMAR(const auto otro, reparto_.pedir(db_, fila, ahora.clave, viejo, *ahora.codBarExt));
  if (!otro) return std::nullopt;
  return catalogo_.textos()(kTxCodigoDeOtro, {*ahora.codBarExt, Ceros(*otro, 7)});
}

// Only known once all rows are: that a bar code stays where it is.
void ImpTabla::negarCodigos() {
  for (const auto& negado : reparto_.negados()) {
    Propuesta& p = propuestas_[static_cast<size_t>(negado.fila)];
    --cuantas_[static_cast<size_t>(p.que)];
    ++cuantas_[static_cast<size_t>(Que::Rechazada)];
    p.que = Que::Rechazada;
    p.cambios.clear();
    dudosas_ -= p.avisos.isEmpty() ? 0 : 1;
    p.avisos.clear();
    p.motivo = catalogo_.textos()(kTxCodigoDeOtro, {negado.codigo, Ceros(negado.dueno, 7)});
  }
  juntas_ = reparto_.juntas();
}

std::vector<Cambio> ImpTabla::comparar(const std::optional<Articulo>& antes,
                                       const Articulo& ahora) const {
  std::vector<Cambio> salida;
  for (const auto& campo : plan_.columnas) {
    if (!campo || *campo == Campo::Seccion || *campo == Campo::Codigo) continue;
    const Textos& t = catalogo_.textos();
    const QString nuevo = verCampo(*campo, ahora, ajustes_, t);
    const QString viejo = antes ? verCampo(*campo, *antes, ajustes_, t) : QString();
    if (nuevo != viejo) salida.push_back({*campo, viejo, nuevo});
  }
  return salida;
}

}  // namespace tarvo::importar
