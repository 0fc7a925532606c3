#include "totals/periodos/FilasTotales.h"
#include "totals/TextosTotals.h"

namespace tarvo::totals {

namespace {

constexpr std::array<const char16_t*, 4> kContadores{u"CON", u"PES", u"[IMP]", u"SCO"};

// INSERT of whole rows from `fuente`; an existing row grows by the counters of the new one.
QString sqlSuma(const ClaseTotal& c, const QString& fuente) {
  const QString tabla = QString::fromUtf16(c.tabla);
  QStringList cambios;
  for (const char16_t* campo : kContadores)
    cambios << dao::conMarcas(u"{campo}=coalesce({tabla}.{campo}, 0)+excluded.{campo}",
                              {{u"campo", QString::fromUtf16(campo)}, {u"tabla", tabla}});
  return dao::conMarcas(
      u"INSERT INTO {tabla} (LINK, {claves}, CON, PES, [IMP], SCO) {fuente} "
      u"ON CONFLICT (LINK, {claves}) DO UPDATE SET {cambios}",
      {{u"tabla", tabla},
       {u"claves", clavesDe(c)},
       {u"fuente", fuente},
       {u"cambios", cambios.join(u", ")}});
}

}  // namespace

Resultado<> sumarFilas(dao::Database& db, const ClaseTotal& c, qint64 destino,
                       const QString& origen, qint64 cual, int signo, const Textos& textos) {
  QStringList valores;
  for (const char16_t* campo : kContadores)
    valores << QStringLiteral("%1coalesce(%2, 0)").arg(signo < 0 ? u"-" : u"", campo);
  const QString filas = dao::conMarcas(
      u"SELECT ?, {claves}, {valores} FROM ({origen}) o WHERE 1=1",
      {{u"claves", clavesDe(c)}, {u"valores", valores.join(u", ")}, {u"origen", origen}});
  TARVO_INTENTAR(db.ejecutar(sqlSuma(c, filas), destino, cual));
  return comprobarRango(db, c, destino, textos);
}

Resultado<std::unique_ptr<dao::Sentencia>> prepararSuma(dao::Database& db, const ClaseTotal& c) {
  return db.preparar(sqlSuma(c, c.conHora ? QStringLiteral("VALUES (?, ?, ?, ?, ?, ?, ?, ?)")
                                          : QStringLiteral("VALUES (?, ?, ?, ?, ?, ?, ?)")));
}

Resultado<> comprobarRango(dao::Database& db, const ClaseTotal& c, qint64 link,
                           const Textos& textos) {
  QStringList fuera;
  for (const char16_t* campo : kContadores)
    fuera << QStringLiteral("abs(1.0*%1)>9.2e18").arg(campo);
  TARVO_TOMAR(const auto malas,
              db.uno(dao::conMarcas(u"SELECT count(*) FROM {tabla} WHERE LINK=? AND ({fuera})",
                                    {{u"tabla", QString::fromUtf16(c.tabla)},
                                     {u"fuera", fuera.join(u" OR ")}}),
                     link));
  if (malas.entero() == 0) return {};
  return fallo(Fallo::Restriccion, textos(kTxFueraDeRango, {QStringView(c.tabla)}));
}

}  // namespace tarvo::totals
