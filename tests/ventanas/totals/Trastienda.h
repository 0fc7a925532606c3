// A shop with periods, groups and a session, and the windows of totals on top of it.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include "core/esquema/Esquema.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/libros/CerrSes.h"
#include "totals/libros/TablasLibros.h"
#include "totals/periodos/AjustesPeriodos.h"
#include "totals/periodos/TablasTotales.h"
#include "totals/ventanas/RegistroTotales.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {

inline Fecha momento(const char* texto) {
  return *Fecha::leer(QString::fromUtf8(texto));
}

struct Trastienda : Mesa {
  Trastienda() : Mesa({}, {totals::ajustesSesion(), totals::ajustesPeriodos()}) {
    bien(esquema::ponerAlDia(*db, momento("01/01/2018")));
    bien(totals::asegurarTablasLibros(*db));
    bien(totals::asegurarTablasTotales(*db));
    bien(totals::asegurarTablasTotales(*db));
    sql(u"insert into SECCS (NMSECC, NOMSEC) values (3, 'Carne')"_s);
    sql(u"insert into ALMACEN (CODALM, NOMALM) values (1, 'Tienda')"_s);
    for (const int g : {1, 2})
      sql(u"insert into GRUPOS (CODGPO, NOMGPO, SECCION, Almacen) values (?, ?, 3, 1)"_s, g,
          u"Mostrador %1"_s.arg(g));
    sql(u"insert into DEPTS (SECCION, NUMDEP, NomDep) values (3, 1, 'Ternera')"_s);
    sql(u"insert into OPERS (CODOPE, NOMOPE) values (5, 'Ana')"_s);
    for (int i = 1; i <= 30; ++i)
      sql(u"insert into PLUSES (SECCION, CODPLU, NOMPLU, CADA) values (3, ?, ?, 0)"_s, i,
          u"Artículo %1"_s.arg(i));
    bien(sesion.cargar());
    totals::registrarVentanasTotales(escritorio.ventanas(), sesion, periodos);
  }

  // A day with sales of all kinds: 30 articles of 1 euro up, in both groups.
  qint64 dia(const char* fecha, int factor = 1) {
    const qint64 link =
        bien(periodos.CrearPeriodo(totals::kDiario, momento(fecha), momento(fecha), true, {}));
    for (const int g : {1, 2}) {
      for (int i = 1; i <= 30; ++i)
        sql(u"insert into TOTPLU (LINK, GRUPO, CODI, CON, PES, [IMP], SCO) values (?, ?, ?, 1, "
            u"500, "
            u"?, 0)"_s,
            link, g, i, 100 * i * factor);
      sql(u"insert into TOTGRT (LINK, GRUPO, CODI, CON, PES, [IMP], SCO) values (?, ?, ?, 30, "
          u"15000, "
          u"?, 0)"_s,
          link, g, g, 46500 * factor);
      for (int h = 9; h < 14; ++h)
        sql(u"insert into TOTHOR (LINK, GRUPO, CODI, CON, PES, [IMP], SCO) values (?, ?, ?, 6, "
            u"3000, "
            u"?, 0)"_s,
            link, g, h, 9300 * factor);
    }
    return link;
  }

  // All values of a query, rows parted by " | ".
  QString leer(const QString& texto) {
    auto rs = bien(db->consultar(texto));
    QStringList filas;
    for (; !rs->Eof(); static_cast<void>(rs->MoveNext())) {
      QStringList fila;
      for (int i = 0; i < rs->numColumnas(); ++i) fila << rs->texto(i);
      filas << fila.join(u' ');
    }
    return filas.join(u" | ");
  }
  qint64 cuenta(const QString& tabla) {
    return bien(db->uno(QString(u"select count(*) from "_s + tabla))).entero();
  }

  static ventanas::Parrilla& lista(QWidget* v) {
    return *v->findChild<ventanas::Parrilla*>(u"Grid"_s);
  }
  static void accion(QWidget* v, const char* nombre) {
    auto* a = v->findChild<QAction*>(QString::fromUtf8(nombre));
    ASSERT_NE(a, nullptr) << nombre;
    a->trigger();
  }

  stock::Almacenes almacenes{*db, reloj, textos};
  totals::Periodos periodos{*db, ajustes, almacenes, textos};
  totals::Sesion sesion{*db, ajustes, reloj, textos};
};

}  // namespace tarvo::prueba
