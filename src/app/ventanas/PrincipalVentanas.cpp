#include "app/ventanas/PrincipalVentanas.h"

#include <QApplication>
#include <random>

#include "app/Consola.h"
#include "app/Principal.h"
#include "app/Senales.h"
#include "app/TextosApp.h"
#include "app/ventanas/PreguntasApp.h"
#include "app/ventanas/Registro.h"
#include "comm/enlace/FabricaReal.h"
#include "core/ventanas/Escritorio.h"
#include "core/ventanas/MyMsgBox.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;

namespace {

// Qt ends the program without a word of ours when there is no screen.
bool hayPantalla() {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (!qEnvironmentVariableIsEmpty(variable)) return true;
  return false;
}

// The window that the command line asks for.
QString primeraVentana(const Ordenes& o) {
  if (!o.ventana.isEmpty()) return o.ventana;
  return o.proceso.isEmpty() ? u"MainTarvo"_s : u"Automat"_s;
}

int guardarTodo(const Fondo& fondo, const Textos& t) {
  const auto guardado = fondo.ajustes.GuardarConfig();
  if (guardado) return kBien;
  avisar(t(kTxAjustesNoGuardados).arg(guardado.error().texto));
  return kProblemas;
}

int conVentanas(QApplication& qt, const Ordenes& o, Fondo& fondo, const Textos& t, Reloj& reloj) {
  PreguntasApp preguntas(o.datos, t);
  enlace::FabricaReal fabrica(reloj, fondo.ajustes);
  Aplicacion aplicacion(fondo, reloj, fabrica, std::random_device{}(), preguntas);
  if (const auto hecho = aplicacion.empezar(); !hecho) {
    avisar(t(kTxSinArranque).arg(hecho.error().texto));
    return kSinBase;
  }
  ventanas::Escritorio escritorio(qt, *fondo.db, fondo.ajustes, t, reloj,
                                  ventanas::leerCara(o.tema),
                                  Ajustes::ruta(u"VENTANAS.INI"_s, fondo.ajustes.carpeta));
  ventanas::Ventanas& ventanas = escritorio.ventanas();
  registrarVentanas(ventanas, aplicacion);
  preguntas.poner(&ventanas);
  const QString nombre = primeraVentana(o);
  if (!ventanas.conoce(nombre)) {
    avisar(t(kTxVentanaDesconocida).arg(nombre, ventanas.nombres().join(u", "_s)));
    return kArgumentosMalos;
  }
  const Senales senales([&] {
    if (!ventanas.DescargaTodo()) qt.quit();
  });
  qt.setQuitOnLastWindowClosed(false);
  QObject::connect(&ventanas, &ventanas::Ventanas::vacio, &qt, &QApplication::quit);
  ventanas::Argumentos argumentos =
      o.ventana.isEmpty() ? ventanas::Argumentos() : ventanas.muestra(nombre);
  if (!o.proceso.isEmpty()) argumentos[u"proceso"_s] = rutaProceso(o.proceso, fondo.ajustes);
  if (!ventanas.abrir(nombre, nullptr, argumentos)) return kProblemas;
  const int estado = qt.exec();
  return std::max(estado, guardarTodo(fondo, t));
}

}  // namespace

int principalVentanas(int argc, char** argv) {
  return principal(argc, argv, [&](const Ordenes& o, const Textos& t) -> int {
    if (!hayPantalla()) {
      avisar(t(kTxSinPantalla));
      return kArgumentosMalos;
    }
    QApplication qt(argc, argv);
    return conFondo(
        o, t, [&](Fondo& fondo, Reloj& reloj) { return conVentanas(qt, o, fondo, t, reloj); });
  });
}

}  // namespace tarvo::app
