// The list itself: its contents, and the side panel with the current period.
#include "totals/ventanas/VerTotVentana.h"

#include <QMenu>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "totals/libros/Cuadre.h"
#include "totals/libros/SinArticulos.h"
#include "totals/periodos/Listas.h"
#include "totals/periodos/Sumas.h"
#include "totals/ventanas/LadoGrafica.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

constexpr int kReposoLista = 60;  // ms without a change before the side panel is updated
constexpr int kBarrasLista = 10;

// A date, with its time only if that isn't midnight.
QString fechaGeneral(Fecha f) {
  return f.hora() == 0 ? f.corta() : f.general();
}

QString signoStock(const dao::Valor& v) {
  const qint64 n = v.entero();
  return n > 0 ? u"+"_s : n < 0 ? u"*"_s : QString();
}

}  // namespace

VerTotVentana::VerTotVentana(ventanas::Contexto& contexto, const QString& nombre,
                             Periodos& periodos)
    : Ventana(contexto, nombre),
      p_(periodos),
      motor_(periodos),
      papelera_(periodos),
      lado_(contexto.reloj.temporizador([this] { pintarLado(); })) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void VerTotVentana::montar() {
  montarMenus();
  montarAcciones();
  montarDeshacer();
  auto tipos = tiposDePeriodo();
  tipos.insert(tipos.begin(), {0, t(ventanas::kTxTodos)});
  ventanas::llenar(*ui_.ListaTpos, tipos);
  connect(ui_.ListaTpos, &QComboBox::activated, this, &VerTotVentana::tipoCambiado);
  connect(ui_.Grid, &ventanas::Parrilla::activada, this,
          [this] { VerIntervalo(TipoTotal::GranTotal); });
  connect(ui_.Grid, &ventanas::Parrilla::actualCambiada, this, &VerTotVentana::actualCambiada);
  ui_.Grid->filtros()->addWidget(ui_.filtros);
  ui_.Grid->ponerVacia(t(kTxListaVacia), ui_.NuevoIV);
  ui_.grafica->preparar(contexto());
  unirLado(*ui_.VerGrafica, *ui_.lado, contexto().recuerdos, objectName());
  repartirLado(*ui_.divisor, contexto().recuerdos, objectName());
  connect(ui_.VerGrafica, &QAction::toggled, this, &VerTotVentana::pintarLado);
}

Resultado<> VerTotVentana::entrar(const PuertaVerTot& puerta) {
  if (ui_.Grid->consulta()) {
    refrescar();
  } else {
    TARVO_INTENTAR(papelera_.vaciarla());
    tipoCambiado();
    ui_.Grid->setFocus();
  }
  if (puerta.link > 0) elegirPeriodo(puerta.link);
  return {};
}

// Switches the list to the period's kind if it would be hidden, and moves to its row.
void VerTotVentana::elegirPeriodo(qint64 link) {
  const auto c = p_.columna(link);
  if (!haIdoBien(c) || !*c) return;
  if (tipo_ > 0 && tipo_ != (*c)->periodo.tipo) {
    elegirEn(*ui_.ListaTpos, (*c)->periodo.tipo);
    tipoCambiado();
  }
  ui_.Grid->irA(ui_.Grid->filaDe(link));
}

