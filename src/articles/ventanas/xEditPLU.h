// xEditPLU: the complete editor of an article.
#pragma once

#include "articles/FichaArticulo.h"
#include "articles/ventanas/ParrillaPrecios.h"
#include "articles/ventanas/Puertas.h"
#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/edicion/Ficha.h"

class QTabWidget;

namespace tarvo::articles {

class XEditPLU final : public ventanas::FichaDe<FichaArticulo> {
 public:
  XEditPLU(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo);
  // NoExiste if there is no such article.
  Resultado<> entrar(const PuertaXEditPLU& puerta);

 private:
  using Campo = ventanas::Campo;
  using Vuelto = ventanas::Deshacer::Vuelto;

  void montar();
  void montarCabeza(ventanas::Formulario f);
  void montarPrecios(ventanas::Formulario f);
  void montarBarras(ventanas::Formulario f);
  void montarAlmacen(ventanas::Formulario f);
  void montarEtiqueta(ventanas::Formulario f);
  void montarStock();
  // Money in the current currency, and a quantity in the current unit; an empty field is 0.
  ventanas::Modo importe(qint64& donde) const;
  ventanas::Modo medida(qint64& donde) const;
  Campo& llamar(Campo& campo, int nombre);

  void montarDeshacer();
  void pintarStock();
  void pintarBarras();
  void pintarMoneda();
  void alternarMoneda();
  void unidadCambiada();
  // Reads the fields whose text depends on the currency or the unit; false, after reporting it, if
  // one is invalid.
  bool leerMedidas();
  // `titulo`: its name, a text.
  Resultado<> ponerContador(int titulo, qint64 Existencia::* contador, qint64 almacen,
                            const QString& texto);
  QString dudaDeBarras(const Articulo& articulo) const;
  void decirDudas();
  void dejarDeshacer();
  Articulo comoSeVe() const;  // with the bar code as being typed

  std::vector<FaltaCampo> comprobar() override;
  void decir(const std::vector<FaltaCampo>& faltas) override;
  bool cambiada() const override;
  bool conforme() override;
  Resultado<> aplicar() override;
  void aplicada() override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;

  FichasArticulo fichas_;
  Catalogo& catalogo_;
  std::unique_ptr<ParrillaPrecios> precios_;
  Campo *codigo_, *nombre_, *unidad_, *depto_, *formato_, *minimo_, *hasta1_, *hasta2_, *descuento_;
  Campo *prefijo_, *predefinido_, *coste_;
  std::vector<Campo*> medidas_;  // the fields of money and quantities
  QComboBox *departamentos_, *tipoBarras_;
  QToolButton* botonMoneda_;
  QPushButton* corregir_;
  QLabel *control_, *dibujo_, *deque_, *unidadStock_;
  ventanas::Deshacer* deshacer_;
  ventanas::Parrilla *listaPrecios_, *listaHistoria_, *listaStock_;
  PuertaXEditPLU puerta_;
  int moneda_, cada_ = 0;  // as displayed
};

}  // namespace tarvo::articles
