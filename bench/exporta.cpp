// The most memory that an export takes whose file holds a gigabyte of old blocks already, in a
// process of its own.
#include "Exporta.h"

#include <QFile>
#include <QProcess>

#include "Comun.h"
#include "Noche.h"
#include "Razones.h"
#include "core/tiempo/Reloj.h"
#include "stock/Almacenes.h"
#include "textos/TextosDePrueba.h"
#include "totals/intercambio/XporTot.h"

namespace tarvo::banco {

namespace {

constexpr double kMemoriaMiB = 48;
constexpr int kGrupos = 200, kArticulos = 2000;
constexpr qint64 kFichero = qint64{1} << 30;

// Old blocks, as far as an export looks at them.
void ficheroGrande(const QString& ruta) {
  QFile f(ruta);
  if (!f.open(QIODevice::WriteOnly) || f.write("*") != 1 || !f.resize(kFichero - 2) ||
      !f.seek(kFichero - 2) || f.write("\r\n") != 2)
    morir(f.errorString());
}

double picoAparte() {
  QProcess hijo;
  hijo.start(QStringLiteral("/proc/self/exe"), {QStringLiteral("--exporta")});
  if (!hijo.waitForFinished(120'000) || hijo.exitCode() != 0)
    morir(QString::fromLocal8Bit(hijo.readAllStandardError()));
  return hijo.readAllStandardOutput().trimmed().toDouble();
}

const Registro kMedida("exporta.memoria", 1.0, [] { return kMemoriaMiB * 1024 / picoAparte(); });

}  // namespace

int exporta() {
  const QTemporaryDir carpeta;
  const auto db = hacerTienda(carpeta.filePath(QStringLiteral("TARVO.MDB")), kGrupos, kArticulos);
  Ajustes ajustes(carpeta.path(), Idioma::Espanol);
  RelojVirtual reloj(Fecha::de(QDate(2026, 3, 4), QTime(22, 0)));
  stock::Almacenes almacenes(*db, reloj, textosDePrueba());
  totals::Periodos periodos(*db, ajustes, almacenes, textosDePrueba());
  const Fecha dia = Fecha::de(QDate(2026, 3, 4));
  const qint64 link =
      bien(periodos.CrearPeriodo(totals::kDiario, dia, dia, true, QStringLiteral("Ventas")));
  bien(
      db->ejecutar(u"INSERT INTO TOTPLU (LINK, GRUPO, CODI, CON, PES, [IMP], SCO) SELECT ?, "
                   u"g.CODGPO, p.CODPLU, 3, 1500, 4550, 0 FROM GRUPOS g, PLUSES p",
                   link));
  ficheroGrande(carpeta.filePath(QStringLiteral("VENTAS.EXP")));
  totals::XporTot xporTot(*db, periodos, ajustes);
  if (!bien(xporTot.XportRemoto({link}, {}, QStringLiteral("VENTAS"), QStringLiteral("1.1"))))
    morir(QStringLiteral("nada exportado"));
  const qint64 largo = QFile(carpeta.filePath(QStringLiteral("VENTAS.EXP"))).size() - kFichero;
  if (largo < qint64{kGrupos} * kArticulos * 52) morir(QString::number(largo));
  std::printf("%ld\n", picoKiB());
  return 0;
}

}  // namespace tarvo::banco
