// Storing a task's reading: one transaction for its rows, its marks and its record.
#include <algorithm>
#include <utility>

#include "totals/TextosTotals.h"
#include "totals/libros/Accesos.h"
#include "totals/libros/Bajas.h"
#include "totals/libros/Dudas.h"
#include "totals/libros/Partes.h"
#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::conMarcas;
using dao::Database;

// The rows of a group over all its machines; the rows of an only machine are not copied.
const Lectura::Filas& sumaDeMaquinas(const Lectura& lectura, Lectura::Filas& suma) {
  if (lectura.maquinas.size() == 1) return lectura.maquinas.begin()->second;
  for (const auto& [addr, filas] : lectura.maquinas)
    for (const auto& [clave, c] : filas) suma[clave] += c;
  return suma;
}

Resultado<> escribirBandeja(Database& db, const ClaseTotal& c, int grupo,
                            const Lectura::Filas& filas) {
  const auto enTabla = [&c](QStringView sentencia) {
    return conMarcas(sentencia, {{u"tabla", NombreTabla(c.tipo)}});
  };
  TARVO_INTENTAR(
      db.ejecutar(enTabla(u"DELETE ALL * FROM {tabla} WHERE GRUPO=? AND LINK=0"), grupo));
  TARVO_TOMAR(auto st,
              db.preparar(enTabla(
                  c.conHora ? u"INSERT INTO {tabla} (LINK, GRUPO, CODI, CON, PES, IMP, SCO, HORA) "
                              u"VALUES (0, ?, ?, ?, ?, ?, ?, ?)"
                            : u"INSERT INTO {tabla} (LINK, GRUPO, CODI, CON, PES, IMP, SCO) VALUES "
                              u"(0, ?, ?, ?, ?, ?, ?)")));
  for (const auto& [clave, v] : filas) {
    qint64 campos[] = {grupo, clave.first, v.CON, v.PES, v.IMP, v.SCO, clave.second};
    for (int i = 0; i < (c.conHora ? 7 : 6); ++i) st->ligar(i, campos[i]);
    TARVO_INTENTAR(st->ejecutar());
  }
  return {};
}

// Several machines in one group: each one's own rows, since a sum can't show later whose part was
// zeroed.
Resultado<> escribirPorMaquina(Database& db, int grupo, TipoTotal tipo, const Lectura& lectura) {
  TARVO_INTENTAR(
      db.ejecutar(u"DELETE FROM LectFilas WHERE GRUPO=? AND CLASE=?"_s, grupo, numeroDe(tipo)));
  if (lectura.maquinas.size() < 2) return {};
  TARVO_TOMAR(
      auto st,
      db.preparar(
          u"INSERT INTO LectFilas (GRUPO, CLASE, ADDR, CODI, HORA, CON, PES, IMP, SCO) VALUES "_s
          u"(?,?,?,?,?,?,?,?,?)"_s));
  for (const auto& [addr, filas] : lectura.maquinas) {
    for (const auto& [clave, v] : filas) {
      const qint64 campos[] = {grupo, numeroDe(tipo), addr,  clave.first, clave.second,
                               v.CON, v.PES,          v.IMP, v.SCO};
      for (int i = 0; i < 9; ++i) st->ligar(i, campos[i]);
      TARVO_INTENTAR(st->ejecutar());
    }
  }
  return {};
}

// The open session holds a reading of this kind that is in no period yet; a whole one, if only
// those count.
Resultado<bool> haySinMemorizar(Database& db, const ClaseTotal& c, int grupo, bool soloEntera) {
  TARVO_TOMAR(const auto n,
              db.uno(conMarcas(u"SELECT count(*) FROM Sesiones, Lecturas WHERE CODGPO=? AND "
                               u"{enSesion} AND GRUPO=CODGPO AND CLASE=? AND (ENTERA<>0 OR NOT "
                               u"?) AND (LINK IS NULL OR APARTE=1)",
                               {{u"enSesion", CampoSesion(c.tipo)}}),
                     grupo, numeroDe(c.tipo), soloEntera));
  return n.entero() > 0;
}

