// The operations on the selected articles, their undo, and the windows opened from here.
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include "articles/TextosArticles.h"
#include "articles/importar/ventanas/Puertas.h"
#include "articles/precios/ventanas/Puertas.h"
#include "articles/ventanas/BrowPLUs.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/EnviarCambios.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "totals/periodos/Clases.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::MyMsgBox;

namespace {

constexpr size_t kPorPaso = 100;  // articles per transaction

}  // namespace

void BrowPLUs::montarAcciones() {
  unir(ui_.Borro, u"borrar"_s, Qt::Key_Delete, [this] { borrar(); });
  deshacer_ = new ventanas::Deshacer(*this, ui_.Deshacer);
  connect(deshacer_, &ventanas::Deshacer::deshecho, this, [this] { habilitar(); });
  unir(ui_.Copio, u"copiar"_s, Qt::Key_F6, [this] { trasladar(false); });
  unir(ui_.Muevo, u"adelante"_s, Qt::Key_F7, [this] { trasladar(true); });
  unir(ui_.VerXtrac, u"totales"_s, Qt::Key_F8, [this] { verVentas(); });
  unir(ui_.VerPrecios, u"reloj"_s, Qt::Key_F9,
       [this] { abrir(PuertaVerPrecios{seccion_, actual().codigo}); });
  unir(ui_.Calculo, u"sumar"_s, Qt::Key_F11, [this] { calcular(); });
  unir(ui_.Varios, u"acumular"_s, Qt::Key_F12, [this] { cambiarVarios(); });
  unir(ui_.Import, u"importar"_s, Qt::CTRL | Qt::Key_O,
       [this] { abrir(importar::PuertaImpPLU{.seccion = seccion_}); });
  ui_.Imprimir->setIcon(ventanas::icono(u"imprimir"_s));
  ui_.Imprimir->setEnabled(false);
  ui_.Imprimir->setToolTip(t(kTxSinInformes));
  permitir<totals::PuertaVerFils>(*ui_.VerXtrac, contexto(), t(kTxSinEsa));
  permitir<importar::PuertaImpPLU>(*ui_.Import, contexto(), t(kTxSinEsa));
  permitir<precios::PuertaCambioLote>(*ui_.Varios, contexto(), t(kTxSinEsa));
  ui_.Grid->ponerAcciones({ui_.Nuevo, ui_.Modificar, ui_.Borro, ui_.Deshacer, ui_.Copio, ui_.Muevo,
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
    // The shortcut opens the menu below its button.
    connect(a, &QAction::triggered, this,
            [m, a, barra] { ventanas::desplegar(*m, ventanas::bajo(*barra, *a)); });
    return m;
  };
  const auto entrada = [this](QMenu* m, const QString& objeto, int texto, auto hacer) {
    QAction* a = m->addAction(t(texto), this, hacer);
    a->setObjectName(objeto);
    return a;
  };
  auto* altas = menu(ui_.Nuevo, u"MnAltas"_s, u"anadir"_s, Qt::Key_Insert, ui_.barra);
  permitir<precios::PuertaFastAlta>(
      *entrada(altas, u"MnRapido"_s, kTxAltaRapida,
               [this] { abrir(precios::PuertaFastAlta{seccion_, nombre()}); }),
      contexto(), t(kTxSinEsa));
  entrada(altas, u"MnCompleto"_s, kTxAltaCompleta, [this] {
    editarCompleto(true);
  })->setShortcut(Qt::CTRL | Qt::Key_Insert);
  auto* modif = menu(ui_.Modificar, u"MnModif"_s, u"modificar"_s, Qt::Key_F3, ui_.barra);
  permitir<precios::PuertaFastModf>(
      *entrada(modif, u"MnRapidoM"_s, kTxModifRapida,
               [this] {
                 abrir(precios::PuertaFastModf{seccion_, nombre(),
                                               [lista = QPointer(this)](const auto& juntos) {
                                                 if (lista) lista->cambiadoRapido(juntos);
                                               }});
               }),
      contexto(), t(kTxSinEsa));
  entrada(modif, u"MnCompletoM"_s, kTxModifCompleta, [this] {
    editarCompleto(false);
  })->setShortcut(Qt::Key_F4);
  permitir<precios::PuertaCalcPre>(
      *entrada(modif, u"MnCalculo"_s, kTxModifCalculo, [this] { calcular(); }), contexto(),
      t(kTxSinEsa));
  montarMenuEnvio(
      *menu(ui_.Envio, u"MnEnvioCambios"_s, u"enviar"_s, Qt::CTRL | Qt::Key_E, ui_.barra2), *this);
  for (QMenu* m : {altas, modif}) {
    ventanas::ponerLetras(*m);
    addActions(m->actions());
  }
}

void BrowPLUs::habilitar() {
  const bool hay = ui_.Grid->filas() > 0 && !trabajando_;
  for (QAction* a : {ui_.Modificar, ui_.Borro, ui_.Copio, ui_.Muevo, ui_.VerPrecios})
    a->setEnabled(hay);
  ui_.VerXtrac->setEnabled(hay && contexto().ventanas.conoce<totals::PuertaVerFils>());
  ui_.Calculo->setEnabled(hay && contexto().ventanas.conoce<precios::PuertaCalcPre>());
  ui_.Nuevo->setEnabled(!trabajando_);
  ui_.Deshacer->setEnabled(!deshacer_->vacia() && !trabajando_);
  if (deshacer_->vacia()) ui_.Deshacer->setProperty(ventanas::kPorQueNo, nadaQueDeshacer());
}

void BrowPLUs::editarCompleto(bool nuevo) {
  const ClaveArticulo c = nuevo ? ClaveArticulo{seccion_, 0} : actual();
  if (!nuevo && c.codigo == 0) return;
  if (!nuevo && c.deSistema()) return decirDuda(t(kTxIntocables));
  abrir(PuertaXEditPLU{c.seccion, departamento_, c.codigo, nombre(),
                       [lista = QPointer(this)](const auto& antes, const auto& ahora) {
                         if (lista) lista->fichaGuardada(antes, ahora);
                       }});
}

// Opens its sales across periods.
void BrowPLUs::verVentas() {
  const ClaveArticulo c = actual();
  abrir(totals::PuertaVerFils{.seccion = c.seccion, .codigo = c.codigo});
}

// The current price: that of the list, or else that of the list of prices beside it.
precios::Celda BrowPLUs::celdaActual() const {
  const QString campo =
      ui_.Grid->modelo()
          ->columnas()[static_cast<size_t>(std::max(0, ui_.Grid->vista()->currentIndex().column()))]
          .campo;
  for (int i = 0; ui_.Grid->vista()->hasFocus() && i < kNiveles * kTarifas; ++i)
    if (campo == columnaPrecio(i / kTarifas, i % kTarifas)) return {i / kTarifas, i % kTarifas};
  const QModelIndex i = ui_.GrdPre->vista()->currentIndex();
  return {std::max(0, i.column() - 1), std::max(0, i.row())};
}

void BrowPLUs::calcular() {
  const ClaveArticulo c = actual();
  if (c.codigo > 0 && c.deSistema()) return decirDuda(t(kTxIntocables));
  if (c.codigo == 0) return;
  abrir(precios::PuertaCalcPre{
      c.seccion, c.codigo, celdaActual(), nombre(),
      [lista = QPointer(this)](const Articulo& antes, const Articulo& ahora) {
        if (lista) lista->calculado(antes, ahora);
      }});
}

// Passes the selected rows if there are several; otherwise the articles are chosen in the window
// opened.
void BrowPLUs::cambiarVarios() {
  precios::PuertaCambioLote puerta{.seccion = seccion_, .lista = nombre()};
  for (const int fila : ui_.Grid->filasElegidas())
    puerta.codigos.push_back(ui_.Grid->valor(fila, u"CODPLU").entero());
  if (puerta.codigos.size() < 2) puerta.codigos.clear();
  abrir(puerta);
}

// The selected rows, or else the current one, without system articles.
std::vector<ClaveArticulo> BrowPLUs::elegidos() {
  std::vector<ClaveArticulo> claves;
  for (const int fila : ui_.Grid->filasParaActuar()) {
    const ClaveArticulo c{seccion_, ui_.Grid->valor(fila, u"CODPLU").entero()};
    if (!c.deSistema()) claves.push_back(c);
  }
  return claves;
}

// Processes a number of articles per step.
void BrowPLUs::porPasos(const QString& que, std::vector<ClaveArticulo> claves, const Paso& paso,
                        const AlFinal& alFinal) {
  const auto todas = std::make_shared<std::vector<ClaveArticulo>>(std::move(claves));
  const auto hechos = std::make_shared<qint64>(0);
  const auto uno = [=](Trabajo::Avance& a) -> Resultado<bool> {
    a.total = static_cast<qint64>(todas->size());
    const auto desde = static_cast<size_t>(*hechos);
    const auto tanda = std::span(*todas).subspan(desde, std::min(kPorPaso, todas->size() - desde));
    TARVO_INTENTAR(paso(tanda));
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
    const auto quedan = static_cast<int>(todas->size()) - static_cast<int>(*hechos);
    const bool parado = fin && *fin == Trabajo::Fin::Parado && quedan > 0;
    alFinal(*hechos, parado ? t(kTxSePararon, quedan) : QString());
    habilitar();
    if (!fin) decirFallo(informe(*this, fin.error()));
  });
}

