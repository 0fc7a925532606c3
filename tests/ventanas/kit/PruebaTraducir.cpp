#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>

#include "core/ventanas/aspecto/TraducirForm.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

const QString kPropios = u"9900\tUno\n9901\tDos con blanco: '\n9902\t&Nombre:\n19900\tCinco\n"_s;

}  // namespace

TEST(TraducirForm, ClavesYReglas) {
  const Mesa m(kPropios);
  const struct {
    const char16_t* texto;
    Idioma idioma;
    const char16_t* queda;
    int visible;  // -1: left alone
  } casos[] = {
      {u"TXT9900", Idioma::Espanol, u"Uno", -1},
      {u"txt9900", Idioma::Espanol, u"Uno", -1},
      {u"TXT9901", Idioma::Espanol, u"Dos con blanco: ", -1},
      {u"TXT9990", Idioma::Espanol, u"", -1},
      {u"TXT990", Idioma::Espanol, u"TXT990", -1},
      {u"TXT19900", Idioma::Espanol, u"Cinco", -1},
      {u"TXT199000", Idioma::Espanol, u"TXT199000", -1},
      {u"TXT99x0", Idioma::Espanol, u"TXT99x0", -1},
      {u"Suelto", Idioma::Espanol, u"Suelto", -1},
      {u"", Idioma::Espanol, u"", -1},
      {u"VISIBLE:E,F,TXT9900", Idioma::Espanol, u"Uno", 1},
      {u"visible:E,TXT9900", Idioma::Espanol, u"Uno", 1},
      {u"VISIBLE:E,F,TXT9900", Idioma::UK, u"Uno", 0},
      {u"VISIBLE:E,F,TXT9900", Idioma::I, u"Uno", 0},
      {u"VISIBLE:uk,I,TXT9900", Idioma::UK, u"Uno", 1},
      {u"VISIBLE:E,F,I,UK,PL,TXT9900", Idioma::P, u"Uno", 0},
      {u"VISIBLE:F,uno, dos", Idioma::F, u"uno, dos", 1},
      {u"VISIBLE:TXT9900", Idioma::Espanol, u"Uno", 0},
      {u"VISIBLE:E", Idioma::Espanol, u"", 1},
  };
  for (const auto& c : casos) {
    QWidget form;
    QLabel rotulo(QString::fromUtf16(c.texto), &form);
    QPushButton boton(QString::fromUtf16(c.texto), &form);
    QAction accion(QString::fromUtf16(c.texto), &form);
    QGroupBox grupo(QString::fromUtf16(c.texto), &form);
    const auto donde = QString::fromUtf16(c.texto).toStdString();
    TraducirForm(form, m.textos, c.idioma);
    EXPECT_EQ(rotulo.text(), QString::fromUtf16(c.queda)) << donde;
    EXPECT_EQ(boton.text(), QString::fromUtf16(c.queda)) << donde;
    EXPECT_EQ(accion.text(), QString::fromUtf16(c.queda)) << donde;
    EXPECT_EQ(grupo.title(), QString::fromUtf16(c.queda)) << donde;
    EXPECT_EQ(boton.isHidden(), c.visible == 0) << donde;
    EXPECT_EQ(accion.isVisible(), c.visible != 0) << donde;
  }
}

TEST(TraducirForm, TitulosPistasPestanasYColecciones) {
  const Mesa m(kPropios);
  QWidget form;
  form.setWindowTitle(u"TXT9900"_s);
  QTabWidget pestanas(&form);
  pestanas.addTab(new QWidget, u"TXT9900"_s);
  pestanas.addTab(new QWidget, u"Fija"_s);
  QTableWidget tabla(1, 2, &form);
  tabla.setHorizontalHeaderLabels({u"TXT9900"_s, u"TXT9901"_s});
  QComboBox lista(&form);
  lista.addItems({u"TXT9900"_s, u"otro"_s});
  QCheckBox conEtiqueta(&form);
  conEtiqueta.setProperty("tag", u"visible:F,TXT9900"_s);
  QPushButton conPista(u"Suelto"_s, &form);
  conPista.setToolTip(u"txt9900"_s);
  TraducirForm(form, m.textos, Idioma::Espanol);
  EXPECT_EQ(form.windowTitle(), u"Uno");
  EXPECT_EQ(pestanas.tabText(0), u"Uno");
  EXPECT_EQ(pestanas.tabText(1), u"Fija");
  EXPECT_EQ(tabla.horizontalHeaderItem(1)->text(), u"Dos con blanco: ");
  EXPECT_EQ(lista.itemText(0), u"Uno");
  EXPECT_TRUE(conEtiqueta.isHidden());
  EXPECT_EQ(conEtiqueta.toolTip(), u"Uno");
  EXPECT_EQ(conEtiqueta.property("tag").toString(), u"Uno");
  EXPECT_EQ(conPista.toolTip(), u"Uno");
  EXPECT_EQ(conPista.property("tag").toString(), u"Uno");
}

// Assistive tools get a name for each control.
TEST(TraducirForm, NombresParaQuienNoVe) {
  const Mesa m(kPropios);
  QWidget form;
  QLabel rotulo(u"TXT9902"_s, &form);
  QLineEdit campo(&form), conPista(&form), conNombre(&form);
  rotulo.setBuddy(&campo);
  conPista.setToolTip(u"TXT9900"_s);
  conNombre.setAccessibleName(u"El suyo"_s);
  conNombre.setToolTip(u"TXT9900"_s);
  QPushButton boton(u"Suyo"_s, &form);
  boton.setToolTip(u"TXT9900"_s);
  QLabel delGrupo(u"TXT9902"_s, &form);
  QRadioButton conTexto(u"Suyo"_s, &form);
  delGrupo.setBuddy(&conTexto);
  TraducirForm(form, m.textos, Idioma::Espanol);
  EXPECT_EQ(campo.accessibleName(), u"Nombre");
  EXPECT_EQ(conPista.accessibleName(), u"Uno");
  EXPECT_EQ(conNombre.accessibleName(), u"El suyo");
  EXPECT_EQ(boton.accessibleName(), u"");
  EXPECT_EQ(conTexto.accessibleName(), u"") << "its own text";
}

}  // namespace tarvo::prueba
