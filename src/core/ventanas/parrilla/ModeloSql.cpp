#include "core/ventanas/parrilla/ModeloSql.h"

#include <algorithm>
#include <span>

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;
using dao::conMarcas;

namespace {

constexpr int kPrimeras = 2048;  // rows shown at once
constexpr int kFilasPagina = 128;
constexpr size_t kPaginas = 48;  // in the cache
constexpr qint64 kTodas = std::numeric_limits<qint64>::max();

QString entreParentesis(const QString& filtro) {
  return filtro.isEmpty() ? QString() : u" WHERE ("_s + filtro + u')';
}

// The filter must not drive the query plan: a period has half a million rows, and the keys are few.
// `todas`: also rows that the filter no longer lets through.
QString conClaves(const dao::Origen& o, const QString& que, const QString& clave, int cuantas,
                  bool todas = false) {
  const QString filtro =
      o.filtro.isEmpty()
          ? QString()
          : conMarcas(todas ? u"iif({f}, 1, 1) AND " : u"iif({f}, 1, 0) AND ", {{u"f", o.filtro}});
  return conMarcas(u"SELECT {que} FROM {desde} WHERE {filtro}{clave} IN ({claves})",
                   {{u"que", que},
                    {u"desde", o.desde},
                    {u"filtro", filtro},
                    {u"clave", clave},
                    {u"claves", u"?,"_s.repeated(cuantas).chopped(1)}});
}

Resultado<std::vector<ModeloParrilla::Clave>> leerClaves(dao::Database& db, const dao::Origen& o,
                                                         const QString& orden, qint64 cuantas) {
  std::vector<dao::Valor> valores = o.parametros;
  valores.emplace_back(cuantas);
  return dao::reunir(
      db.OpenQuery(conMarcas(u"SELECT {clave} FROM {desde}{filtro}{orden} LIMIT ?",
                             {{u"clave", o.clave},
                              {u"desde", o.desde},
                              {u"filtro", entreParentesis(o.filtro)},
                              {u"orden", orden}}),
                   valores),
      [](const dao::Recordset& fila) -> ModeloParrilla::Clave { return fila.entero(0); });
}

}  // namespace

struct ModeloSql::Pagina {
  std::vector<std::vector<dao::Valor>> filas;  // empty if the row has been deleted meanwhile
};

ModeloSql::ModeloSql(std::vector<Columna> columnas, const Contexto& c, QObject* padre)
    : ModeloParrilla(std::move(columnas), c.textos, Formato(c.ajustes), padre),
      db_(c.base.db_),
      cuenta_(c, *this),
      suma_(c, *this) {}

ModeloSql::~ModeloSql() {
  soltarCopia();
}

Resultado<> ModeloSql::abrir(dao::Origen origen) {
  return leer(std::move(origen), columnaOrden_, sentido_, false);
}

Resultado<> ModeloSql::refrescar() {
  if (origen_.desde.isEmpty()) return {};
  return leer(origen_, columnaOrden_, sentido_, rowCount() >= kPrimeras);
}

Resultado<> ModeloSql::ordenar(int columna, Qt::SortOrder sentido) {
  if (origen_.desde.isEmpty()) return {};  // nothing is open yet
  if (columna >= 0 && !columnas_[static_cast<size_t>(columna)].ordenable) return {};
  return leer(origen_, columna, sentido, rowCount() >= kPrimeras);
}

// `todas`: reads all keys at once, so that the selection and the row in view can be found among
// them.
Resultado<> ModeloSql::leer(dao::Origen nuevo, int columna, Qt::SortOrder sentido, bool todas) {
  Q_EMIT vaARenovar();
  auto hecho = releer(std::move(nuevo), columna, sentido, todas);
  Q_EMIT renovado();
  return hecho;
}

