// A strip inside a window that reports a result, instead of a message box. It stays until the next
// report, its close button or, after a success, some seconds. Its place then stays as it is:
// nothing below it moves away from a pointer by itself.
#pragma once

#include <QFrame>
#include <memory>

#include "core/textos/Textos.h"
#include "core/tiempo/Reloj.h"
#include "core/ventanas/aspecto/Tema.h"

class QLabel;
class QScrollArea;
class QToolButton;

namespace tarvo::ventanas {

class Tira final : public QFrame {
  Q_OBJECT
 public:
  Tira(const Textos& textos, Reloj& reloj, QWidget* padre);

  // The detail is shown by a button, which is hidden if the detail is empty.
  void decir(Estado estado, const QString& texto, const QString& detalle = {});
  void quitar();
  // Adds a button of the window's own before the close button; whether it is visible is up to the
  // window.
  void ponerBoton(QWidget* boton);
  Estado estado() const { return estado_; }
  QString texto() const;
  // How many times it has changed: whether what it says is still the same sentence.
  int veces() const { return veces_; }

 private:
  void pintar();
  void mostrarDetalle(bool si);

  const Textos& t_;
  Estado estado_ = Estado::Ninguno;
  int veces_ = 0;
  QLabel* imagen_;
  QLabel* palabra_;
  QLabel* texto_;
  QLabel* detalle_;
  QScrollArea* sitioDetalle_;
  QToolButton *verDetalle_, *copiar_, *cerrar_;
  std::unique_ptr<Temporizador> caduca_;
};

}  // namespace tarvo::ventanas
