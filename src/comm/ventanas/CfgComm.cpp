#include "comm/ventanas/CfgComm.h"

#include <algorithm>

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kUsos = 4;

QString imagenDeUso(int device) {
  static const QString kUsosImagen[] = {u"quitar"_s, u"modem"_s, u"conectado"_s, u"linea"_s};
  return device >= 0 && device < kUsos ? kUsosImagen[device] : QString();
}

}  // namespace

CfgComm::CfgComm(Contexto& c, const QString& nombre, const Servicios& s)
    : Ventana(c, nombre), s_(s) {
  ui_.setupUi(cuerpo());
  enlazar();
  tiempos_ = {{{ui_.TimeOut, ui_.faltaTimeOut, &Ajustes::TimeOut},
               {ui_.TimeCero, ui_.faltaTimeCero, &Ajustes::TimeCero},
               {ui_.TimeACK, ui_.faltaTimeACK, &Ajustes::TimeACK},
               {ui_.IntentosManual, ui_.faltaIntentosManual, &Ajustes::IntentosManual},
               {ui_.FactorEspera, ui_.faltaFactorEspera, &Ajustes::FactorEsperaNDL}}};
  canales_ = {{{ui_.numero1, ui_.linea1, ui_.imagen1, ui_.Device1, ui_.RS232_1, ui_.Modem_1},
               {ui_.numero2, ui_.linea2, ui_.imagen2, ui_.Device2, ui_.RS232_2, ui_.Modem_2},
               {ui_.numero3, ui_.linea3, ui_.imagen3, ui_.Device3, ui_.RS232_3, ui_.Modem_3},
               {ui_.numero4, ui_.linea4, ui_.imagen4, ui_.Device4, ui_.RS232_4, ui_.Modem_4}}};
  for (const Tiempo& tiempo : tiempos_) tiempo.campo->setMaximumWidth(escalar(110));
  for (int n = 0; n < 4; ++n) conectarCanal(n);
  connect(ui_.DeFabrica, &QPushButton::clicked, this, [this] {
    mostrarTiempos(Ajustes(contexto().ajustes.carpeta, contexto().ajustes.idioma));
  });
  connect(ui_.Acepto, &QPushButton::clicked, this, [this] { confirmar(); });
  connect(ui_.Cancelo, &QPushButton::clicked, this, [this] { rechazar(); });
}

void CfgComm::conectarCanal(int n) {
  const Canal& canal = canales_[static_cast<size_t>(n)];
  const int numero = n + 1;
  canal.numero->setText(t(kTxCanal).arg(numero));
  const std::tuple<QWidget*, int> pistas[] = {{canal.imagen, kTxImagenTip},
                                              {canal.uso, kTxUsoTip},
                                              {canal.rs232, kTxRS232Tip},
                                              {canal.modem, kTxModemTip}};
  for (const auto& [control, texto] : pistas) {
    control->setToolTip(t(texto).arg(numero));
    control->setAccessibleName(t(texto).arg(numero));
  }
  canal.imagen->setIconSize(QSize(escalar(kIconoGrande), escalar(kIconoGrande)));
  canal.imagen->installEventFilter(this);
  connect(canal.uso, &QComboBox::currentIndexChanged, this, [this, n](int uso) {
    copia_[static_cast<size_t>(n)].Device = uso;
    mostrarCanal(n);
  });
  connect(canal.rs232, &QPushButton::clicked, this, [this, n] { editar(u"EdiParms"_s, n); });
  connect(canal.modem, &QPushButton::clicked, this, [this, n] { editar(u"ATModf"_s, n); });
}

Resultado<> CfgComm::preparar(const Argumentos&) {
  const Ajustes& a = contexto().ajustes;
  copia_ = a.canales;
  mostrarTiempos(a);
  for (int n = 0; n < 4; ++n) {
    const int uso = copia_[static_cast<size_t>(n)].Device;
    canales_[static_cast<size_t>(n)].uso->setCurrentIndex(uso >= 0 && uso < kUsos ? uso : 0);
    mostrarCanal(n);
  }
  ui_.TimeOut->setFocus();
  ui_.TimeOut->selectAll();
  return {};
}

void CfgComm::mostrarTiempos(const Ajustes& de) {
  for (const Tiempo& tiempo : tiempos_) tiempo.campo->setText(QString::number(de.*tiempo.ajuste));
}

void CfgComm::mostrarCanal(int n) {
  const Canal& canal = canales_[static_cast<size_t>(n)];
  const ParamCanal& p = copia_[static_cast<size_t>(n)];
  canal.imagen->setIcon(icono(imagenDeUso(p.Device)));
  canal.linea->setText(p.RS232);
  canal.linea->setEnabled(p.Device != 0);
  canal.rs232->setEnabled(p.Device != 0);
  canal.modem->setEnabled(p.Device == 1);
}

// A double click on the picture, or a key on it, moves the use round its cycle.
bool CfgComm::eventFilter(QObject* objeto, QEvent* evento) {
  const auto n =
      std::ranges::find(canales_, objeto, [](const Canal& c) -> QObject* { return c.imagen; });
  const bool tecla =
      evento->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Space;
  if (n != canales_.end() && (tecla || evento->type() == QEvent::MouseButtonDblClick)) {
    n->uso->setCurrentIndex((n->uso->currentIndex() + 1) % kUsos);
    return true;
  }
  return Ventana::eventFilter(objeto, evento);
}

void CfgComm::editar(const QString& ventana, int n) {
  ParamCanal& p = copia_[static_cast<size_t>(n)];
  contexto().ventanas.abrirModal(ventana, this,
                                 {{u"canal"_s, QVariant::fromValue(&p)}, {u"numero"_s, n + 1}});
  mostrarCanal(n);
}

// False when a field holds no whole number within its limits; each such has its fault beside it.
bool CfgComm::leerTiempos(std::array<int, 5>& valores) {
  QLineEdit* primero = nullptr;
  for (size_t i = 0; i < tiempos_.size(); ++i) {
    const Tiempo& tiempo = tiempos_[i];
    bool vale = false;
    valores[i] = tiempo.campo->text().trimmed().toInt(&vale);
    const Limites limites = limitesDe(tiempo.ajuste);
    vale = vale && limites.admite(valores[i]);
    tiempo.falta->setText(vale ? QString()
                               : t(kTxFueraDeLimites).arg(limites.menor).arg(limites.mayor));
    tiempo.campo->setProperty("falta", !vale);
    tiempo.campo->update();
    if (!vale && !primero) primero = tiempo.campo;
  }
  if (!primero) return true;
  MyMsgBox::Decide(this, contexto().textos, t(kTxValoresMalos), kCritico);
  primero->setFocus();
  primero->selectAll();
  return false;
}

void CfgComm::confirmar() {
  std::array<int, 5> valores{};
  if (!leerTiempos(valores)) return;
  Ajustes& a = contexto().ajustes;
  const auto cambiar = [&] {  // the settings and the copy change places
    for (size_t i = 0; i < tiempos_.size(); ++i) std::swap(a.*tiempos_[i].ajuste, valores[i]);
    std::swap(a.canales, copia_);
  };
  cambiar();
  if (const auto hecho = a.GuardarConfig(); !haIdoBien(hecho)) return cambiar();
  s_.motor.cambiaronCanales();
  if (auto* quien = qobject_cast<Ventana*>(dueno())) quien->decirBien(t(kTxGuardado));
  aceptar();
}

}  // namespace tarvo::comm
