// The books compared with the engine's C API: storing machines' answers, and memorising a session.
#include <QFile>
#include <vector>

#include "Comun.h"
#include "Razones.h"
#include "comm/maquinas/Vek.h"
#include "textos/TextosDePrueba.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/libros/CerrSes.h"
#include "totals/periodos/AjustesPeriodos.h"

namespace tarvo::banco {
namespace {

constexpr int kArticulosLibros = 2000;

// --- decoding and storing ---

constexpr int kGruposLeidos = 100;
const char* const kUpsertLibros =
    "INSERT INTO TOTPLU (LINK,GRUPO,CODI,CON,PES,IMP,SCO) VALUES (0,?,?,?,?,?,?) ON CONFLICT "
    "(LINK,GRUPO,CODI) DO UPDATE SET CON=CON+excluded.CON, PES=PES+excluded.PES, "
    "IMP=IMP+excluded.IMP, SCO=SCO+excluded.SCO";

// The answers of each group's scale, one for each article.
std::vector<QByteArray> registros() {
  std::vector<QByteArray> r;
  for (int codi = 1; codi <= kArticulosLibros; ++codi)
    r.push_back(maquinas::Ceros(codi, 7) + maquinas::Ceros(250 + codi, 9) +
                maquinas::Ceros(1000 + codi, 9) + maquinas::Ceros(codi % 90, 5) + "000000000" +
                maquinas::Ceros(codi % 7, 9));
  return r;
}

struct Lector {
  explicit Lector(const QString& carpeta, dao::Database& base)
      : db(base),
        ajustes(carpeta, Idioma::Espanol, {totals::ajustesSesion(), totals::ajustesPeriodos()}) {
    bien(almacenes.asegurar());
    bien(sesion.cargar());
    sesion.ponerEjecucion(1, false);
  }
  dao::Database& db;
  RelojVirtual reloj{Fecha::de(QDate(2026, 3, 4), QTime(22, 0))};
  Ajustes ajustes;
  stock::Almacenes almacenes{db, reloj, textosDePrueba()};
  totals::Sesion sesion{db, ajustes, reloj, textosDePrueba()};
  totals::Periodos periodos{db, ajustes, almacenes, textosDePrueba()};
  totals::CerrSes cerrSes{sesion, periodos};
  std::vector<totals::Aviso> avisos;
};

void leerGrupo(Lector& l, int grupo, const std::vector<QByteArray>& registros) {
  totals::Lectura lectura;
  auto& filas = lectura.maquinas[0];
  for (const QByteArray& r : registros) {
    const maquinas::Total t = maquinas::vek::leerArticulo(r).value();
    filas[{t.numero, 0}] = {t.con, t.pes, t.imp, t.sco};
  }
  bien(l.sesion.PrepararRecepcion(grupo, TipoTotal::PLUs));
  bien(l.sesion.guardarLectura(grupo, TipoTotal::PLUs, lectura, l.avisos));
}

// As many commits as a reading needs: the record of its beginning, and its rows.
void ponerFilas(Crudo& c) {
  sqlite3_stmt* s = c.preparar(kUpsertLibros);
  for (int i = 0; i < kGruposLeidos * kArticulosLibros; ++i) {
    const int codi = 1 + i % kArticulosLibros;
    const int valores[] = {
        1 + i / kArticulosLibros, codi, codi % 90, 1000 + codi, 250 + codi, codi % 7};
    if (codi == 1) {
      c.ejecutar(QByteArray("INSERT INTO Lecturas (GRUPO, CLASE, EJECUCION, ESTADO) VALUES (" +
                            QByteArray::number(valores[0]) + ", 16, 1, 1)"));
      c.ejecutar("BEGIN IMMEDIATE");
    }
    for (int p = 0; p < 6; ++p) sqlite3_bind_int(s, p + 1, valores[p]);
    bien(sqlite3_step(s), SQLITE_DONE);
    sqlite3_reset(s);
    if (codi == kArticulosLibros) c.ejecutar("COMMIT");
  }
  sqlite3_finalize(s);
}

// Copies of one prepared shop, so that each round of each side starts from the same state.
class Copias {
 public:
  explicit Copias(int grupos) { const auto db = hacerTienda(original(), grupos, kArticulosLibros); }
  QString original() const { return carpeta_.filePath(QStringLiteral("0.MDB")); }
  QString nueva() {
    const QString ruta = carpeta_.filePath(QStringLiteral("%1.MDB").arg(++ultima_));
    if (!QFile::copy(original(), ruta)) morir(ruta);
    return ruta;
  }
  static void quitar(const QString& ruta) {
    for (const char* cola : {"", "-wal", "-shm"}) QFile::remove(ruta + QLatin1String(cola));
  }
  QString carpeta() const { return carpeta_.path(); }

