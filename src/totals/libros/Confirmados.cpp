#include "totals/libros/Confirmados.h"

#include <algorithm>
#include <map>
#include <set>

#include "totals/TextosTotals.h"
#include "totals/libros/Dudas.h"
#include "totals/libros/SesionInterior.h"
#include "totals/libros/Testigos.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::conMarcas;
using dao::Database;

// The kinds read from the machine since it last forgot, unless that session was closed without
// memorising them; with the number of machines in the reading.
Resultado<std::map<TipoTotal, qint64>> clasesLeidas(Database& db, int grupo, int addr) {
  std::map<TipoTotal, qint64> clases;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(
          conMarcas(u"SELECT CLASE, MAQUINAS FROM Lecturas WHERE GRUPO=? AND ESTADO=2 AND SEC>0 "
                    u"AND (MAQUINAS>1 OR ADDR=?) AND {trasElCero} AND NOT EXISTS (SELECT 1 FROM "
                    u"Olvidos o WHERE o.GRUPO=Lecturas.GRUPO AND o.SEC>Lecturas.SEC)",
                    {{u"trasElCero", QString::fromUtf16(kTrasElCero)}}),
          grupo, addr, addr),
      [&](const dao::Recordset& fila) {
        if (const auto clase = deNumero<TipoTotal>(fila.entero(0))) clases[*clase] = fila.entero(1);
      }));
  return clases;
}

Resultado<> guardarClase(Database& db, int grupo, int addr, TipoTotal clase, bool varias) {
  if (varias) {
    TARVO_INTENTAR(db.ejecutar(
        u"INSERT INTO CeroFilas SELECT * FROM LectFilas WHERE GRUPO=? AND CLASE=? AND ADDR=? AND "_s
        u"(CON<>0 OR PES<>0 OR IMP<>0 OR SCO<>0)"_s,
        grupo, numeroDe(clase), addr));
    return {};
  }
  TARVO_INTENTAR(copiarBandeja(db, u"CeroFilas", grupo, clase, addr));
  TARVO_INTENTAR(
      db.ejecutar(u"DELETE FROM CeroFilas WHERE GRUPO=? AND CLASE=? AND ADDR=? AND "
                  u"CON=0 AND PES=0 AND IMP=0 AND SCO=0",
                  grupo, numeroDe(clase), addr));
  return {};
}

// The open session's readings of the group, to be compared with what its machines held.
Resultado<std::vector<Releida>> lecturasDe(Database& db, const Ajustes& ajustes, int grupo) {
  std::vector<Releida> lista;
  for (const ClaseTotal& c : enVigor(ajustes))
    TARVO_INTENTAR(dao::recorrer(
        db.consultar(conMarcas(u"SELECT MAQUINAS, ENTERA, ADDR, SEC FROM Lecturas, Sesiones WHERE "
                               u"GRUPO=? AND CODGPO=GRUPO AND CLASE=? AND {enSesion} AND EXISTS "
                               u"(SELECT 1 FROM CeroFilas f WHERE f.GRUPO=Lecturas.GRUPO AND "
                               u"f.CLASE=Lecturas.CLASE)",
                               {{u"enSesion", CampoSesion(c.tipo)}}),
                     grupo, numeroDe(c.tipo)),
        [&](const dao::Recordset& fila) {
          lista.push_back({grupo, &c, fila.entero(0) > 1, fila.logico(1), fila.entero(2),
                           fila.entero(3), Releida::Ante::LoConfirmado});
        }));
  return lista;
}

// What the readings after each machine's confirmation show of it. A reading before it shows
// nothing.
Resultado<std::map<int, Testimonios>> testimoniosDesdeElCero(Database& db,
                                                             const std::vector<Releida>& lista,
                                                             int grupo) {
  TARVO_TOMAR(auto todos, testimoniosDeGrupo(db, lista, grupo));
  for (auto& [addr, t] : todos) {
    TARVO_TOMAR(const auto hecho,
                db.uno(u"SELECT SEC_HECHO FROM Ceros WHERE GRUPO=? AND ADDR=?"_s, grupo, addr));
    for (const Releida& r : lista)
      if (r.sec <= hecho.entero()) t.erase(r.clase->tipo);
  }
  std::erase_if(todos, [](const auto& m) { return m.second.empty(); });
  return todos;
}

