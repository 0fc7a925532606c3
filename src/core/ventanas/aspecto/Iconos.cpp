#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

// Paints the drawing in the current colours, so that a change of theme needs no new icons.
class MotorIcono final : public QIconEngine {
 public:
  MotorIcono(QString nombre, Tinte tinte, QByteArray dibujo)
      : nombre_(std::move(nombre)), tinte_(tinte), dibujo_(std::move(dibujo)) {}

  void paint(QPainter* pintor, const QRect& donde, QIcon::Mode modo, QIcon::State) override {
    QByteArray svg = dibujo_;
    svg.replace("currentColor", color(modo).name().toLatin1());
    QSvgRenderer(svg).render(pintor, QRectF(donde));
  }

  QPixmap pixmap(const QSize& tamano, QIcon::Mode modo, QIcon::State estado) override {
    const QString clave =
        u"%1/%2/%3x%4"_s.arg(nombre_, color(modo).name()).arg(tamano.width()).arg(tamano.height());
    QPixmap hecho;
    if (QPixmapCache::find(clave, &hecho)) return hecho;
    hecho = QPixmap(tamano);
    hecho.fill(Qt::transparent);
    QPainter pintor(&hecho);
    paint(&pintor, QRect(QPoint(), tamano), modo, estado);
    pintor.end();
    QPixmapCache::insert(clave, hecho);
    return hecho;
  }

  QString key() const override { return u"tarvo"_s; }
  QIconEngine* clone() const override { return new MotorIcono(nombre_, tinte_, dibujo_); }

 private:
  QColor color(QIcon::Mode modo) const {
    if (modo == QIcon::Disabled) return colorDe(Tinte::TextoPalido);
    if (modo == QIcon::Selected && tinte_ == Tinte::Texto) return colorDe(Tinte::TextoSeleccion);
    return colorDe(tinte_);
  }

  QString nombre_;
  Tinte tinte_;
  QByteArray dibujo_;
};

QIcon iconoDe(const QString& nombre, Tinte tinte) {
  QFile fichero(u":/iconos/"_s + nombre + u".svg"_s);
  if (nombre.isEmpty() || !fichero.open(QIODevice::ReadOnly)) return {};
  return QIcon(new MotorIcono(nombre, tinte, fichero.readAll()));
}

}  // namespace

QIcon icono(const QString& nombre) {
  return iconoDe(nombre, Tinte::Texto);
}

QIcon iconoEstado(Estado estado) {
  switch (estado) {
    case Estado::Bien:
      return iconoDe(u"bien"_s, Tinte::Bien);
    case Estado::Duda:
      return iconoDe(u"duda"_s, Tinte::Duda);
    case Estado::Mal:
      return iconoDe(u"mal"_s, Tinte::Mal);
    case Estado::Ninguno:
      break;
  }
  return {};
}

}  // namespace tarvo::ventanas
