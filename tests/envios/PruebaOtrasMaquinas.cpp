// Ebony machines and registers: no marks in Cross, no deletion of single articles, a wipe; and
// groups that move to another section.
#include "envios/Envios.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

struct Ebony : Envios {
  void SetUp() override { grupo(2, 2, u"cable 2"_s, {5}); }
};

TEST_F(Ebony, VaTodoElRango) {
  for (const qint64 c : {1, 2, 10, 20, 30}) alta(c, c);
  cambiar(20, u"DEPTO=11"_s);
  EXPECT_EQ(enviar(2, kTxPlus, false, 0, 25, 5), u"32 10");
  EXPECT_EQ(tiene(2, 5), u"10:Tomate/10");
  EXPECT_EQ(retenidos(2), u"20/0");
  EXPECT_TRUE(
      avisos.join(u'\n').contains(u"el artículo 0000020 no se envía, porque el departamento es 11, "
                                  u"y esta máquina llega hasta 10."));
  EXPECT_EQ(enviar(2, kTxPlus, false, 0, 9999999, 5), u"32 10,32 30");
  EXPECT_EQ(probados(2), u"10 30");
  EXPECT_EQ(cruz(2), u"");
}

// It can't be told to delete one, but this is reported.
TEST_F(Ebony, LoBorradoSeQueda) {
  for (const qint64 c : {10, 20}) alta(c, c);
  enviar(2, kTxPlus, true, 0, 9999999, 5);
  borrar(20);
  enviar(2, kTxPlus, false, 0, 9999999, 5);
  const QString dicho = u"artículos que ya no existen y la máquina conserva, 1."_s;
  EXPECT_TRUE(avisos.join(u'\n').contains(dicho));
  enviar(2, kBorrPlu, true, 0, 9999999, 5);
  avisos.clear();
  enviar(2, kTxPlus, true, 0, 9999999, 5);
  EXPECT_FALSE(avisos.join(u'\n').contains(dicho));
  EXPECT_EQ(tiene(2, 5), u"10:Tomate/10");
}

TEST_F(Ebony, UnaNegativaNoParaALosDemas) {
  for (const qint64 c : {10, 20, 30}) alta(c, c);
  estorbos(2, {{Averia::Rechazo, 1, 32}}, 5);
  EXPECT_EQ(enviar(2, kTxPlus, true, 0, 9999999, 5), u"32 10,32 20,32 30,32 10");
  EXPECT_EQ(probados(2), u"10 20 30");
  EXPECT_TRUE(problemas.isEmpty() && reintentos.isEmpty());
}

TEST_F(Ebony, ElBorradoYSuNegativa) {
  for (const qint64 c : {10, 20}) alta(c, c);
  enviar(2, kTxPlus, true, 0, 9999999, 5);
  vender(2, 10, 100, 50, 1, 5);
  // With sales the machine refuses, and keeps its articles.
  enviar(2, kBorrPlu, true, 0, 9999999, 5);
  EXPECT_FALSE(problemas.isEmpty());
  EXPECT_EQ(probados(2), u"10 20");
  EXPECT_EQ(tiene(2, 5), u"10:Tomate/10 20:Tomate/20");
  maquina(2, 5).memoria().ponerACero(reloj.ahora(), 71, 0xFF);
  EXPECT_EQ(enviar(2, kBorrPlu, true, 0, 9999999, 5), u"73 0");
  EXPECT_EQ(tiene(2, 5), u"");
  EXPECT_EQ(probados(2), u"");
  EXPECT_TRUE(avisos.last().contains(u"ha borrado todos sus artículos"));
}

// A retried wipe doesn't empty the machine after the sending that was to follow it; once given up,
// it blocks no task.
TEST_F(Ebony, LoQueVaDetrasDeUnBorradoLoEspera) {
  for (const qint64 c : {10, 20}) alta(c, c);
  enviar(2, kTxPlus, true, 0, 9999999, 5);
  const auto procesar = [&](bool conEspera) {
    nuevas(2, 5);
    if (!conEspera) gestor->VigilaProcesos(0, false, this);
    encolar(2, kBorrPlu);
    encolar(2, kTxPlus);
    if (!conEspera) {
      EXPECT_FALSE(correr(5));
      gestor->VigilaProcesos(3, true, this);
    }
    EXPECT_TRUE(correr());
    return nuevas(2, 5);
  };
  for (const bool conEspera : {true, false}) {
    estorbos(2, {{Averia::Rechazo, 1, 73}}, 5);
    EXPECT_EQ(procesar(conEspera), u"73 0,73 0,32 10,32 20") << conEspera;
    EXPECT_EQ(tiene(2, 5), u"10:Tomate/10 20:Tomate/20");
    EXPECT_EQ(probados(2), u"10 20");
  }
  estorbos(2, {{Averia::Rechazo, 0, 73}}, 5);
  EXPECT_EQ(procesar(true), u"73 0,73 0,73 0,73 0,32 10,32 20");
  EXPECT_EQ(tiene(2, 5), u"10:Tomate/10 20:Tomate/20");
  // Without a watcher, a failed one that stays blocks no task either, and isn't retried by itself.
  gestor->VigilaProcesos(0, false, nullptr);
  delMotor().IntentosManual = 1;
  const int borrado = encolar(2, kBorrPlu);
  const int grupoDetras = encolar(2, kTxPlus);
  correr(60);
  EXPECT_TRUE(tarea(borrado));
  EXPECT_FALSE(tarea(grupoDetras));
  EXPECT_EQ(nuevas(2, 5), u"73 0,73 0,32 10,32 20");
  gestor->EliminarTarea(borrado);
  EXPECT_EQ(tiene(2, 5), u"10:Tomate/10 20:Tomate/20");
}

