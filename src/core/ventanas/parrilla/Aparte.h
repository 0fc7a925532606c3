// Queries that may take long, answered without blocking the windows: each runs in another thread,
// on a read-only connection of its own, and sees the data committed by then.
#pragma once

#include <QObject>
#include <functional>

#include "core/ventanas/marco/Contexto.h"

namespace tarvo::ventanas {

class Aparte {
 public:
  // Answers arrive in the event loop of `receptor`, which REQUIRES to outlive this object.
  Aparte(const Contexto& contexto, QObject& receptor);
  ~Aparte();
  Aparte(const Aparte&) = delete;
  Aparte& operator=(const Aparte&) = delete;

  // `pregunta` REQUIRES to use nothing except its connection and its own captures. Of several under
  // way only the last one is answered.
  template <class R>
  void preguntar(std::function<Resultado<R>(dao::Database&)> pregunta,
                 std::function<void(Resultado<R>)> respuesta) {
    lanzar([pregunta = std::move(pregunta), respuesta = std::move(respuesta)](
               const Resultado<std::unique_ptr<dao::Database>>& db) -> Entrega {
      auto r = std::make_shared<Resultado<R>>(db ? pregunta(**db)
                                                 : Resultado<R>(std::unexpected(db.error())));
      return [r, respuesta] { respuesta(std::move(*r)); };
    });
  }
  // Discards the answers still under way.
  void olvidar();

 private:
  using Entrega = std::function<void()>;
  void lanzar(std::function<Entrega(const Resultado<std::unique_ptr<dao::Database>>&)> trabajo);

  struct Buzon;
  std::shared_ptr<Buzon> buzon_;
  QString ruta_;
  QThreadPool& hilos_;
};

}  // namespace tarvo::ventanas
