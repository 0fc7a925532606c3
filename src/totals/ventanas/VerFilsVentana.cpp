#include "totals/ventanas/VerFilsVentana.h"

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "totals/periodos/Calendario.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/ImpUnaFilaVentana.h"
#include "totals/ventanas/LadoGrafica.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

constexpr int kReposoFilas = 60;  // ms without a change before the chart is drawn

// Each counter alone, or summed if one row combines all groups.
std::vector<ventanas::Columna> columnasFilas(int tipo, TipoTotal clase, bool porGrupo) {
  const auto cuenta = [porGrupo](CampoFila campo) {
    return porGrupo ? columnaFila(campo) : columnaSumada(campo);
  };
  const auto fecha = [tipo](const dao::Valor& v) { return FormatoPeriodo(tipo, v.fecha()); };
  std::vector<ventanas::Columna> c{
      {.titulo = kTxFecha,
       .campo = columnaFila(CampoFila::Desde),
       .clase = Clase::Fecha,
       .ancho = 160,
       .ver = fecha},
      {.titulo = kTxHASTA,
       .campo = columnaFila(CampoFila::Hasta),
       .clase = Clase::Fecha,
       .ancho = 160,
       .oculta = tipo != kOtros,
       .ver = fecha},
      {.titulo = ventanas::kTxNombre, .campo = nombreFilas(clase), .ancho = 200}};
  if (porGrupo)
    c.push_back({.titulo = ventanas::kTxGrupo,
                 .campo = columnaFila(CampoFila::Grupo),
                 .clase = Clase::Codigo,
                 .cifras = 4,
                 .ancho = 72});
  else
    c.push_back({.titulo = ventanas::kTxGrupos,
                 .campo = columnaCuantas(),
                 .clase = Clase::Entero,
                 .ancho = 80});
  c.push_back({.titulo = kTxOp,
               .campo = cuenta(CampoFila::Operaciones),
               .clase = Clase::Entero,
               .suma = true});
  c.push_back({.titulo = kTxPeso,
               .campo = cuenta(CampoFila::Peso),
               .clase = Clase::Cantidad,
               .suma = true});
  c.push_back({.titulo = kTxImpte,
               .campo = cuenta(CampoFila::Importe),
               .clase = Clase::Importe,
               .suma = true});
  c.push_back({.titulo = kTxDesct,
               .campo = cuenta(CampoFila::Descuento),
               .clase = Clase::Importe,
               .suma = true});
  return c;
}

}  // namespace

VerFilsVentana::VerFilsVentana(ventanas::Contexto& contexto, const QString& nombre,
                               Periodos& periodos)
    : Ventana(contexto, nombre),
      p_(periodos),
      moneda_(contexto.ajustes.MonedaPreferente),
      grafica_(contexto.reloj.temporizador([this] { pintarGrafica(); })) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void VerFilsVentana::montar() {
  ui_.Intervalo->setShortcut(Qt::CTRL | Qt::Key_I);
  ui_.Moneda->setShortcut(Qt::CTRL | Qt::Key_M);
  ui_.VerGrafica->setShortcut(Qt::CTRL | Qt::Key_G);
  ui_.Intervalo->setIcon(ventanas::icono(u"filtro"_s));
  ui_.Moneda->setIcon(ventanas::icono(u"moneda"_s));
  ui_.VerGrafica->setIcon(ventanas::icono(u"grafica"_s));
  ui_.Moneda->setVisible(contexto().ajustes.Euro > 0);
  ventanas::llenar(*ui_.LstTipo, tiposDePeriodo());
  ui_.grafica->preparar(contexto());
  unirLado(*ui_.VerGrafica, *ui_.lado, contexto().recuerdos, objectName());
  repartirLado(*ui_.divisor, contexto().recuerdos, objectName());
  connect(ui_.LstTipo, &QComboBox::activated, this, [this] {
    filtro_.desde.reset();
    filtro_.hasta.reset();
    filtrar();
  });
  connect(ui_.AllGrp, &QComboBox::activated, this, &VerFilsVentana::filtrar);
  connect(ui_.Intervalo, &QAction::triggered, this, &VerFilsVentana::pedirIntervalo);
  connect(ui_.Moneda, &QAction::triggered, this, [this] { usarMoneda(moneda_ == 0 ? 1 : 0); });
  ui_.Grid->filtros()->addWidget(ui_.filtros);
  ui_.Grid->ponerAcciones({ui_.Intervalo, ui_.Moneda, ui_.VerGrafica});
  ui_.Grid->ponerVacia(t(kTxFilasVacias));
}

