#include "articles/precios/AltaRapida.h"
#include "articles/precios/CambioRapido.h"
#include "precios/TiendaDePrecios.h"

using namespace tarvo;
using namespace tarvo::precios;
using tarvo::prueba::bien;
using namespace Qt::StringLiterals;

namespace {

// Whatever the file contains, the result is valid and is written back as 22 values.
TEST(ParrillaRapida, LeeCualquierCosaYSeEscribe) {
  const QString defecto = u"1,1,2,1,1,0,0,0,0,0,0,0,0,0,0,0,-1,,,,,"_s;
  const struct {
    QString de, a;
  } casos[] = {
      {defecto, defecto},
      {u""_s, defecto},
      {u"0,2,1,0,0,1,1,2,2,2,2,1,0,0,1,2,0,7,3,21,10,5"_s,
       u"0,2,1,0,0,1,1,2,2,2,2,1,0,0,1,2,0,7,3,21,10,5"_s},
      {u"9,-1,x, 0 ,1"_s, u"1,1,2,0,1,0,0,0,0,0,0,0,0,0,0,0,-1,,,,,"_s},
      {defecto + u",de,mas"_s, defecto},
  };
  for (const auto& c : casos)
    EXPECT_EQ(ParrillaRapida::leer(c.de).escribir(), c.a) << c.de.toStdString();
  ParrillaRapida p;
  p.ponerValor(CampoFijo::CodBarras, u" 2,1\n7 "_s);
  EXPECT_EQ(ParrillaRapida::leer(p.escribir()).valor(CampoFijo::CodBarras), u"21 7");
}

TEST(ParrillaRapida, AdondeVaIntro) {
  using enum ModoIntro;
  const struct {
    ModoIntro modo;
    Celda de;
    std::optional<Celda> a;
  } casos[] = {
      {Precio, {0, 0}, Celda{1, 0}}, {Precio, {2, 0}, Celda{0, 1}}, {Precio, {2, 7}, Celda{0, 0}},
      {Tarifa, {0, 0}, Celda{0, 1}}, {Tarifa, {0, 7}, Celda{1, 0}}, {Tarifa, {2, 7}, Celda{0, 0}},
      {PLU, {1, 1}, std::nullopt},
  };
  for (const auto& c : casos)
    EXPECT_EQ(trasIntro(c.modo, c.de), c.a)
        << static_cast<int>(c.modo) << c.de.nivel << c.de.tarifa;
  EXPECT_EQ(siguiente(PLU), Precio);
  EXPECT_EQ(leerModoIntro(7), PLU);
}

TEST(FormaAlta, ElCodigoTrasUnPrefijo) {
  const struct {
    const char *prefijo, *tecleado, *codigo;
  } casos[] = {{"12", "34", "1200034"},
               {"", "34", "0000034"},
               {"123456", "7", "1234567"},
               {"12", "345678", ""},
               {"12", "", ""},
               {"12", "3a", ""},
               {"", "-3", ""},
               {"12", "00034", "1200034"}};
  for (const auto& c : casos) {
    const auto f = FormaAlta::de(QString::fromLatin1(c.prefijo), 3, 8);
    ASSERT_TRUE(f);
    EXPECT_EQ(f->codigo(QString::fromLatin1(c.tecleado)).value_or(QString()),
              QString::fromLatin1(c.codigo))
        << c.prefijo << '+' << c.tecleado;
  }
  using enum FormaAlta::Mal;
  EXPECT_EQ(FormaAlta::de(u"1x"_s, 3, 8).error(), PrefijoNoNumerico);
  EXPECT_EQ(FormaAlta::de(u"1234567"_s, 3, 8).error(), PrefijoLargo);
  EXPECT_EQ(FormaAlta::de({}, 4, 8).error(), Precios);
  EXPECT_EQ(FormaAlta::de({}, 1, 0).error(), Tarifas);
}

struct ConAlta : testing::Test, prueba::TiendaDePrecios {
  AltaRapida alta{catalogo, *FormaAlta::de(u"12"_s, 2, 1)};
  EntradaAlta buena() {
    EntradaAlta e;
    e.seccion = 1, e.codigo = u"34"_s, e.nombre = u"Lomo"_s;
    for (auto& nivel : e.precios) nivel.fill(100);
    e.cada = 0;
    e.departamento = u"1"_s, e.formato = u"20"_s, e.dias1 = u"3"_s, e.dias2 = u"0"_s;
    return e;
  }
};

TEST_F(ConAlta, LosCamposQueEstanMal) {
  const struct {
    std::vector<CampoAlta> faltan;
    void (*estropear)(EntradaAlta&);
  } casos[] = {
      {{}, [](EntradaAlta&) {}},
      {{}, [](EntradaAlta& e) { e.codigo = u"1200034"_s; }},  // as shown in the box
      {{CampoAlta::Codigo}, [](EntradaAlta& e) { e.codigo = u"345678"_s; }},
      {{CampoAlta::Nombre}, [](EntradaAlta& e) { e.nombre = u"  "_s; }},
      {{CampoAlta::Unidad}, [](EntradaAlta& e) { e.cada = -1; }},
      {{CampoAlta::Departamento}, [](EntradaAlta& e) { e.departamento = u"9"_s; }},
      {{CampoAlta::Formato}, [](EntradaAlta& e) { e.formato = u"21"_s; }},
      {{CampoAlta::Formato}, [](EntradaAlta& e) { e.formato = u"0"_s; }},
      {{}, [](EntradaAlta& e) { e.dias1.clear(), e.dias2 = u" "_s; }},  // none
      {{CampoAlta::Dias1}, [](EntradaAlta& e) { e.dias1 = u"-1"_s; }},
      {{CampoAlta::Dias2}, [](EntradaAlta& e) { e.dias2 = u"x"_s; }},
      {{CampoAlta::Codigo, CampoAlta::Dias2},
       [](EntradaAlta& e) { e.codigo.clear(), e.dias2 = u"10000"_s; }},
  };
  int n = 0;
  for (const auto& c : casos) {
    EntradaAlta e = buena();
    c.estropear(e);
    std::vector<CampoAlta> faltan;
    for (int i = 0; i < kCamposAlta; ++i)
      if (const auto falta = bien(alta.falta(static_cast<CampoAlta>(i), e))) {
        EXPECT_FALSE(falta->isEmpty());
        faltan.push_back(static_cast<CampoAlta>(i));
      }
    EXPECT_EQ(faltan, c.faltan) << n++;
  }
  alta.ponerForma(*FormaAlta::de({}, 1, 1));
  EXPECT_FALSE(alta.codigoDe(u"2"_s));
  EXPECT_EQ(alta.codigoDe(u"3"_s), 3);
}

TEST_F(ConAlta, ElArticuloLlegaConSusExistencias) {
  const auto a = bien(alta.anadir(buena(), u"FastAlta"_s));
  EXPECT_EQ(a.clave.codigo, 1200034);
  EXPECT_EQ(leer(u"select CODPLU, NOMPLU, MDF_PRE, BARRAS, PFX_BAR, FORMATO, NUMDIAS_1, PRECIO_00, "
                 "PRECIO_10, PRECIO_20, PRECIO_01 from PLUSES where CODPLU>1000"_s),
            u"1200034 Lomo 1 1 0 20 3 100 100 0 0");
  EXPECT_EQ(leer(u"select CODALM, CODIGO, Inicial, Merma from MovsAlm order by CODALM"_s),
            u"1 1200034 0 0 | 2 1200034 0 0");
  EXPECT_EQ(catalogo.cambios().SeccionesModificadas(), std::vector<int>{1});
  EXPECT_EQ(alta.anadir(buena(), u"FastAlta"_s).error().clase, Fallo::Duplicado);
  EXPECT_EQ(leer(u"select count(*) from MovsAlm"_s), u"2");
}

TEST_F(ConAlta, CadaColumnaTomaLoQueLeCabe) {
  using enum ColumnaRapida;
  const auto a = *bien(catalogo.leer({1, 10}));
  const struct {
    ColumnaRapida columna;
    const char16_t* texto;
    bool vale;
  } casos[] = {
      {Codigo, u"3", true},        {Codigo, u"2", false},         {Codigo, u"10000000", false},
      {Nombre, u" ", false},       {Precio1, u"1.234,56", true},  {Precio1, u"", false},
      {Precio1, u"0,00", true},    {Precio1, u"doce", false},     {Precio1, u"-1", false},
      {Departamento, u"40", true}, {Departamento, u"41", false},  {CodBarras, u"2x", false},
      {CodBarras, u"", false},     {CodBarras, u"1234567", true}, {CodBarras, u"12345678", false},
      {Etiqueta, u"20", true},     {Etiqueta, u"21", false},      {Dias1, u"-1", false},
      {Dias2, u"9999", true}};
  for (const auto& c : casos) {
    const QString texto = QString::fromUtf16(c.texto);
    const auto r = conColumna(a, c.columna, texto, ajustes, textosDePrueba());
    EXPECT_EQ(r.has_value(), c.vale) << texto.toStdString();
    EXPECT_TRUE(c.vale || !r.error().texto.isEmpty());
  }
  EXPECT_EQ(bien(conColumna(a, Precio2, u"12,5"_s, ajustes, textosDePrueba())).precios[1][0], 1250);
  EXPECT_EQ(bien(conColumna(a, Nombre, QString(50, u'N'), ajustes, textosDePrueba())).nombre.size(),
            50);
  EXPECT_EQ(conColumna(a, Nombre, QString(51, u'N'), ajustes, textosDePrueba()).error().texto,
            u"El nombre tiene 51 letras, y caben 50.");
}

}  // namespace
