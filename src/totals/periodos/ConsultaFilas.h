// Queries on the rows of displayed periods: which rows match a filter, their sums for a chart,
// their origin, and what an operation is about to touch.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "core/dao/Database.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

// An SQL condition with its values, on the tables named by fuenteFilas.
struct Condicion {
  QString sql;
  std::vector<dao::Valor> valores;
  void y(const QString& parte, std::vector<dao::Valor> suyos);
};

// Rows of one period and kind.
struct FiltroFilas {
  qint64 link = 0;
  TipoTotal clase = TipoTotal::GranTotal;
  std::optional<int> seccion, grupo;
  std::optional<qint64> desde, hasta;  // codes, inclusive
  Condicion condicion() const;
};

// Rows of one code across the periods of a kind.
struct FiltroCodigo {
  TipoTotal clase = TipoTotal::PLUs;
  int tipo = kDiario;
  std::optional<int> seccion;  // for kinds whose codes belong to a section
  qint64 codigo = 0;
  std::optional<int> grupo;
  std::optional<Fecha> desde, hasta;  // first days
  Condicion condicion() const;
};

// The FROM clause: the rows as "t", their period as COLUMNA when `conPeriodo`, their group, and the
// table with their name. `nombreFilas` is the expression for that name.
QString fuenteFilas(TipoTotal clase, bool conPeriodo);
QString nombreFilas(TipoTotal clase);
// The amount of a row of COLUMNA: from its grand totals, else from its articles.
QString importeDePeriodo();
bool conSeccion(TipoTotal clase);  // codes belong to a section

struct Punto {
  qint64 codigo = 0;
  QString nombre;
  qint64 importe = 0;  // stored money
};
// The amount by code: the `cuantos` largest, in descending order; for hours, all with sales, by
// hour.
Resultado<std::vector<Punto>> serie(dao::Database& db, const FiltroFilas& filtro, int cuantos);
inline Resultado<std::vector<Punto>> serie(const Periodos& periodos, const FiltroFilas& filtro,
                                           int cuantos) {
  return serie(periodos.base(), filtro, cuantos);
}
struct PuntoPeriodo {
  Fecha desde;
  qint64 importe = 0;
};
// The amount of a code for each period, ordered by date.
Resultado<std::vector<PuntoPeriodo>> evolucion(const Periodos& periodos,
                                               const FiltroCodigo& filtro);

// The best seller of the most recent day, with its section; 0 and 0 when there is none. The code is
// that of an article, operator, department or group.
struct CodigoDe {
  int seccion = 0;
  qint64 codigo = 0;
};
Resultado<CodigoDe> masVendido(const Periodos& periodos, TipoTotal clase);
// The name of the filter's code; empty when unknown.
Resultado<QString> nombreDeCodigo(const Periodos& periodos, const FiltroCodigo& filtro);
// Number of rows of a period for each kind in use.
Resultado<std::map<TipoTotal, qint64>> filasPorClase(const Periodos& periodos, qint64 link);

// A reading from which rows of a period came.
struct Procedencia {
  int grupo = 0;
  QString nombreGrupo;
  qint64 ejecucion = 0;  // the run; 0 when there was none
  std::optional<Fecha> leido;
  Fecha desde, hasta;  // the sales
  bool diferencia = false;
  // Machine and amount of a code within this reading, until a later one arrives.
  std::vector<std::pair<int, qint64>> maquinas;
};
Resultado<std::vector<Procedencia>> procedencia(const Periodos& periodos, qint64 link, int grupo,
                                                TipoTotal clase, qint64 codigo);

// The combined contents of several periods.
struct Resumen {
  int periodos = 0, grupos = 0;
  qint64 filas = 0;
  qint64 importe = 0;  // from the grand totals; from the articles where a period has none
};
Resultado<Resumen> resumir(const Periodos& periodos, const std::vector<qint64>& links);

}  // namespace tarvo::totals
