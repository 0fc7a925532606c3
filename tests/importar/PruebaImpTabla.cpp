// Articles from a table: headings, dry run, import, refusals, undoing.
#include "articles/importar/ImpTabla.h"

#include "articles/importar/LeerTabla.h"
#include "importar/TiendaDeImportar.h"

namespace tarvo::importar {
namespace {

struct ConImpTabla : TiendaDeImportar {
  Ajustes ajustes{carpeta.path(), Idioma::Espanol};
  TablaLeida leida;
  std::unique_ptr<ImpTabla> motor;

  // The dry run of a CSV, with its own plan; `cambiar` may alter it.
  void ensayar(const QString& csv, const std::function<void(Plan&)>& cambiar = {}) {
    leida = bien(leerTabla(fichero(csv.toUtf8(), u"t.csv"_s), textosDePrueba()));
    Plan plan = planDe(leida.tabla, textosDePrueba());
    if (cambiar) cambiar(plan);
    motor = bien(ImpTabla::crear(catalogo, ajustes, leida.tabla, plan));
    while (bien(motor->ensayar())) continue;
  }
  ImpTabla::Hecho aplicar() {
    while (bien(motor->aplicar())) continue;
    bien(motor->acabar());
    return motor->hecho();
  }
  QString propuestas() {
    QStringList s;
    for (const Propuesta& p : motor->propuestas()) {
      QStringList cambios;
      for (const Cambio& c : p.cambios)
        cambios << titulo(c.campo, textosDePrueba()) + u' ' + c.antes + u'>' + c.ahora;
      const QChar que = u"NCIR"[static_cast<int>(p.que)];
      s << u"%1 %2 %3"_s.arg(p.linea).arg(que).arg(p.que == Que::Rechazada ? p.motivo
                                                                           : cambios.join(u", "));
    }
    return s.join(u" | ");
  }
};

TEST_F(ConImpTabla, LosTitulosSeReconocen) {
  leida = bien(leerTabla(
      fichero("Lista de precios 2026\n\nREF.;Descripci\xC3\xB3n;P.V.P. (\xE2\x82\xAC/kg);Tarifa 3;"
              "C\xC3\xB3"
              "digo de barras;Observaciones;PRECIO_12\n1;a;1;1;1;x;1\n",
              u"t.csv"_s),
      textosDePrueba()));
  const auto t = emparejar(leida.tabla, textosDePrueba());
  EXPECT_EQ(t.fila, 1);
  const Emparejado debe{Campo::Codigo,    Campo::Nombre, campoPrecio(0, 0), campoPrecio(0, 2),
                        Campo::CodBarExt, std::nullopt,  campoPrecio(1, 2)};
  EXPECT_EQ(t.columnas, debe);
  // "Artículo" may be the name or the code.
  const auto dos = [&](const char* titulos) {
    leida = bien(leerTabla(fichero(titulos, u"d.csv"_s), textosDePrueba()));
    return emparejar(leida.tabla, textosDePrueba()).columnas;
  };
  EXPECT_EQ(dos("Articulo;Codigo\n1;2\n"), (Emparejado{Campo::Nombre, Campo::Codigo}));
  EXPECT_EQ(dos("Articulo;Descripcion\n1;2\n"), (Emparejado{Campo::Codigo, Campo::Nombre}));
}

TEST_F(ConImpTabla, EnsayarNoCambiaNadaYDiceTodo) {
  articulo({.codigo = 10, .nombre = u"PIÑA", .depto = 1, .precio = 150})
      .articulo({.codigo = 11, .nombre = u"UVA", .depto = 1, .precio = 220, .barras = u"8400"})
      .articulo({.codigo = 12, .nombre = u"KIWI", .depto = 2, .precio = 300});
  const QString antes = articulos(u"NOMPLU, PRECIO_00, DEPTO, CodBarExt"_s);
  ensayar(
      u"Código;Nombre;PVP;Unidad;Depto;EAN;Hasta 1\n"
      u"10;PIÑA;1,75;kg;Fruta;;1,5\n"
      u"11;UVA;2,20;;;8400;\n"
      u"13;Pan de molde;1.234,50;ud;carniceria;8401;3\n"
      u"x;Mal;1;;;;\n"
      u"1;Sistema;1;;;;\n"
      u"14;;1;;;;\n"
      u"12;;abc;;;;\n"
      u"12;;3;;;;\n"
      u"15;Otro;1;litro;;;\n"
      u"16;Otro;1;;99;;\n"
      u"17;Otro;1;;;8400;\n"
      u"18;Otro;-1;;;;\n"
      u"19;Otro;1;;;;200\n"_s);
  EXPECT_EQ(propuestas(),
            u"2 C Precio, tarifa 1 1,50>1,75, Cantidad Hasta 1 0,000>1,500 | 3 I  | "
            u"4 N Nombre >Pan de molde, Precio, tarifa 1 >1.234,50, Unidad de venta >unidad, "
            u"Departamento >2, Código de barras >8401, Cantidad Hasta 1 >3 | "
            u"5 R Código: «x» no vale. | "
            u"6 R El código 0000001 lo usa el programa y no se sobreescribe. | "
            u"7 R El artículo es nuevo y le falta el nombre. | "
            u"8 R Precio, tarifa 1: «abc» no vale. | "
            u"9 R El código 0000012 está también en la línea 8. | "
            u"10 R Unidad de venta: «litro» no vale. | "
            u"11 R No hay departamento «99» en la sección 001. | "
            u"12 R El código de barras 8400 ya es del artículo 0000011. | "
            u"13 R Precio, tarifa 1: «-1» no vale. | "
            u"14 R Cantidad Hasta 1: «200,000» no vale."_s);
  EXPECT_EQ(articulos(u"NOMPLU, PRECIO_00, DEPTO, CodBarExt"_s), antes);
}

// Prices of a file are rounded, halves up, and counted: those that are written.
TEST_F(ConImpTabla, LosDecimalesDeMasSeRedondeanYSeCuentan) {
  articulo({.codigo = 10, .nombre = u"PIÑA", .depto = 1, .precio = 150})
      .articulo({.codigo = 11, .nombre = u"UVA", .depto = 1, .precio = 220});
  ensayar(
      u"Código;Nombre;Precio;Coste\n10;PIÑA;1,745;1,0049\n11;UVA;2,2049;\n13;PAN;0,9500;\n"
      u"14;MIEL;3,33;2,125\n"_s);
  EXPECT_EQ(aplicar().redondeados, 3) << "11 stays as it is";
  EXPECT_EQ(articulos(u"PRECIO_00, COSTE"_s),
            u"1 10 175 100 | 1 11 220 0 | 1 13 95 0 | 1 14 333 213"_s);
}

// A price that the list would warn of is imported and counted, unless its row is refused.
TEST_F(ConImpTabla, LosPreciosRarosSeCuentan) {
  articulo({.codigo = 10, .nombre = u"PIÑA", .depto = 1, .precio = 150})
      .articulo({.codigo = 11, .nombre = u"UVA", .depto = 1, .precio = 220})
      .articulo({.codigo = 12, .nombre = u"KIWI", .depto = 1, .precio = 300});
  ensayar(
      u"Código;Nombre;Precio;Coste\n10;PIÑA;0;1\n11;UVA;22,00;\n12;KIWI;4,00;\n13;PAN;0,95;\n"
      u"14;MIEL;9999999,00;\n15;;0;\n"_s);
  EXPECT_EQ(motor->dudosas(), 3);
  QStringList cuales;
  for (const Propuesta& p : motor->propuestas())
    if (!p.avisos.isEmpty()) cuales << QString::number(p.linea) + u' ' + p.avisos.join(u'|');
  EXPECT_EQ(cuales.size(), 3) << cuales.join(u'\n').toStdString();
  EXPECT_TRUE(cuales.value(1).contains(u"22,00")) << cuales.join(u'\n').toStdString();
  EXPECT_EQ(aplicar().dudosos, 3);
  EXPECT_EQ(articulos(u"PRECIO_00"_s), u"1 10 0 | 1 11 2200 | 1 12 400 | 1 13 95 | 1 14 999999900");
}

// Applied: articles, machines, history; then all of it undone.
TEST_F(ConImpTabla, AplicarYDeshacer) {
  articulo(
      {.codigo = 10, .nombre = u"PIÑA", .depto = 1, .precio = 150, .mas = {{u"TEXTO_ETQ", u"x"}}})
      .articulo({.codigo = 11, .nombre = u"UVA", .depto = 1, .precio = 220})
      .cruce(7, {10, 11});
  const QString antes = articulos(u"NOMPLU, PRECIO_00, DEPTO, TEXTO_ETQ"_s);
  ensayar(u"Código,Nombre,Precio\n10,PIÑA,1.75\n11,UVA,2.20\n13,PAN,0.95\nmal,,\n"_s);
  const auto hecho = aplicar();
  EXPECT_EQ(hecho.nuevos, 1);
  EXPECT_EQ(hecho.cambiados, 1);
  EXPECT_EQ(hecho.malas, (std::vector<LineaMala>{{5, u"Código: «mal» no vale."_s, u"mal"_s}}));
  EXPECT_EQ(articulos(u"NOMPLU, PRECIO_00, DEPTO, TEXTO_ETQ"_s),
            u"1 10 PIÑA 175 1 x | 1 11 UVA 220 1  | 1 13 PAN 95 1 "_s);
  EXPECT_EQ(leer(u"SELECT plu FROM [Cross]"_s), u"11"_s);
  EXPECT_EQ(leer(u"SELECT CODPLU, ANTES, AHORA, VENTANA FROM HistoriaPrecios ORDER BY 1"_s),
            u"10 150 175 ImpTabla | 13 0 95 ImpTabla"_s);
  const auto d = bien(lotes.deshacer(bien(lotes.ultimo(u"ImpTabla"_s))->numero, u"ImpTabla"_s));
  EXPECT_EQ(d.repuestos, 1);
  EXPECT_EQ(d.quitados, 1);
  EXPECT_EQ(articulos(u"NOMPLU, PRECIO_00, DEPTO, TEXTO_ETQ"_s), antes);
}

TEST_F(ConImpTabla, SeccionPropiaYSinCrearNuevos) {
  en(2).articulo({.codigo = 10});
  ensayar(u"Sección;Código;Nombre\n2;10;B\n2;11;C\n;12;D\n9;13;E\n"_s,
          [](Plan& p) { p.crearNuevos = false; });
  EXPECT_EQ(propuestas(),
            u"2 C Nombre A>B | 3 R El código 0000011 no existe, y no se crean artículos nuevos. | "
            u"4 R El código 0000012 no existe, y no se crean artículos nuevos. | "
            u"5 R No hay ninguna sección 009: créela antes de importar."_s);
  ensayar(u"Sección;Código;Nombre\n2;11;C\n"_s);
  EXPECT_EQ(propuestas(),
            u"2 R El artículo es nuevo y la sección 002 no tiene departamentos: cree uno antes."_s);
}

// Bar codes exchanged within a table: the final state counts. Once undone, each article has its own
// again.
TEST_F(ConImpTabla, CodigosDeBarrasQueSePasan) {
  const struct {
    const char16_t* filas;
    QString rechazadas, quedan;
  } casos[] = {
      {u"10;8\n11;7\n", u""_s, u"10 8 | 11 7 | 12 9 | 13 -"_s},
      {u"10;8\n11;9\n12;7\n", u""_s, u"10 8 | 11 9 | 12 7 | 13 -"_s},
      {u"13;7\n10;6\n", u""_s, u"10 6 | 11 8 | 12 9 | 13 7"_s},
      {u"20;7\n10;6\n", u""_s, u"10 6 | 11 8 | 12 9 | 13 - | 20 7"_s},
      {u"10;8\n11;9\n", u"2 3"_s, u"10 7 | 11 8 | 12 9 | 13 -"_s},  // 12 keeps its own
      {u"10;8\n11;7;mal\n", u"2 3"_s, u"10 7 | 11 8 | 12 9 | 13 -"_s},
      {u"10;6\n13;6\n", u"3"_s, u"10 6 | 11 8 | 12 9 | 13 -"_s},
  };
  for (const auto& c : casos) {
    sql(u"DELETE FROM PLUSES WHERE CODPLU>2"_s);
    for (const auto& [codigo, nombre, barras] :
         {std::tuple{10, u"A", u"7"}, {11, u"B", u"8"}, {12, u"C", u"9"}})
      articulo({.codigo = codigo, .nombre = nombre, .depto = 1, .barras = barras});
    articulo({.codigo = 13, .nombre = u"D", .depto = 1});
    QString csv = QString::fromUtf16(c.filas);
    csv.replace(u"20;7"_s, u"20;7;;N"_s);
    ensayar(u"Código;EAN;PVP;Nombre\n"_s + csv);
    QStringList malas;
    for (const LineaMala& m : aplicar().malas) malas << QString::number(m.numero);
    EXPECT_EQ(malas.join(u' '), c.rechazadas) << propuestas().toStdString();
    EXPECT_EQ(leer(u"SELECT CODPLU, CodBarExt FROM PLUSES WHERE CODPLU>2 ORDER BY CODPLU"_s),
              c.quedan)
        << csv.toStdString();
    if (motor->lote() > 0 && motor->hecho().nuevos + motor->hecho().cambiados > 0)
      bien(lotes.deshacer(motor->lote(), u"ImpTabla"_s));
    EXPECT_EQ(leer(u"SELECT CODPLU, CodBarExt FROM PLUSES WHERE CODPLU>2 ORDER BY CODPLU"_s),
              u"10 7 | 11 8 | 12 9 | 13 -"_s);
  }
  // One of them is changed after the dry run: none of them moves, the others do.
  ensayar(u"Código;EAN;PVP\n10;8;\n11;7;\n13;;2\n"_s);
  sql(u"UPDATE PLUSES SET CodBarExt='5' WHERE CODPLU=11"_s);
  EXPECT_EQ(aplicar().malas.size(), 2U);
  EXPECT_EQ(
      leer(
          u"SELECT CODPLU, CodBarExt, PRECIO_00 FROM PLUSES WHERE CODPLU IN (10, 11, 13) ORDER BY 1"_s),
      u"10 7 0 | 11 5 0 | 13 - 200"_s);
}

// A refusal by the store in the middle rolls its step back and names the line; the batch keeps the
// rest. Changes made by others between two steps count.
TEST_F(ConImpTabla, UnFalloEnMedio) {
  QString csv = u"Código;Nombre;EAN\n"_s;
  for (int n = 0; n < 2 * ImpTabla::kEscritasPorPaso + 1; ++n)
    csv += u"%1;A;%2\n"_s.arg(20 + n).arg(n == 60 ? u"8400"_s : QString());
  ensayar(csv);
  sql(u"CREATE TRIGGER malo BEFORE INSERT ON PLUSES WHEN NEW.CODPLU=120 BEGIN SELECT "
      u"RAISE(ABORT, 'no'); END"_s);
  EXPECT_TRUE(bien(motor->aplicar()));
  articulo({.codigo = 70, .nombre = u"DE OTRO"});
  articulo({.codigo = 3, .nombre = u"DE OTRO", .barras = u"8400"});
  sql(u"UPDATE PLUSES SET NOMPLU='DE OTRO' WHERE CODPLU=20"_s);
  EXPECT_TRUE(bien(motor->aplicar()));
  ASSERT_EQ(motor->hecho().malas.size(), 1U) << "its bar code was taken meanwhile";
  EXPECT_EQ(motor->hecho().malas[0].numero, 62);
  const auto r = motor->aplicar();
  ASSERT_FALSE(r);
  EXPECT_TRUE(r.error().texto.startsWith(u"No se ha cambiado nada. Línea 102: "_s));
  const auto d = bien(lotes.deshacer(motor->lote(), u"ImpTabla"_s));
  EXPECT_EQ(d.repuestos + d.quitados, 98);
  EXPECT_EQ(articulos(u"NOMPLU"_s), u"1 3 DE OTRO | 1 20 DE OTRO | 1 70 DE OTRO"_s);
}

}  // namespace
}  // namespace tarvo::importar
