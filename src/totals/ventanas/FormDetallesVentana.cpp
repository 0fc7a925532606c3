#include "totals/ventanas/FormDetallesVentana.h"

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using ventanas::Clase;

FormDetallesVentana::FormDetallesVentana(ventanas::Contexto& contexto, const QString& nombre)
    : FichaDe(contexto, nombre) {
  ui_.setupUi(cuerpo());
  ui_.Grid->preparar(contexto, nombre,
                     {{.titulo = kTxCodGrupo,
                       .campo = u"CODGPO"_s,
                       .clase = Clase::Codigo,
                       .cifras = 4,
                       .ancho = 64},
                      {.titulo = ventanas::kTxGrupo, .campo = u"NOMGPO"_s, .ancho = 180},
                      {.titulo = kTxTipoTotales, .campo = u"CLASE"_s, .ancho = 150},
                      {.titulo = ventanas::kTxPeriodo, .campo = u"PERIODO"_s, .ancho = 150},
                      {.titulo = kTxFechaHasta, .campo = u"FECHA"_s, .ancho = 170}});
  ui_.Grid->ponerVacia(t(kTxNadaRecibido));
  enlazarCampo(*ui_.TodoAUno, *ui_.CadaUno, r.aUno);
  enlazarCampo(*ui_.LstPer, r.cual);
  enlazarCampo(*ui_.Sustituir, *ui_.Acumular, r.sustituir);
  connect(ui_.TodoAUno, &QRadioButton::toggled, ui_.LstPer, &QWidget::setVisible);
  acabar(cuerpo()->size(), {.acepto = u"Memorizar"_s, .cancelo = u"Cancelar"_s});
}

Resultado<> FormDetallesVentana::entrar(const PuertaFormDetalles& puerta) {
  d_ = puerta.detalle;
  TARVO_INTENTAR(llenar());
  ui_.LstPer->clear();
  for (const Propuesto& p : d_.propuestos)
    (new QListWidgetItem(t(kTxPeriodoCuenta).arg(TextoPeriodo(p.periodo)).arg(p.cuenta),
                         ui_.LstPer))
        ->setSizeHint(QSize(0, ventanas::escalar(ventanas::kAltoFila)));
  ui_.marcoPeriodo->setVisible(d_.propuestos.size() > 1);
  const bool aUno = d_.elegido >= 0;
  TARVO_INTENTAR(
      editar({.aUno = aUno, .sustituir = d_.sustituir, .cual = std::max(d_.elegido, 0)}));
  ui_.LstPer->setVisible(aUno);
  ui_.Grid->setFocus();
  return {};
}

Resultado<> FormDetallesVentana::llenar() {
  std::vector<ventanas::FilaViva> filas;
  for (const Recibido& recibido : d_.recibidos) {
    TARVO_TOMAR(const auto nombre, contexto().nombres.grupo(recibido.CODGPO));
    const Periodo& p = recibido.periodo;
    filas.push_back(
        {static_cast<qint64>(filas.size()) + 1,
         {recibido.CODGPO, nombre, nombreClase(contexto().textos, recibido.clase),
          p.tipo == kOtros ? FormatoPeriodo(p.tipo, p.desde) : NombreTipoPeriodo(p.tipo),
          FormatoPeriodo(p.tipo, p.tipo == kOtros ? p.hasta : p.desde)}});
  }
  ui_.Grid->vivas().poner(std::move(filas));
  return {};
}

void FormDetallesVentana::aplicada() {
  d_.elegido = !r.aUno ? -1 : std::max(r.cual, 0);
  d_.sustituir = r.sustituir;
  entregar(d_);
}

}  // namespace tarvo::totals
