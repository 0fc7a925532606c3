// Applying the change, and undoing it.
#include <algorithm>

#include "articles/precios/ventanas/CambioLoteVentana.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;
using articles::ClaveArticulo;

void CambioLoteVentana::aplicar() {
  const auto que = orden();
  std::vector<ClaveArticulo> claves;
  for (const LineaLote& l : lineas_)
    if (l.desenlace == Desenlace::Cambia) claves.push_back(l.clave);
  if (!que || claves.empty()) return;
  if (!ventanas::MyMsgBox::Decide(
          this, contexto().textos,
          t(kTxVaACambiar, static_cast<int>(claves.size())) + u'\n' + t(kTxSePuedeDeshacerLote),
          ventanas::kAceptoCancelo | ventanas::kExclamacion))
    return;
  aplicarYa(std::move(claves), *que);
}

void CambioLoteVentana::aplicarYa(std::vector<ClaveArticulo> claves, const OrdenLote& orden) {
  const auto total = static_cast<qint64>(claves.size());
  marchar(motor_.empezar(std::move(claves), orden, nombre()), total);
}

// Continues an interrupted change.
void CambioLoteVentana::terminar() {
  const auto ultimo = lotes_.ultimo(nombre());
  if (!haIdoBien(ultimo) || !*ultimo) return;
  auto resto = motor_.seguir((*ultimo)->numero, nombre());
  if (!haIdoBien(resto)) return;
  const qint64 faltan = (*resto)->faltan();
  marchar(std::move(*resto), faltan);
}

void CambioLoteVentana::marchar(std::unique_ptr<CambioLote::Marcha> marcha, qint64 total) {
  marcha_ = std::move(marcha);
  parar();
  trabajo().empezar(
      t(kTxCambiando),
      [this, total](Trabajo::Avance& a) {
        auto hayMas = marcha_->paso();
        a.hechos = marcha_->vistos();
        a.total = total;
        return hayMas;
      },
      [this](const Resultado<Trabajo::Fin>& fin) { aplicado(fin); });
}

// The percentage is cleared, so that a second Enter doesn't raise the prices again.
void CambioLoteVentana::aplicado(const Resultado<Trabajo::Fin>& fin) {
  const CambioLote::Hecho hecho = marcha_->hecho();
  const bool entero = fin && *fin == Trabajo::Fin::Acabado;
  const auto cerrado = entero ? marcha_->acabar() : Resultado<>{};
  marcha_.reset();
  suyos_.insert(hecho.lote);
  if (!entero || !cerrado) {
    const auto alAcabar = [this, error = !fin       ? std::optional(fin.error())
                                         : !cerrado ? std::optional(cerrado.error())
                                                    : std::nullopt] {
      if (error) return decirFallo(*error);
      decirVuelta(t(kTxNadaCambiado));
    };
    return volver(hecho.lote, hecho.cambiados, alAcabar);
  }
  ui_.txPc->setText({});  // clear() could be undone in the field with Ctrl+Z
  libre();
  const QString bien = t(kTxCambiados, hecho.cambiados);
  if (hecho.fuera > 0) return decirDuda(bien + u' ' + t(kTxNoCambiaron, hecho.fuera));
  decirBien(bien);
}

// Disables the window, which loses the focus.
void CambioLoteVentana::parar() {
  if (!foco_) foco_ = focusWidget();
  cuerpo()->setEnabled(false);
}

// Enables the window again, with the focus where it was, else in a field that is shown.
void CambioLoteVentana::libre() {
  cuerpo()->setEnabled(true);
  mirar();
  pintarDeshacer();
  const std::initializer_list<QWidget*> donde{foco_, ui_.txPc, ui_.txFormato, ui_.depto};
  const auto sirve = [](const QWidget* w) { return w && w->isEnabled() && w->isVisible(); };
  if (const auto suyo = std::ranges::find_if(donde, sirve); suyo != donde.end())
    (*suyo)->setFocus();
  foco_ = nullptr;
  if (lista_) lista_->refrescar();
}

