#include <QLabel>

#include "Muestra.h"
#include "capturas/Capturas.h"
#include "capturas/Cortes.h"

namespace tarvo::prueba {

// Every theme, size and scale of a whole window, full and empty, with nothing cut off. The variable
// TARVO_CAPTURAS keeps the pictures.
TEST(Capturas, NadaCortado) {
  for (const bool llena : {true, false}) {
    Mesa mesa(kTextosMuestra);
    llenarArticulos(mesa, llena ? 1000 : 0);
    mesa.escritorio.ventanas().registrar<PuertaDeMuestra, Muestra>(*mesa.db);
    const QString fuera = qEnvironmentVariable("TARVO_CAPTURAS");
    const QString carpeta = fuera.isEmpty() ? mesa.ruta(u"png"_s) : fuera;
    const QStringList faltas = capturas::capturar(
        mesa.escritorio,
        {.carpeta = carpeta, .marca = llena ? u"llena"_s : u"vacia"_s, .solo = {u"Muestra"_s}});
    EXPECT_EQ(faltas.join(u'\n').toStdString(), "");
    EXPECT_EQ(QDir(carpeta).entryList({llena ? u"*_llena_*.png"_s : u"*_vacia_*.png"_s}).size(),
              12);
  }
}

// A window that can't be opened is reported as a fault with its reason, and nothing waits for a
// user.
TEST(Capturas, DiceLaQueNoSeAbre) {
  Mesa mesa(kTextosMuestra);
  mesa.escritorio.ventanas().registrar<PuertaDeMuestra, Muestra>(*mesa.db);
  mesa.escritorio.ventanas().ponerMuestra(PuertaDeMuestra{{.falla = true}});
  const QStringList faltas = capturas::capturar(
      mesa.escritorio,
      {.carpeta = mesa.ruta(u"png"_s), .marca = u"llena"_s, .solo = {u"Muestra"_s}});
  EXPECT_EQ(faltas.size(), 12);
  EXPECT_TRUE(faltas.value(0).contains(u"No hay tal periodo."));
}

// A label, a button and a header without enough room are each reported, as are a control outside
// the window and a letter used by two controls.
TEST(Capturas, DiceLoCortado) {
  QWidget w;
  w.resize(300, 200);
  auto* rotulo = new QLabel(u"Un texto que no cabe"_s, &w);
  rotulo->setGeometry(0, 0, 20, 20);
  auto* boton = new QPushButton(u"Otro que tampoco"_s, &w);
  boton->setGeometry(0, 30, 20, 40);
  auto* fuera = new QWidget(&w);
  fuera->setGeometry(290, 100, 50, 20);
  for (const int x : {0, 150}) (new QPushButton(u"&Mas"_s, &w))->setGeometry(x, 120, 140, 40);
  w.show();
  EXPECT_EQ(capturas::cortes(w).size(), 4) << capturas::cortes(w).join(u'\n').toStdString();
}

}  // namespace tarvo::prueba
