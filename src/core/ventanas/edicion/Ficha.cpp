#include "core/ventanas/edicion/Ficha.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/EscogeFecha.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

bool preguntarAbandono(Ventana& v) {
  return MyMsgBox::Decide(&v, v.contexto().textos, v.t(kTxAbandonarCambios),
                          kAceptoCancelo | kExclamacion | kPrudente);
}

Ficha::Ficha(Contexto& contexto, const QString& nombre) : Ventana(contexto, nombre) {}

Ficha::~Ficha() = default;

Formulario Ficha::formulario(int titulo) {
  auto* todo = new QVBoxLayout(cuerpo());
  cuerpo()->setWindowTitle(t(titulo));
  return {*this, *todo};
}

void Ficha::acabar(const QSize& tamano, const Botones& b) {
  acepto_ = cuerpo()->findChild<QPushButton*>(b.acepto);
  cancelo_ = cuerpo()->findChild<QPushButton*>(b.cancelo);
  if (!acepto_) {
    acepto_ = new QPushButton(t(b.textoAcepto > 0 ? b.textoAcepto : kTxAceptar), cuerpo());
    cancelo_ = new QPushButton(t(b.textoCancelo > 0 ? b.textoCancelo : kTxCancelar), cuerpo());
    acepto_->setObjectName(b.acepto);
    cancelo_->setObjectName(b.cancelo);
    auto* botones = new QHBoxLayout;
    if (b.otro) botones->addWidget(b.otro);
    botones->addStretch();
    botones->addWidget(acepto_);
    botones->addWidget(cancelo_);
    qobject_cast<QBoxLayout*>(cuerpo()->layout())->addLayout(botones);
  }
  acepto_->setDefault(!b.destruye);
  cancelo_->setDefault(b.destruye);
  connect(acepto_, &QPushButton::clicked, this, &Ficha::confirmar);
  connect(cancelo_, &QPushButton::clicked, this, &Ficha::rechazar);
  if (tamano.isValid())
    cuerpo()->resize(tamano);
  else
    cuerpo()->adjustSize();
  enlazar();
}

// --- fields of a form of the window's own

namespace {

// Puts the label below the field, in the place that the form gave to the field alone.
QLabel* faltaBajo(QWidget& control, QWidget& cuerpo) {
  const QString nombre = u"falta"_s + control.objectName();
  if (auto* hay = cuerpo.findChild<QLabel*>(nombre)) return hay;
  auto* caja = new QWidget(control.parentWidget());
  auto* pila = new QVBoxLayout(caja);
  pila->setContentsMargins(0, 0, 0, 0);
  pila->setSpacing(escalar(kHueco / 2));  // the frame of a wrong field is wider than the field's
  QLayout* sitio = control.parentWidget()->layout();
  delete sitio->replaceWidget(&control, caja);
  auto* falta = new QLabel(caja);
  falta->setObjectName(nombre);
  falta->hide();
  pila->addWidget(&control);
  pila->addWidget(falta);
  return falta;
}

QString rotuloDe(const QWidget& control, const QWidget& cuerpo) {
  for (const QLabel* r : cuerpo.findChildren<QLabel*>())
    if (r->buddy() == &control) return r->text();
  return control.accessibleName();
}

}  // namespace

Campo& Ficha::enlazarCampo(QLineEdit& linea, Modo modo, int nombre, QLabel* falta) {
  if (modo.deFecha) {
    new EscogeFecha(linea, contexto());
    fechas_.push_back(&linea);
  }
  auto* campo = new CampoLinea(linea, falta ? falta : faltaBajo(linea, *cuerpo()), std::move(modo));
  const QString suyo = nombre > 0 ? t(nombre) : rotuloDe(linea, *cuerpo());
  campo->ponerNombre(suyo);
  return anadir(campo);
}

// A value that isn't in the list gets an item of its own: showing it changes nothing.
Campo& Ficha::enlazarCampo(QComboBox& lista, std::function<qint64()> ver,
                           std::function<void(qint64)> poner) {
  auto* campo = new CampoVivo(lista, nullptr,
                              {.estado = [&lista] { return QString::number(elegido(lista, -1)); },
                               .aControl =
                                   [&lista, ver] {
                                     if (elegir(lista, ver())) return;
                                     lista.addItem(QString::number(ver()), ver());
                                     elegir(lista, ver());
                                   },
                               .aMiembro = [&lista, poner] { poner(elegido(lista)); }});
  connect(&lista, &QComboBox::currentIndexChanged, campo, &CampoVivo::haCambiado);
  campo->ponerNombre(rotuloDe(lista, *cuerpo()));
  return anadir(campo);
}

Campo& Ficha::enlazarCampo(QCheckBox& casilla, bool& donde) {
  auto* campo =
      new CampoVivo(casilla, nullptr,
                    {.estado = [&casilla] { return QString::number(casilla.isChecked()); },
                     .aControl = [&casilla, &donde] { casilla.setChecked(donde); },
                     .aMiembro = [&casilla, &donde] { donde = casilla.isChecked(); }});
  connect(&casilla, &QCheckBox::toggled, campo, &CampoVivo::haCambiado);
  campo->ponerNombre(casilla.text());
  return anadir(campo);
}

Campo& Ficha::enlazarCampo(QRadioButton& si, QRadioButton& no, bool& donde) {
  auto* campo =
      new CampoVivo(si, nullptr,
                    {.estado = [&si] { return QString::number(si.isChecked()); },
                     .aControl = [&si, &no, &donde] { (donde ? si : no).setChecked(true); },
                     .aMiembro = [&si, &donde] { donde = si.isChecked(); }});
  connect(&si, &QRadioButton::toggled, campo, &CampoVivo::haCambiado);
  campo->ponerNombre(si.text());
  return anadir(campo);
}

