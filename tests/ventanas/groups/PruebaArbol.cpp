// The tree of groups, by keys.
#include "MesaDeGrupos.h"

namespace tarvo::prueba {

namespace {

QString nodosDe(QWidget* v) {
  QStringList s;
  for (QTreeWidgetItemIterator i(v->findChild<QTreeWidget*>(u"Arbol"_s)); *i; ++i)
    s << (*i)->text(0);
  return s.join(u'|');
}

void irA(QWidget* v, const QString& nodo) {
  auto* arbol = v->findChild<QTreeWidget*>(u"Arbol"_s);
  const auto hallados = arbol->findItems(nodo, Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_FALSE(hallados.isEmpty()) << nodo.toStdString();
  arbol->setCurrentItem(hallados.front());
  arbol->setFocus();
}

}  // namespace

TEST(ArbolDeGrupos, NombreCopiaYVuelta) {
  MesaDeGrupos t;
  t.sql(u"update GRUPOS set remoto=3, TELEF='balanza:4101' where CODGPO=2"_s);
  auto* v = t.abrir(PuertaBrowGrupos{.grupos = true});
  EXPECT_EQ(nodosDe(v), u"SECCIÓN ÚNICA|(1) G|(2) G|(3) G|(4) G|Carne");
  irA(v, u"(2) G"_s);
  t.tecla(Qt::Key_F2);
  EXPECT_EQ(qobject_cast<QLineEdit*>(QApplication::focusWidget())->text(), u"G")
      << "the code isn't edited";
  t.escribir(u"Pescado"_s + QString(40, u'x'));
  EXPECT_EQ(qobject_cast<QLineEdit*>(QApplication::focusWidget())->text().size(), 30);
  qobject_cast<QLineEdit*>(QApplication::focusWidget())->selectAll();
  t.escribir(u"Pescado"_s);
  t.tecla(Qt::Key_Return);
  ASSERT_TRUE(esperar([&] { return nodosDe(v).contains(u"(2) Pescado"); }));
  t.control<QTreeWidget>(v, u"Arbol")->setFocus();
  t.tecla(Qt::Key_F6);
  EXPECT_TRUE(nodosDe(v).contains(u"(4) G|(5) Copia de Pescado"));
  EXPECT_EQ(t.leer(u"select tipo, seccion from GRUPOS where CODGPO=5"_s), u"2 1");
  EXPECT_EQ(t.leer(u"select count(*) from BZAS where SUGPO=5"_s), u"1");
  EXPECT_TRUE(v->tira().texto().contains(u"El grupo 5 tiene las mismas máquinas que el grupo 2"))
      << v->tira().texto().toStdString();
  for (int i = 0; i < 2; ++i) t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(nodosDe(v), u"SECCIÓN ÚNICA|(1) G|(2) G|(3) G|(4) G|Carne");
}

// What goes with a group is told before; by default nothing goes, and all of it comes back.
TEST(ArbolDeGrupos, BorradoYRepuesto) {
  MesaDeGrupos t;
  t.oferta({.grupo = 1, .codigo = 10, .precio = 5});
  t.gestor->NuevaTarea(1, true, 0, 9999999, TipoTarea::TxPlus);
  const QString antes = t.leer(u"select * from GRUPOS order by 1"_s) +
                        t.leer(u"select * from BZAS order by 1, 2"_s) +
                        t.leer(u"select * from OFERTAS"_s) + t.cruces();
  auto* v = t.abrir(PuertaBrowGrupos{.grupos = true});
  irA(v, u"(1) G"_s);
  t.alAbrirse([](QWidget* w) { QTest::keyClick(w, Qt::Key_Return); });
  t.tecla(Qt::Key_Delete);
  const QStringList lineas = t.textoModal.split(u'\n');
  EXPECT_EQ(lineas.front(), u"Va a borrar un Grupo completo: ¿Seguro?");
  EXPECT_EQ(lineas.value(1), u"Grupo 1  G");
  EXPECT_EQ(lineas.value(2), u"Se van con él: máquinas, 2; ofertas, 1.");
  EXPECT_EQ(t.leer(u"select count(*) from GRUPOS"_s), u"4") << "Return goes back";
  t.activa(v);
  t.responder(u"Acepto"_s);
  t.tecla(Qt::Key_Delete);
  EXPECT_EQ(nodosDe(v), u"SECCIÓN ÚNICA|(2) G|(3) G|(4) G|Carne");
  EXPECT_EQ(t.leer(u"select count(*) from BZAS where SUGPO=1"_s), u"0");
  t.activa(v);
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(nodosDe(v), u"SECCIÓN ÚNICA|(1) G|(2) G|(3) G|(4) G|Carne");
  EXPECT_EQ(t.leer(u"select * from GRUPOS order by 1"_s) +
                t.leer(u"select * from BZAS order by 1, 2"_s) + t.leer(u"select * from OFERTAS"_s) +
                t.cruces(),
            antes);
}

// In this tree a section is copied with its groups; undone, nothing of them stays.
TEST(ArbolDeGrupos, UnaSeccionConSusGrupos) {
  MesaDeGrupos t;
  auto* v = t.abrir(PuertaBrowGrupos{.grupos = true});
  irA(v, u"SECCIÓN ÚNICA"_s);
  t.tecla(Qt::Key_F6);
  ASSERT_TRUE(
      esperar([&] { return nodosDe(v).contains(u"Copia de SECCIÓN ÚNICA|(5) Copia de G"); }));
  EXPECT_EQ(t.leer(u"select CODGPO, tipo from GRUPOS where seccion=3 order by 1"_s),
            u"5 1 | 6 2 | 7 3 | 8 4");
  EXPECT_EQ(t.leer(u"select count(*) from PLUSES where SECCION=3"_s), u"12");
  EXPECT_TRUE(v->tira().texto().contains(u"Con ella se han copiado 4 grupos"));
  t.tecla(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(t.leer(u"select count(*) from GRUPOS"_s), u"4") << v->tira().texto().toStdString();
  EXPECT_EQ(t.leer(u"select count(*) from BZAS"_s), u"5");
  EXPECT_EQ(t.leer(u"select count(*) from SECCS"_s), u"2");
}

}  // namespace tarvo::prueba
