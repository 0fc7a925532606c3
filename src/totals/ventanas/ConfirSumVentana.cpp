#include "totals/ventanas/ConfirSumVentana.h"

#include <algorithm>
#include <ranges>

#include "core/ventanas/aspecto/Medidas.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {
constexpr int kSolapesALaVista = 4, kLetrasDescripcion = 50;
}

ConfirSumVentana::ConfirSumVentana(ventanas::Contexto& contexto, const QString& nombre,
                                   Periodos& periodos)
    : FichaDe(contexto, nombre), p_(periodos), motor_(periodos) {
  ui_.setupUi(cuerpo());
  enlazarCampo(*ui_.Descrip, texto(r.descripcion, kLetrasDescripcion));
  acabar(cuerpo()->size(), {.acepto = u"Hacerlo"_s, .cancelo = u"Cancelar"_s});
}

// A window opened without periods adds up the two most recent ones.
Resultado<std::vector<qint64>> ConfirSumVentana::losLinks(std::vector<qint64> links) {
  if (!links.empty()) return links;
  TARVO_TOMAR(const auto todos, p_.lista());
  for (auto c = todos.rbegin(); c != todos.rend() && links.size() < 2; ++c)
    links.push_back(c->LINK);
  return links;
}

Resultado<> ConfirSumVentana::entrar(const PuertaConfirSum& puerta) {
  TARVO_TOMAR(const auto links, losLinks(puerta.links));
  motor_.ponerSeleccion(links);
  TARVO_TOMAR(auto suma, motor_.destinoDeSuma());
  if (!suma) return fallo(Fallo::NoExiste, t(kTxSinSeleccion));
  suma_ = std::move(*suma);
  const Periodo& p = suma_.periodo;
  const bool existe = suma_.existente.has_value();
  ui_.tipo->setText(NombreTipoPeriodo(p.tipo));
  ui_.fecha1->setText(FormatoPeriodo(p.tipo, p.desde));
  ui_.fechaF->setText(FormatoPeriodo(p.tipo, p.hasta));
  const bool unaFecha = p.tipo != kOtros;  // a week, a month or a year has one name
  ui_.rotuloF->setHidden(unaFecha);
  ui_.fechaF->setHidden(unaFecha);
  ui_.rotulo1->setText(t(unaFecha ? kTxPeriodoDosPuntos : kTxDesdeCuando));
  ui_.sobre->setText(t(existe ? kTxSobreUno : kTxSobreNuevo));
  ui_.como->setText(t(existe ? kTxQueYaExiste : kTxEntreDescripcion).trimmed());
  ui_.Descrip->setReadOnly(existe);
  TARVO_INTENTAR(editar({existe ? suma_.existente->DESCR : QString()}));
  TARVO_TOMAR(const auto que, resumir(p_, links));
  QString resumen = t(kTxNPeriodos, que.periodos) + u": "_s + textoResumen(*this, que);
  // The one that receives the sum doesn't stay as it is.
  if (existe && std::ranges::find(links, suma_.existente->LINK) != links.end())
    resumen += u'\n' + t(kTxSumaSobreElegido);
  ui_.resumen->setText(resumen);
  if (links.size() != 2) setWindowTitle(t(kTxSumaDeVarios, static_cast<int>(links.size())));
  mostrarSolapes();
  return {};
}

// Lists the sales that would be counted twice, and makes Cancelar the default button.
void ConfirSumVentana::mostrarSolapes() {
  const auto& solapes = suma_.solapes;
  ui_.solapes->setVisible(!solapes.empty() || !suma_.enStock.empty());
  if (solapes.empty() && suma_.enStock.empty()) return;
  QStringList lineas;
  if (!solapes.empty()) lineas << t(kTxSeContaranDosVeces);
  for (const auto& s : solapes | std::views::take(kSolapesALaVista))
    lineas << t(s.yaDentro ? kTxYaSumadoEn : kTxEnComun)
                  .arg(TextoPeriodo(s.uno).simplified(), TextoPeriodo(s.otro).simplified());
  const int otras = static_cast<int>(solapes.size()) - kSolapesALaVista;
  if (otras > 0) lineas << t(kTxYOtrasCoincidencias, otras);
  if (!suma_.enStock.empty())
    lineas << t(kTxSeDescontaranDosVeces).arg(TextoPeriodos(suma_.enStock));
  ui_.solapes->setText(lineas.join(u'\n'));
  ui_.Hacerlo->setDefault(false);
  ui_.Cancelar->setDefault(true);
  ui_.Cancelar->setFocus();
}

Resultado<> ConfirSumVentana::aplicar() {
  if (suma_.existente) return {};
  const Periodo& p = suma_.periodo;
  TARVO_INTENTAR(p_.CrearPeriodo(p.tipo, p.desde, p.hasta, false, r.descripcion));
  return {};
}

}  // namespace tarvo::totals
