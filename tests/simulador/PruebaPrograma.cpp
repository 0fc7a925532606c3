// The program from outside: configuration in, sockets and terminals, state file out.
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <csignal>

#include "simulador/Mesa.h"

namespace tarvo::simulador {
namespace {

quint16 puertoLibre() {
  QTcpServer servidor;
  servidor.listen(QHostAddress::LocalHost);
  return servidor.serverPort();
}

class ConPrograma : public ::testing::Test {
 protected:
  ~ConPrograma() override { matar(); }
  QString ruta(const char* nombre) const { return carpeta.filePath(QLatin1String(nombre)); }
  // False if it ends or prints nothing in time.
  bool arrancar(const QByteArray& config, const QStringList& mas = {}) {
    QFile fichero(ruta("config.json"));
    fichero.open(QIODevice::WriteOnly);
    fichero.write(config);
    fichero.close();
    proceso.start(QStringLiteral(TARVO_SIMULADOR),
                  QStringList{QStringLiteral("--config"), ruta("config.json"),
                              QStringLiteral("--estado"), ruta("estado.json")} +
                      mas);
    QByteArray dicho;
    while (!dicho.contains("LISTO\n") && proceso.waitForReadyRead(20000))
      dicho += proceso.readAllStandardOutput();
    return dicho.contains("LISTO\n");
  }
  int matar() {
    if (proceso.state() == QProcess::NotRunning) return proceso.exitCode();
    proceso.terminate();
    proceso.waitForFinished(20000);
    return proceso.exitCode();
  }
  QJsonObject maquina(int n) const {
    QFile fichero(ruta("estado.json"));
    fichero.open(QIODevice::ReadOnly);
    return QJsonDocument::fromJson(fichero.readAll())[QStringLiteral("maquinas")][n].toObject();
  }
  QTemporaryDir carpeta;
  QProcess proceso;
};

// The bytes received within some seconds, up to the expected number.
QByteArray preguntar(QTcpSocket& socket, const QByteArray& bytes, qsizetype esperados) {
  socket.write(bytes);
  QByteArray dicho;
  while (dicho.size() < esperados && socket.waitForReadyRead(5000)) dicho += socket.readAll();
  return dicho;
}

TEST_F(ConPrograma, VendeContestaYGuardaLoQuePaso) {
  const quint16 puerto = puertoLibre();
  const QByteArray config = R"({"maquinas":[{"nombre":"B","tipo":1,"grupo":4,"tcp":)" +
                            QByteArray::number(puerto) +
                            R"(,"articulos":[{"codigo":5,"nombre":"Piña","precio":199}],"ventas":[
      {"cuando":"18/05/2026 09:05:00","articulo":5,"importe":398,"peso":2000}]}]})";
  ASSERT_TRUE(arrancar(config)) << proceso.readAllStandardError().toStdString();
  QTcpSocket socket;
  socket.connectToHost(QHostAddress::LocalHost, puerto);
  ASSERT_TRUE(socket.waitForConnected(5000));
  const QByteArray total = "\x06" + vek(1, 0,
                                        "850"
                                        "000000398"
                                        "000002000"
                                        "00000"
                                        "00001");
  EXPECT_EQ(preguntar(socket, vek(1, 0, "850"), total.size()), total);
  QTcpSocket otro;
  otro.connectToHost(QHostAddress::LocalHost, puerto);
  otro.waitForConnected(5000);
  EXPECT_TRUE(otro.waitForDisconnected(5000)) << "one connection at a time";
  const QByteArray cero = "\x06" + vek(2, 0, "915");
  EXPECT_EQ(preguntar(socket, vek(2, 0, "915"), cero.size()), cero);
  socket.abort();
  EXPECT_EQ(matar(), 0);

  const QJsonObject estado = maquina(0);
  EXPECT_EQ(estado[QStringLiteral("libro")].toArray().size(), 1);
  const QJsonArray puestas = estado[QStringLiteral("puestasACero")].toArray();
  ASSERT_EQ(puestas.size(), 1);
  const QJsonObject antes = puestas[0][QStringLiteral("antes")].toObject();
  EXPECT_EQ(antes[QStringLiteral("granTotal")][QStringLiteral("imp")].toInt(), 398);

  ASSERT_TRUE(arrancar(config)) << "again, from the state";
  EXPECT_EQ(matar(), 0);
  QJsonObject despues = maquina(0);
  despues[QStringLiteral("reloj")] = estado[QStringLiteral("reloj")];
  EXPECT_EQ(despues, estado) << "the listed sales are not made twice";
}

