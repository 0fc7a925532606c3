#include "totals/libros/Canjes.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <vector>

#include "core/dao/Marcas.h"
#include "totals/TextosTotals.h"
#include "totals/libros/Accesos.h"
#include "totals/libros/Dudas.h"
#include "totals/libros/Grupos.h"
#include "totals/libros/SesionInterior.h"
#include "totals/libros/Testigos.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::conMarcas;
using dao::Database;

// What a reading shows of counters that may be its machine's; Vacia: there are none.
enum class Prueba { Vacia, Sigue, Otra, NoSeSabe };

// A group of the open session that is read where others are or were.
struct Caso {
  std::set<QString> accesos = {};
  std::vector<const ClaseTotal*> clases = {};  // read whole
  Prueba propia = Prueba::NoSeSabe;
  std::map<int, Prueba> ajenas = {};  // by group, but those that were found elsewhere
  std::vector<int> otros = {};        // all of them
  std::set<int> seguras = {};         // of these: beyond chance
  bool asentado = false, dudoso = false;

  bool hay(Prueba p) const {
    return std::ranges::any_of(ajenas, [p](const auto& x) { return x.second == p; });
  }
};
using Casos = std::map<int, Caso>;  // by group

// --- the evidence -------------------------------------------------------------------------------

// The memorised counters of a group as a whole against the reading of another, or its own. Other
// sales are meant to show: as many of an article for another amount are as good as fewer.
Resultado<Testimonio> testimonioDe(Database& db, const ClaseTotal& c, int grupo, int otro) {
  TARVO_TOMAR(
      const auto f,
      db.consultar(
          conMarcas(
              u"SELECT count(*), SUM(COALESCE(n.CON,0)<b.CON OR COALESCE(n.PES,0)<b.PES OR "
              u"COALESCE(n.IMP,0)<b.IMP OR (n.CON=b.CON AND (n.PES<>b.PES OR n.IMP<>b.IMP))), "
              u"SUM(b.CON>0 AND "
              u"COALESCE(n.CON,0)=0), SUM(COALESCE(n.CON,0)=b.CON AND COALESCE(n.PES,0)=b.PES AND "
              u"COALESCE(n.IMP,0)=b.IMP), SUM(b.PES<>0 AND n.CON=b.CON AND n.PES=b.PES AND "
              u"n.IMP=b.IMP), SUM(b.CON>1 AND n.CON=b.CON AND n.PES=b.PES AND n.IMP=b.IMP), "
              u"SUM(b.CON), SUM(b.IMP), (SELECT SUM(CON) FROM {tabla} WHERE LINK=0 AND GRUPO=?), "
              u"(SELECT SUM(IMP) FROM {tabla} WHERE LINK=0 AND GRUPO=?) FROM (SELECT CASE CLASE "
              u"WHEN ? THEN ? ELSE CODI END AS CLAVE, HORA, SUM(CON) AS CON, SUM(PES) AS PES, "
              u"SUM(IMP) AS IMP FROM BaseFilas WHERE GRUPO=? AND CLASE=? GROUP BY 1, 2) b LEFT "
              u"JOIN {tabla} n ON n.LINK=0 AND n.GRUPO=? AND n.CODI=b.CLAVE AND {hora}=b.HORA "
              u"WHERE b.CON<>0 OR b.PES<>0 OR b.IMP<>0",
              {{u"tabla", NombreTabla(c.tipo)}, {u"hora", horaDe(c, u"n")}}),
          grupo, grupo, numeroDe(TipoTotal::GranTotal), grupo, otro, numeroDe(c.tipo), grupo));
  return Testimonio{.claves = f->entero(0),
                    .bajas = f->entero(1),
                    .desaparecidas = f->entero(2),
                    .iguales = f->entero(3),
                    .pesosIguales = f->entero(4),
                    .variasIguales = f->entero(5),
                    .conAntes = f->entero(6),
                    .conAhora = f->entero(8),
                    .impAntes = f->entero(7),
                    .impAhora = f->entero(9)};
}

Resultado<Testimonios> testimoniosAnte(Database& db, const Caso& caso, int grupo, int otro) {
  Testimonios t;
  for (const ClaseTotal* c : caso.clases) {
    TARVO_TOMAR(const auto dudosa,
                db.uno(u"SELECT BASE_DUDOSA FROM Lecturas WHERE GRUPO=? AND CLASE=?", otro,
                       numeroDe(c->tipo)));
    if (dudosa.logico()) continue;
    TARVO_TOMAR(const auto suyo, testimonioDe(db, *c, grupo, otro));
    if (suyo.claves > 0) t[c->tipo] = suyo;
  }
  return t;
}

