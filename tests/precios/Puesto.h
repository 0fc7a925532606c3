// A shop of one section: articles 10, 11 and 12, groups 1 and 2 of scales and 3 of registers that
// hold them as they stand here, warehouses 1 and 2.
#pragma once

#include "articles/Catalogo.h"
#include "articles/TablasArticulos.h"
#include "articles/precios/AjustesPrecios.h"
#include "core/ajustes/Ajustes.h"
#include "stock/BaseVacia.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::prueba {

inline Fecha momento(const char* texto) {
  return *Fecha::leer(QString::fromUtf8(texto));
}

struct Puesto : BaseVacia {
  Puesto() {
    bien(articles::asegurarTablasArticulos(*db));
    sql(QStringLiteral("insert into SECCS (NMSECC, NOMSEC, IVAs) values (1, 'Carne', '4@10@21')"));
    for (const auto& [depto, iva] : {std::pair{1, 2}, {2, 9}})
      sql(QStringLiteral("insert into DEPTS (SECCION, NUMDEP, NomDep, IVA) values (1, ?, 'D', ?)"),
          depto, iva);
    for (const int codigo : {10, 11, 12})
      sql(QStringLiteral("insert into PLUSES (SECCION, CODPLU, NOMPLU, DEPTO, PRECIO_00, COSTE) "
                         "values (1, ?, ?, 1, ?, 500)"),
          codigo, QStringLiteral("Articulo %1").arg(codigo), codigo * 100);
    for (const auto& [almacen, nombre] : {std::pair{1, "Tienda"}, {2, "Camara"}})
      sql(QStringLiteral("insert into ALMACEN (CODALM, NOMALM) values (?, ?)"), almacen,
          QString::fromLatin1(nombre));
    for (const auto& [grupo, tipo] : {std::pair{1, 1}, {2, 4}, {3, 3}}) {
      sql(QStringLiteral("insert into GRUPOS (CODGPO, NOMGPO, SECCION, Almacen, TIPO) values (?, "
                         "'G', 1, 1, ?)"),
          grupo, tipo);
      if (tipo == 3) continue;
      for (const int codigo : {10, 11, 12})
        sql(QStringLiteral("insert into [Cross] (Secc, plu, Grupo) values (1, ?, ?)"), codigo,
            grupo);
    }
  }
  // The groups that hold the article as it stands here.
  QString loTienen(int codigo) {
    return leer(QStringLiteral("select Grupo from [Cross] where borra=0 and plu=%1 order by Grupo")
                    .arg(codigo));
  }

  RelojVirtual reloj{momento("05/06/2018 22:15:00")};
  Ajustes ajustes{carpeta.path(), Idioma::Espanol, {precios::ajustesPrecios()}};
  articles::Catalogo catalogo{*db, textosDePrueba(), reloj, QStringLiteral("Ana")};
};

}  // namespace tarvo::prueba
