// The send state of a group: of each article, whether the group holds it as it stands here, and how
// that is known; and what is to be queued to put it right.
#pragma once

#include "comm/envios/Decision.h"
#include "core/textos/Textos.h"

namespace tarvo::envios {

// How an article stands with a group.
enum class Situacion {
  AlDia,      // held as it stands here: what the group confirmed is what would go now
  SinPrueba,  // Cross says so, from before there was proof
  Pendiente,  // goes with the next optimised sending, or was never confirmed
  Distinto,   // Cross says held, but it is another: only a complete sending carries it
  Retenido,   // doesn't fit its record
  Rechazado,  // the group wouldn't take it
  Sobra,      // the group holds it, and it is gone here
};
inline constexpr int kSituaciones = 7;

struct EstadoArticulo {
  qint64 codigo = 0;
  QString nombre;
  Situacion situacion = Situacion::Pendiente;
  std::optional<Fecha> desde;  // held, held back or refused since then
  QString motivo;              // of Retenido and Rechazado, and of what can't be deleted alone
};

// The group as a sending sees it; nothing when there is none of that number.
Resultado<std::optional<Destino>> destinoDeGrupo(dao::Database& db, int grupo);

// All articles of the group's section, and what it holds besides, by number. It only reads, and
// takes as long as reading the section: 100,000 articles are for another thread.
Resultado<std::vector<EstadoArticulo>> estadoDeEnvio(dao::Database& db, const Destino& destino,
                                                     const Textos& textos, Fecha ahora);

// One TXPLUS that brings chosen articles right.
struct Encargo {
  bool todo = false;
  Rango rango;
  bool operator==(const Encargo&) const = default;
};
struct Encargos {
  std::vector<Encargo> tareas;
  int imposibles = 0;  // surplus articles of a machine that can't delete one alone
};
// Notes that the articles are due, or to be deleted, and gives what to queue. REQUIRES numbers in
// ascending order.
Resultado<Encargos> encargar(dao::Database& db, const Destino& destino,
                             std::span<const qint64> codigos);

}  // namespace tarvo::envios
