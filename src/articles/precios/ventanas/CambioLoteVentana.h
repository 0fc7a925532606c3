// CambioLote: one change applied to many articles. Its effect on each is previewed at once. It is
// applied as a whole: stopping it undoes the changes so far, and it can be undone later too.
#pragma once

#include "articles/Vuelta.h"
#include "articles/precios/CambioLote.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_CambioLote.h"

namespace tarvo::precios {

class CambioLoteVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  CambioLoteVentana(ventanas::Contexto& contexto, const QString& nombre,
                    articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaCambioLote& puerta);
  bool QueryUnload() override;

 private:
  void montar();
  void prepararParrilla();
  Resultado<> seccionCambiada();
  void queCambiado();
  void luegoMirar();
  void mirar();
  void seguirMirando();
  std::expected<OrdenLote, QString> orden();
  std::expected<OrdenLote, QString> ordenPrecios();
  std::expected<OrdenLote, QString> ordenFormato();
  SeleccionLote seleccion() const;
  void pintarLineas();
  QString valorEnTexto(const dao::Valor& valor) const;
  void aplicar();
  void terminar();
  void marchar(std::unique_ptr<CambioLote::Marcha> marcha, qint64 total);
  void aplicarYa(std::vector<articles::ClaveArticulo> claves, const OrdenLote& orden);
  void aplicado(const Resultado<Trabajo::Fin>& fin);
  void deshacer();
  void volver(qint64 lote, qint64 articulos, const std::function<void()>& alAcabar);
  void vuelto(const Resultado<Trabajo::Fin>& fin, const std::function<void()>& alAcabar);
  void decirVuelta(const QString& dicho);
  void parar();
  void libre();
  void pintarDeshacer();

  Ui::CambioLote ui_;
  articles::Lotes lotes_;
  CambioLote motor_;
  DeLista lista_;
  std::vector<qint64> codigos_;
  std::vector<LineaLote> lineas_;
  std::unique_ptr<CambioLote::Previa> previa_;
  std::unique_ptr<CambioLote::Marcha> marcha_;
  std::unique_ptr<articles::Vuelta> vuelta_;
  std::unique_ptr<Temporizador> luego_;
  QWidget* foco_ = nullptr;  // where the focus was before the window was disabled
};

}  // namespace tarvo::precios