Resultado<std::set<int>> direccionesEn(Database& db, QStringView consulta, int grupo) {
  std::set<int> d;
  TARVO_INTENTAR(dao::recorrer(db.consultar(consulta, grupo), [&d](const dao::Recordset& f) {
    d.insert(static_cast<int>(f.entero(0)));
  }));
  return d;
}
Resultado<std::set<int>> direccionesContadas(Database& db, int grupo) {
  return direccionesEn(db, u"SELECT DISTINCT ADDR FROM BaseFilas WHERE GRUPO=?", grupo);
}
Resultado<std::set<int>> direccionesLeidas(Database& db, const Caso& caso, int grupo) {
  std::set<int> d;
  for (const ClaseTotal* c : caso.clases)
    TARVO_INTENTAR(dao::recorrer(
        db.consultar(u"SELECT ADDR FROM Lecturas WHERE GRUPO=? AND CLASE=? AND MAQUINAS<2 UNION "
                     u"SELECT ADDR FROM LectFilas WHERE GRUPO=? AND CLASE=?",
                     grupo, numeroDe(c->tipo), grupo, numeroDe(c->tipo)),
        [&d](const dao::Recordset& f) { d.insert(static_cast<int>(f.entero(0))); }));
  return d;
}
// Machines known by one address may be those of a reading; a lone one may have another.
bool caben(const std::set<int>& contadas, const std::set<int>& leidas) {
  return std::ranges::includes(leidas, contadas) || (contadas.size() == 1 && leidas.size() == 1);
}

Resultado<Prueba> probar(Database& db, Caso& caso, int grupo, int otro) {
  TARVO_TOMAR(const auto algo, db.uno(u"SELECT count(*) FROM BaseFilas WHERE GRUPO=? AND (CON<>0 "
                                      u"OR PES<>0 OR IMP<>0)",
                                      otro));
  if (algo.entero() == 0) return Prueba::Vacia;
  TARVO_TOMAR(const auto t, testimoniosAnte(db, caso, grupo, otro));
  if (t.empty()) return Prueba::NoSeSabe;
  if (inconfundible(t)) caso.seguras.insert(otro);
  const auto p = parecido(t);
  if (p != Parecido::Sigue) return p == Parecido::Otra ? Prueba::Otra : Prueba::NoSeSabe;
  TARVO_TOMAR(const auto contadas, direccionesContadas(db, otro));
  TARVO_TOMAR(const auto leidas, direccionesLeidas(db, caso, grupo));
  return caben(contadas, leidas) ? Prueba::Sigue : Prueba::NoSeSabe;
}

Resultado<Casos> leerCasos(Database& db, const Ajustes& ajustes) {
  Casos casos;
  for (const ClaseTotal& c : enVigor(ajustes))
    TARVO_INTENTAR(dao::recorrer(
        db.consultar(conMarcas(u"SELECT GRUPO, ACCESO, ENTERA FROM Lecturas, Sesiones WHERE "
                               u"CODGPO=GRUPO AND CLASE=? AND {enSesion}",
                               {{u"enSesion", CampoSesion(c.tipo)}}),
                     numeroDe(c.tipo)),
        [&](const dao::Recordset& f) {
          Caso& caso = casos[static_cast<int>(f.entero(0))];
          caso.accesos.insert(f.texto(1));
          if (f.logico(2)) caso.clases.push_back(&c);
        }));
  for (auto it = casos.begin(); it != casos.end();) {
    for (const QString& acceso : it->second.accesos) {
      TARVO_TOMAR(const auto otros, otrosDelAcceso(db, it->first, acceso));
      for (const int otro : otros) it->second.ajenas[otro] = Prueba::NoSeSabe;
    }
    for (const auto& [otro, prueba] : it->second.ajenas) it->second.otros.push_back(otro);
    it = it->second.otros.empty() ? casos.erase(it) : std::next(it);
  }
  return casos;
}