void VerTotVentana::prepararParrilla() {
  const auto fecha = [this](const dao::Valor& v) {
    return tipo_ == 0 ? fechaGeneral(v.fecha()) : FormatoPeriodo(tipo_, v.fecha());
  };
  const auto tipo = [](const dao::Valor& v) {
    return NombreTipoPeriodo(static_cast<int>(v.entero()));
  };
  ui_.Grid->preparar(
      contexto(), nombre(),
      {{.titulo = kTxFecha,
        .campo = u"FECHA1"_s,
        .clase = Clase::Fecha,
        .ancho = 156,
        .ver = fecha},
       {.titulo = kTxHASTA,
        .campo = u"FECHAF"_s,
        .clase = Clase::Fecha,
        .ancho = 156,
        .ver = fecha},
       {.titulo = kTxDescripcion, .campo = u"DESCR"_s, .ancho = 146},
       {.titulo = kTxImpte, .campo = importeDePeriodo(), .clase = Clase::Importe, .ancho = 100},
       {.titulo = kTxS, .campo = u"ACUM2"_s, .clase = Clase::SiNo, .ancho = 34},
       {.titulo = kTxM, .campo = u"ACUM3"_s, .clase = Clase::SiNo, .ancho = 34},
       {.titulo = kTxA, .campo = u"ACUM4"_s, .clase = Clase::SiNo, .ancho = 34},
       {.titulo = kTxStkable, .campo = u"stkABLE"_s, .clase = Clase::SiNo, .ancho = 60},
       {.titulo = kTxStk, .campo = u"stkADO"_s, .ancho = 48, .ver = signoStock},
       {.titulo = ventanas::kTxTipo, .campo = u"TIPO"_s, .oculta = true, .ver = tipo}});
}

void VerTotVentana::tipoCambiado() {
  tipo_ = ui_.ListaTpos->currentData().toInt();
  for (QAction* a : mnuAcu_->actions()) {
    const int destino = a->data().toInt();
    a->setEnabled(tipo_ == 0 || tipo_ == kOtros || tipo_ < destino);
  }
  ui_.acumule->setEnabled(tipo_ != kAnual);
  if (!ui_.Grid->consulta()) prepararParrilla();
  haIdoBien(ui_.Grid->abrir(listaPeriodos(tipo_)));
  cambios_ = contexto().base.cambios();
  actualCambiada();
}

void VerTotVentana::refrescar() {
  haIdoBien(ui_.Grid->refrescar());
  cambios_ = contexto().base.cambios();
  actualCambiada();
}

// Shows the changes made by other windows when this one is activated.
bool VerTotVentana::event(QEvent* evento) {
  const bool hecho = Ventana::event(evento);
  if (evento->type() == QEvent::WindowActivate && !trabajo().enMarcha() && ui_.Grid->consulta() &&
      contexto().base.cambios() != cambios_)
    refrescar();
  return hecho;
}

void VerTotVentana::actualCambiada() {
  const bool hay = ui_.Grid->filas() > 0 && !trabajo().enMarcha();
  for (QAction* a : {ui_.Modifo, ui_.Borro, ui_.Vacio, ui_.DesAcum, ui_.SumaCol, ui_.StockAR,
                     ui_.DesStock, ui_.VerCosa, ui_.Exportar})
    a->setEnabled(hay);
  for (QAction* a : {ui_.Modifo, ui_.Borro, ui_.Vacio, ui_.DesAcum, ui_.SumaCol, ui_.StockAR,
                     ui_.DesStock, ui_.VerCosa, ui_.Exportar, ui_.acumule})
    a->setProperty(ventanas::kPorQueNo, trabajo().enMarcha() ? QString() : t(kTxListaVacia));
  ui_.acumule->setEnabled(hay && tipo_ != kAnual);
  if (hay) ui_.acumule->setProperty(ventanas::kPorQueNo, t(kTxAnualNoSeAcumula));
  lado_->unaVez(kReposoLista);
}

