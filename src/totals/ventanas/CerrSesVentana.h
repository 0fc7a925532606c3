// CerrSes: memorises the inbox. Two pages, depending on whether it holds anything. After
// `Guardar` or `Olvidar` it reports the result and closes by itself after a while; until then,
// forgotten readings can be restored.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "totals/libros/CerrSes.h"
#include "totals/ventanas/Puertas.h"
#include "ui_CerrSes.h"

namespace tarvo::totals {

class CerrSesVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  CerrSesVentana(ventanas::Contexto& contexto, const QString& nombre, Sesion& sesion,
                 Periodos& periodos);
  Resultado<> entrar(const PuertaCerrSes& puerta);

 private:
  void keyPressEvent(QKeyEvent* evento) override;
  void montar();
  Resultado<> analizar();
  void pintarCara();
  void pintarPeriodo();
  QString textoFaltan(const std::vector<int>& grupos);
  void guardar();
  bool siguenSiendoLosMismos();
  void olvidar();
  void soloOlvidar();
  void recuperar();
  void detalles();
  void empezarCuenta();
  void tictac();
  QStringList avisos() const;
  // Shows the current activity, painted at once because it runs without the event loop.
  void decirEstado(const QString& texto);
  template <class F>
  auto mientras(int texto, F hacer);

  Ui::CerrSes ui_;
  Sesion& s_;
  Periodos& p_;
  CerrSes motor_;
  std::vector<Aviso> avisos_;
  bool alSalir_ = false;
  bool memorizado_ = false;
  int cuenta_ = 0;  // ticks left until it closes, 0 if it isn't about to
  std::unique_ptr<Temporizador> reloj_;
};

}  // namespace tarvo::totals
