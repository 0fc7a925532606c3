// The shop of the catalogue's windows, with the windows of groups on top. Groups 1 to 4, of kinds 1
// to 4, have a machine each; group 1 has a second one. Formats of labels "uno" and "dos" have the
// set A, "tres" has B, and "cuatro" has none.
#pragma once

#include <QClipboard>
#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>

#include "comm/configuracion/Aceptado.h"
#include "core/dao/Pasos.h"
#include "devices/Modelos.h"
#include "groups/Grupos.h"
#include "groups/ventanas/Listas.h"
#include "groups/ventanas/Puertas.h"
#include "groups/ventanas/RegistrarVentanas.h"
#include "ventanas/articles/MesaDeArticulos.h"

namespace tarvo::prueba {

using namespace groups;

struct MesaDeGrupos : MesaDeArticulos {
  MesaDeGrupos() {
    bien(dao::darPasos(*db, {configuracion::tablasConfiguracion()}));
    const int modelos[] = {devices::kRowan, devices::kEbony, devices::kSinModelo, devices::kBirch};
    for (int g = 1; g <= 4; ++g) maquina(g, 0, modelos[g - 1]);
    maquina(1, 1, devices::kCedar);
    for (const auto& [formato, juego] : {std::pair{u"uno"_s, V(u"A"_s)},
                                         {u"dos"_s, u"A"_s},
                                         {u"tres"_s, u"B"_s},
                                         {u"cuatro"_s, V()}})
      fila(u"ETIQUETAS", {{u"NUMETQ", formato}, {u"settxt", juego}, {u"CAMPOS", u""_s}});
    for (int o = 1; o <= 3; ++o) operador(o, u"Op %1"_s.arg(o));
    registrarVentanasGrupos(escritorio.ventanas(), catalogo, *gestor);
  }
  void maquina(int grupo, int sitio, int modelo) {
    devices::Balanza b;
    b.tipo(modelo);
    fila(u"BZAS", {{u"SUGPO", grupo},
                   {u"NMBZA", sitio},
                   {u"tipo", modelo},
                   {u"Addr", sitio + 1},
                   {u"Teclado", b.Teclado.Teclado},
                   {u"RZSOCIAL", b.RazonSo}});
  }

  // --- the editor
  ventanas::Ventana* editor(int grupo) { return abrir(PuertaEdiGrupo{{.codigo = grupo}}); }
  static QListWidget& sitios(QWidget* v) {
    auto* bza = v->findChild<QListWidget*>(u"bza"_s);
    return bza ? *bza : *v->findChild<QListWidget*>(u"cja"_s);
  }
  // The models in the places: "Rowan Cedar . . ." up to the last one that is taken.
  static QString puestas(QWidget* v) {
    QStringList s;
    for (int n = 0; n < sitios(v).count(); ++n) s << sitios(v).item(n)->text().section(u" · "_s, 1);
    while (!s.isEmpty() && s.last() == u"vacío") s.removeLast();
    return s.replaceInStrings(u"vacío"_s, u"."_s).join(u' ');
  }
  static void ir(QWidget* v, int sitio) {
    sitios(v).setFocus();
    sitios(v).setCurrentRow(sitio);
  }
  static void poner(QWidget* v, const char16_t* campo, const QString& texto) {
    auto* linea = control(v, campo);
    linea->setFocus();
    linea->selectAll();
    QTest::keyClick(linea, Qt::Key_Delete);
    QTest::keyClicks(linea, texto);
  }
  static void elegir(QWidget* v, const char16_t* lista, int fila) {
    auto* c = control<QComboBox>(v, lista);
    c->setCurrentIndex(fila);
    Q_EMIT c->activated(fila);
  }
  static QAction* orden(QWidget* v, const QString& nombre) {
    auto* a = v->findChild<QAction*>(nombre);
    EXPECT_NE(a, nullptr) << nombre.toStdString();
    return a;
  }
  // Chooses an entry of the menu that a key has opened, by its text.
  static void enMenu(const QString& texto) {
    ASSERT_TRUE(esperar([] { return QApplication::activePopupWidget() != nullptr; }, 3000));
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    for (QAction* a : menu->actions())
      if (a->text().remove(u'&') == texto) {
        menu->setActiveAction(a);
        QTest::keyClick(menu, Qt::Key_Return);
        return;
      }
    ADD_FAILURE() << texto.toStdString();
    menu->close();
  }
  // Drops something on a place, or on a box.
  static void soltar(QWidget* v, const Arrastre& que, QWidget* sobre, const QPoint& donde,
                     Qt::KeyboardModifiers con = {}) {
    const std::unique_ptr<QMimeData> datos(
        comoMime(que, qobject_cast<ventanas::Ventana*>(v)->nombre()));
    QDragEnterEvent entra(donde, Qt::CopyAction, datos.get(), Qt::LeftButton, con);
    QCoreApplication::sendEvent(sobre, &entra);
    QDropEvent suelta(donde, Qt::CopyAction, datos.get(), Qt::LeftButton, con);
    QCoreApplication::sendEvent(sobre, &suelta);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
  }
  static void soltarEn(QWidget* v, const Arrastre& que, int sitio, Qt::KeyboardModifiers con = {}) {
    auto& lista = sitios(v);
    soltar(v, que, lista.viewport(), lista.visualItemRect(lista.item(sitio)).center(), con);
  }
  bool guardar(ventanas::Ventana* v) {
    const QPointer<ventanas::Ventana> suya = v;
    activa(v);
    QTest::keyClick(v, Qt::Key_S, Qt::ControlModifier);
    return esperar([&] { return !suya || !suya->isVisible(); }, 3000);
  }
  // What waits in the queue: class, and "-" where it isn't everything.
  QString cola() {
    QStringList s;
    for (const auto& x : gestor->tareas())
      s << QString::number(numeroDe(x.datos.Clase)) + (x.datos.Todo ? u""_s : u"-"_s);
    return s.join(u' ');
  }
  int& envio() { return ajustes.de<AjustesArticulos>().EnviarCambios[0]; }
};

}  // namespace tarvo::prueba
