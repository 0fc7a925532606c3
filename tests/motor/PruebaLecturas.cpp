// Every kind of reading from every kind of group: the questions asked and the rows in the inbox.
#include "comm/tareas/AjustesListas.h"
#include "motor/TiendaDeMotor.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

namespace {

QStringList preguntas(int codigo, int desde, int hasta) {
  QStringList s;
  for (int n = desde; n <= hasta; ++n)
    s << QStringLiteral("%1 %2").arg(codigo).arg(n, 2, 10, QLatin1Char('0'));
  return s;
}

}  // namespace

struct Lecturas : TiendaDeMotor {
  void leer(int g, int clase, bool todo = true, qint64 desde = 0, qint64 hasta = 9999999) {
    encolar(g, clase, todo, desde, hasta);
    ASSERT_TRUE(correr());
    EXPECT_TRUE(problemas.isEmpty())
        << problemas.join(u';').toStdString() << avisos.join(u';').toStdString();
  }
};

TEST_F(Lecturas, DeBalanzas) {
  for (const int tipo : {1, 4}) {
    const int g = tipo;
    grupo(g, tipo, QStringLiteral("cable %1").arg(tipo));
    if (tipo == 1)
      for (const int a : {10, 20, 30}) articulo(a);
    vender(g, 10, 500, 250, 1);
    vender(g, 10, -100, -50, 3);
    vender(g, 30, 700, 0, 7);
    leer(g, 16);
    EXPECT_EQ(bandeja(g, 16), u"10:2/200/400/0 20:0/0/0/0 30:1/0/700/0");
    EXPECT_EQ(oidas(g), (QStringList{QStringLiteral("830 0000010"), QStringLiteral("830 0000020"),
                                     QStringLiteral("830 0000030")}));
    leer(g, 16, false);
    EXPECT_EQ(bandeja(g, 16), u"10:2/200/400/0 30:1/0/700/0");
    EXPECT_EQ(oidas(g).mid(3),
              (QStringList{QStringLiteral("835 00000100300"), QStringLiteral("835 00000200300")}));
    bien(sesion->ponerEstado(0));
    leer(g, 16, false, 15, 25);
    EXPECT_EQ(bandeja(g, 16), u"30:1/0/700/0");
    leer(g, 17);
    EXPECT_EQ(bandeja(g, 17), QStringLiteral("%1:3/200/1100/0").arg(g));
    EXPECT_EQ(oidas(g).back(), tipo == 1 ? u"850" : u"860");
    const int n18 = static_cast<int>(oidas(g).size());
    leer(g, 18);
    EXPECT_TRUE(bandeja(g, 18).startsWith(u"1:1/0/500/0 2:0/0/0/0 3:1/0/-100/0"));
    EXPECT_EQ(oidas(g).mid(n18), preguntas(800, 1, 20));
    const int n19 = static_cast<int>(oidas(g).size());
    leer(g, 19);
    EXPECT_TRUE(bandeja(g, 19).startsWith(u"1:1/0/700/0 2:2/200/400/0"));
    EXPECT_EQ(oidas(g).mid(n19), preguntas(810, 1, tipo == 1 ? 10 : 20));
    const int n20 = static_cast<int>(oidas(g).size());
    leer(g, 20);
    EXPECT_EQ(oidas(g).mid(n20), preguntas(840, 0, 23));
    EXPECT_TRUE(bandeja(g, 20).contains(u"21:3/200/1100/0"));
    const int n21 = static_cast<int>(oidas(g).size());
    leer(g, 21);
    EXPECT_EQ(bandeja(g, 21), u"1.21:1/250/500/0 3.21:1/-50/-100/0 7.21:1/0/700/0");
    EXPECT_EQ(oidas(g).mid(n21),
              (QStringList{QStringLiteral("820 0100"), QStringLiteral("820 0122"),
                           QStringLiteral("820 0322"), QStringLiteral("820 0722")}));
  }
}

