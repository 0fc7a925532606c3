// Which rows of a table get the bar codes they ask for. What counts is the state after all rows are
// imported: two rows may swap theirs.
#pragma once

#include <QHash>
#include <map>
#include <set>

#include "articles/Articulo.h"
#include "core/dao/Database.h"

namespace tarvo::importar {

class RepartoCodigos {
 public:
  // Row `fila` gives an article a new bar code. Returns the article of an earlier row asking for
  // the same one, if any: then this one gets nothing.
  Resultado<std::optional<qint64>> pedir(dao::Database& db, int fila, articles::ClaveArticulo clave,
                                         const std::optional<QString>& tiene,
                                         const QString& quiere);
  struct Negado {
    int fila = 0;
    QString codigo;
    qint64 dueno = 0;  // its holder
  };
  // After the last row: those that don't get theirs.
  std::vector<Negado> negados();
  // After negados(): rows that can only be written together.
  std::set<int> juntas() const;
  // The earlier bar code of the article of an asking row.
  const std::optional<QString>& tenia(int fila) const { return peticiones_.at(fila).tiene; }

 private:
  struct Peticion {
    articles::ClaveArticulo clave;
    std::optional<QString> tiene;
    QString quiere;
    qint64 dueno = 0;  // another article that has it now
    bool negada = false;
  };
  Resultado<> leer(dao::Database& db, int seccion);
  const int* filaDe(articles::ClaveArticulo clave) const;

  std::map<int, Peticion> peticiones_;  // by row
  std::map<articles::ClaveArticulo, int> filas_;
  std::map<std::pair<int, QString>, int> quien_;  // by section and code: the row that asks
  std::map<int, QHash<QString, qint64>> ahora_;   // by section: code, article
};

}  // namespace tarvo::importar
