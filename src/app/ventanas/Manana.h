// The board beside the entries: a summary of the morning. It reads in slices after the first paint,
// and again when a run ends or rows change.
#pragma once

#include <QScrollArea>
#include <memory>

#include "app/ventanas/Piezas.h"
#include "core/tiempo/Trabajo.h"
#include "core/ventanas/parrilla/Aparte.h"

class QLabel;
class QVBoxLayout;

namespace tarvo::app {

class Aplicacion;

class Manana final : public QScrollArea {
  Q_OBJECT
 public:
  // REQUIRES that both outlive it.
  Manana(ventanas::Contexto& contexto, Aplicacion& aplicacion, QWidget* padre);
  ~Manana() override;

  void renovar();  // reads at once
  bool leida() const { return leida_; }

 Q_SIGNALS:
  // A line was clicked.
  void elegida(const tarvo::app::Lleva& adonde);
  void fallo(const tarvo::Error& error);
  void renovada();

 private:
  void mirar();
  void acabar(const Resultado<Trabajo::Fin>& fin);
  void mostrar(const VistaManana& vista);
  void completar();
  template <class P>
  void ajustar(std::vector<P*>& piezas, const std::vector<Renglon>& renglones, QVBoxLayout& caja);
  void alinear();
  void encadenar();
  void enlazar(Pieza& pieza);
  void poner(Pieza& pieza, const Renglon& renglon);
  void showEvent(QShowEvent* evento) override;
  bool event(QEvent* evento) override;

  ventanas::Contexto& c_;
  Aplicacion& app_;
  Titular* noche_;
  Tarjeta *ventas_ = nullptr, *bandeja_ = nullptr, *proxima_ = nullptr;
  QLabel *dia_, *rotuloGrupos_ = nullptr, *cuenta_ = nullptr;
  QVBoxLayout *cajaAvisos_, *cajaGrupos_ = nullptr;
  std::vector<LineaGrupo*> avisos_, grupos_;
  std::optional<VistaManana> vista_;
  bool leida_ = false, vieja_ = false;
  qint64 cambios_ = -1, cuando_ = 0;
  std::optional<qint64> ejecucion_;
  std::shared_ptr<automation::LectorResumen> lector_;
  std::unique_ptr<Trabajo> trabajo_;
  std::unique_ptr<Temporizador> mirada_;
  std::vector<envios::Debe> debe_;
  ventanas::Aparte aparte_;
};

}  // namespace tarvo::app
