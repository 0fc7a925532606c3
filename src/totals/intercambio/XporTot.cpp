#include "totals/intercambio/XporTot.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include "core/ajustes/Ficheros.h"
#include "core/textos/Textos.h"
#include "totals/TextosTotals.h"
#include "totals/intercambio/Exportado.h"

namespace tarvo::totals {

namespace {

constexpr qint64 kLimiteFichero = qint64{1} << 30;

FilaExport filaDe(const ClaseTotal& c, const dao::Recordset& r) {
  FilaExport f{c.numero, r.entero(0), r.entero(1), r.entero(2), r.entero(3), {}};
  f.c = {r.entero(4), r.entero(5), r.entero(6), r.entero(7)};
  return f;
}

std::unexpected<Error> noCabe(const Columna& periodo, const FilaExport& f, const Textos& textos) {
  return fallo(Fallo::Formato, textos(f.clase == kOperHora ? kTxNoCabeHora : kTxNoCabe,
                                      {periodo.LINK, TextoPeriodo(periodo.periodo),
                                       NombreTabla(f.clase), f.GRUPO, f.CODI, f.HORA}));
}

QString huellaDe(QByteArrayView bytes) {
  QCryptographicHash h(QCryptographicHash::Sha256);
  h.addData(bytes);
  return QString::fromLatin1(h.result().toHex());
}

// Whether blocks may stand behind what a file holds. One with another name than .EXP may be the
// database or a process.
bool esDeExportacion(const QString& ruta, const QByteArray& bytes) {
  return !QFileInfo::exists(ruta) || bytes.startsWith('*') ||
         ruta.endsWith(QStringLiteral(".EXP"), Qt::CaseInsensitive);
}

// What the file holds; empty when there is none.
Resultado<QByteArray> contenidoDe(const QString& ruta) {
  if (!QFileInfo::exists(ruta)) return QByteArray();
  return ficheros::leerBytes(ruta, kLimiteFichero);
}

}  // namespace

XporTot::XporTot(dao::Database& db, Periodos& periodos, const Ajustes& ajustes)
    : db_(db), p_(periodos), a_(ajustes) {}

QString XporTot::rutaDestino(const QString& nombre) const {
  QString n = nombre.trimmed();
  const QString fichero = NombreFichero(n);
  if (fichero.isEmpty() || fichero == u"." || fichero == u"..") return {};
  if (!fichero.contains(u'.')) n += QStringLiteral(".EXP");
  return Ajustes::ruta(n, a_.HomeDir);
}

Resultado<> XporTot::lineasDe(const ClaseTotal& c, const Columna& periodo, bool corto,
                              QString& texto) {
  const QString tabla = QString::fromUtf16(c.tabla);
  const QString hora = c.conHora ? QStringLiteral("HORA") : QStringLiteral("0");
  TARVO_TOMAR(
      auto rs,
      db_.consultar(
          QStringLiteral(
              "SELECT GRUPO, GRUPOS.SECCION, CODI, %1, CON, PES, [IMP], SCO FROM %2 LEFT JOIN "
              "GRUPOS ON GRUPOS.CODGPO=%2.GRUPO WHERE LINK=? ORDER BY GRUPO, CODI%3")
              .arg(hora, tabla, c.conHora ? QStringLiteral(", HORA") : QString()),
          periodo.LINK));
  while (!rs->Eof()) {
    const FilaExport f = filaDe(c, *rs);
    const auto linea = lineaExport(f, corto);
    if (!linea) return noCabe(periodo, f, p_.textos());
    texto += *linea + QStringLiteral("\r\n");
    TARVO_INTENTAR(rs->MoveNext());
  }
  return {};
}

Resultado<QString> XporTot::bloque(const Columna& periodo, bool corto) {
  QString texto =
      QStringLiteral("%1\r\n%2\r\n")
          .arg(cabeceraComentario(periodo.periodo, periodo.DESCR), cabeceraFechas(periodo.periodo));
  for (const ClaseTotal& c : enVigor(a_)) TARVO_INTENTAR(lineasDe(c, periodo, corto, texto));
  return texto;
}

// The blocks of all periods; nothing when the first of them isn't there.
Resultado<std::optional<QByteArray>> XporTot::bloques(const std::vector<qint64>& links,
                                                      bool corto) {
  QString texto;
  for (const qint64 link : links) {
    TARVO_TOMAR(const auto c, p_.columna(link));
    if (!c && link == links.front()) return std::nullopt;
    if (!c) return fallo(Fallo::NoExiste, p_.textos()(kTxNadaExportado, {link}));
    TARVO_TOMAR(const auto b, bloque(*c, corto));
    texto += b;
  }
  return ficheros::codificar1252(texto);
}

// How far an export of this mark came, whatever its name was then: a name may hold the date.
Resultado<XporTot::Avance> XporTot::avanceDe(const QString& marca) {
  if (marca.isEmpty()) return Avance{};
  TARVO_TOMAR(
      auto rs,
      db_.consultar(u"SELECT RUTA, DESPUES, HUELLA, HECHO FROM Exportes WHERE MARCA=?", marca));
  if (rs->Eof()) return Avance{};
  const qint64 largo = rs->entero(1);
  TARVO_TOMAR(const auto hay, contenidoDe(rs->texto(0)));
  const bool escrito = largo > 0 && hay.size() >= largo &&
                       huellaDe(QByteArrayView(hay).first(largo)) == rs->texto(2);
  return Avance{escrito, escrito && rs->logico(3)};
}

Resultado<> XporTot::escribir(const QString& ruta, const QByteArray& nuevo, const QString& marca) {
  TARVO_TOMAR(auto todo, contenidoDe(ruta));
  if (!esDeExportacion(ruta, todo))
    return fallo(Fallo::Formato, p_.textos()(kTxNoEsExportacion, {ruta}));
  const qint64 antes = todo.size();
  if (!todo.isEmpty() && !todo.endsWith('\n')) todo.append("\r\n");  // a line that was cut off
  todo.append(nuevo);
  if (!marca.isEmpty())  // on disk before the file changes
    TARVO_INTENTAR(
        db_.ejecutar(u"INSERT INTO Exportes (MARCA, RUTA, ANTES, DESPUES, HUELLA, HECHO) VALUES "
                     u"(?, ?, ?, ?, ?, 0) "
                     u"ON CONFLICT (MARCA) DO UPDATE SET RUTA=excluded.RUTA, ANTES=excluded.ANTES, "
                     u"DESPUES=excluded.DESPUES, HUELLA=excluded.HUELLA, HECHO=0",
                     marca, ruta, antes, static_cast<qint64>(todo.size()), huellaDe(todo)));
  return ficheros::escribirEntero(ruta, todo);
}

Resultado<> XporTot::terminar(const std::vector<qint64>& links, bool borrar, const QString& marca) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  if (borrar)
    for (const qint64 link : links) TARVO_INTENTAR(p_.BorrarPeriodo(link));
  if (!marca.isEmpty())
    TARVO_INTENTAR(db_.ejecutar(u"UPDATE Exportes SET HECHO=1 WHERE MARCA=?", marca));
  return t.confirmar();
}

Resultado<bool> XporTot::XportRemoto(const std::vector<qint64>& periodos,
                                     const OpcionesExport& como, const QString& nombre,
                                     const QString& marca) {
  const QString ruta = rutaDestino(nombre);
  if (ruta.isEmpty()) return fallo(Fallo::Formato, p_.textos()(kTxSinFichero));
  if (db_.profundidad() != 0) return fallo(Fallo::Interno, p_.textos()(kTxExportarDentro));
  if (periodos.empty()) return false;
  TARVO_TOMAR(const auto avance, avanceDe(marca));
  if (avance.terminado) return true;
  if (!avance.escrito) {
    TARVO_TOMAR(const auto nuevo, bloques(periodos, como.corto));
    if (!nuevo) return false;
    TARVO_INTENTAR(escribir(ruta, *nuevo, marca));
  }
  TARVO_INTENTAR(terminar(periodos, como.borrar, marca));
  return true;
}

}  // namespace tarvo::totals
