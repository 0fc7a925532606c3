// The options of a group and of a scale.
#include <iterator>

#include "comm/maquinas/EscritorPieza.h"

namespace tarvo::maquinas {

namespace {

constexpr int kLargoEan13 = 12, kLargoEan8 = 7;
constexpr qint64 kPrimerTipoDeBarras = 22, kEan8 = 1;

// A whole number of per cents goes without its decimals.
qint64 tasa(qint64 centesimas) {
  return centesimas % 100 == 0 ? centesimas / 100 : centesimas;
}

}  // namespace

Piezas piezasDeGrupo(TipoGrupo tipo, const OpcionesDeGrupo& o) {
  const bool birch = tipo == TipoGrupo::Birch;
  Piezas salida;
  const auto una = [&](Asunto asunto, int codigo, int numero = 0) {
    return EscritorPieza(tipo, asunto, codigo, numero);
  };
  const QString partes = birch ? o.TK_FLAGS : o.TK_FLAGS.left(5);
  salida.push_back(
      una(Asunto::PartesDelTicket, 310).texto(partes, static_cast<int>(partes.size())).pieza());
  salida.push_back(
      una(Asunto::CopiaDelTicket, 330).numero(o.TK_CPIA, 1).numero(o.TK_TCOP, 2).pieza());
  salida.push_back(una(Asunto::FormatosDeCodigo, 240)
                       .formatoDeCodigo(o.E13_PE, kLargoEan13)
                       .formatoDeCodigo(o.E08_PE, kLargoEan8)
                       .formatoDeCodigo(o.E13_CU, kLargoEan13)
                       .formatoDeCodigo(o.E08_CU, kLargoEan8)
                       .pieza());
  for (int n = 1; n <= static_cast<int>(o.IVA.size()); ++n)
    salida.push_back(una(Asunto::Iva, 90, n)
                         .numero(n, 1)
                         .numero(tasa(o.IVA[static_cast<size_t>(n - 1)]), 4)
                         .pieza());
  for (int n = 1; n <= std::ssize(o.departamentos); ++n) {
    const auto& d = o.departamentos[static_cast<size_t>(n - 1)];
    auto e = una(Asunto::Departamento, 80, n).numero(n, 2).numero(d.iva, 1);
    if (birch) e.texto(d.nombre, 20);
    salida.push_back(e.pieza());
  }
  salida.push_back(una(Asunto::EsperaDeTecla, 210).numero(o.TOTE, 2).pieza());
  salida.push_back(una(Asunto::EsperaDePlu, 220).numero(o.TOCO, 2).pieza());
  salida.push_back(una(Asunto::Pitido, 260).siNo(o.PITO).pieza());
  salida.push_back(una(Asunto::SalidaDelTotal, 340).siNo(o.SALT).pieza());
  salida.push_back(una(Asunto::NumerosComoPrecios, 270).siNo(o.PRLI).pieza());
  for (int n = 1; n <= std::ssize(o.operadores); ++n) {
    const auto& op = o.operadores[static_cast<size_t>(n - 1)];
    auto e = una(Asunto::Operador, 30, n).numero(n, 2).texto(op.nombre, 16).siNo(op.training);
    if (op.falta != 0) e.distinta(Causa::OperadorQueFalta, QString::number(op.falta));
    salida.push_back(e.pieza());
  }
  return salida;
}

Piezas piezasDeBalanza(TipoGrupo tipo, const OpcionesDeBalanza& o, bool conDepartamentos) {
  Piezas salida;
  const auto una = [&](Asunto asunto, int codigo) { return EscritorPieza(tipo, asunto, codigo); };
  salida.push_back(una(Asunto::Mensaje, 20)
                       .texto(o.MESSAG, 200, o.finDeMensajeLargo ? "\x13" : "\r")
                       .numero(o.MESS_R, 2)
                       .numero(o.MESS_T, 1)
                       .pieza());
  const bool ean8 = o.TIPO_BC == kEan8;
  auto permisos = una(Asunto::Permisos, 250);
  for (const bool si : o.permisos) permisos.siNo(si);
  salida.push_back(permisos.pieza());
  salida.push_back(una(Asunto::BarrasDelTicket, 320)
                       .siNo(o.HABIL_BC)
                       .caracter(kPrimerTipoDeBarras + o.TIPO_BC - 1)
                       .numero(o.FIJO_BC, 7)
                       .formatoDeCodigo(o.FORMA_BC, kLargoEan13, !ean8)
                       .formatoDeCodigo(o.FORMA_BC, kLargoEan8, ean8)
                       .pieza());
  salida.push_back(
      una(Asunto::CodigoDePlu, 230).numero(o.DIGIT_PLU, 1).numero(o.FIJO_PLU, 5).pieza());
  auto casetes = una(Asunto::Casetes, 200);
  for (size_t i = 0; i < o.modos.size(); ++i)
    casetes.numero(o.modos[i], 1).numero(o.operadores[i], 2);
  salida.push_back(casetes.pieza());
  if (conDepartamentos)
    salida.push_back(una(Asunto::UsoDeDepartamentos, 360).siNo(o.HABIL_DEP).pieza());
  return salida;
}

}  // namespace tarvo::maquinas
