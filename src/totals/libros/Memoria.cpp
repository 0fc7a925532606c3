#include "totals/libros/Memoria.h"

#include <algorithm>
#include <map>
#include <set>

#include "totals/TextosTotals.h"
#include "totals/libros/Accesos.h"
#include "totals/libros/Partes.h"
#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using dao::conMarcas;

namespace {

// What is added to a row that is there.
const QString kSumando =
    u"CON=COALESCE(CON,0)+COALESCE(excluded.CON,0), PES=COALESCE(PES,0)+COALESCE(excluded.PES,0), "
    u"IMP=COALESCE(IMP,0)+COALESCE(excluded.IMP,0), SCO=COALESCE(SCO,0)+COALESCE(excluded.SCO,0)"_s;

// A statement on the rows of a kind: {tabla}, its keys alone, as those of the inbox (i) or of the
// memorised counters (b), and {sumando}.
QString sobreFilas(QStringView sentencia, const ClaseTotal& c) {
  return conMarcas(sentencia, {{u"tabla", NombreTabla(c.tipo)},
                               {u"claves", clavesDe(c)},
                               {u"clavesI", clavesDe(c, u"i")},
                               {u"clavesB", clavesDe(c, u"b")},
                               {u"horaI", horaDe(c, u"i")},
                               {u"sumando", kSumando}});
}

QString lista(const std::vector<int>& grupos) {
  QStringList s;
  for (const int g : grupos) s << QString::number(g);
  return s.join(u',');
}

}  // namespace

Resultado<Memoria::Modo> Memoria::modoDe(const Recibido& r, qint64 link, bool sustituir,
                                         std::vector<Aviso>& avisos) {
  const ClaseTotal& c = claseDe(r.clase);
  TARVO_TOMAR(const auto viejo,
              db_.consultar(
                  sobreFilas(u"SELECT count(*), SUM(CON) FROM {tabla} WHERE LINK=? AND GRUPO=?", c),
                  link, r.CODGPO));
  if (viejo->entero(0) == 0) return r.conBase ? Modo::Sumar : Modo::Nueva;
  if (!sustituir || r.conBase) return Modo::Sumar;
  // A part of this group was zeroed separately, so that its counters hold new sales only.
  TARVO_TOMAR(
      const auto parte,
      db_.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND (AJUSTE IS NULL OR AJUSTE<>0)"_s,
              r.CODGPO));
  if (parte.entero() > 0) return Modo::Sumar;
  // Counters that still held the rows of an earlier reading would count from it: whatever their
  // dates and counts, these are other sales.
  TARVO_TOMAR(const auto otras,
              db_.uno(u"SELECT count(*) FROM Origenes o WHERE LINK=? AND GRUPO=? AND CLASE=? AND "_s
                      u"NOT EXISTS (SELECT 1 FROM Lecturas l WHERE l.GRUPO=o.GRUPO AND "_s
                      u"l.CLASE=o.CLASE AND l.LINK=o.LINK AND l.APARTE=0)"_s,
                      link, r.CODGPO, numeroDe(r.clase)));
  if (otras.entero() > 0) {
    const Aviso a{r.CODGPO, p_.textos()(kTxVentasDeAntes, {r.CODGPO}), false};
    if (std::ranges::find(avisos, a.texto, &Aviso::texto) == avisos.end()) avisos.push_back(a);
    return Modo::Otras;
  }
  TARVO_TOMAR(
      const auto nuevo,
      db_.uno(sobreFilas(u"SELECT SUM(CON) FROM {tabla} WHERE LINK=0 AND GRUPO=?", c), r.CODGPO));
  if (nuevo.entero() >= viejo->entero(1)) return Modo::Poner;
  // Counters only go down when a machine forgets: the rows there and the new ones are different
  // sales.
  avisos.push_back({r.CODGPO,
                    p_.textos()(kTxMenosVentas,
                                {r.CODGPO, NombreTabla(r.clase), nuevo.entero(), viejo->entero(1)}),
                    true});
  return Modo::Otras;
}

