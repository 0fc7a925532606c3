// Imports as a user does them: with keys, with bad lines, and undone.
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "articles/Lotes.h"
#include "articles/TablasArticulos.h"
#include "articles/importar/ventanas/Puertas.h"
#include "articles/importar/ventanas/RegistrarVentanas.h"
#include "core/esquema/Esquema.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {
namespace {

struct MesaDeImportar : Mesa {
  MesaDeImportar() {
    bien(esquema::ponerAlDia(*db, Fecha::de(QDate(2026, 1, 1))));
    bien(articles::asegurarTablasArticulos(*db));
    seccion(3).departamento(1, u"Ternera");
    articulo({.codigo = 10, .nombre = u"VIEJO", .depto = 1, .precio = 150});
    ajustes.HomeDir = carpeta.path();
    importar::registrarVentanasImportar(escritorio.ventanas(), catalogo);
  }

  void fichero(const QString& nombre, const QString& texto) {
    QFile f(ruta(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(texto.toUtf8());
  }
  QString articulos() {
    return leer(
        u"SELECT CODPLU, trim(NOMPLU), PRECIO_00 FROM PLUSES WHERE SECCION=3 AND CODPLU>2 "
        u"ORDER BY CODPLU"_s);
  }
  ventanas::Ventana* abrir(const QString& nombre) {
    auto& todas = escritorio.ventanas();
    auto* v = nombre == u"ImpTabla" ? todas.abrir(importar::PuertaImpTabla{.seccion = 3})
                                    : todas.abrir(nombre);
    EXPECT_NE(v, nullptr);
    EXPECT_TRUE(esperar([v] { return v->isActiveWindow(); }));
    return v;
  }
  // Presses the accepting button of the next box.
  void aceptar() {
    QTimer::singleShot(50, &escritorio.ventanas(), [this] {
      QWidget* w = QApplication::activeModalWidget();
      if (!w) return aceptar();
      QTest::mouseClick(w->findChild<QPushButton*>(u"Acepto"_s), Qt::LeftButton);
    });
  }

  articles::Catalogo catalogo{*db, textos, reloj, u"Ana"_s};
};

// Sends the key to the control with the focus, as for a user.
void tecla(int cual) {
  QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(cual));
}
QString rotulo(QWidget* v, const char16_t* nombre) {
  return v->findChild<QLabel*>(QString::fromUtf16(nombre))->text();
}
QPushButton& boton(QWidget* v, const char16_t* nombre) {
  return *v->findChild<QPushButton*>(QString::fromUtf16(nombre));
}
ventanas::Parrilla& lista(QWidget* v, const char16_t* nombre) {
  return *v->findChild<ventanas::Parrilla*>(QString::fromUtf16(nombre));
}

QString larga(int seccion, int codigo, const QString& nombre) {
  return Ceros(seccion, 3) + Ceros(codigo, 7) + nombre.leftJustified(20) + u"0000321000175"_s +
         QString(23 * 6, u'0') + u"0101        \r\n"_s;
}

TEST(VentanaImpPLU, ConLineasMalasYDeshecha) {
  MesaDeImportar m;
  const QString antes = m.articulos();
  m.fichero(u"catalogo.plu"_s, larga(3, 10, u"NUEVO"_s) + larga(3, 11, u"OTRO"_s) +
                                   larga(3, 1, u"SISTEMA"_s) + larga(9, 12, u"SIN SECCION"_s));
  auto* v = m.abrir(u"ImpPLU"_s);
  EXPECT_EQ(rotulo(v, u"mensaje"), u"Seleccione (DbClick) un fichero de la lista"_s);
  tecla(Qt::Key_Return);
  EXPECT_EQ(rotulo(v, u"mensaje"), u"Listo para incorporar los Artículos indicados"_s);
  EXPECT_FALSE(v->findChild<QListWidget*>()->isEnabled());
  tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] {
    return rotulo(v, u"mensaje") == u"ERROR: El fichero contiene líneas no reconocibles"_s;
  }));
  EXPECT_EQ(m.articulos(), u"10 NUEVO 175 | 11 OTRO 175"_s);
  EXPECT_EQ(rotulo(v, u"Conta"), u"4 líneas"_s);
  auto& malas = lista(v, u"malas");
  ASSERT_EQ(malas.filas(), 2);
  EXPECT_EQ(malas.texto(0, u"linea") + malas.texto(1, u"linea"), u"34"_s);
  EXPECT_EQ(malas.texto(1, u"motivo"), u"No hay ninguna sección 009: créela antes de importar."_s);
  EXPECT_TRUE(v->tira().texto().contains(m.textos(4629)));
  tecla(Qt::Key_Return);
  EXPECT_EQ(rotulo(v, u"mensaje"), u"Seleccione (DbClick) un fichero de la lista"_s);
  EXPECT_EQ(malas.filas(), 2) << "kept until another file is chosen";
  m.aceptar();
  boton(v, u"deshacer").setFocus();
  tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return m.articulos() == antes && boton(v, u"Cerrar").isEnabled(); }));
  ASSERT_TRUE(esperar([&] { return !v->trabajo().enMarcha(); }));
  EXPECT_FALSE(boton(v, u"deshacer").isEnabled());
}

