// Periods: rows of COLUMNA and the rows of the six totals tables with their LINK. Each operation is
// one transaction (or a savepoint in the caller's): it is done whole or not at all.
#pragma once

#include <vector>

#include "core/dao/Database.h"
#include "core/textos/Textos.h"
#include "stock/Almacenes.h"
#include "totals/periodos/Calendario.h"
#include "totals/periodos/Clases.h"

namespace tarvo::totals {

// The column that marks a period as added to its larger one of this kind, weekly to yearly.
QString marcaDe(int tipo);

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

// What became of a period that was to be taken off the stock, or put back.
enum class Descuento {
  Hecho,
  YaEstaba,   // its sales are off the stock already: nothing was changed
  NoProcede,  // it isn't meant for the stock
};

// A table that names a period by its dates and must follow when they change.
struct NotaDePeriodo {
  QString tabla;
  bool porNumero = false;  // by its number, and the dates tell it from another one with that number
};
std::vector<NotaDePeriodo> notasDePeriodo();
// Deletes the notes by number whose period is gone for good: neither there nor in the Papelera.
Resultado<> olvidarNotasSinPeriodo(dao::Database& db, const QString& tabla);

class Periodos {
 public:
  Periodos(dao::Database& db, const Ajustes& ajustes, stock::Almacenes& almacenes,
           const Textos& textos);

  Resultado<std::vector<Columna>> lista(int tipo = 0);  // 0: all kinds; by first date, LINK
  Resultado<std::optional<Columna>> columna(qint64 link);
  Resultado<qint64> ultimo();  // LINK of the most recent one; 0 for none
  // A period of a calendar kind is stored with its full limits. Returns the new LINK, above 0.
  Resultado<qint64> CrearPeriodo(int tipo, Fecha desde, Fecha hasta, bool stockable,
                                 const QString& descr);
  Resultado<std::optional<Columna>> BuscarPeriodo(int tipo, Fecha desde, Fecha hasta);
  // Gives a period another kind or other dates. The larger periods and the stock are updated.
  // Duplicado when there already is such a period; Restriccion when larger ones would lose its
  // sales, unless `aunqueSalga` allows it.
  Resultado<> CambiarPeriodo(qint64 link, int tipo, Fecha desde, Fecha hasta,
                             bool aunqueSalga = false);
  // The larger periods that hold this one's sales but would have no place for them with that kind
  // and those dates.
  Resultado<std::vector<Periodo>> saldriaDe(qint64 link, int tipo, Fecha desde, Fecha hasta);
  // Deletes the period and its rows. With a kind only the rows of that kind are deleted, and the
  // period stays. What a deleted week, month or year held may be accumulated again.
  Resultado<> BorrarPeriodo(qint64 link, std::optional<TipoTotal> clase = {});
  // Deletes a period whose sales are in a file: what it held stays accumulated, so that the file
  // doesn't get it twice.
  Resultado<> BorrarEntregado(qint64 link);
  // Takes their mark off the periods accumulated in this one, deleted ones included.
  Resultado<> soltarAcumulados(const Periodo& mayor);
  // Deletes all rows of the period; the period stays, with its marks.
  Resultado<> VaciarPeriodo(qint64 link);
  Resultado<bool> BorrarPorFechas(int tipo, Fecha desde, Fecha hasta);
  // Adds (signo 1) or subtracts (signo -1) all rows of `origen` to those of `destino`, kind by
  // kind.
  Resultado<> SumarPeriodo(qint64 destino, qint64 origen, int signo = 1);
  // The larger period is created if missing. False, with nothing changed, when the period spans two
  // of them, is of their own kind, or is in it already. An earlier version's sales are taken out
  // first (saldarAcumulado).
  Resultado<bool> AcumularPeriodo(int tipo, const Columna& origen);
  // Only when the mark of `origen` is set; otherwise false.
  Resultado<bool> DesacumularPeriodo(int tipo, const Columna& origen);
  // The larger period of this kind that contains all of `origen`.
  static std::optional<Periodo> mayorDe(int tipo, const Periodo& origen);
  // Whether it holds the sales of an earlier version of `c`.
  Resultado<bool> tieneAnterior(int tipo, const Columna& c);
  // Whether a period has no rows, or only rows of zeros.
  Resultado<bool> sinVentas(qint64 link);
  // The number of its rows and their sums, kind by kind, also weighed by their codes: equal texts
  // mean that nothing has changed.
  // Empty when there is no such period.
  Resultado<QString> sumasDe(qint64 link);
  // Takes a period out of the larger ones and puts its sales back in stock, so that its rows can be
  // changed; afterwards, the reverse.
  struct Marcas {
    bool a2 = false, a3 = false, a4 = false;
    int stk = 0;
    bool& de(int tipo) { return tipo == kSemanal ? a2 : tipo == kMensual ? a3 : a4; }
  };
  Resultado<Marcas> DesacumularTodo(qint64 link);
  // Restriccion when a larger period no longer has a place for it.
  Resultado<> ReacumularTodo(qint64 link, const Marcas& marcas);

