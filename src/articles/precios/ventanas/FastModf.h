// Fast change: the articles of a section in a grid whose columns one chooses, and all prices of the
// one under the pointer. FastModf takes "seccion" and "lista", the window of the articles, which it
// brings up to date.
#pragma once

#include "articles/Catalogo.h"
#include "articles/precios/ParrillaRapida.h"
#include "articles/precios/ventanas/Comun.h"
#include "core/ventanas/Columna.h"
#include "core/ventanas/Ventana.h"
#include "ui_FastModf.h"

namespace tarvo::precios {

class FastModf final : public ventanas::Ventana {
  Q_OBJECT
 public:
  FastModf(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;
  bool QueryUnload() override;

 protected:
  void keyPressEvent(QKeyEvent* evento) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  void montar();
  ventanas::Columna columna(ColumnaRapida cual);
  Resultado<> abrirLista();
  articles::ClaveArticulo claveDe(int fila) const;
  void articuloCambiado();
  Resultado<> escribir(qint64 fila, ColumnaRapida columna, const QString& texto);
  void precioEscrito(Celda celda);
  void intro(Celda celda);
  // False at the ends.
  bool saltar(int pasos);
  void pintarModo();
  void ponerModo(ModoIntro modo);
  void configurar();

  Ui::FastModf ui_;
  articles::Catalogo& catalogo_;
  DeLista lista_;
  articles::Articulo articulo_;
  ModoIntro modo_;
};

}  // namespace tarvo::precios
