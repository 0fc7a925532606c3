// Obstacles to a sending: machines that refuse, are full, go silent or come back, an edit while an
// answer is on its way, a power cut.
#include "envios/Envios.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

// Refused articles go last, after the deletions, which may make room for them.
TEST_F(Envios, UnaNegativaNoParaALosDemas) {
  for (const qint64 c : {10, 20, 30, 40}) alta(c, c);
  enviar(1);
  borrar(40);
  for (const qint64 c : {10, 20, 30}) cambiar(c, u"PRECIO_00=99"_s);
  estorbos(1, {{Averia::Err, 1, 100, 0, 4}});  // the memory is full
  EXPECT_EQ(enviar(1), u"100 10,100 20,100 30,120 40,100 10"_s);
  EXPECT_TRUE(reintentos.isEmpty() && problemas.isEmpty());
  EXPECT_EQ(retenidos(1), u"");
  EXPECT_EQ(cruz(1), u"10 20 30");
  esCierto(1);

  for (const qint64 c : {10, 20, 30}) cambiar(c, u"PRECIO_00=77"_s);
  estorbos(1, {{Averia::Err, 1, 100, 0, 4}, {Averia::Err, 2, 100, 0, 1}});
  EXPECT_EQ(enviar(1), u"100 10,100 20,100 30,100 10,100 20");
  esCierto(1);
}

TEST_F(Envios, UnArticuloQueLaMaquinaNuncaQuiere) {
  for (const qint64 c : {10, 20, 30}) alta(c, c);
  std::vector<simulador::Paso> siempre{{Averia::Err, 2, 100, 0, 1}};
  for (int n = 4; n < 20; ++n) siempre.push_back({Averia::Err, n, 100, 0, 1});
  estorbos(1, siempre);
  EXPECT_TRUE(enviar(1).startsWith(u"100 10,100 20,100 30,100 20,"));
  EXPECT_EQ(cruz(1), u"10 30");
  EXPECT_EQ(retenidos(1), u"20/101");
  EXPECT_EQ(problemas.size(), 1);
  EXPECT_TRUE(problemas.first().startsWith(u"1 G1 E101"));
  EXPECT_TRUE(
      avisos.join(u'\n').contains(u"el artículo 0000020 no está al día en la máquina, que lo "
                                  u"ha rechazado: La trama recibida contiene datos erróneos."));
  // Next time it goes after the others.
  estorbos(1, {});
  alta(40, 40);
  EXPECT_EQ(enviar(1), u"100 40,100 20"_s);
  EXPECT_EQ(retenidos(1), u"");
}

// A machine that refuses everything isn't asked a hundred thousand times.
TEST_F(Envios, UnaMaquinaQueLoNiegaTodo) {
  for (int c = 10; c < 210; ++c) alta(c, c);
  estorbos(1, {{Averia::Err, 0, 100, 0, 1}});
  EXPECT_LT(enviar(1).count(u','), 40);
  EXPECT_EQ(cruz(1), u"");
  estorbos(1, {});
  estorbos(1, {{Averia::Err, 0, 100, 0, 3}});  // its network is down
  EXPECT_LT(enviar(1).count(u','), 10);
}

// A full machine: enough consecutive refusals to blame the group, and its deletions come after
// them.
TEST_F(Envios, UnaMaquinaLlenaHaceSitioPrimero) {
  for (const int tipo : {1, 4}) {
    SCOPED_TRACE(tipo);
    const int g = tipo;
    if (tipo == 4) grupo(4, 4, u"cable 2"_s);
    for (const bool completo : {false, true}) {
      for (int c = 100; c < 103; ++c) alta(c, c);
      enviar(g);
      for (int c = 100; c < 103; ++c) borrar(c);
      for (int c = 10; c < 35; ++c) alta(c, c);
      std::vector<simulador::Paso> llena;
      for (int n = 1; n <= 20; ++n) llena.push_back({Averia::Err, n, 100, 0, 4});
      estorbos(g, llena);
      const QString oyo = enviar(g, kTxPlus, completo);
      EXPECT_LT(oyo.indexOf(u"120 100"_s), oyo.indexOf(u"100 30"_s)) << oyo.toStdString();
      EXPECT_EQ(oyo.count(u"120 "_s), 3) << oyo.toStdString();
      EXPECT_EQ(maquina(g).memoria().catalogo.size(), 25U);
      EXPECT_EQ(cruz(g).split(u' ').size(), 25);
      EXPECT_EQ(retenidos(g), u"");
      EXPECT_TRUE(problemas.isEmpty() && reintentos.isEmpty());
      esCierto(g);
      // If that makes no room, the refusals count as the group's fault, as usual.
      for (int c = 10; c < 35; ++c) cambiar(c, u"PRECIO_00=7"_s);
      borrar(34);
      estorbos(g, {{Averia::Err, 0, 100, 0, 4}});
      EXPECT_LT(enviar(g, kTxPlus, completo).count(u"100 "_s), 50);
      EXPECT_FALSE(maquina(g).memoria().catalogo.contains(34));
      problemas.clear(), reintentos.clear();
      estorbos(g, {});
      for (int c = 10; c < 34; ++c) borrar(c);
      enviar(g);
    }
  }
}

