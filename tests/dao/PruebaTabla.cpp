// Table recordsets: seeking, walking and writing.
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <optional>

#include "core/dao/Database.h"
#include "core/dao/Orden.h"
#include "dao/recorrer.h"

namespace tarvo::dao {
using namespace Qt::StringLiterals;
namespace {

class ConTabla : public testing::Test {
 protected:
  void SetUp() override {
    auto r = Database::OpenDatabase(carpeta.filePath("t.mdb"), {.crear = true});
    ASSERT_TRUE(r) << r.error().texto.toStdString();
    db = std::move(*r);
    const auto hecho =
        db->ejecutarGuion(QStringLiteral("create table T (LINK integer, GRUPO integer, CODI "
                                         "integer, IMP integer default 0, N text);\n"
                                         "create index [T.Cols] on T (LINK, GRUPO, CODI);\n"
                                         "create index [T.NOMBRE] on T (LINK, %1);\n")
                              .arg(expresionOrden(u"N")));
    ASSERT_TRUE(hecho) << hecho.error().texto.toStdString();
    auto t = db->OpenTable(u"t", u"cols");
    ASSERT_TRUE(t) << t.error().texto.toStdString();
    rs = std::move(*t);
  }
  void anadir(Valor link, Valor grupo, Valor codi, Valor n = {}) {
    ASSERT_TRUE(db->ejecutar(u"insert into T (LINK, GRUPO, CODI, N) values (?,?,?,?)", link, grupo,
                             codi, n));
  }
  QString recorrido() {
    QStringList l;
    while (!rs->Eof()) {
      const auto c = [&](int i) { return rs->nulo(i) ? QStringLiteral("~") : rs->texto(i); };
      l += c(0) + c(1) + c(2);
      if (!rs->MoveNext()) return QStringLiteral("fallo");
    }
    return l.join(u' ');
  }

