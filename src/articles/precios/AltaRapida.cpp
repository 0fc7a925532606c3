#include "articles/precios/AltaRapida.h"

namespace tarvo::precios {

using articles::Articulo;

namespace {

constexpr int kUltimoFormato = 20, kCifrasCodigo = 7;
constexpr int kNombreMayor = 20;

// A whole number without sign; nothing for any other text.
std::optional<int> numero(const QString& texto) {
  bool ok = false;
  const int n = texto.trimmed().toInt(&ok);
  return ok && n >= 0 ? std::optional(n) : std::nullopt;
}

}  // namespace

CampoAlta comoCampoAlta(CampoFijo campo) {
  return static_cast<CampoAlta>(static_cast<int>(CampoAlta::Unidad) + static_cast<int>(campo));
}

std::optional<qint64> AltaRapida::codigoDe(const QString& texto) const {
  const QString t = texto.trimmed();
  const bool entero = t.size() == kCifrasCodigo && t.startsWith(forma_.prefijo());
  const auto codigo = forma_.codigo(entero ? t.mid(forma_.prefijo().size()) : t);
  if (!codigo || codigo->toLongLong() < articles::kPrimerCodigo) return std::nullopt;
  return codigo->toLongLong();
}

Resultado<bool> AltaRapida::vale(CampoAlta campo, const EntradaAlta& e) {
  switch (campo) {
    case CampoAlta::Codigo:
      return codigoDe(e.codigo).has_value();
    case CampoAlta::Nombre:
      return !e.nombre.trimmed().isEmpty();
    case CampoAlta::Unidad:
      return e.cada >= articles::kPorKilo && e.cada <= articles::kPorUnidad;
    case CampoAlta::Departamento: {
      const auto depto = numero(e.departamento);
      if (!depto) return false;
      const auto hay =
          db_.uno(u"SELECT NUMDEP FROM DEPTS WHERE SECCION=? AND NUMDEP=?", e.seccion, *depto);
      if (!hay) return std::unexpected(hay.error());
      return !hay->nulo();
    }
    case CampoAlta::Formato:
      return numero(e.formato).value_or(0) > 0 && *numero(e.formato) <= kUltimoFormato;
    case CampoAlta::Dias1:
      return numero(e.dias1).has_value();
    case CampoAlta::Dias2:
      return numero(e.dias2).has_value();
    case CampoAlta::Precios:
    case CampoAlta::CodBarras:
      return true;
  }
  return false;
}

Resultado<std::optional<CampoAlta>> AltaRapida::primeraFalta(const EntradaAlta& e) {
  for (int i = 0; i < kCamposAlta; ++i) {
    const auto bien = vale(static_cast<CampoAlta>(i), e);
    if (!bien) return std::unexpected(bien.error());
    if (!*bien) return static_cast<CampoAlta>(i);
  }
  return std::nullopt;
}

Articulo AltaRapida::articuloDe(const EntradaAlta& e) const {
  Articulo a;
  a.clave = {e.seccion, codigoDe(e.codigo).value_or(0)};
  a.nombre = e.nombre.trimmed().left(kNombreMayor);
  a.cada = e.cada;
  a.depto = numero(e.departamento).value_or(0);
  a.formato = numero(e.formato).value_or(0);
  if (!e.codBarras.trimmed().isEmpty()) a.pfxBar = e.codBarras.trimmed();
  a.numdias1 = numero(e.dias1).value_or(0);
  a.numdias2 = numero(e.dias2).value_or(0);
  for (std::size_t nivel = 0; nivel < static_cast<std::size_t>(forma_.precios()); ++nivel)
    for (std::size_t tarifa = 0; tarifa < static_cast<std::size_t>(forma_.tarifas()); ++tarifa)
      a.precios[nivel][tarifa] = e.precios[nivel][tarifa];
  return a;
}

Resultado<Articulo> AltaRapida::anadir(const EntradaAlta& e, const QString& ventana) {
  const Articulo a = articuloDe(e);
  auto t = dao::Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  TARVO_INTENTAR(catalogo_.crear(a, ventana));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO MovsAlm (CODALM, SECCION, CODIGO, Inicial, Entrada, Compra, Salida, Venta, "
      u"Merma) SELECT CODALM, ?, ?, 0, 0, 0, 0, 0, 0 FROM ALMACEN",
      a.clave.seccion, a.clave.codigo));
  TARVO_INTENTAR(t->confirmar());
  return a;
}

}  // namespace tarvo::precios
