#include "app/Aplicacion.h"

#include "comm/enlace/FabricaReal.h"
#include "comm/tareas/Registro.h"

namespace tarvo::app {

// In the order of the start; what stands below rests on what stands above, and goes first.
struct Aplicacion::Interior {
  Interior(Fondo& fondo, Reloj& reloj, automation::Preguntas& preguntas)
      : db(*fondo.db),
        almacenes(db, reloj),
        sesion(db, fondo.ajustes, reloj),
        periodos(db, fondo.ajustes, almacenes),
        cerrSes(sesion, periodos),
        verTot(periodos, db, fondo.ajustes),
        xporTot(db, periodos, fondo.ajustes),
        registro(tareas::registro()),
        fabrica(reloj, fondo.ajustes),
        azar(static_cast<quint64>(reloj.monotono())),
        enlaces(reloj, fondo.ajustes, fabrica, azar),
        gestcomm({db, fondo.ajustes, reloj, sesion}, enlaces, registro),
        lenguaje(registro, fondo.ajustes),
        automat({db, fondo.ajustes, reloj, sesion, gestcomm, registro, cerrSes, verTot, xporTot},
                preguntas),
        cronos(automat, lenguaje, fondo.ajustes, reloj) {}

  dao::Database& db;
  stock::Almacenes almacenes;
  totals::Sesion sesion;
  totals::Periodos periodos;
  totals::CerrSes cerrSes;
  totals::VerTot verTot;
  totals::XporTot xporTot;
  motor::RegistroTareas registro;
  enlace::FabricaReal fabrica;
  Azar azar;
  enlace::Enlaces enlaces;
  motor::gestcomm gestcomm;
  automation::Lenguaje lenguaje;
  automation::Automat automat;
  automation::Cronos cronos;
};

Aplicacion::Aplicacion(Fondo& fondo, Reloj& reloj, automation::Preguntas& preguntas)
    : d(std::make_unique<Interior>(fondo, reloj, preguntas)) {}

Aplicacion::~Aplicacion() = default;

Resultado<> Aplicacion::empezar() {
  TARVO_INTENTAR(d->almacenes.asegurar());
  TARVO_INTENTAR(tareas::asegurarTablasTareas(d->db));
  return d->sesion.cargar();
}

automation::Automat& Aplicacion::automat() {
  return d->automat;
}
automation::Cronos& Aplicacion::cronos() {
  return d->cronos;
}
const automation::Lenguaje& Aplicacion::lenguaje() const {
  return d->lenguaje;
}

}  // namespace tarvo::app
