#include "ventanas/primerdia/TiendaNueva.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPixmap>
#include <QThread>
#include <QTimer>
#include <QToolButton>

#include "app/ventanas/RegistrarVentanas.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/Ventana.h"
#include "textos/TextosDePrueba.h"
#include "tienda/Tienda.h"

namespace tarvo::primerdia {

namespace {

QString sinLetra(QString texto) {
  return texto.remove(u'&');
}

// The control's own name, or that of the action of its button.
QString nombreDe(const QWidget* w) {
  const auto* boton = qobject_cast<const QToolButton*>(w);
  if (boton && boton->defaultAction()) return boton->defaultAction()->objectName();
  return w->objectName();
}

// The name of a list is that of the widget around it.
bool esta(const QWidget* w, const QString& control) {
  for (; w && !w->isWindow(); w = w->parentWidget())
    if (nombreDe(w) == control) return true;
  return false;
}

}  // namespace

QWidget* Persona::activa() {
  if (QWidget* menu = QApplication::activePopupWidget()) return menu;
  return QApplication::activeWindow();
}

void Persona::pasar() {
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  reloj_.avanzar(20);
}

bool Persona::hasta(const std::function<bool()>& listo, int segundos) {
  const qint64 fin = reloj_.monotono() + segundos * 1000LL;
  for (int vueltas = 0; !listo(); ++vueltas) {
    if (reloj_.monotono() >= fin) return false;
    pasar();
    if (vueltas > 50) QThread::usleep(100);  // for queries in other threads
  }
  return true;
}

void Persona::mirar() {
  hasta([] { return false; }, 1);
}

ventanas::Ventana* Persona::en(const QString& ventana) {
  const auto delante = [&] {
    auto* v = qobject_cast<ventanas::Ventana*>(QApplication::activeWindow());
    return v && (v->nombre() == ventana || v->nombre().startsWith(ventana + u'#')) ? v : nullptr;
  };
  auto* antes = qobject_cast<ventanas::Ventana*>(QApplication::activeWindow());
  EXPECT_TRUE(hasta([&] { return delante() && QApplication::focusWidget(); }, 20))
      << "delante está "
      << (antes ? antes->nombre() + antes->tira().texto() : u"nada"_s).toStdString() << " y no "
      << ventana.toStdString();
  return delante();
}

void Persona::tecla(Qt::Key k, Qt::KeyboardModifiers m) {
  QWidget* w = QApplication::activePopupWidget();
  if (!w) w = QApplication::focusWidget();
  if (!w) w = activa();
  ASSERT_NE(w, nullptr);
  QTest::keyClick(w, k, m);
  pasar();
}

void Persona::escribir(const QString& texto) {
  for (const QChar c : texto) {
    QWidget* w = QApplication::focusWidget();
    ASSERT_NE(w, nullptr);
    QTest::sendKeyEvent(QTest::Click, w, static_cast<Qt::Key>(c.toUpper().unicode()), QString(c),
                        Qt::NoModifier);
  }
  pasar();
}

bool Persona::ir(const QString& control) {
  const QWidget* primero = QApplication::focusWidget();
  for (int n = 0; n < 200 && !esta(QApplication::focusWidget(), control); ++n) {
    tecla(Qt::Key_Tab);
    if (n > 0 && QApplication::focusWidget() == primero) break;
  }
  const bool llega = esta(QApplication::focusWidget(), control);
  EXPECT_TRUE(llega) << "el tabulador no llega a " << control.toStdString();
  return llega;
}

void Persona::poner(const QString& control, const QString& texto) {
  ASSERT_TRUE(ir(control));
  tecla(Qt::Key_A, Qt::ControlModifier);
  texto.isEmpty() ? tecla(Qt::Key_Delete) : escribir(texto);
}

void Persona::elegir(const QString& control, const QString& entrada) {
  ASSERT_TRUE(ir(control));
  const auto* lista = qobject_cast<QComboBox*>(QApplication::focusWidget());
  ASSERT_NE(lista, nullptr);
  tecla(Qt::Key_Home);
  while (!lista->currentText().contains(entrada) && lista->currentIndex() + 1 < lista->count())
    tecla(Qt::Key_Down);
  EXPECT_TRUE(lista->currentText().contains(entrada)) << entrada.toStdString();
}

void Persona::pulsar(const QString& boton) {
  if (ir(boton)) tecla(Qt::Key_Space);
}

void Persona::enMenu(const QString& entrada) {
  ASSERT_TRUE(hasta([] { return QApplication::activePopupWidget() != nullptr; }, 5));
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  for (int n = 0; n < 60; ++n) {
    if (const QAction* a = menu->activeAction(); a && sinLetra(a->text()).startsWith(entrada))
      return tecla(Qt::Key_Return);
    tecla(Qt::Key_Down);
  }
  ADD_FAILURE() << "no está en el menú: " << entrada.toStdString();
  tecla(Qt::Key_Escape);
}

// From the event loop: whatever opens has a loop of its own.
void Persona::cuando(std::function<bool()> listo, std::function<void()> hacer) {
  auto* espera = new QTimer(qApp);
  QObject::connect(espera, &QTimer::timeout, qApp, [=] {
    if (!listo()) return;
    espera->stop();
    espera->deleteLater();
    const auto copia = hacer;  // time passes in it, and the timer goes with what it holds
    copia();
  });
  espera->start(2);
}

void Persona::luego(std::function<void()> hacer) {
  const auto otra = [antes = QApplication::activeModalWidget()] {
    QWidget* modal = QApplication::activeModalWidget();
    return modal && modal != antes && modal->isActiveWindow();
  };
  cuando(otra, std::move(hacer));
}

void Persona::alDesplegarse(std::function<void()> hacer) {
  cuando([] { return QApplication::activePopupWidget() != nullptr; }, std::move(hacer));
}

void Persona::foto(const QString& nombre) {
  const QString carpeta = qEnvironmentVariable("TARVO_FOTOS");
  if (carpeta.isEmpty()) return;
  hasta([n = 0]() mutable { return ++n > 20; });  // for what is painted later
  ASSERT_NE(activa(), nullptr) << nombre.toStdString();
  const QImage imagen = activa()->grab().toImage().convertToFormat(QImage::Format_RGB888);
  EXPECT_TRUE(imagen.save(carpeta + u'/' + nombre + u".png"_s, nullptr, 0)) << nombre.toStdString();
}

TiendaNueva::TiendaNueva() : textos(textosDePrueba()) {
  auto abierto = app::Fondo::abrir(carpeta.path(), Idioma::Espanol, textos, reloj);
  if (!abierto) qFatal("%s", qPrintable(abierto.error().texto));
  fondo = std::move(*abierto);
  datos = std::make_unique<app::Datos>(std::map<QString, QString>(), textos);
  aplicacion = std::make_unique<app::Aplicacion>(*fondo, reloj, hilos, 1, *datos);
  prueba::bien(aplicacion->empezar());
  escritorio = std::make_unique<ventanas::Escritorio>(*qApp, *fondo->db, fondo->ajustes, textos,
                                                      reloj, ventanas::Cara::Clara,
                                                      carpeta.filePath(u"VENTANAS.INI"_s));
  app::registrarVentanas(escritorio->ventanas(), *aplicacion);
  base = std::make_unique<noches::Lector>(fondo->ajustes.BaseDatos);
  escritorio->ventanas().abrir(u"MainTarvo"_s);
}

simulador::Maquina& TiendaNueva::maquina(const QString& linea, simulador::OpcionesMaquina como) {
  maquinas.push_back(simulador::crearMaquina(std::move(como), reloj));
  hilos.cables[linea].poner(*maquinas.back());
  return *maquinas.back();
}

std::string TiendaNueva::leer(const QByteArray& sql) {
  QStringList filas;
  base->filas(sql, [&](const noches::Lector::Fila& f) {
    QStringList campos;
    for (int n = 0; n < f.columnas(); ++n) campos << QString::fromUtf8(f.texto(n));
    filas << campos.join(u' ');
  });
  return filas.join(u" | "_s).toStdString();
}

}  // namespace tarvo::primerdia
