// The files of a folder to choose from: a double click or Return takes one. All imports share the
// memory of the folder from which somebody took the last file.
#pragma once

#include <QWidget>

#include "core/ventanas/marco/Ventana.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace tarvo::importar {

class PanelFicheros final : public QWidget {
  Q_OBJECT
 public:
  explicit PanelFicheros(QWidget* padre = nullptr);
  // `patrones`: "*.PLU", any case. The names of its list and its button come from the texts.
  void preparar(ventanas::Contexto& contexto, const QStringList& patrones);
  // In that folder; without one in the last one, if it is there, else in the program's.
  void empezar(const QString& carpeta);
  void ponerCarpeta(const QString& carpeta);
  const QString& carpeta() const { return carpeta_; }
  QListWidget* lista() const { return lista_; }

 Q_SIGNALS:
  void escogido(const QString& ruta);

 private:
  void escogerCarpeta();
  void recordar();

  ventanas::Contexto* c_ = nullptr;
  QLabel* donde_;
  QListWidget* lista_;
  QLabel* ninguno_;
  QPushButton* otra_;
  QStringList patrones_;
  QString carpeta_;
};

}  // namespace tarvo::importar
