// Export files cut off by another program, an editor or a full disk, and those of a copied folder.
#include <QFile>

#include "totals/TiendaDeTotales.h"
#include "totals/intercambio/Anadidura.h"

using namespace tarvo;
using namespace tarvo::totals;
using namespace Qt::StringLiterals;
using tarvo::prueba::bien;

namespace {

struct Cortados : testing::Test, prueba::TiendaDeTotales {
  Cortados() {
    dia = crear(1, "05/06/2018");
    plu(dia, 7, 3);
    plu(dia, 1234, 12);
    operHora(dia, 12, 8, 6);
    unBloque = bloque(dia).value_or("");
  }
  qint64 dia = 0;
  QByteArray unBloque;
};

// Whoever cut off the end of the file, nothing is added to what could not be read back.
TEST_F(Cortados, NadaSeAnadeAUnFicheroCortado) {
  const auto cabe = [&] {
    const auto r = xporTot.XportRemoto({dia}, {}, u"x"_s, QString());
    EXPECT_TRUE(r || r.error().texto.contains(u"x.EXP está cortado"_s));
    return r.has_value();
  };
  const auto entra = [&] {
    std::vector<ImpTot::Hecho> hechos;
    const auto r = impTot.importar(ruta(u"x.EXP"_s), SiExiste::Acumularlo, hechos);
    EXPECT_TRUE(r || r.error().texto.contains(u"x.EXP está cortado"_s));
    return r.has_value();
  };
  const QByteArray corto =
      "*uno\r\n*06/06/2018 00:00:00  06/06/2018 23:59:59\r\n"
      "010112340000007890-00000005000003456000012\r\n";
  // A file without a record of ours: its last lines tell, unless whole lines are missing.
  const std::pair<QByteArray, bool> ajenos[] = {
      {prueba::kAntes, true},
      {unBloque, true},
      {unBloque + "\r\n \r\n", true},
      {QByteArray(unBloque).replace("\r\n", "\n"), true},
      {corto, true},
      {"*06/06/2018 00:00:00  06/06/2018 23:59:59\r\n*uno\r\n", true},
      {unBloque + "*", false},
      {unBloque + "*Semana", false},
      {unBloque + "*Semana\r\n", false},
      {unBloque + "*Semana\r\n*Otra\r\n", false},
      {unBloque + "no es un bloque\r\n", false},
      {unBloque.chopped(1), false},
      {unBloque.chopped(20), false},
      {unBloque.chopped(20) + "\r\n", false},
      {unBloque + QByteArray(50, '9') + "\r\n", false},
      {corto.chopped(20), false},
      {"*", false},
  };
  for (const auto& [bytes, vale] : ajenos) {
    sql(u"delete from ExportesFinales"_s);
    escribir(u"x.EXP"_s, bytes);
    EXPECT_EQ(cabe(), vale) << bytes.right(60).toStdString();
    EXPECT_EQ(fichero(u"x.EXP"_s), vale ? bytes + unBloque : bytes);
  }
  // Our own: wherever its last block was cut, and not when all of it was taken out.
  escribir(u"x.EXP"_s, "");
  EXPECT_TRUE(cabe() && cabe());
  const QByteArray dos = fichero(u"x.EXP"_s);
  for (qsizetype n = unBloque.size(); n <= dos.size(); ++n) {
    escribir(u"x.EXP"_s, dos.left(n));
    const bool entero = n == unBloque.size() || n == dos.size();
    if (entero) continue;
    EXPECT_FALSE(cabe() || entra()) << n;
    EXPECT_EQ(fichero(u"x.EXP"_s), dos.left(n)) << n;
  }
  for (const QByteArray& otra : {unBloque, prueba::kAntes.repeated(5)}) {
    escribir(u"x.EXP"_s, otra);
    EXPECT_TRUE(entra() && cabe());
    EXPECT_EQ(fichero(u"x.EXP"_s), otra + bloque(dia).value_or(""));
  }
}

// A copy of the folder made in the middle of an export cuts its own file, never the original's.
TEST_F(Cortados, UnaCarpetaCopiadaNoTocaLosFicherosDelOriginal) {
  const QTemporaryDir copia, fuera;
  const QString suyo = ruta(u"x.EXP"_s), ajeno = fuera.filePath(u"x.EXP"_s),
                base = copia.filePath(u"TARVO.MDB"_s), copiado = copia.filePath(u"x.EXP"_s);
  const auto poner = [](const QString& donde, const QByteArray& bytes) {
    QFile f(donde);
    EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
  };
  const auto ver = [](const QString& donde) {
    QFile f(donde);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(nada)");
  };
  for (const QString& exportado : {suyo, ajeno}) {
    poner(exportado, prueba::kAntes);
    const auto a = bien(Anadidura::empezar(*db, exportado, 4, "****", ajustes, textosDePrueba()));
    poner(exportado, prueba::kAntes + "****");
    bien(db->copiarEn(base));
    if (exportado == suyo) poner(copiado, prueba::kAntes + "****");
    const auto otra = bien(dao::Database::OpenDatabase(base, {}));
    EXPECT_EQ(bien(Anadidura::recuperar(*otra)),
              exportado == suyo ? QStringList() : QStringList{ajeno});
    EXPECT_EQ(ver(exportado), prueba::kAntes + "****");
    EXPECT_EQ(ver(copiado), prueba::kAntes);
    // Reported once.
    EXPECT_TRUE(bien(Anadidura::recuperar(*otra)).isEmpty());
    QFile::remove(base);
  }
}

}  // namespace
