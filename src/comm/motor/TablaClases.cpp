#include <algorithm>
#include <utility>

#include "comm/motor/Tarea.h"
#include "comm/motor/TextosMotor.h"

namespace tarvo::motor {

namespace {

constexpr int kUltimoEstado = 8;

struct FilaClase {
  const char16_t* clave;
  std::vector<TipoGrupo> tipos;
};

FilaClase filaDe(TipoTarea tarea) {
  using enum TipoGrupo;
  switch (tarea) {
    case TipoTarea::TxPlus:
      return {u"TXPLUS", {Balanzas, Ebony, Registradoras, Birch}};
    case TipoTarea::TxTecla:
      return {u"TXTECLA", {Balanzas, Ebony, Birch}};
    case TipoTarea::TxTick:
      return {u"TXTICK", {Balanzas, Ebony, Birch}};
    case TipoTarea::TxCnfig:
      return {u"TXCNFIG", {Balanzas, Birch}};
    case TipoTarea::TxCfBal:
      return {u"TXCFBAL", {Balanzas, Birch}};
    case TipoTarea::TxZero:
      return {u"TX_ZERO", {Balanzas, Ebony, Registradoras, Birch}};
    case TipoTarea::TxHora:
      return {u"TX_HORA", {Balanzas, Ebony, Birch}};
    case TipoTarea::TxEtiq:
      return {u"TX_ETIQ", {Balanzas, Birch}};
    case TipoTarea::TxCerr:
      return {u"TX_CERR", {Ebony}};
    case TipoTarea::BorrPlu:
      return {u"BORRPLU", {Ebony, Registradoras}};
    case TipoTarea::TPreci:
      return {u"T_PRECI", {Balanzas, Birch}};
    case TipoTarea::RxPlus:
      return {u"RXPLUS", {Balanzas, Ebony, Registradoras, Birch}};
    case TipoTarea::RxGrTot:
      return {u"RXGRTOT", {Balanzas, Ebony, Registradoras, Birch}};
    case TipoTarea::RxOpera:
      return {u"RXOPERA", {Balanzas, Ebony, Birch}};
    case TipoTarea::RxDepar:
      return {u"RXDEPAR", {Balanzas, Ebony, Registradoras, Birch}};
    case TipoTarea::RxHorar:
      return {u"RXHORAR", {Balanzas, Birch}};
    case TipoTarea::RxOpHor:
      return {u"RXOPHOR", {Balanzas, Ebony, Birch}};
    case TipoTarea::RxPedid:
      return {u"RXPEDID", {Balanzas, Ebony, Birch}};
    case TipoTarea::RxInven:
      return {u"RXINVEN", {Balanzas, Birch}};
    case TipoTarea::RxDatPlu:
      return {u"", {Balanzas, Birch}};
  }
  std::unreachable();
}

void ponerRasgos(ClaseTarea& c) {
  c.total = totalDe(c.tarea);
  c.esLectura = c.total.has_value();
  switch (c.tarea) {
    case TipoTarea::RxPedid:
    case TipoTarea::RxInven:
      c.esLectura = true;
      return;
    case TipoTarea::BorrPlu:
      c.esOlvido = c.esBorrado = true;
      return;
    case TipoTarea::TxZero:
      c.esOlvido = true;
      return;
    case TipoTarea::TxPlus:
    case TipoTarea::RxDatPlu:
      c.toleraErr5 = true;
      return;
    case TipoTarea::TxTecla:
    case TipoTarea::TxTick:
    case TipoTarea::TxCnfig:
    case TipoTarea::TxCfBal:
    case TipoTarea::TxHora:
    case TipoTarea::TxEtiq:
    case TipoTarea::TxCerr:
    case TipoTarea::TPreci:
    case TipoTarea::RxPlus:
    case TipoTarea::RxGrTot:
    case TipoTarea::RxOpera:
    case TipoTarea::RxDepar:
    case TipoTarea::RxHorar:
    case TipoTarea::RxOpHor:
      return;
  }
}

}  // namespace

QString TextoEstado(int estado, const Textos& textos) {
  return estado < 0 || estado > kUltimoEstado ? QString() : textos(kTxEstado + estado);
}

std::vector<ClaseTarea> TablaClases() {
  std::vector<ClaseTarea> salida;
  for (const TipoTarea tarea : todosLos<TipoTarea>()) {
    FilaClase f = filaDe(tarea);
    ClaseTarea& c = salida.emplace_back();
    c.tarea = tarea;
    c.clave = f.clave;
    c.nombre = kTxNombreClase + numeroDe(tarea);
    c.mensaje = kTxMensajeClase + numeroDe(tarea);
    c.titulo = kTxTituloClase + numeroDe(tarea);
    c.tipos = std::move(f.tipos);
    ponerRasgos(c);
  }
  return salida;
}

bool ClaseTarea::valePara(TipoGrupo tipo) const {
  return std::ranges::find(tipos, tipo) != tipos.end();
}

void RepertorioTareas::anadir(ClaseTarea clase) {
  const auto it = std::ranges::find(clases_, clase.tarea, &ClaseTarea::tarea);
  if (it != clases_.end())
    *it = std::move(clase);
  else
    clases_.push_back(std::move(clase));
}

const ClaseTarea* RepertorioTareas::de(TipoTarea tarea) const {
  const auto it = std::ranges::find(clases_, tarea, &ClaseTarea::tarea);
  return it == clases_.end() ? nullptr : &*it;
}

const ClaseTarea* RepertorioTareas::porClave(QStringView clave) const {
  if (clave.isEmpty()) return nullptr;
  const auto it = std::ranges::find_if(
      clases_, [&](const ClaseTarea& c) { return clave == QStringView(c.clave); });
  return it == clases_.end() ? nullptr : &*it;
}

}  // namespace tarvo::motor
