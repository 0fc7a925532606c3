// The kit's own objects, created and connected: all that a program or a test needs to open windows.
#pragma once

#include <QThreadPool>
#include <QTranslator>
#include <optional>

#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/AltSuelto.h"
#include "core/ventanas/marco/Contexto.h"
#include "core/ventanas/marco/Manual.h"
#include "core/ventanas/marco/Recuerdos.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::ventanas {

// Words of the toolkit that its own translation lacks.
class Faltas final : public QTranslator {
 public:
  explicit Faltas(const Textos& textos) : t_(textos) {}
  QString translate(const char* contexto, const char* texto, const char* aclaracion,
                    int n) const override;
  bool isEmpty() const override { return false; }

 private:
  const Textos& t_;
};

class Escritorio {
 public:
  // `cara`: for this run; if empty, the theme named in VENTANAS.INI, else the desktop's.
  // `rutaRecuerdos`: if empty, nothing is remembered beyond this run. REQUIRES that all references
  // outlive it.
  Escritorio(QApplication& app, dao::Database& db, Ajustes& ajustes, const Textos& textos,
             Reloj& reloj, std::optional<Cara> cara, const QString& rutaRecuerdos);
  ~Escritorio();

  Contexto& contexto() { return contexto_; }
  Ventanas& ventanas() { return ventanas_; }
  Tema& tema() { return tema_; }

 private:
  QTranslator delJuego_;  // the toolkit's own texts: menus of fields, the file dialog
  Faltas faltas_;
  QThreadPool hilos_;  // outlives all that query it; its destructor waits for its threads
  Nombres nombres_;
  Recuerdos recuerdos_;
  Tema tema_;
  Contexto contexto_;  // outlives the windows that use it
  Ventanas ventanas_;
  Ayuda ayuda_;
  AltSuelto altSuelto_;
};

// "claro" or "oscuro"; nothing for any other word.
std::optional<Cara> leerCara(const QString& palabra);

}  // namespace tarvo::ventanas
