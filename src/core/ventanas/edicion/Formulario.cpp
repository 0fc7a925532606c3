#include "core/ventanas/edicion/Formulario.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/edicion/Ficha.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

enum Sitio : int { kRotulo, kControl, kUnidad, kFalta };

template <class W>
W* con(W* control, const QString& nombre) {
  control->setObjectName(nombre);
  return control;
}

}  // namespace

QString Formulario::t(int numero) const {
  return ficha_->t(numero);
}

QWidget* Formulario::donde() const {
  return sitio_->parentWidget();
}

QGridLayout& Formulario::reja() {
  if (sitio_->count() > 0)
    if (auto* hay = qobject_cast<QGridLayout*>(sitio_->itemAt(sitio_->count() - 1)->layout()))
      return *hay;
  auto* nueva = new QGridLayout;
  nueva->setColumnStretch(kFalta, 1);
  nueva->setHorizontalSpacing(escalar(kHueco));
  sitio_->addLayout(nueva);
  return *nueva;
}

QLabel* Formulario::rotular(QGridLayout& r, int linea, int rotulo, QWidget* control) {
  if (rotulo == 0) return nullptr;
  auto* etiqueta = new QLabel(t(rotulo), donde());
  etiqueta->setBuddy(control);
  r.addWidget(etiqueta, linea, kRotulo);
  return etiqueta;
}

QLabel* Formulario::faltaDe(QGridLayout& r, int linea, const QString& nombre, bool debajo) {
  auto* falta = con(new QLabel(donde()), u"falta"_s + nombre);
  debajo ? r.addWidget(falta, linea + 1, kRotulo, 1, -1) : r.addWidget(falta, linea, kFalta);
  return falta;
}

Campo& Formulario::fila(int rotulo, const QString& nombre, Modo modo, int unidad) {
  QGridLayout& r = reja();
  const int linea = r.rowCount();
  auto* control = con(new QLineEdit(donde()), nombre);
  rotular(r, linea, rotulo, control);
  // A field without a width of its own takes the whole row, with its fault below.
  const bool ancha = modo.letras == 0;
  const bool debajo = modo.faltaDebajo;
  r.addWidget(control, linea, kControl, 1, ancha ? -1 : 1);
  if (unidad > 0) r.addWidget(new QLabel(t(unidad), donde()), linea, kUnidad);
  return ficha_->enlazarCampo(*control, std::move(modo), rotulo,
                              ancha ? nullptr : faltaDe(r, linea, nombre, debajo));
}

Campo& Formulario::lista(int rotulo, const QString& nombre, std::function<qint64()> ver,
                         std::function<void(qint64)> poner, const Opciones& opciones) {
  auto* control = con(new QComboBox(donde()), nombre);
  llenar(*control, opciones);
  fila(rotulo, control, nombre);
  return ficha_->enlazarCampo(*control, std::move(ver), std::move(poner));
}

void Formulario::fila(int rotulo, QWidget* control, const QString& nombre) {
  QGridLayout& r = reja();
  const int linea = r.rowCount();
  con(control, nombre);
  rotular(r, linea, rotulo, control);
  r.addWidget(control, linea, kControl, 1, 2);
}

Campo& Formulario::casilla(int rotulo, const QString& nombre, bool& donde_) {
  QGridLayout& r = reja();
  auto* control = con(new QCheckBox(t(rotulo), donde()), nombre);
  r.addWidget(control, r.rowCount(), kControl, 1, -1);
  return ficha_->enlazarCampo(*control, donde_);
}

Campo& Formulario::parrafo(int rotulo, const QString& nombre, QString& donde_, int alto) {
  auto* control = con(new QPlainTextEdit(donde()), nombre);
  control->setTabChangesFocus(true);
  control->setMinimumHeight(escalar(alto));
  poner(control, nombre, rotulo, 1);
  auto* campo =
      new CampoVivo(*control, nullptr,
                    {.estado = [control] { return control->toPlainText(); },
                     .aControl = [control, &donde_] { control->setPlainText(donde_); },
                     .aMiembro = [control, &donde_] { donde_ = control->toPlainText(); }});
  QObject::connect(control, &QPlainTextEdit::textChanged, campo, &CampoVivo::haCambiado);
  campo->ponerNombre(rotulo > 0 ? t(rotulo) : QString());
  return ficha_->anadir(campo);
}

