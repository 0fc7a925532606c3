// The dialogs that choose the groups of a task.
#include <QAccessible>

#include "MesaDeGestcomm.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

TEST_F(Gestcomm, DialogosConMasQuePreguntar) {
  dosGrupos();
  struct {
    const char16_t *campo, *teclas;
    TipoTarea clase;
    comm::ModoPedir modo;
    bool todo;
    qint64 desde, hasta;
  } const casos[] = {
      {u"NmBz", u"3", TipoTarea::RxOpera, comm::kModoBalanza, false, 2, 9999999},
      {u"NmBz", u"", TipoTarea::RxOpera, comm::kModoBalanza, true, 0, 9999999},
      {u"Desde", u"25", TipoTarea::RxPlus, comm::kModoRxPLU, true, 25, 9999999},
      {u"Hasta", u"x", TipoTarea::RxPlus, comm::kModoRxPLU, true, 0, 9999999},
      {u"Hasta", u"70", TipoTarea::RxPlus, comm::kModoRxPLU, true, 0, 70},
  };
  gestor->CambioAModo(false);
  sql(u"insert into BZAS (SUGPO, NMBZA) values (1, 2)"_s);
  for (const auto& c : casos) {
    auto* v = c.modo == comm::kModoRxPLU ? abrir(comm::PuertaRxPLUDlg{c.clase})
                                         : abrir(comm::PuertaGrpDlg{c.clase, c.modo});
    auto* campo = v->findChild<QLineEdit*>(QString::fromUtf16(c.campo));
    campo->setFocus();
    campo->selectAll();
    QTest::keyClicks(campo, QString::fromUtf16(c.teclas));
    QTest::keyClick(v->findChild<QPushButton*>(u"Acepto"_s), Qt::Key_Space);
    QCoreApplication::processEvents();
    const auto t = gestor->tareas();
    ASSERT_FALSE(t.empty()) << QString::fromUtf16(c.teclas).toStdString();
    EXPECT_EQ(t.back().datos.Todo, c.todo);
    EXPECT_EQ(t.back().datos.Desde, c.desde);
    EXPECT_EQ(t.back().datos.Hasta, c.hasta);
    gestor->terminator();
  }
}

// A list of groups is chosen from by assistive tools too: each row can be heard, and chosen or not.
TEST_F(Gestcomm, LosGruposSeEligenDeOido) {
  dosGrupos();
  gestor->CambioAModo(false);
  auto* v = abrir(comm::PuertaGrpDlg{TipoTarea::RxOpera, comm::kModoBalanza});
  auto* deGrupos = v->findChild<QListWidget*>(u"lstGpo"_s);
  auto* lista = QAccessible::queryAccessibleInterface(deGrupos);
  ASSERT_EQ(lista->role(), QAccessible::List);
  ASSERT_EQ(lista->childCount(), 2);
  for (const int i : {0, 1}) {
    QAccessibleInterface* fila = lista->child(i);
    EXPECT_TRUE(fila->text(QAccessible::Name).startsWith(u"000%1"_s.arg(i + 1)));
    ASSERT_TRUE(fila->actionInterface() && fila->state().selectable);
    const bool antes = fila->state().selected;
    EXPECT_EQ(antes, i == 0);
    fila->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(fila->state().selected, !antes);
  }
  QTest::keyClick(v->findChild<QPushButton*>(u"Acepto"_s), Qt::Key_Space);
  ASSERT_EQ(gestor->tareas().size(), 1U);
  EXPECT_EQ(gestor->tareas().front().datos.Grupo, 2);
  gestor->terminator();
}

// What can't be meant is refused in words, with nothing queued; what is left goes without a
// question.
TEST_F(Gestcomm, DialogosQueSeNiegan) {
  dosGrupos();
  gestor->CambioAModo(false);
  const auto aceptar = [this](ventanas::Ventana* v) {
    return caja([v] { QTest::keyClick(v->findChild<QPushButton*>(u"Acepto"_s), Qt::Key_Space); });
  };
  const auto escribir = [](ventanas::Ventana* v, const QString& campo, const QString& teclas) {
    auto* linea = v->findChild<QLineEdit*>(campo);
    linea->setFocus();
    linea->selectAll();
    QTest::keyClicks(linea, teclas);
  };
  auto* v = abrir(comm::PuertaGrpDlg{TipoTarea::RxOpera, comm::kModoBalanza});
  for (const QString& mala : {u"0"_s, u"100"_s, u"3b"_s}) {
    escribir(v, u"NmBz"_s, mala);
    EXPECT_EQ(aceptar(v), u"Escriba un número de balanza de 1 a 99, o déjelo vacío para todas.");
    EXPECT_EQ(v->focusWidget(), v->findChild<QLineEdit*>(u"NmBz"_s));
  }
  escribir(v, u"NmBz"_s, u"9"_s);
  EXPECT_TRUE(aceptar(v).startsWith(u"El grupo 1 no tiene ninguna balanza con el número 9:"));
  QTest::keyClick(v, Qt::Key_Escape);
  EXPECT_FALSE(escritorio.ventanas().cargada(u"GrpDlg"_s));

  v = abrir(comm::PuertaTxPLUdlg());
  escribir(v, u"desde"_s, u"80"_s);
  escribir(v, u"hasta"_s, u"90x"_s);
  EXPECT_EQ(v->findChild<QLineEdit*>(u"desde"_s)->text(), u"0000080");
  EXPECT_TRUE(aceptar(v).contains(u"9999999"));
  escribir(v, u"hasta"_s, u"70"_s);
  EXPECT_EQ(aceptar(v), u"«Desde» no puede ser mayor que «hasta».");
  escribir(v, u"hasta"_s, u"90"_s);
  v->findChild<QListWidget*>(u"lstGpo"_s)->clearSelection();
  EXPECT_TRUE(aceptar(v).startsWith(u"Elija al menos un grupo"));
  EXPECT_EQ(gestor->CuantosQuedan().total, 0);
}

}  // namespace tarvo::prueba