// Reads the first keys of the new origin; nothing changes unless that succeeds.
Resultado<> ModeloSql::releer(dao::Origen nuevo, int columna, Qt::SortOrder sentido, bool todas) {
  Lectura l{nuevo, {}, {}};
  if (nuevo.clave.isEmpty()) {
    TARVO_TOMAR(auto copia, copiar(nuevo));
    l = std::move(copia);
  }
  l.orden = ordenDe(l, columna, sentido);
  auto primeras = leerClaves(db_, l.origen, l.orden, todas ? kTodas : kPrimeras);
  if (!primeras) {
    static_cast<void>(soltar(l.tabla));
    return std::unexpected(primeras.error());
  }
  beginResetModel();
  soltarCopia();
  origen_ = std::move(nuevo);
  lectura_ = std::move(l);
  columnaOrden_ = columna;
  sentido_ = sentido;
  claves_ = std::move(*primeras);
  paginas_.clear();
  recientes_.clear();
  donde_.clear();
  contando_ = !todas && static_cast<int>(claves_.size()) == kPrimeras;
  endResetModel();
  cuenta_.olvidar();
  suma_.olvidar();
  if (contando_) contarAparte();
  Q_EMIT recuento();
  return {};
}

// Orders by the column, then by key among equal values, so that no row appears twice or not at all.
QString ModeloSql::ordenDe(const Lectura& l, int columna, Qt::SortOrder sentido) const {
  QString orden = l.origen.orden;
  if (columna >= 0) {
    const Columna& c = columnas_[static_cast<size_t>(columna)];
    const QString propia =
        l.tabla.isEmpty() ? (c.orden.isEmpty() ? c.campo : c.orden) : campoDe(l, columna);
    orden = propia + (sentido == Qt::DescendingOrder ? u" DESC"_s : QString());
  }
  if (!orden.isEmpty()) orden += u", "_s;
  return u" ORDER BY "_s + orden + l.origen.clave;
}

QString ModeloSql::campoDe(const Lectura& l, int columna) const {
  return l.tabla.isEmpty() ? columnas_[static_cast<size_t>(columna)].campo
                           : u'c' + QString::number(columna);
}

QString ModeloSql::listaColumnas(const Lectura& l) const {
  QString lista = l.origen.clave;
  for (int c = 0; c < columnCount(); ++c) lista += u", "_s + campoDe(l, c);
  return lista;
}

// Copies rows without a key of their own into a temporary table of this connection, in the order of
// the origin.
Resultado<ModeloSql::Lectura> ModeloSql::copiar(const dao::Origen& o) {
  const QString tabla =
      u"parrilla_%1_%2"_s.arg(reinterpret_cast<quintptr>(this), 0, 36).arg(++serie_);
  QStringList definicion, destino, lista;
  for (int c = 0; c < columnCount(); ++c) {
    const Columna& columna = columnas_[static_cast<size_t>(c)];
    destino << u'c' + QString::number(c);
    definicion << destino.last() +
                      (columna.clase == Clase::Texto ? u" COLLATE tarvo_orden"_s : QString());
    lista << columna.campo;
  }
  TARVO_INTENTAR(db_.Execute(
      conMarcas(u"CREATE TEMP TABLE {tabla} (k INTEGER PRIMARY KEY, {columnas}, identidad)",
                {{u"tabla", tabla}, {u"columnas", definicion.join(u", "_s)}})));
  const QString sql = conMarcas(
      u"INSERT INTO {tabla} ({destino}, identidad) SELECT {lista}, {identidad} FROM "
      u"{desde}{filtro}{agrupado}{orden}",
      {{u"tabla", tabla},
       {u"destino", destino.join(u", "_s)},
       {u"lista", lista.join(u", "_s)},
       {u"identidad", o.identidad.isEmpty() ? u"NULL"_s : o.identidad},
       {u"desde", o.desde},
       {u"filtro", entreParentesis(o.filtro)},
       {u"agrupado", o.agrupado.isEmpty() ? QString() : u" GROUP BY "_s + o.agrupado},
       {u"orden", o.orden.isEmpty() ? QString() : u" ORDER BY "_s + o.orden}});
  if (const auto hecho = db_.Execute(sql, o.parametros); !hecho) {
    static_cast<void>(soltar(tabla));
    return std::unexpected(hecho.error());
  }
  dao::Origen copia{.desde = tabla,
                    .filtro = {},
                    .parametros = {},
                    .clave = u"k"_s,
                    .agrupado = {},
                    .identidad = u"identidad"_s,
                    .orden = {}};
  return Lectura{std::move(copia), tabla, {}};
}

Resultado<> ModeloSql::soltar(const QString& tabla) {
  if (tabla.isEmpty()) return {};
  TARVO_INTENTAR(db_.Execute(conMarcas(u"DROP TABLE {tabla}", {{u"tabla", tabla}})));
  return {};
}

