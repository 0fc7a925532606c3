#include "core/dao/sqlite/Catalogo.h"

#include <sqlite3.h>

#include "core/dao/Lexico.h"

namespace tarvo::dao {

using namespace Qt::StringLiterals;

namespace {

QString textoDe(const Preparada& p, int columna) {
  return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(p.cruda(), columna)));
}

// The parts between the outermost parentheses of "CREATE INDEX ... ON t(a, f(b))".
std::vector<QString> partesDeIndice(const QString& sql) {
  std::vector<QString> partes;
  int hondura = 0;
  QChar comilla;
  QString actual;
  for (const QChar c : sql) {
    if (!comilla.isNull()) {
      if (c == comilla) comilla = QChar();
    } else if (c == u'\'' || c == u'"') {
      comilla = c;
    } else if (c == u'(' && hondura++ == 0) {
      continue;
    } else if ((c == u')' && --hondura == 0) || (c == u',' && hondura == 1)) {
      partes.push_back(actual.trimmed());
      actual.clear();
      if (hondura == 0) break;
      continue;
    }
    if (hondura > 0) actual += c;
  }
  return partes;
}

// The expression of an index, with a parameter in place of its column.
Resultado<QString> sobreParametro(const QString& expresion, const InfoTabla& tabla) {
  TARVO_TOMAR(auto elementos, cortar(expresion));
  QString salida;
  for (const Elemento& e : elementos) {
    if (e.clase == Elemento::Clase::Cadena)
      salida += u'\'' + e.texto + u'\'';
    else if (e.clase == Elemento::Clase::Palabra && tabla.numeros.contains(e.minusc))
      salida += u"%1"_s;
    else
      salida += e.texto;
  }
  return salida;
}

std::unexpected<Error> noExiste(QStringView que, QStringView nombre) {
  return fallo(Fallo::NoExiste,
               QStringLiteral("La base de datos no tiene %1 «%2».").arg(que).arg(nombre));
}

}  // namespace

QString entreComillasSql(const QString& nombre) {
  return u'"' + QString(nombre).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

Resultado<std::shared_ptr<const InfoTabla>> Catalogo::tabla(QStringView nombre) {
  const QString clave = nombre.toString().toLower();
  if (const auto hallada = tablas_.value(clave)) return hallada;
  TARVO_TOMAR(
      auto p,
      con_.preparar(QStringLiteral(
          "SELECT m.name, x.name, x.type FROM sqlite_master m, pragma_table_xinfo(m.name) x "
          "WHERE m.type='table' AND m.name=? COLLATE NOCASE AND x.hidden=0 ORDER BY x.cid")));
  p.ligar(0, nombre.toString());
  auto info = std::make_shared<InfoTabla>();
  for (;;) {
    TARVO_TOMAR(const auto fila, p.paso());
    if (!fila) break;
    info->nombre = textoDe(p, 0);
    info->numeros.insert(textoDe(p, 1).toLower(), static_cast<int>(info->columnas.size()));
    info->columnas.push_back(textoDe(p, 1));
    info->enteras.push_back(textoDe(p, 2).contains(u"INT", Qt::CaseInsensitive));
  }
  if (info->columnas.empty()) return noExiste(u"la tabla", nombre);
  tablas_.insert(clave, info);
  return info;
}

Resultado<std::vector<ParteClave>> Catalogo::indice(const InfoTabla& tabla, QStringView nombre,
                                                    QString& enFichero) {
  TARVO_TOMAR(
      auto p,
      con_.preparar(QStringLiteral(
          "SELECT name, sql FROM sqlite_master WHERE type='index' AND tbl_name=? COLLATE NOCASE "
          "AND name=? COLLATE NOCASE AND sql IS NOT NULL")));
  p.ligar(0, tabla.nombre);
  p.ligar(1, QString(tabla.nombre + u'.' + nombre.toString()));
  TARVO_TOMAR(const auto fila, p.paso());
  if (!fila) return noExiste(u"el índice", QString(tabla.nombre + u'.' + nombre.toString()));
  enFichero = textoDe(p, 0);
  std::vector<ParteClave> claves;
  for (const QString& parte : partesDeIndice(textoDe(p, 1))) {
    const QString limpia = QString(parte).remove(u'"').remove(u'[').remove(u']');
    const int columna = tabla.numeros.value(limpia.toLower(), -1);
    if (columna >= 0) {
      claves.push_back({columna, entreComillasSql(tabla.columnas[static_cast<size_t>(columna)]),
                        QStringLiteral("%1")});
      continue;
    }
    TARVO_TOMAR(auto conParametro, sobreParametro(parte, tabla));
    claves.push_back({-1, parte, conParametro});
  }
  return claves;
}

bool Catalogo::existe(QStringView tablaOVista) {
  if (nombres_.isEmpty()) nombres_ = leerNombres();
  return nombres_.contains(tablaOVista.toString().toLower());
}

// Empty if they can't be read to the end: half a list must not be kept.
QSet<QString> Catalogo::leerNombres() {
  auto p = con_.preparar(u"SELECT name FROM sqlite_master WHERE type IN ('table','view')"_s);
  if (!p) return {};
  QSet<QString> nombres;
  for (;;) {
    const auto fila = p->paso();
    if (!fila) return {};
    if (!*fila) return nombres;
    nombres.insert(textoDe(*p, 0).toLower());
  }
}

bool Catalogo::columnaDeTexto(const QString& enMinusculas) {
  if (const auto sabida = deTexto_.constFind(enMinusculas); sabida != deTexto_.cend())
    return *sabida;
  const QByteArray columna = enMinusculas.toUtf8();
  if (tablasUtf8_.isEmpty()) tablasUtf8_ = leerTablas();
  bool hay = false, texto = false;
  for (const QByteArray& tabla : std::as_const(tablasUtf8_)) {
    const char* tipo = nullptr;
    if (sqlite3_table_column_metadata(con_.cruda(), "main", tabla, columna, &tipo, nullptr, nullptr,
                                      nullptr, nullptr) != SQLITE_OK)
      continue;
    hay = true;
    texto = texto || (tipo && qstricmp(tipo, "TEXT") == 0);
  }
  // Views have to be compiled for their columns, and most names are some table's.
  if (!hay) texto = enVistas(enMinusculas);
  deTexto_.insert(enMinusculas, texto);
  return texto;
}

// Empty if they can't be read to the end, as the names.
QByteArrayList Catalogo::leerTablas() {
  auto p = con_.preparar(u"SELECT name FROM sqlite_master WHERE type='table'"_s);
  QByteArrayList tablas;
  while (p) {
    const auto fila = p->paso();
    if (!fila) return {};
    if (!*fila) break;
    tablas << textoDe(*p, 0).toUtf8();
  }
  return tablas;
}

bool Catalogo::enVistas(const QString& columna) {
  auto p = con_.preparar(
      u"SELECT 1 FROM sqlite_master m, pragma_table_info(m.name) x WHERE m.type='view' AND "
      u"x.type='TEXT' AND lower(x.name)=? LIMIT 1"_s);
  if (!p) return false;
  p->ligar(0, columna);
  return p->paso().value_or(false);
}

void Catalogo::olvidar() {
  tablas_.clear();
  nombres_.clear();
  tablasUtf8_.clear();
  deTexto_.clear();
}

}  // namespace tarvo::dao
