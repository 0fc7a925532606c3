// Undo of operations on many articles, and reports of interrupted ones.
#include "articles/LotesAMedias.h"
#include "articles/precios/ventanas/Puertas.h"
#include "articles/ventanas/BrowPLUs.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::articles {

using ventanas::MyMsgBox;

namespace {

constexpr qint64 kDeUnaVez = 500;
constexpr int kPregunta = ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente;

}  // namespace

void BrowPLUs::anotarDeshacer(const QString& que, qint64 lote) {
  if (haIdoBien(lotes_.acabar(lote))) {
    const auto guardado = std::make_shared<LoteGuardado>(lotes_, lote);
    const auto numero = std::make_shared<int>(0);
    *numero = deshacer_->apuntar(que, [=, this] { return volverDe(guardado, que, *numero); });
  }
  cambios_ = contexto().base.cambios();
}

// False if the user keeps a batch of which not all could be restored.
Resultado<bool> BrowPLUs::conformeConVolver(qint64 lote) {
  TARVO_TOMAR(const auto aviso, lotes_.avisoDeVuelta(lote));
  return !aviso || MyMsgBox::Decide(this, contexto().textos, *aviso, kPregunta);
}

// What the calculator stored can be taken back here.
void BrowPLUs::calculado(const Articulo& antes, const Articulo& ahora) {
  const QString que = precios_->queCambia(antes.precios, ahora.precios);
  apuntar(que.isEmpty() ? t(kTxFichaDe).arg(verCodigo(ahora.clave.codigo)) : que, antes, ahora);
}

// So can what the fast change wrote.
void BrowPLUs::cambiadoRapido(std::span<const precios::CambioHecho> juntos) {
  deshacer_->comoUno([&] {
    for (const auto& c : juntos) apuntar(c.que, c.antes, c.ahora);
  });
}

// Few articles at once, many in slices.
Resultado<BrowPLUs::Vuelto> BrowPLUs::volverDe(const std::shared_ptr<LoteGuardado>& lote,
                                               const QString& que, int numero) {
  const Vuelto queda{.queda = true};
  TARVO_TOMAR(const bool conforme, conformeConVolver(lote->lote()));
  if (!conforme) return queda;
  TARVO_TOMAR(const qint64 articulos, lotes_.cuantos(lote->lote()));
  if (articulos > kDeUnaVez) {
    volverPorTramos(lote->lote(), articulos, que, numero);
    return queda;
  }
  const auto hecho = lotes_.deshacer(lote->lote(), nombre());
  refrescar();
  if (!hecho) return std::unexpected(hecho.error());
  return vueltaDe(t(ventanas::kTxDeshecho).arg(que), *hecho);
}

BrowPLUs::Vuelto BrowPLUs::vueltaDe(const QString& bien, const Lotes::Deshecho& hecho) const {
  if (hecho.fuera.empty()) return {bien};
  return {t(kTxNoRepuestos, static_cast<int>(hecho.fuera.size())), true};
}

// A window that is still open speaks of its last batch itself.
bool BrowPLUs::loDiceOtra(const LoteAMedias& lote) {
  if (lote.ventana == nombre() || !contexto().ventanas.cargada(lote.ventana)) return false;
  const auto ultimo = lotes_.ultimo(lote.ventana);
  return haIdoBien(ultimo) && *ultimo && (*ultimo)->numero == lote.lote.numero;
}

// Reports the interrupted changes of this section, made by any window, and makes them undoable
// here.
void BrowPLUs::mirarLotes() {
  for (const int numero : std::exchange(cortados_, {})) deshacer_->retirar(numero);
  const auto lotes = lotesAMedias(catalogo_);
  if (!haIdoBien(lotes)) return;
  for (const LoteAMedias& l : *lotes) {
    const bool suyo = std::ranges::find(l.secciones, seccion_) != l.secciones.end();
    if (!suyo || loDiceOtra(l)) continue;
    const QString que = decirAMedias(l, contexto().textos);
    cortados_.push_back(deshacer_->apuntar(que, [this, lote = l.lote, que]() -> Resultado<Vuelto> {
      return resolverCortado(lote, que);
    }));
    decirDuda(que);
  }
  habilitar();
}

// The batch is either undone or accepted as it is; until then nothing of the section is sent.
BrowPLUs::Vuelto BrowPLUs::resolverCortado(const Lotes::Lote& lote, const QString& que) {
  const Vuelto queda{.queda = true};
  if (MyMsgBox::Decide(this, contexto().textos, contexto().textos(kTxDeshacerCortado, {que}),
                       kPregunta)) {
    volverDeCortado(lote, que);
    return queda;
  }
  if (!MyMsgBox::Decide(this, contexto().textos, t(kTxDarPorBueno), kPregunta)) return queda;
  if (!haIdoBien(lotes_.darPorHecho(lote.numero))) return queda;
  mirarLotes();
  decirBien(t(kTxDadoPorBueno));
  return queda;
}

void BrowPLUs::volverDeCortado(const Lotes::Lote& lote, const QString& que) {
  const auto conforme = conformeConVolver(lote.numero);
  if (!haIdoBien(conforme) || !*conforme) return;
  volverPorTramos(lote.numero, lote.articulos, que, {});
}

// `numero`: its undo. Once begun and stopped, it is a batch that was cut off.
void BrowPLUs::volverPorTramos(qint64 lote, qint64 articulos, const QString& que,
                               std::optional<int> numero) {
  vuelta_ = std::make_unique<Vuelta>(lotes_, lote, articulos, nombre());
  trabajando_ = true;
  habilitar();
  ui_.Grid->setEnabled(false);
  trabajo().empezar(
      t(ventanas::kTxDeshaciendo), [this](Trabajo::Avance& a) { return vuelta_->paso(a); },
      [=, this](const Resultado<Trabajo::Fin>& fin) {
        const auto vuelta = std::exchange(vuelta_, nullptr);
        trabajando_ = false;
        ui_.Grid->setEnabled(true);
        refrescar();
        ui_.Grid->setFocus();
        if (numero && vuelta->hecho().vistos > 0) deshacer_->retirar(*numero);
        mirarLotes();
        if (!haIdoBien(fin)) return;
        if (*fin == Trabajo::Fin::Parado)
          return decirDuda(t(ventanas::kTxAMedias, static_cast<int>(vuelta->quedan())));
        const Vuelto v = vueltaDe(t(ventanas::kTxDeshecho).arg(que), vuelta->hecho());
        v.duda ? decirDuda(v.texto) : decirBien(v.texto);
      });
}

// The change of many articles is undone in its own window.
QString BrowPLUs::nadaQueDeshacer() {
  const auto lote = lotes_.ultimo(precios::PuertaCambioLote::kNombre.toString());
  if (!haIdoBien(lote) || !*lote) return t(ventanas::kTxNadaQueDeshacer);
  return t(kTxSeDeshaceEnSuVentana).arg((*lote)->cuando.general());
}

}  // namespace tarvo::articles
