#include "articles/importar/ventanas/ImpTablaVentana.h"

#include <QListWidget>

#include "articles/importar/ventanas/TextosImportarVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/TiraTrabajo.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;

namespace {

// Tells the user how a text was interpreted.
QString comoSeLeyo(const TablaLeida& l, const QString& fichero, int filas, const Textos& t) {
  const QString cuantas = Plural(t(kTxNFilas), std::max(0, filas));
  if (!l.hoja.isEmpty()) return t(kTxLeidaHoja, {fichero, l.hoja, cuantas});
  constexpr std::array kNombres{"UTF-8", "Windows-1252", "UTF-16", "UTF-16"};
  const QString separador = l.separador == u'\t' ? t(kTxTabulador) : QString(l.separador);
  return t(kTxLeidoTexto,
           {fichero, QString::fromLatin1(kNombres.at(static_cast<size_t>(l.codificacion))),
            separador, cuantas});
}

}  // namespace

ImpTablaVentana::ImpTablaVentana(ventanas::Contexto& contexto, const QString& nombre,
                                 articles::Catalogo& catalogo)
    : Ventana(contexto, nombre),
      catalogo_(catalogo),
      lotes_(catalogo),
      deshacedor_(*this, lotes_, [this] { botones(); }),
      aparte_(contexto, *this) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
  montarPrevia();
}

void ImpTablaVentana::montar() {
  ui_.ficheros->preparar(contexto(), {u"*.csv"_s, u"*.txt"_s, u"*.xlsx"_s, u"*.ods"_s});
  prepararMalas(*ui_.malas, contexto(), nombre());
  ui_.deshacer->setIcon(ventanas::icono(u"deshacer"_s));
  connect(ui_.ficheros, &PanelFicheros::escogido, this, &ImpTablaVentana::leer);
  connect(ui_.ficheros->lista(), &QListWidget::currentRowChanged, this, &ImpTablaVentana::botones);
  connect(ui_.columnas, &ColumnasTabla::cambiado, this, &ImpTablaVentana::mirarSigno);
  connect(ui_.signo, &QComboBox::activated, this, [this] { signoElegido_ = true; });
  connect(ui_.conTitulos, &QCheckBox::clicked, this, &ImpTablaVentana::mostrarColumnas);
  connect(ui_.atras, &QPushButton::clicked, this, &ImpTablaVentana::atras);
  connect(ui_.siguiente, &QPushButton::clicked, this, &ImpTablaVentana::siguiente);
  connect(ui_.Cerrar, &QPushButton::clicked, this, &ImpTablaVentana::rechazar);
  connect(ui_.deshacer, &QPushButton::clicked, this,
          [this] { deshacedor_.deshacerUltimo([this] { irA(kFichero); }); });
}

Resultado<> ImpTablaVentana::entrar(const PuertaImpTabla& puerta) {
  if (trabajo().enMarcha() || leyendo_) return {};
  TARVO_INTENTAR(ventanas::llenar(*ui_.seccion, contexto().nombres.secciones(), 3));
  if (puerta.seccion > 0) ventanas::elegir(*ui_.seccion, puerta.seccion);
  ui_.ficheros->empezar(puerta.carpeta);
  irA(kFichero);
  deshacedor_.avisar();
  if (!puerta.fichero.isEmpty()) leer(puerta.fichero);
  return {};
}

// A run in progress is undone before the window is closed.
bool ImpTablaVentana::QueryUnload() {
  if (aplicando_ && !seguroDeCerrar(*this, kTxCerrarYVolver)) return true;
  if (aplicando_) trabajo().parar();
  if (!deshacedor_.acabarYa()) return true;
  aparte_.olvidar();
  return false;
}

