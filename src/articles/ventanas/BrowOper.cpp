#include "articles/ventanas/BrowOper.h"

#include "articles/Listas.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "totals/periodos/Clases.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::Clase;

BrowOper::BrowOper(ventanas::Contexto& contexto, const QString& nombre, Operadores& motor)
    : Ventana(contexto, nombre), motor_(motor) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void BrowOper::montar() {
  ui_.termo->hide();
  unir(ui_.Nuevo, u"anadir"_s, Qt::Key_Insert, [this] { anadir(); });
  unir(ui_.Modificar, u"modificar"_s, QKeySequence(), [this] { ui_.Grid->editarCelda(); });
  unir(ui_.Borro, u"borrar"_s, Qt::Key_Delete, [this] { borrar(); });
  deshacer_ = new ventanas::Deshacer(*this, ui_.Deshacer);
  // The cells of an operator being created aren't noted one by one.
  deshacer_->seguirCeldas(*ui_.Grid, [this](int) { return nuevo_ == 0; });
  deshacer_->seguirTandas(*ui_.Grid);
  ui_.Grid->ponerTodoONada([this](const auto& hacer) { return motor_.todoONada(hacer); });
  connect(deshacer_, &ventanas::Deshacer::deshecho, this, &BrowOper::actualCambiada);
  unir(ui_.VerXtrac, u"totales"_s, Qt::Key_F8, [this] { verVentas(); });
  ui_.Grid->preparar(contexto(), nombre(),
                     {{.titulo = ventanas::kTxCodigo,
                       .campo = u"CODOPE"_s,
                       .clase = Clase::Codigo,
                       .cifras = 4,
                       .editar = [this](qint64 f, const QString& s) { return ponerCodigo(f, s); },
                       .nombraLaFila = true,
                       .largo = 9},
                      {.titulo = ventanas::kTxNombre,
                       .campo = u"NOMOPE"_s,
                       .ancho = 320,
                       .editar = [this](qint64 f, const QString& s) { return ponerNombre(f, s); },
                       .largo = 50}});
  ui_.Grid->ponerVacia(t(kTxSinOperadores), ui_.Nuevo);
  ui_.Grid->ponerAcciones({ui_.Nuevo, ui_.Modificar, ui_.Borro, ui_.Deshacer, ui_.VerXtrac});
  connect(ui_.Grid, &ventanas::Parrilla::actualCambiada, this, &BrowOper::actualCambiada);
  // An operator whose code changes may get another position.
  connect(
      ui_.Grid, &ventanas::Parrilla::editada, this, [this](int fila) { refrescar(codigo(fila)); },
      Qt::QueuedConnection);
  connect(ui_.Grid, &ventanas::Parrilla::dejada, this, &BrowOper::celdaDejada,
          Qt::QueuedConnection);
}

Resultado<> BrowOper::entrar(const PuertaBrowOper&) {
  TARVO_INTENTAR(ui_.Grid->abrir(listaOperadores()));
  actualCambiada();
  ui_.Grid->setFocus();
  return {};
}

int BrowOper::codigo(int fila) const {
  return static_cast<int>(ui_.Grid->valor(fila, u"CODOPE").entero());
}

// -1 if it isn't in the list.
int BrowOper::filaDe(int buscado) const {
  int fila = ui_.Grid->filas() - 1;
  while (fila >= 0 && codigo(fila) != buscado) --fila;
  return fila;
}

// Reads the list again and moves to an operator.
void BrowOper::refrescar(int buscado) {
  if (ui_.Grid->editando()) return;
  if (!haIdoBien(ui_.Grid->refrescar())) return;
  ui_.Grid->irA(filaDe(buscado));
  actualCambiada();
}

void BrowOper::actualCambiada() {
  const bool hay = ui_.Grid->filas() > 0;
  ui_.Modificar->setEnabled(hay);
  ui_.Borro->setEnabled(hay);
  ui_.VerXtrac->setEnabled(hay && contexto().ventanas.conoce<totals::PuertaVerFils>());
}

// Shows the progress over the groups. It repaints directly, since the transaction doesn't return to
// the event loop.
Operadores::AlAvanzar BrowOper::progreso() {
  return [this](int hechos, int total) {
    ui_.termo->setMaximum(total);
    ui_.termo->setValue(hechos);
    ui_.termo->setVisible(hechos < total);
    ui_.termo->repaint();
  };
}

