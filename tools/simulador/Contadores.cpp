#include "simulador/Contadores.h"

namespace tarvo::simulador {

void Cuenta::sumar(const Venta& venta) {
  imp += venta.importe;
  pes += venta.peso;
  con += venta.cuenta;
  sco += venta.descuento;
}

void Contadores::sumar(const Venta& venta) {
  articulos[venta.articulo].sumar(venta);
  departamentos[venta.departamento].sumar(venta);
  operadores[venta.operador].sumar(venta);
  horas[venta.hora].sumar(venta);
  operHora[{venta.operador, venta.hora}].sumar(venta);
  granTotal.sumar(venta);
  (venta.importe < 0 ? devoluciones : ventas).sumar(venta);
}

void Contadores::borrar(int conjuntos) {
  if (conjuntos & kArticulos) articulos.clear();
  if (conjuntos & (kTotales | kSoloDepartamentos)) departamentos.clear();
  if (conjuntos & (kTotales | kSoloGranTotal)) granTotal = ventas = devoluciones = {};
  if (conjuntos & kPersonal) {
    operadores.clear();
    horas.clear();
    operHora.clear();
  }
}

Contadores Contadores::de(std::span<const Venta> libro) {
  Contadores suma;
  for (const Venta& venta : libro) suma.sumar(venta);
  return suma;
}

}  // namespace tarvo::simulador
