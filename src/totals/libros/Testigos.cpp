#include "totals/libros/Testigos.h"

#include <algorithm>

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::conMarcas;
using dao::Database;

// Keys that must match to the unit before a machine is believed in spite of a lower count: more
// than chance gives, and more than any returns.
constexpr qint64 kMinimoIguales = 3, kPorBaja = 3, kDeCada = 10;
// What an article that matches is worth, by its count alone or also by its weight; how much is no
// chance after a confirmed order, and after one without an answer.
constexpr qint64 kPorIgual = 1, kPorPesoIgual = 3, kNoEsAzar = 20, kNoEsAzarSinRespuesta = 6;
// Of how many articles the lower ones are more than returns; how many are, if the grand total fell.
constexpr qint64 kMasQueDevoluciones = 4, kBajasConTotal = 4;
// More articles than customers return in a day, whatever the grand total does; more pieces, if half
// of all.
constexpr qint64 kMuchasBajas = 10, kMuchasPiezas = 10;

// The new row (n) of a memorised key (b): of the machine itself, or of the inbox.
QString filasNuevas(const Releida& r) {
  if (r.varias)
    return u"LectFilas n ON n.GRUPO=b.GRUPO AND n.CLASE=b.CLASE AND n.ADDR=b.ADDR AND "
           u"n.CODI=b.CODI AND n.HORA=b.HORA"_s;
  return conMarcas(u"{tabla} n ON n.LINK=0 AND n.GRUPO=b.GRUPO AND n.CODI=b.CODI AND {hora}=b.HORA",
                   {{u"tabla", NombreTabla(r.clase->tipo)}, {u"hora", horaDe(*r.clase, u"n")}});
}

Resultado<> sumarLoLeido(Database& db, const Releida& r, std::map<int, Testimonio>& t) {
  auto sumas =
      r.varias ? db.consultar(
                     u"SELECT ADDR, SUM(CON), SUM(IMP) FROM LectFilas WHERE GRUPO=? AND "
                     u"CLASE=? GROUP BY ADDR",
                     r.grupo, numeroDe(r.clase->tipo))
               : db.consultar(conMarcas(u"SELECT ?, SUM(CON), SUM(IMP) FROM {tabla} WHERE LINK=0 "
                                        u"AND GRUPO=?",
                                        {{u"tabla", NombreTabla(r.clase->tipo)}}),
                              r.addr, r.grupo);
  return dao::recorrer(std::move(sumas), [&t](const dao::Recordset& fila) {
    if (const auto it = t.find(static_cast<int>(fila.entero(0))); it != t.end()) {
      it->second.conAhora = fila.entero(1);
      it->second.impAhora = fila.entero(2);
    }
  });
}

// The kind that divides the sales most finely.
const Testimonio& masFino(const Testimonios& t) {
  return std::ranges::max_element(t, {}, [](const auto& x) { return x.second.claves; })->second;
}

// The grand total's; without one, the finest kind's.
const Testimonio& granTotalDe(const Testimonios& t) {
  const auto gran = t.find(TipoTotal::GranTotal);
  return gran == t.end() ? masFino(t) : gran->second;
}

// Of the keys that match.
qint64 puntos(const Testimonio& f) {
  return kPorIgual * f.iguales + kPorPesoIgual * f.pesosIguales;
}

bool muchasBajas(const Testimonio& f) {
  return f.bajas >= kMuchasBajas && kDeCada * f.bajas >= f.claves;
}

// A count below zero that sinks further is one of returns.
bool cayo(const Testimonio& g) {
  return g.conAntes > 0 && g.conAhora < g.conAntes;
}

// Fewer than half are left, and the rest is no day's returns.
bool quedanMenosDeLaMitad(const Testimonio& g) {
  return cayo(g) && 2 * g.conAhora < g.conAntes && g.conAntes - g.conAhora >= kMuchasPiezas;
}

// Nothing is left.
bool aCero(const Testimonios& t) {
  return std::ranges::all_of(t, [](const auto& x) {
    return x.second.desaparecidas == x.second.claves && x.second.conAhora == 0;
  });
}

