// The text table and the helpers that fill its texts.
#include <gtest/gtest.h>
#include <QRegularExpression>

#include <QFile>
#include <QTemporaryDir>

#include "core/textos/Textos.h"

using namespace tarvo;

namespace {

QString deUtf8(const char* s) {
  return QString::fromUtf8(s);
}

Resultado<Textos> tabla(const QByteArray& contenido) {
  const QTemporaryDir dir;
  const QString ruta = dir.filePath(QStringLiteral("es.txt"));
  QFile f(ruta);
  if (!f.open(QIODevice::WriteOnly)) return fallo(Fallo::Interno, ruta);
  f.write(contenido);
  f.close();
  return Textos::leer(ruta);
}

}  // namespace

TEST(Textos, LaTablaDaCadaTextoConSusBlancosFinales) {
  const auto t = tabla(
      "\xEF\xBB\xBF# grupo\r\n\r\n0\tE\r\n7\tEl error es: '\r\n8\t 'No hay' "
      "'\n9\t\n10\tb''\tsala.kTxNombre\n12\tc\t+");
  ASSERT_TRUE(t) << t.error().texto.toStdString();
  const std::pair<int, const char*> casos[] = {
      {0, "E"}, {7, "El error es: "}, {8, " 'No hay' "}, {9, ""}, {10, "b'"}, {11, ""}, {12, "c"}};
  for (const auto& [n, texto] : casos) EXPECT_EQ((*t)(n), deUtf8(texto)) << n;
  EXPECT_TRUE(t->tiene(9));
  EXPECT_FALSE(t->tiene(11));
}

// The inserted text may be a name typed by a person, with a mark in it.
TEST(Textos, LasMarcasSeLlenanTodasALaVez) {
  const auto t = tabla("1\tGrupo %1, %2: %1.\n2\t%3 como %x, 100 %");
  ASSERT_TRUE(t);
  EXPECT_EQ((*t)(1, {7, QStringLiteral("Pan %1")}), u"Grupo 7, Pan %1: 7.");
  EXPECT_EQ((*t)(2, {1, 2, QStringView(u"Tres")}), u"Tres como %x, 100 %");
  EXPECT_EQ((*t)(2, {1}), u"%3 como %x, 100 %");
  EXPECT_EQ((*t)(3, {1}), u"");
}

TEST(Textos, UnaTablaMalaNombraSuLinea) {
  for (const char* mala :
       {"1 sin tabulador", "x\tletras", "-1\tnegativo", "22024\talto", "1\ta\n1\tb"}) {
    const auto t = tabla(QByteArray("5\tbien\n") + mala);
    ASSERT_FALSE(t) << mala;
    EXPECT_TRUE(t.error().texto.contains(u"línea")) << mala;
  }
  EXPECT_FALSE(Textos::leer(QStringLiteral("/no/hay")));
}

TEST(Ayudas, PluralSigueAlNumero) {
  const struct {
    const char* texto;
    int n;
    const char* sale;
  } casos[] = {{"Va a borrar # captura+s", 1, "Va a borrar 1 captura"},
               {"Va a borrar # captura+s", 2, "Va a borrar 2 capturas"},
               {"Queda+n # total+es", 0, "Queda 0 total"},
               {"Queda+n # total+es", 12, "Quedan 12 totales"},
               {"# y #", 3, "3 y 3"}};
  for (const auto& c : casos) EXPECT_EQ(Plural(deUtf8(c.texto), c.n), deUtf8(c.sale));
}

// The mark that protects a text's trailing blanks is an apostrophe as well: a text ending in one
// needs two. One within a word quotes nothing.
TEST(Textos, LasComillasDeLaTablaVanPorPares) {
  const auto tabla = Textos::leer(QStringLiteral(TARVO_DATOS "/textos/es.txt"));
  ASSERT_TRUE(tabla) << tabla.error().texto.toStdString();
  static const QRegularExpression dentro(QStringLiteral("(?<=\\w)'(?=\\w)"));
  for (int n = 0; n < 100000; ++n)
    EXPECT_EQ((*tabla)(n).remove(dentro).count(u'\'') % 2, 0)
        << n << ": " << (*tabla)(n).toStdString();
}

