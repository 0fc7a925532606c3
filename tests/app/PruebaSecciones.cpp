// A deleted section comes back with all that any room keeps by the numbers of its groups.
#include <QTemporaryDir>

#include "app/Aplicacion.h"
#include "app/Datos.h"
#include "articles/BorradoSeccion.h"
#include "articles/Secciones.h"
#include "comm/cables/FabricaReal.h"
#include "core/tiempo/Reloj.h"
#include "devices/Modelos.h"
#include "groups/Grupos.h"
#include "textos/TextosDePrueba.h"
#include "tienda/Tienda.h"
#include "totals/libros/Grupos.h"
#include "totals/libros/Sesion.h"

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

// Group 9 of section 3, with a row in every table of any room that keeps something by its code.
struct ConTodo : Entera {
  ConTodo() {
    seccion(3, u"PESCADO"_s).grupo({.codigo = 9}).articulo({.codigo = 10});
    seccion(4).articulo({.codigo = 20});
    const std::pair<QString, QString> filas[] = {
        {u"BorradosGrupo"_s, u"(GRUPO, CODPLU, CUANDO) values (9, 12, 43000)"_s},
        {u"ConfigAceptada"_s, u"(GRUPO, MAQUINA, CLASE, HUELLA) values (9, 0, 2, 'x')"_s},
        {u"Enviados"_s,
         u"(GRUPO, SECCION, CODPLU, HUELLA, HUELLA_PRE, CUANDO) values (9, 3, 10, 7, 8, 43000)"_s},
        {u"EnviosGrupo"_s, u"(GRUPO, SECCION, TARIFA, MAQUINA) values (9, 3, 1, 'x')"_s},
        {u"FichasPedidas"_s, u"(GRUPO, CODPLU, FICHA) values (9, 10, 'ABBA')"_s},
        {u"Retenidos"_s,
         u"(GRUPO, SECCION, CODPLU, MOTIVO, DESDE) values (9, 3, 11, 'no cabe', 43000)"_s}};
    for (const auto& [tabla, fila] : filas) poner(tabla, fila);
    EXPECT_EQ(
        leer(u"select distinct m.name from sqlite_master m, pragma_foreign_key_list(m.name) f "
             u"where f.[table]='GRUPOS' order by m.name"_s),
        tablas.join(u" | "_s))
        << "a table that goes with a group isn't tried here";
    // Without a foreign key: a received list that a later group would continue, what it was sent
    // and offered of the section that it was in before, and the books.
    poner(u"ListasRecibidas"_s,
          u"(GRUPO, CLASE, NUMERO, HUELLA, LINEAS) values (9, 1, 1, 'x', 2)"_s);
    poner(
        u"OFERTAS"_s,
        u"(GRUPO, SECCION, CODIGO, PRECIO_0, FECHA_INI, FECHA_FIN) values (9, 4, 20, 5, 43000, 43001)"_s);
    poner(u"[Cross]"_s, u"(Secc, plu, Grupo, borra) values (4, 20, 9, 1)"_s);
    poner(u"Sesiones"_s, u"(CODGPO, PZERO) values (9, 43000)"_s);
    poner(u"BZAS"_s, u"(SUGPO, NMBZA, ADDR, TIPO) values (9, 4, 77, 1)"_s);
    for (const auto& t : totals::tablasDeGrupo()) {
      if (t.donde.isEmpty())
        ponerCeros(t.tabla);
      else
        poner(t.tabla, u"(LINK, GRUPO, CODI, CON) values (0, 9, 1, 0)"_s);
    }
  }
  void poner(const QString& tabla, const QString& fila) {
    sql(u"insert into "_s + tabla + u' ' + fila);
    tablas << tabla;
  }
  // Zeros in the other columns of its key.
  void ponerCeros(const QString& tabla) {
    QString columnas = u"GRUPO"_s, valores = u"9"_s;
    for (const QString& otra :
         leer(u"select name from pragma_table_info('%1') where pk>0 and name<>'GRUPO'"_s.arg(tabla))
             .split(u" | "_s, Qt::SkipEmptyParts)) {
      columnas += u", "_s + otra;
      valores += u", 0"_s;
    }
    poner(tabla, u"(%1) values (%2)"_s.arg(columnas, valores));
  }
  std::string todo() {
    QStringList s;
    for (const QString& tabla : tablas)
      s << leer(
          u"select * from %1 where %2 in (9, 12)"_s.arg(tabla, tabla == u"Sesiones" ? u"CODGPO"_s
                                                               : tabla == u"BZAS"   ? u"SUGPO"_s
                                                                                    : u"GRUPO"_s));
    return s.join(u'\n').toStdString();
  }
  QStringList tablas;
};

