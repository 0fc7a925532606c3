// Where the printer puts the dots of a field, and what comes out badly.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "labels/Borrador.h"
#include "labels/Colocacion.h"
#include "labels/Muestra.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using Tipo = TipoCampo;

namespace {

const QString kPrograma = QStringLiteral(TARVO_BIN);

QString sinTextos(int) {
  return {};
}

FuenteImpresora delPrograma() {
  const auto f = buscarFuente(u"/nada"_s, kPrograma, textosDePrueba());
  EXPECT_TRUE(f.aviso.isEmpty()) << f.aviso.toStdString();
  return f.fuente;
}

// Rows of "#" and "." of a character.
QString letra(const FuenteImpresora& f, int fuente, int codigo) {
  QString s;
  const MedidaFuente m = kMedidas[static_cast<size_t>(fuente)];
  for (int y = 0; y < m.alto; ++y, s += u'/')
    for (int x = 0; x < m.ancho; ++x) s += f.negro(fuente, codigo, x, y) ? u'#' : u'.';
  return s.chopped(1);
}

}  // namespace

TEST(FuenteDeLaImpresora, TieneTodasLasLetrasQueElTextoNombra) {
  const FuenteImpresora f = delPrograma();
  EXPECT_EQ(letra(f, 0, 'L'), u"#..../#..../#..../#..../#..../#..../#####");
  EXPECT_EQ(letra(f, 1, 'L').count(u"#####"_s), 1);  // a stroke stays as thin as it was
  const QString todas = u"AZaz09€ÑñÇçáéíóúàèìòùÁÉÍÓÚÀÈÌÒÙ"_s;
  EXPECT_EQ(caracteresFuente(u"€ÑñÇçáéíóúàèìòùÀÙ"_s),
            QString(QChar(127)) + QChar(136) + QChar(137) + QChar(139) + QChar(160) + u'a' +
                QChar(145) + u"iou"_s + QChar(141) + QChar(142) + u"io"_s + QChar(143) + u"AU"_s);
  for (const QChar c : caracteresFuente(todas))
    for (int fuente = 0; fuente < kFuentes; ++fuente)
      EXPECT_TRUE(letra(f, fuente, c.unicode()).contains(u'#'))
          << int{c.unicode()} << ' ' << fuente;
  for (const int codigo : {0, 31, 163, 8364}) EXPECT_FALSE(f.negro(4, codigo, 0, 0));
}

TEST(FuenteDeLaImpresora, LaDeLaTiendaVaDelanteSiEstaEntera) {
  QFile nuestra(kPrograma + u"/LBLFNT.BIN"_s);
  ASSERT_TRUE(nuestra.open(QIODevice::ReadOnly));
  QByteArray bytes = nuestra.readAll();
  EXPECT_EQ(bytes.size(), 10218);
  QByteArray otra = bytes;
  otra['A' * 7 - 32 * 7] = '\xf8';
  const struct {
    QByteArray bytes;
    bool suya, avisa;
  } casos[] = {{otra, true, false},
               {bytes.chopped(1), false, true},
               {bytes + '\0', false, true},
               {QByteArray(bytes.size(), '\0'), false, true}};
  for (const auto& c : casos) {
    QTemporaryDir tienda;
    QFile f(tienda.filePath(u"lblfnt.bin"_s));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(c.bytes);
    f.close();
    const auto hallada = buscarFuente(tienda.path(), kPrograma, textosDePrueba());
    EXPECT_EQ(hallada.fuente.negro(0, 'A', 0, 0), c.suya);
    EXPECT_EQ(hallada.aviso.contains(tienda.path()), c.avisa) << hallada.aviso.toStdString();
  }
  const auto ninguna = buscarFuente(u"/nada"_s, u"/nada"_s, textosDePrueba());
  EXPECT_FALSE(ninguna.aviso.isEmpty());
  EXPECT_FALSE(ninguna.fuente.negro(0, 'A', 1, 0));
}

