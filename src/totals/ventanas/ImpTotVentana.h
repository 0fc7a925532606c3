// ImpTot: imports periods from a file. Each block is shown before it is imported, or all are
// imported one after another.
#pragma once

#include "core/ventanas/edicion/Ordenes.h"
#include "totals/intercambio/XporTot.h"
#include "totals/ventanas/Puertas.h"
#include "ui_ImpTot.h"

namespace tarvo::totals {

class ImpTotVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  ImpTotVentana(ventanas::Contexto& contexto, const QString& nombre, Periodos& periodos);
  Resultado<> entrar(const PuertaImpTot& puerta);
  int estado() const { return estado_; }

 private:
  void montar();
  void decirSiEstaVacia();
  void ponerCarpeta(const QString& carpeta);
  void ponerEstado(int estado);
  void abrir();
  void leerSiguiente();
  void mostrarBloque();
  void Haz(bool todos);
  bool consiente(bool todos);
  bool sigue(bool consentido) const;
  Resultado<> incorporarUno();
  void acabar(const ventanas::Faena::Fin& fin);
  void contar();
  void decirImportado();
  void Alto();

  Ui::ImpTot ui_;
  Periodos& p_;
  ImpTot motor_;
  std::unique_ptr<Importacion> fichero_;
  std::optional<Importacion::Bloque> bloque_;
  QString carpeta_;
  int estado_ = 0;
  int hechos_ = 0;
  qint64 lineas_ = 0;
  QStringList faltas_;  // of each period imported, what is missing from it
  int supuestas_ = 0;   // lines taken for another system's
};

}  // namespace tarvo::totals
