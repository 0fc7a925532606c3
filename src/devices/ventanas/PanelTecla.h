// PanEdi: what a key does, chosen by its kind and its number; and the same for an Ebony machine.
#pragma once

#include <QWidget>

#include "core/textos/Textos.h"
#include "devices/TecladoEditado.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QStackedWidget;

namespace tarvo::devices {

// A panel that edits one key. Return in it stores the key, Escape leaves it as it was.
class Panel : public QWidget {
  Q_OBJECT
 public:
  Panel(const Textos& textos, QWidget* padre);
  // False, with the fault shown beside the field, while it holds a number that isn't stored.
  bool acabar();
  virtual void enfocar() = 0;
  QString falta() const;

 Q_SIGNALS:
  void acabado();  // Return
  void dejado();   // Escape: what was typed isn't stored

 protected:
  QString t(int numero) const { return t_(numero); }
  // Stores what was typed; the words of its fault, if it can't be stored.
  virtual QString guardar() = 0;
  void decir(const QString& falta);
  void montarNumero(QGridLayout& reja, int fila, const QString& suyo);
  bool tocado() const;

  const Textos& t_;
  QLabel *rotulo_ = nullptr, *falta_ = nullptr;
  QLineEdit* EntNum_ = nullptr;

 private:
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
};

class PanelTecla final : public Panel {
  Q_OBJECT
 public:
  PanelTecla(const Textos& textos, const CodigosDeTecla& codigos, QWidget* padre);
  // The functions of the model are listed; also needed once before mostrar().
  void preparar(bool birch);
  void mostrar(int codigo);
  void enfocar() override;

 Q_SIGNALS:
  void elegido(int codigo);

 private:
  QWidget* montarNumeros();
  void cambiarTipo();
  TipoTecla tipo() const;
  QString guardar() override;

  const CodigosDeTecla& codigos_;
  QComboBox* OpTpo_;
  QStackedWidget* pila_;
  QListWidget* funciones_;
  QWidget* numeros_;
};

class PanelEbony final : public Panel {
  Q_OBJECT
 public:
  PanelEbony(const Textos& textos, QWidget* padre);
  void mostrar(const TecladoEbony::Tecla& tecla);
  void enfocar() override;

 Q_SIGNALS:
  void elegida(const tarvo::devices::TecladoEbony::Tecla& tecla);

 private:
  void cambiarTipo();
  QString guardar() override;
  QComboBox* tpotec_;
};

}  // namespace tarvo::devices