// Each row: a field of one "L", its box, and the box of its black dots.
TEST(CampoEnPuntos, CadaGiroPonenSuCaja) {
  const FuenteImpresora f = delPrograma();
  const struct {
    CampoEtiqueta campo;
    QRect caja, tinta;
  } casos[] = {
      {{.tipo = Tipo::Peso, .X = 50, .Y = 60}, {50, 53, 42, 7}, {50, 53, 5, 7}},
      {{.tipo = Tipo::Peso, .X = 50, .Y = 60, .rotacion = 1}, {50, 60, 7, 42}, {50, 60, 7, 5}},
      {{.tipo = Tipo::Peso, .X = 50, .Y = 60, .rotacion = 2}, {8, 60, 42, 7}, {8, 60, 5, 7}},
      {{.tipo = Tipo::Peso, .X = 50, .Y = 60, .rotacion = 3}, {43, 18, 7, 42}, {43, 18, 7, 5}},
      {{.tipo = Tipo::NombrePlu, .X = 0, .Y = 60, .fuente = 4}, {0, 37, 191, 23}, {0, 37, 7, 23}},
      {{.tipo = Tipo::CodigoDeBarras, .X = 0, .Y = 30}, {0, 0, 100, 30}, {2, 0, 95, 30}},
      {{.tipo = Tipo::LineaGrafica, .X = 9, .Y = 9, .rotacion = 3, .Lon = 5, .Esp = 1},
       {9, 4, 1, 5},
       {9, 4, 1, 5}},
      {{.tipo = Tipo::Rectangulo, .X = 9, .Y = 9, .X2 = 4, .Y2 = 5}, {4, 5, 6, 5}, {4, 5, 6, 5}},
  };
  for (const auto& c : casos) {
    const bool barras = c.campo.tipo == Tipo::CodigoDeBarras;
    const Mancha m = manchaDe(c.campo, barras ? u"8400000000109"_s : u"L"_s, f);
    EXPECT_EQ(m.caja, c.caja) << static_cast<int>(c.campo.tipo) << ' ' << c.campo.rotacion;
    // A turned text begins at the other end of its own length.
    const QRect tinta = m.tinta();
    EXPECT_EQ(tinta.size(), c.tinta.size()) << c.campo.rotacion;
    if (c.campo.rotacion == 0) {
      EXPECT_EQ(tinta, c.tinta);
    }
    EXPECT_TRUE(m.caja.contains(tinta));
  }
  EXPECT_EQ(muestraDe({.tipo = Tipo::LineaTexto, .Ntxt = 25}, sinTextos), QString(8, u' '));
  EXPECT_EQ(muestraDe({.tipo = Tipo::RazonSocial, .NmL = 4}, sinTextos),
            u"----RAZON SOCIAL-(4)-------");
}

// Each row: two fields, and what comes out badly.
TEST(Impresion, SeDiceLoQueSaleMal) {
  using Que = Tropiezo::Que;
  const FuenteImpresora f = delPrograma();
  Ejemplo e;
  e.textos[static_cast<size_t>(Tipo::NombrePlu)] = u"Jamón de bellota de la dehesa"_s;
  e.textos[static_cast<size_t>(Tipo::Peso)] = u"1,234"_s;
  e.textos[static_cast<size_t>(Tipo::Importe)] = u"1234567,89"_s;
  const CampoEtiqueta peso{.X = 10, .Y = 40};
  const struct {
    const char* que;
    std::vector<CampoEtiqueta> campos;
    std::vector<Tropiezo> sale;
  } casos[] = {
      {"apart", {peso, {.X = 10, .Y = 60}}, {}},
      {"a name of 29 letters",
       {{.tipo = Tipo::NombrePlu, .Y = 40}},
       {{Que::Cortado, 0, 0, u"sa"_s}}},
      {"an amount of 10",
       {{.tipo = Tipo::Importe, .Y = 40, .fuente = 3}},
       {{Que::Cortado, 0, 0, u",89"_s}}},
      {"above the paper", {{.Y = 5}}, {{Que::Fuera}}},
      {"beyond its width", {{.X = 170, .Y = 40}}, {{Que::Fuera}}},
      {"on top", {peso, {.X = 14, .Y = 44}}, {{Que::Encima, 1, 0}}},
      {"framed", {peso, {.tipo = Tipo::Rectangulo, .X = 5, .Y = 30, .X2 = 100, .Y2 = 45}}, {}},
      {"crossed by a frame",
       {peso, {.tipo = Tipo::Rectangulo, .X = 5, .Y = 36, .X2 = 100, .Y2 = 60}},
       {{Que::Encima, 1, 0}}},
      {"two frames",
       {{.tipo = Tipo::Rectangulo, .X = 5, .Y = 5}, {.tipo = Tipo::Rectangulo, .X = 9, .Y = 9}},
       {}},
      {"no code", {{.tipo = Tipo::CodigoDeBarras, .Y = 40}}, {{Que::SinBarras}}},
  };
  for (const auto& c : casos) {
    const auto salida = imprimir({.campos = c.campos}, e, sinTextos, f);
    EXPECT_EQ(salida.tropiezos, c.sale) << c.que;
  }
  EXPECT_TRUE(imprimir({.y0 = 465, .campos = {}}, e, sinTextos, f).area.isEmpty());
}

