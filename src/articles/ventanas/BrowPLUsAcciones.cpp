// What is done with the articles chosen, how it is taken back, and what opens from here.
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include "articles/TextosArticles.h"
#include "articles/ventanas/BrowPLUs.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/EnviarCambios.h"
#include "articles/ventanas/Puertas.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "articles/ventanas/xEditPLU.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "totals/periodos/Clases.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::MyMsgBox;

namespace {

constexpr size_t kPorPaso = 100;  // articles, one transaction

}  // namespace

void BrowPLUs::montarAcciones() {
  unir(ui_.Borro, u"borrar"_s, Qt::Key_Delete, [this] { borrar(); });
  unir(ui_.Deshacer, u"atras"_s, QKeySequence(QKeySequence::Undo), [this] { deshacerUltimo(); });
  unir(ui_.Copio, u"copiar"_s, Qt::Key_F6, [this] { trasladar(false); });
  unir(ui_.Muevo, u"adelante"_s, Qt::Key_F7, [this] { trasladar(true); });
  unir(ui_.VerXtrac, u"totales"_s, Qt::Key_F8, [this] { verVentas(); });
  unir(ui_.VerPrecios, u"reloj"_s, Qt::Key_F9, [this] { abrirCon(u"VerPrecios"_s); });
  unir(ui_.Calculo, u"sumar"_s, Qt::Key_F11, [this] { abrirCon(u"CalcPre"_s); });
  unir(ui_.Varios, u"acumular"_s, Qt::Key_F12, [this] { abrirCon(u"CambioLote"_s); });
  unir(ui_.Import, u"importar"_s, Qt::CTRL | Qt::Key_O, [this] { abrirCon(u"ImpPLU"_s); });
  ui_.Imprimir->setIcon(ventanas::icono(u"imprimir"_s));
  ui_.Imprimir->setEnabled(false);
  ui_.Imprimir->setToolTip(t(kTxSinInformes));
  permitir(*ui_.VerXtrac, contexto(), u"VerFils"_s, t(kTxSinEsa));
  permitir(*ui_.Import, contexto(), u"ImpPLU"_s, t(kTxSinEsa));
  permitir(*ui_.Varios, contexto(), u"CambioLote"_s, t(kTxSinEsa));
  ui_.Grid->setAcciones({ui_.Nuevo, ui_.Modificar, ui_.Borro, ui_.Deshacer, ui_.Copio, ui_.Muevo,
                         ui_.VerXtrac, ui_.VerPrecios, ui_.Calculo, ui_.Varios, ui_.Import,
                         ui_.Imprimir, ui_.Envio});
}

void BrowPLUs::montarMenus() {
  const auto menu = [this](QAction* a, const QString& objeto, const QString& dibujo,
                           const QKeySequence& tecla, QToolBar* barra) {
    auto* m = new QMenu(this);
    m->setObjectName(objeto);
    a->setMenu(m);
    a->setIcon(ventanas::icono(dibujo));
    a->setShortcut(tecla);
    auto* b = qobject_cast<QToolButton*>(barra->widgetForAction(a));
    b->setPopupMode(QToolButton::InstantPopup);
    // The key opens the menu under its button.
    connect(a, &QAction::triggered, this,
            [m, b] { m->popup(b->mapToGlobal(QPoint(0, b->height()))); });
    return m;
  };
  const auto entrada = [this](QMenu* m, const QString& objeto, int texto, auto hacer) {
    QAction* a = m->addAction(t(texto), this, hacer);
    a->setObjectName(objeto);
    return a;
  };
  auto* altas = menu(ui_.Nuevo, u"MnAltas"_s, u"anadir"_s, Qt::Key_Insert, ui_.barra);
  permitir(*entrada(altas, u"MnRapido"_s, kTxAltaRapida, [this] { abrirCon(u"FastAlta"_s); }),
           contexto(), u"FastAlta"_s, t(kTxSinEsa));
  entrada(altas, u"MnCompleto"_s, kTxAltaCompleta, [this] {
    editarCompleto(true);
  })->setShortcut(Qt::CTRL | Qt::Key_Insert);
  auto* modif = menu(ui_.Modificar, u"MnModif"_s, u"modificar"_s, Qt::Key_F3, ui_.barra);
  permitir(*entrada(modif, u"MnRapidoM"_s, kTxModifRapida, [this] { abrirCon(u"FastModf"_s); }),
           contexto(), u"FastModf"_s, t(kTxSinEsa));
  entrada(modif, u"MnCompletoM"_s, kTxModifCompleta, [this] {
    editarCompleto(false);
  })->setShortcut(Qt::Key_F4);
  permitir(*entrada(modif, u"MnCalculo"_s, kTxModifCalculo, [this] { abrirCon(u"CalcPre"_s); }),
           contexto(), u"CalcPre"_s, t(kTxSinEsa));
  montarMenuEnvio(
      *menu(ui_.Envio, u"MnEnvioCambios"_s, u"enviar"_s, Qt::CTRL | Qt::Key_E, ui_.barra2), *this);
  for (QMenu* m : {altas, modif}) addActions(m->actions());
}