// A machine that forgot and sold most of the same pieces again looks like one that kept everything
// and took a few back: those are gone. Packed goods have the same weights every day.
bool puedeSerOtroDia(const Testimonio& f) {
  return f.bajas > 0 && f.bajas == f.desaparecidas && f.iguales >= kPorBaja * f.bajas;
}

}  // namespace

Resultado<std::vector<Releida>> releidas(Database& db, const Ajustes& ajustes) {
  std::vector<Releida> lista;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    TARVO_INTENTAR(dao::recorrer(
        db.consultar(conMarcas(u"SELECT GRUPO, MAQUINAS, ENTERA, ADDR, SEC, BASE_DUDOSA FROM "
                               u"Lecturas, Sesiones WHERE CODGPO=GRUPO AND CLASE=? AND LINK IS NOT "
                               u"NULL AND APARTE=1 AND {enSesion} ORDER BY GRUPO",
                               {{u"enSesion", CampoSesion(c.tipo)}}),
                     numeroDe(c.tipo)),
        [&](const dao::Recordset& fila) {
          lista.push_back({static_cast<int>(fila.entero(0)), &c, fila.entero(1) > 1, fila.logico(2),
                           fila.entero(3), fila.entero(4), Releida::Ante::Memorizado,
                           fila.logico(5)});
        }));
  }
  return lista;
}

Resultado<std::map<int, Testimonio>> testimoniosDe(Database& db, const Releida& r) {
  std::map<int, Testimonio> t;
  const auto una = [&t](const dao::Recordset& fila) {
    t[static_cast<int>(fila.entero(0))] = {.claves = fila.entero(1),
                                           .bajas = fila.entero(2),
                                           .desaparecidas = fila.entero(7),
                                           .iguales = fila.entero(3),
                                           .pesosIguales = fila.entero(4),
                                           .variasIguales = fila.entero(8),
                                           .conAntes = fila.entero(5),
                                           .impAntes = fila.entero(6)};
  };
  // For a range of codes only the codes in it are compared.
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(
          conMarcas(
              u"SELECT b.ADDR, count(*), SUM(b.CON>0 AND COALESCE(n.CON,0)<b.CON), "
              u"SUM(COALESCE(n.CON,0)=b.CON "
              u"AND COALESCE(n.PES,0)=b.PES AND COALESCE(n.IMP,0)=b.IMP), SUM(b.PES<>0 AND "
              u"n.CON=b.CON AND n.PES=b.PES AND n.IMP=b.IMP), SUM(b.CON), SUM(b.IMP), "
              u"SUM(b.CON>0 AND COALESCE(n.CON,0)=0), SUM(b.CON>1 AND n.CON=b.CON AND n.PES=b.PES "
              u"AND n.IMP=b.IMP) "
              u"FROM {base} b LEFT JOIN {nuevas} WHERE b.GRUPO=? AND b.CLASE=? AND (b.CON<>0 OR "
              u"b.PES<>0 OR b.IMP<>0 OR b.SCO<>0) AND (? OR n.CON IS NOT NULL) AND (? OR b.ADDR=?) "
              u"GROUP BY b.ADDR",
              {{u"nuevas", filasNuevas(r)},
               {u"base", r.ante == Releida::Ante::Memorizado ? u"BaseFilas"_s : u"CeroFilas"_s}}),
          r.grupo, numeroDe(r.clase->tipo), r.entera, r.varias, r.addr),
      una));
  TARVO_INTENTAR(sumarLoLeido(db, r, t));
  return t;
}

Resultado<std::map<int, Testimonios>> testimoniosDeGrupo(Database& db,
                                                         const std::vector<Releida>& lista,
                                                         int grupo) {
  std::map<int, Testimonios> todos;
  for (const Releida& r : lista) {
    if (r.grupo != grupo) continue;
    TARVO_TOMAR(const auto deClase, testimoniosDe(db, r));
    for (const auto& [addr, t] : deClase) todos[addr][r.clase->tipo] = t;
  }
  return todos;
}

