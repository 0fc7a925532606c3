// The columns of a grid, and how their values are shown. All lists show values through
// Formato::ver, which uses the engines' own formatting.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "core/ajustes/Ajustes.h"
#include "core/dao/Valor.h"
#include "core/valores/Resultado.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo {
class Textos;
}

namespace tarvo::ventanas {

enum class Clase {
  Texto,
  Codigo,      // `cifras` digits with leading zeros
  Entero,      // a count
  Importe,     // stored minor units
  Cantidad,    // grams or units, see `cada`
  Fecha,       // dd/mm/yyyy
  Hora,        // hh:nn:ss
  Momento,     // date and time
  Porcentaje,  // hundredths of a per cent if whole, per cent if real
  SiNo,        // yes or no
};

struct Columna {
  int titulo = 0;  // number of its text
  // A column of the query or an expression in it; in a live list, only a name to find it by.
  QString campo = {};
  Clase clase = Clase::Texto;
  int cifras = 0;
  int cada = 0;            // Cantidad: 0 and 1 grams, 2 units
  QString campoCada = {};  // Cantidad: the column of this list with that value, in place of `cada`
  int ancho = 0;           // pixels at 100 %; 0 for the default of its kind
  bool oculta = false;     // until the user shows it
  bool ordenable = true;
  QString orden = {};     // expression to sort by; `campo` if empty
  bool suma = false;      // summed in the totals line
  bool soloDato = false;  // never shown: a value needed by the window
  // Replaces the text of its kind; the result is shown, copied, exported and searched.
  std::function<QString(const dao::Valor&)> ver = {};
  // An icon before the text: its name, empty for none.
  std::function<QString(const dao::Valor&)> imagen = {};
  // A state, for the colour and weight of the text.
  std::function<Estado(const dao::Valor&)> estado = {};
  // Makes its cells editable: receives the row's key and the text typed, and stores the value. On a
  // failure the cell editor stays open and the list reports the reason.
  std::function<Resultado<>(qint64 clave, const QString& texto)> editar = {};
  // The column that names the row: typing on it searches, and only F2 or Return edits it.
  bool nombraLaFila = false;
  // The maximum number of characters, 0 for that of its kind. A limit above that of a code lets
  // `editar` refuse a text that is too long, instead of cutting it while it is typed.
  int largo = 0;
  // Where space is short the columns with the highest rank are hidden first, until the others fit;
  // 0 is never hidden.
  int rango = 0;
  // The least width, at 100 %, to which the first text column is squeezed before others are hidden;
  // 0 for that of all.
  int minimo = 0;
};

bool esNumerica(Clase clase);  // right-aligned, tabular, with pale zeros
// Whether a key typed on a cell begins its new text; a letter on a number searches
// instead.
bool empiezaCelda(const Columna& columna, QChar tecla);
// Why a text can't become a value of the column, in words: signs that aren't of a code, a number or
// a per cent, or too many letters. Amounts and quantities are left to their readers, which refuse
// what isn't a number as well.
std::optional<QString> malEscrito(const Columna& columna, const QString& texto,
                                  const Textos& textos);

class Formato {
 public:
  explicit Formato(const Ajustes& ajustes)
      : ajustes_(&ajustes), moneda_(ajustes.MonedaPreferente) {}
  void ponerMoneda(int moneda) { moneda_ = moneda; }
  int moneda() const { return moneda_; }

  // `cada`: that of this row, see Columna. Null gives an empty text.
  QString ver(const Columna& columna, const dao::Valor& valor, int cada) const;
  const Ajustes& ajustes() const { return *ajustes_; }

 private:
  const Ajustes* ajustes_;
  int moneda_;
};

}  // namespace tarvo::ventanas
