// The drawing that a style sheet can't do: the focus ring around whatever has the focus, and room
// in the cells of lists.
#pragma once

#include <QProxyStyle>

namespace tarvo::ventanas {

class Estilo final : public QProxyStyle {
 public:
  Estilo();
  void drawControl(ControlElement que, const QStyleOption* opcion, QPainter* pintor,
                   const QWidget* control) const override;
  void drawPrimitive(PrimitiveElement que, const QStyleOption* opcion, QPainter* pintor,
                     const QWidget* control) const override;
  int pixelMetric(PixelMetric que, const QStyleOption* opcion,
                  const QWidget* control) const override;
  QSize sizeFromContents(ContentsType que, const QStyleOption* opcion, const QSize& contenido,
                         const QWidget* control) const override;
  int styleHint(StyleHint que, const QStyleOption* opcion, const QWidget* control,
                QStyleHintReturn* respuesta) const override;
};

// The style sheet of a face, with lengths for the present font.
QString hojaEstilo(int cara);

}  // namespace tarvo::ventanas
