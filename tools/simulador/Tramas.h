// The two frame protocols as a machine sees them: it reads questions and acknowledgements, and
// builds answers. Deliberately separate from the back-office's own codec: each side checks the
// other.
#pragma once

#include <QByteArray>
#include <vector>

namespace tarvo::simulador {

// A good frame from the back-office.
struct Peticion {
  int estacion = 0;  // VEK: 0 ("V") to 15
  int addr = 0;      // VEK: address; NODAL: destination node
  int origen = 0;    // NODAL: source node
  int secuencia = 0;
  int codigo = 0;
  QByteArray datos;
  bool operator==(const Peticion&) const = default;
};
enum class Clase { Peticion, Ack, Nak };
struct Entrada {
  Clase clase = Clase::Peticion;
  Peticion peticion{};
};

// Cuts questions out of a stream of bytes. Anything but good frames is ignored.
class LectorVEK {
 public:
  // `ancha`: codes have four digits, as those of registers; else three.
  explicit LectorVEK(bool ancha) : ancha_(ancha) {}
  std::vector<Entrada> leer(const QByteArray& bytes);
  void vaciar() { trama_.clear(); }

 private:
  bool ancha_;
  QByteArray trama_;  // from its STX on; empty outside a frame
};

class LectorNODAL {
 public:
  std::vector<Entrada> leer(const QByteArray& bytes);
  void vaciar() { trama_.clear(); }

 private:
  QByteArray trama_;
};

// A VEK answer with the usual layout, or with the wide one: four digits of code, no address.
QByteArray tramaVEK(int secuencia, int estacion, int addr, int codigo, const QByteArray& datos);
QByteArray tramaVEKAncha(int secuencia, int estacion, int codigo, const QByteArray& datos);
QByteArray tramaNODAL(int origen, int destino, int secuencia, int codigo, const QByteArray& datos);

// A number in a field: zeros on the left, and the sign of a negative one before its first digit
// ("000-123"). A number too wide for its field loses its first digits, as on a display.
QByteArray campo(qint64 numero, int ancho);
// The digits of a field as a number; -1 if the field is short or has other characters.
qint64 leerCampo(const QByteArray& datos, int desde, int ancho);

}  // namespace tarvo::simulador