Resultado<> Memoria::moverNuevas(TipoTotal tipo, const std::vector<int>& grupos, qint64 link) {
  TARVO_INTENTAR(db_.ejecutar(
      conMarcas(
          u"INSERT INTO {tabla} (LINK, {claves}, CON, PES, IMP, SCO) SELECT ?, {claves}, CON, "
          u"PES, IMP, SCO FROM {tabla} WHERE LINK=0 AND GRUPO IN ({grupos})",
          {{u"tabla", NombreTabla(tipo)},
           {u"claves", clavesDe(claseDe(tipo))},
           {u"grupos", lista(grupos)}}),
      link));
  return {};
}

Resultado<> Memoria::mover(const Recibido& r, qint64 link, Modo modo) {
  const ClaseTotal& c = claseDe(r.clase);
  if (modo == Modo::Poner)
    TARVO_INTENTAR(db_.ejecutar(sobreFilas(u"DELETE FROM {tabla} WHERE LINK=? AND GRUPO=?", c),
                                link, r.CODGPO));
  if (r.conBase) return moverDiferencia(r, link);
  TARVO_INTENTAR(db_.ejecutar(
      sobreFilas(u"INSERT INTO {tabla} (LINK, {claves}, CON, PES, IMP, SCO) SELECT ?, {clavesI}, "
                 u"i.CON, i.PES, i.IMP, i.SCO FROM {tabla} i WHERE i.LINK=0 AND i.GRUPO=? ON "
                 u"CONFLICT (LINK, {claves}) DO UPDATE SET {sumando}",
                 c),
      link, r.CODGPO));
  return {};
}

// What the counters of the inbox have more than the memorised ones.
Resultado<> Memoria::moverDiferencia(const Recibido& r, qint64 link) {
  TARVO_INTENTAR(db_.ejecutar(
      sobreFilas(u"INSERT INTO {tabla} (LINK, {claves}, CON, PES, IMP, SCO) SELECT ?, {clavesI}, "
                 u"COALESCE(i.CON,0)-COALESCE(b.CON,0), COALESCE(i.PES,0)-COALESCE(b.PES,0), "
                 u"COALESCE(i.IMP,0)-COALESCE(b.IMP,0), COALESCE(i.SCO,0)-COALESCE(b.SCO,0) FROM "
                 u"{tabla} i LEFT JOIN (SELECT CODI, HORA, SUM(CON) AS CON, SUM(PES) AS PES, "
                 u"SUM(IMP) AS IMP, SUM(SCO) AS SCO FROM BaseFilas WHERE GRUPO=? AND CLASE=? GROUP "
                 u"BY CODI, HORA) b ON b.CODI=i.CODI AND b.HORA={horaI} WHERE i.LINK=0 AND "
                 u"i.GRUPO=? ON CONFLICT (LINK, {claves}) DO UPDATE SET {sumando}",
                 claseDe(r.clase)),
      link, r.CODGPO, numeroDe(r.clase), r.CODGPO));
  return quitarAusentes(r, link);
}

// The memorised amount of a code missing from a whole reading is taken off as well, like any other
// difference.
Resultado<> Memoria::quitarAusentes(const Recibido& r, qint64 link) {
  TARVO_INTENTAR(db_.ejecutar(
      sobreFilas(
          u"INSERT INTO {tabla} (LINK, {claves}, CON, PES, IMP, SCO) SELECT ?, {clavesB}, "
          u"-SUM(b.CON), -SUM(b.PES), -SUM(b.IMP), -SUM(b.SCO) FROM BaseFilas b WHERE "
          u"b.GRUPO=? AND b.CLASE=? AND NOT EXISTS (SELECT 1 FROM {tabla} i WHERE i.LINK=0 "
          u"AND i.GRUPO=b.GRUPO AND i.CODI=b.CODI AND b.HORA={horaI}) AND EXISTS (SELECT 1 "
          u"FROM Lecturas l WHERE l.GRUPO=b.GRUPO AND l.CLASE=b.CLASE AND l.ENTERA<>0) GROUP "
          u"BY b.GRUPO, b.CODI, b.HORA ON CONFLICT (LINK, {claves}) DO UPDATE SET {sumando}",
          claseDe(r.clase)),
      link, r.CODGPO, numeroDe(r.clase)));
  return {};
}