TEST_F(Envios, UnSilencioSePreguntaAntesDeRepetir) {
  for (const qint64 c : {10, 20, 30}) alta(c, c);
  estorbos(1, {{Averia::RespuestaPerdida, 2, 100}});
  EXPECT_EQ(enviar(1), u"100 10,100 20,101 20,100 30"_s);
  EXPECT_EQ(cruz(1), u"10 20 30");
  for (const qint64 c : {10, 20, 30}) cambiar(c, u"PRECIO_00=5"_s);
  // Its answer comes after the next question and must not count for it.
  estorbos(1, {});
  estorbos(1, {{Averia::RespuestaTardia, 1, 100}});
  enviar(1);
  EXPECT_EQ(cruz(1), u"10 20 30");
  esCierto(1);
  borrar(20);
  estorbos(1, {});
  estorbos(1, {{Averia::RespuestaPerdida, 1, 120}});
  EXPECT_EQ(enviar(1), u"120 20,101 20"_s);
  EXPECT_EQ(cruz(1), u"10 30");
}

// "No such article", or a number that refuses nothing, in answer to an article is no refusal: the
// rest is sent, nothing is repeated and nothing fails. The scales' next answer decides what they
// hold.
TEST_F(Envios, UnaFichaALaQueContestanConUnNumero) {
  grupo(4, 4, u"cable 2"_s);
  struct Caso {
    bool completo;
    int numero;
    QString dicho;
  };
  const Caso casos[] = {{false, 5, u"que dice que no lo tiene"_s},
                        {true, 5, u"que dice que no lo tiene"_s},
                        {false, 99, u"que lo ha rechazado: error 199"_s},
                        {true, 6, u"que lo ha rechazado: error 106"_s},
                        {false, 0, u"que lo ha rechazado: error 100"_s}};
  for (const auto& [completo, numero, frase] : casos) {
    SCOPED_TRACE(numero);
    const int g = completo ? 4 : 1;  // kind 4: compared with their own list
    avisos.clear();
    for (const qint64 c : {10, 20, 30}) alta(c, c);
    for (const char16_t* t : {u"[Cross]", u"Enviados", u"Retenidos"})
      bien(db->ejecutar(u"DELETE FROM "_s + QString::fromUtf16(t)));
    maquina(g).memoria().catalogo.clear();
    estorbos(g, {{Averia::Err, 1, 100, 0, numero}, {Averia::Err, 2, 100, 0, numero}});
    const QString oido = enviar(g, kTxPlus, completo);
    EXPECT_TRUE(oido.contains(u"100 10,101 10") && oido.contains(u"100 20,101 20"))
        << oido.toStdString();
    EXPECT_EQ(oido.count(u"100 "), 3);
    EXPECT_TRUE(problemas.isEmpty() && reintentos.isEmpty());
    EXPECT_EQ(tiene(g), u"30:Tomate/30");
    EXPECT_EQ(cruz(g), u"30");
    EXPECT_EQ(probados(g), u"30");
    EXPECT_EQ(retenidos(g), u"10/%1 20/%1"_s.arg(100 + numero));
    EXPECT_TRUE(avisos.join(u'\n').contains(
        u"el artículo 0000010 no está al día en la máquina, "_s + frase))
        << avisos.join(u'\n').toStdString();
    // The next sending brings them; for one that they hold as sent, such an answer counts.
    estorbos(g, {});
    enviar(g);
    EXPECT_EQ(cruz(g), u"10 20 30");
    EXPECT_EQ(retenidos(g), u"");
    cambiar(20, u"PRECIO_00=99"_s);
    estorbos(g, {{Averia::Err, 0, 100, 0, numero}});
    enviar(g, kTxPlus, true);
    EXPECT_EQ(cruz(g), u"10 30");
    EXPECT_EQ(retenidos(g), u"20/%1"_s.arg(100 + numero));
    EXPECT_TRUE(avisos.join(u'\n').contains(
        u"0000020 no está al día en la máquina, que lo ha rechazado: error %1"_s.arg(100 +
                                                                                     numero)));
    esCierto(g);
    for (const qint64 c : {10, 20, 30}) borrar(c);
  }
}

