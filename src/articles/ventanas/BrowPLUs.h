// BrowPLUs: the articles of a section. The cells of the list can be edited, and so can the prices
// of the current article beside it. Until the window is closed, articles deleted, copied or moved
// can be restored.
#pragma once

#include "articles/FichaArticulo.h"
#include "articles/Listas.h"
#include "articles/LotesAMedias.h"
#include "articles/Vuelta.h"
#include "articles/precios/ventanas/Puertas.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/ParrillaPrecios.h"
#include "articles/ventanas/Puertas.h"
#include "comm/motor/gestcomm.h"
#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/marco/Recorrido.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_BrowPLUs.h"

class QMenu;

namespace tarvo::articles {

class BrowPLUs final : public ventanas::Ventana, public ventanas::Recorrido {
  Q_OBJECT
 public:
  BrowPLUs(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo,
           motor::gestcomm& motor);

  Resultado<> entrar(const PuertaBrowPLUs& puerta);
  bool QueryUnload() override;
  ventanas::Recorrido* recorrido() override { return this; }

  void LetSeccion(int seccion);
  int GetSeccion() const { return seccion_; }
  void LetDept(int departamento);
  void UnHijoMas(bool mas) { hijo(mas); }
  void RefrescoRemoto() { refrescar(); }
  // Stores the prices of the current article.
  Resultado<> CambioPrecios(const Precios& precios);
  void SaltoPagUp() { saltar(-1); }
  void SaltoPagDn() { saltar(1); }

  Clave clave() const override;
  bool saltar(int pasos) override;
  void refrescar() override;
  void refrescarEn(Clave clave) override;
  void hijo(bool mas) override { hijos_ = std::max(0, hijos_ + (mas ? 1 : -1)); }
  void alMover(QObject* quien, std::function<void()> reposicionado) override;

 private:
  using Cambio = std::function<Resultado<>(Articulo& articulo)>;
  using Paso = std::function<Resultado<>(std::span<const ClaveArticulo> claves)>;
  using Vuelto = ventanas::Deshacer::Vuelto;

  void montar();
  void montarAcciones();
  void montarMenus();
  void montarCampos();
  void prepararParrilla();
  void anadirPrecios(std::vector<ventanas::Columna>& columnas);
  std::function<Resultado<>(qint64, const QString&)> ponerPrecio(size_t nivel, size_t tarifa);
  void listar();
  FiltroArticulos filtro() const;
  void irAlPrimero();
  void ordenar(bool porNombre);
  void ordenCambiado();
  void buscar();
  void actualCambiada();
  void pintarLado();
  void pintarNombre();
  void habilitar();
  ClaveArticulo actual() const;
  std::vector<ClaveArticulo> elegidos();

  // Changes an article; `campo` is the edited column. `callado`: the refusal for a system article
  // isn't reported.
  Resultado<> escribir(qint64 fila, const QString& campo, const Cambio& cambio,
                       bool callado = false);
  Resultado<> ponerNombre(qint64 fila, const QString& texto);
  Resultado<> ponerCodigo(qint64 fila, const QString& texto);
  Resultado<> ponerEntero(qint64 fila, const QString& texto, const QString& columna,
                          int Articulo::* campo);
  void apuntar(const QString& que, const Articulo& antes, const Articulo& ahora);
  void fichaGuardada(const FichaArticulo& antes, const FichaArticulo& ahora);
  void celdaEscrita(int columna);
  bool ordena(int columna) const;  // whether the list is sorted by that column
  Error incorrecto(int nombre, const QString& porQue = {}) const;
  void avisarDepartamento(int departamento);

  void editarCompleto(bool nuevo);
  void verVentas();
  void calcular();
  void calculado(const Articulo& antes, const Articulo& ahora);
  void cambiadoRapido(std::span<const precios::CambioHecho> juntos);
  void cambiarVarios();
  precios::Celda celdaActual() const;
  Resultado<QString> nombrar(std::span<const ClaveArticulo> claves) const;
  void borrar();
  void trasladar(bool mover);
  // `parado`: how many stay because it was stopped; empty if it wasn't.
  using AlFinal = std::function<void(qint64 hechos, const QString& parado)>;
  void porPasos(const QString& que, std::vector<ClaveArticulo> claves, const Paso& paso,
                const AlFinal& alFinal);
  void anotarDeshacer(const QString& que, qint64 lote);
  Resultado<bool> conformeConVolver(qint64 lote);
  Resultado<Vuelto> volverDe(const std::shared_ptr<LoteGuardado>& lote, const QString& que,
                             int numero);
  void volverPorTramos(qint64 lote, qint64 articulos, const QString& que,
                       std::optional<int> numero);
  bool loDiceOtra(const LoteAMedias& lote);
  void mirarLotes();
  QString nadaQueDeshacer();
  Vuelto resolverCortado(const Lotes::Lote& lote, const QString& que);
  void volverDeCortado(const Lotes::Lote& lote, const QString& que);
  Vuelto vueltaDe(const QString& bien, const Lotes::Deshecho& hecho) const;
  bool cerrarHijos();

  bool event(QEvent* evento) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void irABuscar() override { ui_.Filtro->setFocus(); }

  Ui::BrowPLUs ui_;
  Catalogo& catalogo_;
  motor::gestcomm& motor_;
  Lotes lotes_;
  std::unique_ptr<ParrillaPrecios> precios_;
  int seccion_ = 0, departamento_ = 0, hijos_ = 0;
  Clave anterior_;  // last one reported to the observers
  std::vector<std::pair<QPointer<QObject>, std::function<void()>>> siguen_;
  QString nombre_;  // of the current article
  ventanas::Deshacer* deshacer_;
  std::vector<int> cortados_;  // undo numbers of interrupted batches
  bool trabajando_ = false;
  std::unique_ptr<Vuelta> vuelta_;  // under way
  qint64 cambios_ = 0;              // the database's change count when the list was read
};

}  // namespace tarvo::articles
