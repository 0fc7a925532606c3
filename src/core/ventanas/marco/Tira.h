// A strip inside a window that says how something went, in place of a box. It stays until the next
// one, its closing button or, when all went well, some seconds.
#pragma once

#include <QFrame>
#include <memory>

#include "core/textos/Textos.h"
#include "core/tiempo/Reloj.h"
#include "core/ventanas/aspecto/Tema.h"

class QLabel;
class QToolButton;

namespace tarvo::ventanas {

class Tira final : public QFrame {
  Q_OBJECT
 public:
  Tira(const Textos& textos, Reloj& reloj, QWidget* padre);

  // The detail stands behind a button, which is not there when it is empty.
  void decir(Estado estado, const QString& texto, const QString& detalle = {});
  void quitar();
  // A button of the window's own, in front of the closing one; the strip shows it or not as the
  // button says.
  void ponerBoton(QWidget* boton);
  Estado estado() const { return estado_; }
  QString texto() const;

 private:
  void pintar();

  const Textos& t_;
  Estado estado_ = Estado::Ninguno;
  QLabel* imagen_;
  QLabel* palabra_;
  QLabel* texto_;
  QLabel* detalle_;
  QToolButton *verDetalle_, *copiar_, *cerrar_;
  std::unique_ptr<Temporizador> caduca_;
};

}  // namespace tarvo::ventanas
