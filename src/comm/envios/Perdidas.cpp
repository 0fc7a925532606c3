#include "comm/envios/Perdidas.h"

namespace tarvo::envios {

namespace {

// The system articles 1 and 2 are in no machine.
constexpr auto kDeUnGrupo =
    uR"(
SELECT g.NOMGPO,
  (SELECT count(*) FROM Enviados e WHERE e.GRUPO=g.CODGPO),
  (SELECT count(*) FROM PLUSES p WHERE p.SECCION=g.SECCION AND p.CODPLU>2),
  (SELECT PZERO FROM Sesiones s WHERE s.CODGPO=g.CODGPO)
FROM GRUPOS g WHERE g.CODGPO=?)";

}  // namespace

Resultado<std::vector<Perdida>> loQueSePierde(dao::Database& db, std::span<const int> grupos) {
  std::vector<Perdida> todas;
  for (const int grupo : grupos) {
    TARVO_TOMAR(const auto rs, db.consultar(QStringView(kDeUnGrupo), grupo));
    if (rs->Eof()) continue;
    Perdida p;
    p.grupo = grupo;
    p.nombre = rs->texto(0).trimmed();
    p.articulos = rs->entero(1);
    p.deSeccion = rs->entero(2);
    if (!rs->nulo(3) && rs->fecha(3).dias() > 0) p.cero = rs->fecha(3);
    todas.push_back(std::move(p));
  }
  return todas;
}

}  // namespace tarvo::envios
