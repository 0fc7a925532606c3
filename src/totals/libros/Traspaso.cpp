#include "totals/libros/Traspaso.h"

#include <vector>

#include "core/ajustes/Ajustes.h"
#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
#include "totals/libros/Accesos.h"
#include "totals/periodos/Clases.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::conMarcas;
using dao::Database;

// No group has such a number; deleted ones are nearer to zero.
constexpr int kDePaso = -1'000'000'000;

// The memorised part of a kind.
struct Cuenta {
  qint64 clase = 0;
  std::vector<dao::Valor> valores;
};

Resultado<std::vector<Cuenta>> cuentasDe(Database& db, int grupo) {
  return dao::reunir(
      db.consultar(u"SELECT CLASE, LINK, BASE_DESDE, BASE_HASTA, BASE_ANTIGUA, BASE_SEC, "
                   u"BASE_DUDOSA, APARTE FROM Lecturas WHERE GRUPO=? AND LINK IS NOT NULL",
                   grupo),
      [](const dao::Recordset& f) {
        Cuenta c{.clase = f.entero(0), .valores = {}};
        for (int i = 1; i < 8; ++i) c.valores.push_back(f.valor(i));
        return c;
      });
}

Resultado<> ponerCuentas(Database& db, int grupo, const std::vector<Cuenta>& cuentas) {
  TARVO_INTENTAR(
      db.ejecutar(u"UPDATE Lecturas SET LINK=NULL, BASE_DESDE=NULL, BASE_HASTA=NULL, "
                  u"BASE_ANTIGUA=NULL, BASE_SEC=0, BASE_DUDOSA=0, APARTE=0 WHERE GRUPO=?",
                  grupo));
  for (const Cuenta& c : cuentas) {
    TARVO_INTENTAR(
        db.ejecutar(u"INSERT INTO Lecturas (GRUPO, CLASE) VALUES (?, ?) ON CONFLICT "
                    u"(GRUPO, CLASE) DO NOTHING",
                    grupo, c.clase));
    const auto& v = c.valores;
    TARVO_INTENTAR(
        db.ejecutar(u"UPDATE Lecturas SET LINK=?, BASE_DESDE=?, BASE_HASTA=?, BASE_ANTIGUA=?, "
                    u"BASE_SEC=?, BASE_DUDOSA=?, APARTE=? WHERE GRUPO=? AND CLASE=?",
                    v[0], v[1], v[2], v[3], v[4], v[5], v[6], grupo, c.clase));
  }
  return {};
}

// The code of a grand total is its group's.
Resultado<> mudarFilas(Database& db, const std::map<int, int>& deQuien) {
  for (const QStringView tabla : {u"BaseFilas", u"CeroFilas", u"Ceros", u"Bajas"}) {
    const auto enTabla = [tabla](QStringView sentencia) {
      return conMarcas(sentencia, {{u"tabla", tabla.toString()}});
    };
    const auto mudar = [&](int de, int a) -> Resultado<> {
      TARVO_INTENTAR(db.ejecutar(enTabla(u"UPDATE {tabla} SET GRUPO=? WHERE GRUPO=?"), a, de));
      return {};
    };
    for (const auto& [grupo, otro] : deQuien) TARVO_INTENTAR(mudar(otro, kDePaso - otro));
    for (const auto& [grupo, otro] : deQuien) {
      TARVO_INTENTAR(mudar(kDePaso - otro, grupo));
      if (tabla == u"BaseFilas" || tabla == u"CeroFilas")
        TARVO_INTENTAR(
            db.ejecutar(enTabla(u"UPDATE {tabla} SET CODI=? WHERE GRUPO=? AND CLASE=? AND CODI=?"),
                        grupo, grupo, numeroDe(TipoTotal::GranTotal), otro));
    }
  }
  return {};
}

// When its machines last forgot; the readings of the open session count from then.
Resultado<> ponerCero(Database& db, const Ajustes& ajustes, int grupo, const dao::Valor& cuando) {
  if (cuando.nulo()) return {};  // that of a deleted group is unknown
  TARVO_INTENTAR(db.ejecutar(u"UPDATE Sesiones SET PZERO=? WHERE CODGPO=?", cuando, grupo));
  for (const ClaseTotal& c : enVigor(ajustes))
    TARVO_INTENTAR(
        db.ejecutar(conMarcas(u"UPDATE Sesiones SET {desde}=PZERO WHERE CODGPO=? AND {enSesion}",
                              {{u"desde", CampoDesde(c.tipo)}, {u"enSesion", CampoSesion(c.tipo)}}),
                    grupo));
  return {};
}

}  // namespace

Resultado<> traspasar(Database& db, const Ajustes& ajustes, const std::map<int, int>& deQuien) {
  std::map<int, std::vector<Cuenta>> cuentas;
  std::map<int, QString> accesos;
  std::map<int, dao::Valor> ceros;
  for (const auto& [grupo, otro] : deQuien) {
    TARVO_TOMAR(cuentas[otro], cuentasDe(db, otro));
    TARVO_TOMAR(accesos[otro], accesoDeBase(db, otro));
    TARVO_TOMAR(ceros[otro], db.uno(u"SELECT PZERO FROM Sesiones WHERE CODGPO=?", otro));
  }
  TARVO_INTENTAR(mudarFilas(db, deQuien));
  for (const auto& [grupo, otro] : deQuien) {
    TARVO_INTENTAR(ponerCuentas(db, grupo, cuentas[otro]));
    TARVO_INTENTAR(
        db.ejecutar(u"UPDATE Lecturas SET BASE_ACCESO=? WHERE GRUPO=?", accesos[otro], grupo));
    TARVO_INTENTAR(ponerCero(db, ajustes, grupo, ceros[otro]));
  }
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM Lecturas WHERE GRUPO<0 AND LINK IS NULL"));
  return {};
}

}  // namespace tarvo::totals
