#include "app/ventanas/PrincipalVentanas.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileInfo>

#include "app/Consola.h"
#include "app/Ejecucion.h"
#include "app/Principal.h"
#include "app/Senales.h"
#include "app/TextosApp.h"
#include "app/ventanas/Encargos.h"
#include "app/ventanas/Lleva.h"
#include "app/ventanas/PreguntasApp.h"
#include "app/ventanas/RegistrarVentanas.h"
#include "app/ventanas/TextosPrincipal.h"
#include "comm/tareas/Repertorio.h"
#include "core/ventanas/aspecto/LetrasAparte.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Escritorio.h"
#include "core/ventanas/marco/MyMsgBox.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;

namespace {

// Without a screen, Qt would end the program without a message of ours.
bool hayPantalla() {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (!qEnvironmentVariableIsEmpty(variable)) return true;
  return false;
}

// Nothing if the process can't be read, which has then been reported.
std::optional<Lleva> delProceso(const QString& ruta, const Fondo& fondo, const Aplicacion& app) {
  const Lleva horario = automation::PuertaCronos{ruta};
  if (ruta.endsWith(u".cro"_s, Qt::CaseInsensitive)) return horario;
  const auto fichero = app.lenguaje().LeerProceso(ruta);
  if (fichero)
    return fichero->activaciones.empty() ? Lleva(automation::PuertaAutomat{ruta}) : horario;
  QString frase = fondo.textos(kTxProcesoNoCargado);
  CambiaTexto(u"#"_s, NombreFichero(ruta), frase);
  avisar(frase);
  avisar(fichero.error().texto);
  ventanas::MyMsgBox::Decide(nullptr, fondo.textos, frase, ventanas::kCritico);
  return std::nullopt;
}

// The mode of the program: a process, a timetable, or the main window.
std::optional<Lleva> primeraVentana(const Ordenes& o, const Fondo& fondo, const Aplicacion& app) {
  if (!o.ventana.isEmpty()) return PorNombre{o.ventana};
  if (o.proceso.trimmed().isEmpty()) return PuertaMainTarvo();
  return delProceso(rutaProceso(o.proceso, fondo.ajustes), fondo, app);
}

// The end of the program. If it is requested from outside while a process is running, the process
// is stopped first and left open, so that the same process can continue later; its questions remain
// unanswered.
class Final {
 public:
  Final(Aplicacion& app, PreguntasApp& preguntas, Encargos& encargos, std::function<void()> cerrar)
      : app_(app),
        preguntas_(preguntas),
        encargos_(encargos),
        cerrar_(std::move(cerrar)),
        senales_([this] { pedirFin(); }) {
    app_.automat().alTerminar = [this](automation::ResultadoProceso r) {
      if (!encargos_.terminado(r)) estado_ = std::max(estado_, static_cast<int>(r));
      if (pedido_) cerrar_();
    };
  }
  ~Final() { app_.automat().alTerminar = nullptr; }
  Final(const Final&) = delete;
  Final& operator=(const Final&) = delete;

  int estado() const { return estado_; }  // the worst of all runs

 private:
  void pedirFin() {
    pedido_ = true;
    app_.cronos().parar();
    encargos_.dejar();
    if (!app_.automat().enMarcha()) return cerrar_();
    app_.automat().conservarAlAbortar = true;
    app_.automat().abortar();
    preguntas_.retirar();
  }

