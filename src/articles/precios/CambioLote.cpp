#include "articles/precios/CambioLote.h"

#include <algorithm>

#include "articles/precios/Limites.h"
#include "articles/precios/LineaLote.h"
#include "articles/precios/TextosPrecios.h"

namespace tarvo::precios {

using articles::Articulo;
using articles::ClaveArticulo;

namespace {

constexpr qint64 kEntero = 10'000;  // hundredths of a per cent in one

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

// The signs of a pattern as themselves.
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

// In whole numbers all the way: halves go up.
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
  TARVO_INTENTAR(comprobar(s.seccion, orden));
  QString sql = QStringLiteral("SELECT * FROM PLUSES WHERE SECCION=? AND CODPLU>2");
  std::vector<dao::Valor> parametros{s.seccion};
  if (s.codigos.empty() && s.departamento) {
    sql += QStringLiteral(" AND DEPTO=?");
    parametros.emplace_back(*s.departamento);
  }
  if (s.codigos.empty() && !s.nombre.trimmed().isEmpty()) {
    sql += QStringLiteral(" AND NOMPLU LIKE ?");
    parametros.emplace_back(comoParte(s.nombre.trimmed()));
  }
  TARVO_TOMAR(auto rs,
              db_.OpenQuery(QString(sql + QStringLiteral(" ORDER BY CODPLU")), parametros));
  auto codigos = s.codigos;
  std::ranges::sort(codigos);
  const articles::ColumnasArticulo columnas(*rs);
  std::vector<LineaLote> lineas;
  while (!rs->Eof()) {
    Articulo a = columnas.leer(*rs);
    if (codigos.empty() || std::ranges::binary_search(codigos, a.clave.codigo))
      lineas.push_back(cambiarConOrden(a, orden));
    TARVO_INTENTAR(rs->MoveNext());
  }
  return lineas;
}

}  // namespace tarvo::precios
