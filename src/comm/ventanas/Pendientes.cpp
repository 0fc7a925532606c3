#include "comm/ventanas/Pendientes.h"

#include "comm/ventanas/Puertas.h"
#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"

namespace tarvo::comm {

namespace {

constexpr qsizetype kALaVista = 8;

QString linea(const motor::VistaTarea& v, const motor::RepertorioTareas& repertorio,
              const ventanas::Ventana& quien) {
  const motor::ClaseTarea* clase = repertorio.de(v.datos.Clase);
  const QString que =
      quien.t(kTxDestino).arg(clase ? quien.t(clase->nombre) : QString(), Ceros(v.datos.Grupo, 4));
  return quien.t(kTxPendiente)
      .arg(Ceros(v.datos.Id, 3), que, motor::TextoEstado(v.Estado, quien.contexto().textos));
}

// What becomes of the tasks when this window closes.
int queSera(const ventanas::Ventana& quien, const motor::gestcomm& motor) {
  if (quien.nombre() != PuertaGestcomm::kNombre) return kTxSePierdenAlSalir;
  return motor.ModoAutomatico() ? kTxSePierden : kTxSiguenSolas;
}

}  // namespace

bool consienteDejarlas(ventanas::Ventana& quien, const motor::gestcomm& motor,
                       const motor::RepertorioTareas& repertorio) {
  const auto tareas = motor.pendientes();
  if (tareas.empty() || motor.Vigilando()) return true;
  QStringList lineas{Plural(quien.t(kTxQuedanTareas), static_cast<int>(tareas.size()))};
  for (const motor::VistaTarea& v : tareas) {
    if (lineas.size() > kALaVista) break;
    lineas << linea(v, repertorio, quien);
  }
  const auto resto = std::ssize(tareas) - kALaVista;
  if (resto > 0) lineas << Plural(quien.t(kTxYMas), static_cast<int>(resto));
  lineas << QString() << quien.t(queSera(quien, motor));
  return ventanas::MyMsgBox::Decide(&quien, quien.contexto().textos, lineas.join(u'\n'),
                                    ventanas::kAceptoCancelo | ventanas::kExclamacion);
}

}  // namespace tarvo::comm
