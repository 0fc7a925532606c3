#include "totals/libros/Cuadre.h"

#include <algorithm>

#include "core/dinero/Dinero.h"
#include "totals/TextosTotals.h"
#include "totals/libros/Partes.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using dao::conMarcas;

namespace {

struct Suma {
  qint64 filas = 0, importe = 0, ventas = 0;
};

// A kind within a period and group.
Resultado<Suma> sumaDe(dao::Database& db, TipoTotal tipo, qint64 link, int grupo) {
  TARVO_TOMAR(const auto rs,
              db.consultar(conMarcas(u"SELECT count(*), SUM(IMP), SUM(CON) FROM {tabla} WHERE "
                                     u"LINK=? AND GRUPO=?",
                                     {{u"tabla", NombreTabla(tipo)}}),
                           link, grupo));
  return Suma{rs->entero(0), rs->entero(1), rs->entero(2)};
}

// Was this kind received whole for the group: in the open session for the inbox, at all for a
// period?
Resultado<bool> comparable(dao::Database& db, TipoTotal tipo, qint64 link, int grupo) {
  if (link != 0) return true;
  TARVO_TOMAR(
      const auto n,
      db.uno(
          conMarcas(u"SELECT count(*) FROM Sesiones WHERE CODGPO=? AND {enSesion} AND NOT EXISTS "
                    u"(SELECT 1 FROM Lecturas WHERE GRUPO=CODGPO AND CLASE=? AND ENTERA=0)",
                    {{u"enSesion", CampoSesion(tipo)}}),
          grupo, numeroDe(tipo)));
  return n.entero() > 0;
}

// The amount missing from the inbox rows of a kind that was cleared separately. Nothing when it is
// unknown.
Resultado<std::optional<qint64>> ajusteDe(dao::Database& db, TipoTotal tipo, int grupo) {
  TARVO_TOMAR(auto rs, db.consultar(u"SELECT AJUSTE FROM Lecturas WHERE GRUPO=? AND CLASE=?"_s,
                                    grupo, numeroDe(tipo)));
  if (rs->Eof()) return 0;
  return rs->nulo(0) ? std::nullopt : std::optional(rs->entero(0));
}

// The periods that were added into this one, by number.
Resultado<QString> sumandos(dao::Database& db, const Textos& textos, qint64 link) {
  QStringList numeros;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT s.LINK FROM COLUMNA s, COLUMNA d WHERE d.LINK=? AND s.FECHA1>=d.FECHA1 "
                   u"AND s.FECHAF<=d.FECHAF AND ((d.TIPO=2 AND s.ACUM2<>0) OR (d.TIPO=3 AND "
                   u"s.ACUM3<>0) OR (d.TIPO=4 AND s.ACUM4<>0)) ORDER BY s.LINK",
                   link),
      [&](const dao::Recordset& fila) { numeros << QString::number(fila.entero(0)); }));
  return numeros.isEmpty() ? textos(kTxSinLectura)
                           : textos(kTxSumaDePeriodos, {numeros.join(u", "_s)});
}

Resultado<QString> origenDe(dao::Database& db, const Textos& textos, qint64 link, int grupo,
                            TipoTotal tipo) {
  QStringList partes;
  const auto una = [&](const dao::Recordset& fila) {
    partes << textos(fila.texto(3) == u"diferencia"_s ? kTxLeidoDiferencia : kTxLeido,
                     {fila.nulo(0) ? u"?"_s : fila.fecha(0).general(), fila.fecha(1).general(),
                      fila.fecha(2).general()});
  };
  TARVO_INTENTAR(
      dao::recorrer(db.consultar(u"SELECT LEIDO, DESDE, HASTA, MODO FROM Origenes WHERE LINK=? AND "
                                 u"GRUPO=? AND CLASE=? ORDER BY LEIDO",
                                 link, grupo, numeroDe(tipo)),
                    una));
  if (partes.isEmpty()) return sumandos(db, textos, link);
  return partes.join(u"; "_s);
}

