// A shop with two sections and groups of all kinds, for the tests of the catalogue.
#pragma once

#include "articles/Catalogo.h"
#include "articles/Operadores.h"
#include "articles/Secciones.h"
#include "articles/TablasArticulos.h"
#include "stock/BaseVacia.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;
using namespace articles;

// Section 3 has departments 1 and 2, articles 10 and 11 of 1 and 20 of 2; section 7 has article 11.
// Groups 1, 2, 3, 4 of kinds 1, 2, 3, 4 are of section 3, group 5 of kind 1 of section 7. Groups 1
// and 4 hold article 10.
struct Tienda : BaseVacia {
  Tienda() {
    bien(asegurarTablasArticulos(*db));
    sql(u"insert into ALMACEN (CODALM, NOMALM) values (0, 'Central')"_s);
    for (const int s : {3, 7}) {
      sql(u"insert into SECCS (NMSECC, NOMSEC) values (?, ?)"_s, s, u"Sección %1"_s.arg(s));
      for (const int c : {1, 2})
        sql(u"insert into PLUSES (SECCION, CODPLU, NOMPLU) values (?, ?, 'VENTA LIBRE')"_s, s, c);
    }
    for (const int d : {1, 2})
      sql(u"insert into DEPTS (SECCION, NUMDEP, NomDep) values (3, ?, 'Dep')"_s, d);
    for (int g = 1; g <= 5; ++g)
      sql(u"insert into GRUPOS (CODGPO, NOMGPO, SECCION, TIPO) values (?, 'G', ?, ?)"_s, g,
          g == 5 ? 7 : 3, g == 5 ? 1 : g);
    for (const auto& [seccion, codigo, depto] :
         {std::tuple{3, 10, 1}, {3, 11, 1}, {3, 20, 2}, {7, 11, 1}})
      sql(u"insert into PLUSES (SECCION, CODPLU, NOMPLU, DEPTO, PRECIO_00) values (?, ?, ?, ?, 100)"_s,
          seccion, codigo, u"Artículo %1"_s.arg(codigo), depto);
    for (const int g : {1, 4})
      sql(u"insert into [Cross] (Secc, plu, Grupo, borra) values (3, 10, ?, 0)"_s, g);
  }

  Articulo articulo(int seccion, qint64 codigo) {
    const auto a = bien(catalogo.leer({seccion, codigo}));
    EXPECT_TRUE(a.has_value()) << seccion << ' ' << codigo;
    return a.value_or(Articulo{});
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
  Secciones secciones{*db, textos, catalogo.cambios()};
  Operadores operadores{*db, textos};
};

}  // namespace tarvo::prueba
