#include "core/ventanas/aspecto/Medidas.h"

#include <QApplication>
#include <QScreen>
#include <QVariant>

namespace tarvo::ventanas {

namespace {
constexpr double kPuntosNormales = 96;  // dots per inch of an ordinary screen
}

int escalar(int pixeles) {
  const QScreen* pantalla = QGuiApplication::primaryScreen();
  const double puntos = QApplication::font().pointSizeF() / kLetra;
  return qRound(pixeles * puntos *
                (pantalla ? pantalla->logicalDotsPerInchY() / kPuntosNormales : 1));
}

void ponerLetra(QWidget& control, Letra letra) {
  static constexpr const char* kNombres[] = {"normal", "secundaria", "titulo", "cifra"};
  control.setProperty("letra", QLatin1String(kNombres[static_cast<size_t>(letra)]));
}

}  // namespace tarvo::ventanas