TEST_F(Lecturas, LosOperadoresConElMismoCodigoSeSuman) {
  grupo(1, 1, QStringLiteral("cable 1"));
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  sql(u"UPDATE GRUPOS SET OP01_C=9, OP02_C=9, OP03_C=NULL, OP04_C=0"_s);
  for (const int g : {1, 2}) {
    for (const int op : {1, 2, 3, 4}) vender(g, 10, 100 * op, 50, op, g == 2 ? 5 : 1);
    leer(g, 18);
    leer(g, 21);
    EXPECT_TRUE(
        QString(u' ' + bandeja(g, 18)).contains(g == 1 ? u" 9:2/0/300/0" : u" 9:2/100/300/0"));
    EXPECT_TRUE(bandeja(g, 18).startsWith(g == 1 ? u"0:2/0/700/0" : u"0:2/100/700/0"));
    EXPECT_EQ(bandeja(g, 21), u"0.21:2/100/700/0 9.21:2/100/300/0");
  }
}

TEST_F(Lecturas, DeMaquinasNodal) {
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  vender(2, 10, 500, 250, 1, 5);
  vender(2, 10, -100, -50, 3, 5);
  vender(2, 31, 700, 0, 7, 5);
  leer(2, 16);
  EXPECT_EQ(bandeja(2, 16), u"10:2/200/400/0 31:1/0/700/0");
  leer(2, 17);
  EXPECT_EQ(bandeja(2, 17), u"2:3/200/1100/0");
  leer(2, 18);
  EXPECT_EQ(bandeja(2, 18), u"1:1/250/500/0 3:1/-50/-100/0 7:1/0/700/0");
  leer(2, 19);
  EXPECT_EQ(bandeja(2, 19), u"2:3/200/1100/0");
  leer(2, 21);
  EXPECT_EQ(bandeja(2, 21), u"1.21:1/250/500/0 3.21:1/-50/-100/0 7.21:1/0/700/0");
  EXPECT_EQ(oidas(2, 5).filter(QRegularExpression(QStringLiteral("^(6[4-7]|75)"))),
            (QStringList{QStringLiteral("67 9900009999"), QStringLiteral("64"),
                         QStringLiteral("65"), QStringLiteral("66"), QStringLiteral("75")}));
}

// Its only frame has another request's code: the list is not one without sales.
TEST_F(Lecturas, UnaListaNodalConElCodigoDeOtraPregunta) {
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  vender(2, 10, 500, 250, 1, 5);
  for (const auto& [codigo, clase] : {std::pair{64, 17}, {65, 18}, {66, 19}}) {
    fallo(2, {simulador::Averia::OtroCodigo, 1, codigo}, 5);
    encolar(2, clase);
    ASSERT_TRUE(correr());
    EXPECT_NE(bandeja(2, clase), u"") << clase;
  }
}

TEST_F(Lecturas, UnGranTotalSinRegistroSePideDeNuevo) {
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  vender(2, 10, 500, 250, 1, 5);
  fallo(2, {simulador::Averia::RespuestaPerdida, 1, 64}, 5);  // only the end of the list comes
  encolar(2, 17);
  ASSERT_TRUE(correr());
  EXPECT_EQ(bandeja(2, 17), u"2:1/250/500/0");
}

TEST_F(Lecturas, DeCajas) {
  grupo(3, 3, QStringLiteral("cable 3"), {4, 6});
  articulo(10, QStringLiteral("8412345678905"));
  articulo(20);
  articulo(2, QStringLiteral("0000000000002"));
  for (const int a : {4, 6}) {
    maquina(3, a).memoria().catalogo[10].barras = "8412345678905";
    maquina(3, a).memoria().catalogo[20].barras = "21000020";
    vender(3, 10, 500, 0, 1, a);
    vender(3, 20, 70, 0, 1, a);
    vender(3, 77, 9, 0, 1, a);       // an unknown code
    vender(3, 7777777, 1, 0, 1, a);  // also unknown
  }
  maquina(3, 4).memoria().catalogo[77].barras = "9999999999999";  // above all known codes
  leer(3, 16);
  EXPECT_EQ(bandeja(3, 16), u"2:4/0/20/0 10:2/0/1000/0 20:2/0/140/0");
  EXPECT_EQ(filas(QStringLiteral(
                "SELECT ADDR, CODI, IMP FROM LectFilas WHERE GRUPO=3 ORDER BY ADDR, CODI")),
            u"4,2,10;4,10,500;4,20,70;6,2,10;6,10,500;6,20,70");
  leer(3, 17);
  EXPECT_EQ(bandeja(3, 17), u"3:8/0/1160/0");
  leer(3, 19);
  EXPECT_EQ(bandeja(3, 19), u"2:4/0/1002/0 3:4/0/158/0");
  bien(sesion->ponerEstado(0));
  leer(3, 16, true, 10, 10);
  EXPECT_EQ(bandeja(3, 16), u"10:2/0/1000/0");
}

