#include "articles/Limites.h"

#include <cstdlib>

#include "articles/TextosArticles.h"
#include "core/dinero/Dinero.h"

namespace tarvo::articles {

std::expected<qint64, FaltaPrecio> comoPrecio(const QString& texto, const Ajustes& ajustes,
                                              std::optional<int> moneda) {
  const auto precio = comoPrecioRedondeado(texto, ajustes, moneda);
  const int suya = moneda.value_or(ajustes.MonedaNativa);
  if (precio && SobranDecimales(ajustes, texto, suya))
    return std::unexpected(FaltaPrecio::SobranDecimales);
  if (precio && LeidoDeDosModos(ajustes, texto, suya))
    return std::unexpected(FaltaPrecio::DeDosModos);
  return precio;
}

std::expected<qint64, FaltaPrecio> comoPrecioRedondeado(const QString& texto,
                                                        const Ajustes& ajustes,
                                                        std::optional<int> moneda) {
  if (texto.trimmed().isEmpty()) return std::unexpected(FaltaPrecio::Vacio);
  const auto n = LeerImporte(ajustes, texto, moneda.value_or(ajustes.MonedaNativa));
  if (!n) return std::unexpected(FaltaPrecio::NoEsImporte);
  if (*n < 0) return std::unexpected(FaltaPrecio::Negativo);
  if (*n > kPrecioMayor) return std::unexpected(FaltaPrecio::Demasiado);
  return *n;
}

Error errorDe(FaltaPrecio falta, const QString& texto, const Ajustes& ajustes, const Textos& textos,
              std::optional<int> moneda) {
  const int suya = moneda.value_or(ajustes.MonedaNativa);
  if (falta == FaltaPrecio::SobranDecimales)
    return {Fallo::Formato, 0,
            textos(kTxPrecioConDecimales, {texto.trimmed(), DecimalesMoneda(ajustes, suya)})};
  if (const auto dos = LeidoDeDosModos(ajustes, texto, suya);
      falta == FaltaPrecio::DeDosModos && dos)
    return {Fallo::Formato, 0,
            textos(kTxPrecioDeDosModos, {texto.trimmed(), dos->entera, dos->decimal})};
  if (falta == FaltaPrecio::Vacio) return {Fallo::Formato, 0, textos(kTxPrecioVacio)};
  const QString mayor = VerImporte(ajustes, kPrecioMayor, ajustes.MonedaNativa);
  return {Fallo::Formato, 0,
          textos(kTxPrecioNoVale + static_cast<int>(falta), {texto.trimmed(), mayor})};
}

std::optional<QString> avisoPrecio(qint64 precio, const Ajustes& ajustes, const Textos& textos) {
  if (precio <= kPrecioDeBalanza) return std::nullopt;
  const auto ver = [&](qint64 n) { return VerImporte(ajustes, n, ajustes.MonedaNativa); };
  return textos(kTxPrecioAlto, {ver(precio), ver(kPrecioDeBalanza)});
}

namespace {

// With one decimal below ten times, if it isn't zero.
QString veces(qint64 mayor, qint64 menor) {
  const qint64 decimas = (10 * mayor + menor / 2) / menor;
  if (decimas < 100 && decimas % 10 != 0)
    return QString::number(decimas / 10) + u',' + QString::number(decimas % 10);
  return QString::number((mayor + menor / 2) / menor);
}

}  // namespace

std::optional<QString> avisoCambio(qint64 antes, qint64 ahora, const Ajustes& ajustes,
                                   const Textos& textos) {
  if (auto alto = avisoPrecio(ahora, ajustes, textos)) return alto;
  if (antes <= 0 || 2 * std::abs(ahora - antes) <= antes) return std::nullopt;
  const auto ver = [&](qint64 n) { return VerImporte(ajustes, n, ajustes.MonedaNativa); };
  if (ahora == 0) return textos(kTxPrecioACero, {ver(antes), ver(ahora)});
  const qint64 mayor = std::max(antes, ahora), menor = std::min(antes, ahora);
  if (menor <= 0 || mayor < 2 * menor) return textos(kTxPrecioSalta, {ver(antes), ver(ahora)});
  return textos(ahora > antes ? kTxPrecioMultiplica : kTxPrecioDivide,
                {ver(antes), ver(ahora), veces(mayor, menor)});
}

std::optional<QString> avisoCambio(const QString& articulo, const QString& precio, qint64 antes,
                                   qint64 ahora, const Ajustes& ajustes, const Textos& textos) {
  const auto aviso = avisoCambio(antes, ahora, ajustes, textos);
  if (!aviso) return std::nullopt;
  return textos(kTxAvisoDePrecio, {articulo, precio, *aviso});
}

std::optional<QString> avisoCambio(const QString& articulo, const Precios& antes,
                                   const Precios& ahora, const Ajustes& ajustes,
                                   const Textos& textos) {
  for (std::size_t nivel = 0; nivel < kNiveles; ++nivel)
    for (std::size_t tarifa = 0; tarifa < kTarifas; ++tarifa) {
      const qint64 viejo = antes[nivel][tarifa], nuevo = ahora[nivel][tarifa];
      if (viejo == nuevo) continue;
      const QString cual = nombrePrecio(static_cast<int>(nivel), static_cast<int>(tarifa), textos);
      if (auto aviso = avisoCambio(articulo, cual, viejo, nuevo, ajustes, textos)) return aviso;
    }
  return std::nullopt;
}

QString nombrePrecio(int nivel, int tarifa, const Textos& textos) {
  return textos(kTxPrecioDeTarifa + nivel, {tarifa + 1});
}

std::optional<QString> malNombre(const QString& nombre, const Textos& textos) {
  if (nombre.size() <= kNombreMayor) return std::nullopt;
  return textos(kTxLimiteNombre, {nombre.size(), kNombreMayor});
}

std::optional<QString> malDepartamento(qint64 departamento, const Textos& textos) {
  if (departamento >= 1 && departamento <= kUltimoDepartamento) return std::nullopt;
  return textos(kTxLimiteDepartamento, {departamento, kUltimoDepartamento});
}

std::optional<QString> malFormato(qint64 formato, const Textos& textos) {
  if (formato >= 1 && formato <= kUltimoFormato) return std::nullopt;
  return textos(kTxLimiteFormato, {formato, kUltimoFormato});
}

}  // namespace tarvo::articles
