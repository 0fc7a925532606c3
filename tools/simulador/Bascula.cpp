#include "simulador/Bascula.h"

#include <algorithm>

#include "simulador/Fichas.h"
#include "simulador/RegistrosBascula.h"

namespace tarvo::simulador {
namespace {

constexpr int kDatosMalos = 1, kRedInterna = 3, kNoExiste = 5;
constexpr std::size_t kTramasPorCodigo = 500;

template <class Mapa, class Clave>
Cuenta cuentaDe(const Mapa& mapa, const Clave& clave) {
  const auto sitio = mapa.find(clave);
  return sitio == mapa.end() ? Cuenta{} : sitio->second;
}

}  // namespace

Bascula::Bascula(OpcionesMaquina opciones, Reloj& reloj)
    : MaquinaVEK(std::move(opciones), reloj, false) {}

bool Bascula::esParaMi(const Peticion& peticion) const {
  return peticion.estacion == 0 || peticion.estacion == opciones().estacion;
}

Respuesta Bascula::atender(const Peticion& peticion) {
  const std::vector<int>& balanzas = opciones().balanzas;
  if (peticion.addr > 0 && !balanzas.empty() &&
      std::ranges::find(balanzas, peticion.addr - 1) == balanzas.end())
    return negar(kRedInterna);
  switch (peticion.codigo) {
    case 10:
      return ponerHora(peticion.datos) ? con({}) : negar(kDatosMalos);
    case 100:
      return guardarArticulo(peticion.datos);
    case 101:
      return articuloOPrecio(peticion.datos);
    case 120:
      return borrarArticulo(peticion.datos);
    case 570:
      return con(puestos());
    case 610:
      return lineas(peticion.datos);
    case 880:
      return olvidar(peticion.datos);
    case 910:  // both clear all counters; a group gets 915 first
    case 915:
      cero(peticion.codigo, kTodos);
      return con({});
    default:
      return peticion.codigo >= 800 ? total(peticion) : configurar(peticion);
  }
}

Respuesta Bascula::total(const Peticion& peticion) {
  const Contadores& contadores = memoria_.contadores();
  const qint64 dos = leerCampo(peticion.datos, 0, 2), siete = leerCampo(peticion.datos, 0, 7);
  const int n = static_cast<int>(dos), articulo = static_cast<int>(siete);
  if (peticion.codigo == (birch() ? 860 : 850))
    return con(birch() ? registroGranTotalBirch(contadores.granTotal)
                       : registroGranTotal(contadores.granTotal));
  if (dos < 0) return negar(kDatosMalos);
  switch (peticion.codigo) {
    case 800:
      return con(registroOperador(n, cuentaDe(contadores.operadores, n)));
    case 810:
      return con(registroSeccionado(n, cuentaDe(contadores.departamentos, n)));
    case 820:
      return operadorHora(peticion);
    case 830:
      return siete < 0 ? negar(kDatosMalos)
                       : con(registroArticulo(articulo, cuentaDe(contadores.articulos, articulo)));
    case 835:
      return articuloConVentas(siete);
    case 840:
      return con(registroSeccionado(n, cuentaDe(contadores.horas, n)));
    default:
      return negar(kDatosMalos);
  }
}

// The first article with sales at or above the requested one; number 0 if there is none.
Respuesta Bascula::articuloConVentas(qint64 desde) {
  if (desde < 0) return negar(kDatosMalos);
  const auto& articulos = memoria_.contadores().articulos;
  auto sitio = articulos.lower_bound(static_cast<int>(desde));
  if (sitio == articulos.end() && !articulos.empty() && sinFin()) sitio = articulos.begin();
  return con(sitio == articulos.end() ? registroArticulo(0, {})
                                      : registroArticulo(sitio->first, sitio->second));
}

// The first operator and hour with sales at or after the requested ones; zeros if there are none.
Respuesta Bascula::operadorHora(const Peticion& peticion) {
  const qint64 operador = leerCampo(peticion.datos, 0, 2), hora = leerCampo(peticion.datos, 2, 2);
  if (operador < 0 || hora < 0) return negar(kDatosMalos);
  const auto& cruce = memoria_.contadores().operHora;
  auto sitio = cruce.lower_bound({static_cast<int>(operador), static_cast<int>(hora)});
  if (sitio == cruce.end() && !cruce.empty() && sinFin()) sitio = cruce.begin();
  if (sitio == cruce.end()) return con(registroOperadorHora(0, 0, {}));
  return con(registroOperadorHora(sitio->first.first, sitio->first.second, sitio->second));
}

Respuesta Bascula::guardarArticulo(const QByteArray& datos) {
  const auto articulo = leerFichaBalanza(datos);
  if (!articulo) return negar(kDatosMalos);
  memoria_.catalogo[articulo->codigo] = *articulo;
  memoria_.cambiada();
  return con({});
}

// Seven digits ask for the first article at or above a number; twenty-five change the prices of
// one.
Respuesta Bascula::articuloOPrecio(const QByteArray& datos) {
  const auto codigo = static_cast<int>(leerCampo(datos, 0, 7));
  if (codigo < 0 || (datos.size() != 7 && datos.size() != 25)) return negar(kDatosMalos);
  if (datos.size() == 7) {
    const auto sitio = memoria_.catalogo.lower_bound(codigo);
    return sitio == memoria_.catalogo.end() ? negar(kNoExiste) : con(fichaBalanza(sitio->second));
  }
  const auto sitio = memoria_.catalogo.find(codigo);
  if (sitio == memoria_.catalogo.end()) return negar(kNoExiste);
  const qint64 precio = leerCampo(datos, 7, 6);
  if (precio < 0) return negar(kDatosMalos);
  Articulo& articulo = sitio->second;
  articulo.precio = precio;
  if (!articulo.ficha.isEmpty())
    articulo.ficha.replace(27, 6, datos.mid(7, 6))
        .replace(72, 6, datos.mid(13, 6))
        .replace(83, 6, datos.mid(19, 6));
  memoria_.cambiada();
  return con({});
}

Respuesta Bascula::borrarArticulo(const QByteArray& datos) {
  const auto codigo = static_cast<int>(leerCampo(datos, 0, 7));
  if (codigo < 0) return negar(kDatosMalos);
  memoria_.catalogo.erase(codigo);
  memoria_.cambiada();
  return con({});
}

// Three digits of a position and "0" for the order, "1" for the inventory.
Respuesta Bascula::lineas(const QByteArray& datos) {
  const qint64 desde = leerCampo(datos, 0, 3), cual = leerCampo(datos, 3, 1);
  if (desde < 0 || cual < 0 || cual > 1) return negar(kDatosMalos);
  const auto& lista = memoria_.lista(cual == 0 ? Lista::Pedidos : Lista::Inventarios);
  const bool otraVez =
      static_cast<std::size_t>(desde) >= lista.size() && !lista.empty() && sinFin();
  return con(registroLineas(lista, otraVez ? 0 : static_cast<std::size_t>(desde)));
}

Respuesta Bascula::olvidar(const QByteArray& datos) {
  if (datos != "0" && datos != "1") return negar(kDatosMalos);
  memoria_.olvidar(datos == "0" ? Lista::Pedidos : Lista::Inventarios);
  return con({});
}

Respuesta Bascula::configurar(const Peticion& peticion) {
  static constexpr std::array kCodigos{0,   20,  30,  40,  70,  80,  90,  200, 210,
                                       220, 230, 240, 250, 260, 270, 300, 310, 320,
                                       330, 340, 360, 400, 410, 420, 440};
  if (!std::ranges::binary_search(kCodigos, peticion.codigo)) return negar(kDatosMalos);
  auto& tramas = configuracion_[{peticion.codigo, peticion.addr}];
  if (tramas.size() >= kTramasPorCodigo) tramas.erase(tramas.begin());
  tramas.push_back(peticion.datos);
  return con({});
}

// "1" for each position with a scale; they count from 0.
QByteArray Bascula::puestos() const {
  QByteArray texto(16, '0');
  for (const int numero : opciones().balanzas)
    if (numero >= 0 && numero < texto.size()) texto[numero] = '1';
  return texto;
}

}  // namespace tarvo::simulador
