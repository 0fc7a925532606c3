// The choices of fast entry and fast change, as the settings ParrillaRápida, ModoIntroRápido,
// PrefijoCódigos, NúmPreciosAlta and NúmTarifasAlta keep them.
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

class ParrillaRapida {
 public:
  // As a shop has it that never chose: code and name to see, the first price to change.
  ParrillaRapida();
  // The 22 values of the setting. One that is missing or makes no sense takes its default.
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

// What Enter does among the prices of the fast change.
enum class ModoIntro { Precio, Tarifa, PLU };
ModoIntro leerModoIntro(int ajuste);  // PLU for a number that is none
ModoIntro siguiente(ModoIntro modo);

struct Celda {
  int nivel = 0, tarifa = 0;
  bool operator==(const Celda&) const = default;
};
// Where Enter goes from a price within the same article, round the ends; nothing: to the next one.
std::optional<Celda> trasIntro(ModoIntro modo, Celda celda);

// How many digits begin each code, and the size of the grid of prices of the fast entry.
class FormaAlta {
 public:
  FormaAlta() = default;  // no prefix, all prices of all tarifas
  enum class Mal { PrefijoNoNumerico, PrefijoLargo, Precios, Tarifas };
  static std::expected<FormaAlta, Mal> de(const QString& prefijo, int precios, int tarifas);
  // From the settings; what makes no sense there takes its default.
  static FormaAlta leer(const AjustesPrecios& ajustes);

  const QString& prefijo() const { return prefijo_; }
  int precios() const { return precios_; }
  int tarifas() const { return tarifas_; }
  // Digits that a person types at most.
  int cifras() const { return kCifras - static_cast<int>(prefijo_.size()); }
  // Prefix and digits as they are shown, seven digits; nothing when the text is no number that
  // fits.
  std::optional<QString> codigo(QStringView tecleado) const;

 private:
  static constexpr int kCifras = 7;
  QString prefijo_;
  int precios_ = articles::kNiveles, tarifas_ = articles::kTarifas;
};

}  // namespace tarvo::precios
