// Telling a machine to forget: the intention on disk before the frame is sent, and what is written
// once the machine has confirmed.
#include "core/dao/Marcas.h"
#include "totals/libros/Confirmados.h"
#include "totals/libros/Dudas.h"
#include "totals/libros/Memoria.h"
#include "totals/libros/Partes.h"
#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::conMarcas;
using dao::Database;

constexpr qint64 kVentasQueNoSeRepiten = 3;

// The sum of a machine's articles, read whole since it last forgot; `sola`: of a later run than its
// grand total.
Resultado<std::optional<Contadores>> sumaDeArticulos(Database& db, int grupo, int addr, bool sola) {
  TARVO_TOMAR(
      const auto lectura,
      db.consultar(
          conMarcas(u"SELECT MAQUINAS FROM Lecturas WHERE GRUPO=? AND CLASE=? AND ESTADO=2 AND "
                    u"ENTERA<>0 AND {trasElCero} AND (NOT ? OR EXISTS (SELECT 1 FROM Lecturas g "
                    u"WHERE g.GRUPO=Lecturas.GRUPO AND g.CLASE=? AND "
                    u"g.EJECUCION<Lecturas.EJECUCION))",
                    {{u"trasElCero", QString::fromUtf16(kTrasElCero)}}),
          grupo, numeroDe(TipoTotal::PLUs), addr, sola, numeroDe(TipoTotal::GranTotal)));
  if (lectura->Eof()) return std::nullopt;
  const bool varias = lectura->entero(0) > 1;
  TARVO_TOMAR(const auto suma,
              varias ? db.consultar(u"SELECT SUM(CON), SUM(PES), SUM(IMP) FROM LectFilas WHERE "_s
                                    u"GRUPO=? AND CLASE=? AND ADDR=?"_s,
                                    grupo, numeroDe(TipoTotal::PLUs), addr)
                     : db.consultar(u"SELECT SUM(CON), SUM(PES), SUM(IMP) FROM TOTPLU WHERE "_s
                                    u"LINK=0 AND GRUPO=?"_s,
                                    grupo));
  return Contadores{.CON = suma->entero(0), .PES = suma->entero(1), .IMP = suma->entero(2)};
}

// The kinds whose reading in the open session contains memorised sales. These are taken off when it
// is memorised, whether or not the machine is zeroed in the meantime.
Resultado<QString> clasesQueEsperan(Database& db, const Ajustes& ajustes, int grupo, int abierta) {
  QStringList clases{u"0"_s};
  for (const ClaseTotal& c : enVigor(ajustes)) {
    if (abierta != 2) break;
    TARVO_TOMAR(
        const auto n,
        db.uno(
            conMarcas(u"SELECT count(*) FROM Lecturas, Sesiones WHERE GRUPO=? AND CODGPO=GRUPO AND "
                      u"CLASE=? AND LINK IS NOT NULL AND APARTE=1 AND {enSesion}",
                      {{u"enSesion", CampoSesion(c.tipo)}}),
            grupo, numeroDe(c.tipo)));
    if (n.entero() > 0) clases << QString::number(numeroDe(c.tipo));
  }
  return clases.join(u',');
}

// A statement on the memorised kinds but those of a list: {menos}.
QString menosEstas(QStringView sentencia, const QString& menos) {
  return conMarcas(sentencia, {{u"menos", menos}});
}

// For a group of several machines, leaves as memorised only what machines other than `addr` hold.
Resultado<> quitarDeLaBase(Database& db, int grupo, int addr, const QString& menos) {
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(menosEstas(u"SELECT CLASE FROM Lecturas WHERE GRUPO=? AND LINK IS NOT NULL AND "
                              u"MAQUINAS>1 AND CLASE NOT IN ({menos})",
                              menos),
                   grupo),
      [&](const dao::Recordset& fila) -> Resultado<> {
        const auto clase = deNumero<TipoTotal>(fila.entero(0));
        return clase ? apartarBase(db, grupo, *clase) : Resultado<>{};
      }));
  TARVO_INTENTAR(db.ejecutar(
      menosEstas(u"DELETE FROM BaseFilas WHERE GRUPO=? AND ADDR=? AND CLASE NOT IN ({menos})",
                 menos),
      grupo, addr));
  return {};
}

