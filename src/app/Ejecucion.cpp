#include "app/Ejecucion.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "app/Consola.h"
#include "app/Senales.h"
#include "app/TextosApp.h"

namespace tarvo::app {

Ejecucion::Ejecucion(Fondo& fondo, Aplicacion& aplicacion, const Textos& textos)
    : fondo_(fondo), app_(aplicacion), t_(textos) {}

int Ejecucion::ejecutar(const QString& rutaProceso) {
  // Signals are caught from here on, so that none can fall between the start and the event loop.
  const Senales senales([this] { pedirFin(); });
  app_.automat().desatendido = true;
  app_.automat().alEscribir = decir;
  app_.automat().alTerminar = [this](automation::ResultadoProceso r) {
    estado_ = std::max(estado_, static_cast<int>(r));
    if (!activado_ || pidenFin_) QCoreApplication::exit(estado_);
  };
  app_.cronos().alAvisar = decir;
  if (const auto cargado = cargar(rutaProceso); !cargado) {
    QString mensaje = t_(kTxProcesoNoCargado);
    CambiaTexto(QStringLiteral("#"), rutaProceso, mensaje);
    avisar(mensaje + QStringLiteral(". ") + cargado.error().texto);
    return guardarAjustes(fondo_, kSinProceso);
  }
  return guardarAjustes(fondo_, correr());
}

Resultado<> Ejecucion::cargar(const QString& ruta) {
  const QFileInfo fichero(ruta);
  activado_ = fichero.suffix().compare(u"CRO", Qt::CaseInsensitive) == 0;
  if (activado_) return app_.cronos().ActivarCron(ruta);
  TARVO_TOMAR(auto leido, app_.lenguaje().LeerProceso(ruta));
  activado_ = !leido.activaciones.empty();
  if (activado_) return app_.cronos().ActivarCron(ruta);
  app_.automat().PROCESO(std::move(leido.pasos), QString(), fichero.completeBaseName(),
                         leido.omitidas);
  return {};
}

int Ejecucion::correr() {
  if (activado_) decir(t_(kTxActivado).arg(fondo_.ajustes.HomeDir));
  return QCoreApplication::exec();
}

// The ordinary way of stopping: the queue is emptied, links are closed, the trace says so.
void Ejecucion::pedirFin() {
  pidenFin_ = true;
  estado_ = kAbortado;
  avisar(t_(kTxInterrumpiendo));
  const bool enMarcha = !activado_ || app_.cronos().hayProcesoEnMarcha();
  app_.cronos().parar();
  app_.automat().conservarAlAbortar = true;
  enMarcha ? app_.automat().abortar() : QCoreApplication::exit(estado_);
}

int guardarAjustes(const Fondo& fondo, int estado) {
  const auto guardado = fondo.ajustes.GuardarConfig();
  if (guardado) return estado;
  avisar(fondo.textos(kTxAjustesNoGuardados).arg(guardado.error().texto));
  return std::max<int>(estado, kProblemas);
}

}  // namespace tarvo::app
