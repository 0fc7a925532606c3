#include "comm/ventanas/Diagnostico.h"

#include <QClipboard>
#include <QGuiApplication>

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

// States that need no attention.
bool esNormal(int estado) {
  return estado == motor::kEnEspera || estado == motor::kAbriendo ||
         estado == motor::kTransfiriendo || estado == motor::kTerminado ||
         estado == motor::kRetenido || estado == motor::kDetenido;
}

// The advice for an error code: the checks that a shop can make; 0 if there is none.
int consejoDe(int error) {
  switch (error) {
    case 23:  // the machine's port, address or line
    case 26:
    case 30:
    case 32:
      return kTxConsejoRed;
    case 10:
    case 11:
    case 25:
    case 29:
      return kTxConsejoModem;
    case 4:
    case 14:
    case 27:
      return kTxConsejoOcupado;
    case 5:
    case 6:
    case 7:
    case 8:
    case 16:
    case 17:
    case 18:
    case 28:
      return kTxConsejoCable;
    default:
      return 0;
  }
}

}  // namespace

Diagnostico::Diagnostico(Contexto& c, const QString& nombre, const Servicios& s)
    : Ventana(c, nombre), s_(s) {
  ui_.setupUi(cuerpo());
  enlazar();
  ponerLetra(*ui_.LblTarea, Letra::Secundaria);
  ui_.LblTitular->setTextInteractionFlags(Qt::TextSelectableByMouse);
  connect(ui_.Acepto, &QPushButton::clicked, this, [this] { aceptar(); });
  connect(ui_.Copiar, &QPushButton::clicked, this, [this] {
    QGuiApplication::clipboard()->setText(
        QStringList{ui_.LblTarea->text(), ui_.LblTitular->text(), ui_.TxtDetalle->toPlainText()}
            .join(u'\n')
            .trimmed());
  });
  connect(ui_.Tramas, &QPushButton::clicked, this, [this] {
    QWidget* quien = dueno();
    const int tarea = tarea_;
    aceptar();
    contexto().ventanas.abrir(PuertaVerTramas{.tarea = tarea}, quien);
  });
}

Resultado<> Diagnostico::entrar(const PuertaDiagnostico& puerta) {
  tarea_ = puerta.tarea;
  const auto enCola = s_.motor.tarea(tarea_);
  const auto& tarea = enCola ? enCola : puerta.acabada;
  ui_.Acepto->setFocus();
  ui_.LblTarea->setVisible(tarea.has_value());
  ui_.Tramas->setVisible(tarea.has_value());
  if (!tarea) {
    decir(puerta.estado, puerta.error, puerta.textoError);
    return {};
  }
  const motor::ClaseTarea* clase = s_.repertorio.de(tarea->datos.Clase);
  ui_.LblTarea->setText(
      t(kTxDeTarea)
          .arg(Ceros(tarea->datos.Id, 3),
               t(kTxDestino)
                   .arg(clase ? t(clase->nombre) : QString(), Ceros(tarea->datos.Grupo, 4))));
  decir(tarea->Estado, tarea->Error, tarea->textoError, tarea->trajo);
  return {};
}

// A task that wasn't sent waits like any other, and is not all right. `trajo`: what it says if
// nothing is wrong with it.
void Diagnostico::decir(int estado, int error, const QString& textoError, const QString& trajo) {
  const bool normal = esNormal(estado), incompleta = normal && !textoError.isEmpty();
  const bool denegada = estado == motor::kEnEspera && error == motor::kErrorSuprimido;
  const Estado tono = incompleta ? Estado::Duda : normal ? Estado::Bien : Estado::Mal;
  const int lado = escalar(kIconoGrande);
  ui_.Imagen->setPixmap(iconoEstado(tono).pixmap(lado, lado));
  const bool acabada = estado == motor::kTerminado && incompleta;
  ui_.LblTitular->setText(t(denegada  ? kTxDenegada
                            : acabada ? kTxTerminadoIncompleto
                            : normal  ? kTxSinAnomalia
                                      : kTxConAnomalia));
  ui_.TxtDetalle->setVisible(!normal || incompleta || !trajo.isEmpty());
  ui_.TxtDetalle->setPlainText(incompleta ? textoError : trajo);
  ui_.LblRemedio->setVisible(!normal || denegada);
  if (denegada) ui_.LblRemedio->setText(t(kTxRemedioDenegada));
  if (normal) return;
  const auto e = motor::textosError(error, contexto().textos);
  QStringList lineas{motor::TextoEstado(estado, contexto().textos),
                     t(kTxCodigoDevuelto) + u' ' + QString::number(error)};
  for (const QString& linea : {e.cabecera, e.mensaje, e.detalle, textoError})
    if (!linea.isEmpty()) lineas << linea;
  ui_.TxtDetalle->setPlainText(lineas.join(u'\n'));
  if (estado == motor::kRechazado) return ui_.LblRemedio->setText(t(kTxRemedioCanal));
  const QString luego = t(s_.motor.ModoAutomatico() ? kTxRemedioReintento : kTxRemedioManual);
  const int consejo = consejoDe(error);
  ui_.LblRemedio->setText(consejo == 0 ? luego : t(consejo) + u'\n' + luego);
}

}  // namespace tarvo::comm
