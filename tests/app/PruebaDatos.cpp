// Date ranges as given by --dato, and values from the table of texts.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "app/Aplicacion.h"
#include "app/Datos.h"
#include "app/Ordenes.h"
#include "textos/TextosDePrueba.h"

using namespace tarvo;

TEST(Datos, RangosDeFechas) {
  const struct {
    const char16_t* texto;
    const char16_t* desde;  // empty for no range
    const char16_t* hasta;
  } casos[] = {{u"05/03/2005", u"05/03/2005", u"05/03/2005"},
               {u" 01/03/2005 - 15/03/2005 ", u"01/03/2005", u"15/03/2005"},
               {u"02/2004", u"01/02/2004", u"29/02/2004"},
               {u"15/03/2005-01/03/2005", u"", u""},
               {u"31/02/2005", u"", u""},
               {u"", u"", u""},
               {u"13/2005", u"", u""},
               {u"01/03/2005-x", u"", u""},
               {u"01-03-2005", u"01/03/2005", u"01/03/2005"},
               {u"2005-03-01", u"01/03/2005", u"01/03/2005"},
               {u"01-03-2005-15-03-2005", u"01/03/2005", u"15/03/2005"},
               {u"2005-03-01 - 2005-03-15", u"01/03/2005", u"15/03/2005"},
               {u"01/03/2005-2005-03-15", u"01/03/2005", u"15/03/2005"},
               {u"2005-03-15-2005-03-01", u"", u""},
               {u"2005-13-01", u"", u""},
               {u"01-03", u"", u""}};
  for (const auto& c : casos) {
    const auto r = app::leerRango(c.texto);
    EXPECT_EQ(r ? r->first.corta() : QString(), QStringView(c.desde))
        << QString::fromUtf16(c.texto).toStdString();
    EXPECT_EQ(r ? r->second.corta() : QString(), QStringView(c.hasta))
        << QString::fromUtf16(c.texto).toStdString();
  }
}

TEST(Ordenes, ElIdiomaEsElDeLaTabla) {
  static constexpr struct {
    const char16_t* letra;
    Idioma idioma;
  } kCasos[] = {{u"E", Idioma::Espanol}, {u"I", Idioma::I},   {u"F", Idioma::F},
                {u"UK", Idioma::UK},     {u"PL", Idioma::PL}, {u"P", Idioma::P},
                {u"X", Idioma::Espanol}};
  QTemporaryDir carpeta;
  for (const auto& c : kCasos) {
    QFile f(carpeta.filePath(QStringLiteral("textos.txt")));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("0\t" + QString::fromUtf16(c.letra).toUtf8() + "\n");
    f.close();
    const auto textos = Textos::leer(f.fileName());
    ASSERT_TRUE(textos);
    const QStringList proceso{QStringLiteral("--sin-ventana"), QStringLiteral("NOCHE")};
    EXPECT_EQ(app::leerOrdenes(proceso, *textos)->idioma, c.idioma);
    EXPECT_EQ(app::leerOrdenes(
                  QStringList{QStringLiteral("--idioma"), QStringLiteral("pl")} + proceso, *textos)
                  ->idioma,
              Idioma::PL)
        << "the option counts";
  }
}

TEST(Fondo, LosTextosFijosDeEtiquetas) {
  RelojReal reloj;
  for (const bool local : {false, true}) {
    QTemporaryDir carpeta;
    QFile f(carpeta.filePath(QStringLiteral("TARVO.INI")));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(local ? "MonedaNativa= 0\r\n" : "MonedaNativa= 1\r\n");
    f.close();
    const auto a =
        app::Fondo::leerAjustes(carpeta.path(), Idioma::Espanol, textosDePrueba(), reloj);
    ASSERT_TRUE(a);
    EXPECT_EQ(a->TextoEtiquetas[1], u"kg");
    EXPECT_EQ(a->TextoEtiquetas[2], local ? u"  P/kg" : u"€/kg");
    EXPECT_EQ(a->TextoEtiquetas[4], local ? u"P/100g" : u"€/100g");
    EXPECT_EQ(a->TextoEtiquetas[20], u"CONSERVAR ENTRE 0 Y +4 C");
  }
}
