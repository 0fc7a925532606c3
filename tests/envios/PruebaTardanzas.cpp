// Late answers: a machine's answer to one article must never count for another.
#include "envios/Envios.h"

namespace tarvo::prueba {

namespace {

int codigoDe(int tipo) {
  return tipo == 2 ? 32 : tipo == 3 ? 4003 : 100;
}

}  // namespace

struct Tardanzas : Envios {
  void SetUp() override {
    for (int n = 1; n <= 4; ++n) grupo(n, n, u"cable %1"_s.arg(n));
  }
  // From its n-th question with that code on, the machine refuses all.
  static std::vector<simulador::Paso> seNiega(simulador::Paso paso, int desde, int codigo) {
    std::vector<simulador::Paso> guion{paso};
    for (int n = desde; n < desde + 40; ++n)
      guion.push_back({codigo == 32 ? Averia::Rechazo : Averia::Err, n, codigo, 0, 1});
    return guion;
  }
};

// The machine answers the first article, including its copies, and refuses all later ones. Only the
// first counts as held.
TEST_F(Tardanzas, LaRespuestaDeUnoNoValeParaElSiguiente) {
  struct Caso {
    Averia averia;
    int valor;
    int copias;  // how often the first article is received
  };
  const Caso casos[] = {
      {Averia::AckLento, 2500, 2}, {Averia::AckLento, 5000, 3}, {Averia::RespuestaLenta, 12000, 1}};
  for (const Caso& c : casos)
    for (int g = 1; g <= 4; ++g) {
      for (const bool completo : {true, false}) {
        SCOPED_TRACE(u"%1 %2, %3"_s.arg(nombreAveria(c.averia)).arg(c.valor).arg(g).toStdString());
        for (const char16_t* t : {u"PLUSES", u"[Cross]", u"Enviados", u"Retenidos"})
          bien(db->ejecutar(u"DELETE FROM "_s + QString::fromUtf16(t)));
        maquina(g).memoria().catalogo.clear();
        for (const qint64 n : {10, 20, 30}) alta(n, n);
        const int codigo = codigoDe(g);
        estorbos(g, seNiega({c.averia, 1, codigo, 0, c.valor}, c.copias + 1, codigo));
        enviar(g, kTxPlus, completo);
        esProbado(g);
        if (g == 1 || g == 4) esCierto(g);
        EXPECT_FALSE(problemas.isEmpty());
        EXPECT_EQ(maquina(g).memoria().catalogo.size(), 1U);
        EXPECT_TRUE(retenidos(g).contains(u"20/") && retenidos(g).contains(u"30/"));
        problemas.clear();
        estorbos(g, {});
        enviar(g, kTxPlus, completo);
        EXPECT_EQ(probados(g), u"10 20 30");
        esProbado(g);
      }
    }
}

TEST_F(Tardanzas, LosBorrados) {
  for (const Averia averia : {Averia::AckLento, Averia::RespuestaLenta}) {
    for (const qint64 n : {10, 20, 30}) alta(n, n);
    enviar(1);
    for (const qint64 n : {20, 30}) borrar(n);
    const bool lento = averia == Averia::AckLento;
    estorbos(1, seNiega({averia, 1, 120, 0, lento ? 2500 : 12000}, lento ? 3 : 2, 120));
    enviar(1);
    EXPECT_EQ(tiene(1), u"10:Tomate/10 30:Tomate/30");
    EXPECT_EQ(cruz(1), u"10 30x");
    estorbos(1, {});
    EXPECT_EQ(enviar(1), u"120 30");
    borrar(10);
    enviar(1);
  }
}

TEST_F(Tardanzas, LosPrecios) {
  for (const Averia averia : {Averia::AckLento, Averia::RespuestaLenta}) {
    for (const qint64 n : {10, 20, 30}) alta(n, n);
    enviar(1);
    for (const qint64 n : {10, 20}) cambiar(n, u"PRECIO_00=77, PRECIO_10=77, PRECIO_20=77"_s);
    const bool lento = averia == Averia::AckLento;
    estorbos(1, seNiega({averia, 1, 101, 0, lento ? 2500 : 12000}, lento ? 3 : 3, 101));
    enviar(1, kTPreci);
    esCierto(1);
    estorbos(1, {});
    enviar(1, kTPreci);
    EXPECT_EQ(tiene(1), u"10:Tomate/77 20:Tomate/77 30:Tomate/30");
    EXPECT_EQ(cruz(1), u"10 20 30");
    for (const qint64 n : {10, 20, 30}) borrar(n);
    enviar(1);
  }
}

// The last article of one task is answered twice; the first of the next is refused.
TEST_F(Tardanzas, DeUnaTareaALaSiguiente) {
  for (const int g : {1, 2, 3}) {
    for (const qint64 n : {10, 20}) alta(n, n);
    estorbos(g, seNiega({Averia::AckLento, 1, codigoDe(g), 0, 2500}, 3, codigoDe(g)));
    encolar(g, kTxPlus, true, 0, 15);
    enviar(g, kTxPlus, true, 16, 99);
    esProbado(g);
    EXPECT_EQ(maquina(g).memoria().catalogo.size(), 1U);
    EXPECT_EQ(retenidos(g).section(u'/', 0, 0), u"20");
    for (const qint64 n : {10, 20}) borrar(n);
  }
}

// After a copy the scales are asked about the next article, without any wait.
TEST_F(Tardanzas, UnaCopiaCuestaUnaPregunta) {
  for (const qint64 n : {10, 20, 30}) alta(n, n);
  estorbos(1, {{Averia::AckLento, 1, 100, 0, 2500}});
  encolar(1, kTxPlus);
  const qint64 antes = reloj.monotono();
  while (gestor->CuantosQuedan().total > 0) ASSERT_TRUE(reloj.siguiente());
  EXPECT_LT(reloj.monotono() - antes, tiempos().TimeOut);
  EXPECT_EQ(nuevas(1), u"100 10,100 10,101 20,100 20,100 30");
  EXPECT_TRUE(reintentos.isEmpty() && problemas.isEmpty());
  EXPECT_EQ(cruz(1), u"10 20 30");
}

}  // namespace tarvo::prueba