void BrowPLUs::habilitar() {
  const bool hay = ui_.Grid->filas() > 0 && !trabajando_;
  for (QAction* a : {ui_.Modificar, ui_.Borro, ui_.Copio, ui_.Muevo, ui_.VerPrecios})
    a->setEnabled(hay);
  ui_.VerXtrac->setEnabled(hay && contexto().ventanas.conoce<totals::PuertaVerFils>());
  ui_.Calculo->setEnabled(hay && contexto().ventanas.conoce(u"CalcPre"_s));
  ui_.Nuevo->setEnabled(!trabajando_);
  ui_.Deshacer->setEnabled(!deshechos_.empty() && !trabajando_);
  ui_.Deshacer->setToolTip(deshechos_.empty() ? QString() : deshechos_.back().que);
}

void BrowPLUs::editarCompleto(bool nuevo) {
  const ClaveArticulo c = nuevo ? ClaveArticulo{seccion_, 0} : actual();
  if (!nuevo && c.codigo == 0) return;
  if (!nuevo && c.deSistema()) return decirDuda(t(kTxIntocables));
  contexto().ventanas.abrir(XEditPLU::nombreDe(c), this,
                            {{u"padre"_s, nombre()},
                             {u"seccion"_s, c.seccion},
                             {u"departamento"_s, departamento_},
                             {u"codigo"_s, c.codigo}});
}

// Its sales across time.
void BrowPLUs::verVentas() {
  const ClaveArticulo c = actual();
  abrir(totals::PuertaVerFils{.seccion = c.seccion, .codigo = c.codigo});
}

void BrowPLUs::abrirCon(const QString& ventana) {
  const ClaveArticulo c = actual();
  if (ventana == u"CalcPre" && c.deSistema()) {
    if (c.codigo > 0) decirDuda(t(kTxIntocables));
    return;
  }
  QVariantList codigos;  // of several rows chosen
  for (const int fila : ui_.Grid->filasElegidas())
    codigos << ui_.Grid->valor(fila, u"CODPLU").entero();
  if (codigos.size() < 2) codigos.clear();
  contexto().ventanas.abrir(ventana, this,
                            {{u"padre"_s, nombre()},
                             {u"lista"_s, nombre()},
                             {u"codigos"_s, codigos},
                             {u"seccion"_s, seccion_},
                             {u"departamento"_s, departamento_},
                             {u"codigo"_s, c.codigo},
                             {u"clase"_s, totals::kPLUs}});
}

// The rows chosen, else the one in hand.
std::vector<ClaveArticulo> BrowPLUs::elegidos() {
  std::vector<ClaveArticulo> claves;
  for (const int fila : ui_.Grid->filasParaActuar()) {
    const ClaveArticulo c{seccion_, ui_.Grid->valor(fila, u"CODPLU").entero()};
    if (!c.deSistema()) claves.push_back(c);
  }
  return claves;
}

// Some articles a step; each step is one transaction.
void BrowPLUs::porPasos(const QString& que, std::vector<ClaveArticulo> claves, const Paso& paso,
                        const std::function<void(qint64)>& alFinal) {
  const auto todas = std::make_shared<std::vector<ClaveArticulo>>(std::move(claves));
  const auto hechos = std::make_shared<qint64>(0);
  const auto uno = [=, this](Trabajo::Avance& a) -> Resultado<bool> {
    a.total = static_cast<qint64>(todas->size());
    const auto desde = static_cast<size_t>(*hechos);
    const auto tanda = std::span(*todas).subspan(desde, std::min(kPorPaso, todas->size() - desde));
    TARVO_TOMAR(auto t, dao::Transaccion::empezar(contexto().db));
    TARVO_INTENTAR(paso(tanda));
    TARVO_INTENTAR(t.confirmar());
    a.hechos = *hechos += static_cast<qint64>(tanda.size());
    return a.hechos < a.total;
  };
  trabajando_ = true;
  habilitar();
  ui_.Grid->setEnabled(false);
  trabajo().empezar(que, uno, [=, this](const Resultado<Trabajo::Fin>& fin) {
    trabajando_ = false;
    ui_.Grid->setEnabled(true);
    ui_.Grid->limpiarSeleccion();
    refrescar();
    ui_.Grid->setFocus();
    alFinal(*hechos);
    habilitar();
    if (!fin) decirFallo(informe(*this, fin.error()));
  });
}

