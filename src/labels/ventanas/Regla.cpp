#include "labels/ventanas/Regla.h"

#include <QPainter>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "labels/ventanas/Lienzo.h"

namespace tarvo::labels {

using namespace ventanas;

namespace {

constexpr int kSepara = 44;  // pixels at least between two numbers

// The smallest step of 1, 2 or 5 times a power of ten that keeps the numbers apart.
int paso(double pixelesPorUnidad) {
  for (int p = 1;; p *= 10)
    for (const int n : {1, 2, 5})
      if (p * n * pixelesPorUnidad >= escalar(kSepara)) return p * n;
}

}  // namespace

Regla::Regla(Qt::Orientation sentido, QWidget* padre) : QWidget(padre), sentido_(sentido) {
  ponerLetra(*this, Letra::Secundaria);
}

int Regla::grueso() {
  return escalar(kAltoFila + kPaso);
}

void Regla::poner(double cero, double escala, int primero, int ultimo) {
  cero_ = cero, escala_ = escala, primero_ = primero, ultimo_ = ultimo;
  update();
}

void Regla::senalar(int punto) {
  if (punto == senal_) return;
  senal_ = punto;
  update();
}

// Those of the vertical ruler are turned, so that it is as thin as the other one.
void Regla::numero(QPainter& p, double donde, int valor, bool fuera) const {
  const int medio = grueso() / 2, largo = escalar(kSepara);
  const QString texto = QString::number(valor);
  const QRectF sitio(escalar(kPaso) / 2.0, fuera ? 0 : medio, largo, medio);
  p.save();
  if (sentido_ == Qt::Horizontal) {
    p.translate(donde, 0);
  } else {
    p.translate(0, donde);
    p.rotate(-90);
    p.translate(-largo - escalar(kPaso), 0);
  }
  p.drawText(sitio,
             (sentido_ == Qt::Horizontal ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter,
             texto);
  p.restore();
}

void Regla::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const bool ancha = sentido_ == Qt::Horizontal;
  const int g = grueso();
  p.fillRect(rect(), colorDe(Tinte::Base));
  p.setPen(colorDe(Tinte::Linea));
  const auto raya = [&](double donde, int desde, int hasta) {
    const auto d = static_cast<int>(donde);
    ancha ? p.drawLine(d, desde, d, hasta) : p.drawLine(desde, d, hasta, d);
  };
  ancha ? p.drawLine(0, g - 1, width(), g - 1) : p.drawLine(g - 1, 0, g - 1, height());
  for (const bool puntos : {true, false}) {
    const double unidad = puntos ? escala_ : escala_ * kPuntosPorMm;
    const int cada = paso(unidad);
    const int ultimo = puntos ? ultimo_ : ultimo_ / kPuntosPorMm;
    for (int n = puntos ? primero_ : primero_ / kPuntosPorMm; n <= ultimo; ++n) {
      if (n % cada != 0) continue;
      const double donde = cero_ + n * unidad;
      p.setPen(colorDe(Tinte::Borde));
      raya(donde, puntos ? 0 : g / 2, puntos ? g / 2 : g);
      p.setPen(colorDe(puntos ? Tinte::TextoPalido : Tinte::Texto));
      numero(p, donde, n, puntos);
    }
  }
  if (senal_ < 0) return;
  p.setPen(QPen(colorDe(Tinte::Acento), kFoco));
  raya(cero_ + senal_ * escala_, 0, g);
}

}  // namespace tarvo::labels
