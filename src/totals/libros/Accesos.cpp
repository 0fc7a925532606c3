#include "totals/libros/Accesos.h"

#include <algorithm>
#include <set>
#include <vector>

#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
#include "core/valores/Tipos.h"
#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::conMarcas;
using dao::Database;

// Numbers of deleted groups: a code and how often it was deleted, below zero.
constexpr int kCodigos = 100'000;
constexpr QChar kEntreNombres = u' ', kEntrePartes = u'|';

std::set<QString> nombres(const QString& acceso) {
  const QStringList lista = acceso.split(kEntreNombres, Qt::SkipEmptyParts);
  return {lista.begin(), lista.end()};
}

bool comparten(const std::set<QString>& a, const std::set<QString>& b) {
  return std::ranges::any_of(a, [&b](const QString& nombre) { return b.contains(nombre); });
}

std::set<QString> menos(std::set<QString> a, const std::set<QString>& b) {
  std::erase_if(a, [&b](const QString& nombre) { return b.contains(nombre); });
  return a;
}

// One writing for all of an address or a device.
QString sinAdornos(const QString& telefono) {
  QString t = telefono.toLower();
  t.removeIf([](QChar c) { return c.isSpace(); });
  return t.replace(u"localhost"_s, u"127.0.0.1"_s);
}

// The groups with memorised counters, deleted ones included.
Resultado<std::vector<int>> conCuenta(Database& db) {
  return dao::reunir(
      db.consultar(u"SELECT DISTINCT GRUPO FROM Lecturas WHERE LINK IS NOT NULL ORDER BY GRUPO"),
      [](const dao::Recordset& f) { return static_cast<int>(f.entero(0)); });
}

Resultado<std::vector<int>> losQueHay(Database& db) {
  return dao::reunir(db.consultar(u"SELECT CODGPO FROM GRUPOS ORDER BY CODGPO"),
                     [](const dao::Recordset& f) { return static_cast<int>(f.entero(0)); });
}

}  // namespace

Resultado<QString> accesoDe(Database& db, int grupo) {
  TARVO_TOMAR(const auto g,
              db.consultar(u"SELECT TIPO, remoto, canal, TELEF, COALESCE(ADDR, 0) FROM GRUPOS "
                           u"WHERE CODGPO=?",
                           grupo));
  if (g->Eof()) return QString();
  const auto acceso = deNumero<TipoAcceso>(g->entero(1));
  const auto tipo = deNumero<TipoGrupo>(g->entero(0));
  // After the port of a host comes what the line needs, and no other machine.
  const QString donde = acceso == TipoAcceso::Directo ? QString::number(g->entero(2))
                        : acceso == TipoAcceso::TcpIp ? sinAdornos(g->texto(3)).section(u',', 0, 0)
                                                      : sinAdornos(g->texto(3));
  if (!acceso || acceso == TipoAcceso::Ninguno || donde.isEmpty()) return QString();
  QString linea = QStringList{g->texto(0), g->texto(1), donde}.join(kEntrePartes);
  if (tipo == TipoGrupo::Ebony) linea += kEntrePartes + g->texto(4);
  if (tipo != TipoGrupo::Registradoras) return linea;
  TARVO_TOMAR(
      const auto cajas,
      dao::reunir(
          db.consultar(u"SELECT COALESCE(ADDR, 0) FROM BZAS WHERE SUGPO=? ORDER BY ADDR", grupo),
          [&](const dao::Recordset& f) { return linea + kEntrePartes + f.texto(0); }));
  return QStringList(cajas.begin(), cajas.end()).join(kEntreNombres);
}

Resultado<QString> accesoDeBase(Database& db, int grupo) {
  TARVO_TOMAR(const auto acceso,
              db.uno(u"SELECT MAX(BASE_ACCESO) FROM Lecturas WHERE GRUPO=?", grupo));
  return acceso.texto();
}