Resultado<> olvidarBase(Database& db, int grupo, const QString& menos) {
  TARVO_INTENTAR(db.ejecutar(
      menosEstas(u"DELETE FROM BaseFilas WHERE GRUPO=? AND CLASE NOT IN ({menos})", menos), grupo));
  TARVO_INTENTAR(db.ejecutar(
      menosEstas(u"UPDATE Lecturas SET LINK=NULL, BASE_DESDE=NULL, BASE_HASTA=NULL, "
                 u"BASE_ANTIGUA=NULL, APARTE=0 WHERE GRUPO=? AND CLASE NOT IN ({menos})",
                 menos),
      grupo));
  return {};
}

Resultado<> marcarPuestaACero(Database& db, int grupo, Fecha cuando) {
  TARVO_INTENTAR(
      db.ejecutar(u"INSERT INTO Sesiones (CODGPO) SELECT ? WHERE NOT EXISTS (SELECT 1 FROM "_s
                  u"Sesiones WHERE CODGPO=?)"_s,
                  grupo, grupo));
  TARVO_INTENTAR(db.ejecutar(u"UPDATE Sesiones SET PZERO=? WHERE CODGPO=?"_s, cuando, grupo));
  return {};
}

}  // namespace

Resultado<> Sesion::anotarCierreFallido() {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto sec, d->valores.siguienteSecuencia());
  TARVO_INTENTAR(d->valores.poner(u"CierreFallido"_s, sec));
  return tr.confirmar();
}

Resultado<std::optional<qint64>> Sesion::sinPeriodo(int grupo) {
  TARVO_TOMAR(const auto olvido, olvidadoSinMemorizar(db_, grupo));
  TARVO_TOMAR(const bool preguntado, hayDudas(db_, grupo));
  const bool espera = olvido || preguntado;
  std::optional<qint64> mayor;
  if (d->abierta != 2 && !espera) return mayor;
  for (const ClaseTotal& c : enVigor(ajustes_)) {
    const TipoTotal tipo = c.tipo;
    TARVO_TOMAR(
        const auto rs,
        db_.consultar(
            dao::conMarcas(u"SELECT count(*), SUM(IMP) FROM {tabla} WHERE LINK=0 AND GRUPO=? AND "
                           u"(? OR EXISTS (SELECT 1 FROM Sesiones WHERE CODGPO=? AND {enSesion})) "
                           u"AND NOT EXISTS (SELECT 1 FROM Lecturas l WHERE l.GRUPO=? AND CLASE=? "
                           u"AND l.LINK IS NOT NULL AND APARTE=0)",
                           {{u"tabla", NombreTabla(tipo)}, {u"enSesion", CampoSesion(tipo)}}),
            grupo, espera, grupo, grupo, numeroDe(tipo)));
    if (rs->entero(0) > 0) mayor = std::max(mayor.value_or(rs->entero(1)), rs->entero(1));
  }
  return mayor;
}

Resultado<> Sesion::anotarOlvido() {
  TARVO_TOMAR(const auto sec, d->valores.siguienteSecuencia());
  for (const ClaseTotal& c : enVigor(ajustes_))
    TARVO_INTENTAR(db_.ejecutar(
        conMarcas(
            u"INSERT INTO Olvidos (GRUPO, EJECUCION, SEC) SELECT CODGPO, ?, ? FROM Sesiones, "
            u"Lecturas WHERE GRUPO=CODGPO AND CLASE=? AND {enSesion} AND (LINK IS NULL OR "
            u"APARTE=1) AND EXISTS (SELECT 1 FROM (SELECT SUM(CON) AS C, SUM(PES) AS P, SUM(IMP) "
            u"AS I FROM {totales} WHERE LINK=0 AND GRUPO=CODGPO) b, (SELECT SUM(CON) AS C, "
            u"SUM(PES) AS P, SUM(IMP) AS I FROM BaseFilas WHERE GRUPO=CODGPO AND CLASE=?) m WHERE "
            u"COALESCE(b.C, 0)<>COALESCE(m.C, 0) OR COALESCE(b.P, 0)<>COALESCE(m.P, 0) OR "
            u"COALESCE(b.I, 0)<>COALESCE(m.I, 0)) ON CONFLICT (GRUPO) DO UPDATE SET "
            u"EJECUCION=excluded.EJECUCION, SEC=excluded.SEC",
            {{u"totales", NombreTabla(c.tipo)}, {u"enSesion", CampoSesion(c.tipo)}}),
        d->ejecucion, sec, numeroDe(c.tipo), numeroDe(c.tipo)));
  return olvidarConfirmadosDe(db_, ajustes_, sec);
}

