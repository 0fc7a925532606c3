#include "articles/ventanas/ParrillaPrecios.h"

#include <QTableView>

#include "articles/Limites.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

constexpr int kFilasALaVista = 5;  // including the heading, if there is little room

}  // namespace

ParrillaPrecios::ParrillaPrecios(ventanas::Ventana& v, ventanas::Parrilla& p, AlCambiar alCambiar,
                                 std::function<QString()> deQuien)
    : v_(v),
      p_(p),
      alCambiar_(std::move(alCambiar)),
      deQuien_(std::move(deQuien)),
      moneda_(v.contexto().ajustes.MonedaNativa) {
  std::vector<ventanas::Columna> columnas{{.titulo = kTxTarifa,
                                           .campo = u"lbTfa"_s,
                                           .clase = Clase::Codigo,
                                           .ancho = 52,
                                           .ordenable = false}};
  for (int nivel = 0; nivel < kNiveles; ++nivel)
    columnas.push_back({.titulo = kTxPBase + nivel,
                        .campo = u"P%1"_s.arg(nivel),
                        .clase = Clase::Importe,
                        .ancho = kAnchoPrecio,
                        .ordenable = false,
                        .editar = [this, nivel](qint64 fila, const QString& texto) {
                          return escribir(nivel, fila, texto);
                        }});
  p_.preparar(v.contexto(), v.nombre(), std::move(columnas));
  p_.ponerMoneda(moneda_);
  p_.ponerBusca(false);
  p_.ponerPie(false);
  p_.ponerUnaSola(true);
  p_.ponerEscribeAlTeclear(true);
  p_.ponerVacia(v.t(kTxSinArticulo));
  p_.vivas();
  p_.setMinimumHeight(ventanas::escalar(kFilasALaVista * ventanas::kAltoFila));
}

void ParrillaPrecios::ponerMoneda(int moneda) {
  moneda_ = moneda;
  p_.ponerMoneda(moneda);
}

void ParrillaPrecios::poner(const Precios& precios) {
  precios_ = precios;
  std::vector<ventanas::FilaViva> filas;
  for (size_t tarifa = 0; tarifa < kTarifas; ++tarifa) {
    ventanas::FilaViva fila{.clave = static_cast<qint64>(tarifa),
                            .valores = {static_cast<int>(tarifa) + 1}};
    for (size_t nivel = 0; nivel < kNiveles; ++nivel)
      fila.valores.emplace_back(precios[nivel][tarifa]);
    filas.push_back(std::move(fila));
  }
  const bool habia = p_.filas() > 0;
  p_.vivas().poner(std::move(filas));
  if (!habia) p_.vista()->setCurrentIndex(p_.modelo()->index(0, 1));
}

void ParrillaPrecios::vaciar() {
  p_.vivas().poner(std::vector<ventanas::FilaViva>{});
}

QString ParrillaPrecios::queCambia(const Precios& antes, const Precios& ahora) const {
  for (int i = 0; i < kNiveles * kTarifas; ++i) {
    const auto nivel = static_cast<size_t>(i / kTarifas),
               tarifa = static_cast<size_t>(i % kTarifas);
    const qint64 era = antes[nivel][tarifa];
    if (era != ahora[nivel][tarifa])
      return v_.t(ventanas::kTxCeldaDe)
          .arg(v_.t(i == 0 ? kTxPrecio : kTxOtrosPrecios + i - 1).trimmed(),
               VerImporte(v_.contexto().ajustes, era, moneda_));
  }
  return {};
}

Resultado<> ParrillaPrecios::escribir(int nivel, qint64 fila, const QString& texto) {
  TARVO_TOMAR(const auto importe, leerPrecio(v_, texto, moneda_));
  Precios nuevos = precios_;
  const Textos& textos = v_.contexto().textos;
  const QString deQuien = deQuien_(), cual = nombrePrecio(nivel, static_cast<int>(fila), textos);
  const qint64 antes =
      std::exchange(nuevos[static_cast<size_t>(nivel)][static_cast<size_t>(fila)], importe);
  TARVO_INTENTAR(alCambiar_(nuevos));
  poner(nuevos);
  if (const auto aviso = avisoCambio(deQuien, cual, antes, importe, v_.contexto().ajustes, textos))
    v_.decirDuda(*aviso);
  return {};
}

}  // namespace tarvo::articles
