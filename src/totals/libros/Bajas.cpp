#include "totals/libros/Bajas.h"

#include "totals/libros/Partes.h"
#include "totals/libros/Testigos.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::Database;

Resultado<> anotar(Database& db, int grupo, int addr, TipoTotal clase, qint64 sec) {
  TARVO_INTENTAR(
      db.ejecutar(u"INSERT INTO Bajas (GRUPO, ADDR, CLASE, SEC) VALUES (?, ?, ?, ?) ON CONFLICT "
                  u"(GRUPO, ADDR, CLASE) DO UPDATE SET SEC=excluded.SEC",
                  grupo, addr, numeroDe(clase), sec));
  return {};
}

// Totals that didn't foot may have been memorised too high.
bool esBaja(const Testimonios& t, bool sinCuadre) {
  return sinCuadre ? masQueDevoluciones(t) : juzgar(t, false, true) != Veredicto::Guarda;
}

}  // namespace

Resultado<> anotarBajas(Database& db, int grupo, TipoTotal clase) {
  TARVO_TOMAR(const auto rs,
              db.consultar(u"SELECT MAQUINAS, ENTERA, ADDR, SEC, BASE_DUDOSA FROM Lecturas WHERE "
                           u"GRUPO=? AND CLASE=? AND LINK IS NOT NULL AND APARTE=1",
                           grupo, numeroDe(clase)));
  if (rs->Eof()) return {};
  const Releida r{.grupo = grupo,
                  .clase = &claseDe(clase),
                  .varias = rs->entero(0) > 1,
                  .entera = rs->logico(1),
                  .addr = rs->entero(2),
                  .sec = rs->entero(3),
                  .sinCuadre = rs->logico(4)};
  TARVO_TOMAR(const auto aparte, maquinasAMedias(db, grupo));
  TARVO_TOMAR(const auto testimonios, testimoniosDe(db, r));
  for (const auto& [addr, t] : testimonios)
    if (!aparte.contains(addr) && esBaja({{clase, t}}, r.sinCuadre))
      TARVO_INTENTAR(anotar(db, grupo, addr, clase, r.sec));
  return {};
}

Resultado<> anotarRechazada(Database& db, int grupo, TipoTotal clase, const Lectura& lectura,
                            qint64 sec) {
  if (lectura.maquinas.empty()) return anotar(db, grupo, 0, clase, sec);
  for (const auto& [addr, filas] : lectura.maquinas)
    TARVO_INTENTAR(anotar(db, grupo, addr, clase, sec));
  return {};
}

Resultado<std::set<int>> conBajas(Database& db, const Ajustes& ajustes, int grupo) {
  std::set<int> addrs;
  for (const ClaseTotal& c : enVigor(ajustes))
    TARVO_INTENTAR(dao::recorrer(
        db.consultar(
            dao::conMarcas(u"SELECT ADDR FROM Bajas b WHERE GRUPO=? AND CLASE=? AND NOT EXISTS "
                           u"(SELECT 1 FROM Lecturas l, Sesiones WHERE l.GRUPO=b.GRUPO AND "
                           u"l.CLASE=b.CLASE AND CODGPO=l.GRUPO AND {enSesion} AND l.SEC<=b.SEC)",
                           {{u"enSesion", CampoSesion(c.tipo)}}),
            grupo, numeroDe(c.tipo)),
        [&](const dao::Recordset& f) { addrs.insert(static_cast<int>(f.entero(0))); }));
  return addrs;
}

Resultado<> olvidarBajas(Database& db, int grupo, int addr) {
  TARVO_INTENTAR(
      db.ejecutar(u"DELETE FROM Bajas WHERE GRUPO=? AND ADDR=? AND SEC<=(SELECT MAX(SEC) FROM "
                  u"Lecturas l WHERE l.GRUPO=Bajas.GRUPO AND l.CLASE=Bajas.CLASE)",
                  grupo, addr));
  return {};
}

}  // namespace tarvo::totals
