// Following the traffic on a line.

#include "MesaDeComm.h"
#include "comm/enlace/LecturaTrama.h"
#include "comm/tramas/Trama.h"
#include "comm/ventanas/NombresTramas.h"

namespace tarvo::prueba {

using enlace::LecturaTrama;
using enlace::Sentido;

struct Tramas : MesaDeComm {
  ventanas::Parrilla* lista() { return control<ventanas::Parrilla>(u"lista"_s, u"VerTramas"_s); }
  QString fila(int f) {
    QStringList campos;
    for (const char16_t* c :
         {u"sentido", u"clase", u"dir", u"codigo", u"nombre", u"datos", u"check"})
      campos << lista()->texto(f, c);
    return campos.join(u'|');
  }
};

TEST_F(Tramas, TodasLasPreguntasTienenNombre) {
  for (const int codigo : {300, 400, 410, 420, 440, 570})
    EXPECT_NE(comm::nombreTrama(false, codigo), 0);
  EXPECT_EQ(textos(comm::nombreTrama(true, 72)), u"Balanzas conectadas");
}

TEST_F(Tramas, SigueUnaTareaCopiaYDescansa) {
  for (const int g : {1, 2}) {
    grupo(g, g, u"cable %1"_s.arg(g));
    vender(g, 10, 500, 250);
  }
  abrir(u"gestcomm"_s);
  const int id = encolar(1, 17);
  abrir(comm::PuertaVerTramas{.tarea = id});
  ASSERT_TRUE(hasta([&] { return lista()->filas() >= 4; }));
  EXPECT_EQ(fila(0), u"Sale|VEK|0|850|Gran total||Bien");
  EXPECT_EQ(fila(1), u"Llega|ACK|||||Bien");
  EXPECT_TRUE(fila(2).startsWith(u"Llega|VEK|0|850|Gran total|000000500"));
  EXPECT_EQ(fila(3), u"Sale|ACK|||||Bien");
  EXPECT_EQ(lista()->filas(), 4);  // nothing from the other line
  EXPECT_EQ(lista()->texto(0, u"hora").left(8), u"21:30:05");
  lista()->irA(0);
  EXPECT_TRUE(control<QPlainTextEdit>(u"Hexa"_s, u"VerTramas"_s)->toPlainText().contains(u"02 "));
  lista()->limpiarSeleccion();
  control<QAction>(u"Copiar"_s, u"VerTramas"_s)->trigger();
  EXPECT_EQ(QApplication::clipboard()->text().count(u'\n'), 3);

  auto* que = control<QComboBox>(u"Que"_s, u"VerTramas"_s);
  que->setCurrentIndex(que->findData(1));
  Q_EMIT que->activated(que->currentIndex());
  encolar(2, 17);
  ASSERT_TRUE(hasta([&] { return lista()->filas() >= 4; }));
  EXPECT_TRUE(fila(0).startsWith(u"Sale|NODAL||64|Gran total||Bien")) << fila(0).toStdString();
  auto* pausa = control<QAction>(u"Pausa"_s, u"VerTramas"_s);
  ASSERT_TRUE(correr());
  pasar(200);
  pausa->trigger();
  const int antes = lista()->filas();
  encolar(2, 7);
  ASSERT_TRUE(correr());
  pasar(200);
  EXPECT_EQ(lista()->filas(), antes);
  EXPECT_FALSE(control<QLabel>(u"LblPausa"_s, u"VerTramas"_s)->text().isEmpty());
  pausa->trigger();
  EXPECT_GT(lista()->filas(), antes);
  const QString ruta = carpeta_.filePath(u"tramas.csv"_s);
  lista()->exportarEn(ruta);
  ASSERT_TRUE(hasta([&] { return QFile::exists(ruta); }));
}

// Fragments are joined into frames, separately for each direction; other data is kept as received;
// and only the last frames of a channel are kept.
TEST_F(Tramas, LaEscuchaParteYOlvida) {
  enlace::Escucha escucha(*enlaces, reloj, 3);
  enlaces->escuchar(nullptr);
  grupo(1, 1, u"cable 1"_s);
  enlace::Escucha otra(*enlaces, reloj, 3);
  encolar(1, 18);
  ASSERT_TRUE(correr());
  int cuantos = 0;
  otra.recorrer(0, 0, [&](const enlace::Paso& p) {
    ++cuantos;
    EXPECT_EQ(p.bytes.count(tramas::kSTX), p.bytes.size() > 1 ? 1 : 0);
  });
  EXPECT_EQ(cuantos, 3);
  EXPECT_GT(otra.ultimo(), 20);
  EXPECT_EQ(escucha.ultimo(), 0);
}

TEST(LeerPaso, Campos) {
  const QByteArray hora = tramas::construirVEK(42, tramas::cuerpoVEK(0, 10, "180520261430"));
  const QByteArray caja = tramas::construirVEK(7, tramas::cuerpoVEK(3, 2060, ""));
  const QByteArray nodal = tramas::construirNODAL({0, 1, 0x2A, 36, "1805"});
  QByteArray mala = hora;
  mala[12] = 'x';
  struct {
    enlace::Paso paso;
    LecturaTrama::Que que;
    bool buena;
    int addr, codigo;
    QByteArray datos;
  } const casos[] = {
      {{.bytes = hora}, LecturaTrama::Vek, true, 0, 10, "180520261430"},
      {{.bytes = mala}, LecturaTrama::Vek, false, 0, 10, "180x20261430"},
      {{.ancha = true, .bytes = caja}, LecturaTrama::Vek, true, 3, 2060, ""},
      {{.sentido = Sentido::Llega,
        .ancha = true,
        .bytes = "\x02"
                 "07V2060001299\x03"},
       LecturaTrama::Vek,
       false,
       -1,
       2060,
       "0012"},
      {{.nodal = true, .bytes = nodal}, LecturaTrama::Nodal, true, -1, 36, "1805"},
      {{.bytes = "\x15"}, LecturaTrama::Nak, true, -1, -1, ""},
      {{.bytes = "basura"}, LecturaTrama::Ruido, false, -1, -1, "basura"},
      {{.bytes = "\x02\x03"}, LecturaTrama::Ruido, false, -1, -1, "\x02\x03"},
  };
  for (const auto& c : casos) {
    const LecturaTrama l = enlace::leerPaso(c.paso);
    EXPECT_EQ(l.que, c.que) << c.paso.bytes.toStdString();
    EXPECT_EQ(l.buena, c.buena) << c.paso.bytes.toStdString();
    EXPECT_EQ(l.addr, c.addr);
    EXPECT_EQ(l.codigo, c.codigo);
    EXPECT_EQ(l.datos, c.datos);
  }
  EXPECT_TRUE(enlace::llevaCodigoAncho(caja));
  EXPECT_FALSE(enlace::llevaCodigoAncho(hora));
}

}  // namespace tarvo::prueba
