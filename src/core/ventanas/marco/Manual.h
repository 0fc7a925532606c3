// The manual inside the program: one page per window, docs/manual/NAME.md, built in. F1 in any
// window opens its page; the page "Manual" lists all of them.
#pragma once

#include "core/ventanas/marco/Ventana.h"

class QLineEdit;
class QTextBrowser;

namespace tarvo::ventanas {

struct PuertaManual {
  static constexpr QStringView kNombre = u"Manual";
  QString pagina =
      QStringView(kNombre).toString();  // the name of a window; the list of pages if it has none
};

class Manual final : public Ventana {
  Q_OBJECT
 public:
  Manual(Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaManual& puerta);

  QString pagina() const;
  static bool hay(const QString& pagina);
  static QStringList paginas();  // sorted
  // Stays usable while `dueno` is modal, and is unloaded with it.
  void acompanar(QWidget& dueno);

 private:
  void irABuscar() override;
  void ir(const QString& pagina);
  void buscar();

  QTextBrowser* texto_;
  QLineEdit* busca_;
  QMetaObject::Connection delDueno_;
};

// Handles F1 wherever the focus is: a field, a cell editor, an open drop-down, a message box.
// REQUIRES that the windows outlive it.
class Ayuda final : public QObject {
 public:
  explicit Ayuda(Ventanas& ventanas);

 private:
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  Ventanas& ventanas_;
};

}  // namespace tarvo::ventanas
