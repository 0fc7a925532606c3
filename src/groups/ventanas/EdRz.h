// EdRzSoc, EdRzBirch, EdRzSEbony: the header lines of the ticket of a scale, above and below the
// ticket's body, with their fonts and a preview. One window for the three families of scales, which
// differ in the number of lines and in their length.
#pragma once

#include "devices/Cabecera.h"
#include "groups/ventanas/Comun.h"

class QListWidget;
class QToolButton;
class QVBoxLayout;

namespace tarvo::groups {

class Tique;

class EdRz final : public HojaDeMaquina<devices::Cabecera> {
  Q_OBJECT
 public:
  EdRz(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaDeMaquina& puerta);

 private:
  struct Linea {
    QWidget* fila;
    QToolButton* fuente;
    QLineEdit* texto;
  };
  void montarLinea(int n, int largo);
  void volcar(devices::Miembro& maquina) override {
    maquinaDe(maquina).RazonSo = devices::escribirCabecera(r);
  }
  void colocarCuerpo();
  void moverCuerpo(int pasos);
  void ponerFuente(int linea, int fuente);
  void ver();
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  QVBoxLayout* sitio_;
  QWidget* cuerpoTique_;
  QListWidget* Mues_;
  Tique* tique_;
  QToolButton *arriba_, *abajo_;
  std::vector<Linea> lineas_;
  int linea_ = 0;  // the current one
};

}  // namespace tarvo::groups
