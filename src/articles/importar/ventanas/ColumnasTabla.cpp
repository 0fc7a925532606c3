#include "articles/importar/ventanas/ColumnasTabla.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

#include "articles/importar/ventanas/TextosImportarVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Opciones.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumnasMayor = 100, kMuestras = 3, kLargoMuestra = 24, kSinUsar = -1;

QString titulo(const Tabla& tabla, const Plan& plan, int columna, const Textos& textos) {
  const QString escrito =
      plan.primeraFila > 0 ? tabla.celda(plan.primeraFila - 1, columna).simplified() : QString();
  return escrito.isEmpty() ? textos(kTxColumnaN, {columna + 1}) : escrito.left(2 * kLargoMuestra);
}

QString muestras(const Tabla& tabla, const Plan& plan, int columna) {
  QStringList salida;
  for (int f = plan.primeraFila; f < tabla.filas() && salida.size() < kMuestras; ++f)
    if (const QString c = tabla.celda(f, columna).simplified(); !c.isEmpty())
      salida << c.left(kLargoMuestra);
  return salida.join(u"  ·  "_s);
}

}  // namespace

ColumnasTabla::ColumnasTabla(QWidget* padre) : QScrollArea(padre) {
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
}

void ColumnasTabla::mostrar(const Tabla& tabla, const Plan& plan, const Textos& textos) {
  listas_.clear();
  auto* todo = new QWidget;
  auto* reja = new QGridLayout(todo);
  reja->setColumnStretch(2, 1);
  reja->setHorizontalSpacing(ventanas::escalar(ventanas::kSeparacion));
  for (int c = 0; c < std::min(tabla.columnas(), kColumnasMayor); ++c)
    anadir(*reja, tabla, plan, c, textos);
  reja->setRowStretch(reja->rowCount(), 1);
  setWidget(todo);
}

void ColumnasTabla::anadir(QGridLayout& reja, const Tabla& tabla, const Plan& plan, int columna,
                           const Textos& textos) {
  auto* nombre = new QLabel(titulo(tabla, plan, columna, textos));
  auto* ejemplos = new QLabel(muestras(tabla, plan, columna));
  nombre->setTextFormat(Qt::PlainText);
  ejemplos->setTextFormat(Qt::PlainText);
  ventanas::ponerLetra(*ejemplos, ventanas::Letra::Secundaria);
  auto* caja = lista(plan.columnas[static_cast<size_t>(columna)], textos);
  caja->setObjectName(u"columna%1"_s.arg(columna));
  caja->setAccessibleName(nombre->text());
  nombre->setBuddy(caja);
  reja.addWidget(nombre, columna, 0);
  reja.addWidget(caja, columna, 1);
  reja.addWidget(ejemplos, columna, 2);
  listas_.push_back(caja);
}

QComboBox* ColumnasTabla::lista(std::optional<Campo> campo, const Textos& textos) {
  auto* caja = new QComboBox;
  ventanas::Opciones campos{{kSinUsar, textos(kTxNoSeUsa)}};
  for (int i = 0; i < kCampos; ++i)
    campos.push_back({i, importar::titulo(static_cast<Campo>(i), textos)});
  ventanas::llenar(*caja, campos);
  ventanas::elegir(*caja, campo ? static_cast<int>(*campo) : kSinUsar);
  connect(caja, &QComboBox::currentIndexChanged, this, &ColumnasTabla::cambiado);
  return caja;
}

Emparejado ColumnasTabla::elegidas() const {
  Emparejado salida;
  for (const QComboBox* caja : listas_) {
    const int i = caja->currentData().toInt();
    std::optional<Campo> campo;
    if (i != kSinUsar && std::ranges::find(salida, static_cast<Campo>(i)) == salida.end())
      campo = static_cast<Campo>(i);
    salida.push_back(campo);
  }
  return salida;
}

}  // namespace tarvo::importar
