// Fast entry: articles one after another, each field cleared, kept or fixed as was chosen. FastAlta
// takes "seccion" and "lista", the window of the articles, which it brings up to date.
#pragma once

#include "articles/precios/AltaRapida.h"
#include "articles/precios/ventanas/Comun.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_FastAlta.h"

namespace tarvo::precios {

class FastAlta final : public ventanas::Ventana {
  Q_OBJECT
 public:
  FastAlta(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;
  bool QueryUnload() override;

 protected:
  void keyPressEvent(QKeyEvent* evento) override;
  bool focusNextPrevChild(bool siguiente) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  enum class Respuesta { Si, No, Cancelar };

  void montar();
  void montarCampos();
  void ponerValores();
  QWidget* control(CampoAlta campo) const;
  std::optional<CampoAlta> campoDe(const QWidget* control) const;
  QString textoFijo(CampoFijo campo) const;
  EntradaAlta entrada() const;
  // Marks the field where it isn't.
  bool vale(CampoAlta campo);
  bool puedeSalir();
  bool hayAlgoEscrito() const;
  void avanzar();

  void codigoConFoco();
  void codigoSinFoco();
  bool codigoLleno(const QKeyEvent& evento);
  void pintarDepartamento();

  void anadir();
  Respuesta preguntar();
  void anadirYa();
  void vaciar();
  void configurar();
  void guardarAjustes();

  Ui::FastAlta ui_;
  AltaRapida motor_;
  ParrillaRapida politicas_;
  DeLista lista_;
};

}  // namespace tarvo::precios
