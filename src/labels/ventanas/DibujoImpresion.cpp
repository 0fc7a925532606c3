#include "labels/ventanas/DibujoImpresion.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include "core/ajustes/Ficheros.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "labels/ventanas/Lienzo.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kLadoMayor = 3, kLadoPng = 4, kPuntosPorMetro = kPuntosPorMm * 1000;

QByteArray enPng(const Impresion& impresion) {
  QImage imagen = imagenDe(impresion, kLadoPng);
  imagen.setDotsPerMeterX(kPuntosPorMetro * kLadoPng);
  imagen.setDotsPerMeterY(kPuntosPorMetro * kLadoPng);
  QByteArray bytes;
  QBuffer fichero(&bytes);
  return imagen.save(&fichero, "PNG") ? bytes : QByteArray();
}

QByteArray enPdf(const Impresion& impresion) {
  QByteArray bytes;
  QBuffer fichero(&bytes);
  fichero.open(QIODevice::WriteOnly);
  QPdfWriter pdf(&fichero);
  const QSizeF mm = QSizeF(impresion.area) / kPuntosPorMm;
  pdf.setPageSize(QPageSize(mm, QPageSize::Millimeter, {}, QPageSize::ExactMatch));
  pdf.setPageMargins({});
  QPainter p(&pdf);
  p.drawImage(QRect(0, 0, pdf.width(), pdf.height()), imagenDe(impresion, kLadoPng));
  p.end();
  return bytes;
}

}  // namespace

QImage imagenDe(const Impresion& impresion, int lado) {
  QImage puntos(impresion.area, QImage::Format_RGB32);
  if (puntos.isNull()) return puntos;
  puntos.fill(Qt::white);
  for (int y = 0; y < puntos.height(); ++y)
    for (int x = 0; x < puntos.width(); ++x)
      if (impresion.negro(x, y)) puntos.setPixel(x, y, qRgb(0, 0, 0));
  return puntos.scaled(puntos.size() * lado);
}

Resultado<> guardarImpresion(const Impresion& impresion, const QString& ruta,
                             const QString& noSePudo) {
  const bool pdf = ruta.endsWith(u".pdf"_s, Qt::CaseInsensitive);
  const QByteArray bytes = impresion.area.isEmpty() ? QByteArray()
                           : pdf                    ? enPdf(impresion)
                                                    : enPng(impresion);
  if (bytes.isEmpty()) return fallo(Fallo::Formato, noSePudo);
  return ficheros::escribirEntero(ruta, bytes);
}

void DibujoImpresion::poner(Impresion impresion) {
  impresion_ = std::move(impresion);
  imagen_ = imagenDe(impresion_, 1);
  senalado_ = -1;
  medir();
  update();
}

void DibujoImpresion::senalar(int tropiezo) {
  senalado_ = tropiezo;
  update();
}

void DibujoImpresion::medir() {
  const int aire = 2 * escalar(kSeparacion);
  lado_ = std::clamp((width() - aire) / std::max(1, impresion_.area.width()), 1, kLadoMayor);
  setMinimumSize(impresion_.area.width() + aire, impresion_.area.height() * lado_ + aire);
}

void DibujoImpresion::resizeEvent(QResizeEvent*) {
  medir();
}

void DibujoImpresion::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), colorDe(Tinte::BaseAlterna));
  if (imagen_.isNull()) return;
  const QSize papel = imagen_.size() * lado_;
  const QPoint cero((width() - papel.width()) / 2, escalar(kSeparacion));
  p.drawImage(QRect(cero, papel), imagen_);
  const QColor mal = colorDe(Tinte::Mal);
  for (size_t i = 0; i < impresion_.tropiezos.size(); ++i) {
    const QRect caja = impresion_.campos[impresion_.tropiezos[i].campo].caja;
    const QRect donde(cero + caja.topLeft() * lado_, caja.size() * lado_);
    const bool este = static_cast<int>(i) == senalado_;
    p.setPen(QPen(mal, este ? 2 * kFoco : 1));
    p.drawRect(donde);
    QColor velo = mal;
    velo.setAlpha(60);
    if (este) p.fillRect(donde, velo);
  }
}

}  // namespace tarvo::labels
