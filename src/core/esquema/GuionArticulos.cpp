#include "core/esquema/Pasos.h"

namespace tarvo::esquema {

QString guionArticulos() {
  return QStringLiteral(R"sql(
create table if not exists version (MAJOR INTEGER, MINOR INTEGER);

create table if not exists SECCS (
  NMSECC INTEGER, NOMSEC TEXT, IVAs TEXT DEFAULT '7@7@7@7@7');
create unique index if not exists [SECCS.NMSECC] on SECCS (NMSECC);

create table if not exists DEPTS (
  SECCION INTEGER REFERENCES SECCS (NMSECC) ON UPDATE CASCADE ON DELETE CASCADE,
  NUMDEP INTEGER, NomDep TEXT, IVA INTEGER DEFAULT 1);
create unique index if not exists [DEPTS.PrimaryKey] on DEPTS (SECCION, NUMDEP);

-- Prices by level (first digit) and tarifa (second digit).
create table if not exists PLUSES (
  SECCION INTEGER REFERENCES SECCS (NMSECC) ON UPDATE CASCADE ON DELETE CASCADE,
  CODPLU INTEGER, NOMPLU TEXT, CADA INTEGER DEFAULT 0, MDF_PRE INTEGER DEFAULT 1, minimo INTEGER DEFAULT 0,
  HASTA_1 INTEGER DEFAULT 0, HASTA_2 INTEGER DEFAULT 0,
  @lista{PRECIO_nn INTEGER DEFAULT 0 0-7},
  @lista{PRECIO_nn INTEGER DEFAULT 0 10-17},
  @lista{PRECIO_nn INTEGER DEFAULT 0 20-27},
  DEPTO INTEGER, BARRAS INTEGER DEFAULT 1, PFX_BAR TEXT DEFAULT '0', CodBarExt TEXT,
  DESCTO REAL DEFAULT 0, FORMATO INTEGER DEFAULT 1, TEXTO_ETQ TEXT DEFAULT '', Tara INTEGER DEFAULT 1,
  NUMDIAS_1 INTEGER DEFAULT 0, NUMDIAS_2 INTEGER DEFAULT 0,
  STK_MAX INTEGER DEFAULT 0, STK_MIN INTEGER DEFAULT 0, COSTE INTEGER DEFAULT 0);
create unique index if not exists [PLUSES.PrimaryKey] on PLUSES (SECCION, CODPLU);
create unique index if not exists [PLUSES.CodBarExt] on PLUSES (SECCION, CodBarExt);
create index if not exists [PLUSES.NOMBRE] on PLUSES (SECCION, @orden(NOMPLU));

create table if not exists OPERS (CODOPE INTEGER, NOMOPE TEXT);
create unique index if not exists [OPERS.CODOPE] on OPERS (CODOPE);

create table if not exists OFERTAS (
  GRUPO INTEGER, SECCION INTEGER, CODIGO INTEGER,
  PRECIO_0 INTEGER DEFAULT 0, PRECIO_1 INTEGER DEFAULT 0, PRECIO_2 INTEGER DEFAULT 0,
  FECHA_INI REAL, FECHA_FIN REAL, enviado INTEGER DEFAULT 0, borrado INTEGER DEFAULT 0);
create unique index if not exists [OFERTAS.PrimaryKey] on OFERTAS (GRUPO, SECCION, CODIGO);

create table if not exists [Cross] (Secc INTEGER, plu INTEGER, Grupo INTEGER, borra INTEGER DEFAULT 0);
create unique index if not exists [Cross.crossKey] on [Cross] (Secc, plu, Grupo);
)sql");
}

}  // namespace tarvo::esquema
