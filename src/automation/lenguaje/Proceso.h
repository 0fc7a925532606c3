// The process language: a step and its text, a file of steps and its timetable. Grammar:
// docs/formatos.md.
#pragma once

#include <QString>
#include <array>
#include <optional>
#include <variant>
#include <vector>

#include "comm/motor/Tarea.h"
#include "core/ajustes/Ajustes.h"
#include "core/valores/Resultado.h"

namespace tarvo::automation {

enum ClasePaso : int {
  kTarea = 1,
  kSesion = 2,
  kControl = 3,
  kPeriodos = 4,
  kExportar = 5,
  kNoper = 6
};
enum VerboSesion : int { kAbrir = 1, kOlvidar = 2, kCerrar = 3 };
enum VerboControl : int { kEspera = 1 };
enum VerboPeriodos : int {
  kCrear = 1,
  kBorrar = 2,
  kLimpiar = 3,
  kSeleccionar = 4,
  kSelUltimo = 5,
  kAcumular = 6,
  kStock = 7,
  kSumar = 8,
  kDesacumular = 9,
};
enum VerboExportar : int { kTotaliza = 1 };

// The triple of P "CREAR".
struct Intervalo {
  int tipo = 5;
  Fecha desde, hasta;
  bool operator==(const Intervalo&) const = default;
};
// A slot: nothing, a number, a truth value, a moment, a text or a triple.
using Casilla = std::variant<std::monostate, qint64, bool, Fecha, QString, Intervalo>;

// One step: slot 0 its class, slot 1 the verb, the others by class.
struct PasoProceso {
  std::array<Casilla, 7> c;
  int clase() const;  // 0 for a blank step
  int verbo() const;  // task kind for a task, 0 for an unknown verb and for a comment
  // A slot of the wrong kind reads as 0, false or empty.
  qint64 numero(int casilla) const;
  bool logico(int casilla) const;
  QString texto(int casilla) const;
  bool operator==(const PasoProceso&) const = default;
};

// An activation line of a timetable.
struct LineaActivacion {
  Fecha hora;                  // time of day
  std::array<bool, 7> dias{};  // Monday first
  QString nombre;              // "@" for the process held in the same file
  bool operator==(const LineaActivacion&) const = default;
};

struct FicheroProceso {
  std::vector<PasoProceso> pasos;
  std::vector<LineaActivacion> activaciones;
  // A sentence for each line that somebody may have meant as a step and that is none.
  QStringList omitidas;
};

// "TAREA", "SESIÓN"... as trace headers show it; empty for a blank step.
QString palabraClase(int clase);

class Lenguaje {
 public:
  Lenguaje(const motor::RegistroTareas& registro, const Ajustes& ajustes, const Textos& textos);
  // A blank line gives a blank step; a line of no class gives nothing; a line that can't be read is
  // an error.
  Resultado<std::optional<PasoProceso>> LeerPaso(QStringView linea) const;
  QString EscribirPaso(const PasoProceso& paso) const;
  // Text of a whole file. Errors name the line.
  Resultado<FicheroProceso> leer(const QString& texto) const;
  Resultado<FicheroProceso> LeerProceso(const QString& ruta) const;
  QString escribir(const FicheroProceso& f) const;
  // "hh:mm:ss;F,F,F,F,F,F,F;NAME", the words in any case; nothing when any part is bad.
  std::optional<LineaActivacion> leerActivacion(QStringView linea) const;
  QString escribirActivacion(const LineaActivacion& l) const;
  // A .CRO file: its entries; a block of steps is passed over. The first bad line is an error that
  // names it. With `proceso` the text is a process file: nothing counts after its block.
  Resultado<std::vector<LineaActivacion>> leerCro(const QString& texto, bool proceso = false) const;
  // Reads a text file of the domain: Windows-1252, or UTF-8 with its mark. Above 4 MiB, or with a
  // NUL in it, it is no text.
  Resultado<QString> leerTexto(const QString& ruta) const;
  const Textos& textos() const { return t_; }

 private:
  const motor::RegistroTareas& r_;
  const Ajustes& a_;
  const Textos& t_;
};

}  // namespace tarvo::automation
