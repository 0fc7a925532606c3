// Opening, locking, transactions, a full disk and copies.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>

#include "core/dao/Database.h"
#include "dao/recorrer.h"

namespace tarvo::dao {
namespace {

using Puntero = std::unique_ptr<Database>;

Puntero nueva(const QString& ruta) {
  auto db = Database::OpenDatabase(ruta, {.crear = true});
  if (!db) {
    ADD_FAILURE() << db.error().texto.toStdString();
    return nullptr;
  }
  EXPECT_TRUE((*db)->ejecutarGuion(u"create table if not exists T (n integer, s text);\n"));
  return std::move(*db);
}

qint64 filas(Database& db) {
  return db.uno(u"select count(*) from T").value_or(-1).entero();
}

Fallo alAbrir(const QString& ruta, const Apertura& como = {}) {
  const auto db = Database::OpenDatabase(ruta, como);
  EXPECT_FALSE(db);
  if (db) return Fallo::Comunicacion;
  EXPECT_FALSE(db.error().texto.isEmpty());
  return db.error().clase;
}

// The superuser may write anything, so these tests run as another user for a while.
class SinPrivilegios {
 public:
  SinPrivilegios() : era_(::geteuid()) {
    if (era_ == 0 && ::seteuid(65534) != 0) ADD_FAILURE();
  }
  ~SinPrivilegios() { EXPECT_EQ(::seteuid(era_), 0); }