bool algunaBaja(const Testimonios& t) {
  return std::ranges::any_of(t, [](const auto& x) { return x.second.bajas > 0; });
}

bool masQueDevoluciones(const Testimonios& t) {
  const Testimonio& f = masFino(t);
  const Testimonio& g = granTotalDe(t);
  const bool muchas = muchasBajas(f);
  const bool parte = f.bajas > 1 && kMasQueDevoluciones * f.bajas >= f.claves;
  return muchas || parte || g.conAhora < g.conAntes;
}

bool quietos(const Testimonios& t) {
  return std::ranges::all_of(t, [](const auto& x) { return x.second.quieto(); });
}

bool firmes(const Testimonios& t) {
  if (t.empty()) return false;
  const Testimonio& f = masFino(t);
  return f.iguales >= kMinimoIguales && f.iguales >= kPorBaja * f.bajas &&
         kDeCada * f.iguales >= f.claves;
}

Parecido parecido(const Testimonios& t) {
  const Testimonio& f = masFino(t);
  if (!algunaBaja(t) || firmes(t)) {
    const bool bastan = f.claves >= kMinimoIguales && granTotalDe(t).conAntes >= kMuchasPiezas;
    return bastan ? Parecido::Sigue : Parecido::NoSeSabe;
  }
  const bool caen = f.bajas >= kMinimoIguales && f.bajas >= kPorBaja * f.iguales;
  const bool muchas = muchasBajas(f) || kMasQueDevoluciones * f.bajas >= f.claves;
  return caen && muchas ? Parecido::Otra : Parecido::NoSeSabe;
}

bool inconfundible(const Testimonios& t) {
  return firmes(t) && puntos(masFino(t)) >= kNoEsAzar;
}

Veredicto juzgar(const Testimonios& t, bool sospecha, bool todas) {
  const Testimonio& f = masFino(t);
  const Testimonio& g = granTotalDe(t);
  // The same few pieces may be sold again.
  const bool porAzar = sospecha && puntos(f) + f.variasIguales < kNoEsAzarSinRespuesta;
  if (quietos(t)) return f.claves > 0 && porAzar ? Veredicto::Duda : Veredicto::Guarda;
  const bool sinPesos = kPorPesoIgual * f.pesosIguales < kNoEsAzar;
  if (sospecha && cayo(g) && sinPesos && puedeSerOtroDia(f)) return Veredicto::Duda;
  const bool baja = algunaBaja(t);
  if (!baja && !sospecha) return Veredicto::Guarda;
  if (!baja && !todas) return Veredicto::Duda;
  if (firmes(t)) return porAzar ? Veredicto::Duda : Veredicto::Guarda;
  const bool caenTodos = f.bajas > 0 && f.bajas >= kPorBaja * f.iguales;
  const bool bastan =
      muchasBajas(f) || (cayo(g) && (f.bajas >= kBajasConTotal || quedanMenosDeLaMitad(g) ||
                                     (aCero(t) && g.conAntes >= kMuchasPiezas)));
  return caenTodos && bastan ? Veredicto::Olvido : Veredicto::Duda;
}

Veredicto juzgarConfirmada(const Testimonios& t) {
  const Testimonio& f = masFino(t);
  if (f.claves == 0 || aCero(t) || quedanMenosDeLaMitad(granTotalDe(t))) return Veredicto::Olvido;
  const qint64 peso = puntos(f);
  if (f.iguales >= kPorBaja * f.bajas)
    return peso < kNoEsAzar || puedeSerOtroDia(f) ? Veredicto::Duda : Veredicto::Guarda;
  const bool pocasIguales = 2 * peso < f.bajas;
  const bool parte = f.bajas > 1 && kMasQueDevoluciones * f.bajas >= f.claves;
  return pocasIguales && (parte || muchasBajas(f)) ? Veredicto::Olvido : Veredicto::Duda;
}

}  // namespace tarvo::totals
