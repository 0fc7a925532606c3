// What the windows of imports share: the list of bad lines and the step back.
#pragma once

#include "articles/Vuelta.h"
#include "articles/importar/Lineas.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::importar {

// The columns of a list of bad lines.
void prepararMalas(ventanas::Parrilla& lista, ventanas::Contexto& contexto, const QString& ventana);
void ponerMalas(ventanas::Parrilla& lista, const std::vector<LineaMala>& malas);

// Takes batches of a window back, as its work in slices, and says on its strip what came of it.
// Asks before a window goes in the middle of its work; Cancelar is the answer that loses nothing.
bool seguroDeCerrar(ventanas::Ventana& ventana, int texto);

class Deshacedor {
 public:
  using AlDeshacer = std::function<Resultado<>(qint64 lote)>;
  // `alCambiar`: at the beginning and at the end of the work. `alDeshacer`: what else goes with a
  // batch, once all of it is taken back.
  Deshacedor(
      ventanas::Ventana& ventana, articles::Lotes& lotes, std::function<void()> alCambiar,
      AlDeshacer alDeshacer = [](qint64) { return Resultado<>(); })
      : v_(ventana),
        lotes_(lotes),
        alCambiar_(std::move(alCambiar)),
        alDeshacer_(std::move(alDeshacer)) {}

  bool hayUltimo() const;
  // Says so when the last run, or its undoing, was cut off.
  void avisar();
  // Asks, and takes the last batch back; `alAcabar` when all of it is.
  void deshacerUltimo(std::function<void()> alAcabar);
  // Takes back what a run left that failed or was stopped, and says so then.
  void volver(qint64 lote, int articulos, const std::optional<Error>& error);
  // For the window that goes: what is half taken back is taken back to its end. False on an error,
  // which it says.
  bool acabarYa();

 private:
  void empezar(qint64 lote, qint64 articulos, std::function<void()> alAcabar);
  void acabar(const Resultado<Trabajo::Fin>& fin, const std::function<void()>& alAcabar);
  void decirHecho(const QString& dicho);

  ventanas::Ventana& v_;
  articles::Lotes& lotes_;
  std::function<void()> alCambiar_;
  AlDeshacer alDeshacer_;
  qint64 lote_ = 0;
  std::unique_ptr<articles::Vuelta> vuelta_;
};

}  // namespace tarvo::importar