// Blanks around a code or its prefix aren't sent to the register, so its sales come without them.
TEST_F(Lecturas, DeCajasConBlancosEnElCodigo) {
  grupo(3, 3, QStringLiteral("cable 3"), {4});
  struct Caso {
    int codigo;
    const char16_t *prefijo, *fijo;
    const char* barras;
  };
  const Caso casos[] = {{10, u" 21 ", nullptr, "21000010"},
                        {20, u"21", u"  ", "21000020"},
                        {30, u"21", u" 8412345678905 ", "8412345678905"},
                        {40, nullptr, nullptr, "40"}};
  for (const Caso& c : casos) {
    articulo(c.codigo);
    sql(u"UPDATE PLUSES SET PFX_BAR=?, CodBarExt=? WHERE CODPLU=?"_s,
        c.prefijo ? dao::Valor(QString::fromUtf16(c.prefijo)) : dao::Valor(),
        c.fijo ? dao::Valor(QString::fromUtf16(c.fijo)) : dao::Valor(), c.codigo);
    maquina(3, 4).memoria().catalogo[c.codigo].barras = c.barras;
    vender(3, c.codigo, c.codigo, 0, 1, 4);
  }
  leer(3, 16);
  EXPECT_EQ(bandeja(3, 16), u"10:1/0/10/0 20:1/0/20/0 30:1/0/30/0 40:1/0/40/0");
}

TEST_F(Lecturas, PedidosEInventarios) {
  ajustes->de<tareas::AjustesListas>().NumeroPedido = 40;
  for (const int tipo : {1, 4, 2}) {
    const int addr = tipo == 2 ? 5 : 1;
    grupo(tipo, tipo, QStringLiteral("cable %1").arg(tipo), {addr});
    for (const int clase : {22, 23}) {
      if (tipo == 2 && clase == 23) continue;
      const auto cual = clase == 22 ? simulador::Lista::Pedidos : simulador::Lista::Inventarios;
      for (int i = 1; i <= 7; ++i) maquina(tipo, addr).memoria().apuntar(cual, {i, i * 100, i});
      leer(tipo, clase);
      EXPECT_TRUE(maquina(tipo, addr).memoria().lista(cual).empty());
      EXPECT_EQ(maquina(tipo, addr).memoria().olvidos(cual), 1);
    }
  }
  EXPECT_EQ(
      filas(QStringLiteral("SELECT NUMPED, GRUPO, stkADO, OBSERVA FROM PEDI_CAB ORDER BY NUMPED")),
      u"41,1,0,;42,4,0,;43,2,0,");
  EXPECT_EQ(filas(QStringLiteral(
                "SELECT NUMPED, COUNT(*), SUM(PESO), SUM(UNIDS), SUM(SECCION), SUM(SERV_UNI) FROM "
                "PEDI_LIN GROUP BY NUMPED ORDER BY NUMPED")),
            u"41,7,2800,28,7,0;42,7,2800,28,7,0;43,7,2800,28,7,0");
  EXPECT_EQ(
      filas(QStringLiteral(
          "SELECT NUMINV, COUNT(*), SUM(PESO) FROM INVE_LIN GROUP BY NUMINV ORDER BY NUMINV")),
      u"1,7,2800;2,7,2800");
  EXPECT_EQ(oidas(1).mid(0, 4), (QStringList{QStringLiteral("610 0000"), QStringLiteral("610 0030"),
                                             QStringLiteral("610 0060"), QStringLiteral("880 0")}));
  // An empty list leaves a header without lines, and numbering continues even if the last document
  // is deleted.
  sql(u"DELETE FROM PEDI_CAB"_s);
  leer(1, 22);
  EXPECT_EQ(filas(QStringLiteral("SELECT NUMPED FROM PEDI_CAB")), u"44");
}

