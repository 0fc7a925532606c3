// Every window of the room, with nothing cut off in any theme, size or scale. The variable
// TARVO_CAPTURAS keeps the pictures.
#include "MesaDeComm.h"
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

}  // namespace tarvo::prueba