Resultado<> informeGrupo(dao::Database& db, const Ajustes& a, const Textos& textos, qint64 link,
                         int grupo, const QString& nombre, InformeCuadre& informe) {
  informe.texto += textos(kTxCuadreGrupo, {Ceros(grupo, 4), nombre}) + u'\n';
  TARVO_TOMAR(const auto gran, sumaDe(db, TipoTotal::GranTotal, link, grupo));
  for (const ClaseTotal& c : enVigor(a)) {
    TARVO_TOMAR(const auto suma, sumaDe(db, c.tipo, link, grupo));
    if (suma.filas == 0) continue;
    TARVO_TOMAR(const auto origen, origenDe(db, textos, link, grupo, c.tipo));
    const bool contra = gran.filas > 0 && c.tipo != TipoTotal::GranTotal;
    const bool cuadra = !contra || suma.importe == gran.importe;
    informe.cuadra = informe.cuadra && cuadra;
    const QString veredicto = !contra ? QString() : textos(cuadra ? kTxCuadra : kTxNoCuadra);
    informe.texto += u"  %1 %2 %3  %4\n"_s.arg(textos(kTxNombreTotal + numeroDe(c.tipo)), -22)
                         .arg(VerImporte(a, suma.importe, a.MonedaNativa ? 1 : 0), 14)
                         .arg(veredicto.leftJustified(9), origen);
  }
  return {};
}

}  // namespace

Resultado<std::vector<Comparado>> compararTotales(dao::Database& db, const Ajustes& ajustes,
                                                  qint64 link, int grupo) {
  std::vector<Comparado> lista;
  TARVO_TOMAR(const auto hay, comparable(db, TipoTotal::GranTotal, link, grupo));
  TARVO_TOMAR(const auto gran, sumaDe(db, TipoTotal::GranTotal, link, grupo));
  // An empty grand total that was read must foot as well: its record may have been lost.
  if (!hay || (link != 0 && gran.filas == 0)) return lista;
  TARVO_TOMAR(const auto ajusteGran, ajusteDe(db, TipoTotal::GranTotal, grupo));
  for (const ClaseTotal& c : enVigor(ajustes)) {
    if (c.tipo == TipoTotal::GranTotal) continue;
    TARVO_TOMAR(const auto vale, comparable(db, c.tipo, link, grupo));
    TARVO_TOMAR(const auto suma, sumaDe(db, c.tipo, link, grupo));
    TARVO_TOMAR(const auto ajuste, ajusteDe(db, c.tipo, grupo));
    if (!vale || (link != 0 && suma.filas == 0)) continue;
    if (link != 0)
      lista.push_back({c.tipo, gran.importe, suma.importe, gran.ventas, suma.ventas});
    else if (ajusteGran && ajuste)
      lista.push_back(
          {c.tipo, gran.importe + *ajusteGran, suma.importe + *ajuste, gran.ventas, suma.ventas});
  }
  return lista;
}

Resultado<std::optional<Comparado>> ventasSinArticulo(dao::Database& db, int grupo,
                                                      const std::vector<Comparado>& lista) {
  const auto plus = std::ranges::find(lista, TipoTotal::PLUs, &Comparado::clase);
  if (plus == lista.end() || !plus->cuadra() || plus->ventas >= plus->ventasGranTotal)
    return std::nullopt;
  const bool otraCoincide = std::ranges::any_of(lista, [](const Comparado& c) {
    return c.clase != TipoTotal::PLUs && c.cuadra() && c.ventas == c.ventasGranTotal;
  });
  if (!otraCoincide) return std::nullopt;
  // Registers count customers in the grand total; after separate clearings counts are of different
  // spans.
  TARVO_TOMAR(const auto otrasCuentas,
              db.uno(u"SELECT (SELECT count(*) FROM GRUPOS WHERE CODGPO=? AND TIPO=?)+(SELECT "
                     u"count(*) FROM Lecturas WHERE GRUPO=? AND (AJUSTE IS NULL OR AJUSTE<>0))",
                     grupo, numeroDe(TipoGrupo::Registradoras), grupo));
  return otrasCuentas.entero() > 0 ? std::nullopt : std::optional(*plus);
}

