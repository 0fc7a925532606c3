#include "automation/ventanas/VeoLog.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollBar>

#include "automation/ventanas/TextosAutomationVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/parrilla/Delegado.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr qint64 kTrozo = 4 * 1024 * 1024;  // bytes read before the screen is updated
constexpr int kMiradaMs = 500;

// The position of the text in the line, ignoring case, and accents too if it isn't found with them;
// -1 if it isn't there.
qsizetype sitioDe(const QString& linea, const QString& texto) {
  const auto sitio = linea.indexOf(texto, 0, Qt::CaseInsensitive);
  if (sitio >= 0) return sitio;
  const auto llano = [](const QString& s) {
    QString sin;
    for (const QChar c : s) sin += c.decomposition().isEmpty() ? c : c.decomposition().front();
    return sin;
  };
  return llano(linea).indexOf(llano(texto), 0, Qt::CaseInsensitive);
}

}  // namespace

VeoLog::VeoLog(Contexto& c, const QString& nombre)
    : Ventana(c, nombre), mirada_(c.reloj.temporizador([this] { mirar(); })) {
  ui_.setupUi(cuerpo());
  ponerLetra(*ui_.lblSitio, Letra::Secundaria);
  QTableView* v = ui_.Lineas;
  v->setItemDelegate(new Delegado(v));
  v->setSelectionMode(QAbstractItemView::ExtendedSelection);
  v->setShowGrid(false);
  v->setWordWrap(false);
  v->setTabKeyNavigation(false);
  v->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  v->horizontalHeader()->hide();
  v->horizontalHeader()->setStretchLastSection(true);
  v->verticalHeader()->hide();
  v->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  enlazar();
  v->setAccessibleName(t(kTxLineasTraza));
  setWindowIcon(icono(u"informacion"_s));
  conectar();
  seguir();
}

void VeoLog::conectar() {
  unir(ui_.siguiente, u"bajar"_s, Qt::Key_F3, [this] { buscar(false); });
  unir(ui_.anterior, u"subir"_s, Qt::SHIFT | Qt::Key_F3, [this] { buscar(true); });
  unir(ui_.problema, u"mal"_s, Qt::Key_F4, [this] { problema(); });
  unir(ui_.copiar, u"copiar"_s, QKeySequence::Copy, [this] { copiar(); });
  unir(ui_.alFinal, u"adelante"_s, Qt::CTRL | Qt::Key_End, [this] { alFinal(); });
  unir(ui_.salir, u"cerrar"_s, {}, [this] { close(); });
  connect(ui_.Buscar, &QLineEdit::returnPressed, this, [this] { buscar(false); });
}

Resultado<> VeoLog::entrar(const PuertaVeoLog& puerta) {
  const QString ruta = Ajustes::ruta(puerta.fichero, contexto().ajustes.HomeDir);
  const auto* vieja = std::exchange(modelo_, new ModeloTraza(ruta, contexto().textos, this));
  sigue_ = true;
  ui_.Lineas->setModel(modelo_);
  delete vieja;
  ui_.Lineas->verticalHeader()->setDefaultSectionSize(ui_.Lineas->fontMetrics().height() +
                                                      escalar(kPaso));
  connect(ui_.Lineas->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this] { ponerSitio(); });
  setWindowTitle(contexto().textos(kTxTrazaDe, {QFileInfo(ruta).fileName()}));
  mirar();
  ui_.Lineas->setFocus();
  return {};
}

// --- following ----------------------------------------------------------------------------------

// A view at the end stays there when rows are added or its height changes.
void VeoLog::seguir() {
  const auto* barra = ui_.Lineas->verticalScrollBar();
  connect(barra, &QScrollBar::valueChanged, this,
          [this, barra] { sigue_ = barra->value() >= barra->maximum(); });
  connect(barra, &QScrollBar::rangeChanged, this, [this] {
    if (sigue_) ui_.Lineas->scrollToBottom();
  });
}

