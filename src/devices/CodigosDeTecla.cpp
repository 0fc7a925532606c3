#include "devices/CodigosDeTecla.h"

#include <algorithm>

#include "devices/TextosDevices.h"

namespace tarvo::devices {

namespace {

constexpr int kNumericas = 11, kBasePlu = 20, kBaseOperador = 130, kBaseTara = 162,
              kBaseDepartamento = 182;
constexpr int kOperadores = 20, kTotales = 4;

constexpr int primero(TipoTecla tipo) {
  return tipo == TipoTecla::Numerica ? 0 : 1;
}

}  // namespace

int CodigosDeTecla::maximo(TipoTecla tipo) const {
  switch (tipo) {
    case TipoTecla::Numerica:
      return kNumericas;
    case TipoTecla::PluDirecto:
      return kPlusDirectos;
    case TipoTecla::Operador:
      return kOperadores;
    case TipoTecla::Tara:
      return kTarasDirectas;
    case TipoTecla::Departamento:
      return espanol() ? 0 : maxDeptos();
    case TipoTecla::Total:
      return espanol() ? 0 : kTotales;
    case TipoTecla::Funcion:
      return 0;
  }
  return 0;
}

std::optional<int> CodigosDeTecla::codigo(TipoTecla tipo, int numero) const {
  if (tipo == TipoTecla::Funcion || numero < primero(tipo) || numero > maximo(tipo)) return {};
  switch (tipo) {
    case TipoTecla::Numerica:
    case TipoTecla::Funcion:
      return numero;
    case TipoTecla::PluDirecto:
      return kBasePlu + numero;
    case TipoTecla::Operador:
      return kBaseOperador + numero;
    case TipoTecla::Tara:
      return kBaseTara + numero;
    case TipoTecla::Departamento:
      return kBaseDepartamento + numero;
    case TipoTecla::Total:
      return baseTotales() + numero;
  }
  return {};
}

TipoTecla CodigosDeTecla::tipo(int codigo) const {
  using enum TipoTecla;
  for (const TipoTecla t : {Numerica, PluDirecto, Operador, Tara, Departamento, Total}) {
    const auto desde = this->codigo(t, primero(t)), hasta = this->codigo(t, maximo(t));
    if (desde && hasta && codigo >= *desde && codigo <= *hasta) return t;
  }
  return Funcion;
}

int CodigosDeTecla::numero(int codigo) const {
  const TipoTecla t = tipo(codigo);
  if (t == TipoTecla::Funcion) return 0;
  return codigo - *this->codigo(t, primero(t)) + primero(t);
}

std::vector<CodigosDeTecla::Funcion> CodigosDeTecla::funciones(bool birch) const {
  std::vector<Funcion> lista{
      {textos_(kTxFuncionTecla + 0), 12},   {textos_(kTxFuncionTecla + 1), 13},
      {textos_(kTxFuncionTecla + 2), 14},   {textos_(kTxFuncionTecla + 3), 15},
      {textos_(kTxFuncionTecla + 4), 16},   {textos_(kTxFuncionTecla + 5), 17},
      {textos_(kTxFuncionTecla + 6), 18},   {textos_(kTxFuncionTecla + 7), 19},
      {textos_(kTxFuncionTecla + 8), 20},   {textos_(kTxFuncionTecla + 9), 151},
      {textos_(kTxFuncionTecla + 10), 152}, {textos_(kTxFuncionTecla + 11), 153},
      {textos_(kTxFuncionTecla + 12), 154}, {textos_(kTxFuncionTecla + 13), 155},
      {textos_(kTxFuncionTecla + 14), 156}, {textos_(kTxFuncionTecla + 15), 157},
      {textos_(kTxFuncionTecla + 16), 158}, {textos_(kTxFuncionTecla + 17), 159},
      {textos_(kTxFuncionTecla + 18), 160}, {textos_(kTxFuncionTecla + 19), 161},
      {textos_(kTxFuncionTecla + 20), 162}};
  if (espanol()) lista.push_back({textos_(kTxFuncionTecla + 21), 183});
  lista.push_back({textos_(kTxFuncionTecla + 22), baseTotales()});
  if (birch)
    lista.push_back({textos_(kTxFuncionTecla + 23), 199});
  else if (espanol())
    lista.push_back({textos_(kTxFuncionTecla + 24), 185});
  if (!espanol()) lista.push_back({textos_(kTxFuncionTecla + 25), baseTotales() + 5});
  lista.push_back({textos_(kTxFuncionTecla + 26), kTeclaNula});
  return lista;
}

QString CodigosDeTecla::nombre(int codigo, bool birch) const {
  const TipoTecla t = tipo(codigo);
  if (t != TipoTecla::Funcion)
    return textos_(kTxTeclaDeTipo + static_cast<int>(t), {numero(codigo)});
  const auto todas = funciones(birch);
  const auto esta = std::ranges::find(todas, codigo, &Funcion::codigo);
  return esta == todas.end() ? QString() : esta->nombre;
}

}  // namespace tarvo::devices
