// Article records of each kind, byte by byte, and values that don't fit them.
#include <gtest/gtest.h>

#include <functional>

#include "comm/maquinas/Articulo.h"

namespace tarvo::maquinas {

namespace {

Articulo chorizo() {
  Articulo a;
  a.codigo = 123;
  a.nombre = QStringLiteral("Chorizo de León");
  a.cada = 0;
  a.precios = {1250, 1150, 1050};
  a.formato = 4;
  a.barras = 1;
  a.pfxBar = QStringLiteral(" 21 ");
  a.depto = 7;
  a.numdias1 = 30;
  a.modificable = true;
  a.minimo = 5;
  a.descto = 1250;
  a.hasta1 = 1000;
  a.hasta2 = 2500;
  a.textoEtq = QStringLiteral("Cerdo 90%\r\nSal\tpimentón\nAjo");
  return a;
}

const QByteArray kChorizo = QByteArray(
                                "Chorizo de Leon     "
                                "0000123"
                                "001250"
                                "0"
                                "04"
                                "\x17"
                                "0000021"
                                "07"
                                "01"
                                "00030"
                                "00000"
                                "1"
                                "000005"
                                "12"
                                "01000"
                                "001150"
                                "02500"
                                "001050"
                                "Cerdo 90%\rSal pimenton\rAjo") +
                            char(19);

QByteArray bueno(const Cabe<QByteArray>& r) {
  EXPECT_TRUE(r.has_value()) << (r ? "" : qPrintable(r.error().valor));
  return r.value_or(QByteArray());
}

}  // namespace

TEST(FichaDeArticulo, DeBalanzas) {
  EXPECT_EQ(bueno(TramaPLU(TipoGrupo::Balanzas, chorizo())), kChorizo);
  EXPECT_EQ(bueno(TramaPLU(TipoGrupo::Birch, chorizo())), kChorizo);
  EXPECT_EQ(bueno(TramaPrecios(chorizo())), "0000123001250001150001050");
  Articulo a = chorizo();
  a.tara = 12;
  a.barras = 0;
  a.pfxBar.clear();
  a.modificable = false;
  a.textoEtq.clear();
  a.nombre = QStringLiteral("Un nombre de más de veinte letras");
  const QByteArray r = bueno(TramaPLU(TipoGrupo::Birch, a));
  EXPECT_EQ(r.size(), 90);
  EXPECT_EQ(r.left(20), "Un nombre de mas de ");
  EXPECT_EQ(r.mid(36, 12),
            "\x16"
            "00000000712");
  EXPECT_EQ(r.mid(58, 1), "0");
}

TEST(FichaDeArticulo, DeEbony) {
  Articulo a = chorizo();
  EXPECT_EQ(bueno(TramaPLU(TipoGrupo::Ebony, a)), "990123Chorizo de Leon 0000125036");
  struct Caso {
    qint64 cada;
    bool modificable;
    QByteArray cola;
  };
  for (const Caso& c :
       {Caso{0, false, "0000125016"}, Caso{1, true, "0001250036"}, Caso{1, false, "0001250016"},
        Caso{2, true, "0000125046"}, Caso{2, false, "0000125026"}}) {
    a.cada = c.cada;
    a.modificable = c.modificable;
    EXPECT_EQ(bueno(TramaPLU(TipoGrupo::Ebony, a)).mid(22), c.cola) << c.cada;
  }
}

TEST(FichaDeArticulo, DeRegistradoras) {
  Articulo a = chorizo();
  EXPECT_EQ(bueno(TramaPLU(TipoGrupo::Registradoras, a)),
            QByteArray("0000021000123Chorizo de Leon     00000125000000115007"));
  a.codBarExt = QStringLiteral("84123456");
  EXPECT_EQ(bueno(TramaPLU(TipoGrupo::Registradoras, a)).left(14), "84123456     C");
  a.codBarExt = QStringLiteral("8412345678905");
  EXPECT_EQ(bueno(TramaPLU(TipoGrupo::Registradoras, a)).left(14), "8412345678905C");
}

TEST(FichaDeArticulo, LasLetrasDeCadaMaquina) {
  struct Caso {
    QString texto;
    std::array<QByteArray, 4> bytes;
  };
  const Caso casos[] = {
      {QStringLiteral("ÑñÇç¿"), {"\\|}}]", "[[Cc?", "\xD1\xF1\xC7\xE7\xBF", "\xD1\xF1\xC7\xE7?"}},
      {QStringLiteral("áàäéèëíìïóòöúùü"),
       {"aaaeeeiiiooouuu", "aaaeeeiiiooouuu", "aaaeeeiiiooouuu", "aaaeeeiiiooouuu"}},
      {QStringLiteral("ÁÀÄÉÈËÍÌÏÓÒÖÚÙÜ"),
       {"AAAEEEIIIOOOUUU", "AAAEEEIIIOOOUUU", "AAAEEEIIIOOOUUU", "AAAEEEIIIOOOUUU"}},
      {QStringLiteral("´`¨ªº¡€"), {"   ao!\x7F", "   ao!\x7F", "   ao!\x7F", "   ao!\x7F"}},
      // A combining accent after the letter, and a non-breaking space.
      {QStringLiteral("Cano\u0301n\u0303\u00A0€"), {"Cano| \x7F", "", "", ""}},
  };
  for (const Caso& c : casos)
    for (const TipoGrupo tipo : todosLos<TipoGrupo>()) {
      if (c.bytes[static_cast<size_t>(numeroDe(tipo) - 1)].isEmpty()) continue;
      Articulo a = chorizo();
      a.nombre = c.texto;
      const QByteArray r = bueno(TramaPLU(tipo, a));
      const int inicio = tipo == TipoGrupo::Ebony ? 6 : tipo == TipoGrupo::Registradoras ? 13 : 0;
      EXPECT_EQ(r.mid(inicio, c.bytes[static_cast<size_t>(numeroDe(tipo) - 1)].size()),
                c.bytes[static_cast<size_t>(numeroDe(tipo) - 1)])
          << numeroDe(tipo) << qPrintable(c.texto);
    }
  EXPECT_EQ(CaracteresBalanza(TipoGrupo::Balanzas, QStringLiteral("Jamón ÑÇ¿")),
            QStringLiteral("Jamon \\}]"));
  EXPECT_EQ(textoDeBalanza(TipoGrupo::Balanzas, "PI\\A ]|\x7F"), QStringLiteral("PIÑA ¿ñ€"));
  EXPECT_EQ(textoDeBalanza(TipoGrupo::Birch,
                           "PI\xD1"
                           "A \\"),
            QStringLiteral("PIÑA \\"));
}

// A letter never keeps a price back.
TEST(FichaDeArticulo, LasLetrasQueFaltan) {
  struct Caso {
    QString texto;
    QByteArray sieteBits, ochoBits;
    QString faltanEnSiete;
  };
  const Caso casos[] = {
      {QStringLiteral("MORTADEL·LA"), "MORTADEL.LA", "MORTADEL\xB7LA", QStringLiteral("·")},
      {QStringLiteral("Château d’Oc"), "Chateau d'Oc", "Ch\xE2teau d\x92Oc", QStringLiteral("â’")},
      {QStringLiteral("“Pan” – 2°"), "\"Pan\" - 2o", "\x93Pan\x94 \x96 2\xB0",
       QStringLiteral("“”–°")},
      {QStringLiteral("Æbleskiver"), "AEbleskiver",
       "\xC6"
       "bleskiver",
       QStringLiteral("Æ")},
      {QStringLiteral("1½ kg ½"), "1 1/2 kg 1/2", "1\xBD kg \xBD", QStringLiteral("½")},
      {QStringLiteral("Hőség ấ"), "Hoseg a", "Hoseg a", QStringLiteral("őấ")},
      {QStringLiteral("Ω3 🍞🍞"), "?3 ??", "?3 ??", QStringLiteral("Ω🍞")},
      // Invisible characters are not reported as missing.
      {QStringLiteral("A\nB\u2009C\u200BD\u0003\u0013\u007FE\uFE0F"),
       "A B CD   E",
       "A B CD   E",
       {}},
  };
  for (const Caso& c : casos)
    for (const TipoGrupo tipo : todosLos<TipoGrupo>()) {
      Articulo a = chorizo();
      a.nombre = c.texto;
      const bool siete = numeroDe(tipo) <= 2;
      const QByteArray& espera = siete ? c.sieteBits : c.ochoBits;
      const int inicio = tipo == TipoGrupo::Ebony ? 6 : tipo == TipoGrupo::Registradoras ? 13 : 0;
      EXPECT_EQ(bueno(TramaPLU(tipo, a)).mid(inicio, tipo == TipoGrupo::Ebony ? 16 : 20),
                Campo(espera, tipo == TipoGrupo::Ebony ? 16 : 20))
          << numeroDe(tipo) << qPrintable(c.texto);
      if (siete) {
        EXPECT_EQ(letrasQueFaltan(tipo, a), c.faltanEnSiete) << qPrintable(c.texto);
      }
    }
  Articulo a = chorizo();
  a.textoEtq = QStringLiteral("Ajo½\r\n½\u0003\u0013Œ");
  EXPECT_EQ(bueno(TramaPLU(TipoGrupo::Balanzas, a)).mid(89),
            QByteArray("Ajo1/2\r1/2  OE") + char(19));
  EXPECT_EQ(letrasQueFaltan(TipoGrupo::Balanzas, a), QStringLiteral("½Œ"));
  EXPECT_EQ(letrasQueFaltan(TipoGrupo::Ebony, a), QString());
  // Characters beyond the width aren't reported, and a wide letter is cut there.
  a.nombre = QString(20, u'x') + QStringLiteral("Ω");
  EXPECT_EQ(letrasQueFaltan(TipoGrupo::Birch, a), QString());
  a.nombre = QString(19, u'x') + QStringLiteral("Æ");
  EXPECT_EQ(bueno(TramaPLU(TipoGrupo::Balanzas, a)).mid(18, 9), "xA0000123");
}

// Values that don't fit are reported, and give no record.
TEST(FichaDeArticulo, LoQueNoCabe) {
  using C = CampoPLU;
  using M = NoCabe;
  struct Caso {
    const char* nombre;
    std::vector<int> tipos;
    std::function<void(Articulo&)> cambiar;
    C campo;
    M::Motivo motivo;
  };
  const Caso casos[] = {
      {"precio de 7 cifras",
       {1, 4},
       [](auto& a) { a.precios[0] = 1'000'000; },
       C::Precio0,
       M::Grande},
      {"precio negativo", {1, 2, 3, 4}, [](auto& a) { a.precios[0] = -1; }, C::Precio0, M::Pequeno},
      {"segundo precio", {1, 4}, [](auto& a) { a.precios[1] = 1'000'000; }, C::Precio1, M::Grande},
      {"tercer precio", {1, 4}, [](auto& a) { a.precios[2] = -5; }, C::Precio2, M::Pequeno},
      {"precio de 9 cifras",
       {2},
       [](auto& a) { a.precios[0] = 100'000'000; },
       C::Precio0,
       M::Grande},
      {"precio por 100 g",
       {2},
       [](auto& a) { a.cada = 1, a.precios[0] = 10'000'000; },
       C::Precio0,
       M::Grande},
      {"precio enorme",
       {2},
       [](auto& a) { a.cada = 1, a.precios[0] = INT64_MAX / 5; },
       C::Precio0,
       M::Grande},
      {"precio de 10 cifras",
       {3},
       [](auto& a) { a.precios[1] = 1'000'000'000; },
       C::Precio1,
       M::Grande},
      {"umbral", {1, 4}, [](auto& a) { a.hasta1 = 100'000; }, C::HASTA_1, M::Grande},
      {"umbral 2", {1, 4}, [](auto& a) { a.hasta2 = -1; }, C::HASTA_2, M::Pequeno},
      {"minimo", {1, 4}, [](auto& a) { a.minimo = 1'000'000; }, C::minimo, M::Grande},
      {"descuento del 100 %", {1, 4}, [](auto& a) { a.descto = 10'000; }, C::DESCTO, M::Grande},
      {"descuento negativo", {1, 4}, [](auto& a) { a.descto = -50; }, C::DESCTO, M::Pequeno},
      {"tara", {1, 4}, [](auto& a) { a.tara = 100; }, C::Tara, M::Grande},
      {"formato", {1, 4}, [](auto& a) { a.formato = 100; }, C::Formato, M::Grande},
      {"caducidad", {1, 4}, [](auto& a) { a.numdias2 = 100'000; }, C::NUMDIAS_2, M::Grande},
      {"cada", {1, 2, 4}, [](auto& a) { a.cada = 3; }, C::cada, M::Grande},
      {"barras", {1, 4}, [](auto& a) { a.barras = 2; }, C::BARRAS, M::Grande},
      {"barras bajo cero", {1, 4}, [](auto& a) { a.barras = -1; }, C::BARRAS, M::Pequeno},
      {"prefijo con letras",
       {1, 3, 4},
       [](auto& a) { a.pfxBar = QStringLiteral("2A"); },
       C::PFX_BAR,
       M::Cifras},
      {"prefijo de 8",
       {1, 3, 4},
       [](auto& a) { a.pfxBar = QStringLiteral("12345678"); },
       C::PFX_BAR,
       M::Largo},
      {"sin departamento", {2}, [](auto& a) { a.depto = 0; }, C::Depto, M::Pequeno},
      {"departamento 11", {2}, [](auto& a) { a.depto = 11; }, C::Depto, M::Grande},
      {"departamento 100", {1, 3, 4}, [](auto& a) { a.depto = 100; }, C::Depto, M::Grande},
      {"código de 5 cifras", {2}, [](auto& a) { a.codigo = 10'000; }, C::CodPLU, M::Grande},
      {"código de 7 cifras", {3}, [](auto& a) { a.codigo = 1'000'000; }, C::CodPLU, M::Grande},
      {"código de 8 cifras", {1, 4}, [](auto& a) { a.codigo = 10'000'000; }, C::CodPLU, M::Grande},
      {"barras predefinidas largas",
       {3},
       [](auto& a) { a.codBarExt = QString(14, u'1'); },
       C::CodBarExt,
       M::Largo},
      {"barras con letras",
       {3},
       [](auto& a) { a.codBarExt = QStringLiteral("84A"); },
       C::CodBarExt,
       M::Cifras},
      {"texto sin fin",
       {1, 4},
       [](auto& a) { a.textoEtq = QString(65'500, u'x'); },
       C::TEXTO_ETQ,
       M::Largo},
  };
  for (const Caso& c : casos)
    for (const int n : c.tipos) {
      const TipoGrupo tipo = *deNumero<TipoGrupo>(n);
      Articulo a = chorizo();
      c.cambiar(a);
      const auto r = TramaPLU(tipo, a);
      ASSERT_FALSE(r.has_value()) << c.nombre << " " << numeroDe(tipo);
      EXPECT_EQ(r.error().campo, c.campo) << c.nombre << " " << numeroDe(tipo);
      EXPECT_EQ(r.error().motivo, c.motivo) << c.nombre << " " << numeroDe(tipo);
    }
  Articulo a = chorizo();
  // A record of prices needs only prices.
  a.depto = 0;
  EXPECT_TRUE(TramaPrecios(a));
  a.precios[2] = 1'000'000;
  EXPECT_EQ(TramaPrecios(a).error().campo, C::Precio2);
}

TEST(FichaDeArticulo, PreciosAparte) {
  for (const TipoGrupo tipo : todosLos<TipoGrupo>()) {
    Articulo a = chorizo(), b = chorizo();
    b.precios = {7, 8, 9};
    const QByteArray ra = bueno(TramaPLU(tipo, a)), rb = bueno(TramaPLU(tipo, b));
    EXPECT_EQ(sinPrecios(tipo, ra), sinPrecios(tipo, rb)) << numeroDe(tipo);
    EXPECT_NE(preciosDe(tipo, ra), preciosDe(tipo, rb)) << numeroDe(tipo);
    b = chorizo();
    b.depto = 8;
    EXPECT_NE(sinPrecios(tipo, ra), sinPrecios(tipo, bueno(TramaPLU(tipo, b)))) << numeroDe(tipo);
  }
  EXPECT_EQ(preciosDe(TipoGrupo::Balanzas, kChorizo), bueno(TramaPrecios(chorizo())).mid(7));
}

TEST(FichaDeArticulo, ComoLaDaLaBalanza) {
  const auto f = leerFicha(kChorizo);
  ASSERT_TRUE(f.has_value());
  EXPECT_EQ(f->codigo, 123);
  EXPECT_EQ(f->campo(CampoPLU::NomPLU), "Chorizo de Leon     ");
  EXPECT_EQ(f->campo(CampoPLU::HASTA_2), "02500");
  EXPECT_EQ(f->campo(CampoPLU::TEXTO_ETQ), "Cerdo 90%\rSal pimenton\rAjo");
  // A machine may pad a number with blanks, and cut the blanks of a text.
  QByteArray otra = kChorizo;
  otra.replace(53, 5, "     ");
  EXPECT_TRUE(diferencias(*f, *leerFicha(otra)).empty());
  otra.replace(27, 6, "001251").replace(0, 3, "Fue").replace("Ajo", "ajo");
  EXPECT_EQ(diferencias(*f, *leerFicha(otra)),
            (std::vector{CampoPLU::NomPLU, CampoPLU::Precio0, CampoPLU::TEXTO_ETQ}));
  EXPECT_EQ(codigoDeFicha(kChorizo), 123);
  for (const qsizetype n : {0, 20, 26, 89, 100, int(kChorizo.size()) - 1})
    EXPECT_FALSE(leerFicha(kChorizo.left(n)).has_value()) << n;
  EXPECT_FALSE(leerFicha(QByteArray(kChorizo).replace(22, 1, "x")).has_value());
}

TEST(Peticiones, DeArticulos) {
  EXPECT_EQ(enviarArticulo(TipoGrupo::Balanzas, "r"), (Peticion{100, "r"}));
  EXPECT_EQ(enviarArticulo(TipoGrupo::Birch, "r"), (Peticion{100, "r"}));
  EXPECT_EQ(enviarArticulo(TipoGrupo::Ebony, "r"), (Peticion{32, "r"}));
  EXPECT_EQ(enviarArticulo(TipoGrupo::Registradoras, "r"), (Peticion{4003, "r"}));
  EXPECT_EQ(enviarPrecios("r"), (Peticion{101, "r"}));
  EXPECT_EQ(borrarArticulo(9), (Peticion{120, "0000009"}));
  EXPECT_EQ(pedirArticulo(3), (Peticion{101, "0000003"}));
  EXPECT_EQ(borrarArticulos(TipoGrupo::Ebony), (Peticion{73, ""}));
  EXPECT_EQ(borrarArticulos(TipoGrupo::Registradoras), (Peticion{4098, "00"}));
}

}  // namespace tarvo::maquinas
