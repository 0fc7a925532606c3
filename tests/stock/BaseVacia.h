// An empty database in a temporary folder, for the tests of rooms that use the store.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <memory>

#include "core/dao/Database.h"
#include "core/esquema/Esquema.h"

namespace tarvo::prueba {

// The value of a result that must be good.
template <class T>
T bien(Resultado<T> r) {
  EXPECT_TRUE(r.has_value()) << (r ? "" : r.error().texto.toStdString());
  if constexpr (!std::is_void_v<T>) return r ? std::move(*r) : T{};
}

struct BaseVacia {
  QTemporaryDir carpeta;
  std::unique_ptr<dao::Database> db = abrir();

  QString ruta(const QString& nombre) const { return carpeta.filePath(nombre); }
  template <class... P>
  void sql(const QString& texto, const P&... p) {
    const auto r = db->ejecutar(texto, p...);
    EXPECT_TRUE(r) << texto.toStdString() << ": " << (r ? "" : r.error().texto.toStdString());
  }
  // All values of a query, rows separated by " | " and columns by a blank.
  QString leer(const QString& texto) {
    auto rs = db->consultar(texto);
    EXPECT_TRUE(rs) << texto.toStdString() << ": " << (rs ? "" : rs.error().texto.toStdString());
    QStringList filas;
    while (rs && !(*rs)->Eof()) {
      QStringList fila;
      for (int i = 0; i < (*rs)->numColumnas(); ++i)
        fila << ((*rs)->nulo(i) ? QStringLiteral("-") : (*rs)->texto(i));
      filas << fila.join(u' ');
      if (!(*rs)->MoveNext()) break;
    }
    return filas.join(u" | ");
  }

 private:
  std::unique_ptr<dao::Database> abrir() {
    dao::Apertura como;
    como.crear = true;
    auto d = bien(dao::Database::OpenDatabase(carpeta.filePath(QStringLiteral("TARVO.MDB")), como));
    bien(esquema::crearEsquema(*d));
    return d;
  }
};

}  // namespace tarvo::prueba
