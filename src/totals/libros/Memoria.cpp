#include "totals/libros/Memoria.h"

#include <algorithm>
#include <map>
#include <set>

#include "totals/TextosTotals.h"
#include "totals/libros/Partes.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

QString u16(const char16_t* s) {
  return QString::fromUtf16(s);
}

QString horaDe(const ClaseTotal& c, const QString& alias = {}) {
  return c.conHora ? alias + u"HORA"_s : u"0"_s;
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
  TARVO_TOMAR(auto viejo, db_.consultar(QString(u"SELECT count(*), SUM(CON), SUM(IMP) FROM "_s +
                                                u16(c.tabla) + u" WHERE LINK=? AND GRUPO=?"_s),
                                        link, r.CODGPO));
  if (viejo->entero(0) == 0) return r.conBase ? Modo::Sumar : Modo::Nueva;
  if (!sustituir || r.conBase) return Modo::Sumar;
  // A part of this group was zeroed separately, so that its counters hold new sales only.
  TARVO_TOMAR(
      const auto parte,
      db_.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND (AJUSTE IS NULL OR AJUSTE<>0)"_s,
              r.CODGPO));
  if (parte.entero() > 0) return Modo::Sumar;
  // The rows there were read before the zeroing from which the counters start: other sales.
  TARVO_TOMAR(
      const auto otras,
      db_.uno(u"SELECT count(*) FROM Origenes WHERE LINK=? AND GRUPO=? AND CLASE=? AND HASTA<=?"_s,
              link, r.CODGPO, numeroDe(r.clase), r.desde));
  if (otras.entero() > 0) {
    const Aviso a{r.CODGPO, p_.textos()(kTxVentasDeAntes, {r.CODGPO}), false};
    if (std::ranges::find(avisos, a.texto, &Aviso::texto) == avisos.end()) avisos.push_back(a);
    return Modo::Otras;
  }
  TARVO_TOMAR(const auto nuevo, db_.uno(QString(u"SELECT SUM(CON) FROM "_s + u16(c.tabla) +
                                                u" WHERE LINK=0 AND GRUPO=?"_s),
                                        r.CODGPO));
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
  const ClaseTotal& c = claseDe(tipo);
  const QString columnas = QString(c.conHora ? u"GRUPO, CODI, HORA, CON, PES, IMP, SCO"_s
                                             : u"GRUPO, CODI, CON, PES, IMP, SCO"_s);
  TARVO_INTENTAR(db_.ejecutar(QString(u"INSERT INTO "_s + u16(c.tabla) + u" (LINK, "_s + columnas +
                                      u") SELECT ?, "_s + columnas + u" FROM "_s + u16(c.tabla) +
                                      u" WHERE LINK=0 AND GRUPO IN ("_s + lista(grupos) + u")"_s),
                              link));
  return {};
}

Resultado<> Memoria::mover(const Recibido& r, qint64 link, Modo modo) {
  const ClaseTotal& c = claseDe(r.clase);
  const QString tabla = u16(c.tabla);
  if (modo == Modo::Poner)
    TARVO_INTENTAR(db_.ejecutar(QString(u"DELETE FROM "_s + tabla + u" WHERE LINK=? AND GRUPO=?"_s),
                                link, r.CODGPO));
  QString valores = u"i.CON, i.PES, i.IMP, i.SCO"_s, base;
  if (r.conBase) {
    valores =
        u"COALESCE(i.CON,0)-COALESCE(b.CON,0), COALESCE(i.PES,0)-COALESCE(b.PES,0), "_s
        u"COALESCE(i.IMP,0)-COALESCE(b.IMP,0), COALESCE(i.SCO,0)-COALESCE(b.SCO,0)"_s;
    base =
        u" LEFT JOIN (SELECT CODI, HORA, SUM(CON) AS CON, SUM(PES) AS PES, SUM(IMP) AS IMP, "_s
        u"SUM(SCO) AS SCO FROM "_s
        u"BaseFilas WHERE GRUPO=%1 AND CLASE=%2 GROUP BY CODI, HORA) b ON b.CODI=i.CODI AND b.HORA="_s
            .arg(r.CODGPO)
            .arg(numeroDe(r.clase)) +
        horaDe(c, u"i."_s);
  }
  const QString hora = c.conHora ? u", HORA"_s : QString();
  const QString horaI = c.conHora ? u", i.HORA"_s : QString();
  TARVO_INTENTAR(db_.ejecutar(
      QString(u"INSERT INTO "_s + tabla + u" (LINK, GRUPO, CODI"_s + hora +
              u", CON, PES, IMP, SCO) SELECT ?, i.GRUPO, i.CODI"_s + horaI + u", "_s + valores +
              u" FROM "_s + tabla + u" i"_s + base + u" WHERE i.LINK=0 AND i.GRUPO=? "_s +
              u"ON CONFLICT (LINK, GRUPO, CODI"_s + hora +
              u") DO UPDATE SET CON=COALESCE(CON,0)+COALESCE(excluded.CON,0), "_s
              u"PES=COALESCE(PES,0)+COALESCE(excluded.PES,0), "_s
              u"IMP=COALESCE(IMP,0)+COALESCE(excluded.IMP,0), "_s
              u"SCO=COALESCE(SCO,0)+COALESCE(excluded.SCO,0)"_s),
      link, r.CODGPO));
  return r.conBase ? quitarAusentes(r, link) : Resultado<>{};
}

