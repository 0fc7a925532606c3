// What windows ask about groups and what they hold of the catalogue, and what they order for them.
#pragma once

#include <functional>
#include <memory>
#include <set>

#include "comm/envios/Comparada.h"
#include "comm/envios/Estado.h"
#include "comm/envios/Perdidas.h"
#include "comm/envios/TablaDeEstado.h"
#include "core/tiempo/Reloj.h"
#include "core/valores/Tipos.h"

namespace tarvo::envios {

struct GrupoElegible {
  int codigo = 0;
  QString nombre;
};

class Grupos {
 public:
  // REQUIRES that all references outlive it.
  Grupos(dao::Database& db, const Ajustes& ajustes, const Textos& textos, const Reloj& reloj)
      : db_(db), a_(ajustes), textos_(textos), reloj_(reloj) {}

  // In the order of their codes; those of these kinds, or all.
  Resultado<std::vector<GrupoElegible>> deTipos(std::span<const TipoGrupo> tipos) const;
  Resultado<std::vector<GrupoElegible>> todos() const;
  Resultado<std::set<TipoGrupo>> tipos() const;  // the kinds that there are
  // Whether the group has a scale of that number, from 0.
  Resultado<bool> tieneBalanza(int grupo, int numero) const;
  // Nothing when there is none of that number.
  Resultado<std::optional<Destino>> destino(int grupo) const;

  // The send state of a group (Estado.h) as a question for another thread and its connection.
  using Pregunta = std::function<Resultado<std::vector<EstadoArticulo>>(dao::Database&)>;
  Pregunta estado(const Destino& destino) const;
  std::shared_ptr<TablaDeEstado> tabla(std::vector<EstadoArticulo> articulos) const;
  Resultado<FichaComparada> ficha(const Destino& destino, qint64 codigo) const;
  Resultado<Encargos> encargar(const Destino& destino, std::span<const qint64> codigos) const;
  Resultado<std::vector<Perdida>> loQueSePierde(std::span<const int> grupos) const;

 private:
  dao::Database& db_;
  const Ajustes& a_;
  const Textos& textos_;
  const Reloj& reloj_;
};

}  // namespace tarvo::envios
