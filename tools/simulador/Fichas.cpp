#include "simulador/Fichas.h"

#include <algorithm>

#include "simulador/Tramas.h"

namespace tarvo::simulador {
namespace {

constexpr int kPrimerDesconocido = 9000000;

QString texto(const QByteArray& datos, int desde, int ancho) {
  return QString::fromLatin1(datos.mid(desde, ancho)).trimmed();
}

int codigoDeBarras(const QByteArray& digitos, const Catalogo& conocidos) {
  const auto igual = [&](const auto& par) { return par.second.barras == digitos; };
  const auto sitio = std::ranges::find_if(conocidos, igual);
  if (sitio != conocidos.end()) return sitio->first;
  const bool propio = digitos.size() == 13 && digitos.startsWith("000");
  if (propio) return static_cast<int>(leerCampo(digitos, 7, 6));
  int libre = kPrimerDesconocido;
  while (conocidos.contains(libre)) ++libre;
  return libre;
}

}  // namespace

std::optional<Articulo> leerFichaBalanza(const QByteArray& datos) {
  constexpr char kFinal = 19;
  if (datos.size() < 90 || datos.back() != kFinal) return std::nullopt;
  Articulo articulo;
  articulo.nombre = texto(datos, 0, 20);
  articulo.codigo = static_cast<int>(leerCampo(datos, 20, 7));
  articulo.precio = leerCampo(datos, 27, 6);
  articulo.unidad = static_cast<int>(leerCampo(datos, 33, 1));
  articulo.departamento = static_cast<int>(leerCampo(datos, 44, 2));
  articulo.ficha = datos;
  if (articulo.codigo < 1 || articulo.precio < 0 || articulo.unidad < 0 || articulo.unidad > 2 ||
      articulo.departamento < 0)
    return std::nullopt;
  return articulo;
}

std::optional<Articulo> leerFichaEbony(const QByteArray& datos) {
  if (datos.size() != 32 || !datos.startsWith("99")) return std::nullopt;
  Articulo articulo;
  articulo.codigo = static_cast<int>(leerCampo(datos, 2, 4));
  articulo.nombre = texto(datos, 6, 16);
  articulo.precio = leerCampo(datos, 22, 8);
  const qint64 modo = leerCampo(datos, 30, 1), departamento = leerCampo(datos, 31, 1);
  if (articulo.codigo < 1 || articulo.precio < 0 || modo < 1 || modo > 4 || departamento < 0)
    return std::nullopt;
  articulo.unidad = modo % 2 == 0 ? 2 : 0;
  articulo.departamento = static_cast<int>(departamento) + 1;
  articulo.ficha = datos;
  return articulo;
}

std::optional<Articulo> leerFichaRegistradora(const QByteArray& datos, const Catalogo& conocidos) {
  if (datos.size() != 53) return std::nullopt;
  Articulo articulo;
  articulo.barras = datos.left(13).trimmed();
  articulo.nombre = texto(datos, 13, 20);
  articulo.precio = leerCampo(datos, 33, 9);
  articulo.departamento = static_cast<int>(leerCampo(datos, 51, 2));
  articulo.ficha = datos;
  if (leerCampo(articulo.barras, 0, static_cast<int>(articulo.barras.size())) < 1 ||
      articulo.precio < 0 || articulo.departamento < 0)
    return std::nullopt;
  articulo.codigo = codigoDeBarras(articulo.barras, conocidos);
  return articulo;
}

QByteArray fichaBalanza(const Articulo& articulo) {
  if (!articulo.ficha.isEmpty()) return articulo.ficha;
  return articulo.nombre.toLatin1().leftJustified(20, ' ', true) + campo(articulo.codigo, 7) +
         campo(articulo.precio, 6) + campo(articulo.unidad, 1) + "01" + char(22) + "0000000" +
         campo(articulo.departamento, 2) + "01" + campo(0, 10) + "0" + campo(0, 6) + "00" +
         campo(0, 5) + campo(articulo.precio, 6) + campo(0, 5) + campo(articulo.precio, 6) +
         char(19);
}

}  // namespace tarvo::simulador
