#include "articles/precios/AltaRapida.h"

#include "articles/precios/Limites.h"
#include "articles/precios/TextosPrecios.h"

namespace tarvo::precios {

using articles::Articulo;

namespace {

constexpr int kCifrasCodigo = 7;

// Empty is none, which is 0.
bool sonDias(const QString& texto) {
  return texto.trimmed().isEmpty() || numeroEntre(texto, 0, kDiasMayor);
}

int enteroDe(const QString& texto) {
  return static_cast<int>(numeroEntre(texto, 0, kDiasMayor).value_or(0));
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

Resultado<std::optional<QString>> AltaRapida::faltaCodigo(const EntradaAlta& e) {
  const Textos& textos = catalogo_.textos();
  const auto codigo = codigoDe(e.codigo);
  if (!codigo) return textos(kTxValorMalo + static_cast<int>(ColumnaRapida::Codigo));
  TARVO_TOMAR(const auto otro, catalogo_.leer({e.seccion, *codigo}));
  if (!otro) return std::nullopt;
  return textos(kTxCodigoDeOtroNombre, {Ceros(*codigo, kCifrasCodigo), otro->nombre});
}

Resultado<std::optional<QString>> AltaRapida::faltaDepartamento(const EntradaAlta& e) {
  const Textos& textos = catalogo_.textos();
  const auto depto = numeroEntre(e.departamento, 1, kUltimoDepartamento);
  if (!depto) return textos(kTxValorMalo + static_cast<int>(ColumnaRapida::Departamento));
  TARVO_TOMAR(const auto hay,
              db_.uno(u"SELECT NUMDEP FROM DEPTS WHERE SECCION=? AND NUMDEP=?", e.seccion, *depto));
  return hay.nulo() ? std::optional(textos(kTxSinDepartamento, {*depto})) : std::nullopt;
}

Resultado<std::optional<QString>> AltaRapida::falta(CampoAlta campo, const EntradaAlta& e) {
  const Textos& textos = catalogo_.textos();
  const auto si = [&](bool mal, ColumnaRapida columna) {
    return mal ? std::optional(textos(kTxValorMalo + static_cast<int>(columna))) : std::nullopt;
  };
  switch (campo) {
    case CampoAlta::Codigo:
      return faltaCodigo(e);
    case CampoAlta::Nombre:
      if (auto largo = articles::malNombre(e.nombre.trimmed(), textos)) return largo;
      return si(e.nombre.trimmed().isEmpty(), ColumnaRapida::Nombre);
    case CampoAlta::Unidad:
      return e.cada >= articles::kPorKilo && e.cada <= articles::kPorUnidad
                 ? std::nullopt
                 : std::optional(textos(kTxSinUnidad));
    case CampoAlta::Departamento:
      return faltaDepartamento(e);
    case CampoAlta::Formato:
      return si(!numeroEntre(e.formato, 1, kUltimoFormato), ColumnaRapida::Etiqueta);
    case CampoAlta::CodBarras:
      return si(!sonCifras(e.codBarras.trimmed()) ||
                    e.codBarras.trimmed().size() > articles::kPrefijoBarrasMayor,
                ColumnaRapida::CodBarras);
    case CampoAlta::Dias1:
      return si(!sonDias(e.dias1), ColumnaRapida::Dias1);
    case CampoAlta::Dias2:
      return si(!sonDias(e.dias2), ColumnaRapida::Dias2);
    case CampoAlta::Precios:
      return std::nullopt;
  }
  return std::nullopt;
}

Articulo AltaRapida::articuloDe(const EntradaAlta& e) const {
  Articulo a;
  a.clave = {e.seccion, codigoDe(e.codigo).value_or(0)};
  a.nombre = e.nombre.trimmed();
  a.cada = e.cada;
  a.depto = enteroDe(e.departamento);
  a.formato = enteroDe(e.formato);
  if (!e.codBarras.trimmed().isEmpty()) a.pfxBar = e.codBarras.trimmed();
  a.numdias1 = enteroDe(e.dias1);
  a.numdias2 = enteroDe(e.dias2);
  for (std::size_t nivel = 0; nivel < static_cast<std::size_t>(forma_.precios()); ++nivel)
    for (std::size_t tarifa = 0; tarifa < static_cast<std::size_t>(forma_.tarifas()); ++tarifa)
      a.precios[nivel][tarifa] = e.precios[nivel][tarifa];
  return a;
}

Resultado<Articulo> AltaRapida::anadir(const EntradaAlta& e, const QString& ventana) {
  const Articulo a = articuloDe(e);
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(catalogo_.crear(a, ventana));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO MovsAlm (CODALM, SECCION, CODIGO, Inicial, Entrada, Compra, Salida, Venta, "
      u"Merma) SELECT CODALM, ?, ?, 0, 0, 0, 0, 0, 0 FROM ALMACEN",
      a.clave.seccion, a.clave.codigo));
  TARVO_INTENTAR(t.confirmar());
  return a;
}

}  // namespace tarvo::precios
