// The display of the dry run.
#include "articles/importar/ventanas/ImpTablaVentana.h"
#include "articles/importar/ventanas/TextosImportarVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using ventanas::Clase;
using ventanas::Estado;

namespace {

constexpr int kTodas = -1, kDudosas = -2;

Estado estadoDe(const dao::Valor& que) {
  switch (static_cast<Que>(que.entero())) {
    case Que::Nuevo:
    case Que::Cambia:
      return Estado::Bien;
    case Que::Rechazada:
      return Estado::Mal;
    default:
      return Estado::Ninguno;
  }
}

QString detalle(const Propuesta& p, const Textos& t) {
  if (p.que == Que::Rechazada) return p.motivo;
  QStringList cambios;
  for (const Cambio& c : p.cambios) {
    if (p.que == Que::Nuevo && c.campo == Campo::Nombre) continue;  // it has a column of its own
    const QString ahora = c.ahora.isEmpty() ? t(ventanas::kTxNada) : c.ahora;
    cambios << (p.que == Que::Nuevo
                    ? t(kTxValorNuevo, {titulo(c.campo, t), ahora})
                    : t(kTxValorCambia,
                        {titulo(c.campo, t), c.antes.isEmpty() ? t(ventanas::kTxNada) : c.antes,
                         ahora}));
  }
  return (p.avisos + cambios).join(u";  "_s);
}

}  // namespace

void ImpTablaVentana::montarPrevia() {
  const Textos& textos = contexto().textos;
  ui_.previa->preparar(
      contexto(), nombre(),
      {{.titulo = kTxLinea, .campo = u"linea"_s, .clase = Clase::Entero, .ancho = 72},
       {.titulo = kTxQue,
        .campo = u"que"_s,
        .ancho = 144,
        .ver = [&textos](
                   const dao::Valor& v) { return textos(kTxNuevo + static_cast<int>(v.entero())); },
        .estado = estadoDe},
       {.titulo = ventanas::kTxSeccion, .campo = u"seccion"_s, .clase = Clase::Codigo, .cifras = 3},
       {.titulo = ventanas::kTxCodigo, .campo = u"codigo"_s, .clase = Clase::Codigo, .cifras = 7},
       {.titulo = ventanas::kTxNombre, .campo = u"nombre"_s, .ancho = 200},
       {.titulo = kTxDetalle, .campo = u"detalle"_s, .ancho = 560}});
  ui_.previa->vivas();
  ui_.previa->ponerVacia(t(kTxNadaDeEso));
  ui_.previa->filtros()->addWidget(ui_.filtro);
  connect(ui_.quever, &QComboBox::activated, this, [this] { mostrarPropuestas(); });
}

void ImpTablaVentana::mostrarPropuestas() {
  ventanas::Opciones clases{{kTodas, t(kTxTodas, motor_->ensayadas())}};
  for (int i = 0; i < 4; ++i)
    clases.push_back({i, t(kTxNuevas + i, motor_->cuantas(static_cast<Que>(i)))});
  if (motor_->dudosas() > 0) clases.push_back({kDudosas, t(kTxPorComprobar, motor_->dudosas())});
  ventanas::llenar(*ui_.quever, clases);
  const qint64 quever = ventanas::elegido(*ui_.quever, kTodas);
  std::vector<ventanas::FilaViva> filas;
  qint64 clave = 0;
  for (const Propuesta& p : motor_->propuestas()) {
    ++clave;
    const bool suya = quever == kDudosas ? !p.avisos.isEmpty() : p.que == static_cast<Que>(quever);
    if (quever != kTodas && !suya) continue;
    const bool sabida = p.clave.codigo > 0;
    filas.push_back(
        {clave,
         {p.linea, static_cast<int>(p.que), sabida ? dao::Valor(p.clave.seccion) : dao::Valor(),
          sabida ? dao::Valor(p.clave.codigo) : dao::Valor(), p.nombre,
          detalle(p, contexto().textos)}});
  }
  ui_.previa->vivas().poner(std::move(filas));
}

}  // namespace tarvo::importar
