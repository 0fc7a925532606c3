// The spacing and type scale of every window. Lengths are pixels at 100 % font scale; escalar()
// converts one to the current scale. No window contains a length of its own.
#pragma once

#include <QWidget>

namespace tarvo::ventanas {

inline constexpr int kPaso = 4;  // every distance is a multiple of it
inline constexpr int kHueco = 2 * kPaso;
inline constexpr int kMargen = 3 * kPaso;
inline constexpr int kSeparacion = 4 * kPaso;
inline constexpr int kAltoFila = 28;
inline constexpr int kAltoControl = 28;
inline constexpr int kIcono = 16;
inline constexpr int kIconoGrande = 24;
inline constexpr int kFoco = 2;  // width of the focus ring
inline constexpr int kRedondo = kPaso;

// Font sizes, in points.
inline constexpr double kLetra = 10;
inline constexpr double kLetraSecundaria = 9;
inline constexpr double kLetraTitulo = 14;
inline constexpr double kLetraCifra = 22;  // key figures

// Scales a length to the program's current font: by the ratio of its size to kLetra.
int escalar(int pixeles);

// Gives a label one of the fonts of the type scale; the style sheet of Tema does the rest.
enum class Letra { Normal, Secundaria, Titulo, Cifra };
void ponerLetra(QWidget& control, Letra letra);

}  // namespace tarvo::ventanas
