// The process language: a step and its text, a file of steps and its timetable. Grammar:
// docs/formatos.md.
#pragma once

#include <QString>
#include <QStringView>
#include <array>
#include <optional>
#include <variant>
#include <vector>

#include "comm/motor/Tarea.h"
#include "core/ajustes/Ajustes.h"
#include "core/valores/Resultado.h"
#include "core/valores/Tipos.h"

namespace tarvo::automation {

enum class VerboSesion : int { Abrir = 1, Olvidar = 2, Cerrar = 3 };
enum class VerboPeriodos : int {
  Crear = 1,
  Borrar = 2,
  Limpiar = 3,
  Seleccionar = 4,
  SelUltimo = 5,
  Acumular = 6,
  Stock = 7,
  Sumar = 8,
  Desacumular = 9,
};
constexpr bool existe(VerboPeriodos v) {
  switch (v) {
    case VerboPeriodos::Crear:
    case VerboPeriodos::Borrar:
    case VerboPeriodos::Limpiar:
    case VerboPeriodos::Seleccionar:
    case VerboPeriodos::SelUltimo:
    case VerboPeriodos::Acumular:
    case VerboPeriodos::Stock:
    case VerboPeriodos::Sumar:
    case VerboPeriodos::Desacumular:
      return true;
  }
  return false;
}

// In the place of a group.
inline constexpr QStringView kTodosLosGrupos = u"ALL";
inline constexpr qint64 kPrimerCodigo = 0, kUltimoCodigo = 9999999;  // of articles
// A number, or the text in its place: a reference ("%x") until a parameter fills it, or
// kTodosLosGrupos.
using Referencia = std::variant<qint64, QString>;
// A moment, or the reference ("#x") that stands for it.
using Momento = std::variant<Fecha, QString>;

// --- the six kinds of step; kLetra begins its line, kPalabra appears in headers of the trace

// A request to a group, or to all.
struct PasoTarea {
  static constexpr char16_t kLetra = u'T';
  static constexpr QStringView kPalabra = u"TAREA";
  struct Rango {
    Referencia desde, hasta;
    // Both are numbers, and no code lies between them.
    bool alReves() const {
      const auto* uno = std::get_if<qint64>(&desde);
      const auto* otro = std::get_if<qint64>(&hasta);
      return uno && otro && *uno > *otro;
    }
    // The first number that can't be an article's code.
    std::optional<qint64> imposible() const {
      for (const Referencia* r : {&desde, &hasta})
        if (const auto* n = std::get_if<qint64>(r); n && (*n < kPrimerCodigo || *n > kUltimoCodigo))
          return *n;
      return std::nullopt;
    }
    bool operator==(const Rango&) const = default;
  };
  TipoTarea tarea = TipoTarea::TxHora;
  Referencia grupo;
  std::optional<bool> todo;    // of kinds that have a flag
  std::optional<Rango> rango;  // of kinds that have a range of codes
  bool operator==(const PasoTarea&) const = default;
};

struct PasoSesion {
  static constexpr char16_t kLetra = u'S';
  static constexpr QStringView kPalabra = u"SESIÓN";
  VerboSesion verbo = VerboSesion::Abrir;
  // Only for CERRAR.
  QString descripcion;
  bool todoAUno = true, sustituir = true;
  bool operator==(const PasoSesion&) const = default;
};

// Waits until the queue is empty.
struct PasoControl {
  static constexpr char16_t kLetra = u'C';
  static constexpr QStringView kPalabra = u"CONTROL";
  static constexpr QStringView kVerbo = u"ESPERA";
  Referencia reintentos;
  bool borrarFallos = false;
  bool operator==(const PasoControl&) const = default;
};

// The triple of CREAR.
struct Intervalo {
  int tipo = 5;
  Fecha desde, hasta;
  bool operator==(const Intervalo&) const = default;
};

struct PasoPeriodos {
  static constexpr char16_t kLetra = u'P';
  static constexpr QStringView kPalabra = u"PERIODOS";
  std::optional<VerboPeriodos> verbo;  // nothing for an unknown word: the step does nothing
  Intervalo intervalo;                 // CREAR
  QString descripcion;                 // CREAR
  qint64 tipo = 0;                     // BORRAR, SELECCIONAR, ACUMULAR, DESACUMULAR
  Momento desde, hasta;                // BORRAR, SELECCIONAR
  bool operator==(const PasoPeriodos&) const = default;
};

struct PasoExportar {
  static constexpr char16_t kLetra = u'E';
  static constexpr QStringView kPalabra = u"EXPORTAR";
  static constexpr QStringView kVerbo = u"TOTALIZA";
  bool totaliza = false;  // false for an unknown word: the step does nothing
  bool corto = false, borrar = false;
  QString fichero;
  bool operator==(const PasoExportar&) const = default;
};

// A comment, or a request for a parameter.
struct PasoNoper {
  static constexpr char16_t kLetra = u'N';
  static constexpr QStringView kPalabra = u"NOPER";
  QString texto;
  bool operator==(const PasoNoper&) const = default;
};

// Nothing for a blank line.
using PasoProceso = std::variant<std::monostate, PasoTarea, PasoSesion, PasoControl, PasoPeriodos,
                                 PasoExportar, PasoNoper>;

bool enBlanco(const PasoProceso& paso);
// S:CERRAR.
bool memoriza(const PasoProceso& paso);

// One function for each kind, for std::visit.
template <class... F>
struct SegunPaso : F... {
  using F::operator()...;
};
template <class... F>
SegunPaso(F...) -> SegunPaso<F...>;

// An activation line of a timetable.
struct LineaActivacion {
  Fecha hora;                  // time of day
  std::array<bool, 7> dias{};  // Monday first
  QString nombre;              // "@" for the process in the same file
  bool operator==(const LineaActivacion&) const = default;
};

struct FicheroProceso {
  std::vector<PasoProceso> pasos;
  std::vector<LineaActivacion> activaciones;
  // A sentence, with its number, for each line that isn't a step, or of which something doesn't
  // count.
  QStringList omitidas;
};

// "TAREA", "SESIÓN"... as in trace headers; empty for a blank step.
QString palabraClase(const PasoProceso& paso);

class Lenguaje {
 public:
  Lenguaje(const motor::RepertorioTareas& repertorio, const Ajustes& ajustes, const Textos& textos);
  // A blank line yields a blank step; a line of no class yields nothing; an unreadable line is an
  // error. `reparo` receives what of the line doesn't count though it may have been meant.
  Resultado<std::optional<PasoProceso>> LeerPaso(QStringView linea,
                                                 QString* reparo = nullptr) const;
  QString EscribirPaso(const PasoProceso& paso) const;
  // The effect of a step, in words for a person; a comment as it is.
  QString DecirPaso(const PasoProceso& paso) const;
  // Text of a whole file. Errors name the line.
  Resultado<FicheroProceso> leer(const QString& texto) const;
  Resultado<FicheroProceso> LeerProceso(const QString& ruta) const;
  QString escribir(const FicheroProceso& f) const;
  // "hh:mm:ss;F,F,F,F,F,F,F;NAME", the words in any case; nothing when any part is bad.
  std::optional<LineaActivacion> leerActivacion(QStringView linea) const;
  QString escribirActivacion(const LineaActivacion& l) const;
  // A .CRO file: its entries; a block of steps is skipped. The first bad line is an error that
  // names it. With `proceso` the text is a process file: nothing counts after its block.
  Resultado<std::vector<LineaActivacion>> leerCro(const QString& texto, bool proceso = false) const;
  // Reads a text file of the domain: Windows-1252, or UTF-8 with its mark. Above 4 MiB, or with a
  // NUL in it, it is not text.
  Resultado<QString> leerTexto(const QString& ruta) const;
  const Textos& textos() const { return t_; }

 private:
  const motor::RepertorioTareas& r_;
  const Ajustes& a_;
  const Textos& t_;
};

}  // namespace tarvo::automation
