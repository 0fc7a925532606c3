#include "totals/ventanas/Visor.h"

#include <QRegularExpressionValidator>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/marco/Recuerdos.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/LadoGrafica.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

constexpr int kReposoVisor = 60;  // ms without a change before a chart or an origin is updated
constexpr int kPausaCodigos = 250;
constexpr int kBarras = 12;
constexpr int kLetrasLista = 8;
constexpr int kAnchoCodigo = 72;

QString sinCeros(const QLineEdit& campo) {
  return campo.text().trimmed();
}

std::optional<qint64> codigoDe(const QLineEdit& campo) {
  bool bien = false;
  const qint64 n = sinCeros(campo).toLongLong(&bien);
  return bien ? std::optional(n) : std::nullopt;
}

std::vector<ventanas::Columna> columnasVisor(TipoTotal clase) {
  std::vector<ventanas::Columna> c{
      {.titulo = kTxSec,
       .campo = columnaFila(CampoFila::Seccion),
       .clase = Clase::Codigo,
       .cifras = 2,
       .ancho = 56},
      {.titulo = ventanas::kTxGrupo,
       .campo = columnaFila(CampoFila::Grupo),
       .clase = Clase::Codigo,
       .cifras = 4,
       .ancho = 72},
      {.titulo = clase == TipoTotal::Horario ? ventanas::kTxHora : ventanas::kTxCodigo,
       .campo = columnaFila(CampoFila::Codigo),
       .clase = Clase::Codigo,
       .cifras = cifrasCodigo(clase)}};
  if (clase == TipoTotal::OperHora)
    c.push_back({.titulo = ventanas::kTxHora,
                 .campo = columnaFila(CampoFila::Hora),
                 .clase = Clase::Codigo,
                 .cifras = 2,
                 .ancho = 64});
  c.push_back({.titulo = ventanas::kTxNombre,
               .campo = nombreFilas(clase),
               .ancho = clase == TipoTotal::OperHora ? 160 : 220});
  c.push_back({.titulo = kTxOp,
               .campo = columnaFila(CampoFila::Operaciones),
               .clase = Clase::Entero,
               .suma = true});
  c.push_back({.titulo = kTxPeso,
               .campo = columnaFila(CampoFila::Peso),
               .clase = Clase::Cantidad,
               .suma = true});
  c.push_back({.titulo = kTxImpte,
               .campo = columnaFila(CampoFila::Importe),
               .clase = Clase::Importe,
               .suma = true});
  c.push_back({.titulo = kTxDesct,
               .campo = columnaFila(CampoFila::Descuento),
               .clase = Clase::Importe,
               .suma = true});
  return c;
}

}  // namespace

