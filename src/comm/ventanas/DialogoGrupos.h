// The base of the dialogs that queue tasks: the list of groups, a check box for all of them, and
// queuing on acceptance.
#pragma once

#include "comm/ventanas/Grupos.h"
#include "comm/ventanas/Servicios.h"
#include "core/ventanas/marco/Ventana.h"

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tarvo::comm {

// Two fields of article codes. When one loses the focus, its number is padded to 7 digits; the
// second becomes seven nines if it has no number.
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
  // Lists the groups that can receive this kind of task; an error if there are none.
  Resultado<> pedir(TipoTarea clase);
  void usar(QListWidget* lista, QCheckBox* todas, QPushButton* acepto, QPushButton* cancelo);
  // The request according to the fields; nothing if a field is invalid, which has then been
  // reported.
  virtual std::optional<PeticionTarea> leerCampos() = 0;
  TipoTarea clase() const { return clase_; }
  // Shows a fault beside its field.
  void falta(QLineEdit& campo, const QString& texto);
  // False if the last code is below the first, which is reported.
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
