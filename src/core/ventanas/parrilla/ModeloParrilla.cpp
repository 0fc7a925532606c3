#include "core/ventanas/parrilla/ModeloParrilla.h"

#include "core/dao/Orden.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFilasPorPaso = 128;  // per step of a search

QString imagenDe(const Columna& c, const dao::Valor& v) {
  return c.imagen ? c.imagen(v) : QString();
}

}  // namespace

ModeloParrilla::ModeloParrilla(std::vector<Columna> columnas, const Textos& textos, Formato formato,
                               QObject* padre)
    : QAbstractTableModel(padre), columnas_(std::move(columnas)), t_(textos), formato_(formato) {}

int ModeloParrilla::columna(QStringView campo) const {
  for (size_t i = 0; i < columnas_.size(); ++i)
    if (columnas_[i].campo.compare(campo, Qt::CaseInsensitive) == 0) return static_cast<int>(i);
  return -1;
}

int ModeloParrilla::columnCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : static_cast<int>(columnas_.size());
}

int ModeloParrilla::cadaDe(int fila, const Columna& c) const {
  const int otra = c.campoCada.isEmpty() ? -1 : columna(c.campoCada);
  return otra < 0 ? c.cada : static_cast<int>(valor(fila, otra).entero());
}

QString ModeloParrilla::texto(int fila, int columna) const {
  const Columna& c = columnas_[static_cast<size_t>(columna)];
  return formato_.ver(c, valor(fila, columna), cadaDe(fila, c));
}

QVariant ModeloParrilla::data(const QModelIndex& indice, int papel) const {
  if (!indice.isValid()) return {};
  const int fila = indice.row(), columna = indice.column();
  const Columna& c = columnas_[static_cast<size_t>(columna)];
  switch (papel) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::AccessibleTextRole:
      return texto(fila, columna);
    case Qt::DecorationRole: {
      const dao::Valor v = valor(fila, columna);
      if (const QString nombre = imagenDe(c, v); !nombre.isEmpty()) return icono(nombre);
      return c.estado ? QVariant(iconoEstado(c.estado(v))) : QVariant();
    }
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignVCenter | (esNumerica(c.clase) ? Qt::AlignRight : Qt::AlignLeft));
    case kPapelClase:
      return static_cast<int>(c.clase);
    case kPapelEstado:
      return static_cast<int>(c.estado ? c.estado(valor(fila, columna)) : Estado::Ninguno);
    case kPapelCero:
      return esNumerica(c.clase) && !c.ver && valor(fila, columna).real() == 0;
    default:
      return {};
  }
}

Qt::ItemFlags ModeloParrilla::flags(const QModelIndex& indice) const {
  const auto banderas = QAbstractTableModel::flags(indice);
  const bool escribible =
      indice.isValid() && columnas_[static_cast<size_t>(indice.column())].editar;
  return escribible ? banderas | Qt::ItemIsEditable : banderas;
}

void ModeloParrilla::releer(int fila) {
  releerFila(fila);
  Q_EMIT dataChanged(index(fila, 0), index(fila, columnCount() - 1));
}

Resultado<> ModeloParrilla::escribir(int columna, Clave clave, const QString& texto) const {
  const Columna& c = columnas_[static_cast<size_t>(columna)];
  if (const auto mal = malEscrito(c, texto, t_)) return fallo(Fallo::Formato, *mal);
  return c.editar(clave, texto);
}

// By key, since the value written may change the order of the rows.
bool ModeloParrilla::setData(const QModelIndex& indice, const QVariant& valor, int papel) {
  const Columna& c = columnas_[static_cast<size_t>(indice.column())];
  if (papel != Qt::EditRole || !c.editar) return false;
  const QString escrito = valor.toString();
  const QString antes = texto(indice.row(), indice.column());
  if (escrito == antes) return true;
  const QPersistentModelIndex sitio = indice;
  const Clave suya = clave(indice.row());
  const int columna = indice.column();
  if (const auto hecho = escribir(columna, suya, escrito); !hecho) {
    Q_EMIT rechazada(indice, escrito, hecho.error());
    return false;
  }
  Q_EMIT celdaEscrita(suya, columna, antes);
  if (const int fila = sitio.isValid() ? sitio.row() : filaDe(suya); fila >= 0) {
    releer(fila);
    Q_EMIT editada(index(fila, indice.column()));
  }
  return true;
}

QVariant ModeloParrilla::headerData(int seccion, Qt::Orientation orientacion, int papel) const {
  if (orientacion != Qt::Horizontal)
    return QAbstractTableModel::headerData(seccion, orientacion, papel);
  if (seccion < 0 || seccion >= columnCount()) return {};
  const Columna& c = columnas_[static_cast<size_t>(seccion)];
  if (papel == Qt::DisplayRole || papel == Qt::ToolTipRole) return t_(c.titulo).trimmed();
  if (papel == Qt::TextAlignmentRole)
    return QVariant(Qt::AlignVCenter | (esNumerica(c.clase) ? Qt::AlignRight : Qt::AlignLeft));
  return {};
}

ModeloParrilla::Hallazgo ModeloParrilla::buscar(const QString& que, Busca como,
                                                const std::vector<int>& columnas, int desde) const {
  const QString clave = dao::claveOrden(que);
  // A code is typed without the zeros that are shown before it.
  const auto empieza = [&](const QString& visto, int columna) {
    if (visto.startsWith(clave)) return true;
    if (columnas_[static_cast<size_t>(columna)].clase != Clase::Codigo) return false;
    const auto cifra = std::ranges::find_if(visto, [](QChar c) { return c != u'0'; });
    return QStringView(cifra, visto.end()).startsWith(clave);
  };
  const int hasta = std::min(rowCount(), desde + kFilasPorPaso);
  for (int fila = desde; fila < hasta; ++fila)
    for (const int columna : columnas) {
      const QString visto = dao::claveOrden(texto(fila, columna));
      if (como == Busca::Empieza ? empieza(visto, columna) : visto.contains(clave))
        return {fila, fila};
    }
  return {-1, hasta};
}

}  // namespace tarvo::ventanas
