#include <algorithm>

#include "comm/motor/Tarea.h"

namespace tarvo::motor {

namespace {

// clang-format off
const char16_t* const kNombresEstado[] = {
    u"En espera de ser procesado", u"Estableciendo conexión", u"Estableciendo conexión", u"Transfiriendo datos",
    u"Terminado", u"Rechazado por problemas de configuración", u"Interrumpido por algún problema",
    u"Retenido por el usuario", u"Interrumpido voluntariamente por el usuario"};

struct FilaClase {
  int numero;
  const char16_t *clave, *nombre, *mensaje, *titulo;
  std::vector<int> tipos;
};

std::vector<FilaClase> filasClases() {
  return {
    {1, u"TXPLUS", u"Tx Artículos", u"Artículos", u"Transmisión de PLUs", {1, 2, 3, 4}},
    {2, u"TXTECLA", u"Tx Teclados", u"Configuración de teclados", u"Transm. Configuración de teclado", {1, 2, 4}},
    {3, u"TXTICK", u"Tx Fmato. Ticket", u"Razón social en tickets", u"Transmisión Diseño de ticket", {1, 2, 4}},
    {4, u"TXCNFIG", u"Tx Conf. Grupo", u"Configuración de Grupos", u"Transm. Configuración de Grupo", {1, 4}},
    {5, u"TXCFBAL", u"Tx Conf. Bzas.", u"Configuración de Balanzas", u"Transm. Configuración Balanzas", {1, 4}},
    {6, u"TX_ZERO", u"!PUESTA A CERO!", u"Puesta a CERO", u"PUESTA A CERO DEL GRUPO", {1, 2, 3, 4}},
    {7, u"TX_HORA", u"Tx Fecha y Hora", u"Fecha y Hora de Sistema", u"Transmisión de Fecha y Hora", {1, 2, 4}},
    {8, u"TX_ETIQ", u"Etiquetas", u"Formatos de etiqueta", u"Transm. Formatos Etiqueta", {1, 4}},
    {9, u"TX_CERR", u"Cerrandio Tickets", u"Cerrar tickets abiertos", u"Cerrandio Tickets", {2}},
    {10, u"BORRPLU", u"Borrando PLUs", u"Borrar los artículos", u"Borrando PLUs", {2, 3}},
    {11, u"T_PRECI", u"Sólo Precios", u"Precios de los artículos", u"Transmisión de Precios en PLU", {1, 4}},
    {16, u"RXPLUS", u"Rx Tot. Artículos", u"Totales por artículos", u"Recogida de Totales por PLUs", {1, 2, 3, 4}},
    {17, u"RXGRTOT", u"Gran Total", u"Gran Total", u"Recogida de totales generales", {1, 2, 3, 4}},
    {18, u"RXOPERA", u"Tot. Operadores", u"Totales por Operadores", u"Recogida de totales por Operadores", {1, 2, 4}},
    {19, u"RXDEPAR", u"Tot. Departmtos", u"Totales por Departamentos", u"Recogida de totales por Departamentos", {1, 2, 3, 4}},
    {20, u"RXHORAR", u"Totales Horarios", u"Totales por Franja Horaria", u"Recogida de totales Horarios", {1, 4}},
    {21, u"RXOPHOR", u"Tot. Hora/Oper.", u"Cruzado operadores/horas", u"Recogida de Operadores/Horas", {1, 2, 4}},
    {22, u"RXPEDID", u"Pedidos Repos.", u"Pedidos de reposición", u"Recogida de Pedidos de Reposición", {1, 2, 4}},
    {23, u"RXINVEN", u"Inventarios", u"Inventarios", u"Recogida de Inventarios", {1, 4}},
    {24, u"", u"Rx Dat PLU", u"", u"", {1, 4}},
  };
}
// clang-format on

}  // namespace

QString TextoEstado(int estado) {
  if (estado < 0 || estado >= static_cast<int>(std::size(kNombresEstado))) return {};
  return QString::fromUtf16(kNombresEstado[estado]);
}

std::vector<ClaseTarea> TablaClases() {
  std::vector<ClaseTarea> salida;
  for (FilaClase& f : filasClases()) {
    ClaseTarea c;
    c.numero = f.numero;
    c.clave = f.clave, c.nombre = f.nombre, c.mensaje = f.mensaje, c.titulo = f.titulo;
    c.tipos = std::move(f.tipos);
    c.esTotal = f.numero >= 16 && f.numero <= 21;
    c.esLectura = f.numero >= 16 && f.numero <= 23;
    c.esOlvido = f.numero == 6 || f.numero == 10;
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
