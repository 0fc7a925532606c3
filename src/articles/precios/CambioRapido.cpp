#include "articles/precios/CambioRapido.h"

#include <algorithm>

#include "articles/precios/Limites.h"
#include "articles/precios/TextosPrecios.h"
#include "core/dinero/Dinero.h"

namespace tarvo::precios {

using articles::Articulo;

namespace {

// False when the text is no value of that column.
bool poner(Articulo& a, ColumnaRapida columna, const QString& texto, const Ajustes& ajustes) {
  const auto numero = [&](auto& donde, qint64 desde, qint64 hasta) {
    const auto n = numeroEntre(texto, desde, hasta);
    if (n) donde = static_cast<std::remove_reference_t<decltype(donde)>>(*n);
    return n.has_value();
  };
  switch (columna) {
    case ColumnaRapida::Codigo:
      return numero(a.clave.codigo, articles::kPrimerCodigo, articles::kUltimoCodigo);
    case ColumnaRapida::Nombre:
      a.nombre = texto.trimmed().left(kNombreMayor);
      return !a.nombre.isEmpty();
    case ColumnaRapida::Precio1:
    case ColumnaRapida::Precio2:
    case ColumnaRapida::Precio3: {
      const auto nivel =
          static_cast<std::size_t>(columna) - static_cast<std::size_t>(ColumnaRapida::Precio1);
      const auto precio = comoPrecio(texto, ajustes);
      if (precio) a.precios[nivel][0] = *precio;
      return precio.has_value();
    }
    case ColumnaRapida::Departamento:
      return numero(a.depto, 1, kUltimoDepartamento);
    case ColumnaRapida::CodBarras:
      a.pfxBar = texto.trimmed();
      return !a.pfxBar.isEmpty() && sonCifras(a.pfxBar);
    case ColumnaRapida::Etiqueta:
      return numero(a.formato, 1, kUltimoFormato);
    case ColumnaRapida::Dias1:
      return numero(a.numdias1, 0, kDiasMayor);
    case ColumnaRapida::Dias2:
      return numero(a.numdias2, 0, kDiasMayor);
  }
  return false;
}

}  // namespace

std::optional<qint64> comoPrecio(const QString& texto, const Ajustes& ajustes) {
  const QString t = texto.trimmed();
  if (t.isEmpty()) return 0;
  // An amount shown again tells a number from words, which count as 0.
  const qint64 n = AImporte(ajustes, t, ajustes.MonedaNativa);
  const bool cero =
      std::ranges::all_of(t, [](QChar c) { return c == u'0' || c == u',' || c == u'.'; }) &&
      t.contains(u'0');
  if ((n == 0 && !cero) || n < 0 || n > kPrecioMayor) return std::nullopt;
  return n;
}

Resultado<Articulo> conColumna(Articulo articulo, ColumnaRapida columna, const QString& texto,
                               const Ajustes& ajustes, const Textos& textos) {
  if (poner(articulo, columna, texto, ajustes)) return articulo;
  return fallo(Fallo::Restriccion, textos(kTxValorMalo + static_cast<int>(columna)));
}

}  // namespace tarvo::precios
