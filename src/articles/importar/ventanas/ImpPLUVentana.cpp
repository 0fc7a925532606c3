#include "articles/importar/ventanas/ImpPLUVentana.h"

#include <QListWidget>

#include "articles/importar/ventanas/TextosImportarVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;

ImpPLUVentana::ImpPLUVentana(ventanas::Contexto& contexto, const QString& nombre,
                             articles::Catalogo& catalogo)
    : Ventana(contexto, nombre),
      catalogo_(catalogo),
      lotes_(catalogo),
      deshacedor_(*this, lotes_, [this] { ponerEstado(estado_); }) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void ImpPLUVentana::montar() {
  ui_.ficheros->preparar(contexto(), {u"*.PLU"_s});
  prepararMalas(*ui_.malas, contexto(), nombre());
  ui_.BorrPrevio->setChecked(true);
  ui_.deshacer->setIcon(ventanas::icono(u"deshacer"_s));
  ui_.tabla->setIcon(ventanas::icono(u"columnas"_s));
  ventanas::ponerLetra(*ui_.aviso, ventanas::Letra::Secundaria);
  connect(ui_.ficheros, &PanelFicheros::escogido, this, &ImpPLUVentana::abrir);
  connect(ui_.Haz, &QPushButton::clicked, this, &ImpPLUVentana::Haz);
  connect(ui_.Alto, &QPushButton::clicked, this, &ImpPLUVentana::Alto);
  connect(ui_.deshacer, &QPushButton::clicked, this,
          [this] { deshacedor_.deshacerUltimo([this] { ponerEstado(kSinFichero); }); });
  connect(ui_.tabla, &QPushButton::clicked, this, [this] {
    ventanas::Ventana::abrir(
        PuertaImpTabla{.carpeta = puerta_.carpeta, .seccion = puerta_.seccion});
  });
  connect(ui_.Cerrar, &QPushButton::clicked, this, &ImpPLUVentana::rechazar);
}

Resultado<> ImpPLUVentana::entrar(const PuertaImpPLU& puerta) {
  if (trabajo().enMarcha()) return {};
  puerta_ = puerta;
  ui_.ficheros->empezar(puerta.carpeta);
  ponerEstado(kSinFichero);
  deshacedor_.avisar();
  return {};
}

// The articles read so far are kept, and can be undone.
bool ImpPLUVentana::QueryUnload() {
  if (estado_ == kEnProceso && !seguroDeCerrar(*this, kTxCerrarYDejar)) return true;
  if (estado_ == kEnProceso) trabajo().parar();
  return !deshacedor_.acabarYa();
}

void ImpPLUVentana::ponerEstado(Estado estado) {
  estado_ = estado;
  constexpr auto kTextos = std::to_array<int>(
      {kTxSeleccione, kTxListo, ventanas::kTxEnProcesoDeLectura, ventanas::kTxEnProcesoDeLectura,
       kTxInterrumpido, kTxConExito, kTxNoReconocibles});
  ui_.mensaje->setText(t(kTextos.at(static_cast<size_t>(estado))));
  const bool elegir = estado == kSinFichero, moviendo = trabajo().enMarcha();
  ui_.ficheros->setEnabled(elegir && !moviendo);
  ui_.marcoExiste->setEnabled(!moviendo);
  ui_.Haz->setEnabled(!elegir && !moviendo);
  ui_.Haz->setText(t(estado == kPreparado ? kTxLanzar : kTxOtroFichero));
  ui_.Alto->setEnabled(estado == kPreparado ? !moviendo : estado == kEnProceso);
  ui_.deshacer->setEnabled(!moviendo && deshacedor_.hayUltimo());
  if (elegir) {
    motor_.reset();
    ui_.CodAct->clear();
    ui_.Conta->clear();
    ui_.ficheros->setFocus();
  } else if (!moviendo) {
    ui_.Haz->setFocus();
  }
}

void ImpPLUVentana::abrir(const QString& ruta) {
  auto motor = ImpPLU::abrir(catalogo_, ruta);
  if (!haIdoBien(motor)) return ponerEstado(kConErrores);
  motor_ = std::move(*motor);
  ponerMalas(*ui_.malas, {});
  ui_.CodAct->setText(NombreFichero(ruta));
  ponerEstado(kPreparado);
}

void ImpPLUVentana::Haz() {
  if (estado_ != kPreparado) return ponerEstado(kSinFichero);
  const auto siExiste =
      ui_.BorrPrevio->isChecked() ? SiExiste::Sobreescribirlo : SiExiste::Conservarlo;
  trabajo().empezar(
      t(ventanas::kTxEnProcesoDeLectura),
      [this, siExiste](Trabajo::Avance& a) {
        auto r = motor_->paso(siExiste);
        a.hechos = motor_->leidos();
        a.total = motor_->tamano();
        mostrarCuenta();
        return r;
      },
      [this](const Resultado<Trabajo::Fin>& fin) { acabar(fin); });
  if (trabajo().enMarcha()) ponerEstado(kEnProceso);
}

void ImpPLUVentana::Alto() {
  if (!trabajo().enMarcha()) return ponerEstado(kSinFichero);
  ponerEstado(kParando);
  trabajo().parar();
}

void ImpPLUVentana::mostrarCuenta() {
  ui_.CodAct->setText(motor_->ultimo().trimmed());
  const int lineas = motor_->cuenta().lineas;
  ui_.Conta->setText(lineas > 0 ? t(kTxNLineas, lineas) : t(kTxNingunaLinea));
}

void ImpPLUVentana::acabar(const Resultado<Trabajo::Fin>& fin) {
  const auto cerrado = motor_->acabar();
  mostrarCuenta();
  const auto& malas = motor_->cuenta().malas;
  ponerMalas(*ui_.malas, malas);
  if (!fin || !cerrado) {
    ponerEstado(kConErrores);
    return decirFallo(fin ? cerrado.error() : fin.error());
  }
  if (*fin == Trabajo::Fin::Parado)
    ponerEstado(kParado);
  else
    ponerEstado(malas.empty() ? kRealizado : kConErrores);
  decirHecho();
}

void ImpPLUVentana::decirHecho() {
  const auto& c = motor_->cuenta();
  QString dicho = contexto().textos(kTxHechoPLU, {c.nuevos, c.sobreescritos, c.conservados});
  if (motor_->lote() > 0) dicho += u' ' + t(kTxTransmisionCompleta);
  if (c.parado) dicho = contexto().textos(kTxParadoEnLinea, {c.malas.back().numero}) + u' ' + dicho;
  if (c.lineas == 0 && c.malas.empty() && estado_ == kRealizado)
    return decirDuda(t(kTxFicheroSinLineas));
  if (c.malas.empty()) return decirBien(dicho);
  decirDuda(t(kTxNMalas, static_cast<int>(c.malas.size())) + u' ' + dicho);
}

}  // namespace tarvo::importar
