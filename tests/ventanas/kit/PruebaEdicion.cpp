// Editing the cells of a list with keys and clicks.
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include "Muestra.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

struct Hoja : Mesa {
  Hoja() : Mesa(kTextosMuestra) {
    llenarArticulos(*this, 20);
    auto columnas = columnasArticulos();
    for (Columna& c : columnas)
      if (c.campo == u"NOMBRE" || c.campo == u"IMPORTE")
        c.editar = [this, campo = c.campo](qint64 clave, const QString& texto) -> Resultado<> {
          if (texto.isEmpty() || texto == u"0,13") return fallo(Fallo::Restriccion, u"No vale"_s);
          sql(u"update ART set "_s + campo + u"=? where CODIGO=?"_s, texto, clave);
          return {};
        };
    p.resize(900, 500);
    p.preparar(contexto(), u"Prueba"_s, columnas);
    QObject::connect(&p, &Parrilla::fallo, &p, [this](const Error& e) { dicho = e.texto; });
    QObject::connect(&p, &Parrilla::activada, &p, [this] { ++activadas; });
    QObject::connect(&p, &Parrilla::resuelto, &p, [this] { dicho.clear(); });
    QObject::connect(&p, &Parrilla::escrita, &p, [this](int fila) { escrita = fila; });
    QObject::connect(&p, &Parrilla::pista, &p, [this](const QString& texto) { pista = texto; });
    p.show();
    p.activateWindow();
    EXPECT_TRUE(esperar([this] { return p.isActiveWindow(); }));
    p.vista()->setFocus();
    bien(p.abrir({.desde = u"ART"_s, .clave = u"CODIGO"_s}));
  }
  void irA(int fila, const QString& campo) {
    p.vista()->setCurrentIndex(p.modelo()->index(fila, p.modelo()->columna(campo)));
  }
  QLineEdit* campo() {
    for (auto* c : p.vista()->viewport()->findChildren<QLineEdit*>(u"celda"_s))
      if (c->isVisible()) return c;
    return nullptr;
  }
  void tecla(Qt::Key t) {
    QWidget* donde = campo() ? static_cast<QWidget*>(campo()) : p.vista();
    QTest::keyClick(donde, t);
  }
  void escribir(const QString& texto) {
    ASSERT_NE(campo(), nullptr);
    campo()->selectAll();
    QTest::keyClicks(campo(), texto);
  }
  QString celda(int fila, const QString& campo) { return p.texto(fila, campo); }

  QString rotulo() {
    const auto* r = p.findChild<QLabel*>(u"tecleado"_s);
    return r->isVisible() ? r->text() : QString();
  }

  QString dicho, pista;
  Parrilla p;
  int activadas = 0, escrita = -1;
};

}  // namespace

TEST(Edicion, IntroYF2AbrenEscapeLoDeja) {
  Hoja h;
  const QString antes = h.celda(2, u"NOMBRE"_s);
  for (const Qt::Key abre : {Qt::Key_F2, Qt::Key_Return}) {
    h.irA(2, u"NOMBRE"_s);
    h.tecla(abre);
    h.escribir(u"Otro"_s);
    h.tecla(Qt::Key_Escape);
    EXPECT_EQ(h.campo(), nullptr);
    EXPECT_EQ(h.celda(2, u"NOMBRE"_s), antes);
    EXPECT_EQ(h.escrita, -1);
  }
  h.tecla(Qt::Key_F2);
  h.escribir(u"Otro"_s);
  h.tecla(Qt::Key_Return);
  EXPECT_EQ(h.celda(2, u"NOMBRE"_s), u"Otro");
  EXPECT_EQ(h.escrita, 2);
  EXPECT_EQ(h.activadas, 0);
  EXPECT_TRUE(h.p.vista()->hasFocus());
  // A column without `editar` behaves as before.
  h.irA(2, u"CODIGO"_s);
  h.tecla(Qt::Key_F2);
  EXPECT_EQ(h.campo(), nullptr);
  h.tecla(Qt::Key_Return);
  EXPECT_EQ(h.activadas, 1);
}