  QTemporaryDir carpeta;
  std::unique_ptr<Database> db;
  std::unique_ptr<Recordset> rs;
};

TEST_F(ConTabla, BuscaYRecorreEnOrdenConNulosYRepetidos) {
  for (const Valor& link : {Valor(1), Valor(2), Valor()})
    for (const Valor& grupo : {Valor(3), Valor(), Valor(1)})
      for (const Valor& codi : {Valor(), Valor(7), Valor(7)}) anadir(link, grupo, codi);
  const QString todo = QStringLiteral(
      "~~~ ~~7 ~~7 ~1~ ~17 ~17 ~3~ ~37 ~37 1~~ 1~7 1~7 11~ 117 117 13~ 137 137 2~~ 2~7 2~7 21~ 217 "
      "217 23~ 237 237");
  ASSERT_TRUE(rs->MoveFirst());
  EXPECT_EQ(recorrido(), todo);

  struct Caso {
    Busca busca;
    std::vector<Valor> clave;
    const char* primero;  // null: no match
  };
  const std::vector<Caso> casos{{Busca::Igual, {1}, "1~~"},
                                {Busca::Igual, {1, 1, 7}, "117"},
                                {Busca::Igual, {1, nullptr, 7}, "1~7"},
                                {Busca::Igual, {1, 2}, nullptr},
                                {Busca::Igual, {9}, nullptr},
                                {Busca::MayorIgual, {1, 2}, "13~"},
                                {Busca::MayorIgual, {1, 3, 8}, "2~~"},
                                {Busca::MayorIgual, {1, nullptr}, "1~~"},
                                {Busca::MayorIgual, {nullptr, 3, 1}, "~37"},
                                {Busca::MayorIgual, {2, 3, 8}, nullptr}};
  for (size_t i = 0; i < casos.size(); ++i) {
    SCOPED_TRACE(i);
    const auto hay = rs->Seek(casos[i].busca, std::span<const Valor>(casos[i].clave));
    ASSERT_TRUE(hay);
    EXPECT_EQ(*hay, casos[i].primero != nullptr);
    EXPECT_EQ(rs->NoMatch(), !*hay);
    EXPECT_EQ(rs->Eof(), !*hay);
    if (!casos[i].primero) continue;
    const QString p = QString::fromLatin1(casos[i].primero);
    const QString sigue = recorrido();
    EXPECT_EQ(sigue.toStdString(), todo.mid(todo.indexOf(p)).toStdString());
  }
  EXPECT_FALSE(rs->Seek(Busca::Igual, 1, 2, 3, 4));
}

TEST_F(ConTabla, UnRecorridoVeLasFilasQueSeAnadenDelante) {
  const auto t = Transaccion::empezar(*db);
  for (int i = 0; i < 300; ++i) anadir(1, 1, i * 2);
  ASSERT_TRUE(rs->MoveFirst());
  int filas = 0;
  for (; !rs->Eof(); avanzar(*rs), ++filas) {
    const qint64 codi = rs->entero(2);
    if (codi == 100) anadir(1, 1, 101);  // next
    if (codi == 598) anadir(2, 1, 1);    // after the former last
    if (codi == 50) {
      EXPECT_TRUE(db->Execute(u"delete from T where CODI in (52, 54)").has_value());
    }
  }
  EXPECT_EQ(filas, 300 + 2 - 2);
}

TEST_F(ConTabla, EscribeCambiaYBorra) {
  rs->AddNew();
  for (int c = 0; c < 3; ++c) rs->poner(c, c + 1);
  ASSERT_TRUE(rs->Update());
  EXPECT_TRUE(rs->Eof()) << "a new row leaves the position";
  ASSERT_TRUE(*rs->Seek(Busca::Igual, 1, 2, 3));
  EXPECT_EQ(rs->entero(rs->columna(u"imp")), 0) << "what is not put takes its default";
  rs->Edit();
  rs->poner(rs->columna(u"IMP"), 12.0);
  rs->poner(rs->columna(u"CODI"), 9);
  ASSERT_TRUE(rs->Update());
  EXPECT_EQ(rs->valor(3), Valor(12)) << "the row under the cursor is the new one";
  anadir(1, 2, 5);  // now before the row that moved
  ASSERT_TRUE(rs->MoveNext());
  EXPECT_TRUE(rs->Eof());
  ASSERT_TRUE(*rs->Seek(Busca::Igual, 1, 2, 5));
  ASSERT_TRUE(rs->Delete());
  EXPECT_EQ(rs->entero(2), 9) << "after the deleted one";
  ASSERT_TRUE(db->Execute(u"delete from T"));
  EXPECT_EQ(rs->Delete().error().clase, Fallo::NoExiste);
  rs->AddNew();
  rs->poner(rs->columna(u"no_hay"), 1);
  EXPECT_EQ(rs->Update().error().clase, Fallo::Interno);
  EXPECT_EQ(db->OpenTable(u"T", u"OTRO").error().clase, Fallo::NoExiste);
  EXPECT_EQ(db->OpenTable(u"OTRA", u"").error().clase, Fallo::NoExiste);
}

TEST_F(ConTabla, OrdenaYBuscaNombresComoUnLectorEspanol) {
  const QStringList orden{"arena", "Ázucar", "NUEZ",  "nzz", "ñame",
                          "Ñora",  "Ópalo",  "óxido", "zumo"};
  for (const QString& n :
       {orden[4], orden[8], orden[1], orden[3], orden[7], orden[0], orden[5], orden[2], orden[6]})
    anadir(1, 1, 1, n);
  ASSERT_TRUE(rs->Index(u"NOMBRE"));
  QStringList visto;
  for (; !rs->Eof(); avanzar(*rs)) visto += rs->texto(4);
  EXPECT_EQ(visto, orden);
  ASSERT_TRUE(*rs->Seek(Busca::MayorIgual, 1, QStringLiteral("ñ")));
  EXPECT_EQ(rs->texto(4), orden[4]);
  ASSERT_TRUE(*rs->Seek(Busca::Igual, 1, QStringLiteral("opalo")));
  rs->Edit();
  rs->poner(4, QStringLiteral("azahar"));
  ASSERT_TRUE(rs->Update());
  ASSERT_TRUE(rs->MoveNext());
  EXPECT_EQ(rs->texto(4), orden[1]) << "the walk goes on from where the row is now";
  for (const QString& a : orden)
    for (const QString& b : orden) {
      const int c = compararOrden(a.toUtf8(), b.toUtf8());
      EXPECT_EQ(c < 0, claveOrden(a) < claveOrden(b));
    }
  EXPECT_EQ(db->uno(u"select count(*) from T where NOT (%1 = ?)"_s.arg(expresionOrden(u"N")),
                    claveOrden(u"ñame"))
                ->entero(),
            8);
}

TEST_F(ConTabla, NoDejaNingunaLecturaAbierta) {
  auto t = Transaccion::empezar(*db);
  for (int i = 0; i < 300; ++i) anadir(1, 1, i);
  ASSERT_TRUE(t->confirmar());
  ASSERT_TRUE(rs->MoveFirst());
  auto q = db->consultar(u"select * from T");
  ASSERT_TRUE(q);
  // An open read would keep the log from being emptied.
  auto r = db->consultar(u"pragma wal_checkpoint");
  ASSERT_TRUE(r);
  EXPECT_EQ((*r)->entero(0), 0);
  EXPECT_EQ((*r)->entero(1), (*r)->entero(2));
  db.reset();
  EXPECT_FALSE(rs->Eof()) << "a recordset may outlive its database";
  EXPECT_TRUE(rs->MoveNext());
}

}  // namespace
}  // namespace tarvo::dao
