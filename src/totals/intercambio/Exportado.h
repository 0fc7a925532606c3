// The layouts of the .EXP files as pure functions: a row to a line and a line to a row. Internal to
// the room; the layouts are described in docs/formatos.md.
#pragma once

#include <expected>
#include <map>
#include <optional>

#include "totals/periodos/Calendario.h"
#include "totals/periodos/Clases.h"

namespace tarvo::totals {

struct FilaExport {
  TipoTotal clase = TipoTotal::GranTotal;
  qint64 GRUPO = 0, SECCION = 0, CODI = 0, HORA = 0;
  Contadores c;
  // Read: a short line taken for another system's, though it may be ours, of a group that is gone.
  bool supuesta = false;
};

// Characters of a line, without its end.
constexpr qsizetype largoLinea(bool corto) {
  return corto ? 42 : 50;
}
// The line without its end; nothing when a value doesn't fit its column. A negative value has its
// sign in the first position of its column.
std::optional<QString> lineaExport(const FilaExport& f, bool corto);
// The section of each of the shop's groups.
using Secciones = std::map<qint64, qint64>;
enum class LineaMala {
  NoReconocible,
  Dudosa  // short, and the shop's groups don't show which columns hold the group
};
// The row of a line of 50 or 42 characters. SECCION is not read. Short lines of operators and
// departments have their group in other columns when another system wrote them.
std::expected<FilaExport, LineaMala> leerLineaExport(QStringView linea, const Ajustes& ajustes,
                                                     const Secciones& secciones);

QString cabeceraComentario(const Periodo& p, QString descr);
QString cabeceraFechas(const Periodo& p);
// The two dates of a header line, from its first and last 19 characters after the star.
std::optional<std::pair<Fecha, Fecha>> leerFechas(QStringView linea);

}  // namespace tarvo::totals
