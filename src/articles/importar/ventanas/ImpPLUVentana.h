// ImpPLU: imports articles from a .PLU file.
#pragma once

#include "articles/importar/ImpPLU.h"
#include "articles/importar/ventanas/ComunImportar.h"
#include "articles/importar/ventanas/Puertas.h"
#include "core/tiempo/Trabajo.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_ImpPLU.h"

namespace tarvo::importar {

class ImpPLUVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  ImpPLUVentana(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaImpPLU& puerta);
  bool QueryUnload() override;

 private:
  enum Estado {
    kSinFichero = 0,
    kPreparado = 1,
    kEnProceso = 2,
    kParando = 3,
    kParado = 4,
    kRealizado = 5,
    kConErrores = 6,
  };
  void montar();
  void ponerEstado(Estado estado);
  void abrir(const QString& ruta);
  void Haz();
  void Alto();
  void mostrarCuenta();
  void acabar(const Resultado<Trabajo::Fin>& fin);
  void decirHecho();

  Ui::ImpPLU ui_;
  articles::Catalogo& catalogo_;
  articles::Lotes lotes_;
  Deshacedor deshacedor_;
  std::unique_ptr<ImpPLU> motor_;
  PuertaImpPLU puerta_;
  Estado estado_ = kSinFichero;
};

}  // namespace tarvo::importar