Resultado<> BrowOper::ponerCodigo(qint64 clave, const QString& texto) {
  const int viejo = codigo(ui_.Grid->filaDe(clave)), nuevo = texto.toInt();
  const auto hecho = motor_.cambiarCodigo(viejo, nuevo, progreso());
  ui_.termo->hide();
  if (!hecho) return std::unexpected(informe(*this, hecho.error()));
  if (viejo == nuevo_) {
    nuevo_ = nuevo;
    faltaNombre_ = true;
  }
  return {};
}

Resultado<> BrowOper::ponerNombre(qint64 clave, const QString& texto) {
  return motor_.renombrar(codigo(ui_.Grid->filaDe(clave)), texto);
}

void BrowOper::anadir() {
  if (ui_.Grid->editando()) return;
  const auto libre = motor_.primeroLibre();
  if (!haIdoBien(libre)) return;
  if (!haIdoBien(motor_.anadir(*libre, {}))) return;
  antes_ = codigo(ui_.Grid->filaActual());
  nuevo_ = *libre;
  refrescar(nuevo_);
  pedirNombre();
}

void BrowOper::pedirNombre() {
  ui_.Grid->vista()->setCurrentIndex(
      ui_.Grid->modelo()->index(ui_.Grid->filaActual(), ui_.Grid->modelo()->columna(u"NOMOPE")));
  ui_.Grid->editarCelda();
}

// The name of a new operator is edited after its code.
void BrowOper::celdaDejada() {
  if (nuevo_ == 0 || ui_.Grid->editando()) return;
  std::exchange(faltaNombre_, false) ? pedirNombre() : descartarNuevo();
}

// Deletes a new operator that has no name.
void BrowOper::descartarNuevo() {
  const int nuevo = std::exchange(nuevo_, 0);
  const int fila = nuevo > 0 ? filaDe(nuevo) : -1;
  if (fila < 0 || !ui_.Grid->texto(fila, u"NOMOPE").isEmpty()) return;
  const std::array<int, 1> codigos{nuevo};
  const auto hecho = motor_.borrar(codigos);
  refrescar(antes_);
  if (haIdoBien(hecho)) decirDuda(t(kTxOperadorSinNombre));
}

bool BrowOper::QueryUnload() {
  descartarNuevo();
  return false;
}

void BrowOper::borrar() {
  std::vector<int> codigos;
  for (const int fila : ui_.Grid->filasParaActuar()) codigos.push_back(codigo(fila));
  if (codigos.empty()) return;
  if (!ventanas::MyMsgBox::Decide(this, contexto().textos,
                                  t(kTxBorrarOperadores, static_cast<int>(codigos.size())),
                                  ventanas::kAceptoCancelo | ventanas::kExclamacion))
    return;
  auto hecho = motor_.borrar(codigos, progreso());
  ui_.termo->hide();
  ui_.Grid->limpiarSeleccion();
  refrescar(0);
  if (!haIdoBien(hecho)) return;
  const QString que = t(kTxOperadoresBorrados, static_cast<int>(codigos.size()));
  deshacer_->apuntar(que, [this, idos = std::move(*hecho)] { return reponer(idos); });
  decirBien(t(kTxSePuedeDeshacer).arg(que));
}

Resultado<ventanas::Deshacer::Vuelto> BrowOper::reponer(
    const std::vector<Operadores::Borrado>& idos) {
  const auto fuera = motor_.reponer(idos);
  if (!fuera) return std::unexpected(informe(*this, fuera.error()));
  refrescar(idos.empty() ? 0 : idos.front().codigo);
  const QString bien = t(kTxOperadoresRepuestos, static_cast<int>(idos.size()));
  if (*fuera == 0) return ventanas::Deshacer::Vuelto{bien};
  return ventanas::Deshacer::Vuelto{bien + u"  "_s + t(kTxHuecosOcupados, *fuera), true};
}

void BrowOper::verVentas() {
  const int fila = ui_.Grid->filaActual();
  if (fila < 0) return;
  abrir(totals::PuertaVerFils{.clase = TipoTotal::Operadores, .codigo = codigo(fila)});
}

}  // namespace tarvo::articles
