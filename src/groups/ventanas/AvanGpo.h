// AvanGpo: the advanced options of a group: what its tickets show, times and sounds, the formats of
// bar codes, and the commercial hours.
#pragma once

#include <array>

#include "groups/ventanas/Comun.h"

class QTabWidget;

namespace tarvo::groups {

// The group, and its hours as they are typed: opening and closing of each day, empty when closed.
struct GrupoAvanzado {
  devices::Grupo grupo{};
  std::array<std::array<QString, 2>, 7> horas;
  bool operator==(const GrupoAvanzado&) const = default;
};

class AvanGpo final : public ventanas::FichaDe<GrupoAvanzado> {
  Q_OBJECT
 public:
  AvanGpo(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> entrar(const PuertaAvanGpo& puerta);

 private:
  void montarTique(ventanas::Formulario f);
  void montarTiempos(ventanas::Formulario f);
  void montarCodigos(ventanas::Formulario f);
  void montarHorario(ventanas::Formulario f);
  ventanas::Modo hora(QString& donde) const;
  ventanas::Modo formato(QString& donde, int largo) const;
  std::vector<FaltaCampo> comprobar() override;
  void aplicada() override { entregar(r.grupo); }
  void verCopia();

  QTabWidget* tabstr_;
  QWidget* frmCop_;
  std::array<std::array<ventanas::Campo*, 2>, 7> campos_{};
};

}  // namespace tarvo::groups
