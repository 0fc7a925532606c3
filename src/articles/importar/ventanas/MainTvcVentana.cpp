#include "articles/importar/ventanas/MainTvcVentana.h"

#include <QListWidget>

#include "articles/importar/ventanas/TextosImportarVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Campo.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;

MainTvcVentana::MainTvcVentana(ventanas::Contexto& contexto, const QString& nombre,
                               articles::Catalogo& catalogo)
    : Ventana(contexto, nombre),
      catalogo_(catalogo),
      lotes_(catalogo),
      hechas_(catalogo),
      deshacedor_(
          *this, lotes_, [this] { ponerEstado(estado_); },
          [this](qint64 lote) -> Resultado<> {
            TARVO_INTENTAR(hechas_.quitar(lote));
            return {};
          }) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void MainTvcVentana::montar() {
  ui_.ficheros->preparar(contexto(), {u"*.PLU"_s});
  prepararMalas(*ui_.malas, contexto(), nombre());
  ventanas::ponerLetra(*ui_.ayudaPfjo, ventanas::Letra::Secundaria);
  ui_.deshacer->setIcon(ventanas::icono(u"deshacer"_s));
  ui_.SSOption1->setChecked(true);
  ui_.Secc->setText(u"001"_s);
  for (QLineEdit* e : ui_.rejaPfjo->parentWidget()->findChildren<QLineEdit*>()) e->setText(u"0"_s);
  connect(ui_.ficheros, &PanelFicheros::escogido, this, [this](const QString& ruta) {
    ruta_ = ruta;
    ponerMalas(*ui_.malas, {});
    ponerEstado(kPreparado);
  });
  connect(ui_.AUnaSecc, &QRadioButton::toggled, this, &MainTvcVentana::mostrarDestino);
  connect(ui_.chksectfa, &QCheckBox::toggled, this, &MainTvcVentana::mostrarDestino);
  connect(ui_.inicioproceso, &QPushButton::clicked, this, &MainTvcVentana::inicioproceso);
  connect(ui_.deshacer, &QPushButton::clicked, this,
          [this] { deshacedor_.deshacerUltimo([this] { ponerEstado(kSinFichero); }); });
  connect(ui_.Cerrar, &QPushButton::clicked, this, &MainTvcVentana::rechazar);
}

Resultado<> MainTvcVentana::entrar(const PuertaMainTvc& puerta) {
  if (trabajo().enMarcha()) return {};
  ui_.ficheros->empezar(puerta.carpeta);
  mostrarDestino();
  ponerEstado(kSinFichero);
  deshacedor_.avisar();
  return {};
}

bool MainTvcVentana::QueryUnload() {
  if (estado_ != kProcesando) return !deshacedor_.acabarYa();
  return trabajo().enMarcha() && !interrumpir();
}

void MainTvcVentana::mostrarDestino() {
  const bool una = ui_.AUnaSecc->isChecked();
  ui_.Secc->setVisible(una);
  ui_.frmsectfa->setVisible(una);
  for (QLineEdit* e : ui_.frmsectfa->findChildren<QLineEdit*>())
    e->setEnabled(ui_.chksectfa->isChecked());
}

void MainTvcVentana::ponerEstado(Estado estado) {
  estado_ = estado;
  constexpr std::array kTextos{kTxSeleccioneTvc, kTxPuedeIniciar, kTxNoValido, kTxTerminado,
                               kTxProcesando};
  constexpr auto kBotones = std::to_array<int>(
      {kTxIniciar, kTxIniciar, ventanas::kTxOtroFichero, ventanas::kTxOtroFichero, kTxInterrumpir});
  const auto i = static_cast<size_t>(estado);
  ui_.Panel->setText(t(kTextos.at(i)));
  ui_.inicioproceso->setText(t(kBotones.at(i)));
  const bool ocupada = trabajo().enMarcha(), procesando = estado == kProcesando;
  ui_.inicioproceso->setEnabled(procesando || (estado != kSinFichero && !ocupada));
  ui_.ficheros->setEnabled((estado == kSinFichero || estado == kPreparado) && !ocupada);
  ui_.destino->setEnabled(!procesando && !ocupada);
  ui_.deshacer->setEnabled(!procesando && !ocupada && deshacedor_.hayUltimo());
  if (estado == kSinFichero) {
    motor_.reset();
    ui_.ficheros->setFocus();
  } else {
    ui_.inicioproceso->setFocus();
  }
}

