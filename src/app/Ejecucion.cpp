#include "app/Ejecucion.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "app/Consola.h"
#include "app/TextosApp.h"
#include "comm/tareas/Repertorio.h"

namespace tarvo::app {

namespace {

automation::ResultadoProceso resultadoDe(int estado) {
  if (estado == kBien) return automation::ResultadoProceso::Bien;
  return estado == kAbortado ? automation::ResultadoProceso::Abortado
                             : automation::ResultadoProceso::Problemas;
}

}  // namespace

Ejecucion::Ejecucion(const Puesto& puesto, Ajustes ajustes, std::unique_ptr<Fondo> fondo)
    : puesto_(puesto),
      ajustes_(std::move(ajustes)),
      repertorio_(tareas::repertorio()),
      lenguaje_(repertorio_, ajustes_, puesto.textos),
      cronos_({.ocupado = [this] { return noche_ != nullptr; },
               .correr =
                   [this](const automation::Entrada& e, const QString& traza) {
                     const QStringList dudas = std::exchange(dudas_, {});
                     empezar({e.proceso, traza, e.pasos, dudas + e.omitidas}, nullptr);
                   }},
              lenguaje_, ajustes_, puesto.reloj),
      fondo_(std::move(fondo)) {}

Ejecucion::~Ejecucion() = default;

int Ejecucion::ejecutar(const QString& rutaProceso) {
  // Signals are caught from here on, so that none is lost between the start and the event loop.
  const Senales senales([this] { pedirFin(); });
  cronos_.alAvisar = decir;
  if (const auto cargado = cargar(rutaProceso); !cargado) {
    QString mensaje = puesto_.textos(kTxProcesoNoCargado);
    CambiaTexto(QStringLiteral("#"), rutaProceso, mensaje);
    avisar(mensaje + QStringLiteral(". ") + cargado.error().texto);
    return fondo_ ? guardarAjustes(*fondo_, kSinProceso) : int{kSinProceso};
  }
  const int estado = QCoreApplication::exec();
  noche_.reset();
  return std::max(estado, estado_);
}

Resultado<> Ejecucion::cargar(const QString& ruta) {
  const QFileInfo fichero(ruta);
  if (fichero.suffix().compare(u"CRO", Qt::CaseInsensitive) == 0) return activar(ruta);
  TARVO_TOMAR(auto leido, lenguaje_.LeerProceso(ruta));
  if (!leido.activaciones.empty()) return activar(ruta);
  empezar({fichero.completeBaseName(), {}, std::move(leido.pasos), leido.omitidas},
          std::move(fondo_));
  return {};
}

Resultado<> Ejecucion::activar(const QString& ruta) {
  TARVO_INTENTAR(cronos_.ActivarCron(ruta));
  activado_ = true;
  if (fondo_) {
    // The file is about to be rewritten; the first run reports them in its trace.
    dudas_ = dudasDe(fondo_->ajustes, puesto_.textos);
    estado_ = guardarAjustes(*fondo_, kBien);
    fondo_.reset();
  }
  decir(puesto_.textos(kTxActivado).arg(ajustes_.HomeDir));
  return {};
}

void Ejecucion::empezar(Noche::Encargo encargo, std::unique_ptr<Fondo> fondo) {
  noche_ = std::make_unique<Noche>(puesto_, std::move(encargo), std::move(fondo),
                                   [this](int estado) { acabada(estado); });
}

void Ejecucion::acabada(int estado) {
  estado_ = std::max(estado_, estado);
  noche_.reset();
  if (!activado_ || pidenFin_) return QCoreApplication::exit(estado_);
  cronos_.FinDeMacro(resultadoDe(estado));
}

void Ejecucion::pedirFin() {
  pidenFin_ = true;
  if (activado_) estado_ = std::max<int>(estado_, kAbortado);
  avisar(puesto_.textos(kTxInterrumpiendo));
  cronos_.parar();
  noche_ ? noche_->parar() : QCoreApplication::exit(kAbortado);
}

}  // namespace tarvo::app