// Between the order and its answer the machine's contents are unknown, with or without a cut.
TEST_F(Ebony, UnBorradoSinRespuesta) {
  for (const qint64 c : {10, 20}) alta(c, c);
  enviar(2, kTxPlus, true, 0, 9999999, 5);
  encolar(2, kBorrPlu);
  while (!maquina(2, 5).memoria().catalogo.empty()) ASSERT_TRUE(reloj.siguiente());
  arrancar();
  maquina(2, 5).desconectar();
  EXPECT_EQ(filas(u"SELECT BORRANDO FROM EnviosGrupo"_s), u"1");
  enviar(2, kTxPlus, true, 15, 9999999, 5);
  EXPECT_EQ(probados(2), u"10? 20");
}

struct Cajas : Envios {
  void SetUp() override { grupo(3, 3, u"cable 3"_s, {4, 9}); }
};

TEST_F(Cajas, CadaArticuloACadaCaja) {
  for (const qint64 c : {10, 20}) alta(c, c);
  cambiar(20, u"CodBarExt='8412345678905'"_s);
  enviar(3, kTxPlus, false, 0, 9999999, 4);
  for (const int caja : {4, 9}) {
    EXPECT_EQ(maquina(3, caja).memoria().catalogo.size(), 2U);
  }
  EXPECT_EQ(maquina(3, 9).memoria().catalogo.begin()->second.ficha,
            QByteArray("0000000000010Tomate              00000001000000001001"));
  EXPECT_EQ(probados(3), u"10 20");
}

// An article's predefined code equals another's code of prefix and number: one record would replace
// the other, and one article would be sold as the other.
TEST_F(Cajas, DosArticulosConUnCodigoDeBarras) {
  for (const qint64 c : {10, 20, 30}) alta(c, c);
  enviar(3, kTxPlus, true, 0, 9999999, 4);
  EXPECT_EQ(probados(3), u"10 20 30");
  cambiar(10, u"PFX_BAR='2'"_s);
  cambiar(20, u"CodBarExt='0000002000010'"_s);
  enviar(3, kTxPlus, true, 0, 9999999, 4);
  EXPECT_EQ(probados(3), u"10? 20 30");
  EXPECT_EQ(retenidos(3), u"10/0");
  EXPECT_TRUE(avisos.join(u'\n').contains(
      u"el artículo 0000010 no se envía, porque el código de barras («0000002000010») es también "
      u"el del artículo 0000020."));
  cambiar(20, u"CodBarExt=NULL"_s);
  enviar(3, kTxPlus, true, 0, 9999999, 4);
  EXPECT_EQ(probados(3), u"10 20 30");
  EXPECT_EQ(retenidos(3), u"");
}

// Both count from the same number, and every answer of the second looks like the previous one of
// the first: two extra frames separate them, without any wait.
TEST_F(Cajas, CuentasQueVanALaPar) {
  for (int c = 10; c < 60; ++c) alta(c, c);
  encolar(3, kTxPlus);
  while (maquina(3, 9).memoria().catalogo.empty()) ASSERT_TRUE(reloj.siguiente());
  const qint64 antes = reloj.monotono();
  ASSERT_TRUE(correr());
  EXPECT_LT(reloj.monotono() - antes, 5000);
  EXPECT_EQ(oidas(3, 4).filter(u"4003 "_s).size(), 50);
  EXPECT_EQ(oidas(3, 9).filter(u"4003 "_s).size(), 52);
  EXPECT_EQ(maquina(3, 9).memoria().catalogo.size(), 50U);
  EXPECT_EQ(filas(u"SELECT count(*) FROM Enviados WHERE GRUPO=3"_s), u"50");
}

// Articles count as held if all registers have them.
TEST_F(Cajas, UnaCajaQueCalla) {
  for (const qint64 c : {10, 20}) alta(c, c);
  estorbos(3, {{Averia::Sorda}}, 9);
  enviar(3, kTxPlus, false, 0, 9999999, 4);
  EXPECT_FALSE(problemas.isEmpty());
  EXPECT_EQ(probados(3), u"");
  estorbos(3, {}, 9);
  enviar(3, kTxPlus, false, 0, 9999999, 4);
  EXPECT_EQ(probados(3), u"10 20");
  EXPECT_EQ(maquina(3, 9).memoria().catalogo.size(), 2U);
}