// Code and name of the first ones, a line each, and how many more there are.
Resultado<QString> BrowPLUs::nombrar(std::span<const ClaveArticulo> claves) const {
  constexpr size_t kNombrados = 3;
  QStringList lineas;
  for (const ClaveArticulo& c : claves.first(std::min(claves.size(), kNombrados))) {
    TARVO_TOMAR(const auto articulo, catalogo_.leer(c));
    lineas << verCodigo(c.codigo) + u"  "_s + (articulo ? articulo->nombre : QString());
  }
  if (claves.size() > kNombrados) lineas << t(kTxYMas).arg(claves.size() - kNombrados);
  return lineas.join(u'\n');
}

void BrowPLUs::borrar() {
  const auto claves = elegidos();
  if (claves.empty()) {
    if (ui_.Grid->filas() > 0) decirDuda(t(kTxIntocables));
    return;
  }
  const auto cuales = nombrar(claves);
  if (!haIdoBien(cuales)) return;
  const QString pregunta = t(kTxBorrarPLUs, static_cast<int>(claves.size())) + u'\n' + *cuales;
  if (!MyMsgBox::Decide(this, contexto().textos, pregunta,
                        ventanas::kAceptoCancelo | ventanas::kExclamacion))
    return;
  const auto lote = lotes_.empezar(nombre());
  if (!haIdoBien(lote)) return;
  // Goes to the row after the last one deleted, or to the last row.
  const int ultima = ui_.Grid->filasElegidas().back();
  const int sitio = ultima + 1 - static_cast<int>(claves.size());
  const auto paso = [this, lote = *lote](std::span<const ClaveArticulo> tanda) {
    return lotes_.borrar(lote, tanda);
  };
  const auto fin = [=, this, lote = *lote](qint64 hechos, const QString& parado) {
    const QString que = t(kTxBorrados, static_cast<int>(hechos));
    hechos > 0 ? anotarDeshacer(que, lote) : void(haIdoBien(lotes_.acabar(lote)));
    ui_.Grid->irA(std::clamp(sitio, 0, std::max(0, ui_.Grid->filas() - 1)));
    const QString dicho = hechos > 0 ? t(kTxSePuedeDeshacer).arg(que) : que + u'.';
    parado.isEmpty() ? decirBien(dicho) : decirDuda(dicho + u' ' + parado);
  };
  porPasos(t(kTxBorrando), claves, paso, fin);
}

