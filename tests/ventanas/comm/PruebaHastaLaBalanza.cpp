// Data entered in the windows of the catalogue, followed as far as the scale.
#include <QTableView>

#include "MesaDeComm.h"
#include "articles/AjustesArticulos.h"
#include "articles/TablasArticulos.h"
#include "articles/ventanas/RegistrarVentanas.h"

namespace tarvo::prueba {

struct HastaLaBalanza : MesaDeComm {
  HastaLaBalanza() : MesaDeComm({articles::ajustesArticulos()}) {}
  void SetUp() override {
    bien(articles::asegurarTablasArticulos(*db));
    grupo(1, 1, u"cable 1"_s);
    departamento(1, u"Fruta");
    articles::registrarVentanasArticulos(escritorio.ventanas(), catalogo, operadores, *gestor);
    gestor->VigilaProcesos(3, false, nullptr);
  }
  void tecla(Qt::Key k, Qt::KeyboardModifiers m = {}) {
    ASSERT_TRUE(QApplication::focusWidget());
    QTest::keyClick(QApplication::focusWidget(), k, m);
  }
  void escribir(QLineEdit* campo, const QString& texto) {
    campo->setFocus();
    campo->selectAll();
    QTest::keyClicks(campo, texto);
  }
  // Leaves the list, and confirms the sending.
  void salirEnviando() {
    luego([](QWidget* w) {
      auto* si = w->findChild<QPushButton*>(u"Si"_s);
      ASSERT_TRUE(si);
      QTest::mouseClick(si, Qt::LeftButton);
    });
    QTest::keyClick(escritorio.ventanas().cargada(u"BrowPLUs"_s), Qt::Key_Escape);
  }
  const simulador::Catalogo& tiene() { return maquina(1).memoria().catalogo; }

  articles::Catalogo catalogo{*db, textos, reloj, u"ana@caja"_s};
  articles::Operadores operadores{*db, textos};
};

TEST_F(HastaLaBalanza, UnArticuloNuevo) {
  abrir(u"BrowPLUs"_s);
  tecla(Qt::Key_Insert, Qt::ControlModifier);
  const QString editor = u"xEditPLU#1.0"_s;
  ASSERT_TRUE(hasta([&] { return escritorio.ventanas().cargada(editor) != nullptr; }));
  ASSERT_TRUE(QTest::qWaitForWindowActive(escritorio.ventanas().cargada(editor)));
  escribir(control<QLineEdit>(u"txCod"_s, editor), u"77"_s);
  escribir(control<QLineEdit>(u"txNom"_s, editor), u"NISCALO"_s);
  auto* precios = control<ventanas::Parrilla>(u"GrdPre"_s, editor);
  precios->vista()->setFocus();
  QTest::keyClicks(precios->vista(), u"1"_s);
  QTest::keyClicks(QApplication::focusWidget(), u"2,5"_s);
  tecla(Qt::Key_Return);
  escribir(control<QLineEdit>(u"txHasta1"_s, editor), u"1,5"_s);
  QTest::keyClick(control<QPushButton>(u"Guardar"_s, editor), Qt::Key_Space);
  ASSERT_TRUE(hasta([&] { return !escritorio.ventanas().cargada(editor); }));
  EXPECT_TRUE(tiene().empty());
  salirEnviando();
  ASSERT_TRUE(hasta([&] { return tiene().contains(77); }));
  EXPECT_EQ(tiene().at(77).nombre, u"NISCALO");
  EXPECT_EQ(tiene().at(77).precio, 1250);
  EXPECT_TRUE(hasta([&] { return filas(u"SELECT plu, borra FROM [Cross]"_s) == u"77,0"; }));
}

}  // namespace tarvo::prueba
