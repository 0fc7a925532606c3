// The user's edits in the list, and the operations on the selected offers.
#include "articles/precios/CambioRapido.h"
#include "articles/precios/TextosPrecios.h"
#include "articles/precios/ventanas/BrowOfer.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/Puertas.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/EscogeFecha.h"
#include "core/ventanas/marco/MyMsgBox.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;
using ventanas::MyMsgBox;

namespace {

constexpr int kPitidos = 20;  // before the dates of all groups are changed

}  // namespace

Resultado<> BrowOfer::precioEscrito(qint64 fila, std::size_t nivel, const QString& texto) {
  const Textos& textos = contexto().textos;
  const auto clave = claveDe(fila);
  if (!clave) return fallo(Fallo::NoExiste, textos(kTxOfertaQueFalta));
  const auto precio = comoPrecio(texto, contexto().ajustes);
  if (!precio) return std::unexpected(errorDe(precio.error(), texto, contexto().ajustes, textos));
  TARVO_TOMAR(const auto oferta, motor_.leer(*clave));
  PreciosOferta precios = oferta ? oferta->precios : PreciosOferta{};
  const qint64 antes = std::exchange(precios[nivel], *precio);
  TARVO_TOMAR(auto cambio, motor_.ponerPrecios(*clave, precios, ui_.Sincro->isChecked()));
  if (ui_.Sincro->isChecked()) decirBien(t(kTxPreciosCopiados, cambio.otras()));
  const QString cual = t(kTxNivel + static_cast<int>(nivel)).trimmed();
  const QString deQuien = ui_.Grid->texto(ui_.Grid->filaDe(fila), u"NOMPLU");
  if (const auto aviso = avisoCambio(deQuien, cual, antes, *precio, contexto().ajustes, textos))
    decirDuda(*aviso);
  const QString que = t(ventanas::kTxCeldaDe).arg(cual, precioEnTexto(contexto(), antes));
  deshacer_->apuntar(que, [this, c = std::move(cambio)]() -> Resultado<ventanas::Deshacer::Vuelto> {
    TARVO_TOMAR(const auto fuera, motor_.deshacer(c));
    RefrescoRemoto();
    if (fuera == 0) return ventanas::Deshacer::Vuelto();
    return ventanas::Deshacer::Vuelto{t(kTxOfertasSinVolver, fuera), true};
  });
  return {};
}

QString BrowOfer::avisoFechas(Extremo extremo, const Dia& dia, int cuantas) const {
  const bool desde = extremo == Extremo::Desde;
  const QString que = dia ? t(desde ? kTxCambiaDesde : kTxCambiaHasta, cuantas).arg(dia->corta())
                          : t(desde ? kTxQuitaDesde : kTxQuitaHasta, cuantas);
  return que + u'\n' + t(ui_.Sincro->isChecked() ? kTxDeTodosLosGrupos : kTxDeEsteGrupo) +
         u"\n\n"_s + t(kTxSePuedeDeshacer);
}

Resultado<Dia> BrowOfer::leerFecha(Extremo extremo, const QString& texto) const {
  const Fecha hoy = contexto().reloj.ahora();
  if (extremo == Extremo::Hasta) {
    const auto fin = leerFin(texto, {}, hoy);
    if (!fin) return std::unexpected(malFin(*this, fin.error()));
    return *fin;
  }
  const auto fecha = Fecha::leerProxima(texto, hoy);
  if (!fecha && !texto.trimmed().isEmpty()) return fallo(Fallo::Formato, t(kTxFechaMala));
  return fecha ? Dia(fecha->dia()) : Dia();
}

// The question is queued until the cell editor is closed, since a message box would take the focus
// from it.
Resultado<> BrowOfer::fechaEscrita(Extremo extremo, const QString& texto) {
  TARVO_TOMAR(const Dia dia, leerFecha(extremo, texto));
  // A date applies to all offers shown: a pasted column of different ones has no meaning.
  if (fechaEnCola_ && *fechaEnCola_ != dia) return fallo(Fallo::Formato, t(kTxUnaSolaFecha));
  if (std::exchange(fechaEnCola_, dia)) return {};
  QMetaObject::invokeMethod(
      this,
      [this, extremo] {
        if (const auto cola = std::exchange(fechaEnCola_, std::nullopt))
          cambiarFechas(extremo, *cola);
      },
      Qt::QueuedConnection);
  return {};
}

