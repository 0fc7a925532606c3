// A machine on a bench: a virtual clock, and all its output kept in the pieces in which it came.
#pragma once

#include <gtest/gtest.h>

#include <QByteArrayList>

#include "simulador/Cable.h"

namespace tarvo::simulador {

inline const QByteArray kAck = "\x06";

// Frames composed here digit by digit, so that the machines' codec doesn't judge itself.
inline QByteArray vek(int secuencia, int addr, const QByteArray& codigoYDatos,
                      char estacion = 'V') {
  const QByteArray cuerpo = QByteArray::number(100 + secuencia).mid(1) + estacion +
                            QByteArray::number(100 + addr).mid(1) + codigoYDatos;
  int suma = 0;
  for (const char c : cuerpo) suma += static_cast<unsigned char>(c);
  return "\x02" + cuerpo + QByteArray::number(100 + suma % 100).mid(1) + "\x03";
}
// `cabecera` is source, destination, sequence and code as eight hexadecimal digits.
inline QByteArray nodal(const QByteArray& cabecera, const QByteArray& datos = {}) {
  int suma = 0;
  for (const char c : QByteArray::fromHex(cabecera) + datos) suma += static_cast<unsigned char>(c);
  return "\x02" + cabecera + datos + "\x03" +
         QByteArray::number(512 - suma % 256, 16).right(2).toUpper() + "\r";
}

inline OpcionesMaquina opciones(Tipo tipo, int direccion = 0, Fallos fallos = {}) {
  OpcionesMaquina resultado;
  resultado.tipo = tipo;
  resultado.direccion = direccion;
  resultado.fallos = std::move(fallos);
  resultado.balanzas = {0, 1, 3};
  resultado.pausaMs = 0;
  return resultado;
}

struct Mesa {
  explicit Mesa(OpcionesMaquina con)
      : reloj(Fecha::de(QDate(2026, 5, 18), QTime(10, 30))),
        maquina(crearMaquina(std::move(con), reloj)) {
    cable.poner(*maquina);
    conectar();
    Memoria& memoria = maquina->memoria();
    memoria.catalogo = {{5, {1, 5, QStringLiteral("PERA"), 0, 1, "2000005", 199}},
                        {9, {1, 9, QStringLiteral("LATA"), 2, 2, "8412345678905", 250}}};
    memoria.operadores = {7, 0, 7};
  }
  bool conectar() {
    return cable.abrir({[this](const QByteArray& bytes) { piezas.append(bytes); },
                        [this](bool limpio) { cortes.push_back(limpio); }});
  }
  // The machine's answer to `bytes`, in one piece.
  QByteArray decir(const QByteArray& bytes) {
    piezas.clear();
    cable.recibir(bytes);
    return piezas.join();
  }
  void vender(int articulo, int operador, int hora, qint64 importe, qint64 peso, qint64 cuenta = 1,
              qint64 descuento = 0) {
    const int departamento = articulo == 5 ? 1 : 2;
    maquina->memoria().vender({Fecha::de(QDate(2026, 5, 18), QTime(hora, 5)), articulo, operador,
                               departamento, hora, importe, peso, cuenta, descuento});
  }

  RelojVirtual reloj;
  std::unique_ptr<Maquina> maquina;
  Cable cable;
  QByteArrayList piezas;
  std::vector<bool> cortes;
};

}  // namespace tarvo::simulador
