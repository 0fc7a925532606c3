// 100,000 articles changed by a percentage, and a .PLU over 20,000 existing ones, in a shop with
// stock: each compared with the bare statements that write the same rows in slices of as many
// articles, and its worst slice with the longest wait of a window.
#include <QElapsedTimer>
#include <QFile>

#include "Comun.h"
#include "Razones.h"
#include "articles/TablasArticulos.h"
#include "articles/importar/ImpPLU.h"
#include "articles/precios/CambioLote.h"
#include "core/esquema/Esquema.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::banco {
namespace {

using namespace Qt::StringLiterals;

constexpr int kArticulos = 100'000, kConStock = 20'000, kImportados = 20'000;
constexpr int kPreciosLlenos = 8;  // the tarifas of the base level, as in real shops
constexpr int kTramo = 500;
constexpr double kPeorTramoMs = 80;

QString seguidas(const QString& patron, const QString& entre = u", "_s) {
  QStringList s;
  for (int p = 0; p < kPreciosLlenos; ++p) s << QString(patron).arg(p);
  return s.join(entre);
}

// A section of articles with eight prices, most in two warehouses, held by a group.
struct Almacen {
  QTemporaryDir carpeta;
  QString ruta = carpeta.filePath(u"TARVO.MDB"_s);
  std::unique_ptr<dao::Database> db = bien(dao::Database::OpenDatabase(ruta, {.crear = true}));
  RelojVirtual reloj{Fecha::deDias(46'000)};
  articles::Catalogo catalogo{*db, textosDePrueba(), reloj, u"banco"_s};

  explicit Almacen(int articulos) {
    bien(esquema::crearEsquema(*db));
    bien(articles::asegurarTablasArticulos(*db));
    bien(db->BeginTrans());
    bien(db->ejecutar(u"INSERT OR IGNORE INTO SECCS (NMSECC, NOMSEC) VALUES (1, 'UNA')"));
    bien(db->ejecutar(u"INSERT INTO ALMACEN (CODALM, NOMALM) VALUES (1, 'A'), (2, 'B')"));
    bien(db->ejecutar(u"INSERT INTO GRUPOS (CODGPO, TIPO, SECCION, Almacen) VALUES (1, 1, 1, 1)"));
    const QString serie =
        u"WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i+1 FROM n WHERE i<?+2) "_s;
    bien(db->ejecutar(
        serie + u"INSERT INTO PLUSES (SECCION, CODPLU, NOMPLU, DEPTO, %1) SELECT 1, i, 'ARTÍCULO ' "
                u"& i*7919 mod 100003, 1+i mod 40, %2 FROM n"_s.arg(
                    seguidas(u"PRECIO_0%1"_s), seguidas(u"100+(i+%1) mod 5000"_s)),
        articulos));
    for (const int almacen : {1, 2})
      bien(db->ejecutar(serie + u"INSERT INTO MovsAlm (CODALM, SECCION, CODIGO, Inicial) SELECT ?, "
                                u"1, i, i FROM n"_s,
                        std::min(articulos, kConStock / 2), almacen));
    bien(db->ejecutar(
        serie + u"INSERT INTO [Cross] (Secc, plu, Grupo, borra) SELECT 1, i, 1, 0 FROM n"_s,
        articulos));
    bien(db->CommitTrans());
  }
};

// The bare statements. `nuevo` is a table with the new prices by key.
class Desnudo {
 public:
  Desnudo(const QString& ruta, bool conCross) : con_(ruta), conCross_(conCross) {
    con_.ejecutar(
        "CREATE TEMP TABLE K (SECCION INTEGER, CODPLU INTEGER, NOMPLU TEXT, CADA INTEGER, COSTE "
        "INTEGER, DEPTO INTEGER, PRECIO_00 INTEGER, PRECIO_01 INTEGER, PRECIO_02 INTEGER, "
        "PRECIO_03 INTEGER, PRECIO_04 INTEGER, PRECIO_05 INTEGER, PRECIO_06 INTEGER, PRECIO_07 "
        "INTEGER, PRIMARY KEY (SECCION, CODPLU))");
    con_.ejecutar("INSERT INTO LoteArticulos (LOTE, CUANDO, VENTANA) VALUES (9, 1.0, 'B')");
  }
  Crudo& con() { return con_; }

  // Writes the articles in K. `ademas`: other columns that change.
  void tramo(const QString& ademas) {
    const QString clave = u"P.SECCION=K.SECCION AND P.CODPLU=K.CODPLU"_s;
    const QString dePlu = u" FROM K CROSS JOIN PLUSES P ON "_s + clave;
    const QString deStock =
        u" FROM K CROSS JOIN MovsAlm M ON M.SECCION=K.SECCION AND M.CODIGO=K.CODPLU"_s;
    hacer(u"INSERT INTO LoteMovs SELECT 9, 1, M.*"_s + deStock);
    hacer(u"INSERT INTO LoteAntes SELECT 9, 1, 0, P.*"_s + dePlu);
    for (int p = 0; p < kPreciosLlenos; ++p)
      hacer(
          u"INSERT INTO HistoriaPrecios (SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, CUANDO, "
          u"QUIEN, VENTANA) SELECT P.SECCION, P.CODPLU, 0, %1, P.PRECIO_0%1, K.PRECIO_0%1, 1.0, "
          u"'banco', 'B' %2 AND P.PRECIO_0%1<>K.PRECIO_0%1"_s.arg(p)
              .arg(dePlu));
    hacer(u"UPDATE PLUSES AS P SET %1%2 FROM K WHERE %3"_s.arg(
        ademas, seguidas(u"PRECIO_0%1=K.PRECIO_0%1"_s), clave));
    if (conCross_)
      hacer(u"DELETE FROM \"Cross\" WHERE (Secc, plu) IN (SELECT SECCION, CODPLU FROM K)"_s);
    hacer(u"INSERT INTO LoteMovs SELECT 9, 0, M.*"_s + deStock);
    hacer(u"INSERT INTO LoteDespues SELECT 9, 1, P.*"_s + dePlu);
    hacer(u"DELETE FROM K"_s);
  }

 private:
  // Prepared once for each text, as usual.
  void hacer(const QString& sql) {
    sqlite3_stmt*& s = hechas_[sql];
    if (!s) s = con_.preparar(sql.toUtf8().constData());
    bien(sqlite3_step(s), SQLITE_DONE);
    bien(sqlite3_reset(s));
  }

  Crudo con_;
  bool conCross_;
  std::map<QString, sqlite3_stmt*> hechas_;
};

// --- a percentage ---

double subir(const Cronometro& medir) {
  Almacen a(kArticulos);
  articles::Lotes lotes(a.catalogo);
  precios::CambioLote motor(a.catalogo, lotes);
  std::vector<articles::ClaveArticulo> claves;
  for (int i = 3; i < kArticulos + 3; ++i) claves.push_back({1, i});
  const auto orden =
      *precios::SubePrecios::de(500, 1, precios::Redondeo::MasProximo, std::nullopt, std::nullopt);
  double peor = 0;
  medir([&] {
    QElapsedTimer tramo;
    const auto marcha = motor.empezar(claves, orden, u"CambioLote"_s);
    bool hayMas = true;
    while (hayMas) {
      tramo.start();
      hayMas = bien(marcha->paso());
      peor = std::max(peor, static_cast<double>(tramo.nsecsElapsed()) / 1e6);
    }
    tramo.start();
    bien(marcha->acabar());
    peor = std::max(peor, static_cast<double>(tramo.nsecsElapsed()) / 1e6);
    if (marcha->hecho().cambiados != kArticulos) morir(u"no han cambiado todos"_s);
  });
  return peor;
}

void subirDesnudo(const Cronometro& medir) {
  Almacen a(kArticulos);
  a.db.reset();
  medir([&] {
    Desnudo d(a.ruta, true);
    sqlite3_stmt* elegir =
        d.con().preparar(("INSERT INTO K (SECCION, CODPLU, " + seguidas(u"PRECIO_0%1"_s) +
                          ") SELECT 1, CODPLU, " + seguidas(u"(PRECIO_0%1*10500+5000)/10000"_s) +
                          " FROM PLUSES WHERE SECCION=1 AND CODPLU>=? AND CODPLU<?")
                             .toUtf8()
                             .constData());
    for (int i = 3; i < kArticulos + 3; i += kTramo) {
      d.con().ejecutar("BEGIN");
      bien(sqlite3_bind_int(elegir, 1, i));
      bien(sqlite3_bind_int(elegir, 2, i + kTramo));
      bien(sqlite3_step(elegir), SQLITE_DONE);
      bien(sqlite3_reset(elegir));
      d.tramo({});
      d.con().ejecutar("COMMIT");
    }
    sqlite3_finalize(elegir);
  });
}

// --- a .PLU over existing articles ---

struct Registros {
  QTemporaryDir carpeta;
  QString plu = carpeta.filePath(u"A.PLU"_s);

  Registros() {
    QByteArray todo;
    for (int i = 3; i < kImportados + 3; ++i) {
      QString r = u"001"_s + Ceros(i, 7) + nombre(i).leftJustified(20) + u"0"_s + Ceros(100, 6);
      for (int p = 0; p < 24; ++p) r += Ceros(p < kPreciosLlenos ? precio(i, p) : 0, 6);
      todo += (r + Ceros(1 + i % 40, 2) + u"01"_s + QString(8, u' ') + u"\r\n"_s).toLatin1();
    }
    QFile f(plu);
    if (!f.open(QIODevice::WriteOnly) || f.write(todo) != todo.size()) morir(f.errorString());
  }
  static QString nombre(int i) { return u"NUEVO %1"_s.arg(i * 7919 % 100'003); }
  static int precio(int i, int p) { return 200 + (i + p) % 5000; }
};

double importarEncima(const Registros& r, const Cronometro& medir) {
  Almacen a(kImportados);
  double peor = 0;
  medir([&] {
    QElapsedTimer tramo;
    auto i = bien(importar::ImpPLU::abrir(a.catalogo, r.plu));
    bool hayMas = true;
    while (hayMas) {
      tramo.start();
      hayMas = bien(i->paso(importar::SiExiste::Sobreescribirlo));
      peor = std::max(peor, static_cast<double>(tramo.nsecsElapsed()) / 1e6);
    }
    tramo.start();
    bien(i->acabar());
    peor = std::max(peor, static_cast<double>(tramo.nsecsElapsed()) / 1e6);
    if (i->cuenta().sobreescritos != kImportados) morir(u"no se han sobreescrito todos"_s);
  });
  return peor;
}

void importarDesnudo(const Cronometro& medir) {
  Almacen a(kImportados);
  a.db.reset();
  medir([&] {
    Desnudo d(a.ruta, false);
    sqlite3_stmt* poner =
        d.con().preparar("INSERT INTO K VALUES (1, ?, ?, 0, 100, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (int i = 3; i < kImportados + 3;) {
      d.con().ejecutar("BEGIN");
      for (const int hasta = std::min(i + kTramo, kImportados + 3); i < hasta; ++i) {
        const QByteArray nombre = Registros::nombre(i).toUtf8();
        bien(sqlite3_bind_int(poner, 1, i));
        bien(sqlite3_bind_text(poner, 2, nombre.constData(), -1, SQLITE_TRANSIENT));
        bien(sqlite3_bind_int(poner, 3, 1 + i % 40));
        for (int p = 0; p < kPreciosLlenos; ++p)
          bien(sqlite3_bind_int(poner, 4 + p, Registros::precio(i, p)));
        bien(sqlite3_step(poner), SQLITE_DONE);
        bien(sqlite3_reset(poner));
      }
      d.tramo(u"NOMPLU=K.NOMPLU, COSTE=K.COSTE, DEPTO=K.DEPTO, "_s);
      d.con().ejecutar("COMMIT");
    }
    sqlite3_finalize(poner);
  });
}

// The ratio, and the longest slices of the same runs.
struct PorTramos {
  double razon = 0;
  std::vector<double> peores;  // ms, by run
  double delPeor() const { return kPeorTramoMs / mediana(peores); }
};

const PorTramos& subida() {
  static const PorTramos kSubida = [] {
    PorTramos p;
    p.razon = razonDe([&](const Cronometro& c) { p.peores.push_back(subir(c)); }, subirDesnudo, 3);
    return p;
  }();
  return kSubida;
}

const PorTramos& importacion() {
  static const PorTramos kImportacion = [] {
    const Registros r;
    PorTramos p;
    p.razon = razonDe([&](const Cronometro& c) { p.peores.push_back(importarEncima(r, c)); },
                      importarDesnudo, 3);
    return p;
  }();
  return kImportacion;
}

const AltaMedida kMedidas[] = {
    {"lotes.subir_100000", 1 / 3.0, [] { return subida().razon; }},
    {"lotes.subir_peor_tramo", 1, [] { return subida().delPeor(); }},
    {"importar.plu_encima_20000", 1 / 3.0, [] { return importacion().razon; }},
    {"importar.plu_encima_peor_tramo", 1, [] { return importacion().delPeor(); }},
};

}  // namespace
}  // namespace tarvo::banco
