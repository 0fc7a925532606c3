#include "core/ventanas/marco/Manual.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextTable>
#include <QVBoxLayout>
#include <QWindow>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAncho = 640, kAlto = 600;

QString enRecurso(const QString& pagina) {
  return u":/manual/%1.md"_s.arg(pagina);
}

// The plain text of a page, without its markup.
QString leido(const QString& pagina) {
  QFile f(enRecurso(pagina));
  if (!f.open(QIODevice::ReadOnly)) return {};
  QTextDocument d;
  d.setMarkdown(QString::fromUtf8(f.readAll()));
  return d.toPlainText();
}

// Adds space above headings and thin lines in tables, which the page itself can't specify.
void vestir(QTextDocument& pagina) {
  pagina.setDocumentMargin(escalar(kMargen));
  for (QTextFrame* marco : pagina.rootFrame()->childFrames()) {
    auto* tabla = qobject_cast<QTextTable*>(marco);
    if (!tabla) continue;
    QTextTableFormat f = tabla->format();
    f.setCellSpacing(0);
    f.setCellPadding(escalar(kPaso));
    f.setBorderCollapse(true);
    f.setBorder(1);
    f.setBorderBrush(colorDe(Tinte::Linea));
    tabla->setFormat(f);
  }
  for (QTextBlock b = pagina.begin(); b.isValid(); b = b.next()) {
    if (b.blockFormat().headingLevel() < 2) continue;
    QTextBlockFormat f;
    f.setTopMargin(escalar(kSeparacion));
    f.setBottomMargin(escalar(kHueco));
    QTextCursor(b).mergeBlockFormat(f);
  }
}

}  // namespace

Manual::Manual(Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre),
      texto_(new QTextBrowser(cuerpo())),
      busca_(new QLineEdit(cuerpo())) {
  const auto boton = [this](int texto, const QString& objeto) {
    auto* b = new QPushButton(t(texto), cuerpo());
    b->setObjectName(objeto);
    return b;
  };
  auto* indice = boton(kTxManualIndice, u"Indice"_s);
  auto* atras = boton(kTxManualAtras, u"Atras"_s);
  auto* sigue = boton(kTxManualSiguiente, u"Siguiente"_s);
  auto* rotulo = new QLabel(t(kTxManualBuscar), cuerpo());
  rotulo->setBuddy(busca_);
  busca_->setObjectName(u"Busca"_s);
  busca_->setClearButtonEnabled(true);
  texto_->setObjectName(u"Pagina"_s);
  texto_->setAccessibleName(t(kTxManual));
  sigue->setDefault(true);
  atras->setEnabled(false);

  auto* arriba = new QHBoxLayout;
  arriba->setSpacing(escalar(kHueco));
  for (QWidget* w : std::initializer_list<QWidget*>{indice, atras, rotulo, busca_, sigue})
    arriba->addWidget(w, w == busca_ ? 1 : 0);
  auto* todo = new QVBoxLayout(cuerpo());
  const int m = escalar(kMargen);
  todo->setContentsMargins(m, m, m, m);
  todo->setSpacing(escalar(kHueco));
  todo->addLayout(arriba);
  todo->addWidget(texto_, 1);
  cuerpo()->resize(kAncho, kAlto);
  cuerpo()->setWindowTitle(t(kTxManual));
  enlazar();

  connect(indice, &QPushButton::clicked, this,
          [this] { ir(QStringView(PuertaManual::kNombre).toString()); });
  connect(atras, &QPushButton::clicked, texto_, &QTextBrowser::backward);
  connect(texto_, &QTextBrowser::sourceChanged, this, [this] { vestir(*texto_->document()); });
  connect(&contexto.tema, &Tema::cambiado, this, [this] { vestir(*texto_->document()); });
  connect(texto_, &QTextBrowser::backwardAvailable, atras, &QWidget::setEnabled);
  connect(sigue, &QPushButton::clicked, this, &Manual::buscar);
}

Resultado<> Manual::entrar(const PuertaManual& puerta) {
  ir(hay(puerta.pagina) ? puerta.pagina : QStringView(PuertaManual::kNombre).toString());
  texto_->setFocus();
  return {};
}

bool Manual::hay(const QString& pagina) {
  return QFile::exists(enRecurso(pagina));
}

QStringList Manual::paginas() {
  QStringList nombres;
  for (const QString& f : QDir(u":/manual"_s).entryList({u"*.md"_s}, QDir::Files, QDir::Name))
    nombres << f.chopped(3);
  return nombres;
}

QString Manual::pagina() const {
  return texto_->source().fileName().chopped(3);
}

void Manual::ir(const QString& pagina) {
  tira().quitar();
  texto_->setSource(QUrl(u"qrc"_s + enRecurso(pagina)));
}

void Manual::acompanar(QWidget& dueno) {
  disconnect(delDueno_);
  delDueno_ = connect(&dueno, &QObject::destroyed, this, [this] { descargar(); });
  // A transient child of a modal window isn't blocked by it.
  windowHandle()->setTransientParent(dueno.windowHandle());
  raise();
  activateWindow();
}

void Manual::irABuscar() {
  busca_->setFocus(Qt::ShortcutFocusReason);
  busca_->selectAll();
}

// Moves to the next match on this page, then on the pages after it, wrapping round to the first.
void Manual::buscar() {
  const QString que = busca_->text().simplified();
  if (que.isEmpty()) return irABuscar();
  tira().quitar();
  if (texto_->find(que)) return;
  const QStringList todas = paginas();
  const auto aqui = todas.indexOf(pagina());
  for (qsizetype n = 1; n <= todas.size(); ++n) {
    const QString& otra = todas[(aqui + n) % todas.size()];
    if (!leido(otra).contains(que, Qt::CaseInsensitive)) continue;
    if (otra != pagina()) ir(otra);
    texto_->moveCursor(QTextCursor::Start);
    texto_->find(que);
    return;
  }
  QTextCursor en = texto_->textCursor();
  en.clearSelection();  // the previous match isn't one for this text
  texto_->setTextCursor(en);
  decirDuda(contexto().textos(kTxManualSinEso, {que}));
}

// --- F1

Ayuda::Ayuda(Ventanas& ventanas) : ventanas_(ventanas) {
  qApp->installEventFilter(this);
}

bool Ayuda::eventFilter(QObject* objeto, QEvent* evento) {
  auto* control = qobject_cast<QWidget*>(objeto);
  if (!control || evento->type() != QEvent::KeyPress) return false;
  const auto& tecla = *static_cast<QKeyEvent*>(evento);
  if (tecla.key() != Qt::Key_F1 || tecla.modifiers() != Qt::NoModifier) return false;
  // Open pop-ups would grab the keys.
  QWidget* dueno = control->window();
  while (dueno->windowType() == Qt::Popup && dueno->parentWidget())
    dueno = dueno->parentWidget()->window();
  while (QWidget* abierto = QApplication::activePopupWidget()) abierto->close();
  // A message box has the page of its window.
  QWidget* suya = dueno;
  while (!qobject_cast<Ventana*>(suya) && suya->parentWidget())
    suya = suya->parentWidget()->window();
  Ventana* v = ventanas_.abrir(PuertaManual{suya->objectName()}, dueno);
  if (v && v != dueno) static_cast<Manual*>(v)->acompanar(*dueno);
  return true;
}

}  // namespace tarvo::ventanas
