#include "core/esquema/Pasos.h"

namespace tarvo::esquema {

namespace {

// The totals of a kind with the section of their group and a name, by period (QNT) and by code
// (QNF).
QString vistasDeTotales(const QString& clase, const QString& nombre, const QString& union_,
                        bool porCodigo = true) {
  QString g = QStringLiteral(R"sql(
create view if not exists QNT{clase} as
select t.LINK as LINK, GRUPOS.SECCION as SECCION, t.GRUPO as GRUPO, t.CODI as CODI, {nombre} as NOMBRE,
  t.CON as CON, t.PES as PES, t.IMP as IMP, t.SCO as SCO
from (TOT{clase} as t left join GRUPOS on t.GRUPO=GRUPOS.CODGPO) {union};
)sql");
  if (porCodigo)
    g += QStringLiteral(R"sql(
create view if not exists QNF{clase} as
select COLUMNA.FECHA1 as DIA1, COLUMNA.FECHAF as DIAF, {nombre} as NOMBRE, t.GRUPO as GRUPO,
  t.CON as CON, t.PES as PES, t.IMP as IMP, t.SCO as SCO, COLUMNA.TIPO as TIPO, GRUPOS.SECCION as SECCION, t.CODI as CODI
from ((TOT{clase} as t inner join COLUMNA on t.LINK=COLUMNA.LINK) left join GRUPOS on t.GRUPO=GRUPOS.CODGPO) {union};
)sql");
  return dao::conMarcas(g, {{u"clase", clase}, {u"nombre", nombre}, {u"union", union_}});
}

// The lines of a document with the article's name and their value.
QString vistaDeLineas(const QString& vista, const QString& tabla, const QString& numero,
                      const QString& columnas, const QString& coste) {
  return dao::conMarcas(
      uR"sql(
create view if not exists {vista} as
select {numero}, {tabla}.SECCION as SECCION, CODIGO, NOMPLU, UNIDS, PESO, {columnas}
  {coste} * switch(CADA=0,PESO/1000,CADA=1,PESO/100,TRUE,UNIDS) as IMPORTE, CADA
from {tabla} left join PLUSES on ({tabla}.CODIGO=PLUSES.CODPLU) and ({tabla}.SECCION=PLUSES.SECCION);
)sql",
      {{u"vista", vista},
       {u"tabla", tabla},
       {u"numero", numero},
       {u"columnas", columnas},
       {u"coste", coste}});
}

}  // namespace

QString guionConsultas() {
  const auto s = [](const char* t) { return QString::fromLatin1(t); };
  QString g;
  g += vistasDeTotales(
      s("PLU"), s("PLUSES.NOMPLU"),
      s("left join PLUSES on (GRUPOS.SECCION=PLUSES.SECCION) and (t.CODI=PLUSES.CODPLU)"));
  g += vistasDeTotales(s("GRT"), s("GRUPOS.NOMGPO"), {});
  g += vistasDeTotales(s("OPE"), s("OPERS.NOMOPE"), s("left join OPERS on t.CODI=OPERS.CODOPE"));
  g += vistasDeTotales(
      s("DEP"), s("DEPTS.NomDep"),
      s("left join DEPTS on (GRUPOS.SECCION=DEPTS.SECCION) and (t.CODI=DEPTS.NUMDEP)"));
  g += vistasDeTotales(s("HOR"), s("GRUPOS.NOMGPO"), {}, false);
  for (const char* vista : {"QNTOPH", "QTOPH"})
    g += dao::conMarcas(
        uR"sql(
create view if not exists {vista} as
select t.LINK as LINK, GRUPOS.SECCION as SECCION, t.GRUPO as GRUPO, t.CODI as CODI, t.HORA as HORA,
  OPERS.NOMOPE as NOMBRE, t.CON as CON, t.PES as PES, t.IMP as IMP, t.SCO as SCO
from (TOTOPHOR as t left join GRUPOS on t.GRUPO=GRUPOS.CODGPO) left join OPERS on t.CODI=OPERS.CODOPE;
)sql",
        {{u"vista", s(vista)}});
  g += vistaDeLineas(s("QLINPED"), s("PEDI_LIN"), s("NUMPED"), s("SERV_UNI, SERV_PES,"),
                     s("PLUSES.COSTE"));
  g += vistaDeLineas(s("QLINALB"), s("ALBA_LIN"), s("NUMALB"), s("ALBA_LIN.COSTE as COSTE,"),
                     s("ALBA_LIN.COSTE"));
  g += vistaDeLineas(s("QLININV"), s("INVE_LIN"), s("NUMINV"), s("PLUSES.COSTE as COSTE,"),
                     s("PLUSES.COSTE"));
  return g + QStringLiteral(R"sql(
create view if not exists QLINK as SELECT * FROM TOTPLU WHERE LINK=0;

create view if not exists STOCKPLU as
SELECT SECCION, CODIGO, Sum(Inicial+Entrada+Compra-Salida-Venta-Merma) as STOCK, Sum(Inicial) as sIni,
  Sum(Entrada) as sEnt, Sum(Compra) as sCom, Sum(Salida) as sSal, Sum(Venta) as sVen, Sum(Merma) as sMer
FROM MovsAlm GROUP BY SECCION, CODIGO;

create view if not exists QTKAB as
select TikAbier.*, GRUPOS.Seccion as secc from TikAbier left join GRUPOS on TikAbier.grupo=GRUPOS.CODGPO;

create view if not exists QTKCE as
select Transacs.*, GRUPOS.Seccion as secc from Transacs left join GRUPOS on Transacs.grupo=GRUPOS.CODGPO;
)sql");
}

}  // namespace tarvo::esquema
