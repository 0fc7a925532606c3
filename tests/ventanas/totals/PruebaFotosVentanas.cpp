// Every window is readable, full and empty, in both themes, both sizes and all font scales.
// TARVO_FOTOS keeps the pictures in that folder.
#include "MesaDeTotales.h"
#include "capturas/Capturas.h"

namespace tarvo::prueba {

TEST(FotosVentanas, SeLeenLlenasYVacias) {
  for (const bool llena : {false, true}) {
    MesaDeTotales t;
    if (llena)
      for (int d = 1; d <= 28; ++d) t.dia(u"%1/06/2018"_s.arg(d, 2, 10, QChar(u'0')).toUtf8(), d);
    QStringList faltas = capturas::capturar(
        t.escritorio, {qEnvironmentVariable("TARVO_FOTOS"), llena ? u"llena"_s : u"vacia"_s,
                       qEnvironmentVariable("TARVO_FOTOS_SOLO").split(u',', Qt::SkipEmptyParts)});
    // Without a period there is nothing to add up, and the window reports that instead of opening.
    faltas.removeIf([](const QString& f) { return f.startsWith(u"ConfirSum_vacia"); });
    EXPECT_TRUE(faltas.isEmpty()) << faltas.join(u'\n').toStdString();
  }
}

}  // namespace tarvo::prueba
