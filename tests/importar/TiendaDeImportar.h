// A shop with two sections, and files beside it, for the tests of imports.
#pragma once

#include <QFile>

#include "lotes/TiendaDeLotes.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using prueba::bien;

struct TiendaDeImportar : testing::Test, prueba::TiendaDeLotes {
  TiendaDeImportar() {
    seccion(2, u"DOS"_s).seccion(1, u"UNA"_s);
    departamento(1, u"Fruta"_s).departamento(2, u"Carnicería"_s).grupo({.codigo = 7});
    articulo({.codigo = 1, .nombre = u"VENTA LIBRE", .cada = 0});
  }

  QString fichero(const QByteArray& bytes, const QString& nombre = u"F.PLU"_s) {
    QFile f(ruta(nombre));
    EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
    return f.fileName();
  }
  QString articulos(const QString& columnas = u"NOMPLU, PRECIO_00"_s) {
    return leer(
        u"SELECT SECCION, CODPLU, %1 FROM PLUSES WHERE CODPLU>2 ORDER BY 1, 2"_s.arg(columnas));
  }
};

}  // namespace tarvo::importar
