// The editor of a timetable. It works on a copy, which is written to the file at once when it is
// saved.
#pragma once

#include "automation/lenguaje/Horario.h"
#include "automation/ventanas/Puertas.h"
#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/edicion/Ficha.h"
#include "ui_EdiCron.h"

namespace tarvo::automation {

class EdiCron final : public ventanas::FichaDe<Horario> {
  Q_OBJECT
 public:
  EdiCron(ventanas::Contexto& c, const QString& nombre, const Lenguaje& lenguaje);
  Resultado<> entrar(const PuertaEdiCron& puerta);
  bool QueryUnload() override;

 private:
  void conectar();
  void conectarLinea();
  void keyPressEvent(QKeyEvent* evento) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  bool teclearHora(QEvent& cifra);

  void pedirNombre();
  void ajustarNombre();
  void decirEnNombre(const QString& texto);
  void aceptarNombre();
  void editarHorario(Horario horario);
  void ponerLista(int actual);
  void ponerLinea();
  bool tocada() const { return tocada_; }  // the line in the controls has pending changes
  bool cambiada() const override { return !ruta_.isEmpty() && (tocada_ || !(r == antes())); }
  void cancelarLinea();
  void pintarLinea();
  bool aplicarLinea();
  int apuntar(int que, int fila);
  void insertar();
  void borrar();
  void elegirOtro();
  void abrirOtro(const QString& fichero);
  void quitarHorario();
  bool escribir();
  void guardar();
  void activar();

  const Lenguaje& lenguaje_;
  Ui::FormaEdiCron ui_;
  std::array<QCheckBox*, 7> dias_{};
  QString ruta_;
  LineaActivacion linea_;  // the copy in the controls
  bool tocada_ = false;
  std::optional<int> insertada_;  // the current line was just inserted, by this change
  ventanas::Deshacer* deshacer_;
  QSize tamano_;  // of the window, while it only asks for a name
};

}  // namespace tarvo::automation
