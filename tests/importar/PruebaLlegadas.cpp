// Every way an article gets a code: what belonged to a deleted article of that code is not
// inherited.
#include "articles/importar/ImpPLU.h"
#include "importar/TiendaDeImportar.h"

namespace tarvo::importar {
namespace {

using articles::Articulo;
using articles::ClaveArticulo;

struct Llegadas : TiendaDeImportar {
  Llegadas() {
    for (const int codigo : {10, 11}) en(1).articulo({.codigo = codigo, .depto = 1, .precio = 300});
    en(2).grupo({.codigo = 8}).articulo({.codigo = 11, .depto = 1, .precio = 300});
  }
  // A deleted article that had an offer on the scales, a history and a group holding it.
  void queHubo(int seccion, int codigo) {
    en(seccion)
        .articulo({.codigo = codigo, .depto = 1, .precio = 300})
        .oferta({.grupo = seccion + 6, .codigo = codigo, .precio = 99, .enviado = 1})
        .fila(u"HistoriaPrecios", {{u"SECCION", seccion}, {u"CODPLU", codigo}, {u"AHORA", 111}});
    bien(catalogo.borrar(std::vector<ClaveArticulo>{{seccion, codigo}}));
  }
};

TEST_F(Llegadas, NadaSeHeredaDeUnCodigo) {
  const auto nuevo = [&](int codigo) {
    Articulo a;
    a.clave = {1, codigo};
    a.depto = 1;
    a.precios[0][0] = 500;
    return a;
  };
  const struct {
    const char* camino;
    ClaveArticulo llega;
    std::function<void()> andar;
  } caminos[] = {
      {"new", {1, 50}, [&] { bien(catalogo.crear(nuevo(50), u"V"_s)); }},
      {"another code",
       {1, 51},
       [&] {
         Articulo a = *bien(catalogo.leer({1, 10}));
         a.clave.codigo = 51;
         bien(catalogo.modificar({1, 10}, a, u"V"_s));
       }},
      {"copied",
       {2, 51},
       [&] { bien(catalogo.copiar(std::vector<ClaveArticulo>{{1, 51}}, 2, u"V"_s)); }},
      {"moved", {2, 50}, [&] { bien(catalogo.mover(std::vector<ClaveArticulo>{{1, 50}}, 2)); }},
      {".PLU",
       {1, 52},
       [&] {
         const QString r = u"0010000052"_s + u"PAN"_s.leftJustified(20) + u"0000321"_s +
                           u"000500"_s + QString(23 * 6, u'0') + u"0101"_s + QString(8, u' ');
         auto i = bien(ImpPLU::abrir(catalogo, fichero(r.toLatin1())));
         while (bien(i->paso(SiExiste::Sobreescribirlo))) continue;
         bien(i->acabar());
       }},
  };
  for (const auto& c : caminos) {
    SCOPED_TRACE(c.camino);
    queHubo(c.llega.seccion, static_cast<int>(c.llega.codigo));
    c.andar();
    const auto suyo = [&](const QString& que, const QString& codigo) {
      return leer(u"SELECT %1 AND SECCION=%2 AND %3=%4"_s.arg(que)
                      .arg(c.llega.seccion)
                      .arg(codigo)
                      .arg(c.llega.codigo));
    };
    EXPECT_EQ(suyo(u"count(*) FROM PLUSES WHERE 1=1"_s, u"CODPLU"_s), u"1");
    EXPECT_EQ(suyo(u"count(*) FROM OFERTAS WHERE 1=1"_s, u"CODIGO"_s), u"0")
        << "it would sell at the offer of the article that was deleted";
    EXPECT_EQ(suyo(u"count(*) FROM HistoriaPrecios WHERE AHORA=111"_s, u"CODPLU"_s), u"0");
    EXPECT_EQ(leer(u"SELECT count(*) FROM [Cross] WHERE Secc=%1 AND plu=%2"_s.arg(c.llega.seccion)
                       .arg(c.llega.codigo)),
              u"0");
  }
}

TEST_F(Llegadas, SusOfertasVuelvenConElQueSeDevuelve) {
  oferta({.grupo = 7, .codigo = 10, .precio = 99});
  const qint64 lote = bien(lotes.empezar(u"V"_s));
  bien(lotes.guardar(lote, {1, 10}));
  bien(catalogo.borrar(std::vector<ClaveArticulo>{{1, 10}}));
  bien(lotes.acabar(lote));
  bien(lotes.deshacer(lote, u"V"_s));
  EXPECT_EQ(leer(u"SELECT CODIGO, PRECIO_0 FROM OFERTAS"_s), u"10 99");
}

}  // namespace
}  // namespace tarvo::importar
