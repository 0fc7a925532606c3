#include "articles/ModulosBarras.h"

#include <zint.h>

#include <memory>

namespace tarvo::articles {

namespace {

struct Soltar {
  void operator()(zint_symbol* simbolo) const { ZBarcode_Delete(simbolo); }
};

bool esEan(const QString& codigo) {
  return (codigo.size() == 8 || codigo.size() == 13) &&
         std::ranges::all_of(codigo, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

}  // namespace

// The library computes the check digit itself, and would refuse a different one.
std::vector<bool> modulosBarras(const QString& codigo) {
  const std::unique_ptr<zint_symbol, Soltar> s(ZBarcode_Create());
  if (!s || codigo.isEmpty()) return {};
  const bool ean = esEan(codigo);
  s->symbology = ean ? BARCODE_EANX : BARCODE_CODE128;
  s->show_hrt = 0;
  const QByteArray datos = (ean ? codigo.chopped(1) : codigo).toUtf8();
  const auto* bytes = reinterpret_cast<const unsigned char*>(datos.constData());
  if (ZBarcode_Encode(s.get(), bytes, static_cast<int>(datos.size())) >= ZINT_ERROR) return {};
  std::vector<bool> modulos;
  for (int i = 0; i < s->width; ++i)
    modulos.push_back((s->encoded_data[0][i / 8] >> (i % 8) & 1) != 0);
  return modulos;
}

}  // namespace tarvo::articles
