// The lists of the catalogue: which rows, in which order, the columns that are more than a field,
// and the position of an article.
#pragma once

#include <vector>

#include "articles/Catalogo.h"
#include "core/dao/Origen.h"

namespace tarvo::articles {

// A condition on PLUSES, with its bound values. Empty for all articles.
struct Condicion {
  QString sql;
  std::vector<dao::Valor> valores;
};

// The articles with each word of the text somewhere in their name, code (seven digits) or bar code.
// Accents and case don't matter.
Condicion condicionBusqueda(const QString& texto);

struct FiltroArticulos {
  int seccion = 0;
  int departamento = 0;  // 0 for all
  QString texto = {};    // see condicionBusqueda()
  bool deVenta = false;  // system articles are left out
  Condicion condicion() const;
};

// The order of a list read by name.
QString ordenPorNombre();

// The articles of the filter, by code.
dao::Origen listaArticulos(const FiltroArticulos& filtro);
QString columnaUnidad();  // K, g or U
QString ordenPorUnidad();
QString columnaCodigoBarras();  // its own, else the composed one

// The operators, by code.
dao::Origen listaOperadores();

// The prices of a section as they changed; the latest first.
struct FiltroHistoria {
  int seccion = 0;
  std::optional<qint64> codigo = {};
  std::optional<int> tarifa = {};  // from 0
};
dao::Origen listaHistoria(const FiltroHistoria& filtro);
QString columnaCodigoHistoria();

// The codes of the articles of the filter, in the order of codes or of names.
Resultado<std::vector<qint64>> codigosDe(Catalogo& catalogo, const FiltroArticulos& filtro,
                                         bool porNombre);

// The key of the row (PLUSES.rowid) of an article; nothing when there is none.
Resultado<std::optional<qint64>> filaDe(Catalogo& catalogo, ClaveArticulo clave);
// The same for the first article of the filter with a code, or name, equal to the text or after it.
Resultado<std::optional<qint64>> filaDesde(Catalogo& catalogo, const FiltroArticulos& filtro,
                                           bool porNombre, const QString& texto);

}  // namespace tarvo::articles
