#include "articles/precios/AltaRapida.h"

#include "articles/precios/Limites.h"

namespace tarvo::precios {

using articles::Articulo;

namespace {

constexpr int kCifrasCodigo = 7;

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

Resultado<bool> AltaRapida::vale(CampoAlta campo, const EntradaAlta& e) {
  switch (campo) {
    case CampoAlta::Codigo:
      return codigoDe(e.codigo).has_value();
    case CampoAlta::Nombre:
      return !e.nombre.trimmed().isEmpty();
    case CampoAlta::Unidad:
      return e.cada >= articles::kPorKilo && e.cada <= articles::kPorUnidad;
    case CampoAlta::Departamento: {
      const auto depto = numeroEntre(e.departamento, 1, kUltimoDepartamento);
      if (!depto) return false;
      TARVO_TOMAR(const auto hay, db_.uno(u"SELECT NUMDEP FROM DEPTS WHERE SECCION=? AND NUMDEP=?",
                                          e.seccion, *depto));
      return !hay.nulo();
    }
    case CampoAlta::Formato:
      return numeroEntre(e.formato, 1, kUltimoFormato).has_value();
    case CampoAlta::Dias1:
      return numeroEntre(e.dias1, 0, kDiasMayor).has_value();
    case CampoAlta::Dias2:
      return numeroEntre(e.dias2, 0, kDiasMayor).has_value();
    case CampoAlta::Precios:
    case CampoAlta::CodBarras:
      return true;
  }
  return false;
}

Resultado<std::optional<CampoAlta>> AltaRapida::primeraFalta(const EntradaAlta& e) {
  for (int i = 0; i < kCamposAlta; ++i) {
    TARVO_TOMAR(const auto bien, vale(static_cast<CampoAlta>(i), e));
    if (!bien) return static_cast<CampoAlta>(i);
  }
  return std::nullopt;
}

Articulo AltaRapida::articuloDe(const EntradaAlta& e) const {
  Articulo a;
  a.clave = {e.seccion, codigoDe(e.codigo).value_or(0)};
  a.nombre = e.nombre.trimmed().left(articles::kNombreDeRejilla);
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
