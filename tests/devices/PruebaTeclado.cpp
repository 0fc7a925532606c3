// Keyboards: codes, stored texts, and the clipboard.
#include <gtest/gtest.h>

#include "devices/Modelos.h"
#include "devices/Teclado.h"
#include "devices/TecladoEditado.h"
#include "devices/TecladosDefault.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::devices {

using namespace Qt::StringLiterals;

TEST(Teclas, CadaCodigoEsUnaCosa) {
  const struct {
    Idioma idioma;
    int codigo;
    TipoTecla tipo;
    int numero;
    QString nombre;
  } casos[] = {
      {Idioma::Espanol, 11, TipoTecla::Numerica, 11, u"Numérica:11"_s},
      {Idioma::Espanol, 12, TipoTecla::Funcion, 0, u"TOTAL"_s},
      {Idioma::Espanol, 130, TipoTecla::PluDirecto, 110, u"PLU directo: 110"_s},
      {Idioma::Espanol, 131, TipoTecla::Operador, 1, u"Operador: 1"_s},
      {Idioma::Espanol, 182, TipoTecla::Tara, 20, u"Tara Directa: 20"_s},
      {Idioma::Espanol, 183, TipoTecla::Funcion, 0, u"Cambio Caducidad"_s},
      {Idioma::I, 183, TipoTecla::Departamento, 1, u"Depart. Directo: 1"_s},
      {Idioma::I, 193, TipoTecla::Funcion, 0, u"EURO"_s},
      {Idioma::I, 194, TipoTecla::Total, 1, u"Total Directo: 1"_s},
      {Idioma::I, 198, TipoTecla::Funcion, 0, u"ONLINE"_s},
      {Idioma::F, 202, TipoTecla::Departamento, 20, u"Depart. Directo: 20"_s},
      {Idioma::F, 208, TipoTecla::Funcion, 0, u"ONLINE"_s},
      {Idioma::Espanol, 999, TipoTecla::Funcion, 0, u"NULO"_s},
      {Idioma::Espanol, 500, TipoTecla::Funcion, 0, {}},
  };
  for (const auto& c : casos) {
    const CodigosDeTecla codigos(c.idioma, textosDePrueba());
    EXPECT_EQ(codigos.tipo(c.codigo), c.tipo) << c.codigo;
    EXPECT_EQ(codigos.numero(c.codigo), c.numero) << c.codigo;
    EXPECT_EQ(codigos.nombre(c.codigo), c.nombre) << c.codigo;
    if (c.tipo != TipoTecla::Funcion) {
      EXPECT_EQ(codigos.codigo(c.tipo, c.numero), c.codigo);
    }
  }
  const CodigosDeTecla codigos(Idioma::Espanol, textosDePrueba());
  EXPECT_EQ(codigos.nombre(199, true), u"Cambio de precio");
  EXPECT_FALSE(codigos.codigo(TipoTecla::Operador, 21));
  EXPECT_FALSE(codigos.codigo(TipoTecla::Departamento, 1));
}