// Codes that this part of a list doesn't hold keep their memorised counters.
Resultado<bool> Memoria::conservarBase(const Recibido& r, const dao::Recordset& lectura) {
  TARVO_TOMAR(const auto base,
              db_.uno(u"SELECT count(*) FROM BaseFilas WHERE GRUPO=? AND CLASE=?"_s, r.CODGPO,
                      numeroDe(r.clase)));
  const bool parte = !lectura.logico(3) && base.entero() > 0;
  if (!parte) {
    TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM BaseFilas WHERE GRUPO=? AND CLASE=?"_s, r.CODGPO,
                                numeroDe(r.clase)));
  } else if (lectura.entero(0) > 1) {
    TARVO_INTENTAR(db_.ejecutar(
        u"DELETE FROM BaseFilas WHERE GRUPO=? AND CLASE=? AND EXISTS (SELECT 1 FROM LectFilas l "_s
        u"WHERE l.GRUPO=BaseFilas.GRUPO AND l.CLASE=BaseFilas.CLASE AND l.ADDR=BaseFilas.ADDR AND "_s
        u"l.CODI=BaseFilas.CODI AND l.HORA=BaseFilas.HORA)"_s,
        r.CODGPO, numeroDe(r.clase)));
  } else {
    TARVO_INTENTAR(db_.ejecutar(
        sobreFilas(u"DELETE FROM BaseFilas WHERE GRUPO=? AND CLASE=? AND ADDR=? AND EXISTS (SELECT "
                   u"1 FROM {tabla} i WHERE i.LINK=0 AND i.GRUPO=BaseFilas.GRUPO AND "
                   u"i.CODI=BaseFilas.CODI AND {horaI}=BaseFilas.HORA)",
                   claseDe(r.clase)),
        r.CODGPO, numeroDe(r.clase), lectura.entero(2)));
  }
  return parte;
}

// The end of the reading that the remaining memorised counters come from, if this part of a list
// leaves any.
Resultado<dao::Valor> Memoria::baseAntigua(const Recibido& r) {
  TARVO_TOMAR(const auto hasta,
              db_.consultar(u"SELECT COALESCE(BASE_ANTIGUA, BASE_HASTA) FROM Lecturas l WHERE "_s
                            u"GRUPO=? AND CLASE=? AND EXISTS (SELECT 1 FROM BaseFilas b WHERE "_s
                            u"b.GRUPO=l.GRUPO AND b.CLASE=l.CLASE AND (CON<>0 OR IMP<>0))"_s,
                            r.CODGPO, numeroDe(r.clase)));
  return hasta->Eof() || hasta->nulo(0) ? dao::Valor() : dao::Valor(hasta->fecha(0));
}