// The same answer to prices, a deletion, a question. Only "no such article" shows what they hold.
TEST_F(Envios, UnNumeroQueNoNiegaNada) {
  alta(10, 10);
  alta(20, 20);
  enviar(1);
  cambiar(10, u"PRECIO_00=11"_s);
  estorbos(1, {{Averia::Err, 1, 101, 0, 99}});
  EXPECT_EQ(enviar(1, kTPreci), u"101 10,101 10"_s);
  EXPECT_EQ(retenidos(1), u"10/199");
  EXPECT_TRUE(problemas.isEmpty() && reintentos.isEmpty());
  estorbos(1, {{Averia::Err, 2, 101, 0, 99}});
  EXPECT_EQ(enviar(1, kRxDatPlu), u"101 1,101 11,101 11,101 21"_s);
  EXPECT_EQ(reintentos.size(), 1);
  EXPECT_EQ(cruz(1), u"20");
  borrar(20);
  estorbos(1, {{Averia::Err, 1, 120, 0, 99}});
  EXPECT_EQ(enviar(1), u"100 10,120 20"_s);
  EXPECT_EQ(cruz(1), u"10");
}

// An article that the machine never answers, or answers unintelligibly, doesn't hold back the
// others: it goes after them and is named.
TEST_F(Envios, UnArticuloAlQueLaMaquinaNoContesta) {
  grupo(2, 2, u"cable 2"_s);
  grupo(4, 4, u"cable 4"_s);
  struct Caso {
    Averia averia;
    int grupo, copias, valor, error;
  };
  const Caso casos[] = {
      {Averia::Nak, 1, 4, -1, 16}, {Averia::Nak, 4, 4, -1, 16}, {Averia::Nak, 2, 4, -1, 8}};
  for (const Caso& c : casos)
    for (const bool completo : {true, false}) {
      SCOPED_TRACE(
          u"%1 %2 %3"_s.arg(nombreAveria(c.averia)).arg(c.grupo).arg(completo).toStdString());
      for (const char16_t* t : {u"PLUSES", u"[Cross]", u"Enviados", u"Retenidos"})
        bien(db->ejecutar(u"DELETE FROM "_s + QString::fromUtf16(t)));
      maquina(c.grupo).memoria().catalogo.clear();
      for (const qint64 n : {10, 20, 30, 40}) alta(n, n);
      const int codigo = c.grupo == 2 ? 32 : 100;
      std::vector<simulador::Paso> guion;
      for (int n = 2; n < 2 + c.copias; ++n) guion.push_back({c.averia, n, codigo, 0, c.valor});
      auto siempre = guion;
      for (int n = 4 + c.copias; n < 60; ++n) siempre.push_back({c.averia, n, codigo, 0, c.valor});
      // Never answered: the others are held, it is named. Also without a single retry.
      gestor->VigilaProcesos(0, true, this);
      estorbos(c.grupo, siempre);
      enviar(c.grupo, kTxPlus, completo);
      EXPECT_EQ(tiene(c.grupo), u"10:Tomate/10 30:Tomate/30 40:Tomate/40");
      EXPECT_EQ(problemas.size(), 1);
      EXPECT_EQ(retenidos(c.grupo), u"20/%1"_s.arg(c.error));
      EXPECT_TRUE(avisos.join(u'\n').contains(u"el artículo 0000020 no está al día"));
      problemas.clear();
      // Unanswered once: it goes after the others.
      for (const qint64 n : {10, 20, 30, 40}) cambiar(n, u"PRECIO_00=5"_s);
      sql(u"DELETE FROM Retenidos"_s);
      estorbos(c.grupo, guion);
      enviar(c.grupo, kTxPlus, completo);
      EXPECT_TRUE(problemas.isEmpty());
      EXPECT_EQ(probados(c.grupo), u"10 20 30 40");
      EXPECT_EQ(retenidos(c.grupo), u"");
      esProbado(c.grupo);
    }
}

