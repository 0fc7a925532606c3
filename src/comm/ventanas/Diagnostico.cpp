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

// States in which all goes as it should.
bool esNormal(int estado) {
  return estado == motor::kEnEspera || estado == motor::kAbriendo ||
         estado == motor::kTransfiriendo || estado == motor::kTerminado ||
         estado == motor::kRetenido || estado == motor::kDetenido;
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
    contexto().ventanas.abrir(u"VerTramas"_s, quien, {{u"tarea"_s, tarea}});
  });
}

Resultado<> Diagnostico::preparar(const Argumentos& a) {
  tarea_ = a.value(u"tarea"_s).toInt();
  const auto tarea = s_.motor.tarea(tarea_);
  ui_.LblTarea->setVisible(tarea.has_value());
  ui_.Tramas->setVisible(tarea.has_value());
  if (!tarea) {
    decir(a.value(u"estado"_s).toInt(), a.value(u"error"_s).toInt(),
          a.value(u"textoError"_s).toString());
    return {};
  }
  const motor::ClaseTarea* clase = s_.registro.de(tarea->datos.Clase);
  ui_.LblTarea->setText(
      t(kTxDeTarea)
          .arg(Ceros(tarea->datos.Id, 3),
               t(kTxDestino)
                   .arg(clase ? t(clase->nombre) : QString(), Ceros(tarea->datos.Grupo, 4))));
  decir(tarea->Estado, tarea->Error, tarea->textoError);
  return {};
}

void Diagnostico::decir(int estado, int error, const QString& textoError) {
  const bool normal = esNormal(estado);
  const int lado = escalar(kIconoGrande);
  ui_.Imagen->setPixmap(iconoEstado(normal ? Estado::Bien : Estado::Mal).pixmap(lado, lado));
  ui_.LblTitular->setText(t(normal ? kTxSinAnomalia : kTxConAnomalia));
  ui_.TxtDetalle->setVisible(!normal);
  ui_.LblRemedio->setVisible(!normal);
  if (normal) return;
  const auto e = motor::textosError(error, contexto().textos);
  QStringList lineas{motor::TextoEstado(estado, contexto().textos),
                     t(kTxCodigoDevuelto) + u' ' + QString::number(error)};
  for (const QString& linea : {e.cabecera, e.mensaje, e.detalle, textoError})
    if (!linea.isEmpty()) lineas << linea;
  ui_.TxtDetalle->setPlainText(lineas.join(u'\n'));
  ui_.LblRemedio->setText(t(estado == motor::kRechazado ? kTxRemedioCanal : kTxRemedioReintento));
}

}  // namespace tarvo::comm
