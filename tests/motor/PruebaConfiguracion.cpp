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
  void InformeAviso(const totals::Aviso& aviso) override {
    TiendaDeMotor::InformeAviso(aviso);
    if (aviso.grave) graves << aviso.texto;
  }
  QStringList graves;
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

// What the machine can't have as it is stored goes as it can, is told once and counts as accepted.
// Each row: a change of the shop, the kind that sends it, frames that go, and what is told.
TEST_F(ConConfiguracion, LoQueVaDeOtraManeraSeDice) {
  grupo(2, 2, u"cable 2"_s, {5});
  grupo(3, 1, u"cable 3"_s);
  grupo(4, 4, u"cable 4"_s);
  sql(u"INSERT INTO OPERS (CODOPE, NOMOPE) VALUES (1, 'Ana María del Carmen'), (2, 'Eva')"_s);
  sql(u"UPDATE GRUPOS SET OP01_C=0"_s);
  for (int n = 3; n <= 20; ++n)
    sql(u"INSERT INTO OPERS (CODOPE, NOMOPE) VALUES (%1, 'Otro')"_s.arg(n));
  const QString balanza = u"UPDATE BZAS SET %1 WHERE SUGPO=3"_s, grupo3 = u"UPDATE GRUPOS SET %1"_s;
  const QString cabecera = u"400 01191000001001910000000000"_s;
  const auto blancos = [](const QString& t, int ancho) { return t.leftJustified(ancho); };
  const struct {
    QString sql;
    int clase;
    QStringList van, dice;
    int grupo = 3;
  } casos[] = {
      {balanza.arg(u"RZSOCIAL='C:1:Frutas y verduras de la abuela Pepa|Hola'"),
       kTick,
       {u"300 1\x0f"_s + u"Frutas y verduras de la abu1"_s,
        u"300 2\x0e"_s + blancos({}, 27) + u'0'},
       {u"la línea 1 del ticket de la balanza 1 no cabe «Frutas y verduras de la abuela Pepa», y "
        u"va "
        u"«Frutas y verduras de la abu»"_s,
        u"la línea 2 del ticket de la balanza 1 se escribió «Hola», que no"_s}},
      {balanza.arg(u"RZSOCIAL='%1'").arg(u"C:0:Una\r\n"_s.repeated(7)),
       kTick,
       {u"300 6\x0e"_s + blancos(u"Una"_s, 27) + u'1'},
       {u"la línea 7 del ticket de la balanza 1 no va («Una»)"_s}},
      {balanza.arg(u"RZSOCIAL='C:0:Una||P:4:Tres'"), kTick, {}, {}},
      {balanza.arg(u"HARDPLU='001:1', TARASME='02:|03:00105', Teclado='003:131:'"),
       kTecla,
       {u"0 0011000000"_s, u"40 020000"_s, u"40 030010"_s, u"70 003131"_s},
       {u"el PLU directo 1 de la balanza 1 se escribió «001:1», y va «001:1000000»"_s,
        u"la tara directa 3 de la balanza 1 se escribió «03:00105», y va «03:0010»"_s}},
      {balanza.arg(u"HARDPLU='', TARASME='', "
                   u"Teclado='001:021|001:022|003:023||004:024|200:025'"),
       kTecla,
       {u"70 001021"_s, u"70 001022"_s, u"70 003023"_s, u"70 004999"_s},
       {u"la tecla 1 de la balanza 1 se escribió más de una vez: vale «001:022», y no «001:021»"_s,
        u"la tecla 4 de la balanza 1 no va («004:024»)"_s}},
      {u"UPDATE BZAS SET Teclado='01:p:000007|02:N:000000|03:T:00001|04:P:000009' WHERE SUGPO=2"_s,
       kTecla,
       {u"38 000010100007"_s, u"38 000020100000"_s, u"38 000030100010"_s, u"38 000040000009"_s},
       {u"la tecla 1 de la balanza 1 se escribió «01:p:000007», y va «01:T:000007»"_s,
        u"la tecla 3 de la balanza 1 se escribió «03:T:00001», y va «03:T:000010»"_s},
       2},
      {balanza.arg(u"ETQ11='no', ETQ12='una', ETQ13='otra'"),
       kEtiq,
       {u"420 01"_s, u"420 02"_s},
       {u"la etiqueta 1 de la balanza 1 va vacía, porque no existe el formato «no»"_s,
        u"la etiqueta 2 de la balanza 1 va vacía, porque no existe el formato «una»"_s,
        u"la etiqueta 3 de la balanza 1 va vacía"_s}},
      {u"INSERT INTO ETIQUETAS (NUMETQ, CAMPOS, settxt) VALUES ('no', "
       u"'010100200160001||010100200160002', 'x'), ('una', '', 'y'), "
       u"('otra', NULL, 'y')"_s,
       kEtiq,
       {u"420 01"_s, cabecera, u"400 01191000002010100200160001"_s, u"410 01"_s},
       {u"la etiqueta 1 de la balanza 1 va sin «010100200160002»"_s,
        u"la etiqueta 1 de la balanza 1 va con los textos del juego «y», y no con los de «x»"_s,
        u"el texto de etiqueta 21 de la balanza 1 y los demás van como los de la tienda"_s}},
      {u"UPDATE ETIQUETAS SET settxt='y', CAMPOS=''"_s, kEtiq, {}, {u"juego de textos «y»"_s}},
      {u"INSERT INTO TEXTOSETQ (CODSET, Texto) VALUES ('y', 'Envasado en atmósfera protectora||||||||||Diez||||||||||Veinte')"_s,
       kEtiq,
       {u"410 01Envasado en atmosfera prote"_s},
       {u"el texto de etiqueta 21 de la balanza 1 no cabe"_s,
        u"el texto de etiqueta 41 de la balanza 1 no va («Veinte»)"_s}},
      {u"UPDATE BZAS SET ETQ11='una' WHERE SUGPO=4"_s,
       kEtiq,
       {u"440 11"_s + blancos(u"Envasado en atmosfera protectora"_s, 37)},
       {u"el texto de etiqueta 31 de la balanza 1 no va («Diez»)"_s, u"«Veinte»"_s},
       4},
      {balanza.arg(u"FORMA_BC='ABCCCCCCKIIIII', MESSAG='%1'").arg(QString(201, u'x')),
       kCfBal,
       {u"20 "_s + QString(200, u'x') + u"000"_s, u"320 1\x17"_s + u"0000000CCCCCCKIIIIICKIIIII"_s},
       {u"las barras del ticket de la balanza 1 no cabe «ABCCCCCCKIIIII», y va «CCCCCCKIIIII»"_s,
        u"el mensaje publicitario de la balanza 1 no cabe"_s}},
      {balanza.arg(u"FORMA_BC='CCCCIIIII', TIPO_BC=1, MESSAG='', P_LIBRE='x'"),
       kCfBal,
       {u"250 01111"_s, u"320 1\x16"_s + u"0000000000CCCCIIIIICCIIIII"_s},
       {u"no cabe «CCCCIIIII», y va «CCIIIII»"_s,
        u"los permisos de la balanza 1 se escribió «x»"_s}},
      {grupo3.arg(u"OP01_C=1, OP02_C=99, IVA01=750.5, E08_CU='XCCIIIII'"),
       kCnfig,
       {u"30 01Ana Maria del Ca0"_s, u"30 02"_s + blancos({}, 16) + u'0', u"90 10750"_s},
       {u"el operador 1 no cabe «Ana María del Carmen», y va «Ana Maria del Ca»"_s,
        u"el operador 2 va en blanco, porque no existe el operador 99"_s,
        u"el IVA 1 se escribió «750.5», y va «750»"_s,
        u"los formatos de código de barras no cabe «XCCIIIII», y va «CCIIIII»"_s}},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(c.sql.toStdString());
    avisos.clear();
    sql(QString(c.sql).replace(u'|', u"\r\n"_s));
    const int tipo = c.grupo == 3 ? 1 : c.grupo, addr = c.grupo == 2 ? 5 : 1;
    const auto antes = oidas(c.grupo, addr).size();
    enviar(c.grupo, {c.clase});
    const QStringList suyas = oidas(c.grupo, addr).mid(antes);
    for (const QString& va : c.van)
      EXPECT_TRUE(suyas.contains(va.trimmed())) << suyas.join(u'\n').toStdString();
    // The last one is about what has been accepted.
    EXPECT_EQ(avisos.size(), c.dice.size() + 1) << avisos.join(u'\n').toStdString();
    for (const QString& dice : c.dice)
      EXPECT_EQ(avisos.filter(dice).size(), 1) << avisos.join(u'\n').toStdString();
    EXPECT_TRUE(estado(c.grupo, tipo).contains(u"%1=2"_s.arg(c.clase)));
  }
  EXPECT_TRUE(problemas.isEmpty());
  EXPECT_TRUE(graves.isEmpty()) << graves.join(u'\n').toStdString();

  // No more than twenty, and the number of the others.
  avisos.clear();
  sql(u"DELETE FROM OPERS"_s);
  enviar(3, {kCnfig});
  EXPECT_EQ(avisos.size(), 22) << avisos.join(u'\n').toStdString();
  EXPECT_EQ(avisos.filter(u"Grupo 3: y 2 avisos más"_s).size(), 1);
}

}  // namespace tarvo::prueba