// A refused deletion doesn't hold back the others.
TEST_F(Envios, UnBorradoQueLaMaquinaNoQuiere) {
  for (const qint64 c : {10, 20, 30, 40}) alta(c, c);
  enviar(1);
  for (const qint64 c : {10, 20, 30}) borrar(c);
  gestor->VigilaProcesos(0, true, this);
  for (const auto& [averia, copias] : {std::pair(Averia::Err, 1), std::pair(Averia::Nak, 4)}) {
    std::vector<simulador::Paso> guion;
    for (int n = 1; n <= copias; ++n) guion.push_back({averia, n, 120, 0, 1});
    for (int n = copias + 3; n < 40; ++n) guion.push_back({averia, n, 120, 0, 1});
    estorbos(1, guion);
    enviar(1);
    EXPECT_EQ(tiene(1), u"10:Tomate/10 40:Tomate/40");
    EXPECT_EQ(cruz(1), u"10x 40");
    EXPECT_EQ(problemas.size(), 1);
    problemas.clear();
    estorbos(1, {});
    enviar(1);
    EXPECT_EQ(tiene(1), u"40:Tomate/40");
    for (const qint64 c : {10, 20, 30}) alta(c, c);
    enviar(1);
    for (const qint64 c : {10, 20, 30}) borrar(c);
  }
}

TEST_F(Envios, OscuraEnMedio) {
  alta(50, 5);
  enviar(1);
  borrar(50);
  for (int c = 10; c < 40; ++c) alta(c, c);
  estorbos(1, {{Averia::Oscura, 12, 100, 0, 24 * 3600 * 1000}});
  enviar(1);
  EXPECT_FALSE(problemas.isEmpty());
  EXPECT_TRUE(
      avisos.join(u'\n').contains(u"sin acabar; quedan artículos por enviar 19, por "
                                  u"borrar 1."))
      << avisos.join(u'\n').toStdString();
  // Confirmed articles count, and those taken without a confirmation are due.
  EXPECT_EQ(maquina(1).memoria().catalogo.size(), 12U);
  EXPECT_EQ(cruz(1).split(u' ').size(), 12);
  esCierto(1);
  reloj.avanzar(qint64{25} * 3600 * 1000);
  enviar(1);
  EXPECT_EQ(maquina(1).memoria().catalogo.size(), 30U);
  EXPECT_EQ(cruz(1).split(u' ').size(), 30);
  esCierto(1);
  // Nothing gets through.
  estorbos(1, {{Averia::Sorda, 0, -1}});
  cambiar(10, u"PRECIO_00=5"_s);
  avisos.clear();
  enviar(1);
  EXPECT_TRUE(avisos.join(u'\n').contains(u"por enviar 1, por borrar 0."));
  EXPECT_FALSE(avisos.join(u'\n').contains(u"no había cambios"));
}

// An answer to an article's former state doesn't make its present state held.
TEST_F(Envios, UnCambioMientrasLlegaLaRespuesta) {
  for (const qint64 c : {10, 20, 30}) alta(c, c);
  encolar(1, kTxPlus, false);
  // Between the frames: the article just sent is changed, and another one removed.
  bool hecho = false;
  for (int i = 0; i < 4000 && gestor->CuantosQuedan().total > 0; ++i) {
    reloj.siguiente();
    if (!hecho && maquina(1).memoria().catalogo.contains(20)) {
      cambiar(20, u"NOMPLU='Pera'"_s);
      cambiarCallando(10, u"PRECIO_00=1"_s);
      borrar(30);
      hecho = true;
    }
  }
  ASSERT_TRUE(hecho && correr());
  EXPECT_FALSE(cruz(1).split(u' ').contains(u"20"_s));
  esCierto(1);
  enviar(1);
  EXPECT_EQ(tiene(1), u"10:Tomate/1 20:Pera/20");
  EXPECT_EQ(cruz(1), u"10 20");
  esCierto(1);
}

// An article changed before its turn is sent in its present form.
TEST_F(Envios, UnCambioAntesDeSuTurno) {
  for (const int clase : {kTxPlus, kTPreci}) {
    for (const qint64 c : {10, 20, 30}) alta(c, c);
    if (clase == kTPreci) enviar(1);
    for (const qint64 c : {10, 20, 30}) cambiar(c, u"PRECIO_00=5"_s);
    nuevas(1);
    encolar(1, clase, false);
    while (oidas(1).filter(u"0000010"_s).size() < (clase == kTPreci ? 2 : 1))
      ASSERT_TRUE(reloj.siguiente());
    cambiar(30, u"PRECIO_00=99"_s);
    ASSERT_TRUE(correr());
    const QString codigo = clase == kTPreci ? u"101"_s : u"100"_s;
    EXPECT_EQ(nuevas(1), u"%1 10,%1 20,%1 30"_s.arg(codigo));
    EXPECT_EQ(tiene(1), u"10:Tomate/5 20:Tomate/5 30:Tomate/99");
    EXPECT_EQ(cruz(1), u"10 20 30");
    esCierto(1);
    for (const qint64 c : {10, 20, 30}) borrar(c);
    enviar(1);
  }
}

