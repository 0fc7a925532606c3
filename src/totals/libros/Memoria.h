// Moving the rows of the inbox into a period, each sale once. Runs inside the caller's transaction.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "totals/libros/Sesion.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

// A group and kind with data in the open session, and the period made by its span.
struct Recibido {
  int CODGPO = 0;
  TipoTotal clase = TipoTotal::GranTotal;
  Periodo periodo;
  Fecha desde, hasta;    // the span of the sales to be moved
  Fecha baseDesde;       // the span's start once this reading is memorised
  bool conBase = false;  // part of the counters is already memorised: only the difference moves
  qint64 linkBase = 0;   // the period that holds that part
  int jornadas = 0;      // working days in the span, where few enough to be counted
};

// Settles the unconfirmed zeroings that the open session's readings show: a machine whose counters
// went down has forgotten its memorised counters. Writes PZERO, the DD_ columns and the memorised
// rows accordingly.
Resultado<> resolverBases(dao::Database& db, const Ajustes& ajustes, const Textos& textos,
                          std::vector<Aviso>& avisos);

// The same for one group, before it is told to forget: that would overwrite the evidence.
Resultado<> resolverBasesDe(dao::Database& db, const Ajustes& ajustes, const Textos& textos,
                            int grupo, std::vector<Aviso>& avisos);

class Memoria {
 public:
  Memoria(dao::Database& db, const Ajustes& ajustes, Periodos& periodos, qint64 ejecucion)
      : db_(db), a_(ajustes), p_(periodos), ejecucion_(ejecucion) {}

  // Moves these readings into one period, created when missing. Returns its LINK.
  Resultado<qint64> incorporar(Periodo destino, const std::vector<Recibido>& lecturas,
                               bool sustituir, const QString& descr, std::vector<Aviso>& avisos);

 private:
  // How a reading goes into its period: Otras when the period holds other sales of the group, so
  // that none of them may be replaced.
  enum class Modo { Nueva, Sumar, Poner, Otras };
  static void sumarSiHayOtras(const std::vector<Recibido>& lecturas, std::vector<Modo>& modos);
  Resultado<Modo> modoDe(const Recibido& r, qint64 link, bool sustituir,
                         std::vector<Aviso>& avisos);
  Resultado<> moverNuevas(TipoTotal clase, const std::vector<int>& grupos, qint64 link);
  Resultado<> mover(const Recibido& r, qint64 link, Modo modo);
  Resultado<> moverDiferencia(const Recibido& r, qint64 link);
  Resultado<> quitarAusentes(const Recibido& r, qint64 link);
  Resultado<std::optional<Columna>> destinoDe(Periodo& destino,
                                              const std::vector<Recibido>& lecturas,
                                              std::vector<Aviso>& avisos);
  Resultado<bool> tieneAcumulados(const Columna& c);
  // Groups about to be replaced, by kind.
  Resultado<bool> tieneAjenas(qint64 link,
                              const std::map<TipoTotal, std::vector<int>>& sustituidos);
  Resultado<bool> soloSuma(const Columna& c);
  Resultado<> hacerDescontable(const Columna& antes, qint64 link, bool conAjenas,
                               const std::vector<Recibido>& lecturas, std::vector<Aviso>& avisos);
  // True if the reading is a part of a list whose memorised counters are known.
  Resultado<bool> conservarBase(const Recibido& r, const dao::Recordset& lectura);
  Resultado<dao::Valor> baseAntigua(const Recibido& r);
  Resultado<> anotarBase(const Recibido& r, qint64 link);
  Resultado<> anotarOrigen(const Recibido& r, qint64 link);

  dao::Database& db_;
  const Ajustes& a_;
  Periodos& p_;
  qint64 ejecucion_;
};

}  // namespace tarvo::totals
