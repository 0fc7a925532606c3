// Memorising the inbox: CerrSes. Two faces, by whether the tray holds anything. After `Guardar` or
// `Olvidar` it says what was done and closes by itself after a while; what was forgotten can be
// taken back until then.
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
  void montar();
  Resultado<> analizar();
  void pintarCara();
  void pintarPeriodo();
  QString textoFaltan(const std::vector<int>& grupos);
  void guardar();
  bool siguenSiendoLosMismos();
  void olvidar();
  void recuperar();
  void detalles();
  void empezarCuenta();
  void tictac();
  QStringList graves() const;
  // What is under way, painted at once: it doesn't yield to the event loop.
  void decirEstado(const QString& texto);
  template <class F>
  auto mientras(int texto, F hacer);

  Ui::CerrSes ui_;
  Sesion& s_;
  Periodos& p_;
  CerrSes motor_;
  std::vector<Aviso> avisos_;
  bool alSalir_ = false;
  int cuenta_ = 0;  // ticks left until it closes, 0 while it doesn't
  std::unique_ptr<Temporizador> reloj_;
};

}  // namespace tarvo::totals