Resultado<> probarTodas(Database& db, Casos& casos) {
  std::set<int> grupos;
  for (const auto& [grupo, caso] : casos) {
    grupos.insert(grupo);
    for (const auto& [otro, prueba] : caso.ajenas) grupos.insert(otro);
  }
  for (const int grupo : grupos)
    for (const ClaseTotal& c : todasLasClases()) TARVO_INTENTAR(apartarBase(db, grupo, c.tipo));
  for (auto& [grupo, caso] : casos) {
    TARVO_TOMAR(caso.propia, probar(db, caso, grupo, grupo));
    for (auto& [otro, prueba] : caso.ajenas) {
      TARVO_TOMAR(prueba, probar(db, caso, grupo, otro));
    }
    caso.dudoso = caso.accesos.size() > 1;  // its place was changed between two of its readings
  }
  return {};
}

// --- the verdicts -------------------------------------------------------------------------------

// A machine that goes on from its group's counters and from no others is no other group's.
void asentarLosSuyos(Casos& casos) {
  for (bool otra = true; otra;) {
    otra = false;
    for (auto& [grupo, caso] : casos) {
      const bool suyo =
          caso.propia == Prueba::Sigue && !caso.hay(Prueba::Sigue) && !caso.hay(Prueba::NoSeSabe);
      if (caso.asentado || caso.dudoso || !suyo) continue;
      caso.asentado = otra = true;
      for (auto& [g, c] : casos) c.ajenas.erase(grupo);
    }
  }
}

// Nothing says that the machine isn't the group's, and no other reading that its counters are
// elsewhere.
bool esSuya(const Casos& casos, int grupo) {
  const Caso& c = casos.at(grupo);
  const bool reclamada = std::ranges::any_of(casos, [grupo](const auto& x) {
    const auto suya = x.second.ajenas.find(grupo);
    return suya != x.second.ajenas.end() &&
           (suya->second == Prueba::Sigue || suya->second == Prueba::NoSeSabe);
  });
  if (c.dudoso || reclamada) return false;
  if (c.ajenas.empty() || c.propia == Prueba::Vacia)
    return !c.hay(Prueba::Sigue) && !c.hay(Prueba::NoSeSabe);
  const bool deNadie = std::ranges::all_of(c.ajenas, [&c](const auto& x) {
    return x.second == Prueba::Otra || (x.second == Prueba::Vacia && c.propia == Prueba::Sigue);
  });
  return deNadie && c.propia != Prueba::Otra;
}

// The group whose counters the reading goes on from, and from no others.
std::optional<int> deQuienEs(const Caso& c) {
  if (c.propia != Prueba::Otra && c.propia != Prueba::Vacia) return std::nullopt;
  if (c.hay(Prueba::NoSeSabe) ||
      std::ranges::count(c.ajenas, Prueba::Sigue, &std::pair<const int, Prueba>::second) != 1)
    return std::nullopt;
  return std::ranges::find(c.ajenas, Prueba::Sigue, &std::pair<const int, Prueba>::second)->first;
}

// Machines of which something is only half known stay with their group.
Resultado<bool> aMedias(Database& db, int grupo, bool leido) {
  TARVO_TOMAR(const auto partes,
              db.uno(u"SELECT (SELECT count(*) FROM CerosParte WHERE GRUPO=?)+(SELECT count(*) "
                     u"FROM CerosClase WHERE GRUPO=?)+(SELECT count(*) FROM Dudas WHERE GRUPO=? "
                     u"AND (NOT ? OR DE IS NULL))",
                     grupo, grupo, grupo, leido));
  TARVO_TOMAR(const auto olvido, olvidadoSinMemorizar(db, grupo));
  return partes.entero() > 0 || olvido;
}

// Whether the group can do without its counters: it was read, and they aren't its machine's; or it
// isn't where they were read any more, and the other's machine can be no third one.
Resultado<bool> puedeDarlas(Database& db, const Casos& casos, int grupo, bool seguro) {
  const auto caso = casos.find(grupo);
  if (caso != casos.end()) return caso->second.propia == Prueba::Otra && !caso->second.dudoso;
  TARVO_TOMAR(const auto leidas, db.uno(u"SELECT count(*) FROM Sesiones, Lecturas WHERE "
                                        u"CODGPO=? AND GRUPO=CODGPO AND (SS_PLU OR SS_GRT OR "
                                        u"SS_OPE OR SS_DEP OR SS_HOR OR SS_OPH)",
                                        grupo));
  TARVO_TOMAR(const QString ahora, accesoDe(db, grupo));
  TARVO_TOMAR(const QString alli, accesoDeBase(db, grupo));
  return leidas.entero() == 0 && seguro && ahora != alli;
}

