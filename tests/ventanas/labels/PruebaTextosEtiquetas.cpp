// A field's properties, text sets, and a label as printed.
#include <QImage>

#include "MesaDeEtiquetas.h"

namespace tarvo::prueba {

// Each row: a type, and the controls that it shows.
TEST(PropiedadesDeCampo, CadaTipoMuestraLoSuyo) {
  MesaDeEtiquetas t;
  const struct {
    TipoCampo tipo;
    QStringList ve;
  } casos[] = {
      {TipoCampo::Peso, {u"LsFnt"_s, u"OpRota"_s}},
      {TipoCampo::CodigoDeBarras, {u"Altu"_s}},
      {TipoCampo::LineaGrafica, {u"OpRota"_s, u"Lon"_s, u"Esp"_s}},
      {TipoCampo::LineaTexto, {u"LsFnt"_s, u"OpRota"_s, u"Ntxt"_s}},
      {TipoCampo::Rectangulo, {u"Esp"_s, u"px2"_s, u"py2"_s}},
      {TipoCampo::RazonSocial, {u"LsFnt"_s, u"OpRota"_s, u"txNmL"_s}},
  };
  for (const auto& c : casos) {
    auto* v = t.abrir(PuertaEdiCampo{.campo = {.tipo = c.tipo, .Ntxt = 1}});
    for (const QString& nombre : {u"LsFnt"_s, u"OpRota"_s, u"Ntxt"_s, u"Altu"_s, u"Lon"_s, u"Esp"_s,
                                  u"px2"_s, u"py2"_s, u"txNmL"_s})
      EXPECT_EQ(v->findChild<QWidget*>(nombre)->isVisible(), c.ve.contains(nombre))
          << static_cast<int>(c.tipo) << ' ' << nombre.toStdString();
    v->descargar();
  }
}

// Each row: a type, what is typed into a field, and what is said; nothing: it is accepted.
TEST(PropiedadesDeCampo, LoIncorrectoNoSeAcepta) {
  const struct {
    TipoCampo tipo;
    const char16_t *campo, *escrito, *dice;
  } casos[] = {
      {TipoCampo::LineaTexto, u"Ntxt", u"0", u"Número de texto incorrecto"},
      {TipoCampo::LineaTexto, u"Ntxt", u"41", u"Número de texto incorrecto"},
      {TipoCampo::LineaTexto, u"Ntxt", u"40", u""},
      {TipoCampo::RazonSocial, u"txNmL", u"7", u"Número de Línea Razón Social incorrecto"},
      {TipoCampo::Rectangulo, u"Esp", u"10", u"El espesor de un rectángulo es de 1 a 9"},
      {TipoCampo::LineaGrafica, u"Esp", u"10", u""},
      {TipoCampo::CodigoDeBarras, u"Altu", u"30", u"De CÓDIGO DE BARRAS no caben más de 4"},
  };
  MesaDeEtiquetas t;
  for (const auto& c : casos) {
    PuertaEdiCampo puerta{.campo = {.tipo = c.tipo, .Ntxt = 1}};
    if (c.tipo == TipoCampo::CodigoDeBarras) puerta.resto.campos.assign(4, puerta.campo);
    auto* v = t.abrir(puerta);
    auto& campo = t.control<QLineEdit>(v, c.campo);
    campo.setFocus();
    campo.selectAll();
    t.escribir(QString::fromUtf16(c.escrito));
    t.textoModal.clear();
    if (*c.dice) t.responder(u"Acepto"_s);
    t.control<QPushButton>(v, u"Acepto").click();
    const QString dice = QString::fromUtf16(c.dice);
    EXPECT_EQ(t.textoModal.left(dice.size()).toStdString(), dice.toStdString());
    EXPECT_EQ(t.textoModal.isEmpty(), dice.isEmpty());
    EXPECT_EQ(v->isVisible(), *c.dice != 0) << QString::fromUtf16(c.dice).toStdString();
    if (!*c.dice) continue;
    t.responder(u"Acepto"_s);
    v->descargar();
  }
}

TEST(PropiedadesDeCampo, PasarALineaDeTextoPideUnTexto) {
  MesaDeEtiquetas t;
  PuertaEdiCampo puerta;
  puerta.textos[1] = u"kg"_s;
  auto* v = t.abrir(puerta);
  auto& tipo = t.control<QComboBox>(v, u"Tipo");
  tipo.setFocus();
  while (tipo.currentText() != u"LÍNEA TEXTO"_s) t.tecla(Qt::Key_Down);
  EXPECT_EQ(t.control<QLineEdit>(v, u"Ntxt").text(), u"1");
  EXPECT_EQ(t.control<QLabel>(v, u"textoNtxt").text(), u"kg");
  t.responder(u"Acepto"_s);
  v->descargar();
}

// A new set with a text, chosen for a format; then taken back.
TEST(JuegoDeTextosDeEtiqueta, CrearEscribirYElegir) {
  MesaDeEtiquetas t;
  auto* v = t.abrir(PuertaEdiEtqu());
  t.alAbrirse([&](QWidget* w) {
    t.activar(w);
    t.control<QLineEdit>(w, u"NombreNuevo").setFocus();
    t.escribir(u"QUESO"_s);
    t.tecla(Qt::Key_Return);
    auto& textos = t.lista(w, u"Textos");
    EXPECT_TRUE(textos.vista()->hasFocus());
    t.tecla(Qt::Key_F2);
    t.escribir(u"Curado"_s);
    t.tecla(Qt::Key_Return);
    EXPECT_EQ(textos.texto(20, u"texto"), u"Curado");
    // A fixed one can't be changed.
    textos.vista()->setCurrentIndex(textos.modelo()->index(4, 1));
    t.tecla(Qt::Key_F2);
    t.escribir(u"X"_s);
    t.tecla(Qt::Key_Return);
    EXPECT_EQ(textos.texto(4, u"texto"), u"PESO");
    t.tecla(Qt::Key_Escape);
    EXPECT_EQ(t.cuenta(u"TEXTOSETQ"_s), 1);
    t.control<QPushButton>(w, u"Acepto").click();
  });
  t.control<QPushButton>(v, u"JueTxt").click();
  EXPECT_EQ(t.leer(u"select settxt from ETIQUETAS where NUMETQ='DOS'"_s), u"QUESO");
  EXPECT_TRUE(t.uno(u"select Texto from TEXTOSETQ where CODSET='QUESO'"_s)
                  .texto()
                  .startsWith(u"Curado\r\n"_s));
  t.activar(v);
  t.lienzo(v).setFocus();
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.leer(u"select settxt from ETIQUETAS where NUMETQ='DOS'"_s), u"-");
}