TEST(Edicion, LoRechazadoSigueAbierto) {
  Hoja h;
  h.irA(1, u"IMPORTE"_s);
  h.tecla(Qt::Key_F2);
  h.escribir(u"0,13"_s);
  h.tecla(Qt::Key_Return);
  ASSERT_NE(h.campo(), nullptr);
  EXPECT_EQ(h.campo()->text(), u"0,13");
  EXPECT_EQ(h.dicho, u"No vale");
  // A click elsewhere doesn't lose it either.
  QTest::mouseClick(h.p.vista()->viewport(), Qt::LeftButton, {}, QPoint(20, 200));
  ASSERT_TRUE(esperar([&] { return h.campo() && h.campo()->text() == u"0,13"; }));
  EXPECT_EQ(h.p.filaActual(), 1);
  h.escribir(u"300"_s);
  h.tecla(Qt::Key_Return);
  EXPECT_EQ(h.campo(), nullptr);
  EXPECT_EQ(h.p.valor(1, u"IMPORTE").entero(), 300);
  EXPECT_EQ(h.dicho, u"") << "resolved by the value written";
  h.tecla(Qt::Key_F2);
  h.escribir(u"0,13"_s);
  h.tecla(Qt::Key_Return);
  EXPECT_EQ(h.dicho, u"No vale");
  h.tecla(Qt::Key_Escape);
  EXPECT_EQ(h.dicho, u"") << "resolved by giving it up";
}

// Whatever is typed in a cell of numbers arrives whole, or is refused in words: no sign is dropped.
TEST(Edicion, NingunaCeldaTomaOtroNumero) {
  const struct {
    Clase clase;
    const char16_t *texto, *dicho;
  } casos[] = {
      {Clase::Codigo, u"1e3", u"«1e3» no vale: aquí van sólo cifras."},
      {Clase::Codigo, u"12.5", u"«12.5» no vale: aquí van sólo cifras."},
      {Clase::Codigo, u"1234567890", u"Caben 9 letras y hay 10."},
      {Clase::Entero, u"12,5", u"«12,5» no vale: aquí van sólo cifras."},
      {Clase::Entero, u"-3", u"«-3» no vale: aquí van sólo cifras."},
      {Clase::Porcentaje, u"1e3", u"«1e3» no vale: escriba un tanto por ciento, como 10,5."},
      {Clase::Importe, u"2'99", nullptr},
      {Clase::Importe, u"$5", nullptr},
      {Clase::Cantidad, u"1e3", nullptr},
      {Clase::Codigo, u"12", nullptr}};
  for (const auto& c : casos) {
    Hoja h;
    QString llegado = u"nada"_s;
    h.p.preparar(h.contexto(), u"Otra"_s,
                 {{.titulo = 9912,
                   .campo = u"IMPORTE"_s,
                   .clase = c.clase,
                   .editar = [&](qint64, const QString& texto) -> Resultado<> {
                     llegado = texto;
                     return {};
                   },
                   .largo = c.clase == Clase::Codigo ? 9 : 0}});
    bien(h.p.abrir({.desde = u"ART"_s, .clave = u"CODIGO"_s}));
    const QString texto = QString::fromUtf16(c.texto);
    h.irA(1, u"IMPORTE"_s);
    QTest::keyClicks(h.p.vista(), texto.left(1));  // opens the editor
    ASSERT_NE(h.campo(), nullptr) << texto.toStdString();
    QTest::keyClicks(h.campo(), texto.mid(1));
    h.tecla(Qt::Key_Return);
    EXPECT_EQ(llegado, c.dicho ? u"nada"_s : texto);
    EXPECT_EQ(h.dicho, QString::fromUtf16(c.dicho ? c.dicho : u"")) << texto.toStdString();
    EXPECT_EQ(h.campo() != nullptr, c.dicho != nullptr) << texto.toStdString();
  }
}

