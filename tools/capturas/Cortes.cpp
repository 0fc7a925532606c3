#include "capturas/Cortes.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QFocusFrame>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QToolButton>

#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::capturas {

namespace {

QString nombreDe(const QWidget& w) {
  QStringList partes;
  for (const QWidget* p = &w; p && !p->isWindow(); p = p->parentWidget())
    if (!p->objectName().isEmpty()) partes.prepend(p->objectName());
  partes.prepend(QString::fromLatin1(w.metaObject()->className()));
  return partes.join(u' ');
}

QString falta(const QWidget& w, const QString& texto, int pide, int tiene) {
  return QStringLiteral("%1: «%2» pide %3 y tiene %4")
      .arg(nombreDe(w), texto.left(60))
      .arg(pide)
      .arg(tiene);
}

// A label whose tooltip has the same text may be cut.
void mirarRotulo(const QLabel& l, QStringList& faltas) {
  if (l.text().isEmpty() || !l.pixmap().isNull()) return;
  if (l.wordWrap()) {
    const int alto = l.heightForWidth(l.width());
    if (alto > l.height() + 1) faltas << falta(l, l.text(), alto, l.height());
  } else if (l.toolTip() != l.text() && l.sizeHint().width() > l.width() + 1) {
    faltas << falta(l, l.text(), l.sizeHint().width(), l.width());
  }
}

void mirarBoton(const QAbstractButton& b, QStringList& faltas) {
  if (b.text().isEmpty()) return;
  if (const auto* t = qobject_cast<const QToolButton*>(&b);
      t && t->toolButtonStyle() == Qt::ToolButtonIconOnly)
    return;
  if (b.sizeHint().width() > b.width() + 1)
    faltas << falta(b, b.text(), b.sizeHint().width(), b.width());
  if (b.sizeHint().height() > b.height() + 1)
    faltas << falta(b, b.text(), b.sizeHint().height(), b.height());
}

void mirarCabecera(const QHeaderView& h, QStringList& faltas) {
  if (!h.model() || h.orientation() != Qt::Horizontal) return;
  for (int i = 0; i < h.count(); ++i)
    if (!h.isSectionHidden(i) && h.sectionSizeHint(i) > h.sectionSize(i) + 1)
      faltas << falta(h, h.model()->headerData(i, Qt::Horizontal).toString(), h.sectionSizeHint(i),
                      h.sectionSize(i));
}

void mirarPestanas(const QTabBar& b, QStringList& faltas) {
  int pide = 0;
  for (int i = 0; i < b.count(); ++i) pide += b.tabRect(i).width();
  if (pide > b.width() + 1) faltas << falta(b, b.tabText(b.count() - 1), pide, b.width());
}

void mirarLista(const QComboBox& c, QStringList& faltas) {
  const int pide = c.fontMetrics().horizontalAdvance(c.currentText()) + c.height() / 2;
  if (pide > c.width()) faltas << falta(c, c.currentText(), pide, c.width());
}

void mirarGrupo(const QGroupBox& g, QStringList& faltas) {
  const int pide =
      g.fontMetrics().horizontalAdvance(g.title()) + ventanas::escalar(2 * ventanas::kHueco);
  if (pide > g.width()) faltas << falta(g, g.title(), pide, g.width());
}

// Outside its parent, unless that one scrolls.
void mirarSitio(const QWidget& w, QStringList& faltas) {
  const QWidget* padre = w.parentWidget();
  if (!padre || w.isWindow() || qobject_cast<const QFocusFrame*>(&w)) return;
  for (const QWidget* p = padre; p; p = p->parentWidget())
    if (qobject_cast<const QAbstractScrollArea*>(p) || qobject_cast<const QLineEdit*>(p)) return;
  if (w.width() > 0 && !padre->rect().contains(w.geometry()))
    faltas << QStringLiteral("%1: se sale de %2").arg(nombreDe(w), nombreDe(*padre));
}

template <class C>
bool mirarSi(const QWidget& w, void (*mirar)(const C&, QStringList&), QStringList& faltas) {
  const auto* c = qobject_cast<const C*>(&w);
  if (c) mirar(*c, faltas);
  return c != nullptr;
}

// The text whose marked letter, with Alt, reaches this control; empty if there is none.
QString textoConLetra(const QWidget& w) {
  if (const auto* b = qobject_cast<const QAbstractButton*>(&w)) return b->text();
  if (const auto* l = qobject_cast<const QLabel*>(&w)) return l->buddy() ? l->text() : QString();
  if (const auto* g = qobject_cast<const QGroupBox*>(&w)) return g->title();
  return {};
}

}  // namespace

QStringList letrasRepetidas(const QWidget& ventana) {
  QStringList faltas;
  QHash<QKeySequence, QString> vistas;
  const auto anotar = [&](const QString& texto) {
    const QKeySequence letra = QKeySequence::mnemonic(texto);
    if (letra.isEmpty()) return;
    if (vistas.contains(letra))
      faltas << QStringLiteral("«%1» y «%2» piden la misma letra").arg(vistas[letra], texto);
    vistas.insert(letra, texto);
  };
  for (const QWidget* w : ventana.findChildren<QWidget*>()) {
    if (!w->isVisible()) continue;
    anotar(textoConLetra(*w));
    if (const auto* barra = qobject_cast<const QMenuBar*>(w))
      for (const QAction* a : barra->actions()) anotar(a->text());
    if (const auto* pestanas = qobject_cast<const QTabBar*>(w))
      for (int i = 0; i < pestanas->count(); ++i) anotar(pestanas->tabText(i));
  }
  return faltas;
}

QStringList cortes(const QWidget& ventana) {
  QStringList faltas = letrasRepetidas(ventana);
  for (const QWidget* w : ventana.findChildren<QWidget*>()) {
    if (!w->isVisible()) continue;
    mirarSitio(*w, faltas);
    mirarSi<QLabel>(*w, mirarRotulo, faltas) || mirarSi<QAbstractButton>(*w, mirarBoton, faltas) ||
        mirarSi<QHeaderView>(*w, mirarCabecera, faltas) ||
        mirarSi<QTabBar>(*w, mirarPestanas, faltas) || mirarSi<QComboBox>(*w, mirarLista, faltas) ||
        mirarSi<QGroupBox>(*w, mirarGrupo, faltas);
  }
  return faltas;
}

}  // namespace tarvo::capturas
