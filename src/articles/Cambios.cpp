#include "articles/Cambios.h"

#include "articles/AjustesArticulos.h"
#include "core/ajustes/Sala.h"

#include <algorithm>
#include <array>

namespace tarvo::articles {

namespace {

constexpr std::size_t kRecordados = 2'000;  // articles kept as they were

constexpr Limites kRespuestas{0, 2};  // to the question whether to send a change

}  // namespace

SalaDeAjustes ajustesArticulos() {
  using A = AjustesArticulos;
  return salaDeAjustes(A(), {clave<&A::EnviarCambios, ini::leerPar<kRespuestas>, ini::verPar>(
                                907, u"EnviarCambios")});
}

Resultado<> Cambios::ArticuloCambiado(int seccion, qint64 codigo) {
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM [Cross] WHERE Secc=? AND plu=?", seccion, codigo));
  return {};
}

Resultado<> Cambios::MarcarArticuloBorrado(int seccion, qint64 codigo, bool borra) {
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO [Cross] (Secc, plu, Grupo, borra) SELECT SECCION, ?, CODGPO, ? FROM GRUPOS "
      u"WHERE ((TIPO=1) OR (TIPO=4)) AND (SECCION=?) AND NOT EXISTS (SELECT 1 FROM [Cross] WHERE "
      u"Secc=GRUPOS.SECCION AND plu=? AND Grupo=GRUPOS.CODGPO)",
      codigo, borra, seccion, codigo));
  TARVO_INTENTAR(db_.ejecutar(
      u"UPDATE [Cross] SET borra=? WHERE Secc=? AND plu=? AND Grupo IN (SELECT CODGPO FROM GRUPOS "
      u"WHERE ((TIPO=1) OR (TIPO=4)) AND (SECCION=?))",
      borra, seccion, codigo, seccion));
  return {};
}

Resultado<> Cambios::ArticuloSale(int seccion, qint64 codigo) {
  TARVO_INTENTAR(
      db_.ejecutar(u"UPDATE [Cross] SET borra=1 WHERE Secc=? AND plu=?", seccion, codigo));
  return {};
}

Resultado<> Cambios::ArticuloLlega(ClaveArticulo clave) {
  const std::array<dao::Valor, 2> valores{clave.seccion, clave.codigo};
  return ArticulosLlegan(u"SELECT ?, ?", valores);
}

Resultado<> Cambios::ArticulosLlegan(QStringView claves, std::span<const dao::Valor> parametros) {
  for (const QStringView borrar :
       {u"DELETE FROM OFERTAS WHERE (SECCION, CODIGO) IN ({claves})",
        u"DELETE FROM HistoriaPrecios WHERE (SECCION, CODPLU) IN ({claves})",
        u"DELETE FROM [Cross] WHERE (Secc, plu) IN ({claves})"})
    TARVO_INTENTAR(
        db_.Execute(dao::conMarcas(borrar, {{u"claves", claves.toString()}}), parametros));
  return {};
}

Resultado<> Cambios::SaleDepartamento(int seccion, int departamento) {
  TARVO_INTENTAR(db_.ejecutar(
      u"UPDATE [Cross] SET borra=1 WHERE Secc=? AND plu IN (SELECT CODPLU FROM PLUSES WHERE "
      u"SECCION=? AND DEPTO=?)",
      seccion, seccion, departamento));
  return {};
}

void Cambios::anotarSeccion(int seccion) {
  if (std::ranges::find(secciones_, seccion) == secciones_.end()) secciones_.push_back(seccion);
}

void Cambios::MarcarSeccion(int seccion) {
  anotarSeccion(seccion);
  enteras_.insert(seccion);
}

void Cambios::MarcarSeccion(int seccion, qint64 lote) {
  anotarSeccion(seccion);
  porLotes_.emplace(seccion, lote);
}

// The number of one that was forgotten is used again: what it marked can't come back any more.
void Cambios::loteEmpezado(qint64 lote) {
  for (const auto& [seccion, otro] : porLotes_)
    if (otro == lote) enteras_.insert(seccion);
  loteDevuelto(lote);
  empezados_.insert(lote);
}

void Cambios::loteDevuelto(qint64 lote) {
  std::erase_if(porLotes_, [lote](const auto& p) { return p.second == lote; });
}

// Of many the section itself is marked: nobody waits while thousands are compared.
void Cambios::recordar(ClaveArticulo clave, const std::optional<Articulo>& antes) {
  if (recordados_.size() >= kRecordados) return MarcarSeccion(clave.seccion);
  anotarSeccion(clave.seccion);
  recordados_.emplace(clave, antes);
}

bool Cambios::cambiada(int seccion) const {
  return enteras_.contains(seccion) ||
         std::ranges::any_of(porLotes_, [seccion](const auto& p) { return p.first == seccion; });
}

void Cambios::olvidarSecciones() {
  secciones_.clear();
  enteras_.clear();
  porLotes_.clear();
  empezados_.clear();
  recordados_.clear();
}

void Cambios::olvidarSeccion(int seccion) {
  std::erase(secciones_, seccion);
  enteras_.erase(seccion);
  std::erase_if(porLotes_, [seccion](const auto& p) { return p.first == seccion; });
  std::erase_if(recordados_, [seccion](const auto& r) { return r.first.seccion == seccion; });
}

}  // namespace tarvo::articles
