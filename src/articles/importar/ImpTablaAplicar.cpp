// Importing the rows that passed the dry run.
#include <algorithm>

#include "articles/importar/ImpTabla.h"
#include "articles/importar/TextosImportar.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using articles::Articulo;

namespace {

const QString kVentanaTabla = u"ImpTabla"_s;

}  // namespace

Resultado<bool> ImpTabla::aplicar() {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  const auto antes = std::pair(lote_, hecho_);
  const int hasta = std::min(aplicadas_ + kEscritasPorPaso, ensayadas());
  auto hecho = [&]() -> Resultado<> {
    if (aplicadas_ == 0) TARVO_INTENTAR(aplicarJuntas());
    for (int i = aplicadas_; i < hasta; ++i)
      if (!juntas_.contains(i)) TARVO_INTENTAR(aplicarUna(i));
    return t.confirmar();
  }();
  if (!hecho) {
    std::tie(lote_, hecho_) = antes;
    return std::unexpected(hecho.error());
  }
  aplicadas_ = hasta;
  return aplicadas_ < ensayadas();
}

void ImpTabla::rechazar(int cual, const QString& motivo) {
  hecho_.malas.push_back({propuestas_[static_cast<size_t>(cual)].linea, motivo,
                          tabla_.celda(plan_.primeraFila + cual, 0).left(40)});
}

// A reason that only turns up now is reported for the line as well: another article took the bar
// code meanwhile.
Resultado<> ImpTabla::aplicarUna(int cual) {
  const Propuesta& p = propuestas_[static_cast<size_t>(cual)];
  if (p.que == Que::Rechazada) return rechazar(cual, p.motivo), Resultado<>{};
  TARVO_TOMAR(const auto antes, catalogo_.leer(p.clave));
  const Leido ahora = leer(plan_.primeraFila + cual, p.clave, antes);
  if (!ahora) return rechazar(cual, ahora.error()), Resultado<>{};
  if (antes && *antes == *ahora) return {};
  const auto escrito = escribir(antes, *ahora);
  if (escrito) {
    ++(antes ? hecho_.cambiados : hecho_.nuevos);
    hecho_.dudosos += preciosRaros(antes, *ahora).isEmpty() ? 0 : 1;
    hecho_.redondeados += lector_.redondeados(plan_.primeraFila + cual);
    return {};
  }
  if (escrito.error().clase == Fallo::Duplicado)
    return rechazar(cual, escrito.error().texto), Resultado<>{};
  return fallo(escrito.error().clase,
               catalogo_.textos()(kTxNadaHecho, {p.linea, escrito.error().texto}));
}

// Rows that exchange bar codes among themselves: all release theirs first, in one transaction.
Resultado<> ImpTabla::aplicarJuntas() {
  TARVO_TOMAR(const auto como, juntasComoDebian());
  for (const int cual : juntas_)
    if (!como) rechazar(cual, catalogo_.textos()(kTxCodigosMovidos));
  if (!como) return {};
  for (const int cual : juntas_) {
    const auto clave = propuestas_[static_cast<size_t>(cual)].clave;
    TARVO_TOMAR(const auto antes, catalogo_.leer(clave));
    TARVO_INTENTAR(guardar(antes, clave));
    TARVO_INTENTAR(
        db_.ejecutar(u"UPDATE PLUSES SET CodBarExt=NULL WHERE SECCION=? AND CODPLU=? AND CODPLU>2",
                     clave.seccion, clave.codigo));
  }
  for (const int cual : juntas_) TARVO_INTENTAR(aplicarUna(cual));
  return {};
}

// Whether none of them has changed since the dry run, so that each gets its code.
Resultado<bool> ImpTabla::juntasComoDebian() {
  for (const int cual : juntas_) {
    const auto clave = propuestas_[static_cast<size_t>(cual)].clave;
    TARVO_TOMAR(const auto antes, catalogo_.leer(clave));
    const Leido ahora = leer(plan_.primeraFila + cual, clave, antes);
    if (!ahora || (antes ? antes->codBarExt : std::nullopt) != reparto_.tenia(cual)) return false;
    TARVO_TOMAR(const auto dueno,
                db_.uno(u"SELECT CODPLU FROM PLUSES WHERE SECCION=? AND CodBarExt=?", clave.seccion,
                        *ahora->codBarExt));
    const auto suya = [&](int otra) {
      return propuestas_[static_cast<size_t>(otra)].clave ==
             articles::ClaveArticulo{clave.seccion, dueno.entero()};
    };
    if (!dueno.nulo() && std::ranges::none_of(juntas_, suya)) return false;
  }
  return true;
}

// Keeps the article's state in the batch, which begins with the first one.
Resultado<> ImpTabla::guardar(const std::optional<Articulo>& antes, articles::ClaveArticulo clave) {
  if (lote_ == 0) {
    TARVO_TOMAR(const auto lote, lotes_.empezar(kVentanaTabla));
    lote_ = lote;
  }
  return antes ? lotes_.guardar(lote_, clave) : lotes_.guardarNuevo(lote_, clave);
}

Resultado<> ImpTabla::escribir(const std::optional<Articulo>& antes, const Articulo& ahora) {
  TARVO_INTENTAR(guardar(antes, ahora.clave));
  TARVO_INTENTAR(antes ? catalogo_.modificar(ahora.clave, ahora, kVentanaTabla)
                       : catalogo_.crear(ahora, kVentanaTabla));
  return lotes_.anotar(lote_, ahora.clave);
}

Resultado<> ImpTabla::acabar() {
  if (lote_ == 0) return {};
  return hecho_.nuevos + hecho_.cambiados > 0 ? lotes_.acabar(lote_) : lotes_.olvidar(lote_);
}

}  // namespace tarvo::importar
