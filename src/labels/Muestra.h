// What the printer makes of a format with a real article, and what comes out badly.
#pragma once

#include <array>

#include "articles/Catalogo.h"
#include "core/ajustes/Ajustes.h"
#include "labels/Manchas.h"

namespace tarvo::labels {

// What each type of field prints.
struct Ejemplo {
  QString nombre = {};                      // of what it is an example
  std::array<QString, 19> textos = {};      // by TipoCampo
  std::array<QString, 6> razonSocial = {};  // the header lines of a ticket
  bool operator==(const Ejemplo&) const = default;
};

class Muestras {
 public:
  // REQUIRES that both outlive it.
  Muestras(articles::Catalogo& catalogo, const Ajustes& ajustes)
      : catalogo_(catalogo), ajustes_(ajustes) {}

  // An article of 1,234 kg, or one unit of it, sold today. NoExiste if there is no such article.
  Resultado<Ejemplo> deArticulo(articles::ClaveArticulo clave);
  // All the longest at once that the section has: name, text, price, bar code, days, header lines;
  // with the heaviest weight that a scale shows. NoExiste for a section without articles.
  Resultado<Ejemplo> peorCaso(int seccion);

 private:
  Ejemplo de(const articles::Articulo& articulo, qint64 cantidad) const;
  Resultado<> ponerCabecera(Ejemplo& e, int seccion, bool laMasLarga) const;
  QString importe(qint64 n, int moneda) const;

  articles::Catalogo& catalogo_;
  const Ajustes& ajustes_;
};

// What the field prints of it.
QString contenidoDe(const CampoEtiqueta& campo, const Ejemplo& ejemplo, const LectorTextos& textos);

// A field that comes out badly.
struct Tropiezo {
  enum class Que { Cortado, Fuera, Encima, SinBarras } que = Que::Fuera;
  size_t campo = 0, otro = 0;  // `otro`: the one on top of which it is printed
  QString letras = {};         // those that are cut off
  bool operator==(const Tropiezo&) const = default;
};

struct Impresion {
  QSize area;
  std::vector<Mancha> campos;  // in the order of the format
  std::vector<Tropiezo> tropiezos;
  bool negro(int x, int y) const;  // a dot of the area
};
Impresion imprimir(const Formato& formato, const Ejemplo& ejemplo, const LectorTextos& textos,
                   const FuenteImpresora& fuente);

}  // namespace tarvo::labels
