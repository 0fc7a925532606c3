// Questions about the rows of periods that a person looks at: which rows a filter means, their sums
// for a chart, where they came from, and what an operation is about to touch.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "core/dao/Database.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

// A condition of SQL with its values, over the tables that fuenteFilas names.
struct Condicion {
  QString sql;
  std::vector<dao::Valor> valores;
  void y(const QString& parte, std::vector<dao::Valor> suyos);
};

// Rows of one period and kind.
struct FiltroFilas {
  qint64 link = 0;
  int clase = kGranTotal;
  std::optional<int> seccion, grupo;
  std::optional<qint64> desde, hasta;  // codes, both included
  Condicion condicion() const;
};

// Rows of one code across the periods of a kind.
struct FiltroCodigo {
  int clase = kPLUs;
  int tipo = kDiario;
  std::optional<int> seccion;  // for the kinds whose codes are a section's
  qint64 codigo = 0;
  std::optional<int> grupo;
  std::optional<Fecha> desde, hasta;  // first days
  Condicion condicion() const;
};

// What comes after FROM: the rows as "t", their period as COLUMNA when `conPeriodo`, their group,
// and what has their name. `nombreFilas` is the expression of that name.
QString fuenteFilas(int clase, bool conPeriodo);
QString nombreFilas(int clase);
// Of a row of COLUMNA: its grand totals, else its articles.
QString importeDePeriodo();
bool conSeccion(int clase);  // codes belong to a section

struct Punto {
  qint64 codigo = 0;
  QString nombre;
  qint64 importe = 0;  // stored money
};
// The amount by code, the `cuantos` largest first; hours, all that have sales, by hour.
Resultado<std::vector<Punto>> serie(dao::Database& db, const FiltroFilas& filtro, int cuantos);
inline Resultado<std::vector<Punto>> serie(const Periodos& periodos, const FiltroFilas& filtro,
                                           int cuantos) {
  return serie(periodos.base(), filtro, cuantos);
}
struct PuntoPeriodo {
  Fecha desde;
  qint64 importe = 0;
};
// The amount of a code by period, by date.
Resultado<std::vector<PuntoPeriodo>> evolucion(const Periodos& periodos,
                                               const FiltroCodigo& filtro);

// What sold most in the most recent day, with its section; 0 and 0 when there is none. Codes are
// those of articles, operators, departments or groups.
struct CodigoDe {
  int seccion = 0;
  qint64 codigo = 0;
};
Resultado<CodigoDe> masVendido(const Periodos& periodos, int clase);
// The name of the filter's code; empty when nothing has it.
Resultado<QString> nombreDeCodigo(const Periodos& periodos, const FiltroCodigo& filtro);
// How many rows a period has of each kind that is in use.
Resultado<std::map<int, qint64>> filasPorClase(const Periodos& periodos, qint64 link);

// A reading that gave rows of a period.
struct Procedencia {
  int grupo = 0;
  QString nombreGrupo;
  qint64 ejecucion = 0;  // the run; 0 when it was none
  std::optional<Fecha> leido;
  Fecha desde, hasta;  // the sales
  bool diferencia = false;
  // Machine and amount of a code within this reading, as long as no later one has come.
  std::vector<std::pair<int, qint64>> maquinas;
};
Resultado<std::vector<Procedencia>> procedencia(const Periodos& periodos, qint64 link, int grupo,
                                                int clase, qint64 codigo);
// The periods that were added into this one.
Resultado<std::vector<Columna>> sumandos(Periodos& periodos, const Columna& mayor);

// What some periods hold together.
struct Resumen {
  int periodos = 0, grupos = 0;
  qint64 filas = 0;
  qint64 importe = 0;  // by the grand totals; by articles where a period has none
};
Resultado<Resumen> resumir(const Periodos& periodos, const std::vector<qint64>& links);

}  // namespace tarvo::totals
