#include "articles/importar/ImpTabla.h"

#include "articles/importar/TextosImportar.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using articles::Articulo;
using articles::ClaveArticulo;

namespace {

const QString kVentanaTabla = u"ImpTabla"_s;

}  // namespace

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

// What one walk over the rows has to remember.
struct ImpTabla::Pase {
  std::unique_ptr<dao::Recordset> rs;
  articles::ColumnasArticulo columnas;
  std::map<ClaveArticulo, int> vistas;            // line of each key
  std::map<int, QHash<QString, qint64>> codigos;  // by section: bar code, article
  explicit Pase(std::unique_ptr<dao::Recordset> abierto) : rs(std::move(abierto)), columnas(*rs) {}

  Resultado<std::optional<Articulo>> buscar(ClaveArticulo clave) {
    const auto hay = rs->Seek(dao::Busca::Igual, clave.seccion, clave.codigo);
    if (!hay) return std::unexpected(hay.error());
    if (!*hay) return std::nullopt;
    return columnas.leer(*rs);
  }
};

struct ImpTabla::Propuesto {
  Propuesta propuesta;
  std::optional<Articulo> articulo;  // to be written
};

ImpTabla::ImpTabla(dao::Database& db, articles::Catalogo& catalogo, Reloj& reloj,
                   const Ajustes& ajustes, const Tabla& tabla, Plan plan, Departamentos deptos)
    : db_(db),
      catalogo_(catalogo),
      lotes_(db, catalogo, reloj),
      ajustes_(ajustes),
      tabla_(tabla),
      plan_(std::move(plan)),
      deptos_(std::move(deptos)),
      lector_(tabla_, plan_, deptos_, ajustes_, catalogo.textos()) {}
ImpTabla::~ImpTabla() = default;

Resultado<std::unique_ptr<ImpTabla>> ImpTabla::crear(dao::Database& db,
                                                     articles::Catalogo& catalogo, Reloj& reloj,
                                                     const Ajustes& ajustes, const Tabla& tabla,
                                                     const Plan& plan) {
  auto deptos = Departamentos::leer(db);
  if (!deptos) return std::unexpected(deptos.error());
  std::unique_ptr<ImpTabla> i(
      new ImpTabla(db, catalogo, reloj, ajustes, tabla, plan, std::move(*deptos)));
  auto pase = i->nuevoPase();
  if (!pase) return std::unexpected(pase.error());
  i->ensayo_ = std::move(*pase);
  return i;
}

int ImpTabla::filas() const {
  return std::max(0, tabla_.filas() - plan_.primeraFila);
}

Resultado<std::unique_ptr<ImpTabla::Pase>> ImpTabla::nuevoPase() {
  auto rs = db_.OpenTable(u"PLUSES", u"PrimaryKey");
  if (!rs) return std::unexpected(rs.error());
  return std::make_unique<Pase>(std::move(*rs));
}

Resultado<bool> ImpTabla::ensayar() {
  for (int i = 0; i < kFilasPorPaso && ensayadas() < filas(); ++i) {
    auto p = proponer(*ensayo_, plan_.primeraFila + ensayadas());
    if (!p) return std::unexpected(p.error());
    ++cuantas_[static_cast<size_t>(p->propuesta.que)];
    propuestas_.push_back(std::move(p->propuesta));
  }
  return ensayadas() < filas();
}

Resultado<ImpTabla::Propuesto> ImpTabla::proponer(Pase& pase, int fila) {
  const Textos& t = catalogo_.textos();
  Propuesto p;
  p.propuesta.linea = tabla_.linea(fila);
  const auto rechazar = [&p](const QString& motivo) {
    p.propuesta.motivo = motivo;
    return p;
  };
  const auto clave = lector_.clave(fila);
  if (!clave) return rechazar(clave.error());
  p.propuesta.clave = *clave;
  const auto [otra, primera] = pase.vistas.emplace(*clave, p.propuesta.linea);
  if (!primera) return rechazar(t(kTxRepetido, {Ceros(clave->codigo, 7), otra->second}));
  const auto antes = pase.buscar(*clave);
  if (!antes) return std::unexpected(antes.error());
  if (*antes) p.propuesta.nombre = (*antes)->nombre;
  const auto leido = leer(pase, fila, *clave, *antes);
  if (!leido) return std::unexpected(leido.error());
  if (!*leido) return rechazar(leido->error());
  const Articulo& ahora = **leido;
  p.propuesta.nombre = ahora.nombre;
  p.propuesta.que = !*antes ? Que::Nuevo : **antes == ahora ? Que::Igual : Que::Cambia;
  if (p.propuesta.que == Que::Igual) return p;
  p.propuesta.cambios = comparar(*antes, ahora);
  p.articulo = ahora;
  return p;
}