void BrowPLUs::trasladar(bool mover) {
  const auto claves = elegidos();
  if (claves.empty()) {
    if (ui_.Grid->filas() > 0) decirDuda(t(kTxIntocables));
    return;
  }
  const auto destino = preguntar(PuertaEntNmSc{
      .mover = mover, .seccion = seccion_, .cuantos = static_cast<int>(claves.size())});
  if (!destino || *destino == 0) return;
  const auto lote = lotes_.empezar(nombre());
  if (!haIdoBien(lote)) return;
  const auto fuera = std::make_shared<QStringList>();
  const auto paso = [=, this, lote = *lote](std::span<const ClaveArticulo> tanda) -> Resultado<> {
    TARVO_TOMAR(const auto quedan, mover ? lotes_.mover(lote, tanda, *destino)
                                         : lotes_.copiar(lote, tanda, *destino, u"EntNmSc"_s));
    for (const ClaveArticulo& c : quedan) *fuera << verCodigo(c.codigo);
    return {};
  };
  porPasos(t(mover ? kTxMoviendo : kTxCopiandoPLUs), claves, paso,
           [=, this, lote = *lote](qint64 hechos, const QString& parado) {
             const int bien = static_cast<int>(hechos - fuera->size());
             const QString que = t(mover ? kTxMovidos : kTxCopiados, bien);
             if (bien > 0) anotarDeshacer(que, lote);
             if (!parado.isEmpty())
               return decirDuda((bien > 0 ? t(kTxSePuedeDeshacer).arg(que) : que + u'.') + u' ' +
                                parado);
             if (fuera->isEmpty()) return decirBien(t(kTxSePuedeDeshacer).arg(que));
             decirDuda((bien > 0 ? que + u". "_s : QString()) + t(kTxDuplicado),
                       t(kTxNoTrasladados) + fuera->join(u", "_s));
           });
}

// --- closing ------------------------------------------------------------------------------------

// False if one of them refuses to close.
bool BrowPLUs::cerrarHijos() {
  for (Ventana* v : contexto().ventanas.abiertas()) {
    const bool mio = v->dueno() == this && v->isVisible() && v->nombre() != u"gestcomm";
    if (mio && !v->descargar()) return false;
  }
  return true;
}

bool BrowPLUs::QueryUnload() {
  if (!cerrarHijos()) return true;
  if (vuelta_ && !haIdoBien(vuelta_->hastaElFinal())) return true;
  trabajo().parar();
  if (!enviarAlSalir(*this, catalogo_, motor_)) return true;
  deshacer_->olvidar();
  return false;
}

}  // namespace tarvo::articles
