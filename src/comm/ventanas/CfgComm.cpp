#include "comm/ventanas/CfgComm.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "comm/enlace/AjustesEnlace.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ajustes/Sala.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;
using enlace::AjustesEnlace, motor::AjustesMotor;

namespace {

constexpr int kUsos = 4;
const QString kImagenes[kUsos] = {u"quitar"_s, u"modem"_s, u"conectado"_s, u"linea"_s};

struct Tiempo {
  int rotulo;
  QString nombre;
  int& (*de)(Ajustes&);
  Limites limites;
  int unidad;
};
template <auto kCampo>
int& campo(Ajustes& a) {
  return a.de<typename SalaDelCampo<decltype(kCampo)>::Tipo>().*kCampo;
}
const Tiempo kTiempos[] = {
    {kTxTiempoGeneral, u"TimeOut"_s, campo<&AjustesEnlace::TimeOut>, kLimitesRespuesta,
     kTxMilisegundos},
    {kTxTiempoCero, u"TimeCero"_s, campo<&AjustesMotor::TimeCero>, kLimitesRespuesta,
     kTxMilisegundos},
    {kTxReintentos, u"IntentosManual"_s, campo<&AjustesMotor::IntentosManual>, kLimitesIntentos,
     kTxVeces},
    {kTxTiempoACK, u"TimeACK"_s, campo<&AjustesEnlace::TimeACK>, kLimitesRespuesta,
     kTxMilisegundos},
    {kTxFactorEspera, u"FactorEspera"_s, campo<&AjustesEnlace::FactorEsperaNDL>, kLimitesEspera,
     kTxMilisegundos}};

void tomarTiempos(AjustesComm& r, Ajustes& de) {
  for (size_t i = 0; i < r.tiempos.size(); ++i) r.tiempos[i] = kTiempos[i].de(de);
}

}  // namespace

CfgComm::CfgComm(Contexto& c, const QString& nombre, motor::gestcomm& motor)
    : FichaDe(c, nombre), motor_(motor) {
  auto f = formulario(kTxCfgComm);
  auto tiempos = f.grupo(kTxProtocolo, u"cajaTiempos"_s);
  for (size_t i = 0; i < r.tiempos.size(); ++i) {
    const Tiempo& tiempo = kTiempos[i];
    tiempos.fila(tiempo.rotulo, tiempo.nombre,
                 numero(r.tiempos[i], tiempo.limites.menor, tiempo.limites.mayor), tiempo.unidad);
  }
  auto* caja = f.ancho(new QGroupBox(t(ventanas::kTxCanales)), u"cajaCanales"_s);
  auto* reja = new QGridLayout(caja);
  for (int n = 0; n < 4; ++n) canales_[static_cast<size_t>(n)] = montarCanal(*reja, caja, n);
  f.muelle();
  auto* deFabrica = f.boton(kTxDeFabrica, u"DeFabrica"_s, [this] {
    if (!leerCallada()) mostrar();  // unreadable values are discarded
    const Ajustes& a = contexto().ajustes;
    Ajustes nuevos(a.carpeta, a.idioma, {enlace::ajustesEnlace(), motor::ajustesMotor()});
    tomarTiempos(r, nuevos);
    mostrar();
  });
  deFabrica->setToolTip(t(kTxDeFabricaTip));
  ponerFrase(kTxValoresMalos, false);
  acabar({640, 480}, {.otro = deFabrica});
}

