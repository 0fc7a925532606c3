#include "totals/ventanas/FormDetallesVentana.h"

#include "core/ventanas/aspecto/Medidas.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using ventanas::Clase;

FormDetallesVentana::FormDetallesVentana(ventanas::Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void FormDetallesVentana::montar() {
  ui_.Grid->preparar(contexto(), nombre(),
                     {{.titulo = kTxCodGrupo,
                       .campo = u"CODGPO"_s,
                       .clase = Clase::Codigo,
                       .cifras = 4,
                       .ancho = 64},
                      {.titulo = kTxGrupo, .campo = u"NOMGPO"_s, .ancho = 180},
                      {.titulo = kTxTipoTotales, .campo = u"CLASE"_s, .ancho = 150},
                      {.titulo = kTxPeriodo, .campo = u"PERIODO"_s, .ancho = 150},
                      {.titulo = kTxFechaHasta, .campo = u"FECHA"_s, .ancho = 170}});
  ui_.Grid->setVacia(t(kTxNadaRecibido));
  connect(ui_.TodoAUno, &QRadioButton::toggled, ui_.LstPer, &QWidget::setVisible);
  connect(ui_.Memorizar, &QPushButton::clicked, this, &FormDetallesVentana::aplicar);
  connect(ui_.Cancelar, &QPushButton::clicked, this, &FormDetallesVentana::rechazar);
}

Resultado<> FormDetallesVentana::entrar(const PuertaFormDetalles& puerta) {
  d_ = puerta.detalle;
  TARVO_INTENTAR(llenar());
  ui_.LstPer->clear();
  for (const Propuesto& p : d_.propuestos)
    ui_.LstPer->addItem(t(kTxPeriodoCuenta).arg(TextoPeriodo(p.periodo)).arg(p.cuenta));
  ui_.LstPer->setCurrentRow(d_.elegido);
  ui_.marcoPeriodo->setVisible(d_.propuestos.size() > 1);
  (d_.elegido >= 0 ? ui_.TodoAUno : ui_.CadaUno)->setChecked(true);
  ui_.LstPer->setVisible(d_.elegido >= 0);
  (d_.sustituir ? ui_.Sustituir : ui_.Acumular)->setChecked(true);
  ui_.Grid->setFocus();
  return {};
}

Resultado<> FormDetallesVentana::llenar() {
  std::vector<ventanas::FilaViva> filas;
  for (const Recibido& r : d_.recibidos) {
    TARVO_TOMAR(const auto nombre, contexto().nombres.grupo(r.CODGPO));
    const Periodo& p = r.periodo;
    filas.push_back(
        {static_cast<qint64>(filas.size()) + 1,
         {r.CODGPO, nombre, nombreClase(contexto().textos, r.clase),
          p.tipo == kOtros ? FormatoPeriodo(p.tipo, p.desde) : NombreTipoPeriodo(p.tipo),
          FormatoPeriodo(p.tipo, p.tipo == kOtros ? p.hasta : p.desde)}});
  }
  ui_.Grid->vivas().poner(std::move(filas));
  return {};
}

void FormDetallesVentana::aplicar() {
  const bool aUno = ui_.TodoAUno->isChecked();
  d_.elegido = !aUno ? -1 : ui_.LstPer->currentRow() >= 0 ? ui_.LstPer->currentRow() : 0;
  d_.sustituir = ui_.Sustituir->isChecked();
  entregar(d_);
}

}  // namespace tarvo::totals