TEST(Secciones, VuelvenConLoQueTienenSusGrupos) {
  ConTodo t;
  EXPECT_EQ(bien(articles::Secciones(t.aplicacion.catalogo()).loQueSeVa(3)).ofertas, 1);
  const std::string antes = t.todo();
  articles::BorradoSeccion ida(t.aplicacion.catalogo(), 3);
  bien(ida.borrar(t.carpeta.path(), t.reloj.ahora()));
  EXPECT_EQ(QString::fromStdString(t.todo()).trimmed(), u"");
  bien(ida.reponer());
  EXPECT_EQ(t.todo(), antes);
}

// A group keeps what all rooms know of it: saved as it is, under another code and back, deleted and
// restored.
TEST(Grupos, LoQueSeSabeDeUnGrupoVaConEl) {
  ConTodo t;
  groups::Grupos grupos(t.aplicacion.catalogo(), t.fondo->ajustes);
  auto g = bien(grupos.cargar(9));
  bien(grupos.guardar(g, 9, u"Nueve"_s));  // what an older database lacks is filled in
  const std::string antes = t.todo();
  const QString grupo = t.leer(u"select * from GRUPOS where CODGPO=9"_s);
  bien(grupos.guardar(g, 9, u"Nueve"_s));
  EXPECT_EQ(t.todo(), antes);
  EXPECT_EQ(t.leer(u"select * from GRUPOS where CODGPO=9"_s), grupo);
  bien(grupos.guardar(g, 12, u"Nueve"_s));
  EXPECT_NE(t.todo(), antes);
  EXPECT_EQ(t.leer(u"select count(*) from GRUPOS where CODGPO=9"_s), u"0");
  bien(grupos.guardar(g, 9, u"Nueve"_s));
  EXPECT_EQ(t.todo(), antes);

  groups::BorradoGrupo ida(grupos, 9);
  bien(ida.borrar());
  EXPECT_EQ(QString::fromStdString(t.todo()).trimmed(), u"");
  EXPECT_FALSE(grupos.borrar(9));
  bien(ida.reponer());
  EXPECT_EQ(t.todo(), antes);
  const int copia = bien(grupos.copiar(9, 4));
  EXPECT_EQ(t.leer(u"select NOMGPO, seccion, BZAS.ADDR from GRUPOS, BZAS where CODGPO=SUGPO and "
                   u"CODGPO=%1"_s.arg(copia)),
            u"Copia de Nueve 4 77");
  EXPECT_EQ(t.todo(), antes);
  EXPECT_FALSE(grupos.guardar(g, copia, u"x"_s));
  // Other machines begin with nothing; while the inbox has sales of the former ones, none come.
  g.LasBalanzas.clear();
  devices::Balanza ebony;
  ebony.tipo(devices::kEbony);
  g.LasBalanzas.emplace(0, ebony);
  g.tipo(TipoGrupo::Ebony);
  t.sql(u"update Olvidos set SEC=1"_s);  // closed without memorising
  EXPECT_FALSE(grupos.guardar(g, 9, u"Nueve"_s));
  t.sql(u"delete from Olvidos"_s);
  EXPECT_FALSE(grupos.guardar(g, 9, u"Nueve"_s)) << "a reading waits for an answer";
  t.sql(u"delete from Dudas"_s);
  bien(grupos.guardar(g, 9, u"Nueve"_s));
  EXPECT_EQ(t.leer(u"select count(*) from BaseFilas where GRUPO=9"_s), u"0");
}

