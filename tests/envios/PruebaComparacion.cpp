// The complete sending to a Birch group and the walk of class 24: the contents of the scales
// compared with what they should hold.
#include "envios/Envios.h"

namespace tarvo::prueba {

struct Birch : Envios {
  void SetUp() override { grupo(4, 4, QStringLiteral("cable 4")); }
  void enBalanza(int codigo) {
    simulador::Articulo a;
    a.codigo = codigo;
    a.nombre = QStringLiteral("Viejo");
    maquina(4).memoria().catalogo[codigo] = a;
  }
  QStringList codigos() {
    QStringList salida;
    for (const auto& [codigo, a] : maquina(4).memoria().catalogo) salida << QString::number(codigo);
    return salida;
  }
};

TEST_F(Birch, LasTramasDeCadaCaso) {
  struct Caso {
    std::vector<int> aqui, retenidos, alli;
    qint64 desde, hasta;
    QString frames, queda;
  };
  constexpr qint64 kFin = 9999999;
  const Caso casos[] = {
      {{5, 7}, {}, {5, 9}, 0, kFin, u"101 3,100 5,101 6,100 7,101 9,120 9,101 10"_s, u"5 7"_s},
      {{1, 2, 5, 6}, {}, {}, 0, kFin, u"101 3,100 5,100 6"_s, u"5 6"_s},
      {{3}, {}, {3}, 0, kFin, u"100 3,101 4"_s, u"3"_s},
      {{}, {}, {1, 2, 4, 8}, 0, kFin, u"101 3,120 4,101 5,120 8,101 9"_s, u"1 2"_s},
      {{5, 7}, {}, {4, 5, 9, 12}, 5, 9, u"100 5,101 6,100 7,101 9,120 9"_s, u"4 5 7 12"_s},
      {{5, 6, 7}, {6}, {6}, 0, kFin, u"101 3,100 5,100 7,101 8"_s, u"5 6 7"_s},
      {{5, 6}, {6}, {5, 9}, 0, kFin, u"101 3,100 5,101 7,120 9,101 10"_s, u"5"_s},
      {{6}, {6}, {6}, 0, kFin, u"101 3,101 7"_s, u"6"_s},
  };
  for (const Caso& c : casos) {
    for (const char16_t* t : {u"PLUSES", u"[Cross]", u"Enviados", u"Retenidos"})
      bien(db->ejecutar(u"DELETE FROM "_s + QString::fromUtf16(t)));
    maquina(4).memoria().catalogo.clear();
    for (const int n : c.aqui) alta(n, n);
    for (const int n : c.retenidos) cambiar(n, u"DEPTO=100"_s);
    for (const int n : c.alli) enBalanza(n);
    EXPECT_EQ(enviar(4, kTxPlus, true, c.desde, c.hasta), c.frames);
    EXPECT_EQ(codigos(), c.queda.split(u' ')) << qPrintable(c.frames);
    esCierto(4);
    EXPECT_EQ(retenidos(4).isEmpty(), c.retenidos.empty());
    // The state is fully known: the next sending has nothing to do.
    EXPECT_TRUE(enviar(4).isEmpty() || c.desde > 0) << qPrintable(c.frames);
  }
}

// Lost articles are recognised by the skipped numbers, and surplus ones are deleted even without a
// mark.
TEST_F(Birch, UnaMemoriaMasVieja) {
  for (const int c : {5, 7, 9}) alta(c, c);
  enviar(4, kTxPlus, true);
  const auto vieja = maquina(4).memoria().catalogo;
  borrar(5);
  cambiar(7, u"PRECIO_00=70"_s);
  alta(11, 11);
  enviar(4);
  EXPECT_EQ(tiene(4), u"7:Tomate/70 9:Tomate/9 11:Tomate/11");
  maquina(4).memoria().catalogo = vieja;
  EXPECT_TRUE(enviar(4).isEmpty());  // not yet known here
  EXPECT_EQ(enviar(4, kRxDatPlu), u"101 1,101 6,101 8,101 10"_s);
  EXPECT_TRUE(avisos.last().contains(u"iguales 1, distintos 1, sobrantes 1"));
  EXPECT_EQ(cruz(4), u"5x 9");
  EXPECT_EQ(enviar(4), u"100 7,100 11,120 5"_s);
  EXPECT_EQ(tiene(4), u"7:Tomate/70 9:Tomate/9 11:Tomate/11");
  EXPECT_EQ(cruz(4), u"7 9 11");
  esCierto(4);
}

// They report deletions but delete nothing: now and then they are asked, and this is reported.
TEST_F(Birch, UnaBalanzaQueNoBorraNada) {
  alta(5, 5);
  for (int c = 100; c < 300; ++c) enBalanza(c);
  auto& memoria = maquina(4).memoria();
  const auto vieja = memoria.catalogo;
  memoria.alCambiar = [&] { memoria.catalogo.insert(vieja.begin(), vieja.end()); };
  const QString oido = enviar(4, kTxPlus, true);
  EXPECT_EQ(oido.count(u"120 "), 16);
  EXPECT_EQ(problemas.size(), 1);
  EXPECT_TRUE(avisos.join(u'\n').contains(
      u"Grupo 4: la máquina sigue teniendo el artículo 0000115 después de confirmar"));
  EXPECT_TRUE(cruz(4).split(u' ').contains(u"115x"));
  // A machine that deletes is asked no more often than before.
  memoria.alCambiar = nullptr;
  const QString bien = enviar(4, kTxPlus, true);
  EXPECT_EQ(bien.count(u"120 "), 200);
  EXPECT_EQ(bien.count(u"101 "), 202);
  EXPECT_EQ(codigos(), QStringList{u"5"_s});
}

// A refused deletion moves after all others, and no failure is reported if it then succeeds. If it
// doesn't, the article is named.
TEST_F(Birch, UnBorradoNegadoVaDetrasDeLosDemas) {
  struct Caso {
    int hasta;  // the third deletion and those up to it are refused like the first
    QString otraVez, queda, debe;
    int problemas, reintentos;
  };
  const Caso casos[] = {{0, u"120 7"_s, u"5"_s, u"5"_s, 0, 0},
                        {3, u"120 7,120 7"_s, u"5"_s, u"5"_s, 0, 1},
                        {9, u"120 7,120 7,120 7,120 7"_s, u"5 7"_s, u"5 7x"_s, 1, 3}};
  for (const Caso& c : casos) {
    for (const char16_t* t : {u"PLUSES", u"[Cross]", u"Enviados", u"Retenidos"})
      bien(db->ejecutar(u"DELETE FROM "_s + QString::fromUtf16(t)));
    maquina(4).memoria().catalogo.clear();
    problemas.clear(), reintentos.clear(), avisos.clear();
    alta(5, 5);
    for (const int n : {7, 8}) enBalanza(n);
    std::vector<simulador::Paso> guion{{Averia::Err, 1, 120, 0, 1}};
    for (int n = 3; n <= c.hasta; ++n) guion.push_back({Averia::Err, n, 120, 0, 1});
    estorbos(4, guion);
    EXPECT_EQ(enviar(4, kTxPlus, true),
              u"101 3,100 5,101 7,120 7,101 8,120 8,101 9,"_s + c.otraVez);
    EXPECT_EQ(codigos().join(u' '), c.queda);
    EXPECT_EQ(cruz(4), c.debe);
    EXPECT_EQ(problemas.size(), c.problemas) << qPrintable(problemas.join(u' '));
    EXPECT_EQ(reintentos.size(), c.reintentos) << qPrintable(reintentos.join(u' '));
    EXPECT_EQ(avisos.join(u' ').contains(u"0000007 no está al día"_s), c.problemas > 0);
  }
}

TEST_F(Birch, UnaFichaSola) {
  for (const int c : {5, 7}) alta(c, c);
  enviar(4);
  maquina(4).memoria().catalogo[5].ficha.replace(27, 6, "000099");
  EXPECT_EQ(enviar(4, kRxDatPlu, true, 5, 5), u"101 5"_s);
  EXPECT_EQ(cruz(4), u"7");
  const QString ficha = filas(u"SELECT CODPLU & ':' & FICHA FROM FichasPedidas"_s);
  EXPECT_EQ(ficha, u"5:"_s + QString::fromLatin1(maquina(4).memoria().catalogo[5].ficha.toHex()));
  EXPECT_EQ(enviar(4, kRxDatPlu, true, 6, 6), u"101 6"_s);
  EXPECT_EQ(filas(u"SELECT isnull(FICHA) FROM FichasPedidas WHERE CODPLU=6"_s), u"1");
  EXPECT_EQ(enviar(4), u"100 5"_s);
  esCierto(4);
}

}  // namespace tarvo::prueba
