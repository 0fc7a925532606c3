// Runs the scripts of guiones/: each action has its expected outcome beneath it.
//
//   > statement               must succeed; "= n" beneath expects n rows changed ? query
//   the rows expected follow, columns separated by "|", Null shown as ~ ! Class statement
//   must fail with that class; "= text" beneath expects text in the sentence
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>
#include <filesystem>

#include "core/dao/Database.h"
#include "dao/recorrer.h"

namespace tarvo::dao {
namespace {

const std::map<QString, Fallo> kClases{{"Formato", Fallo::Formato},
                                       {"Duplicado", Fallo::Duplicado},
                                       {"Restriccion", Fallo::Restriccion},
                                       {"Interno", Fallo::Interno}};

class Guion : public testing::TestWithParam<std::string> {};

TEST_P(Guion, DaLoEsperado) {
  QTemporaryDir carpeta;
  auto db = Database::OpenDatabase(carpeta.filePath("g.mdb"), {.crear = true});
  ASSERT_TRUE(db) << db.error().texto.toStdString();
  QFile f(QString::fromStdString(GetParam()));
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  const QStringList lineas = QString::fromUtf8(f.readAll()).split(u'\n');
  for (qsizetype i = 0; i < lineas.size();) {
    const QString linea = lineas[i++];
    if (linea.isEmpty() || linea.startsWith(u'*')) continue;
    SCOPED_TRACE(QStringLiteral("%1: %2").arg(i).arg(linea).toStdString());
    QStringList esperado;
    const bool consulta = linea.startsWith(u'?');
    while (i < lineas.size() && (consulta ? !lineas[i].isEmpty() : lineas[i].startsWith(u"= ")))
      esperado += consulta ? lineas[i++] : lineas[i++].mid(2);
    const QString sql = linea.mid(2);
    if (consulta) {
      auto rs = (*db)->OpenQuery(sql);
      ASSERT_TRUE(rs) << rs.error().texto.toStdString();
      QStringList filas;
      for (; !(*rs)->Eof(); avanzar(**rs)) filas += filaComoTexto(**rs);
      EXPECT_EQ(filas.join(u'\n').toStdString(), esperado.join(u'\n').toStdString());
    } else if (linea.startsWith(u'>')) {
      auto n = (*db)->Execute(sql);
      ASSERT_TRUE(n) << n.error().texto.toStdString();
      if (!esperado.isEmpty()) {
        EXPECT_EQ(QString::number(*n), esperado[0]);
      }
    } else {
      const QString clase = sql.section(u' ', 0, 0);
      auto n = (*db)->Execute(sql.section(u' ', 1));
      ASSERT_FALSE(n);
      EXPECT_EQ(n.error().clase, kClases.at(clase)) << n.error().texto.toStdString();
      EXPECT_TRUE(n.error().texto.contains(esperado.value(0))) << n.error().texto.toStdString();
    }
  }
}

std::vector<std::string> guiones() {
  std::vector<std::string> rutas;
  for (const auto& e : std::filesystem::directory_iterator(TARVO_GUIONES))
    rutas.push_back(e.path().string());
  std::ranges::sort(rutas);
  return rutas;
}

INSTANTIATE_TEST_SUITE_P(Almacen, Guion, testing::ValuesIn(guiones()), [](const auto& caso) {
  return std::filesystem::path(caso.param).stem().string();
});

}  // namespace
}  // namespace tarvo::dao