// A copy that couldn't be dropped disappears with the connection.
void ModeloSql::soltarCopia() {
  static_cast<void>(soltar(lectura_.tabla));
  lectura_.tabla.clear();
}

// Another connection sees neither the copy nor uncommitted data.
bool ModeloSql::aparte() const {
  return lectura_.tabla.isEmpty() && db_.profundidad() == 0;
}

void ModeloSql::contarAparte() {
  const auto decir = [this](const Resultado<>& hecho) {
    if (!hecho) Q_EMIT fallido(hecho.error());
  };
  if (!aparte()) {
    QMetaObject::invokeMethod(this, [=, this] { decir(contarTodo()); }, Qt::QueuedConnection);
    return;
  }
  cuenta_.preguntar<std::vector<Clave>>(
      [o = lectura_.origen, orden = lectura_.orden](dao::Database& db) {
        return leerClaves(db, o, orden, kTodas);
      },
      [=, this](Resultado<std::vector<Clave>> todas) { decir(contadas(std::move(todas))); });
}

// Appends the other keys to the first ones; reads everything again if something has changed in
// between.
Resultado<> ModeloSql::contadas(Resultado<std::vector<Clave>> todas) {
  contando_ = false;
  if (todas && (todas->size() < claves_.size() ||
                !std::equal(claves_.begin(), claves_.end(), todas->begin())))
    return leer(origen_, columnaOrden_, sentido_, true);
  if (todas && todas->size() > claves_.size()) {
    const int antes = rowCount();
    beginInsertRows({}, antes, static_cast<int>(todas->size()) - 1);
    claves_ = std::move(*todas);
    paginas_.erase((antes - 1) / kFilasPagina);
    std::erase(recientes_, (antes - 1) / kFilasPagina);
    donde_.clear();
    endInsertRows();
  }
  Q_EMIT recuento();
  if (!todas) return std::unexpected(todas.error());
  return {};
}

Resultado<> ModeloSql::contarTodo() {
  if (!contando_) return {};
  cuenta_.olvidar();
  return contadas(leerClaves(db_, lectura_.origen, lectura_.orden, kTodas));
}

int ModeloSql::rowCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : static_cast<int>(claves_.size());
}

ModeloParrilla::Clave ModeloSql::clave(int fila) const {
  return claves_[static_cast<size_t>(fila)];
}

int ModeloSql::filaDe(Clave clave) const {
  if (donde_.empty()) {
    donde_.reserve(claves_.size());
    for (size_t i = 0; i < claves_.size(); ++i) donde_[claves_[i]] = static_cast<int>(i);
  }
  const auto hallada = donde_.find(clave);
  return hallada == donde_.end() ? -1 : hallada->second;
}

dao::Valor ModeloSql::valor(int fila, int columna) const {
  const Pagina& p = pagina(fila);
  const auto& valores = p.filas[static_cast<size_t>(fila % kFilasPagina)];
  return valores.empty() ? dao::Valor() : valores[static_cast<size_t>(columna)];
}

// The page of a row, read if it isn't in the cache; it replaces the least recently used one.
const ModeloSql::Pagina& ModeloSql::pagina(int fila) const {
  const int numero = fila / kFilasPagina;
  if (!recientes_.empty() && recientes_.back() == numero) return *paginas_[numero];
  std::erase(recientes_, numero);
  recientes_.push_back(numero);
  auto& lugar = paginas_[numero];
  if (lugar) return *lugar;
  if (recientes_.size() > kPaginas) {
    paginas_.erase(recientes_.front());
    recientes_.erase(recientes_.begin());
  }
  lugar = std::make_unique<Pagina>(leerPagina(numero));
  return *lugar;
}

void ModeloSql::releerFila(int fila) {
  paginas_.erase(fila / kFilasPagina);
  std::erase(recientes_, fila / kFilasPagina);
}

