// A printed label: on the screen, with what comes out badly outlined, and as a file.
#pragma once

#include <QImage>
#include <QWidget>

#include "core/valores/Resultado.h"
#include "labels/Muestra.h"

namespace tarvo::labels {

// Black on white, each dot `lado` pixels wide.
QImage imagenDe(const Impresion& impresion, int lado);

// ".pdf" at its real size, anything else as a PNG. `noSePudo`: the sentence of a failure.
Resultado<> guardarImpresion(const Impresion& impresion, const QString& ruta,
                             const QString& noSePudo);

// As wide as there is room, in whole pixels for each dot, so that bars stay sharp; as high as it
// then needs. For a scroll area.
class DibujoImpresion final : public QWidget {
  Q_OBJECT
 public:
  explicit DibujoImpresion(QWidget* padre = nullptr) : QWidget(padre) {}
  void poner(Impresion impresion);
  const Impresion& impresion() const { return impresion_; }
  void senalar(int tropiezo);  // -1 for none

 private:
  void medir();
  void paintEvent(QPaintEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;

  Impresion impresion_;
  QImage imagen_;
  int lado_ = 1;  // pixels of a dot
  int senalado_ = -1;
};

}  // namespace tarvo::labels
