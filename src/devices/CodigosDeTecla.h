// What the keys of a scale can do: a code for each function, by the language of the country.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "core/ajustes/Ajustes.h"
#include "core/textos/Textos.h"

namespace tarvo::devices {

inline constexpr int kTeclaNula = 999, kTeclaTotal = 12;
inline constexpr int kPlusDirectos = 110, kTarasDirectas = 20;

enum class TipoTecla : int {
  Numerica = 0,
  PluDirecto = 1,
  Operador = 2,
  Tara = 3,
  Departamento = 4,
  Total = 5,
  Funcion = 6,
};

class CodigosDeTecla {
 public:
  // REQUIRES that the texts outlive it.
  CodigosDeTecla(Idioma idioma, const Textos& textos) : idioma_(idioma), textos_(textos) {}

  TipoTecla tipo(int codigo) const;
  // Within its kind; 0 for a function.
  int numero(int codigo) const;
  // The code of a number of a kind; nothing outside 1 to maximo(tipo). Numeric keys: 0 to 11.
  std::optional<int> codigo(TipoTecla tipo, int numero) const;
  // 0 for a kind that the country's scales don't have, and for functions.
  int maximo(TipoTecla tipo) const;

  struct Funcion {
    QString nombre;
    int codigo = 0;
  };
  // Those that a key can have, in the order of the table; NULO comes last. `birch`: its model names
  // and numbers one of them otherwise.
  std::vector<Funcion> funciones(bool birch = false) const;
  // What a key with that code does, in words; empty for an unknown code.
  QString nombre(int codigo, bool birch = false) const;

 private:
  bool espanol() const { return idioma_ == Idioma::Espanol; }
  int maxDeptos() const { return idioma_ == Idioma::F ? 20 : 10; }
  int baseTotales() const { return idioma_ == Idioma::F ? 203 : 193; }

  Idioma idioma_;
  const Textos& textos_;
};

}  // namespace tarvo::devices
