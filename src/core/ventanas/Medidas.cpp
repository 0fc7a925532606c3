#include "core/ventanas/Medidas.h"

#include <QApplication>
#include <QFontInfo>
#include <QVariant>

namespace tarvo::ventanas {

namespace {
constexpr double kPixelesPorPunto = 96.0 / 72.0;
}

int escalar(int pixeles) {
  const double razon = QFontInfo(QApplication::font()).pixelSize() / (kLetra * kPixelesPorPunto);
  return qRound(pixeles * razon);
}

void ponerLetra(QWidget& control, Letra letra) {
  static constexpr const char* kNombres[] = {"normal", "secundaria", "titulo", "cifra"};
  control.setProperty("letra", QLatin1String(kNombres[static_cast<size_t>(letra)]));
}

}  // namespace tarvo::ventanas
