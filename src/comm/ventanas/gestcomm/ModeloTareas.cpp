#include "comm/ventanas/gestcomm/ModeloTareas.h"

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/TextosVentanas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using ventanas::Clase;
using ventanas::Estado;

namespace {

// The number and the state of a task share a cell: an icon before the number.
constexpr int kEstados = 64;
// Added to the state: to be held after the current frame; ended, but something was left out.
constexpr int kReteniendo = 32, kIncompleta = 16;

int estadoVisto(const motor::VistaTarea& t) {
  if (t.Estado == motor::kTransfiriendo && t.Retenida) return t.Estado + kReteniendo;
  if (t.Estado == motor::kTerminado && !t.textoError.isEmpty()) return t.Estado + kIncompleta;
  return t.Estado;
}

}  // namespace

QString imagenDeEstado(int estado) {
  static const QString kImagenes[] = {u"esperando"_s,     u"enviar"_s, u"duda"_s,
                                      u"transfiriendo"_s, u"bien"_s,   u"mal"_s,
                                      u"mal"_s,           u"pausa"_s,  u"parar"_s};
  if (estado == motor::kTerminado + kIncompleta) return u"duda"_s;
  estado %= kIncompleta;
  return estado >= 0 && estado < std::ssize(kImagenes) ? kImagenes[estado] : QString();
}

Estado tonoDeEstado(int estado) {
  if (estado == motor::kTerminado + kIncompleta) return Estado::Duda;
  switch (estado % kIncompleta) {
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
  if (t.Error == 0) {
    const qsizetype fin = t.trajo.indexOf(u'\n');
    return fin < 0 ? t.trajo : t.trajo.first(fin) + u" …"_s;
  }
  const auto e = motor::textosError(t.Error, textos);
  return (e.mensaje.isEmpty() ? e.cabecera : e.mensaje).trimmed();
}

std::vector<ventanas::Columna> columnasTareas(const Textos& textos) {
  const QString reteniendo = textos(kTxReteniendo), incompleta = textos(kTxTerminadoIncompleto);
  return {
      {.titulo = kTxColTarea,
       .campo = u"Tarea"_s,
       .clase = Clase::Codigo,
       .ancho = 76,
       .ver = [](const dao::Valor& v) { return Ceros(v.entero() / kEstados, 3); },
       .imagen =
           [](const dao::Valor& v) {
             return imagenDeEstado(static_cast<int>(v.entero() % kEstados));
           }},
      {.titulo = kTxColDestino, .campo = u"Destino"_s, .clase = Clase::Codigo, .ancho = 208},
      {.titulo = kTxColBza, .campo = u"bza"_s, .clase = Clase::Entero, .ancho = 56, .rango = 2},
      {.titulo = kTxColTraza, .campo = u"Traza"_s, .clase = Clase::Codigo, .ancho = 92, .rango = 3},
      {.titulo = kTxColCont, .campo = u"cont"_s, .clase = Clase::Entero, .ancho = 68, .rango = 4},
      {.titulo = ventanas::kTxEstado,
       .campo = u"Estado"_s,
       .ancho = 220,
       .ver =
           [reteniendo, incompleta, &textos](const dao::Valor& v) {
             const int e = static_cast<int>(v.entero());
             if (e >= kReteniendo) return reteniendo;
             return e >= kIncompleta ? incompleta : motor::TextoEstado(e, textos);
           },
       .estado = [](const dao::Valor& v) { return tonoDeEstado(static_cast<int>(v.entero())); },
       .rango = 1},
      {.titulo = ventanas::kTxResultado, .campo = u"Problema"_s, .ancho = 244, .minimo = 244}};
}

ventanas::FilaViva filaTarea(const motor::VistaTarea& t, const motor::ClaseTarea* clase,
                             const Textos& textos) {
  const QString nombre = clase ? textos(clase->nombre) : QString();
  const auto oNada = [](int n) { return n < 0 ? dao::Valor() : dao::Valor(n); };
  return {t.datos.Id,
          {dao::Valor(qint64{t.datos.Id} * kEstados + estadoVisto(t)),
           dao::Valor(textos(kTxDestino).arg(nombre, Ceros(t.datos.Grupo, 4))), oNada(t.Addr),
           dao::Valor(t.paso), oNada(t.Traza), dao::Valor(estadoVisto(t)),
           dao::Valor(textoProblema(t, textos))}};
}

}  // namespace tarvo::comm