Visor::Visor(ventanas::Contexto& contexto, const QString& nombre, Periodos& periodos)
    : Ventana(contexto, nombre),
      p_(periodos),
      moneda_(contexto.ajustes.MonedaPreferente),
      porOperador_(nombre.startsWith(PuertaV_ColOpH::kNombre)),
      grafica_(contexto.reloj.temporizador([this] { pintarGrafica(); })),
      procede_(contexto.reloj.temporizador([this] { pintarProcedencia(); })),
      codigos_(contexto.reloj.temporizador([this] { filtroCambiado(); })),
      serie_(contexto, *this) {
  filtro_.clase = porOperador_ ? TipoTotal::OperHora : TipoTotal::GranTotal;
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void Visor::montar() {
  ui_.VerFila->setShortcut(Qt::CTRL | Qt::Key_T);
  ui_.Moneda->setShortcut(Qt::CTRL | Qt::Key_M);
  ui_.VerGrafica->setShortcut(Qt::CTRL | Qt::Key_G);
  ui_.VerFila->setIcon(ventanas::icono(u"calendario"_s));
  ui_.Moneda->setIcon(ventanas::icono(u"moneda"_s));
  ui_.VerGrafica->setIcon(ventanas::icono(u"grafica"_s));
  ui_.Moneda->setVisible(contexto().ajustes.Euro > 0);
  ventanas::Opciones clases;
  for (const ClaseTotal& k : enVigor(contexto().ajustes))
    if (k.tipo != TipoTotal::OperHora)
      clases.push_back({numeroDe(k.tipo), nombreClase(contexto().textos, k.tipo)});
  ventanas::llenar(*ui_.LstClase, clases);
  for (QWidget* w : {static_cast<QWidget*>(ui_.rotuloClase), static_cast<QWidget*>(ui_.LstClase),
                     static_cast<QWidget*>(ui_.rotuloDesde), static_cast<QWidget*>(ui_.desde),
                     static_cast<QWidget*>(ui_.rotuloHasta), static_cast<QWidget*>(ui_.hasta)})
    w->setVisible(!porOperador_);
  for (QWidget* w : {static_cast<QWidget*>(ui_.rotuloOper), static_cast<QWidget*>(ui_.LstOper)})
    w->setVisible(porOperador_);
  ui_.VerFila->setVisible(!porOperador_);
  for (QComboBox* lista : {ui_.LstClase, ui_.AllSec, ui_.AllGrp, ui_.LstOper}) {
    lista->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lista->setMinimumContentsLength(kLetrasLista);
  }
  auto* cifras = new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), this);
  for (QLineEdit* campo : {ui_.desde, ui_.hasta}) {
    campo->setFixedWidth(ventanas::escalar(kAnchoCodigo));
    campo->setValidator(cifras);
  }
  ui_.grafica->preparar(contexto());
  unirLado(*ui_.VerGrafica, *ui_.lado, contexto().recuerdos, objectName());
  repartirLado(*ui_.divisor, contexto().recuerdos, objectName());
  for (QComboBox* lista : {ui_.LstClase, ui_.AllSec, ui_.AllGrp, ui_.LstOper})
    connect(lista, &QComboBox::activated, this, &Visor::filtroCambiado);
  for (QLineEdit* campo : {ui_.desde, ui_.hasta})
    connect(campo, &QLineEdit::textEdited, this, [this] { codigos_->unaVez(kPausaCodigos); });
  connect(ui_.VerFila, &QAction::triggered, this, &Visor::verFila);
  connect(ui_.Moneda, &QAction::triggered, this, [this] { UsoMoneda(moneda_ == 0 ? 1 : 0); });
  connect(ui_.Grid, &ventanas::Parrilla::activada, this, &Visor::verFila);
  connect(ui_.Grid, &ventanas::Parrilla::actualCambiada, this,
          [this] { procede_->unaVez(kReposoVisor); });
  ui_.Grid->ponerAcciones({ui_.VerFila, ui_.Moneda, ui_.VerGrafica});
  ui_.Grid->ponerVacia(t(kTxVisorVacio));
}

Resultado<> Visor::entrar(const PuertaVerCols& puerta) {
  filtro_.clase = puerta.clase;
  return mostrarPeriodo(puerta.link, puerta.moneda, puerta.grupo);
}

Resultado<> Visor::entrar(const PuertaV_ColOpH& puerta) {
  return mostrarPeriodo(puerta.link, puerta.moneda);
}

Resultado<> Visor::mostrarPeriodo(qint64 link, std::optional<int> moneda, int grupo) {
  if (link == 0) {
    TARVO_TOMAR(link, p_.ultimo());
  }
  filtro_.link = link;
  moneda_ = moneda.value_or(moneda_);
  elegirEn(*ui_.LstClase, numeroDe(filtro_.clase));
  TARVO_INTENTAR(llenarFiltros());
  if (grupo > 0) elegirEn(*ui_.AllGrp, grupo);
  prepararParrilla();
  filtrar();
  ui_.Grid->setFocus();
  return {};
}

Resultado<> Visor::llenarFiltros() {
  TARVO_INTENTAR(
      llenarLista(*ui_.AllSec, contexto(), contexto().nombres.secciones(), 2, ventanas::kTxTodas));
  TARVO_INTENTAR(
      llenarLista(*ui_.AllGrp, contexto(), contexto().nombres.grupos(), 4, ventanas::kTxTodos));
  return llenarLista(*ui_.LstOper, contexto(), contexto().nombres.operadores(), 4,
                     ventanas::kTxTodos);
}

