#include "totals/libros/SinArticulos.h"

#include <algorithm>
#include <set>

#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
#include "totals/TextosTotals.h"
#include "totals/periodos/Clases.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using dao::conMarcas;

namespace {

constexpr size_t kNombrados = 6;

Resultado<bool> leidaDesdeElCero(dao::Database& db, TipoTotal tipo, int grupo) {
  TARVO_TOMAR(const auto n,
              db.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND CLASE=? AND ESTADO IN (2, "
                     u"4) AND SEC>(SELECT COALESCE(MAX(SEC_HECHO), 0) FROM Ceros WHERE "
                     u"Ceros.GRUPO=Lecturas.GRUPO)",
                     grupo, numeroDe(tipo)));
  return n.entero() > 0;
}

Resultado<QString> nombreDe(dao::Database& db, int grupo) {
  TARVO_TOMAR(const auto rs, db.consultar(u"SELECT NOMGPO FROM GRUPOS WHERE CODGPO=?", grupo));
  const QString nombre = rs->Eof() ? QString() : rs->texto(0).trimmed();
  return (Ceros(grupo, 4) + u' ' + nombre).trimmed();
}

}  // namespace

Resultado<std::vector<int>> gruposSinArticulos(dao::Database& db, const Ajustes& ajustes,
                                               qint64 link, std::optional<int> grupo) {
  QStringList uniones;
  std::vector<dao::Valor> valores;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    if (c.tipo == TipoTotal::PLUs) continue;
    uniones << conMarcas(u"SELECT GRUPO FROM {tabla} WHERE LINK=? AND (IMP<>0 OR CON<>0)",
                         {{u"tabla", NombreTabla(c.tipo)}});
    valores.emplace_back(link);
  }
  valores.insert(valores.end(), {link, grupo.value_or(0), grupo.value_or(0)});
  return dao::reunir(
      db.OpenQuery(conMarcas(u"SELECT GRUPO FROM ({grupos}) AS g WHERE NOT EXISTS (SELECT 1 FROM "
                             u"{plus} AS p WHERE p.LINK=? AND p.GRUPO=g.GRUPO) AND (?=0 OR "
                             u"GRUPO=?) ORDER BY GRUPO",
                             {{u"grupos", uniones.join(u" UNION "_s)},
                              {u"plus", NombreTabla(TipoTotal::PLUs)}}),
                   valores),
      [](const dao::Recordset& rs) { return static_cast<int>(rs.entero(0)); });
}

Resultado<bool> leidoSinArticulos(dao::Database& db, const Ajustes& ajustes, int grupo) {
  bool otras = false;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    TARVO_TOMAR(const auto leida, leidaDesdeElCero(db, c.tipo, grupo));
    if (!leida) continue;
    if (c.tipo == TipoTotal::PLUs) return false;
    TARVO_TOMAR(const auto ventas,
                db.uno(conMarcas(u"SELECT count(*) FROM {tabla} WHERE LINK=0 AND GRUPO=? AND "
                                 u"(IMP<>0 OR CON<>0)",
                                 {{u"tabla", NombreTabla(c.tipo)}}),
                       grupo));
    otras = otras || ventas.entero() > 0;
  }
  return otras;
}

namespace {

// A sentence with the names of the groups; empty if there are none.
Resultado<QString> nombrar(dao::Database& db, const Textos& textos, int frase,
                           std::span<const int> grupos) {
  if (grupos.empty()) return QString();
  QStringList nombres;
  for (const int grupo : grupos.first(std::min(grupos.size(), kNombrados))) {
    TARVO_TOMAR(const auto nombre, nombreDe(db, grupo));
    nombres << nombre;
  }
  if (grupos.size() > kNombrados)
    nombres << Plural(textos(kTxYGruposMas), static_cast<int>(grupos.size() - kNombrados));
  return textos(frase, {nombres.join(u", "_s)});
}

}  // namespace

Resultado<QString> decirSinArticulos(dao::Database& db, const Textos& textos,
                                     std::span<const int> grupos) {
  return nombrar(db, textos, kTxSinArticulos, grupos);
}

Resultado<QString> decirAusentes(const Periodos& periodos, qint64 link) {
  dao::Database& db = periodos.base();
  std::set<int> hay, conGranTotal;
  for (const ClaseTotal& c : enVigor(periodos.ajustes()))
    TARVO_INTENTAR(
        dao::recorrer(db.consultar(conMarcas(u"SELECT DISTINCT GRUPO FROM {tabla} WHERE LINK=?",
                                             {{u"tabla", NombreTabla(c.tipo)}}),
                                   link),
                      [&](const dao::Recordset& fila) {
                        const auto grupo = static_cast<int>(fila.entero(0));
                        hay.insert(grupo);
                        if (c.tipo == TipoTotal::GranTotal) conGranTotal.insert(grupo);
                      }));
  if (hay.empty()) return QString();
  std::vector<int> faltan, sueltos;
  TARVO_INTENTAR(
      dao::recorrer(db.consultar(u"SELECT CODGPO FROM GRUPOS WHERE REMOTO<>0 ORDER BY CODGPO"),
                    [&](const dao::Recordset& fila) {
                      const auto grupo = static_cast<int>(fila.entero(0));
                      if (!hay.contains(grupo)) faltan.push_back(grupo);
                    }));
  if (!conGranTotal.empty())
    std::ranges::set_difference(hay, conGranTotal, std::back_inserter(sueltos));
  const Textos& textos = periodos.textos();
  TARVO_TOMAR(const auto ausentes, nombrar(db, textos, kTxAusentes, faltan));
  TARVO_TOMAR(const auto sinComparar, nombrar(db, textos, kTxSinComparar, sueltos));
  return (ausentes + u' ' + sinComparar).trimmed();
}

Resultado<QString> decirSinArticulos(const Periodos& periodos, qint64 link) {
  TARVO_TOMAR(const auto grupos, gruposSinArticulos(periodos.base(), periodos.ajustes(), link));
  return decirSinArticulos(periodos.base(), periodos.textos(), grupos);
}

Resultado<QString> decirSinArticulos(Sesion& sesion, std::span<const int> grupos) {
  std::vector<int> sin;
  for (const int grupo : grupos) {
    TARVO_TOMAR(const auto falta, leidoSinArticulos(sesion.base(), sesion.ajustes(), grupo));
    if (falta) sin.push_back(grupo);
  }
  return decirSinArticulos(sesion.base(), sesion.textos(), sin);
}

}  // namespace tarvo::totals
