// The modal message box used instead of the system's.
#pragma once

#include <QDialog>

#include "core/textos/Textos.h"
#include "core/valores/Resultado.h"

class QPlainTextEdit;
class QPushButton;

namespace tarvo::ventanas {

inline constexpr int kSoloAcepto = 0;
inline constexpr int kAceptoCancelo = 1;
inline constexpr int kCritico = 16;
inline constexpr int kExclamacion = 48;
// Makes `Cancelo` the default button, for an `Acepto` that loses something, and gives `Acepto` no
// letter of the asking window; implied by kExclamacion.
inline constexpr int kPrudente = 256;

class MyMsgBox final : public QDialog {
  Q_OBJECT
 public:
  // Shows a box and returns true if `Acepto` closed it. The low four bits of the style: 0 only
  // `Acepto`, 1 `Acepto` and `Cancelo`. The next four: 16 a critical icon, 48 an exclamation mark,
  // any other value the default icon.
  static bool Decide(QWidget* dueno, const Textos& textos, const QString& texto,
                     int estilo = kSoloAcepto);
  // Shows what happened and what to do, with one button for the detail and one that copies
  // everything.
  static void mostrarFallo(QWidget* dueno, const Textos& textos, const QString& que,
                           const QString& remedio, const QString& detalle = {});

 private:
  MyMsgBox(QWidget* dueno, const Textos& textos, const QString& texto, int estilo);
  void ponerDetalle(const Textos& textos, const QString& remedio, const QString& detalle);

  QString todo_;
};

}  // namespace tarvo::ventanas
