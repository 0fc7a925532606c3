#include "comm/maquinas/Campos.h"

#include <algorithm>
#include <utility>

namespace tarvo::maquinas {

namespace {

// The decimal number of a text of at most 18 digits, blanks around it allowed; nothing if it is no
// number.
std::optional<qint64> decimal(QByteArrayView texto) {
  const QByteArrayView t = texto.trimmed();
  if (t.isEmpty() || t.size() > 18) return {};
  qint64 n = 0;
  for (const char c : t) {
    if (c < '0' || c > '9') return {};
    n = n * 10 + (c - '0');
  }
  return n;
}

// The value of a whole field, "000-123" included; nothing if it is no number.
std::optional<qint64> valorDeCampo(QByteArrayView campo) {
  const qsizetype menos = campo.indexOf('-');
  if (menos < 0) return decimal(campo);
  const QByteArrayView delante = campo.first(menos);
  if (!std::all_of(delante.begin(), delante.end(), [](char c) { return c == '0'; })) return {};
  if (menos + 1 >= campo.size() || campo[menos + 1] == ' ') return {};
  const auto n = decimal(campo.sliced(menos + 1));
  if (!n) return {};
  return -*n;
}

// The bytes of a field; fewer than `ancho` where the record ends.
QByteArrayView trozo(QByteArrayView registro, int inicio, int ancho) {
  if (inicio < 1 || ancho < 1 || inicio > registro.size()) return {};
  return registro.sliced(inicio - 1, std::min<qsizetype>(ancho, registro.size() - inicio + 1));
}

}  // namespace

QByteArray Ceros(qint64 n, int ancho) {
  return n < 0 ? '-' + QByteArray::number(-n).rightJustified(ancho - 1, '0')
               : QByteArray::number(n).rightJustified(ancho, '0');
}

QByteArray Campo(const QByteArray& texto, int ancho) {
  return texto.leftJustified(ancho, ' ', true);
}

qint64 CampoNumerico(QByteArrayView registro, int inicio, int ancho) {
  return valorDeCampo(trozo(registro, inicio, ancho)).value_or(0);
}

int MaxOperadores(TipoGrupo tipo) {
  return tipo == TipoGrupo::Ebony ? 10 : 20;
}

int MaxDepartamentos(TipoGrupo tipo) {
  switch (tipo) {
    case TipoGrupo::Balanzas:
    case TipoGrupo::Ebony:
      return 10;
    case TipoGrupo::Registradoras:
      return 40;
    case TipoGrupo::Birch:
      return 20;
  }
  std::unreachable();
}

qint64 Lector::numero(int inicio, int ancho) {
  if (rigor_ == Rigor::Estricto) return clave(inicio, ancho);
  // A truncated number is a different number.
  const qsizetype hay = trozo(registro_, inicio, ancho).size();
  return hay > 0 && hay < ancho ? clave(inicio, ancho) : CampoNumerico(registro_, inicio, ancho);
}

qint64 Lector::clave(int inicio, int ancho) {
  const QByteArrayView campo = trozo(registro_, inicio, ancho);
  const auto n = valorDeCampo(campo);
  if (!falta_ && campo.size() < ancho)
    falta_ = RegistroMalo{RegistroMalo::Corto, registro_.size(), {}};
  else if (!falta_ && !n)
    falta_ = RegistroMalo{RegistroMalo::SinNumero, inicio, campo.toByteArray()};
  return n.value_or(0);
}

}  // namespace tarvo::maquinas
