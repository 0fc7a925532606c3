#include "labels/Formato.h"

#include <algorithm>

#include "core/textos/Textos.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPrimeraFuente = 14;
constexpr qsizetype kLargoDeLinea = 15;
const QString kFin = u"\r\n"_s, kJuego = u"JT:"_s;

// The numbers of a line, at their places.
struct Linea {
  int tipo = 0, x = 0, y = 0, a = 0, b = 0, r = 0;
};

std::optional<Linea> partir(const QString& linea) {
  if (linea.size() != kLargoDeLinea) return {};
  for (const QChar c : linea)
    if (c < u'0' || c > u'9') return {};
  const auto n = [&linea](int desde, int ancho) { return linea.mid(desde, ancho).toInt(); };
  return Linea{n(0, 2), n(2, 3), n(5, 3), n(8, 3), n(11, 3), n(14, 1)};
}

constexpr bool entre(int n, int desde, int hasta) {
  return n >= desde && n <= hasta;
}

constexpr int kX = kAnchoCabezal - 1, kY = kLargoEtiqueta - 1;

bool dentro(const Linea& l) {
  if (!entre(l.tipo, 0, 18) || !entre(l.x, 0, kX) || !entre(l.y, 0, kY)) return false;
  if (l.tipo == 0) return true;
  switch (const auto tipo = static_cast<TipoCampo>(l.tipo)) {
    case TipoCampo::CodigoDeBarras:
      return entre(l.a, 0, kY) && entre(l.r, 0, 3);
    case TipoCampo::LineaGrafica:
      return entre(l.a, 1, 50) && entre(l.b, 1, 500) && entre(l.r, 0, 3);
    case TipoCampo::Rectangulo:
      return entre(l.a, 0, kX) && entre(l.b, 0, kY) && entre(l.r, 1, 9);
    default:
      return esTexto(tipo) && entre(l.a, kPrimeraFuente, kPrimeraFuente + 4) && entre(l.b, 0, 40) &&
             entre(l.r, 0, 3);
  }
}

CampoEtiqueta campoDe(const Linea& l) {
  CampoEtiqueta c;
  c.tipo = static_cast<TipoCampo>(l.tipo);
  c.X = l.x, c.Y = l.y;
  const bool rectangulo = c.tipo == TipoCampo::Rectangulo;
  (rectangulo ? c.Esp : c.rotacion) = l.r;
  if (c.tipo == TipoCampo::CodigoDeBarras) {
    c.Altu = l.a;
  } else if (c.tipo == TipoCampo::LineaGrafica) {
    c.Esp = l.a, c.Lon = l.b;
  } else if (rectangulo) {
    c.X2 = l.a, c.Y2 = l.b;
  } else {
    c.fuente = l.a - kPrimeraFuente;
    (c.tipo == TipoCampo::RazonSocial ? c.NmL : c.Ntxt) = l.b;
  }
  return c;
}

QString linea(const Linea& l) {
  return Ceros(l.tipo, 2) + Ceros(l.x, 3) + Ceros(l.y, 3) + Ceros(l.a, 3) + Ceros(l.b, 3) +
         Ceros(l.r, 1) + kFin;
}

QString lineaDe(const CampoEtiqueta& c) {
  Linea l{static_cast<int>(c.tipo), c.X, c.Y, kPrimeraFuente + c.fuente, 0, c.rotacion};
  switch (c.tipo) {
    case TipoCampo::CodigoDeBarras:
      l.a = c.Altu;
      break;
    case TipoCampo::LineaGrafica:
      l.a = c.Esp, l.b = c.Lon;
      break;
    case TipoCampo::Rectangulo:
      l.a = c.X2, l.b = c.Y2, l.r = c.Esp;
      break;
    case TipoCampo::LineaTexto:
      l.b = c.Ntxt;
      break;
    case TipoCampo::RazonSocial:
      l.b = c.NmL;
      break;
    default:
      break;
  }
  return linea(l);
}

}  // namespace

int reservaDe(TipoCampo tipo) {
  switch (tipo) {
    case TipoCampo::LineaGrafica:
    case TipoCampo::Rectangulo:
      return 10;
    case TipoCampo::CodigoDeBarras:
      return 4;
    default:
      return kCamposMaximos;
  }
}

std::optional<QString> Formato::texto() const {
  QString t = linea({0, x0, y0, 0, 0, 0});
  for (const CampoEtiqueta& c : campos) {
    if (c.fuera()) return {};
    t += lineaDe(c);
  }
  return t;
}

bool Formato::cabeOtro(TipoCampo tipo) const {
  if (std::ssize(campos) >= kCamposMaximos) return false;
  return std::ranges::count_if(campos, [tipo](const CampoEtiqueta& c) {
           return c.tipo == tipo || (esTexto(c.tipo) && esTexto(tipo));
         }) < reservaDe(tipo);
}

int Formato::recortar() {
  const auto habia = std::ssize(campos);
  std::vector<CampoEtiqueta> todos;
  std::swap(todos, campos);
  for (const CampoEtiqueta& c : todos)
    if (cabeOtro(c.tipo)) campos.push_back(c);
  return static_cast<int>(habia - std::ssize(campos));
}

std::optional<FormatoLeido> leerFormato(const QString& texto) {
  FormatoLeido leido;
  for (QString una : texto.split(u'\n')) {
    if (una.endsWith(u'\r')) una.chop(1);
    if (una.isEmpty()) continue;
    if (una.startsWith(kJuego)) {
      leido.juego = una.mid(kJuego.size()).trimmed();
      continue;
    }
    const auto l = partir(una);
    if (!l || !dentro(*l)) return {};
    if (l->tipo == 0) {
      leido.formato.x0 = std::max(l->x, 1);
      leido.formato.y0 = l->y;
    } else {
      leido.formato.campos.push_back(campoDe(*l));
    }
  }
  return leido;
}

std::optional<QString> paraCopiar(const Formato& formato, const QString& juego) {
  const auto t = formato.texto();
  if (!t) return {};
  return *t + kFin + kJuego + juego;
}

}  // namespace tarvo::labels
