// A shop with a database, for the tests of periods and files: groups 1 and 2 of section 3 in
// warehouse 1, hours 08:00 to 20:00, articles 1000001 by weight and 7 by unit.
#pragma once

#include <QFile>

#include "core/tiempo/Reloj.h"
#include "textos/TextosDePrueba.h"
#include "tienda/TiendaVacia.h"
#include "totals/intercambio/XporTot.h"
#include "totals/periodos/AjustesPeriodos.h"
#include "totals/periodos/TablasTotales.h"
#include "totals/periodos/VerTot.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

// What another program left in a file before.
inline const QByteArray kAntes =
    "*antes-4 junio 2018\r\n*04/06/2018 00:00:00  04/06/2018 23:59:59\r\n";

struct TiendaDeTotales : TiendaVacia {
  Ajustes ajustes{carpeta.path(), Idioma::Espanol, {totals::ajustesPeriodos()}};
  RelojVirtual reloj{momento("05/06/2018 22:15:00")};
  stock::Almacenes almacenes{*db, reloj, textosDePrueba()};
  totals::Periodos periodos{*db, ajustes, almacenes, textosDePrueba()};
  totals::VerTot verTot{periodos};
  totals::XporTot xporTot{periodos};
  totals::ImpTot impTot{periodos};

  TiendaDeTotales() {
    bien(totals::asegurarTablasTotales(*db));
    bien(totals::asegurarTablasTotales(*db));  // repeating it does no harm
    seccion(3).almacen(1);
    articulo({.codigo = 1000001, .cada = 0}).articulo({.codigo = 7, .cada = 2});
    for (const int g : {1, 2}) grupo({.codigo = g, .almacen = 1});
  }
  qint64 crear(int tipo, const char* desde, const char* hasta = nullptr, bool stockable = true) {
    return bien(periodos.CrearPeriodo(tipo, momento(desde), momento(hasta ? hasta : desde),
                                      stockable, u"Semana, santa"_s));
  }
  QByteArray fichero(const QString& nombre) {
    QFile f(ruta(nombre));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(nada)");
  }
  void escribir(const QString& nombre, const QByteArray& bytes) {
    QFile f(ruta(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }
  totals::Columna col(qint64 link) { return *bien(periodos.columna(link)); }
  // A row of articles with counters n, 10n, 100n, 1000n.
  void plu(qint64 link, int codigo, int n, int grupo = 1) {
    total(u"TOTPLU", {link, grupo, codigo, n, 10 * n, 100 * n, 1000 * n});
  }
  void operHora(qint64 link, int oper, int hora, int n) {
    total(u"TOTOPHOR",
          {.link = link, .codi = oper, .con = n, .pes = 0, .imp = n, .sco = 0, .hora = hora});
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
    return leer(
        u"select GRUPO, CODI, CON, PES, [IMP], SCO from TOTPLU where LINK=%1 "
        "order by GRUPO, CODI"_s.arg(link));
  }
  QString venta() { return leer(u"select CODIGO, Venta from MovsAlm order by CODIGO"_s); }
};

}  // namespace tarvo::prueba
