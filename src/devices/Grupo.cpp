#include "devices/Grupo.h"

#include "devices/Modelos.h"

namespace tarvo::devices {

namespace {

// The element at position n, counted from 1, or null.
template <class L>
auto* posicion(L& lista, int n) {
  return n >= 1 && n <= static_cast<int>(lista.size()) ? &lista[static_cast<size_t>(n - 1)]
                                                       : nullptr;
}

}  // namespace

void Grupo::tipo(std::optional<TipoGrupo> nuevo) {
  tipo_ = nuevo;
  const auto departamentos = static_cast<size_t>(MaxDepartamentos(tipo_));
  operadoresGrupo_.resize(static_cast<size_t>(MaxOperadores(tipo_)));
  ivaDepartamentos_.resize(departamentos, 1);
  nombresDepartamentos_.resize(departamentos);
}

QString Grupo::Operador(int n) const {
  const auto* o = posicion(operadoresGrupo_, n);
  return o ? o->nombre : QString();
}

int Grupo::CodOperador(int n) const {
  const auto* o = posicion(operadoresGrupo_, n);
  return o ? o->codigo : 0;
}

Resultado<> Grupo::CodOperador(int n, int codigo) {
  auto* o = posicion(operadoresGrupo_, n);
  if (!o) return {};
  if (codigo <= 0) {
    *o = {};
    return {};
  }
  // Without the table the name is unknown, and the present one stays.
  if (operadores_) {
    TARVO_TOMAR(auto nombre, nombreOperador(codigo));
    o->nombre = std::move(nombre);
  }
  o->codigo = codigo;
  return {};
}

Resultado<QString> Grupo::nombreOperador(int codigo) const {
  if (!operadores_ || codigo == 0) return QString();
  TARVO_TOMAR(const auto hallado, operadores_->Seek(dao::Busca::Igual, codigo));
  return hallado ? operadores_->texto(operadores_->columna(u"NOMOPE")) : QString();
}

bool Grupo::Training(int n) const {
  const auto* o = posicion(operadoresGrupo_, n);
  return o && o->training;
}

void Grupo::Training(int n, bool si) {
  if (auto* o = posicion(operadoresGrupo_, n)) o->training = si;
}

float Grupo::TipoIVA(int n) const {
  const auto* tasa = posicion(ivas_, n);
  return tasa ? *tasa : 0;
}

void Grupo::TipoIVA(int n, float tasa) {
  if (auto* t = posicion(ivas_, n); t && tasa < 100) *t = tasa;
}

int Grupo::IVADepartam(int n) const {
  const auto* indice = posicion(ivaDepartamentos_, n);
  return indice ? *indice : 1;
}

void Grupo::IVADepartam(int n, int indice) {
  if (auto* i = posicion(ivaDepartamentos_, n); i && indice >= 1 && indice <= 5) *i = indice;
}

QString Grupo::NombreDepartamento(int n) const {
  const auto* nombre = posicion(nombresDepartamentos_, n);
  return nombre ? *nombre : QString();
}

Resultado<> Grupo::AbreOperadores(dao::Database& db) {
  if (operadores_) return {};
  TARVO_TOMAR(auto tabla, db.OpenTable(u"OPERS", u"CODOPE"));
  operadores_ = std::move(tabla);
  return {};
}

}  // namespace tarvo::devices