Resultado<std::vector<int>> otrosDelAcceso(Database& db, int grupo, const QString& acceso) {
  TARVO_TOMAR(const QString suyo, accesoDeBase(db, grupo));
  const auto antes = nombres(suyo), ahora = nombres(acceso);
  const auto nuevos = menos(ahora, antes), dejados = menos(antes, ahora);
  if (nuevos.empty()) return std::vector<int>{};
  std::set<int> otros;
  TARVO_TOMAR(const auto cuentan, conCuenta(db));
  for (const int otro : cuentan) {
    if (otro == grupo) continue;
    TARVO_TOMAR(const QString alli, accesoDeBase(db, otro));
    if (comparten(nombres(alli), nuevos)) otros.insert(otro);
  }
  if (std::ranges::find(cuentan, grupo) != cuentan.end()) {
    TARVO_TOMAR(const auto hay, losQueHay(db));
    for (const int otro : hay) {
      if (otro == grupo) continue;
      TARVO_TOMAR(const QString alli, accesoDe(db, otro));
      if (comparten(nombres(alli), dejados)) otros.insert(otro);
    }
  }
  return std::vector<int>(otros.begin(), otros.end());
}

Resultado<> asentarAcceso(Database& db, int grupo, const QString& acceso) {
  TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET BASE_ACCESO=? WHERE GRUPO=?",
                             acceso.isEmpty() ? dao::Valor() : dao::Valor(acceso), grupo));
  TARVO_TOMAR(const auto cuentan, conCuenta(db));
  for (const int otro : cuentan) {
    if (otro >= 0) break;
    TARVO_TOMAR(const QString alli, accesoDeBase(db, otro));
    if (otro == grupo || !comparten(nombres(alli), nombres(acceso))) continue;
    TARVO_INTENTAR(db.ejecutar(u"DELETE FROM BaseFilas WHERE GRUPO=?", otro));
    TARVO_INTENTAR(db.ejecutar(u"DELETE FROM Lecturas WHERE GRUPO=?", otro));
  }
  return {};
}

Resultado<> quitarDelAcceso(Database& db, int grupo, int addr) {
  TARVO_TOMAR(const QString acceso, accesoDeBase(db, grupo));
  QStringList quedan = acceso.split(kEntreNombres, Qt::SkipEmptyParts);
  const QString fin = kEntrePartes + QString::number(addr);
  quedan.removeIf([&fin](const QString& nombre) { return nombre.endsWith(fin); });
  TARVO_INTENTAR(
      db.ejecutar(u"UPDATE Lecturas SET BASE_ACCESO=? WHERE GRUPO=? AND BASE_ACCESO IS "
                  u"NOT NULL",
                  quedan.join(kEntreNombres), grupo));
  return {};
}

Resultado<> dejarSueltas(Database& db, int grupo) {
  TARVO_TOMAR(const QString acceso, accesoDeBase(db, grupo));
  TARVO_TOMAR(const auto cuantas,
              db.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND LINK IS NOT NULL", grupo));
  if (acceso.isEmpty() || cuantas.entero() == 0) return {};
  for (const ClaseTotal& c : todasLasClases()) TARVO_INTENTAR(apartarBase(db, grupo, c.tipo));
  int suelto = -kCodigos - grupo;
  for (;; suelto -= kCodigos) {
    TARVO_TOMAR(const auto hay, db.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=?", suelto));
    if (hay.entero() == 0) break;
  }
  TARVO_INTENTAR(db.ejecutar(
      u"INSERT INTO Lecturas (GRUPO, CLASE, LINK, BASE_DESDE, BASE_HASTA, BASE_ANTIGUA, BASE_SEC, "
      u"BASE_DUDOSA, BASE_ACCESO, APARTE) SELECT ?, CLASE, LINK, BASE_DESDE, BASE_HASTA, "
      u"BASE_ANTIGUA, BASE_SEC, BASE_DUDOSA, BASE_ACCESO, 1 FROM Lecturas WHERE GRUPO=? AND LINK "
      u"IS NOT NULL",
      suelto, grupo));
  TARVO_INTENTAR(
      db.ejecutar(u"UPDATE BaseFilas SET GRUPO=?, CODI=CASE CLASE WHEN ? THEN ? ELSE CODI END "
                  u"WHERE GRUPO=?",
                  suelto, numeroDe(TipoTotal::GranTotal), suelto, grupo));
  return {};
}

int codigoDe(int grupo) {
  return grupo < 0 ? -grupo % kCodigos : grupo;
}

// --- what is known changes groups ---------------------------------------------------------------

namespace {

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