void ImpTablaVentana::irA(Paso paso) {
  paso_ = paso;
  constexpr std::array kTitulos{kTxPasoFichero, kTxPasoColumnas, kTxPasoPrevia, kTxPasoResultado};
  ui_.paso->setText(t(kTitulos.at(static_cast<size_t>(paso))));
  ui_.paginas->setCurrentIndex(paso);
  if (paso == kFichero) {
    motor_.reset();
    leida_.reset();
  }
  if (paso < kPrevia) motor_.reset();
  botones();  // before the focus is set: a disabled control doesn't take it
  paso == kFichero ? ui_.ficheros->setFocus() : ui_.siguiente->setFocus();
}

void ImpTablaVentana::botones() {
  const bool ocupada = leyendo_ || trabajo().enMarcha();
  constexpr auto kTextos =
      std::to_array<int>({kTxSiguiente, kTxVerCambios, ventanas::kTxAplicar, kTxOtroFichero});
  ui_.siguiente->setText(t(kTextos.at(static_cast<size_t>(paso_))));
  const bool hay = paso_ == kFichero ? ui_.ficheros->lista()->currentItem() != nullptr
                   : paso_ == kPrevia
                       ? motor_ && motor_->cuantas(Que::Nuevo) + motor_->cuantas(Que::Cambia) > 0
                       : true;
  ui_.siguiente->setEnabled(hay && !ocupada);
  ui_.atras->setEnabled((paso_ == kColumnas || paso_ == kPrevia) && !ocupada);
  ui_.paginas->setEnabled(!ocupada);
  ui_.paginas->setProperty("ocupada", ocupada);  // screenshots wait until it is false
  ui_.deshacer->setEnabled(!ocupada && deshacedor_.hayUltimo());
}

void ImpTablaVentana::atras() {
  irA(paso_ == kPrevia ? kColumnas : kFichero);
}

void ImpTablaVentana::siguiente() {
  switch (paso_) {
    case kFichero:
      Q_EMIT ui_.ficheros->lista()->itemActivated(ui_.ficheros->lista()->currentItem());
      break;
    case kColumnas:
      ensayar();
      break;
    case kPrevia:
      aplicar();
      break;
    case kResultado:
      irA(kFichero);
  }
}

// Read in another thread: a large spreadsheet takes seconds.
void ImpTablaVentana::leer(const QString& ruta) {
  if (leyendo_) return;
  leyendo_ = true;
  fichero_ = NombreFichero(ruta);
  ui_.paso->setText(contexto().textos(kTxLeyendoFichero, {fichero_}));
  botones();
  aparte_.preguntar<TablaLeida>(
      [ruta, textos = contexto().textos](dao::Database&) { return leerTabla(ruta, textos); },
      [this](Resultado<TablaLeida> tabla) { leido(std::move(tabla)); });
}

void ImpTablaVentana::leido(Resultado<TablaLeida> tabla) {
  leyendo_ = false;
  if (!haIdoBien(tabla)) return irA(kFichero);
  tira().quitar();  // its message refers to another file
  leida_ = std::make_unique<TablaLeida>(std::move(*tabla));
  const Plan p = planDe(leida_->tabla, contexto().textos);
  ui_.conTitulos->setChecked(p.primeraFila > 0);
  ui_.crearNuevos->setChecked(true);
  signoElegido_ = false;
  mostrarColumnas();
  irA(kColumnas);
}

void ImpTablaVentana::mostrarColumnas() {
  Plan p = planDe(leida_->tabla, contexto().textos);
  if (!ui_.conTitulos->isChecked())
    p.primeraFila = 0;
  else if (p.primeraFila == 0)
    p.primeraFila = 1;
  ui_.conTitulos->setProperty("primera", p.primeraFila);
  ui_.columnas->mostrar(leida_->tabla, p, contexto().textos);
  ui_.como->setText(
      comoSeLeyo(*leida_, fichero_, leida_->tabla.filas() - p.primeraFila, contexto().textos));
  mirarSigno();
}

void ImpTablaVentana::mirarSigno() {
  if (signoElegido_) return;
  ui_.signo->setCurrentIndex(averiguarSigno(leida_->tabla, plan()) == Signo::Coma ? 0 : 1);
}

