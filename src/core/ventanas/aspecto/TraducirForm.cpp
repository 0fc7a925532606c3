#include "core/ventanas/aspecto/TraducirForm.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolBox>
#include <QTreeWidget>
#include <functional>

#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

QString sinMarcas(QString texto) {
  texto.remove(u'&');
  texto = texto.trimmed();
  if (texto.endsWith(u':')) texto.chop(1);
  return texto.trimmed();
}

// One text of a control: how it is read, and how it is set.
struct Rotulo {
  std::function<QString()> leer;
  std::function<void(const QString&)> poner;
};

// The codes that a rule may list; a language without one can't be named by any rule.
bool esCodigoIdioma(QStringView codigo, Idioma idioma, bool& esEste) {
  static constexpr std::pair<const char16_t*, Idioma> kCodigos[] = {{u"E", Idioma::Espanol},
                                                                    {u"F", Idioma::F},
                                                                    {u"I", Idioma::I},
                                                                    {u"UK", Idioma::UK},
                                                                    {u"PL", Idioma::PL}};
  for (const auto& [nombre, cual] : kCodigos) {
    if (codigo.compare(QStringView(nombre), Qt::CaseInsensitive) != 0) continue;
    esEste = esEste || cual == idioma;
    return true;
  }
  return false;
}

template <class C>
std::optional<Rotulo> conTexto(QObject& o) {
  auto* c = qobject_cast<C*>(&o);
  if (!c) return std::nullopt;
  return Rotulo{[c] { return c->text(); }, [c](const QString& s) { c->setText(s); }};
}

// A letter in a label is its buddy's; without one it would show as "&".
std::optional<Rotulo> conCompanero(QObject& o) {
  auto* l = qobject_cast<QLabel*>(&o);
  if (!l) return std::nullopt;
  return Rotulo{[l] { return l->text(); },
                [l](const QString& s) {
                  static const QRegularExpression kMarca(u"&(.)"_s);
                  l->setText(l->buddy() ? s : QString(s).replace(kMarca, u"\\1"_s));
                }};
}

template <class C>
std::optional<Rotulo> conTitulo(QObject& o) {
  auto* c = qobject_cast<C*>(&o);
  if (!c) return std::nullopt;
  return Rotulo{[c] { return c->title(); }, [c](const QString& s) { c->setTitle(s); }};
}

// A group box is at least as wide as its title, even if its contents are narrower.
std::optional<Rotulo> conMarco(QObject& o) {
  auto* g = qobject_cast<QGroupBox*>(&o);
  if (!g) return std::nullopt;
  return Rotulo{[g] { return g->title(); },
                [g](const QString& s) {
                  g->setTitle(s);
                  g->ensurePolished();
                  g->setMinimumWidth(g->fontMetrics().horizontalAdvance(s) + escalar(4 * kHueco));
                }};
}

template <class C>
std::optional<Rotulo> conPista(QObject& o) {
  auto* c = qobject_cast<C*>(&o);
  if (!c) return std::nullopt;
  return Rotulo{[c] { return c->placeholderText(); },
                [c](const QString& s) { c->setPlaceholderText(s); }};
}

std::optional<Rotulo> rotuloDe(QObject& o) {
  for (const auto prueba : {conCompanero, conTexto<QAbstractButton>, conTexto<QAction>, conMarco,
                            conTitulo<QMenu>, conPista<QLineEdit>, conPista<QPlainTextEdit>})
    if (auto r = prueba(o)) return r;
  return std::nullopt;
}

class Enlace {
 public:
  Enlace(const Textos& textos, Idioma idioma) : t_(textos), idioma_(idioma) {}

  void control(QObject& o) const {
    if (!pestanas(o)) rotulo(o);
    coleccion(o);
    etiqueta(o);
    pista(o);
    nombre(o);
  }

 private:
  QString clave(const QString& texto) const { return enlazarClave(texto, t_); }

  // Removes the rule, after showing or hiding the control accordingly.
  QString sinRegla(QObject& o, const QString& texto) const {
    const ReglaVisible regla = leerReglaVisible(texto, idioma_);
    if (regla.visible) o.setProperty("visible", *regla.visible);
    return regla.texto;
  }

  bool pestanas(QObject& o) const {
    if (auto* p = qobject_cast<QTabWidget*>(&o)) {
      for (int i = 0; i < p->count(); ++i) p->setTabText(i, clave(p->tabText(i)));
      return true;
    }
    auto* b = qobject_cast<QTabBar*>(&o);
    for (int i = 0; b && i < b->count(); ++i) b->setTabText(i, clave(b->tabText(i)));
    return b != nullptr;
  }

  void rotulo(QObject& o) const {
    const auto r = rotuloDe(o);
    if (!r) return;
    const QString antes = r->leer();
    const QString despues = clave(sinRegla(o, antes));
    if (despues != antes) r->poner(despues);
  }