  Aplicacion& app_;
  PreguntasApp& preguntas_;
  Encargos& encargos_;
  std::function<void()> cerrar_;
  int estado_ = kBien;
  bool pedido_ = false;
  Senales senales_;
};

int conVentanas(QApplication& qt, const Ordenes& o, Fondo& fondo, Reloj& reloj,
                Aplicacion& aplicacion, PreguntasApp& preguntas) {
  const Textos& t = fondo.textos;
  ventanas::Escritorio escritorio(qt, *fondo.db, fondo.ajustes, t, reloj,
                                  ventanas::leerCara(o.tema),
                                  Ajustes::ruta(u"VENTANAS.INI"_s, fondo.ajustes.carpeta));
  ventanas::Ventanas& ventanas = escritorio.ventanas();
  registrarVentanas(ventanas, aplicacion);
  preguntas.poner(&ventanas);
  const auto primera = primeraVentana(o, fondo, aplicacion);
  if (!primera) return guardarAjustes(fondo, kSinProceso);
  const QString nombre = ventanaDe(*primera);
  if (!ventanas.conoce(nombre)) {
    avisar(t(kTxVentanaDesconocida).arg(nombre, ventanas.nombres().join(u", "_s)));
    return kArgumentosMalos;
  }
  if (nombre == PuertaMainTarvo::kNombre)
    if (const auto hecho = aplicacion.olvidarTiquesViejos(); !hecho) avisar(hecho.error().texto);
  QApplication::setWindowIcon(ventanas::icono(u"tarvo"_s));
  qt.setQuitOnLastWindowClosed(false);
  QObject::connect(&ventanas, &ventanas::Ventanas::vacio, &qt, &QApplication::quit);
  Encargos encargos(fondo, aplicacion, preguntas, ventanas, reloj);
  Final final(aplicacion, preguntas, encargos, [&] {
    if (!ventanas.DescargaTodo()) qt.quit();
  });
  if (!abrirLo(ventanas, *primera, nullptr))
    return guardarAjustes(fondo, o.proceso.isEmpty() ? kProblemas : kSinProceso);
  if (const auto oye = encargos.escuchar(); !oye) {
    const QString frase = t(kTxSinPuerta).arg(oye.error().texto);
    avisar(frase);
    if (auto* v = ventanas.cargada(nombre)) v->decirDuda(frase);
  }
  const int estado = qt.exec();
  return guardarAjustes(fondo, o.proceso.isEmpty() ? estado : std::max(estado, final.estado()));
}

// --- another program holds the database ---------------------------------------------------------

// The process given on the command line, as a request. Nothing if it can't be read, or if it
// contains a timetable, which needs this program itself.
std::optional<Peticion> peticionDe(const Ordenes& o, const Ajustes& ajustes, const Textos& t) {
  Peticion p;
  p.ventana = o.ventana;
  if (o.proceso.trimmed().isEmpty()) return p;
  const motor::RepertorioTareas repertorio = tareas::repertorio();
  const automation::Lenguaje lenguaje(repertorio, ajustes, t);
  const QString ruta = rutaProceso(o.proceso, ajustes);
  const auto leido = lenguaje.LeerProceso(ruta);
  if (!leido || !leido->activaciones.empty()) return std::nullopt;
  p.que = Peticion::Que::Proceso;
  p.nombre = QFileInfo(ruta).completeBaseName();
  p.omitidas = leido->omitidas;
  p.datos = o.datos;
  for (const auto& paso : leido->pasos) p.pasos += lenguaje.EscribirPaso(paso);
  return p;
}

// Asks the other program to bring its windows to the front, or to run the process; nothing if it
// doesn't answer.
std::optional<int> pedirAlOtro(const Peticion& peticion, const Ajustes& ajustes, Reloj& reloj) {
  std::optional<int> estado;
  QEventLoop bucle;
  const Entrega entrega(ajustes.BaseDatos, peticion,
                        {.decir = decir,
                         .avisar = avisar,
                         .alAcabar =
                             [&](int fin) {
                               estado = fin;
                               bucle.quit();
                             },
                         .alCortarse = [&] { bucle.quit(); }},
                        reloj);
  bucle.exec();
  return estado;
}

std::optional<int> siOcupada(const Ordenes& o, const Textos& t, const QString& carpeta,
                             const Error& error, Reloj& reloj) {
  const auto ajustes = Fondo::leerAjustes(carpeta, o.idioma, t, reloj);
  const auto peticion = ajustes ? peticionDe(o, *ajustes, t) : std::nullopt;
  if (peticion)
    if (const auto estado = pedirAlOtro(*peticion, *ajustes, reloj)) return estado;
  avisar(error.texto);
  const ventanas::Tema vestido(*qApp, ventanas::leerCara(o.tema));
  const QString frase = ajustes ? t(kTxReintentar).arg(ajustes->BaseDatos) : error.texto;
  const bool otraVez = ventanas::MyMsgBox::Decide(
      nullptr, t, frase, ventanas::kAceptoCancelo | ventanas::kExclamacion);
  return otraVez ? std::nullopt : std::optional<int>(kSinBase);
}

bool crearVacia(const Ordenes& o, const Textos& t, const QString& base) {
  const ventanas::Tema vestido(*qApp, ventanas::leerCara(o.tema));
  return ventanas::MyMsgBox::Decide(nullptr, t, t(kTxCrearBaseVacia).arg(base),
                                    ventanas::kAceptoCancelo | ventanas::kExclamacion);
}

}  // namespace

int principalVentanas(int argc, char** argv) {
  return principal(argc, argv, [&](const Ordenes& o, const Textos& t) -> int {
    if (!hayPantalla()) {
      avisar(t(kTxSinPantalla));
      return kArgumentosMalos;
    }
    const ventanas::LetrasAparte letras;
    // The desktop identifies the window by the name of its desktop entry, on Wayland too.
    QGuiApplication::setDesktopFileName(u"tarvo"_s);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication qt(argc, argv);
    // If the program was started from the desktop, nobody reads standard error.
    const auto decirFallo = [&t, &qt, &o](const QString& texto) {
      avisar(texto);
      const ventanas::Tema vestido(qt, ventanas::leerCara(o.tema));
      ventanas::MyMsgBox::Decide(nullptr, t, texto, ventanas::kCritico);
    };
    const auto trabajar = [&](Fondo& fondo, Reloj& reloj) {
      PreguntasApp preguntas(o.datos, t);
      return conAplicacion(fondo, reloj, preguntas, decirFallo, [&](Aplicacion& aplicacion) {
        return conVentanas(qt, o, fondo, reloj, aplicacion, preguntas);
      });
    };
    return conFondo(
        o, t, decirFallo, trabajar,
        {.ocupada = [&](const QString& carpeta, const Error& error,
                        Reloj& reloj) { return siOcupada(o, t, carpeta, error, reloj); },
         .crearla = [&](const QString& base) { return crearVacia(o, t, base); }});
  });
}

}  // namespace tarvo::app
