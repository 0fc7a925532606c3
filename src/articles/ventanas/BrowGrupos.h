// The tree of sections and departments: BrowGrupos, opened with Depts=true. With Grupos=true it
// says that groups can't be kept from here.
#pragma once

#include "articles/BorradoSeccion.h"
#include "articles/Lotes.h"
#include "articles/Secciones.h"
#include "comm/motor/gestcomm.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Aparte.h"
#include "ui_BrowGrupos.h"

class QToolButton;

namespace tarvo::articles {

class BrowGrupos final : public ventanas::Ventana {
  Q_OBJECT
 public:
  BrowGrupos(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo,
             motor::gestcomm& motor);

  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;
  bool QueryUnload() override;

  void RefrescoArbol();

 private:
  // A node: a section, or a department of one (0 for the section itself).
  struct Nodo {
    int seccion = 0, departamento = 0;
    bool operator==(const Nodo&) const = default;
  };
  // A department or a section that was deleted, until the window closes.
  struct Borrado {
    Nodo nodo;
    QString nombre;
    int iva = 1;
    qint64 lote = 0;
    std::shared_ptr<BorradoSeccion> seccion = {};
  };

  void montar();
  Resultado<> llenar();
  QTreeWidgetItem* anadir(QTreeWidgetItem* padre, Nodo nodo, const QString& nombre,
                          const QString& iva);
  void contar();
  std::optional<Nodo> actual() const;
  static Nodo nodoDe(const QTreeWidgetItem& item);
  Nodo vecinoDe(Nodo nodo) const;
  QTreeWidgetItem* buscar(Nodo nodo) const;
  void irA(Nodo nodo);
  void actualCambiado();
  void rotulado(QTreeWidgetItem* item, int columna);
  bool event(QEvent* evento) override;

  void nuevaSeccion();
  void nuevoDepartamento();
  void copiar();
  void borrar();
  void borrarSeccion(int seccion);
  bool confirmarSeccion(int seccion, const QString& nombre, const Secciones::LoQueSeVa& va);
  void reponerSeccion(const Borrado& b);
  void borrarDepartamento(Nodo nodo);
  Resultado<Borrado> borrarConLote(Nodo nodo);
  void deshacer();
  void verArticulos();
  void abrirDe(const QString& ventana);

  Ui::BrowGrupos ui_;
  Catalogo& catalogo_;
  motor::gestcomm& motor_;
  Secciones secciones_;
  Lotes lotes_;
  ventanas::Aparte cuentas_;
  std::shared_ptr<CopiaSeccion> copia_;
  std::vector<Borrado> borrados_;
  bool llenando_ = false;
  qint64 cambios_ = 0;  // of the database when the tree was read
};

}  // namespace tarvo::articles
