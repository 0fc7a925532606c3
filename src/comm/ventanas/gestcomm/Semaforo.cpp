#include "comm/ventanas/gestcomm/Semaforo.h"

#include <QPainter>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::comm {

using ventanas::colorDe;
using ventanas::escalar;
using ventanas::Tinte;

namespace {

constexpr int kLampara = 3 * ventanas::kPaso;
constexpr int kMarcoSemaforo = ventanas::kPaso;

}  // namespace

Semaforo::Semaforo(QWidget* padre) : QWidget(padre) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

bool Semaforo::parpadea(int estadoCanal) {
  return estadoCanal == 4 || estadoCanal == 8 || estadoCanal == 9;
}

Semaforo::Cara Semaforo::caraDe(int estadoCanal, bool encendido) {
  switch (estadoCanal) {
    case 1:
    case 3:
    case 10:
      return Libre;
    case 2:
    case 5:
    case 6:
    case 7:
      return Ocupado;
    case 4:
    case 8:
    case 9:
      return encendido ? Fallo : Oscura;
    default:
      return Oscura;
  }
}

void Semaforo::ponerCara(Cara cara) {
  if (cara == cara_) return;
  cara_ = cara;
  update();
}

QSize Semaforo::sizeHint() const {
  const int lado = escalar(kLampara), marco = escalar(kMarcoSemaforo);
  return {lado + 2 * marco, 3 * lado + 4 * marco};
}

// From top to bottom: failed, busy, free.
void Semaforo::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QRectF caja = QRectF(QPointF(), QSizeF(sizeHint())).adjusted(0.5, 0.5, -0.5, -0.5);
  p.setPen(QPen(colorDe(Tinte::Borde), 1));
  p.setBrush(colorDe(Tinte::Fondo));
  p.drawRoundedRect(caja, ventanas::kRedondo, ventanas::kRedondo);
  const std::pair<Cara, Tinte> lamparas[] = {
      {Fallo, Tinte::Mal}, {Ocupado, Tinte::Duda}, {Libre, Tinte::Bien}};
  const double lado = escalar(kLampara), marco = escalar(kMarcoSemaforo);
  double y = marco;
  for (const auto& [cara, tinte] : lamparas) {
    const bool luce = cara == cara_;
    p.setPen(QPen(colorDe(luce ? tinte : Tinte::Linea), 1));
    p.setBrush(luce ? colorDe(tinte) : colorDe(Tinte::Fondo));
    p.drawEllipse(QRectF(marco + 0.5, y + 0.5, lado - 1, lado - 1));
    y += lado + marco;
  }
}

}  // namespace tarvo::comm