Resultado<> VerFilsVentana::entrar(const PuertaVerFils& puerta) {
  filtro_ = {};
  filtro_.clase = puerta.clase;
  filtro_.codigo = puerta.codigo.value_or(0);
  if (conSeccion(filtro_.clase)) filtro_.seccion = puerta.seccion;
  if (puerta.moneda) moneda_ = *puerta.moneda;
  if (!puerta.codigo) TARVO_INTENTAR(elegirPrimero());
  TARVO_TOMAR(auto como, nombreDeCodigo(p_, filtro_));
  nombre_ = como;
  TARVO_INTENTAR(
      llenarLista(*ui_.AllGrp, contexto(), contexto().nombres.grupos(), 4, ventanas::kTxTodos));
  porGrupo_ = false;
  filtrar();
  ui_.Grid->setFocus();
  return {};
}

Resultado<> VerFilsVentana::elegirPrimero() {
  TARVO_TOMAR(const auto mayor, masVendido(p_, filtro_.clase));
  if (conSeccion(filtro_.clase)) filtro_.seccion = mayor.seccion;
  filtro_.codigo = mayor.codigo;
  return {};
}

void VerFilsVentana::filtrar() {
  filtro_.tipo = ui_.LstTipo->currentData().toInt();
  filtro_.grupo = elegidoEn(*ui_.AllGrp);
  porGrupo_ = filtro_.grupo.has_value();
  prepararParrilla();
  haIdoBien(ui_.Grid->abrir(listaDeCodigo(filtro_)));
  const QString codigo = Ceros(filtro_.codigo, cifrasCodigo(filtro_.clase));
  setWindowTitle(t(kTxTotalizacion)
                     .arg(nombreClase(contexto().textos, filtro_.clase), codigo + u' ' + nombre_)
                     .trimmed());
  ui_.titulo->setText(codigo + u' ' + nombre_);
  const bool conFechas = filtro_.desde || filtro_.hasta;
  ui_.intervalo->setText(conFechas
                             ? t(kTxIntervalo)
                                   .arg(filtro_.desde ? filtro_.desde->corta() : t(kTxSinLimite),
                                        filtro_.hasta ? filtro_.hasta->corta() : t(kTxSinLimite))
                             : nombreClase(contexto().textos, filtro_.clase));
  grafica_->unaVez(kReposoFilas);
}

void VerFilsVentana::prepararParrilla() {
  ui_.Grid->preparar(contexto(), nombre(), columnasFilas(filtro_.tipo, filtro_.clase, porGrupo_));
  ui_.Grid->ponerMoneda(moneda_);
}

void VerFilsVentana::pintarGrafica() {
  if (!ui_.VerGrafica->isChecked()) return;
  const auto puntos = evolucion(p_, filtro_);
  if (!haIdoBien(puntos)) return;
  if (puntos->empty()) return ui_.grafica->vaciar(t(kTxSinGrafica));
  std::vector<Grafica::Dia> dias;
  for (const PuntoPeriodo& p : *puntos) dias.push_back({p.desde.qdate(), p.importe});
  ui_.grafica->linea(t(kTxEnElTiempo), std::move(dias), moneda_);
}

void VerFilsVentana::usarMoneda(int moneda) {
  moneda_ = moneda;
  ui_.Grid->ponerMoneda(moneda);
  pintarGrafica();
}

void VerFilsVentana::pedirIntervalo() {
  const auto salida =
      preguntar(PuertaImpUnaFila{.mision = filtro_.tipo, .titulo = ui_.titulo->text()});
  if (!salida) return;
  filtro_.desde = salida->desde;
  filtro_.hasta = salida->hasta;
  filtrar();
}

}  // namespace tarvo::totals
