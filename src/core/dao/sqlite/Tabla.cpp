#include "core/dao/sqlite/Tabla.h"

#include <sqlite3.h>

#include <algorithm>

namespace tarvo::dao {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPaginaMayor = 128;

bool tieneNulo(std::span<const Valor> clave) {
  return std::ranges::any_of(clave, [](const Valor& v) { return v.nulo(); });
}

}  // namespace

Tabla::Tabla(std::shared_ptr<Conexion> con, std::shared_ptr<Catalogo> catalogo,
             std::shared_ptr<const InfoTabla> info)
    : con_(std::move(con)), catalogo_(std::move(catalogo)), info_(std::move(info)) {
  numeros_ = info_->numeros;
  columnas_ = static_cast<int>(info_->columnas.size());
  valores_.resize(info_->columnas.size());
}

Resultado<> Tabla::Index(QStringView nombre) {
  QString enFichero;
  std::vector<ParteClave> claves;
  if (!nombre.isEmpty()) {
    TARVO_TOMAR(auto r, catalogo_->indice(*info_, nombre, enFichero));
    claves = std::move(r);
  }
  indice_ = enFichero;
  claves_ = std::move(claves);
  celdaClave_.clear();
  int expresiones = 0;
  for (const ParteClave& k : claves_)
    celdaClave_.push_back(k.columna >= 0 ? k.columna : columnas_ + expresiones++);
  columnasLeidas_ = columnas_ + expresiones + 1;
  iguales_.clear();
  iguales_.resize(claves_.size() + 1);
  desdes_.clear();
  desdes_.resize(claves_.size() + 1);
  detras_ = {};
  ultima_ = {};
  niveles_.clear();
  return MoveFirst();
}

// --- the statements ---

QString Tabla::seleccion() const {
  QString s = QStringLiteral("SELECT ");
  for (const QString& c : info_->columnas) s += entreComillasSql(c) + u',';
  for (const ParteClave& k : claves_)
    if (k.columna < 0) s += k.sql + u',';
  s += u"rowid FROM "_s + entreComillasSql(info_->nombre);
  if (!indice_.isEmpty()) s += u" INDEXED BY "_s + entreComillasSql(indice_);
  return s;
}

QString Tabla::orden(const char* sentido) const {
  QString s = QStringLiteral(" ORDER BY ");
  for (const ParteClave& k : claves_) s += k.sql + QLatin1String(sentido) + u',';
  return s + u"rowid"_s + QLatin1String(sentido);
}

QString Tabla::listaClaves(size_t partes) const {
  QStringList l;
  for (size_t i = 0; i < partes; ++i) l += claves_[i].sql;
  return l.join(u',');
}

Resultado<Preparada*> Tabla::guardada(Preparada& p, const QString& sql) {
  if (p) return &p;
  TARVO_TOMAR(auto nueva, con_->preparar(sql));
  p = std::move(nueva);
  return &p;
}

Resultado<Preparada*> Tabla::igual(size_t partes) {
  if (iguales_[partes]) return &iguales_[partes];
  QString s = seleccion() + u" WHERE 1"_s;
  for (size_t i = 0; i < partes; ++i)
    s += u" AND "_s + claves_[i].sql + u" IS "_s + claves_[i].conParametro.arg(u"?%1"_s.arg(i + 1));
  return guardada(iguales_[partes], s + orden(""));
}

Resultado<Preparada*> Tabla::desde(size_t partes) {
  if (desdes_[partes]) return &desdes_[partes];
  QString s = seleccion();
  if (partes > 0) {
    QStringList valores;
    for (size_t i = 0; i < partes; ++i) valores += claves_[i].conParametro.arg(u"?%1"_s.arg(i + 1));
    s += u" WHERE ("_s + listaClaves(partes) + u")>=("_s + valores.join(u',') + u')';
  }
  return guardada(desdes_[partes], s + orden(""));
}

Resultado<Preparada*> Tabla::detras() {
  if (detras_) return &detras_;
  QString nombres, valores;
  for (size_t i = 0; i < claves_.size(); ++i) {
    nombres += claves_[i].sql + u',';
    valores += u"?,"_s;
  }
  return guardada(detras_, seleccion() + u" WHERE ("_s + nombres + u"rowid)>("_s + valores +
                               u"?)"_s + orden(""));
}

// --- reading ---

Resultado<> Tabla::leer(Preparada& p, int maximo) {
  while (leida_.filas() < maximo) {
    TARVO_TOMAR(const auto fila, p.paso());
    if (!fila) break;
    leida_.anadir(p.cruda());
  }
  p.reponer();
  return {};
}

