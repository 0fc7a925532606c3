// A label format: where a scale prints each value on an adhesive label, in dots of its head. Reads,
// checks and writes its text, which is the same in the database, on the clipboard and in frames.
// Layout: docs/formatos.md.
#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace tarvo::labels {

inline constexpr int kAnchoCabezal = 192, kLargoEtiqueta = 466;  // dots
inline constexpr int kCamposMaximos = 30;
inline constexpr QStringView kCabeceraFormato = u"00";  // begins the text of a whole format

enum class TipoCampo : int {
  Peso = 1,
  Precio = 2,
  Importe = 3,
  Tara = 4,
  Unidades = 5,
  CodigoDeBarras = 6,
  NombrePlu = 7,
  Descripcion = 8,
  Fecha = 9,
  Caducidad1 = 10,
  Caducidad2 = 11,
  LineaGrafica = 12,
  LineaTexto = 13,
  CodigoPlu = 14,
  Rectangulo = 15,
  RazonSocial = 16,
  PrecioAlternativo = 17,
  ImporteAlternativo = 18,
};
constexpr bool esTexto(TipoCampo t) {
  return t != TipoCampo::CodigoDeBarras && t != TipoCampo::LineaGrafica &&
         t != TipoCampo::Rectangulo;
}
// How many fields of its sort a format can have.
int reservaDe(TipoCampo tipo);

// Positions in dots; a position may be negative while a person edits it.
struct CampoEtiqueta {
  TipoCampo tipo = TipoCampo::Peso;
  int X = 0, Y = 5;
  int fuente = 0;    // 0 to 4, of texts
  int rotacion = 0;  // quarter turns clockwise, 0 to 3
  int Ntxt = 0;      // number of a text line's text
  int Altu = 30;     // of a bar code
  int Lon = 100;     // of a line
  int Esp = 1;       // thickness of a line or a rectangle
  int X2 = 100, Y2 = 30;
  int NmL = 1;  // line of the ticket header
  bool fuera() const { return X < 0 || Y < 0; }
  bool operator==(const CampoEtiqueta&) const = default;
};

struct Formato {
  int x0 = kAnchoCabezal - 1;  // width of the printed area, 1 to 191
  int y0 = 0;                  // its offset along the paper, 0 to 465
  std::vector<CampoEtiqueta> campos;
  bool operator==(const Formato&) const = default;

  // Nothing when a field has a negative position.
  std::optional<QString> texto() const;
  // Whether another field of that type fits: at most 30 in all, and its sort's own limit.
  bool cabeOtro(TipoCampo tipo) const;
  // Removes the last fields above those limits; returns how many.
  int recortar();
};

// The text of a format, or of the clipboard with the name of its text set.
struct FormatoLeido {
  Formato formato;
  std::optional<QString> juego;  // named, and perhaps empty; nothing where no line names one
};
// Nothing when a line isn't one of a format: of 15 digits, each number within its limits. A line
// may end without its CR, as after an editor.
std::optional<FormatoLeido> leerFormato(const QString& texto);
// For the clipboard. Nothing as for texto().
std::optional<QString> paraCopiar(const Formato& formato, const QString& juego);

}  // namespace tarvo::labels
