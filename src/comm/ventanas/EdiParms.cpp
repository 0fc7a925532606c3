#include "comm/ventanas/EdiParms.h"

#include "comm/ventanas/TextosCommVentanas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr QStringView kParidades = u"EON";  // in the order of the list
constexpr int kPuertoMax = 16;

void llenarNumeros(QComboBox& lista, std::initializer_list<int> numeros) {
  for (const int n : numeros) lista.addItem(QString::number(n));
}

// A value that isn't offered was set by hand in the file, and stays what it is.
void elegirNumero(QComboBox& lista, int valor) {
  const QString texto = QString::number(valor);
  if (lista.findText(texto) < 0) lista.addItem(texto);
  lista.setCurrentText(texto);
}

}  // namespace

LineaSerie LineaSerie::leer(const QString& rs232) {
  const QStringList partes = rs232.split(u',');
  LineaSerie l;
  const auto numero = [&](qsizetype i, int& donde) {
    bool vale = false;
    const int n = partes.value(i).trimmed().toInt(&vale);
    if (vale) donde = n;
  };
  numero(0, l.baudios);
  numero(2, l.bits);
  numero(3, l.parada);
  const QString p = partes.value(1).trimmed().toUpper();
  if (p.size() == 1 && kParidades.contains(p.front())) l.paridad = p.front();
  return l;
}

QString LineaSerie::escribir() const {
  return u"%1,%2,%3,%4"_s.arg(baudios).arg(paridad).arg(bits).arg(parada);
}

EdiParms::EdiParms(Contexto& c, const QString& nombre, const Servicios&) : Ventana(c, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  llenarNumeros(*ui_.Baudios, {300, 600, 1200, 2400, 4800, 9600, 19200});
  llenarNumeros(*ui_.BitsDatos, {5, 6, 7, 8});
  llenarNumeros(*ui_.BitsParada, {1, 2});
  connect(ui_.Acepto, &QPushButton::clicked, this, [this] { confirmar(); });
  connect(ui_.Cancelo, &QPushButton::clicked, this, [this] { rechazar(); });
  connect(ui_.Puerto, &QLineEdit::textEdited, this, [this] {
    ui_.faltaPuerto->clear();
    ui_.Puerto->setProperty("falta", false);
    ui_.Puerto->update();
  });
}

Resultado<> EdiParms::preparar(const Argumentos& a) {
  destino_ = a.value(u"canal"_s).value<ParamCanal*>();
  const int numero = a.value(u"numero"_s, 1).toInt();
  setWindowTitle(u"%1. %2"_s.arg(t(kTxEdiParms), t(kTxCanal).arg(numero)));
  llenar(destino_ ? *destino_ : contexto().ajustes.canales.at(static_cast<size_t>(numero - 1)));
  ui_.Puerto->setFocus();
  ui_.Puerto->selectAll();
  return {};
}

void EdiParms::llenar(const ParamCanal& canal) {
  const LineaSerie l = LineaSerie::leer(canal.RS232);
  ui_.Puerto->setText(QString::number(canal.Puerto));
  elegirNumero(*ui_.Baudios, l.baudios);
  ui_.Paridad->setCurrentIndex(static_cast<int>(kParidades.indexOf(l.paridad)));
  elegirNumero(*ui_.BitsDatos, l.bits);
  elegirNumero(*ui_.BitsParada, l.parada);
  ui_.CTS->setChecked(canal.ControlLinea & 1);
  ui_.DSR->setChecked(canal.ControlLinea & 2);
}

void EdiParms::confirmar() {
  bool vale = false;
  const int puerto = ui_.Puerto->text().trimmed().toInt(&vale);
  if (!vale || puerto < 1 || puerto > kPuertoMax) {
    ui_.faltaPuerto->setText(t(kTxPuertoMalo));
    ui_.Puerto->setProperty("falta", true);
    ui_.Puerto->update();
    ui_.Puerto->setFocus();
    return ui_.Puerto->selectAll();
  }
  if (destino_) {
    destino_->Puerto = puerto;
    destino_->RS232 =
        LineaSerie{ui_.Baudios->currentText().toInt(), kParidades[ui_.Paridad->currentIndex()],
                   ui_.BitsDatos->currentText().toInt(), ui_.BitsParada->currentText().toInt()}
            .escribir();
    destino_->ControlLinea = 2 * int{ui_.DSR->isChecked()} + int{ui_.CTS->isChecked()};
  }
  aceptar();
}

}  // namespace tarvo::comm
