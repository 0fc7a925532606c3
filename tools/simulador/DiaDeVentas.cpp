#include "simulador/DiaDeVentas.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "core/tiempo/Reloj.h"

namespace tarvo::simulador {
namespace {

constexpr int kApertura = 9 * 3600, kCierre = 21 * 3600;

// Rounds half up; amounts and weights here are positive.
qint64 porPeso(qint64 precio, qint64 gramos, qint64 base) {
  return (precio * gramos + base / 2) / base;
}

// A position with an operator.
int posicionAlAzar(const std::vector<int>& operadores, Azar& azar) {
  std::vector<int> ocupadas;
  for (std::size_t i = 0; i < operadores.size(); ++i)
    if (operadores[i] > 0) ocupadas.push_back(static_cast<int>(i) + 1);
  if (ocupadas.empty()) return 1;
  return ocupadas[static_cast<std::size_t>(azar.entero(0, static_cast<int>(ocupadas.size()) - 1))];
}

Venta devolucion(const Venta& venta) {
  Venta vuelta = venta;
  vuelta.importe = -venta.importe;
  vuelta.peso = -venta.peso;
  vuelta.descuento = -venta.descuento;
  return vuelta;
}

}  // namespace

Venta ventaAlAzar(const Memoria& memoria, Azar& azar, double descuentos) {
  const auto elegido = std::next(memoria.catalogo.begin(),
                                 azar.entero(0, static_cast<int>(memoria.catalogo.size()) - 1));
  const Articulo& articulo = elegido->second;
  Venta venta;
  venta.articulo = articulo.codigo;
  venta.departamento = std::max(1, articulo.departamento);
  venta.operador = posicionAlAzar(memoria.operadores, azar);
  const qint64 precio = articulo.precio > 0 ? articulo.precio : 100;
  if (articulo.unidad == 2) {
    venta.cuenta = azar.entero(1, 4);
    venta.importe = precio * venta.cuenta;
  } else {
    venta.peso = azar.entero(10, 300) * 5;
    venta.importe = porPeso(precio, venta.peso, articulo.unidad == 1 ? 100 : 1000);
  }
  if (descuentos > 0 && azar.ocurre(descuentos)) {
    venta.descuento = venta.importe / 10;
    venta.importe -= venta.descuento;
  }
  return venta;
}

std::vector<Venta> ventasDelDia(const Memoria& memoria, const Dia& dia, quint64 semilla) {
  std::vector<Venta> ventas;
  if (memoria.catalogo.empty()) return ventas;
  Azar azar(semilla);
  std::vector<int> segundos(static_cast<std::size_t>(std::max(0, dia.ventas)));
  for (int& segundo : segundos) segundo = azar.entero(kApertura, kCierre - 1);
  std::ranges::sort(segundos);
  std::set<std::size_t> devueltas;  // sales of this day already returned
  for (const int segundo : segundos) {
    Venta venta = ventaAlAzar(memoria, azar, dia.descuentos);
    if (azar.ocurre(dia.devoluciones)) {
      const auto cual = static_cast<std::size_t>(
          ventas.empty() ? 0 : azar.entero(0, static_cast<int>(ventas.size()) - 1));
      const bool deHoy = cual < ventas.size() && ventas[cual].importe > 0;
      if (deHoy && devueltas.insert(cual).second) venta = ventas[cual];
      venta = devolucion(venta);
    }
    venta.cuando = Fecha::de(dia.fecha, QTime(0, 0).addSecs(segundo));
    venta.hora = segundo / 3600;
    ventas.push_back(venta);
  }
  return ventas;
}

}  // namespace tarvo::simulador
