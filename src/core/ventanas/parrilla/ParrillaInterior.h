// The internals of a grid, shared by its source files. Not for inclusion by others.
#pragma once

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTableView>
#include <QToolButton>
#include <functional>

#include "core/ventanas/marco/Contexto.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "core/ventanas/parrilla/Delegado.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "core/ventanas/parrilla/Pie.h"

namespace tarvo::ventanas {

struct Parrilla::Interior {
  // The state kept while all rows change.
  struct Guardado {
    std::vector<dao::Valor> elegidas;
    dao::Valor actual;
    int columna = 0;
    int desplazada = 0;
    bool habia = false;
  };

  // What became of the letters typed on the list.
  enum class Tecleo {
    Nada,     // none, or they led to a row
    Busca,    // a row is being searched
    Perdido,  // they were neither written nor found
  };

  explicit Interior(Parrilla& p) : yo(p) {}

  void montar();
  void hacerAcciones();
  void presentarse();
  void ponerModelo(ModeloParrilla* modelo);
  int anchoInicial(int columna) const;
  void colocarColumnas();
  void leerColumnas();
  bool crece(int columna) const;
  int anchoMenor(int columna) const;
  void estirar();
  void holgar(int sobra);
  QString nombreMemoria() const;
  void relevar(const std::function<bool(int)>& seVa);
  void guardar();
  void reponer();
  void contar();
  void pintarPie();
  void pintarVacia();
  void menuContexto(const QPoint& donde);
  void menuColumnas(const QPoint& global);
  void alternarColumna(int columna, bool visible);
  void moverColumna(int pasos);
  void ordenarPorLaActual();
  bool tecla(QKeyEvent& evento);
  void intro();
  void saltar(const QString& texto);
  void hallado(int columna, const QString& texto, int fila);
  void noVale(int columna, const QString& tecla);
  void dejarTecleo();
  void rotular(const QString& texto);
  void colocarRotulo();
  bool escribible(int columna) const;
  QString titulo(int columna) const;
  QLineEdit* campoAbierto() const;
  bool editar(const QModelIndex& celda, std::optional<QString> texto = {});
  bool teclaEdicion(const QKeyEvent& evento);
  void seguirEditando(int pasos);
  void escribirVarias(const std::vector<int>& filas, const QStringList& textos);
  struct Tanda;
  bool conformeConTanda(const Tanda& tanda);
  Resultado<> escribirTanda(Tanda& tanda);
  void devolver(const Tanda& tanda);
  void hacerSitio();
  void resolver();
  void ceder();
  void rechazar(const QModelIndex& celda, const QString& texto, const Error& error);
  void buscarDesde(const QString& texto, ModeloParrilla::Busca como,
                   const std::vector<int>& columnas, int desde,
                   std::function<void(int)> alAcabar = {});
  std::vector<int> columnasVistas() const;  // in the order shown
  void decir(const QString& texto);
  void avisar(Error error);
  QString t(int numero) const { return c->textos(numero); }

  Parrilla& yo;
  Contexto* c = nullptr;
  QString ventana;
  std::vector<Columna> columnas;
  std::optional<int> moneda;
  QHBoxLayout* filtros = nullptr;
  QWidget* arriba = nullptr;
  QLineEdit* busca = nullptr;
  Pie* pie = nullptr;
  QLabel* cuenta = nullptr;
  QLabel* aviso = nullptr;
  QLabel* rotulo = nullptr;  // the letters typed, and what became of them
  QWidget* vacia = nullptr;
  QLabel* vaciaTexto = nullptr;
  QToolButton* vaciaBoton = nullptr;
  QPointer<QAction> remedio;  // the action of that button
  TiraTrabajo* trabajo = nullptr;
  QList<QAction*> acciones;
  QAction *copiar = nullptr, *todo = nullptr, *refrescar = nullptr, *elegirColumnas = nullptr,
          *exportar = nullptr, *ordenar = nullptr, *buscarSiguiente = nullptr;
  Guardado guardado;
  Delegado* delegado = nullptr;
  bool escribeAlTeclear = false;
  TodoONada todoONada;
  int escritas = 0;           // cells written so far
  bool rechazado = false;     // a refusal is pending
  bool dichoDeTanda = false;  // the message is of cells written together
  QString tecleado;
  Tecleo tecleo = Tecleo::Nada;
  bool abreAlHallar = false;
  qint64 ultimaTecla = 0;
  bool actualPorDecir = false;  // the current row has changed during a press
  bool conPie = true, conBusca = true, colocando = false;
  bool exportando = false, presentada = false;
  bool elasticas = true;                 // the user has set no width, order or column yet
  std::vector<int> sinSitio;             // columns hidden for lack of space
  std::unique_ptr<Temporizador> sumar;   // delays the sums until the list is at rest
  std::unique_ptr<Temporizador> callar;  // clears the message
  std::unique_ptr<Temporizador> ocultarRotulo;
};

}  // namespace tarvo::ventanas
