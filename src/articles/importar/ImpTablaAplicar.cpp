// What the dry run let through, done.
#include "articles/importar/ImpTabla.h"
#include "articles/importar/TextosImportar.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using articles::Articulo;

namespace {

const QString kVentanaTabla = u"ImpTabla"_s;

}  // namespace

Resultado<bool> ImpTabla::aplicar() {
  auto t = dao::Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  const auto antes = std::pair(lote_, hecho_);
  const int hasta = std::min(aplicadas_ + kEscritasPorPaso, ensayadas());
  auto hecho = [&]() -> Resultado<> {
    for (int i = aplicadas_; i < hasta; ++i)
      TARVO_INTENTAR(aplicarFila(plan_.primeraFila + i, propuestas_[static_cast<size_t>(i)]));
    return t->confirmar();
  }();
  if (!hecho) {
    std::tie(lote_, hecho_) = antes;
    return std::unexpected(hecho.error());
  }
  aplicadas_ = hasta;
  return aplicadas_ < ensayadas();
}

// A reason that only turns up now is one of the line too: somebody took the bar code meanwhile.
Resultado<> ImpTabla::aplicarFila(int fila, const Propuesta& p) {
  const auto rechazar = [&](const QString& motivo) {
    hecho_.malas.push_back({p.linea, motivo, tabla_.celda(fila, 0).left(40)});
    return Resultado<>{};
  };
  if (p.que == Que::Rechazada) return rechazar(p.motivo);
  const auto antes = catalogo_.leer(p.clave);
  if (!antes) return std::unexpected(antes.error());
  const Leido ahora = leer(fila, p.clave, *antes);
  if (!ahora) return rechazar(ahora.error());
  if (*antes && **antes == *ahora) return {};
  const auto escrito = escribir(*antes, *ahora);
  if (escrito) return ++(*antes ? hecho_.cambiados : hecho_.nuevos), Resultado<>{};
  if (escrito.error().clase == Fallo::Duplicado) return rechazar(escrito.error().texto);
  return fallo(escrito.error().clase,
               catalogo_.textos()(kTxNadaHecho, {p.linea, escrito.error().texto}));
}

// The batch begins with the first article that is written.
Resultado<> ImpTabla::escribir(const std::optional<Articulo>& antes, const Articulo& ahora) {
  if (lote_ == 0) {
    const auto lote = lotes_.empezar(kVentanaTabla);
    if (!lote) return std::unexpected(lote.error());
    lote_ = *lote;
  }
  TARVO_INTENTAR(antes ? lotes_.guardar(lote_, ahora.clave)
                       : lotes_.guardarNuevo(lote_, ahora.clave));
  TARVO_INTENTAR(antes ? catalogo_.modificar(ahora.clave, ahora, kVentanaTabla)
                       : catalogo_.crear(ahora, kVentanaTabla));
  return lotes_.anotar(lote_, ahora.clave);
}

Resultado<> ImpTabla::acabar() {
  return lote_ > 0 ? lotes_.acabar(lote_) : Resultado<>{};
}

}  // namespace tarvo::importar
