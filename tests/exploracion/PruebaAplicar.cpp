// What was found becomes groups and channels of a whole shop.
#include <QDir>
#include <QTemporaryDir>

#include "app/Aplicacion.h"
#include "app/Datos.h"
#include "comm/cables/AjustesCables.h"
#include "comm/cables/FabricaReal.h"
#include "comm/exploracion/Accesos.h"
#include "comm/exploracion/Aplicar.h"
#include "textos/TextosDePrueba.h"
#include "tienda/Tienda.h"

namespace tarvo::prueba {
namespace {

using namespace Qt::StringLiterals;
using exploracion::Hallazgo;
using exploracion::ResultadoCanal;

struct Entera : Tienda {
  Entera() { bien(aplicacion.empezar()); }
  dao::Database& base() override { return *fondo->db; }
  QString grupos() {
    return leer(
        u"select CODGPO, tipo, remoto, canal, TELEF, ADDR, (select group_concat(NMBZA & ':' & "
        u"TIPO) from BZAS where SUGPO=CODGPO) from GRUPOS order by CODGPO"_s);
  }
  QString usos() const {
    QString s;
    for (const auto& canal : fondo->ajustes.de<enlace::AjustesCables>().canales)
      s += QString::number(numeroDe(canal.Device));
    return s;
  }
  // On the four ports of the settings, or at an access named apart.
  Hallazgo hallazgo(int canal, ResultadoCanal resultado,
                    std::vector<exploracion::GrupoHallado> suyos = {}) const {
    return {.acceso = exploracion::accesosDe(fondo->ajustes)[static_cast<size_t>(canal) - 1],
            .resultado = resultado,
            .grupos = std::move(suyos)};
  }
  static Hallazgo aparte(const QString& acceso, ResultadoCanal resultado, int direccion) {
    return {.acceso = exploracion::leerAccesos({acceso})->front(),
            .resultado = resultado,
            .grupos = {{direccion, {true}}}};
  }

