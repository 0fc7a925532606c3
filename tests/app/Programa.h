// The program itself as a process, in its own folder.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "app/MaquinaMuda.h"
#include "core/dao/Database.h"

namespace tarvo::prueba {

struct Fin {
  int estado = -1;  // -1: it didn't end, or ended by a signal
  QString salida, errores;
};

class Programa : public ::testing::Test {
 protected:
  QString en(const QString& nombre) const { return dir.filePath(nombre); }
  void poner(const QString& nombre, const QByteArray& bytes) const {
    QFile f(en(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }
  QByteArray ver(const QString& nombre) const {
    QFile f(en(nombre));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
  }
  // Independent of the computer's folders and display.
  void preparar(QProcess& p) const {
    QProcessEnvironment entorno;
    for (const auto& [nombre, valor] : variables) entorno.insert(nombre, valor);
    entorno.insert(QStringLiteral("HOME"), dir.path());
    p.setProcessEnvironment(entorno);
    p.setWorkingDirectory(dir.path());
  }
  void arrancar(QProcess& p, const QStringList& argumentos) const {
    preparar(p);
    p.start(QStringLiteral(TARVO_PROGRAMA), argumentos);
    ASSERT_TRUE(p.waitForStarted());
  }
  static Fin acabar(QProcess& p) {
    Fin fin;
    if (p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit)
      fin.estado = p.exitCode();
    fin.salida = QString::fromUtf8(p.readAllStandardOutput());
    fin.errores = QString::fromUtf8(p.readAllStandardError());
    return fin;
  }
  Fin correr(const QStringList& argumentos) const {
    QProcess p;
    arrancar(p, argumentos);
    return acabar(p);
  }
  Fin correrAqui(QStringList argumentos) const {
    argumentos = QStringList{QStringLiteral("--carpeta"), dir.path()} + argumentos;
    return correr(argumentos);
  }
  // A process that runs until its machine hangs up, however fast its steps are; then it ends with a
  // problem.
  void ponerProcesoQueEspera(const QString& nombre, const MaquinaMuda& muda) const {
    ASSERT_GT(muda.puerto(), 0);
    poner(QStringLiteral("TARVO.INI"), "TimeOut= 600000\r\nTimeACK= 600000\r\n");
    poner(QStringLiteral("CONECTORES.INI"),
          "MUDA= tcp:127.0.0.1:" + QByteArray::number(muda.puerto()) + "\r\n");
    poner(QStringLiteral("VACIO.AUT"), {});
    ASSERT_EQ(correrAqui({QStringLiteral("--sin-ventana"), QStringLiteral("VACIO")}).estado, 0);
    const auto db = dao::Database::OpenDatabase(en(QStringLiteral("TARVO.MDB")));
    ASSERT_TRUE(db && (*db)->ejecutar(u"UPDATE GRUPOS SET TIPO=1, ADDR=1, REMOTO=4, TELEF='MUDA' "
                                      u"WHERE CODGPO=1"));
    poner(nombre, "T:TX_HORA,1\r\nC:ESPERA,0,Si\r\n");
  }
  // Waits until the trace of a running program contains a text.
  static bool esperar(QProcess& p, const QByteArray& texto, QByteArray& salida) {
    QElapsedTimer reloj;
    reloj.start();
    while (!salida.contains(texto) && reloj.elapsed() < 20000) {
      p.waitForReadyRead(200);
      salida += p.readAllStandardOutput();
    }
    return salida.contains(texto);
  }
  // A program that is gone has the id 0, which for kill() means the tests' whole process group.
  static bool avisar(const QProcess& p, int senal) {
    return p.processId() > 0 && ::kill(static_cast<pid_t>(p.processId()), senal) == 0;
  }
  QTemporaryDir dir;
  std::vector<std::pair<QString, QString>> variables;
};

}  // namespace tarvo::prueba
