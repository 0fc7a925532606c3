// The program in an empty folder, with all its windows, on a virtual clock, beside machines of all
// kinds; and a person who has a keyboard and no mouse.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

#include "app/Aplicacion.h"
#include "app/Datos.h"
#include "core/ventanas/marco/Escritorio.h"
#include "noches/Base.h"
#include "noches/Hilo.h"

namespace tarvo::primerdia {

using namespace Qt::StringLiterals;

// Keys go to whatever has the focus. A step that no key can do is a failure of the test.
class Persona {
 public:
  explicit Persona(RelojVirtual& reloj) : reloj_(reloj) {}

  void tecla(Qt::Key k, Qt::KeyboardModifiers m = {});
  void escribir(const QString& texto);
  // Goes with Tab to a control of the active window, or to the button of a command.
  bool ir(const QString& control);
  // Goes there and writes in place of what it holds, or chooses the entry of a list.
  void poner(const QString& control, const QString& texto);
  void elegir(const QString& control, const QString& entrada);
  void pulsar(const QString& boton);
  // Chooses an entry of the menu on the screen.
  void enMenu(const QString& entrada);
  // What the person does in the modal window that the next key opens.
  void luego(std::function<void()> hacer);
  // The same in a menu that keeps the key waiting until something is chosen.
  void alDesplegarse(std::function<void()> hacer);
  // Lets time go by until it holds.
  bool hasta(const std::function<bool()>& listo, int segundos = 600);
  // For a second, in which the window shows what has happened.
  void mirar();
  // Waits for the window to be in front.
  ventanas::Ventana* en(const QString& ventana);

  // A small picture of the window in front, where TARVO_FOTOS names a folder: those of
  // docs/primer-dia.md are made by this walk.
  void foto(const QString& nombre);

  static QWidget* activa();

 private:
  void pasar();
  static void cuando(std::function<bool()> listo, std::function<void()> hacer);

  RelojVirtual& reloj_;
};

inline const QDate kHoy(2026, 5, 18);

struct TiendaNueva {
  TiendaNueva();

  simulador::Maquina& maquina(const QString& linea, simulador::OpcionesMaquina como);
  // "a b | c d": rows and their fields.
  std::string leer(const QByteArray& sql);
  motor::gestcomm& motor() { return aplicacion->gestcomm(); }

  QTemporaryDir carpeta;
  RelojVirtual reloj{Fecha::de(kHoy, QTime(8, 0))};
  noches::Hilos hilos{reloj, 1};
  std::vector<std::unique_ptr<simulador::Maquina>> maquinas;
  Textos textos;
  std::unique_ptr<app::Fondo> fondo;
  std::unique_ptr<app::Datos> datos;
  std::unique_ptr<app::Aplicacion> aplicacion;
  std::unique_ptr<ventanas::Escritorio> escritorio;
  std::unique_ptr<noches::Lector> base;
  Persona persona{reloj};
};

}  // namespace tarvo::primerdia
