#include "comm/envios/Grupos.h"

#include <algorithm>

#include "core/dao/Recorrido.h"

namespace tarvo::envios {

namespace {

bool tiene(std::span<const TipoGrupo> tipos, std::optional<TipoGrupo> tipo) {
  return tipo && std::ranges::find(tipos, *tipo) != tipos.end();
}

}  // namespace

Resultado<std::vector<GrupoElegible>> Grupos::deTipos(std::span<const TipoGrupo> tipos) const {
  std::vector<GrupoElegible> grupos;
  TARVO_INTENTAR(
      dao::recorrer(db_.consultar(u"SELECT CODGPO, NOMGPO, TIPO FROM GRUPOS ORDER BY CODGPO"),
                    [&](const dao::Recordset& fila) {
                      if (tiene(tipos, deNumero<TipoGrupo>(fila.entero(2))))
                        grupos.push_back({static_cast<int>(fila.entero(0)), fila.texto(1)});
                    }));
  return grupos;
}

Resultado<std::vector<GrupoElegible>> Grupos::todos() const {
  return dao::reunir(db_.consultar(u"SELECT CODGPO, NOMGPO FROM GRUPOS ORDER BY CODGPO"),
                     [](const dao::Recordset& fila) {
                       return GrupoElegible{static_cast<int>(fila.entero(0)), fila.texto(1)};
                     });
}

Resultado<bool> Grupos::tieneBalanza(int grupo, int numero) const {
  TARVO_TOMAR(const auto esta,
              db_.uno(u"SELECT 1 FROM BZAS WHERE SUGPO=? AND NMBZA=?", grupo, numero));
  return !esta.nulo();
}

Resultado<std::set<TipoGrupo>> Grupos::tipos() const {
  std::set<TipoGrupo> tipos;
  TARVO_INTENTAR(dao::recorrer(db_.consultar(u"SELECT DISTINCT TIPO FROM GRUPOS"),
                               [&](const dao::Recordset& f) {
                                 if (const auto tipo = deNumero<TipoGrupo>(f.entero(0)))
                                   tipos.insert(*tipo);
                               }));
  return tipos;
}

Resultado<std::optional<Destino>> Grupos::destino(int grupo) const {
  return destinoDeGrupo(db_, grupo);
}

Grupos::Pregunta Grupos::estado(const Destino& destino) const {
  return [destino, &textos = textos_, ahora = reloj_.ahora()](dao::Database& db) {
    return estadoDeEnvio(db, destino, textos, ahora);
  };
}

std::shared_ptr<TablaDeEstado> Grupos::tabla(std::vector<EstadoArticulo> articulos) const {
  return std::make_shared<TablaDeEstado>(db_, std::move(articulos));
}

Resultado<FichaComparada> Grupos::ficha(const Destino& destino, qint64 codigo) const {
  return compararFicha(db_, destino, codigo, a_, textos_, reloj_.ahora());
}

Resultado<Encargos> Grupos::encargar(const Destino& destino,
                                     std::span<const qint64> codigos) const {
  return envios::encargar(db_, destino, codigos);
}

Resultado<std::vector<Perdida>> Grupos::loQueSePierde(std::span<const int> grupos) const {
  return envios::loQueSePierde(db_, grupos);
}

}  // namespace tarvo::envios
