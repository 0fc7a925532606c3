// A person tries the connection of a group.
#include <QTableView>

#include "comm/conexion/Palabras.h"
#include "comm/conexion/ventanas/Puertas.h"
#include "comm/conexion/ventanas/RegistrarVentanas.h"
#include "ventanas/comm/MesaDeComm.h"

namespace tarvo::prueba {

struct ProbarConexion : MesaDeComm {
  ProbarConexion() {
    conexion::registrarVentanasConexion(escritorio.ventanas(), {*gestor, *enlaces, *db});
    poner({0, 1});
  }
  void poner(std::vector<int> balanzas) {
    fabrica.cables.clear();
    simulador::OpcionesMaquina o;
    o.balanzas = std::move(balanzas);
    puesta = simulador::crearMaquina(o, reloj);
    fabrica.cables[u"cable 1"_s].poner(*puesta);
  }
  ventanas::Ventana* probar() {
    conexion::PuertaProbar p{.nombre = u"Frutas"_s};
    p.grupo.remoto = TipoAcceso::Directo;
    p.grupo.maquinas = {{.sitio = 0, .modelo = 1}, {.sitio = 2, .modelo = 3}};
    return abrir(p);
  }
  static ventanas::Parrilla& lista(ventanas::Ventana* v) {
    return *v->findChild<ventanas::Parrilla*>(u"lista"_s);
  }
  static QString dicho(ventanas::Ventana* v) {
    QStringList s;
    for (int i = 0; i < lista(v).filas(); ++i)
      s << lista(v).texto(i, u"maquina") + u'=' + lista(v).texto(i, u"que");
    return s.join(u'|');
  }
  static bool parable(ventanas::Ventana* v) {
    return v->findChild<QAction*>(u"Parar"_s)->isEnabled();
  }
  std::unique_ptr<simulador::Maquina> puesta;
};

TEST_F(ProbarConexion, SeLeeYSeRepite) {
  auto* v = probar();
  EXPECT_TRUE(parable(v));
  ASSERT_TRUE(hasta([&] { return !parable(v); }));
  EXPECT_EQ(v->windowTitle(), u"Probar conexión · Frutas");
  EXPECT_EQ(dicho(v),
            u"Cable del canal 1=Abierto|1 · Rowan=Contesta|3 · Cedar=El grupo no la encuentra|"
            u"Balanza número 2=Contesta y no está en el grupo");
  EXPECT_TRUE(v->tira().texto().startsWith(u"Contesta 1 de las 2 máquinas"));
  EXPECT_EQ(lista(v).filaActual(), 2) << "what is to be looked at";
  const auto* consejo = v->findChild<QLabel*>(u"Consejo"_s);
  EXPECT_TRUE(consejo->text().contains(u"que su número sea el 3"));
  QTest::keyClick(lista(v).vista(), Qt::Key_Down);
  EXPECT_TRUE(consejo->text().contains(u"póngala en el sitio 2"));
  poner({0, 2});
  QTest::keyClick(v, Qt::Key_R, Qt::ControlModifier);
  ASSERT_TRUE(hasta([&] { return !parable(v); }));
  EXPECT_EQ(v->tira().texto(), u"Contestan las 2 máquinas del grupo.");
}

// The first Escape stops, one right after it was meant to; the next one closes.
TEST_F(ProbarConexion, EscapePara) {
  simulador::Fallos f;
  f.guion.push_back({.averia = simulador::Averia::Sorda});
  puesta->percances().cambiar(f);
  QPointer<ventanas::Ventana> v = probar();
  pasar(1000);
  QTest::keyClick(lista(v).vista(), Qt::Key_Escape);
  ASSERT_TRUE(hasta([&] { return !parable(v); }));
  EXPECT_TRUE(v->tira().texto().startsWith(u"Prueba parada"));
  EXPECT_TRUE(fabrica.cables[u"cable 1"_s].abierto() == false);
  QTest::keyClick(lista(v).vista(), Qt::Key_Escape);
  EXPECT_TRUE(v && v->isVisible());
  pasar(1000);
  QTest::keyClick(lista(v).vista(), Qt::Key_Escape);
  EXPECT_TRUE(hasta([&] { return !v; }, 5));
}

// Closed in the middle it leaves the line, and a task under way isn't disturbed.
TEST_F(ProbarConexion, CerradaOConElMotorOcupado) {
  auto* v = probar();
  pasar(50);
  v->close();
  ASSERT_TRUE(hasta([&] { return !escritorio.ventanas().cargada(u"ProbarConexion"_s); }, 5));
  EXPECT_FALSE(fabrica.cables[u"cable 1"_s].abierto());
  grupo(1, 1, u"cable 2"_s);
  fallo(1, {.averia = simulador::Averia::Sorda});
  encolar(1, 7);
  pasar(500);
  v = probar();
  EXPECT_TRUE(v->tira().texto().startsWith(u"Hay una comunicación"));
  EXPECT_FALSE(parable(v));
}

}  // namespace tarvo::prueba