  QTemporaryDir carpeta;
  RelojReal reloj;
  std::unique_ptr<app::Fondo> fondo =
      bien(app::Fondo::abrir(carpeta.path(), Idioma::Espanol, textosDePrueba(), reloj));
  app::Datos datos{{}, textosDePrueba()};
  enlace::FabricaReal fabrica{reloj, fondo->ajustes};
  app::Aplicacion aplicacion{*fondo, reloj, fabrica, 1, datos};
  groups::Grupos todos{aplicacion.catalogo(), fondo->ajustes};
  exploracion::Aplicador aplicador{todos, aplicacion.catalogo(), fondo->ajustes};
};

TEST(Aplicador, EstrenaUnaTiendaYSoloAnadeEnLasDemas) {
  Entera t;
  EXPECT_TRUE(bien(t.aplicador.porEstrenar()));
  const std::vector<Hallazgo> nada{t.hallazgo(1, ResultadoCanal::Cable)};
  const std::vector<Hallazgo> hay{
      t.hallazgo(1, ResultadoCanal::Vek, {{1, {false, true, false, true}}, {3, {false}}}),
      t.hallazgo(2, ResultadoCanal::Modem), t.hallazgo(3, ResultadoCanal::Cable),
      t.hallazgo(4, ResultadoCanal::Nodal, {{2, {true}}, {7, {false, true}}}),
      Entera::aparte(u"Balanza.local:3000"_s, ResultadoCanal::Vek, 5)};
  const QString primero = t.grupos();
  EXPECT_TRUE(bien(t.aplicador.aplicar(nada)).creados.empty());
  EXPECT_EQ(t.grupos(), primero);
  auto hecho = bien(t.aplicador.aplicar(hay));
  EXPECT_EQ(hecho.creados.size(), 4U);
  EXPECT_EQ(hecho.creados[0].nombre, u"Grupo 0001 creado por  asistente");
  EXPECT_EQ(hecho.avisos.size(), 2) << hecho.avisos.join(u'\n').toStdString();
  const QString creados =
      u"1 1 2 1 - 0 1:3,3:3 | 2 2 2 4 - 2 0:7 | 3 2 2 4 - 7 1:7 | 4 1 3 - Balanza.local:3000 0 0:3"_s;
  EXPECT_EQ(t.grupos(), creados);
  EXPECT_EQ(t.usos(), u"2132");
  EXPECT_EQ(t.leer(u"select distinct seccion, HORARIO from GRUPOS"_s),
            u"1 "_s + u"08:00|20:00||"_s.repeated(7));
  EXPECT_EQ(t.leer(u"select count(*) from Sesiones where CODGPO<5"_s), u"4");

  // The same machines are found again: no group has them twice, also by another way to them.
  t.sql(u"update GRUPOS set remoto=4, TELEF='LEJOS' where CODGPO=4"_s);
  QFile f(t.carpeta.filePath(u"CONECTORES.INI"_s));
  ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write("LEJOS= tcp:balanza.LOCAL:3000\r\n") > 0);
  f.close();
  EXPECT_FALSE(bien(t.aplicador.porEstrenar()));
  EXPECT_TRUE(bien(t.aplicador.aplicar(hay)).creados.empty());
  EXPECT_EQ(exploracion::claveDeTcp(u"LocalHost:4101"_s),
            exploracion::claveDeTcp(u"127.0.0.1:4101,1"_s));
  // A new node and a device without a channel are added; a modem that is off now stays.
  std::vector<Hallazgo> otras{t.hallazgo(2, ResultadoCanal::SinCts),
                              t.hallazgo(3, ResultadoCanal::Nodal, {{2, {true}}, {9, {true}}}),
                              Entera::aparte(u"/dev/ttyUSB0"_s, ResultadoCanal::Vek, 1)};
  otras[1].acceso = hay[3].acceso;
  t.fondo->ajustes.de<enlace::AjustesCables>().canales[2].Device = TipoAcceso::Ninguno;
  hecho = bien(t.aplicador.aplicar(otras));
  EXPECT_EQ(t.leer(u"select CODGPO, canal, ADDR from GRUPOS where CODGPO>4 order by CODGPO"_s),
            u"5 4 9 | 6 3 0");
  EXPECT_EQ(t.usos(), u"2122");
  EXPECT_EQ(t.fondo->ajustes.de<enlace::AjustesCables>().RutaPuerto.at(3), u"/dev/ttyUSB0");
  hecho = bien(
      t.aplicador.aplicar(std::vector{Entera::aparte(u"/dev/ttyUSB1"_s, ResultadoCanal::Vek, 1)}));
  EXPECT_TRUE(hecho.creados.empty());
  EXPECT_EQ(hecho.avisos.size(), 1);

  // A channel with a group on it isn't free, even if it is off.
  auto& canales = t.fondo->ajustes.de<enlace::AjustesCables>().canales;
  canales[0].Device = TipoAcceso::Ninguno;
  EXPECT_TRUE(bien(t.aplicador.aplicar(
                       std::vector{Entera::aparte(u"/dev/ttyUSB1"_s, ResultadoCanal::Vek, 1)}))
                  .creados.empty());
  canales[0].Device = TipoAcceso::Directo;

