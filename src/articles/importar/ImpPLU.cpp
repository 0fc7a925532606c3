#include "articles/importar/ImpPLU.h"

#include "articles/importar/TextosImportar.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using articles::columnaPrecio;
using articles::kNiveles;
using articles::kTarifas;

namespace {

const QString kVentanaPLU = u"ImpPLU"_s;

// The columns that a record says, in the order in which ligar() binds them; the key stands behind.
QStringList columnas() {
  QStringList c{u"NOMPLU"_s, u"CADA"_s, u"COSTE"_s, u"DEPTO"_s, u"FORMATO"_s};
  for (int nivel = 0; nivel < kNiveles; ++nivel)
    for (int tarifa = 0; tarifa < kTarifas; ++tarifa) c << columnaPrecio(nivel, tarifa);
  return c;
}

void ligar(dao::Sentencia& s, const RegistroPLU& r) {
  int i = 0;
  s.ligar(i++, dao::Valor(r.nombre));
  for (const qint64 n : {qint64{r.cada}, r.coste, qint64{r.depto}, qint64{r.formato}})
    s.ligar(i++, n);
  for (const auto& nivel : r.precios)
    for (const qint64 precio : nivel) s.ligar(i++, precio);
  s.ligar(i++, qint64{r.clave.seccion});
  s.ligar(i, r.clave.codigo);
}

// What a new article has besides its record: columns and values.
const QStringList kDefectos{u"MDF_PRE"_s,  u"minimo"_s,    u"BARRAS"_s,  u"PFX_BAR"_s,
                            u"DESCTO"_s,   u"HASTA_1"_s,   u"HASTA_2"_s, u"STK_MAX"_s,
                            u"STK_MIN"_s,  u"TEXTO_ETQ"_s, u"Tara"_s,    u"NUMDIAS_1"_s,
                            u"NUMDIAS_2"_s};
const QString kValoresDefecto = u"1, 0, 1, '0', 0, 0, 0, 0, 0, '', 1, 0, 0"_s;

// Whether an error of the store is a matter of this line alone.
bool esDeLaLinea(const Error& e) {
  return e.clase == Fallo::Restriccion || e.clase == Fallo::Duplicado;
}

}  // namespace

// What a run needs of the store, made ready with its first line.
struct ImpPLU::Escritura {
  qint64 lote = 0;
  std::unique_ptr<dao::Sentencia> insertar, cambiar, historia;
};

ImpPLU::ImpPLU(dao::Database& db, articles::Catalogo& catalogo, Reloj& reloj, QByteArray bytes)
    : db_(db),
      catalogo_(catalogo),
      reloj_(reloj),
      lotes_(db, catalogo, reloj),
      lineas_(std::move(bytes)) {}
ImpPLU::~ImpPLU() = default;

Resultado<std::unique_ptr<ImpPLU>> ImpPLU::abrir(dao::Database& db, articles::Catalogo& catalogo,
                                                 Reloj& reloj, const QString& ruta) {
  TARVO_TOMAR(auto bytes, leerFichero(ruta, catalogo.textos()));
  return std::unique_ptr<ImpPLU>(new ImpPLU(db, catalogo, reloj, std::move(bytes)));
}

qint64 ImpPLU::lote() const {
  return e_ && cuenta_.nuevos + cuenta_.sobreescritos > 0 ? e_->lote : 0;
}

Resultado<> ImpPLU::empezar() {
  auto e = std::make_unique<Escritura>();
  TARVO_TOMAR(const auto lote, lotes_.empezar(kVentanaPLU));
  e->lote = lote;
  const QStringList c = columnas();
  const QString marcas = QString(u"?, "_s).repeated(c.size() + 2).chopped(2);
  TARVO_TOMAR(auto insertar,
              db_.preparar(u"INSERT INTO PLUSES (%1, SECCION, CODPLU, %2) VALUES (%3, %4) "
                           u"ON CONFLICT (SECCION, CODPLU) DO NOTHING"_s.arg(
                               c.join(u", "), kDefectos.join(u", "), marcas, kValoresDefecto)));
  TARVO_TOMAR(
      auto cambiar,
      db_.preparar(u"UPDATE PLUSES SET %1=? WHERE SECCION=? AND CODPLU=?"_s.arg(c.join(u"=?, "))));
  TARVO_TOMAR(auto historia, db_.preparar(u"INSERT INTO HistoriaPrecios (SECCION, CODPLU, NIVEL, "
                                          u"TARIFA, AHORA, ANTES, CUANDO, QUIEN, "
                                          u"VENTANA) VALUES (?, ?, ?, ?, ?, 0, ?, ?, ?)"));
  int comun = 5;  // the same for all of the run
  for (const dao::Valor& v :
       {dao::Valor(reloj_.ahora()), dao::Valor(catalogo_.quien()), dao::Valor(kVentanaPLU)})
    historia->ligar(comun++, v);
  e->historia = std::move(historia);
  e->insertar = std::move(insertar);
  e->cambiar = std::move(cambiar);
  e_ = std::move(e);
  return {};
}