ModeloSql::Pagina ModeloSql::leerPagina(int numero) const {
  const size_t desde = static_cast<size_t>(numero) * kFilasPagina;
  const size_t hasta = std::min(claves_.size(), desde + kFilasPagina);
  std::vector<dao::Valor> valores = lectura_.origen.parametros;
  std::unordered_map<Clave, size_t> sitio;
  for (size_t i = desde; i < hasta; ++i) {
    sitio[claves_[i]] = i - desde;
    valores.emplace_back(claves_[i]);
  }
  // The same SQL text for every page, so that it is prepared once; the last key fills the remaining
  // parameters.
  while (valores.size() < lectura_.origen.parametros.size() + kFilasPagina)
    valores.push_back(valores.back());
  Pagina p;
  p.filas.resize(kFilasPagina);
  const auto leer = [&](bool todas) {
    const auto leidas =
        dao::recorrer(db_.OpenQuery(conClaves(lectura_.origen, listaColumnas(lectura_),
                                              lectura_.origen.clave, kFilasPagina, todas),
                                    valores),
                      [&](const dao::Recordset& leida) {
                        auto& fila = p.filas[sitio[leida.entero(0)]];
                        if (!fila.empty()) return;
                        fila.reserve(columnas_.size());
                        for (int c = 0; c < columnCount(); ++c) fila.push_back(leida.valor(c + 1));
                      });
    if (!leidas) Q_EMIT fallido(leidas.error());
    return leidas.has_value();
  };
  // A row that was changed out of the filter stays in sight until the list is read again.
  const auto faltan = [&] {
    return std::ranges::any_of(std::span(p.filas).first(hasta - desde),
                               [](const auto& fila) { return fila.empty(); });
  };
  if (leer(false) && !lectura_.origen.filtro.isEmpty() && faltan()) leer(true);
  return p;
}

void ModeloSql::pedirSumas(std::function<void(Resultado<Sumas>)> respuesta) {
  QStringList lista;
  std::vector<size_t> sumadas;
  for (size_t c = 0; c < columnas_.size(); ++c) {
    if (!columnas_[c].suma) continue;
    lista << u"sum("_s + campoDe(lectura_, static_cast<int>(c)) + u')';
    sumadas.push_back(c);
  }
  const size_t cuantas = columnas_.size();
  if (sumadas.empty() || lectura_.origen.desde.isEmpty()) return respuesta(Sumas(cuantas));
  const auto sumar = [=,
                      sql = conMarcas(u"SELECT {sumas} FROM {desde}{filtro}",
                                      {{u"sumas", lista.join(u", "_s)},
                                       {u"desde", lectura_.origen.desde},
                                       {u"filtro", entreParentesis(lectura_.origen.filtro)}}),
                      parametros =
                          lectura_.origen.parametros](dao::Database& db) -> Resultado<Sumas> {
    TARVO_TOMAR(const auto rs, db.OpenQuery(sql, parametros));
    Sumas s(cuantas);
    for (size_t i = 0; i < sumadas.size() && !rs->Eof(); ++i)
      s[sumadas[i]] = rs->valor(static_cast<int>(i));
    return s;
  };
  if (aparte()) return suma_.preguntar<Sumas>(sumar, std::move(respuesta));
  suma_.olvidar();
  respuesta(sumar(db_));
}

std::vector<dao::Valor> ModeloSql::identidades(const std::vector<int>& filas) const {
  std::vector<dao::Valor> lista;
  const QString identidad = lectura_.origen.identidad;
  if (identidad.isEmpty()) {
    for (const int f : filas) lista.emplace_back(clave(f));
    return lista;
  }
  const QString sql = conClaves(lectura_.origen, identidad, lectura_.origen.clave, 1);
  for (const int f : filas) {
    std::vector<dao::Valor> valores = lectura_.origen.parametros;
    valores.emplace_back(clave(f));
    if (const auto rs = db_.OpenQuery(sql, valores); rs && !(*rs)->Eof())
      lista.push_back((*rs)->valor(0));
  }
  return lista;
}

std::vector<int> ModeloSql::filasDe(const std::vector<dao::Valor>& identidades) const {
  std::vector<int> filas;
  const QString identidad = lectura_.origen.identidad;
  const auto anadir = [&](Clave c) {
    if (const int f = filaDe(c); f >= 0) filas.push_back(f);
  };
  const QString sql = conClaves(lectura_.origen, lectura_.origen.clave, identidad, 1);
  for (const dao::Valor& v : identidades) {
    if (identidad.isEmpty()) {
      anadir(v.entero());
      continue;
    }
    std::vector<dao::Valor> valores = lectura_.origen.parametros;
    valores.push_back(v);
    if (const auto rs = db_.OpenQuery(sql, valores); rs && !(*rs)->Eof()) anadir((*rs)->entero(0));
  }
  std::ranges::sort(filas);
  return filas;
}

}  // namespace tarvo::ventanas
