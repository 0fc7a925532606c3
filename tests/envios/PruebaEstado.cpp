// The send state of a group, and the result of "send just those".
#include "comm/envios/Estado.h"

#include "comm/envios/Comparada.h"
#include "comm/envios/Debe.h"
#include "envios/Envios.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

using envios::Situacion;

struct EstadoDeEnvio : Envios {
  envios::Destino destino(int g) { return bien(envios::destinoDeGrupo(*db, g)).value(); }
  // "10=0 20=4", by the number of the situation.
  QString estado(int g = 1) {
    QStringList salida;
    for (const auto& e :
         bien(envios::estadoDeEnvio(*db, destino(g), textosDePrueba(), reloj.ahora())))
      salida << QStringLiteral("%1=%2").arg(e.codigo).arg(static_cast<int>(e.situacion));
    return salida.join(u' ');
  }
  std::vector<envios::Encargo> encargo(int g, std::vector<qint64> codigos) {
    return bien(envios::encargar(*db, destino(g), codigos)).tareas;
  }
};

TEST_F(EstadoDeEnvio, DeBalanzas) {
  for (const qint64 c : {1, 10, 20, 30, 40, 50, 60, 70}) alta(c, c);
  EXPECT_EQ(estado(), u"10=2 20=2 30=2 40=2 50=2 60=2 70=2");
  enviar(1);
  EXPECT_EQ(estado(), u"10=0 20=0 30=0 40=0 50=0 60=0 70=0");
  cambiar(10, u"PRECIO_00=5"_s);
  cambiarCallando(20, u"PRECIO_00=5"_s);
  cambiarCallando(30, u"DEPTO=100"_s);
  sql(u"DELETE FROM Enviados WHERE CODPLU=40"_s);
  oferta(1, 50, 3, 0, 1);
  borrar(60);
  // Gone without a mark.
  sql(u"DELETE FROM PLUSES WHERE CODPLU=70"_s);
  sql(u"DELETE FROM [Cross] WHERE plu=70"_s);
  EXPECT_EQ(estado(), u"10=2 20=3 30=4 40=1 50=2 60=6 70=6");
  estorbos(1, {{Averia::Err, 0, 100, 0, 4}});
  enviar(1);
  EXPECT_EQ(estado(), u"10=5 20=3 30=4 40=1 50=5");  // the surplus is gone
  estorbos(1, {});
  cambiarCallando(30, u"DEPTO=1"_s);
  EXPECT_EQ(encargo(1, {20, 40, 70}), (std::vector<envios::Encargo>{{false, {20, 70}}}));
  EXPECT_EQ(enviar(1, kTxPlus, false, 20, 70), u"100 20,100 40,100 50,120 70");
  EXPECT_EQ(estado(), u"10=5 20=0 30=0 40=0 50=0");
  enviar(1);
  EXPECT_EQ(estado(), u"10=0 20=0 30=0 40=0 50=0");
  EXPECT_EQ(tiene(1), u"10:Tomate/5 20:Tomate/5 30:Tomate/30 40:Tomate/40 50:Tomate/3");
}

// The counts of a notice: none for a group without an earlier sending, all articles for a wiped
// one.
TEST_F(EstadoDeEnvio, LoQueSeDebe) {
  const auto debe = [&] {
    QStringList salida;
    for (const auto& d : bien(envios::loQueSeDebe(*db, reloj.ahora())))
      salida << QStringLiteral("%1:%2%3")
                    .arg(d.grupo)
                    .arg(d.articulos)
                    .arg(d.vacio ? QStringLiteral(" vacío") : QString());
    return salida.join(u',');
  };
  for (const qint64 c : {10, 20, 30}) alta(c, c);
  EXPECT_EQ(debe(), QString()) << "nobody has begun with it";
  enviar(1);
  EXPECT_EQ(debe(), QString());
  cambiar(10, u"PRECIO_00=5"_s);
  borrar(20);
  EXPECT_EQ(debe(), u"1:2");
  enviar(1);
  EXPECT_EQ(debe(), QString());
  bien(db->ejecutar(u"DELETE FROM Enviados"));
  bien(db->ejecutar(u"DELETE FROM [Cross]"));
  EXPECT_EQ(debe(), u"1:2 vacío");
}

TEST_F(EstadoDeEnvio, DeRegistradoras) {
  grupo(3, 3, u"cable 3"_s, {4});
  for (const qint64 c : {10, 20, 30, 40, 50}) alta(c, c);
  enviar(3, kTxPlus, true, 0, 9999999, 4);
  cambiar(20, u"PRECIO_00=5"_s);
  cambiar(30, u"PRECIO_00=5"_s);
  cambiar(50, u"PRECIO_00=5"_s);
  borrar(40);
  EXPECT_EQ(estado(3), u"10=0 20=2 30=2 40=6 50=2");
  const auto e = bien(envios::encargar(*db, destino(3), std::vector<qint64>{20, 30, 40}));
  EXPECT_EQ(e.tareas, (std::vector<envios::Encargo>{{true, {20, 30}}}));
  EXPECT_EQ(e.imposibles, 1);
  EXPECT_EQ(encargo(3, {10, 30, 50}),
            (std::vector<envios::Encargo>{{true, {10, 10}}, {true, {30, 50}}}));
}

TEST_F(EstadoDeEnvio, UnaFichaAlLadoDeOtra) {
  alta(10, 100, u"Piña"_s);
  enviar(1);
  auto& suya = maquina(1).memoria().catalogo[10].ficha;
  suya.replace(27, 6, "000099").replace(0, 4, "PI\\A");
  const auto comparar = [&](qint64 c) {
    return bien(
        envios::compararFicha(*db, destino(1), c, *ajustes, textosDePrueba(), reloj.ahora()));
  };
  EXPECT_FALSE(comparar(10).cuando);
  enviar(1, kRxDatPlu, true, 10, 10);
  const auto f = comparar(10);
  ASSERT_TRUE(f.cuando && f.laTiene);
  EXPECT_EQ(f.campos.front().alli, u"PIÑA");
  EXPECT_EQ(f.campos.front().aqui, u"Piña");
  QStringList distintos;
  for (const auto& c : f.campos)
    if (c.distinto) distintos << c.campo;
  EXPECT_EQ(distintos.join(u','), u"Nombre,Precio base");
  EXPECT_EQ(f.campos[2].aqui, u"1,00");
  EXPECT_EQ(f.campos[2].alli, u"0,99");
  EXPECT_EQ(f.campos[3].alli, u"Por kilo");
  EXPECT_EQ(f.campos[11].aqui, u"Sí");
  EXPECT_EQ(estado(), u"10=2");
  // If held back, it shows the article of the database; it and the machine's differ in readable
  // form.
  cambiar(10, u"NOMPLU='PIÑA', PRECIO_00=123456789, minimo=250, HASTA_1=1500, HASTA_2=2"_s);
  QStringList aqui;
  for (const int i : {0, 1, 2, 12, 14, 16, 18})
    aqui << comparar(10).campos[static_cast<size_t>(i)].aqui +
                (comparar(10).campos[static_cast<size_t>(i)].distinto ? u"*"_s : QString());
  EXPECT_EQ(aqui.join(u' '), u"PIÑA 0000010 1.234.567,89* 2,50* 1,500* 0,002* ");
  EXPECT_EQ(comparar(99).campos.front().aqui, u"");
  enviar(1, kRxDatPlu, true, 11, 11);
  EXPECT_TRUE(comparar(11).cuando && !comparar(11).laTiene);
}

}  // namespace tarvo::prueba
