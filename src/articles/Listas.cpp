#include "articles/Listas.h"

#include <algorithm>

#include "core/dao/Marcas.h"
#include "core/dao/Orden.h"
#include "core/dao/Recorrido.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;

namespace {

// Pattern characters count as themselves.
QString patron(QStringView palabra) {
  QString p;
  for (const QChar c : palabra)
    p += QStringView(u"*?#[").contains(c) ? u'[' + QString(c) + u']' : QString(c);
  return u'*' + p + u'*';
}

}  // namespace

Condicion condicionBusqueda(const QString& texto) {
  Condicion c;
  for (const QString& palabra : texto.simplified().split(u' ', Qt::SkipEmptyParts)) {
    // Digits have neither accents nor case: the store's own search is quicker for them.
    const bool cifras =
        std::ranges::all_of(palabra, [](QChar x) { return x >= u'0' && x <= u'9'; });
    // Leading zeros belong to the displayed code; without them the number itself will do.
    const QString codigo = palabra.startsWith(u'0') ? u"format(CODPLU,'0000000')"_s : u"CODPLU"_s;
    const QString una =
        cifras ? dao::conMarcas(
                     u"instr(NOMPLU,?)>0 or instr({codigo},?)>0 or instr(CodBarExt,?)>0 "
                     u"or (CodBarExt is null and instr(trim(PFX_BAR) & "
                     u"format(CODPLU,'000000'),?)>0)",
                     {{u"codigo", codigo}})
               : u"NOMPLU like ? or CodBarExt like ?"_s;
    c.sql += (c.sql.isEmpty() ? u"("_s : u" and ("_s) + una + u')';
    c.valores.insert(c.valores.end(), cifras ? 4 : 2,
                     cifras ? dao::Valor(palabra) : dao::Valor(patron(palabra)));
  }
  return c;
}

Condicion FiltroArticulos::condicion() const {
  Condicion c{u"PLUSES.SECCION=?"_s, {seccion}};
  if (departamento > 0) {
    c.sql += u" AND DEPTO=?"_s;
    c.valores.emplace_back(departamento);
  }
  if (deVenta) {
    c.sql += u" AND CODPLU>=?"_s;
    c.valores.emplace_back(kPrimerCodigo);
  }
  if (const Condicion b = condicionBusqueda(texto); !b.sql.isEmpty()) {
    c.sql += u" AND "_s + b.sql;
    c.valores.insert(c.valores.end(), b.valores.begin(), b.valores.end());
  }
  return c;
}

QString ordenPorNombre() {
  return dao::expresionOrden(u"NOMPLU");
}

dao::Origen listaArticulos(const FiltroArticulos& filtro) {
  Condicion c = filtro.condicion();
  return {.desde = u"PLUSES"_s,
          .filtro = std::move(c.sql),
          .parametros = std::move(c.valores),
          .clave = u"PLUSES.rowid"_s,
          .orden = u"CODPLU"_s};
}

QString columnaUnidad() {
  return u"switch(CADA=0,'K',CADA=1,'g',true,'U')"_s;
}

QString ordenPorUnidad() {
  return u"CADA"_s;
}

QString columnaCodigoBarras() {
  return u"iif(isnull(CodBarExt),trim(PFX_BAR) & format(CODPLU,'000000'),CodBarExt)"_s;
}

dao::Origen listaOperadores() {
  return {.desde = u"OPERS"_s, .clave = u"OPERS.rowid"_s, .orden = u"CODOPE"_s};
}

dao::Origen listaHistoria(const FiltroHistoria& filtro) {
  dao::Origen o{.desde =
                    u"HistoriaPrecios LEFT JOIN PLUSES ON "
                    u"(PLUSES.SECCION=HistoriaPrecios.SECCION) AND "
                    u"(PLUSES.CODPLU=HistoriaPrecios.CODPLU)"_s,
                .filtro = u"HistoriaPrecios.SECCION=?"_s,
                .parametros = {filtro.seccion},
                .clave = u"HistoriaPrecios.ID"_s,
                .orden = u"HistoriaPrecios.ID DESC"_s};
  if (filtro.codigo) {
    o.filtro += u" AND HistoriaPrecios.CODPLU=?"_s;
    o.parametros.emplace_back(*filtro.codigo);
  }
  if (filtro.tarifa) {
    o.filtro += u" AND TARIFA=?"_s;
    o.parametros.emplace_back(*filtro.tarifa);
  }
  return o;
}

QString columnaCodigoHistoria() {
  return u"HistoriaPrecios.CODPLU"_s;
}

Resultado<std::vector<qint64>> codigosDe(Catalogo& catalogo, const FiltroArticulos& filtro,
                                         bool porNombre) {
  const Condicion c = filtro.condicion();
  const QString sql =
      dao::conMarcas(u"SELECT CODPLU FROM PLUSES WHERE {donde} ORDER BY {orden}",
                     {{u"donde", c.sql}, {u"orden", porNombre ? ordenPorNombre() : u"CODPLU"_s}});
  return dao::reunir(catalogo.base().OpenQuery(sql, c.valores),
                     [](const dao::Recordset& fila) { return fila.entero(0); });
}

Resultado<std::optional<qint64>> filaDe(Catalogo& catalogo, ClaveArticulo clave) {
  TARVO_TOMAR(const auto fila,
              catalogo.base().uno(u"SELECT rowid FROM PLUSES WHERE SECCION=? AND CODPLU=?",
                                  clave.seccion, clave.codigo));
  return fila.nulo() ? std::nullopt : std::optional(fila.entero());
}

Resultado<std::optional<qint64>> filaDesde(Catalogo& catalogo, const FiltroArticulos& filtro,
                                           bool porNombre, const QString& texto) {
  Condicion c = filtro.condicion();
  c.valores.emplace_back(porNombre ? dao::Valor(dao::claveOrden(texto))
                                   : dao::Valor(texto.toLongLong()));
  const QString sql = dao::conMarcas(
      u"SELECT PLUSES.rowid FROM PLUSES WHERE {donde} AND {orden}>=? ORDER BY "
      u"{orden} LIMIT 1",
      {{u"donde", c.sql}, {u"orden", porNombre ? ordenPorNombre() : u"CODPLU"_s}});
  TARVO_TOMAR(auto rs, catalogo.base().OpenQuery(sql, c.valores));
  return rs->Eof() ? std::nullopt : std::optional(rs->entero(0));
}

}  // namespace tarvo::articles
