// The windows of processes on a shop with its engines, its machines and a virtual clock.
#pragma once

#include <QAction>
#include <QTest>
#include <QTimer>

#include "automation/TiendaDeProcesos.h"
#include "automation/ventanas/PreguntasVentana.h"
#include "automation/ventanas/RegistrarVentanas.h"
#include "core/ajustes/Ficheros.h"
#include "core/ventanas/marco/Escritorio.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

struct MesaDeProcesos : TiendaDeProcesos {
  // `mudas`: groups that don't answer.
  explicit MesaDeProcesos(const std::set<int>& mudas = {})
      : p((maquinasDePrueba().mudas = mudas, dir.path()), reloj, preguntas) {
    p.automat().desatendido = false;
    registrarVentanasAutomation(todas(), {p.automat(), cronos, p.lenguaje(), p.motor(), debidos,
                                          [this](auto&, const auto& pasos) {
                                            pasosAConsentir = static_cast<int>(pasos.size());
                                            return consiente;
                                          }});
    preguntas.poner(&todas());
  }

  // Closed windows are deleted before the clock is.
  ~MesaDeProcesos() { asentar(); }

  ventanas::Ventanas& todas() { return escritorio.ventanas(); }
  void fichero(const QString& nombre, const QString& texto) const {
    EXPECT_TRUE(ficheros::escribirEntero(ruta(nombre), ficheros::codificar(texto)));
  }
  QString ruta(const QString& nombre) const { return dir.filePath(nombre); }
  // Opens the process in its window, which starts it.
  ventanas::Ventana* correr(const QString& pasos) {
    fichero(u"NOCHE.AUT"_s, pasos);
    auto* v = todas().abrir(PuertaAutomat{ruta(u"NOCHE.AUT"_s)});
    asentar();
    return v;
  }
  static void asentar() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void pasar(double segundos) {
    reloj.avanzar(static_cast<qint64>(segundos * 1000));
    asentar();
  }
  bool abierta(const QString& nombre) { return todas().cargada(nombre) != nullptr; }
  Automat& automat() { return p.automat(); }

  // What is answered to the question about what a process makes machines forget.
  bool consiente = true;
  int pasosAConsentir = 0;

  PreguntasVentana preguntas;
  Programa p;
  Cronos cronos{p.automat(), p.lenguaje(), p.ajustes(), p.reloj()};
  Pendientes debidos{p.db()};
  ventanas::Escritorio escritorio{
      *qApp, p.db(), p.ajustes(), textosDePrueba(), p.reloj(), ventanas::Cara::Clara, {}};
};

template <class T>
T* pieza(QWidget* v, const QString& nombre) {
  T* hallada = v->findChild<T*>(nombre);
  EXPECT_TRUE(hallada) << nombre.toStdString();
  return hallada;
}

inline bool puede(QWidget* v, const QString& accion) {
  return pieza<QAction>(v, accion)->isEnabled();
}

// Calls `hacer` with the modal window as soon as one opens.
inline void cuandoHayaCaja(const std::function<void(QWidget&)>& hacer) {
  QTimer::singleShot(0, qApp, [hacer] {
    QWidget* caja = QApplication::activeModalWidget();
    if (!caja) return cuandoHayaCaja(hacer);
    hacer(*caja);
  });
}

}  // namespace tarvo::automation
