// Every window that the program registers, over a shop with a row of each kind.
#pragma once

#include "MesaPrincipal.h"

namespace tarvo::prueba {

struct TodasLasVentanas : MesaPrincipal {
  TodasLasVentanas() : MesaPrincipal(QStringList()) {
    app::registrarVentanas(todas(), aplicacion);
    seccion(1).departamento(1).almacen(1);
    articulo({.codigo = 7, .nombre = u"Tomate", .depto = 1, .precio = 150});
    grupo({.codigo = 2, .almacen = 1, .remoto = 4, .acceso = u"uno"});
    operador(1);
    periodo({.link = 1, .desde = momento("05/06/2018"), .hasta = momento("05/06/2018 23:59:59")});
    periodo({.link = 2, .desde = momento("06/06/2018"), .hasta = momento("06/06/2018 23:59:59")});
    for (const int link : {1, 2}) total(u"TOTGRT", {.link = link, .codi = 1, .con = 3, .imp = 450});
  }
  // Boxes that open with a window are closed, as nobody is there.
  ventanas::Ventana* abrir(const QString& nombre) {
    QTimer vigia;
    QObject::connect(&vigia, &QTimer::timeout, [] {
      if (QWidget* caja = QApplication::activeModalWidget()) caja->close();
    });
    vigia.start(10);
    ventanas::Ventana* v = todas().abrir(nombre);
    QCoreApplication::processEvents();
    return v;
  }
  void cerrar(ventanas::Ventana& v) {
    QTimer vigia;
    QObject::connect(&vigia, &QTimer::timeout, [] {
      QWidget* caja = QApplication::activeModalWidget();
      if (auto* b = caja ? caja->findChild<QPushButton*>(u"Acepto"_s) : nullptr) b->click();
    });
    vigia.start(10);
    v.descargar();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
};

}  // namespace tarvo::prueba
