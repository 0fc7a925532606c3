// Periods: rows of COLUMNA and the rows of the six totals tables that bear their LINK. Each
// operation is one transaction (or a savepoint of the caller's): it is done whole or not at all.
#pragma once

#include <vector>

#include "core/dao/Database.h"
#include "core/textos/Textos.h"
#include "stock/Almacenes.h"
#include "totals/periodos/Calendario.h"
#include "totals/periodos/Clases.h"

namespace tarvo::totals {

// A row of COLUMNA.
struct Columna {
  qint64 LINK = 0;
  Periodo periodo;
  QString DESCR;
  bool ACUM2 = false, ACUM3 = false, ACUM4 = false, stkABLE = false;
  int stkADO = 0;
  bool acumulado(int tipo) const {
    return tipo == 2 ? ACUM2 : tipo == 3 ? ACUM3 : tipo == 4 && ACUM4;
  }
};

class Periodos {
 public:
  Periodos(dao::Database& db, const Ajustes& ajustes, stock::Almacenes& almacenes,
           const Textos& textos);

  Resultado<std::vector<Columna>> lista(int tipo = 0);  // 0 all kinds; by first date, then LINK
  Resultado<std::optional<Columna>> columna(qint64 link);
  Resultado<qint64> ultimo();  // LINK of the one with the most recent dates; 0 for none
  // The period of a calendar kind is stored with its full limits. The new LINK, above 0.
  Resultado<qint64> CrearPeriodo(int tipo, Fecha desde, Fecha hasta, bool stockable,
                                 const QString& descr);
  Resultado<std::optional<Columna>> BuscarPeriodo(int tipo, Fecha desde, Fecha hasta);
  // Gives a period another kind or other dates. The larger periods and the stock follow. Duplicado
  // when there is such a period already; Restriccion when larger ones would lose its sales, which
  // with `aunqueSalga` they do.
  Resultado<> CambiarPeriodo(qint64 link, int tipo, Fecha desde, Fecha hasta,
                             bool aunqueSalga = false);
  // The larger periods that hold the sales of this one and have no place for them with that kind
  // and those dates.
  Resultado<std::vector<Periodo>> saldriaDe(qint64 link, int tipo, Fecha desde, Fecha hasta);
  // The period and its rows. With a kind of 1 or more only the rows of that kind go, and the period
  // stays.
  Resultado<> BorrarPeriodo(qint64 link, int clase = 0);
  // All rows of the period go; the period stays, with its marks.
  Resultado<> VaciarPeriodo(qint64 link);
  Resultado<bool> BorrarPorFechas(int tipo, Fecha desde, Fecha hasta);
  // Adds (signo 1) or subtracts (signo -1) all rows of `origen` to those of `destino`, kind by
  // kind.
  Resultado<> SumarPeriodo(qint64 destino, qint64 origen, int signo = 1);
  // The larger period is made when it isn't there. False when the period lies across two of them or
  // is of their own kind; nothing changes then. What an earlier version left there is taken out
  // first (saldarAcumulado).
  Resultado<bool> AcumularPeriodo(int tipo, const Columna& origen);
  // Only where the mark of `origen` is set; false else.
  Resultado<bool> DesacumularPeriodo(int tipo, const Columna& origen);
  // Take a period out of the larger ones and put its sales back in stock, to change its rows; then
  // put it back.
  struct Marcas {
    bool a2 = false, a3 = false, a4 = false;
    int stk = 0;
    bool& de(int tipo) { return tipo == kSemanal ? a2 : tipo == kMensual ? a3 : a4; }
  };
  Resultado<Marcas> DesacumularTodo(qint64 link);
  // Restriccion when a larger period has no place for it any more.
  Resultado<> ReacumularTodo(qint64 link, const Marcas& marcas);

  // Replacing a period: its row goes and comes back with clear marks and a new LINK, keeping the
  // rows that `seQuedan` does not name. What the larger periods and the stock hold of the old
  // version is remembered (table Sustituidos), so that adding or discounting the new one takes the
  // old one out first.
  Resultado<qint64> sustituir(const Columna& vieja, const QString& descr);
  // Before a period is added to a larger one, or discounted: takes out what an earlier version of
  // it left there.
  Resultado<> saldarAcumulado(int tipo, const Columna& nueva);
  Resultado<> saldarStock(const Columna& nueva);
  // Takes the sales of the period off stock `veces` times (negative: puts them back), an earlier
  // version's first. False when it isn't stockable.
  Resultado<bool> DescontarPeriodo(const Columna& c, int veces);
  // Several in one transaction; those that are gone are passed over. How many there were.
  Resultado<int> DescontarVarios(const std::vector<qint64>& links, int veces);

  dao::Database& base() const { return db_; }
  const Ajustes& ajustes() const { return a_; }
  const Textos& textos() const { return textos_; }

 private:
  struct Sustituido {
    qint64 ID = 0;
    Periodo periodo;
    int stkADO = 0;
  };
  Resultado<> borrarFilas(qint64 link, int clase);
  static std::optional<Periodo> mayorDe(int tipo, const Periodo& origen);
  Resultado<std::optional<qint64>> destinoDe(int tipo, const Periodo& origen);
  Resultado<bool> moverAcumulado(int tipo, const Columna& origen, int signo);
  Resultado<> recordar(const Columna& vieja);
  Resultado<std::vector<Sustituido>> sustituidos(const Periodo& p, const QString& marca);
  Resultado<> sacarSustituido(const Sustituido& s, int tipo);
  // A larger period goes: it holds nothing of any version any more.
  Resultado<> olvidarSustituidosEn(const Periodo& mayor);
  Resultado<> limpiarSustituidos();

  dao::Database& db_;
  const Ajustes& a_;
  stock::Almacenes& almacenes_;
  const Textos& textos_;
};

}  // namespace tarvo::totals
