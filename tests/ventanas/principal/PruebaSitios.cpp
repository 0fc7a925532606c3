// Where windows open, and what they remember: each one that is registered.
#include <QHeaderView>
#include <QTableView>

#include "TodasLasVentanas.h"
#include "core/ventanas/edicion/Ficha.h"
#include "core/ventanas/marco/Recuerdos.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

// The first column shown of each list, by the list's name.
template <class F>
void porListas(const Ventana& v, F hacer) {
  for (const Parrilla* p : v.findChildren<Parrilla*>()) {
    QHeaderView& h = *p->vista()->horizontalHeader();
    for (int i = 0; p->modelo() && i < h.count(); ++i) {
      const int columna = h.logicalIndex(i);
      if (h.isSectionHidden(columna)) continue;
      hacer(p->objectName(), h, columna);
      break;
    }
  }
}

}  // namespace

TEST(Sitios, CadaVentanaRecuerdaSuTamanoYSusColumnas) {
  constexpr int kMas = 23;
  TodasLasVentanas t;
  for (const QString& nombre : t.todas().nombres()) {
    auto* v = t.abrir(nombre);
    ASSERT_TRUE(v) << nombre.toStdString();
    v->resize(v->size() + QSize(-kMas, -kMas));
    QCoreApplication::processEvents();
    const QSize tamano = v->size();
    QMap<QString, std::pair<int, int>> anchos;
    porListas(*v, [&](const QString& lista, QHeaderView& h, int columna) {
      EXPECT_FALSE(anchos.contains(lista)) << "two lists under one name";
      h.resizeSection(columna, h.sectionSize(columna) + kMas);
      anchos[lista] = {columna, h.sectionSize(columna)};
    });
    t.cerrar(*v);
    v = t.abrir(nombre);
    ASSERT_TRUE(v) << nombre.toStdString();
    // It first asks for a name, in a window as low as the question, and remembers the editor's
    // size.
    // A sheet takes the height that its wrapped texts need.
    const bool alta = qobject_cast<Ficha*>(v) && v->height() > tamano.height();
    EXPECT_TRUE((v->width() == tamano.width() && (alta || v->height() == tamano.height())) ||
                nombre == u"EdiCron")
        << nombre.toStdString();
    porListas(*v, [&](const QString& lista, QHeaderView& h, int columna) {
      EXPECT_EQ(columna, anchos[lista].first) << nombre.toStdString();
      EXPECT_NEAR(h.sectionSize(columna), anchos[lista].second, 1)
          << nombre.toStdString() << ' ' << lista.toStdString();
    });
    t.cerrar(*v);
  }
}

// Left on a larger screen that is gone. A window that asks for more than there is at least begins
// on it.
TEST(Sitios, NingunaVentanaSeAbreFueraDeLaPantalla) {
  TodasLasVentanas t;
  QWidget antes;
  antes.setGeometry(3000, 2000, 2400, 1500);
  const QString sitio = QString::fromLatin1(antes.saveGeometry().toBase64());
  for (const QString& nombre : t.todas().nombres()) {
    t.escritorio.contexto().recuerdos.poner(nombre.section(u'#', 0, 0), u"sitio"_s, sitio);
    auto* v = t.abrir(nombre);
    ASSERT_TRUE(v) << nombre.toStdString();
    const QRect pantalla = v->screen()->availableGeometry(), marco = v->frameGeometry();
    EXPECT_TRUE(pantalla.contains(marco.topLeft())) << nombre.toStdString();
    const QSize menor = v->minimumSizeHint() + (v->frameSize() - v->size());
    EXPECT_LE(marco.right(), pantalla.left() + std::max(pantalla.width(), menor.width()))
        << nombre.toStdString();
    EXPECT_LE(marco.bottom(), pantalla.top() + std::max(pantalla.height(), menor.height()))
        << nombre.toStdString();
    t.cerrar(*v);
  }
}

}  // namespace tarvo::prueba
