#include "articles/importar/MainTvc.h"

#include "articles/importar/LineaPLU.h"
#include "articles/importar/TextosImportar.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using articles::Articulo;

namespace {

const QString kVentanaTvc = u"MainTvc"_s;

void aplicar(const RegistroTvc& r, const SitioTvc& sitio, const QString& prefijo, Articulo& a) {
  a.clave = sitio.clave;
  a.nombre = r.nombre;
  a.precios[0][static_cast<size_t>(sitio.tarifa)] = r.precio;
  a.cada = r.porPeso ? articles::kPorKilo : articles::kPorUnidad;
  a.coste = r.coste;
  a.depto = r.depto;
  a.pfxBar = prefijo;
}

// The length of the first non-empty line.
qsizetype largoPrimera(const QByteArray& bytes) {
  Lineas l(bytes);
  while (l.siguiente())
    if (!l.linea().trimmed().isEmpty()) return l.linea().size();
  return 0;
}

}  // namespace

MainTvc::MainTvc(articles::Catalogo& catalogo, QByteArray bytes)
    : db_(catalogo.base()),
      catalogo_(catalogo),
      lotes_(catalogo),
      hechas_(catalogo),
      lineas_(std::move(bytes)) {}

Resultado<std::unique_ptr<MainTvc>> MainTvc::abrir(articles::Catalogo& catalogo,
                                                   const QString& ruta) {
  TARVO_TOMAR(auto bytes, leerFichero(ruta, catalogo.textos()));
  if (bytes.trimmed().isEmpty())
    return fallo(Fallo::Formato, catalogo.textos()(kTxFicheroVacio, {NombreFichero(ruta)}));
  if (largoPrimera(bytes) == kLineaLarga)
    return fallo(Fallo::Formato,
                 catalogo.textos()(kTxOtroFormato, {NombreFichero(ruta), kLineaLarga}));
  return std::unique_ptr<MainTvc>(new MainTvc(catalogo, std::move(bytes)));
}

Resultado<bool> MainTvc::paso(const DestinoTvc& destino) {
  const Cuenta antes = cuenta_;
  auto hecho = lineas(destino);
  if (!hecho) cuenta_ = antes;
  return hecho;
}

Resultado<bool> MainTvc::lineas(const DestinoTvc& destino) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  if (lote_ == 0) {
    TARVO_TOMAR(const auto lote, lotes_.empezar(kVentanaTvc));
    lote_ = lote;
    TARVO_INTENTAR(hechas_.empezar(lote_));
  }
  bool hayMas = true;
  for (int i = 0; hayMas && i < kLineasPorPaso; ++i) {
    const auto r = linea(destino);
    if (!r) return r;
    hayMas = *r;
  }
  TARVO_INTENTAR(t.confirmar());
  return hayMas;
}

Resultado<bool> MainTvc::linea(const DestinoTvc& destino) {
  if (!lineas_.siguiente()) return false;
  if (lineas_.linea().trimmed().isEmpty()) return true;
  ++cuenta_.lineas;
  actual_ = lineas_.linea().mid(6, 25);
  const RegistroTvc r = leerLineaTvc(lineas_.linea());
  if (const QString motivo = falta(r, destino); !motivo.isEmpty()) {
    cuenta_.malas.push_back(lineas_.mala(motivo));
    return true;
  }
  const auto sitio = sitioDe(r, destino);
  if (!sitio) return ++cuenta_.sinTarifa, true;
  TARVO_INTENTAR(convertir(r, *sitio, prefijoDe(r.depto, destino)));
  return true;
}

QString MainTvc::falta(const RegistroTvc& r, const DestinoTvc& destino) const {
  const Textos& t = catalogo_.textos();
  const QStringView linea = lineas_.linea();
  const qsizetype largo = linea.size() > kLineaTvc ? linea.trimmed().size() : linea.size();
  if (largo < kLineaTvcMenor || largo > kLineaTvc) return t(kTxLargoTvc, {linea.size(), kLineaTvc});
  const auto sitio = sitioDe(r, destino);
  if (!sitio) return {};
  const bool todas = destino.unaSeccion && !destino.seccionPorTarifa;
  if (sitio->clave.seccion < 1) return t(kTxNoEsSeccion, {1, 2, linea.left(2).toString()});
  if (sitio->clave.codigo < 1)
    return t(kTxNoEsCodigo, {todas ? 1 : 3, 6, linea.mid(todas ? 0 : 2, todas ? 6 : 4).toString()});
  if (sitio->clave.deSistema()) return t(kTxDelSistema, {Ceros(sitio->clave.codigo, 7)});
  return {};
}

Resultado<> MainTvc::convertir(const RegistroTvc& r, const SitioTvc& sitio,
                               const QString& prefijo) {
  TARVO_INTENTAR(hechas_.asegurar(lote_, sitio.clave.seccion));
  TARVO_TOMAR(const auto hay, catalogo_.leer(sitio.clave));
  TARVO_INTENTAR(lotes_.guardar(lote_, sitio.clave));
  Articulo a = hay.value_or(Articulo{});
  aplicar(r, sitio, prefijo, a);
  ++(hay ? cuenta_.cambiados : cuenta_.nuevos);
  if (hay) return catalogo_.modificar(sitio.clave, a, kVentanaTvc);
  TARVO_INTENTAR(catalogo_.crear(a, kVentanaTvc));
  return ponerInicial(sitio.clave, r.inicial);
}

// Into the warehouse with the lowest code.
Resultado<> MainTvc::ponerInicial(articles::ClaveArticulo clave, qint64 inicial) {
  if (inicial == 0) return {};
  TARVO_INTENTAR(
      db_.ejecutar(u"INSERT INTO MovsAlm (CODALM, SECCION, CODIGO, Inicial) SELECT min(CODALM), ?, "
                   u"?, ? FROM ALMACEN HAVING count(*)>0",
                   clave.seccion, clave.codigo, inicial));
  return {};
}

Resultado<> MainTvc::acabar() {
  if (lote_ == 0) return {};
  return cuenta_.nuevos + cuenta_.cambiados > 0 ? lotes_.acabar(lote_) : lotes_.olvidar(lote_);
}

}  // namespace tarvo::importar
