// The files of a folder to choose from: a double click or Return takes one.
#pragma once

#include <QWidget>

#include "core/textos/Textos.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace tarvo::importar {

class PanelFicheros final : public QWidget {
  Q_OBJECT
 public:
  explicit PanelFicheros(QWidget* padre = nullptr);
  // `patrones`: "*.PLU", any case. The names of its list and its button come from the texts.
  void preparar(const Textos& textos, const QStringList& patrones);
  void setCarpeta(const QString& carpeta);
  const QString& carpeta() const { return carpeta_; }
  QListWidget* lista() const { return lista_; }

 Q_SIGNALS:
  void escogido(const QString& ruta);

 private:
  void escogerCarpeta();

  QLabel* donde_;
  QListWidget* lista_;
  QLabel* ninguno_;
  QPushButton* otra_;
  QStringList patrones_;
  QString carpeta_;
};

}  // namespace tarvo::importar