std::optional<DestinoTvc> MainTvcVentana::destino() {
  DestinoTvc d;
  for (size_t i = 0; i < d.prefijos.size(); ++i)
    d.prefijos[i] = findChild<QLineEdit*>(u"Pfjo%1"_s.arg(i))->text().trimmed();
  for (size_t i = 0; i < d.secciones.size(); ++i)
    d.secciones[i] = findChild<QLineEdit*>(u"sec%1"_s.arg(i))->text();
  if (!ui_.AUnaSecc->isChecked()) return d;
  const int seccion = ui_.Secc->text().toInt();
  const bool vale = seccion >= 1 && seccion <= 255;
  ventanas::marcarFalta(*ui_.Secc, !vale);
  if (!vale) {
    decirFallo(t(kTxSeccionMala));
    ui_.Secc->setFocus();
    return std::nullopt;
  }
  d.unaSeccion = seccion;
  d.seccionPorTarifa = ui_.chksectfa->isChecked();
  return d;
}

void MainTvcVentana::inicioproceso() {
  if (estado_ == kPreparado) return empezar();
  if (estado_ != kProcesando) return ponerEstado(kSinFichero);
  interrumpir();
}

void MainTvcVentana::empezar() {
  auto motor = MainTvc::abrir(catalogo_, ruta_);
  if (!haIdoBien(motor)) return ponerEstado(kNoVale);
  const auto adonde = destino();
  if (!adonde) return;
  motor_ = std::move(*motor);
  trabajo().empezar(
      t(kTxConvirtiendo),
      [this, adonde = *adonde](Trabajo::Avance& a) {
        auto r = motor_->paso(adonde);
        a.hechos = motor_->leidos();
        a.total = motor_->tamano();
        ui_.Panel->setText(t(kTxProcesando) + motor_->actual());
        return r;
      },
      [this](const Resultado<Trabajo::Fin>& fin) { acabar(fin); });
  if (trabajo().enMarcha()) ponerEstado(kProcesando);
}

bool MainTvcVentana::interrumpir() {
  const ventanas::TiraTrabajo::Pausa pausa(trabajo());
  const bool seguro = ventanas::MyMsgBox::Decide(this, contexto().textos, t(kTxSeguroInterrumpir),
                                                 ventanas::kAceptoCancelo);
  if (seguro) trabajo().parar();
  return seguro;
}

void MainTvcVentana::acabar(const Resultado<Trabajo::Fin>& fin) {
  const auto cerrado = motor_->acabar();
  const MainTvc::Cuenta c = motor_->cuenta();
  const bool entero = fin && *fin == Trabajo::Fin::Acabado;
  const bool nada = c.nuevos + c.cambiados == 0 && !c.malas.empty();
  ponerEstado(!fin || (entero && nada) ? kNoVale : entero ? kTerminado : kSinFichero);
  ponerMalas(*ui_.malas, c.malas);
  if (!fin || !cerrado) return decirFallo(fin ? cerrado.error() : fin.error());
  const QString dicho = contexto().textos(kTxHechoTvc, {c.nuevos, c.cambiados, c.sinTarifa});
  if (entero && c.malas.empty()) return decirBien(dicho);
  const auto malas = static_cast<int>(c.malas.size());
  decirDuda((malas > 0 ? t(kTxNMalas, malas) + u' ' : t(kTxInterrumpido) + u". "_s) + dicho);
}

}  // namespace tarvo::importar