// The inbox holds a reading that is in no period yet: of the open session, or waiting for a
// person's answer. When one of its counters went down, the machine may have forgotten it: that
// reading is the only record of those sales.
Resultado<bool> pisariaVentas(Database& db, const ClaseTotal& c, int grupo, const Lectura& lectura,
                              bool abierta) {
  TARVO_TOMAR(const bool viva, haySinMemorizar(db, c, grupo, false));
  TARVO_TOMAR(const auto esperan, clasesEnDuda(db, grupo));
  if (!(abierta && viva) && !esperan.contains(c.tipo)) return false;
  Lectura::Filas deVarias;
  const Lectura::Filas& nuevas = sumaDeMaquinas(lectura, deVarias);
  bool pisa = false;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(conMarcas(u"SELECT CODI, CON, {hora} FROM {tabla} WHERE LINK=0 AND GRUPO=?",
                             {{u"hora", horaDe(c)}, {u"tabla", NombreTabla(c.tipo)}}),
                   grupo),
      [&](const dao::Recordset& fila) {
        const auto it =
            nuevas.find(Lectura::Clave{fila.entero(0), static_cast<int>(fila.entero(2))});
        const bool esta = it != nuevas.end();
        pisa = (esta || lectura.entera) && (esta ? it->second.CON : 0) < fila.entero(1);
        return !pisa;
      }));
  return pisa;
}

// A range of codes with the rows of an earlier one of the same session that it doesn't hold.
// Nothing where the session has no such reading.
Resultado<std::optional<Lectura>> conLaParteAnterior(Database& db, const ClaseTotal& c, int grupo,
                                                     const Lectura& lectura) {
  TARVO_TOMAR(const bool hay, haySinMemorizar(db, c, grupo, false));
  if (!hay) return std::nullopt;
  TARVO_TOMAR(const auto antes,
              db.consultar(u"SELECT MAQUINAS, ADDR FROM Lecturas WHERE GRUPO=? AND CLASE=?", grupo,
                           numeroDe(c.tipo)));
  const bool varias = antes->entero(0) > 1;
  Lectura unida = lectura;
  TARVO_INTENTAR(dao::recorrer(
      varias ? db.consultar(u"SELECT ADDR, CODI, HORA, CON, PES, IMP, SCO FROM LectFilas WHERE "
                            u"GRUPO=? AND CLASE=?",
                            grupo, numeroDe(c.tipo))
             : db.consultar(conMarcas(u"SELECT ?, CODI, {hora}, CON, PES, IMP, SCO FROM {tabla} "
                                      u"WHERE LINK=0 AND GRUPO=?",
                                      {{u"hora", horaDe(c)}, {u"tabla", NombreTabla(c.tipo)}}),
                            antes->entero(1), grupo),
      [&](const dao::Recordset& fila) {
        auto& filas = unida.maquinas[static_cast<int>(fila.entero(0))];
        const Lectura::Clave clave{fila.entero(1), static_cast<int>(fila.entero(2))};
        if (filas.find(clave) == filas.end())
          filas[clave] = {fila.entero(3), fila.entero(4), fila.entero(5), fila.entero(6)};
      }));
  return unida;
}

// A statement on the span and the mark of a kind in Sesiones.
QString sobreSesion(QStringView sentencia, TipoTotal tipo) {
  return conMarcas(sentencia, {{u"desde", CampoDesde(tipo)},
                               {u"hasta", CampoHasta(tipo)},
                               {u"enSesion", CampoSesion(tipo)}});
}

}  // namespace

Resultado<> copiarBandeja(Database& db, QStringView tabla, int grupo, TipoTotal tipo, int addr) {
  TARVO_INTENTAR(db.ejecutar(
      conMarcas(u"INSERT INTO {destino} (GRUPO, CLASE, ADDR, CODI, HORA, CON, PES, IMP, SCO) "
                u"SELECT i.GRUPO, ?, ?, i.CODI, {hora}, i.CON, i.PES, i.IMP, i.SCO FROM {tabla} i "
                u"WHERE i.LINK=0 AND i.GRUPO=?",
                {{u"destino", tabla.toString()},
                 {u"hora", horaDe(claseDe(tipo), u"i")},
                 {u"tabla", NombreTabla(tipo)}}),
      numeroDe(tipo), addr, grupo));
  return {};
}