void CambioLoteVentana::pintarDeshacer() {
  const auto ultimo = lotes_.ultimo(nombre());
  const bool hay = haIdoBien(ultimo) && ultimo->has_value();
  ui_.Deshacer->setEnabled(hay);
  const auto queda = hay && !(*ultimo)->acabado
                         ? lotes_.porHacer((*ultimo)->numero)
                         : Resultado<std::optional<articles::Lotes::PorHacer>>{};
  ui_.Terminar->setVisible(haIdoBien(queda) && queda->has_value());
  ui_.Deshacer->setToolTip(hay ? textoCambio(**ultimo) : QString());
}

// When it was made, of how many articles, and what became of the first.
QString CambioLoteVentana::textoCambio(const articles::Lotes::Lote& lote) {
  using Que = CambioLote::Ejemplo::Que;
  const QString cuando = t(kTxDeshacerLote).arg(lote.cuando.general());
  const auto ejemplo = motor_.ejemplo(lote.numero);
  if (!haIdoBien(ejemplo) || !*ejemplo) return cuando;
  const auto valor = [&](qint64 v) {
    const Que que = (*ejemplo)->que;
    return que == Que::Precio ? precioEnTexto(contexto(), v)
                              : t(que == Que::Formato ? kTxDelFormato : kTxDelDepartamento).arg(v);
  };
  return cuando + u'\n' +
         t(kTxCambioEjemplo, static_cast<int>(lote.articulos))
             .arg((*ejemplo)->nombre.trimmed(), valor((*ejemplo)->antes),
                  valor((*ejemplo)->despues));
}

// A change made before this window was opened isn't the one that comes to mind. One that was cut
// off is on the strip.
bool CambioLoteVentana::conformeConDeAntes(const articles::Lotes::Lote& lote) {
  if (!lote.acabado || suyos_.contains(lote.numero)) return true;
  return ventanas::MyMsgBox::Decide(
      this, contexto().textos,
      t(kTxCambioDeAntes) + u'\n' + textoCambio(lote) + u"\n\n"_s + t(kTxDeshacerEse),
      ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente);
}

void CambioLoteVentana::deshacer() {
  const auto ultimo = lotes_.ultimo(nombre());
  if (!haIdoBien(ultimo) || !*ultimo || !conformeConDeAntes(**ultimo)) return;
  const auto aviso = lotes_.avisoDeVuelta((*ultimo)->numero);
  if (!haIdoBien(aviso)) return;
  if (*aviso && !ventanas::MyMsgBox::Decide(
                    this, contexto().textos, **aviso,
                    ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente))
    return;
  volver((*ultimo)->numero, (*ultimo)->articulos,
         [this] { decirVuelta(t(kTxRepuestos, vuelta_->hecho().repuestos)); });
}

void CambioLoteVentana::volver(qint64 lote, qint64 articulos,
                               const std::function<void()>& alAcabar) {
  vuelta_ = std::make_unique<articles::Vuelta>(lotes_, lote, articulos, nombre());
  if (lote == 0) return vuelto(Trabajo::Fin::Acabado, alAcabar);
  parar();
  trabajo().empezar(
      t(ventanas::kTxDeshaciendo), [this](Trabajo::Avance& a) { return vuelta_->paso(a); },
      [=, this](const Resultado<Trabajo::Fin>& fin) { vuelto(fin, alAcabar); });
}

void CambioLoteVentana::vuelto(const Resultado<Trabajo::Fin>& fin,
                               const std::function<void()>& alAcabar) {
  libre();
  if (!haIdoBien(fin)) return;
  if (*fin == Trabajo::Fin::Parado)
    return decirDuda(t(ventanas::kTxAMedias, static_cast<int>(vuelta_->quedan())));
  alAcabar();
}

void CambioLoteVentana::decirVuelta(const QString& dicho) {
  const auto fuera = static_cast<int>(vuelta_->hecho().fuera.size());
  if (fuera > 0) return decirDuda(dicho + u' ' + t(kTxNoRepuestos, fuera));
  decirBien(dicho);
}

// A change in progress is undone before the window is closed, after asking the user.
bool CambioLoteVentana::QueryUnload() {
  if (marcha_ && !ventanas::MyMsgBox::Decide(
                     this, contexto().textos, t(kTxCerrarCambiando),
                     ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente))
    return true;
  if (marcha_) trabajo().parar();
  if (trabajo().enMarcha() && vuelta_ && !haIdoBien(vuelta_->hastaElFinal())) return true;
  lista_.soltar();
  return false;
}

}  // namespace tarvo::precios
