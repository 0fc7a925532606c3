// The grid used for every list. Created in code, or as a promoted QWidget of a form; `preparar`
// sets its columns; then either `abrir` runs a query, or `vivas` gives the rows in memory.
//
//    parrilla->preparar(contexto(), u"VerTot"_s,
//                       {{.titulo = kTxFecha, .campo = u"FECHA1"_s, .clase = Clase::Fecha}, ...});
//    haIdoBien(parrilla->abrir(listaPeriodos(kDiario)));  // of the room's engines
//
// From the keyboard: arrows, Page Up and Down, Home and End; letters move to the next row that
// begins with them in the current column; Ctrl+Shift+O sorts by it; Ctrl+F searches, F3 finds the
// next match (Shift+F3 if the window uses F3); Ctrl+C copies; Ctrl+A selects all; F5 refreshes;
// Ctrl+Shift+C chooses columns; Ctrl+Shift+S saves the list in a file; Enter is a double click; the
// menu key opens the context menu. A cell whose column has `editar` is editable: F2, Enter or a
// double click opens its editor, Enter and Tab store the text (Tab moves on to the next editable
// cell), Escape discards it. A character accepted by its kind opens the editor too: typing on an
// editable cell edits it, elsewhere it searches, and what it searches is shown over the rows.
// Letters that are neither written nor found are reported, and a Return after them opens no row.
// Ctrl+V and Ctrl+D write several cells of a column.
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

  // `nombre` is the window's; widths, order and visibility of columns are remembered under it and
  // the grid's object name. A further call starts again with other columns.
  void preparar(Contexto& contexto, const QString& nombre, std::vector<Columna> columnas);
  // Shows money in the currency 0 or 1 instead of the preferred one.
  void ponerMoneda(int moneda);

  // --- rows of a query; REQUIRE preparar
  Resultado<> abrir(dao::Origen origen);
  // Other rows of the same query.
  Resultado<> filtrar(const QString& filtro, std::vector<dao::Valor> parametros = {});
  // Reads the rows again; the selection and the row in view stay, by key. Live lists are only
  // repainted.
  Resultado<> refrescar();
  const ModeloSql* consulta() const { return sql_; }

  // --- rows in memory; REQUIRES preparar
  ModeloVivo& vivas();

  // --- rows, current row and selection; rows count from 0 in the order shown
  int filas() const;
  bool contando() const;                   // filas() is still growing
  int filaActual() const;                  // -1 if none
  std::vector<int> filasElegidas() const;  // ascending
  // The selected rows, else the current row, which is then selected.
  std::vector<int> filasParaActuar();
  ModeloParrilla::Clave clave(int fila) const;
  dao::Valor valor(int fila, QStringView campo) const;  // Null for an unknown column
  QString texto(int fila, QStringView campo) const;     // as shown
  int filaDe(ModeloParrilla::Clave clave) const;        // -1 if none; reads on to find it
  void irA(int fila);                                   // makes it current and scrolls to it
  // Selects those rows; the first of them becomes the current one, unless that is among them or
  // they are added to the selection.
  void elegir(const std::vector<ModeloParrilla::Clave>& claves, bool anadir = false);
  void limpiarSeleccion();
  void ponerUnaSola(bool unaSola);  // at most one row
  // For filling a sheet of numbers quickly: Enter only activates the row.
  void ponerEscribeAlTeclear(bool si);
  // Enter after a cell goes to the one below, so that what is typed next doesn't replace it.
  void bajarTrasIntro();
  // Write into the column of the current cell, as if each text were typed: the lines of the
  // clipboard from this row down (Ctrl+V); the contents of the first selected cell into the other
  // selected rows (Ctrl+D). All of them or, if one is refused, none: then fallo() names the refused
  // lines.
  void pegar();
  void rellenar();
  // What makes many cells one: the engine's own all or nothing. Without it what was written is
  // written back.
  using TodoONada = std::function<Resultado<>(const std::function<Resultado<>()>& hacer)>;
  void ponerTodoONada(TodoONada como);
  // Moves along the current row to its first editable cell, if it has one.
  void irALoEditable();
  // Opens the current cell, or the first editable one of its row. False if there is none.
  bool editarCelda();
  bool editando() const;
  // Writes the cell being edited, if there is one, and closes its editor. False if its text is
  // refused: the editor stays open, and the failure is reported.
  bool acabarCelda();

  // --- appearance
  void ponerVacia(const QString& texto, QAction* remedio = nullptr);  // hint for an empty list
  void ponerPie(bool conPie);      // counts, sums and messages; without it messages cover the rows
  void ponerBusca(bool conBusca);  // the search field, top right; visible by default
  QHBoxLayout* filtros() const;    // top left: the place for a window's filters
  // Adds actions to the context menu, before the grid's own; the window enables and disables them.
  void ponerAcciones(const QList<QAction*>& acciones);
  // Sorts by a column, as a click on its header does; -1 restores the original order.
  Resultado<> ordenar(int columna, Qt::SortOrder sentido);

  // --- commands of the grid itself
  void irABuscar() override;          // moves to the search field
  void buscar(const QString& texto);  // from the row after the current one, wrapping round the end
  void copiar();
  void elegirColumnas();
  void exportar();                       // asks for the file
  void exportarEn(const QString& ruta);  // ".csv" or ".xlsx", by its extension

  QTableView* vista() const { return vista_; }
  ModeloParrilla* modelo() const;
  QLineEdit* campoBusca() const;
  QLabel* pie() const;        // number of rows and of selected rows
  QStringList sumas() const;  // texts of the totals line, by column
  bool trabajando() const;    // a search or an export is under way

 Q_SIGNALS:
  void activada(int fila);              // Enter or double click
  void actualCambiada(int fila);        // -1 if none
  void editada(int fila, int columna);  // a cell was written
  // Emitted before editada, with the cell and its former contents.
  void celdaEscrita(qint64 clave, int columna, const QString& antes);
  void escrita(int fila);  // the same with Enter, which ends the editing
  void vanVarias();        // many cells are about to be written
  void variasEscritas(int cuantas);
  void variasDejadas();  // none of them was written after all
  void dejada();         // a cell editor was closed, after writing or not
  void seleccionCambiada();
  void fallo(const tarvo::Error& error);  // of work begun by the user on the grid itself
  void resuelto();  // after a refused cell: another was written, or it was discarded
  // What was typed on a cell went nowhere, and why; empty when something else was begun.
  void pista(const QString& texto);
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