Resultado<> apartarBase(Database& db, int grupo, TipoTotal tipo) {
  TARVO_TOMAR(
      auto rs,
      db.consultar(
          u"SELECT MAQUINAS, ADDR FROM Lecturas WHERE GRUPO=? AND CLASE=? AND LINK IS NOT NULL AND "_s
          u"APARTE=0"_s,
          grupo, numeroDe(tipo)));
  if (rs->Eof()) return {};
  const bool varias = rs->entero(0) > 1;
  const auto addr = static_cast<int>(rs->entero(1));
  TARVO_INTENTAR(
      db.ejecutar(u"DELETE FROM BaseFilas WHERE GRUPO=? AND CLASE=?"_s, grupo, numeroDe(tipo)));
  if (varias) {
    TARVO_INTENTAR(
        db.ejecutar(u"INSERT INTO BaseFilas SELECT * FROM LectFilas WHERE GRUPO=? AND CLASE=?"_s,
                    grupo, numeroDe(tipo)));
  } else {
    TARVO_INTENTAR(copiarBandeja(db, u"BaseFilas", grupo, tipo, addr));
  }
  TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET APARTE=1 WHERE GRUPO=? AND CLASE=?"_s, grupo,
                             numeroDe(tipo)));
  return {};
}

Resultado<> Sesion::Estado::anotarLectura(int grupo, TipoTotal tipo, Lectura estado, Fecha ahora) {
  TARVO_INTENTAR(db.ejecutar(
      u"INSERT INTO Lecturas (GRUPO, CLASE, EJECUCION, ESTADO, INICIO) VALUES (?, ?, ?, ?, ?) "_s
      u"ON CONFLICT (GRUPO, CLASE) DO UPDATE SET EJECUCION=excluded.EJECUCION, "_s
      u"ANTES=Lecturas.ESTADO, ESTADO=excluded.ESTADO, "_s
      u"INICIO=excluded.INICIO"_s,
      grupo, numeroDe(tipo), ejecucion, int{estado}, ahora));
  return {};
}

Resultado<bool> Sesion::conBase(int grupo) {
  TARVO_TOMAR(const auto n,
              db_.uno(u"SELECT (SELECT count(*) FROM Lecturas WHERE GRUPO=? AND LINK IS NOT NULL)+"
                      u"(SELECT count(*) FROM BaseFilas WHERE GRUPO=?)",
                      grupo, grupo));
  return n.entero() > 0;
}

// In the current transaction.
Resultado<> Sesion::escribirLectura(int grupo, TipoTotal tipo, const Lectura& lectura,
                                    const QString& acceso) {
  const ClaseTotal& c = claseDe(tipo);
  Lectura::Filas deVarias;
  const Lectura::Filas& suma = sumaDeMaquinas(lectura, deVarias);
  TARVO_INTENTAR(apartarBase(db_, grupo, tipo));
  TARVO_INTENTAR(escribirBandeja(db_, c, grupo, suma));
  TARVO_INTENTAR(escribirPorMaquina(db_, grupo, tipo, lectura));
  TARVO_INTENTAR(
      db_.ejecutar(u"INSERT INTO Sesiones (CODGPO) SELECT ? WHERE NOT EXISTS (SELECT 1 FROM "_s
                   u"Sesiones WHERE CODGPO=?)"_s,
                   grupo, grupo));
  TARVO_INTENTAR(db_.ejecutar(
      sobreSesion(u"UPDATE Sesiones SET {desde}=PZERO, {hasta}=?, {enSesion}=TRUE WHERE CODGPO=?",
                  tipo),
      d->hasta, grupo));
  TARVO_TOMAR(const auto sec, d->valores.siguienteSecuencia());
  TARVO_INTENTAR(d->anotarLectura(grupo, tipo, Estado::kCompleta, reloj_.ahora()));
  const int maquinas = static_cast<int>(lectura.maquinas.size());
  TARVO_INTENTAR(db_.ejecutar(
      u"UPDATE Lecturas SET SEC=?, FIN=?, ENTERA=?, MAQUINAS=?, ADDR=?, ACCESO=? WHERE GRUPO=? "_s
      u"AND CLASE=?"_s,
      sec, reloj_.ahora(), lectura.entera, maquinas,
      maquinas == 1 ? lectura.maquinas.begin()->first : 0, acceso, grupo, numeroDe(tipo)));
  TARVO_INTENTAR(anotarPartes(db_, grupo, c, lectura));
  // Counters that may be another group's are no lower ones of this.
  TARVO_TOMAR(const auto otros, otrosDelAcceso(db_, grupo, acceso));
  return otros.empty() ? anotarBajas(db_, grupo, tipo) : Resultado<>();
}

// What was read leaves the note of its kind as it was.
Resultado<> Sesion::devolverNota(int grupo, TipoTotal tipo) {
  TARVO_INTENTAR(db_.ejecutar(
      u"UPDATE Lecturas SET ESTADO=CASE WHEN ANTES IN (2, 4) THEN ANTES ELSE 3 END WHERE "_s
      u"GRUPO=? AND CLASE=?"_s,
      grupo, numeroDe(tipo)));
  return {};
}