// Fills leida_ with the rows at or past a key or, given a row's number, after that row of the key.
Resultado<> Tabla::leerDesde(std::span<const Valor> clave, std::optional<qint64> fila, int maximo) {
  leida_.vaciar(columnasLeidas_);
  if (tieneNulo(clave)) return leerPorNiveles(clave, fila, maximo);
  TARVO_TOMAR(auto p, fila ? detras() : desde(clave.size()));
  p->ligar(clave);
  if (fila) p->ligar(static_cast<int>(clave.size()), *fila);
  return leer(*p, maximo);
}

Resultado<> Tabla::leerPorNiveles(std::span<const Valor> clave, std::optional<qint64> fila,
                                  int maximo) {
  for (size_t iguales = clave.size() + 1; iguales-- > 0 && leida_.filas() < maximo;)
    TARVO_INTENTAR(leerNivel(clave, iguales, fila, maximo));
  return {};
}

// The rows whose first parts equal the key's and whose next part is greater; with all parts equal,
// all of them or those after the row.
Resultado<> Tabla::leerNivel(std::span<const Valor> clave, size_t iguales,
                             std::optional<qint64> fila, int maximo) {
  QString s = u" WHERE 1"_s;
  std::vector<Valor> ligados;
  const auto parametro = [&](size_t i, const Valor& v) {
    ligados.push_back(v);
    return claves_[i].conParametro.arg(u"?%1"_s.arg(ligados.size()));
  };
  for (size_t i = 0; i < iguales; ++i)
    s += u" AND "_s + claves_[i].sql + u" IS "_s + parametro(i, clave[i]);
  if (iguales < clave.size()) {
    const Valor& v = clave[iguales];
    s += u" AND "_s + claves_[iguales].sql +
         (v.nulo() ? u" IS NOT NULL"_s : u'>' + parametro(iguales, v));
  } else if (fila) {
    ligados.push_back(*fila);
    s += u" AND rowid>?%1"_s.arg(ligados.size());
  }
  TARVO_TOMAR(auto p, guardada(niveles_[s], seleccion() + s + orden("")));
  p->ligar(ligados);
  return leer(*p, maximo);
}

// Makes the page just read the current one, with the cursor on its first row.
void Tabla::adoptar(int maximo) {
  std::swap(pagina_, leida_);
  completa_ = pagina_.filas() < maximo;
  fila_ = 0;
  vista_ = con_->cambios();
  maximo_ = std::min(kPaginaMayor, maximo * 8);
  noMatch_ = false;
}

std::vector<Valor> Tabla::claveActual() const {
  std::vector<Valor> clave;
  clave.reserve(claves_.size());
  for (const int celda : celdaClave_) clave.push_back(pagina_.valor(fila_, celda));
  return clave;
}

Resultado<> Tabla::MoveFirst() {
  TARVO_INTENTAR(leerDesde({}, std::nullopt, 8));
  adoptar(8);
  return {};
}

Resultado<> Tabla::MoveNext() {
  if (Eof()) return {};
  const bool vale = vista_ == con_->cambios();
  if (vale && (completa_ || fila_ + 1 < pagina_.filas())) {
    ++fila_;
    return {};
  }
  const int maximo = vale ? maximo_ : 4;
  const std::vector<Valor> clave = claveActual();
  TARVO_INTENTAR(leerDesde(clave, filaActual(), maximo));
  adoptar(maximo);
  return {};
}

Resultado<> Tabla::MoveLast() {
  TARVO_TOMAR(auto p, guardada(ultima_, seleccion() + orden(" DESC")));
  leida_.vaciar(columnasLeidas_);
  TARVO_INTENTAR(leer(*p, 1));
  adoptar(1);
  completa_ = true;
  return {};
}

Resultado<bool> Tabla::Seek(Busca busca, std::span<const Valor> clave) {
  if (clave.empty() || clave.size() > claves_.size())
    return fallo(Fallo::Interno,
                 QStringLiteral("La clave buscada no es del índice «%1».").arg(indice_));
  if (busca == Busca::Igual) {
    TARVO_TOMAR(auto p, igual(clave.size()));
    leida_.vaciar(columnasLeidas_);
    p->ligar(clave);
    TARVO_INTENTAR(leer(*p, 1));
  } else {
    TARVO_INTENTAR(leerDesde(clave, std::nullopt, 1));
  }
  adoptar(1);
  noMatch_ = Eof();
  return !noMatch_;
}

}  // namespace tarvo::dao
