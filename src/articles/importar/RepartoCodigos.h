// Which rows of a table get the bar codes that they ask for. What counts is how the articles stand
// when all of it is in: two rows may give each other theirs.
#pragma once

#include <QHash>
#include <map>
#include <set>

#include "articles/Articulo.h"
#include "core/dao/Database.h"

namespace tarvo::importar {

class RepartoCodigos {
 public:
  // Row `fila` gives an article another code than the one it has. The article of an earlier row
  // that asks for the same, if there is one: then this one gets nothing.
  Resultado<std::optional<qint64>> pedir(dao::Database& db, int fila, articles::ClaveArticulo clave,
                                         const std::optional<QString>& tiene,
                                         const QString& quiere);
  struct Negado {
    int fila = 0;
    QString codigo;
    qint64 dueno = 0;  // who keeps it
  };
  // After the last row: those that can't have theirs.
  std::vector<Negado> negados();
  // After negados(): rows that can only be written together.
  std::set<int> juntas() const;
  // What the article of a row that asked had.
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
