#include "comm/envios/Debe.h"

#include "comm/envios/Estado.h"
#include "core/dao/Recorrido.h"

namespace tarvo::envios {

namespace {

// A group that was never sent anything isn't due: no one has begun with it.
constexpr auto kConocidos =
    uR"(
SELECT g.CODGPO, g.NOMGPO,
  (SELECT count(*) FROM Enviados e WHERE e.GRUPO=g.CODGPO),
  (SELECT count(*) FROM [Cross] c WHERE c.Grupo=g.CODGPO AND nz(c.borra,0)=0)
FROM GRUPOS g INNER JOIN EnviosGrupo s ON s.GRUPO=g.CODGPO WHERE g.REMOTO<>0 ORDER BY g.CODGPO)";

}  // namespace

Resultado<std::vector<Debe>> loQueSeDebe(dao::Database& db, Fecha ahora) {
  std::vector<Debe> todos;
  const auto contar = [&](const dao::Recordset& rs) -> Resultado<> {
    Debe d;
    d.grupo = static_cast<int>(rs.entero(0));
    d.nombre = rs.texto(1).trimmed();
    TARVO_TOMAR(const auto destino, destinoDeGrupo(db, d.grupo));
    if (!destino || !destino->conCross()) return {};
    TARVO_TOMAR(const auto van, SaltarSinCambios(db, *destino, {}, ahora));
    TARVO_TOMAR(const auto sobran, articulosPorBorrar(db, *destino));
    d.articulos = std::ssize(van) + std::ssize(sobran);
    d.vacio = !van.empty() && rs.entero(2) == 0 && rs.entero(3) == 0;
    if (d.articulos > 0) todos.push_back(std::move(d));
    return {};
  };
  TARVO_INTENTAR(dao::recorrer(db.consultar(QStringView(kConocidos)), contar));
  return todos;
}

}  // namespace tarvo::envios
