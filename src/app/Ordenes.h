// The command line: the request, or a sentence with its fault.
#pragma once

#include <QStringList>
#include <expected>
#include <map>
#include <optional>

#include "comm/exploracion/Hallazgo.h"
#include "core/ajustes/Ajustes.h"
#include "core/textos/Textos.h"

namespace tarvo::app {

// The exit status of the program.
enum Salida : int {
  kBien = 0,
  kProblemas = 1,
  kAbortado = 2,
  kSinProceso = 3,
  kSinBase = 4,
  kArgumentosMalos = 64,
};

struct Ordenes {
  enum class Que {
    Ventanas,
    Ayuda,
    Version,
    Cuadre,
    PuestaACero,
    Explorar,
    Proceso
  } que = Que::Ventanas;
  QString carpeta;  // empty when none was given
  Idioma idioma = Idioma::Espanol;
  std::map<QString, QString> datos;  // "%1" to its value
  QString proceso;                   // as given
  std::optional<qint64> link;        // of --cuadre
  // Of --puesta-a-cero: the machine, and whether it was zeroed.
  int grupo = 0, direccion = 0;
  bool seBorro = false;
  // Of --explorar; without accesses, those of the settings.
  std::vector<exploracion::Acceso> accesos;
  bool aplicar = false;
  QString ventana;   // the one to open alone; empty for the main window
  int espera = 120;  // minutes for another program without a screen to end
  QString tema;      // "claro", "oscuro", or empty for the one that is set
};

// `argumentos` without the program's own name.
std::expected<Ordenes, QString> leerOrdenes(const QStringList& argumentos, const Textos& textos);

// The file named by a process argument: quotes removed, ".AUT" added if there is no dot, HomeDir
// prepended if there is no folder. "\" and "/" separate folders and case is ignored. A name with a
// folder may also be relative to the current directory.
QString rutaProceso(QString argumento, const Ajustes& ajustes);

}  // namespace tarvo::app
