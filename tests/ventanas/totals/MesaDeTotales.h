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

// What a label showed, each time that it was painted.
struct Pintados final : QObject {
  explicit Pintados(QLabel& rotulo) { rotulo.installEventFilter(this); }
  bool eventFilter(QObject* que, QEvent* evento) override {
    const QString texto = static_cast<QLabel*>(que)->text();
    if (evento->type() == QEvent::Paint && (textos.isEmpty() || textos.back() != texto))
      textos << texto;
    return false;
  }
  QStringList textos;
};

struct MesaDeTotales : Mesa {
  MesaDeTotales() : Mesa({}, {totals::ajustesSesion(), totals::ajustesPeriodos()}) {
    bien(esquema::ponerAlDia(*db, momento("01/01/2018")));
    bien(totals::asegurarTablasLibros(*db));
    bien(totals::asegurarTablasTotales(*db));
    bien(totals::asegurarTablasTotales(*db));
    seccion(3).almacen(1).departamento(1, u"Ternera").operador(5, u"Ana");
    for (const int g : {1, 2})
      grupo({.codigo = g, .nombre = u"Mostrador %1"_s.arg(g), .almacen = 1});
    for (int i = 1; i <= 30; ++i)
      articulo({.codigo = i, .nombre = u"Artículo %1"_s.arg(i), .cada = 0});
    bien(sesion.cargar());
    totals::registrarVentanasTotales(escritorio.ventanas(), sesion, periodos);
  }

  // A day with sales of all kinds: 30 articles from 1 euro up, in both groups.
  qint64 dia(const char* fecha, int factor = 1) {
    const qint64 link =
        bien(periodos.CrearPeriodo(totals::kDiario, momento(fecha), momento(fecha), true, {}));
    for (const int g : {1, 2}) {
      for (int i = 1; i <= 30; ++i) total(u"TOTPLU", {link, g, i, 1, 500, 100 * i * factor, 0});
      total(u"TOTGRT", {link, g, g, 30, 15000, 46500 * factor, 0});
      for (int h = 9; h < 14; ++h) total(u"TOTHOR", {link, g, h, 6, 3000, 9300 * factor, 0});
    }
    return link;
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
