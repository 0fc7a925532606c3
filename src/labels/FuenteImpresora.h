// The fonts of the scales' printer, with which the label windows imitate it: LBLFNT.BIN, beside the
// program, or a file of that name in the shop's folder instead. Layout: docs/formatos.md.
#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <optional>

#include "core/textos/Textos.h"

namespace tarvo::labels {

// In dots. Between two characters there are two blank columns.
struct MedidaFuente {
  int ancho = 0, alto = 0;
  constexpr int avance() const { return ancho + 2; }
};
inline constexpr int kFuentes = 5;
inline constexpr std::array<MedidaFuente, kFuentes> kMedidas{
    {{5, 7}, {5, 12}, {5, 18}, {7, 18}, {7, 23}}};
QString nombreDeFuente(int fuente);  // "5x7"

// The text in the printer's codes: letters with an accent that it lacks lose it.
QString caracteresFuente(QString texto);

class FuenteImpresora {
 public:
  static constexpr qsizetype kTamano = 131 * (7 + 12 + 18 + 18 + 23);  // bytes of the file

  // All blank.
  FuenteImpresora() = default;
  // Nothing for bytes of another size, or without a single digit in one of the fonts.
  static std::optional<FuenteImpresora> deBytes(const QByteArray& bytes);

  // Whether a dot of a character is black; false for a code that the font lacks. REQUIRES a font,
  // and a dot within its size.
  bool negro(int fuente, int codigo, int columna, int fila) const;

 private:
  QByteArray bytes_;
};

// The file of the shop's folder, else the one beside the program. `aviso`: what is wrong with
// either, as a sentence; the next one then serves, in the end blank characters.
struct FuenteHallada {
  FuenteImpresora fuente;
  QString aviso = {};
};
FuenteHallada buscarFuente(const QString& deLaTienda, const QString& delPrograma,
                           const Textos& textos);

}  // namespace tarvo::labels