TEST_F(ConPrograma, UnTerminalEsUnCableYPuedeTenerModem) {
  const QByteArray articulo = R"("articulos":[{"codigo":5,"precio":199}],"ventas":[])";
  const QByteArray config = R"({"maquinas":[{"nombre":"D","tipo":1,"pty":")" +
                            ruta("directo").toUtf8() + "\"," + articulo +
                            R"(},{"nombre":"M","tipo":1,"modem":")" + ruta("modem").toUtf8() +
                            R"(","numeros":{"55":"BUSY"},"marcarMs":10,)" + articulo + "}]}";
  ASSERT_TRUE(arrancar(config));
  const auto hablar = [&](const char* enlace, const QByteArray& bytes, qsizetype esperados) {
    const int puerto = ::open(ruta(enlace).toUtf8().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    EXPECT_EQ(::write(puerto, bytes.constData(), static_cast<std::size_t>(bytes.size())),
              bytes.size());
    QByteArray dicho;
    QElapsedTimer reloj;
    for (reloj.start(); dicho.size() < esperados && reloj.elapsed() < 5000; ::usleep(1000)) {
      char tampon[256];
      const auto leidos = ::read(puerto, tampon, sizeof tampon);
      if (leidos > 0) dicho.append(tampon, leidos);
    }
    ::close(puerto);
    return dicho;
  };
  const QByteArray total = "\x06" + vek(1, 0, "850" + QByteArray(28, '0'));
  EXPECT_EQ(hablar("directo", vek(1, 0, "850"), total.size()), total);
  EXPECT_EQ(hablar("modem", "ATE0V0\r", 9), "ATE0V0\r0\r");
  EXPECT_EQ(hablar("modem", "ATDT55\r", 2), "7\r");
  EXPECT_EQ(hablar("modem", "ATDT56\r", 3), "12\r");
  EXPECT_EQ(hablar("modem", vek(1, 0, "850"), total.size()), total);
  matar();
  EXPECT_FALSE(QFile::exists(ruta("directo"))) << "the link goes with the program";
}

TEST_F(ConPrograma, LeeLosGruposDeLaTienda) {
  sqlite3* base = nullptr;
  ASSERT_EQ(sqlite3_open(ruta("T.MDB").toUtf8().constData(), &base), SQLITE_OK);
  std::string operadores;
  for (int n = 1; n <= 20; ++n)
    operadores += ", OP" + std::string(n < 10 ? "0" : "") + std::to_string(n) + "_C INT DEFAULT 0";
  const std::string sql =
      "CREATE TABLE PLUSES (SECCION INT, CODPLU INT, NOMPLU, CADA INT, PRECIO_00 INT, DEPTO INT, "
      "PFX_BAR, CodBarExt);"
      "CREATE TABLE BZAS (SUGPO INT, NMBZA INT, ADDR INT);"
      "CREATE TABLE GRUPOS (CODGPO INT, NOMGPO, SECCION INT, ADDR INT, TIPO INT, remoto INT, "
      "TELEF" +
      operadores +
      ");"
      "INSERT INTO PLUSES VALUES (1, 1, 'VENTA LIBRE', 0, 0, 1, '0', NULL), (1, 5, 'PERA', 0, 199, "
      "1, '2', NULL),"
      " (1, 9, 'LATA', 2, 250, 12, '2', '8412345678905'), (2, 10000, 'PAN', 2, 95, 1, '2', NULL);"
      "INSERT INTO GRUPOS (CODGPO, NOMGPO, SECCION, ADDR, TIPO, remoto, TELEF, OP01_C, OP11_C) "
      "VALUES"
      " (1, 'CAJAS', 1, 1, 3, 3, '127.0.0.1:" +
      std::to_string(puertoLibre()) +
      ",1', 4, 6),"
      " (2, 'EBONY', 1, 7, 2, 3, '127.0.0.1:" +
      std::to_string(puertoLibre()) +
      ",7', 4, 6),"
      " (3, 'DIRECTO', 1, 1, 1, 2, NULL, 4, 6);"
      "INSERT INTO BZAS VALUES (1, 0, 3), (1, 1, 4), (2, 0, 1);";
  ASSERT_EQ(sqlite3_exec(base, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(base);
  sqlite3_close(base);
  const QByteArray config = R"({"dia":{"fecha":"18/05/2026","ventas":30}})";
  ASSERT_TRUE(
      arrancar(config, {QStringLiteral("--base"), ruta("T.MDB"), QStringLiteral("--otro-dia")}));
  EXPECT_EQ(matar(), 0);
  const QJsonObject caja = maquina(1), ebony = maquina(2);
  EXPECT_EQ(caja[QStringLiteral("direccion")].toInt(), 4);
  EXPECT_EQ(caja[QStringLiteral("libro")].toArray().size(), 60);
  QStringList barras;
  for (const auto& articulo : caja[QStringLiteral("articulos")].toArray())
    barras += articulo[QStringLiteral("barras")].toString();
  EXPECT_EQ(barras,
            (QStringList{QStringLiteral("2000005"), QStringLiteral("8412345678905"),
                         QStringLiteral("0000000000017"), QStringLiteral("9999999999994")}));
  EXPECT_EQ(ebony[QStringLiteral("direccion")].toInt(), 7);
  EXPECT_EQ(ebony[QStringLiteral("articulos")].toArray().size(), 1) << "no department 12 there";
  EXPECT_EQ(ebony[QStringLiteral("operadores")].toArray().size(), 10);
  EXPECT_TRUE(maquina(3).isEmpty()) << "a group without a transport has no machine";
}

TEST_F(ConPrograma, UnaConfiguracionMalaSeDice) {
  for (const QByteArray config :
       {R"({)", R"({"maquinas":[]})", R"({"maquinas":[{"tipo":5,"tcp":1}]})",
        R"({"maquinas":[{"tipo":1}]})", R"({"maquinas":[{"tipo":1,"tcp":99999}]})",
        R"({"maquinas":[{"tipo":1,"tcp":14000,"fallos":{"probabilidad":{"rayo":1}}}]})",
        R"({"baseDatos":"no-esta.mdb"})"}) {
    EXPECT_FALSE(arrancar(config));
    proceso.waitForFinished(5000);
    EXPECT_EQ(proceso.exitCode(), 4) << config.toStdString();
    EXPECT_FALSE(proceso.readAllStandardError().isEmpty());
  }
}

}  // namespace
}  // namespace tarvo::simulador