TEST(VentanaImpPLU, ConservarYParar) {
  MesaDeImportar m;
  QString muchas;
  for (int n = 0; n < 20'000; ++n) muchas += larga(3, 10 + n, u"ARTICULO"_s);
  m.fichero(u"A.PLU"_s, muchas);
  auto* v = m.abrir(u"ImpPLU"_s);
  tecla(Qt::Key_Return);
  v->findChild<QRadioButton*>(u"Acumular"_s)->click();
  boton(v, u"Haz").click();
  ASSERT_TRUE(esperar([&] { return rotulo(v, u"Conta") != u""_s; }));
  QTest::keyClick(v, Qt::Key_E, Qt::AltModifier);
  ASSERT_TRUE(
      esperar([&] { return rotulo(v, u"mensaje") == u"Proceso interrumpido por el usuario"_s; }));
  const qint64 hay = bien(m.db->uno(u"SELECT count(*) FROM PLUSES WHERE CODPLU>2")).entero();
  EXPECT_GT(hay, 1);
  EXPECT_LT(hay, 20'000);
  EXPECT_TRUE(m.articulos().startsWith(u"10 VIEJO 150 | "_s));
  boton(v, u"Haz").click();
  EXPECT_EQ(rotulo(v, u"mensaje"), u"Seleccione (DbClick) un fichero de la lista"_s);
}

TEST(VentanaImpPLU, UnFicheroSinLineasSeDice) {
  MesaDeImportar m;
  m.fichero(u"A.PLU"_s, {});
  auto* v = m.abrir(u"ImpPLU"_s);
  tecla(Qt::Key_Return);
  tecla(Qt::Key_Return);
  ASSERT_TRUE(
      esperar([&] { return rotulo(v, u"mensaje") == u"Importación realizada con éxito"_s; }));
  EXPECT_EQ(v->tira().texto(), u"El fichero no tiene ninguna línea: no se ha importado nada."_s);
  EXPECT_EQ(v->tira().estado(), ventanas::Estado::Duda);
  EXPECT_EQ(rotulo(v, u"Conta"), u"Ninguna línea"_s);
}

TEST(VentanaMainTvc, AUnaSeccionConPrefijos) {
  MesaDeImportar m;
  m.fichero(u"viejo.PLU"_s, u"010045"_s + u"PAN"_s.leftJustified(30) + u"2000200000300----07"_s +
                                QString(13, u'8') + u"00000000\r\n"_s);
  auto* v = m.abrir(u"MainTvc"_s);
  EXPECT_EQ(rotulo(v, u"Panel"), u"Seleccione un Fichero de exportación"_s);
  v->findChild<QRadioButton*>(u"AUnaSecc"_s)->click();
  v->findChild<QLineEdit*>(u"Secc"_s)->setText(u"0"_s);
  v->findChild<QLineEdit*>(u"Pfjo7"_s)->setText(u"27"_s);
  v->findChild<QListWidget*>()->setFocus();
  tecla(Qt::Key_Return);
  EXPECT_EQ(rotulo(v, u"Panel"), u"Puede iniciar el proceso"_s);
  tecla(Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), v->findChild<QLineEdit*>(u"Secc"_s)) << "0 is invalid";
  v->findChild<QLineEdit*>(u"Secc"_s)->setText(u"003"_s);
  boton(v, u"inicioproceso").click();
  ASSERT_TRUE(esperar([&] { return rotulo(v, u"Panel") == u"Proceso Terminado correctamente"_s; }));
  EXPECT_EQ(m.articulos(), u"10 VIEJO 150 | 10045 PAN 300"_s);
  EXPECT_EQ(bien(m.db->uno(u"SELECT PFX_BAR FROM PLUSES WHERE CODPLU=10045")).texto(), u"27"_s);
}

// A file that isn't from the former system is reported as such, and creates nothing.
TEST(VentanaMainTvc, UnFicheroQueNoEs) {
  const std::pair<QString, QString> casos[] = {
      {larga(3, 1000, u"SISTEMA"_s), u"viejo.PLU es de otro formato"_s},
      {u"basura\n1\n\x01\x02\n"_s, u"3 líneas sin incorporar: están en la lista."_s},
      {u"basura\n"_s, u"1 línea sin incorporar: está en la lista."_s},
      {u""_s, u"viejo.PLU está vacío."_s}};
  for (const auto& [texto, dicho] : casos) {
    MesaDeImportar m;
    m.fichero(u"viejo.PLU"_s, texto);
    auto* v = m.abrir(u"MainTvc"_s);
    tecla(Qt::Key_Return);
    tecla(Qt::Key_Return);
    ASSERT_TRUE(esperar([&] {
      return rotulo(v, u"Panel") == u"El fichero no se encuentra o no es válido"_s;
    })) << texto.toStdString();
    EXPECT_TRUE(v->tira().texto().startsWith(dicho)) << v->tira().texto().toStdString();
    EXPECT_EQ(bien(m.db->uno(u"SELECT count(*) FROM SECCS")).entero(), 2);
    EXPECT_FALSE(boton(v, u"deshacer").isEnabled());
  }
}

TEST(VentanaMainTvc, DeshacerQuitaLaSeccionQueHizo) {
  MesaDeImportar m;
  m.fichero(u"viejo.PLU"_s, u"070045"_s + u"PAN"_s.leftJustified(30) + u"2000200000300----07"_s +
                                QString(13, u'8') + u"00000000\r\n"_s);
  auto* v = m.abrir(u"MainTvc"_s);
  const auto hay = [&] {
    return bien(m.db->uno(u"SELECT count(*) FROM SECCS WHERE NMSECC=7")).entero() == 1;
  };
  tecla(Qt::Key_Return);
  tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return rotulo(v, u"Panel") == u"Proceso Terminado correctamente"_s; }));
  EXPECT_TRUE(hay());
  m.aceptar();
  QTest::keyClick(v, Qt::Key_D, Qt::AltModifier);
  ASSERT_TRUE(esperar([&] { return !hay(); }));
  EXPECT_TRUE(v->tira().texto().startsWith(u"Importación deshecha."));
}

