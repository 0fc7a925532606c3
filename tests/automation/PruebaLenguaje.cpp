// The language: lines, process files and timetables.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "automation/TiendaDeProcesos.h"
#include "automation/lenguaje/Proceso.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::automation {
namespace {

using namespace Qt::StringLiterals;

class ConLenguaje : public testing::Test {
 protected:
  motor::RepertorioTareas repertorio_ = registroDePrueba();
  Ajustes ajustes_{QDir::tempPath(), Idioma::Espanol};
  Lenguaje l_{repertorio_, ajustes_, textosDePrueba()};
};

struct CasoLinea {
  const char16_t* linea;
  const char16_t* escrita;  // the written form of the step read; "-" no step, "!" an error
};

class ConLinea : public ConLenguaje, public testing::WithParamInterface<CasoLinea> {};

TEST_P(ConLinea, SeLeeYSeEscribe) {
  const QString escrita = QString::fromUtf16(GetParam().escrita);
  const auto paso = l_.LeerPaso(QString::fromUtf16(GetParam().linea));
  if (escrita == u"!") {
    ASSERT_FALSE(paso);
    EXPECT_EQ(paso.error().clase, Fallo::Formato);
    return;
  }
  ASSERT_TRUE(paso) << paso.error().texto.toStdString();
  ASSERT_EQ(paso->has_value(), escrita != u"-");
  if (!*paso) return;
  EXPECT_EQ(l_.EscribirPaso(**paso).toStdString(), escrita.toStdString());
  const auto otra = l_.LeerPaso(escrita);
  ASSERT_TRUE(otra && *otra);
  EXPECT_EQ(**otra, **paso);
}

INSTANTIATE_TEST_SUITE_P(
    Tareas, ConLinea,
    testing::Values(
        CasoLinea{u"T:RXGRTOT,1", u"T:RXGRTOT,0001"},
        CasoLinea{u"TAREA:RXGRTOT , 1 ", u"T:RXGRTOT,0001"},
        CasoLinea{u"Tonto:RXGRTOT,1", u"T:RXGRTOT,0001"}, CasoLinea{u"t:RXGRTOT,1", u"-"},
        CasoLinea{u"T:RXGRTOT,ALL", u"T:RXGRTOT,ALL"}, CasoLinea{u"T:RXGRTOT,%1", u"T:RXGRTOT,%1"},
        CasoLinea{u"T:RXGRTOT,X1", u"!"}, CasoLinea{u"T:RXGRTOT,%12", u"!"},
        CasoLinea{u"T:RXGRTOT,", u"!"}, CasoLinea{u"T:NADA,1", u"!"}, CasoLinea{u"T:", u"!"},
        CasoLinea{u"T", u"!"}, CasoLinea{u"T:RXGRTOT,123456", u"T:RXGRTOT,123456"},
        CasoLinea{u"T:TXPLUS,12, No, 1, 99", u"T:TXPLUS,0012, No, 0000001, 0000099"},
        CasoLinea{u"T:TXPLUS,12,Si,%a,%b", u"T:TXPLUS,0012, Sí, %a, %b"},
        CasoLinea{u"T:TXPLUS,%1", u"T:TXPLUS,%1, Sí, 0000000, 9999999"},
        CasoLinea{u"T:TXPLUS,1,Sí,7,7", u"T:TXPLUS,0001, Sí, 0000007, 0000007"},
        CasoLinea{u"T:RXPLUS,1,Sí,9999999,0000000", u"!"},
        CasoLinea{u"T:TXPLUS,1,Sí,10000000", u"!"},
        CasoLinea{u"T:TXPLUS,ALL", u"T:TXPLUS,ALL, Sí, 0000000, 9999999"},
        CasoLinea{u"T:TXPLUS,X1", u"!"}, CasoLinea{u"T:TXPLUS,1,quizá,1,2", u"!"},
        CasoLinea{u"T:TXPLUS,1,Sí,1,10000000", u"!"}, CasoLinea{u"T:TXPLUS,1,Sí,-1,5", u"!"},
        CasoLinea{u"T:RXPLUS,1,Sí,99999999999,%a", u"!"}, CasoLinea{u"T:TXPLUS,1,Sí,1,2,3", u"!"},
        CasoLinea{u"T:RXGRTOT,ALL,extra", u"!"}, CasoLinea{u"T:TX_ZERO,1,No,5", u"!"},
        CasoLinea{u"T:TX_HORA,1,Sí", u"!"}, CasoLinea{u"T:RXGRTOT,1, ,", u"T:RXGRTOT,0001"},
        CasoLinea{u"T:TX_ZERO,12,No", u"T:TX_ZERO,0012, No"}));

INSTANTIATE_TEST_SUITE_P(
    Otros, ConLinea,
    testing::Values(
        CasoLinea{u"", u""}, CasoLinea{u"  ", u""}, CasoLinea{u"hola", u"-"},
        CasoLinea{u"# T:RXGRTOT,1", u"-"}, CasoLinea{u"S:ABRIR", u"S:ABRIR"},
        CasoLinea{u"SESIÓN:OLVIDAR", u"S:OLVIDAR"}, CasoLinea{u"S:", u"!"},
        CasoLinea{u"S:CERRAR, Ventas #D/#M ,Sí,No, sobra", u"S:CERRAR, Ventas #D/#M, Sí, No"},
        CasoLinea{u"C:ESPERA,3,Sí", u"C:ESPERA, 3, Sí"},
        CasoLinea{u"C:ESPERA,ALL,No", u"C:ESPERA, ALL, No"}, CasoLinea{u"C:ESPERA,x,No", u"!"},
        CasoLinea{u"C:ESPERAR,3,No", u"!"},
        CasoLinea{u"P:CREAR,3,15/03/2005,99/99/9999,Marzo",
                  u"P:CREAR,3,01/03/2005,31/03/2005,Marzo"},
        CasoLinea{u"P:CREAR,2,16/03/2005,,", u"P:CREAR,2,14/03/2005,20/03/2005,"},
        CasoLinea{u"P:CREAR,5,01/03/2005 08:00,02/03/2005,x",
                  u"P:CREAR,5,01/03/2005 08:00:00,02/03/2005,x"},
        CasoLinea{u"P:CREAR,5,01-03-2005,2005-03-02 10:30,x",
                  u"P:CREAR,5,01/03/2005,02/03/2005 10:30:00,x"},
        CasoLinea{u"P:CREAR,1,2005-13-01,,x", u"!"},
        CasoLinea{u"P:BORRAR,1,2005-03-01,01-03-2005", u"P:BORRAR,1,01/03/2005,01/03/2005"},
        CasoLinea{u"P:CREAR,5,01/03/2005,no,x", u"!"},
        CasoLinea{u"P:CREAR,1,no,01/03/2005,x", u"!"},
        CasoLinea{u"P:CREAR,9,01/03/2005,01/03/2005,x", u"!"},
        CasoLinea{u"P:SELECCIONAR,1,#f,#f", u"P:SELECCIONAR,1,#f,#f"},
        CasoLinea{u"P:BORRAR,2,01/03/2005,#f", u"P:BORRAR,2,01/03/2005,#f"},
        CasoLinea{u"P:SEL. ULTIMO,1", u"P:SEL. ULTIMO"},
        CasoLinea{u"P:ACUMULAR,2", u"P:ACUMULAR,2"},
        CasoLinea{u"P:DESACUMULAR, 3", u"P:DESACUMULAR,3"}, CasoLinea{u"P:STOCK", u"P:STOCK"},
        CasoLinea{u"P:SUMAR", u"P:SUMAR"}, CasoLinea{u"P:OTRA,1,2", u"P:"},
        CasoLinea{u"E:TOTALIZA,Sí,No,EX#A.EXP", u"E:TOTALIZA, Sí, No,EX#A.EXP"},
        CasoLinea{u"N: %1,Grupo: uno, dos ", u"N:%1,Grupo: uno, dos"}));

TEST_F(ConLenguaje, CrearLlevaLosLimitesDelPeriodo) {
  const auto p = l_.LeerPaso(u"P:CREAR,3,15/03/2005,16/03/2005,x");
  ASSERT_TRUE(p && *p);
  EXPECT_EQ(std::get<PasoPeriodos>(**p).intervalo.hasta.dias(),
            Fecha::de(QDate(2005, 3, 31)).dias() + Fecha::kUltimoSegundo);
}

TEST_F(ConLenguaje, OtrosIdiomasDicenYesYNo) {
  Ajustes ingles{QDir::tempPath(), Idioma::UK};
  const Lenguaje l(repertorio_, ingles, textosDePrueba());
  const auto p = l.LeerPaso(u"T:TX_ZERO,1,Yes");
  ASSERT_TRUE(p);
  EXPECT_EQ(l.EscribirPaso(**p), u"T:TX_ZERO,0001, Yes");
  EXPECT_FALSE(l.LeerPaso(u"T:TX_ZERO,1,Sí"));
}

TEST_F(ConLenguaje, UnTextoConComasNoParteLaLinea) {
  auto p = *l_.LeerPaso(u"S:CERRAR,x,Sí,No");
  std::get<PasoSesion>(*p).descripcion = u"uno,dos\r\ntres"_s;
  EXPECT_EQ(l_.EscribirPaso(*p), u"S:CERRAR, uno dos  tres, Sí, No");
}

struct CasoFichero {
  const char16_t* texto;
  int pasos, activaciones;  // -1 steps: fails
  const char16_t* error = u"";
  qsizetype omitidas = 0;
};

class ConFichero : public ConLenguaje, public testing::WithParamInterface<CasoFichero> {};

TEST_P(ConFichero, SeLee) {
  const auto f = l_.leer(QString::fromUtf16(GetParam().texto));
  ASSERT_EQ(f.has_value(), GetParam().pasos >= 0);
  if (!f) {
    EXPECT_TRUE(f.error().texto.contains(QString::fromUtf16(GetParam().error)))
        << f.error().texto.toStdString();
    return;
  }
  EXPECT_EQ(static_cast<int>(f->pasos.size()), GetParam().pasos);
  EXPECT_EQ(static_cast<int>(f->activaciones.size()), GetParam().activaciones);
  EXPECT_EQ(f->omitidas.size(), GetParam().omitidas) << f->omitidas.join(u'\n').toStdString();
}

#define DIAS u"Sí,Sí,No,No,No,No,Si"
INSTANTIATE_TEST_SUITE_P(
    Estados, ConFichero,
    testing::Values(
        CasoFichero{u"", 0, 0}, CasoFichero{u"\r\n", 1, 0},
        CasoFichero{u"nada\r\nque ver\r\n", 0, 0, u"", 2}, CasoFichero{u"S:ABRIR\r\nP:STOCK", 2, 0},
        CasoFichero{u"S:ABRIR\nP:STOCK\n", 2, 0},
        CasoFichero{u"nota\r\nS:ABRIR\r\n\r\nS:OLVIDAR\r\nnota\r\nT:MAL\r\n", 3, 0, u"", 2},
        CasoFichero{u"S:ABRIR\r\nT:MAL,1\r\n", -1, 0, u"Línea 2"},
        CasoFichero{u"S:ABRIR\r\n@INICIO BATCH\r\n", -1, 0, u"Línea 2"},
        CasoFichero{u"@FINAL BATCH\r\n", -1, 0, u"Línea 1"},
        CasoFichero{u"S:ABRIR\r\n@FINAL BATCH\r\n", -1, 0, u"Línea 2"},
        CasoFichero{u"22:00:00;" DIAS u";@\r\n@INICIO BATCH\r\nS:ABRIR\r\n@FINAL BATCH\r\nT:MAL", 1,
                    1},
        CasoFichero{
            u"22:00:00;" DIAS u";@\r\n25:00:00;" DIAS u";@\r\n22:00:00;SÍ,No,No,No,No,No,No;@\r\n"
            u"23:00:00;" DIAS u",No;@\r\n@INICIO BATCH de noche\r\n@FINAL BATCH",
            0, 1, u"", 3},
        CasoFichero{u"@INICIO BATCH\r\nS:ABRIR\r\nnota\r\n@FINAL BATCH", -1, 0, u"Línea 3"},
        CasoFichero{u"@INICIO BATCH\r\n@INICIO BATCH\r\n", -1, 0, u"Línea 2"},
        CasoFichero{u"@INICIO BATCH\r\nS:ABRIR\r\n", -1, 0, u"@FINAL BATCH"},
        CasoFichero{u"P:CREAR,1,05/03/2026,01/03/2026,x\r\nP:CREAR,3,05/03/2026,31-02-2026,x\r\n"
                    u"P:CREAR,3,05/03/2026,06/03/2026,x\r\nP:CREAR,3,05/03/2026,,x",
                    4, 0, u"", 2},
        CasoFichero{u"P:CREAR,1,05/03/2026,07/03/2026,x\r\nP:CREAR,1,05/03/2026,05/03/2026,x\r\n"
                    u"P:CREAR,2,05/03/2026,09/03/2026,x\r\nP:CREAR,2,05/03/2026,08/03/2026,x\r\n"
                    u"P:CREAR,5,05/03/2026,09/03/2026,x",
                    5, 0, u"", 2},
        CasoFichero{
            u"S:CERRAR,martes,Sí,No,5\r\nS:ABRIR,x\r\nC:ESPERA,3,No,No\r\nE:TOTALIZA,No,No,a,b"
            u"\r\nP:CREAR,1,05/03/2026,,martes, festivo\r\nP:BORRAR,1,#f,#f,x\r\n"
            u"P:ACUMULAR,2,3\r\nP:STOCK,1\r\nP:OTRA,1,2\r\nN:a,b",
            10, 0, u"", 8},
        CasoFichero{u"@INICIO BATCH\r\n", 0, 0, u"", 1}));

TEST_F(ConLenguaje, LoEscritoSeVuelveALeer) {
  const QString texto =
      u"22:00:00;Sí,Sí,No,No,No,No,Sí;@\r\n@INICIO BATCH\r\nS:ABRIR\r\n\r\nT:RXGRTOT,ALL\r\n@FINAL BATCH\r\n"_s;
  auto f = *l_.leer(texto);
  f.pasos.push_back({});  // blank steps at the end are not written
  EXPECT_EQ(l_.escribir(f), texto);
  f.activaciones.clear();
  EXPECT_EQ(l_.escribir(f), u"S:ABRIR\r\n\r\nT:RXGRTOT,ALL\r\n");
}

TEST_F(ConLenguaje, Horario) {
  struct {
    const char16_t* texto;
    int entradas;  // -1: fails
  } const casos[] = {
      {u"22:00:00;" DIAS u";noche\r\n\r\n6:30;" DIAS u"; MAÑANA.AUT\r\n", 2},
      {u"22:00:00;SÍ,sí,NO,no,No,No,No;N", 1},
      {u"01/01/2005 22:00;" DIAS u";N", 1},
      {u"22:00:00;Sí,Sí,No,No,No,No;N", -1},
      {u"22:00:00;" DIAS u",No;N", -1},
      {u"22:00:00;Sí,Sí,No,No,No,No,x;N", -1},
      {u"22:00:00;" DIAS u"; \r\n", -1},
      {u"22:00:00;" DIAS u"\r\n", -1},
      {u"24:61:00;" DIAS u";N", -1},
      {u"22:00:"
       u"00;" DIAS u";@\r\n@INICIO BATCH\r\nlo que sea\r\n@FINAL BATCH\r\n23:00:00;" DIAS u";N",
       2},
      {u"hola", -1},
      {u"", 0},
  };
  for (const auto& c : casos) {
    const auto r = l_.leerCro(QString::fromUtf16(c.texto));
    ASSERT_EQ(r.has_value(), c.entradas >= 0) << QString::fromUtf16(c.texto).toStdString();
    if (r) {
      EXPECT_EQ(static_cast<int>(r->size()), c.entradas);
    } else {
      EXPECT_TRUE(r.error().texto.startsWith(u"Línea 1:"));
    }
  }
  EXPECT_EQ(l_.leerCro(u"22:00:00;" DIAS u";@\r\n@INICIO BATCH\r\n@FINAL BATCH\r\nbasura"_s, true)
                ->size(),
            1u);
  const auto a = l_.leerActivacion(u"6:30;" DIAS u";noche");
  EXPECT_EQ(l_.escribirActivacion(*a), u"06:30:00;Sí,Sí,No,No,No,No,Sí;noche");
}

TEST_F(ConLenguaje, FicherosDeTexto) {
  QTemporaryDir dir;
  const QString ruta = dir.filePath(u"P.AUT"_s);
  const auto conBytes = [&ruta](const QByteArray& bytes) {
    QFile f(ruta);
    EXPECT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  };
  const PasoSesion conAno{VerboSesion::Cerrar, u"Año"_s, true, false};
  conBytes("S:CERRAR,A\xF1o,S\xED,No\r\n");
  EXPECT_EQ(l_.LeerProceso(ruta)->pasos[0], PasoProceso(conAno));
  conBytes("\xEF\xBB\xBFS:CERRAR,A\xC3\xB1o,S\xC3\xAD,No\r\n");
  EXPECT_EQ(l_.LeerProceso(ruta)->pasos[0], PasoProceso(conAno));
  conBytes(QByteArray("S:ABRIR\0", 8));
  EXPECT_FALSE(l_.LeerProceso(ruta));
  conBytes(QByteArray(5 << 20, '\n'));
  EXPECT_FALSE(l_.LeerProceso(ruta));
  EXPECT_FALSE(l_.LeerProceso(dir.filePath(u"no.AUT"_s)));
}

}  // namespace
}  // namespace tarvo::automation