// The machine still holds what is memorised of this kind.
Resultado<> devolverBase(Database& db, int grupo, int addr, TipoTotal clase) {
  TARVO_INTENTAR(
      db.ejecutar(u"INSERT OR REPLACE INTO BaseFilas SELECT * FROM CeroFilas WHERE GRUPO=? AND "_s
                  u"ADDR=? AND CLASE=?"_s,
                  grupo, addr, numeroDe(clase)));
  TARVO_TOMAR(auto origen,
              db.consultar(u"SELECT LINK, DESDE, HASTA FROM Origenes WHERE GRUPO=? AND CLASE=? "
                           u"ORDER BY rowid DESC LIMIT 1",
                           grupo, numeroDe(clase)));
  TARVO_TOMAR(const auto cero, db.uno(u"SELECT PZERO FROM Sesiones WHERE CODGPO=?"_s, grupo));
  // A deleted period leaves its sales in no other: -1 is none.
  const bool hay = !origen->Eof();
  TARVO_INTENTAR(db.ejecutar(
      u"UPDATE Lecturas SET LINK=?, BASE_DESDE=?, BASE_HASTA=?, BASE_ANTIGUA=NULL, APARTE=1 WHERE GRUPO=? AND CLASE=? "_s
      u"AND LINK IS NULL"_s,
      hay ? origen->entero(0) : -1, hay ? origen->fecha(1) : cero.fecha(),
      hay ? origen->fecha(2) : cero.fecha(), grupo, numeroDe(clase)));
  return {};
}

// The kinds that a machine kept although it confirmed.
using Via = std::set<TipoTotal>;

// All ways in which the sums of its kinds foot; a range of codes has none.
std::vector<Via> viasQueCuadran(const Testimonios& t, const std::set<TipoTotal>& enteras,
                                bool visto) {
  std::vector<TipoTotal> clases;
  for (const auto& [k, x] : t)
    if (enteras.contains(k)) clases.push_back(k);
  std::vector<Via> vias;
  if (clases.size() < 2) return vias;
  for (unsigned m = 0; m < 1U << clases.size(); ++m) {
    Via via;
    std::set<qint64> sumas;
    for (size_t i = 0; i < clases.size(); ++i) {
      const bool guarda = (m >> i & 1U) != 0;
      const Testimonio& x = t.at(clases[i]);
      if (guarda) via.insert(clases[i]);
      sumas.insert(x.impAhora - (guarda ? x.impAntes : 0));
    }
    if (sumas.size() == 1 && !(visto && via.contains(TipoTotal::GranTotal))) vias.push_back(via);
  }
  return vias;
}

Via clasesDe(const Testimonios& t, bool visto) {
  Via todas;
  for (const auto& [k, x] : t)
    if (!visto || k != TipoTotal::GranTotal) todas.insert(k);
  return todas;
}

// A grand total that was seen at zero is no evidence of the rest.
Testimonios loQuePudoGuardar(Testimonios t, bool visto) {
  if (visto && t.size() > 1) t.erase(TipoTotal::GranTotal);
  return t;
}

// Nothing when a person must say it. `visto`: its grand total was seen to be zero.
std::optional<Via> loQueGuarda(const Testimonios& t, const std::set<TipoTotal>& enteras, bool visto,
                               bool espera) {
  const auto vias = viasQueCuadran(t, enteras, visto);
  if (vias.size() == 1) return vias.front();
  Veredicto v = juzgarConfirmada(loQuePudoGuardar(t, visto));
  const auto comparables =
      std::ranges::count_if(t, [&](const auto& x) { return enteras.contains(x.first); });
  const bool niQueBorrara = v == Veredicto::Duda && comparables > 1 && vias.empty();
  if (visto && !niQueBorrara) v = v == Veredicto::Guarda ? Veredicto::Duda : Veredicto::Olvido;
  // What was sold since the question takes evidence away; it adds none.
  if (v == Veredicto::Duda || (espera && v == Veredicto::Olvido)) return std::nullopt;
  return v == Veredicto::Guarda ? clasesDe(t, visto) : Via{};
}

// Some kinds were cleared and others weren't: how much lower the sums of the former are, for the
// cross-footing. It is unknown for kinds that weren't read before.
Resultado<> anotarLoQuitado(Database& db, int grupo, int addr, const Testimonios& t,
                            const Via& guarda) {
  const auto queda = [&](const auto& x) {
    return guarda.contains(x.first) ? x.second.impAntes : 0;
  };
  const qint64 mayor = queda(*std::ranges::max_element(t, {}, queda));
  for (const ClaseTotal& c : todasLasClases()) {
    const auto x = t.find(c.tipo);
    const dao::Valor quitado = x == t.end() ? dao::Valor() : dao::Valor(mayor - queda(*x));
    TARVO_INTENTAR(db.ejecutar(
        u"INSERT INTO CerosClase (GRUPO, ADDR, CLASE, DUDA, QUITADO) VALUES (?, ?, ?, "
        u"0, ?) ON CONFLICT (GRUPO, ADDR, CLASE) DO UPDATE SET QUITADO=excluded.QUITADO",
        grupo, addr, numeroDe(c.tipo), quitado));
    TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET AJUSTE=AJUSTE+? WHERE GRUPO=? AND CLASE=?",
                               quitado, grupo, numeroDe(c.tipo)));
  }
  return {};
}

