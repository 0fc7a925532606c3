// The numbered string table and the helpers that fill its texts. One file for each language,
// datos/textos/es.txt..., "number TAB text TAB name". How numbers are grouped: docs/textos.md.
#pragma once

#include <QString>
#include <QStringView>
#include <concepts>
#include <initializer_list>
#include <optional>
#include <unordered_map>

#include "core/dao/Database.h"
#include "core/valores/Resultado.h"

namespace tarvo {

// The filling of a mark: words, or a number in decimal.
class Dato {
 public:
  Dato(const QString& texto) : texto_(texto) {}
  Dato(QStringView texto) : texto_(texto.toString()) {}
  Dato(std::integral auto numero) : texto_(QString::number(numero)) {}
  const QString& texto() const { return texto_; }

 private:
  QString texto_;
};

class Textos {
 public:
  // Reads the table from a file. An unreadable file, or a line that is no entry, is an error that
  // names it.
  static Resultado<Textos> leer(const QString& ruta);
  // The text of a number, after the apostrophe rule: one apostrophe at the very end is dropped.
  // Empty if there is none.
  QString operator()(int numero) const;
  // The text of a number with "%1" to "%9" filled from `datos`, all at once: marks within the data
  // stay, and so does a mark without its datum.
  QString operator()(int numero, std::initializer_list<Dato> datos) const;
  bool tiene(int numero) const;

 private:
  QString contenido_;  // of the file, never changed: the views are of its letters
  std::unordered_map<int, QStringView> tabla_;
};

// "#" becomes the number; "+es", "+s", "+n" stay as "es", "s", "n" if n is 2 or more, else vanish.
QString Plural(QString texto, int n);
// Replaces every occurrence, left to right, continuing after each replacement.
void CambiaTexto(const QString& busca, const QString& pone, QString& texto);
// Number of the week of a date, 1 for the week with the first Sunday of the year.
int Semana(Fecha fecha);
// "#Gn" the name of group n, "#Sn" of section n, "#D" day, "#M" month, "#A" year, "#H" week of
// `fecha`. A code without a row, or without digits, gives nothing.
QString ExpandirNombre(const QString& texto, Fecha fecha, dao::Database& db);
QString NombreFichero(const QString& ruta);  // the part after the last "\" or "/"
QString Ceros(qint64 n, int ancho);          // zeros on the left; the sign precedes them
QString siNo(bool valor, bool espanol);      // "Sí"/"No", "Yes"/"No"
// Exactly the yes or the no word; nothing for any other. "Si" without its accent is read too.
std::optional<bool> leerSiNo(QStringView texto, bool espanol);

}  // namespace tarvo