// By receiving group. Each counter has one taker; what a chain leaves without takes what it leaves
// over.
using Reparto = std::map<int, int>;
Resultado<Reparto> repartir(Database& db, Casos& casos) {
  Reparto toma;
  std::map<int, int> pedidas;
  for (const auto& [grupo, caso] : casos)
    if (const auto otro = deQuienEs(caso); otro && !caso.asentado && !caso.dudoso)
      toma[grupo] = *otro, ++pedidas[*otro];
  for (bool otra = true; otra;) {
    otra = false;
    for (auto it = toma.begin(); it != toma.end() && !otra;) {
      const auto [grupo, otro] = *it;
      const auto suyo = casos.find(otro);
      TARVO_TOMAR(const bool puede,
                  puedeDarlas(db, casos, otro, casos.at(grupo).seguras.contains(otro)));
      TARVO_TOMAR(const bool mia, aMedias(db, grupo, true));
      TARVO_TOMAR(const bool suya, aMedias(db, otro, suyo != casos.end()));
      // A reading that may go on from the first one's counters waits for a person.
      const bool indeciso =
          suyo != casos.end() && !toma.contains(otro) && suyo->second.hay(Prueba::NoSeSabe);
      otra = !puede || mia || suya || indeciso || pedidas[otro] > 1;
      it = otra ? toma.erase(it) : std::next(it);
    }
  }
  Reparto todas = toma;
  for (const auto& [grupo, otro] : toma) {
    if (toma.contains(otro)) continue;
    int primero = grupo;
    const auto antes = [&](int g) {
      return std::ranges::find(toma, g, &Reparto::value_type::second);
    };
    while (antes(primero) != toma.end()) primero = antes(primero)->first;
    todas[otro] = primero;
  }
  return todas;
}

// --- what follows from them ---------------------------------------------------------------------

QString deGrupo(const Textos& textos, int grupo) {
  return textos(grupo < 0 ? kTxDelGrupoBorrado : kTxDelGrupo, {codigoDe(grupo)});
}
QString deGrupos(const Textos& textos, const std::vector<int>& grupos) {
  QStringList lista;
  for (const int g : grupos) lista << deGrupo(textos, g);
  return lista.join(u", "_s);
}

// A lone register has the address at which it was read.
Resultado<> recolocar(Database& db, const Caso& caso, int grupo) {
  TARVO_TOMAR(const auto contadas, direccionesContadas(db, grupo));
  TARVO_TOMAR(const auto leidas, direccionesLeidas(db, caso, grupo));
  if (contadas.size() != 1 || leidas.size() != 1 || contadas == leidas) return {};
  return cambiarDirecciones(db, grupo, {{*contadas.begin(), *leidas.begin()}});
}

Resultado<> cambiar(Database& db, const Ajustes& ajustes, const Textos& textos, Casos& casos,
                    const Reparto& reparto, std::vector<Aviso>& avisos) {
  if (reparto.empty()) return {};
  TARVO_INTENTAR(traspasar(db, ajustes, reparto));
  for (const auto& [grupo, otro] : reparto) {
    const auto caso = casos.find(grupo);
    if (caso == casos.end()) {  // not read where it is now: not to be zeroed there either
      TARVO_INTENTAR(
          db.ejecutar(u"UPDATE Lecturas SET ESTADO=3 WHERE GRUPO=? AND ESTADO=2", grupo));
      continue;
    }
    TARVO_INTENTAR(recolocar(db, caso->second, grupo));
    // One that lost its counters to another and got some that aren't its machine's has none of its
    // own.
    const bool encontrada = deQuienEs(caso->second) == otro;
    TARVO_TOMAR(const auto propia, probar(db, caso->second, grupo, grupo));
    caso->second.asentado = encontrada || propia == Prueba::Vacia;
    caso->second.propia = propia;
    if (encontrada)
      avisos.push_back({grupo, textos(kTxOtrasMaquinas, {grupo, deGrupo(textos, otro)}), false});
  }
  return {};
}

// A person has said of each machine in question whether it forgot.
Resultado<bool> contestada(Database& db, int grupo) {
  TARVO_TOMAR(const auto r, db.consultar(u"SELECT count(*), count(RESPUESTA) FROM Dudas WHERE "
                                         u"GRUPO=? AND DE IS NOT NULL",
                                         grupo));
  return r->entero(0) > 0 && r->entero(0) == r->entero(1);
}