// Its refusal doesn't look like an answer: the article counts as refused, and the rest is sent.
TEST_F(Cajas, UnaCajaQueRechaza) {
  for (const qint64 c : {10, 20}) alta(c, c);
  estorbos(3, {{Averia::Err, 1, 4003, 0, 1}}, 9);
  enviar(3, kTxPlus, false, 0, 9999999, 9);
  EXPECT_EQ(probados(3), u"10 20");
  EXPECT_EQ(retenidos(3), u"");
}

TEST_F(Cajas, ElBorrado) {
  alta(10, 10);
  enviar(3, kTxPlus, false, 0, 9999999, 4);
  EXPECT_EQ(enviar(3, kBorrPlu, true, 0, 9999999, 4), u"4098 0,4098 0");
  for (const int caja : {4, 9}) EXPECT_TRUE(maquina(3, caja).memoria().catalogo.empty());
  EXPECT_EQ(probados(3), u"");
}

// An order is sent once, so an answer that may be another's doesn't count; once repeated, it ends.
TEST_F(Cajas, ElBorradoConCuentasALaPar) {
  gestor->VigilaProcesos(0, true, this);
  enviar(3, kBorrPlu, true, 0, 9999999, 4);
  EXPECT_TRUE(problemas.isEmpty() && reintentos.isEmpty());
  EXPECT_EQ(oidas(3, 9).filter(u"4098 "_s).size(), 4);  // two orders were owed, each was repeated
}

TEST_F(Envios, UnGrupoQueCambiaDeSeccion) {
  seccion(2, u"Pan");
  for (const qint64 c : {10, 20}) alta(c, c);
  enviar(1);
  en(2).articulo({.codigo = 10, .nombre = u"Barra", .depto = 1});
  sql(u"UPDATE GRUPOS SET SECCION=2"_s);
  // Deleted in its former section: 10 is another article now and stays, 20 goes.
  sql(u"UPDATE [Cross] SET borra=1 WHERE Grupo=1"_s);
  EXPECT_EQ(enviar(1), u"100 10,120 20");
  EXPECT_EQ(tiene(1), u"10:Barra/0");
  EXPECT_EQ(filas(u"SELECT Secc, plu, borra FROM [Cross]"_s), u"1,10,1;2,10,0");
  // Back again: its articles of the first section are gone, or unknown.
  sql(u"UPDATE GRUPOS SET SECCION=1"_s);
  EXPECT_EQ(enviar(1), u"100 10,100 20");
  EXPECT_EQ(tiene(1), u"10:Tomate/10 20:Tomate/20");
}

// The prices of another tarifa, and the contents of another machine, are unknown; due articles show
// before they are sent.
TEST_F(Envios, UnGrupoConOtraTarifaUOtraMaquina) {
  for (const qint64 c : {10, 20}) alta(c, c);
  enviar(1);
  const auto debe = [&] {
    EXPECT_EQ(enviar(1), u"100 10,100 20");
    EXPECT_EQ(cruz(1), u"10 20");
    EXPECT_TRUE(enviar(1).isEmpty());
  };
  for (const QString& cambio : {u"tarifa=3"_s, u"ADDR=7"_s, u"Baudios=19200"_s}) {
    SCOPED_TRACE(cambio.toStdString());
    bien(db->ejecutar(u"UPDATE GRUPOS SET "_s + cambio + u" WHERE CODGPO=1"_s));
    if (cambio.startsWith(u"Baudios"_s))
      EXPECT_TRUE(enviar(1).isEmpty());
    else
      debe();
  }
  EXPECT_EQ(maquina(1).memoria().catalogo.at(10).precio, 0);  // of tarifa 3
  sql(u"UPDATE BZAS SET ADDR=9 WHERE SUGPO=1"_s);
  debe();
  // An older database recorded neither: the group counts as unchanged.
  sql(u"UPDATE EnviosGrupo SET TARIFA=NULL, MAQUINA=NULL"_s);
  EXPECT_TRUE(enviar(1).isEmpty());
}

// Another machine takes the prices of articles that it holds in another form: it must still get the
// articles.
TEST_F(Envios, SoloPreciosAOtraMaquina) {
  for (const qint64 c : {10, 20}) alta(c, c);
  enviar(1);
  sql(u"UPDATE GRUPOS SET ADDR=7 WHERE CODGPO=1"_s);
  for (auto& [codigo, suyo] : maquina(1).memoria().catalogo) suyo.ficha.replace(0, 6, "Cebolla");
  EXPECT_EQ(enviar(1, kTPreci, true), u"101 10,101 20");
  EXPECT_EQ(cruz(1), u"");
  EXPECT_EQ(enviar(1), u"100 10,100 20");
  EXPECT_EQ(cruz(1), u"10 20");
  esCierto(1);
}

TEST_F(Envios, UnaTarifaQueNoExiste) {
  alta(10, 10);
  sql(u"UPDATE GRUPOS SET tarifa=8"_s);
  EXPECT_EQ(enviar(1), u"");
  EXPECT_TRUE(avisos.last().contains(u"usa la tarifa 8"));
}

}  // namespace tarvo::prueba
