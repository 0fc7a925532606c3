// MainTvc: imports the articles of the former system.
#pragma once

#include "articles/importar/MainTvc.h"
#include "articles/importar/ventanas/ComunImportar.h"
#include "articles/importar/ventanas/Puertas.h"
#include "core/tiempo/Trabajo.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_MainTvc.h"

namespace tarvo::importar {

class MainTvcVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  MainTvcVentana(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaMainTvc& puerta);
  bool QueryUnload() override;

 private:
  enum Estado { kSinFichero = 0, kPreparado = 1, kNoVale = 2, kTerminado = 3, kProcesando = 4 };
  void montar();
  void ponerEstado(Estado estado);
  void mostrarDestino();
  // Nothing if the number of the single section is invalid, which is reported.
  std::optional<DestinoTvc> destino();
  void inicioproceso();
  void empezar();
  bool interrumpir();
  void acabar(const Resultado<Trabajo::Fin>& fin);

  Ui::MainTvc ui_;
  articles::Catalogo& catalogo_;
  articles::Lotes lotes_;
  SeccionesHechas hechas_;
  Deshacedor deshacedor_;
  std::unique_ptr<MainTvc> motor_;
  QString ruta_;
  Estado estado_ = kSinFichero;
};

}  // namespace tarvo::importar
