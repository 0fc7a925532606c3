// A shop with a database, for the tests of periods and files: groups 1 and 2 of section 3 in
// warehouse 1, hours 08:00 to 20:00, articles 1000001 by weight and 7 by unit.
#pragma once

#include "core/tiempo/Reloj.h"
#include "stock/BaseVacia.h"
#include "textos/TextosDePrueba.h"
#include "totals/intercambio/XporTot.h"
#include "totals/periodos/AjustesPeriodos.h"
#include "totals/periodos/TablasTotales.h"
#include "totals/periodos/VerTot.h"

namespace tarvo::prueba {

inline Fecha momento(const char* texto) {
  return *Fecha::leer(QString::fromUtf8(texto));
}

struct Tienda : BaseVacia {
  Ajustes ajustes{carpeta.path(), Idioma::Espanol, {totals::ajustesPeriodos()}};
  RelojVirtual reloj{momento("05/06/2018 22:15:00")};
  stock::Almacenes almacenes{*db, reloj, textosDePrueba()};
  totals::Periodos periodos{*db, ajustes, almacenes, textosDePrueba()};
  totals::VerTot verTot{periodos, *db, ajustes};
  totals::XporTot xporTot{*db, periodos, ajustes};
  totals::ImpTot impTot{*db, periodos, ajustes};

  Tienda() {
    bien(totals::asegurarTablasTotales(*db));
    bien(totals::asegurarTablasTotales(*db));  // again does no harm
    sql(QStringLiteral("insert into SECCS (NMSECC, NOMSEC) values (3, 'Carne')"));
    sql(QStringLiteral("insert into PLUSES (SECCION, CODPLU, CADA) values (3, 1000001, 0)"));
    sql(QStringLiteral("insert into PLUSES (SECCION, CODPLU, CADA) values (3, 7, 2)"));
    sql(QStringLiteral("insert into ALMACEN (CODALM, NOMALM) values (1, 'Tienda')"));
    for (const int g : {1, 2})
      sql(QStringLiteral("insert into GRUPOS (CODGPO, SECCION, Almacen) values (?, 3, 1)"), g);
  }
  qint64 crear(int tipo, const char* desde, const char* hasta = nullptr, bool stockable = true) {
    return bien(periodos.CrearPeriodo(tipo, momento(desde), momento(hasta ? hasta : desde),
                                      stockable, QStringLiteral("Semana, santa")));
  }
  totals::Columna col(qint64 link) { return *bien(periodos.columna(link)); }
  // A row of articles with counters n, 10n, 100n, 1000n.
  void plu(qint64 link, int codigo, int n, int grupo = 1) {
    sql(QStringLiteral("insert into TOTPLU (LINK, GRUPO, CODI, CON, PES, [IMP], SCO) values (?, ?, "
                       "?, ?, ?, ?, ?)"),
        link, grupo, codigo, n, 10 * n, 100 * n, 1000 * n);
  }
  void operHora(qint64 link, int oper, int hora, int n) {
    sql(QStringLiteral("insert into TOTOPHOR (LINK, GRUPO, CODI, HORA, CON, PES, [IMP], SCO) "
                       "values (?, 1, ?, ?, ?, 0, ?, 0)"),
        link, oper, hora, n, n);
  }
  // The block of a period, or nothing when a value doesn't fit.
  std::optional<QByteArray> bloque(qint64 link) {
    QByteArray todo;
    const auto hecho = xporTot.bloque(col(link), false, [&](const QByteArray& b) -> Resultado<> {
      todo += b;
      return {};
    });
    return hecho ? std::optional(todo) : std::nullopt;
  }
  QString plus(qint64 link) {
    return leer(QStringLiteral("select GRUPO, CODI, CON, PES, [IMP], SCO from TOTPLU where LINK=%1 "
                               "order by GRUPO, CODI")
                    .arg(link));
  }
  QString venta() {
    return leer(QStringLiteral("select CODIGO, Venta from MovsAlm order by CODIGO"));
  }
};

}  // namespace tarvo::prueba