 private:
  uid_t era_;
};

class ConBase : public testing::Test {
 protected:
  void escribir(const QString& nombre, const QByteArray& bytes) {
    QFile f(ruta(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }
  QString ruta(const QString& nombre) const { return carpeta.filePath(nombre); }
  QTemporaryDir carpeta;
};

TEST_F(ConBase, DiceQueLePasaAUnFichero) {
  EXPECT_EQ(alAbrir(ruta("no.mdb")), Fallo::NoExiste);
  EXPECT_EQ(Database::OpenDatabase(ruta("no.mdb")).error().numero, 3024);
  EXPECT_FALSE(QFile::exists(ruta("no.mdb")));
  EXPECT_EQ(alAbrir(ruta("no/hay/carpeta.mdb"), {.crear = true}), Fallo::NoExiste);
  EXPECT_EQ(alAbrir(carpeta.path()), Fallo::NoEsBaseDatos);
  escribir("basura.mdb", QByteArray(5000, 'x'));
  EXPECT_EQ(alAbrir(ruta("basura.mdb")), Fallo::NoEsBaseDatos);
  escribir("corta.mdb", "Standard Jet DB");
  EXPECT_EQ(alAbrir(ruta("corta.mdb")), Fallo::NoEsBaseDatos);
}

TEST_F(ConBase, ConoceAlAbrirLaProteccionDeFicheroYCarpeta) {
  nueva(ruta("t.mdb"));
  EXPECT_FALSE(QFile::exists(ruta("t.mdb-wal"))) << "the last one out leaves one plain file";
  using P = QFileDevice;
  const auto todos =
      P::ReadOwner | P::ReadGroup | P::ReadOther | P::ExeOwner | P::ExeGroup | P::ExeOther;
  ASSERT_TRUE(QFile::setPermissions(carpeta.path(), todos | P::WriteOwner));
  {
    const SinPrivilegios p;
    QFile::setPermissions(ruta("t.mdb"), P::ReadOwner | P::ReadGroup | P::ReadOther);
    EXPECT_EQ(alAbrir(ruta("t.mdb")), Fallo::SoloLectura);
  }
  QFile::setPermissions(ruta("t.mdb"), P::ReadOwner | P::WriteOwner | P::ReadGroup | P::WriteGroup |
                                           P::ReadOther | P::WriteOther);
  ASSERT_TRUE(QFile::setPermissions(carpeta.path(), todos));
  {
    const SinPrivilegios p;
    EXPECT_EQ(alAbrir(ruta("t.mdb")), Fallo::SoloLectura);
    auto lectura = Database::OpenDatabase(ruta("t.mdb"), {.soloLeer = true});
    ASSERT_TRUE(lectura) << lectura.error().texto.toStdString();
    EXPECT_EQ(filas(**lectura), 0);
    EXPECT_EQ((*lectura)->Execute(u"delete from T").error().clase, Fallo::SoloLectura);
  }
  QFile::setPermissions(ruta("t.mdb"), P::WriteOwner);
  {
    const SinPrivilegios p;
    EXPECT_EQ(alAbrir(ruta("t.mdb")), Fallo::SinPermiso);
  }
  QFile::setPermissions(carpeta.path(), todos | P::WriteOwner);
}

TEST_F(ConBase, DosConexionesSeEsperanYSeVen) {
  const Puntero una = nueva(ruta("t.mdb"));
  auto abierta = Database::OpenDatabase(ruta("t.mdb"), {.esperaOcupada = 50});
  ASSERT_TRUE(abierta);
  Database& otra = **abierta;
  ASSERT_TRUE(una->BeginTrans());
  ASSERT_TRUE(una->Execute(u"insert into T (n) values (1)"));
  EXPECT_EQ(filas(otra), 0) << "a reader does not wait, and sees what is committed";
  QElapsedTimer t;
  t.start();
  const auto r = otra.Execute(u"insert into T (n) values (2)");
  EXPECT_EQ(r.error().clase, Fallo::Ocupado);
  EXPECT_EQ(r.error().numero, 3260);
  EXPECT_TRUE(
      r.error().texto.startsWith(u"La página de datos está bloqueada por otra máquina. Cierre"))
      << r.error().texto.toStdString();
  const auto otro = otra.Execute(u"insert into Nada (n) values (2)");
  EXPECT_TRUE(otro.error().texto.startsWith(u"(1)-no such table: Nada. "))
      << otro.error().texto.toStdString();
  EXPECT_GE(t.elapsed(), 40);
  EXPECT_TRUE(Database::OpenDatabase(ruta("t.mdb"), {.esperaOcupada = 0}))
      << "a writer elsewhere does not keep us out";
  ASSERT_TRUE(una->CommitTrans());
  EXPECT_EQ(filas(otra), 1);
  EXPECT_TRUE(otra.Execute(u"insert into T (n) values (2)"));
}

TEST_F(ConBase, LasTransaccionesSeAnidan) {
  const Puntero db = nueva(ruta("t.mdb"));
  const auto meter = [&](int n) { ASSERT_TRUE(db->ejecutar(u"insert into T (n) values (?)", n)); };
  {
    auto fuera = Transaccion::empezar(*db);
    ASSERT_TRUE(fuera);
    meter(1);
    {
      auto dentro = Transaccion::empezar(*db);
      ASSERT_TRUE(dentro);
      meter(2);
      EXPECT_EQ(db->profundidad(), 2);
    }
    EXPECT_EQ(filas(*db), 1) << "the inner one went alone";
    auto dentro = Transaccion::empezar(*db);
    meter(3);
    ASSERT_TRUE(dentro->confirmar());
    ASSERT_TRUE(fuera->confirmar());
    EXPECT_FALSE(fuera->confirmar());
  }
  EXPECT_EQ(filas(*db), 2);
  const qint64 antes = db->cambios();
  {
    auto fuera = Transaccion::empezar(*db);
    auto dentro = Transaccion::empezar(*db);
    meter(4);
    ASSERT_TRUE(dentro->confirmar());
  }
  EXPECT_EQ(filas(*db), 2);
  EXPECT_NE(db->cambios(), antes);
  EXPECT_EQ(db->profundidad(), 0);
  EXPECT_FALSE(db->CommitTrans());
  EXPECT_FALSE(db->ejecutarGuion(u"insert into T (n) values (9);\ninsert into NADA values (1);\n"));
  EXPECT_EQ(filas(*db), 2) << "a script is whole or not at all";
}

TEST_F(ConBase, UnDiscoLlenoSeDiceYNoDejaMedias) {
  const Puntero db = nueva(ruta("t.mdb"));
  ASSERT_TRUE(db->Execute(u"insert into T (n) values (1)"));
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit antes{};
  ::getrlimit(RLIMIT_FSIZE, &antes);
  const rlimit poco{200'000, antes.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &poco), 0);
  Resultado<> fin;
  {
    auto t = Transaccion::empezar(*db);
    ASSERT_TRUE(t);
    Resultado<qint64> r = 0;
    for (int i = 0; r && i < 2000; ++i)
      r = db->ejecutar(u"insert into T (s) values (?)", QString(4000, u'x'));
    if (r)
      fin = t->confirmar();
    else
      fin = std::unexpected(r.error());
    if (!r) {
      EXPECT_FALSE(t->confirmar()) << "nothing of a broken transaction may be committed";
    }
  }
  ::setrlimit(RLIMIT_FSIZE, &antes);
  ASSERT_FALSE(fin);
  EXPECT_EQ(fin.error().clase, Fallo::DiscoLleno) << fin.error().texto.toStdString();
  EXPECT_EQ(filas(*db), 1);
  EXPECT_TRUE(db->Execute(u"insert into T (n) values (2)")) << "with room again, the work goes on";
}

TEST_F(ConBase, TrasPerderLaTransaccionNadaSeEscribeFueraDeElla) {
  const Puntero db = nueva(ruta("t.mdb"));
  ASSERT_TRUE(db->Execute(u"create unique index u on T (n)"));
  ASSERT_TRUE(db->Execute(u"insert into T (n) values (1)"));
  ASSERT_TRUE(db->BeginTrans());
  ASSERT_TRUE(db->Execute(u"insert into T (n) values (2)"));
  ASSERT_FALSE(db->Execute(
      u"insert or rollback into T (n) values (1)"));  // the engine gives up the transaction
  EXPECT_FALSE(db->Execute(u"insert into T (n) values (3)"));
  EXPECT_FALSE(db->CommitTrans());
  db->Rollback();
  EXPECT_EQ(filas(*db), 1);
  EXPECT_TRUE(db->Execute(u"insert into T (n) values (3)"));
}

TEST_F(ConBase, CopiaLoConfirmadoEnteroOnada) {
  const Puntero db = nueva(ruta("t.mdb"));
  ASSERT_TRUE(db->Execute(u"insert into T (n) values (1)"));
  {
    // An older copy whose program died: the contents of its journal don't belong to the new one.
    const Puntero vieja = nueva(ruta("copia.mdb"));
    for (int n = 0; n < 5; ++n) ASSERT_TRUE(vieja->Execute(u"insert into T (n) values (9)"));
    ASSERT_TRUE(QFile::copy(ruta("copia.mdb-wal"), ruta("diario")));
  }
  QFile::remove(ruta("copia.mdb-wal"));
  ASSERT_TRUE(QFile::rename(ruta("diario"), ruta("copia.mdb-wal")));
  ASSERT_TRUE(db->BeginTrans());
  ASSERT_TRUE(db->Execute(u"insert into T (n) values (2)"));
  const auto r = db->copiarEn(ruta("copia.mdb"));
  ASSERT_TRUE(r) << r.error().texto.toStdString();
  ASSERT_TRUE(db->CommitTrans());
  auto copia = Database::OpenDatabase(ruta("copia.mdb"));
  ASSERT_TRUE(copia) << copia.error().texto.toStdString();
  EXPECT_EQ(filas(**copia), 1);
  EXPECT_FALSE(db->copiarEn(ruta("no/hay/copia.mdb")));
  EXPECT_EQ(QDir(carpeta.path()).entryList({"*.nueva*"}).size(), 0);
}

// Confirmed data are on the disk, not on their way there.
TEST_F(ConBase, LoConfirmadoLlegaAlDisco) {
  constexpr qint64 kEntero = 2;
  const Puntero db = nueva(ruta("t.mdb"));
  EXPECT_EQ(db->uno(u"SELECT synchronous FROM pragma_synchronous").value_or(-1).entero(), kEntero);
}

TEST_F(ConBase, UnaSentenciaSeGuardaYLigaSusValores) {
  const Puntero db = nueva(ruta("t.mdb"));
  auto s = db->preparar(u"insert into T (n, s) values (?, ? & '!')");
  ASSERT_TRUE(s);
  for (int i = 0; i < 3; ++i) {
    (*s)->ligar(0, qint64{i});
    (*s)->ligar(1, i == 0 ? Valor() : Valor(QStringLiteral("ñ'%1").arg(i)));
    EXPECT_EQ((*s)->ejecutar().value_or(-1), 1);
  }
  auto rs = db->consultar(u"select s from T order by n");
  ASSERT_TRUE(rs);
  QStringList v;
  for (; !(*rs)->Eof(); avanzar(**rs)) v += (*rs)->texto(0);
  EXPECT_EQ(v, (QStringList{"!", "ñ'1!", "ñ'2!"}));
  // A kept statement follows a change of the schema.
  ASSERT_TRUE(db->consultar(u"select * from T"));
  ASSERT_TRUE(db->Execute(u"alter table T add column otra integer default 5"));
  EXPECT_EQ((*db->consultar(u"select * from T"))->columna(u"OTRA"), 2);
  EXPECT_TRUE(db->existeColumna(u"t", u"Otra"));
}

}  // namespace
}  // namespace tarvo::dao
