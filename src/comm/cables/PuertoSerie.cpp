#include "comm/cables/PuertoSerie.h"

namespace tarvo::enlace {

namespace {

QSerialPort::Parity paridad(const QString& letra) {
  if (letra == u"E") return QSerialPort::EvenParity;
  if (letra == u"O") return QSerialPort::OddParity;
  return QSerialPort::NoParity;
}

bool seHaIdo(QSerialPort::SerialPortError error) {
  return error == QSerialPort::ResourceError || error == QSerialPort::ReadError ||
         error == QSerialPort::WriteError;
}

}  // namespace

PuertoSerie::PuertoSerie(std::function<void(const QByteArray&)> alLlegar,
                         std::function<void()> alFallar) {
  QObject::connect(&puerto_, &QSerialPort::readyRead, &puerto_,
                   [this, alLlegar = std::move(alLlegar)] { alLlegar(puerto_.readAll()); });
  QObject::connect(&puerto_, &QSerialPort::errorOccurred, &puerto_,
                   [alFallar = std::move(alFallar)](QSerialPort::SerialPortError error) {
                     if (seHaIdo(error)) alFallar();
                   });
}

int PuertoSerie::abrir(const QString& ruta, const QString& rs232) {
  puerto_.blockSignals(true);  // failures in here are reported by the result
  puerto_.setPortName(ruta);
  const bool bien = puerto_.open(QIODevice::ReadWrite);
  if (bien) {
    poner(rs232);
    puerto_.clearError();
    puerto_.pinoutSignals();
    conLineas_ = puerto_.error() == QSerialPort::NoError;
    puerto_.setDataTerminalReady(true);
    puerto_.setRequestToSend(true);
    puerto_.clearError();
  }
  puerto_.blockSignals(false);
  return bien ? kBien : kPuertoOcupado;
}

// A setting that the port refuses leaves the present one.
void PuertoSerie::poner(const QString& rs232) {
  const QStringList partes = rs232.toUpper().split(u',');
  const auto numero = [&](qsizetype i) { return partes.value(i).trimmed().toInt(); };
  if (numero(0) > 0) puerto_.setBaudRate(numero(0));
  puerto_.setParity(paridad(partes.value(1).trimmed()));
  const int bits = numero(2);
  if (bits >= 5 && bits <= 8) puerto_.setDataBits(static_cast<QSerialPort::DataBits>(bits));
  puerto_.setStopBits(numero(3) == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop);
  puerto_.setFlowControl(QSerialPort::NoFlowControl);
}

void PuertoSerie::cerrar() {
  puerto_.blockSignals(true);
  if (!puerto_.isOpen()) return;
  puerto_.flush();
  puerto_.close();
}

void PuertoSerie::escribir(const QByteArray& bytes) {
  if (puerto_.isOpen()) puerto_.write(bytes);
}

void PuertoSerie::ponerDTR(bool alto) {
  if (conLineas_ && puerto_.isOpen()) puerto_.setDataTerminalReady(alto);
}

std::optional<QSerialPort::PinoutSignals> PuertoSerie::senales() {
  if (!conLineas_ || !puerto_.isOpen()) return std::nullopt;
  return puerto_.pinoutSignals();
}

bool PuertoSerie::falta(int controlLinea) {
  const auto lineas = senales();
  if (!lineas) return false;
  const bool cts = (controlLinea & 1) == 0 || lineas->testFlag(QSerialPort::ClearToSendSignal);
  const bool dsr = (controlLinea & 2) == 0 || lineas->testFlag(QSerialPort::DataSetReadySignal);
  return !cts || !dsr;
}

}  // namespace tarvo::enlace