// File, columns, preview, import, undo; without a mouse.
TEST(VentanaImpTabla, DeUnaHojaDeCalculoConTeclas) {
  MesaDeImportar m;
  const QString antes = m.articulos();
  ASSERT_TRUE(
      QFile::copy(QStringLiteral(TARVO_MUESTRAS "/precios.xlsx"), m.ruta(u"precios.xlsx"_s)));
  auto* v = m.abrir(u"ImpTabla"_s);
  tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return rotulo(v, u"paso").startsWith(u"2."); }));
  EXPECT_EQ(v->findChild<QComboBox*>(u"columna2"_s)->currentText(), u"Precio, tarifa 1"_s);
  tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return rotulo(v, u"paso").startsWith(u"3."); }));
  auto& previa = lista(v, u"previa");
  ASSERT_EQ(previa.filas(), 3);
  EXPECT_EQ(previa.texto(0, u"detalle"), u"Nombre: VIEJO → PIÑA"_s);
  EXPECT_EQ(previa.texto(1, u"detalle"), u"Precio, tarifa 1: 1.234,25"_s);
  EXPECT_EQ(m.articulos(), antes) << "a dry run writes nothing";
  tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return rotulo(v, u"paso").startsWith(u"4."); }));
  EXPECT_EQ(m.articulos(), u"10 PIÑA 150 | 11 NUEZ MIEL 123425 | 12 PAN 30"_s);
  m.aceptar();
  QTest::keyClick(v, Qt::Key_D, Qt::AltModifier);
  ASSERT_TRUE(esperar([&] { return m.articulos() == antes; }));
}

