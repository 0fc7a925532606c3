#include "articles/precios/CambioLote.h"

#include <algorithm>

#include "articles/precios/Limites.h"
#include "articles/precios/LineaLote.h"
#include "articles/precios/TextosPrecios.h"

namespace tarvo::precios {

using articles::Articulo;

namespace {

constexpr int kMiradosPorPaso = 500;
constexpr qint64 kEntero = 10'000;  // hundredths of a per cent in the whole

// One value, into the line and, when it fits, into the article.
template <class T>
void anotar(LineaLote& linea, T& donde, qint64 nuevo, Desenlace desenlace) {
  if (donde == nuevo) return;
  if (linea.cambian++ == 0) linea.antes = donde, linea.despues = nuevo;
  if (desenlace != Desenlace::Cambia) {
    linea.antes = donde, linea.despues = nuevo;
    linea.desenlace = desenlace;
  } else if (linea.desenlace == Desenlace::Igual) {
    linea.desenlace = Desenlace::Cambia;
  }
  donde = static_cast<T>(nuevo);
}

struct Hacer {
  Articulo& a;
  LineaLote& linea;

  void operator()(const SubePrecios& orden) const {
    for (std::size_t tarifa = 0; tarifa < articles::kTarifas; ++tarifa)
      for (std::size_t nivel = 0; nivel < articles::kNiveles; ++nivel) {
        qint64& precio = a.precios[nivel][tarifa];
        if (precio == 0 || !orden.toca(static_cast<int>(nivel), static_cast<int>(tarifa))) continue;
        const qint64 nuevo = orden.aplicar(precio);
        anotar(linea, precio, nuevo,
               nuevo > kPrecioDeBalanza ? Desenlace::NoCabe
               : nuevo <= 0             ? Desenlace::QuedaACero
                                        : Desenlace::Cambia);
      }
  }
  void operator()(const PoneDepartamento& orden) const {
    anotar(linea, a.depto, orden.departamento, Desenlace::Cambia);
  }
  void operator()(const PoneFormato& orden) const {
    anotar(linea, a.formato, orden.formato, Desenlace::Cambia);
  }
};

// Pattern characters as themselves.
QString comoParte(const QString& texto) {
  QString patron;
  for (const QChar c : texto) {
    const bool signo = c == u'*' || c == u'?' || c == u'#' || c == u'[';
    patron += signo ? QStringLiteral("[%1]").arg(c) : QString(c);
  }
  return u'*' + patron + u'*';
}

}  // namespace

LineaLote cambiarConOrden(Articulo& a, const OrdenLote& orden) {
  LineaLote linea{a.clave, a.nombre};
  linea.antes = linea.despues = std::holds_alternative<PoneDepartamento>(orden) ? a.depto
                                : std::holds_alternative<PoneFormato>(orden)    ? a.formato
                                                                                : a.precios[0][0];
  std::visit(Hacer{a, linea}, orden);
  return linea;
}

std::optional<SubePrecios> SubePrecios::de(int centesimas, qint64 paso, Redondeo redondeo,
                                           std::optional<int> nivel, std::optional<int> tarifa) {
  if (centesimas < kMenor || centesimas > kMayor || paso < 1 || paso > kPrecioDeBalanza)
    return std::nullopt;
  if (nivel && (*nivel < 0 || *nivel >= articles::kNiveles)) return std::nullopt;
  if (tarifa && (*tarifa < 0 || *tarifa >= articles::kTarifas)) return std::nullopt;
  SubePrecios s;
  s.centesimas_ = centesimas;
  s.paso_ = paso;
  s.redondeo_ = redondeo;
  s.nivel_ = nivel;
  s.tarifa_ = tarifa;
  return s;
}

// Integers throughout: halves go up.
qint64 SubePrecios::aplicar(qint64 precio) const {
  constexpr qint64 kLimite = 2'147'483'647;
  const qint64 n = std::clamp(precio, -kLimite, kLimite) * (kEntero + centesimas_);
  const qint64 unidad = kEntero * paso_;
  const qint64 suma = redondeo_ == Redondeo::HaciaArriba  ? unidad - 1
                      : redondeo_ == Redondeo::MasProximo ? unidad / 2
                                                          : 0;
  return (n + suma) / unidad * paso_;
}

bool SubePrecios::toca(int nivel, int tarifa) const {
  return nivel_.value_or(nivel) == nivel && tarifa_.value_or(tarifa) == tarifa;
}

Resultado<> CambioLote::comprobar(int seccion, const OrdenLote& orden) {
  if (const auto* f = std::get_if<PoneFormato>(&orden))
    if (f->formato < 1 || f->formato > kUltimoFormato)
      return fallo(Fallo::Restriccion, textos_(kTxFormatoMalo));
  const auto* d = std::get_if<PoneDepartamento>(&orden);
  if (!d) return {};
  TARVO_TOMAR(const auto hay, db_.uno(u"SELECT NUMDEP FROM DEPTS WHERE SECCION=? AND NUMDEP=?",
                                      seccion, d->departamento));
  if (hay.nulo()) return fallo(Fallo::Restriccion, textos_(kTxSinDepartamento, {d->departamento}));
  return {};
}

Resultado<std::vector<LineaLote>> CambioLote::previa(const SeleccionLote& s,
                                                     const OrdenLote& orden) {
  const auto todas = mirar(s, orden);
  for (;;) {
    TARVO_TOMAR(const auto hayMas, todas->paso());
    if (!hayMas) return todas->tomar();
  }
}

CambioLote::Previa::Previa(CambioLote& motor, SeleccionLote seleccion, OrdenLote orden)
    : motor_(motor), seleccion_(std::move(seleccion)), orden_(std::move(orden)) {
  std::ranges::sort(seleccion_.codigos);
  QString condicion = QStringLiteral("SECCION=?");
  parametros_ = {seleccion_.seccion};
  if (seleccion_.codigos.empty() && seleccion_.departamento) {
    condicion += QStringLiteral(" AND DEPTO=?");
    parametros_.emplace_back(*seleccion_.departamento);
  }
  if (seleccion_.codigos.empty() && !seleccion_.nombre.trimmed().isEmpty()) {
    condicion += QStringLiteral(" AND NOMPLU LIKE ?");
    parametros_.emplace_back(comoParte(seleccion_.nombre.trimmed()));
  }
  sql_ = dao::conMarcas(
      u"SELECT * FROM PLUSES WHERE {condicion} AND CODPLU>? ORDER BY CODPLU LIMIT {cuantos}",
      {{u"condicion", condicion}, {u"cuantos", QString::number(kMiradosPorPaso)}});
}

Resultado<bool> CambioLote::Previa::paso() {
  if (ultimo_ < articles::kPrimerCodigo)
    TARVO_INTENTAR(motor_.comprobar(seleccion_.seccion, orden_));
  auto parametros = parametros_;
  parametros.emplace_back(ultimo_);
  TARVO_TOMAR(const auto filas, motor_.db_.OpenQuery(sql_, parametros));
  const articles::ColumnasArticulo columnas(*filas);
  int leidos = 0;
  TARVO_INTENTAR(dao::recorrer(*filas, [&](const dao::Recordset& fila) {
    ++leidos;
    Articulo a = columnas.leer(fila);
    ultimo_ = a.clave.codigo;
    if (seleccion_.codigos.empty() ||
        std::ranges::binary_search(seleccion_.codigos, a.clave.codigo))
      lineas_.push_back(cambiarConOrden(a, orden_));
  }));
  return leidos == kMiradosPorPaso;
}

}  // namespace tarvo::precios