  void coleccion(QObject& o) const {
    if (auto* c = qobject_cast<QToolBox*>(&o))
      for (int i = 0; i < c->count(); ++i) c->setItemText(i, clave(c->itemText(i)));
    if (auto* c = qobject_cast<QComboBox*>(&o))
      for (int i = 0; i < c->count(); ++i) c->setItemText(i, clave(c->itemText(i)));
    if (auto* c = qobject_cast<QListWidget*>(&o))
      for (int i = 0; i < c->count(); ++i) c->item(i)->setText(clave(c->item(i)->text()));
    if (auto* c = qobject_cast<QTableWidget*>(&o)) {
      for (int i = 0; i < c->columnCount(); ++i)
        if (auto* h = c->horizontalHeaderItem(i)) h->setText(clave(h->text()));
    }
    if (auto* c = qobject_cast<QTreeWidget*>(&o))
      for (int i = 0; i < c->columnCount(); ++i)
        c->headerItem()->setText(i, clave(c->headerItem()->text(i)));
  }

  void etiqueta(QObject& o) const {
    const QVariant tag = o.property("tag");
    if (!tag.isValid()) return;
    const QString texto = sinRegla(o, tag.toString());
    const QString hecho = clave(texto);
    o.setProperty("tag", hecho);
    if (hecho != texto) o.setProperty("toolTip", hecho);
  }

  // A button or an action without a tool tip returns its own text as one; that isn't a key.
  void pista(QObject& o) const {
    const QString texto = o.property("toolTip").toString();
    const QString hecho = clave(texto);
    if (hecho == texto) return;
    o.setProperty("tag", hecho);
    o.setProperty("toolTip", hecho);
  }

  // The texts read aloud by assistive tools.
  void nombre(QObject& o) const {
    for (const char* propiedad : {"accessibleName", "accessibleDescription"})
      if (const QString texto = o.property(propiedad).toString(); !texto.isEmpty())
        if (const QString hecho = clave(texto); hecho != texto)
          o.setProperty(propiedad, sinMarcas(hecho));
  }

  const Textos& t_;
  Idioma idioma_;
};

// A button, a check box: it is announced by what it shows.
bool tieneTexto(const QWidget& control) {
  const auto* boton = qobject_cast<const QAbstractButton*>(&control);
  return boton && !boton->text().isEmpty();
}

void nombrarParaAyudas(QWidget& form) {
  for (const QLabel* rotulo : form.findChildren<QLabel*>())
    if (QWidget* control = rotulo->buddy();
        control && control->accessibleName().isEmpty() && !tieneTexto(*control))
      control->setAccessibleName(sinMarcas(rotulo->text()));
  for (QWidget* control : form.findChildren<QWidget*>()) {
    if (!control->accessibleName().isEmpty() || control->toolTip().isEmpty()) continue;
    const auto r = rotuloDe(*control);
    const bool conTextoPropio = r && !qobject_cast<QLineEdit*>(control) && !r->leer().isEmpty();
    if (!conTextoPropio) control->setAccessibleName(sinMarcas(control->toolTip()));
  }
  // The line of an editable combo box has the focus in its place.
  for (const QComboBox* lista : form.findChildren<QComboBox*>())
    if (QLineEdit* linea = lista->lineEdit()) linea->setAccessibleName(lista->accessibleName());
}

}  // namespace

QString enlazarClave(const QString& texto, const Textos& textos) {
  const bool conSuLargo = texto.size() == 7 || texto.size() == 8;
  if (!conSuLargo || !texto.startsWith(u"TXT", Qt::CaseInsensitive)) return texto;
  int numero = 0;
  for (const QChar c : QStringView(texto).mid(3)) {
    if (c < u'0' || c > u'9') return texto;
    numero = numero * 10 + (c.unicode() - u'0');
  }
  return textos(numero);
}

ReglaVisible leerReglaVisible(const QString& texto, Idioma idioma) {
  constexpr QStringView kRegla = u"VISIBLE:";
  if (!texto.startsWith(kRegla, Qt::CaseInsensitive)) return {{}, texto};
  QStringView resto = QStringView(texto).mid(kRegla.size());
  bool visible = false;
  while (!resto.isEmpty()) {
    const qsizetype coma = resto.indexOf(u',');
    if (!esCodigoIdioma(coma < 0 ? resto : resto.left(coma), idioma, visible)) break;
    resto = coma < 0 ? QStringView() : resto.mid(coma + 1);
  }
  return {visible, resto.toString()};
}

void TraducirForm(QWidget& form, const Textos& textos, Idioma idioma) {
  const Enlace enlace(textos, idioma);
  form.setWindowTitle(enlazarClave(form.windowTitle(), textos));
  for (QObject* o : form.findChildren<QObject*>())
    if (o->isWidgetType() || qobject_cast<QAction*>(o)) enlace.control(*o);
  nombrarParaAyudas(form);
}

}  // namespace tarvo::ventanas
