// Fast entry: an article as keyed in, its field-by-field check, and its addition with an empty row
// of stock in every warehouse.
#pragma once

#include <vector>

#include "articles/Catalogo.h"
#include "articles/precios/ParrillaRapida.h"

namespace tarvo::precios {

// In tab order.
enum class CampoAlta {
  Codigo,
  Nombre,
  Precios,
  Unidad,
  Departamento,
  Formato,
  CodBarras,
  Dias1,
  Dias2
};
inline constexpr int kCamposAlta = 9;
CampoAlta comoCampoAlta(CampoFijo campo);

// As typed.
struct EntradaAlta {
  int seccion = 0;
  QString codigo;  // without the prefix, or whole as FormaAlta::codigo shows it
  QString nombre;
  articles::Precios precios{};
  int cada = -1;  // -1: none chosen
  QString departamento, formato, codBarras, dias1, dias2;
  bool operator==(const EntradaAlta&) const = default;
};

class AltaRapida {
 public:
  // REQUIRES that the catalogue outlives it.
  AltaRapida(articles::Catalogo& catalogo, FormaAlta forma)
      : db_(catalogo.base()), catalogo_(catalogo), forma_(std::move(forma)) {}

  const FormaAlta& forma() const { return forma_; }
  void ponerForma(FormaAlta forma) { forma_ = std::move(forma); }

  // The code for the text; nothing when it isn't one that a person may choose.
  std::optional<qint64> codigoDe(const QString& texto) const;
  // The fault in a field, in words; nothing when it is valid. A code that the section has already
  // is one.
  Resultado<std::optional<QString>> falta(CampoAlta campo, const EntradaAlta& e);
  // Adds it, in one transaction. Duplicado when the section has that code. REQUIRES valid fields.
  Resultado<articles::Articulo> anadir(const EntradaAlta& e, const QString& ventana);

 private:
  Resultado<std::optional<QString>> faltaCodigo(const EntradaAlta& e);
  Resultado<std::optional<QString>> faltaDepartamento(const EntradaAlta& e);
  articles::Articulo articuloDe(const EntradaAlta& e) const;

  dao::Database& db_;
  articles::Catalogo& catalogo_;
  FormaAlta forma_;
};

}  // namespace tarvo::precios
