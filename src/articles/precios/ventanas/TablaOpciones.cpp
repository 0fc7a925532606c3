#include "articles/precios/ventanas/TablaOpciones.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>

#include "articles/precios/ventanas/Comun.h"
#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::precios {

namespace {

constexpr int kOpciones = 3;

}  // namespace

void TablaOpciones::preparar(const Textos& t, int nombres, int cuantas, int opciones) {
  auto* cuadricula = new QGridLayout(this);
  cuadricula->setContentsMargins(0, 0, 0, 0);
  cuadricula->setHorizontalSpacing(ventanas::escalar(ventanas::kSeparacion));
  cuadricula->setColumnStretch(kOpciones + 1, 1);
  QWidget* ultimo = antesDe(*this);
  for (int fila = 0; fila < cuantas; ++fila) {
    cuadricula->addWidget(new QLabel(t(nombres + fila)), fila, 0);
    auto* grupo = new QButtonGroup(this);
    for (int i = 0; i < kOpciones; ++i) {
      auto* boton = new QRadioButton(t(opciones + i));
      boton->setObjectName(QStringLiteral("opcion%1_%2").arg(fila).arg(i));
      boton->setAccessibleName(t(nombres + fila) + QStringLiteral(": ") + t(opciones + i));
      grupo->addButton(boton, i);
      cuadricula->addWidget(boton, fila, i + 1);
      setTabOrder(std::exchange(ultimo, boton), boton);
    }
    grupo->button(0)->setChecked(true);
    if (!primero_) primero_ = grupo->button(0);
    connect(grupo, &QButtonGroup::idToggled, this, [this](int, bool si) {
      if (si) Q_EMIT cambiada();
    });
    filas_.push_back(grupo);
  }
}

void TablaOpciones::poner(int fila, int opcion) {
  if (QAbstractButton* b = filas_[static_cast<std::size_t>(fila)]->button(opcion))
    b->setChecked(true);
}

void TablaOpciones::enfocar(int fila) {
  filas_[static_cast<std::size_t>(fila)]->checkedButton()->setFocus();
}

int TablaOpciones::valor(int fila) const {
  return filas_[static_cast<std::size_t>(fila)]->checkedId();
}

}  // namespace tarvo::precios
