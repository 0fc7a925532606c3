#include "core/ventanas/parrilla/Pie.h"

#include <QHeaderView>
#include <QPainter>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

Pie::Pie(QHeaderView& cabecera, QWidget* padre) : QWidget(padre), cabecera_(cabecera) {
  setObjectName(u"sumas"_s);
  QSizePolicy politica(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setSizePolicy(politica);
  const auto repintar = [this] { update(); };
  connect(&cabecera, &QHeaderView::sectionResized, this, repintar);
  connect(&cabecera, &QHeaderView::sectionMoved, this, repintar);
  connect(&cabecera, &QHeaderView::geometriesChanged, this, repintar);
  hide();
}

QSize Pie::sizeHint() const {
  return {0, escalar(kAltoFila)};
}

void Pie::poner(QStringList textos, const QString& nombre) {
  textos_ = std::move(textos);
  nombre_ = nombre;
  const bool hay = textos_.join(QString()).size() > 0;
  setVisible(hay);
  QStringList dichos;
  for (const QString& t : textos_)
    if (!t.isEmpty()) dichos << t;
  setAccessibleName(nombre + u": "_s + dichos.join(u", "_s));
  update();
}

void Pie::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), colorDe(Tinte::Fondo));
  QFont letra = font();
  letra.setWeight(QFont::DemiBold);
  p.setFont(letra);
  p.setPen(colorDe(Tinte::Texto));
  const int margen = escalar(kHueco);
  p.drawText(rect().adjusted(margen, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, nombre_);
  for (int c = 0; c < textos_.size(); ++c) {
    if (textos_[c].isEmpty() || cabecera_.isSectionHidden(c)) continue;
    // A sum may be wider than its column: it extends to the left.
    const int derecha = cabecera_.sectionViewportPosition(c) + cabecera_.sectionSize(c) - margen;
    p.drawText(QRect(derecha - width(), 0, width(), height()), Qt::AlignRight | Qt::AlignVCenter,
               textos_[c]);
  }
}

}  // namespace tarvo::ventanas