// Without counters of its own all that it has is new, whatever is answered.
Resultado<std::map<int, Testimonios>> deQueSePregunta(Database& db, const Ajustes& ajustes,
                                                      const Caso& caso, int grupo) {
  TARVO_TOMAR(const auto lista, releidas(db, ajustes));
  TARVO_TOMAR(auto maquinas, testimoniosDeGrupo(db, lista, grupo));
  if (maquinas.empty()) {
    TARVO_TOMAR(const auto leidas, direccionesLeidas(db, caso, grupo));
    const int addr = leidas.size() == 1 ? *leidas.begin() : 0;
    TARVO_TOMAR(maquinas[addr], testimoniosAnte(db, caso, grupo, caso.otros.front()));
    for (auto& [clase, t] : maquinas[addr]) t.conAntes = t.impAntes = 0;
  }
  for (auto it = maquinas.begin(); it != maquinas.end();) {
    TARVO_TOMAR(const auto dicho, respuestaDe(db, grupo, it->first));
    it = dicho ? maquinas.erase(it) : std::next(it);
  }
  return maquinas;
}

Resultado<> preguntar(Database& db, const Ajustes& ajustes, const Textos& textos, const Caso& caso,
                      int grupo, std::vector<Aviso>& avisos) {
  avisos.push_back(
      {grupo, textos(kTxMaquinasDeQuien, {grupo, deGrupos(textos, caso.otros)}), true});
  TARVO_TOMAR(const auto maquinas, deQueSePregunta(db, ajustes, caso, grupo));
  TARVO_INTENTAR(abrirDudas(db, ajustes, textos, grupo, maquinas, avisos));
  TARVO_INTENTAR(db.ejecutar(u"UPDATE Dudas SET DE=? WHERE GRUPO=?", caso.otros.front(), grupo));
  return {};
}

// The group is where it is. A question about it needs no answer any more; one that was answered is
// closed by whoever acts on the answer, unless there is nothing to act on.
Resultado<> asentar(Database& db, const Caso& caso, int grupo) {
  TARVO_INTENTAR(asentarAcceso(db, grupo, *caso.accesos.begin()));
  TARVO_INTENTAR(db.ejecutar(
      u"DELETE FROM Dudas WHERE GRUPO=? AND DE IS NOT NULL AND (RESPUESTA IS NULL OR NOT EXISTS "
      u"(SELECT 1 FROM Lecturas l WHERE l.GRUPO=Dudas.GRUPO AND l.LINK IS NOT NULL))",
      grupo));
  return {};
}

// A person's answers come first: the group has its machines, zeroed or not.
Resultado<> obedecer(Database& db, Casos& casos) {
  for (auto& [grupo, caso] : casos) {
    TARVO_TOMAR(const bool dicho, contestada(db, grupo));
    if (!dicho) continue;
    caso.asentado = true;
    for (auto& [g, c] : casos) c.ajenas.erase(grupo);
  }
  return {};
}

}  // namespace

Resultado<std::set<int>> seguirMaquinas(Database& db, const Ajustes& ajustes, const Textos& textos,
                                        std::vector<Aviso>& avisos) {
  std::set<int> fuera;
  TARVO_TOMAR(auto casos, leerCasos(db, ajustes));
  if (casos.empty()) return fuera;
  TARVO_INTENTAR(probarTodas(db, casos));
  TARVO_INTENTAR(obedecer(db, casos));
  asentarLosSuyos(casos);
  TARVO_TOMAR(const auto reparto, repartir(db, casos));
  TARVO_INTENTAR(cambiar(db, ajustes, textos, casos, reparto, avisos));
  for (auto& [grupo, caso] : casos) {
    if (caso.asentado || (!reparto.contains(grupo) && esSuya(casos, grupo))) {
      TARVO_INTENTAR(asentar(db, caso, grupo));
      continue;
    }
    fuera.insert(grupo);
    TARVO_INTENTAR(preguntar(db, ajustes, textos, caso, grupo, avisos));
  }
  return fuera;
}

Resultado<QString> motivoDeAcceso(Database& db, const Textos& textos, int grupo) {
  TARVO_TOMAR(const QString acceso, accesoDe(db, grupo));
  TARVO_TOMAR(const auto otros, otrosDelAcceso(db, grupo, acceso));
  if (otros.empty()) return QString();
  return textos(kTxAccesoDeOtro, {grupo, deGrupos(textos, otros)});
}

}  // namespace tarvo::totals