Resultado<CuadreDePeriodo> cuadreDe(const Periodos& periodos, qint64 link) {
  CuadreDePeriodo c;
  TARVO_INTENTAR(dao::recorrer(
      periodos.base().consultar(u"SELECT DISTINCT GRUPO FROM TOTGRT WHERE LINK=? ORDER BY GRUPO",
                                link),
      [&](const dao::Recordset& fila) -> Resultado<> {
        const auto grupo = static_cast<int>(fila.entero(0));
        TARVO_TOMAR(const auto lista,
                    compararTotales(periodos.base(), periodos.ajustes(), link, grupo));
        c.granTotal = true;
        c.hay = c.hay || !lista.empty();
        if (!std::ranges::all_of(lista, &Comparado::cuadra)) c.malos.push_back(grupo);
        return {};
      }));
  TARVO_TOMAR(const auto lecturas,
              periodos.base().uno(u"SELECT count(*) FROM Origenes WHERE LINK=?", link));
  c.leido = lecturas.entero() > 0;
  return c;
}

Resultado<> anotarCuadre(dao::Database& db, const Ajustes& ajustes, const Textos& textos, int grupo,
                         std::vector<Aviso>& avisos) {
  TARVO_TOMAR(const auto lista, compararTotales(db, ajustes, 0, grupo));
  const int moneda = ajustes.MonedaNativa ? 1 : 0;
  bool bien = true;
  for (const Comparado& c : lista) {
    if (c.cuadra()) continue;
    bien = false;
    avisos.push_back({grupo,
                      textos(kTxGranTotalNoCuadra, {grupo, VerImporte(ajustes, c.granTotal, moneda),
                                                    textos(kTxNombreTotal + numeroDe(c.clase)),
                                                    VerImporte(ajustes, c.suma, moneda)}),
                      true});
  }
  TARVO_TOMAR(const auto faltan, ventasSinArticulo(db, grupo, lista));
  if (faltan)
    avisos.push_back(
        {grupo, textos(kTxVentasSinArticulo, {grupo, faltan->ventasGranTotal, faltan->ventas}),
         true});
  if (!bien || faltan)
    TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET ESTADO=4 WHERE GRUPO=? AND CLASE=?"_s, grupo,
                               numeroDe(TipoTotal::GranTotal)));
  return {};
}

Resultado<InformeCuadre> informeCuadre(dao::Database& db, const Ajustes& ajustes,
                                       const Textos& textos, std::optional<qint64> link) {
  TARVO_TOMAR(
      auto rs,
      link ? db.consultar(u"SELECT LINK, TIPO, FECHA1, FECHAF, DESCR FROM COLUMNA WHERE LINK=?"_s,
                          *link)
           : db.consultar(u"SELECT LINK, TIPO, FECHA1, FECHAF, DESCR FROM COLUMNA ORDER BY LINK IN "
                          u"(SELECT LINK FROM Origenes) DESC, LINK DESC"));
  if (rs->Eof())
    return fallo(Fallo::NoExiste,
                 link ? textos(kTxPeriodoNoHay, {*link}) : textos(kTxNadaMemorizado));
  const qint64 numero = rs->entero(0);
  InformeCuadre informe;
  informe.texto =
      textos(kTxCuadrePeriodo,
             {numero, TextoPeriodo({static_cast<int>(rs->entero(1)), rs->fecha(2), rs->fecha(3)}),
              rs->texto(4)}) +
      u'\n';
  QStringList uniones;
  std::vector<dao::Valor> valores;
  for (const ClaseTotal& c : enVigor(ajustes)) {
    uniones << conMarcas(u"SELECT GRUPO FROM {tabla} WHERE LINK=?",
                         {{u"tabla", NombreTabla(c.tipo)}});
    valores.emplace_back(numero);
  }
  const auto uno = [&](const dao::Recordset& fila) {
    return informeGrupo(db, ajustes, textos, numero, static_cast<int>(fila.entero(0)),
                        fila.texto(1), informe);
  };
  TARVO_INTENTAR(dao::recorrer(
      db.OpenQuery(conMarcas(u"SELECT GRUPO, NOMGPO FROM ({grupos}) AS g LEFT JOIN GRUPOS ON "
                             u"GRUPO=CODGPO ORDER BY GRUPO",
                             {{u"grupos", uniones.join(u" UNION "_s)}}),
                   valores),
      uno));
  return informe;
}

}  // namespace tarvo::totals
