// The store compared with the engine's C API: the same work, on two copies of the same table.
#include <random>

#include "Comun.h"
#include "Razones.h"

namespace tarvo::banco {
namespace {

constexpr int kFilas = 500'000;
constexpr int kGrupos = 50;
constexpr int kBuscadas = 50'000;

const QString kEsquema = QStringLiteral(
    "create table TOTPLU (LINK INTEGER DEFAULT 0, GRUPO INTEGER DEFAULT 0, CODI INTEGER DEFAULT 0, "
    "CON INTEGER DEFAULT 0,"
    " PES INTEGER DEFAULT 0, IMP INTEGER DEFAULT 0, SCO INTEGER DEFAULT 0);\n"
    "create unique index [TOTPLU.Cols] on TOTPLU (LINK, GRUPO, CODI);\n"
    "create index [TOTPLU.Filas] on TOTPLU (GRUPO, CODI, LINK);\n");

// A file that both sides open: ours through the Database, the limit through the C API.
class Almacen {
 public:
  explicit Almacen(int filas) {
    const QString ruta = carpeta_.filePath(QStringLiteral("b.mdb"));
    db = bien(dao::Database::OpenDatabase(ruta, {.crear = true}));
    bien(db->ejecutarGuion(kEsquema));
    bien(
        db->ejecutar(u"with recursive n(i) as (select 0 union all select i+1 from n where i+1<?) "
                     u"insert into TOTPLU select 1 + i\\250000, 1 + i mod 50, 1 + i\\50 mod 5000, "
                     u"i, i, i, 0 from n",
                     filas));
    crudo = std::make_unique<Crudo>(ruta);
  }

  void ejecutar(const char* sql) { crudo->ejecutar(sql); }
  sqlite3_stmt* preparar(const char* sql) { return crudo->preparar(sql); }

  std::unique_ptr<dao::Database> db;
  std::unique_ptr<Crudo> crudo;

