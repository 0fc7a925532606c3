#include "core/esquema/Filas.h"

#include <vector>

namespace tarvo::esquema {

namespace {

struct Fija {
  QString hace_falta;  // a query that gives a row if there is work
  QString orden;       // each "?" takes today
};

// An article that no user changes: scales use it to sell goods without a code of their own.
Fija articuloDeSistema(int codigo, const char* nombre, int cada) {
  const QString cual = QString::number(codigo);
  return {dao::conMarcas(
              u"select 1 from SECCS where NMSECC is not null and not exists (select 1 from PLUSES "
              u"where PLUSES.SECCION=SECCS.NMSECC and PLUSES.CODPLU={codigo})",
              {{u"codigo", cual}}),
          dao::conMarcas(
              u"insert into PLUSES (SECCION, CODPLU, NOMPLU, CADA, MDF_PRE, minimo, BARRAS, "
              u"PFX_BAR, DESCTO, HASTA_1, HASTA_2, FORMATO, TEXTO_ETQ, STK_MAX, STK_MIN, COSTE) "
              u"select NMSECC, {codigo}, '{nombre}', {cada}, 1, 0, 1, '0', 0, 0, 0, 1, '', 0, 0, 0 "
              u"from SECCS where NMSECC is not null and not exists (select 1 from PLUSES "
              u"where PLUSES.SECCION=SECCS.NMSECC and PLUSES.CODPLU={codigo})",
              {{u"codigo", cual},
               {u"nombre", QString::fromLatin1(nombre)},
               {u"cada", QString::number(cada)}})};
}

Fija contadorSinNulos(const QString& campo) {
  return {
      dao::conMarcas(u"select 1 from MovsAlm where isnull({campo}) limit 1", {{u"campo", campo}}),
      dao::conMarcas(u"update MovsAlm set {campo}=0 where isnull({campo})", {{u"campo", campo}})};
}

// The first section precedes the system articles, so that it has them from the first start.
std::vector<Fija> fijas() {
  std::vector<Fija> p{
      {QStringLiteral("select 1 where not exists (select 1 from ALMACEN)"),
       QStringLiteral("insert into ALMACEN (CODALM, NOMALM, FCHINI, FCHREG) select 0, '', ?, ? "
                      "where not exists (select 1 from ALMACEN)")},
      {QStringLiteral("select 1 where not exists (select 1 from SECCS)"),
       QStringLiteral("insert into SECCS (NMSECC, NOMSEC) select 1, 'SECCIÓN ÚNICA' "
                      "where not exists (select 1 from SECCS)")},
      articuloDeSistema(1, "VENTA LIBRE A PESO", 0),
      articuloDeSistema(2, "VENTA LIBRE A CUERPO", 2)};
  for (const char* campo : {"Inicial", "Entrada", "Compra", "Salida", "Venta", "Merma"})
    p.push_back(contadorSinNulos(QLatin1String(campo)));
  return p;
}

Resultado<> comprobar(const std::optional<Version>& guardada, Version version) {
  if (!guardada || guardada->mayor == version.mayor) return {};
  return fallo(Fallo::OtraVersion,
               guardada->mayor < version.mayor
                   ? QStringLiteral("Base de datos de versión anterior: Realizar conversión")
                   : QStringLiteral("Base de datos de versión posterior"));
}

}  // namespace

Resultado<std::optional<Version>> versionGuardada(dao::Database& db) {
  if (!db.existeTabla(u"version")) return std::nullopt;
  TARVO_TOMAR(auto rs, db.consultar(u"select MAJOR, MINOR from version"));
  if (rs->Eof()) return std::nullopt;
  return Version{static_cast<int>(rs->entero(0)), static_cast<int>(rs->entero(1))};
}

Resultado<> guardarVersion(dao::Database& db, Version version) {
  TARVO_TOMAR(const auto n,
              db.ejecutar(u"update version set MAJOR=?, MINOR=?", version.mayor, version.menor));
  if (n > 0) return {};
  TARVO_INTENTAR(db.ejecutar(u"insert into version (MAJOR, MINOR) values (?, ?)", version.mayor,
                             version.menor));
  return {};
}

Resultado<bool> faltanFilas(dao::Database& db) {
  for (const Fija& p : fijas()) {
    TARVO_TOMAR(auto rs, db.consultar(p.hace_falta));
    if (!rs->Eof()) return true;
  }
  return false;
}

Resultado<> ponerFilas(dao::Database& db, Fecha hoy) {
  for (const Fija& p : fijas()) {
    const std::vector<dao::Valor> fechas(static_cast<size_t>(p.orden.count(u'?')),
                                         dao::Valor(hoy.dia()));
    TARVO_INTENTAR(db.Execute(p.orden, fechas));
  }
  return {};
}

Resultado<> ponerAlDia(dao::Database& db, Fecha hoy, const std::vector<dao::TablasDeSala>& salas,
                       Version version) {
  TARVO_TOMAR(auto guardada, versionGuardada(db));
  TARVO_INTENTAR(comprobar(guardada, version));
  std::vector<dao::TablasDeSala> todas{tablasComunes()};
  todas.insert(todas.end(), salas.begin(), salas.end());
  TARVO_TOMAR(const bool alDia, dao::alDia(db, todas));
  if (alDia && guardada == version) {
    TARVO_TOMAR(const bool faltan, faltanFilas(db));
    if (!faltan) return {};
  }
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db));
  TARVO_INTENTAR(dao::darPasos(db, todas));
  TARVO_INTENTAR(guardarVersion(db, version));
  TARVO_INTENTAR(ponerFilas(db, hoy));
  return t.confirmar();
}

}  // namespace tarvo::esquema
