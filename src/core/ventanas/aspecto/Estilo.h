// The drawing that a style sheet can't do: check boxes and radio buttons, frames of fields, the
// margin of the focus ring, the frame of the current cell of a list.
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

// The style sheet of a theme, with lengths scaled to the current font.
QString hojaEstilo(int cara);

}  // namespace tarvo::ventanas