void Formulario::poner(QWidget* control, const QString& nombre, int rotulo, int crece) {
  if (rotulo > 0) {
    auto* etiqueta = new QLabel(t(rotulo), donde());
    etiqueta->setBuddy(control);
    sitio_->addWidget(etiqueta);
  }
  sitio_->addWidget(con(control, nombre), crece);
}

Parrilla* Formulario::parrilla(int rotulo, const QString& nombre, int crece) {
  return ancho(new Parrilla(donde()), nombre, rotulo, crece);
}

QLabel* Formulario::nota(const QString& nombre, int texto) {
  auto* etiqueta = con(new QLabel(texto > 0 ? t(texto) : QString(), donde()), nombre);
  etiqueta->setWordWrap(true);
  sitio_->addWidget(etiqueta);
  return etiqueta;
}

QLabel* Formulario::titulo(const QString& nombre) {
  QLabel* etiqueta = nota(nombre);
  ponerLetra(*etiqueta, Letra::Titulo);
  return etiqueta;
}

void Formulario::enLinea(std::initializer_list<QWidget*> controles) {
  auto* linea = new QHBoxLayout;
  for (QWidget* w : controles) w ? linea->addWidget(w) : linea->addStretch();
  sitio_->addLayout(linea);
}

QPushButton* Formulario::boton(int texto, const QString& nombre,
                               const std::function<void()>& hacer) {
  auto* b = con(new QPushButton(t(texto), donde()), nombre);
  QObject::connect(b, &QPushButton::clicked, ficha_, hacer);
  return b;
}

QToolButton* Formulario::icono(const QString& dibujo, int pista, const QString& nombre,
                               const std::function<void()>& hacer) {
  auto* b = con(new QToolButton(donde()), nombre);
  b->setIcon(ventanas::icono(dibujo));
  b->setToolTip(t(pista));
  QObject::connect(b, &QToolButton::clicked, ficha_, hacer);
  return b;
}

void Formulario::muelle() {
  sitio_->addStretch();
}

Formulario Formulario::grupo(int titulo, const QString& nombre) {
  auto* caja = con(new QGroupBox(t(titulo), donde()), nombre);
  sitio_->addWidget(caja);
  return {*ficha_, *new QVBoxLayout(caja)};
}

QTabWidget* Formulario::fichas(const QString& nombre) {
  auto* f = con(new QTabWidget(donde()), nombre);
  sitio_->addWidget(f, 1);
  return f;
}

Formulario Formulario::ficha(QTabWidget* fichas, int titulo, const QString& nombre) {
  auto* hoja = con(new QWidget(fichas), nombre);
  fichas->addTab(hoja, t(titulo));
  return {*ficha_, *new QVBoxLayout(hoja)};
}

std::vector<Formulario> Formulario::columnas(int cuantas) {
  return repartir(std::vector<int>(static_cast<size_t>(cuantas), 1));
}

std::vector<Formulario> Formulario::columnas(std::initializer_list<int> partes) {
  return repartir(partes);
}

std::vector<Formulario> Formulario::repartir(const std::vector<int>& partes) {
  auto* linea = new QHBoxLayout;
  linea->setSpacing(escalar(kSeparacion));
  sitio_->addLayout(linea);
  std::vector<Formulario> todas;
  todas.reserve(partes.size());
  for (const int parte : partes) {
    auto* columna = new QVBoxLayout;
    linea->addLayout(columna, parte);
    todas.emplace_back(*ficha_, *columna);
  }
  return todas;
}

}  // namespace tarvo::ventanas
