// Requests from one program to another that has the database: lines of JSON over a local socket
// beside it. Pure functions on bytes.
#pragma once

#include <QStringList>
#include <map>
#include <optional>

#include "core/valores/Resultado.h"

namespace tarvo::app {

struct Peticion {
  enum class Que { Alzar, Proceso };
  Que que = Que::Alzar;
  QString ventana;  // Alzar: the window to show, empty for the existing one
  // Proceso: a process without a screen.
  QString nombre;                    // base name
  QString traza;                     // of a timetable; empty for a direct run
  QStringList pasos;                 // lines of the process language
  QStringList omitidas;              // reported as problems at the beginning
  std::map<QString, QString> datos;  // answers of --dato
  bool operator==(const Peticion&) const = default;
};

// What comes back while it is handled.
struct Respuesta {
  enum class Que { Linea, Aviso, Vive, Fin };
  Que que = Que::Vive;  // Vive: still working
  QString texto;        // a line of the trace, or for standard error
  int estado = 0;       // Fin: the exit status
  bool operator==(const Respuesta&) const = default;
};

inline constexpr qsizetype kMayorRecado = 1024 * 1024;  // bytes per line

// One line each, with its end.
QByteArray escribir(const Peticion& peticion);
QByteArray escribir(const Respuesta& respuesta);
// "Stop what you do for me, in order."
QByteArray escribirParar();

// Errors: Formato.
Resultado<Peticion> leerPeticion(const QByteArray& linea);
Resultado<Respuesta> leerRespuesta(const QByteArray& linea);
bool esParar(const QByteArray& linea);

}  // namespace tarvo::app
