// The choices of fast entry and fast change, kept in the settings ParrillaRápida, ModoIntroRápido,
// PrefijoCódigos, NúmPreciosAlta and NúmTarifasAlta.
#pragma once

#include <QString>
#include <array>
#include <expected>
#include <optional>

#include "articles/Articulo.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo::precios {

struct AjustesPrecios;

// Columns of the fast change, in their order.
enum class ColumnaRapida {
  Codigo,
  Nombre,
  Precio1,
  Precio2,
  Precio3,
  Departamento,
  CodBarras,
  Etiqueta,
  Dias1,
  Dias2
};
inline constexpr int kColumnasRapidas = 10;
enum class Vista { Invisible, SoloVer, Modificar };

// Fields of the fast entry that may stay from one article to the next, in their order.
enum class CampoFijo { Unidad, Departamento, Formato, CodBarras, Dias1, Dias2 };
inline constexpr int kCamposFijos = 6;
enum class Politica { Limpiar, Mantener, Fijar };

inline constexpr int kPrefijoMayor = 6;  // digits that begin all codes of fast entry

class ParrillaRapida {
 public:
  // The defaults: code and name shown, the first price editable.
  ParrillaRapida();
  // The 22 values of the setting, its numbers 0 to 2.
  static bool esAjuste(QStringView ajuste);
  // A missing or invalid value takes its default.
  static ParrillaRapida leer(QStringView ajuste);
  QString escribir() const;

  Vista vista(ColumnaRapida c) const { return vistas_[en(c)]; }
  void poner(ColumnaRapida c, Vista v) { vistas_[en(c)] = v; }
  Politica politica(CampoFijo c) const { return politicas_[en(c)]; }
  void poner(CampoFijo c, Politica p) { politicas_[en(c)] = p; }
  // The last value of the field, one line without commas.
  const QString& valor(CampoFijo c) const { return valores_[en(c)]; }
  void ponerValor(CampoFijo c, const QString& valor);

  bool operator==(const ParrillaRapida&) const = default;

 private:
  template <class E>
  static std::size_t en(E e) {
    return static_cast<std::size_t>(e);
  }
  std::array<Vista, kColumnasRapidas> vistas_{};
  std::array<Politica, kCamposFijos> politicas_{};
  std::array<QString, kCamposFijos> valores_;
};

// The effect of Enter among the prices of the fast change.
enum class ModoIntro { Precio, Tarifa, PLU };
ModoIntro leerModoIntro(int ajuste);  // PLU for an invalid number
ModoIntro siguiente(ModoIntro modo);

struct Celda {
  int nivel = 0, tarifa = 0;
  bool operator==(const Celda&) const = default;
};
// Where Enter goes from a price within the same article, wrapping round; nothing: to the next
// article.
std::optional<Celda> trasIntro(ModoIntro modo, Celda celda);

// The prefix of each code, and the size of the fast entry's grid of prices.
class FormaAlta {
 public:
  FormaAlta() = default;  // no prefix, all prices of all tarifas
  enum class Mal { PrefijoNoNumerico, PrefijoLargo, Precios, Tarifas };
  static std::expected<FormaAlta, Mal> de(const QString& prefijo, int precios, int tarifas);
  // From the settings; invalid ones take their default.
  static FormaAlta leer(const AjustesPrecios& ajustes);

  const QString& prefijo() const { return prefijo_; }
  int precios() const { return precios_; }
  int tarifas() const { return tarifas_; }
  // The most digits that a person types.
  int cifras() const { return kCifras - static_cast<int>(prefijo_.size()); }
  // Prefix and digits as displayed, seven digits; nothing when the text is not a number that fits.
  std::optional<QString> codigo(QStringView tecleado) const;

 private:
  static constexpr int kCifras = 7;
  QString prefijo_;
  int precios_ = articles::kNiveles, tarifas_ = articles::kTarifas;
};

}  // namespace tarvo::precios
