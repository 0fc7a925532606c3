// The peak memory of an export, in a process of its own: no more for a file with a gigabyte of old
// blocks than for a new one.
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
#include "totals/periodos/AjustesPeriodos.h"

namespace tarvo::banco {

namespace {

constexpr int kGrupos = 200, kArticulos = 2000;
constexpr int kFicheroMiB = 1024;

// Old blocks, to the extent that an export reads them: the first byte and a last block.
void hacerFichero(const QString& ruta, qint64 largo) {
  const QByteArray ultimo = "\r\n*Viejo\r\n*04/06/2018 00:00:00  04/06/2018 23:59:59\r\n";
  QFile f(ruta);
  if (!f.open(QIODevice::WriteOnly) || f.write("*") != 1 || !f.seek(largo - ultimo.size()) ||
      f.write(ultimo) != ultimo.size())
    morir(f.errorString());
}

double picoAparte(int mib) {
  QProcess hijo;
  hijo.start(QStringLiteral("/proc/self/exe"), {QStringLiteral("--exporta"), QString::number(mib)});
  if (!hijo.waitForFinished(120'000) || hijo.exitCode() != 0)
    morir(QString::fromLocal8Bit(hijo.readAllStandardError()));
  return hijo.readAllStandardOutput().trimmed().toDouble();
}

const AltaMedida kMedida("exporta.memoria", 0.95, [] {
  return razonDeCifras([] { return picoAparte(kFicheroMiB); }, [] { return picoAparte(0); });
});

}  // namespace

int exporta(int mib) {
  const QTemporaryDir carpeta;
  const auto db = hacerTienda(carpeta.filePath(QStringLiteral("TARVO.MDB")), kGrupos, kArticulos);
  Ajustes ajustes(carpeta.path(), Idioma::Espanol, {totals::ajustesPeriodos()});
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
  const qint64 antes = qint64{mib} << 20;
  if (mib > 0) hacerFichero(carpeta.filePath(QStringLiteral("VENTAS.EXP")), antes);
  totals::XporTot xporTot(periodos);
  if (!bien(xporTot.XportRemoto({link}, {}, QStringLiteral("VENTAS"), QStringLiteral("1.1"))))
    morir(QStringLiteral("nada exportado"));
  const qint64 largo = QFile(carpeta.filePath(QStringLiteral("VENTAS.EXP"))).size() - antes;
  if (largo < qint64{kGrupos} * kArticulos * 52) morir(QString::number(largo));
  std::printf("%ld\n", picoKiB());
  return 0;
}

}  // namespace tarvo::banco
