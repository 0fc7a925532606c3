// A deleted section comes back with all that any room keeps by the numbers of its groups.
#include <QTemporaryDir>

#include "app/Aplicacion.h"
#include "app/Datos.h"
#include "articles/BorradoSeccion.h"
#include "comm/cables/FabricaReal.h"
#include "core/tiempo/Reloj.h"
#include "textos/TextosDePrueba.h"
#include "tienda/Tienda.h"

namespace tarvo::prueba {
namespace {

using namespace Qt::StringLiterals;

struct Entera : Tienda {
  Entera() { bien(aplicacion.empezar()); }
  dao::Database& base() override { return *fondo->db; }

  QTemporaryDir carpeta;
  RelojReal reloj;
  std::unique_ptr<app::Fondo> fondo =
      bien(app::Fondo::abrir(carpeta.path(), Idioma::Espanol, textosDePrueba(), reloj));
  app::Datos datos{{}, textosDePrueba()};
  enlace::FabricaReal fabrica{reloj, fondo->ajustes};
  app::Aplicacion aplicacion{*fondo, reloj, fabrica, 1, datos};
};

TEST(Secciones, VuelvenConLoQueTienenSusGrupos) {
  Entera t;
  t.seccion(3, u"PESCADO"_s).grupo({.codigo = 9}).articulo({.codigo = 10});
  const std::pair<QString, QString> filas[] = {
      {u"Enviados"_s,
       u"(GRUPO, SECCION, CODPLU, HUELLA, HUELLA_PRE, CUANDO) values (9, 3, 10, 7, 8, 43000)"_s},
      {u"Retenidos"_s,
       u"(GRUPO, SECCION, CODPLU, MOTIVO, DESDE) values (9, 3, 11, 'no cabe', 43000)"_s},
      {u"EnviosGrupo"_s, u"(GRUPO, SECCION, TARIFA, MAQUINA) values (9, 3, 1, 'x')"_s},
      {u"BorradosGrupo"_s, u"(GRUPO, CODPLU, CUANDO) values (9, 12, 43000)"_s},
      {u"FichasPedidas"_s, u"(GRUPO, CODPLU, FICHA) values (9, 10, 'ABBA')"_s}};
  QStringList tablas;
  for (const auto& [tabla, fila] : filas) {
    t.sql(u"insert into "_s + tabla + u' ' + fila);
    tablas << tabla;
  }
  tablas.sort();
  EXPECT_EQ(
      t.leer(u"select distinct m.name from sqlite_master m, pragma_foreign_key_list(m.name) f "
             u"where f.[table]='GRUPOS' order by m.name"_s),
      tablas.join(u" | "_s))
      << "a table that goes with a group isn't tried here";
  const auto todo = [&] {
    QStringList s;
    for (const QString& tabla : tablas) s << t.leer(u"select * from "_s + tabla);
    return s.join(u'\n').toStdString();
  };
  const std::string antes = todo();
  articles::BorradoSeccion ida(t.aplicacion.catalogo(), 3);
  bien(ida.borrar(t.carpeta.path(), t.reloj.ahora()));
  for (const QString& tabla : tablas) EXPECT_EQ(t.leer(u"select * from "_s + tabla), u"");
  bien(ida.reponer());
  EXPECT_EQ(todo(), antes);
}

}  // namespace
}  // namespace tarvo::prueba
