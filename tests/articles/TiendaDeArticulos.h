// A shop with two sections and groups of all kinds, for the tests of the catalogue.
#pragma once

#include "articles/Catalogo.h"
#include "articles/Operadores.h"
#include "articles/Secciones.h"
#include "articles/TablasArticulos.h"
#include "textos/TextosDePrueba.h"
#include "tienda/TiendaVacia.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;
using namespace articles;

// Section 3 has departments 1 and 2, articles 10 and 11 of 1 and 20 of 2; section 7 has article 11.
// Groups 1, 2, 3, 4 of kinds 1, 2, 3, 4 are of section 3, group 5 of kind 1 of section 7. Groups 1
// and 4 hold article 10.
struct TiendaDeArticulos : TiendaVacia {
  TiendaDeArticulos() : TiendaVacia({tablasArticulos()}) {
    almacen(0, u"Central"_s);
    for (const int s : {7, 3})
      seccion(s, u"Sección %1"_s.arg(s))
          .articulo({.codigo = 1, .nombre = u"VENTA LIBRE"})
          .articulo({.codigo = 2, .nombre = u"VENTA LIBRE"});
    departamento(1).departamento(2);
    for (const int g : {1, 2, 3, 4}) grupo({.codigo = g, .tipo = g});
    for (const int c : {10, 11, 20}) enVenta(c);
    cruce(1, {10}).cruce(4, {10});
    en(7).grupo({.codigo = 5});
    enVenta(11);
    en(3);
  }

  using Tienda::articulo;
  Articulo articulo(int seccion, qint64 codigo) {
    const auto a = bien(catalogo.leer({seccion, codigo}));
    EXPECT_TRUE(a.has_value()) << seccion << ' ' << codigo;
    return a.value_or(Articulo{});
  }
  void enVenta(int codigo) {
    articulo({.codigo = codigo,
              .nombre = u"Artículo %1"_s.arg(codigo),
              .depto = codigo / 10,
              .precio = 100});
  }
  // "3 10 1 0 | ...": section, article, group, to be deleted.
  QString cruces() {
    return leer(u"select Secc, plu, Grupo, borra from [Cross] order by Secc, plu, Grupo"_s);
  }
  QString modificadas() {
    QStringList s;
    for (const int n : catalogo.cambios().SeccionesModificadas()) s << QString::number(n);
    return s.join(u' ');
  }

  RelojVirtual reloj{*Fecha::leer(u"04/06/2018 10:00:00"_s)};
  Textos textos = textosDePrueba();
  Catalogo catalogo{*db, textos, reloj, u"ana@caja"_s};
  Secciones secciones{catalogo};
  Operadores operadores{*db, textos};
};

}  // namespace tarvo::prueba
