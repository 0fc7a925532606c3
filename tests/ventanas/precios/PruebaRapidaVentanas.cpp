#include "MesaDePrecios.h"

namespace tarvo::prueba {

// Thirty prices, one per row: type, Enter, type, Enter.
TEST(VentanaRapida, CambiaElPrecioDeTreintaArticulos) {
  MesaDePrecios m;
  auto* lista = m.abrir<ListaDeArticulos>(u"BrowPLUs"_s);
  auto* v = m.abrir(precios::PuertaFastModf{.seccion = 1});
  EXPECT_EQ(lista->hijos, 1);
  auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grd"_s);
  ASSERT_EQ(grid.filas(), 40) << "without the system articles";
  EXPECT_EQ(grid.vista()->currentIndex().column(), grid.modelo()->columna(u"PRECIO_00"))
      << "it begins where something can be changed";
  auto& base = m.campo(v, u"precio00"_s);
  base.setFocus();
  base.selectAll();
  for (int i = 1; i <= 30; ++i) {
    m.teclear(u"%1,50"_s.arg(i));
    m.pulsar(Qt::Key_Return);
    ASSERT_EQ(m.foco(), &base);
  }
  EXPECT_EQ(m.leer(u"select count(*) from PLUSES where CODPLU>2 and PRECIO_00=100*(CODPLU-2)+50"_s),
            u"30");
  EXPECT_EQ(m.leer(u"select min(plu), count(*) from [Cross]"_s), u"33 20")
      << "the thirty are due for the groups";
  EXPECT_EQ(m.leer(u"select count(*) from HistoriaPrecios where VENTANA='FastModf'"_s), u"30");
  EXPECT_EQ(grid.texto(0, u"PRECIO_00"), u"1,50") << "the grid beside it is updated";
  for (int i = 0; i < 12; ++i) m.pulsar(Qt::Key_Return);
  EXPECT_EQ(grid.filaActual(), 39) << "it stays at the last row";
  EXPECT_EQ(m.leer(u"select count(*) from HistoriaPrecios"_s), u"30") << "nothing was typed";
  v->descargar();
  EXPECT_EQ(lista->hijos, 0);
  EXPECT_EQ(lista->refrescos, 1);
}

TEST(VentanaRapida, LasTeclasYLosModos) {
  MesaDePrecios m;
  auto* v = m.abrir(u"FastModf"_s);
  const QString pasos[] = {u"precio10"_s, u"precio01"_s};  // next price, next tarifa
  for (int modo = 0; modo < 2; ++modo) {
    QTest::mouseDClick(v->findChild<QLabel*>(u"lbModo"_s), Qt::LeftButton);
    EXPECT_EQ(m.suyos.ModoIntroRapido, modo);
    m.campo(v, u"precio00"_s).setFocus();
    m.pulsar(Qt::Key_Return);
    EXPECT_EQ(m.enFoco(), pasos[modo]);
  }
  auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grd"_s);
  m.campo(v, u"precio23"_s).setFocus();
  m.teclear(u"7"_s);
  m.pulsar(Qt::Key_PageDown);
  EXPECT_EQ(grid.filaActual(), 1);
  EXPECT_EQ(m.enFoco(), u"precio23");
  EXPECT_EQ(m.leer(u"select CODPLU from PLUSES where PRECIO_23=700"_s), u"3");
  m.pulsar(Qt::Key_PageUp);
  EXPECT_EQ(m.campo(v, u"precio23"_s).text(), u"7,00");
  grid.vista()->setFocus();
  m.pulsar(Qt::Key_PageDown);
  EXPECT_EQ(grid.filaActual(), 1) << "page keys move by one article here too";
}

// What the file says and isn't understood stays in it until a person saves the setting, be it with
// the value that counts already.
TEST(VentanaRapida, LoQueUnaPersonaGuardaSustituyeALoQueNoSeEntiende) {
  MesaDePrecios m;
  m.ajustes.leer(
      u"CalculoPrecios= quizá|5\r\nModoIntroRápido= 9\r\nParrillaRápida= x\r\n"
      u"PrefijoCódigos= abc\r\nNúmPreciosAlta= 4\r\nNúmTarifasAlta= 99\r\n"_s);
  const auto malas = [&] {
    QStringList claves;
    Ajustes otra = m.ajustes;
    otra.leer(m.ajustes.escribir());
    for (const auto& duda : otra.dudas) claves << duda.linea.section(u'=', 0, 0);
    return claves.join(u' ');
  };
  auto* calculo = m.abrir(u"CalcPre"_s);
  EXPECT_TRUE(calculo->descargar());
  EXPECT_TRUE(malas().startsWith(u"CalculoPrecios ")) << "nothing was chosen";
  calculo = m.abrir(u"CalcPre"_s);
  for (int vez = 0; vez < 2; ++vez) m.boton(calculo, u"togg"_s);
  m.responder(u"Acepto"_s);
  EXPECT_TRUE(calculo->descargar());
  EXPECT_EQ(malas(),
            u"ModoIntroRápido ParrillaRápida PrefijoCódigos NúmPreciosAlta NúmTarifasAlta");
  m.alAbrirse([&](QWidget* w) { m.boton(w, u"Acepto"_s); });
  QTest::keyClick(m.abrir(u"FastModf"_s), Qt::Key_F9);
  EXPECT_EQ(malas(), u"PrefijoCódigos NúmPreciosAlta NúmTarifasAlta");
  auto* alta = m.abrir(u"FastAlta"_s);
  EXPECT_EQ(malas(), u"PrefijoCódigos NúmPreciosAlta NúmTarifasAlta");
  m.alAbrirse([&](QWidget* w) { m.boton(w, u"Acepto"_s); });
  m.boton(alta, u"Configurar"_s);
  EXPECT_EQ(malas(), u"");
}

TEST(VentanaRapida, LasColumnasQueSeElijen) {
  MesaDePrecios m;
  auto* v = m.abrir(u"FastModf"_s);
  m.alAbrirse([&](QWidget* w) {
    w->findChild<QRadioButton*>(u"opcion5_2"_s)->click();  // department, to be changed
    w->findChild<QRadioButton*>(u"opcion2_0"_s)->click();  // price 1, invisible
    w->findChild<QComboBox*>(u"lstModo"_s)->setCurrentIndex(1);
    m.boton(w, u"Acepto"_s);
  });
  QTest::keyClick(v, Qt::Key_F9);
  EXPECT_EQ(m.suyos.ParrillaRapida, u"1,1,0,1,1,2,0,0,0,0,0,0,0,0,0,0,-1,,,,,");
  EXPECT_EQ(m.suyos.ModoIntroRapido, 1);
  auto& grid = *v->findChild<ventanas::Parrilla*>(u"Grd"_s);
  EXPECT_TRUE(grid.vista()->isColumnHidden(grid.modelo()->columna(u"PRECIO_00")));
  grid.vista()->setFocus();
  for (const QString& valor : {u"41"_s, u"30"_s, u"2"_s}) {
    grid.vista()->setCurrentIndex(grid.modelo()->index(0, grid.modelo()->columna(u"DEPTO")));
    ASSERT_TRUE(grid.editarCelda());
    auto* celda = qobject_cast<QLineEdit*>(m.foco());
    ASSERT_NE(celda, nullptr);
    celda->selectAll();
    QTest::keyClicks(celda, valor);
    QTest::keyClick(celda, Qt::Key_Return);
    EXPECT_EQ(m.leer(u"select DEPTO from PLUSES where CODPLU=3"_s),
              valor == u"41" ? u"1"_s : valor);
    EXPECT_EQ(v->tira().texto().contains(u"no tiene el departamento 30"), valor == u"30");
  }
}

// With the prefix 12 and a fixed department: four fields per article.
TEST(VentanaAlta, ConPrefijoYDepartamentoFijo) {
  MesaDePrecios m;
  m.suyos.PrefijoCodigos = u"12"_s;
  m.suyos.NumPreciosAlta = m.suyos.NumTarifasAlta = 1;
  m.suyos.ParrillaRapida = u"1,1,2,1,1,0,0,0,0,0,1,2,1,0,1,1,0,2,5,,0,0"_s;
  auto* lista = m.abrir<ListaDeArticulos>(u"BrowPLUs"_s);
  auto* v = m.abrir(u"FastAlta"_s);
  EXPECT_FALSE(m.campo(v, u"txdep"_s).isEnabled());
  EXPECT_EQ(m.campo(v, u"txdep"_s).text(), u"2");
  const auto alta = [&](const QString& codigo, const QString& nombre, const QString& precio) {
    m.teclear(codigo);
    m.pulsar(Qt::Key_Return);
    m.teclear(nombre);
    m.pulsar(Qt::Key_Return);
    m.teclear(precio);
    for (int i = 0; i < 6; ++i) m.pulsar(Qt::Key_Return);  // the fixed one is skipped
    EXPECT_EQ(m.enFoco(), u"Alta");
    m.responder(u"Si"_s);
    m.pulsar(Qt::Key_Return);
  };
  alta(u"34"_s, u"Lomo"_s, u"12,5"_s);
  EXPECT_EQ(m.texto(v, u"lbUltimo"_s), u"Último: 1200034   Lomo");
  EXPECT_EQ(m.enFoco(), u"txCod");
  alta(u"35"_s, u"Cinta"_s, u"9"_s);
  EXPECT_EQ(m.leer(u"select CODPLU, NOMPLU, DEPTO, FORMATO, PFX_BAR, PRECIO_00, PRECIO_10 from "
                   "PLUSES where CODPLU>42 order by CODPLU"_s),
            u"1200034 Lomo 2 5 0 1250 0 | 1200035 Cinta 2 5 0 900 0");
  EXPECT_EQ(m.leer(u"select count(*) from MovsAlm where CODIGO>42"_s),
            m.leer(u"select 2*count(*) from ALMACEN"_s));
  EXPECT_EQ(lista->codigo, 1200035);

  m.teclear(u"35"_s);  // again
  m.pulsar(Qt::Key_Return);
  EXPECT_EQ(m.enFoco(), u"txCod");
  EXPECT_EQ(v->tira().texto(), u"El código 1200035 ya es de «Cinta».");
}

TEST(VentanaAlta, NoSeSaleDeUnCampoQueNoVale) {
  MesaDePrecios m;
  auto* v = m.abrir(u"FastAlta"_s);
  m.teclear(u"2"_s);
  for (const int tecla : {Qt::Key_Return, Qt::Key_Tab}) {
    m.pulsar(tecla);
    EXPECT_EQ(m.enFoco(), u"txCod") << "2 is a system article";
  }
  m.teclear(u"1234567"_s);
  m.teclear(u"8"_s);
  EXPECT_EQ(m.campo(v, u"txCod"_s).text(), u"2345678") << "another digit pushes the first one out";
  m.pulsar(Qt::Key_Tab);
  EXPECT_EQ(m.enFoco(), u"txNom");
  m.responder(u"Acepto"_s);
  m.boton(v, u"Alta"_s);
  EXPECT_EQ(m.textoModal, u"Alguno de los valores entrados es incorrecto");
  v->findChild<QComboBox*>(u"LstCada"_s)->setCurrentIndex(0);
  for (const auto& [campo, texto] : {std::pair{u"txNom"_s, u"Lomo"_s},
                                     {u"txdep"_s, u"1"_s},
                                     {u"txetq"_s, u"1"_s},
                                     {u"txdi1"_s, u"0"_s},
                                     {u"txdi2"_s, u"0"_s}})
    m.campo(v, campo).setText(texto);
  m.responder(u"No"_s);
  m.boton(v, u"Alta"_s);
  EXPECT_EQ(m.campo(v, u"txCod"_s).text(), u"2345678");
  m.responder(u"Cancelar"_s);
  m.boton(v, u"Alta"_s);
  EXPECT_EQ(m.campo(v, u"txCod"_s).text(), u"") << "Cancelar clears the form";
}

TEST(VentanaAlta, LaConfiguracionSeComprueba) {
  MesaDePrecios m;
  auto* v = m.abrir(u"CfgFastA"_s);
  const struct {
    const char16_t *campo, *valor, *aviso;
  } casos[] = {{u"txPrefijo", u"1x", u"El prefijo del código debe ser numérico"},
               {u"txPrecios", u"4", u"Precios por tarifa incorrectos"},
               {u"txTarifas", u"", u"Número incorrecto de tarifas"}};
  for (const auto& c : casos) {
    auto& campo = m.campo(v, QString::fromUtf16(c.campo));
    const QString antes = campo.text();
    campo.setText(QString::fromUtf16(c.valor));
    m.responder(u"Acepto"_s);
    m.boton(v, u"Acepto"_s);
    EXPECT_EQ(m.textoModal, QString::fromUtf16(c.aviso));
    EXPECT_TRUE(v->isVisible());
    campo.setText(antes);
  }
}

}  // namespace tarvo::prueba
