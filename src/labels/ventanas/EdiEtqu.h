// EdiEtqu: the editor of label formats: the list of formats, the canvas, the fields of the one
// being edited.
#pragma once

#include <QAction>

#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/edicion/Ordenes.h"
#include "core/ventanas/marco/Ventana.h"
#include "labels/Borrador.h"
#include "labels/Etiquetas.h"
#include "labels/JuegosTextos.h"
#include "labels/ventanas/Lienzo.h"
#include "labels/ventanas/Puertas.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QVBoxLayout;

namespace tarvo::ventanas {
class Parrilla;
}

namespace tarvo::labels {

class EdiEtqu final : public ventanas::Ventana {
  Q_OBJECT
 public:
  EdiEtqu(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  ~EdiEtqu() override;
  Resultado<> entrar(const PuertaEdiEtqu& puerta);
  bool QueryUnload() override;

 private:
  using Vuelto = ventanas::Deshacer::Vuelto;

  // --- EdiEtquMontaje.cpp
  void montar();
  void montarOrdenes(QToolBar* edicion, QToolBar* etiqueta);
  void montarCampos(QToolBar* barra);
  QWidget* panelEtiquetas();
  QWidget* panelCampos();
  QWidget* pie();
  template <class W>
  W* con(W* control, const QString& nombre, int pista = 0) const;
  void enlazarLienzo();

  // --- EdiEtqu.cpp: the formats
  void cargar(const QString& nombre);
  void actualCambiada();
  bool dejaLosCambios();
  void irAEtiqueta(const QString& nombre);
  void crear();
  bool guardar();
  Resultado<> renombrar(const QString& nuevo);
  void borrarEtiqueta();
  void elegirJuego();
  void copiarEtiqueta();
  void pegarEtiqueta();
  std::optional<FormatoLeido> delPortapapeles();
  void pegarEntera(const FormatoLeido& leido);
  void verMuestra();

  // --- EdiEtquCampos.cpp: the fields
  void poner(const QString& que, Formato nuevo, bool sigue = false);
  void ponerEstado(const QString& que, EstadoFormato nuevo, bool sigue = false);
  void apuntar(const QString& que);
  void mostrar();
  void mostrarCampos();
  void actualizarOrdenes();
  void nuevo(TipoCampo tipo);
  void pedirNuevo();
  void propiedades();
  void borrar();
  void copiar();
  void pegar();
  void alinearPor(Lado lado);
  void pedirLado();
  void reordenarElegidos(int pasos);
  QString nombreDeCampo(const CampoEtiqueta& campo) const;
  QString queCampos() const;
  void leerTextos();
  LectorTextos lector() const;

  bool enEtiquetas() const;
  bool editable() const { return !actual_.isEmpty() && !ilegible_; }

  articles::Catalogo& catalogo_;
  Etiquetas etiquetas_;
  JuegosTextos juegos_;
  FuenteImpresora fuente_;
  Borrador borrador_;
  QString actual_;                 // the format being edited; empty for none
  std::optional<QString> lineas_;  // of its text set
  std::vector<int> pasos_;         // its changes, in the undo stack
  bool llenando_ = false, ilegible_ = false;

  ventanas::Parrilla *lista_, *campos_;
  Lienzo* lienzo_;
  QLineEdit* nuevoNombre_;
  QPushButton* juego_;
  QSpinBox *x0_, *y0_, *zoom_;
  QLabel *lbPos_, *lbMov_, *lbx0_, *lby0_;
  ventanas::Ordenes *ordenes_, *ordenesEtiqueta_, *ordenesLista_;
  ventanas::Deshacer* deshacer_;
  QToolBar* barra_;
  QAction *nuevoCampo_, *alinear_;
};

}  // namespace tarvo::labels
