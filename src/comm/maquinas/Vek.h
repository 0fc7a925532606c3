// Payloads of the scales, kinds of group 1 and 4: requests, and the records that answer them.
#pragma once

#include <vector>

#include "comm/maquinas/Campos.h"
#include "core/valores/Fecha.h"

namespace tarvo::maquinas::vek {

Peticion fechaHora(Fecha ahora);
// A whole zeroing, or the partial one that follows a failed one.
Peticion puestaACero(bool toda);
Peticion articulo(qint64 codigo);
// The next article with sales from `codigo` on.
Peticion siguienteArticulo(qint64 codigo);
Peticion granTotal(TipoGrupo tipo);
Peticion operador(int posicion);
Peticion departamento(int numero);
Peticion hora(int hora);
Peticion operadorHora(int posicion, int hora);
// The lines of an order or an inventory from line `desde` (from 0) on, and the permission to forget
// the list.
Peticion lineas(int desde, bool inventario);
Peticion olvidarLista(bool inventario);

// The number at the head of a record, read strictly: nothing if it is missing or no number.
std::optional<qint64> cabeza(QByteArrayView registro, int inicio, int ancho);

// Each reads one record. A cut record, or one without a required number, is a Formato error.
Leido<Total> leerArticulo(QByteArrayView registro, Rigor rigor = Rigor::Estricto);
Leido<Total> leerGranTotal(QByteArrayView registro, TipoGrupo tipo, Rigor rigor = Rigor::Estricto);
Leido<Total> leerOperador(QByteArrayView registro, Rigor rigor = Rigor::Estricto);
Leido<Total> leerDepartamento(QByteArrayView registro, Rigor rigor = Rigor::Estricto);
Leido<Total> leerHora(QByteArrayView registro, Rigor rigor = Rigor::Estricto);
Leido<Total> leerOperadorHora(QByteArrayView registro, Rigor rigor = Rigor::Estricto);

struct TrozoLista {
  std::vector<Linea> lineas;
  bool fin = false;  // an article number of 0 or below ended the list
  bool operator==(const TrozoLista&) const = default;
};
Leido<TrozoLista> leerLineas(QByteArrayView datos, Rigor rigor = Rigor::Estricto);

}  // namespace tarvo::maquinas::vek
