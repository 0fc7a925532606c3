// A choice among the files of a folder, by a double click or Return. All imports remember the same
// folder, that of the last file chosen.
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
  // `patrones`: such as "*.PLU", ignoring case. The accessible names of its list and its button
  // come from the texts.
  void preparar(ventanas::Contexto& contexto, const QStringList& patrones);
  // Opens that folder; if empty, the last one if it still exists, or else the program's folder.
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
