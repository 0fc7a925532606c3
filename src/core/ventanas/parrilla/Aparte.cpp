#include "core/ventanas/parrilla/Aparte.h"

#include <QMutex>
#include <QThreadPool>

namespace tarvo::ventanas {

// Shared with the threads, which may outlive the Aparte: its destructor doesn't wait for an answer.
struct Aparte::Buzon {
  QMutex candado;
  QObject* receptor;  // guarded by the mutex; null once the Aparte has been destroyed
  int turno = 0;      // used only in the receiver's thread
};

Aparte::Aparte(const Contexto& contexto, QObject& receptor)
    : buzon_(std::make_shared<Buzon>()), ruta_(contexto.base.db_.ruta()), hilos_(contexto.hilos) {
  buzon_->receptor = &receptor;
}

Aparte::~Aparte() {
  olvidar();
  const QMutexLocker cerrado(&buzon_->candado);
  buzon_->receptor = nullptr;
}

void Aparte::olvidar() {
  ++buzon_->turno;
}

void Aparte::lanzar(
    std::function<Entrega(const Resultado<std::unique_ptr<dao::Database>>&)> trabajo) {
  hilos_.start(
      [trabajo = std::move(trabajo), buzon = buzon_, ruta = ruta_, turno = ++buzon_->turno] {
        Entrega entrega = trabajo(dao::Database::OpenDatabase(ruta, {.soloLeer = true}));
        const QMutexLocker cerrado(&buzon->candado);
        if (!buzon->receptor) return;
        const auto entregar = [buzon, turno, entrega = std::move(entrega)] {
          if (turno == buzon->turno) entrega();
        };
        QMetaObject::invokeMethod(buzon->receptor, entregar, Qt::QueuedConnection);
      });
}

}  // namespace tarvo::ventanas
