// The data for a new offer: its group, its article, and the normal prices.
#include "articles/precios/Ofertas.h"

namespace tarvo::precios {

Resultado<std::optional<Ofertas::GrupoDe>> Ofertas::primerGrupo() {
  TARVO_TOMAR(auto rs, db_.consultar(u"SELECT CODGPO, SECCION FROM GRUPOS ORDER BY CODGPO"));
  if (rs->Eof()) return std::nullopt;
  return GrupoDe{static_cast<int>(rs->entero(0)), static_cast<int>(rs->entero(1))};
}

Resultado<std::optional<Ofertas::Hallado>> Ofertas::buscar(int seccion, const QString& texto,
                                                           bool porCodigo) {
  bool esNumero = false;
  const qint64 codigo = texto.toLongLong(&esNumero);
  if (texto.isEmpty() || (porCodigo && !esNumero)) return std::nullopt;
  TARVO_TOMAR(auto rs, db_.OpenTable(u"PLUSES", porCodigo ? u"PrimaryKey" : u"NOMBRE"));
  TARVO_INTENTAR(porCodigo ? rs->Seek(dao::Busca::Igual, seccion, codigo)
                           : rs->Seek(dao::Busca::MayorIgual, seccion, texto));
  const int deSeccion = rs->columna(u"SECCION"), deCodigo = rs->columna(u"CODPLU");
  const auto sirve = [&] { return rs->entero(deCodigo) >= articles::kPrimerCodigo; };
  if (!porCodigo)
    TARVO_INTENTAR(dao::recorrer(*rs, [&](const dao::Recordset&) { return !sirve(); }));
  if (rs->Eof() || rs->entero(deSeccion) != seccion || !sirve()) return std::nullopt;
  return Hallado{rs->entero(deCodigo), rs->texto(rs->columna(u"NOMPLU"))};
}

Resultado<std::optional<PreciosOferta>> Ofertas::normales(int grupo, int seccion, qint64 codigo) {
  TARVO_TOMAR(const auto tarifa, db_.uno(u"SELECT tarifa FROM GRUPOS WHERE CODGPO=?", grupo));
  const int cual = std::clamp(static_cast<int>(tarifa.entero()), 0, articles::kTarifas - 1);
  TARVO_TOMAR(auto rs, db_.OpenTable(u"PLUSES", u"PrimaryKey"));
  TARVO_TOMAR(const auto hay, rs->Seek(dao::Busca::Igual, seccion, codigo));
  if (!hay) return std::nullopt;
  PreciosOferta precios{};
  for (int nivel = 0; nivel < articles::kNiveles; ++nivel)
    precios[static_cast<std::size_t>(nivel)] =
        rs->entero(rs->columna(articles::columnaPrecio(nivel, cual)));
  return precios;
}

}  // namespace tarvo::precios
