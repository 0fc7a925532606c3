#include "core/esquema/Pasos.h"

namespace tarvo::esquema {

namespace {

QString tablaDeTotales(const QString& nombre) {
  return dao::conMarcas(
      uR"sql(
create table if not exists {tabla} (
  LINK INTEGER DEFAULT 0, GRUPO INTEGER DEFAULT 0, CODI INTEGER DEFAULT 0,
  CON INTEGER DEFAULT 0, PES INTEGER DEFAULT 0, IMP INTEGER DEFAULT 0, SCO INTEGER DEFAULT 0);
create unique index if not exists [{tabla}.Cols] on {tabla} (LINK, GRUPO, CODI);
create index if not exists [{tabla}.Filas] on {tabla} (GRUPO, CODI, LINK);
)sql",
      {{u"tabla", nombre}});
}

}  // namespace

QString guionTotales() {
  QString g = QStringLiteral(R"sql(
create table if not exists COLUMNA (
  LINK INTEGER, TIPO INTEGER, FECHA1 REAL, FECHAF REAL, DESCR TEXT,
  ACUM2 INTEGER DEFAULT 0, ACUM3 INTEGER DEFAULT 0, ACUM4 INTEGER DEFAULT 0,
  stkABLE INTEGER DEFAULT 0, stkADO INTEGER DEFAULT 0);
create unique index if not exists [COLUMNA.LINK] on COLUMNA (LINK);
create index if not exists [COLUMNA.INTV] on COLUMNA (TIPO, FECHA1, FECHAF);

create table if not exists TOTOPHOR (
  LINK INTEGER DEFAULT 0, GRUPO INTEGER DEFAULT 0, CODI INTEGER DEFAULT 0, HORA INTEGER DEFAULT 0,
  CON INTEGER DEFAULT 0, PES INTEGER DEFAULT 0, IMP INTEGER DEFAULT 0, SCO INTEGER DEFAULT 0);
create unique index if not exists [TOTOPHOR.Cols] on TOTOPHOR (LINK, GRUPO, CODI, HORA);
create index if not exists [TOTOPHOR.Filas] on TOTOPHOR (GRUPO, CODI, HORA, LINK);
)sql");
  for (const char* t : {"TOTPLU", "TOTGRT", "TOTOPE", "TOTDEP", "TOTHOR"})
    g += tablaDeTotales(QLatin1String(t));
  return g;
}

}  // namespace tarvo::esquema
