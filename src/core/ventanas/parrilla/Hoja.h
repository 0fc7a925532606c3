// One sheet of a spreadsheet file, written row by row: numbers and dates as such, formatted as on
// the screen.
#pragma once

#include <QStringList>
#include <map>
#include <vector>

#include "core/valores/Resultado.h"

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace tarvo::ventanas {

class ModeloParrilla;

class Hoja {
 public:
  // Nothing is written before abrir(). Without cerrar() no file is left.
  Hoja(QString ruta, QString nombre);
  ~Hoja();
  Hoja(const Hoja&) = delete;

  // Writes the header row. Formato if there are more rows than a sheet can hold.
  Resultado<> abrir(const ModeloParrilla& modelo, std::vector<int> columnas,
                    const QStringList& titulos);
  Resultado<> fila(int fila);
  Resultado<> cerrar();

 private:
  lxw_format* formato(const QByteArray& como);
  int celda(quint32 linea, int fila, quint16 sitio, int columna);
  Resultado<> comprobar(int codigo) const;

  QString ruta_, parcial_, nombre_;
  const ModeloParrilla* modelo_ = nullptr;
  std::vector<int> columnas_;
  std::map<QByteArray, lxw_format*> formatos_;
  lxw_workbook* libro_ = nullptr;
  lxw_worksheet* hoja_ = nullptr;
};

}  // namespace tarvo::ventanas
