// Every window of the room, with nothing cut off in any theme, size or scale. The variable
// TARVO_CAPTURAS keeps the pictures.
#include <QToolBar>

#include "MesaDeGestcomm.h"
#include "capturas/Capturas.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

using simulador::Averia;

struct CapturasComm : MesaDeComm {
  void capturar(const QString& marca) {
    const QStringList faltas = capturas::capturar(
        escritorio,
        {.carpeta = qEnvironmentVariable("TARVO_CAPTURAS"), .marca = marca, .solo = {}});
    EXPECT_EQ(faltas.join(u'\n').toStdString(), "");
  }
};

// A queue with tasks in each lasting state, and the frames that led to them.
TEST_F(CapturasComm, Llenas) {
  articulo(10);
  for (int g = 1; g <= 12; ++g) {
    const QString acceso = g <= 4 ? u"cable %1"_s.arg(g) : u"Tienda de la calle Mayor %1"_s.arg(g);
    grupo(g, 1 + 3 * (g % 2), acceso);
    vender(g, 10, 500, 250);
    if (g % 3 == 0) fallo(g, {.averia = Averia::Sorda});
    if (g % 5 == 0) fallo(g, {.averia = Averia::Err, .valor = 4});
  }
  sql(u"UPDATE GRUPOS SET NOMGPO='Carnicería del mercado', telef=iif(CODGPO=8, "
      u"'no hay', telef)"_s);
  articulo({.codigo = 20, .nombre = u"Jamón ibérico de bellota", .depto = 4, .precio = 9999999});
  abrir(u"gestcomm"_s);
  for (int n = 0; n < 40; ++n)
    gestor->NuevaTarea(1 + n % 12, true, 0, 9999999, *deNumero<TipoTarea>(17 + n % 4));
  pasar(30000);
  ASSERT_GT(gestor->CuantosQuedan().fallidas, 3);
  // With the channels closed, and the pending tasks taken care of, the window can be unloaded
  // between two pictures.
  gestor->VigilaProcesos(0, false, this);
  gestor->CambioAModo(false);
  gestor->cerrar([] {});
  pasar(2000);
  capturar(u"llena"_s);
}

TEST_F(CapturasComm, Vacias) {
  grupo(1, 1, u"cable 1"_s);
  capturar(u"vacia"_s);
}

// Every command of the bar shows its words on the narrowest usual screen, and none is cut off on a
// narrower one.
TEST_F(Gestcomm, LasOrdenesTienenPalabras) {
  dosGrupos();
  auto* v = abrir(u"gestcomm"_s);
  auto* barra = v->findChild<QToolBar*>(u"barra"_s);
  auto* todo = barra->widgetForAction(control<QAction>(u"TodoP"_s));
  const int iconoSolo = todo->height() * 2;
  for (const int ancho : {1366, 950}) {
    v->resize(ancho, 600);
    EXPECT_TRUE(QTest::qWaitFor([&] { return barra->sizeHint().width() <= barra->width(); }));
    EXPECT_EQ(todo->sizeHint().width() > iconoSolo, ancho == 1366) << ancho;
  }
  // Larger letters, chosen while it is open.
  v->resize(1366, 600);
  const auto* manual = barra->widgetForAction(control<QAction>(u"ManuP"_s));
  for (const double escala : {1.25, 1.5}) {
    escritorio.tema().ponerEscala(escala);
    EXPECT_TRUE(QTest::qWaitFor([&] {
      return manual->isVisible() && manual->geometry().right() <= barra->width();
    })) << escala;
  }
  escritorio.tema().ponerEscala(1);
}

}  // namespace tarvo::prueba