// Its kinds are settled by what was reread of it: a scale clears all of them or none, a register
// each by itself.
Resultado<std::set<TipoTotal>> decididas(Database& db, int grupo, int addr, const Testimonios& t,
                                         const Via& guarda) {
  std::set<TipoTotal> clases;
  for (const auto& [clase, testimonio] : t) clases.insert(clase);
  TARVO_TOMAR(const auto tipo, db.uno(u"SELECT TIPO FROM GRUPOS WHERE CODGPO=?", grupo));
  const bool parte = !guarda.empty() && guarda.size() < t.size();
  if (parte || deNumero<TipoGrupo>(tipo.entero()) == TipoGrupo::Registradoras) return clases;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT DISTINCT CLASE FROM CeroFilas WHERE GRUPO=? AND ADDR=?"_s, grupo, addr),
      [&](const dao::Recordset& f) {
        if (const auto clase = deNumero<TipoTotal>(f.entero(0))) clases.insert(*clase);
      }));
  return clases;
}

// `parte`: the kinds that it kept, if it cleared others.
Resultado<> nombrar(Database& db, const Textos& textos, int grupo, int addr, const Via& parte,
                    std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto hecho,
              db.uno(u"SELECT HECHO FROM Ceros WHERE GRUPO=? AND ADDR=?"_s, grupo, addr));
  const QString cuando = hecho.fecha().general();
  if (!parte.empty()) {
    QStringList nombres;
    nombres.reserve(static_cast<qsizetype>(parte.size()));
    for (const TipoTotal k : parte) nombres << textos(kTxNombreTotal + numeroDe(k));
    const QString cuales = nombres.join(u", "_s);
    avisos.push_back({grupo,
                      addr == 0 ? textos(kTxNoBorro, {grupo, cuando, cuales})
                                : textos(kTxCajaNoBorro, {grupo, cuando, cuales, addr}),
                      true});
    return {};
  }
  avisos.push_back({grupo,
                    addr == 0 ? textos(kTxNoObedecio, {grupo, cuando})
                              : textos(kTxCajaNoObedecio, {grupo, cuando, addr}),
                    true});
  return {};
}

// The kinds still to be reread whole before a machine is judged: its articles; for a register,
// which may have cleared each kind separately, all that it held.
Resultado<QStringList> clasesPorLeer(Database& db, const Ajustes& ajustes, const Textos& textos,
                                     int grupo, int addr, const Testimonios& t,
                                     const std::set<TipoTotal>& enteras) {
  QStringList faltan;
  TARVO_TOMAR(const auto tipo, db.uno(u"SELECT TIPO FROM GRUPOS WHERE CODGPO=?", grupo));
  const bool caja = deNumero<TipoGrupo>(tipo.entero()) == TipoGrupo::Registradoras;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    if (!caja && c.tipo != TipoTotal::PLUs) continue;
    if (t.contains(c.tipo) && enteras.contains(c.tipo)) continue;
    TARVO_TOMAR(const auto n,
                db.uno(u"SELECT count(*) FROM CeroFilas WHERE GRUPO=? AND ADDR=? AND CLASE=?",
                       grupo, addr, numeroDe(c.tipo)));
    if (n.entero() > 0) faltan << textos(kTxNombreTotal + numeroDe(c.tipo));
  }
  return faltan;
}

// `guarda`: the kinds that were reread and are kept.
Resultado<> aplicar(Database& db, const Textos& textos, int grupo, int addr, const Testimonios& t,
                    const Via& guarda, std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto clases, decididas(db, grupo, addr, t, guarda));
  const bool parte = guarda.size() < t.size();
  for (const TipoTotal clase : clases) {
    if (!guarda.empty() && (guarda.contains(clase) || !t.contains(clase)))
      TARVO_INTENTAR(devolverBase(db, grupo, addr, clase));
    TARVO_INTENTAR(db.ejecutar(u"DELETE FROM CeroFilas WHERE GRUPO=? AND ADDR=? AND CLASE=?"_s,
                               grupo, addr, numeroDe(clase)));
  }
  if (guarda.empty()) return {};
  if (parte) TARVO_INTENTAR(anotarLoQuitado(db, grupo, addr, t, guarda));
  return nombrar(db, textos, grupo, addr, parte ? guarda : Via{}, avisos);
}

}  // namespace