Resultado<std::expected<Articulo, QString>> ImpTabla::leer(Pase& pase, int fila,
                                                           ClaveArticulo clave,
                                                           const std::optional<Articulo>& antes) {
  using Leido = std::expected<Articulo, QString>;
  const Textos& t = catalogo_.textos();
  if (!antes && !plan_.crearNuevos)
    return Leido(std::unexpected(t(kTxNoSeCrean, {Ceros(clave.codigo, 7)})));
  Articulo base = antes.value_or(Articulo{});
  base.clave = clave;
  Leido ahora = lector_.aplicar(fila, std::move(base), !antes);
  if (!ahora) return ahora;
  const auto viejo = antes ? antes->codBarExt : std::nullopt;
  if (ahora->codBarExt == viejo) return ahora;
  if (!pase.codigos.contains(clave.seccion)) {
    auto rs = db_.consultar(
        u"SELECT CodBarExt, CODPLU FROM PLUSES WHERE SECCION=? AND CodBarExt IS NOT NULL",
        clave.seccion);
    if (!rs) return std::unexpected(rs.error());
    auto& suyos = pase.codigos[clave.seccion];
    for (; !(*rs)->Eof();) {
      suyos.insert((*rs)->texto(0), (*rs)->entero(1));
      TARVO_INTENTAR((*rs)->MoveNext());
    }
  }
  auto& codigos = pase.codigos[clave.seccion];
  const qint64 dueno = codigos.value(*ahora->codBarExt, clave.codigo);
  if (dueno != clave.codigo)
    return Leido(std::unexpected(t(kTxCodigoDeOtro, {*ahora->codBarExt, Ceros(dueno, 7)})));
  if (viejo) codigos.remove(*viejo);
  codigos.insert(*ahora->codBarExt, clave.codigo);
  return ahora;
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

Resultado<> ImpTabla::escribir(qint64 lote, const Propuesto& p) {
  const ClaveArticulo clave = p.propuesta.clave;
  if (p.propuesta.que == Que::Nuevo) {
    TARVO_INTENTAR(lotes_.guardarNuevo(lote, clave));
    return catalogo_.crear(*p.articulo, kVentanaTabla);
  }
  TARVO_INTENTAR(lotes_.guardar(lote, clave));
  return catalogo_.modificar(clave, *p.articulo, kVentanaTabla);
}

Resultado<ImpTabla::Hecho> ImpTabla::aplicar(const std::function<void(int)>& avance) {
  auto t = dao::Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  auto pase = nuevoPase();
  if (!pase) return std::unexpected(pase.error());
  const auto lote = lotes_.empezar(kVentanaTabla);
  if (!lote) return std::unexpected(lote.error());
  Hecho hecho;
  for (int f = plan_.primeraFila; f < tabla_.filas(); ++f) {
    const auto p = proponer(**pase, f);
    if (!p) return std::unexpected(p.error());
    const Propuesta& que = p->propuesta;
    if (que.que == Que::Rechazada)
      hecho.malas.push_back({que.linea, que.motivo, tabla_.celda(f, 0).left(40)});
    if (p->articulo) {
      if (const auto r = escribir(*lote, *p); !r)
        return fallo(r.error().clase,
                     catalogo_.textos()(kTxNadaHecho, {que.linea, r.error().texto}));
      ++(que.que == Que::Nuevo ? hecho.nuevos : hecho.cambiados);
    }
    if (avance) avance(f - plan_.primeraFila + 1);
  }
  if (hecho.nuevos + hecho.cambiados > 0)
    TARVO_INTENTAR(lotes_.acabar(*lote));
  else
    TARVO_INTENTAR(lotes_.olvidar(*lote));
  TARVO_INTENTAR(t->confirmar());
  return hecho;
}

}  // namespace tarvo::importar
