// DudasCero: machines that may or may not have been zeroed. Their totals wait in the inbox until
// the user settles the doubt here, one by one and by name.
#pragma once

#include "core/ventanas/marco/Ventana.h"
#include "totals/libros/CerrSes.h"
#include "totals/ventanas/Puertas.h"
#include "ui_DudasCero.h"

namespace tarvo::totals {

class DudasCero final : public ventanas::Ventana {
  Q_OBJECT
 public:
  DudasCero(ventanas::Contexto& contexto, const QString& nombre, Sesion& sesion,
            Periodos& periodos);
  Resultado<> entrar(const PuertaDudasCero& puerta);

 private:
  Resultado<> refrescar();
  void responder(bool olvido);
  QString nombreDe(const DudaAbierta& duda) const;
  QString dinero(qint64 importe) const;

  Ui::FormaDudasCero ui_;
  CerrSes motor_;
  std::vector<DudaAbierta> todas_;
};

}  // namespace tarvo::totals
