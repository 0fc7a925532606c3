// A shop with its catalogue and the batches of changes to its articles.
#pragma once

#include "articles/Lotes.h"
#include "articles/TablasArticulos.h"
#include "textos/TextosDePrueba.h"
#include "tienda/TiendaVacia.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

struct TiendaDeLotes : TiendaVacia {
  TiendaDeLotes() : TiendaVacia({articles::tablasArticulos()}) {}
  // Articles of section 1, held by group 7: "A10" at 1,00 with bar code "B10".
  void conArticulos(std::initializer_list<int> codigos, const Campos& mas = {}) {
    almacen(1, u"A"_s).seccion(1, u"UNA"_s).grupo({.codigo = 7, .almacen = 1});
    for (const int n : codigos)
      articulo({.codigo = n,
                .nombre = u"A%1"_s.arg(n),
                .depto = 1,
                .precio = 100,
                .barras = u"B%1"_s.arg(n),
                .mas = mas})
          .cruce(7, {n});
  }

  RelojVirtual reloj{Fecha::de(QDate(2026, 3, 2), QTime(9, 0))};
  articles::Catalogo catalogo{*db, textosDePrueba(), reloj, u"Ana"_s};
  articles::Lotes lotes{catalogo};
};

}  // namespace tarvo::prueba
