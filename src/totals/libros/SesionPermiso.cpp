// Which machines may be told to forget, and why the others may not.
#include <algorithm>
#include <set>

#include "core/dao/Marcas.h"
#include "totals/TextosTotals.h"
#include "totals/libros/Canjes.h"
#include "totals/libros/Confirmados.h"
#include "totals/libros/Cuadre.h"
#include "totals/libros/Dudas.h"
#include "totals/libros/Memoria.h"
#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::conMarcas;
using dao::Database;

// Why the readings of a group forbid its zeroing; empty when they don't.
Resultado<QString> motivoDeLecturas(Database& db, const Textos& textos, int grupo) {
  TARVO_TOMAR(
      auto rs,
      db.consultar(
          u"SELECT CLASE, ESTADO FROM Lecturas WHERE GRUPO=? AND ESTADO IN (1, 3, 4) ORDER BY CLASE"_s,
          grupo));
  if (rs->Eof()) return QString();
  if (rs->entero(1) == 4) return textos(kTxNoCuadraSinCero, {grupo});
  const auto clase = deNumero<TipoTotal>(rs->entero(0));
  return textos(kTxFaltaLectura, {grupo, clase ? NombreTabla(*clase) : QString()});
}

// The sum of a kind's reading in this session; nothing when it has no such reading. `entera`: with
// all codes, or with a range of them.
Resultado<std::optional<Contadores>> sumaLeida(Database& db, const ClaseTotal& c, int grupo,
                                               bool entera) {
  TARVO_TOMAR(const auto rs,
              db.consultar(conMarcas(u"SELECT SUM(t.CON), SUM(t.PES), SUM(t.IMP) FROM Sesiones "
                                     u"LEFT JOIN {totales} t ON t.LINK=0 AND t.GRUPO=CODGPO WHERE "
                                     u"CODGPO=? AND {enSesion} AND EXISTS (SELECT 1 FROM Lecturas "
                                     u"l WHERE l.GRUPO=CODGPO AND CLASE=? AND ESTADO=2 AND "
                                     u"{cuanta}) GROUP BY CODGPO",
                                     {{u"totales", NombreTabla(c.tipo)},
                                      {u"enSesion", CampoSesion(c.tipo)},
                                      {u"cuanta", entera ? u"ENTERA<>0"_s : u"ENTERA=0"_s}}),
                           grupo, numeroDe(c.tipo)));
  if (rs->Eof()) return std::nullopt;
  return Contadores{.CON = rs->entero(0), .PES = rs->entero(1), .IMP = rs->entero(2)};
}

// A range of the codes was read in this session: the sales of the others are in no book once the
// machine is cleared. Only a grand total of the same session can show that there are none, by its
// count and weight as well: amounts may cancel.
Resultado<QString> motivoDeParte(Database& db, const Ajustes& ajustes, const Textos& textos,
                                 int grupo) {
  TARVO_TOMAR(const auto todo, sumaLeida(db, claseDe(TipoTotal::GranTotal), grupo, true));
  for (const ClaseTotal& c : enVigor(ajustes)) {
    TARVO_TOMAR(const auto parte, sumaLeida(db, c, grupo, false));
    const bool nadaMas = parte && todo && todo->CON == parte->CON && todo->PES == parte->PES &&
                         todo->IMP == parte->IMP;
    if (parte && !nadaMas) return textos(kTxSoloUnaParte, {grupo, NombreTabla(c.tipo)});
  }
  return QString();
}

// The kinds that the session holds whole, or in part, from a group since it last forgot.
Resultado<std::set<TipoTotal>> leidasDesdeElCero(Database& db, const Ajustes& ajustes, int grupo) {
  std::set<TipoTotal> leidas;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    TARVO_TOMAR(
        const auto n,
        db.uno(conMarcas(u"SELECT count(*) FROM Lecturas, Sesiones WHERE GRUPO=? AND CODGPO=GRUPO "
                         u"AND CLASE=? AND ESTADO=2 AND {enSesion} AND SEC>(SELECT "
                         u"COALESCE(MAX(SEC_HECHO), 0) FROM Ceros WHERE Ceros.GRUPO=CODGPO)",
                         {{u"enSesion", CampoSesion(c.tipo)}}),
               grupo, numeroDe(c.tipo)));
    if (n.entero() > 0) leidas.insert(c.tipo);
  }
  return leidas;
}

// A machine of the group may have been read since it last forgot, in this process or another. Each
// register of several is looked at when its turn comes.
Resultado<bool> leidoDesdeElCero(Database& db, int grupo) {
  TARVO_TOMAR(const auto n,
              db.uno(conMarcas(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND ESTADO=2 AND "
                               u"{trasElCero}",
                               {{u"trasElCero", QString::fromUtf16(kTrasElCero)}}),
                     grupo, 0));
  return n.entero() > 0;
}

// No other kind tells what was sold of each article.
QString motivoSinArticulos(const Textos& textos, int grupo, const std::set<TipoTotal>& leidas) {
  if (leidas.empty() || leidas.contains(TipoTotal::PLUs)) return {};
  QStringList nombres;
  nombres.reserve(static_cast<qsizetype>(leidas.size()));
  for (const TipoTotal t : leidas) nombres << textos(kTxNombreTotal + numeroDe(t));
  return textos(kTxCeroSinArticulos, {grupo, nombres.join(u", "_s)});
}

// These are asked for the articles of the catalogue one by one: what they sold of others shows in
// their grand total only.
Resultado<bool> seLePreguntaPorElCatalogo(Database& db, int grupo) {
  TARVO_TOMAR(const auto tipo, db.uno(u"SELECT TIPO FROM GRUPOS WHERE CODGPO=?", grupo));
  const auto t = deNumero<TipoGrupo>(tipo.entero());
  return t == TipoGrupo::Balanzas || t == TipoGrupo::Birch;
}

