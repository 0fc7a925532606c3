#pragma once

#include <QToolButton>
#include <array>

#include "comm/ventanas/Puertas.h"
#include "comm/ventanas/Servicios.h"
#include "core/ventanas/edicion/Ficha.h"

namespace tarvo::comm {

// The settings edited here.
struct AjustesComm {
  std::array<int, 5> tiempos{};
  std::array<enlace::ParamCanal, 4> canales;
  bool operator==(const AjustesComm&) const = default;
};

// The protocol's times and the four channels: the only editor of the keys of communications. All
// are written to the settings and to the file together.
class CfgComm final : public ventanas::FichaDe<AjustesComm> {
 public:
  CfgComm(ventanas::Contexto& c, const QString& nombre, motor::gestcomm& motor);
  Resultado<> entrar(const PuertaCfgComm& puerta);

 private:
  struct Canal {
    QToolButton* imagen;
    QComboBox* uso;
    QLabel* linea;
    QPushButton *rs232, *modem;
  };
  Canal montarCanal(QGridLayout& reja, QWidget* caja, int n);
  void mostrarCanal(size_t n);
  template <class P>
  void editarCanal(size_t n);
  Resultado<> aplicar() override;
  void aplicada() override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  motor::gestcomm& motor_;
  std::array<Canal, 4> canales_;
};

}  // namespace tarvo::comm
