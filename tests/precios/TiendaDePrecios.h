// A shop with one section: articles 10, 11 and 12, groups 1 and 2 of scales and 3 of registers that
// hold them as they are here, warehouses 1 and 2.
#pragma once

#include "articles/Catalogo.h"
#include "articles/TablasArticulos.h"
#include "articles/precios/AjustesPrecios.h"
#include "core/ajustes/Ajustes.h"
#include "textos/TextosDePrueba.h"
#include "tienda/TiendaVacia.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

struct TiendaDePrecios : TiendaVacia {
  TiendaDePrecios() : TiendaVacia({articles::tablasArticulos()}) {
    seccion(1, u"Carne", u"4@10@21").departamento(1, u"D", 2).departamento(2, u"D", 9);
    for (const int codigo : {10, 11, 12})
      articulo({.codigo = codigo,
                .nombre = u"Articulo %1"_s.arg(codigo),
                .depto = 1,
                .precio = codigo * 100,
                .coste = 500});
    almacen(1).almacen(2, u"Camara");
    for (const auto& [codigo, tipo] : {std::pair{1, 1}, {2, 4}, {3, 3}})
      grupo({.codigo = codigo, .tipo = tipo, .almacen = 1});
    cruce(1, {10, 11, 12}).cruce(2, {10, 11, 12});
  }
  // The groups that hold the article as it is here.
  QString loTienen(int codigo) {
    return leer(u"select Grupo from [Cross] where borra=0 and plu=%1 order by Grupo"_s.arg(codigo));
  }

  RelojVirtual reloj{momento("05/06/2018 22:15:00")};
  Ajustes ajustes{carpeta.path(), Idioma::Espanol, {precios::ajustesPrecios()}};
  articles::Catalogo catalogo{*db, textosDePrueba(), reloj, u"Ana"_s};
};

}  // namespace tarvo::prueba
