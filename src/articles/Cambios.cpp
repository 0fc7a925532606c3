#include "articles/Cambios.h"

#include "articles/AjustesArticulos.h"
#include "core/ajustes/Sala.h"

#include <algorithm>
#include <array>

namespace tarvo::articles {

namespace {

// Each stays as it is where its half is none of the three.
bool leerEnvio(QStringView v, std::array<int, 2>& campo) {
  static constexpr Limites kRespuestas{0, 2};
  const bool primero = ini::leerSiCabe(ini::parte(v, u'|', 0), kRespuestas, campo[0]);
  return ini::leerSiCabe(ini::parte(v, u'|', 1), kRespuestas, campo[1]) && primero;
}

}  // namespace

SalaDeAjustes ajustesArticulos() {
  using A = AjustesArticulos;
  return salaDeAjustes(A(),
                       {clave<&A::EnviarCambios, leerEnvio, ini::verPar>(907, u"EnviarCambios")});
}

Resultado<> Cambios::ArticuloCambiado(int seccion, qint64 codigo) {
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM [Cross] WHERE Secc=? AND plu=?", seccion, codigo));
  MarcarSeccion(seccion);
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
  MarcarSeccion(seccion);
  return {};
}

void Cambios::MarcarSeccion(int seccion) {
  if (std::ranges::find(secciones_, seccion) == secciones_.end()) secciones_.push_back(seccion);
}

}  // namespace tarvo::articles
