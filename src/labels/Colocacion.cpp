#include "labels/Colocacion.h"

#include <algorithm>

namespace tarvo::labels {

namespace {

constexpr int kXMayor = kAnchoCabezal - 1, kYMayor = kLargoEtiqueta - 1;
constexpr int kLonMayor = 500, kEspMayor = 50, kEspRectangulo = 9;

// How far a value may go so that it stays between both.
int limitado(int cuanto, int valor, int menor, int mayor) {
  return std::clamp(valor + cuanto, std::min(valor, menor), std::max(valor, mayor)) - valor;
}

int enLado(const QRect& r, Lado lado) {
  switch (lado) {
    case Lado::Izquierda:
      return r.left();
    case Lado::Centro:
      return r.left() + r.width() / 2;
    case Lado::Derecha:
      return r.right();
    case Lado::Arriba:
      return r.top();
    case Lado::Medio:
      return r.top() + r.height() / 2;
    default:
      return r.bottom();
  }
}

// The smallest way from one of three places to one of the lines, if any is near.
std::optional<std::pair<int, int>> cercana(const std::array<int, 3>& suyos,
                                           const std::vector<int>& lineas, int cerca) {
  std::optional<std::pair<int, int>> mejor;
  for (const int linea : lineas)
    for (const int suyo : suyos)
      if (const int falta = linea - suyo;
          std::abs(falta) <= cerca && (!mejor || std::abs(falta) < std::abs(mejor->first)))
        mejor = {falta, linea};
  return mejor;
}

}  // namespace

QRect areaDe(const Formato& f) {
  return {0, 0, f.x0, kYMayor - f.y0};
}

void mover(CampoEtiqueta& c, QPoint d) {
  int dx = limitado(d.x(), c.X, -kXMayor, kXMayor), dy = limitado(d.y(), c.Y, -kYMayor, kYMayor);
  if (c.tipo == TipoCampo::Rectangulo) {
    dx = limitado(dx, c.X2, 0, kXMayor), dy = limitado(dy, c.Y2, 0, kYMayor);
    c.X2 += dx, c.Y2 += dy;
  }
  c.X += dx, c.Y += dy;
}

bool estirar(CampoEtiqueta& c, QPoint d) {
  switch (c.tipo) {
    case TipoCampo::Rectangulo:
      c.X2 += limitado(d.x(), c.X2, 0, kXMayor), c.Y2 += limitado(d.y(), c.Y2, 0, kYMayor);
      return true;
    case TipoCampo::LineaGrafica: {
      // Along the line and across it, whichever way it points.
      const bool tumbada = c.rotacion % 2 == 0;
      const int sentido = c.rotacion < 2 ? 1 : -1;
      c.Lon += limitado((tumbada ? d.x() : d.y()) * sentido, c.Lon, 1, kLonMayor);
      c.Esp += limitado(tumbada ? d.y() : d.x(), c.Esp, 1, kEspMayor);
      return true;
    }
    case TipoCampo::CodigoDeBarras:
      c.Altu += limitado(c.rotacion % 2 == 0 ? d.y() : d.x(), c.Altu, 0, kYMayor);
      return true;
    default:
      return false;
  }
}

CampoEtiqueta nuevoCampo(TipoCampo tipo, const Formato& formato, int numeroTexto) {
  CampoEtiqueta c{.tipo = tipo, .Ntxt = numeroTexto};
  if (tipo == TipoCampo::Rectangulo) c.Esp = std::min(c.Esp, kEspRectangulo);
  const QRect caja = cajaDe(c, QString(8, u' ')), area = areaDe(formato);
  mover(c, {std::max(0, area.left() - caja.left()), std::max(0, area.top() - caja.top())});
  return c;
}

void alinear(Formato& formato, const std::vector<size_t>& cuales, Lado lado,
             const LectorTextos& textos) {
  QRect todos;
  const auto caja = [&](size_t i) {
    const CampoEtiqueta& c = formato.campos[i];
    return cajaDe(c, muestraDe(c, textos));
  };
  for (const size_t i : cuales) todos |= caja(i);
  const bool aLoAncho = lado <= Lado::Derecha;
  for (const size_t i : cuales) {
    const int falta = enLado(todos, lado) - enLado(caja(i), lado);
    mover(formato.campos[i], aLoAncho ? QPoint(falta, 0) : QPoint(0, falta));
  }
}

Iman imantar(const QRect& movida, const std::vector<QRect>& otras, int cerca) {
  std::vector<int> xs, ys;
  for (const QRect& r : otras) {
    xs.insert(xs.end(), {r.left(), r.left() + r.width() / 2, r.left() + r.width()});
    ys.insert(ys.end(), {r.top(), r.top() + r.height() / 2, r.top() + r.height()});
  }
  const auto x =
      cercana({movida.left(), movida.left() + movida.width() / 2, movida.left() + movida.width()},
              xs, cerca);
  const auto y =
      cercana({movida.top(), movida.top() + movida.height() / 2, movida.top() + movida.height()},
              ys, cerca);
  Iman iman;
  if (x) iman.cuanto.setX(x->first), iman.x = x->second;
  if (y) iman.cuanto.setY(y->first), iman.y = y->second;
  return iman;
}

std::vector<size_t> reordenar(Formato& formato, std::vector<size_t> cuales, int pasos) {
  std::ranges::sort(cuales);
  const size_t total = formato.campos.size();
  if (cuales.empty() || (pasos < 0 ? cuales.front() == 0 : cuales.back() + 1 >= total))
    return cuales;
  if (pasos > 0) std::ranges::reverse(cuales);
  for (size_t& i : cuales) {
    const size_t otro = pasos < 0 ? i - 1 : i + 1;
    std::swap(formato.campos[i], formato.campos[otro]);
    i = otro;
  }
  std::ranges::sort(cuales);
  return cuales;
}

}  // namespace tarvo::labels
