// FastModf: fast change. The articles of a section in a grid with configurable columns, and all
// prices of the current one. It keeps the list of articles up to date.
#pragma once

#include "articles/Catalogo.h"
#include "articles/precios/ParrillaRapida.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/Puertas.h"
#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/parrilla/Columna.h"
#include "ui_FastModf.h"

namespace tarvo::precios {

class FastModf final : public ventanas::Ventana {
  Q_OBJECT
 public:
  FastModf(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaFastModf& puerta);
  bool QueryUnload() override;

 protected:
  void keyPressEvent(QKeyEvent* evento) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  void montar();
  ventanas::Columna columna(ColumnaRapida cual);
  Resultado<> abrirLista();
  articles::ClaveArticulo claveDe(int fila) const;
  Resultado<> seccionCambiada();
  void irAlDeLaLista();
  void articuloCambiado();
  void leerArticulo(int fila);
  // Moves back to the pending price and its article.
  void volverAlPendiente();
  Resultado<> escribir(qint64 fila, ColumnaRapida columna, const QString& texto);
  Resultado<> escribirPrecio(Celda celda, qint64 precio);
  void apuntar(const QString& que, const articles::Articulo& antes,
               const articles::Articulo& ahora);
  void seguirTandas();
  void entregarHechos();
  void avisar(const QString& articulo, Celda celda, qint64 antes, qint64 ahora);
  void avisarDepartamento(int seccion, int departamento);
  void intro(Celda celda);
  // False at the ends of the list, or if a price couldn't be stored.
  bool saltar(int pasos);
  void pintarModo();
  void ponerModo(ModoIntro modo);
  void configurar();

  Ui::FastModf ui_;
  articles::Catalogo& catalogo_;
  DeLista lista_;
  articles::Articulo articulo_;  // the article whose prices are shown beside the list
  qint64 fila_ = 0;              // its key in the list
  ModoIntro modo_;
  ventanas::Deshacer* deshacer_;
  // What can still be undone: its way back owns it. Those of one `tanda` were written together.
  struct Hecho {
    std::weak_ptr<const CambioHecho> cambio;
    int tanda;
  };
  std::vector<Hecho> hechos_;
  int tanda_ = 0;
  bool enTanda_ = false;
  std::function<void(std::span<const CambioHecho>)> alCerrar_;
};

}  // namespace tarvo::precios
