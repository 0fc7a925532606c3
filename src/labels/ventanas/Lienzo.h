// The canvas of the editor: the printed area of a format inside the paper, with rulers in dots and
// millimetres. It shows a format and reports what is done to it; it changes none itself.
#pragma once

#include <QAbstractScrollArea>
#include <QPixmap>

#include "labels/Colocacion.h"

namespace tarvo::labels {

inline constexpr int kAnchoPapel = kAnchoCabezal - 1,
                     kLargoPapel = kLargoEtiqueta - 1;  // its size, dots
inline constexpr int kPuntosPorMm = 8;
inline constexpr int kZoomMenor = 50, kZoomMayor = 800;  // per cent

class Regla;

class Lienzo final : public QAbstractScrollArea {
  Q_OBJECT
 public:
  explicit Lienzo(QWidget* padre = nullptr);

  // REQUIRES that the font outlives it.
  void ponerFuente(const FuenteImpresora& fuente) { fuente_ = &fuente; }
  void poner(const Formato& formato, const LectorTextos& textos);
  void ponerZoom(int porCiento);  // the middle of the view stays
  int zoom() const { return zoom_; }
  void ponerIman(bool si) { iman_ = si; }
  void elegir(std::vector<size_t> cuales);
  const std::vector<size_t>& elegidos() const { return elegidos_; }
  // Where a dot is in the viewport; its top left corner.
  QPointF enVista(QPointF punto) const;
  QRect cajaDelCampo(size_t cual) const { return cajas_[cual]; }

 Q_SIGNALS:
  void eleccion(const std::vector<size_t>& cuales);
  // What the user has made of the format; `sigue`: a repeat of a held key.
  void hecho(const tarvo::labels::Formato& formato, bool sigue);
  void pidePropiedades();
  void apuntado(const QPoint& punto);  // under the pointer, in dots
  void movido(const QPoint& punto);    // where a field being moved is
  void zoomCambiado(int porCiento);

 private:
  enum class Arrastre { Nada, Campos, Esquina, BordeX, BordeY, Marco };

  QPointF enPuntos(QPointF vista) const;
  double escala() const { return zoom_ / 100.0; }
  QSize tamanoVisto() const;
  QPoint origen() const;  // of the paper, in the viewport
  int bajo(QPointF vista) const;
  Arrastre quePuede(QPointF vista) const;
  QRect asa(size_t cual) const;
  QRect vistaDe(const QRect& puntos) const;

  void medir();
  void reposar();
  void arrastrar(QPointF vista, Qt::KeyboardModifiers mandos);
  void moverCampos(QPoint cuanto, bool pegarse);
  QRegion guias() const;
  void recalcular(size_t cual);
  void soltar();
  void abandonar();
  void hacerVisible(size_t cual);
  const QPixmap& dibujo(size_t cual);
  void pintarCampo(QPainter& p, size_t cual);
  void pintarFondo(QPainter& p);

  void paintEvent(QPaintEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;
  void scrollContentsBy(int dx, int dy) override;
  void mousePressEvent(QMouseEvent* evento) override;
  void mouseMoveEvent(QMouseEvent* evento) override;
  void mouseReleaseEvent(QMouseEvent* evento) override;
  void mouseDoubleClickEvent(QMouseEvent* evento) override;
  void wheelEvent(QWheelEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;

  // The picture of a field at this zoom, kept while it looks the same.
  struct Dibujado {
    CampoEtiqueta como;  // at the origin
    QString contenido;
    int zoom = 0;
    QPixmap imagen;
  };

  const FuenteImpresora* fuente_ = nullptr;
  Formato formato_, antes_;  // as shown, and before what is being dragged
  LectorTextos textos_ = [](int) { return QString(); };
  std::vector<QRect> cajas_;
  std::vector<Dibujado> dibujados_;
  std::vector<size_t> elegidos_, elegidosAntes_;
  int zoom_ = 200;
  bool iman_ = true;
  Arrastre arrastre_ = Arrastre::Nada;
  bool empezado_ = false;
  std::optional<size_t> pulsado_;  // a chosen field that was pressed alone
  QPointF desde_;                  // of the drag, in dots
  QRect marco_;                    // of a selection being drawn, in the viewport
  std::optional<int> guiaX_, guiaY_;
  Regla *reglaX_, *reglaY_;
};

}  // namespace tarvo::labels