// Whatever the moment of the cut, articles that count as held are held, and the next sending brings
// the rest.
TEST_F(Envios, UnCorteEnCualquierMomento) {
  for (int corte = 1; corte < 60; corte += 3) {
    for (const char16_t* t : {u"PLUSES", u"[Cross]", u"Enviados", u"OFERTAS"})
      bien(db->ejecutar(u"DELETE FROM "_s + QString::fromUtf16(t)));
    maquina(1).memoria().catalogo.clear();
    for (int c = 10; c < 20; ++c) alta(c, c);
    enviar(1);
    for (int c = 12; c < 16; ++c) cambiar(c, u"PRECIO_00=500"_s);
    oferta(1, 17, 3, 0, 5);
    borrar(18);
    encolar(1, kTxPlus, corte % 2 == 0);
    for (int i = 0; i < corte; ++i) reloj.siguiente();
    arrancar();
    maquina(1).desconectar();
    // The offer sent without confirmation is gone after the cut, since it never counted as sent.
    sql(u"DELETE FROM OFERTAS WHERE enviado=0"_s);
    sql(u"UPDATE OFERTAS SET borrado=1"_s);
    enviar(1);
    enviar(1);
    EXPECT_EQ(cruz(1).count(u'x'), 0) << corte;
    EXPECT_EQ(maquina(1).memoria().catalogo[17].precio, 17) << corte;
    EXPECT_FALSE(maquina(1).memoria().catalogo.contains(18)) << corte;
    esCierto(1);
    if (HasFailure()) return;
  }
}

// A machine comes back with its memory from before a deletion: the complete sending of the range
// deletes again, an optimised one doesn't.
TEST_F(Envios, VuelveConUnaMemoriaMasVieja) {
  for (const qint64 c : {10, 20, 30}) alta(c, c);
  enviar(1);
  const auto vieja = maquina(1).memoria().catalogo;
  borrar(20);
  borrar(30);
  EXPECT_EQ(enviar(1), u"120 20,120 30");
  maquina(1).memoria().catalogo = vieja;
  EXPECT_EQ(enviar(1), u"");
  EXPECT_EQ(enviar(1, kTxPlus, true, 5, 25), u"100 10,120 20");
  alta(30, 33);  // the code is used again
  EXPECT_EQ(enviar(1), u"100 30");
  EXPECT_EQ(tiene(1), u"10:Tomate/10 30:Tomate/33");
  EXPECT_EQ(filas(u"SELECT CODPLU FROM BorradosGrupo"_s), u"20");
  EXPECT_EQ(enviar(1, kTxPlus, true), u"100 10,100 30,120 20");
}

TEST_F(Envios, SoloPrecios) {
  for (const qint64 c : {10, 20, 30}) alta(c, c);
  enviar(1);
  cambiar(10, u"PRECIO_00=11, PRECIO_10=12, PRECIO_20=13"_s);
  cambiar(20, u"PRECIO_00=21, NOMPLU='Pera'"_s);
  EXPECT_EQ(enviar(1, kTPreci), u"101 10,101 20"_s);
  EXPECT_EQ(tiene(1), u"10:Tomate/11 20:Tomate/21 30:Tomate/30");
  EXPECT_EQ(cruz(1), u"10 30");  // there is more to send for 20
  EXPECT_TRUE(avisos.last().contains(u"precios enviados 2"));
  esCierto(1);
  EXPECT_EQ(enviar(1), u"100 20"_s);
  // An article missing from the machine gets no price, and is due.
  maquina(1).memoria().catalogo.erase(30);
  cambiar(30, u"PRECIO_00=31"_s);
  enviar(1, kTPreci);
  EXPECT_EQ(retenidos(1), u"30/105");
  EXPECT_EQ(cruz(1), u"10 20");
  EXPECT_EQ(enviar(1), u"100 30"_s);
  EXPECT_EQ(retenidos(1), u"");
  // Held before, without proof: still held after its prices are sent once more.
  sql(u"DELETE FROM Enviados"_s);
  EXPECT_EQ(enviar(1, kTPreci, true), u"101 10,101 20,101 30");
  EXPECT_EQ(cruz(1), u"10 20 30");
  esCierto(1);
}

}  // namespace tarvo::prueba