// Each row: a movement of a field, and the line that it has then.
TEST(Colocacion, UnCampoNoSaleDeLoQueElTextoAdmite) {
  const CampoEtiqueta marco{.tipo = Tipo::Rectangulo, .X = 10, .Y = 10, .X2 = 50, .Y2 = 30};
  const CampoEtiqueta raya{.tipo = Tipo::LineaGrafica, .X = 9, .Y = 9, .rotacion = 2};
  const struct {
    CampoEtiqueta campo;
    QPoint mueve, estira;
    QRect queda;  // X, Y and X2, Y2; of a line Lon, Esp
  } casos[] = {
      {{.X = 10, .Y = 10}, {500, 500}, {}, {191, 465, 100, 30}},
      {{.X = 10, .Y = 10}, {-20, -3}, {}, {-10, 7, 100, 30}},
      {marco, {-100, 500}, {}, {-40, 445, 0, 465}},
      {marco, {}, {-100, 500}, {10, 10, 0, 465}},
      {raya, {}, {-30, 100}, {9, 9, 130, 50}},
      {raya, {}, {900, -9}, {9, 9, 1, 1}},
  };
  for (auto c : casos) {
    mover(c.campo, c.mueve);
    estirar(c.campo, c.estira);
    const bool linea = c.campo.tipo == Tipo::LineaGrafica;
    EXPECT_EQ(QRect(c.campo.X, c.campo.Y, linea ? c.campo.Lon : c.campo.X2,
                    linea ? c.campo.Esp : c.campo.Y2),
              c.queda);
  }
  for (int n = 1; n <= 18; ++n) {
    const CampoEtiqueta nuevo = nuevoCampo(static_cast<Tipo>(n), {});
    EXPECT_GE(cajaDe(nuevo, muestraDe(nuevo, sinTextos)).top(), 0) << n;
    EXPECT_FALSE(nuevo.fuera());
  }
}

TEST(Colocacion, AlinearPegarYOrdenar) {
  Formato f{.campos = {{.X = 10, .Y = 20}, {.tipo = Tipo::Precio, .X = 30, .Y = 90, .fuente = 2}}};
  alinear(f, {0, 1}, Lado::Derecha, sinTextos);
  EXPECT_EQ(f.campos[0].X + 42, f.campos[1].X + 49);
  alinear(f, {0, 1}, Lado::Arriba, sinTextos);
  EXPECT_EQ(f.campos[0].Y - 7, f.campos[1].Y - 18);
  EXPECT_EQ(reordenar(f, {0}, 1), std::vector<size_t>{1});
  EXPECT_EQ(f.campos[1].tipo, Tipo::Peso);
  EXPECT_EQ(reordenar(f, {0, 1}, 1), (std::vector<size_t>{0, 1}));
  const Iman cerca = imantar({12, 50, 20, 7}, {{10, 0, 100, 10}}, 3);
  EXPECT_EQ(cerca.cuanto, QPoint(-2, 0));
  EXPECT_EQ(cerca.x, 10);
  EXPECT_FALSE(cerca.y);
  EXPECT_EQ(imantar({20, 50, 20, 7}, {{10, 0, 100, 10}}, 3).cuanto, QPoint());
}

TEST(Borrador, VuelveACadaEstadoYSabeSiEstaGuardado) {
  Borrador b;
  const auto con = [](int x) { return Formato{.campos = {{.X = x}}}; };
  b.cargar({con(1)});
  EXPECT_FALSE(b.poner(con(1)));
  EXPECT_TRUE(b.poner(con(2)));
  for (int x = 3; x < 9; ++x) b.poner(con(x), true);  // a held key
  EXPECT_TRUE(b.cambiado());
  EXPECT_TRUE(b.deshacer());
  EXPECT_FALSE(b.cambiado());
  EXPECT_FALSE(b.deshacer());
  EXPECT_TRUE(b.rehacer());
  EXPECT_EQ(b.formato(), con(8));
  b.guardado();
  b.ponerJuego(u"A"_s);
  EXPECT_FALSE(b.cambiado());
  b.deshacer();
  EXPECT_EQ(b.estado().juego, u"A"_s);
  b.poner(con(20));
  EXPECT_FALSE(b.rehacer());
}

}  // namespace tarvo::labels
