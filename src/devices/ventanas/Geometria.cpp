#include "devices/ventanas/Geometria.h"

#include <cmath>

#include "devices/Modelos.h"

namespace tarvo::devices {

namespace {

constexpr double kMargen = 0.35;   // of the casing around the keys
constexpr double kPasillo = 0.35;  // between groups of keys
constexpr double kCabecera = 1.0;  // the band of the display

// A block of keys: how many, across or down, and the columns and rows before which there is an
// aisle.
struct Bloque {
  int columnas, filas, teclas;
  bool haciaAbajo;
  int pasilloColumna = 0, pasilloFila = 0;
};

struct Obra {
  Geometria g;
  double izquierda = kMargen, arriba = kMargen + kCabecera;

  static double conPasillo(int i, int pasillo) {
    return i + (pasillo > 0 && i >= pasillo ? kPasillo : 0);
  }
  void bloque(const Bloque& b, double dx = 0, double dy = 0) {
    QRectF todas;
    for (int i = 0; i < b.teclas; ++i) {
      const int x = b.haciaAbajo ? i / b.filas : i % b.columnas;
      const int y = b.haciaAbajo ? i % b.filas : i / b.columnas;
      const QRectF una(izquierda + dx + conPasillo(x, b.pasilloColumna),
                       arriba + dy + conPasillo(y, b.pasilloFila), 1, 1);
      g.teclas.push_back(una);
      todas |= una;
    }
    if (b.pasilloColumna > 0) {
      const double corte = izquierda + dx + b.pasilloColumna;
      zona({todas.topLeft(), QPointF(corte, todas.bottom())});
      zona({QPointF(corte + kPasillo, todas.top()), todas.bottomRight()});
    } else if (b.pasilloFila > 0) {
      const double corte = arriba + dy + b.pasilloFila;
      zona({todas.topLeft(), QPointF(todas.right(), corte)});
      zona({QPointF(todas.left(), corte + kPasillo), todas.bottomRight()});
    } else {
      zona(todas);
    }
  }
  void zona(const QRectF& r) { g.zonas.push_back(r.adjusted(-0.1, -0.1, 0.1, 0.1)); }
  Geometria acabar() {
    QRectF todas;
    for (const QRectF& r : g.teclas) todas |= r;
    g.tamano = {todas.right() + kMargen, todas.bottom() + kMargen};
    g.visor = {g.tamano.width() * 0.3, kMargen * 0.8, g.tamano.width() * 0.4, kCabecera * 0.7};
    return std::move(g);
  }
};

constexpr int kTotalRowan = 117;  // the last row has a key less: this one is twice as wide

Geometria rowan() {
  Obra o;
  o.bloque({.columnas = 14, .filas = 9, .teclas = 125, .haciaAbajo = true, .pasilloColumna = 10});
  o.g.teclas[kTotalRowan - 1].setWidth(2);
  return o.acabar();
}

Geometria birch(ArregloBirch arreglo) {
  constexpr double kSeparada = 1 + kPasillo;
  Obra o;
  const bool lados = arreglo == ArregloBirch::ALosLados, arriba = arreglo == ArregloBirch::Arriba;
  o.bloque({.columnas = 14, .filas = 4, .teclas = 56, .haciaAbajo = false, .pasilloColumna = 9},
           lados ? kSeparada : 0, arriba ? kSeparada : 0);
  const double fila = arriba ? 0 : 4 + kPasillo;
  if (lados) {
    o.bloque({.columnas = 1, .filas = 4, .teclas = 4, .haciaAbajo = true});
    o.bloque({.columnas = 2, .filas = 3, .teclas = 6, .haciaAbajo = true},
             kSeparada + 14 + 2 * kPasillo);
  } else {
    o.bloque({.columnas = 4, .filas = 1, .teclas = 4, .haciaAbajo = false}, 0, fila);
    o.bloque({.columnas = 6, .filas = 1, .teclas = 6, .haciaAbajo = false}, 8 + kPasillo, fila);
  }
  return o.acabar();
}

Geometria deBloque(const Bloque& b) {
  Obra o;
  o.bloque(b);
  return o.acabar();
}

}  // namespace

Geometria geometriaDe(int modelo, ArregloBirch arreglo) {
  switch (modelo) {
    case kRowan:
      return rowan();
    case kMaple:
      return deBloque({.columnas = 12, .filas = 8, .teclas = 96, .haciaAbajo = true});
    case kCedar:
      return deBloque(
          {.columnas = 10, .filas = 8, .teclas = 80, .haciaAbajo = true, .pasilloFila = 5});
    case kAspen:
    case kHazel:
    case kLarch:
      return deBloque(
          {.columnas = 14, .filas = 6, .teclas = 84, .haciaAbajo = true, .pasilloColumna = 9});
    case kEbony:
      return deBloque({.columnas = 7, .filas = 4, .teclas = 28, .haciaAbajo = false});
    case kBirch:
      return birch(arreglo);
    default:
      return {};
  }
}

int teclaEn(const Geometria& g, QPointF punto) {
  for (size_t i = 0; i < g.teclas.size(); ++i)
    if (g.teclas[i].contains(punto)) return static_cast<int>(i) + 1;
  return 0;
}

int vecina(const Geometria& g, int tecla, Rumbo rumbo) {
  constexpr double kDeLado = 3;  // a key aside counts as so much farther
  const QPointF aqui = g.tecla(tecla).center();
  int mejor = tecla;
  double cuanto = HUGE_VAL;
  for (int n = 1; n <= static_cast<int>(g.teclas.size()); ++n) {
    const QPointF d = g.tecla(n).center() - aqui;
    const bool acostado = rumbo == Rumbo::Izquierda || rumbo == Rumbo::Derecha;
    const double sentido = rumbo == Rumbo::Izquierda || rumbo == Rumbo::Arriba ? -1 : 1;
    const double adelante = sentido * (acostado ? d.x() : d.y());
    const double lado = std::abs(acostado ? d.y() : d.x());
    if (n == tecla || adelante < 0.4) continue;
    if (const double coste = adelante + kDeLado * lado; coste < cuanto) {
      cuanto = coste;
      mejor = n;
    }
  }
  return mejor;
}

}  // namespace tarvo::devices