void VerTotVentana::pintarLado() {
  if (!ui_.VerGrafica->isChecked()) return;
  const int fila = ui_.Grid->filaActual();
  const auto c = fila < 0 ? Resultado<std::optional<Columna>>(std::nullopt)
                          : p_.columna(ui_.Grid->clave(fila));
  if (!haIdoBien(c)) return;
  if (!*c) {
    for (QLabel* l : {ui_.periodo, ui_.importe, ui_.detalle}) l->clear();
    return ui_.grafica->vaciar(t(kTxSinGrafica));
  }
  const auto resumen = resumenDe({(*c)->LINK});
  if (!resumen) return;
  ui_.periodo->setText(TextoPeriodo((*c)->periodo).simplified());
  ui_.importe->setText(conMoneda(contexto(), resumen->importe));
  ui_.detalle->setText(textoResumen(*this, *resumen) +
                       (resumen->filas > 0 ? u'\n' + textoCuadre(**c) : QString()));
  for (const TipoTotal clase :
       {TipoTotal::Horario, TipoTotal::Departamentos, TipoTotal::PLUs, TipoTotal::GranTotal}) {
    FiltroFilas filtro;
    filtro.link = (*c)->LINK;
    filtro.clase = clase;
    const auto puntos = serie(p_, filtro, kBarrasLista);
    if (!haIdoBien(puntos)) return;
    if (puntos->empty()) continue;
    std::vector<Grafica::Barra> barras;
    const bool horas = clase == TipoTotal::Horario;
    for (const Punto& p : *puntos)
      barras.push_back({horas                ? QString::number(p.codigo)
                        : p.nombre.isEmpty() ? Ceros(p.codigo, cifrasCodigo(clase))
                                             : p.nombre,
                        p.importe});
    return ui_.grafica->barras(
        horas ? t(kTxPorHoras) : t(kTxLosMayores).arg(nombreClase(contexto().textos, clase)),
        std::move(barras), !horas, contexto().ajustes.MonedaPreferente);
  }
  ui_.grafica->vaciar(t(kTxPeriodoVacio));
}

// States whether the grand totals of its groups agree with the sums by article, operator and so on.
QString VerTotVentana::textoCuadre(const Columna& c) {
  const auto cuadre = cuadreDe(p_, c.LINK);
  const auto repetidos = Sumas(p_).repetidos(c.LINK);
  if (!haIdoBien(cuadre) || !haIdoBien(repetidos)) return {};
  if (!repetidos->empty()) return t(kTxSumadasDosVeces).arg(TextoPeriodos(*repetidos));
  if (!cuadre->hay)
    return t(cuadre->granTotal ? kTxSoloGranTotal : cuadre->leido ? kTxSinCuadre : kTxSinGranTotal);
  QStringList malos;
  for (const int grupo : cuadre->malos) malos << QString::number(grupo);
  const auto sinArticulos = decirSinArticulos(p_, c.LINK);
  const auto ausentes = decirAusentes(p_, c.LINK);
  if (!haIdoBien(sinArticulos) || !haIdoBien(ausentes)) return {};
  QStringList frases{malos.isEmpty() ? t(kTxCuadra) : t(kTxNoCuadra).arg(malos.join(u", "_s)),
                     *sinArticulos, *ausentes};
  frases.removeAll(QString());
  return frases.join(u' ');
}

void VerTotVentana::VerIntervalo(TipoTotal clase) {
  const int fila = ui_.Grid->filaActual();
  if (fila < 0) return;
  const qint64 link = ui_.Grid->clave(fila);
  if (clase == TipoTotal::OperHora)
    abrir(PuertaV_ColOpH{.link = link});
  else
    abrir(PuertaVerCols{.link = link, .clase = clase});
}

void VerTotVentana::cerrarVisores(qint64 link) {
  contexto().ventanas.descargar(ventanas::nombreDe(PuertaVerCols{.link = link}));
  contexto().ventanas.descargar(ventanas::nombreDe(PuertaV_ColOpH{.link = link}));
}

bool VerTotVentana::QueryUnload() {
  const auto tipoDe = [](const Ventana* v) { return v->nombre().section(u'#', 0, 0); };
  for (Ventana* v : contexto().ventanas.abiertas())
    if (tipoDe(v) == PuertaVerCols::kNombre || tipoDe(v) == PuertaV_ColOpH::kNombre) v->descargar();
  trabajo().parar();
  haIdoBien(papelera_.vaciarla());
  return false;
}

}  // namespace tarvo::totals
