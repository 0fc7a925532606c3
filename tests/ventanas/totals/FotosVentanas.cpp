// Every window is readable, full and empty, in both themes, both sizes and all font scales.
#include "MesaDeTotales.h"
#include "capturas/Capturas.h"

namespace tarvo::prueba {

namespace {

// The folder of the pictures: TARVO_FOTOS keeps them.
QString carpetaFotos(const MesaDeTotales& t) {
  const QString fija = qEnvironmentVariable("TARVO_FOTOS");
  return fija.isEmpty() ? t.ruta(u"fotos"_s) : fija;
}

}  // namespace

TEST(FotosVentanas, SeLeenLlenasYVacias) {
  for (const bool llena : {false, true}) {
    MesaDeTotales t;
    if (llena)
      for (int d = 1; d <= 28; ++d) t.dia(u"%1/06/2018"_s.arg(d, 2, 10, QChar(u'0')).toUtf8(), d);
    QStringList faltas = capturas::capturar(
        t.escritorio, {carpetaFotos(t), llena ? u"llena"_s : u"vacia"_s,
                       qEnvironmentVariable("TARVO_FOTOS_SOLO").split(u',', Qt::SkipEmptyParts)});
    // Without a period there is nothing to add up, and the window reports that instead of opening.
    faltas.removeIf([](const QString& f) { return f.startsWith(u"ConfirSum_vacia"); });
    EXPECT_TRUE(faltas.isEmpty()) << faltas.join(u'\n').toStdString();
  }
}

}  // namespace tarvo::prueba