void BrowPLUs::borrar() {
  const auto claves = elegidos();
  if (claves.empty()) {
    if (ui_.Grid->filas() > 0) decirDuda(t(kTxIntocables));
    return;
  }
  if (!MyMsgBox::Decide(this, contexto().textos, t(kTxBorrarPLUs, static_cast<int>(claves.size())),
                        ventanas::kAceptoCancelo | ventanas::kExclamacion))
    return;
  const auto lote = lotes_.empezar(nombre());
  if (!haIdoBien(lote)) return;
  // After the last one that goes, or in front of the end.
  const int ultima = ui_.Grid->filasElegidas().back();
  const int sitio = ultima + 1 - static_cast<int>(claves.size());
  const auto paso = [this, lote = *lote](std::span<const ClaveArticulo> tanda) -> Resultado<> {
    for (const ClaveArticulo& c : tanda) TARVO_INTENTAR(lotes_.guardar(lote, c));
    TARVO_INTENTAR(catalogo_.borrar(tanda));
    return {};
  };
  porPasos(t(kTxBorrando), claves, paso, [=, this, lote = *lote](qint64 hechos) {
    const QString que = t(kTxBorrados, static_cast<int>(hechos));
    anotarDeshacer(que, lote);
    ui_.Grid->irA(std::clamp(sitio, 0, std::max(0, ui_.Grid->filas() - 1)));
    decirBien(t(kTxSePuedeDeshacer).arg(que));
  });
}

void BrowPLUs::trasladar(bool mover) {
  const auto claves = elegidos();
  if (claves.empty()) return;
  const auto destino = preguntar(PuertaEntNmSc{
      .mover = mover, .seccion = seccion_, .cuantos = static_cast<int>(claves.size())});
  if (!destino || *destino == 0) return;
  const auto lote = lotes_.empezar(nombre());
  if (!haIdoBien(lote)) return;
  const auto fuera = std::make_shared<QStringList>();
  const auto paso = [=, this, lote = *lote](std::span<const ClaveArticulo> tanda) -> Resultado<> {
    for (const ClaveArticulo& c : tanda) {
      TARVO_TOMAR(const auto hay, catalogo_.leer({*destino, c.codigo}));
      if (hay) continue;  // it is left out
      if (mover) TARVO_INTENTAR(lotes_.guardar(lote, c));
      TARVO_INTENTAR(lotes_.guardar(lote, {*destino, c.codigo}));
    }
    TARVO_TOMAR(const auto quedan, mover ? catalogo_.mover(tanda, *destino)
                                         : catalogo_.copiar(tanda, *destino, u"EntNmSc"_s));
    for (const ClaveArticulo& c : quedan) *fuera << verCodigo(c.codigo);
    return {};
  };
  porPasos(t(mover ? kTxMoviendo : kTxCopiandoPLUs), claves, paso,
           [=, this, lote = *lote](qint64 hechos) {
             const int bien = static_cast<int>(hechos - fuera->size());
             const QString que = t(mover ? kTxMovidos : kTxCopiados, bien);
             if (bien > 0) anotarDeshacer(que, lote);
             if (fuera->isEmpty()) return decirBien(t(kTxSePuedeDeshacer).arg(que));
             decirDuda(t(kTxDuplicado), que + u'\n' + t(kTxNoTrasladados) + fuera->join(u", "_s));
           });
}

// --- the end ------------------------------------------------------------------------------------

// False when one of them stays.
bool BrowPLUs::cerrarHijos() {
  for (Ventana* v : contexto().ventanas.abiertas()) {
    const bool mio = v->dueno() == this && v->isVisible() && v->nombre() != u"gestcomm";
    if (mio && !v->descargar()) return false;
  }
  return true;
}

bool BrowPLUs::QueryUnload() {
  if (!cerrarHijos()) return true;
  trabajo().parar();
  if (!trabajando_)
    for (const Deshecho& d : deshechos_)
      if (d.cortado == 0) haIdoBien(lotes_.olvidar(d.lote));
  deshechos_.clear();
  enviarAlSalir(*this, catalogo_, motor_);
  return false;
}

}  // namespace tarvo::articles