void BrowOfer::cambiarFechas(Extremo extremo, const Dia& dia) {
  if (dia && !ventanas::consienteFechas(*this, {*dia})) return;
  const bool todos = ui_.Sincro->isChecked();
  const auto cuantas = motor_.contar(filtro(), todos);
  if (!haIdoBien(cuantas)) return;
  for (int i = 0; todos && i < kPitidos; ++i) QApplication::beep();
  if ((*cuantas > 1 || !dia) &&
      !MyMsgBox::Decide(this, contexto().textos, avisoFechas(extremo, dia, *cuantas),
                        ventanas::kAceptoCancelo | ventanas::kExclamacion))
    return;
  auto cambio = motor_.cambiarFechas(filtro(), todos, extremo, dia);
  if (!haIdoBien(cambio)) return;
  const auto hechas = static_cast<int>(cambio->filas.size());
  const QString que = t(kTxFechasCambiadas, hechas).chopped(1);
  deshacer_->apuntar(que,
                     [this, c = std::move(*cambio)]() -> Resultado<ventanas::Deshacer::Vuelto> {
                       TARVO_TOMAR(const auto devueltas, motor_.deshacer(c));
                       RefrescoRemoto();
                       return ventanas::Deshacer::Vuelto{t(kTxFechasDevueltas, devueltas)};
                     });
  RefrescoRemoto();
  decirBien(t(kTxFechasCambiadas, hechas));
}

void BrowOfer::nueva() {
  if (ui_.dbG->currentIndex() < 0) return;
  abrir(PuertaNvaOfr{.seccion = ui_.dbS->currentData().toInt(),
                     .grupo = ui_.dbG->currentData().toInt()});
}

void BrowOfer::apuntarAlta(const QString& articulo, const Ofertas::Alta& alta) {
  deshacer_->apuntar(t(kTxOfertaDe).arg(articulo),
                     [this, alta]() -> Resultado<ventanas::Deshacer::Vuelto> {
                       TARVO_TOMAR(const auto fuera, motor_.deshacer(alta));
                       RefrescoRemoto();
                       if (fuera == 0) return ventanas::Deshacer::Vuelto();
                       return ventanas::Deshacer::Vuelto{t(kTxAltaSinVolver, fuera), true};
                     });
  RefrescoRemoto();
}

void BrowOfer::borrar() {
  std::vector<ClaveOferta> claves;
  for (const int fila : ui_.Grid->filasParaActuar())
    if (const auto c = claveDe(ui_.Grid->clave(fila))) claves.push_back(*c);
  if (claves.empty()) return;
  const auto todas = motor_.contarIguales(claves);
  if (!haIdoBien(todas)) return;
  const auto cuanto =
      preguntar(PuertaMsgBorrOf{.seleccionadas = static_cast<int>(claves.size()), .todas = *todas});
  if (!cuanto) return;
  auto idas = motor_.borrar(claves, *cuanto == Borrar::Todos);
  if (!haIdoBien(idas)) return;
  ui_.Grid->limpiarSeleccion();
  RefrescoRemoto();
  ui_.Grid->setFocus();
  const QString que = t(kTxOfertasBorradas, static_cast<int>(idas->size()));
  deshacer_->apuntar(que, [this, c = std::move(*idas)]() -> Resultado<ventanas::Deshacer::Vuelto> {
    TARVO_TOMAR(const auto fuera, motor_.reponer(c));
    RefrescoRemoto();
    if (fuera == 0) return ventanas::Deshacer::Vuelto();
    return ventanas::Deshacer::Vuelto{t(kTxOfertasSinReponer, fuera), true};
  });
  decirBien(t(kTxOfertasBorradasYVuelven).arg(que));
}

}  // namespace tarvo::precios
