// Periods that are to go because they have been exported, and can't yet, because something is still
// owed of them: another file waits for them, or a larger period, or the stock.
#pragma once

#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

class Entregados {
 public:
  explicit Entregados(Periodos& periodos) : db_(periodos.base()), p_(periodos) {}

  // The period, whose sales are in this file now, is to be deleted once nothing is owed of it. What
  // it holds now is what that file got: of several notes the first one counts.
  Resultado<> anotar(qint64 link, const QString& ruta);
  // It waits, and the file got what it holds now.
  Resultado<bool> tiene(const QString& ruta, qint64 link);
  Resultado<bool> espera(qint64 link);
  // A period of which nothing is owed any more. One whose sales have changed since it was exported
  // stays, and is not to be deleted any more.
  struct Libre {
    Periodo periodo;
    bool borrado = false;
  };
  Resultado<std::vector<Libre>> borrarLibres();

  // Deletes the period, whose sales are in these files.
  Resultado<> borrar(const Columna& periodo, const QStringList& rutas);
  // The file has a block of a deleted period with the same dates: this one's has other sales, which
  // its reader must add to them.
  Resultado<bool> hayOtroBloque(const Columna& periodo, const QString& ruta);

 private:
  dao::Database& db_;
  Periodos& p_;
};

}  // namespace tarvo::totals
