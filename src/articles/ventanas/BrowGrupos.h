// BrowGrupos: the tree of sections with their departments or, in the window for groups, with their
// groups of machines.
#pragma once

#include "articles/BorradoDepartamento.h"
#include "articles/BorradoSeccion.h"
#include "articles/Secciones.h"
#include "articles/ventanas/Puertas.h"
#include "comm/motor/gestcomm.h"
#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Aparte.h"
#include "groups/CopiaConGrupos.h"
#include "ui_BrowGrupos.h"

class QToolButton;

namespace tarvo::articles {

class BrowGrupos final : public ventanas::Ventana {
  Q_OBJECT
 public:
  BrowGrupos(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo,
             motor::gestcomm& motor);

  Resultado<> entrar(const PuertaBrowGrupos& puerta);
  bool QueryUnload() override;

  void RefrescoArbol();

 private:
  // A node: a section, or one of its departments or groups (0 for the section itself).
  struct Nodo {
    int seccion = 0, departamento = 0, grupo = 0;
    bool esSeccion() const { return departamento == 0 && grupo == 0; }
    bool operator==(const Nodo&) const = default;
  };
  using Vuelto = ventanas::Deshacer::Vuelto;

  void montar();
  void montarDepartamentos();
  void montarArbol();
  Resultado<> llenar();
  Resultado<> llenarDepartamentos();
  QTreeWidgetItem* anadir(QTreeWidgetItem* padre, Nodo nodo, const QString& nombre,
                          const QString& ultima);
  void contar();
  std::optional<Nodo> actual() const;
  static Nodo nodoDe(const QTreeWidgetItem& item);
  Nodo vecinoDe(Nodo nodo) const;
  QTreeWidgetItem* buscar(Nodo nodo) const;
  void irA(Nodo nodo);
  void actualCambiado();
  void rotulado(QTreeWidgetItem* item, int columna);
  Resultado<> renombrar(Nodo nodo, const QString& nombre);
  QString decirNodo(Nodo nodo) const;
  void nombrarNuevo(Nodo nodo);
  void nombreDejado(bool renunciado);
  void apuntarNuevo(Nodo nodo);
  bool event(QEvent* evento) override;

  void nuevaSeccion();
  void nuevoDepartamento();
  void copiar();
  void borrar();
  void borrarSeccion(int seccion);
  QStringList decirVentas(std::span<const Secciones::VentasDeGrupo> ventas) const;
  bool confirmarSeccion(int seccion, const QString& nombre, const Secciones::LoQueSeVa& va);
  Resultado<Vuelto> quitarCopia(groups::CopiaConGrupos& copia, qint64 cambios);
  Resultado<Vuelto> reponerSeccion(BorradoSeccion& ida);
  void borrarDepartamento(Nodo nodo);
  Resultado<Vuelto> reponerDepartamento(BorradoDepartamento& ido, Nodo nodo);
  void verArticulos();
  void abrirNodo();

  // --- groups (BrowGruposDeBalanzas.cpp)
  void montarGrupos();
  Resultado<> llenarGrupos();
  void permitirGrupos(const std::optional<Nodo>& en);
  void editarGrupo();
  void nuevoGrupo(bool cajas);
  void grupoGuardado(int codigo, bool nuevo);
  void copiarGrupo(Nodo nodo);
  void borrarGrupo(Nodo nodo);
  Resultado<Vuelto> reponerGrupo(groups::BorradoGrupo& ido, Nodo nodo);
  Resultado<Vuelto> quitarGrupoNuevo(int codigo);
  int seccionDe(int grupo) const;

  Ui::BrowGrupos ui_;
  Catalogo& catalogo_;
  motor::gestcomm& motor_;
  const bool deGrupos_;
  Secciones secciones_;
  groups::Grupos grupos_;
  ventanas::Aparte cuentas_;
  std::shared_ptr<groups::CopiaConGrupos> copia_;
  ventanas::Deshacer* deshacer_;
  std::optional<Nodo> nuevo_;  // just created, while its name is being edited
  QString nombreAntes_;        // of the current node, when it was read
  bool llenando_ = false;
  qint64 cambios_ = 0;  // the database's change count when the tree was read
};

}  // namespace tarvo::articles
