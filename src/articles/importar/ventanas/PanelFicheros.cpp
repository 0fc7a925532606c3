#include "articles/importar/ventanas/PanelFicheros.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "articles/importar/ventanas/TextosImportarVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Recuerdos.h"
#include "core/ventanas/marco/Retenida.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;

namespace {

const QString kMemoria = u"Importar"_s, kCarpeta = u"carpeta"_s;

}  // namespace

PanelFicheros::PanelFicheros(QWidget* padre)
    : QWidget(padre),
      donde_(new QLabel(this)),
      lista_(new QListWidget(this)),
      ninguno_(new QLabel(this)),
      otra_(new QPushButton(this)) {
  donde_->setObjectName(u"carpeta"_s);
  lista_->setObjectName(u"LstFich"_s);
  otra_->setObjectName(u"otraCarpeta"_s);
  donde_->setWordWrap(true);
  ninguno_->setWordWrap(true);
  ventanas::ponerLetra(*ninguno_, ventanas::Letra::Secundaria);
  auto* todo = new QVBoxLayout(this);
  todo->setContentsMargins(0, 0, 0, 0);
  todo->addWidget(donde_);
  todo->addWidget(lista_, 1);
  todo->addWidget(ninguno_);
  todo->addWidget(otra_);
  setFocusProxy(lista_);
  connect(lista_, &QListWidget::itemActivated, this, [this](const QListWidgetItem* i) {
    recordar();
    Q_EMIT escogido(QDir(carpeta_).filePath(i->text()));
  });
  connect(otra_, &QPushButton::clicked, this, &PanelFicheros::escogerCarpeta);
}

void PanelFicheros::preparar(ventanas::Contexto& contexto, const QStringList& patrones) {
  c_ = &contexto;
  const Textos& textos = contexto.textos;
  patrones_ = patrones;
  otra_->setText(textos(kTxOtraCarpeta));
  otra_->setIcon(ventanas::icono(u"abrir"_s));
  lista_->setAccessibleName(textos(kTxListaFicheros));
  ninguno_->setText(textos(kTxSinFicheros, {patrones.join(u' ')}));
}

void PanelFicheros::empezar(const QString& carpeta) {
  const QString ultima = c_->recuerdos.leer(kMemoria, kCarpeta);
  const bool sirve = !ultima.isEmpty() && QDir(ultima).exists();
  ponerCarpeta(!carpeta.isEmpty() ? carpeta : sirve ? ultima : c_->ajustes.HomeDir);
}

void PanelFicheros::recordar() {
  c_->recuerdos.poner(kMemoria, kCarpeta, carpeta_);
}

void PanelFicheros::ponerCarpeta(const QString& carpeta) {
  carpeta_ = carpeta;
  donde_->setText(QDir::toNativeSeparators(carpeta));
  lista_->clear();
  lista_->addItems(QDir(carpeta).entryList(patrones_, QDir::Files, QDir::Name | QDir::IgnoreCase));
  if (lista_->count() > 0) lista_->setCurrentRow(0);
  ninguno_->setVisible(lista_->count() == 0);
}

void PanelFicheros::escogerCarpeta() {
  const ventanas::Retenida mientras(this);
  const QString otra = QFileDialog::getExistingDirectory(this, window()->windowTitle(), carpeta_);
  if (otra.isEmpty()) return;
  ponerCarpeta(otra);
  recordar();
  lista_->setFocus();
}

}  // namespace tarvo::importar