 private:
  QTemporaryDir carpeta_;
};

struct Clave {
  int link, grupo, codi;
};

std::vector<Clave> clavesAlAzar(int cuantas) {
  std::mt19937 motor(7);
  std::vector<Clave> v(static_cast<size_t>(cuantas));
  for (Clave& k : v) {
    const int i = static_cast<int>(motor() % kFilas);
    k = {1 + i / 250'000, 1 + i % kGrupos, 1 + i / 50 % 5000};
  }
  return v;
}

volatile qint64 sumidero = 0;

double buscar(bool enUnaLectura) {
  Almacen a(kFilas);
  const auto claves = clavesAlAzar(kBuscadas);
  auto rs = bien(a.db->OpenTable(u"TOTPLU", u"Cols"));
  const int imp = rs->columna(u"IMP");
  sqlite3_stmt* s = a.preparar(
      "SELECT LINK,GRUPO,CODI,CON,PES,IMP,SCO FROM TOTPLU WHERE LINK=? AND GRUPO=? AND CODI=?");
  const double r = razon(
      [&] {
        qint64 suma = 0;
        if (enUnaLectura) bien(a.db->BeginTrans());
        for (const Clave& k : claves) {
          if (!bien(rs->Seek(dao::Busca::Igual, k.link, k.grupo, k.codi)))
            morir(QStringLiteral("falta una fila"));
          suma += rs->entero(imp);
        }
        if (enUnaLectura) bien(a.db->CommitTrans());
        sumidero = suma;
      },
      [&] {
        qint64 suma = 0;
        if (enUnaLectura) a.ejecutar("BEGIN IMMEDIATE");
        for (const Clave& k : claves) {
          sqlite3_bind_int(s, 1, k.link);
          sqlite3_bind_int(s, 2, k.grupo);
          sqlite3_bind_int(s, 3, k.codi);
          bien(sqlite3_step(s), SQLITE_ROW);
          suma += sqlite3_column_int64(s, 5);
          sqlite3_reset(s);
        }
        if (enUnaLectura) a.ejecutar("COMMIT");
        sumidero = suma;
      });
  sqlite3_finalize(s);
  return r;
}

double recorrer() {
  Almacen a(kFilas);
  auto rs = bien(a.db->OpenTable(u"TOTPLU", u"Cols"));
  sqlite3_stmt* s = a.preparar(
      "SELECT LINK,GRUPO,CODI,CON,PES,IMP,SCO FROM TOTPLU INDEXED BY \"TOTPLU.Cols\" "
      "ORDER BY LINK,GRUPO,CODI");
  const double r = razon(
      [&] {
        qint64 suma = 0;
        for (bien(rs->MoveFirst()); !rs->Eof(); bien(rs->MoveNext()))
          for (int i = 0; i < 7; ++i) suma += rs->entero(i);
        sumidero = suma;
      },
      [&] {
        qint64 suma = 0;
        while (sqlite3_step(s) == SQLITE_ROW)
          for (int i = 0; i < 7; ++i) suma += sqlite3_column_int64(s, i);
        sqlite3_reset(s);
        sumidero = suma;
      });
  sqlite3_finalize(s);
  return r;
}

// Received records of a reading: two in three are new rows, the third adds to an existing one.
constexpr int kRecibidos = 30'000;
constexpr int kPorTransaccion = 100;

const char* const kUpsert =
    "INSERT INTO TOTPLU (LINK,GRUPO,CODI,CON,PES,IMP,SCO) VALUES (?,?,?,?,?,?,?) ON CONFLICT "
    "(LINK,GRUPO,CODI) "
    "DO UPDATE SET CON=CON+excluded.CON, PES=PES+excluded.PES, IMP=IMP+excluded.IMP, "
    "SCO=SCO+excluded.SCO";

Clave recibido(int i) {
  return {0, 1 + i / 5000, 1 + (i % 3 == 2 ? i - 1 : i) % 5000};
}

void limiteUpserts(Almacen& a) {
  a.ejecutar("DELETE FROM TOTPLU WHERE LINK=0");
  sqlite3_stmt* s = a.preparar(kUpsert);
  for (int i = 0; i < kRecibidos; ++i) {
    if (i % kPorTransaccion == 0) a.ejecutar("BEGIN IMMEDIATE");
    const Clave k = recibido(i);
    for (int p = 1; p <= 7; ++p)
      sqlite3_bind_int(s, p, p == 1 ? k.link : p == 2 ? k.grupo : p == 3 ? k.codi : i);
    bien(sqlite3_step(s), SQLITE_DONE);
    sqlite3_reset(s);
    if (i % kPorTransaccion == kPorTransaccion - 1) a.ejecutar("COMMIT");
  }
  sqlite3_finalize(s);
}

double upsertsPorSentencia() {
  Almacen a(kFilas);
  return razon(
      [&] {
        bien(a.db->Execute(u"DELETE FROM TOTPLU WHERE LINK=0"));
        auto s = bien(a.db->preparar(QString::fromLatin1(kUpsert)));
        for (int i = 0; i < kRecibidos; ++i) {
          if (i % kPorTransaccion == 0) bien(a.db->BeginTrans());
          const Clave k = recibido(i);
          for (int p = 0; p < 7; ++p)
            s->ligar(p, qint64{p == 0 ? k.link : p == 1 ? k.grupo : p == 2 ? k.codi : i});
          bien(s->ejecutar());
          if (i % kPorTransaccion == kPorTransaccion - 1) bien(a.db->CommitTrans());
        }
      },
      [&] { limiteUpserts(a); });
}

double upsertsPorTabla() {
  Almacen a(kFilas);
  auto rs = bien(a.db->OpenTable(u"TOTPLU", u"Cols"));
  return razon(
      [&] {
        bien(a.db->Execute(u"DELETE FROM TOTPLU WHERE LINK=0"));
        for (int i = 0; i < kRecibidos; ++i) {
          if (i % kPorTransaccion == 0) bien(a.db->BeginTrans());
          const Clave k = recibido(i);
          if (bien(rs->Seek(dao::Busca::Igual, k.link, k.grupo, k.codi))) {
            rs->Edit();
            for (int c = 3; c < 7; ++c) rs->poner(c, rs->entero(c) + i);
          } else {
            rs->AddNew();
            for (int c = 0; c < 7; ++c)
              rs->poner(c, c == 0 ? k.link : c == 1 ? k.grupo : c == 2 ? k.codi : i);
          }
          bien(rs->Update());
          if (i % kPorTransaccion == kPorTransaccion - 1) bien(a.db->CommitTrans());
        }
      },
      [&] { limiteUpserts(a); });
}

double mover() {
  Almacen a(kFilas);
  static constexpr const char* kMover =
      "INSERT INTO TOTPLU (LINK,GRUPO,CODI,CON,PES,IMP,SCO) SELECT "
      "LINK+100,GRUPO,CODI,CON,PES,IMP,SCO FROM TOTPLU WHERE "
      "LINK<100";
  return razon(
      [&] {
        bien(a.db->Execute(QString::fromLatin1(kMover)));
        bien(a.db->Execute(u"DELETE FROM TOTPLU WHERE LINK>100"));
      },
      [&] {
        a.ejecutar(kMover);
        a.ejecutar("DELETE FROM TOTPLU WHERE LINK>100");
      },
      3);
}

const AltaMedida kMedidas[] = {
    {"store.seek_una_lectura", 0.7, [] { return buscar(true); }},
    {"store.seek_sueltos", 0.7, [] { return buscar(false); }},
    {"store.recorrido", 0.5, recorrer},
    {"store.upsert_sentencia", 0.7, upsertsPorSentencia},
    {"store.upsert_tabla", 0.7, upsertsPorTabla},
    {"store.insert_select", 0.8, mover},
};

}  // namespace
}  // namespace tarvo::banco
