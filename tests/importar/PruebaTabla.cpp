// Tables from bytes: encodings, separators, quotes, decimal signs, spreadsheets.
#include <QStringEncoder>

#include "articles/importar/LeerTabla.h"
#include "articles/importar/Lineas.h"
#include "articles/importar/Numeros.h"
#include "importar/TiendaDeImportar.h"

namespace tarvo::importar {
namespace {

// Cells separated by "|", rows by "/".
QString aplanar(const Tabla& t) {
  QStringList filas;
  for (int f = 0; f < t.filas(); ++f) {
    QStringList celdas;
    for (int c = 0; c < t.columnas(); ++c) celdas << t.celda(f, c);
    filas << QString::number(t.linea(f)) + u':' + celdas.join(u'|');
  }
  return filas.join(u'/');
}

TEST(Csv, CuatroCodificaciones) {
  const QString texto = u"Código;Nombre\r\n10;PIÑA AÑOJO €\r\n"_s;
  const auto con = [&](QStringEncoder e) { return QByteArray(e(texto)); };
  using E = QStringEncoder;
  const struct {
    QByteArray bytes;
    Codificacion codificacion;
  } casos[] = {
      {texto.toUtf8(), Codificacion::Utf8},
      {"\xEF\xBB\xBF" + texto.toUtf8(), Codificacion::Utf8},
      {"C\xF3"
       "digo;Nombre\r\n10;PI\xD1"
       "A A\xD1OJO \x80\r\n",
       Codificacion::Windows1252},
      {con(E(E::Utf16LE, E::Flag::WriteBom)), Codificacion::Utf16LE},
      {con(E(E::Utf16BE, E::Flag::WriteBom)), Codificacion::Utf16BE},
      {con(E(E::Utf16LE)), Codificacion::Utf16LE},
      {con(E(E::Utf16BE)), Codificacion::Utf16BE},
  };
  for (const auto& c : casos) {
    EXPECT_EQ(averiguarCodificacion(c.bytes), c.codificacion);
    EXPECT_EQ(aplanar(partirCsv(descodificarComo(c.bytes, c.codificacion), u';')),
              u"1:Código|Nombre/2:10|PIÑA AÑOJO €"_s);
  }
}

TEST(Csv, SeparadoresYComillas) {
  const struct {
    QString texto;
    QChar separador;
    QString tabla;
  } casos[] = {
      {u"a;b;c\n1;2,5;3\n"_s, u';', u"1:a|b|c/2:1|2,5|3"_s},
      {u"a,b,c\n1,2.5,3"_s, u',', u"1:a|b|c/2:1|2.5|3"_s},
      {u"a\tb\n1,5\t2,5\n"_s, u'\t', u"1:a|b/2:1,5|2,5"_s},
      {u"precio;nombre\n1,50;Uva\n2,50;Pera\n"_s, u';',
       u"1:precio|nombre/2:1,50|Uva/3:2,50|Pera"_s},
      {u"a,b\n\"1,5\",\"dijo \"\"sí\"\"\"\n"_s, u',', u"1:a|b/2:1,5|dijo \"sí\""_s},
      {u"a;b\n\"uno\ndos\";2\n\n;;\n3;4\n"_s, u';', u"1:a|b/2:uno\ndos|2/6:3|4"_s},
      {u"a;b\n\"sin cerrar;2\n3;4"_s, u';', u"1:a|b/2:\"sin cerrar|2/3:3|4"_s},
      {u"a;b\n1\n2;3;4\n"_s, u';', u"1:a|b|/2:1||/3:2|3|4"_s},
      {u"uno\r\rdos"_s, u';', u"1:uno/3:dos"_s},
  };
  for (const auto& c : casos) {
    EXPECT_EQ(averiguarSeparador(c.texto), c.separador) << qPrintable(c.texto);
    EXPECT_EQ(aplanar(partirCsv(c.texto, c.separador)), c.tabla) << qPrintable(c.texto);
  }
}

TEST(Numeros, ElSignoDecimalSeAverigua) {
  const struct {
    const char16_t* texto;
    std::optional<Signo> signo;
  } casos[] = {
      {u"1,5", Signo::Coma},      {u"1.50", Signo::Punto},     {u"1.234,5", Signo::Coma},
      {u"1,234.5", Signo::Punto}, {u"1.500", std::nullopt},    {u"1,500", std::nullopt},
      {u"0,500", Signo::Coma},    {u"1234.567", Signo::Punto}, {u"1.234.567", Signo::Coma},
      {u"15", std::nullopt},      {u"-2,10 €", Signo::Coma},   {u"Uva, roja", std::nullopt},
      {u"", std::nullopt},        {u",5", Signo::Coma}};
  for (const auto& c : casos)
    EXPECT_EQ(signoDe(c.texto), c.signo) << qPrintable(QString::fromUtf16(c.texto));
}

TEST(Numeros, LeerDecimal) {
  const struct {
    const char16_t* texto;
    Signo signo;
    std::optional<QString> numero;
  } casos[] = {{u"1.234,50 €", Signo::Coma, u"1234.50"_s},
               {u"1,234.50", Signo::Punto, u"1234.50"_s},
               {u"-3,5", Signo::Coma, u"-3.5"_s},
               {u",5", Signo::Coma, u"0.5"_s},
               {u"12 %", Signo::Coma, u"12"_s},
               {u"1.5", Signo::Coma, std::nullopt},
               {u"1,5", Signo::Punto, std::nullopt},
               {u"1,2,3", Signo::Coma, std::nullopt},
               {u"doce", Signo::Coma, std::nullopt},
               {u"", Signo::Coma, std::nullopt},
               {u".", Signo::Punto, std::nullopt},
               {u"1e5", Signo::Coma, std::nullopt}};
  for (const auto& c : casos)
    EXPECT_EQ(leerDecimal(c.texto, c.signo), c.numero) << qPrintable(QString::fromUtf16(c.texto));
  EXPECT_EQ(leerEntero(u" 0012 "), 12);
  EXPECT_EQ(leerEntero(u"12,0"), 12);
  for (const char16_t* mal : {u"12,5", u"-1", u"", u"A1", u"1.000"}) EXPECT_FALSE(leerEntero(mal));
}

struct Hojas : TiendaDeImportar {
  Resultado<TablaLeida> leer(const QString& ruta) { return leerTabla(ruta, textosDePrueba()); }
};

TEST_F(Hojas, XlsxYOds) {
  const auto ods = bien(leer(QStringLiteral(TARVO_MUESTRAS "/precios.ods")));
  EXPECT_EQ(ods.hoja, u"Precios"_s);
  EXPECT_EQ(aplanar(ods.tabla),
            u"1:Código|Nombre||PVP/2:10|NUEZ MIEL  & SAL\ndos||1234,25/5:11|12,5%|12,5%|0,5/"
            u"6:11|12,5%|12,5%|0,5"_s);
  const auto xlsx = bien(leer(QStringLiteral(TARVO_MUESTRAS "/precios.xlsx")));
  EXPECT_EQ(aplanar(xlsx.tabla),
            u"1:Código|Nombre|PVP/2:10|PIÑA|1,5/4:11|NUEZ MIEL|1234,25/5:12|PAN|0,3"_s);
}

TEST_F(Hojas, LoQueNoSeLeeSeDice) {
  QFile buena(QStringLiteral(TARVO_MUESTRAS "/precios.xlsx"));
  ASSERT_TRUE(buena.open(QIODevice::ReadOnly));
  const QByteArray bytes = buena.readAll();
  QByteArray roto = bytes;  // the sheet's own bytes
  roto.replace(bytes.indexOf("xl/worksheets/sheet1.xml") + 40, 8, "????????");
  const std::pair<QString, QByteArray> casos[] = {{u"a.xlsx"_s, bytes.first(bytes.size() / 2)},
                                                  {u"b.ods"_s, bytes},
                                                  {u"c.xlsx"_s, "no es una hoja"},
                                                  {u"d.xlsx"_s, roto},
                                                  {u"e.csv"_s, ""},
                                                  {u"f.csv"_s, "\r\n ; \r\n"}};
  for (const auto& [nombre, que] : casos) {
    const auto r = leer(fichero(que, nombre));
    ASSERT_FALSE(r) << qPrintable(nombre);
    EXPECT_EQ(r.error().clase, Fallo::Formato) << qPrintable(nombre);
  }
  EXPECT_EQ(leer(ruta(u"no.csv"_s)).error().clase, Fallo::NoExiste);
  QFile enorme(ruta(u"enorme.csv"_s));
  ASSERT_TRUE(enorme.open(QIODevice::WriteOnly) && enorme.resize(kFicheroMayor + 1));
  EXPECT_EQ(leer(enorme.fileName()).error().texto,
            u"enorme.csv ocupa 100 MB y el límite es de 100 MB: repártalo en varios ficheros."_s);
}

}  // namespace
}  // namespace tarvo::importar
