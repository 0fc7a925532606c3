// Work on a period still owed by earlier runs; it can be dropped item by item, by name.
#pragma once

#include "automation/historia/Pendientes.h"
#include "automation/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_Debidos.h"

namespace tarvo::automation {

class Debidos final : public ventanas::Ventana {
  Q_OBJECT
 public:
  Debidos(ventanas::Contexto& c, const QString& nombre, Pendientes& libro);
  Resultado<> entrar(const PuertaDebidos& puerta);

 private:
  Resultado<> refrescar();
  void olvidar();
  QString periodoDe(const Pendientes::Debido& d) const;
  QString queFalta(const Pendientes::Debido& d) const;
  QString loDebido(const Pendientes::Debido& d) const;

  Ui::FormaDebidos ui_;
  Pendientes& libro_;
  std::vector<Pendientes::Debido> todos_;
};

}  // namespace tarvo::automation