Resultado<bool> ImpPLU::paso(SiExiste siExiste) {
  const Cuenta antes = cuenta_;
  auto hecho = [&]() -> Resultado<bool> {
    TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
    if (!e_) TARVO_INTENTAR(empezar());
    bool hayMas = true;
    for (int i = 0; hayMas && i < kLineasPorPaso; ++i) {
      auto r = linea(siExiste);
      if (!r) return r;
      hayMas = *r;
    }
    TARVO_INTENTAR(t.confirmar());
    return hayMas;
  }();
  if (!hecho) cuenta_ = antes;
  return hecho;
}

Resultado<bool> ImpPLU::linea(SiExiste siExiste) {
  if (!lineas_.siguiente()) return false;
  if (lineas_.linea().isEmpty()) return true;
  const auto r = leerLineaPLU(lineas_.linea());
  if (!r && r.error().motivo == FaltaPLU::Longitud) {
    cuenta_.malas.push_back(lineas_.mala(motivo(r.error())));
    cuenta_.parado = true;
    return false;
  }
  ++cuenta_.lineas;
  if (!r) {
    cuenta_.malas.push_back(lineas_.mala(motivo(r.error())));
  } else if (r->clave.deSistema()) {
    cuenta_.malas.push_back(
        lineas_.mala(catalogo_.textos()(kTxDelSistema, {Ceros(r->clave.codigo, 7)})));
  } else if (const auto escrito = escribir(*r, siExiste); !escrito) {
    if (!esDeLaLinea(escrito.error())) return std::unexpected(escrito.error());
    cuenta_.malas.push_back(
        lineas_.mala(catalogo_.textos()(kTxSinSeccion, {Ceros(r->clave.seccion, 3)})));
  }
  return true;
}

Resultado<> ImpPLU::escribir(const RegistroPLU& r, SiExiste siExiste) {
  ligar(*e_->insertar, r);
  TARVO_TOMAR(const auto n, e_->insertar->ejecutar());
  if (n > 0) {
    TARVO_INTENTAR(lotes_.guardarNuevo(e_->lote, r.clave));
    TARVO_INTENTAR(anotarLlegada(r));
    ++cuenta_.nuevos;
  } else if (siExiste == SiExiste::Conservarlo) {
    ++cuenta_.conservados;
    return {};
  } else {
    TARVO_INTENTAR(sobreescribir(r));
    ++cuenta_.sobreescritos;
  }
  ultimo_ = r.nombre;
  return {};
}

// The first price that isn't 0: by it the history of a new article says who brought it, when and
// whence. A row for each of 24 prices would take longer to write than the article.
Resultado<> ImpPLU::anotarLlegada(const RegistroPLU& r) {
  for (size_t nivel = 0; nivel < kNiveles; ++nivel)
    for (size_t tarifa = 0; tarifa < kTarifas; ++tarifa) {
      const qint64 precio = r.precios[nivel][tarifa];
      if (precio == 0) continue;
      int i = 0;
      for (const qint64 n : {qint64{r.clave.seccion}, r.clave.codigo, static_cast<qint64>(nivel),
                             static_cast<qint64>(tarifa), precio})
        e_->historia->ligar(i++, n);
      TARVO_INTENTAR(e_->historia->ejecutar());
      return {};
    }
  return {};
}

Resultado<> ImpPLU::sobreescribir(const RegistroPLU& r) {
  TARVO_TOMAR(const auto antes, catalogo_.leer(r.clave));
  TARVO_INTENTAR(lotes_.guardar(e_->lote, r.clave));
  ligar(*e_->cambiar, r);
  TARVO_INTENTAR(e_->cambiar->ejecutar());
  if (!antes) return {};
  return catalogo_.anotarPrecios(r.clave, antes->precios, r.precios, kVentanaPLU);
}

Resultado<> ImpPLU::acabar() {
  if (!e_) return {};
  return lote() > 0 ? lotes_.acabar(e_->lote) : lotes_.olvidar(e_->lote);
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
