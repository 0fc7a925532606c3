// An article of the catalogue: a value, with the defaults of a new one. Money is in minor units of
// the native currency, quantities are grams (Cada 0 and 1) or units (Cada 2).
#pragma once

#include <QStringList>
#include <array>
#include <optional>
#include <vector>

#include "core/dao/Database.h"

namespace tarvo::articles {

inline constexpr int kNiveles = 3, kTarifas = 8;
// Below the first are the two system articles of each section, which are never changed or deleted.
inline constexpr qint64 kPrimerCodigo = 3, kUltimoCodigo = 9'999'999;
inline constexpr int kPorKilo = 0, kPor100g = 1, kPorUnidad = 2;
inline constexpr int kEAN8 = 0, kEAN13 = 1;

struct ClaveArticulo {
  int seccion = 1;
  qint64 codigo = 0;
  auto operator<=>(const ClaveArticulo&) const = default;
  bool deSistema() const { return codigo < kPrimerCodigo; }
};

// By level and tarifa.
using Precios = std::array<std::array<qint64, kTarifas>, kNiveles>;
// "PRECIO_27" for level 2, tarifa 7.
QString columnaPrecio(int nivel, int tarifa);
// All columns of PLUSES, in the order of ColumnasArticulo: SECCION and CODPLU first.
const QStringList& columnasArticulo();

struct Articulo {
  ClaveArticulo clave;
  QString nombre;
  int cada = kPorKilo;
  bool modificable = true;  // the operator of a scale may change the price
  Precios precios{};
  qint64 minimo = 0;              // money
  qint64 hasta1 = 0, hasta2 = 0;  // quantity up to which levels 1 and 2 apply
  int depto = 0;
  int barras = kEAN13;
  QString pfxBar = QStringLiteral("0");
  std::optional<QString> codBarExt;  // predefined bar code; none if composed
  int descto = 0;                    // hundredths of a per cent
  int formato = 1;
  QString textoEtq;
  int tara = 1;
  int numdias1 = 0, numdias2 = 0;
  qint64 stkMax = 0, stkMin = 0;
  qint64 coste = 0;
  bool operator==(const Articulo&) const = default;

  bool porPeso() const { return cada != kPorUnidad; }
  // The predefined bar code, else the prefix and the code in six digits.
  QString codigoDeBarras() const;
};

// Faults in the values of an article, in the order in which an editor reports them.
enum class Falta { Codigo, Departamento, Formato, Minimo, Hasta1, Hasta2, Descuento };
std::vector<Falta> faltas(const Articulo& articulo);

// `hoy` with the fields restored in which `antes` and `ahora` differ; nothing when one of them now
// has neither value.
std::optional<Articulo> sinElCambio(Articulo hoy, const Articulo& antes, const Articulo& ahora);

// Its values as the first parameters of a statement, in the order of columnasArticulo().
void ligarArticulo(dao::Sentencia& sentencia, const Articulo& articulo);

// The columns of PLUSES in one recordset, resolved once.
class ColumnasArticulo {
 public:
  // REQUIRES a recordset with all columns of PLUSES.
  explicit ColumnasArticulo(const dao::Recordset& rs);
  // REQUIRES a row.
  Articulo leer(const dao::Recordset& rs) const;
  // Sets all columns, between AddNew or Edit and Update.
  void poner(dao::Recordset& rs, const Articulo& articulo) const;

 private:
  std::vector<int> columnas_;
};

}  // namespace tarvo::articles
