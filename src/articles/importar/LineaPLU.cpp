#include "articles/importar/LineaPLU.h"

#include <algorithm>

namespace tarvo::importar {

using articles::kNiveles;
using articles::kTarifas;

namespace {

struct Campo {
  int columna, ancho;  // columns count from 1
};

// The positions of the fields in each of the two layouts; `precios` of width 6, consecutively.
struct Formato {
  Campo seccion, codigo, nombre, cada, coste, precios;
  int cuantosPrecios;
  Campo depto, formato;  // a width of 0: absent
};
constexpr Formato kLarga{{1, 3},   {4, 7},  {11, 20}, {31, 1}, {32, 6}, {38, 6}, kNiveles* kTarifas,
                         {182, 2}, {184, 2}};
constexpr Formato kCorta{{1, 2}, {3, 4}, {7, 20}, {37, 1}, {38, 6}, {44, 6}, 1, {54, 2}, {0, 0}};

// Reads the numbers of a line; the first invalid field is kept as the fault.
class Lectura {
 public:
  explicit Lectura(QStringView linea) : linea_(linea) {}
  QStringView texto(Campo c) const { return linea_.mid(c.columna - 1, c.ancho); }
  qint64 numero(Campo c) {
    const auto n = cifras(texto(c));
    if (!n && !mal_) falta_ = {FaltaPLU::Cifras, c.columna, c.ancho};
    mal_ = mal_ || !n;
    return n.value_or(0);
  }
  int corto(Campo c) { return static_cast<int>(numero(c)); }
  bool mal() const { return mal_; }
  FaltaPLU falta() const { return falta_; }

 private:
  QStringView linea_;
  bool mal_ = false;
  FaltaPLU falta_{};
};

}  // namespace

std::optional<qint64> cifras(QStringView campo) {
  campo = campo.trimmed();
  const bool todas = std::ranges::all_of(campo, [](QChar c) { return c >= u'0' && c <= u'9'; });
  if (!todas || campo.size() > 18) return std::nullopt;
  qint64 n = 0;
  for (const QChar c : campo) n = 10 * n + c.unicode() - u'0';
  return n;
}

std::expected<RegistroPLU, FaltaPLU> leerLineaPLU(QStringView linea) {
  if (linea.size() != kLineaLarga && linea.size() != kLineaCorta)
    return std::unexpected(FaltaPLU{FaltaPLU::Longitud});
  const Formato& f = linea.size() == kLineaLarga ? kLarga : kCorta;
  Lectura l(linea);
  RegistroPLU r;
  r.clave = {l.corto(f.seccion), l.numero(f.codigo)};
  r.nombre = l.texto(f.nombre).toString();
  r.cada = l.corto(f.cada);
  r.coste = l.numero(f.coste);
  for (int i = 0; i < f.cuantosPrecios; ++i)
    r.precios[static_cast<size_t>(i / kTarifas)][static_cast<size_t>(i % kTarifas)] =
        l.numero({f.precios.columna + i * f.precios.ancho, f.precios.ancho});
  r.depto = l.corto(f.depto);
  if (f.formato.ancho > 0) r.formato = l.corto(f.formato);
  if (l.mal()) return std::unexpected(l.falta());
  if (r.cada > articles::kPorUnidad)
    return std::unexpected(FaltaPLU{FaltaPLU::Unidad, f.cada.columna, f.cada.ancho});
  return r;
}

}  // namespace tarvo::importar
