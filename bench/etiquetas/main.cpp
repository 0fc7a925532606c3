// tarvo-bench-etiquetas: a label of thirty fields at 400 %, on which a field is dragged: the time
// from the pointer's movement to the painted frame, that of 99 in 100. Prints a line, as
// tarvo-bench
// --razones does.
#include <QMouseEvent>
#include <QScrollBar>
#include <QSpinBox>

#include "Pintado.h"
#include "articles/TablasArticulos.h"
#include "core/ventanas/marco/Escritorio.h"
#include "labels/Etiquetas.h"
#include "labels/ventanas/Lienzo.h"
#include "labels/ventanas/RegistrarVentanas.h"

using namespace tarvo;
using namespace tarvo::banco;
using namespace tarvo::labels;
using namespace Qt::StringLiterals;

namespace {

constexpr int kCampos = 30, kZoom = 400, kCuadros = 1000;
constexpr double kCuadroMs = 16, kDeCien = 0.99;

// Texts of all fonts, bar codes, frames and lines, one on top of another.
Formato lleno() {
  Formato f;
  for (int i = 0; i < 4; ++i)
    f.campos.push_back({.tipo = TipoCampo::CodigoDeBarras, .X = 10 * i, .Y = 80 + 60 * i});
  for (int i = 0; i < 5; ++i) {
    f.campos.push_back(
        {.tipo = TipoCampo::Rectangulo, .X = 5 * i, .Y = 9 * i, .Esp = 3, .X2 = 180, .Y2 = 400});
    f.campos.push_back(
        {.tipo = TipoCampo::LineaGrafica, .X = 9, .Y = 50 * i, .Lon = 170, .Esp = 4});
  }
  while (std::ssize(f.campos) < kCampos) {
    const int i = static_cast<int>(std::ssize(f.campos));
    f.campos.push_back(
        {.tipo = TipoCampo::NombrePlu, .X = 1, .Y = 12 * i % 240, .fuente = i % kFuentes});
  }
  return f;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication qt(argc, argv);
  qt.setQuitOnLastWindowClosed(false);
  const QTemporaryDir carpeta;
  const auto db = hacerTienda(carpeta.filePath(u"TARVO.MDB"_s), 1, 10);
  bien(articles::asegurarTablasArticulos(*db));
  Ajustes ajustes(carpeta.path(), Idioma::Espanol);
  const Textos textos = bien(Textos::leer(u":/textos/es.txt"_s));
  RelojReal reloj;
  articles::Catalogo catalogo(*db, textos, reloj, u"banco"_s);
  Etiquetas etiquetas(catalogo);
  bien(etiquetas.crear(u"LLENA"_s));
  bien(etiquetas.guardar({u"LLENA"_s, lleno().texto()}));
  ventanas::Escritorio escritorio(qt, *db, ajustes, textos, reloj, ventanas::Cara::Clara, {});
  registrarVentanasLabels(escritorio.ventanas(), catalogo);
  auto* v = escritorio.ventanas().abrir(u"EdiEtqu"_s);
  if (!v) morir(u"no se abre"_s);
  v->resize(1920, 1040);
  v->findChild<QSpinBox*>(u"Zoom"_s)->setValue(kZoom);
  auto* lienzo = v->findChild<Lienzo*>(u"Lienzo"_s);
  lienzo->verticalScrollBar()->setValue(0);
  QWidget* vista = lienzo->viewport();
  Pintor p(vista);
  esperar("el primer pintado", [&] { return p.pintadas > 0; });

  lienzo->elegir({kCampos - 1});
  const auto raton = [&](QEvent::Type que, QPointF donde, Qt::MouseButtons botones) {
    QMouseEvent e(que, donde, vista->mapToGlobal(donde), Qt::LeftButton, botones, Qt::NoModifier);
    QApplication::sendEvent(vista, &e);
  };
  const QPointF desde = lienzo->enVista(QRectF(lienzo->cajaDelCampo(kCampos - 1)).center());
  raton(QEvent::MouseButtonPress, desde, Qt::LeftButton);
  std::vector<double> tardan;
  for (int i = 1; i <= kCuadros; ++i) {
    QElapsedTimer t;
    t.start();
    p.pintadas = 0;
    raton(QEvent::MouseMove, desde + QPointF(40 + 4.0 * (i % 60), -4.0 * (i % 90)), Qt::LeftButton);
    esperar("el cuadro", [&] { return p.pintadas > 0; });
    tardan.push_back(ms(t));
  }
  raton(QEvent::MouseButtonRelease, desde, Qt::NoButton);
  return decir("etiquetas.arrastrar_a_400", enElLugar(tardan, kDeCien), kCuadroMs) ? 0 : 1;
}
