// What assistive tools hear, and what the keyboard reaches, in every window that is registered: a
// new one can't forget it.
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTableView>
#include <QToolButton>

#include "TodasLasVentanas.h"
#include "capturas/Cortes.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

QString nombreDe(QAccessibleInterface& i) {
  if (const QString suyo = i.text(QAccessible::Name); !suyo.isEmpty()) return suyo;
  for (const auto& [otro, relacion] : i.relations(QAccessible::Label))
    if (otro) return otro->text(QAccessible::Name);
  return {};
}

// What takes the keyboard; not the parts of which another control is made.
bool esControl(const QWidget& w) {
  if (!w.isVisible() || !(w.focusPolicy() & Qt::TabFocus) || w.focusProxy()) return false;
  const QWidget* padre = w.parentWidget();
  const auto* lista = qobject_cast<const QComboBox*>(padre);
  if ((lista && lista->lineEdit() != &w) || qobject_cast<const QAbstractItemView*>(padre))
    return false;
  return qobject_cast<const QLineEdit*>(&w) || qobject_cast<const QComboBox*>(&w) ||
         qobject_cast<const QAbstractButton*>(&w) || qobject_cast<const QPlainTextEdit*>(&w) ||
         qobject_cast<const QAbstractItemView*>(&w);
}

// The caption of a field without a letter, though one of its own is free.
bool faltaLetra(const QLabel& r, QSet<QChar> usadas) {
  if (!r.isVisible() || !r.buddy() || !QKeySequence::mnemonic(r.text()).isEmpty()) return false;
  const QString texto = r.text();
  return std::ranges::any_of(texto, [](QChar c) { return c.isLetter(); }) &&
         conLetra(texto, usadas) != texto;
}

constexpr qsizetype kLargoDeUnSigno = 3;

// A button that shows a word is announced by it, and by no caption in its place. The title of its
// frame may come before it. A sign or an initial is announced by the words of its tip.
bool conOtroNombre(const QWidget& w, QAccessibleInterface& i) {
  const auto* b = qobject_cast<const QAbstractButton*>(&w);
  const auto* h = qobject_cast<const QToolButton*>(b);
  const bool soloIcono = h && h->toolButtonStyle() == Qt::ToolButtonIconOnly && !h->icon().isNull();
  if (!b || soloIcono) return false;
  QString suyo = b->text();
  suyo.remove(u'&').remove(u'…');
  if (suyo.size() <= kLargoDeUnSigno) return false;
  return !i.text(QAccessible::Name).contains(suyo) ||
         std::ranges::any_of(i.relations(QAccessible::Label), [](const auto& r) {
           return qobject_cast<QLabel*>(r.first->object());
         });
}

QStringList faltasDe(Ventana& v) {
  QStringList faltas = capturas::letrasRepetidas(v);
  const QSet<QChar> usadas = letrasUsadas(v);
  auto* suya = QAccessible::queryAccessibleInterface(&v);
  if (suya->role() != QAccessible::Window && suya->role() != QAccessible::Dialog)
    faltas << u"no es una ventana"_s;
  if (suya->text(QAccessible::Name).isEmpty()) faltas << u"no tiene nombre"_s;
  for (QWidget* w : v.findChildren<QWidget*>()) {
    const QString cual = QString::fromUtf8(w->metaObject()->className()) + u' ' + w->objectName();
    auto* i = QAccessible::queryAccessibleInterface(w);
    if (!i) continue;
    const QString nombre = nombreDe(*i);
    for (const QString& dicho : {nombre, i->text(QAccessible::Description)})
      if (dicho.startsWith(u"TXT")) faltas << cual + u" dice "_s + dicho;
    if (const auto* r = qobject_cast<QLabel*>(w); r && faltaLetra(*r, usadas))
      faltas << cual + u" no tiene letra: "_s + r->text();
    if (const auto* r = qobject_cast<QLabel*>(w); r && !r->buddy() && r->text().contains(u'&'))
      faltas << cual + u" se ve con su marca: "_s + r->text();
    if (nombre.contains(u"[*]")) faltas << cual + u" se oye con la marca de sin guardar"_s;
    if (qobject_cast<QTableView*>(w->parentWidget()) && qobject_cast<QAbstractButton*>(w) &&
        nombre.isEmpty())
      faltas << cual + u" no tiene nombre"_s;
    if (conOtroNombre(*w, *i)) faltas << cual + u" se oye con otro nombre: "_s + nombre;
    if (!esControl(*w)) continue;
    if (nombre.trimmed().isEmpty()) faltas << cual + u" no tiene nombre"_s;
    if (nombre.contains(u'&')) faltas << cual + u" se oye con su marca: "_s + nombre;
    if (i->role() == QAccessible::NoRole || i->role() == QAccessible::Client)
      faltas << cual + u" no tiene papel"_s;
  }
  return faltas;
}

}  // namespace

TEST(Accesible, TodasLasVentanasSeOyen) {
  TodasLasVentanas t;
  const QStringList nombres = t.todas().nombres();
  ASSERT_GT(nombres.size(), 40);
  for (const QString& nombre : nombres) {
    Ventana* v = t.abrir(nombre);
    ASSERT_TRUE(v) << nombre.toStdString();
    const QStringList faltas = faltasDe(*v);
    EXPECT_TRUE(faltas.isEmpty()) << nombre.toStdString() << ":\n  "
                                  << faltas.join(u"\n  "_s).toStdString();
    t.cerrar(*v);
  }
}

// A key whose command can't be given now is answered in words, which go with the next command.
TEST(Accesible, UnaTeclaSinEfectoTieneRespuesta) {
  TodasLasVentanas t;
  Ventana* v = t.abrir(u"gestcomm"_s);
  ASSERT_TRUE(v);
  ASSERT_TRUE(QTest::qWaitForWindowActive(v));
  QTest::keyClick(v, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(v->tira().texto(), u"No hay ninguna tarea quitada que devolver.");
  QTest::keyClick(v, Qt::Key_F6);
  EXPECT_TRUE(v->tira().texto().startsWith(u"No hay nada en la cola"))
      << v->tira().texto().toStdString();
  QTest::keyClick(v, Qt::Key_U, Qt::ControlModifier);
  EXPECT_TRUE(v->tira().texto().startsWith(u"En automático")) << v->tira().texto().toStdString();
  QTest::keyClick(v, Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(v->tira().texto(), u"");
  QTest::keyClick(v, Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(v->tira().texto().startsWith(u"En manual")) << v->tira().texto().toStdString();
  t.cerrar(*v);
}

}  // namespace tarvo::prueba
