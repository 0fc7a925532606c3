#include "core/ventanas/Estilo.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include "core/ventanas/Medidas.h"
#include "core/ventanas/Tema.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

Estilo::Estilo() : QProxyStyle(u"Fusion"_s) {}

void Estilo::drawControl(ControlElement que, const QStyleOption* opcion, QPainter* pintor,
                         const QWidget* control) const {
  if (que != CE_FocusFrame) return QProxyStyle::drawControl(que, opcion, pintor, control);
  pintor->save();
  pintor->setRenderHint(QPainter::Antialiasing);
  pintor->setPen(QPen(colorDe(Tinte::Acento), kFoco));
  pintor->setBrush(Qt::NoBrush);
  const double medio = kFoco / 2.0;
  pintor->drawRoundedRect(QRectF(opcion->rect).adjusted(medio, medio, -medio, -medio), kRedondo,
                          kRedondo);
  pintor->restore();
}

void Estilo::drawPrimitive(PrimitiveElement que, const QStyleOption* opcion, QPainter* pintor,
                           const QWidget* control) const {
  if (que != PE_FrameFocusRect) return QProxyStyle::drawPrimitive(que, opcion, pintor, control);
  // Only the current cell of a list: other controls have the ring.
  if (!qobject_cast<const QAbstractItemView*>(control)) return;
  pintor->save();
  pintor->setPen(QPen(colorDe(Tinte::Acento), 1));
  pintor->setBrush(Qt::NoBrush);
  pintor->drawRect(opcion->rect.adjusted(0, 0, -1, -1));
  pintor->restore();
}

int Estilo::pixelMetric(PixelMetric que, const QStyleOption* opcion, const QWidget* control) const {
  if (que == PM_FocusFrameHMargin)
    return qobject_cast<const QAbstractItemView*>(control) ? kHueco - 1 : kFoco;
  if (que == PM_FocusFrameVMargin)
    return qobject_cast<const QAbstractItemView*>(control) ? 1 : kFoco;
  if (que == PM_SmallIconSize || que == PM_ButtonIconSize || que == PM_ListViewIconSize)
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
QToolTip { color: @texto; background: @base; border: 1px solid @borde; padding: @p1; }
QPushButton { min-height: @boton; padding: 0 @p3; border: 1px solid @borde; border-radius: 4px;
  background: @caraboton; color: @texto; }
QPushButton:hover { background: @seleccion; color: @textosel; }
QPushButton:pressed { background: @linea; }
QPushButton:default { background: @acento; border-color: @acento; color: @textoacento; }
QPushButton:disabled { color: @palido; background: @fondo; border-color: @linea; }
QToolButton { min-height: @boton; padding: 0 @p2; border: 1px solid transparent; border-radius: 4px; }
QToolButton:hover { background: @seleccion; color: @textosel; }
QToolButton:checked { background: @seleccion; color: @textosel; border-color: @borde; }
QToolButton:disabled { color: @palido; }
QToolBar { border: none; spacing: @p1; padding: 0; }
QLineEdit, QPlainTextEdit, QTextEdit { border: 1px solid @borde; border-radius: 4px; background: @base;
  color: @texto; padding: 0 @p1; }
QLineEdit { min-height: @boton; }
QLineEdit:disabled, QPlainTextEdit:disabled { color: @palido; background: @fondo; }
QLineEdit[falta="true"] { border: 2px solid @mal; }
QComboBox, QAbstractSpinBox { min-height: @boton; }
QAbstractSpinBox QLineEdit, QComboBox QLineEdit { border: none; min-height: 0; }
QGroupBox { border: 1px solid @linea; border-radius: 4px; margin-top: @grupo; padding-top: @p1; }
QGroupBox::title { subcontrol-origin: margin; left: @p2; padding: 0 @p1; color: @palido; }
QTableView, QTreeView, QListView { border: 1px solid @borde; background: @base;
  alternate-background-color: @alterna; color: @texto; gridline-color: @linea;
  selection-background-color: @seleccion; selection-color: @textosel; }
QHeaderView { background: @fondo; border: none; }
QHeaderView::section { background: @fondo; color: @texto; border: none; border-right: 1px solid @linea;
  border-bottom: 1px solid @borde; padding: 0 @p2; font-weight: 600; }
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
QSplitter::handle:horizontal { width: @p1; }
QSplitter::handle:vertical { height: @p1; }
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
  // Longer names first: one may begin another.
  const std::pair<QString, QString> valores[] = {{u"@secundaria"_s, pt(kLetraSecundaria)},
                                                 {u"@titulo"_s, pt(kLetraTitulo)},
                                                 {u"@cifra"_s, pt(kLetraCifra)},
                                                 {u"@boton"_s, px(kAltoControl - 2)},
                                                 {u"@grupo"_s, px(kMargen)},
                                                 {u"@p1"_s, px(kPaso)},
                                                 {u"@p2"_s, px(2 * kPaso)},
                                                 {u"@p3"_s, px(3 * kPaso)},
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
                                                 {u"@acento"_s, tinte(Tinte::Acento)},
                                                 {u"@seleccion"_s, tinte(Tinte::Seleccion)},
                                                 {u"@bien"_s, tinte(Tinte::Bien)},
                                                 {u"@duda"_s, tinte(Tinte::Duda)},
                                                 {u"@mal"_s, tinte(Tinte::Mal)}};
  for (const auto& [nombre, valor] : valores) hoja.replace(nombre, valor);
  return hoja;
}

}  // namespace tarvo::ventanas
