// A keyboard as a person edits it: the code of each key, the articles of the direct PLUs and the
// direct tares. Reads and writes the three stored texts and the clipboard form, both described in
// docs/formatos.md. Lines that can't be read are skipped, so that a damaged text gives keys that do
// nothing.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "core/valores/Resultado.h"
#include "devices/CodigosDeTecla.h"

namespace tarvo::devices {

struct TextosTeclado {
  QString Teclado, HARDPLU, TARASME;
  bool operator==(const TextosTeclado&) const = default;
};

class Teclado {
 public:
  explicit Teclado(int teclas);
  int teclas() const { return static_cast<int>(codigos_.size()); }

  // Keys, direct PLUs and direct tares count from 1. REQUIRE a number within their size.
  int codigo(int tecla) const { return codigos_.at(static_cast<size_t>(tecla - 1)); }
  void codigo(int tecla, int codigo) { codigos_.at(static_cast<size_t>(tecla - 1)) = codigo; }
  // The target gets the code, the source does nothing any more; on itself nothing.
  void mover(int de, int a);
  // Nothing for a direct PLU without an article.
  std::optional<qint64> articulo(int directo) const {
    return plus_.at(static_cast<size_t>(directo - 1));
  }
  // The system articles, which no key can sell, are kept as they were read.
  void articulo(int directo, std::optional<qint64> articulo);
  std::optional<int> tara(int directa) const { return taras_.at(static_cast<size_t>(directa - 1)); }
  void tara(int directa, std::optional<int> gramos) {
    taras_.at(static_cast<size_t>(directa - 1)) = gramos;
  }

  // Replaces the keys, and those direct PLUs and tares that the texts name.
  void leer(const TextosTeclado& textos);
  TextosTeclado escribir() const;

  QString portapapeles() const;
  // Whether a clipboard text is of a keyboard: nothing, one with other keys, one with the same.
  enum class Pegado { NoEsTeclado, OtrasTeclas, Igual };
  Pegado quePega(const QString& texto) const;
  // With other keys only the direct PLUs and tares are taken.
  void pegar(const QString& texto);

  bool operator==(const Teclado&) const = default;

 private:
  void leerTeclas(const QString& texto);
  void leerDirectos(const QString& plus, const QString& taras);

  std::vector<int> codigos_;
  std::vector<std::optional<qint64>> plus_;
  std::vector<std::optional<int>> taras_;
};

// The keyboard of an Ebony machine: a single text, and a value in each key.
class TecladoEbony {
 public:
  enum class Tipo : int { PluDirecto = 0, Tara = 1, Nulo = 2 };
  struct Tecla {
    Tipo tipo = Tipo::Nulo;
    qint64 valor = 0;
    bool operator==(const Tecla&) const = default;
  };
  explicit TecladoEbony(int teclas) : teclas_(static_cast<size_t>(teclas)) {}
  int teclas() const { return static_cast<int>(teclas_.size()); }
  const Tecla& tecla(int n) const { return teclas_.at(static_cast<size_t>(n - 1)); }
  void tecla(int n, Tecla t) { teclas_.at(static_cast<size_t>(n - 1)) = t; }
  void leer(const QString& texto);
  QString escribir() const;
  bool operator==(const TecladoEbony&) const = default;

 private:
  std::vector<Tecla> teclas_;
};

}  // namespace tarvo::devices
