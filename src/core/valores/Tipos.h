// The meanings of numbers in the database, files and frames. A number comes in by deNumero() and
// goes out by numeroDe(); in between there is only the type. Each `existe` lists all values of its
// type, so that the compiler flags every switch that lacks a new one.
#pragma once

#include <QtGlobal>
#include <concepts>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace tarvo {

// The kind of machines in a group: GRUPOS.TIPO.
enum class TipoGrupo : int { Balanzas = 1, Ebony = 2, Registradoras = 3, Birch = 4 };

// How a group is reached (GRUPOS.remoto) and how a channel is used (Device of TARVO.INI). Ninguno:
// the group doesn't communicate, or the channel isn't in use.
enum class TipoAcceso : int { Ninguno = 0, Modem = 1, Directo = 2, TcpIp = 3, Conector = 4 };

// The format of frames.
enum class Protocolo : int { Vek = 1, Nodal = 2 };

// The kinds of task, by their keywords in the process language.
enum class TipoTarea : int {
  TxPlus = 1,
  TxTecla = 2,
  TxTick = 3,
  TxCnfig = 4,
  TxCfBal = 5,
  TxZero = 6,
  TxHora = 7,
  TxEtiq = 8,
  TxCerr = 9,
  BorrPlu = 10,
  TPreci = 11,
  RxPlus = 16,
  RxGrTot = 17,
  RxOpera = 18,
  RxDepar = 19,
  RxHorar = 20,
  RxOpHor = 21,
  RxPedid = 22,
  RxInven = 23,
  RxDatPlu = 24,  // no keyword: only started by a person
};

// The kinds of totals, by the number that their rows have in the database (CLASE).
enum class TipoTotal : int {
  PLUs = 16,
  GranTotal = 17,
  Operadores = 18,
  Departamentos = 19,
  Horario = 20,
  OperHora = 21,
};

constexpr bool existe(TipoGrupo t) {
  switch (t) {
    case TipoGrupo::Balanzas:
    case TipoGrupo::Ebony:
    case TipoGrupo::Registradoras:
    case TipoGrupo::Birch:
      return true;
  }
  return false;
}
constexpr bool existe(TipoAcceso t) {
  switch (t) {
    case TipoAcceso::Ninguno:
    case TipoAcceso::Modem:
    case TipoAcceso::Directo:
    case TipoAcceso::TcpIp:
    case TipoAcceso::Conector:
      return true;
  }
  return false;
}
constexpr bool existe(TipoTarea t) {
  switch (t) {
    case TipoTarea::TxPlus:
    case TipoTarea::TxTecla:
    case TipoTarea::TxTick:
    case TipoTarea::TxCnfig:
    case TipoTarea::TxCfBal:
    case TipoTarea::TxZero:
    case TipoTarea::TxHora:
    case TipoTarea::TxEtiq:
    case TipoTarea::TxCerr:
    case TipoTarea::BorrPlu:
    case TipoTarea::TPreci:
    case TipoTarea::RxPlus:
    case TipoTarea::RxGrTot:
    case TipoTarea::RxOpera:
    case TipoTarea::RxDepar:
    case TipoTarea::RxHorar:
    case TipoTarea::RxOpHor:
    case TipoTarea::RxPedid:
    case TipoTarea::RxInven:
    case TipoTarea::RxDatPlu:
      return true;
  }
  return false;
}

constexpr bool existe(TipoTotal t) {
  switch (t) {
    case TipoTotal::PLUs:
    case TipoTotal::GranTotal:
    case TipoTotal::Operadores:
    case TipoTotal::Departamentos:
    case TipoTotal::Horario:
    case TipoTotal::OperHora:
      return true;
  }
  return false;
}

// The kind of totals that a task reads; nothing for a task that reads none.
constexpr std::optional<TipoTotal> totalDe(TipoTarea t) {
  switch (t) {
    case TipoTarea::RxPlus:
      return TipoTotal::PLUs;
    case TipoTarea::RxGrTot:
      return TipoTotal::GranTotal;
    case TipoTarea::RxOpera:
      return TipoTotal::Operadores;
    case TipoTarea::RxDepar:
      return TipoTotal::Departamentos;
    case TipoTarea::RxHorar:
      return TipoTotal::Horario;
    case TipoTarea::RxOpHor:
      return TipoTotal::OperHora;
    case TipoTarea::TxPlus:
    case TipoTarea::TxTecla:
    case TipoTarea::TxTick:
    case TipoTarea::TxCnfig:
    case TipoTarea::TxCfBal:
    case TipoTarea::TxZero:
    case TipoTarea::TxHora:
    case TipoTarea::TxEtiq:
    case TipoTarea::TxCerr:
    case TipoTarea::BorrPlu:
    case TipoTarea::TPreci:
    case TipoTarea::RxPedid:
    case TipoTarea::RxInven:
    case TipoTarea::RxDatPlu:
      return std::nullopt;
  }
  return std::nullopt;
}
constexpr bool esDeTotales(TipoTarea t) {
  return totalDe(t).has_value();
}
// The task that reads a kind of totals.
constexpr TipoTarea lecturaDe(TipoTotal t) {
  switch (t) {
    case TipoTotal::PLUs:
      return TipoTarea::RxPlus;
    case TipoTotal::GranTotal:
      return TipoTarea::RxGrTot;
    case TipoTotal::Operadores:
      return TipoTarea::RxOpera;
    case TipoTotal::Departamentos:
      return TipoTarea::RxDepar;
    case TipoTotal::Horario:
      return TipoTarea::RxHorar;
    case TipoTotal::OperHora:
      return TipoTarea::RxOpHor;
  }
  std::unreachable();
}

// No type has a greater number.
inline constexpr int kMayorNumeroDeTipo = 31;

template <class E>
concept TipoNumerado = std::is_scoped_enum_v<E> && requires(E e) {
  { existe(e) } -> std::same_as<bool>;
};

// Nothing for a number that stands for no value.
template <TipoNumerado E>
constexpr std::optional<E> deNumero(qint64 n) {
  if (n < 0 || n > kMayorNumeroDeTipo || !existe(static_cast<E>(n))) return std::nullopt;
  return static_cast<E>(n);
}

template <TipoNumerado E>
constexpr int numeroDe(E e) {
  return std::to_underlying(e);
}
template <TipoNumerado E>
constexpr int numeroDe(std::optional<E> e, int ninguno) {
  return e ? numeroDe(*e) : ninguno;
}

// All values of a type, by number.
template <TipoNumerado E>
std::vector<E> todosLos() {
  std::vector<E> todos;
  todos.reserve(kMayorNumeroDeTipo);
  for (int n = 0; n <= kMayorNumeroDeTipo; ++n)
    if (const auto e = deNumero<E>(n)) todos.push_back(*e);
  return todos;
}

// Machines of kind 2 speak one protocol, all others the other.
constexpr Protocolo protocoloDe(TipoGrupo tipo) {
  return tipo == TipoGrupo::Ebony ? Protocolo::Nodal : Protocolo::Vek;
}

}  // namespace tarvo