Plan ImpTablaVentana::plan() const {
  return {.columnas = ui_.columnas->elegidas(),
          .primeraFila = ui_.conTitulos->property("primera").toInt(),
          .signo = ui_.signo->currentIndex() == 0 ? Signo::Coma : Signo::Punto,
          .seccion = ui_.seccion->currentData().toInt(),
          .crearNuevos = ui_.crearNuevos->isChecked()};
}

void ImpTablaVentana::ensayar() {
  const Plan p = plan();
  if (std::ranges::find(p.columnas, Campo::Codigo) == p.columnas.end())
    return decirFallo(t(kTxFaltaColumnaCodigo));
  auto motor = ImpTabla::crear(catalogo_, contexto().ajustes, leida_->tabla, p);
  if (!haIdoBien(motor)) return;
  motor_ = std::move(*motor);
  recorrer(kTxEnsayando, &ImpTabla::ensayar, &ImpTabla::ensayadas, &ImpTablaVentana::ensayado);
}

void ImpTablaVentana::recorrer(int texto, Resultado<bool> (ImpTabla::*paso)(),
                               int (ImpTabla::*hechas)() const,
                               void (ImpTablaVentana::*acabar)(const Resultado<Trabajo::Fin>&)) {
  trabajo().empezar(
      t(texto),
      [this, paso, hechas](Trabajo::Avance& a) {
        auto hayMas = (*motor_.*paso)();
        a.hechos = (*motor_.*hechas)();
        a.total = motor_->filas();
        return hayMas;
      },
      [this, acabar](const Resultado<Trabajo::Fin>& fin) { (this->*acabar)(fin); });
  botones();
}

void ImpTablaVentana::ensayado(const Resultado<Trabajo::Fin>& fin) {
  if (!haIdoBien(fin) || *fin == Trabajo::Fin::Parado) return irA(kColumnas);
  tira().quitar();
  irA(kPrevia);
  mostrarPropuestas();
  if (motor_->dudosas() > 0) decirDuda(t(kTxPreciosRaros, motor_->dudosas()));
}

void ImpTablaVentana::aplicar() {
  aplicando_ = true;
  recorrer(kTxAplicando, &ImpTabla::aplicar, &ImpTabla::aplicadas, &ImpTablaVentana::aplicado);
}

void ImpTablaVentana::aplicado(const Resultado<Trabajo::Fin>& fin) {
  aplicando_ = false;
  const ImpTabla::Hecho hecho = motor_->hecho();
  const qint64 lote = motor_->lote();
  const bool entero = fin && *fin == Trabajo::Fin::Acabado;
  const auto cerrado = entero ? motor_->acabar() : Resultado<>{};
  if (!entero || !cerrado) {
    irA(kColumnas);  // a run is applied only once
    const std::optional<Error> error = !fin       ? std::optional(fin.error())
                                       : !cerrado ? std::optional(cerrado.error())
                                                  : std::nullopt;
    return deshacedor_.volver(lote, hecho.nuevos + hecho.cambiados, error);
  }
  irA(kResultado);
  QString texto = contexto().textos(kTxHechoTabla, {hecho.nuevos, hecho.cambiados});
  if (hecho.redondeados > 0) texto += u' ' + t(kTxImportesRedondeados, hecho.redondeados);
  if (hecho.dudosos > 0) texto += u' ' + t(kTxPreciosRaros, hecho.dudosos);
  ui_.hecho->setText(texto);
  ponerMalas(*ui_.malas, hecho.malas);
  if (hecho.malas.empty())
    return hecho.redondeados + hecho.dudosos > 0 ? decirDuda(texto) : decirBien(texto);
  ui_.malas->setFocus();  // so that a second Return leaves them in view
  decirDuda(t(kTxNMalas, static_cast<int>(hecho.malas.size())));
}

}  // namespace tarvo::importar