void VeoLog::mirar() {
  if (modelo_->leer(kTrozo)) {
    ponerAncho();
    ponerSitio();
  }
  const bool vacia = modelo_->rowCount() == 0;
  ui_.lblVacia->setVisible(vacia);
  ui_.Lineas->setVisible(!vacia);
  for (QAction* a : {ui_.siguiente, ui_.anterior, ui_.problema, ui_.copiar, ui_.alFinal}) {
    a->setEnabled(!vacia);
    a->setProperty(kPorQueNo, ui_.lblVacia->text());
  }
  mirada_->unaVez(modelo_->fichero().quedaMas() ? 0 : kMiradaMs);
}

void VeoLog::ponerAncho() {
  const int letra = ui_.Lineas->fontMetrics().horizontalAdvance(u'm');
  const int pide = std::min(modelo_->fichero().masLarga(), 2000) * letra + escalar(kSeparacion);
  ui_.Lineas->horizontalHeader()->setMinimumSectionSize(pide);
}

void VeoLog::alFinal() {
  ui_.Lineas->setCurrentIndex(modelo_->index(modelo_->rowCount() - 1, 0));
  ui_.Lineas->scrollToBottom();
  ui_.Lineas->setFocus();
}

void VeoLog::ponerSitio() {
  const int linea = ui_.Lineas->currentIndex().row() + 1;
  ui_.lblSitio->setText(contexto().textos(kTxLineaDe, {linea, modelo_->rowCount()}));
}

// --- search -------------------------------------------------------------------------------------

// Centres the line, scrolled to its beginning; scrolls to the right only as far as the text found.
void VeoLog::irA(int linea, const QString& texto) {
  const QModelIndex i = modelo_->index(linea, 0);
  ui_.Lineas->setCurrentIndex(i);
  ui_.Lineas->scrollTo(i, QAbstractItemView::PositionAtCenter);
  const QString toda = modelo_->fichero().linea(linea);
  const auto sitio = texto.isEmpty() ? 0 : std::max<qsizetype>(0, sitioDe(toda, texto));
  const QFontMetrics m = ui_.Lineas->fontMetrics();
  const int hasta = m.horizontalAdvance(toda.left(sitio + texto.size())) + escalar(kSeparacion);
  ui_.Lineas->horizontalScrollBar()->setValue(std::max(0, hasta - ui_.Lineas->viewport()->width()));
}

// Wraps around at the end, once, and reports that.
void VeoLog::buscar(bool atras) {
  const QString texto = ui_.Buscar->text();
  if (texto.isEmpty()) return ui_.Buscar->setFocus();
  const FicheroTraza& f = modelo_->fichero();
  const int actual = ui_.Lineas->currentIndex().row();
  int linea = actual == 0 && atras ? -1 : f.buscar(texto, atras ? actual - 1 : actual + 1, atras);
  tira().quitar();
  if (linea < 0) {
    linea = f.buscar(texto, atras ? f.lineas() - 1 : 0, atras);
    if (linea < 0) return decirDuda(contexto().textos(kTxNoEncontrado, {texto}));
    decirDuda(t(kTxSiguePorElOtroLado));
  }
  irA(linea, texto);
}

void VeoLog::problema() {
  const int linea = modelo_->fichero().problema(ui_.Lineas->currentIndex().row() + 1);
  tira().quitar();
  if (linea < 0) return decirDuda(t(kTxSinMasProblemas));
  irA(linea);
}

void VeoLog::copiar() {
  QModelIndexList elegidas = ui_.Lineas->selectionModel()->selectedRows();
  std::ranges::sort(elegidas, {}, &QModelIndex::row);
  QStringList lineas;
  for (const QModelIndex& i : elegidas) lineas += modelo_->fichero().linea(i.row());
  if (!lineas.isEmpty()) QGuiApplication::clipboard()->setText(lineas.join(u'\n'));
}

}  // namespace tarvo::automation
