#include "comm/conexion/Palabras.h"

#include <algorithm>
#include <utility>

#include "comm/conexion/TextosConexion.h"
#include "comm/enlace/Errores.h"
#include "devices/Modelos.h"

namespace tarvo::conexion {

namespace {

bool esMaquina(const Contestacion& c) {
  return c.sitio != Contestacion::kAcceso && c.que != Que::Sobra;
}
// It is alive and spoke to us.
bool contesto(const Contestacion& c) {
  return c.que == Que::Contesta || c.que == Que::Rechaza;
}

QString accesoDe(const GrupoProbado& p, const Textos& textos) {
  switch (p.remoto) {
    case TipoAcceso::Modem:
      return textos(kTxAlTelefono, {p.acceso});
    case TipoAcceso::TcpIp:
      return textos(kTxPorRed, {p.acceso});
    case TipoAcceso::Conector:
      return textos(kTxPorConector, {p.acceso});
    case TipoAcceso::Directo:
    case TipoAcceso::Ninguno:
      return textos(kTxPorCable, {p.canal + 1});
  }
  std::unreachable();
}

int consejoDeApertura(int error, TipoAcceso remoto) {
  switch (error) {
    case enlace::kErrorSenales:
      return kTxMiraCableSuelto;
    case enlace::kErrorEnUso:
      return kTxLineaOcupada;
    case enlace::kErrorSinConector:
      return kTxMiraConector;
    case enlace::kErrorSinHost:
      return kTxMiraHost;
    case enlace::kErrorPuertoTcp:
      return kTxMiraPuertoTcp;
    case enlace::kErrorModem:
    case enlace::kErrorSinModem:
      return kTxMiraModem;
    default:
      break;
  }
  switch (remoto) {
    case TipoAcceso::Modem:
      return error == enlace::kErrorPuerto ? kTxMiraModem : kTxMiraTelefono;
    case TipoAcceso::Directo:
      return kTxMiraPuerto;
    case TipoAcceso::TcpIp:
      return kTxMiraHost;
    case TipoAcceso::Conector:
      return kTxMiraOtroLado;
    case TipoAcceso::Ninguno:
      break;
  }
  return 0;
}

// The line is open, and there is nobody at its end.
QString consejoDeSilencio(const Contestacion& c, const GrupoProbado& p, const Textos& textos) {
  QString s = p.remoto == TipoAcceso::Directo    ? textos(kTxMiraCable, {p.canal + 1})
              : p.remoto == TipoAcceso::Conector ? textos(kTxMiraOtroLado)
                                                 : textos(kTxMiraTrasAparato);
  if (p.tipo == TipoGrupo::Ebony) s += u' ' + textos(kTxMiraDireccion, {p.nodo});
  if (c.direccion) s += u' ' + textos(kTxMiraDireccion, {*c.direccion});
  return s;
}

}  // namespace

QString nombreDe(const Contestacion& c, const GrupoProbado& p, const Textos& textos) {
  if (c.sitio == Contestacion::kAcceso) return accesoDe(p, textos);
  const int numero = c.sitio + 1;
  if (c.que == Que::Sobra) return textos(kTxBalanzaNumero, {numero});
  if (p.tipo != TipoGrupo::Registradoras)
    return textos(kTxSitioBalanza, {numero, devices::NombreModelo(c.modelo)});
  return c.direccion ? textos(kTxCajaConDireccion, {numero, *c.direccion})
                     : textos(kTxCajaSinDireccion, {numero});
}

QString palabraDe(Que que, const Textos& textos) {
  return textos(kTxQue + static_cast<int>(que));
}

QString queMirar(const Contestacion& c, const GrupoProbado& p, const Textos& textos) {
  switch (c.que) {
    case Que::Pendiente:
    case Que::Preguntando:
    case Que::Abierto:
    case Que::Contesta:
    case Que::SinProbar:
      return {};
    case Que::Sobra:
      return textos(kTxMiraSobra, {c.sitio + 1});
    case Que::NoEsta:
      return textos(kTxMiraNoEsta, {c.sitio + 1});
    case Que::NoContesta:
      return consejoDeSilencio(c, p, textos);
    case Que::AMedias:
      return textos(kTxMiraAMedias);
    case Que::Ruido:
      return textos(kTxMiraVelocidad);
    case Que::Rechaza:
      return textos(kTxMiraRechaza);
    case Que::Cortado:
      return textos(kTxMiraCorte);
    case Que::NoAbre:
      return textos(consejoDeApertura(c.error, p.remoto));
    case Que::SinDireccion:
    case Que::MismaDireccion:
      return textos(kTxMiraSuDireccion);
  }
  std::unreachable();
}

bool todoBien(const Prueba& prueba) {
  return std::ranges::all_of(prueba.contestaciones(), [](const Contestacion& c) {
    return c.que == Que::Abierto || c.que == Que::Contesta;
  });
}

QString resumen(const Prueba& prueba, const Textos& textos) {
  const auto& filas = prueba.contestaciones();
  const auto cuantas = [&](const auto& cual) {
    return static_cast<int>(std::ranges::count_if(filas, cual));
  };
  const int todas = cuantas(esMaquina), vivas = cuantas(contesto);
  const int otras = cuantas([](const Contestacion& c) { return c.que == Que::Sobra; });
  if (prueba.error()) return prueba.error()->texto;
  switch (prueba.fin()) {
    case Prueba::Fin::Cedida:
      return Plural(textos(kTxCedida, {todas}), vivas);
    case Prueba::Fin::Parada:
      return Plural(textos(kTxParada, {todas}), vivas);
    case Prueba::Fin::Entera:
      break;
  }
  if (filas.front().que == Que::NoAbre)
    return textos(kTxNoSeLlega, {nombreDe(filas.front(), prueba.grupo(), textos)});
  const QString de = vivas == todas ? Plural(textos(kTxTodasContestan), todas)
                     : vivas == 0   ? textos(kTxNingunaContesta)
                                    : Plural(textos(kTxAlgunasContestan, {todas}), vivas);
  return otras == 0 ? de : de + u' ' + Plural(textos(kTxOtrasContestan), otras);
}

}  // namespace tarvo::conexion