// Numbers and addresses of the registers as they are stored, each with a memorised counter whose
// code is its address; then what is known of which. A scale that left is not the one that comes.
TEST(Grupos, CadaMaquinaConservaLoSuyo) {
  Entera t;
  t.seccion(3).grupo({.codigo = 9}).grupo({.codigo = 8});
  groups::Grupos grupos(t.aplicacion.catalogo(), t.fondo->ajustes);
  auto g = bien(grupos.cargar(9));
  const auto guardar = [&](const std::map<int, int>& direcciones) {
    g.LasBalanzas.clear();
    for (const auto& [numero, direccion] : direcciones) {
      devices::Registradora caja;
      caja.Direccion = direccion;
      g.LasBalanzas.emplace(numero, caja);
    }
    return grupos.guardar(g, 9, u"Cajas"_s);
  };
  g.tipo(TipoGrupo::Registradoras);
  const struct {
    std::map<int, int> ahora;
    QString queda;
  } casos[] = {{{{1, 1}, {2, 5}, {3, 3}}, u"1:1 3:3 5:2"_s},
               {{{1, 2}, {2, 3}, {3, 4}}, u"2:1 3:2 4:3"_s},
               {{{1, 2}, {2, 1}, {3, 3}}, u"1:1 2:2 3:3"_s},
               {{{1, 2}, {2, 3}}, u"2:2 3:3"_s},
               {{{1, 1}, {2, 2}, {3, 3}, {4, 4}}, u"1:1 2:2 3:3"_s}};
  for (const auto& c : casos) {
    t.sql(u"delete from BaseFilas"_s);
    bien(guardar({{1, 1}, {2, 2}, {3, 3}}));
    for (int d = 1; d <= 3; ++d)
      t.sql(
          u"insert into BaseFilas (GRUPO, CLASE, ADDR, CODI, HORA, CON) values (9, 16, %1, %1, 0, 5)"_s
              .arg(d));
    bien(guardar(c.ahora));
    EXPECT_EQ(t.leer(u"select ADDR & ':' & CODI from BaseFilas order by ADDR"_s)
                  .replace(u" | "_s, u" "_s),
              c.queda);
  }
  auto b = bien(grupos.cargar(8));
  for (const int numero : {1, 7}) b.LasBalanzas.emplace(numero, devices::Balanza());
  bien(grupos.guardar(b, 8, u"Ocho"_s));
  t.sql(u"insert into ConfigAceptada (GRUPO, MAQUINA, CLASE) values (8, 7, 2)"_s);
  b.LasBalanzas.erase(7);
  bien(grupos.guardar(b, 8, u"Ocho"_s));
  EXPECT_EQ(t.leer(u"select count(*) from ConfigAceptada"_s), u"0");
}

// Its grand totals have its code; a group that had the new one before has left rows in a period.
TEST(Grupos, ElCodigoNuevoLlegaALosPeriodosYALaCola) {
  Entera t;
  t.seccion(3).grupo({.codigo = 9});
  t.sql(u"update GRUPOS set REMOTO=4, TELEF='x'"_s);
  for (const QStringView fila :
       {u"TOTGRT (LINK, GRUPO, CODI, CON, IMP) values (5, 9, 9, 2, 100), (5, 12, 12, 1, 1)",
        u"TOTPLU (LINK, GRUPO, CODI, CON, IMP) values (5, 9, 10, 2, 100)",
        u"BaseFilas (GRUPO, CLASE, ADDR, CODI, HORA, CON) values (9, 17, 0, 9, 0, 2)"})
    t.sql(u"insert into "_s + fila.toString());
  auto& motor = t.aplicacion.gestcomm();
  motor.CambioAModo(false);
  ASSERT_EQ(motor.NuevaTarea(9, true, 0, 9999999, TipoTarea::RxGrTot), motor::Pedida::EnCola);
  groups::Grupos grupos(t.aplicacion.catalogo(), t.fondo->ajustes);
  auto g = bien(grupos.cargar(9));
  g.Telefono = u"otro"_s;
  g.LasBalanzas.emplace(1, devices::Balanza());
  bien(grupos.guardar(g, 12, u"Doce"_s));
  EXPECT_EQ(t.leer(u"select GRUPO, CODI, CON, IMP from TOTGRT"_s), u"12 12 3 101");
  EXPECT_EQ(t.leer(u"select GRUPO, CODI, IMP from TOTPLU"_s), u"12 10 100");
  EXPECT_EQ(t.leer(u"select GRUPO, CODI from BaseFilas"_s), u"12 12");
  const auto tarea = motor.tareas().front().datos;
  EXPECT_EQ(std::pair(tarea.Grupo, tarea.Telefono), std::pair(12, u"otro"_s));
}

