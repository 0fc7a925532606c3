// Shared by the windows of imports: the list of bad lines, and undo.
#pragma once

#include "articles/Vuelta.h"
#include "articles/importar/Lineas.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::importar {

// Sets up the columns of a list of bad lines.
void prepararMalas(ventanas::Parrilla& lista, ventanas::Contexto& contexto, const QString& ventana);
void ponerMalas(ventanas::Parrilla& lista, const std::vector<LineaMala>& malas);

// Asks before a window is closed in the middle of its work; Cancelar is the answer that loses
// nothing. `texto` is the question.
bool seguroDeCerrar(ventanas::Ventana& ventana, int texto);

// Undoes batches of a window, as sliced work of that window, and reports the result on its strip.
class Deshacedor {
 public:
  using AlDeshacer = std::function<Resultado<>(qint64 lote)>;
  // `alCambiar` is called at the beginning and at the end of the work. `alDeshacer` undoes
  // everything else belongs to a batch, after the batch has been undone completely.
  Deshacedor(
      ventanas::Ventana& ventana, articles::Lotes& lotes, std::function<void()> alCambiar,
      AlDeshacer alDeshacer = [](qint64) { return Resultado<>(); })
      : v_(ventana),
        lotes_(lotes),
        alCambiar_(std::move(alCambiar)),
        alDeshacer_(std::move(alDeshacer)) {}

  bool hayUltimo() const;
  // Reports it if the last run, or its undo, was interrupted.
  void avisar();
  // Asks, then undoes the last batch; `alAcabar` is called once it has been undone completely.
  void deshacerUltimo(std::function<void()> alAcabar);
  // Undoes the changes of a run that failed or was stopped, then reports that.
  void volver(qint64 lote, int articulos, const std::optional<Error>& error);
  // To be called when the window is closed: completes an undo in progress. False on an error, which
  // it reports.
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