// From now on the machines' counters hold what this period has, except for machines zeroed since
// they were read.
Resultado<> Memoria::anotarBase(const Recibido& r, qint64 link) {
  TARVO_TOMAR(
      const auto rs,
      db_.consultar(
          u"SELECT MAQUINAS, SEC, ADDR, ENTERA, ACCESO FROM Lecturas WHERE GRUPO=? AND CLASE=?"_s,
          r.CODGPO, numeroDe(r.clase)));
  if (rs->Eof()) return {};
  TARVO_TOMAR(const bool parte, conservarBase(r, *rs));
  const qint64 sec = rs->entero(1), addr = rs->entero(2);
  const bool varias = rs->entero(0) > 1;
  TARVO_TOMAR(const auto hecho,
              db_.uno(u"SELECT count(*) FROM Ceros WHERE GRUPO=? AND ADDR=? AND SEC_HECHO>?"_s,
                      r.CODGPO, addr, sec));
  bool queda = hecho.entero() == 0;
  if (varias) {
    TARVO_INTENTAR(db_.ejecutar(
        u"INSERT INTO BaseFilas SELECT * FROM LectFilas WHERE GRUPO=? AND CLASE=? AND "_s
        u"ADDR NOT IN (SELECT ADDR FROM Ceros WHERE Ceros.GRUPO=LectFilas.GRUPO AND SEC_HECHO>?)"_s,
        r.CODGPO, numeroDe(r.clase), sec));
  } else if (parte && queda) {
    TARVO_INTENTAR(copiarBandeja(db_, u"BaseFilas", r.CODGPO, r.clase, static_cast<int>(addr)));
  }
  const bool aparte = varias || parte;
  TARVO_TOMAR(const auto antigua, parte ? baseAntigua(r) : Resultado<dao::Valor>{});
  if (aparte) {
    TARVO_TOMAR(const auto base,
                db_.uno(u"SELECT count(*) FROM BaseFilas WHERE GRUPO=? AND CLASE=?"_s, r.CODGPO,
                        numeroDe(r.clase)));
    queda = base.entero() > 0;
  }
  TARVO_INTENTAR(db_.ejecutar(
      u"UPDATE Lecturas SET LINK=?, BASE_DESDE=?, BASE_HASTA=?, BASE_ANTIGUA=?, BASE_SEC=?, "_s
      u"APARTE=? WHERE GRUPO=? AND CLASE=?"_s,
      queda ? dao::Valor(link) : dao::Valor(), r.baseDesde, r.hasta, antigua,
      rs->logico(3) ? sec : 0, aparte && queda, r.CODGPO, numeroDe(r.clase)));
  return asentarAcceso(db_, r.CODGPO, rs->texto(4));
}

// With what the reading brought into the period: of one that contains memorised counters, the
// difference.
Resultado<> Memoria::anotarOrigen(const Recibido& r, qint64 link) {
  TARVO_TOMAR(
      const auto base,
      db_.consultar(
          sobreFilas(
              u"SELECT COALESCE(SUM(b.CON), 0), COALESCE(SUM(b.IMP), 0) FROM BaseFilas b WHERE ? "
              u"AND b.GRUPO=? AND b.CLASE=? AND (EXISTS (SELECT 1 FROM Lecturas l WHERE "
              u"l.GRUPO=b.GRUPO AND l.CLASE=b.CLASE AND l.ENTERA<>0) OR EXISTS (SELECT 1 FROM "
              u"{tabla} i WHERE i.LINK=0 AND i.GRUPO=b.GRUPO AND i.CODI=b.CODI AND "
              u"b.HORA={horaI}))",
              claseDe(r.clase)),
          r.conBase, r.CODGPO, numeroDe(r.clase)));
  TARVO_INTENTAR(db_.ejecutar(
      sobreFilas(u"INSERT INTO Origenes (LINK, GRUPO, CLASE, EJECUCION, LEIDO, DESDE, HASTA, MODO, "
                 u"FILAS, CON, IMP) SELECT ?, ?, ?, ?, (SELECT FIN FROM Lecturas WHERE GRUPO=? AND "
                 u"CLASE=?), ?, ?, ?, count(*), COALESCE(SUM(CON), 0)-?, COALESCE(SUM(IMP), 0)-? "
                 u"FROM {tabla} WHERE LINK=0 AND GRUPO=?",
                 claseDe(r.clase)),
      link, r.CODGPO, numeroDe(r.clase), ejecucion_, r.CODGPO, numeroDe(r.clase), r.desde, r.hasta,
      r.conBase ? u"diferencia"_s : u"lectura"_s, base->entero(0), base->entero(1), r.CODGPO));
  return {};
}