// Somebody emptied GRUPOS with another program: the group made anew must not take the base of a
// lost one for its own, nor may what the inbox still holds of it go.
TEST(Secciones, ElPrimerGrupoNoHeredaDeLosPerdidos) {
  QTemporaryDir carpeta;
  RelojReal reloj;
  const auto abrir = [&] {
    return bien(app::Fondo::abrir(carpeta.path(), Idioma::Espanol, textosDePrueba(), reloj));
  };
  for (const QStringView orden :
       {u"insert into BaseFilas (GRUPO, CLASE, ADDR, CODI, HORA, CON) values (1, 1, 0, 1, 0, 5)",
        u"insert into TOTGRT (LINK, GRUPO, CODI, CON, IMP) values (0, 2, 1, 3, 900)",
        u"delete from GRUPOS"})
    bien(abrir()->db->ejecutar(orden.toString()));
  const auto fondo = abrir();
  EXPECT_EQ(bien(fondo->db->uno(u"select CODGPO from GRUPOS")).entero(), 3);
  EXPECT_EQ(bien(fondo->db->uno(u"select IMP from TOTGRT where LINK=0")).entero(), 900);
}

// What waits in the queue for a deleted group would bring its rows back, and a group that gets its
// code would inherit them.
TEST(Secciones, SeVanConLasTareasDeSusGrupos) {
  Entera t;
  t.seccion(3).grupo({.codigo = 9});
  t.seccion(4).grupo({.codigo = 8});
  t.sql(u"update GRUPOS set REMOTO=4, TELEF='x'"_s);
  auto& motor = t.aplicacion.gestcomm();
  motor.CambioAModo(false);
  for (const int g : {9, 9, 8})
    ASSERT_EQ(motor.NuevaTarea(g, true, 0, 9999999, TipoTarea::RxGrTot), motor::Pedida::EnCola)
        << g;
  motor.EliminarTarea(motor.tareas().front().datos.Id);
  articles::Secciones secciones(t.aplicacion.catalogo());
  EXPECT_EQ(bien(secciones.loQueSeVa(3)).tareas, 1);
  // A process is still to talk to it: refused, with nothing gone.
  ASSERT_EQ(motor.NuevaTarea(9, true, 0, 9999999, TipoTarea::RxGrTot, 2), motor::Pedida::EnCola);
  const auto no = secciones.borrar(3);
  ASSERT_FALSE(no);
  EXPECT_EQ(no.error().clase, Fallo::Ocupado);
  EXPECT_EQ(motor.tareasDe(9), 2);
  EXPECT_EQ(t.leer(u"select count(*) from GRUPOS where CODGPO=9"_s), u"1");
  motor.EliminarTarea(motor.tareas().back().datos.Id);
  bien(secciones.borrar(3));
  EXPECT_EQ(motor.tareasDe(9), 0);
  EXPECT_EQ(motor.tareasDe(8), 1);
  EXPECT_FALSE(motor.hayQuitadas()) << "a request for the group that has gone isn't put back";
  EXPECT_EQ(t.leer(u"select count(*) from Lecturas where GRUPO=9"_s), u"0");
}

// The question before it names what was read from its groups and is in no period.
TEST(Secciones, SeSabeQueVentasSeIrian) {
  Entera t;
  t.seccion(3, u"PESCADO"_s).grupo({.codigo = 9, .nombre = u"Puerto"}).grupo({.codigo = 10});
  articles::Secciones secciones(t.aplicacion.catalogo());
  EXPECT_TRUE(bien(secciones.loQueSeVa(3)).ventas.empty());
  totals::Lectura lectura;
  lectura.maquinas[1][{9, 0}] = {.CON = 1, .PES = 500, .IMP = 1250};
  std::vector<totals::Aviso> avisos;
  bien(t.aplicacion.sesion().PrepararRecepcion(9, TipoTotal::GranTotal));
  bien(t.aplicacion.sesion().guardarLectura(9, TipoTotal::GranTotal, lectura, avisos));
  bien(t.aplicacion.sesion().PrepararRecepcion(10, TipoTotal::Horario));
  bien(t.aplicacion.sesion().guardarLectura(10, TipoTotal::Horario, lectura, avisos));
  const auto ventas = bien(secciones.loQueSeVa(3)).ventas;
  ASSERT_EQ(ventas.size(), 2U) << "known by hours alone as well";
  EXPECT_EQ(std::tuple(ventas[0].grupo, ventas[0].nombre, ventas[0].importe),
            std::tuple(9, u"Puerto"_s, qint64{1250}));
}

}  // namespace
}  // namespace tarvo::prueba
