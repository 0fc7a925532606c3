// The configuration of machines that take it, refuse it and fall silent: what arrives, and what the
// shop knows of it afterwards.
#include "comm/configuracion/Aceptado.h"
#include "motor/TiendaDeMotor.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;
using configuracion::Situacion;
using simulador::Averia;

namespace {

constexpr int kCfBal = 5, kEtiq = 8, kCnfig = 4, kTecla = 2, kTick = 3;

class ConConfiguracion : public TiendaDeMotor {
 protected:
  ConConfiguracion() { grupo(1, 1, u"cable 1"_s, {1, 2}); }
  // "5=2 8=0 ...": each kind with its Situacion, and the machines that differ.
  QString estado(int grupo, int tipo) {
    QStringList lista;
    const auto todos = configuracion::estadoDe(
        *db, *ajustes, {.grupo = grupo, .tipo = static_cast<TipoGrupo>(tipo), .addr = 1});
    for (const auto& e : *todos) {
      QString linea = u"%1=%2"_s.arg(numeroDe(e.clase)).arg(static_cast<int>(e.situacion));
      for (const int m : e.maquinas) linea += u":%1"_s.arg(m);
      EXPECT_EQ(e.cuando.has_value(), e.situacion != Situacion::NuncaEnviada);
      lista += linea;
    }
    return lista.join(u' ');
  }
  void enviar(int grupo, std::initializer_list<int> clases) {
    for (const int clase : clases) EXPECT_GT(encolar(grupo, clase), 0);
    EXPECT_TRUE(correr());
  }
};

}  // namespace

TEST_F(ConConfiguracion, TodoLoAceptadoSeSabe) {
  grupo(2, 2, u"cable 2"_s, {5});
  grupo(4, 4, u"tienda4"_s);
  EXPECT_EQ(estado(1, 1), u"5=0:0:1 8=0:0:1 4=0:0:1 2=0:0:1 3=0:0:1");
  for (const int g : {1, 4}) enviar(g, {kCfBal, kEtiq, kCnfig, kTecla, kTick});
  enviar(2, {kTecla, kTick});
  EXPECT_EQ(estado(1, 1), u"5=2 8=2 4=2 2=2 3=2");
  EXPECT_EQ(estado(4, 4), u"5=2 8=2 4=2 2=2 3=2");
  EXPECT_EQ(estado(2, 2), u"2=2 3=2");
  EXPECT_TRUE(problemas.isEmpty()) << problemas.join(u'\n').toStdString();
  EXPECT_EQ(oidas(1).filter(u"300 "_s).size(), 12);
  EXPECT_EQ(oidas(2, 5).filter(u"38 "_s).size(), 28);
  EXPECT_EQ(oidas(4).filter(u"440 "_s).size(), 81);

  // One machine changes, another one comes, and the group changes.
  sql(u"UPDATE BZAS SET MESSAG='Hoy, oferta' WHERE SUGPO=1 AND NMBZA=1"_s);
  fila(u"BZAS", {{u"SUGPO", 1}, {u"NMBZA", 2}, {u"TIPO", 1}});
  sql(u"UPDATE GRUPOS SET TOTE=9 WHERE CODGPO=1"_s);
  EXPECT_EQ(estado(1, 1), u"5=0:1:2 8=0:2 4=0:0:1:2 2=0:2 3=0:2");
  sql(u"UPDATE GRUPOS SET CODGPO=7 WHERE CODGPO=4"_s);  // and the notes with it
  sql(u"UPDATE BZAS SET SUGPO=7 WHERE SUGPO=4"_s);
  EXPECT_EQ(estado(7, 4), u"5=2 8=2 4=2 2=2 3=2");
}

// Each row: the fault, its notice, and the knowledge about the machines.
TEST_F(ConConfiguracion, LoRechazadoSeDiceYLoDemasLlega) {
  const struct {
    simulador::Paso paso;
    QString dice, estado;
  } casos[] = {
      {{.averia = Averia::Err, .trama = 1, .codigo = 250, .valor = 1}, {}, u"5=2"_s},
      {{.averia = Averia::Err, .codigo = 250, .valor = 1},
       u"no se ha aceptado los permisos de la balanza 2"_s,
       u"5=0:0:1"_s},
      {{.averia = Averia::RespuestaPerdida, .trama = 1, .codigo = 230}, {}, u"5=2"_s},
  };
  for (const auto& c : casos) {
    avisos.clear();
    sql(u"DELETE FROM ConfigAceptada"_s);
    maquina(1).percances().cambiar({});
    fallo(1, c.paso);
    enviar(1, {kCfBal});
    EXPECT_EQ(estado(1, 1).section(u' ', 0, 0), c.estado);
    EXPECT_EQ(avisos.filter(u"permisos"_s).filter(c.dice).size(), c.dice.isEmpty() ? 0 : 1)
        << avisos.join(u'\n').toStdString();
    EXPECT_TRUE(oidas(1).last().startsWith(u"200 ") || oidas(1).last().startsWith(u"250 "));
  }
}

// A position that was refused in the middle is cleared and filled anew; a text that can't be sent
// is named, and its machine isn't taken for one that has everything.
TEST_F(ConConfiguracion, UnaEtiquetaVuelveEnteraYLoQueNoValeSeNombra) {
  sql(u"INSERT INTO ETIQUETAS (NUMETQ, CAMPOS) VALUES ('una', '010100200160001')"_s);
  sql(u"UPDATE BZAS SET ETQ11='una' WHERE SUGPO=1 AND NMBZA=0"_s);
  fallo(1, {.averia = Averia::Err, .trama = 2, .codigo = 400, .valor = 1});
  enviar(1, {kEtiq});
  const QStringList suyas = oidas(1).filter(QRegularExpression(u"^4[02]0 01"_s));
  EXPECT_EQ(suyas.mid(suyas.size() - 3),
            (QStringList{u"420 01"_s, u"400 01191000001001910000000000"_s,
                         u"400 01191000002010100200160001"_s}));
  EXPECT_EQ(estado(1, 1).section(u' ', 1, 1), u"8=2");

  sql(u"UPDATE BZAS SET FIJO_BC=12345678 WHERE SUGPO=1 AND NMBZA=1"_s);
  enviar(1, {kCfBal});
  EXPECT_EQ(avisos.filter(u"no se envía las barras del ticket de la balanza 2"_s).size(), 1)
      << avisos.join(u'\n').toStdString();
  EXPECT_EQ(estado(1, 1).section(u' ', 0, 0), u"5=0:1");
}

}  // namespace tarvo::prueba
