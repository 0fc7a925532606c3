// The undo stack as a user meets it: Ctrl+Z over written cells, Ctrl+Y over what was undone.
#include <QTableView>

#include "Muestra.h"
#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

struct PuertaDeLista {
  static constexpr QStringView kNombre = u"Lista";
};

}  // namespace

// Cells are restored one by one, the last first; one that can't be restored stays on the stack.
TEST(Deshacer, LasCeldasVuelven) {
  Mesa m(kTextosMuestra);
  llenarArticulos(m, 5);
  struct Lista final : Ventana {
    Lista(Contexto& c, const QString& n, Mesa& m)
        : Ventana(c, n), parrilla(new Parrilla(cuerpo())) {
      enlazar();
      parrilla->preparar(
          c, n,
          {{.titulo = 9910, .campo = u"CODIGO"_s, .clase = Clase::Codigo, .cifras = 3},
           {.titulo = 9911,
            .campo = u"NOMBRE"_s,
            .editar = [this, &m](qint64 clave, const QString& s) -> Resultado<> {
              if (cerrada) return fallo(Fallo::Ocupado, u"Ahora no."_s);
              m.sql(u"UPDATE ART SET NOMBRE=? WHERE CODIGO=?"_s, s, clave);
              return {};
            }}});
      deshacer = new Deshacer(*this);
      deshacer->seguirCeldas(*parrilla);
    }
    Resultado<> entrar(const PuertaDeLista&) {
      return parrilla->abrir({.desde = u"ART"_s, .clave = u"CODIGO"_s});
    }
    Parrilla* parrilla;
    Deshacer* deshacer;
    bool cerrada = false;
  };
  m.escritorio.ventanas().registrar<PuertaDeLista, Lista>(m);
  auto* v = static_cast<Lista*>(m.escritorio.ventanas().abrir(u"Lista"_s));
  ASSERT_TRUE(esperar([&] { return v->isActiveWindow(); }));
  auto* vista = v->parrilla->vista();
  const QString primero = v->parrilla->texto(0, u"NOMBRE");
  EXPECT_FALSE(v->deshacer->accion()->isEnabled());
  // A letter typed on an editable cell edits it; on the code beside it, it searches.
  vista->setFocus();
  vista->setCurrentIndex(v->parrilla->modelo()->index(0, 0));
  QTest::keyClick(vista, Qt::Key_0);
  EXPECT_FALSE(v->parrilla->editando());
  for (const char letra : {'x', 'y'}) {
    vista->setFocus();
    vista->setCurrentIndex(v->parrilla->modelo()->index(letra == 'x' ? 0 : 1, 1));
    QTest::keyClick(vista, letra);
    ASSERT_TRUE(v->parrilla->editando());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  }
  EXPECT_EQ(v->parrilla->texto(0, u"NOMBRE"), u"x");
  v->cerrada = true;
  v->deshacer->accion()->trigger();
  EXPECT_EQ(v->tira().texto(), u"Ahora no.");
  v->cerrada = false;
  QTest::keyClick(vista, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(v->parrilla->texto(0, u"NOMBRE"), u"x") << "the last one first";
  QTest::keyClick(vista, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(v->parrilla->texto(0, u"NOMBRE"), primero);
  EXPECT_FALSE(v->deshacer->accion()->isEnabled());
}

// What was undone can be done again until something else changes, by hand or by an undo that has no
// way forward itself: doing it again would build on what is no longer there.
TEST(Deshacer, RehaceHastaQueAlgoCambia) {
  Mesa m(kTextosMuestra);
  m.escritorio.ventanas().registrar<PuertaDeLista, Lisa>();
  Ventana* v = m.escritorio.ventanas().abrir(PuertaDeLista());
  Deshacer deshacer(*v);
  QAction* rehacer = deshacer.accionRehacer();
  QString hecho;
  const auto cambiar = [&](QChar letra, bool ida) {
    const QString antes = hecho;
    hecho += letra;
    const auto vuelta = [&, antes]() -> Resultado<Deshacer::Vuelto> {
      hecho = antes;
      return Deshacer::Vuelto();
    };
    if (!ida) return deshacer.apuntar(letra, vuelta);
    return deshacer.apuntarIdaYVuelta(letra, vuelta, [&, despues = hecho]() -> Resultado<> {
      hecho = despues;
      return {};
    });
  };
  // A letter is a change that can be done again, a capital one that can't; < undoes, > does again.
  const struct {
    QStringView teclas, queda;
    bool masIdas;
  } casos[] = {
      {u"ab<<", u"", true},    {u"ab<<>", u"a", true},   {u"ab<<>>", u"ab", false},
      {u"ab<c", u"ac", false}, {u"ab<c>", u"ac", false}, {u"a<>b<<", u"", true},
      {u"Ab<<", u"", false},   {u"Ab<<>", u"", false},   {u"aB<<", u"", true},
  };
  for (const auto& c : casos) {
    deshacer.olvidar();
    hecho.clear();
    for (const QChar t : c.teclas)
      t == u'<'   ? deshacer.accion()->trigger()
      : t == u'>' ? rehacer->trigger()
                  : void(cambiar(t, t.isLower()));
    EXPECT_EQ(hecho, c.queda) << c.teclas.toString().toStdString();
    EXPECT_EQ(rehacer->isEnabled(), c.masIdas) << c.teclas.toString().toStdString();
  }
}

}  // namespace tarvo::prueba
