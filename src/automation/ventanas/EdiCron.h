// The editor of a timetable. Works on a copy, which goes to the file at once when it is saved.
#pragma once

#include "automation/lenguaje/Horario.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_EdiCron.h"

namespace tarvo::automation {

class EdiCron final : public ventanas::Ventana {
  Q_OBJECT
 public:
  EdiCron(ventanas::Contexto& c, const QString& nombre, const Lenguaje& lenguaje);
  // "horario": the file; without it the name of a new one is asked for.
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;
  bool QueryUnload() override;

 private:
  void conectar();
  void conectarLinea();
  void keyPressEvent(QKeyEvent* evento) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  void pedirNombre();
  void aceptarNombre();
  void editar();
  void ponerLista(int actual);
  void ponerLinea();
  LineaActivacion enPantalla() const;
  void tocada();
  void dejarLinea();
  bool aplicar();
  void insertar();
  void borrar();
  void guardar();

  const Lenguaje& lenguaje_;
  Ui::FormaEdiCron ui_;
  std::array<QCheckBox*, 7> dias_{};
  QString ruta_;
  Horario horario_, guardado_;
  QSize tamano_;  // of the window, while it only asks for a name
  bool tocada_ = false, poniendo_ = false;
};

}  // namespace tarvo::automation