 private:
  QTemporaryDir carpeta_;
  int ultima_ = 0;
};

double almacenarLecturas() {
  Copias copias(kGruposLeidos);
  const auto datos = registros();
  return razonDe(
      [&](const Cronometro& medido) {
        const QString ruta = copias.nueva();
        {
          const auto db = bien(dao::Database::OpenDatabase(ruta));
          Lector l(copias.carpeta(), *db);
          medido([&] {
            for (int g = 1; g <= kGruposLeidos; ++g) leerGrupo(l, g, datos);
          });
        }
        Copias::quitar(ruta);
      },
      [&](const Cronometro& medido) {
        const QString ruta = copias.nueva();
        {
          Crudo c(ruta);
          medido([&] { ponerFilas(c); });
        }
        Copias::quitar(ruta);
      },
      3);
}

// --- memorising ---

constexpr int kGruposMemoria = 250;

// A session in which every group's articles were received.
void recibirTodo(dao::Database& db) {
  bien(db.ejecutar(
      u"with recursive n(i) as (select 0 union all select i+1 from n where i<?) insert into TOTPLU "
      u"select 0, 1 + i\\2000, 1 + i mod 2000, 1 + i mod 90, i, i, 0 from n",
      kGruposMemoria * kArticulosLibros - 1));
  bien(db.ejecutar(u"UPDATE Sesiones SET SS_PLU=TRUE, DD_PLU=PZERO, HT_PLU=#3/4/2026 22:00:00#"));
  bien(db.ejecutar(
      u"INSERT INTO Lecturas (GRUPO, CLASE, EJECUCION, ESTADO, SEC) SELECT CODGPO, 16, 1, 2, "
      u"CODGPO FROM GRUPOS"));
  bien(db.ejecutar(
      u"INSERT INTO EstadoTarvo (CLAVE, VALOR) VALUES ('SesionAbier', 2), ('Secuencia', 1000)"));
  bien(
      db.ejecutar(u"INSERT INTO EstadoTarvo (CLAVE, VALOR) SELECT CLAVE, #3/4/2026 22:00:00# FROM "
                  u"(SELECT 'SesionHasta' AS CLAVE UNION SELECT 'SesionACero')"));
}

// Every group confirmed its zeroing unseen, and its reading shows that it obeyed.
void confirmarTodo(dao::Database& db) {
  bien(
      db.ejecutar(u"INSERT INTO CeroFilas SELECT GRUPO, 16, 0, CODI, 0, CON+5, PES, [IMP]+100, SCO "
                  u"FROM TOTPLU WHERE LINK=0"));
  bien(
      db.ejecutar(u"INSERT INTO Ceros (GRUPO, ADDR, HECHO) SELECT CODGPO, 0, #3/3/2026 "
                  u"22:00:00# FROM GRUPOS"));
}

const char* const kInsertMemoria =
    "INSERT INTO TOTPLU (LINK,GRUPO,CODI,CON,PES,IMP,SCO) SELECT "
    "1,GRUPO,CODI,CON,PES,IMP,SCO FROM TOTPLU WHERE LINK=0";
const char* const kCompararTodo =
    "CREATE TEMP TABLE vista AS SELECT b.GRUPO, count(*), SUM(COALESCE(n.CON,0)<b.CON), "
    "SUM(n.CON=b.CON AND n.IMP=b.IMP) FROM CeroFilas b LEFT JOIN TOTPLU n ON n.LINK=0 AND "
    "n.GRUPO=b.GRUPO AND n.CODI=b.CODI GROUP BY b.GRUPO; DELETE FROM CeroFilas";

double memorizarTienda(bool confirmada) {
  Copias copias(kGruposMemoria);
  {
    const auto db = bien(dao::Database::OpenDatabase(copias.original()));
    recibirTodo(*db);
    if (confirmada) confirmarTodo(*db);
  }
  return razonDe(
      [&](const Cronometro& medido) {
        const QString ruta = copias.nueva();
        {
          const auto db = bien(dao::Database::OpenDatabase(ruta));
          Lector l(copias.carpeta(), *db);
          medido([&] { bien(l.cerrSes.LaSesion(true, 0, l.avisos)); });
          const auto n = bien(db->uno(u"SELECT count(*) FROM TOTPLU WHERE LINK>0")).entero();
          if (n != kGruposMemoria * kArticulosLibros) morir(QString::number(n));
          if (bien(db->uno(u"SELECT count(*) FROM CeroFilas")).entero() != 0) morir(ruta);
        }
        Copias::quitar(ruta);
      },
      [&](const Cronometro& medido) {
        const QString ruta = copias.nueva();
        {
          Crudo c(ruta);
          medido([&] {
            if (confirmada) c.ejecutar(kCompararTodo);
            c.ejecutar(kInsertMemoria);
          });
        }
        Copias::quitar(ruta);
      },
      3);
}

double memorizar() {
  return memorizarTienda(false);
}
double juzgarYMemorizar() {
  return memorizarTienda(true);
}

const AltaMedida kMedidasLibros[] = {
    {"libros.decodificar_y_almacenar", 0.8, almacenarLecturas},
    {"libros.memorizar", 0.7, memorizar},
    {"libros.juzgar_confirmados", 0.5, juzgarYMemorizar},
};

}  // namespace
}  // namespace tarvo::banco
