// The base of the dialogs that queue tasks: the list of groups, a check box for all of them, a
// range of articles, and queuing on acceptance.
#pragma once

#include "comm/ventanas/Grupos.h"
#include "comm/ventanas/Servicios.h"
#include "core/ventanas/edicion/Ficha.h"

namespace tarvo::comm {

// What is asked besides the groups.
struct EncargoGrupos {
  bool todas = false;    // all groups of the list
  bool informe = true;   // of a zeroing
  bool completa = true;  // of totals of articles
  int balanza = 0;       // 0 for all of the group
  qint64 desde = 0, hasta = 9999999;
  bool operator==(const EncargoGrupos&) const = default;
};

class DialogoGrupos : public ventanas::FichaDe<EncargoGrupos> {
 protected:
  DialogoGrupos(ventanas::Contexto& c, const QString& nombre, const Servicios& s);
  // The form, with its list of groups.
  ventanas::Formulario conGrupos();
  // Two fields of article codes. When one loses the focus, its number is padded to 7 digits;
  // without a number they become the first and the last code.
  void conRango(ventanas::Formulario f, const QString& desde, const QString& hasta);
  // Lists the groups that can receive this kind of task; an error if there are none.
  Resultado<> pedir(TipoTarea clase);
  // The request according to the fields.
  virtual PeticionTarea peticion() const = 0;
  TipoTarea clase() const { return clase_; }
  std::vector<int> elegidos() const;
  const Servicios& servicios() const { return s_; }
  std::vector<FaltaCampo> comprobar() override;

 private:
  ventanas::Modo articulo(qint64& donde, qint64 sinNumero) const;
  bool conforme() override;
  Resultado<> aplicar() override;
  // A request that isn't made is nothing lost.
  bool cambiada() const override { return false; }

  Servicios s_;
  TipoTarea clase_ = TipoTarea::TxHora;
  QListWidget* lista_ = nullptr;
  ventanas::Campo* desde_ = nullptr;
};

}  // namespace tarvo::comm
