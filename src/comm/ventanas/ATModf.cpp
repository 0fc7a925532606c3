#include "comm/ventanas/ATModf.h"

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kOrdenesMax = 8;

}  // namespace

// Orders are kept in capitals in the settings file, where ";" parts them.
QString conAT(const QString& orden) {
  QString o = orden.trimmed().toUpper().remove(u';');
  return o.isEmpty() || o.startsWith(u"AT") ? o : u"AT"_s + o;
}

ATModf::ATModf(Contexto& c, const QString& nombre, const Servicios&) : Ventana(c, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  ui_.Sube->setIcon(icono(u"subir"_s));
  ui_.Baja->setIcon(icono(u"bajar"_s));
  connect(ui_.Pon, &QPushButton::clicked, this, [this] { anadir(); });
  connect(ui_.Quita, &QPushButton::clicked, this, [this] {
    delete ui_.IniMdmX->takeItem(ui_.IniMdmX->currentRow());
    habilitar();
  });
  connect(ui_.Sube, &QToolButton::clicked, this, [this] { mover(-1); });
  connect(ui_.Baja, &QToolButton::clicked, this, [this] { mover(1); });
  connect(ui_.IniMdmX, &QListWidget::currentRowChanged, this, [this] { habilitar(); });
  connect(ui_.Nueva, &QLineEdit::textChanged, this, [this] { habilitar(); });
  connect(ui_.Acepto, &QPushButton::clicked, this, [this] { confirmar(); });
  connect(ui_.Cancelo, &QPushButton::clicked, this, [this] { rechazar(); });
}

Resultado<> ATModf::preparar(const Argumentos& a) {
  destino_ = a.value(u"canal"_s).value<ParamCanal*>();
  const int numero = a.value(u"numero"_s, 1).toInt();
  setWindowTitle(u"%1. %2"_s.arg(t(kTxATModf), t(kTxCanal).arg(numero)));
  llenar(destino_ ? *destino_ : contexto().ajustes.canales.at(static_cast<size_t>(numero - 1)));
  ui_.IniMdm0->setFocus();
  return {};
}

void ATModf::llenar(const ParamCanal& canal) {
  ui_.IniMdm0->setText(canal.IniMdm0);
  ui_.IniMdmX->clear();
  ui_.IniMdmX->addItems(canal.IniMdmX);
  ui_.IniMdmX->setCurrentRow(0);
  ui_.PfxDial->setText(canal.PfxDial);
  ui_.Intentos->setText(QString::number(canal.Intentos));
  ui_.Espera->setText(QString::number(canal.Espera));
  ui_.ATHang->setText(QString::number(canal.ATHang));
  habilitar();
}

void ATModf::habilitar() {
  const int fila = ui_.IniMdmX->currentRow(), cuantas = ui_.IniMdmX->count();
  const bool caben = cuantas < kOrdenesMax;
  ui_.Pon->setEnabled(caben && !ui_.Nueva->text().trimmed().isEmpty());
  ui_.faltaLista->setText(caben ? QString() : t(kTxOchoOrdenes));
  ui_.Quita->setEnabled(fila >= 0);
  ui_.Sube->setEnabled(fila > 0);
  ui_.Baja->setEnabled(fila >= 0 && fila < cuantas - 1);
}

void ATModf::anadir() {
  const QString orden = conAT(ui_.Nueva->text());
  if (orden.isEmpty() || ui_.IniMdmX->count() >= kOrdenesMax) return;
  ui_.IniMdmX->addItem(orden);
  ui_.IniMdmX->setCurrentRow(ui_.IniMdmX->count() - 1);
  ui_.Nueva->clear();
  ui_.Nueva->setFocus();
  habilitar();
}

void ATModf::mover(int pasos) {
  const int fila = ui_.IniMdmX->currentRow();
  QListWidgetItem* orden = ui_.IniMdmX->takeItem(fila);
  ui_.IniMdmX->insertItem(fila + pasos, orden);
  ui_.IniMdmX->setCurrentRow(fila + pasos);
  habilitar();
}

// A whole number within its limits; its fault stands beside the field.
std::optional<int> ATModf::leer(QLineEdit& campo, QLabel& falta, const Limites& limites) {
  bool vale = false;
  const int n = campo.text().trimmed().toInt(&vale);
  vale = vale && limites.admite(n);
  falta.setText(vale ? QString() : t(kTxFueraDeLimites).arg(limites.menor).arg(limites.mayor));
  campo.setProperty("falta", !vale);
  campo.update();
  if (vale) return n;
  campo.setFocus();
  return std::nullopt;
}

void ATModf::confirmar() {
  const auto intentos = leer(*ui_.Intentos, *ui_.faltaIntentos, kLimitesIntentos);
  const auto espera = leer(*ui_.Espera, *ui_.faltaEspera, kLimitesEspera);
  const auto colgar = leer(*ui_.ATHang, *ui_.faltaATHang, kLimitesEspera);
  if (!intentos || !espera || !colgar) return;
  if (destino_) {
    destino_->IniMdm0 = conAT(ui_.IniMdm0->text());
    destino_->IniMdmX.clear();
    for (int i = 0; i < ui_.IniMdmX->count(); ++i)
      destino_->IniMdmX << ui_.IniMdmX->item(i)->text();
    destino_->PfxDial = ui_.PfxDial->text().trimmed().toUpper();
    destino_->Intentos = *intentos;
    destino_->Espera = *espera;
    destino_->ATHang = *colgar;
  }
  aceptar();
}

}  // namespace tarvo::comm
