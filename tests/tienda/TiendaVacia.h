// An empty shop in a temporary folder: the tables shared by the rooms, and those named.
#pragma once

#include <QTemporaryDir>
#include <memory>

#include "core/dao/Pasos.h"
#include "core/esquema/Esquema.h"
#include "tienda/Tienda.h"

namespace tarvo::prueba {

struct TiendaVacia : Tienda {
  explicit TiendaVacia(std::vector<dao::TablasDeSala> salas = {}) {
    salas.insert(salas.begin(), esquema::tablasComunes());
    bien(dao::darPasos(*db, salas));
  }
  QString ruta(const QString& nombre) const { return carpeta.filePath(nombre); }

  QTemporaryDir carpeta;
  std::unique_ptr<dao::Database> db =
      bien(dao::Database::OpenDatabase(ruta(QStringLiteral("TARVO.MDB")), {.crear = true}));

 protected:
  dao::Database& base() override { return *db; }
};

}  // namespace tarvo::prueba
