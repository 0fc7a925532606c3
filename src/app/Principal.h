// The program: reads the command line, carries it out and returns the exit status.
#pragma once

#include <functional>

#include "app/Aplicacion.h"
#include "app/Ordenes.h"

namespace tarvo::app {

// `conVentanas` handles requests for windows; without it the program with windows takes over.
using ConVentanas = std::function<int(const Ordenes& ordenes, const Textos& textos)>;
int principal(int argc, char** argv, const ConVentanas& conVentanas = {});

// Reports a failed start.
using Avisar = std::function<void(const QString& texto)>;

// What to do about a database that can't be opened; each may be empty.
struct SiNoSeAbre {
  // Another program has it: the exit status, or nothing to try again.
  std::function<std::optional<int>(const QString& carpeta, const Error& error, Reloj& reloj)>
      ocupada;
  // It is missing: whether to create an empty one.
  std::function<bool(const QString& base)> crearla;
};

// Opens folder, settings and database and hands them over; a failure is reported, with its status.
int conFondo(const Ordenes& ordenes, const Textos& textos, const Avisar& avisar,
             const std::function<int(Fondo& fondo, Reloj& reloj)>& hacer,
             const SiNoSeAbre& siNo = {});

// Makes the application's objects and hands them over; a failure is reported, with its status.
int conAplicacion(Fondo& fondo, Reloj& reloj, automation::Preguntas& preguntas,
                  const Avisar& avisar, const std::function<int(Aplicacion& aplicacion)>& hacer);

}  // namespace tarvo::app