  // Told to, it takes the place of all of them; a failure changes nothing.
  const QString antes = t.grupos();
  QDir().remove(t.fondo->ajustes.rutaConfig());
  QDir().mkpath(t.fondo->ajustes.rutaConfig());
  const std::vector<Hallazgo> una{t.hallazgo(1, ResultadoCanal::SinPuerto),
                                  t.hallazgo(2, ResultadoCanal::Vek, {{0, {true}}})};
  EXPECT_EQ(bien(t.aplicador.siSustituye(una)).seVan.size(), 6U);
  EXPECT_FALSE(t.aplicador.aplicar(una, true));
  EXPECT_EQ(t.grupos(), antes);
  EXPECT_EQ(t.usos(), u"2122");
  QDir().rmdir(t.fondo->ajustes.rutaConfig());
  const std::vector<Hallazgo> vacia{t.hallazgo(1, ResultadoCanal::Vek, {{0, {false}}})};
  EXPECT_TRUE(bien(t.aplicador.siSustituye(vacia)).seVan.empty());
  EXPECT_TRUE(bien(t.aplicador.aplicar(vacia, true)).creados.empty());
  EXPECT_EQ(t.grupos(), antes);
  EXPECT_EQ(bien(t.aplicador.aplicar(una, true)).creados.size(), 1U);
  EXPECT_EQ(t.grupos(), u"1 1 2 2 - 0 0:3");
  EXPECT_EQ(t.usos(), u"0222");
}

// A group stays only if it is the one with that access and with exactly those scales.
TEST(Aplicador, AlSustituirSeQuedaElGrupoQueEsElMismo) {
  const struct {
    const char16_t* antes;
    std::vector<exploracion::GrupoHallado> hay;
    bool nodal;
    const char16_t* despues;
  } casos[] = {
      {u"insert into BZAS (SUGPO, NMBZA, TIPO) values (4, 1, 8)",
       {{0, {true, true}}},
       false,
       u"4 4 3 - H:1 5 0:8,1:8"},
      {u"update GRUPOS set remoto=4, TELEF='LEJOS'", {{0, {true}}}, false, u"4 4 4 - LEJOS 5 0:8"},
      {u"insert into BZAS (SUGPO, NMBZA, TIPO) values (4, 1, 8)",
       {{0, {true}}},
       false,
       u"1 1 3 - h:1 0 0:3"},
      {u"update GRUPOS set TELEF='h:2'", {{0, {true}}}, false, u"1 1 3 - h:1 0 0:3"},
      {u"update GRUPOS set tipo=3", {{0, {true}}}, false, u"1 1 3 - h:1 0 0:3"},
      {u"insert into GRUPOS (CODGPO, NOMGPO, tipo, remoto, TELEF) values (9, 'Y', 1, 3, 'h:1'); "
       u"insert into BZAS (SUGPO, NMBZA, TIPO) values (9, 0, 3)",
       {{0, {true}}},
       false,
       u"1 1 3 - h:1 0 0:3"},
      {u"update GRUPOS set tipo=2",
       {{5, {true}}, {6, {true}}},
       true,
       u"1 2 3 - h:1 6 0:7 | 4 2 3 - H:1 5 0:8"},
      {u"update GRUPOS set CODGPO=1; update BZAS set SUGPO=1",
       {{1, {true}}, {3, {true}}},
       false,
       u"1 4 3 - H:1 5 0:8 | 2 1 3 - h:1 0 0:3"},
  };
  for (const auto& c : casos) {
    Entera t;
    QFile f(t.carpeta.filePath(u"CONECTORES.INI"_s));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write("LEJOS= tcp:h:1\r\n") > 0);
    f.close();
    t.sql(u"delete from BZAS"_s);
    t.sql(u"delete from GRUPOS"_s);
    t.grupo({.codigo = 4, .nombre = u"X"_s, .tipo = 4, .remoto = 3, .acceso = u"H:1"_s, .addr = 5});
    t.sql(u"insert into BZAS (SUGPO, NMBZA, TIPO) values (4, 0, 8)"_s);
    for (const QString& orden : QString::fromUtf16(c.antes).split(u';')) t.sql(orden);
    Hallazgo h = Entera::aparte(u"h:1"_s, c.nodal ? ResultadoCanal::Nodal : ResultadoCanal::Vek, 0);
    h.grupos = c.hay;
    bien(t.aplicador.aplicar(std::vector{h}, true));
    EXPECT_EQ(t.grupos(), QString::fromUtf16(c.despues))
        << QString::fromUtf16(c.antes).toStdString();
  }
}

// What a shop has done with its first group makes it a group like any other.
TEST(Aplicador, LaTiendaYaEmpezadaNoSeEstrena) {
  for (const QStringView orden :
       {u"update GRUPOS set NOMGPO='MOSTRADOR'", u"update GRUPOS set remoto=2, canal=1",
        u"update BZAS set MESSAG='HOLA'", u"update Sesiones set PZERO=43000",
        u"insert into BaseFilas (GRUPO, CLASE, ADDR, CODI, HORA, CON) values (1, 1, 0, 1, 0, 5)",
        u"insert into EnviosGrupo (GRUPO, SECCION, TARIFA, MAQUINA) values (1, 1, 1, 'x')",
        u"insert into COLUMNA (LINK, TIPO, FECHA1, FECHAF) values (1, 1, 40000, 40000.9)"}) {
    Entera t;
    t.sql(orden.toString());
    EXPECT_FALSE(bien(t.aplicador.porEstrenar())) << orden.toString().toStdString();
  }
}

}  // namespace
}  // namespace tarvo::prueba
