// FastAlta: fast entry of articles, one after another; each field is cleared, kept or fixed, as
// configured. It keeps the list of articles up to date.
#pragma once

#include "articles/precios/AltaRapida.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/MatrizPrecios.h"
#include "articles/precios/ventanas/Puertas.h"
#include "core/ventanas/edicion/Ficha.h"

namespace tarvo::precios {

class FastAlta final : public ventanas::FichaDe<EntradaAlta> {
 public:
  FastAlta(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaFastAlta& puerta);
  bool QueryUnload() override;

 protected:
  void keyPressEvent(QKeyEvent* evento) override;
  bool focusNextPrevChild(bool siguiente) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  enum class Respuesta { Si, No, Cancelar };

  void montar();
  void montarIzquierda(ventanas::Formulario f);
  void montarDerecha(ventanas::Formulario f);
  ventanas::Campo& campo(CampoAlta cual) const { return *campos_[static_cast<std::size_t>(cual)]; }
  std::optional<CampoAlta> campoConFoco() const;
  QString& donde(CampoFijo fijo);  // the member for a text field
  void tomar();
  void ponerValores();
  // False if the field is invalid; it is then marked, with its reason.
  bool vale(CampoAlta cual);
  bool puedeSalir();
  void avanzar();
  void codigoConFoco();
  void codigoSinFoco();
  void pintarDepartamento();

  Respuesta preguntar();
  void vaciar();
  void configurar();
  void guardarAjustes();

  std::vector<FaltaCampo> comprobar() override;
  void decir(const std::vector<FaltaCampo>& faltas) override;
  bool cambiada() const override;
  void confirmar() override;
  Resultado<> aplicar() override;
  void aplicada() override;

  AltaRapida motor_;
  ParrillaRapida politicas_;
  DeLista lista_;
  std::array<ventanas::Campo*, kCamposAlta> campos_{};
  QComboBox* seccion_;
  QLineEdit* codigo_;
  MatrizPrecios* precios_;
  QLabel *departamento_, *ultimo_;
  articles::Articulo anadido_;
};

}  // namespace tarvo::precios