void Visor::prepararParrilla() {
  ui_.Grid->preparar(contexto(), nombre(), columnasVisor(filtro_.clase));
  ui_.Grid->ponerMoneda(moneda_);
  ui_.VerFila->setEnabled(!deHoras());
}

void Visor::UsoMoneda(int moneda) {
  moneda_ = moneda;
  ui_.Grid->ponerMoneda(moneda);
  pintarGrafica();
}

void Visor::UpdateCaption() {
  const auto c = p_.columna(filtro_.link);
  const QString periodo = c && *c ? TextoPeriodo((*c)->periodo) : QString();
  setWindowTitle(
      t(kTxTotalizacion).arg(nombreClase(contexto().textos, filtro_.clase), periodo).trimmed());
  ui_.titulo->setText(periodo);
  ui_.descripcion->setText(c && *c ? (*c)->DESCR : QString());
  ui_.descripcion->setVisible(!ui_.descripcion->text().isEmpty());
}

void Visor::filtroCambiado() {
  codigos_->parar();
  if (!porOperador_)
    if (const auto clase = deNumero<TipoTotal>(ui_.LstClase->currentData().toInt());
        clase && clase != filtro_.clase) {
      filtro_.clase = *clase;
      prepararParrilla();
    }
  filtrar();
}

void Visor::filtrar() {
  filtro_.seccion = elegidoEn(*ui_.AllSec);
  filtro_.grupo = elegidoEn(*ui_.AllGrp);
  filtro_.desde = codigoDe(*ui_.desde);
  filtro_.hasta = codigoDe(*ui_.hasta);
  if (porOperador_) filtro_.desde = filtro_.hasta = elegidoEn(*ui_.LstOper);
  UpdateCaption();
  haIdoBien(ui_.Grid->abrir(listaFilas(filtro_)));
  grafica_->unaVez(kReposoVisor);
  procede_->unaVez(kReposoVisor);
}

void Visor::pintarGrafica() {
  if (!ui_.VerGrafica->isChecked()) return;
  serie_.preguntar<std::vector<Punto>>(
      [filtro = filtro_](dao::Database& db) { return serie(db, filtro, kBarras); },
      [this](const Resultado<std::vector<Punto>>& puntos) {
        if (haIdoBien(puntos)) ponerGrafica(*puntos);
      });
}

void Visor::ponerGrafica(const std::vector<Punto>& puntos) {
  if (puntos.empty()) return ui_.grafica->vaciar(t(kTxSinGrafica));
  std::vector<Grafica::Barra> barras;
  barras.reserve(puntos.size());
  for (const Punto& p : puntos)
    barras.push_back({deHoras()            ? QString::number(p.codigo)
                      : p.nombre.isEmpty() ? Ceros(p.codigo, cifrasCodigo(filtro_.clase))
                                           : p.nombre,
                      p.importe});
  const QString titulo = deHoras()
                             ? t(kTxPorHoras)
                             : t(kTxLosMayores).arg(nombreClase(contexto().textos, filtro_.clase));
  ui_.grafica->barras(titulo, std::move(barras), !deHoras(), moneda_);
}

void Visor::pintarProcedencia() {
  const int fila = ui_.Grid->filaActual();
  if (fila < 0) return ui_.procede->setText({});
  const auto texto = textoProcedencia(
      *this, p_, filtro_.link,
      static_cast<int>(ui_.Grid->valor(fila, columnaFila(CampoFila::Grupo)).entero()),
      filtro_.clase, ui_.Grid->valor(fila, columnaFila(CampoFila::Codigo)).entero());
  if (haIdoBien(texto)) ui_.procede->setText(*texto);
}

// Opens the row's code across all periods.
void Visor::verFila() {
  const int fila = ui_.Grid->filaActual();
  if (fila < 0 || deHoras()) return;
  abrir(PuertaVerFils{
      .clase = filtro_.clase,
      .seccion = static_cast<int>(ui_.Grid->valor(fila, columnaFila(CampoFila::Seccion)).entero()),
      .codigo = ui_.Grid->valor(fila, columnaFila(CampoFila::Codigo)).entero(),
      .moneda = moneda_});
}

}  // namespace tarvo::totals