Campo& Ficha::enlazarCampo(QListWidget& lista, int& fila) {
  auto* campo = new CampoVivo(lista, nullptr,
                              {.estado = [&lista] { return QString::number(lista.currentRow()); },
                               .aControl = [&lista, &fila] { lista.setCurrentRow(fila); },
                               .aMiembro = [&lista, &fila] { fila = lista.currentRow(); }});
  connect(&lista, &QListWidget::currentRowChanged, campo, &CampoVivo::haCambiado);
  campo->ponerNombre(rotuloDe(lista, *cuerpo()));
  return anadir(campo);
}

Campo& Ficha::enlazarTexto(QComboBox& lista, QString& donde) {
  auto* campo = new CampoVivo(lista, nullptr,
                              {.estado = [&lista] { return lista.currentText(); },
                               .aControl =
                                   [&lista, &donde] {
                                     if (!donde.isEmpty() && lista.findText(donde) < 0)
                                       lista.addItem(donde);
                                     lista.setCurrentIndex(lista.findText(donde));
                                   },
                               .aMiembro = [&lista, &donde] { donde = lista.currentText(); }});
  connect(&lista, &QComboBox::currentIndexChanged, campo, &CampoVivo::haCambiado);
  campo->ponerNombre(rotuloDe(lista, *cuerpo()));
  return anadir(campo);
}

Campo& Ficha::anadir(Campo* campo) {
  campos_.push_back(campo);
  campo->acordar();
  return *campo;
}

void Ficha::apartar(Campo& campo, Renglon& renglon) {
  std::erase(campos_, &campo);
  renglon.campos_.push_back(&campo);
}

// --- operations

void Ficha::ponerFrase(int texto, bool conLineas) {
  frase_ = texto;
  conLineas_ = conLineas;
}

void Ficha::mostrar() {
  for (Campo* c : campos_) c->mostrar();
}

void Ficha::enfocarPrimero() {
  if (!campos_.empty()) campos_.front()->enfocar();
}

std::vector<Ficha::FaltaCampo> Ficha::faltas() {
  std::vector<FaltaCampo> todas;
  for (Campo* c : campos_)
    if (const auto hecho = c->leer(); !hecho) todas.push_back({c, hecho.error().texto});
  for (const FaltaCampo& f : comprobar()) {
    if (f.campo && f.campo->conFalta())
      continue;  // it couldn't be read, and that fault is already reported
    if (f.campo) f.campo->marcar(f.texto);
    todas.push_back(f);
  }
  // In the order of the form; those without a field at the end.
  const auto sitio = [this](const FaltaCampo& f) { return std::ranges::find(campos_, f.campo); };
  std::ranges::stable_sort(todas, {}, sitio);
  return todas;
}

void Ficha::decir(const std::vector<FaltaCampo>& malas) {
  QString texto =
      frase_ == 0 && !conLineas_ ? malas.front().texto : t(frase_ > 0 ? frase_ : kTxHayFaltas);
  if (conLineas_)
    for (const FaltaCampo& f : malas) {
      const QString nombre = f.campo ? f.campo->nombre() : QString();
      texto += u'\n' + (nombre.isEmpty() ? f.texto : nombre + u": "_s + f.texto);
    }
  MyMsgBox::Decide(this, contexto().textos, texto, kSoloAcepto | kCritico);
  if (malas.front().campo) malas.front().campo->enfocar();
}

bool Ficha::leerCallada() {
  return faltas().empty();
}

bool Ficha::leer() {
  const auto malas = faltas();
  if (!malas.empty()) hacerSitio();
  if (!malas.empty()) decir(malas);
  return malas.empty();
}

// Texts that wrap ask for a height that the least size of a window doesn't count.
void Ficha::showEvent(QShowEvent* evento) {
  Ventana::showEvent(evento);
  hacerSitio();
}

// Faults in words need room, as far as the screen has it: else they would overlap.
void Ficha::hacerSitio() {
  const QLayout* todo = cuerpo()->layout();
  if (!todo) return;
  const int pide = std::max(todo->totalMinimumHeightForWidth(cuerpo()->width()),
                            todo->totalMinimumSize().height());
  const int cabe = screen()->availableSize().height() - (frameGeometry().height() - height());
  const int alto = std::min(height() + pide - cuerpo()->height(), cabe);
  if (alto > height()) crecer({width(), alto});
}

bool Ficha::cambiada() const {
  return std::ranges::any_of(campos_, &Campo::tocado);
}

bool Ficha::consiente() {
  std::vector<Fecha> dias;
  for (const QLineEdit* linea : fechas_)
    if (const auto f = Fecha::leer(linea->text().trimmed()); f && linea->isEnabled())
      dias.push_back(*f);
  return consienteFechas(*this, dias);
}

// A key that saves doesn't move the focus, which would end the editing of a cell.
bool Ficha::acabarCeldas() {
  return std::ranges::all_of(cuerpo()->findChildren<Parrilla*>(), &Parrilla::acabarCelda);
}

void Ficha::confirmar() {
  if (acabarCeldas() && leer() && consiente() && conforme() && haIdoBien(aplicar())) aplicada();
}

bool Ficha::QueryUnload() {
  return cambiada() && !preguntarAbandono(*this);
}

}  // namespace tarvo::ventanas
