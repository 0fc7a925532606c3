#include "totals/intercambio/FinDeFichero.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "core/ajustes/Ficheros.h"
#include "core/dao/Recordset.h"
#include "totals/intercambio/Exportado.h"

namespace tarvo::totals {

namespace {

constexpr qint64 kCola = 8 * 1024;  // more than the two header lines of a block

// A folder reached by another name is the same.
QString claveDe(const QString& ruta) {
  const QString canonica = QFileInfo(ruta).canonicalFilePath();
  return canonica.isEmpty() ? ruta : canonica;
}

Resultado<QByteArray> leerDe(const QString& ruta, qint64 desde, qint64 ancho) {
  QFile f(ruta);
  if (!f.open(QIODevice::ReadOnly) || !f.seek(desde))
    return fallo(Fallo::SinPermiso, QStringLiteral("%1: %2").arg(ruta, f.errorString()));
  return f.read(ancho);
}

}  // namespace

bool acabaBloque(QByteArrayView cola, const Ajustes& ajustes) {
  if (!cola.endsWith('\n')) return false;
  QStringList lineas =
      ficheros::descodificar1252(cola.toByteArray()).split(u'\n', Qt::SkipEmptyParts);
  lineas.removeIf([](const QString& l) { return l.trimmed().isEmpty(); });
  if (lineas.isEmpty()) return false;
  const auto deCabecera = [&](qsizetype desdeElFinal) {
    return lineas.size() >= desdeElFinal && lineas[lineas.size() - desdeElFinal].startsWith(u'*');
  };
  const auto fechas = [&](qsizetype desdeElFinal) {
    return leerFechas(lineas[lineas.size() - desdeElFinal].trimmed()).has_value();
  };
  if (deCabecera(1)) return deCabecera(2) && (fechas(1) || fechas(2));
  QStringView ultima = lineas.back();
  if (ultima.endsWith(u'\r')) ultima.chop(1);
  const auto fila = leerLineaExport(ultima, ajustes, {});
  return fila || fila.error() == LineaMala::Dudosa;
}

Resultado<> anotarFinal(dao::Database& db, const QString& ruta, qint64 desde, qint64 hasta,
                        const QByteArray& cabeza) {
  TARVO_INTENTAR(
      db.ejecutar(u"INSERT OR REPLACE INTO ExportesFinales (RUTA, DESDE, HASTA, CABEZA) VALUES "
                  u"(?, ?, ?, ?)",
                  claveDe(ruta), desde, hasta, QString::fromLatin1(cabeza.toHex())));
  return {};
}

Resultado<bool> faltaElFinal(dao::Database& db, const QString& ruta) {
  TARVO_TOMAR(auto rs,
              db.consultar(u"SELECT DESDE, HASTA, CABEZA FROM ExportesFinales WHERE RUTA=?",
                           claveDe(ruta)));
  if (rs->Eof()) return false;
  const qint64 desde = rs->entero(0), tamano = QFileInfo(ruta).size();
  if (tamano <= desde || tamano >= rs->entero(1)) return false;
  const QByteArray cabeza = QByteArray::fromHex(rs->texto(2).toLatin1());
  TARVO_TOMAR(const auto hay, leerDe(ruta, desde, cabeza.size()));
  return cabeza.startsWith(hay);
}

Resultado<bool> admiteOtroBloque(dao::Database& db, const Ajustes& ajustes, const QString& ruta) {
  const qint64 tamano = QFileInfo(ruta).size();
  if (tamano == 0) return true;
  const qint64 ancho = std::min(tamano, kCola);
  TARVO_TOMAR(const auto cola, leerDe(ruta, tamano - ancho, ancho));
  if (!acabaBloque(cola, ajustes)) return false;
  TARVO_TOMAR(const bool falta, faltaElFinal(db, ruta));
  return !falta;
}

}  // namespace tarvo::totals
