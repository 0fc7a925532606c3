#include "capturas/Capturas.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QThread>
#include <QTimer>

#include "capturas/Cortes.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::capturas {

using namespace Qt::StringLiterals;
using ventanas::Cara;

namespace {

constexpr QSize kPantallas[] = {{1366, 768}, {1920, 1080}};
constexpr int kEscalas[] = {100, 125, 150};
constexpr int kAsentar = 100;        // ms: lists are counted and sums computed after 60
constexpr int kPaciencia = 5'000;    // ms for a part that reports it is still being filled
constexpr int kMargenPantalla = 64;  // height that the desktop keeps for itself

bool ocupada(const QWidget& v) {
  for (const auto* parte : v.findChildren<QWidget*>())
    if (parte->property("ocupada").toBool()) return true;
  return false;
}

void asentar(const QWidget& v) {
  QElapsedTimer t;
  for (t.start(); t.elapsed() < kAsentar || (ocupada(v) && t.elapsed() < kPaciencia);
       QThread::msleep(2))
    QApplication::processEvents();
}

// Lists take the whole screen, as in real use; sheets keep their size.
void dimensionar(ventanas::Ventana& v, QSize pantalla) {
  const bool lista = v.findChild<ventanas::Parrilla*>() || v.nombre() == u"MainTarvo";
  const QSize sitio = pantalla - QSize(0, kMargenPantalla);
  v.resize(lista ? sitio : v.sizeHint().expandedTo(v.size()).boundedTo(sitio));
}

// Nobody is there to close a box: it is closed at once, and its text kept.
template <class F>
auto sinCajas(QStringList& dicho, F hacer) {
  QTimer vigia;
  QObject::connect(&vigia, &QTimer::timeout, [&dicho] {
    QWidget* caja = QApplication::activeModalWidget();
    if (!caja) return;
    for (const QLabel* l : caja->findChildren<QLabel*>())
      if (!l->text().isEmpty()) dicho << l->text();
    caja->close();
  });
  vigia.start(20);
  return hacer();
}

QStringList una(ventanas::Escritorio& e, const Encargo& encargo, const QString& nombre,
                QSize pantalla, int escala, Cara cara) {
  const QString fichero =
      u"%1_%2_%3_%4x%5_%6.png"_s
          .arg(nombre, encargo.marca, cara == Cara::Clara ? u"claro"_s : u"oscuro"_s)
          .arg(pantalla.width())
          .arg(pantalla.height())
          .arg(escala);
  e.tema().ponerCara(cara);
  e.tema().ponerEscala(escala / 100.0);
  QStringList cajas;
  const auto v = sinCajas(cajas, [&] { return e.ventanas().abrir(nombre); });
  if (!v) return {fichero + u": no se abre: "_s + cajas.join(u' ')};
  dimensionar(*v, pantalla);
  asentar(*v);
  QStringList faltas = cortes(*v);
  if (v->width() > pantalla.width() || v->height() > pantalla.height() - kMargenPantalla)
    faltas << u"no cabe en la pantalla: pide %1x%2"_s.arg(v->width()).arg(v->height());
  const QPixmap foto = v->grab();
  if (!encargo.carpeta.isEmpty() && !foto.save(encargo.carpeta + u'/' + fichero))
    faltas << u"no se puede escribir"_s;
  if (!sinCajas(cajas, [v] { return v->descargar(); })) faltas << u"no se deja descargar"_s;
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  for (QString& f : faltas) f = fichero + u": "_s + f;
  return faltas;
}

}  // namespace

QStringList capturar(ventanas::Escritorio& e, const Encargo& encargo) {
  if (!encargo.carpeta.isEmpty()) QDir().mkpath(encargo.carpeta);
  QStringList faltas;
  for (const QString& nombre : encargo.solo.isEmpty() ? e.ventanas().nombres() : encargo.solo)
    for (const QSize pantalla : kPantallas)
      for (const int escala : kEscalas)
        for (const Cara cara : {Cara::Clara, Cara::Oscura})
          faltas << una(e, encargo, nombre, pantalla, escala, cara);
  return faltas;
}

}  // namespace tarvo::capturas
