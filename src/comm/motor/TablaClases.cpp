#include <algorithm>

#include "comm/motor/Tarea.h"
#include "comm/motor/TextosMotor.h"

namespace tarvo::motor {

namespace {

constexpr int kUltimoEstado = 8;

struct FilaClase {
  int numero;
  const char16_t* clave;
  std::vector<int> tipos;
};

std::vector<FilaClase> filasClases() {
  return {
      {1, u"TXPLUS", {1, 2, 3, 4}},   {2, u"TXTECLA", {1, 2, 4}},  {3, u"TXTICK", {1, 2, 4}},
      {4, u"TXCNFIG", {1, 4}},        {5, u"TXCFBAL", {1, 4}},     {6, u"TX_ZERO", {1, 2, 3, 4}},
      {7, u"TX_HORA", {1, 2, 4}},     {8, u"TX_ETIQ", {1, 4}},     {9, u"TX_CERR", {2}},
      {10, u"BORRPLU", {2, 3}},       {11, u"T_PRECI", {1, 4}},    {16, u"RXPLUS", {1, 2, 3, 4}},
      {17, u"RXGRTOT", {1, 2, 3, 4}}, {18, u"RXOPERA", {1, 2, 4}}, {19, u"RXDEPAR", {1, 2, 3, 4}},
      {20, u"RXHORAR", {1, 4}},       {21, u"RXOPHOR", {1, 2, 4}}, {22, u"RXPEDID", {1, 2, 4}},
      {23, u"RXINVEN", {1, 4}},       {24, u"", {1, 4}},
  };
}

}  // namespace

QString TextoEstado(int estado, const Textos& textos) {
  return estado < 0 || estado > kUltimoEstado ? QString() : textos(kTxEstado + estado);
}

std::vector<ClaseTarea> TablaClases() {
  std::vector<ClaseTarea> salida;
  for (FilaClase& f : filasClases()) {
    ClaseTarea c;
    c.numero = f.numero;
    c.clave = f.clave;
    c.nombre = kTxNombreClase + f.numero;
    c.mensaje = kTxMensajeClase + f.numero;
    c.titulo = kTxTituloClase + f.numero;
    c.tipos = std::move(f.tipos);
    c.esTotal = f.numero >= 16 && f.numero <= 21;
    c.esLectura = f.numero >= 16 && f.numero <= 23;
    c.esOlvido = f.numero == 6 || f.numero == 10;
    c.esBorrado = f.numero == 10;
    c.toleraErr5 = f.numero == 1 || f.numero == 24;
    salida.push_back(std::move(c));
  }
  return salida;
}

bool ClaseTarea::valePara(int tipo) const {
  return std::ranges::find(tipos, tipo) != tipos.end();
}

void RegistroTareas::anadir(ClaseTarea clase) {
  const auto it = std::ranges::find(clases_, clase.numero, &ClaseTarea::numero);
  if (it != clases_.end())
    *it = std::move(clase);
  else
    clases_.push_back(std::move(clase));
}

const ClaseTarea* RegistroTareas::porNumero(int numero) const {
  const auto it = std::ranges::find(clases_, numero, &ClaseTarea::numero);
  return it == clases_.end() ? nullptr : &*it;
}

const ClaseTarea* RegistroTareas::porClave(QStringView clave) const {
  if (clave.isEmpty()) return nullptr;
  const auto it = std::ranges::find_if(
      clases_, [&](const ClaseTarea& c) { return clave == QStringView(c.clave); });
  return it == clases_.end() ? nullptr : &*it;
}

}  // namespace tarvo::motor
