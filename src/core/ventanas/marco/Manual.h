// The manual inside the program: a page a window, docs/manual/NAME.md, built in. F1 in any window
// opens its page; the page "Manual" lists all of them.
#pragma once

#include "core/ventanas/marco/Ventana.h"

class QLineEdit;
class QTextBrowser;

namespace tarvo::ventanas {

struct PuertaManual {
  static constexpr QStringView kNombre = u"Manual";
  QString pagina =
      QStringView(kNombre).toString();  // the name of a window; the list of pages when it has none
};

class Manual final : public Ventana {
  Q_OBJECT
 public:
  Manual(Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaManual& puerta);

  QString pagina() const;
  static bool hay(const QString& pagina);
  static QStringList paginas();  // sorted
  // It stays usable while `dueno` is modal, and goes with it.
  void acompanar(QWidget& dueno);

 private:
  void irABuscar() override;
  void ir(const QString& pagina);
  void buscar();

  QTextBrowser* texto_;
  QLineEdit* busca_;
  QMetaObject::Connection delDueno_;
};

// Answers F1 wherever in the program the focus is: a field, a cell being written, an open list, a
// box. REQUIRES that it lives no longer than the windows.
class Ayuda final : public QObject {
 public:
  explicit Ayuda(Ventanas& ventanas);

 private:
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  Ventanas& ventanas_;
};

}  // namespace tarvo::ventanas
