#include "articles/Articulo.h"

#include <algorithm>
#include <span>

#include <QStringList>

#include "articles/Limites.h"

namespace tarvo::articles {

namespace {

// In the order of ColumnasArticulo; the prices come after.
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
  return pfxBar.trimmed() + QStringLiteral("%1").arg(clave.codigo, 6, 10, QLatin1Char('0'));
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
  si(a.descto < 0 || a.descto > kDescuentoMayor, Falta::Descuento);
  return salida;
}

std::optional<Articulo> sinElCambio(Articulo hoy, const Articulo& antes, const Articulo& ahora) {
  bool cabe = true;
  const auto volver = [&](auto& campo, const auto& de, const auto& a) {
    if (de == a) return;
    cabe = cabe && (campo == a || campo == de);
    campo = de;
  };
  const auto campos = [&](auto... m) { (volver(hoy.*m, antes.*m, ahora.*m), ...); };
  using A = Articulo;
  campos(&A::clave, &A::nombre, &A::cada, &A::modificable, &A::minimo, &A::hasta1, &A::hasta2,
         &A::depto, &A::barras, &A::pfxBar, &A::codBarExt, &A::descto, &A::formato, &A::textoEtq,
         &A::tara, &A::numdias1, &A::numdias2, &A::stkMax, &A::stkMin, &A::coste);
  for (std::size_t n = 0; n < kNiveles; ++n)
    for (std::size_t t = 0; t < kTarifas; ++t)
      volver(hoy.precios[n][t], antes.precios[n][t], ahora.precios[n][t]);
  return cabe ? std::optional(std::move(hoy)) : std::nullopt;
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

namespace {

// Passes on the value of every column, by number.
template <class Poner>
void recorrer(const Articulo& a, const Poner& poner) {
  poner(kSeccion, a.clave.seccion);
  poner(kCodigo, a.clave.codigo);
  poner(kNombre, a.nombre);
  poner(kCada, a.cada);
  poner(kModificable, a.modificable);
  poner(kMinimo, a.minimo);
  poner(kHasta1, a.hasta1);
  poner(kHasta2, a.hasta2);
  poner(kDepto, a.depto);
  poner(kBarras, a.barras);
  poner(kPfxBar, a.pfxBar);
  poner(kCodBarExt, a.codBarExt ? dao::Valor(*a.codBarExt) : dao::Valor());
  poner(kDescto, a.descto);
  poner(kFormato, a.formato);
  poner(kTextoEtq, a.textoEtq);
  poner(kTara, a.tara);
  poner(kNumdias1, a.numdias1);
  poner(kNumdias2, a.numdias2);
  poner(kStkMax, a.stkMax);
  poner(kStkMin, a.stkMin);
  poner(kCoste, a.coste);
  for (std::size_t nivel = 0; nivel < kNiveles; ++nivel)
    for (std::size_t tarifa = 0; tarifa < kTarifas; ++tarifa)
      poner(columnaDePrecio(nivel, tarifa), a.precios[nivel][tarifa]);
}

}  // namespace

void ColumnasArticulo::poner(dao::Recordset& rs, const Articulo& a) const {
  recorrer(a, [&](std::size_t columna, const auto& valor) { rs.poner(columnas_[columna], valor); });
}

void ligarArticulo(dao::Sentencia& s, const Articulo& a) {
  recorrer(a, [&](std::size_t columna, const auto& valor) {
    s.ligar(static_cast<int>(columna), dao::Valor(valor));
  });
}

}  // namespace tarvo::articles
