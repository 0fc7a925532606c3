// VistaEtq: what the printer makes of a format with a real article.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "labels/JuegosTextos.h"
#include "labels/Muestra.h"
#include "labels/ventanas/Puertas.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace tarvo::ventanas {
class Parrilla;
}

namespace tarvo::labels {

class DibujoImpresion;

class VistaEtq final : public ventanas::Ventana {
  Q_OBJECT
 public:
  VistaEtq(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaVistaEtq& puerta);

 private:
  void montar();
  QWidget* panelArticulos();
  void listar();
  void articuloCambiado();
  void peorCaso();
  void mostrar(std::function<Resultado<Ejemplo>()> ejemplo);
  void mostrarTropiezos();
  void guardar();
  LectorTextos lector() const;

  articles::Catalogo& catalogo_;
  JuegosTextos juegos_;
  Muestras muestras_;
  FuenteImpresora fuente_;
  PuertaVistaEtq puerta_;
  std::optional<QString> lineas_;
  std::function<Resultado<Ejemplo>()> ultimo_;  // what is shown, to be read again
  QComboBox* secciones_;
  QLineEdit* busca_;
  ventanas::Parrilla *articulos_, *tropiezos_;
  DibujoImpresion* dibujo_;
  QLabel* titulo_;
};

}  // namespace tarvo::labels
