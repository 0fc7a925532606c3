// The text sets in the store and the shop's own texts in the settings, edited on a copy of all of
// them.
#pragma once

#include <array>
#include <map>

#include "articles/Catalogo.h"
#include "labels/TextosEtiqueta.h"

namespace tarvo::labels {

// All sets, and the shop's own texts for formats without one.
struct Juegos {
  std::map<QString, QString> juegos;  // name to lines
  std::array<QString, kTextosLibres> propios;
  bool operator==(const Juegos&) const = default;
};

class JuegosTextos {
 public:
  // In the store of the catalogue. REQUIRES that both outlive it.
  JuegosTextos(articles::Catalogo& catalogo, Ajustes& ajustes)
      : db_(catalogo.base()), ajustes_(ajustes), textos_(catalogo.textos()) {}

  Resultado<Juegos> leer();
  // The lines of a set; nothing if there is none of that name.
  Resultado<std::optional<QString>> lineas(const QString& nombre);
  // Stores what differs from `antes`, as leer() gave it: sets in one transaction, then the
  // settings. After a failure of either `ahora` may be stored again.
  Resultado<> guardar(const Juegos& antes, const Juegos& ahora);

  // --- on a copy
  // Text 1 to 40 of a set, or of the shop where there is no set of that name.
  QString texto(const Juegos& en, const std::optional<QString>& juego, int n) const;
  // A free text; nothing for another number. A text of more lines becomes one.
  static void poner(Juegos& en, const std::optional<QString>& juego, int n, const QString& texto);
  // Restriccion for an empty name or one that is a number, Duplicado for one in use.
  Resultado<> crear(Juegos& en, const QString& nombre) const;

 private:
  dao::Database& db_;
  Ajustes& ajustes_;
  const Textos& textos_;
};

}  // namespace tarvo::labels