// A group is replaced in all its kinds of total or in none.
void Memoria::sumarSiHayOtras(const std::vector<Recibido>& lecturas, std::vector<Modo>& modos) {
  std::set<int> conOtras;
  for (size_t i = 0; i < modos.size(); ++i)
    if (modos[i] == Modo::Otras) conOtras.insert(lecturas[i].CODGPO);
  for (size_t i = 0; i < modos.size(); ++i)
    if ((modos[i] == Modo::Otras || modos[i] == Modo::Poner) &&
        conOtras.contains(lecturas[i].CODGPO))
      modos[i] = Modo::Sumar;
}

Resultado<qint64> Memoria::incorporar(Periodo destino, const std::vector<Recibido>& lecturas,
                                      bool sustituir, const QString& descr,
                                      std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto existe, destinoDe(destino, lecturas, avisos));
  if (existe) {
    TARVO_TOMAR(const auto acumulados, tieneAcumulados(*existe));
    sustituir = sustituir && !acumulados;
  }
  qint64 link = existe ? existe->LINK : 0;
  std::vector<Modo> modos;
  for (const Recibido& r : lecturas) {
    TARVO_TOMAR(auto modo, link == 0 ? Resultado<Modo>(r.conBase ? Modo::Sumar : Modo::Nueva)
                                     : modoDe(r, link, sustituir, avisos));
    modos.push_back(modo);
  }
  sumarSiHayOtras(lecturas, modos);
  std::map<TipoTotal, std::vector<int>> sustituidos;
  for (size_t i = 0; i < lecturas.size(); ++i)
    if (modos[i] == Modo::Poner) sustituidos[lecturas[i].clase].push_back(lecturas[i].CODGPO);
  bool conAjenas = false;
  if (existe && !existe->stkABLE) {
    TARVO_TOMAR(conAjenas, tieneAjenas(link, sustituidos));
  }
  std::optional<Periodos::Marcas> marcas;
  if (link == 0) {
    TARVO_TOMAR(const auto nuevo,
                p_.CrearPeriodo(destino.tipo, destino.desde, destino.hasta, true, descr));
    link = nuevo;
  } else if (std::ranges::find(modos, Modo::Poner) != modos.end()) {
    TARVO_TOMAR(const auto nuevo, p_.sustituir(*existe, descr.isEmpty() ? existe->DESCR : descr));
    TARVO_INTENTAR(db_.ejecutar(u"UPDATE Lecturas SET LINK=? WHERE LINK=?"_s, nuevo, link));
    TARVO_INTENTAR(db_.ejecutar(u"UPDATE Origenes SET LINK=? WHERE LINK=?"_s, nuevo, link));
    link = nuevo;
  } else {
    TARVO_TOMAR(auto m, p_.DesacumularTodo(link));
    marcas = m;
    if (sustituir && !descr.isEmpty())
      TARVO_INTENTAR(db_.ejecutar(u"UPDATE COLUMNA SET DESCR=? WHERE LINK=?"_s, descr, link));
  }
  std::map<TipoTotal, std::vector<int>> nuevas;
  for (size_t i = 0; i < lecturas.size(); ++i) {
    if (modos[i] == Modo::Nueva) {
      nuevas[lecturas[i].clase].push_back(lecturas[i].CODGPO);
    } else {
      TARVO_INTENTAR(mover(lecturas[i], link, modos[i]));
    }
  }
  for (const auto& [tipo, grupos] : nuevas) TARVO_INTENTAR(moverNuevas(tipo, grupos, link));
  for (const Recibido& r : lecturas) {
    TARVO_INTENTAR(anotarOrigen(r, link));
    TARVO_INTENTAR(anotarBase(r, link));
  }
  if (existe) TARVO_INTENTAR(hacerDescontable(*existe, link, conAjenas, lecturas, avisos));
  if (marcas) TARVO_INTENTAR(p_.ReacumularTodo(link, *marcas));
  return link;
}

}  // namespace tarvo::totals
