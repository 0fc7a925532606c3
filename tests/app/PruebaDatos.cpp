// Date ranges as given by --dato.
#include <gtest/gtest.h>

#include "app/Datos.h"

using namespace tarvo;

TEST(Datos, RangosDeFechas) {
  const struct {
    const char16_t* texto;
    const char16_t* desde;  // empty for no range
    const char16_t* hasta;
  } casos[] = {{u"05/03/2005", u"05/03/2005", u"05/03/2005"},
               {u" 01/03/2005 - 15/03/2005 ", u"01/03/2005", u"15/03/2005"},
               {u"02/2004", u"01/02/2004", u"29/02/2004"},
               {u"15/03/2005-01/03/2005", u"", u""},
               {u"31/02/2005", u"", u""},
               {u"", u"", u""},
               {u"13/2005", u"", u""},
               {u"01/03/2005-x", u"", u""}};
  for (const auto& c : casos) {
    const auto r = app::leerRango(c.texto);
    EXPECT_EQ(r ? r->first.corta() : QString(), QStringView(c.desde))
        << QString::fromUtf16(c.texto).toStdString();
    EXPECT_EQ(r ? r->second.corta() : QString(), QStringView(c.hasta))
        << QString::fromUtf16(c.texto).toStdString();
  }
}
