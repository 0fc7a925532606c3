// NvaOfr: creates offers, one after another.
#pragma once

#include "articles/precios/Ofertas.h"
#include "articles/precios/ventanas/Puertas.h"
#include "core/ventanas/edicion/Ficha.h"

class QRadioButton;

namespace tarvo::precios {

// The contents of the fields; the dates are kept for the next offer.
struct OfertaEscrita {
  QString articulo;
  std::array<std::optional<qint64>, articles::kNiveles> precios{};
  Dia desde, hasta;
  bool operator==(const OfertaEscrita&) const = default;
};

class NvaOfr final : public ventanas::FichaDe<OfertaEscrita> {
 public:
  NvaOfr(ventanas::Contexto& contexto, const QString& nombre, Ofertas& motor);
  Resultado<> entrar(const PuertaNvaOfr& puerta);
  bool QueryUnload() override { return !dejado_ && FichaDe::QueryUnload(); }

 private:
  void keyPressEvent(QKeyEvent* evento) override;
  void montar();
  ventanas::Modo precio(std::size_t nivel);
  ventanas::Modo dia(Dia& donde);
  ventanas::Modo fin();
  bool vale(const QLineEdit& linea);
  void pintarGrupo();
  void buscar();
  QString preciosNormales(qint64 codigo);
  std::vector<FaltaCampo> comprobar() override;
  bool conforme() override;
  Resultado<QString> dudaDePrecios();
  Resultado<> aplicar() override;
  void aplicada() override;
  // The groups without an offer for the article, and those whose offer the user agrees to
  // overwrite.
  Resultado<std::vector<int>> preguntarPorLas(std::vector<int> grupos);

  Ofertas& motor_;
  QLabel *grupo_, *codigo_, *nombre_, *normal_;
  QRadioButton* porCodigo_;
  QCheckBox* todos_;
  ventanas::Campo *entra_, *hasta_;
  std::array<ventanas::Campo*, articles::kNiveles> precios_{};
  std::optional<Ofertas::Hallado> articulo_;
  PuertaNvaOfr de_;
  OfertaNueva oferta_;
  Ofertas::Alta alta_;   // the last offer, with the groups that received it
  QString aviso_;        // of its prices
  bool dejado_ = false;  // by Escape in the empty article field
};

}  // namespace tarvo::precios
