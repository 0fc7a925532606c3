// Carrying out and resuming a change of many articles.
#include <algorithm>

#include "articles/precios/CambioLote.h"
#include "articles/precios/LineaLote.h"
#include "articles/precios/TextosPrecios.h"

namespace tarvo::precios {

using articles::Articulo;
using articles::ClaveArticulo;

namespace {

constexpr size_t kApuntadosPorPaso = 10'000;
// The kinds of order, as a batch keeps them.
constexpr QChar kPrecios = u'P', kDepartamento = u'D', kFormato = u'F';

QString uno(const std::optional<int>& n) {
  return n ? QString::number(*n) : QString();
}

}  // namespace

QString SubePrecios::escribir() const {
  return QStringList{kPrecios,
                     QString::number(centesimas_),
                     QString::number(paso_),
                     QString::number(static_cast<int>(redondeo_)),
                     uno(nivel_),
                     uno(tarifa_)}
      .join(u' ');
}

QString escribirOrden(const OrdenLote& orden) {
  if (const auto* d = std::get_if<PoneDepartamento>(&orden))
    return QStringLiteral("%1 %2").arg(kDepartamento).arg(d->departamento);
  if (const auto* f = std::get_if<PoneFormato>(&orden))
    return QStringLiteral("%1 %2").arg(kFormato).arg(f->formato);
  return std::get<SubePrecios>(orden).escribir();
}

std::optional<OrdenLote> leerOrden(QStringView texto) {
  const auto partes = texto.split(u' ');
  std::array<std::optional<int>, 6> n;
  for (qsizetype i = 1; i < partes.size() && i < std::ssize(n); ++i) {
    bool ok = false;
    const int x = partes[i].toInt(&ok);
    if (ok) n[static_cast<size_t>(i)] = x;
  }
  if (partes[0] == kDepartamento && n[1]) return PoneDepartamento{*n[1]};
  if (partes[0] == kFormato && n[1]) return PoneFormato{*n[1]};
  const int redondeo = n[3].value_or(-1);
  if (partes[0] != kPrecios || !n[1] || !n[2] || redondeo < 0 ||
      redondeo > static_cast<int>(Redondeo::HaciaAbajo))
    return std::nullopt;
  const auto sube = SubePrecios::de(*n[1], *n[2], static_cast<Redondeo>(redondeo), n[4], n[5]);
  return sube ? std::optional<OrdenLote>(*sube) : std::nullopt;
}

CambioLote::Marcha::Marcha(CambioLote& motor, std::vector<ClaveArticulo> claves, OrdenLote orden,
                           const QString& ventana)
    : motor_(motor),
      claves_(std::move(claves)),
      orden_(std::move(orden)),
      ventana_(ventana),
      tanda_(motor.catalogo_, motor.lotes_, ventana, articles::Tanda::Oyen::Todos) {
  std::ranges::sort(claves_);
}

Resultado<std::unique_ptr<CambioLote::Marcha>> CambioLote::seguir(qint64 lote,
                                                                  const QString& ventana) {
  TARVO_TOMAR(auto queda, lotes_.porHacer(lote));
  const auto orden = queda ? leerOrden(queda->orden) : std::nullopt;
  if (!orden) return fallo(Fallo::NoExiste, textos_(kTxLoteSinSeguir));
  std::unique_ptr<Marcha> m(new Marcha(*this, std::move(queda->claves), *orden, ventana));
  m->lote_ = m->hecho_.lote = lote;
  m->apuntados_ = m->claves_.size();
  return m;
}

Resultado<bool> CambioLote::Marcha::paso() {
  if (!claves_.empty()) TARVO_INTENTAR(motor_.comprobar(claves_.front().seccion, orden_));
  if (apuntados_ < claves_.size()) return apuntar();
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(motor_.db_));
  Hecho hecho = hecho_;
  const size_t hasta = std::min(vistos_ + articles::Tanda::kArticulos, claves_.size());
  if (hasta > vistos_) {
    TARVO_INTENTAR(cambiar(std::span(claves_).subspan(vistos_, hasta - vistos_), hecho));
    TARVO_INTENTAR(motor_.lotes_.tachar(lote_, claves_[hasta - 1]));
  }
  TARVO_INTENTAR(t.confirmar());
  hecho_ = hecho;
  vistos_ = hasta;
  return vistos_ < claves_.size();
}

// Nothing is changed until all of it is noted.
Resultado<bool> CambioLote::Marcha::apuntar() {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(motor_.db_));
  qint64 lote = lote_;
  if (lote == 0) {
    TARVO_TOMAR(lote, motor_.lotes_.empezar(ventana_));
  }
  const size_t cuantos = std::min(kApuntadosPorPaso, claves_.size() - apuntados_);
  TARVO_INTENTAR(motor_.lotes_.apuntar(lote, escribirOrden(orden_),
                                       std::span(claves_).subspan(apuntados_, cuantos)));
  TARVO_INTENTAR(t.confirmar());
  lote_ = lote;
  apuntados_ += cuantos;
  return true;
}

Resultado<> CambioLote::Marcha::cambiar(std::span<const ClaveArticulo> claves, Hecho& hecho) {
  TARVO_TOMAR(auto articulos, motor_.catalogo_.leerVarios(claves));
  hecho.fuera += static_cast<int>(claves.size() - articulos.size());
  std::erase_if(articulos, [&](Articulo& a) {
    const Desenlace d = cambiarConOrden(a, orden_).desenlace;
    if (d != Desenlace::Cambia && d != Desenlace::Igual) ++hecho.fuera;
    return d != Desenlace::Cambia;
  });
  if (articulos.empty()) return {};
  hecho.lote = lote_;
  hecho.cambiados += static_cast<int>(articulos.size());
  return tanda_.escribir(lote_, articulos);
}

Resultado<> CambioLote::Marcha::acabar() {
  if (lote_ == 0) return {};
  return hecho_.lote > 0 ? motor_.lotes_.acabar(lote_) : motor_.lotes_.olvidar(lote_);
}

Resultado<std::optional<CambioLote::Ejemplo>> CambioLote::ejemplo(qint64 lote) {
  const auto leer = [](const dao::Recordset& fila) {
    return articles::ColumnasArticulo(fila).leer(fila);
  };
  TARVO_TOMAR(
      const auto antes,
      dao::reunir(db_.consultar(u"SELECT * FROM LoteAntes WHERE LOTE=? AND HABIA=1 ORDER BY "
                                u"SECCION, CODPLU LIMIT 1",
                                lote),
                  leer));
  if (antes.empty()) return std::nullopt;
  const Articulo& a = antes.front();
  TARVO_TOMAR(const auto despues,
              dao::reunir(db_.consultar(u"SELECT * FROM LoteDespues WHERE LOTE=? AND SECCION=? AND "
                                        u"CODPLU=? AND HABIA=1",
                                        lote, a.clave.seccion, a.clave.codigo),
                          leer));
  if (despues.empty()) return std::nullopt;
  const Articulo& d = despues.front();
  for (size_t n = 0; n < a.precios.size(); ++n)
    for (size_t t = 0; t < a.precios[n].size(); ++t)
      if (a.precios[n][t] != d.precios[n][t])
        return Ejemplo{Ejemplo::Que::Precio, d.nombre, a.precios[n][t], d.precios[n][t]};
  if (a.depto != d.depto) return Ejemplo{Ejemplo::Que::Departamento, d.nombre, a.depto, d.depto};
  if (a.formato != d.formato) return Ejemplo{Ejemplo::Que::Formato, d.nombre, a.formato, d.formato};
  return std::nullopt;
}

}  // namespace tarvo::precios
