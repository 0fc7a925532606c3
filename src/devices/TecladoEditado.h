// The keyboard of a scale of any model while a person edits it, and what its keys do for a section.
#pragma once

#include <map>
#include <set>
#include <span>

#include "core/valores/Resultado.h"
#include "devices/Modelos.h"
#include "devices/Teclado.h"

namespace tarvo::devices {

inline constexpr qint64 kPrimerArticuloDeTecla = 3;  // those before it are the system's

class TecladoEditado {
 public:
  explicit TecladoEditado(int modelo = kRowan);
  int modelo() const { return modelo_; }
  bool esEbony() const { return modelo_ == kEbony; }
  int teclas() const { return esEbony() ? ebony_.teclas() : comun_.teclas(); }

  void leer(const TextosTeclado& textos);
  // An Ebony machine has a single text; the other two stay as they were read.
  TextosTeclado escribir() const;

  // REQUIRE a model that has one.
  Teclado& comun() { return comun_; }
  const Teclado& comun() const { return comun_; }
  TecladoEbony& ebony() { return ebony_; }
  const TecladoEbony& ebony() const { return ebony_; }

  // Keys count from 1.
  void mover(int de, int a);
  void anular(int tecla);
  bool nula(int tecla) const;
  // Of a direct PLU.
  std::optional<qint64> articulo(int tecla) const;
  // Of all keys and all direct PLUs.
  std::set<qint64> articulos() const;

  // The key sells the article. One that is no direct PLU, or shares its own with other keys, gets
  // one that no key uses. Restriccion in words when the article can't go there, or none is left.
  Resultado<> vender(int tecla, qint64 articulo, const Textos& textos);
  struct Relleno {
    int puestos = 0, noCaben = 0;
  };
  // The articles, in their order, on the free keys: those that do nothing or have no article, and
  // those whose article isn't one of `existen`. Articles that a key sells already are left out.
  Relleno rellenar(std::span<const qint64> articulos, const std::set<qint64>& existen,
                   const Textos& textos);

  bool operator==(const TecladoEditado&) const = default;

 private:
  int directo(int tecla) const;  // 0 for a key that is none
  int directoLibre() const;

  int modelo_;
  Teclado comun_;
  TecladoEbony ebony_;
  QString hardplu_, tarasme_;
};

// The articles that exist in the section, by code.
struct ArticuloDeTecla {
  QString nombre;
  int departamento = 0;
};
using ArticulosDeTecla = std::map<qint64, ArticuloDeTecla>;

enum class Reparo { NoEsta, DeSistema, Repetido, SinFuncion };

// A key as it is shown.
struct CaraDeTecla {
  TipoTecla tipo = TipoTecla::Funcion;
  bool nula = true;
  int numero = 0;                       // within its kind
  std::optional<qint64> articulo = {};  // of a direct PLU
  int departamento = 0;                 // of its article, 0 if it doesn't exist
  QString rotulo = {};                  // what a person reads on it; may be empty
  QString queHace = {};                 // in words
  std::optional<Reparo> reparo = {};
  QString queLePasa = {};  // the same in words
  bool operator==(const CaraDeTecla&) const = default;
};
// By key, from 1.
std::vector<CaraDeTecla> caras(const TecladoEditado& teclado, const CodigosDeTecla& codigos,
                               const ArticulosDeTecla& existen, const Textos& textos);

// The codes without which nothing can be sold, the figures and TOTAL, that the factory keyboard of
// the model has and no key of this one has. An Ebony machine's can't be changed.
std::set<int> codigosQueFaltan(const TecladoEditado& teclado, Idioma idioma);

}  // namespace tarvo::devices
