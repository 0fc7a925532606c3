// The fields of the machines' payloads: decimal numbers and texts of fixed width.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <expected>
#include <optional>

#include "core/valores/Tipos.h"

namespace tarvo::maquinas {

// A number filled with zeros on the left to `ancho`; wider if it doesn't fit.
QByteArray Ceros(qint64 n, int ancho);
// A text cut or filled with blanks on the right to exactly `ancho` characters.
QByteArray Campo(const QByteArray& texto, int ancho);

// The number in `ancho` characters from position `inicio` (from 1), read leniently: "000-123" is
// -123, a "-" after anything but zeros gives 0, and so does a field that is missing or no number.
qint64 CampoNumerico(QByteArrayView registro, int inicio, int ancho);

// Sizes of a kind of group.
int MaxOperadores(TipoGrupo tipo);
int MaxDepartamentos(TipoGrupo tipo);

// The question of a frame.
struct Peticion {
  int codigo = 0;
  QByteArray datos;
  bool operator==(const Peticion&) const = default;
};

// The counters of one record of totals. `numero` is the record's subject: an article, position,
// department or hour.
struct Total {
  qint64 numero = 0;
  int hora = 0;
  qint64 con = 0, pes = 0, imp = 0, sco = 0;
  bool operator==(const Total&) const = default;
};

// One line of an order or of an inventory.
struct Linea {
  qint64 articulo = 0, peso = 0, unidades = 0;  // grams
  bool redondeado = false;                      // the machine's value wasn't in whole grams
  bool operator==(const Linea&) const = default;
};

// Why a record can't be read: it is too short, or lacks a required number. The caller puts it into
// words.
struct RegistroMalo {
  enum Que { Corto, SinNumero } que = Corto;
  qint64 donde = 0;  // the record's length, or the position (from 1) of the field
  QByteArray campo;  // what is there
};
template <class T>
using Leido = std::expected<T, RegistroMalo>;

// The treatment of a record with a counter that is missing or no number: it is bad, or the counter
// is 0. A truncated counter always makes it bad.
enum class Rigor { Estricto, Tolerante };

// Reads the fields of a record and notes whether each was complete and a number, so that a cut or
// garbled record isn't taken for zeros.
class Lector {
 public:
  explicit Lector(QByteArrayView registro, Rigor rigor = Rigor::Estricto)
      : registro_(registro), rigor_(rigor) {}
  // CampoNumerico of a counter, subject to the rigour.
  qint64 numero(int inicio, int ancho);
  // The same for the record's key: if cut or no number, it always makes the record bad.
  qint64 clave(int inicio, int ancho);
  // The first bad field; nothing if all fields read were good.
  const std::optional<RegistroMalo>& falta() const { return falta_; }
  // A value made from the fields read, if they were good.
  template <class T>
  Leido<T> comprobado(T valor) const {
    if (falta_) return std::unexpected(*falta_);
    return valor;
  }

 private:
  QByteArrayView registro_;
  Rigor rigor_;
  std::optional<RegistroMalo> falta_;
};

}  // namespace tarvo::maquinas