// What is typed on a cell that can't be written is searched in its column, which is shown. Where it
// isn't found either, that is said, and the Return after it opens no row: another one was meant.
TEST(Edicion, LoTecleadoDondeNoSeEscribeSeDice) {
  const struct {
    const char16_t *campo, *texto, *rotulo, *pista, *codigo;
  } casos[] = {
      {u"CODIGO", u"12", u"«Código»: lo primero que empieza por «12»", u"", u"0000012"},
      {u"CODIGO", u"77", u"«Código»: ninguna fila empieza por «77»",
       u"La columna «Código» no se escribe en la lista: lo que ha tecleado no ha cambiado nada.",
       nullptr},
      {u"FECHA", u"x", u"«Fecha»: ninguna fila empieza por «x»",
       u"La columna «Fecha» no se escribe en la lista: lo que ha tecleado no ha cambiado nada.",
       nullptr},
      {u"IMPORTE", u"x", u"", u"«x» no vale en «Importe»: no ha cambiado nada.", nullptr},
  };
  for (const auto& c : casos) {
    Hoja h;
    h.irA(2, QString::fromUtf16(c.campo));
    QTest::keyClicks(h.p.vista(), QString::fromUtf16(c.texto));
    EXPECT_EQ(h.campo(), nullptr);
    // An editable cell is opened by it.
    if (QString::fromUtf16(c.campo) != u"IMPORTE") h.tecla(Qt::Key_Return);
    ASSERT_TRUE(esperar([&] { return !h.p.trabajando(); }));
    EXPECT_EQ(h.rotulo(), QString::fromUtf16(c.rotulo));
    EXPECT_EQ(h.pista, QString::fromUtf16(c.pista));
    EXPECT_EQ(h.activadas, c.codigo ? 1 : 0);
    if (c.codigo) {
      EXPECT_EQ(h.celda(h.p.filaActual(), u"CODIGO"_s), QString::fromUtf16(c.codigo));
      continue;
    }
    EXPECT_EQ(h.p.filaActual(), 2);
    // What is done next is done, and takes the hint away.
    h.irA(2, u"NOMBRE"_s);
    h.tecla(Qt::Key_F2);
    EXPECT_NE(h.campo(), nullptr);
    EXPECT_EQ(h.pista, u"");
    EXPECT_EQ(h.rotulo(), u"");
  }
}

TEST(Edicion, ElTabuladorSigueYLasHojasSeEscribenSinAbrir) {
  Hoja h;
  h.irA(0, u"NOMBRE"_s);
  h.tecla(Qt::Key_F2);
  h.escribir(u"Uno"_s);
  h.tecla(Qt::Key_Tab);
  EXPECT_EQ(h.p.vista()->currentIndex().column(), h.p.modelo()->columna(u"IMPORTE"));
  h.escribir(u"7"_s);
  h.tecla(Qt::Key_Tab);
  EXPECT_EQ(h.p.filaActual(), 1);
  h.tecla(Qt::Key_Escape);
  EXPECT_EQ(h.celda(0, u"NOMBRE"_s), u"Uno");
  EXPECT_EQ(h.p.valor(0, u"IMPORTE").entero(), 7);
  h.p.ponerEscribeAlTeclear(true);
  h.irA(4, u"IMPORTE"_s);
  QTest::keyClicks(h.p.vista(), u"1"_s);
  ASSERT_NE(h.campo(), nullptr);
  QTest::keyClicks(h.campo(), u"25"_s);
  h.tecla(Qt::Key_Return);
  EXPECT_EQ(h.p.valor(4, u"IMPORTE").entero(), 125);
  EXPECT_EQ(h.escrita, 4);
  h.tecla(Qt::Key_Return);
  EXPECT_EQ(h.activadas, 1) << "Enter emits no activation here";
}

}  // namespace tarvo::prueba
