// The only way in which an operation of this program fails: a Resultado with an Error.
//
// An Error has a class, on which a caller may act, a number (the engine's own, or a Jet number that
// the report routine knows) and a Spanish sentence for the reader of the trace. A class exists only
// if some caller treats it differently.
#pragma once

#include <QString>
#include <expected>
#include <utility>

namespace tarvo {

enum class Fallo {
  Interno,        // a broken promise between rooms
  NoExiste,       // a missing file, row, host or port
  SinPermiso,     // no right to read or write it
  Ocupado,        // locked by another program, a port in use
  SoloLectura,    // can be read but not written
  DiscoLleno,     // no room for what had to be written
  NoEsBaseDatos,  // the file is no database, or it is damaged
  OtraVersion,    // a database of an earlier or a later version
  Duplicado,      // a key that must not exist twice
  Restriccion,    // another rule of the data broken
  Formato,        // unreadable bytes from outside
  Comunicacion,   // a link or a machine; `numero` is the code of docs/protocolos.md
};

struct Error {
  Fallo clase = Fallo::Interno;
  int numero = 0;
  QString texto;
};

template <class T = void>
using Resultado = std::expected<T, Error>;

inline std::unexpected<Error> fallo(Fallo clase, QString texto, int numero = 0) {
  return std::unexpected<Error>(Error{clase, numero, std::move(texto)});
}

}  // namespace tarvo

// Passes the error of an expression of type Resultado<...> on to the caller.
#define TARVO_INTENTAR(...)                                \
  do {                                                     \
    if (auto tarvo_r_ = (__VA_ARGS__); !tarvo_r_)          \
      return std::unexpected(std::move(tarvo_r_).error()); \
  } while (false)

// Declares a variable with the value of an expression of type Resultado<T>, or passes its error on
// to the caller:
//
//   TARVO_TOMAR(const auto periodo, periodos.buscar(link));
#define TARVO_TOMAR(declaracion, ...) \
  TARVO_TOMAR_EN_(TARVO_UNIR_(tarvo_r_, __LINE__), declaracion, __VA_ARGS__)
#define TARVO_TOMAR_EN_(r, declaracion, ...)            \
  auto r = (__VA_ARGS__);                               \
  if (!r) return std::unexpected(std::move(r).error()); \
  declaracion = *std::move(r)
#define TARVO_UNIR_(a, b) TARVO_UNIR_YA_(a, b)
#define TARVO_UNIR_YA_(a, b) a##b
