#include "core/dao/sqlite/Pagina.h"

#include <sqlite3.h>

#include "core/dao/Numero.h"

namespace tarvo::dao {

void Pagina::vaciar(int columnas) {
  columnas_ = columnas;
  filas_ = 0;
  celdas_.clear();
  textos_.clear();
}

void Pagina::anadir(sqlite3_stmt* s) {
  const size_t inicio = celdas_.size();
  celdas_.resize(inicio + static_cast<size_t>(columnas_));
  for (int i = 0; i < columnas_; ++i) {
    Celda& c = celdas_[inicio + static_cast<size_t>(i)];
    switch (sqlite3_column_type(s, i)) {
      case SQLITE_INTEGER:
        c.tipo = Tipo::Entera;
        c.n = sqlite3_column_int64(s, i);
        break;
      case SQLITE_FLOAT:
        c.tipo = Tipo::Real;
        c.x = sqlite3_column_double(s, i);
        break;
      case SQLITE_NULL:
        break;
      default: {
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(s, i));
        c = textoNuevo(bytes, static_cast<size_t>(sqlite3_column_bytes(s, i)));
      }
    }
  }
  ++filas_;
}

Pagina::Celda Pagina::textoNuevo(const char* s, size_t largo) {
  Celda c;
  c.tipo = Tipo::Texto;
  c.t = {static_cast<quint32>(textos_.size()), static_cast<quint32>(largo)};
  if (largo > 0) textos_.append(s, largo);
  return c;
}

QString Pagina::leer(Trozo t) const {
  return QString::fromUtf8(textos_.data() + t.desde, t.largo);
}

qint64 Pagina::entero(int fila, int columna) const {
  const Celda& c = celda(fila, columna);
  switch (c.tipo) {
    case Tipo::Entera:
      return c.n;
    case Tipo::Real:
      return enteroDeReal(c.x);
    case Tipo::Texto:
      return enteroDeTexto(leer(c.t));
    case Tipo::Nula:
      break;
  }
  return 0;
}

double Pagina::real(int fila, int columna) const {
  const Celda& c = celda(fila, columna);
  switch (c.tipo) {
    case Tipo::Entera:
      return static_cast<double>(c.n);
    case Tipo::Real:
      return c.x;
    case Tipo::Texto:
      return realDeTexto(leer(c.t));
    case Tipo::Nula:
      break;
  }
  return 0;
}

QString Pagina::texto(int fila, int columna) const {
  return valor(fila, columna).texto();
}

Valor Pagina::valor(int fila, int columna) const {
  const Celda& c = celda(fila, columna);
  switch (c.tipo) {
    case Tipo::Entera:
      return c.n;
    case Tipo::Real:
      return c.x;
    case Tipo::Texto:
      return leer(c.t);
    case Tipo::Nula:
      break;
  }
  return {};
}

void Pagina::poner(int fila, int columna, const Valor& valor) {
  Celda nueva;
  if (valor.esEntero()) {
    nueva.tipo = Tipo::Entera;
    nueva.n = valor.entero();
  } else if (valor.esReal()) {
    nueva.tipo = Tipo::Real;
    nueva.x = valor.real();
  } else if (valor.esTexto()) {
    const QByteArray utf8 = valor.texto().toUtf8();
    nueva = textoNuevo(utf8.constData(), static_cast<size_t>(utf8.size()));
  }
  celdas_[static_cast<size_t>(fila) * static_cast<size_t>(columnas_) +
          static_cast<size_t>(columna)] = nueva;
}

}  // namespace tarvo::dao
