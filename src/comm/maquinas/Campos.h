// The fields that the machines' payloads are made of: decimal numbers of fixed width and texts of
// fixed width.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include "core/valores/Resultado.h"

namespace tarvo::maquinas {

// A number filled with zeros on the left to `ancho`; wider when it doesn't fit.
QByteArray Ceros(qint64 n, int ancho);
// A text cut or filled with blanks on the right to exactly `ancho` characters.
QByteArray Campo(const QByteArray& texto, int ancho);

// The number in `ancho` characters from position `inicio` (from 1), read leniently: "000-123" is
// -123, a "-" behind anything but zeros gives 0, and so does whatever is no number, or isn't there.
qint64 CampoNumerico(QByteArrayView registro, int inicio, int ancho);

// Sizes of a kind of group: 0 for a kind that doesn't exist.
int MaxOperadores(int tipo);
int MaxDepartamentos(int tipo);

// What a frame asks.
struct Peticion {
  int codigo = 0;
  QByteArray datos;
  bool operator==(const Peticion&) const = default;
};

// The counters of one record of totals. `numero` is whatever the record is about: article,
// position, department, hour.
struct Total {
  qint64 numero = 0;
  int hora = 0;
  qint64 con = 0, pes = 0, imp = 0, sco = 0;
  bool operator==(const Total&) const = default;
};

// One line of an order or of an inventory.
struct Linea {
  qint64 articulo = 0, peso = 0, unidades = 0;
  bool operator==(const Linea&) const = default;
};

// Reads the fields of a record and notes whether each was whole and a number, so that a cut or
// garbled record isn't taken for zeros.
class Lector {
 public:
  explicit Lector(QByteArrayView registro) : registro_(registro) {}
  // CampoNumerico; a field that is cut or no number makes the record bad.
  qint64 numero(int inicio, int ancho);
  // Nothing when all fields read were good, else the reason as a sentence's part: "faltan datos" or
  // the field's text.
  const QString& falta() const { return falta_; }
  Resultado<> estado() const;

 private:
  QByteArrayView registro_;
  QString falta_;
};

}  // namespace tarvo::maquinas
