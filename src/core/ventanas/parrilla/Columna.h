// What a column of a grid is, and how its values are shown. All lists show values through
// Formato::ver, which rests on the engines' own formatting.
#pragma once

#include <functional>
#include <vector>

#include "core/ajustes/Ajustes.h"
#include "core/dao/Valor.h"
#include "core/valores/Resultado.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::ventanas {

enum class Clase {
  Texto,
  Codigo,      // `cifras` digits with zeros in front
  Entero,      // a count
  Importe,     // stored minor units
  Cantidad,    // grams or units, see `cada`
  Fecha,       // dd/mm/yyyy
  Hora,        // hh:nn:ss
  Momento,     // both
  Porcentaje,  // a number of hundredths of a per cent when whole, of per cent when real
  SiNo,        // yes or no
};

struct Columna {
  int titulo = 0;  // number of its text
  // A column of the query or an expression in it; of a live list, only a name to reach it by.
  QString campo = {};
  Clase clase = Clase::Texto;
  int cifras = 0;
  int cada = 0;            // Cantidad: 0 and 1 grams, 2 units
  QString campoCada = {};  // Cantidad: the column of this list that says so, in place of `cada`
  int ancho = 0;           // pixels at 100 %; 0 for what its kind needs
  bool oculta = false;     // until the person asks for it
  bool ordenable = true;
  QString orden = {};     // expression to sort by, `campo` when empty
  bool suma = false;      // summed in the totals line
  bool soloDato = false;  // never shown: a value that the window needs
  // Instead of its kind's own text; what it gives is shown, copied, exported and searched.
  std::function<QString(const dao::Valor&)> ver = {};
  // A picture before the text: the name of an icon, empty for none.
  std::function<QString(const dao::Valor&)> imagen = {};
  // The colour and weight of a state.
  std::function<Estado(const dao::Valor&)> estado = {};
  // Lets the person write into its cells: takes the row's key and the text, and writes it where it
  // belongs. On a failure the cell stays in edit and the list says why.
  std::function<Resultado<>(qint64 clave, const QString& texto)> editar = {};
  // It names the row: typing on it searches, and only F2 or Return writes into it.
  bool nombraLaFila = false;
  // Characters that may be typed, 0 for as many as its kind takes. More than a code has lets
  // `editar` refuse what doesn't fit, where it would be cut while it is typed.
  int largo = 0;
  // Where there is little room the column with the highest rank goes first, until the others fit;
  // 0 stays always.
  int rango = 0;
};

bool esNumerica(Clase clase);  // right-aligned, tabular, its zeros pale
// Whether a text may become a value of the column: digits, a number, or anything.
bool seTeclea(const Columna& columna, const QString& texto);

class Formato {
 public:
  explicit Formato(const Ajustes& ajustes)
      : ajustes_(&ajustes), moneda_(ajustes.MonedaPreferente) {}
  void ponerMoneda(int moneda) { moneda_ = moneda; }
  int moneda() const { return moneda_; }

  // `cada`: of this row, see Columna. Null shows as nothing.
  QString ver(const Columna& columna, const dao::Valor& valor, int cada) const;
  const Ajustes& ajustes() const { return *ajustes_; }

 private:
  const Ajustes* ajustes_;
  int moneda_;
};

}  // namespace tarvo::ventanas
