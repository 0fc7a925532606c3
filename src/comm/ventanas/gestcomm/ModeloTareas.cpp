#include "comm/ventanas/gestcomm/ModeloTareas.h"

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/TextosVentanas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using ventanas::Clase;
using ventanas::Estado;

namespace {

// The number and the state of a task share a cell: an icon before the number.
constexpr qint64 kEstados = 16;
constexpr int kReteniendo = 32;  // added to the state: to be held after the current frame

}  // namespace

QString imagenDeEstado(int estado) {
  static const QString kImagenes[] = {u"esperando"_s,     u"enviar"_s, u"duda"_s,
                                      u"transfiriendo"_s, u"bien"_s,   u"mal"_s,
                                      u"mal"_s,           u"pausa"_s,  u"parar"_s};
  return estado >= 0 && estado < std::ssize(kImagenes) ? kImagenes[estado] : QString();
}

Estado tonoDeEstado(int estado) {
  switch (estado) {
    case motor::kTerminado:
      return Estado::Bien;
    case motor::kAperturaFallida:
    case motor::kRetenido:
    case motor::kDetenido:
      return Estado::Duda;
    case motor::kRechazado:
    case motor::kInterrumpido:
      return Estado::Mal;
    default:
      return Estado::Ninguno;
  }
}

QString textoProblema(const motor::VistaTarea& t, const Textos& textos) {
  if (!t.textoError.isEmpty()) return t.textoError;
  if (t.Error == 0) return t.trajo;
  const auto e = motor::textosError(t.Error, textos);
  return (e.mensaje.isEmpty() ? e.cabecera : e.mensaje).trimmed();
}

std::vector<ventanas::Columna> columnasTareas(const Textos& textos) {
  const QString reteniendo = textos(kTxReteniendo);
  return {
      {.titulo = kTxColTarea,
       .campo = u"Tarea"_s,
       .clase = Clase::Codigo,
       .ancho = 88,
       .ver = [](const dao::Valor& v) { return Ceros(v.entero() / kEstados, 3); },
       .imagen =
           [](const dao::Valor& v) {
             return imagenDeEstado(static_cast<int>(v.entero() % kEstados));
           }},
      {.titulo = kTxColDestino, .campo = u"Destino"_s, .clase = Clase::Codigo, .ancho = 208},
      {.titulo = kTxColBza, .campo = u"bza"_s, .clase = Clase::Entero, .ancho = 56},
      {.titulo = kTxColTraza, .campo = u"Traza"_s, .clase = Clase::Codigo, .ancho = 92, .rango = 1},
      {.titulo = kTxColCont, .campo = u"cont"_s, .clase = Clase::Entero, .ancho = 68, .rango = 2},
      {.titulo = ventanas::kTxEstado,
       .campo = u"Estado"_s,
       .ancho = 220,
       .ver =
           [reteniendo, &textos](const dao::Valor& v) {
             const int e = static_cast<int>(v.entero());
             return e >= kReteniendo ? reteniendo : motor::TextoEstado(e, textos);
           },
       .estado =
           [](const dao::Valor& v) {
             return tonoDeEstado(static_cast<int>(v.entero() % kReteniendo));
           }},
      {.titulo = ventanas::kTxResultado, .campo = u"Problema"_s, .ancho = 260}};
}

ventanas::FilaViva filaTarea(const motor::VistaTarea& t, const motor::ClaseTarea* clase,
                             const Textos& textos) {
  const QString nombre = clase ? textos(clase->nombre) : QString();
  const auto oNada = [](int n) { return n < 0 ? dao::Valor() : dao::Valor(n); };
  return {
      t.datos.Id,
      {dao::Valor(t.datos.Id * kEstados + t.Estado),
       dao::Valor(textos(kTxDestino).arg(nombre, Ceros(t.datos.Grupo, 4))), oNada(t.Addr),
       dao::Valor(t.paso), oNada(t.Traza),
       dao::Valor(t.Estado + (t.Retenida && t.Estado == motor::kTransfiriendo ? kReteniendo : 0)),
       dao::Valor(textoProblema(t, textos))}};
}

}  // namespace tarvo::comm
