// The operations on periods shared by processes and the window: a selection, and what is done with
// it. A quiet call asks nothing and takes the safe answer. The selection holds each LINK once, in
// the order selected.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

class VerTot {
 public:
  explicit VerTot(Periodos& periodos);

  // Each returns whether it did what its step promises; an Error is a failure of the store, with
  // everything undone.
  Resultado<bool> AcumularEn(int tipo);
  Resultado<bool> DesacumularDe(int tipo);
  Resultado<bool> AcumularIntv(int tipo, int signo);
  // An existing period with these dates is taken as it is.
  struct Creado {
    qint64 link = 0;
    bool existia = false;
  };
  Resultado<Creado> CrearIntvalo(const Periodo& p, const QString& descr);
  // Those of which nights still owe something (Periodos::debidosDe) stay: Restriccion, with what is
  // owed, after the others have gone.
  Resultado<bool> BorrarIntvalo(int tipo, Fecha desde, Fecha hasta);
  // Periodos::gruposSinCero of those that BorrarIntvalo would delete.
  Resultado<QString> gruposSinCero(int tipo, Fecha desde, Fecha hasta);
  bool ClrSelec();
  Resultado<bool> Seleccionar(int tipo, Fecha desde, Fecha hasta);
  Resultado<bool> SelecHnd(qint64 link);
  // A period that isn't stockable is skipped and makes it false; one already discounted is skipped.
  Resultado<bool> StockIntv(bool deshacer = false);
  // Sales that a sum would count twice.
  struct Solape {
    Periodo uno, otro;
    bool yaDentro = false;  // `otro`, the target of the sum, already holds `uno`
  };
  // The target of a sum of the selection: the period that contains all of it, and its row if it
  // exists. Nothing when a selected period is missing or none is selected.
  struct Suma {
    Periodo periodo;
    std::optional<Columna> existente;
    int sumandos = 0;  // periods to add; 0 when the only one is the sum itself
    std::vector<Solape> solapes;
    std::vector<qint64> dentro;    // those selected whose sales the target already holds
    std::vector<Periodo> enStock;  // added, and taken off the stock once more with the target
  };
  Resultado<std::optional<Suma>> destinoDeSuma();
  // Into the period that contains the whole selection, which must exist; larger periods and stock
  // are updated. The selection stays. With a batch of the Papelera it can be undone. `sin`: those
  // of the selection that are left out.
  Resultado<bool> SumarIntv(qint64 lote = 0, std::span<const qint64> sin = {});
  Resultado<std::optional<Columna>> columna(qint64 link) { return p_.columna(link); }
  const std::vector<qint64>& LosSelec() const { return seleccion_; }
  void ponerSeleccion(const std::vector<qint64>& links);
  // 0 free, 1 a related period is accumulated there, 2 this very one is.
  Resultado<int> ChequeoAcumulado(const Columna& c, int tipo);
  // What accumulating these would meet, known before any is: a later one may repeat the sales of an
  // earlier one.
  struct Prevision {
    std::vector<Periodo> ya;           // accumulated there before
    std::vector<Solape> relacionados;  // `uno` repeats sales of `otro`, there or before it
  };
  // Sales that discounting these would take off the stock once more: `uno` was summed into `otro`,
  // and the other of the two is off the stock or among them.
  Resultado<std::vector<Solape>> yaEnStock(const std::vector<qint64>& links);
  // Sales that a larger period would get once more from these, in the same way, or because one of
  // two is a day of the other.
  Resultado<std::vector<Solape>> yaAcumulados(const std::vector<qint64>& links, int tipo);
  Resultado<Prevision> preverAcumular(const std::vector<qint64>& links, int tipo);

 private:
  Resultado<std::vector<Solape>> porDuplicado(
      const std::vector<qint64>& links, const std::function<bool(const Columna&)>& hecho,
      const std::function<bool(const Periodo&, const Periodo&)>& juntos);
  Resultado<bool> conSeleccion(
      const std::function<Resultado<bool>(const Columna&, bool antes)>& paso);
  struct PorBorrar {
    std::vector<qint64> links;
    QStringList debidos;  // what keeps others
  };
  Resultado<PorBorrar> porBorrar(int tipo, Fecha desde, Fecha hasta);
  Resultado<std::vector<qint64>> entreFechas(int tipo, Fecha desde, Fecha hasta);
  void anadir(qint64 link);
  Resultado<std::vector<Columna>> elegidas();
  Resultado<std::vector<Columna>> acumulados(int tipo);
  Resultado<bool> tieneDentro(const Columna& destino, const Columna& c);
  Resultado<std::vector<Periodo>> comunes(const std::vector<Periodo>& enDestino, const Columna& c);
  static void ponerMayores(const Columna& destino, const Columna& c, Suma& suma);
  Resultado<> ponerSolapes(const std::vector<Columna>& elegidas, Suma& suma);

  Periodos& p_;
  dao::Database& db_;
  const Ajustes& a_;
  std::vector<qint64> seleccion_;
};

}  // namespace tarvo::totals
