// The list of operators, by keys.
#include <QHeaderView>
#include <variant>

#include "MesaDeArticulos.h"

namespace tarvo::prueba {

TEST(Operadores, ElCodigoDeUnOperador) {
  MesaDeArticulos t;
  for (const int c : {5, 6}) t.operador(c);
  t.sql(u"update GRUPOS set OP01_C=5, OP01_T=1, OP15_C=5"_s);
  auto* v = t.abrir(u"BrowOper"_s);
  auto& grid = t.lista(v);
  const struct {
    const char16_t *texto, *dice;
  } casos[] = {{u"0", u"Número de operador incorrecto"},
               {u"10000", u"Número de operador incorrecto"},
               {u"6", u"El código de registro ya existe: No debe duplicarse"},
               {u"77", u""}};
  t.abrirCelda(grid, u"CODOPE"_s);
  for (const auto& c : casos) {
    qobject_cast<QLineEdit*>(QApplication::focusWidget())->selectAll();
    t.escribir(QString::fromUtf16(c.texto));
    t.tecla(Qt::Key_Return);
    if (*c.dice) {
      EXPECT_EQ(v->tira().texto().toStdString(), QString::fromUtf16(c.dice).toStdString());
    }
  }
  ASSERT_TRUE(esperar([&] { return grid.texto(grid.filaActual(), u"CODOPE") == u"0077"; }));
  EXPECT_EQ(t.leer(u"select TIPO, OP01_C, OP15_C from GRUPOS order by CODGPO"_s),
            u"1 77 77 | 2 77 5 | 3 77 77 | 4 77 77");
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_Delete);
  EXPECT_EQ(t.leer(u"select OP01_C, OP01_T from GRUPOS"_s), u"0 0 | 0 0 | 0 0 | 0 0");
  // Undo restores everything except a slot that has been given to another operator since.
  t.sql(u"update GRUPOS set OP01_C=6 where CODGPO=3"_s);
  v->activateWindow();
  ASSERT_TRUE(t.activa(v));
  grid.vista()->setFocus();
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.leer(u"select CODOPE, NOMOPE from OPERS order by CODOPE"_s), u"6 Op | 77 Op");
  EXPECT_EQ(t.leer(u"select TIPO, OP01_C, OP01_T, OP15_C from GRUPOS order by CODGPO"_s),
            u"1 77 1 77 | 2 77 1 5 | 3 6 0 77 | 4 77 1 77");
  EXPECT_EQ(v->tira().texto(),
            u"1 operador vuelve, también a sus grupos.  En 1 sitio de los grupos ya hay otro "
            u"operador, o el grupo no existe: se queda así.");
  EXPECT_EQ(grid.texto(grid.filaActual(), u"CODOPE"), u"0077");
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_Delete);
  ASSERT_EQ(t.leer(u"select CODOPE from OPERS"_s), u"6");
  v->activateWindow();
  ASSERT_TRUE(t.activa(v));
  grid.vista()->setFocus();
  t.tecla(Qt::Key_Insert);
  t.escribir(u"Luis"_s);
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.leer(u"select CODOPE, NOMOPE from OPERS order by CODOPE"_s), u"6 Op | 7 Luis");
}

// Typing on the codes searches; a code changes only in its cell opened on purpose.
TEST(Operadores, TeclearUnCodigoLoBusca) {
  MesaDeArticulos t;
  t.operador(1, u"Ana").operador(77, u"Luis");
  auto& grid = t.lista(t.abrir(u"BrowOper"_s));
  grid.vista()->setCurrentIndex(grid.modelo()->index(0, grid.modelo()->columna(u"CODOPE")));
  t.escribir(u"0077"_s);
  EXPECT_FALSE(grid.editando());
  EXPECT_TRUE(esperar([&] { return grid.texto(grid.filaActual(), u"CODOPE") == u"0077"; }));
  t.tecla(Qt::Key_Return);
  EXPECT_EQ(t.leer(u"select CODOPE, NOMOPE from OPERS order by CODOPE"_s), u"1 Ana | 77 Luis");
  t.tecla(Qt::Key_Escape);
}

// Keys typed into the cells of a new operator, and the operators that result.
TEST(Operadores, UnOperadorNuevoSinNombreSeVa) {
  const struct {
    std::vector<std::variant<Qt::Key, const char16_t*>> teclas;
    const char16_t* quedan;
    bool seDice;
  } casos[] = {{{Qt::Key_Escape}, u"5 Ana", true},
               {{Qt::Key_Return}, u"5 Ana", true},
               {{u"Luis", Qt::Key_Escape}, u"5 Ana", true},
               {{u"Luis", Qt::Key_Return}, u"5 Ana | 6 Luis", false},
               {{Qt::Key_Backtab, u"50", Qt::Key_Return, u"Luis", Qt::Key_Return},
                u"5 Ana | 50 Luis",
                false},
               {{Qt::Key_Backtab, u"50", Qt::Key_Return, Qt::Key_Escape}, u"5 Ana", true}};
  for (const auto& c : casos) {
    MesaDeArticulos t;
    t.operador(5, u"Ana");
    auto* v = t.abrir(u"BrowOper"_s);
    auto& grid = t.lista(v);
    t.tecla(Qt::Key_Insert);
    for (const auto& tecla : c.teclas) {
      if (const auto* k = std::get_if<Qt::Key>(&tecla)) {
        t.tecla(*k);
      } else {
        t.escribir(QString::fromUtf16(std::get<const char16_t*>(tecla)));
      }
      QApplication::processEvents();
    }
    const QString operadores = u"select CODOPE, NOMOPE from OPERS order by CODOPE"_s;
    EXPECT_EQ(t.leer(operadores).toStdString(), QString::fromUtf16(c.quedan).toStdString());
    EXPECT_EQ(v->tira().isVisible(), c.seDice);
    EXPECT_FALSE(grid.editando());
    EXPECT_GE(grid.filaActual(), 0);
    // Closing the window leaves no nameless operator either.
    t.tecla(Qt::Key_Insert);
    v->close();
    EXPECT_EQ(t.leer(operadores).toStdString(), QString::fromUtf16(c.quedan).toStdString());
  }
}

// The column of names takes the remaining width.
TEST(Operadores, ElNombreDelOperadorLlenaLaLista) {
  MesaDeArticulos t;
  for (const char16_t* ventana : {u"BrowOper", u"SelOpe"}) {
    auto* v = t.abrir(QString::fromUtf16(ventana));
    v->resize(1100, 500);
    auto* vista = t.lista(v).vista();
    EXPECT_TRUE(esperar([&] {
      return vista->horizontalHeader()->length() == vista->viewport()->width();
    })) << QString::fromUtf16(ventana).toStdString();
  }
}

}  // namespace tarvo::prueba
