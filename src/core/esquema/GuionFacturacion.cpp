#include "core/esquema/Pasos.h"

namespace tarvo::esquema {

QString guionFacturacion() {
  return QStringLiteral(R"sql(
create table if not exists Cliente (
  Codigo INTEGER, NIF TEXT, Nombre TEXT, Direccion1 TEXT, Direccion2 TEXT, Direccion3 TEXT, CodPostal TEXT,
  Poblacion TEXT, Provincia TEXT, Telefono1 TEXT, Telefono2 TEXT, Email TEXT, UsaREq INTEGER DEFAULT 0,
  DiaPago INTEGER, Descuento REAL DEFAULT 0, Observaciones TEXT);
create unique index if not exists [Cliente.Codigo] on Cliente (Codigo);
create index if not exists [Cliente.Nombre] on Cliente (@orden(Nombre));

create table if not exists AlbaranVentaCabecera (
  Numero INTEGER, Fecha REAL, Cliente INTEGER REFERENCES Cliente (Codigo) ON UPDATE CASCADE, sFac INTEGER,
  Factura INTEGER, Pagado REAL DEFAULT 0, DesctoPP REAL DEFAULT 0, Observaciones TEXT, onLine INTEGER DEFAULT 0);
create unique index if not exists [AlbaranVentaCabecera.Numero] on AlbaranVentaCabecera (Numero);
create index if not exists [AlbaranVentaCabecera.Fecha] on AlbaranVentaCabecera (Fecha);
create index if not exists [AlbaranVentaCabecera.Cliente] on AlbaranVentaCabecera (Cliente);

create table if not exists AlbaranVentaDetalle (
  Numero INTEGER REFERENCES AlbaranVentaCabecera (Numero) ON UPDATE CASCADE ON DELETE CASCADE,
  Linea INTEGER, Articulo INTEGER, Departamento INTEGER, Precio INTEGER DEFAULT 0, Descuento REAL DEFAULT 0,
  Cada INTEGER DEFAULT 0, Cantidad INTEGER DEFAULT 0, CanStock INTEGER DEFAULT 0, Bultos INTEGER DEFAULT 0,
  Envase INTEGER DEFAULT 0);
create unique index if not exists [AlbaranVentaDetalle.PrimaryKey] on AlbaranVentaDetalle (Numero, Linea);

create table if not exists FacturaVentaCabecera (
  Serie INTEGER DEFAULT 0, Numero INTEGER, Fecha REAL,
  Cliente INTEGER REFERENCES Cliente (Codigo) ON UPDATE CASCADE, Albaran INTEGER, Pagado REAL DEFAULT 0,
  ImporteEnvases REAL DEFAULT 0, DesctoPP REAL DEFAULT 0, Descuento REAL DEFAULT 0, Observaciones TEXT);
create unique index if not exists [FacturaVentaCabecera.PrimaryKey] on FacturaVentaCabecera (Serie, Numero);
create index if not exists [FacturaVentaCabecera.Fecha] on FacturaVentaCabecera (Fecha);
create index if not exists [FacturaVentaCabecera.Cliente] on FacturaVentaCabecera (Cliente);

create table if not exists FacturaVentaDetalle (
  Serie INTEGER DEFAULT 0, Numero INTEGER, Linea INTEGER, Concepto TEXT, Referencia INTEGER, Descripcion TEXT,
  Cantidad REAL DEFAULT 0, Precio REAL DEFAULT 0, Unidad INTEGER, Importe REAL DEFAULT 0,
  Descuento REAL DEFAULT 0, pIVA REAL DEFAULT 0, pREq REAL DEFAULT 0, Bultos INTEGER DEFAULT 0,
  Envase INTEGER DEFAULT 0,
  FOREIGN KEY (Serie, Numero) REFERENCES FacturaVentaCabecera (Serie, Numero) ON UPDATE CASCADE ON DELETE CASCADE);
create unique index if not exists [FacturaVentaDetalle.PrimaryKey] on FacturaVentaDetalle (Serie, Numero, Linea);

create view if not exists ListaBasesImponibles as
select FacturaVentaCabecera.Serie as Serie, FacturaVentaCabecera.Numero as Numero, Fecha, Cliente, Nombre, UsaREq,
  pIVA, pREQ, FacturaVentaCabecera.Descuento as Descuento, FacturaVentaCabecera.DesctoPP as DesctoPP, Pagado,
  sum(Envase * Bultos) as Envases, sum(Importe) as Base
from (FacturaVentaCabecera left join FacturaVentaDetalle
  on (FacturaVentaDetalle.Serie=FacturaVentaCabecera.Serie) and (FacturaVentaDetalle.Numero=FacturaVentaCabecera.Numero))
  left join Cliente on FacturaVentaCabecera.Cliente=Cliente.Codigo
group by FacturaVentaCabecera.Serie, FacturaVentaCabecera.Numero, pIVA, pREQ, Fecha, Cliente, Nombre, UsaREq,
  FacturaVentaCabecera.Descuento, FacturaVentaCabecera.DesctoPP, Pagado;

create view if not exists ListaFacturas as
select Serie, Numero, Fecha, Cliente, Nombre, Pagado, sum(Envases/100) as sEnvases,
  sum(int(Base * (100 - Descuento - DesctoPP) + 0.5) /100) as Neto,
  sum(int(int(Base * (100 - Descuento - DesctoPP) + 0.5) / 100 * pIVA + 0.5) / 100) as IVA,
  sum(iif(UsaREq, int(int(Base * (100 - Descuento - DesctoPP) + 0.5) / 100 * pREq + 0.5) / 100, 0)) as REq
from ListaBasesImponibles group by Serie, Numero, Fecha, Cliente, Nombre, Pagado;

create view if not exists ListaAlbaranes as
select distinctrow AlbaranVentaCabecera.Numero as Numero, Fecha, Cliente, Nombre, Factura, Pagado,
  Cliente.Descuento as Descuento, DesctoPP, sum(Bultos * Envase) as ImpEnvases,
  + sum((Cantidad * Precio / switch(Cada=0,1000,Cada=1,100,True,1)) * (1 - AlbaranVentaDetalle.Descuento /100)) as Importe,
  sum(iif(Cantidad=CanStock,0,1)) as stock, count(Linea) as nlin
from (AlbaranVentaCabecera left join AlbaranVentaDetalle on AlbaranVentaDetalle.Numero=AlbaranVentaCabecera.Numero)
  left join Cliente on AlbaranVentaCabecera.Cliente=Cliente.Codigo
group by AlbaranVentaCabecera.Numero, Fecha, Cliente, Nombre, Factura, Pagado, Cliente.Descuento, DesctoPP;
)sql");
}

}  // namespace tarvo::esquema
