// Values that a run asks for, and where they go; the name that it leaves.
#include "automation/ConProceso.h"

namespace tarvo::automation {
namespace {

TEST_F(ConProceso, UnRangoMaloDelQueContestaSeDice) {
  const std::pair<qint64, QString> casos[] = {
      {9, u"    Los códigos van al revés, del 9 al 5: el paso no hace nada."_s},
      {-3, u"    -3 no puede ser el código de un artículo: van del 0000000 al 9999999"_s}};
  for (const auto& [desde, dice] : casos) {
    tienda_.respuestas.numeros = {{u"%1"_s, desde}};
    const auto lineas = correr(u"N:%1,Desde\r\nT:TXPLUS,1,Sí,%1,5"_s);
    EXPECT_EQ(fin_, ResultadoProceso::Problemas);
    EXPECT_TRUE(lineas.contains(dice)) << lineas.join(u'\n').toStdString();
  }
}

TEST_F(ConProceso, LosParametrosRellenanElProceso) {
  tienda_.respuestas.numeros = {{u"%1"_s, 1}};
  tienda_.respuestas.textos = {{u"$t"_s, u"hoy"_s}};
  tienda_.respuestas.fechas = {
      {u"#f"_s, {Fecha::de(QDate(2026, 3, 1)), Fecha::de(QDate(2026, 3, 31))}}};
  const auto p = tienda_.programa();
  correr(
      u"N:%1,Grupo\r\nN:$t,Texto\r\nN:#f,Fechas\r\nT:RXGRTOT,%1\r\nC:ESPERA,0,Sí\r\nS:CERRAR,%1 "
      u"$t,Sí,Sí\r\n"
      u"P:SELECCIONAR,1,#f,#f\r\nE:TOTALIZA,No,No,$t.EXP\r\nP:CREAR,1,01/02/2026,,#f"_s,
      *p);
  EXPECT_EQ(p->fin, ResultadoProceso::Bien) << p->lineas.join(u'\n').toStdString();
  const auto descripciones = p->db().uno(
      u"SELECT group_concat(trim(DESCR), '|') FROM (SELECT DESCR FROM COLUMNA ORDER BY LINK)");
  EXPECT_EQ(descripciones->texto(), u"0001 hoy|01/03/2026");
  EXPECT_FALSE(tienda_.texto(u"hoy.EXP"_s).isEmpty());
}

TEST_F(ConProceso, UnParametroSinValorAbortaYSeDice) {
  for (const qint64 grande : {0, 40000}) {
    if (grande) tienda_.respuestas.numeros[u"%1"_s] = grande;
    const auto lineas = correr(u"S:ABRIR\r\nN:%1,Grupo\r\nS:OLVIDAR"_s);
    EXPECT_EQ(fin_, ResultadoProceso::Abortado);
    EXPECT_EQ(lineas.filter(u"Falta el valor del parámetro %1 (Grupo)"_s).size(), 1);
    EXPECT_TRUE(lineas.back().startsWith(u"Ejecución interrumpida: "));
  }
}

// What it had read is memorised by hand under the name that it would have given, and only that.
TEST_F(ConProceso, ParadoAntesDeMemorizarDejaElNombre) {
  maquinasDePrueba().mudas = {1};
  const auto p = tienda_.programa();
  p->automat().desatendido = false;
  p->correr(kNoche);
  for (int i = 0; i < 600 && p->sesion().estado() != 2; ++i) tienda_.reloj.avanzar(500);
  ASSERT_EQ(p->sesion().estado(), 2);
  p->automat().confirmando(true);
  p->automat().abortar();
  ASSERT_TRUE(p->hastaElFin(1));
  EXPECT_EQ(p->sesion().nombre().value_or(u"-"_s), u"Ventas 04");
  for (int estado : {0, 1}) {
    ASSERT_TRUE(p->motor().LaSesion(estado));
    EXPECT_EQ(p->sesion().nombre().value_or(u"-"_s), u"") << estado;
  }
}

}  // namespace
}  // namespace tarvo::automation
