// The prices of an article: a row a tarifa, a column a level, a field each. Keys: the arrows up and
// down and Tab move among them; what Enter does is its owner's.
#pragma once

#include <QWidget>
#include <array>

#include "articles/precios/ParrillaRapida.h"
#include "core/ventanas/Contexto.h"

class QGridLayout;
class QLineEdit;

namespace tarvo::precios {

class MatrizPrecios final : public QWidget {
  Q_OBJECT
 public:
  explicit MatrizPrecios(QWidget* padre = nullptr);
  // So many levels and tarifas, all empty. Called again it starts over.
  void preparar(ventanas::Contexto& contexto, int niveles = articles::kNiveles,
                int tarifas = articles::kTarifas);

  void poner(const articles::Precios& precios);
  void poner(Celda celda, qint64 precio);
  void limpiar();
  // As the fields stand; those that aren't shown, are empty or can't be read are 0.
  articles::Precios precios() const;
  bool vale() const;  // all can be read

  Celda actual() const { return actual_; }
  void irA(Celda celda);  // the focus goes there, all of it selected
  bool tieneFoco() const;

 Q_SIGNALS:
  void entrada(tarvo::precios::Celda celda);   // the focus came to another cell
  void cambiada(tarvo::precios::Celda celda);  // another price was typed, and the cell left
  void intro(tarvo::precios::Celda celda);     // Enter, behind cambiada

 private:
  QLineEdit* campo(Celda celda) const;
  void hacerCampo(QGridLayout& rejilla, Celda celda);
  void terminar(Celda celda);
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  bool tecla(Celda celda, int tecla);

  ventanas::Contexto* c_ = nullptr;
  std::array<std::array<QLineEdit*, articles::kTarifas>, articles::kNiveles> campos_{};
  articles::Precios puestos_{};
  QWidget* ultimo_ = nullptr;  // made, in the order of the tab key
  int niveles_ = 0, tarifas_ = 0;
  Celda actual_;
};

}  // namespace tarvo::precios
