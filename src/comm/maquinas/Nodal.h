// Payloads of the Ebony machines, kind of group 2: requests, and frames made of runs of records.
#pragma once

#include <vector>

#include "comm/maquinas/Campos.h"
#include "core/valores/Fecha.h"

namespace tarvo::maquinas::nodal {

inline constexpr int kFinDeLista = 26;
inline constexpr int kUltimoArticulo = 9999;

Peticion fechaHora(Fecha ahora);
Peticion cerrarTickets();
Peticion puestaACero();
Peticion articulos(qint64 desde, qint64 hasta);  // `hasta` is cut to four digits
Peticion granTotal();
Peticion operadores();
Peticion departamentos();
Peticion operadoresHoras();
Peticion pedido();
Peticion olvidarPedido();

// A code of the back-office's requests; a frame with such a code answers that request and no other.
bool esDePeticion(int codigo);

// Each reads the records of one frame. A cut or non-numeric record is a Formato error, and so are
// left-over characters after whole records of totals. Positions and departments count from 1.
Leido<std::vector<Total>> leerArticulos(QByteArrayView datos, Rigor rigor = Rigor::Estricto);
Leido<Total> leerGranTotal(QByteArrayView datos, Rigor rigor = Rigor::Estricto);
Leido<std::vector<Total>> leerOperadores(QByteArrayView datos, Rigor rigor = Rigor::Estricto);
Leido<std::vector<Total>> leerDepartamentos(QByteArrayView datos, Rigor rigor = Rigor::Estricto);
Leido<std::vector<Total>> leerOperadoresHoras(QByteArrayView datos, Rigor rigor = Rigor::Estricto);
// Lines up to the first article below 1, their weights in thousandths of a gram; left-over
// characters are ignored.
Leido<std::vector<Linea>> leerPedido(QByteArrayView datos, Rigor rigor = Rigor::Estricto);

}  // namespace tarvo::maquinas::nodal