  // Replaces a period: its row is recreated with clear marks, perhaps under another LINK
  // (returned), and its totals rows stay with it. What the larger periods and the stock hold of the
  // old version is recorded (table Sustituidos), so that adding or discounting the new one takes
  // the old one out first.
  Resultado<qint64> sustituir(const Columna& vieja, const QString& descr);
  // Before a period is added to a larger one, or discounted: takes out an earlier version's sales.
  Resultado<> saldarAcumulado(int tipo, const Columna& nueva);
  Resultado<> saldarStock(const Columna& nueva);
  // Takes the sales of the period off stock, once, after settling an earlier version; with
  // `deshacer` puts them back.
  Resultado<Descuento> DescontarPeriodo(const Columna& c, bool deshacer = false);
  // Several in one transaction, skipping missing ones, those that are off the stock already and, of
  // those to be put back, those that aren't. Returns how many it was done to.
  Resultado<int> DescontarVarios(const std::vector<qint64>& links, bool deshacer);

  // What nights still owe of it: to which file, as it is noted, except those of `salvo`; into which
  // larger period; a sentence each. Not what a person has done by now.
  Resultado<QStringList> debidosDe(qint64 link, const QStringList& salvo = {});
  // The groups whose machines still hold their sales, as a text: they are memorised, so they won't
  // be counted again, and only what comes after them will. Empty when there are none.
  Resultado<QString> gruposSinCero(const std::vector<qint64>& links);

  dao::Database& base() const { return db_; }
  const Ajustes& ajustes() const { return a_; }
  const Textos& textos() const { return textos_; }

 private:
  struct Sustituido {
    qint64 ID = 0;
    Periodo periodo;
    int stkADO = 0;
  };
  Resultado<> borrarFilas(qint64 link, std::optional<TipoTotal> clase);
  Resultado<std::optional<qint64>> destinoDe(int tipo, const Periodo& origen);
  Resultado<bool> moverAcumulado(int tipo, const Columna& origen, int signo);
  Resultado<> quitarPeriodo(qint64 link);
  Resultado<> recordar(const Columna& vieja);
  Resultado<std::vector<Sustituido>> sustituidos(const Periodo& p, const QString& marca);
  Resultado<> moverSustituido(const Sustituido& s, int tipo, int signo);
  Resultado<> olvidarMarca(const Sustituido& s, int tipo);
  Resultado<> mudarSustituidos(const Periodo& de, const Periodo& a);
  Resultado<> mudarNotas(qint64 link, const Periodo& de, const Periodo& a);
  Resultado<> renumerarNotas(qint64 viejo, qint64 nuevo);
  // A larger period is deleted: it no longer holds anything of any version.
  Resultado<> olvidarSustituidosEn(const Periodo& mayor);
  Resultado<> limpiarSustituidos();

  dao::Database& db_;
  const Ajustes& a_;
  stock::Almacenes& almacenes_;
  const Textos& textos_;
};

}  // namespace tarvo::totals
