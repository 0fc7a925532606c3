#include "core/esquema/Pasos.h"

namespace tarvo::esquema {

QString guionAlmacenes() {
  return QStringLiteral(R"sql(
create table if not exists ALMACEN (CODALM INTEGER, NOMALM TEXT, FCHINI REAL, FCHREG REAL);
create unique index if not exists [ALMACEN.CODALM] on ALMACEN (CODALM);

create table if not exists MovsAlm (
  CODALM INTEGER REFERENCES ALMACEN (CODALM) ON UPDATE CASCADE ON DELETE CASCADE,
  SECCION INTEGER, CODIGO INTEGER,
  Inicial INTEGER DEFAULT 0, Entrada INTEGER DEFAULT 0, Compra INTEGER DEFAULT 0,
  Salida INTEGER DEFAULT 0, Venta INTEGER DEFAULT 0, Merma INTEGER DEFAULT 0, tag INTEGER,
  FOREIGN KEY (SECCION, CODIGO) REFERENCES PLUSES (SECCION, CODPLU) ON UPDATE CASCADE ON DELETE CASCADE);
create unique index if not exists [MovsAlm.ALM] on MovsAlm (CODALM, SECCION, CODIGO);
create unique index if not exists [MovsAlm.PLU] on MovsAlm (SECCION, CODIGO, CODALM);

create table if not exists ALBA_CAB (
  NUMALB INTEGER, FECHA REAL, PROVEE TEXT, OBSERVA TEXT, stkADO INTEGER DEFAULT 0,
  Almacen INTEGER REFERENCES ALMACEN (CODALM) ON UPDATE CASCADE, Origen INTEGER);
create unique index if not exists [ALBA_CAB.PrimaryKey] on ALBA_CAB (NUMALB);

create table if not exists ALBA_LIN (
  NUMALB INTEGER REFERENCES ALBA_CAB (NUMALB) ON UPDATE CASCADE ON DELETE CASCADE,
  SECCION INTEGER, CODIGO INTEGER, UNIDS INTEGER DEFAULT 0, PESO INTEGER DEFAULT 0, COSTE INTEGER DEFAULT 0);
create index if not exists [ALBA_LIN.NUMALB] on ALBA_LIN (NUMALB);

create table if not exists PEDI_CAB (
  NUMPED INTEGER, FECHA REAL, GRUPO INTEGER, stkADO INTEGER DEFAULT 0, OBSERVA TEXT,
  Almacen INTEGER REFERENCES ALMACEN (CODALM) ON UPDATE CASCADE);
create unique index if not exists [PEDI_CAB.PrimaryKey] on PEDI_CAB (NUMPED);

-- SERV_PES is in kilograms, all other weights in grams.
create table if not exists PEDI_LIN (
  NUMPED INTEGER, SECCION INTEGER, CODIGO INTEGER, UNIDS INTEGER DEFAULT 0, PESO INTEGER DEFAULT 0,
  SERV_UNI REAL DEFAULT 0, SERV_PES REAL DEFAULT 0);
create index if not exists [PEDI_LIN.NUMPED] on PEDI_LIN (NUMPED);

create table if not exists INVE_CAB (
  NUMINV INTEGER, FECHA REAL, GRUPO INTEGER, stkADO INTEGER DEFAULT 0, OBSERVA TEXT);
create unique index if not exists [INVE_CAB.NumInv] on INVE_CAB (NUMINV);

create table if not exists INVE_LIN (
  NUMINV INTEGER, SECCION INTEGER, CODIGO INTEGER, UNIDS INTEGER DEFAULT 0, PESO INTEGER DEFAULT 0);
create index if not exists [INVE_LIN.NUMINV] on INVE_LIN (NUMINV);
)sql");
}

QString guionEnLinea() {
  return QStringLiteral(R"sql(
create table if not exists TikAbier (
  grupo INTEGER, opera INTEGER, linea INTEGER, fecha REAL, balan INTEGER, tipoT INTEGER,
  cdPLU INTEGER, canti INTEGER, preci INTEGER, impor INTEGER);
create unique index if not exists [TikAbier.key] on TikAbier (grupo, opera, linea);

create table if not exists Transacs (
  docID INTEGER, linea INTEGER, tagID INTEGER, grupo INTEGER, balan INTEGER, numTK INTEGER, opera INTEGER,
  fecha REAL, tipoT INTEGER, cdPLU INTEGER, canti INTEGER, preci INTEGER, impor INTEGER);
create unique index if not exists [Transacs.docID] on Transacs (docID, linea);
create index if not exists [Transacs.scann] on Transacs (tagID, grupo, balan, numTK, linea);
)sql");
}

}  // namespace tarvo::esquema
