#include "articles/CodigoBarras.h"

#include <zint.h>

#include <algorithm>
#include <memory>

namespace tarvo::articles {

namespace {

bool soloCifras(QStringView s) {
  return std::ranges::all_of(s, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

struct Soltar {
  void operator()(zint_symbol* simbolo) const { ZBarcode_Delete(simbolo); }
};

}  // namespace

// Weights 3 and 1 alternately, from the last digit back.
int digitoControl(QStringView cifras) {
  int suma = 0, peso = 3;
  for (qsizetype i = cifras.size() - 1; i >= 0; --i, peso = 4 - peso)
    suma += peso * (cifras[i].unicode() - u'0');
  return (10 - suma % 10) % 10;
}

std::optional<int> controlDebido(QStringView codigo) {
  if ((codigo.size() != 8 && codigo.size() != 13) || !soloCifras(codigo)) return std::nullopt;
  const int debido = digitoControl(codigo.chopped(1));
  if (codigo.back().unicode() - u'0' == debido) return std::nullopt;
  return debido;
}

int cifrasDe(int barras) {
  return barras == kEAN8 ? 8 : 13;
}

bool deSuTipo(const Articulo& a) {
  return a.codBarExt->size() == cifrasDe(a.barras) && soloCifras(*a.codBarExt);
}

QString codigoImpreso(const Articulo& a) {
  QString codigo = a.codigoDeBarras();
  if (a.codBarExt) return codigo;
  const qsizetype cifras = cifrasDe(a.barras) - 1;
  if (codigo.size() > cifras || !soloCifras(codigo)) return {};
  if (a.barras == kEAN8 && codigo.size() != cifras) return {};
  codigo = codigo.leftJustified(cifras, u'0');
  return codigo + QChar(u'0' + digitoControl(codigo));
}

// The library computes the check digit itself, and would refuse a different one.
std::vector<bool> modulosBarras(const QString& codigo) {
  const std::unique_ptr<zint_symbol, Soltar> s(ZBarcode_Create());
  if (!s || codigo.isEmpty()) return {};
  const bool ean = (codigo.size() == 8 || codigo.size() == 13) && soloCifras(codigo);
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