TEST(Ayudas, SemanaEsLaQueAcabaEnDomingo) {
  const struct {
    QDate dia;
    int semana;
  } casos[] = {{{2005, 1, 1}, 1},   {{2005, 1, 2}, 1},    {{2005, 1, 3}, 2},
               {{2004, 12, 27}, 1}, {{2004, 12, 26}, 52}, {{2006, 1, 1}, 1},
               {{2006, 1, 2}, 2},   {{2023, 12, 31}, 53}, {{2024, 1, 1}, 1}};
  for (const auto& c : casos)
    EXPECT_EQ(Semana(Fecha::de(c.dia)), c.semana) << c.dia.toString(Qt::ISODate).toStdString();
}

TEST(Ayudas, TextosMenudos) {
  EXPECT_EQ(Ceros(7, 3), u"007");
  EXPECT_EQ(Ceros(-7, 4), u"-007");
  EXPECT_EQ(Ceros(12345, 3), u"12345");
  EXPECT_EQ(NombreFichero(deUtf8("C:\\a/b\\c.AUT")), u"c.AUT");
  EXPECT_EQ(NombreFichero(deUtf8("solo")), u"solo");
  QString t = QStringLiteral("aaa");
  CambiaTexto(QStringLiteral("a"), QStringLiteral("aa"), t);
  EXPECT_EQ(t, u"aaaaaa");
  CambiaTexto(QString(), QStringLiteral("x"), t);
  EXPECT_EQ(t, u"aaaaaa");
}

TEST(Ayudas, SiYNoDeCadaIdioma) {
  EXPECT_EQ(siNo(true, true), u"Sí");
  EXPECT_EQ(siNo(true, false), u"Yes");
  const std::tuple<const char*, bool, std::optional<bool>> casos[] = {
      {"Sí", true, true},     {"SÍ", true, true}, {"Si", true, true}, {"No", true, false},
      {"Yes", false, true},   {"Sí", false, {}},  {"Yes", true, {}},  {"", true, {}},
      {" no ", false, false}, {"1", true, {}}};
  for (const auto& [texto, espanol, sale] : casos)
    EXPECT_EQ(leerSiNo(deUtf8(texto), espanol), sale) << texto;
}

TEST(Ayudas, ExpandirNombreBuscaGruposYSecciones) {
  const QTemporaryDir dir;
  const auto db =
      dao::Database::OpenDatabase(dir.filePath(QStringLiteral("b.db")), {.crear = true});
  ASSERT_TRUE(db);
  ASSERT_TRUE(
      (*db)->ejecutarGuion(u"CREATE TABLE GRUPOS (CODGPO INTEGER, NOMGPO TEXT);\n"
                           u"CREATE TABLE SECCS (NMSECC INTEGER, NOMSEC TEXT);\n"
                           u"INSERT INTO GRUPOS VALUES (12, 'Mercado #D');\n"
                           u"INSERT INTO SECCS VALUES (1, 'Carne');\n"));
  const Fecha fecha = Fecha::de(QDate(2005, 3, 9));
  const std::pair<const char*, const char*> casos[] = {{"EX#A#M#D_#H", "EX20050309_11"},
                                                       {"#G12x", "Mercado 09x"},
                                                       {"#G0012/#S1", "Mercado 09/Carne"},
                                                       {"a#Gb", "ab"},
                                                       {"#G99", ""},
                                                       {"#S1#S1", "CarneCarne"},
                                                       {"#G99999999999999999999", ""},
                                                       {"nada", "nada"}};
  for (const auto& [texto, sale] : casos)
    EXPECT_EQ(ExpandirNombre(deUtf8(texto), fecha, **db), deUtf8(sale)) << texto;
}
