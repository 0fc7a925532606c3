// Steps of rooms: each runs once, also in existing databases, and all of them or none.
#include "core/dao/Pasos.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "dao/recorrer.h"

namespace tarvo::dao {
namespace {

using namespace Qt::StringLiterals;

class Pasos : public testing::Test {
 protected:
  void SetUp() override { db = std::move(*Database::OpenDatabase(ruta, {.crear = true})); }
  std::string ver(const QString& sql) { return filasComoTexto(*db, sql); }
  void hacer(const QString& sql) { ASSERT_TRUE(db->Execute(sql)) << sql.toStdString(); }
  void dar(const std::vector<TablasDeSala>& salas) {
    const auto r = darPasos(*db, salas);
    ASSERT_TRUE(r) << r.error().texto.toStdString();
    EXPECT_TRUE(*alDia(*db, salas));
  }
  QTemporaryDir carpeta;
  QString ruta = carpeta.filePath("p.mdb");
  std::unique_ptr<Database> db;
};

// A room of two tables, the second of which keeps rows of the first.
TablasDeSala fruteria() {
  return {u"fruteria"_s,
          {{1,
            u"create table if not exists Fruta (Codigo INTEGER, Nombre TEXT);\n"
            u"create table if not exists FrutaAntes as select 0 as Lote, Fruta.* from Fruta "
            u"where 0;\n"
            u"create view if not exists QFruta as select Nombre from Fruta;\n"_s},
           {2, u"insert into Fruta values (1, 'Pera');\n"_s}},
          {{u"FrutaAntes"_s, u"Fruta"_s}}};
}

TEST_F(Pasos, CadaUnoUnaVezYLosNuevosTambienDondeYaHabia) {
  TablasDeSala sala = fruteria();
  dar({sala});
  hacer(u"insert into FrutaAntes select 7, Fruta.* from Fruta"_s);
  hacer(u"insert into FrutaAntes (Codigo) values (2)"_s);
  sala.pasos.push_back(columna(3, u"Fruta"_s, u"Precio"_s, u"INTEGER DEFAULT 5"_s));
  sala.pasos.push_back(vista(4, u"QFruta"_s, u"select Nombre & '!' as Grito, Precio from Fruta"_s));
  EXPECT_FALSE(*alDia(*db, {sala}));
  dar({sala, {u"otra"_s, {{1, u"create table Otra (A);\n"_s}}, {}}});
  EXPECT_EQ(ver(u"select * from Fruta"_s), "1|Pera|5") << "step 2 ran once";
  EXPECT_EQ(ver(u"select * from QFruta"_s), "Pera!|5");
  EXPECT_EQ(ver(u"select Lote, Codigo, Precio from FrutaAntes order by Codigo"_s), "7|1|5 ~|2|5")
      << "rows that were kept before take the default, as the table's own did";
  EXPECT_EQ(ver(u"select SALA, PASO from PasosDados order by SALA, PASO"_s),
            "fruteria|1 fruteria|2 fruteria|3 fruteria|4 otra|1");
  const qint64 antes = db->cambios();
  dar({sala});
  EXPECT_EQ(db->cambios(), antes);
}

TEST_F(Pasos, UnaCopiaQuedaIgualLlegueComoLlegueLaColumna) {
  TablasDeSala sala = fruteria();
  sala.pasos.pop_back();
  dar({sala});
  const std::pair<const char16_t*, const char16_t*> columnas[] = {{u"C1", u"SMALLINT DEFAULT 1"},
                                                                  {u"C2", u"TEXT DEFAULT 'it''s'"},
                                                                  {u"C3", u"DOUBLE PRECISION"},
                                                                  {u"C4", u"VARCHAR(20)"},
                                                                  {u"C5", u"NUMERIC"},
                                                                  {u"C6", u""},
                                                                  {u"[Order]", u"BLOB"}};
  for (const auto& [nombre, tipo] : columnas)
    hacer(u"alter table Fruta add column %1 %2"_s.arg(nombre, tipo));
  dar({sala});
  EXPECT_EQ(db->columnas(u"FrutaAntes").mid(1), db->columnas(u"Fruta"));
  const auto clases = [&](const QString& tabla) {
    return ver(u"select name, upper(type) from pragma_table_info('%1') order by cid"_s.arg(tabla));
  };
  const std::string alterada = clases(u"FrutaAntes"_s);
  hacer(u"drop table FrutaAntes"_s);
  dar({sala});
  EXPECT_EQ(clases(u"FrutaAntes"_s), alterada);
  EXPECT_EQ(db->copiarColumna(u"Fruta", u"Nada", u"FrutaAntes").error().clase, Fallo::NoExiste);
  EXPECT_TRUE(db->columnas(u"Nada").isEmpty());
}

TEST_F(Pasos, LoQueSePerdioVuelveConTodasSusColumnas) {
  TablasDeSala sala = fruteria();
  sala.pasos[1].guion.clear();
  sala.pasos.push_back(columna(3, u"Fruta"_s, u"Precio"_s, u"INTEGER DEFAULT 5"_s));
  sala.pasos.push_back({4, u"create table if not exists Vieja (A);\ndrop table Vieja;\n"_s});
  dar({sala});
  for (const QString& resto : {u"drop table Fruta"_s, u"drop view QFruta"_s}) {
    hacer(resto);
    EXPECT_FALSE(*alDia(*db, {sala}));
    dar({sala});
    EXPECT_EQ(ver(u"select count(*) from QFruta"_s), "0");
    EXPECT_TRUE(db->existeColumna(u"Fruta", u"Precio"));
  }
}

// Of a room that can't be replaced a lost table is damage, and nothing is made anew; a view, or a
// table of a step that is still to come, is no loss.
TEST_F(Pasos, LoInsustituibleNoSeRehace) {
  TablasDeSala sala = fruteria();
  sala.insustituible = true;
  dar({sala});
  sala.pasos.push_back({3, u"create table if not exists Hueso (A);\n"_s});
  hacer(u"drop view QFruta"_s);
  dar({sala});
  EXPECT_TRUE(db->existeTabla(u"Hueso"));
  hacer(u"drop table FrutaAntes"_s);
  hacer(u"drop view QFruta"_s);
  const auto r = darPasos(*db, {sala});
  ASSERT_FALSE(r);
  EXPECT_EQ(r.error().clase, Fallo::NoEsBaseDatos);
  EXPECT_TRUE(r.error().texto.contains(u"frutaantes")) << r.error().texto.toStdString();
  EXPECT_FALSE(db->existeTabla(u"QFruta"));
}

TEST_F(Pasos, UnoQueFallaNoDejaNada) {
  const std::vector<TablasDeSala> malas[] = {
      {fruteria(),
       {u"mala"_s,
        {{1, u"create table Mala (A);\n"_s}, {2, u"insert into No values (1);\n"_s}},
        {}}},
      {fruteria(),
       {u"mala"_s,
        {{1, u"create table Mala (A);\n"_s,
          [](Database&) -> Resultado<> { return fallo(Fallo::Formato, u"no"_s); }}},
        {}}},
      {fruteria(),
       {u"mala"_s, {{2, u"create table Mala (A);\n"_s}, {2, u"create table Peor (A);\n"_s}}, {}}}};
  for (const auto& salas : malas) {
    EXPECT_FALSE(darPasos(*db, salas));
    EXPECT_EQ(ver(u"select count(*) from sqlite_master"_s), "0");
  }
  dar({fruteria()});
}

}  // namespace
}  // namespace tarvo::dao
