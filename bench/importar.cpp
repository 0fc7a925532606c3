// A .PLU file of new articles, compared with `sqlite3 .import` of the same data into the same
// indexed table.
#include <QFile>
#include <QProcess>

#include "Comun.h"
#include "Razones.h"
#include "articles/TablasArticulos.h"
#include "articles/importar/ImpPLU.h"
#include "core/esquema/Esquema.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::banco {
namespace {

using namespace Qt::StringLiterals;

constexpr int kArticulos = 100'000;
constexpr int kPreciosLlenos = 8;  // the tarifas of the base level, as in real shops

QString nombre(int i) {
  return u"ARTÍCULO %1 ESPAÑOL"_s.arg(i * 7919 % kArticulos, 6).left(20).leftJustified(20);
}

// The same articles as records and as rows of the table.
struct Ficheros {
  QTemporaryDir carpeta;
  QString plu = carpeta.filePath(u"A.PLU"_s), csv = carpeta.filePath(u"A.csv"_s);

  Ficheros() {
    QByteArray registros, filas;
    for (int i = 3; i < kArticulos + 3; ++i) anadir(i, registros, filas);
    escribir(plu, registros);
    escribir(csv, filas);
  }

 private:
  // For .import an empty field is a text, and the bar codes of a section must differ: they are the
  // code.
  static void anadir(int i, QByteArray& registros, QByteArray& filas) {
    const qint64 coste = 100 + i % 900;
    QString r = u"001"_s + Ceros(i, 7) + nombre(i) + QString::number(i % 3) + Ceros(coste, 6);
    QStringList f{u"1"_s, QString::number(i), nombre(i), QString::number(i % 3), u"1,0,0,0"_s};
    for (int p = 0; p < 24; ++p) {
      const qint64 precio = p < kPreciosLlenos ? 100 + (i + p) % 5000 : 0;
      r += Ceros(precio, 6);
      f << QString::number(precio);
    }
    r += Ceros(1 + i % 40, 2) + u"01"_s + QString(8, u' ') + u"\r\n"_s;
    f << QString::number(1 + i % 40) << u"1,0,%1,0,1,,1,0,0,0,0"_s.arg(i) << QString::number(coste);
    registros += r.toLatin1();
    filas += f.join(u',').toUtf8() + '\n';
  }
  static void escribir(const QString& ruta, const QByteArray& bytes) {
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size()) morir(f.errorString());
  }
};

// A new database with its first section.
struct Tienda {
  QTemporaryDir carpeta;
  QString ruta = carpeta.filePath(u"TARVO.MDB"_s);
  std::unique_ptr<dao::Database> db = bien(dao::Database::OpenDatabase(ruta, {.crear = true}));

  Tienda() {
    bien(esquema::crearEsquema(*db));
    bien(articles::asegurarTablasArticulos(*db));
    bien(db->ejecutar(u"INSERT OR IGNORE INTO SECCS (NMSECC, NOMSEC) VALUES (1, 'UNA')"));
  }
};

void importar(const Ficheros& f, const Cronometro& medir) {
  Tienda t;
  RelojVirtual reloj{Fecha::deDias(46'000)};
  articles::Catalogo catalogo(*t.db, textosDePrueba(), reloj, u"banco"_s);
  medir([&] {
    auto i = bien(importar::ImpPLU::abrir(catalogo, f.plu));
    while (bien(i->paso(importar::SiExiste::Sobreescribirlo))) continue;
    bien(i->acabar());
    if (i->cuenta().nuevos != kArticulos) morir(u"faltan articulos"_s);
  });
}

void importarConSqlite(const Ficheros& f, const Cronometro& medir) {
  Tienda t;
  t.db.reset();
  medir([&] {
    QProcess p;
    p.start(u"sqlite3"_s, {t.ruta, u".mode csv"_s, u".import %1 PLUSES"_s.arg(f.csv)});
    if (!p.waitForFinished(300'000) || p.exitCode() != 0)
      morir(QString::fromUtf8(p.readAllStandardError().left(300)));
  });
  t.db = bien(dao::Database::OpenDatabase(t.ruta));
  if (bien(t.db->uno(u"SELECT count(*) FROM PLUSES WHERE CODPLU>2")).entero() != kArticulos)
    morir(u"sqlite3 .import no los ha metido todos"_s);
}

const AltaMedida kImportar("importar.plu", 1 / 3.0, [] {
  const Ficheros f;
  return razonDe([&](const Cronometro& c) { importar(f, c); },
                 [&](const Cronometro& c) { importarConSqlite(f, c); }, 3);
});

}  // namespace
}  // namespace tarvo::banco
