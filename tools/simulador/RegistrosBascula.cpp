#include "simulador/RegistrosBascula.h"

#include <algorithm>

#include "simulador/Tramas.h"

namespace tarvo::simulador {
namespace {

constexpr std::size_t kLineasPorTrama = 3;

}  // namespace

// The weight has no sign: the reader takes it from the amount.
QByteArray registroArticulo(int numero, const Cuenta& cuenta) {
  return campo(numero, 7) + campo(cuenta.imp, 9) + campo(std::abs(cuenta.pes), 9) +
         campo(cuenta.con, 5) + campo(0, 9) + campo(cuenta.sco, 9);
}

QByteArray registroGranTotal(const Cuenta& cuenta) {
  return campo(cuenta.imp, 9) + campo(cuenta.pes, 9) + campo(0, 5) + campo(cuenta.con, 5);
}

QByteArray registroGranTotalBirch(const Cuenta& cuenta) {
  const qint64 primera = cuenta.sco / 2;
  return registroGranTotal(cuenta) + campo(0, 28) + campo(primera, 9) + campo(0, 5) +
         campo(cuenta.sco - primera, 9);
}

QByteArray registroOperador(int posicion, const Cuenta& cuenta) {
  return campo(posicion, 2) + campo(cuenta.imp, 9) + campo(cuenta.con, 5) + campo(0, 33) +
         campo(cuenta.sco, 9);
}

QByteArray registroSeccionado(int numero, const Cuenta& cuenta) {
  return campo(numero, 2) + campo(cuenta.imp, 9) + campo(cuenta.pes, 9) + campo(cuenta.con, 5);
}

QByteArray registroOperadorHora(int posicion, int hora, const Cuenta& cuenta) {
  return campo(posicion, 2) + campo(hora, 2) + campo(cuenta.imp, 9) + campo(cuenta.pes, 9) +
         campo(cuenta.con, 5);
}

QByteArray registroLineas(const std::vector<LineaLista>& lineas, std::size_t desde) {
  QByteArray datos = "0";
  const std::size_t hasta = std::min(lineas.size(), desde + kLineasPorTrama);
  for (std::size_t i = desde; i < hasta; ++i)
    datos += campo(lineas[i].articulo, 7) + campo(lineas[i].peso, 8) + campo(lineas[i].unidades, 8);
  if (hasta == lineas.size() || desde > lineas.size()) datos += campo(0, 23);
  return datos;
}

}  // namespace tarvo::simulador