TEST_F(Lecturas, UnaTramaDePedidoRepetida) {
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  auto& memoria = maquina(2, 5).memoria();
  for (int i = 1; i <= 20; ++i) memoria.apuntar(simulador::Lista::Pedidos, {i, 100, 1});
  fallo(2, {simulador::Averia::RespuestaDoble, 1, 76, 1}, 5);
  leer(2, 22);
  EXPECT_EQ(filas(QStringLiteral("SELECT COUNT(*) FROM PEDI_LIN")), u"20");
  // Equal lines are all kept.
  grupo(1, 1, QStringLiteral("cable 1"));
  for (auto* m : {&memoria, &maquina(1).memoria()})
    for (int i = 1; i <= 20; ++i) m->apuntar(simulador::Lista::Pedidos, {7, 100, 1});
  leer(2, 22);
  leer(1, 22);
  EXPECT_EQ(filas(QStringLiteral("SELECT NUMPED, COUNT(*) FROM PEDI_LIN GROUP BY NUMPED")),
            u"1,20;2,20;3,20");
}

// Frames of lines have no number: one with another request's code would be lost for good.
TEST_F(Lecturas, UnaTramaDePedidoConElCodigoDeOtraPregunta) {
  grupo(2, 2, QStringLiteral("cable 2"), {5});
  auto& memoria = maquina(2, 5).memoria();
  for (int i = 1; i <= 20; ++i) memoria.apuntar(simulador::Lista::Pedidos, {i, 100, 1});
  fallo(2, {simulador::Averia::OtroCodigo, 1, 76}, 5);
  encolar(2, 22);
  ASSERT_TRUE(correr());
  EXPECT_EQ(filas(QStringLiteral("SELECT COUNT(*) FROM PEDI_LIN")), u"20");
  EXPECT_TRUE(memoria.lista(simulador::Lista::Pedidos).empty());
}

// The answer for the order comes during the request for the inventory, and nothing in it identifies
// it.
TEST_F(Lecturas, UnaRespuestaDelPedidoLlegaAlInventario) {
  grupo(1, 1, QStringLiteral("cable 1"));
  auto& memoria = maquina(1).memoria();
  for (int i = 1; i <= 7; ++i) {
    memoria.apuntar(simulador::Lista::Pedidos, {i, 100, 1});
    memoria.apuntar(simulador::Lista::Inventarios, {i + 10, 100, 1});
  }
  fallo(1, {simulador::Averia::RespuestaTardia, 1, 610});
  gestor->VigilaProcesos(0, true, this);
  encolar(1, 22);
  encolar(1, 23);
  ASSERT_TRUE(correr());
  EXPECT_EQ(filas(QStringLiteral("SELECT COUNT(*), MIN(CODIGO), SUM(CODIGO) FROM INVE_LIN")),
            u"7,11,98");
  EXPECT_EQ(memoria.lista(simulador::Lista::Pedidos).size(), 7U);
}

