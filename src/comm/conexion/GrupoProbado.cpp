#include "comm/conexion/GrupoProbado.h"

#include <utility>

#include "comm/cables/Parametros.h"
#include "comm/conexion/TextosConexion.h"

namespace tarvo::conexion {

namespace {

// The text of what the access lacks; 0 for nothing.
int faltaDe(const devices::Grupo& grupo) {
  const bool vacio = grupo.Telefono.section(u':', 0, 0).trimmed().isEmpty();
  switch (grupo.Acceso.value_or(TipoAcceso::Ninguno)) {
    case TipoAcceso::Ninguno:
      return kTxNoComunica;
    case TipoAcceso::Directo:
      return 0;
    case TipoAcceso::Modem:
    case TipoAcceso::Conector:
      return vacio ? kTxSinAcceso : 0;
    case TipoAcceso::TcpIp:
      return enlace::seAbrePorTcp(grupo.Telefono) ? 0 : kTxSinPuerto;
  }
  std::unreachable();
}

MaquinaProbada pedida(int sitio, const devices::Miembro& miembro) {
  if (const auto* caja = std::get_if<devices::Registradora>(&miembro))
    return {.sitio = sitio, .direccion = caja->Direccion};
  return {.sitio = sitio, .modelo = std::get<devices::Balanza>(miembro).tipo()};
}

}  // namespace

Resultado<GrupoProbado> grupoProbado(const devices::Grupo& grupo, const Textos& textos) {
  if (!grupo.tipo() || grupo.LasBalanzas.empty())
    return fallo(Fallo::Restriccion, textos(kTxSinMaquinas));
  if (const int falta = faltaDe(grupo); falta != 0) return fallo(Fallo::Restriccion, textos(falta));
  GrupoProbado p;
  p.tipo = *grupo.tipo();
  p.remoto = *grupo.Acceso;
  p.canal = grupo.Canal - 1;
  if (p.remoto != TipoAcceso::Directo) p.acceso = grupo.Telefono;
  p.baudios = grupo.Baudios;
  p.nodo = grupo.NumGpo;
  for (const auto& [sitio, miembro] : grupo.LasBalanzas)
    p.maquinas.push_back(pedida(sitio, miembro));
  return p;
}

}  // namespace tarvo::conexion
