// The modal box in place of the system's.
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
// Return is `Cancelo`, where `Acepto` loses something; with kExclamacion it always is.
inline constexpr int kPrudente = 256;

class MyMsgBox final : public QDialog {
  Q_OBJECT
 public:
  // The low four bits of the style: 0 only `Acepto`, 1 `Acepto` and `Cancelo`. The next four: 16 a
  // critical picture, 48 an exclamation, any other the default one. True if `Acepto` closed it.
  static bool Decide(QWidget* dueno, const Textos& textos, const QString& texto,
                     int estilo = kSoloAcepto);
  // What happened, what to do; the detail behind a button, and a button that copies it all.
  static void mostrarFallo(QWidget* dueno, const Textos& textos, const QString& que,
                           const QString& remedio, const QString& detalle = {});

 private:
  MyMsgBox(QWidget* dueno, const Textos& textos, const QString& texto, int estilo);
  void ponerDetalle(const Textos& textos, const QString& remedio, const QString& detalle);

  QString todo_;
};

}  // namespace tarvo::ventanas
