// A shop with two sections, and files beside it, for the tests of imports.
#pragma once

#include <QFile>

#include "articles/Lotes.h"
#include "articles/TablasArticulos.h"
#include "stock/BaseVacia.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using prueba::bien;

struct Tienda : testing::Test, prueba::BaseVacia {
  RelojVirtual reloj{Fecha::de(QDate(2026, 3, 2), QTime(9, 0))};
  articles::Catalogo catalogo{*db, textosDePrueba(), reloj, u"Ana"_s};
  articles::Lotes lotes{*db, catalogo, reloj};

  void SetUp() override {
    bien(articles::asegurarTablasArticulos(*db));
    sql(u"DELETE FROM SECCS"_s);
    sql(u"INSERT INTO SECCS (NMSECC, NOMSEC) VALUES (1, 'UNA'), (2, 'DOS')"_s);
    sql(u"INSERT INTO DEPTS (SECCION, NUMDEP, NomDep) VALUES (1, 1, 'Fruta'), (1, 2, 'Carnicería')"_s);
    sql(u"INSERT INTO GRUPOS (CODGPO, TIPO, SECCION) VALUES (7, 1, 1)"_s);
    sql(u"INSERT INTO PLUSES (SECCION, CODPLU, NOMPLU, CADA) VALUES (1, 1, 'VENTA LIBRE', 0)"_s);
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