// The order to forget got no answer. Whether it was received, and whether a new list was entered
// after it, shows when the list is requested again: no line is lost, and none is duplicated.
TEST_F(Lecturas, LaOrdenDeOlvidarSinRespuesta) {
  using simulador::Averia, simulador::Lista;
  gestor->VigilaProcesos(0, true, this);
  for (const int tipo : {1, 2}) {
    const int addr = tipo == 2 ? 5 : 1, orden = tipo == 2 ? 77 : 880;
    grupo(tipo, tipo, QStringLiteral("cable %1").arg(tipo), {addr});
    auto& memoria = maquina(tipo, addr).memoria();
    const auto leerCon = [&](std::vector<simulador::Paso> guion, bool otra) {
      simulador::Fallos f;
      f.guion = std::move(guion);
      maquina(tipo, addr).cambiarPercances({f, 1});
      sql(u"DELETE FROM PEDI_LIN"_s);
      for (int i = 1; i <= 4; ++i) memoria.apuntar(Lista::Pedidos, {i, 100, i});
      const int olvidos = memoria.olvidos(Lista::Pedidos);
      encolar(tipo, 22);
      while (memoria.olvidos(Lista::Pedidos) == olvidos) ASSERT_TRUE(reloj.siguiente());
      for (int i = 7; otra && i <= 8; ++i) memoria.apuntar(Lista::Pedidos, {i, 100, i});
      ASSERT_TRUE(correr());
      EXPECT_TRUE(problemas.isEmpty() && reintentos.isEmpty());
      EXPECT_TRUE(memoria.lista(Lista::Pedidos).empty());
    };
    const QString lineas =
        QStringLiteral("SELECT COUNT(*), SUM(UNIDS) FROM PEDI_LIN GROUP BY NUMPED ORDER BY NUMPED");
    const std::vector<simulador::Paso> callada{{Averia::AckPerdido, 1, orden},
                                               {Averia::RespuestaPerdida, 1, orden}};
    leerCon(callada, true);
    EXPECT_EQ(filas(lineas), u"4,10;2,15") << tipo;
    leerCon(callada, false);
    EXPECT_EQ(filas(lineas), u"4,10") << tipo;
    if (tipo == 1) {  // an Ebony machine sends its answer again
      leerCon({{Averia::RespuestaPerdida, 1, orden}}, true);
      EXPECT_EQ(filas(lineas), u"4,10;2,15");
    }
    leerCon({{Averia::Sorda, 1, orden}}, false);
    EXPECT_EQ(filas(lineas), u"4,10") << tipo;
    EXPECT_EQ(filas(QStringLiteral("SELECT COUNT(*) FROM ListasRecibidas WHERE OLVIDADA=0")), u"0");
  }
}

TEST_F(Lecturas, LaListaQueNoSeOlvidoEsElMismoDocumento) {
  grupo(1, 1, QStringLiteral("cable 1"));
  auto& memoria = maquina(1).memoria();
  for (int i = 1; i <= 4; ++i) memoria.apuntar(simulador::Lista::Pedidos, {i, 100, i});
  fallo(1, {simulador::Averia::Sorda, 0, 880});
  encolar(1, 22);
  ASSERT_TRUE(correr());
  EXPECT_EQ(problemas, QStringList{QStringLiteral("22 G1 E16 (6)")});
  EXPECT_EQ(filas(QStringLiteral("SELECT NUMERO, LINEAS, OLVIDADA FROM ListasRecibidas")),
            u"1,4,0");
  maquina(1).percances().cambiar({});
  arrancar();  // the program died in between
  problemas.clear();
  memoria.apuntar(simulador::Lista::Pedidos, {9, 100, 9});
  leer(1, 22);
  EXPECT_EQ(
      filas(QStringLiteral("SELECT NUMPED, COUNT(*), SUM(UNIDS) FROM PEDI_LIN GROUP BY NUMPED")),
      u"1,5,19");
  EXPECT_EQ(filas(QStringLiteral("SELECT NUMERO, LINEAS, OLVIDADA FROM ListasRecibidas")),
            u"1,5,1");
  // Another list is another document, although it begins alike.
  for (int i = 1; i <= 5; ++i) memoria.apuntar(simulador::Lista::Pedidos, {i, 100, i});
  leer(1, 22);
  EXPECT_EQ(filas(QStringLiteral(
                "SELECT NUMPED, COUNT(*) FROM PEDI_LIN GROUP BY NUMPED ORDER BY NUMPED")),
            u"1,5;2,5");
}

}  // namespace tarvo::prueba
