// The writing half of a table recordset: a kept statement for each set of columns written.
#include <sqlite3.h>

#include <algorithm>

#include "core/dao/sqlite/Tabla.h"

namespace tarvo::dao {

using namespace Qt::StringLiterals;

void Tabla::empezarEscritura(Modo modo) {
  modo_ = modo;
  puestas_.clear();
  columnaMala_ = false;
}

void Tabla::poner(int columna, const Valor& valor) {
  if (columna < 0 || columna >= columnas_) {
    columnaMala_ = true;
    return;
  }
  if (std::ranges::find(puestas_, columna) == puestas_.end()) puestas_.push_back(columna);
  valores_[static_cast<size_t>(columna)] = valor;
}

Resultado<Preparada*> Tabla::escritura() {
  for (Escritura& e : escrituras_)
    if (e.modo == modo_ && e.columnas == puestas_) return &e.sentencia;
  QStringList nombres, parametros, asignaciones;
  for (const int c : puestas_) {
    nombres += entreComillasSql(info_->columnas[static_cast<size_t>(c)]);
    parametros += u"?"_s;
    asignaciones += nombres.back() + u"=?"_s;
  }
  QString s;
  if (modo_ == Modo::Cambio)
    s = u"UPDATE "_s + entreComillasSql(info_->nombre) + u" SET "_s + asignaciones.join(u',') +
        u" WHERE rowid=?"_s;
  else if (puestas_.empty())
    s = u"INSERT INTO "_s + entreComillasSql(info_->nombre) + u" DEFAULT VALUES"_s;
  else
    s = u"INSERT INTO "_s + entreComillasSql(info_->nombre) + u" ("_s + nombres.join(u',') +
        u") VALUES ("_s + parametros.join(u',') + u')';
  TARVO_TOMAR(auto p, con_->preparar(s));
  escrituras_.push_back({modo_, puestas_, std::move(p)});
  return &escrituras_.back().sentencia;
}

Resultado<> Tabla::Update() {
  if (modo_ == Modo::Ninguno)
    return fallo(Fallo::Interno, QStringLiteral("Update sin AddNew ni Edit."));
  if (columnaMala_)
    return fallo(
        Fallo::Interno,
        QStringLiteral("Se ha dado valor a una columna que «%1» no tiene.").arg(info_->nombre));
  TARVO_INTENTAR(con_->puedeEscribir());
  if (modo_ == Modo::Cambio && puestas_.empty()) {
    modo_ = Modo::Ninguno;
    return {};
  }
  TARVO_TOMAR(auto p, escritura());
  for (size_t i = 0; i < puestas_.size(); ++i)
    p->ligar(static_cast<int>(i), valores_[static_cast<size_t>(puestas_[i])]);
  if (modo_ == Modo::Nueva)
    TARVO_INTENTAR(p->ejecutar());
  else
    TARVO_INTENTAR(cambiar(*p));
  modo_ = Modo::Ninguno;
  return {};
}

Resultado<> Tabla::cambiar(Preparada& p) {
  if (Eof()) return fallo(Fallo::Interno, QStringLiteral("Edit necesita un registro."));
  p.ligar(static_cast<int>(puestas_.size()), filaActual());
  TARVO_INTENTAR(p.ejecutar());
  if (sqlite3_changes64(con_->cruda()) == 0)
    return fallo(Fallo::NoExiste,
                 QStringLiteral("El registro ya no existe: lo ha borrado otro programa."), 3167);
  for (const int c : puestas_) {
    const Valor& v = valores_[static_cast<size_t>(c)];
    const bool aEntero = info_->enteras[static_cast<size_t>(c)] && v.esReal() &&
                         static_cast<double>(v.entero()) == v.real();
    pagina_.poner(fila_, c, aEntero ? Valor(v.entero()) : v);
  }
  // A changed key moves the row; the engine tells its new place.
  for (size_t i = 0; i < claves_.size(); ++i) {
    if (claves_[i].columna >= 0) continue;
    TARVO_TOMAR(auto k, con_->preparar(u"SELECT "_s + claves_[i].sql + u" FROM "_s +
                                       entreComillasSql(info_->nombre) + u" WHERE rowid=?"_s));
    k.ligar(0, filaActual());
    if (k.paso().value_or(false)) {
      Pagina una;
      una.vaciar(1);
      una.anadir(k.cruda());
      pagina_.poner(fila_, celdaClave_[i], una.valor(0, 0));
    }
  }
  return {};
}

Resultado<> Tabla::Delete() {
  if (Eof()) return fallo(Fallo::Interno, QStringLiteral("Delete necesita un registro."));
  TARVO_INTENTAR(con_->puedeEscribir());
  TARVO_TOMAR(auto p, guardada(borrar_, u"DELETE FROM "_s + entreComillasSql(info_->nombre) +
                                            u" WHERE rowid=?"_s));
  p->ligar(0, filaActual());
  TARVO_INTENTAR(p->ejecutar());
  if (sqlite3_changes64(con_->cruda()) == 0)
    return fallo(Fallo::NoExiste,
                 QStringLiteral("El registro ya no existe: lo ha borrado otro programa."), 3167);
  return MoveNext();
}

}  // namespace tarvo::dao
