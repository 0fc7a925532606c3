// The command language of telephone modems, as pure functions. The script and the result codes:
// docs/protocolos.md.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

namespace tarvo::enlace {

// One step of an initialisation script. Without `exige` any answer will do, even none.
struct PasoGuion {
  QByteArray orden;  // without its CR
  bool exige = false;
  bool operator==(const PasoGuion&) const = default;
};
std::vector<PasoGuion> partirGuion(const QString& guion);

enum class RespuestaModem {
  Ninguna,  // an echo, a ring, an empty line
  Bien,
  Conectado,
  SinPortadora,
  Error,
  SinTono,
  Comunica,
  NoContesta,
};
// A line in words or as a number.
RespuestaModem interpretar(const QByteArray& linea);
// The first line of the buffer, removed from it with its end signs; nothing while it is incomplete.
std::optional<QByteArray> cortarLinea(QByteArray& buffer);

}  // namespace tarvo::enlace
