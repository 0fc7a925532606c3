// The complete editor of one article: xEditPLU. It edits a copy and writes it once.
#pragma once

#include "articles/Catalogo.h"
#include "articles/Existencias.h"
#include "articles/ventanas/RejillaPrecios.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_xEditPLU.h"

namespace tarvo::articles {

class XEditPLU final : public ventanas::Ventana {
  Q_OBJECT
 public:
  XEditPLU(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo);

  // One window an article.
  static QString nombreDe(ClaveArticulo clave);
  // "padre" (the name of a Recorrido), "seccion", "departamento", "codigo": 0 for a new article,
  // without it the first one.
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;
  // NoExiste when there is no such article.
  Resultado<> editar(const QString& padre, int seccion, int departamento, qint64 codigo);
  bool QueryUnload() override;

 private:
  // A box over a number of the article. The number is read again only when its text was changed, so
  // that looking at it in another currency costs no cent.
  struct Caja {
    QLineEdit* campo;
    qint64 Articulo::* valor;
    bool dinero;
    int nombre;  // text
    QString visto = {};
  };
  struct Mala {
    int nombre;
    QWidget* ficha;  // null: above the tabs
    QWidget* campo;
  };

  void montar();
  void montarListas();
  void montarStock();
  Resultado<qint64> primero(int seccion);
  void mostrar();
  void mostrarCajas();
  void pintarStock();
  void pintarBarras();
  void pintarMoneda();
  void alternarMoneda();
  void unidadCambiada();
  std::vector<Mala> leer();
  std::vector<Mala> leerCajas();
  void leerOtros();
  Mala mala(Falta falta) const;
  void marcarMalas(const std::vector<Mala>& malas);
  void decirMalas(const std::vector<Mala>& malas);
  Resultado<> ponerContador(qint64 Existencia::* contador, qint64 almacen, const QString& texto);
  bool loCambioOtro();
  Resultado<> escribir();
  void guardar();
  QString dudaDeBarras(const Articulo& articulo) const;
  void decirDudaBarras();
  QWidget* fichaDe(const QWidget* campo) const;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  Ui::xEditPLU ui_;
  Catalogo& catalogo_;
  std::unique_ptr<RejillaPrecios> precios_;
  std::vector<Caja> cajas_;
  std::optional<ClaveArticulo> vieja_;  // none: a new article
  Articulo articulo_, antes_;
  std::vector<Existencia> existencias_, existenciasAntes_;
  QString padre_;
  int moneda_;
};

}  // namespace tarvo::articles