Resultado<> guardarLoConfirmado(Database& db, int grupo, int addr, bool visto) {
  TARVO_TOMAR(const auto clases, clasesLeidas(db, grupo, addr));
  if (clases.empty() && !visto) return {};  // told again, without a reading in between
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM CeroFilas WHERE GRUPO=? AND ADDR=?"_s, grupo, addr));
  if (visto) return {};
  for (const auto& [clase, maquinas] : clases)
    TARVO_INTENTAR(guardarClase(db, grupo, addr, clase, maquinas > 1));
  return {};
}

Resultado<std::set<int>> gruposConConfirmados(Database& db) {
  std::set<int> grupos;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT DISTINCT GRUPO FROM CeroFilas"_s),
      [&](const dao::Recordset& f) { grupos.insert(static_cast<int>(f.entero(0))); }));
  return grupos;
}

Resultado<bool> resolverConfirmados(Database& db, const Ajustes& ajustes, const Textos& textos,
                                    int grupo, std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto lecturas, lecturasDe(db, ajustes, grupo));
  TARVO_TOMAR(const auto testimonios, testimoniosDesdeElCero(db, lecturas, grupo));
  std::set<TipoTotal> enteras;
  for (const Releida& r : lecturas)
    if (r.entera) enteras.insert(r.clase->tipo);
  std::map<int, Testimonios> preguntas;
  QStringList faltan;
  for (const auto& [addr, t] : testimonios) {
    TARVO_TOMAR(const auto dicho, respuestaDe(db, grupo, addr));
    TARVO_TOMAR(const bool espera, preguntada(db, grupo, addr));
    TARVO_TOMAR(const auto visto,
                db.uno(u"SELECT VISTO FROM Ceros WHERE GRUPO=? AND ADDR=?"_s, grupo, addr));
    auto guarda = loQueGuarda(t, enteras, visto.logico(), espera);
    TARVO_TOMAR(const auto suyas, clasesPorLeer(db, ajustes, textos, grupo, addr, t, enteras));
    if (dicho) {
      guarda = *dicho ? Via{} : clasesDe(t, visto.logico());
    } else if (!suyas.empty()) {
      faltan += suyas;
      continue;
    }
    if (!guarda) {
      preguntas[addr] = loQuePudoGuardar(t, visto.logico());
      continue;
    }
    TARVO_INTENTAR(aplicar(db, textos, grupo, addr, t, *guarda, avisos));
    // Not what has been memorised since.
    if (dicho && *dicho) TARVO_INTENTAR(cerrarDuda(db, grupo, addr));
  }
  if (!preguntas.empty()) TARVO_INTENTAR(abrirDudas(db, ajustes, textos, grupo, preguntas, avisos));
  if (!faltan.empty()) {
    faltan.removeDuplicates();
    avisos.push_back({grupo, textos(kTxFaltaLeerClases, {grupo, faltan.join(u", "_s)}), true});
    TARVO_INTENTAR(dejarFuera(db, ajustes, grupo));
  }
  return preguntas.empty() && faltan.empty();
}

// What was read before the zeroing and is still in the inbox is in no period. A reading after it
// shows what the machine did, whether it is memorised or not.
Resultado<> olvidarConfirmadosDe(Database& db, const Ajustes& ajustes, qint64 sec) {
  for (const ClaseTotal& c : enVigor(ajustes))
    TARVO_INTENTAR(db.ejecutar(
        conMarcas(
            u"DELETE FROM CeroFilas WHERE CLASE=? AND GRUPO IN (SELECT CODGPO FROM Sesiones, "
            u"Olvidos o WHERE o.GRUPO=CODGPO AND o.SEC=? AND {enSesion}) AND EXISTS (SELECT 1 "
            u"FROM Lecturas l, Ceros z WHERE l.GRUPO=CeroFilas.GRUPO AND "
            u"l.CLASE=CeroFilas.CLASE AND z.GRUPO=l.GRUPO AND z.ADDR=CeroFilas.ADDR AND "
            u"l.SEC<=z.SEC_HECHO)",
            {{u"enSesion", CampoSesion(c.tipo)}}),
        numeroDe(c.tipo), sec));
  return {};
}

Resultado<bool> sinDemostrar(Database& db, int grupo) {
  TARVO_TOMAR(const auto n, db.uno(u"SELECT count(*) FROM CeroFilas WHERE GRUPO=?"_s, grupo));
  return n.entero() > 0;
}

}  // namespace tarvo::totals
