#pragma once

#include <array>

#include "comm/ventanas/Servicios.h"
#include "core/ajustes/Ajustes.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_FormaCfgComm.h"

namespace tarvo::comm {

// The protocol's times and the four channels: the only editor of the keys of communications. It
// works on copies; all go to the settings and to the file together.
class CfgComm final : public ventanas::Ventana {
 public:
  CfgComm(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;

 private:
  struct Tiempo {
    QLineEdit* campo;
    QLabel* falta;
    int Ajustes::* ajuste;
  };
  struct Canal {
    QLabel *numero, *linea;
    QToolButton* imagen;
    QComboBox* uso;
    QPushButton *rs232, *modem;
  };
  void conectarCanal(int n);
  void mostrarTiempos(const Ajustes& de);
  void mostrarCanal(int n);
  void editar(const QString& ventana, int n);
  bool leerTiempos(std::array<int, 5>& valores);
  void confirmar();
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  Ui::FormaCfgComm ui_;
  Servicios s_;
  std::array<Tiempo, 5> tiempos_;
  std::array<Canal, 4> canales_;
  std::array<ParamCanal, 4> copia_;
};

}  // namespace tarvo::comm
