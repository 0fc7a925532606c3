// A shop whose articles are sent to machine models, and the state of both sides afterwards.
#pragma once

#include "articles/Cambios.h"
#include "motor/TiendaDeMotor.h"

inline void PrintTo(const QString& texto, std::ostream* salida) {
  *salida << texto.toStdString();
}

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

using simulador::Averia;

struct Envios : TiendaDeMotor {
  static constexpr int kTxPlus = 1, kBorrPlu = 10, kTPreci = 11, kRxDatPlu = 24;

  void SetUp() override;
  // An article of section 1, department 1.
  void alta(qint64 codigo, qint64 precio, const QString& nombre = QStringLiteral("Tomate"));
  // As an editor does: the row, and the marks for the machines.
  void cambiar(qint64 codigo, const QString& columnas);
  // As an import does, without marks.
  void cambiarCallando(qint64 codigo, const QString& columnas);
  void borrar(qint64 codigo);
  void oferta(int grupo, qint64 codigo, qint64 precio, double desde,
              double hasta);  // days from today

  // Sends and waits; returns the frames received by the machine meanwhile, "100" and "101" with
  // only the number of their article: "100 10,120 30".
  QString enviar(int grupo, int clase = kTxPlus, bool todo = false, qint64 desde = 0,
                 qint64 hasta = 9999999, int addr = 1);
  // The contents of the machine: "10:Tomate/250".
  QString tiene(int grupo, int addr = 1);
  // Cross of the group: "10 20x", x marked for deletion.
  QString cruz(int grupo);
  // Enviados of the group: numbers, with "?" after those with unknown contents.
  QString probados(int grupo);
  QString retenidos(int grupo);  // "10/0 20/104"
  // Checks that every article held according to Cross is there, field by field, as it would be sent
  // now.
  void esCierto(int grupo);
  // The same for articles proved according to Enviados, for any kind.
  void esProbado(int grupo, int addr = 1);

  // The faults of a machine from now on, its questions counted anew.
  void estorbos(int grupo, std::vector<simulador::Paso> guion, int addr = 1);

  QString nuevas(int grupo, int addr = 1);

 private:
  void loTiene(int grupo, int addr, const QString& codigos);
  std::map<std::pair<int, int>, qsizetype> vistas_;
};

}  // namespace tarvo::prueba
