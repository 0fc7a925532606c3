// The label formats in the store, and the positions of scales that name them. Each operation is one
// transaction.
#pragma once

#include "articles/Catalogo.h"
#include "core/dao/Origen.h"

namespace tarvo::labels {

struct Etiqueta {
  QString nombre = {};
  std::optional<QString> campos = {}, juego = {};  // its text, its text set; either may be missing
};

class Etiquetas {
 public:
  // In the store of the catalogue, which must outlive it.
  explicit Etiquetas(articles::Catalogo& catalogo)
      : db_(catalogo.base()), textos_(catalogo.textos()) {}

  // NoExiste if there is none of that name.
  Resultado<Etiqueta> leer(const QString& nombre);
  // The number of scales that print with it.
  Resultado<int> balanzasCon(const QString& nombre);

  // An empty format. Returns its name as it is stored: a number loses the zeros before it.
  // Restriccion for an empty name, Duplicado for one in use.
  Resultado<QString> crear(const QString& nombre);
  // NoExiste when it has been deleted meanwhile.
  Resultado<> guardar(const Etiqueta& etiqueta);
  Resultado<> ponerJuego(const QString& nombre, const std::optional<QString>& juego);
  // Also in every position of the scales that names it. Errors and result as of crear().
  Resultado<QString> renombrar(const QString& nombre, const QString& nuevo);

  struct Borrada {
    Etiqueta etiqueta;
    struct Uso {
      int grupo = 0, balanza = 0, posicion = 0;  // from 11 to 20
    };
    std::vector<Uso> usos;
  };
  // Empties those positions. Returns what was deleted, for reponer().
  Resultado<Borrada> borrar(const QString& nombre);
  // Duplicado when the name is in use again. Returns the number of positions left as they are
  // because they have another format by now, or their scale is gone.
  Resultado<int> reponer(const Borrada& borrada);

 private:
  Resultado<QString> nombreBueno(const QString& nombre) const;
  Resultado<QString> comoEsta(const QString& nombre);

  dao::Database& db_;
  const Textos& textos_;
};

// All formats, by name; the column NUMETQ.
dao::Origen listaEtiquetas();

}  // namespace tarvo::labels
