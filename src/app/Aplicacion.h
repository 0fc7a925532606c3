// The one place where objects are made and joined, in the order of the start. It owns them all;
// nothing of the program is global, so two applications can live in one process.
#pragma once

#include <memory>

#include "app/Carpeta.h"
#include "articles/Catalogo.h"
#include "automation/Cronos.h"
#include "comm/cables/LinkSocket.h"
#include "comm/motor/gestcomm.h"
#include "core/textos/Textos.h"
#include "stock/Almacenes.h"
#include "totals/intercambio/XporTot.h"
#include "totals/libros/CerrSes.h"
#include "totals/libros/Sesion.h"
#include "totals/periodos/Periodos.h"
#include "totals/periodos/VerTot.h"

namespace tarvo::app {

// What every use of the program needs: its folder, texts, settings and database.
class Fondo {
 public:
  // Takes the folder, reads the settings, opens the database (made from nothing in a new folder)
  // and brings it to this version. The error's text is a whole sentence for the user. REQUIRES that
  // the texts outlive it.
  static Resultado<std::unique_ptr<Fondo>> abrir(const QString& carpeta, Idioma idioma,
                                                 const Textos& textos, Reloj& reloj);
  const Textos& textos;
  Ajustes ajustes;
  std::unique_ptr<dao::Database> db;

 private:
  Fondo(Cerrojo cerrojo, const QString& carpeta, Idioma idioma, const Textos& textos, Fecha ahora);
  Cerrojo cerrojo_;
};

class Aplicacion {
 public:
  // REQUIRES that all references outlive it.
  // `semilla` draws the first numbers of the links.
  Aplicacion(Fondo& fondo, Reloj& reloj, enlace::FabricaEnlaces& fabrica, quint64 semilla,
             automation::Preguntas& preguntas);
  ~Aplicacion();
  // What the first use of a database must find: warehouses, the session.
  Resultado<> empezar();

  automation::Automat& automat();
  automation::Cronos& cronos();
  const automation::Lenguaje& lenguaje() const;
  motor::gestcomm& gestcomm();
  enlace::Enlaces& enlaces();
  const motor::RegistroTareas& registro() const;
  articles::Catalogo& catalogo();
  stock::Almacenes& almacenes();
  totals::Sesion& sesion();
  totals::Periodos& periodos();
  totals::CerrSes& cerrSes();
  totals::VerTot& verTot();
  totals::XporTot& xporTot();

 private:
  struct Interior;
  std::unique_ptr<Interior> d;
};

}  // namespace tarvo::app
