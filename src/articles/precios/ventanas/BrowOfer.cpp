// The list: its filters and columns. Its edits are in BrowOferAcciones.cpp.
#include "articles/precios/ventanas/BrowOfer.h"

#include "articles/precios/Listas.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Campo.h"
#include "core/ventanas/marco/EscogeFecha.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

constexpr int kAnchoFecha = 132;

}  // namespace

BrowOfer::BrowOfer(ventanas::Contexto& contexto, const QString& nombre, Ofertas& motor)
    : Ventana(contexto, nombre), motor_(motor) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void BrowOfer::montar() {
  unir(ui_.NuevaOf, u"anadir"_s, Qt::Key_Insert, [this] { nueva(); });
  unir(ui_.Borro, u"borrar"_s, Qt::Key_Delete, [this] { borrar(); });
  deshacer_ = new ventanas::Deshacer(*this, ui_.Deshacer);
  deshacer_->seguirTandas(*ui_.Grid);
  connect(ui_.Grid, &ventanas::Parrilla::variasDejadas, this, [this] { fechaEnCola_.reset(); });
  ui_.Grid->ponerTodoONada([this](const auto& hacer) { return motor_.todoONada(hacer); });
  ui_.Grid->filtros()->addWidget(ui_.filtros);
  ui_.Grid->ponerVacia(t(kTxSinOfertas), ui_.NuevaOf);
  ui_.Grid->ponerAcciones({ui_.NuevaOf, ui_.Borro, ui_.Deshacer});
  connect(ui_.dbS, &QComboBox::activated, this, [this] { haIdoBien(seccionCambiada()); });
  connect(ui_.dbG, &QComboBox::activated, this, [this] { haIdoBien(abrirLista()); });
  connect(ui_.Grid, &ventanas::Parrilla::seleccionCambiada, this, &BrowOfer::actualizarAcciones);
  for (const auto& [caja, filtro] : {std::pair{ui_.TxtF1, &desde_}, {ui_.TxtFf, &hasta_}}) {
    new ventanas::EscogeFecha(*caja, contexto());
    caja->setMaximumWidth(ventanas::escalar(kAnchoFecha));
    connect(caja, &QLineEdit::editingFinished, this,
            [this, caja, filtro] { fechaCambiada(*caja, *filtro); });
  }
}

Resultado<> BrowOfer::entrar(const PuertaBrowOfer& puerta) {
  TARVO_INTENTAR(ventanas::llenar(*ui_.dbS, contexto().nombres.secciones(), 3));
  if (puerta.seccion > 0) elegir(*ui_.dbS, puerta.seccion);
  if (!ui_.Grid->consulta()) prepararParrilla();
  TARVO_INTENTAR(seccionCambiada());
  ui_.Grid->setFocus();
  return {};
}

void BrowOfer::prepararParrilla() {
  const auto precio = [this](std::size_t nivel) {
    return [this, nivel](qint64 fila, const QString& texto) {
      return precioEscrito(fila, nivel, texto);
    };
  };
  const auto fecha = [this](Extremo extremo) {
    return [this, extremo](qint64, const QString& texto) { return fechaEscrita(extremo, texto); };
  };
  ui_.Grid->preparar(
      contexto(), nombre(),
      {{.titulo = ventanas::kTxGrupo,
        .campo = columnaOferta(CampoOferta::Grupo),
        .clase = Clase::Codigo,
        .cifras = 4,
        .oculta = true},
       {.titulo = kTxBorradaCol, .campo = u"borrado"_s, .soloDato = true},
       {.titulo = ventanas::kTxSeccion,
        .campo = columnaOferta(CampoOferta::Seccion),
        .clase = Clase::Codigo,
        .cifras = 3,
        .oculta = true},
       {.titulo = kTxEnviadaCol, .campo = u"enviado"_s, .clase = Clase::SiNo, .oculta = true},
       {.titulo = ventanas::kTxCodigo,
        .campo = columnaOferta(CampoOferta::Codigo),
        .clase = Clase::Codigo,
        .cifras = 7,
        .ancho = 90},
       {.titulo = ventanas::kTxNombre, .campo = u"NOMPLU"_s, .ancho = 200},
       {.titulo = kTxNivel, .campo = u"PRECIO_0"_s, .clase = Clase::Importe, .editar = precio(0)},
       {.titulo = kTxNivel + 1,
        .campo = u"PRECIO_1"_s,
        .clase = Clase::Importe,
        .editar = precio(1)},
       {.titulo = kTxNivel + 2,
        .campo = u"PRECIO_2"_s,
        .clase = Clase::Importe,
        .editar = precio(2)},
       {.titulo = ventanas::kTxDesde,
        .campo = u"FECHA_INI"_s,
        .clase = Clase::Fecha,
        .ancho = 110,
        .editar = fecha(Extremo::Desde)},
       {.titulo = kTxHastaCol,
        .campo = u"FECHA_FIN"_s,
        .clase = Clase::Fecha,
        .ancho = 110,
        .editar = fecha(Extremo::Hasta)}});
  ui_.Grid->ponerMoneda(contexto().ajustes.MonedaNativa);
}

Resultado<> BrowOfer::seccionCambiada() {
  const int seccion = ui_.dbS->currentData().toInt();
  TARVO_INTENTAR(ventanas::llenar(*ui_.dbG, contexto().nombres.gruposDe(seccion), 4));
  return abrirLista();
}

FiltroOfertas BrowOfer::filtro() const {
  return {ui_.dbG->currentData().toInt(), desde_, hasta_};
}

Resultado<> BrowOfer::abrirLista() {
  TARVO_INTENTAR(ui_.Grid->abrir(listaOfertas(filtro())));
  actualizarAcciones();
  return {};
}

// An invalid date remains in its field, marked, and the filter of the list doesn't change.
void BrowOfer::fechaCambiada(QLineEdit& caja, Dia& filtro) {
  const QString texto = caja.text().trimmed();
  const auto fecha = Fecha::leerProxima(texto, contexto().reloj.ahora());
  const bool mala = !fecha && !texto.isEmpty();
  ventanas::marcarFalta(caja, mala);
  if (mala) return decirDuda(t(kTxFechaSinFiltrar).arg(texto));
  if (fecha) caja.setText(fecha->corta());
  const Dia dia = fecha ? Dia(fecha->dia()) : Dia();
  if (dia == std::exchange(filtro, dia)) return;
  haIdoBien(abrirLista());
}

void BrowOfer::actualizarAcciones() {
  const bool hayGrupo = ui_.dbG->currentIndex() >= 0;
  ui_.NuevaOf->setEnabled(hayGrupo);
  ui_.Borro->setEnabled(ui_.Grid->filas() > 0);
  if (!hayGrupo)
    ui_.Grid->ponerVacia(t(kTxSinGrupos));
  else
    ui_.Grid->ponerVacia(t(kTxSinOfertas), ui_.NuevaOf);
}

void BrowOfer::RefrescoRemoto() {
  haIdoBien(ui_.Grid->refrescar());
  actualizarAcciones();
}

std::optional<ClaveOferta> BrowOfer::claveDe(qint64 fila) const {
  const int i = ui_.Grid->filaDe(fila);
  if (i < 0) return std::nullopt;
  return ClaveOferta{
      static_cast<int>(ui_.Grid->valor(i, columnaOferta(CampoOferta::Grupo)).entero()),
      static_cast<int>(ui_.Grid->valor(i, columnaOferta(CampoOferta::Seccion)).entero()),
      ui_.Grid->valor(i, columnaOferta(CampoOferta::Codigo)).entero()};
}

}  // namespace tarvo::precios
