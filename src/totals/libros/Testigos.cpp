#include "totals/libros/Testigos.h"

#include <algorithm>

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

using dao::Database;

// Keys that must match to the unit before a machine is believed in spite of a lower count: more
// than chance gives, and more than any returns.
constexpr qint64 kMinimoIguales = 3, kPorBaja = 3, kDeCada = 10;
// More articles than customers return in a day, whatever the grand total does.
constexpr qint64 kMuchasBajas = 10;

QString deLaBandeja(const Releida& r) {
  return QString::fromUtf16(r.clase->tabla);
}

QString filasNuevas(const Releida& r) {
  if (r.varias)
    return u"LectFilas n ON n.GRUPO=b.GRUPO AND n.CLASE=b.CLASE AND n.ADDR=b.ADDR AND "_s
           u"n.CODI=b.CODI AND n.HORA=b.HORA"_s;
  return deLaBandeja(r) + u" n ON n.LINK=0 AND n.GRUPO=b.GRUPO AND n.CODI=b.CODI"_s +
         QString(r.clase->conHora ? u" AND n.HORA=b.HORA"_s : u""_s);
}

Resultado<> sumarLoLeido(Database& db, const Releida& r, std::map<int, Testimonio>& t) {
  TARVO_TOMAR(
      auto rs,
      r.varias ? db.consultar(u"SELECT ADDR, SUM(CON), SUM(IMP) FROM LectFilas WHERE GRUPO=? AND "_s
                              u"CLASE=? GROUP BY ADDR"_s,
                              r.grupo, numeroDe(r.clase->tipo))
               : db.consultar(QString(u"SELECT ?, SUM(CON), SUM(IMP) FROM "_s + deLaBandeja(r) +
                                      u" WHERE LINK=0 AND GRUPO=?"_s),
                              r.addr, r.grupo));
  for (; !rs->Eof();) {
    if (const auto it = t.find(static_cast<int>(rs->entero(0))); it != t.end()) {
      it->second.conAhora = rs->entero(1);
      it->second.impAhora = rs->entero(2);
    }
    TARVO_INTENTAR(rs->MoveNext());
  }
  return {};
}

// The kind that divides the sales most finely.
const Testimonio& masFino(const Testimonios& t) {
  return std::ranges::max_element(t, {}, [](const auto& x) { return x.second.claves; })->second;
}

}  // namespace

Resultado<std::vector<Releida>> releidas(Database& db, const Ajustes& ajustes) {
  std::vector<Releida> lista;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    TARVO_TOMAR(
        auto rs,
        db.consultar(QString(u"SELECT GRUPO, MAQUINAS, ENTERA, ADDR, SEC FROM Lecturas, Sesiones "_s
                             u"WHERE CODGPO=GRUPO AND CLASE=? AND LINK IS NOT NULL AND APARTE=1 "_s
                             u"AND BASE_DUDOSA=0 AND "_s +
                             QString::fromUtf16(c.sesion) + u" ORDER BY GRUPO"_s),
                     numeroDe(c.tipo)));
    for (; !rs->Eof();) {
      lista.push_back({static_cast<int>(rs->entero(0)), &c, rs->entero(1) > 1, rs->logico(2),
                       rs->entero(3), rs->entero(4)});
      TARVO_INTENTAR(rs->MoveNext());
    }
  }
  return lista;
}

Resultado<std::map<int, Testimonio>> testimoniosDe(Database& db, const Releida& r) {
  // For a range of codes only the codes in it are compared.
  QString sql =
      u"SELECT b.ADDR, count(*), SUM(COALESCE(n.CON,0)<b.CON), SUM(COALESCE(n.CON,0)=b.CON AND "_s
      u"COALESCE(n.PES,0)=b.PES AND COALESCE(n.IMP,0)=b.IMP), SUM(b.CON), SUM(b.IMP) FROM "_s
      u"BaseFilas b LEFT JOIN "_s +
      filasNuevas(r) +
      u" WHERE b.GRUPO=? AND b.CLASE=? AND (b.CON<>0 OR b.PES<>0 OR b.IMP<>0 OR b.SCO<>0)"_s;
  if (!r.entera) sql += u" AND n.CON IS NOT NULL"_s;
  if (!r.varias) sql += u" AND b.ADDR="_s + QString::number(r.addr);
  TARVO_TOMAR(auto rs,
              db.consultar(QString(sql + u" GROUP BY b.ADDR"_s), r.grupo, numeroDe(r.clase->tipo)));
  std::map<int, Testimonio> t;
  for (; !rs->Eof();) {
    t[static_cast<int>(rs->entero(0))] = {
        rs->entero(1), rs->entero(2), rs->entero(3), rs->entero(4), 0, rs->entero(5), 0};
    TARVO_INTENTAR(rs->MoveNext());
  }
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

bool firmes(const Testimonios& t) {
  if (t.empty()) return false;
  const Testimonio& f = masFino(t);
  return f.iguales >= kMinimoIguales && f.iguales >= kPorBaja * f.bajas &&
         kDeCada * f.iguales >= f.claves;
}

Veredicto juzgar(const Testimonios& t, bool sospecha, bool todas) {
  if (std::ranges::all_of(t, [](const auto& x) { return x.second.quieto(); }))
    return Veredicto::Guarda;
  const bool baja = algunaBaja(t);
  if (!baja && !sospecha) return Veredicto::Guarda;
  if (!baja && !todas) return Veredicto::Duda;
  if (firmes(t)) return Veredicto::Guarda;
  const Testimonio& f = masFino(t);
  const auto gran = t.find(TipoTotal::GranTotal);
  const Testimonio& g = gran == t.end() ? f : gran->second;
  const bool cayo = g.conAhora < g.conAntes, aMenosDeMedias = 2 * g.conAhora < g.conAntes;
  const bool caenTodos = f.bajas > 0 && f.bajas >= kPorBaja * f.iguales;
  const bool muchas = f.bajas >= kMuchasBajas && kDeCada * f.bajas >= f.claves;
  const bool bastan = muchas || (cayo && (f.bajas > 1 || aMenosDeMedias));
  return caenTodos && bastan ? Veredicto::Olvido : Veredicto::Duda;
}

}  // namespace tarvo::totals
