// The keyboard of a scale: its keys as a picture, the articles of its section to put on them, and
// lists of its direct PLUs, its direct tares and what is wrong.
#pragma once

#include <QToolButton>
#include <set>

#include "articles/Catalogo.h"
#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/edicion/Ficha.h"
#include "core/ventanas/edicion/Ordenes.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "devices/ventanas/LienzoTeclado.h"
#include "devices/ventanas/PanelTecla.h"
#include "devices/ventanas/Puertas.h"

class QSplitter;

namespace tarvo::devices {

class TecladoVentana final : public ventanas::FichaDe<TecladoEditado> {
 public:
  TecladoVentana(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaTeclado& puerta);
  // The same as the file dialogs do.
  void guardarEn(const QString& ruta);
  void leerDe(const QString& ruta);

 private:
  // --- building
  QWidget* montarTeclado();
  QWidget* montarLado();
  void montarOrdenes(QToolBar& barra);
  void montarArticulos(QWidget& padre);
  void montarFichas(QWidget& padre);
  ventanas::Parrilla* montarLista(const QString& nombre, std::vector<ventanas::Columna> columnas,
                                  int ficha);
  void montarRelleno();
  void conectarLienzo();
  // Shows what the model has.
  void soloDe(bool ebony);

  // --- changes; every one of them can be undone
  using Cambio = std::function<Resultado<>(TecladoEditado&)>;
  // False, with the copy as it was, if it failed; that is reported.
  Resultado<> intentar(const QString& que, const Cambio& cambio);
  bool cambiar(const QString& que, const Cambio& cambio) {
    return haIdoBien(intentar(que, cambio));
  }
  void apuntar(const QString& que, const TecladoEditado& antes);
  void poner(const TecladoEditado& teclado);

  void vender(int tecla, qint64 articulo);
  void venderElegido();
  void mover(int de, int a);
  void levantar();
  void borrar(int tecla);
  void soltarArticulo(qint64 articulo, const QPoint& global);
  void rellenar();
  void copiar();
  void pegar();
  bool pegarTexto(const QString& que, const QString& texto);
  void guardar();
  void leerFichero();

  // --- showing
  void pintar();
  Resultado<> mirarArticulos();
  void mostrarTecla(int tecla);
  void editarTecla();
  void irARelleno();
  void pintarListas();
  void listarArticulos();
  void menu(const QPoint& global);
  void dibujo();

  Resultado<> ponerPlu(int directo, const QString& texto);
  Resultado<> ponerTara(int directa, const QString& texto);
  Panel& panel() const;

  // A key as a message names it: its number, and what it shows.
  QString cual(int tecla) const;
  QString enPalabras(const std::set<int>& codigos) const;
  std::vector<FaltaCampo> comprobar() override;
  bool conforme() override;
  void aplicada() override { entregar(r.escribir()); }
  void irABuscar() override;
  bool event(QEvent* evento) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  articles::Catalogo& catalogo_;
  CodigosDeTecla codigos_;
  int seccion_ = 1;
  ArticulosDeTecla existen_;
  std::set<qint64> mirados_;  // the articles that existen_ tells about
  qint64 cambios_ = -1;       // of the store, when they were looked up
  std::optional<TecladoEditado> antesDeTanda_;
  std::set<int> faltaban_;  // of codigosQueFaltan(), when it was opened

  ventanas::Ordenes* ordenes_ = nullptr;
  ventanas::Deshacer* deshacer_ = nullptr;
  QAction *accionCopiar_ = nullptr, *accionPegar_ = nullptr, *accionGuardar_ = nullptr,
          *accionLeer_ = nullptr;
  LienzoTeclado* lienzo_ = nullptr;
  QLabel *NmT_ = nullptr, *NFu_ = nullptr, *EtqDibujo_ = nullptr;
  QComboBox *Option1_ = nullptr, *departamento_ = nullptr, *orden_ = nullptr;
  QToolButton* basura_ = nullptr;
  QLineEdit* Busca_ = nullptr;
  ventanas::Parrilla *articulos_ = nullptr, *LisHplu_ = nullptr, *LisTara_ = nullptr,
                     *avisos_ = nullptr;
  QTabWidget* fichas_ = nullptr;
  PanelTecla* PanEdi_ = nullptr;
  PanelEbony* PanelEdi_ = nullptr;
};

}  // namespace tarvo::devices
