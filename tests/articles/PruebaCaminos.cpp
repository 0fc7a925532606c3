// Every way of changing an article, and what becomes due to the machines.
#include "articles/TiendaDeArticulos.h"

namespace tarvo::prueba {

namespace {

struct Camino {
  const char* nombre;
  std::function<void(TiendaDeArticulos&)> andar;
  const char* cruces;       // afterwards
  const char* modificadas;  // sections
};

const ClaveArticulo kDiez{3, 10};
const std::vector<ClaveArticulo> kDiezSolo{kDiez};

void modificar(TiendaDeArticulos& t, const std::function<void(Articulo&)>& como) {
  Articulo a = t.articulo(3, 10);
  como(a);
  bien(t.catalogo.modificar(kDiez, a, u"xEditPLU"_s));
}

const Camino kCaminos[] = {
    {"new in the editor",
     [](TiendaDeArticulos& t) {
       Articulo a;
       a.clave = {3, 50};
       a.depto = 1;
       bien(t.catalogo.crear(a, u"xEditPLU"_s));
     },
     "3 10 1 0 | 3 10 4 0", "3"},
    {"the editor",
     [](TiendaDeArticulos& t) { modificar(t, [](Articulo& a) { a.textoEtq = u"Sal"_s; }); }, "",
     "3"},
    {"a cell of the list",
     [](TiendaDeArticulos& t) { modificar(t, [](Articulo& a) { a.nombre = u"Otro"_s; }); }, "",
     "3"},
    {"changed and changed back",
     [](TiendaDeArticulos& t) {
       modificar(t, [](Articulo& a) { a.nombre = u"Otro"_s; });
       modificar(t, [](Articulo& a) { a.nombre = u"Artículo 10"_s; });
     },
     "", "3"},
    {"the price grid",
     [](TiendaDeArticulos& t) {
       Precios p = t.articulo(3, 10).precios;
       p[2][7] = 250;
       bien(t.catalogo.ponerPrecios(kDiez, p, u"BrowPLUs"_s));
     },
     "", "3"},
    {"the price grid left as it was",
     [](TiendaDeArticulos& t) {
       bien(t.catalogo.ponerPrecios(kDiez, t.articulo(3, 10).precios, u"BrowPLUs"_s));
     },
     "3 10 1 0 | 3 10 4 0", ""},
    {"another code",
     [](TiendaDeArticulos& t) { modificar(t, [](Articulo& a) { a.clave.codigo = 12; }); },
     "3 10 1 1 | 3 10 4 1", "3"},
    {"a code that was deleted before",
     [](TiendaDeArticulos& t) {
       bien(t.catalogo.borrar(std::vector<ClaveArticulo>{{3, 11}}));
       modificar(t, [](Articulo& a) { a.clave.codigo = 11; });
     },
     "3 10 1 1 | 3 10 4 1", "3"},
    {"deleted", [](TiendaDeArticulos& t) { EXPECT_EQ(bien(t.catalogo.borrar(kDiezSolo)), 1); },
     "3 10 1 1 | 3 10 4 1", "3"},
    {"deleted where no group can be told",
     [](TiendaDeArticulos& t) {
       t.sql(u"update GRUPOS set TIPO=2 where SECCION=7"_s);
       bien(t.catalogo.borrar(std::vector<ClaveArticulo>{{7, 11}}));
     },
     "3 10 1 0 | 3 10 4 0", "7"},
    {"copied", [](TiendaDeArticulos& t) { bien(t.catalogo.copiar(kDiezSolo, 7, u"EntNmSc"_s)); },
     "3 10 1 0 | 3 10 4 0", ""},
    {"copied where another of its code was sent",
     [](TiendaDeArticulos& t) {
       t.en(7).cruce(5, {10});
       bien(t.catalogo.copiar(kDiezSolo, 7, u"EntNmSc"_s));
     },
     "3 10 1 0 | 3 10 4 0", ""},
    {"moved", [](TiendaDeArticulos& t) { bien(t.catalogo.mover(kDiezSolo, 7)); },
     "3 10 1 1 | 3 10 4 1", ""},
    {"not moved, the code is taken there",
     [](TiendaDeArticulos& t) {
       EXPECT_EQ(bien(t.catalogo.mover(std::vector<ClaveArticulo>{{3, 11}}, 7)).size(), 1u);
     },
     "3 10 1 0 | 3 10 4 0", ""},
    {"a department deleted",
     [](TiendaDeArticulos& t) { bien(t.secciones.borrarDepartamento(3, 1)); },
     "3 10 1 1 | 3 10 4 1", "3"},
    {"a department deleted that no group holds anything of",
     [](TiendaDeArticulos& t) { bien(t.secciones.borrarDepartamento(3, 2)); },
     "3 10 1 0 | 3 10 4 0", "3"},
    {"an empty department deleted",
     [](TiendaDeArticulos& t) {
       bien(t.secciones.borrarDepartamento(3, bien(t.secciones.nuevoDepartamento(3))));
     },
     "3 10 1 0 | 3 10 4 0", ""},
    {"its section deleted",
     [](TiendaDeArticulos& t) {
       modificar(t, [](Articulo& a) { a.nombre = u"Otro"_s; });
       bien(t.secciones.borrar(3));
     },
     "", ""},
    {"its section copied",
     [](TiendaDeArticulos& t) {
       CopiaSeccion copia(t.catalogo, 3);
       qint64 hechos = 0, total = 0;
       while (bien(copia.paso(hechos, total))) {
       }
     },
     "3 10 1 0 | 3 10 4 0", ""},
    {"many at once, one of which is a system article",
     [](TiendaDeArticulos& t) {
       for (const qint64 codigo : {10, 11, 20}) {
         Precios p = t.articulo(3, codigo).precios;
         for (auto& nivel : p)
           for (qint64& precio : nivel) precio += 5;
         bien(t.catalogo.ponerPrecios({3, codigo}, p, u"Masivo"_s));
       }
       EXPECT_FALSE(t.catalogo.ponerPrecios({3, 1}, Precios{{{5}}}, u"Masivo"_s));
     },
     "", "3"},
};

}  // namespace

TEST(Caminos, LoQueOyenLasMaquinas) {
  for (const Camino& c : kCaminos) {
    TiendaDeArticulos t;
    c.andar(t);
    EXPECT_EQ(t.cruces().toStdString(), c.cruces) << c.nombre;
    EXPECT_EQ(t.modificadas().toStdString(), c.modificadas) << c.nombre;
    // Whatever is done, the system articles of an existing section survive.
    EXPECT_EQ(
        t.leer(
            u"select count(*) from SECCS where (select count(*) from PLUSES where SECCION=NMSECC and CODPLU<3)<>2"_s),
        u"0")
        << c.nombre;
  }
}

}  // namespace tarvo::prueba
