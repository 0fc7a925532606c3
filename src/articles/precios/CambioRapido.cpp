#include "articles/precios/CambioRapido.h"

#include "articles/precios/TextosPrecios.h"

namespace tarvo::precios {

using articles::Articulo;

namespace {

bool esPrecio(ColumnaRapida columna) {
  return columna >= ColumnaRapida::Precio1 && columna <= ColumnaRapida::Precio3;
}

// False when the text is not a valid value. REQUIRES a column that isn't a price.
bool poner(Articulo& a, ColumnaRapida columna, const QString& texto) {
  const auto numero = [&](auto& donde, qint64 desde, qint64 hasta) {
    const auto n = numeroEntre(texto, desde, hasta);
    if (n) donde = static_cast<std::remove_reference_t<decltype(donde)>>(*n);
    return n.has_value();
  };
  switch (columna) {
    case ColumnaRapida::Codigo:
      return numero(a.clave.codigo, articles::kPrimerCodigo, articles::kUltimoCodigo);
    case ColumnaRapida::Nombre:
      a.nombre = texto.trimmed();
      return !a.nombre.isEmpty();
    case ColumnaRapida::Departamento:
      return numero(a.depto, 1, kUltimoDepartamento);
    case ColumnaRapida::CodBarras:
      a.pfxBar = texto.trimmed();
      return !a.pfxBar.isEmpty() && sonCifras(a.pfxBar) &&
             a.pfxBar.size() <= articles::kPrefijoBarrasMayor;
    case ColumnaRapida::Etiqueta:
      return numero(a.formato, 1, kUltimoFormato);
    case ColumnaRapida::Dias1:
      return numero(a.numdias1, 0, kDiasMayor);
    case ColumnaRapida::Dias2:
      return numero(a.numdias2, 0, kDiasMayor);
    default:
      return false;
  }
}

}  // namespace

Resultado<Articulo> conColumna(Articulo articulo, ColumnaRapida columna, const QString& texto,
                               const Ajustes& ajustes, const Textos& textos) {
  const auto malo = fallo(Fallo::Restriccion, textos(kTxValorMalo + static_cast<int>(columna)));
  if (esPrecio(columna)) {
    const auto nivel =
        static_cast<std::size_t>(columna) - static_cast<std::size_t>(ColumnaRapida::Precio1);
    const auto precio = comoPrecio(texto, ajustes);
    if (!precio && precio.error() == FaltaPrecio::NoEsImporte) return malo;
    if (!precio) return std::unexpected(errorDe(precio.error(), texto, ajustes, textos));
    articulo.precios[nivel][0] = *precio;
    return articulo;
  }
  if (!poner(articulo, columna, texto)) return malo;
  if (const auto largo = articles::malNombre(articulo.nombre, textos);
      largo && columna == ColumnaRapida::Nombre)
    return fallo(Fallo::Restriccion, *largo);
  return articulo;
}

}  // namespace tarvo::precios
