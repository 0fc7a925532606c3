#include "comm/envios/Lector.h"

#include <map>
#include <ranges>
#include <utility>

#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"

namespace tarvo::envios {

namespace {

using namespace Qt::StringLiterals;

// The columns as the statements give them.
enum Columna : int {
  kCodPlu,
  kNomPlu,
  kCada,
  kPrecio,
  kFormato = kPrecio + 3,
  kBarras,
  kPfxBar,
  kCodBarExt,
  kDepto,
  kTara,
  kNumdias1,
  kNumdias2,
  kMdfPre,
  kMinimo,
  kDescto,
  kHasta1,
  kHasta2,
  kTextoEtq,
  kOferta,
  kPrecioOferta,
  kFechaIni = kPrecioOferta + 3,
  kFechaFin,
  kEnviado,
  kBorrado,
};

QString sentencia(int tarifa, QStringView condicion) {
  return dao::conMarcas(
      u"SELECT CODPLU, NOMPLU, CADA, PRECIO_0{tarifa}, PRECIO_1{tarifa}, PRECIO_2{tarifa}, "
      u"FORMATO, "
      u"BARRAS, PFX_BAR, CodBarExt, DEPTO, Tara, NUMDIAS_1, NUMDIAS_2, MDF_PRE, minimo, DESCTO, "
      u"HASTA_1, HASTA_2, TEXTO_ETQ, OFERTAS.CODIGO, OFERTAS.PRECIO_0, OFERTAS.PRECIO_1, "
      u"OFERTAS.PRECIO_2, FECHA_INI, FECHA_FIN, enviado, borrado FROM PLUSES LEFT JOIN OFERTAS ON "
      u"OFERTAS.GRUPO=? AND OFERTAS.SECCION=PLUSES.SECCION AND OFERTAS.CODIGO=PLUSES.CODPLU WHERE "
      u"PLUSES.SECCION=? AND CODPLU {cuales} ORDER BY CODPLU",
      {{u"tarifa", QString::number(tarifa)}, {u"cuales", condicion.toString()}});
}

std::optional<Fecha> fechaDe(const dao::Recordset& rs, int columna) {
  if (rs.nulo(columna)) return {};
  return rs.fecha(columna);
}

Oferta leerOferta(const dao::Recordset& rs, Fecha ahora) {
  Oferta o;
  o.hay = !rs.nulo(kOferta);
  if (!o.hay) return o;
  o.enviado = rs.logico(kEnviado);
  o.borrado = rs.logico(kBorrado);
  o.rige = !o.borrado && EstadoOferta(fechaDe(rs, kFechaIni), fechaDe(rs, kFechaFin), ahora) == 0;
  return o;
}

// The present prices for the group: the offer's while it is in force, else the tarifa's.
std::array<qint64, 3> LeerPrecios(const dao::Recordset& rs, const Oferta& oferta) {
  const int c = oferta.rige ? kPrecioOferta : kPrecio;
  return {rs.entero(c), rs.entero(c + 1), rs.entero(c + 2)};
}

// A price that isn't a whole number never counts as 0. `cuantos`: how many prices are sent.
std::optional<maquinas::NoCabe> precioIlegible(const dao::Recordset& rs, const Oferta& oferta,
                                               int cuantos) {
  using maquinas::CampoPLU, maquinas::NoCabe;
  constexpr std::array kCampos{CampoPLU::Precio0, CampoPLU::Precio1, CampoPLU::Precio2};
  const int columna = oferta.rige ? kPrecioOferta : kPrecio;
  for (int i = 0; i < cuantos; ++i) {
    const dao::Valor v = rs.valor(columna + i);
    if (v.esEntero()) continue;
    return NoCabe{kCampos[static_cast<size_t>(i)], v.nulo() ? NoCabe::Vacio : NoCabe::Ilegible, 0,
                  v.texto().left(20)};
  }
  return {};
}

int preciosQueVan(TipoGrupo tipo) {
  switch (tipo) {
    case TipoGrupo::Ebony:
      return 1;
    case TipoGrupo::Registradoras:
      return 2;
    case TipoGrupo::Balanzas:
    case TipoGrupo::Birch:
      return 3;
  }
  std::unreachable();
}

maquinas::Articulo leerArticuloPlano(const dao::Recordset& rs) {
  maquinas::Articulo a;
  a.codigo = rs.entero(kCodPlu);
  a.nombre = rs.texto(kNomPlu);
  a.cada = rs.entero(kCada);
  a.formato = rs.entero(kFormato);
  a.barras = rs.entero(kBarras);
  a.pfxBar = rs.texto(kPfxBar);
  if (!rs.nulo(kCodBarExt)) a.codBarExt = rs.texto(kCodBarExt);
  a.depto = rs.entero(kDepto);
  if (!rs.nulo(kTara)) a.tara = rs.entero(kTara);
  a.numdias1 = rs.entero(kNumdias1);
  a.numdias2 = rs.entero(kNumdias2);
  a.modificable = rs.logico(kMdfPre);
  a.minimo = rs.entero(kMinimo);
  a.descto = rs.entero(kDescto);
  a.hasta1 = rs.entero(kHasta1);
  a.hasta2 = rs.entero(kHasta2);
  a.textoEtq = rs.texto(kTextoEtq);
  return a;
}

// FNV-1a: nobody crafts records to collide, and by chance one in 2^64 does.
qint64 resumen(QByteArrayView bytes) {
  quint64 h = 0xCBF29CE484222325U;
  for (const char c : bytes) h = (h ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  return static_cast<qint64>(h);
}

}  // namespace

int EstadoOferta(std::optional<Fecha> inicio, std::optional<Fecha> fin, Fecha ahora) {
  if (inicio && ahora < inicio->dia()) return -1;
  return fin && ahora >= fin->dia() + 1 ? 1 : 0;
}

Lector::Lector(dao::Database& db, const Destino& destino)
    : db_(db),
      destino_(destino),
      uno_(sentencia(destino.tarifa, u"=?")),
      muchos_(sentencia(destino.tarifa,
                        QString(u"IN ("_s + u"?,"_s.repeated(kLote).chopped(1) + u')'))),
      barras_(dao::conMarcas(
          u"SELECT CodBarExt, CODPLU FROM PLUSES WHERE SECCION=? AND CodBarExt IN ({cuales})",
          {{u"cuales", u"?,"_s.repeated(kLote).chopped(1)}})) {}

Resultado<std::vector<Preparado>> Lector::leer(std::span<const qint64> codigos, Fecha ahora) {
  std::vector<Preparado> salida;
  if (codigos.empty()) return salida;
  std::vector<dao::Valor> valores{destino_.grupo, destino_.seccion};
  valores.insert(valores.end(), codigos.begin(), codigos.end());
  if (codigos.size() > 1) valores.resize(kLote + 2, codigos.back());
  salida.reserve(codigos.size());
  TARVO_INTENTAR(
      dao::recorrer(db_.OpenQuery(codigos.size() > 1 ? muchos_ : uno_, valores),
                    [&](const dao::Recordset& rs) { salida.push_back(preparar(rs, ahora)); }));
  if (destino_.tipo == TipoGrupo::Registradoras) TARVO_INTENTAR(apartarRepetidos(salida));
  return salida;
}

// A code composed of prefix and number may be the predefined code of another article, which a
// person gave it, so that article keeps it. Composed codes differ in the number.
Resultado<> Lector::apartarRepetidos(std::vector<Preparado>& lote) {
  constexpr qsizetype kAnchoCodigo = 13;
  std::vector<dao::Valor> valores{destino_.seccion};
  std::multimap<QString, Preparado*> hechos;
  for (Preparado& p : lote) {
    if (!p.registro) continue;
    const QString codigo = QString::fromLatin1(p.registro->left(kAnchoCodigo)).trimmed();
    hechos.emplace(codigo, &p);
    valores.emplace_back(codigo);
  }
  if (hechos.empty()) return {};
  valores.resize(kLote + 1, valores.back());
  return dao::recorrer(db_.OpenQuery(barras_, valores), [&](const dao::Recordset& rs) {
    const qint64 dueno = rs.entero(1);
    const auto [primero, ultimo] = hechos.equal_range(rs.texto(0));
    for (const auto& [suyo, p] : std::ranges::subrange(primero, ultimo))
      if (p->codigo != dueno)
        p->registro = std::unexpected(
            maquinas::NoCabe{maquinas::CampoPLU::CodBarExt, maquinas::NoCabe::DeOtro, dueno, suyo});
  });
}

Resultado<std::optional<maquinas::Articulo>> Lector::articulo(qint64 codigo, Fecha ahora) {
  TARVO_TOMAR(const auto rs, db_.consultar(uno_, destino_.grupo, destino_.seccion, codigo));
  if (rs->Eof()) return std::nullopt;
  maquinas::Articulo a = leerArticuloPlano(*rs);
  a.precios = LeerPrecios(*rs, leerOferta(*rs, ahora));
  return a;
}

Preparado Lector::preparar(const dao::Recordset& rs, Fecha ahora) const {
  Preparado p;
  maquinas::Articulo a = leerArticuloPlano(rs);
  p.codigo = a.codigo;
  p.nombre = a.nombre;
  p.oferta = leerOferta(rs, ahora);
  p.precios = a.precios = LeerPrecios(rs, p.oferta);
  p.registro = maquinas::TramaPLU(destino_.tipo, a);
  p.letrasQueFaltan = maquinas::letrasQueFaltan(destino_.tipo, a);
  p.ilegible = precioIlegible(rs, p.oferta, preciosQueVan(destino_.tipo));
  if (p.ilegible) p.registro = std::unexpected(*p.ilegible);
  return p;
}

Huella huellaDe(TipoGrupo tipo, const QByteArray& registro) {
  return {resumen(maquinas::sinPrecios(tipo, registro)),
          resumen(maquinas::preciosDe(tipo, registro))};
}

qint64 huellaDePrecios(const QByteArray& registro) {
  constexpr qsizetype kAnchoCodigo = 7;
  return resumen(registro.mid(kAnchoCodigo));
}

maquinas::Cabe<QByteArray> soloPreciosDe(const Preparado& p) {
  if (p.ilegible) return std::unexpected(*p.ilegible);
  maquinas::Articulo a;
  a.codigo = p.codigo;
  a.precios = p.precios;
  return maquinas::TramaPrecios(a);
}

}  // namespace tarvo::envios