Resultado<> Sesion::cerrarSinMemorizar() {
  const Estado::Foto antes = d->foto();
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  const auto cerrar = [&]() -> Resultado<> {
    if (d->abierta == 2) TARVO_INTENTAR(anotarOlvido());
    TARVO_INTENTAR(ponerEstado(0));
    return tr.confirmar();
  };
  if (const auto hecho = cerrar(); !hecho) {
    d->volver(antes);
    return std::unexpected(hecho.error());
  }
  olvidarRetenidas();
  return {};
}

Resultado<> Sesion::anunciarCero(int grupo, int addr, int conjunto) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto sec, d->valores.siguienteSecuencia());
  TARVO_INTENTAR(
      db_.ejecutar(u"INSERT INTO Ceros (GRUPO, ADDR, EJECUCION, INTENCION, SEC_INTENCION) VALUES "_s
                   u"(?, ?, ?, ?, ?) "_s
                   u"ON CONFLICT (GRUPO, ADDR) DO UPDATE SET EJECUCION=excluded.EJECUCION, "_s
                   u"INTENCION=excluded.INTENCION, "_s
                   u"SEC_INTENCION=excluded.SEC_INTENCION"_s,
                   grupo, addr, d->ejecucion, reloj_.ahora(), sec));
  // Whether the outcome can be recorded must be known now, not after the machine has forgotten.
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE Sesiones SET PZERO=PZERO WHERE CODGPO=?"_s, grupo));
  if (conjunto > 0)
    TARVO_INTENTAR(anunciarParte(db_, {grupo, addr, conjunto}, d->ejecucion, reloj_.ahora(), sec));
  TARVO_INTENTAR(tr.confirmar());
  return db_.asentar();
}

Resultado<> Sesion::parteHecha(int grupo, int addr, int conjunto) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto sec, d->valores.siguienteSecuencia());
  TARVO_INTENTAR(confirmarParte(db_, {grupo, addr, conjunto}, d->ejecucion,
                                d->abierta > 0 ? d->aCero : reloj_.ahora(), sec));
  return tr.confirmar();
}

Resultado<Sesion::Partes> Sesion::partesHechas(int grupo, int addr) {
  TARVO_TOMAR(
      auto rs,
      db_.consultar(
          u"SELECT count(*), MAX(CASE WHEN SEC_HECHO>=SEC_INTENCION THEN CONJUNTO ELSE 0 END) FROM "_s
          u"CerosParte WHERE GRUPO=? AND ADDR=? AND EJECUCION=? AND SEC_INTENCION>(SELECT "_s
          u"COALESCE(MAX(SEC), 0) FROM Lecturas WHERE Lecturas.GRUPO=CerosParte.GRUPO)"_s,
          grupo, addr, d->ejecucion));
  return Partes{static_cast<int>(rs->entero(1)) + 1, rs->entero(0) > 0};
}

Resultado<> Sesion::ceroDesmentido(int grupo, int addr, TipoTotal clase, bool igual) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(desmentirPartes(db_, grupo, addr, igual ? std::optional(clase) : std::nullopt));
  return tr.confirmar();
}

Resultado<> Sesion::ceroHecho(int grupo, int addr, bool ultima, Visto visto) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(guardarLoConfirmado(db_, grupo, addr, visto == Visto::Todo));
  TARVO_TOMAR(const auto sec, d->valores.siguienteSecuencia());
  const Fecha ahora = reloj_.ahora();
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO Ceros (GRUPO, ADDR, EJECUCION, INTENCION, SEC_INTENCION, HECHO, SEC_HECHO, "_s
      u"VISTO) VALUES (?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (GRUPO, ADDR) DO UPDATE SET "_s
      u"EJECUCION=excluded.EJECUCION, "_s
      u"HECHO=excluded.HECHO, SEC_HECHO=excluded.SEC_HECHO, VISTO=excluded.VISTO"_s,
      grupo, addr, d->ejecucion, ahora, sec, ahora, sec, visto == Visto::GranTotal));
  TARVO_INTENTAR(olvidarPartes(db_, grupo, addr));
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM Bajas WHERE GRUPO=? AND ADDR=?"_s, grupo, addr));
  TARVO_TOMAR(const auto esperan, clasesQueEsperan(db_, ajustes_, grupo, d->abierta));
  if (ultima) {
    TARVO_INTENTAR(olvidarBase(db_, grupo, esperan));
    TARVO_INTENTAR(marcarPuestaACero(db_, grupo, d->abierta > 0 ? d->aCero : ahora));
  } else {
    TARVO_INTENTAR(quitarDeLaBase(db_, grupo, addr, esperan));
  }
  return tr.confirmar();
}