PermisoCero negado(const QString& motivo) {
  return {.permitido = false, .motivo = motivo};
}

}  // namespace

Resultado<std::optional<qint64>> olvidadoSinMemorizar(dao::Database& db, int grupo) {
  TARVO_TOMAR(const auto rs,
              db.consultar(u"SELECT EJECUCION FROM Olvidos WHERE GRUPO=? AND SEC>(SELECT "
                           u"COALESCE(MAX(SEC), 0) FROM Lecturas WHERE "
                           u"Lecturas.GRUPO=Olvidos.GRUPO AND ESTADO=2 AND ENTERA<>0)",
                           grupo));
  return rs->Eof() ? std::nullopt : std::optional(rs->entero(0));
}

Resultado<std::vector<int>> Sesion::soloEnBandeja() {
  std::vector<int> grupos;
  if (d->abierta != 2) return grupos;
  TARVO_TOMAR(
      const auto leidos,
      dao::reunir(db_.consultar(u"SELECT DISTINCT Lecturas.GRUPO FROM Lecturas, Ceros WHERE "
                                u"Ceros.GRUPO=Lecturas.GRUPO AND SEC_INTENCION>SEC ORDER "
                                u"BY Lecturas.GRUPO"),
                  [](const dao::Recordset& rs) { return static_cast<int>(rs.entero(0)); }));
  grupos.reserve(leidos.size());
  for (const int g : leidos) {
    TARVO_TOMAR(const auto importe, sinPeriodo(g));
    if (importe.value_or(0) != 0) grupos.push_back(g);
  }
  return grupos;
}

Resultado<PermisoCero> Sesion::permisoCero(int grupo) {
  TARVO_TOMAR(const auto enDuda, hayDudas(db_, grupo));
  if (enDuda) return negado(textos_(kTxDudaSinCero, {grupo}));
  // A zeroing before the memorisation would hide whether an earlier one was heard, and sales made
  // during the reading of the group show up here.
  std::vector<Aviso> resuelto, diferencias, deMaquinas;
  if (d->abierta == 2) {
    TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
    TARVO_TOMAR(const auto fuera, seguirMaquinas(db_, ajustes_, textos_, deMaquinas));
    TARVO_INTENTAR(resolverBasesDe(db_, ajustes_, textos_, grupo, resuelto));
    TARVO_INTENTAR(anotarCuadre(db_, ajustes_, textos_, grupo, diferencias));
    TARVO_INTENTAR(tr.confirmar());
    d->porDecir.insert(d->porDecir.end(), deMaquinas.begin(), deMaquinas.end());
    if (fuera.contains(grupo))
      return negado(std::ranges::find(deMaquinas, grupo, &Aviso::grupo)->texto);
    TARVO_TOMAR(const auto preguntada, hayDudas(db_, grupo));
    if (preguntada) return negado(resuelto.back().texto);
  }
  TARVO_TOMAR(const auto deOtro, motivoDeAcceso(db_, textos_, grupo));
  if (!deOtro.isEmpty()) return negado(deOtro);
  TARVO_TOMAR(const auto motivo, motivoDeLecturas(db_, textos_, grupo));
  if (!motivo.isEmpty()) return negado(motivo);
  TARVO_TOMAR(const auto parte, motivoDeParte(db_, ajustes_, textos_, grupo));
  if (!parte.isEmpty()) return negado(parte);
  // What a person forgets by hand is his own decision, and so is what he zeroes at a window, which
  // tells him the amount.
  TARVO_TOMAR(const auto olvido, olvidadoSinMemorizar(db_, grupo));
  if (olvido && *olvido > 0 && (d->enProceso || *olvido == d->ejecucion))
    return negado(textos_(kTxOlvidadoSinMemorizar, {grupo}));
  TARVO_TOMAR(const auto leidas, leidasDesdeElCero(db_, ajustes_, grupo));
  if (const QString sin = motivoSinArticulos(textos_, grupo, leidas);
      d->enProceso && !sin.isEmpty())
    return negado(sin);
  TARVO_TOMAR(const auto cierre, d->valores.leer(u"CierreFallido"_s));
  if (!cierre.nulo() && d->abierta == 2) {
    const auto espera =
        db_.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND ESTADO=2 AND SEC>?"_s, grupo,
                cierre.entero());
    const auto dentro =
        db_.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND ESTADO=2"_s, grupo);
    if (!espera || !dentro) return std::unexpected(espera ? dentro.error() : espera.error());
    if (dentro->entero() > 0 && espera->entero() == 0)
      return negado(textos_(kTxSinMemorizar, {grupo}));
  }
  const bool leidoAqui = d->leidosAhora.contains(grupo);
  bool comprobar = d->reanuda && !leidoAqui;
  const bool sinLectura = !comprobar;
  if (d->enProceso && !leidoAqui) {
    TARVO_TOMAR(const auto deAntes, leidoDesdeElCero(db_, grupo));
    TARVO_TOMAR(const auto dudoso, sinDemostrar(db_, grupo));
    comprobar = comprobar || deAntes || dudoso;
  }
  if (d->enProceso && leidas.contains(TipoTotal::PLUs) && !leidas.contains(TipoTotal::GranTotal)) {
    TARVO_TOMAR(const auto porCatalogo, seLePreguntaPorElCatalogo(db_, grupo));
    comprobar = comprobar || porCatalogo;
  }
  return PermisoCero{
      .comprobar = comprobar, .sinLectura = sinLectura, .motivo = {}, .avisos = resuelto};
}

}  // namespace tarvo::totals
