// The .EXP files: each period's block once, and whole.
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "noches/Oraculo.h"

namespace tarvo::noches {

namespace {

QString momento(double dias) {
  return QDateTime(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC)
      .addSecs(qRound64(dias * 86400))
      .toString(QStringLiteral("dd/MM/yyyy hh:mm:ss"));
}

}  // namespace

void Oraculo::exportados(int arranques, bool debe) {
  bool nuevo = false;
  std::map<QString, std::map<QString, QStringList>> nuevos;  // by file and period, the last block
  for (const QString& nombre : QDir(carpeta_).entryList({QStringLiteral("*.EXP")})) {
    QFile f(carpeta_ + u'/' + nombre);
    if (!f.open(QIODevice::ReadOnly)) return anotar(QStringLiteral("no se puede leer ") + nombre);
    const QByteArray bytes = f.readAll();
    const qint64 antes = std::exchange(ficheros_[nombre], bytes.size());
    if (antes == bytes.size()) continue;
    nuevo = true;
    if (!bytes.endsWith("\r\n")) anotar(nombre + QStringLiteral(": acaba a mitad de una línea"));
    std::map<QString, int> veces;
    auto& bloques = nuevos[nombre];
    QString fechas;
    bool deEstaNoche = false;  // earlier ones were checked at the time
    qint64 sitio = 0;
    QStringList lineas = QString::fromLatin1(bytes).split(QStringLiteral("\r\n"));
    lineas.removeLast();
    for (qsizetype i = 0; i < lineas.size(); ++i) {
      sitio += lineas[i].size() + 2;
      if (lineas[i].startsWith(u'*') && i + 1 < lineas.size()) {
        fechas = lineas[++i].mid(1);
        sitio += lineas[i].size() + 2;
        deEstaNoche = sitio > antes;
        veces[fechas] += deEstaNoche;
        if (deEstaNoche) bloques[fechas].clear();
      } else if (deEstaNoche) {
        bloques[fechas] += lineas[i];
      }
    }
    for (const auto& [cual, n] : veces)
      if (n > arranques)
        anotar(QStringLiteral("%1: el periodo %2 está %3 veces").arg(nombre, cual).arg(n));
  }
  // A night that passes midnight may export a period again into the next day's file: the block
  // written last has to be right.
  std::map<QString, QString> ultimo;
  base_.filas("SELECT RUTA FROM Exportes ORDER BY rowid", [&](const Lector::Fila& f) {
    const QString nombre = QFileInfo(QString::fromUtf8(f.texto(0))).fileName();
    for (const auto& [cual, filas] : nuevos[nombre]) ultimo[cual] = nombre;
  });
  for (const auto& [cual, nombre] : ultimo)
    bloque(QStringList(cual) + nuevos[nombre][cual], nombre);
  if (debe && !nuevo) anotar(QStringLiteral("resultado 0 y no se exportó nada"));
}

// Compares rows and amounts of a block with those of its period.
void Oraculo::bloque(const QStringList& lineas, const QString& fichero) {
  qint64 link = 0;
  base_.filas("SELECT LINK, FECHA1, FECHAF FROM COLUMNA", [&](const Lector::Fila& f) {
    if (momento(f.real(1)) + QStringLiteral("  ") + momento(f.real(2)) == lineas[0])
      link = f.entero(0);
  });
  if (link == 0) return;
  qint64 filas = 0, importe = 0, con = 0;
  for (const char* t : {"TOTPLU", "TOTGRT", "TOTOPE", "TOTDEP", "TOTHOR", "TOTOPHOR"})
    base_.filas(QByteArray("SELECT count(*), SUM(IMP), SUM(CON) FROM ") + t +
                    " WHERE LINK=" + QByteArray::number(link),
                [&](const Lector::Fila& f) {
                  filas += f.entero(0), importe += f.entero(1), con += f.entero(2);
                });
  const int largo = plan_.corto ? 42 : 50;
  for (const QString& linea : lineas.mid(1)) {
    if (linea.size() != largo) return anotar(fichero + QStringLiteral(": una línea cortada"));
    importe -= linea.mid(largo - 34, 10).toLongLong();
    con -= linea.right(6).toLongLong();
  }
  if (filas != lineas.size() - 1 || importe != 0 || con != 0)
    anotar(QStringLiteral("%1: el bloque de %2 no es el periodo %3: filas %4 de %5, importe %6, "
                          "con %7 de diferencia")
               .arg(fichero, lineas[0])
               .arg(link)
               .arg(lineas.size() - 1)
               .arg(filas)
               .arg(importe)
               .arg(con));
}

}  // namespace tarvo::noches
