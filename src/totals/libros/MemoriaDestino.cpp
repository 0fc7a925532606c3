// Which period a reading goes into, and what becomes of a period made by hand.
#include <algorithm>

#include "totals/TextosTotals.h"
#include "totals/libros/Memoria.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

// Periods were added into this one: its rows are not only from its own readings.
Resultado<bool> Memoria::tieneAcumulados(const Columna& c) {
  if (c.periodo.tipo < kSemanal || c.periodo.tipo > kAnual) return false;
  TARVO_TOMAR(
      const auto n,
      db_.uno(dao::conMarcas(
                  u"SELECT count(*) FROM COLUMNA WHERE {marca}<>0 AND FECHA1>=? AND FECHAF<=?",
                  {{u"marca", marcaDe(c.periodo.tipo)}}),
              c.periodo.desde, c.periodo.hasta));
  return n.entero() > 0;
}

// Does the period have rows of groups and kinds other than those about to be replaced?
Resultado<bool> Memoria::tieneAjenas(qint64 link,
                                     const std::map<TipoTotal, std::vector<int>>& sustituidos) {
  for (const ClaseTotal& c : enVigor(a_)) {
    QStringList grupos;
    if (const auto suyos = sustituidos.find(c.tipo); suyos != sustituidos.end())
      for (const int g : suyos->second) grupos << QString::number(g);
    TARVO_TOMAR(
        const auto n,
        db_.uno(
            dao::conMarcas(u"SELECT count(*) FROM {tabla} WHERE LINK=? AND GRUPO NOT IN ({grupos})",
                           {{u"tabla", NombreTabla(c.tipo)}, {u"grupos", grupos.join(u',')}}),
            link));
    if (n.entero() > 0) return true;
  }
  return false;
}

// A week, month or year that sums its days. It still has their sales after they are deleted.
Resultado<bool> Memoria::soloSuma(const Columna& c) {
  if (c.stkABLE || c.periodo.tipo < kSemanal || c.periodo.tipo > kAnual) return false;
  TARVO_TOMAR(const auto acumulados, tieneAcumulados(c));
  if (acumulados) return true;
  return tieneAjenas(c.LINK, {});
}

// A period that only sums others takes no reading: its sales would belong to no day and never leave
// the stock. They get a period of their own dates.
Resultado<std::optional<Columna>> Memoria::destinoDe(Periodo& destino,
                                                     const std::vector<Recibido>& lecturas,
                                                     std::vector<Aviso>& avisos) {
  auto existe = p_.BuscarPeriodo(destino.tipo, destino.desde, destino.hasta);
  if (!existe || !*existe) return existe;
  TARVO_TOMAR(const auto suma, soloSuma(**existe));
  if (!suma) return existe;
  const QString queSuma = TextoPeriodo(destino);
  destino.tipo = kOtros;
  destino.desde = std::ranges::min(lecturas, {}, &Recibido::desde).desde;
  destino.hasta = std::ranges::max(lecturas, {}, &Recibido::hasta).hasta;
  avisos.push_back({0, p_.textos()(kTxPeriodoSoloSuma, {queSuma, TextoPeriodo(destino)}), false});
  return p_.BuscarPeriodo(destino.tipo, destino.desde, destino.hasta);
}

// A period made by hand leaves the stock alone. If it holds only readings it is like any other; if
// it keeps rows that may have left the stock by another way, it stays as it was.
Resultado<> Memoria::hacerDescontable(const Columna& antes, qint64 link, bool conAjenas,
                                      const std::vector<Recibido>& lecturas,
                                      std::vector<Aviso>& avisos) {
  if (antes.stkABLE) return {};
  const bool descontable = !conAjenas;
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE COLUMNA SET stkABLE=? WHERE LINK=?"_s, descontable, link));
  if (!descontable)
    avisos.push_back({lecturas.front().CODGPO,
                      p_.textos()(kTxPeriodoAMano, {TextoPeriodo(antes.periodo)}), false});
  return {};
}

}  // namespace tarvo::totals
