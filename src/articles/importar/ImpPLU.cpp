#include "articles/importar/ImpPLU.h"

#include "articles/Limites.h"
#include "articles/importar/TextosImportar.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using articles::Articulo;
using articles::ClaveArticulo;

namespace {

const QString kVentanaPLU = u"ImpPLU"_s;

// The fields of the record; the rest of the article stays.
void aplicar(const RegistroPLU& r, Articulo& a) {
  a.clave = r.clave;
  a.nombre = r.nombre;
  a.cada = r.cada;
  a.coste = r.coste;
  a.depto = r.depto;
  a.formato = r.formato;
  a.precios = r.precios;
}

}  // namespace

ImpPLU::ImpPLU(articles::Catalogo& catalogo, QByteArray bytes)
    : db_(catalogo.base()),
      catalogo_(catalogo),
      lotes_(catalogo),
      tanda_(catalogo, lotes_, kVentanaPLU, articles::Tanda::Oyen::Nadie),
      lineas_(std::move(bytes)) {}
ImpPLU::~ImpPLU() = default;

Resultado<std::unique_ptr<ImpPLU>> ImpPLU::abrir(articles::Catalogo& catalogo,
                                                 const QString& ruta) {
  TARVO_TOMAR(auto bytes, leerFichero(ruta, catalogo.textos()));
  return std::unique_ptr<ImpPLU>(new ImpPLU(catalogo, std::move(bytes)));
}

qint64 ImpPLU::lote() const {
  return cuenta_.nuevos + cuenta_.sobreescritos > 0 ? lote_ : 0;
}

Resultado<> ImpPLU::leerSecciones() {
  secciones_.clear();
  return dao::recorrer(db_.consultar(u"SELECT NMSECC FROM SECCS"), [&](const dao::Recordset& fila) {
    secciones_.insert(static_cast<int>(fila.entero(0)));
  });
}

Resultado<bool> ImpPLU::paso(SiExiste siExiste) {
  const auto antes = std::pair(cuenta_, lote_);
  auto hecho = [&]() -> Resultado<bool> {
    TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
    TARVO_INTENTAR(leerSecciones());
    if (lote_ == 0) {
      TARVO_TOMAR(lote_, lotes_.empezar(kVentanaPLU));
    }
    bool hayMas = true;
    Registros registros;
    for (int i = 0; hayMas && i < kLineasPorPaso; ++i) {
      TARVO_TOMAR(hayMas, linea(siExiste, registros));
    }
    TARVO_INTENTAR(escribir(registros, siExiste));
    TARVO_INTENTAR(t.confirmar());
    return hayMas;
  }();
  if (!hecho) std::tie(cuenta_, lote_) = antes;
  return hecho;
}

// A second line with the same code finds the article of the first.
Resultado<bool> ImpPLU::linea(SiExiste siExiste, Registros& registros) {
  if (!lineas_.siguiente()) return false;
  if (lineas_.linea().isEmpty()) return true;
  const auto r = leerLineaPLU(lineas_.linea());
  if (!r && r.error().motivo == FaltaPLU::Longitud) {
    cuenta_.malas.push_back(lineas_.mala(motivo(r.error())));
    cuenta_.parado = true;
    return false;
  }
  ++cuenta_.lineas;
  const QString mal = r ? falta(*r) : motivo(r.error());
  if (!mal.isEmpty()) return cuenta_.malas.push_back(lineas_.mala(mal)), true;
  if (registros.contains(r->clave)) {
    TARVO_INTENTAR(escribir(registros, siExiste));
    registros.clear();
  }
  registros.emplace(r->clave, *r);
  return true;
}

QString ImpPLU::falta(const RegistroPLU& r) const {
  const Textos& t = catalogo_.textos();
  if (r.clave.deSistema()) return t(kTxDelSistema, {Ceros(r.clave.codigo, 7)});
  if (!secciones_.contains(r.clave.seccion)) return t(kTxSinSeccion, {Ceros(r.clave.seccion, 3)});
  if (const auto mal = articles::malDepartamento(r.depto, t)) return *mal;
  return articles::malFormato(r.formato, t).value_or(QString());
}

Resultado<> ImpPLU::escribir(const Registros& registros, SiExiste siExiste) {
  std::vector<ClaveArticulo> claves;
  for (const auto& [clave, r] : registros) claves.push_back(clave);
  TARVO_TOMAR(const auto hay, catalogo_.leerVarios(claves));
  std::vector<Articulo> nuevas;
  auto suyo = hay.begin();
  for (const auto& [clave, r] : registros) {
    const bool esta = suyo != hay.end() && suyo->clave == clave;
    Articulo a = esta ? *suyo++ : Articulo{};
    ++(!esta                               ? cuenta_.nuevos
       : siExiste == SiExiste::Conservarlo ? cuenta_.conservados
                                           : cuenta_.sobreescritos);
    if (esta && siExiste == SiExiste::Conservarlo) continue;
    aplicar(r, a);
    ultimo_ = a.nombre;
    nuevas.push_back(std::move(a));
  }
  return tanda_.escribir(lote_, nuevas);
}

Resultado<> ImpPLU::acabar() {
  if (lote_ == 0) return {};
  return lote() > 0 ? lotes_.acabar(lote_) : lotes_.olvidar(lote_);
}

QString ImpPLU::motivo(const FaltaPLU& f) const {
  const Textos& t = catalogo_.textos();
  const QString campo = lineas_.linea().mid(f.columna - 1, f.ancho);
  switch (f.motivo) {
    case FaltaPLU::Longitud:
      return t(kTxMalaLongitud, {lineas_.linea().size(), kLineaLarga, kLineaCorta});
    case FaltaPLU::Cifras:
      return t(kTxNoSonCifras, {f.columna, f.columna + f.ancho - 1, campo});
    default:
      return t(kTxMalaUnidad, {f.columna, campo});
  }
}

}  // namespace tarvo::importar
