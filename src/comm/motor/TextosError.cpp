// The error table of the communications layers: docs/protocolos.md.
#include <algorithm>

#include "comm/motor/gestcomm.h"

namespace tarvo::motor {

namespace {

struct FilaError {
  int codigo;
  const char16_t* mensaje;
  const char16_t* detalle = u"";
};

// clang-format off
constexpr FilaError kErrores[] = {
    {1, u"Se ha inteb¡ntado operar con un canal cerrado"},
    {2, u"Se ha accedido a un canal con un error previo"},
    {3, u"Ha habido una sobreescritura en buffer de salida"},
    {4, u"Se intenta acceder a un puerto ocupado"},
    {5, u"Ha habido time out de transmisión"},
    {6, u"Ha habido time out de recepción"},
    {7, u"Trama mal recibida"},
    {8, u"Una trama NODAL no recibe confirmación"},
    {10, u"Problema modem: Está estropeado, o el cable mal conectado"},
    {11, u"Agotados todos los intentos: El teléfono no responde"},
    {13, u"El proceso ha sido interrumpido voluntariamente"},
    {14, u"Se ha intentado abrir un canal que el Sistema no tiene disponible"},
    {15, u"El enlace de datos intermedio está cerrado"},
    {16, u"Una trama VEK no ha tenido respuesta ACK"},
    {17, u"Una trama VEK no ha tenido respuesta lógica"},
    {18, u"Falla una de las señales CTS ó DSR",
         u"El cable puede desconectado o defectuoso o Si la conexión es directa, la balanza puede estar apagada"},
    {19, u"El grupo de balanzas ha rechazado la operación",
         u"Intentó borrar todos los PLUs sin previa puesta a cero o Intentó recibir totales con algún ticket abierto"},
    {20, u"Ha sido imposible desconectar la línea"},
    {21, u"Ha sido imposible desconectar la línea"},
    {22, u"Proceso suprimido por el autómata para evitar pérdida de datos"},
    {23, u"El equipo HOST tiene cerrado el puerto TCP"},
    {24, u"El conector ActiveX no dispone de enlace con el nombre solicitado"},
    {25, u"No se encuentra ningún modem telefónico conectado a este equipo"},
    {26, u"No se encuentra el HOST especificado"},
    {27, u"El enlace solicitado está en uso por otro canal"},
    {28, u"No se reconoce el dispositivo conectado al enlace"},
    {29, u"Se ha detectado una caída de portadora"},
    {30, u"Se ha detectado una caída en la conexión TCP/IP"},
    {31, u"El proceso de desconexión no se desarrolló correctamente"},
    {101, u"    'La trama recibida contiene datos erróneos' "},
    {102, u"    'La balanza conectada a su ordenador, no está en red' "},
    {103, u"    'Error en la comunicación de red interna' "},
    {104, u"    'Espacio de memoria agotado' "},
    {203, u"    'No hay portadora' "},
    {206, u"    'No hay tonalidad para marcar' "},
    {207, u"    'Se detecta señal de ocupado' "},
    {208, u"    'El teléfono no contesta' "},
};
// clang-format on

QString cabeceraError(int codigo) {
  if (codigo < 100) return {};
  if (codigo < 200)
    return QStringLiteral("Las balanzas han contestado el código de error:  %1").arg(codigo - 100);
  return QStringLiteral("El modem ha contestado el código de error:  %1").arg(codigo - 200);
}

}  // namespace

TextosError textosError(int codigo) {
  TextosError t;
  t.cabecera = cabeceraError(codigo);
  const auto* it = std::ranges::find(kErrores, codigo, &FilaError::codigo);
  if (it == std::end(kErrores)) return t;
  t.mensaje = QString::fromUtf16(it->mensaje);
  t.detalle = QString::fromUtf16(it->detalle);
  return t;
}

}  // namespace tarvo::motor