Resultado<bool> Sesion::ceroYaHecho(int grupo, int addr) {
  TARVO_TOMAR(
      const auto n,
      db_.uno(
          u"SELECT count(*) FROM Ceros WHERE GRUPO=? AND ADDR=? AND EJECUCION=? AND "_s
          u"SEC_HECHO>=SEC_INTENCION AND "_s
          u"SEC_HECHO>(SELECT COALESCE(MAX(SEC), 0) FROM Lecturas WHERE Lecturas.GRUPO=Ceros.GRUPO)"_s,
          grupo, addr, d->ejecucion));
  return n.entero() > 0;
}

Resultado<Sesion::Comparacion> Sesion::compararGranTotal(int grupo, int addr,
                                                         const Contadores& leido) {
  TARVO_TOMAR(const auto base, granTotalLeido(db_, grupo, addr));
  // For a process the sum of the articles will do.
  if (d->enProceso) {
    TARVO_TOMAR(const auto articulos, sumaDeArticulos(db_, grupo, addr, base.has_value()));
    if (articulos && leido.IMP == articulos->IMP) return Comparacion::Igual;
    if (articulos && !base) return leido.cero() ? Comparacion::Cero : Comparacion::Mas;
  }
  if (!base) {
    TARVO_TOMAR(const auto otras,
                db_.uno(conMarcas(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND ESTADO=2 AND "
                                  u"{trasElCero}",
                                  {{u"trasElCero", QString::fromUtf16(kTrasElCero)}}),
                        grupo, addr));
    if (otras.entero() > 0) return Comparacion::OtrasClases;
    TARVO_TOMAR(const bool dudoso, sinDemostrar(db_, grupo));
    if (dudoso) return leido.cero() ? Comparacion::Cero : Comparacion::Mas;
    return Comparacion::SinLectura;
  }
  const qint64 con = base->CON, imp = base->IMP, pes = base->PES;
  const bool igual = leido.CON == con && leido.IMP == imp && leido.PES == pes;
  // After an order that may have been obeyed a piece or two may be sold again for the same amount.
  if (igual && con > 0 && con < kVentasQueNoSeRepiten && pes == 0) {
    TARVO_TOMAR(const auto orden,
                db_.uno(u"SELECT count(*) FROM Ceros WHERE GRUPO=? AND ADDR=? AND "
                        u"SEC_INTENCION>SEC_HECHO AND SEC_INTENCION>(SELECT COALESCE(MAX(SEC), 0) "
                        u"FROM Lecturas WHERE Lecturas.GRUPO=Ceros.GRUPO)",
                        grupo, addr));
    if (orden.entero() > 0) return Comparacion::Mas;
  }
  if (igual) return Comparacion::Igual;
  // A returned item may lower the count; it doesn't halve it.
  if (2 * leido.CON < con || (leido.CON == 0 && leido.IMP == 0)) return Comparacion::Cero;
  return Comparacion::Mas;
}

Resultado<std::optional<Contadores>> Sesion::articulosLeidos(int grupo, int addr) {
  TARVO_TOMAR(auto suma, sumaDeArticulos(db_, grupo, addr, false));
  if (suma && suma->CON == 0) suma.reset();
  return suma;
}

Sesion::Comparacion Sesion::compararArticulos(const Contadores& antes, const Contadores& leido) {
  if (leido.cero() || 2 * leido.CON < antes.CON) return Comparacion::Cero;
  return antes == leido ? Comparacion::Igual : Comparacion::Mas;
}

}  // namespace tarvo::totals