CfgComm::Canal CfgComm::montarCanal(QGridLayout& reja, QWidget* caja, int n) {
  const auto sitio = static_cast<size_t>(n);
  auto con = [&, columna = 1]<class W>(W* control, const QString& nombre, int pista) mutable {
    control->setObjectName(nombre.arg(n + 1));
    if (pista > 0) control->setToolTip(t(pista).arg(n + 1));
    reja.addWidget(control, n, columna++);
    return control;
  };
  auto* rotulo = new QLabel(t(kTxCanal).arg(n + 1), caja);
  reja.addWidget(rotulo, n, 0);
  Canal canal{con(new QToolButton(caja), u"imagen%1"_s, kTxImagenTip),
              con(new QComboBox(caja), u"Device%1"_s, kTxUsoTip),
              con(new QLabel(caja), u"linea%1"_s, 0),
              con(new QPushButton(t(kTxRS232), caja), u"RS232_%1"_s, kTxRS232Tip),
              con(new QPushButton(t(kTxModem), caja), u"Modem_%1"_s, kTxModemTip)};
  rotulo->setBuddy(canal.uso);  // a combo box takes its accessible name from its label alone
  for (QPushButton* boton : {canal.rs232, canal.modem}) boton->setAccessibleName(boton->toolTip());
  canal.imagen->setIconSize(QSize(escalar(kIconoGrande), escalar(kIconoGrande)));
  canal.imagen->installEventFilter(this);
  Opciones usos;
  for (int uso = 0; uso < kUsos; ++uso) usos.push_back({uso, t(kTxUso + uso)});
  llenar(*canal.uso, usos);
  connect(&enlazarCampo(*canal.uso, r.canales[sitio].Device), &Campo::cambiado, this,
          [this, sitio] { mostrarCanal(sitio); });
  connect(canal.rs232, &QPushButton::clicked, this,
          [this, sitio] { editarCanal<PuertaEdiParms>(sitio); });
  connect(canal.modem, &QPushButton::clicked, this,
          [this, sitio] { editarCanal<PuertaATModf>(sitio); });
  return canal;
}

Resultado<> CfgComm::entrar(const PuertaCfgComm&) {
  Ajustes& a = contexto().ajustes;
  AjustesComm de{.tiempos = {}, .canales = a.de<enlace::AjustesCables>().canales};
  tomarTiempos(de, a);
  TARVO_INTENTAR(editar(de));
  for (size_t n = 0; n < canales_.size(); ++n) mostrarCanal(n);
  decirCambiadosFuera();
  return {};
}

void CfgComm::mostrarCanal(size_t n) {
  const Canal& canal = canales_[n];
  const enlace::ParamCanal& p = r.canales[n];
  canal.imagen->setIcon(icono(kImagenes[tarvo::numeroDe(p.Device)]));
  canal.linea->setText(p.RS232);
  canal.linea->setEnabled(p.Device != TipoAcceso::Ninguno);
  canal.rs232->setEnabled(p.Device != TipoAcceso::Ninguno);
  canal.modem->setEnabled(p.Device == TipoAcceso::Modem);
}

// A double click on the icon, or Space, selects the next use of the channel.
bool CfgComm::eventFilter(QObject* objeto, QEvent* evento) {
  const auto n =
      std::ranges::find(canales_, objeto, [](const Canal& c) -> QObject* { return c.imagen; });
  const bool tecla =
      evento->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Space;
  if (n != canales_.end() && (tecla || evento->type() == QEvent::MouseButtonDblClick)) {
    n->uso->setCurrentIndex((n->uso->currentIndex() + 1) % kUsos);
    return true;
  }
  return FichaDe::eventFilter(objeto, evento);
}

template <class P>
void CfgComm::editarCanal(size_t n) {
  const auto canal = preguntar(P{.numero = static_cast<int>(n) + 1, .canal = r.canales[n]});
  if (canal) r.canales[n] = *canal;
  mostrarCanal(n);
}

Resultado<> CfgComm::aplicar() {
  Ajustes& a = contexto().ajustes;
  AjustesComm otros = r;
  const auto cambiar = [&] {  // swaps the settings and the copy
    for (size_t i = 0; i < otros.tiempos.size(); ++i)
      std::swap(kTiempos[i].de(a), otros.tiempos[i]);
    std::swap(a.de<enlace::AjustesCables>().canales, otros.canales);
  };
  cambiar();
  for (const QStringView clave :
       {u"TimeOut", u"TimeCero", u"TimeACK", u"IntentosManual", u"FactorEsperaNDL", u"Puerto",
        u"Device", u"RS232", u"IniMdm0", u"IniMdmX", u"PfxDial", u"Intentos", u"Espera", u"ATHang",
        u"ControlLinea"})
    a.confirmar(clave.toString());
  auto hecho = a.GuardarConfig();
  if (!hecho) cambiar();
  return hecho;
}

void CfgComm::aplicada() {
  motor_.cambiaronCanales();
  if (auto* quien = qobject_cast<Ventana*>(dueno())) quien->decirBien(t(kTxGuardado));
  aceptar();
}

}  // namespace tarvo::comm
