#include "totals/FilasTotales.h"

namespace tarvo::totals {

namespace {

constexpr std::array<const char16_t*, 4> kContadores{u"CON", u"PES", u"[IMP]", u"SCO"};

}  // namespace

QString clavesDe(const ClaseTotal& c) {
  return c.conHora ? QStringLiteral("GRUPO, CODI, HORA") : QStringLiteral("GRUPO, CODI");
}

Resultado<> sumarFilas(dao::Database& db, const ClaseTotal& c, qint64 destino,
                       const QString& origen, qint64 cual, int signo) {
  const QString tabla = QString::fromUtf16(c.tabla);
  QStringList valores, cambios;
  for (const char16_t* campo : kContadores) {
    const QString n = QString::fromUtf16(campo);
    valores << QStringLiteral("%1coalesce(%2, 0)").arg(signo < 0 ? u"-" : u"", n);
    cambios << QStringLiteral("%1=coalesce(%2.%1, 0)+excluded.%1").arg(n, tabla);
  }
  const QString sql =
      QStringLiteral(
          "INSERT INTO %1 (LINK, %2, CON, PES, [IMP], SCO) SELECT ?, %2, %3 FROM (%4) o "
          "WHERE 1=1 ON CONFLICT (LINK, %2) DO UPDATE SET %5")
          .arg(tabla, clavesDe(c), valores.join(u", "), origen, cambios.join(u", "));
  TARVO_INTENTAR(db.ejecutar(sql, destino, cual));
  return comprobarRango(db, c, destino);
}

Resultado<> comprobarRango(dao::Database& db, const ClaseTotal& c, qint64 link) {
  QStringList fuera;
  for (const char16_t* campo : kContadores)
    fuera << QStringLiteral("abs(1.0*%1)>9.2e18").arg(campo);
  const auto malas = db.uno(QStringLiteral("SELECT count(*) FROM %1 WHERE LINK=? AND (%2)")
                                .arg(QString::fromUtf16(c.tabla), fuera.join(u" OR ")),
                            link);
  if (!malas) return std::unexpected(malas.error());
  if (malas->entero() == 0) return {};
  return fallo(
      Fallo::Restriccion,
      QStringLiteral("Un total de la tabla %1 se sale de lo que cabe en un contador; no se "
                     "ha cambiado nada")
          .arg(c.tabla));
}

}  // namespace tarvo::totals
