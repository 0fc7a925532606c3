// Rows are walked by one function, and a statement is one text with marks.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "core/dao/Database.h"

namespace tarvo::dao {
namespace {

using namespace Qt::StringLiterals;

struct Recorrido : testing::Test {
  void SetUp() override {
    db = std::move(*Database::OpenDatabase(carpeta.filePath("r.mdb"), {.crear = true}));
    ASSERT_TRUE(db->ejecutarGuion(u"create table T (n INTEGER PRIMARY KEY, x INTEGER);\n"));
    ASSERT_TRUE(db->BeginTrans());
    for (int n = 1; n <= kFilas; ++n)
      ASSERT_TRUE(db->ejecutar(u"insert into T values (?, ?)", n, n));
    ASSERT_TRUE(db->CommitTrans());
  }
  static constexpr int kFilas = 3000;  // more than one page
  QTemporaryDir carpeta;
  std::unique_ptr<Database> db;
};

TEST_F(Recorrido, DaCadaFilaUnaVezYAcabaDondeSeLePide) {
  qint64 suma = 0;
  ASSERT_TRUE(recorrer(db->consultar(u"select n from T"),
                       [&](const Recordset& fila) { suma += fila.entero(0); }));
  EXPECT_EQ(suma, qint64{kFilas} * (kFilas + 1) / 2);
  const auto doble = reunir(db->consultar(u"select n from T where n>? order by n desc", 2998),
                            [](const Recordset& fila) { return 2 * fila.entero(0); });
  ASSERT_TRUE(doble);
  EXPECT_EQ(*doble, (std::vector<qint64>{6000, 5998}));
  EXPECT_TRUE(reunir(db->consultar(u"select n from T where n<0"), [](const Recordset& fila) {
                return fila.texto(0);
              })->empty());
  int vistas = 0;
  ASSERT_TRUE(recorrer(db->consultar(u"select n from T order by n"),
                       [&](const Recordset&) { return ++vistas < 5; }));
  EXPECT_EQ(vistas, 5);
}

TEST_F(Recorrido, UnErrorLoAcaba) {
  // A number without an absolute value: the query fails, but not at its first row.
  ASSERT_TRUE(db->Execute(u"update T set x=-9223372036854775807-1 where n=2500"));
  int vistas = 0;
  EXPECT_FALSE(recorrer(db->consultar(u"select abs(x) from T order by n"),
                        [&](const Recordset&) { ++vistas; }));
  EXPECT_EQ(vistas, 0);
  EXPECT_FALSE(reunir(db->consultar(u"select abs(x) from T order by n"),
                      [](const Recordset& fila) { return fila.entero(0); }));
  EXPECT_FALSE(recorrer(db->consultar(u"select nada from T"), [](const Recordset&) {}));
  vistas = 0;
  const auto suyo = recorrer(db->consultar(u"select n from T order by n"),
                             [&](const Recordset& fila) -> Resultado<> {
                               ++vistas;
                               if (fila.entero(0) == 3) return fallo(Fallo::Formato, u"tres"_s);
                               return {};
                             });
  ASSERT_FALSE(suyo);
  EXPECT_EQ(suyo.error().texto, u"tres");
  EXPECT_EQ(vistas, 3);
  ASSERT_TRUE(db->Execute(u"create index [T.x] on T (x)"));
  const auto tabla = db->OpenTable(u"T", u"x");
  ASSERT_TRUE(tabla);
  vistas = 0;
  EXPECT_FALSE(recorrer(**tabla, [&](const Recordset&) -> Resultado<> {
    ++vistas;
    TARVO_INTENTAR(db->Execute(u"drop table T"));
    return {};
  })) << "the move to the next row fails";
  EXPECT_EQ(vistas, 1);
}

TEST_F(Recorrido, LasMarcasSeLlenanYLaQueFaltaSeNombra) {
  struct Caso {
    QStringView texto;
    QString lleno;
  };
  const Caso casos[] = {
      {u"select {a}, {b} from {a}", u"select 1, {a} from 1"_s},  // replacements aren't searched
      {u"{a}", u"1"_s},
      {u"", u""_s},
      {u"select '}{' & {a} & '{'", u"select '}{' & {a} & '{'"_s},
      {u"select {c}", u"select {c}"_s}};
  for (const Caso& caso : casos)
    EXPECT_EQ(conMarcas(caso.texto, {{u"a", u"1"_s}, {u"b", u"{a}"_s}}), caso.lleno);
  const auto falta =
      db->consultar(conMarcas(u"select n from T where {donde}", {{u"otra", u"n"_s}}));
  ASSERT_FALSE(falta);
  EXPECT_EQ(falta.error().clase, Fallo::Formato);
  EXPECT_TRUE(falta.error().texto.contains(u"{")) << falta.error().texto.toStdString();
}

}  // namespace
}  // namespace tarvo::dao
