// The send state of a group: for each article, whether the group holds it in its present form and
// how that is known; and the tasks that would correct it.
#pragma once

#include "comm/envios/Decision.h"
#include "core/textos/Textos.h"

namespace tarvo::envios {

// The state of an article in a group.
enum class Situacion {
  AlDia,      // held: what the group confirmed is what would be sent now
  SinPrueba,  // held according to Cross, from before there was proof
  Pendiente,  // due in the next optimised sending, or never confirmed
  Distinto,   // held according to Cross, but different: needs a complete sending
  Retenido,   // doesn't fit its record
  Rechazado,  // the group refused it
  Sobra,      // the group holds it, but it is gone here
};
inline constexpr int kSituaciones = 7;

struct EstadoArticulo {
  qint64 codigo = 0;
  QString nombre;
  Situacion situacion = Situacion::Pendiente;
  std::optional<Fecha> desde;  // when it became so
  QString motivo;              // for Retenido and Rechazado, and when it can't be deleted alone
};

// The group as a sending sees it; nothing if there is no such group.
Resultado<std::optional<Destino>> destinoDeGrupo(dao::Database& db, int grupo);

// All articles of the group's section, and others that it holds, by number. It only reads, and
// takes as long as reading the section: with 100,000 articles, use another thread.
Resultado<std::vector<EstadoArticulo>> estadoDeEnvio(dao::Database& db, const Destino& destino,
                                                     const Textos& textos, Fecha ahora);

// A TXPLUS that corrects chosen articles.
struct Encargo {
  bool todo = false;
  Rango rango;
  bool operator==(const Encargo&) const = default;
};
struct Encargos {
  std::vector<Encargo> tareas;
  int imposibles = 0;  // surplus articles of a machine that can't delete single ones
};
// Records that the articles are to be sent or deleted, and returns the tasks to queue. REQUIRES
// numbers in ascending order.
Resultado<Encargos> encargar(dao::Database& db, const Destino& destino,
                             std::span<const qint64> codigos);

}  // namespace tarvo::envios