TEST(VentanaImpTabla, LaPersonaCambiaLasColumnas) {
  MesaDeImportar m;
  m.fichero(u"t.csv"_s, u"Cosa;Texto;Valor\n10;VIEJO;2,50\nx;MALA;1\n"_s);
  auto* v = m.abrir(u"ImpTabla"_s);
  tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return rotulo(v, u"paso").startsWith(u"2."); }));
  boton(v, u"siguiente").click();
  EXPECT_EQ(v->tira().texto(), m.textos(4766)) << "no column is assigned to the code";
  v->findChild<QAbstractButton*>(u"conTitulos"_s)->click();  // none is recognised
  const auto elegir = [&](const QString& columna, const QString& campo) {
    auto* caja = v->findChild<QComboBox*>(columna);
    caja->setCurrentIndex(caja->findText(campo));
  };
  elegir(u"columna0"_s, u"Código"_s);
  elegir(u"columna2"_s, u"Precio, tarifa 1"_s);
  boton(v, u"siguiente").click();
  ASSERT_TRUE(esperar([&] { return rotulo(v, u"paso").startsWith(u"3."); }));
  EXPECT_TRUE(v->tira().texto().startsWith(u"1 artículo tiene un precio")) << "1,50 to 2,50";
  auto* ver = v->findChild<QComboBox*>(u"quever"_s);
  ver->setCurrentIndex(ver->findText(u"Precios por comprobar (1)"_s));
  Q_EMIT ver->activated(ver->currentIndex());
  ASSERT_EQ(lista(v, u"previa").filas(), 1);
  EXPECT_TRUE(lista(v, u"previa").texto(0, u"detalle").contains(u"2,50"));
  ver->setCurrentIndex(ver->findText(u"Rechazadas (1)"_s));
  Q_EMIT ver->activated(ver->currentIndex());
  ASSERT_EQ(lista(v, u"previa").filas(), 1);
  EXPECT_EQ(lista(v, u"previa").texto(0, u"detalle"), u"Código: «x» no vale."_s);
  boton(v, u"atras").click();
  EXPECT_TRUE(rotulo(v, u"paso").startsWith(u"2."));
  boton(v, u"siguiente").click();
  ASSERT_TRUE(esperar([&] { return rotulo(v, u"paso").startsWith(u"3."); }));
  boton(v, u"siguiente").click();
  ASSERT_TRUE(esperar([&] { return rotulo(v, u"paso").startsWith(u"4."); }));
  EXPECT_EQ(m.articulos(), u"10 VIEJO 250"_s);
  EXPECT_EQ(lista(v, u"malas").filas(), 1);
}