// The memorised amount of a code missing from a whole reading is taken off as well, like any other
// difference.
Resultado<> Memoria::quitarAusentes(const Recibido& r, qint64 link) {
  const ClaseTotal& c = claseDe(r.clase);
  const QString tabla = u16(c.tabla), hora = c.conHora ? u", HORA"_s : QString();
  TARVO_INTENTAR(db_.ejecutar(
      QString(
          u"INSERT INTO "_s + tabla + u" (LINK, GRUPO, CODI"_s + hora +
          u", CON, PES, IMP, SCO) SELECT ?, b.GRUPO, b.CODI"_s +
          (c.conHora ? u", b.HORA"_s : QString()) +
          u", -SUM(b.CON), -SUM(b.PES), -SUM(b.IMP), -SUM(b.SCO) FROM BaseFilas b "_s
          u"WHERE b.GRUPO=? AND b.CLASE=? AND NOT EXISTS (SELECT 1 FROM "_s +
          tabla + u" i WHERE i.LINK=0 AND i.GRUPO=b.GRUPO AND i.CODI=b.CODI"_s +
          (c.conHora ? u" AND i.HORA=b.HORA"_s : QString()) +
          u") AND EXISTS (SELECT 1 FROM Lecturas l WHERE l.GRUPO=b.GRUPO AND l.CLASE=b.CLASE AND l.ENTERA<>0) "_s
          u"GROUP BY b.GRUPO, b.CODI, b.HORA ON CONFLICT (LINK, GRUPO, CODI"_s +
          hora +
          u") DO UPDATE SET CON=COALESCE(CON,0)+excluded.CON, PES=COALESCE(PES,0)+excluded.PES, "_s
          u"IMP=COALESCE(IMP,0)+excluded.IMP, SCO=COALESCE(SCO,0)+excluded.SCO"_s),
      link, r.CODGPO, numeroDe(r.clase)));
  return {};
}

// From now on the machines' counters hold what this period has, except for machines zeroed since
// they were read.
Resultado<> Memoria::anotarBase(const Recibido& r, qint64 link) {
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM BaseFilas WHERE GRUPO=? AND CLASE=?"_s, r.CODGPO,
                              numeroDe(r.clase)));
  TARVO_TOMAR(auto rs,
              db_.consultar(u"SELECT MAQUINAS, SEC, ADDR FROM Lecturas WHERE GRUPO=? AND CLASE=?"_s,
                            r.CODGPO, numeroDe(r.clase)));
  if (rs->Eof()) return {};
  const qint64 sec = rs->entero(1);
  bool queda, aparte = false;
  if (rs->entero(0) > 1) {
    TARVO_INTENTAR(db_.ejecutar(
        u"INSERT INTO BaseFilas SELECT * FROM LectFilas WHERE GRUPO=? AND CLASE=? AND "_s
        u"ADDR NOT IN (SELECT ADDR FROM Ceros WHERE Ceros.GRUPO=LectFilas.GRUPO AND SEC_HECHO>?)"_s,
        r.CODGPO, numeroDe(r.clase), sec));
    const auto todas = db_.uno(u"SELECT count(*) FROM LectFilas WHERE GRUPO=? AND CLASE=?"_s,
                               r.CODGPO, numeroDe(r.clase));
    const auto base = db_.uno(u"SELECT count(*) FROM BaseFilas WHERE GRUPO=? AND CLASE=?"_s,
                              r.CODGPO, numeroDe(r.clase));
    if (!todas || !base) return std::unexpected(todas ? base.error() : todas.error());
    queda = base->entero() > 0;
    aparte = queda;
  } else {
    const qint64 addr = rs->entero(2);
    TARVO_TOMAR(const auto hecho,
                db_.uno(u"SELECT count(*) FROM Ceros WHERE GRUPO=? AND ADDR=? AND SEC_HECHO>?"_s,
                        r.CODGPO, addr, sec));
    queda = hecho.entero() == 0;
  }
  TARVO_INTENTAR(db_.ejecutar(
      u"UPDATE Lecturas SET LINK=?, BASE_DESDE=?, BASE_HASTA=?, APARTE=? WHERE GRUPO=? AND CLASE=?"_s,
      queda ? dao::Valor(link) : dao::Valor(), r.baseDesde, r.hasta, aparte, r.CODGPO,
      numeroDe(r.clase)));
  return {};
}

Resultado<> Memoria::anotarOrigen(const Recibido& r, qint64 link) {
  const ClaseTotal& c = claseDe(r.clase);
  TARVO_INTENTAR(
      db_.ejecutar(QString(u"INSERT INTO Origenes (LINK, GRUPO, CLASE, EJECUCION, "_s
                           u"LEIDO, DESDE, HASTA, MODO, FILAS, CON, IMP) "_s
                           u"SELECT ?, ?, ?, ?, (SELECT FIN FROM Lecturas WHERE GRUPO=? "_s
                           u"AND CLASE=?), ?, ?, ?, count(*), SUM(CON), SUM(IMP) "_s
                           u"FROM "_s +
                           u16(c.tabla) + u" WHERE LINK=0 AND GRUPO=?"_s),
                   link, r.CODGPO, numeroDe(r.clase), ejecucion_, r.CODGPO, numeroDe(r.clase),
                   r.desde, r.hasta, r.conBase ? u"diferencia"_s : u"lectura"_s, r.CODGPO));
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
    TARVO_TOMAR(const auto nuevo, p_.sustituir(*existe, descr));
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
