#include "groups/ventanas/DibujoEnlace.h"

#include <QPainter>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using ventanas::escalar, ventanas::icono, ventanas::Tinte;

namespace {

constexpr int kAlto = 27, kLado = 24, kLadoAcceso = 18;

QIcon dibujoDe(std::optional<TipoAcceso> acceso) {
  switch (acceso.value_or(TipoAcceso::Ninguno)) {
    case TipoAcceso::Ninguno:
      return icono(u"desconectado"_s);
    case TipoAcceso::Modem:
      return icono(u"modem"_s);
    case TipoAcceso::Directo:
      return icono(u"conectado"_s);
    case TipoAcceso::TcpIp:
    case TipoAcceso::Conector:
      return icono(u"linea"_s);
  }
  std::unreachable();
}

}  // namespace

DibujoEnlace::DibujoEnlace(QWidget* padre) : QWidget(padre) {
  setFixedHeight(escalar(kAlto));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void DibujoEnlace::poner(std::optional<TipoAcceso> acceso, const QString& texto,
                         const QString& maquina, int cuantas) {
  acceso_ = acceso, texto_ = texto, maquina_ = maquina, cuantas_ = cuantas;
  setAccessibleName(texto);
  update();
}

void DibujoEnlace::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const int lado = escalar(kLado), borde = escalar(ventanas::kMargen), eje = lado / 2 + 2;
  const bool comunica = acceso_ && *acceso_ != TipoAcceso::Ninguno;
  const int maquinas = std::max(1, std::min(cuantas_, 4));
  const int desde = borde + lado, hasta = width() - borde - maquinas * lado;
  p.setPen(QPen(ventanas::colorDe(comunica ? Tinte::Acento : Tinte::TextoPalido), escalar(2),
                comunica ? Qt::SolidLine : Qt::DashLine));
  p.drawLine(desde + 4, eje, hasta - 4, eje);
  icono(u"ordenador"_s).paint(&p, QRect(borde, 2, lado, lado));
  for (int i = 0; i < maquinas; ++i)
    icono(maquina_).paint(&p, QRect(hasta + i * lado, 2, lado, lado), Qt::AlignCenter,
                          cuantas_ > 0 ? QIcon::Normal : QIcon::Disabled);
  const int acceso = escalar(kLadoAcceso), centro = desde + (hasta - desde) / 4;
  const QRect sitio(centro - acceso / 2, eje - acceso / 2, acceso, acceso);
  p.fillRect(sitio.adjusted(-4, -2, 4, 2), palette().window());
  dibujoDe(acceso_).paint(&p, sitio);
  const QString texto =
      fontMetrics().elidedText(texto_, Qt::ElideRight, hasta - sitio.right() - 2 * borde);
  const int ancho = fontMetrics().horizontalAdvance(texto) + 8;
  const QRect dicho(sitio.right() + borde, 0, ancho, 2 * eje);
  p.fillRect(dicho, palette().window());
  p.setPen(ventanas::colorDe(Tinte::TextoPalido));
  p.drawText(dicho, Qt::AlignCenter, texto);
}

}  // namespace tarvo::groups