// A question whether the machines at a place are the group's is answered by one that is again where
// its memorised counters were read: what waits was not its own.
Resultado<> Sesion::cerrarSiHaVuelto(int grupo, const QString& acceso) {
  TARVO_TOMAR(const bool deOtros, dudaDeMaquinas(db_, grupo));
  if (!deOtros) return {};
  TARVO_TOMAR(const auto otros, otrosDelAcceso(db_, grupo, acceso));
  return otros.empty() ? cerrarDudas(db_, grupo) : Resultado<>();
}

Resultado<> Sesion::guardarLectura(int grupo, TipoTotal tipo, const Lectura& leida,
                                   std::vector<Aviso>& avisos) {
  const ClaseTotal& c = claseDe(tipo);
  const Estado::Foto antes = d->foto();
  const QString acceso = d->accesos[{grupo, tipo}];
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));

  TARVO_INTENTAR(cerrarSiHaVuelto(grupo, acceso));
  TARVO_TOMAR(const bool enDuda, hayDudas(db_, grupo));
  std::optional<Lectura> unida;
  if (!leida.entera && (enDuda || d->abierta > 0)) {
    TARVO_TOMAR(const auto sabeMas, haySinMemorizar(db_, c, grupo, true));
    if (enDuda || sabeMas) {
      TARVO_INTENTAR(devolverNota(grupo, tipo));
      avisos.push_back(
          {grupo, textos_(kTxParteNoSustituye, {grupo, textos_(kTxNombreTotal + numeroDe(tipo))}),
           true});
      return tr.confirmar();
    }
    TARVO_TOMAR(unida, conLaParteAnterior(db_, c, grupo, leida));
  }
  const Lectura& lectura = unida ? *unida : leida;
  TARVO_TOMAR(const auto pisa, pisariaVentas(db_, c, grupo, lectura, d->abierta > 0));
  if (pisa) {
    d->rechazadas[{grupo, tipo}] = {lectura, acceso};
    return fallo(Fallo::Restriccion, textos_(kTxMemoriceAntes, {grupo}));
  }
  const auto guardar = [&]() -> Resultado<> {
    TARVO_TOMAR(const auto abierta, AbrirSesion());
    if (!abierta) d->renovar(reloj_.ahora());
    TARVO_INTENTAR(enDuda ? devolverNota(grupo, tipo)
                          : escribirLectura(grupo, tipo, lectura, acceso));
    TARVO_INTENTAR(ponerEstado(2));
    return tr.confirmar();
  };
  if (auto r = guardar(); !r) {
    d->volver(antes);
    return std::unexpected(r.error());
  }
  d->rechazadas.erase({grupo, tipo});
  if (enDuda) {
    d->retenidas[grupo].insert_or_assign(tipo, Estado::Traida{lectura, acceso});
    return {};
  }
  d->leidosAhora.insert(grupo);
  const auto tarde = db_.uno(
      sobreSesion(u"SELECT count(*) FROM Sesiones WHERE CODGPO=? AND {desde}>{hasta}", tipo),
      grupo);
  // The reading is kept already: a failure of the question is reported, not returned.
  if (!tarde)
    avisos.push_back({grupo, tarde.error().texto, true});
  else if (tarde->entero() > 0)
    avisos.push_back({grupo, textos_(kTxCeroPosterior, {grupo}), true});
  return {};
}

Resultado<> Sesion::soltarRetenidas(std::vector<Aviso>& avisos) {
  for (const auto& [grupo, lecturas] : d->retenidas) {
    TARVO_TOMAR(const auto esperan, clasesEnDuda(db_, grupo));
    const auto releida = [&](TipoTotal t) { return lecturas.contains(t); };
    if (!std::ranges::all_of(esperan, releida)) {
      avisos.push_back({grupo, textos_(kTxNoReleidoEntero, {grupo}), true});
      continue;
    }
    for (const auto& [tipo, traida] : lecturas)
      TARVO_INTENTAR(escribirLectura(grupo, tipo, traida.lectura, traida.acceso));
  }
  return {};
}

void Sesion::olvidarRetenidas() {
  d->retenidas.clear();
}

std::vector<Aviso> Sesion::porDecir() {
  return std::exchange(d->porDecir, {});
}

}  // namespace tarvo::totals
