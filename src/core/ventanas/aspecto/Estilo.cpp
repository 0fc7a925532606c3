#include "core/ventanas/aspecto/Estilo.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusFrame>
#include <QPainter>
#include <QStyleOption>
#include <QToolBar>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {
// The ring is drawn at a distance, so that it is visible on a button of its own colour too.
constexpr int kAnillo = 2 * kFoco;
}  // namespace

Estilo::Estilo() : QProxyStyle(u"Fusion"_s) {}

void Estilo::drawControl(ControlElement que, const QStyleOption* opcion, QPainter* pintor,
                         const QWidget* control) const {
  if (que != CE_FocusFrame) QProxyStyle::drawControl(que, opcion, pintor, control);
  const bool ficha = que == CE_TabBarTabLabel && (opcion->state & State_HasFocus);
  if (que != CE_FocusFrame && !ficha) return;
  pintor->save();
  pintor->setRenderHint(QPainter::Antialiasing);
  pintor->setPen(QPen(colorDe(Tinte::Acento), kFoco));
  pintor->setBrush(Qt::NoBrush);
  const double medio = kFoco / 2.0 + (ficha ? kFoco : 0);  // inside of its tab
  pintor->drawRoundedRect(QRectF(opcion->rect).adjusted(medio, medio, -medio, -medio), kRedondo,
                          kRedondo);
  pintor->restore();
}

