// Days as people write them.
#include <gtest/gtest.h>

#include "core/valores/Fecha.h"

namespace tarvo {
namespace {

TEST(Fecha, SinAnoEsLaProximaDesdeHoy) {
  const struct {
    QDate hoy;
    const char16_t* texto;
    QDate es;  // none: no day
  } casos[] = {{{2026, 11, 26}, u"30/11", {2026, 11, 30}},
               {{2026, 11, 26}, u" 26/11 ", {2026, 11, 26}},
               {{2026, 11, 26}, u"25/11", {2027, 11, 25}},
               {{2026, 11, 26}, u"1/1", {2027, 1, 1}},
               {{2025, 3, 1}, u"29/2", {2028, 2, 29}},
               {{2096, 3, 1}, u"29/2", {2104, 2, 29}},
               {{2026, 11, 26}, u"30/11/2020", {2020, 11, 30}},
               {{2026, 11, 26}, u"31/11", {}},
               {{2026, 11, 26}, u"11", {}},
               {{2026, 11, 26}, u"pronto", {}}};
  for (const auto& c : casos) {
    const auto f = Fecha::leerProxima(c.texto, Fecha::de(c.hoy, QTime(18, 0)));
    EXPECT_EQ(f ? f->qdate() : QDate(), c.es) << QString::fromUtf16(c.texto).toStdString();
  }
}

}  // namespace
}  // namespace tarvo
