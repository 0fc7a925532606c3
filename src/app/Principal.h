// The program: reads the command line, does what it asks and gives the exit status.
#pragma once

#include <functional>

#include "app/Aplicacion.h"
#include "app/Ordenes.h"

namespace tarvo::app {

// `conVentanas` does what needs windows; without it the program that has them takes over.
using ConVentanas = std::function<int(const Ordenes& ordenes, const Textos& textos)>;
int principal(int argc, char** argv, const ConVentanas& conVentanas = {});

// How a start that failed is said.
using Avisar = std::function<void(const QString& texto)>;

// What to do where another program has the database: the exit status, or nothing to try again.
using SiOcupada =
    std::function<std::optional<int>(const QString& carpeta, const Error& error, Reloj& reloj)>;

// Opens folder, settings and database and hands them over; a failure is said, with its status.
int conFondo(const Ordenes& ordenes, const Textos& textos, const Avisar& avisar,
             const std::function<int(Fondo& fondo, Reloj& reloj)>& hacer,
             const SiOcupada& siOcupada = {});

// Makes the application's objects and hands them over; a failure is said, with its status.
int conAplicacion(Fondo& fondo, Reloj& reloj, automation::Preguntas& preguntas,
                  const Avisar& avisar, const std::function<int(Aplicacion& aplicacion)>& hacer);

}  // namespace tarvo::app