TEST(Teclado, ComoSeLeeSeEscribe) {
  for (const int modelo : {kRowan, kMaple, kCedar, kHazel, kBirch}) {
    const TextosTeclado textos{TecladoDefecto(modelo, Idioma::Espanol), HardPluDefecto(),
                               TarasDefecto()};
    Teclado t(static_cast<int>(textos.Teclado.count(u"\r\n")));
    t.leer(textos);
    EXPECT_EQ(t.escribir(), textos) << modelo;
    Teclado otro(t.teclas());
    EXPECT_EQ(otro.quePega(t.portapapeles()), Teclado::Pegado::Igual);
    otro.pegar(t.portapapeles());
    EXPECT_EQ(otro, t);
  }
  Teclado t(84);
  t.leer({u"001:021:\r\nxx\r\n085:021\r\n003:abc\r\n004:9999\r\n"_s, u"005:2\r\n006:7\r\n"_s,
          u"01:0120\r\n21:5\r\n"_s});
  EXPECT_EQ(t.codigo(1), 21);
  for (const int n : {3, 4, 84}) EXPECT_EQ(t.codigo(n), kTeclaNula);
  EXPECT_EQ(t.articulo(5), 2);  // a system article is kept, to be shown as a fault
  EXPECT_EQ(t.articulo(6), 7);
  EXPECT_EQ(t.tara(1), 120);

  // Another keyboard: its keys stay, its direct PLUs and tares come.
  Teclado grande(125);
  grande.codigo(1, 131);
  EXPECT_EQ(grande.quePega(t.portapapeles()), Teclado::Pegado::OtrasTeclas);
  grande.pegar(t.portapapeles());
  EXPECT_EQ(grande.codigo(1), 131);
  EXPECT_EQ(grande.articulo(6), 7);
  for (const QString& no : {u""_s, u"hola"_s, u"000|a|b|c"_s, u"x84|a"_s})
    EXPECT_EQ(grande.quePega(no), Teclado::Pegado::NoEsTeclado);
  grande.mover(1, 2);
  grande.mover(2, 2);
  EXPECT_EQ(grande.codigo(2), 131);
  EXPECT_EQ(grande.codigo(1), kTeclaNula);
}

TEST(Teclado, DeUnaEbony) {
  TecladoEbony t(28);
  t.leer(u"07:T:000120\r\n08:p:123\r\n09:N:000005\r\n29:P:1\r\nxx"_s);
  using Tipo = TecladoEbony::Tipo;
  EXPECT_EQ(t.tecla(7), (TecladoEbony::Tecla{Tipo::Tara, 120}));
  EXPECT_EQ(t.tecla(8), (TecladoEbony::Tecla{Tipo::PluDirecto, 123}));
  EXPECT_EQ(t.tecla(9).tipo, Tipo::Nulo);
  const QString escrito = t.escribir();
  EXPECT_EQ(escrito.split(u"\r\n"_s).mid(5, 4),
            (QStringList{u"06:N:000000"_s, u"07:T:000120"_s, u"08:P:000123"_s, u"09:N:000000"_s}));
  t.leer(TecladoDefecto(kEbony, Idioma::Espanol));  // in the lines of the scales
  EXPECT_EQ(t, TecladoEbony(28));
}

TEST(TecladoEditado, UnArticuloTomaUnPluDirectoQueNadieUsa) {
  const Textos& textos = textosDePrueba();
  TecladoEditado t(kRowan);
  t.comun().codigo(1, 21);
  t.comun().codigo(2, 21);  // two keys with one direct PLU
  t.comun().articulo(1, 7);
  t.comun().articulo(2, 8);  // one that no key uses, with an article
  ASSERT_TRUE(t.vender(1, 50, textos));
  EXPECT_EQ(t.articulo(2), 7);
  EXPECT_EQ(t.comun().codigo(1), 23);
  ASSERT_TRUE(t.vender(1, 51, textos));  // its own from now on
  EXPECT_EQ(t.comun().codigo(1), 23);
  for (int tecla = 3; tecla <= 110; ++tecla) ASSERT_TRUE(t.vender(tecla, 100 + tecla, textos));
  EXPECT_EQ(t.comun().codigo(110), 22);  // the last one left had an article
  const TecladoEditado lleno = t;
  EXPECT_FALSE(t.vender(111, 60, textos));
  EXPECT_FALSE(t.vender(1, 2, textos));
  EXPECT_EQ(t, lleno);

  TecladoEditado ebony(kEbony);
  EXPECT_TRUE(ebony.vender(1, 999'999, textos));
  EXPECT_FALSE(ebony.vender(2, 1'000'000, textos));
  ebony.mover(1, 3);
  EXPECT_EQ(ebony.articulo(3), 999'999);
  const std::vector<qint64> lista{5, 999'999, 1'000'001, 6};
  const auto hecho = ebony.rellenar(lista, {5, 6, 999'999}, textos);
  EXPECT_EQ(hecho.puestos, 2);
  EXPECT_EQ(hecho.noCaben, 1);
  EXPECT_EQ(ebony.articulo(2), 6);
}

}  // namespace tarvo::devices