// Stopping or closing in the middle leaves everything as before the import. Changes made by others
// meanwhile are possible, and stay.
TEST(VentanaImpTabla, ParadaNoDejaNada) {
  for (const bool cerrando : {false, true}) {
    MesaDeImportar m;
    QString csv = u"Código;Nombre;PVP\n10;CAMBIADO;9\n"_s;
    for (int n = 11; n < 4'000; ++n) csv += u"%1;NUEVO;1,50\n"_s.arg(n);
    m.fichero(u"t.csv"_s, csv);
    auto* v = m.abrir(u"ImpTabla"_s);
    tecla(Qt::Key_Return);
    ASSERT_TRUE(esperar([&] { return rotulo(v, u"paso").startsWith(u"2."); }));
    tecla(Qt::Key_Return);
    ASSERT_TRUE(esperar([&] { return rotulo(v, u"paso").startsWith(u"3."); }));
    tecla(Qt::Key_Return);
    const auto hay = [&] {
      return bien(m.db->uno(u"SELECT count(*) FROM PLUSES WHERE CODPLU>2")).entero();
    };
    ASSERT_TRUE(esperar([&] { return hay() > 200; }));
    EXPECT_LT(hay(), 3'900);
    m.sql(u"UPDATE PLUSES SET NOMPLU='DE OTRO' WHERE CODPLU=10"_s);
    if (cerrando) {
      m.aceptar();  // it asks first
      EXPECT_TRUE(v->descargar());
    } else {
      QTest::keyClick(v, Qt::Key_Escape);
      ASSERT_TRUE(esperar([&] {
        return rotulo(v, u"paso").startsWith(u"2.") && hay() == 1 && !v->trabajo().enMarcha();
      }));
      EXPECT_TRUE(v->tira().texto().startsWith(m.textos(4790))) << v->tira().texto().toStdString();
      EXPECT_FALSE(boton(v, u"deshacer").isEnabled());
    }
    EXPECT_EQ(m.articulos(), u"10 DE OTRO 900"_s);
  }
}

// An import cut off by a crash of the program is reported, and can be undone.
TEST(VentanaImpTabla, LaQueQuedoAMediasSeDice) {
  MesaDeImportar m;
  articles::Lotes lotes{m.catalogo};
  bien(lotes.guardar(bien(lotes.empezar(u"ImpTabla"_s)), {3, 10}));
  m.sql(u"UPDATE PLUSES SET NOMPLU='A MEDIAS' WHERE CODPLU=10"_s);
  auto* v = m.abrir(u"ImpTabla"_s);
  EXPECT_TRUE(v->tira().texto().startsWith(u"1 artículo de una operación a medias sigue cambiado"));
  m.aceptar();
  QTest::keyClick(v, Qt::Key_D, Qt::AltModifier);
  ASSERT_TRUE(esperar([&] { return m.articulos() == u"10 VIEJO 150"_s; }));
}

// The keys then move on to the next file.
TEST(VentanaImpTabla, UnaHojaRotaSeDice) {
  MesaDeImportar m;
  m.fichero(u"rota.ods"_s, u"esto no es una hoja"_s);
  m.fichero(u"sana.csv"_s, u"Código;PVP\n10;2,50\n"_s);
  auto* v = m.abrir(u"ImpTabla"_s);
  tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return v->tira().texto().startsWith(u"rota.ods"); }));
  EXPECT_TRUE(rotulo(v, u"paso").startsWith(u"1."));
  EXPECT_TRUE(boton(v, u"siguiente").isEnabled());
  ASSERT_EQ(QApplication::focusWidget(), v->findChild<QListWidget*>());
  tecla(Qt::Key_Down);
  tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return rotulo(v, u"paso").startsWith(u"2."); }));
  EXPECT_FALSE(v->tira().isVisible()) << "it referred to another file";
  EXPECT_TRUE(rotulo(v, u"como").endsWith(u"«;», 1 fila.")) << rotulo(v, u"como").toStdString();
}

// The folder of the last file is where every import looks next time.
TEST(VentanasImportar, LaCarpetaSeRecuerda) {
  MesaDeImportar m;
  QDir(m.carpeta.path()).mkdir(u"otra"_s);
  m.fichero(u"otra/A.PLU"_s, larga(3, 11, u"A"_s));
  auto* v = m.abrir(u"ImpPLU"_s);
  EXPECT_EQ(rotulo(v, u"carpeta"), m.carpeta.path());
  QTimer::singleShot(50, v, [&] {
    auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialogo, nullptr);
    dialogo->findChild<QLineEdit*>()->setText(m.ruta(u"otra"_s));
    QTest::keyClick(dialogo->findChild<QLineEdit*>(), Qt::Key_Return);
  });
  boton(v, u"otraCarpeta").click();
  EXPECT_EQ(v->findChild<QListWidget*>()->count(), 1);
  EXPECT_TRUE(v->descargar());
  EXPECT_EQ(rotulo(m.abrir(u"MainTvc"_s), u"carpeta"), m.ruta(u"otra"_s));
  QDir(m.ruta(u"otra"_s)).removeRecursively();
  EXPECT_EQ(rotulo(m.abrir(u"ImpTabla"_s), u"carpeta"), m.carpeta.path()) << "the last one is gone";
}

}  // namespace
}  // namespace tarvo::prueba
