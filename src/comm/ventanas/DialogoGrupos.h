// What the dialogs that queue tasks share: the list of groups, all of them at once, and the queuing
// when they are accepted.
#pragma once

#include "comm/ventanas/Grupos.h"
#include "comm/ventanas/Servicios.h"
#include "core/ventanas/marco/Ventana.h"

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tarvo::comm {

// Two fields of article codes: on losing the focus their number takes 7 digits; the second without
// a number becomes seven nines.
class RangoCodigos {
 public:
  RangoCodigos(QLineEdit* desde, QLineEdit* hasta);
  qint64 desde() const;
  qint64 hasta() const;
  QLineEdit& campoDesde() const { return *desde_; }

 private:
  QLineEdit *desde_, *hasta_;
};

class DialogoGrupos : public ventanas::Ventana {
 public:
  DialogoGrupos(ventanas::Contexto& c, const QString& nombre, const Servicios& s);

 protected:
  // The groups that this kind of task may go to; an error when there are none.
  Resultado<> pedir(TipoTarea clase);
  void usar(QListWidget* lista, QCheckBox* todas, QPushButton* acepto, QPushButton* cancelo);
  // The request as the fields say; nothing when a field is wrong, which is said.
  virtual std::optional<PeticionTarea> leerCampos() = 0;
  TipoTarea clase() const { return clase_; }
  // Says a fault beside its field.
  void falta(QLineEdit& campo, const QString& texto);
  // False when the codes run backwards, which is said.
  bool vale(const RangoCodigos& rango);

 private:
  std::vector<int> elegidos() const;
  void encolar();

  Servicios s_;
  TipoTarea clase_ = TipoTarea::TxHora;
  QListWidget* lista_ = nullptr;
  QCheckBox* todas_ = nullptr;
};

}  // namespace tarvo::comm
