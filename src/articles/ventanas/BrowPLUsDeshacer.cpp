// How what was done with many articles is taken back, and what was cut off is told.
#include "articles/LotesAMedias.h"
#include "articles/Vuelta.h"
#include "articles/ventanas/BrowPLUs.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::articles {

using ventanas::MyMsgBox;

void BrowPLUs::anotarDeshacer(const QString& que, qint64 lote) {
  if (haIdoBien(lotes_.acabar(lote))) deshechos_.push_back({que, lote});
  cambios_ = contexto().db.cambios();
}

// Changes of this section that were cut off, by whatever window: said first, and taken back from
// here too. Those of a window that is open are its own.
void BrowPLUs::mirarLotes() {
  std::erase_if(deshechos_, [](const Deshecho& d) { return d.cortado > 0; });
  const auto lotes = lotesAMedias(contexto().db);
  if (!haIdoBien(lotes)) return;
  for (const LoteAMedias& l : *lotes) {
    const bool suyo = std::ranges::find(l.secciones, seccion_) != l.secciones.end();
    if (!suyo || (l.ventana != nombre() && contexto().ventanas.cargada(l.ventana))) continue;
    const QString que = decirAMedias(l, contexto().textos);
    deshechos_.push_back({que, l.lote.numero, l.lote.articulos});
    decirDuda(que);
  }
  habilitar();
}

// Taken back, or taken as it stands: until then nothing of the section is sent.
void BrowPLUs::resolverCortado(const Deshecho& d) {
  constexpr int kEstilo = ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente;
  if (MyMsgBox::Decide(this, contexto().textos, contexto().textos(kTxDeshacerCortado, {d.que}),
                       kEstilo))
    return volverDeCortado(d);
  if (!MyMsgBox::Decide(this, contexto().textos, t(kTxDarPorBueno), kEstilo)) return;
  if (!haIdoBien(lotes_.darPorHecho(d.lote))) return;
  mirarLotes();
  decirBien(t(kTxDadoPorBueno));
}

void BrowPLUs::volverDeCortado(const Deshecho& d) {
  const auto vuelta = std::make_shared<Vuelta>(lotes_, d.lote, d.cortado, nombre());
  trabajando_ = true;
  habilitar();
  ui_.Grid->setEnabled(false);
  trabajo().empezar(
      t(ventanas::kTxDeshaciendo), [vuelta](Trabajo::Avance& a) { return vuelta->paso(a); },
      [=, this](const Resultado<Trabajo::Fin>& fin) {
        trabajando_ = false;
        ui_.Grid->setEnabled(true);
        refrescar();
        mirarLotes();
        if (!haIdoBien(fin) || *fin == Trabajo::Fin::Parado) return;
        decirVuelta(t(kTxDeshecho).arg(d.que), vuelta->hecho());
      });
}

void BrowPLUs::decirVuelta(const QString& bien, const Lotes::Deshecho& hecho) {
  hecho.fuera.empty() ? decirBien(bien)
                      : decirDuda(t(kTxNoRepuestos, static_cast<int>(hecho.fuera.size())), bien);
}

void BrowPLUs::deshacerUltimo() {
  if (deshechos_.empty() || trabajando_) return;
  const Deshecho d = deshechos_.back();
  if (d.cortado > 0) return resolverCortado(d);
  const auto aviso = lotes_.avisoDeVuelta(d.lote);
  if (aviso && *aviso &&
      !MyMsgBox::Decide(this, contexto().textos, **aviso,
                        ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente))
    return;
  const auto hecho = lotes_.deshacer(d.lote, nombre());
  if (hecho || hecho.error().clase == Fallo::NoExiste) deshechos_.pop_back();
  refrescar();
  habilitar();
  if (!haIdoBien(hecho)) return;
  decirVuelta(t(kTxDeshecho).arg(d.que), *hecho);
}

}  // namespace tarvo::articles