namespace {

struct Caja {
  QColor borde, fondo, marca;
};

// The colours of a check box or a radio button, checked or not.
Caja cajaDe(QStyle::State estado) {
  const bool puesta = estado & (QStyle::State_On | QStyle::State_NoChange);
  if (!(estado & QStyle::State_Enabled))
    return {colorDe(Tinte::Linea), colorDe(Tinte::Fondo), colorDe(Tinte::TextoPalido)};
  if (!puesta) return {colorDe(Tinte::Borde), colorDe(Tinte::Base), colorDe(Tinte::Base)};
  return {colorDe(Tinte::Acento), colorDe(Tinte::Acento), colorDe(Tinte::TextoAcento)};
}

void pintarCasilla(QPainter& p, const QRectF& r, QStyle::State estado) {
  const Caja c = cajaDe(estado);
  p.setPen(QPen(c.borde, 1));
  p.setBrush(c.fondo);
  p.drawRoundedRect(r, 3, 3);
  p.setPen(QPen(c.marca, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const auto punto = [&r](double x, double y) {
    return QPointF(r.left() + x * r.width(), r.top() + y * r.height());
  };
  if (estado & QStyle::State_On)
    p.drawPolyline(QPolygonF{{punto(0.24, 0.52), punto(0.44, 0.72), punto(0.78, 0.3)}});
  else if (estado & QStyle::State_NoChange)
    p.drawLine(punto(0.26, 0.5), punto(0.74, 0.5));
}

void pintarRedonda(QPainter& p, const QRectF& r, QStyle::State estado) {
  const Caja c = cajaDe(estado);
  p.setPen(QPen(c.borde, 1));
  p.setBrush(c.fondo);
  p.drawEllipse(r);
  if (!(estado & QStyle::State_On)) return;
  p.setPen(Qt::NoPen);
  p.setBrush(c.marca);
  p.drawEllipse(r.center(), r.width() / 5, r.height() / 5);
}

void pintarCampo(QPainter& p, const QRectF& r, const QStyleOption& o, const QWidget* control) {
  const bool vale = o.state & QStyle::State_Enabled;
  const bool falta = control && control->property("falta").toBool();
  p.setPen(QPen(colorDe(falta ? Tinte::Mal : vale ? Tinte::Borde : Tinte::Linea), falta ? 2 : 1));
  p.setBrush(colorDe(vale ? Tinte::Base : Tinte::Fondo));
  p.drawRoundedRect(r, kRedondo, kRedondo);
}

// A line edit inside a spin box or a combo box has no frame of its own.
bool esCampoSuelto(const QStyleOption* opcion) {
  const auto* marco = qstyleoption_cast<const QStyleOptionFrame*>(opcion);
  return marco && marco->lineWidth > 0;
}

}  // namespace

void Estilo::drawPrimitive(PrimitiveElement que, const QStyleOption* opcion, QPainter* pintor,
                           const QWidget* control) const {
  pintor->save();
  pintor->setRenderHint(QPainter::Antialiasing);
  const QRectF r = QRectF(opcion->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  if (que == PE_IndicatorCheckBox || que == PE_IndicatorItemViewItemCheck) {
    pintarCasilla(*pintor, r, opcion->state);
  } else if (que == PE_IndicatorRadioButton) {
    pintarRedonda(*pintor, r, opcion->state);
  } else if (que == PE_PanelLineEdit && esCampoSuelto(opcion)) {
    pintarCampo(*pintor, r, *opcion, control);
  } else if (que == PE_FrameFocusRect) {
    // Only the current cell of a list is framed here: tabs have their own frame, other controls the
    // focus ring.
    if (qobject_cast<const QAbstractItemView*>(control)) {
      pintor->setPen(QPen(colorDe(Tinte::Acento), 1));
      pintor->setBrush(Qt::NoBrush);
      pintor->drawRect(r);
    }
  } else {
    pintor->setRenderHint(QPainter::Antialiasing, false);
    QProxyStyle::drawPrimitive(que, opcion, pintor, control);
  }
  pintor->restore();
}

QSize Estilo::sizeFromContents(ContentsType que, const QStyleOption* opcion, const QSize& contenido,
                               const QWidget* control) const {
  const QSize s = QProxyStyle::sizeFromContents(que, opcion, contenido, control);
  return que == CT_LineEdit ? s.expandedTo(QSize(0, escalar(kAltoControl))) : s;
}

namespace {

// The distance between a control and its focus ring. A bar cuts off what is outside it, so that the
// ring of its buttons is inside them. The frame asks without its control.
int anilloDe(const QStyleOption* opcion) {
  const auto* marco = qobject_cast<const QFocusFrame*>(opcion ? opcion->styleObject : nullptr);
  const QWidget* control = marco ? marco->widget() : nullptr;
  return control && qobject_cast<const QToolBar*>(control->parentWidget()) ? 0 : kAnillo;
}

}  // namespace

int Estilo::pixelMetric(PixelMetric que, const QStyleOption* opcion, const QWidget* control) const {
  if (que == PM_FocusFrameHMargin || que == PM_FocusFrameVMargin) return anilloDe(opcion);
  if (que == PM_SmallIconSize || que == PM_ButtonIconSize || que == PM_ListViewIconSize)
    return escalar(kIcono);
  if (que == PM_IndicatorWidth || que == PM_IndicatorHeight || que == PM_ExclusiveIndicatorWidth ||
      que == PM_ExclusiveIndicatorHeight)
    return escalar(kIcono);
  if (que == PM_ToolBarIconSize) return escalar(kIcono + kPaso);
  if (que == PM_LayoutHorizontalSpacing || que == PM_LayoutVerticalSpacing) return escalar(kHueco);
  if (que == PM_LayoutLeftMargin || que == PM_LayoutRightMargin || que == PM_LayoutTopMargin ||
      que == PM_LayoutBottomMargin)
    return escalar(kMargen);
  return QProxyStyle::pixelMetric(que, opcion, control);
}

int Estilo::styleHint(StyleHint que, const QStyleOption* opcion, const QWidget* control,
                      QStyleHintReturn* respuesta) const {
  if (que == SH_FocusFrame_AboveWidget) return 1;
  if (que == SH_ItemView_ShowDecorationSelected) return 1;
  if (que == SH_UnderlineShortcut) return 1;
  return QProxyStyle::styleHint(que, opcion, control, respuesta);
}

QString hojaEstilo(int cara) {
  const auto& t = tintes(static_cast<Cara>(cara));
  const auto tinte = [&t](Tinte cual) { return t[static_cast<size_t>(cual)].name(); };
  const auto px = [](int n) { return QString::number(escalar(n)) + u"px"_s; };
  QString hoja = QStringLiteral(R"(
QLabel[letra="secundaria"] { color: @palido; font-size: @secundaria; }
QLabel[letra="titulo"] { font-size: @titulo; font-weight: 600; }
QLabel[letra="cifra"] { font-size: @cifra; font-weight: 600; }
QToolTip, QLabel#tecleado { color: @texto; background: @base; border: 1px solid @borde; padding: @p1; }
QPushButton { min-height: @boton; padding: 0 @p3; border: 1px solid @borde; border-radius: 4px;
  background: @caraboton; color: @texto; }
QPushButton:hover { background: @seleccion; color: @textosel; }
QPushButton:pressed { background: @linea; }
QPushButton:checked { background: @seleccion; color: @textosel; border-color: @acento; }
QPushButton:default { background: @acento; border-color: @acento; color: @textoacento; }
QPushButton:disabled { color: @palido; background: @fondo; border-color: @linea; }
QToolButton { min-height: @boton; padding: 0 @p2; border: 1px solid transparent; border-radius: 4px; }
QToolButton:hover { background: @seleccion; color: @textosel; }
QToolButton:checked { background: @seleccion; color: @textosel; border-color: @borde; }
QToolButton:disabled { color: @palido; }
QToolButton::menu-indicator { image: url(:/iconos/flecha-@cara.svg); width: @p2; height: @p2;
  subcontrol-origin: border; subcontrol-position: center right; right: @p1; }
QToolButton[marco="true"] { border-color: @borde; background: @caraboton; }
QLineEdit QToolButton { min-height: 0; padding: 0; border: none; }
QToolBar { border: none; spacing: @p1; padding: 0; }
QPlainTextEdit, QTextEdit { border: 1px solid @borde; border-radius: 4px; background: @base; color: @texto; }
QComboBox, QAbstractSpinBox { min-height: @boton; border: 1px solid @borde; border-radius: 4px;
  background: @base; color: @texto; padding: 0 @p2; }
QComboBox[falta="true"], QAbstractSpinBox[falta="true"] { border: 2px solid @mal; }
QComboBox:disabled, QAbstractSpinBox:disabled { color: @palido; background: @fondo; border-color: @linea; }
QComboBox::drop-down, QDateEdit::drop-down, QDateTimeEdit::drop-down { border: none; width: @p6; }
QComboBox::down-arrow, QDateEdit::down-arrow, QDateTimeEdit::down-arrow {
  image: url(:/iconos/flecha-@cara.svg); width: @p3; height: @p3; }
QAbstractSpinBox::up-button, QAbstractSpinBox::down-button { border: none; background: transparent; width: @p5; }
QAbstractSpinBox::up-arrow { image: url(:/iconos/flecha-arriba-@cara.svg); width: @p2; height: @p2; }
QAbstractSpinBox::down-arrow { image: url(:/iconos/flecha-@cara.svg); width: @p2; height: @p2; }
QComboBox QAbstractItemView { border: 1px solid @borde; selection-background-color: @acento;
  selection-color: @textoacento; }
QGroupBox { border: 1px solid @linea; border-radius: 4px; margin-top: @grupo; padding-top: @p1; }
QGroupBox::title { subcontrol-origin: margin; left: @p2; padding: 0 @p1; color: @palido; }
QTableView, QTreeView, QListView { border: 1px solid @borde; background: @base;
  alternate-background-color: @alterna; color: @texto; gridline-color: @linea;
  selection-background-color: @seleccion; selection-color: @textosel; }
QHeaderView { background: @fondo; border: none; }
QHeaderView::section { background: @fondo; color: @texto; border: none; border-right: 1px solid @linea;
  border-bottom: 1px solid @borde; padding: 0 @p2; font-weight: 600; }
QHeaderView::up-arrow { image: url(:/iconos/flecha-arriba-@cara.svg); }
QHeaderView::down-arrow { image: url(:/iconos/flecha-@cara.svg); }
QHeaderView::up-arrow, QHeaderView::down-arrow { subcontrol-position: top center;
  width: @p2; height: @p2; }
QTableCornerButton::section { background: @fondo; border: none; }
QMenu { background: @base; color: @texto; border: 1px solid @borde; padding: @p1 0; }
QMenu::item { padding: @p1 @p6; }
QMenu::item:selected { background: @seleccion; color: @textosel; }
QMenu::item:disabled { color: @palido; }
QMenu::separator { height: 1px; background: @linea; margin: @p1 0; }
QProgressBar { border: 1px solid @borde; border-radius: 4px; background: @base; color: @texto;
  text-align: center; }
QProgressBar::chunk { background: @seleccion; }
QSplitter::handle { background: @linea; }
QSplitter::handle:horizontal { width: @p1; border: 0 solid @fondo; border-left-width: @p1; border-right-width: @p2; }
QSplitter::handle:vertical { height: @p4; background: qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1,
  stop: 0 @fondo, stop: 0.249 @fondo, stop: 0.25 @linea, stop: 0.499 @linea, stop: 0.5 @fondo); }
QMenuBar { background: @fondo; color: @texto; border: none; padding: 0; }
QMenuBar::item { background: transparent; padding: @p1 @p3; border-radius: 4px; }
QMenuBar::item:selected { background: @seleccion; color: @textosel; }
QFrame#Tira, QFrame#TiraTrabajo { border: none; border-left: 4px solid @borde; border-radius: 0;
  background: @alterna; }
QFrame#Tira[estado="1"] { background: @fondobien; border-left-color: @bien; }
QFrame#Tira[estado="2"] { background: @fondoduda; border-left-color: @duda; }
QFrame#Tira[estado="3"] { background: @fondomal; border-left-color: @mal; }
QFrame#Tira[estado="1"] QLabel#palabra { color: @bien; font-weight: 600; }
QFrame#Tira[estado="2"] QLabel#palabra { color: @duda; font-weight: 600; }
QFrame#Tira[estado="3"] QLabel#palabra { color: @mal; font-weight: 600; }
)");
  const double escala = QApplication::font().pointSizeF() / kLetra;
  const auto pt = [escala](double n) { return QString::number(n * escala, 'f', 2) + u"pt"_s; };
  // Longer names first, since one name may be the prefix of another.
  const std::pair<QString, QString> valores[] = {
      {u"@secundaria"_s, pt(kLetraSecundaria)},
      {u"@titulo"_s, pt(kLetraTitulo)},
      {u"@cifra"_s, pt(kLetraCifra)},
      {u"@boton"_s, px(kAltoControl - 2)},
      {u"@grupo"_s, px(kMargen)},
      {u"@p1"_s, px(kPaso)},
      {u"@p2"_s, px(2 * kPaso)},
      {u"@p3"_s, px(3 * kPaso)},
      {u"@p4"_s, px(4 * kPaso)},
      {u"@p5"_s, px(5 * kPaso)},
      {u"@p6"_s, px(6 * kPaso)},
      {u"@textoacento"_s, tinte(Tinte::TextoAcento)},
      {u"@textosel"_s, tinte(Tinte::TextoSeleccion)},
      {u"@texto"_s, tinte(Tinte::Texto)},
      {u"@palido"_s, tinte(Tinte::TextoPalido)},
      {u"@fondobien"_s, tinte(Tinte::FondoBien)},
      {u"@fondoduda"_s, tinte(Tinte::FondoDuda)},
      {u"@fondomal"_s, tinte(Tinte::FondoMal)},
      {u"@fondo"_s, tinte(Tinte::Fondo)},
      {u"@base"_s, tinte(Tinte::Base)},
      {u"@alterna"_s, tinte(Tinte::BaseAlterna)},
      {u"@borde"_s, tinte(Tinte::Borde)},
      {u"@linea"_s, tinte(Tinte::Linea)},
      {u"@caraboton"_s, tinte(Tinte::Boton)},
      {u"@cara"_s, cara == static_cast<int>(Cara::Clara) ? u"clara"_s : u"oscura"_s},
      {u"@acento"_s, tinte(Tinte::Acento)},
      {u"@seleccion"_s, tinte(Tinte::Seleccion)},
      {u"@bien"_s, tinte(Tinte::Bien)},
      {u"@duda"_s, tinte(Tinte::Duda)},
      {u"@mal"_s, tinte(Tinte::Mal)}};
  for (const auto& [nombre, valor] : valores) hoja.replace(nombre, valor);
  return hoja;
}

}  // namespace tarvo::ventanas