TEST(EtiquetaImpresa, ConUnArticuloYEnElPeorCaso) {
  MesaDeEtiquetas t;
  const Formato f{.campos = {{.tipo = TipoCampo::NombrePlu, .X = 0, .Y = 40, .fuente = 3},
                             {.tipo = TipoCampo::CodigoDeBarras, .X = 0, .Y = 90}}};
  auto* v = t.abrir(PuertaVistaEtq{.nombre = u"DOS"_s, .formato = f});
  auto& dibujo = t.control<DibujoImpresion>(v, u"Dibujo");
  t.control<QLineEdit>(v, u"Busca").setFocus();
  t.escribir(u"lomo"_s);
  EXPECT_EQ(t.control<QLabel>(v, u"Ejemplo").text(), u"Lomo");
  EXPECT_EQ(t.lista(v, u"Tropiezos").filas(), 0);
  v->findChild<QAction*>(u"PeorCaso"_s)->trigger();
  ASSERT_EQ(t.lista(v, u"Tropiezos").filas(), 1);
  EXPECT_EQ(t.lista(v, u"Tropiezos").texto(0, u"que"),
            u"NOMBRE PLU: se corta, y no sale «xtra, el kilo»");
  for (const QString& fichero : {t.ruta(u"etiqueta.png"_s), t.ruta(u"etiqueta.pdf"_s)}) {
    bien(guardarImpresion(dibujo.impresion(), fichero, {}));
    QFile guardado(fichero);
    ASSERT_TRUE(guardado.open(QIODevice::ReadOnly));
    EXPECT_TRUE(guardado.readAll().contains(fichero.endsWith(u"pdf"_s) ? "%PDF" : "PNG"));
  }
  const QImage png(t.ruta(u"etiqueta.png"_s));
  EXPECT_EQ(png.size(), QSize(191, 465) * 4);
  EXPECT_FALSE(guardarImpresion({}, t.ruta(u"nada.png"_s), u"no"_s));
}

}  // namespace tarvo::prueba
