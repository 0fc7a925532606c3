// The grid of every list. Made by code, or as a promoted QWidget of a form; `preparar` gives it its
// columns, and then either `abrir` a query or use `vivas`.
//
//   parrilla->preparar(contexto(), u"VerTot"_s, {{.titulo = kTxFecha, .campo = u"FECHA1"_s, .clase
//   = Clase::Fecha}, ...}); haIdoBien(parrilla->abrir({.desde = u"COLUMNA"_s, .clave = u"LINK"_s,
//   .orden = u"FECHA1"_s}));
//
// From the keyboard: arrows, Page Up and Down, Home and End; letters jump to the next row that
// begins so in the current column; Ctrl+F searches, F3 goes on (Shift+F3 where F3 is the window's);
// Ctrl+C copies; Ctrl+A selects all; F5 refreshes; Ctrl+Shift+C chooses columns; Enter is a double
// click; the menu key is the context menu. A cell whose column has `editar` is written into: F2,
// Enter or a double click opens it, Enter and Tab keep what was typed (Tab goes on to the next such
// cell), Escape gives it up. So does a letter that its kind takes: what is typed on a cell that can
// be written begins to write it, elsewhere it searches. Ctrl+V and Ctrl+D write a whole column.
#pragma once

#include <QWidget>
#include <memory>

#include "core/ventanas/marco/Buscable.h"
#include "core/ventanas/parrilla/ModeloSql.h"
#include "core/ventanas/parrilla/ModeloVivo.h"

class QAction;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QTableView;

namespace tarvo::ventanas {

struct Contexto;

class Parrilla final : public QWidget, private Buscable {
  Q_OBJECT
 public:
  explicit Parrilla(QWidget* padre = nullptr);
  ~Parrilla() override;

  // `nombre` is the window's; widths, order and visibility of columns are remembered by it and the
  // grid's object name. Called again it starts over with other columns.
  void preparar(Contexto& contexto, const QString& nombre, std::vector<Columna> columnas);
  // Money of the currency 0 or 1 in place of the preferred one.
  void ponerMoneda(int moneda);

  // --- rows of a query; REQUIRE preparar
  Resultado<> abrir(Origen origen);
  // Other rows of the same query.
  Resultado<> filtrar(const QString& filtro, std::vector<dao::Valor> parametros = {});
  // Reads again; what is selected and the row in view stay, by key. Live lists only repaint.
  Resultado<> refrescar();
  const ModeloSql* consulta() const { return sql_; }

  // --- rows in memory; REQUIRES preparar
  ModeloVivo& vivas();

  // --- what is there and what is chosen. Rows count from 0 in the order shown.
  int filas() const;
  bool contando() const;                   // filas() still grows
  int filaActual() const;                  // -1 when there is none
  std::vector<int> filasElegidas() const;  // ascending
  // The rows chosen, else the current row; it is chosen first when none was.
  std::vector<int> filasParaActuar();
  ModeloParrilla::Clave clave(int fila) const;
  dao::Valor valor(int fila, QStringView campo) const;  // Null for an unknown column
  QString texto(int fila, QStringView campo) const;     // as it is shown
  int filaDe(ModeloParrilla::Clave clave) const;        // -1; counts on to find it
  void irA(int fila);                                   // makes it the current one, in view
  void elegir(const std::vector<ModeloParrilla::Clave>& claves, bool anadir = false);
  void limpiarSeleccion();
  void ponerUnaSola(bool unaSola);  // one row at most
  // Lets a sheet of numbers be filled quickly: Enter only activates the row.
  void ponerEscribeAlTeclear(bool si);
  // Into the column of the current cell, as if each text were typed: the lines of the clipboard
  // from this row on (Ctrl+V); what stands in it, into the rows chosen below (Ctrl+D). It ends at
  // the first that is refused.
  void pegar();
  void rellenar();
  // Opens the current cell, or its row's first that can be written into. False when there is none.
  bool editarCelda();
  bool editando() const;

  // --- looks
  void ponerVacia(const QString& texto, QAction* remedio = nullptr);  // what to do when it is empty
  void ponerPie(bool conPie);      // counts and sums; on from the start
  void ponerBusca(bool conBusca);  // the search field, above on the right; on from the start
  QHBoxLayout* filtros() const;    // above on the left: where a window puts its filters
  // Into the context menu, in front of the grid's own; they are the window's to enable.
  void ponerAcciones(const QList<QAction*>& acciones);
  // Orders by a column as a click on its header does; -1 takes the order away.
  Resultado<> ordenar(int columna, Qt::SortOrder sentido);

  // --- what the grid does by itself
  void irABuscar() override;          // the focus goes to the search field
  void buscar(const QString& texto);  // from the row after the current one, round the end
  void copiar();
  void elegirColumnas();
  void exportar();                       // asks for the file
  void exportarEn(const QString& ruta);  // ".csv" or ".xlsx", by its ending

  QTableView* vista() const { return vista_; }
  ModeloParrilla* modelo() const;
  QLineEdit* campoBusca() const;
  QLabel* pie() const;        // rows, rows chosen
  QStringList sumas() const;  // texts of the totals line, by column
  bool trabajando() const;    // a search or an export is under way

 Q_SIGNALS:
  void activada(int fila);              // Enter or double click
  void actualCambiada(int fila);        // -1 for none
  void editada(int fila, int columna);  // a cell was written
  // In front of that: the cell, and what stood in it.
  void celdaEscrita(qint64 clave, int columna, const QString& antes);
  void escrita(int fila);  // the same by Enter, which ends it
  void vanVarias();        // many cells are about to be written
  void variasEscritas(int cuantas);
  void dejada();  // a cell in edit was closed, written or given up
  void seleccionCambiada();
  void fallo(const tarvo::Error& error);  // of work that the person began on the grid itself
  void resuelto();  // after the refusal of a cell: another was written, or it was given up
  void exportado(const QString& ruta);

 private:
  struct Interior;
  void recordar();
  QWidget& control() override { return *this; }
  bool seBusca() const override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  void showEvent(QShowEvent* evento) override;

  std::unique_ptr<Interior> d;
  QTableView* vista_;
  ModeloSql* sql_ = nullptr;
  ModeloVivo* vivo_ = nullptr;
};

}  // namespace tarvo::ventanas
