#include "articles/Articulo.h"

#include <algorithm>
#include <span>

#include <QStringList>

namespace tarvo::articles {

namespace {

constexpr qint64 kMinimoMayor = 999'999, kHastaMayor = 99'999;
constexpr int kUltimoFormato = 20;

// In the order in which ColumnasArticulo takes them; the prices stand behind.
enum Columna {
  kSeccion,
  kCodigo,
  kNombre,
  kCada,
  kModificable,
  kMinimo,
  kHasta1,
  kHasta2,
  kDepto,
  kBarras,
  kPfxBar,
  kCodBarExt,
  kDescto,
  kFormato,
  kTextoEtq,
  kTara,
  kNumdias1,
  kNumdias2,
  kStkMax,
  kStkMin,
  kCoste,
  kPrecios
};

constexpr std::array<const char16_t*, kPrecios> kNombres{
    u"SECCION",   u"CODPLU", u"NOMPLU",    u"CADA",      u"MDF_PRE",   u"minimo",  u"HASTA_1",
    u"HASTA_2",   u"DEPTO",  u"BARRAS",    u"PFX_BAR",   u"CodBarExt", u"DESCTO",  u"FORMATO",
    u"TEXTO_ETQ", u"Tara",   u"NUMDIAS_1", u"NUMDIAS_2", u"STK_MAX",   u"STK_MIN", u"COSTE"};

std::size_t columnaDePrecio(std::size_t nivel, std::size_t tarifa) {
  return kPrecios + nivel * kTarifas + tarifa;
}

}  // namespace

QString columnaPrecio(int nivel, int tarifa) {
  return QStringLiteral("PRECIO_%1%2").arg(nivel).arg(tarifa);
}

const QStringList& columnasArticulo() {
  static const QStringList todas = [] {
    QStringList salida;
    for (const char16_t* nombre : kNombres) salida << QString::fromUtf16(nombre);
    for (int nivel = 0; nivel < kNiveles; ++nivel)
      for (int tarifa = 0; tarifa < kTarifas; ++tarifa) salida << columnaPrecio(nivel, tarifa);
    return salida;
  }();
  return todas;
}

QString Articulo::codigoDeBarras() const {
  if (codBarExt) return *codBarExt;
  return pfxBar + QStringLiteral("%1").arg(clave.codigo, 6, 10, QLatin1Char('0'));
}

std::vector<Falta> faltas(const Articulo& a) {
  std::vector<Falta> salida;
  const auto si = [&](bool mal, Falta f) {
    if (mal) salida.push_back(f);
  };
  si(a.clave.codigo < kPrimerCodigo || a.clave.codigo > kUltimoCodigo, Falta::Codigo);
  si(a.depto == 0, Falta::Departamento);
  si(a.formato < 1 || a.formato > kUltimoFormato, Falta::Formato);
  si(a.minimo < 0 || a.minimo > kMinimoMayor, Falta::Minimo);
  si(a.hasta1 < 0 || a.hasta1 > kHastaMayor, Falta::Hasta1);
  si(a.hasta2 < 0 || a.hasta2 > kHastaMayor, Falta::Hasta2);
  return salida;
}

ColumnasArticulo::ColumnasArticulo(const dao::Recordset& rs) {
  for (const QString& nombre : columnasArticulo()) columnas_.push_back(rs.columna(nombre));
}

Articulo ColumnasArticulo::leer(const dao::Recordset& rs) const {
  const auto& c = columnas_;
  const auto corto = [&](int columna) { return static_cast<int>(rs.entero(c[columna])); };
  Articulo a;
  a.clave = {corto(kSeccion), rs.entero(c[kCodigo])};
  a.nombre = rs.texto(c[kNombre]);
  a.cada = corto(kCada);
  a.modificable = rs.logico(c[kModificable]);
  a.minimo = rs.entero(c[kMinimo]);
  a.hasta1 = rs.entero(c[kHasta1]);
  a.hasta2 = rs.entero(c[kHasta2]);
  a.depto = corto(kDepto);
  a.barras = corto(kBarras);
  a.pfxBar = rs.texto(c[kPfxBar]);
  if (!rs.nulo(c[kCodBarExt])) a.codBarExt = rs.texto(c[kCodBarExt]);
  a.descto = corto(kDescto);
  a.formato = corto(kFormato);
  a.textoEtq = rs.texto(c[kTextoEtq]);
  a.tara = rs.nulo(c[kTara]) ? 1 : corto(kTara);
  a.numdias1 = corto(kNumdias1);
  a.numdias2 = corto(kNumdias2);
  a.stkMax = rs.entero(c[kStkMax]);
  a.stkMin = rs.entero(c[kStkMin]);
  a.coste = rs.entero(c[kCoste]);
  for (std::size_t nivel = 0; nivel < kNiveles; ++nivel)
    for (std::size_t tarifa = 0; tarifa < kTarifas; ++tarifa)
      a.precios[nivel][tarifa] = rs.entero(c[columnaDePrecio(nivel, tarifa)]);
  return a;
}

void ColumnasArticulo::poner(dao::Recordset& rs, const Articulo& a) const {
  const auto& c = columnas_;
  rs.poner(c[kSeccion], a.clave.seccion);
  rs.poner(c[kCodigo], a.clave.codigo);
  rs.poner(c[kNombre], a.nombre);
  rs.poner(c[kCada], a.cada);
  rs.poner(c[kModificable], a.modificable);
  rs.poner(c[kMinimo], a.minimo);
  rs.poner(c[kHasta1], a.hasta1);
  rs.poner(c[kHasta2], a.hasta2);
  rs.poner(c[kDepto], a.depto);
  rs.poner(c[kBarras], a.barras);
  rs.poner(c[kPfxBar], a.pfxBar);
  rs.poner(c[kCodBarExt], a.codBarExt ? dao::Valor(*a.codBarExt) : dao::Valor());
  rs.poner(c[kDescto], a.descto);
  rs.poner(c[kFormato], a.formato);
  rs.poner(c[kTextoEtq], a.textoEtq);
  rs.poner(c[kTara], a.tara);
  rs.poner(c[kNumdias1], a.numdias1);
  rs.poner(c[kNumdias2], a.numdias2);
  rs.poner(c[kStkMax], a.stkMax);
  rs.poner(c[kStkMin], a.stkMin);
  rs.poner(c[kCoste], a.coste);
  for (std::size_t nivel = 0; nivel < kNiveles; ++nivel)
    for (std::size_t tarifa = 0; tarifa < kTarifas; ++tarifa)
      rs.poner(c[columnaDePrecio(nivel, tarifa)], a.precios[nivel][tarifa]);
}

}  // namespace tarvo::articles
