// The only place where objects are created and connected, in the order of the start. It owns them
// all; nothing is global, so two applications can live in one process.
#pragma once

#include <memory>

#include "app/Carpeta.h"
#include "articles/Catalogo.h"
#include "articles/LotesAMedias.h"
#include "articles/Operadores.h"
#include "articles/precios/Ofertas.h"
#include "automation/Cronos.h"
#include "automation/Resumen.h"
#include "automation/historia/Pendientes.h"
#include "comm/cables/LinkSocket.h"
#include "comm/conexion/Prueba.h"
#include "comm/envios/Grupos.h"
#include "comm/motor/gestcomm.h"
#include "core/textos/Textos.h"
#include "stock/Almacenes.h"
#include "totals/intercambio/XporTot.h"
#include "totals/libros/CerrSes.h"
#include "totals/libros/Sesion.h"
#include "totals/periodos/Periodos.h"
#include "totals/periodos/VerTot.h"

namespace tarvo::app {

// The parts of TARVO.INI that were not understood, a sentence each.
QStringList dudasDe(const Ajustes& ajustes, const Textos& textos);
// The database is not in the program's folder.
bool baseFuera(const Ajustes& ajustes);
// The settings of a folder where a shop has been name a database that isn't there.
bool faltaLaBase(const Ajustes& ajustes);

// What becomes of that. A new folder gets an empty one in any case; here one may have been lost or
// misspelt, and an empty one in its place would hide that.
enum class SiFaltaLaBase { Negarse, Crearla };

// The basis of every use of the program: its folder, texts, settings and database.
class Fondo {
 public:
  // Reads the settings, locks the database, opens it (created in a new folder) and upgrades it to
  // this version. The error's text is a whole sentence for the user; Ocupado: another program has
  // it; NoExiste: it is missing. REQUIRES that the texts outlive it.
  static Resultado<std::unique_ptr<Fondo>> abrir(const QString& carpeta, Idioma idioma,
                                                 const Textos& textos, Reloj& reloj,
                                                 SiFaltaLaBase siFalta = SiFaltaLaBase::Negarse);
  // The current settings of a folder, without touching the database. The same errors.
  static Resultado<Ajustes> leerAjustes(const QString& carpeta, Idioma idioma, const Textos& textos,
                                        Reloj& reloj);

  // A look at the database while another program works on it: nothing can be written. The same
  // errors, except Ocupado.
  struct Vista {
    Ajustes ajustes;
    std::unique_ptr<dao::Database> db;
  };
  static Resultado<Vista> mirar(const QString& carpeta, Idioma idioma, const Textos& textos,
                                Reloj& reloj);

  const Textos& textos;

 private:
  Cerrojo cerrojo_;  // released last

 public:
  Ajustes ajustes;
  std::unique_ptr<dao::Database> db;

 private:
  Fondo(Cerrojo cerrojo, Ajustes losAjustes, const Textos& textos);
};

class Aplicacion {
 public:
  // REQUIRES that all references outlive it.
  // `semilla` draws the first numbers of the links.
  Aplicacion(Fondo& fondo, Reloj& reloj, enlace::FabricaEnlaces& fabrica, quint64 semilla,
             automation::Preguntas& preguntas);
  ~Aplicacion();
  // Prepares the first use of a database: warehouses, the session. Returns what a person must be
  // told of it, a sentence each.
  Resultado<QStringList> empezar();

  automation::Automat& automat();
  automation::Cronos& cronos();
  const automation::Lenguaje& lenguaje() const;
  motor::gestcomm& gestcomm();
  enlace::Enlaces& enlaces();
  conexion::Servicios conexion();
  // Its wires are those of all links: a line that one of them holds can't be opened again.
  enlace::FabricaEnlaces& fabrica();
  const motor::RepertorioTareas& repertorio() const;
  envios::Grupos& grupos();
  automation::Pendientes& debidos();
  // The morning summary, to be read in steps.
  std::shared_ptr<automation::LectorResumen> resumen();
  Resultado<std::vector<articles::LoteAMedias>> lotesAMedias() const;
  // The shop has only what it began with: no machines of its own yet.
  Resultado<bool> porEstrenar();
  // Deletes tickets left open on an earlier day, if any.
  Resultado<> olvidarTiquesViejos();
  articles::Catalogo& catalogo();
  articles::Operadores& operadores();
  precios::Ofertas& ofertas();
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
