#include "simulador/Mesa.h"
#include "simulador/Modem.h"

namespace tarvo::simulador {
namespace {

class ConModem : public ::testing::Test {
 protected:
  ConModem() : mesa(opciones(Tipo::Balanzas)) {
    mesa.cable.cerrar();
    OpcionesModem opcionesModem;
    opcionesModem.numeros = {
        {"111", Llamada::Busy}, {"222", Llamada::NoDialtone}, {"333", Llamada::NoAnswer}};
    opcionesModem.guion = {Llamada::NoCarrier};
    modem = std::make_unique<Modem>(mesa.cable, mesa.reloj, opcionesModem,
                                    [this](const QByteArray& bytes) { dicho += bytes; });
  }
  QByteArray decir(const QByteArray& bytes, int ms = 0) {
    dicho.clear();
    modem->recibir(bytes);
    mesa.reloj.avanzar(ms);
    return dicho;
  }
  Mesa mesa;
  std::unique_ptr<Modem> modem;
  QByteArray dicho;
};

TEST_F(ConModem, Dialogo) {
  struct Turno {
    QByteArray orden;
    int ms;
    QByteArray respuesta;
  } const turnos[] = {
      {"AT\r", 0, "AT\r\r\nOK\r\n"},
      {"ate0\r", 0, "ate0\r\r\nOK\r\n"},
      {"AT&FE0V0Q0Y1L3\r", 0, "0\r"},
      {"HOLA\r", 0, "4\r"},
      {"AT?\r", 0, "4\r"},
      {"ATS0=0\r", 0, "0\r"},
      {"ATDT999\r", 1500, "3\r"},  // by the script
      {"ATDT111\r", 1500, "7\r"},
      {"ATDT222\r", 1500, "6\r"},
      {"ATDT333\r", 1500, "8\r"},
      {"ATDT91-555 00\r", 1499, ""},
      {"x", 0, "3\r"},  // a key cancels the call
      {"ATV1\r", 0, "\r\nOK\r\n"},
      {"ATDT9155500\r", 1500, "\r\nCONNECT 9600\r\n"},
  };
  for (const Turno& turno : turnos)
    EXPECT_EQ(decir(turno.orden, turno.ms), turno.respuesta) << turno.orden.toStdString();
  EXPECT_EQ(modem->marcados().back(), "9155500");
  EXPECT_TRUE(decir(vek(1, 0, "850")).startsWith("\x06\x02"));

  EXPECT_EQ(decir("+++", 2000), "") << "no silence before";
  EXPECT_TRUE(modem->enLinea());
  mesa.reloj.avanzar(1000);
  EXPECT_EQ(decir("+++", 1000), "\r\nOK\r\n");
  EXPECT_EQ(decir("ATO\r"), "\r\nCONNECT 9600\r\n");
  EXPECT_TRUE(decir(vek(2, 0, "850")).startsWith("\x06\x02"));
  mesa.reloj.avanzar(1000);
  decir("+++", 1000);
  EXPECT_EQ(decir("ATH\r"), "\r\nOK\r\n");
  EXPECT_FALSE(mesa.cable.abierto());
  EXPECT_EQ(decir("ATO\r"), "\r\nNO CARRIER\r\n");
}

TEST_F(ConModem, LaLineaCaida) {
  decir("ATE0DT1\r", 1500);
  decir("ATDT9155500\r", 1500);
  ASSERT_TRUE(modem->enLinea());
  Fallos fallos;
  fallos.guion = {{Averia::Corte, 0, -1, 0, 0}};
  mesa.maquina->percances().cambiar(fallos);
  EXPECT_EQ(decir(vek(1, 0, "850")), "\r\nNO CARRIER\r\n");
  EXPECT_EQ(decir("AT\r"), "\r\nOK\r\n");
}

}  // namespace
}  // namespace tarvo::simulador
