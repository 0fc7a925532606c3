#include "dias/Usuario.h"

#include <QFile>

#include "articles/importar/ImpPLU.h"
#include "articles/precios/Ofertas.h"

namespace tarvo::dias {

using articles::Articulo, articles::Catalogo;
using namespace Qt::StringLiterals;

namespace {

constexpr int kCodigos = 40;
const QString kVentana = u"dias"_s;

}  // namespace

std::optional<Usuario::C> Usuario::uno() {
  std::vector<C> hay;
  t_.base->filas(
      "SELECT SECCION, CODPLU FROM PLUSES WHERE CODPLU > 2 ORDER BY 1, 2",
      [&](const auto& f) { hay.push_back({static_cast<int>(f.entero(0)), f.entero(1)}); });
  if (hay.empty()) return std::nullopt;
  return hay[static_cast<std::size_t>(t_.azar.entero(0, static_cast<int>(hay.size()) - 1))];
}

// Most names only have letters known to every machine.
QString Usuario::nombre() {
  static const QStringList palabras{u"MANZANA"_s, u"PIÑA"_s,
                                    u"Jamón"_s,   u"CAÑA de lomo"_s,
                                    u"PERA 1ª"_s, u"Çurrasco"_s,
                                    u"¿Queso?"_s, u"GÜISQUI 10€"_s,
                                    u"pan"_s,     u"lomo añejo muy largo de nombre"_s};
  QString s = palabras[t_.azar.entero(0, static_cast<int>(palabras.size()) - 1)];
  if (t_.azar.ocurre(0.03))
    s.prepend(QChar(std::array{0x0416, 0xE2, 0xB7}[static_cast<size_t>(t_.azar.entero(0, 2))]));
  return s;
}

Articulo Usuario::alAzar(C clave) {
  Azar& z = t_.azar;
  const auto grande = [&](int normal, int enorme) {
    return z.ocurre(0.03) ? enorme : z.entero(0, normal);
  };
  Articulo a;
  a.clave = clave;
  a.nombre = nombre();
  a.cada = z.entero(0, 2);
  a.modificable = z.ocurre(0.5);
  for (auto& nivel : a.precios)
    for (qint64& p : nivel) p = grande(9999, 1234567);
  a.minimo = grande(5000, 999999);
  a.hasta1 = grande(5000, 123456);
  a.hasta2 = grande(9000, 99999);
  a.depto = z.ocurre(0.1) ? 12 : z.entero(1, 5);
  a.barras = z.entero(0, 1);
  a.pfxBar = z.ocurre(0.7) ? u"0"_s : QString::number(z.entero(20, 29));
  if (z.ocurre(0.15))
    a.codBarExt =
        QStringLiteral("84%1").arg(clave.codigo * 7 + z.entero(0, 3), 11, 10, QLatin1Char('0'));
  a.descto = z.entero(0, 9999);
  a.formato = z.entero(1, 20);
  if (z.ocurre(0.4)) a.textoEtq = nombre() + u"\r\n"_s + nombre();
  a.numdias1 = grande(365, 99999);
  a.numdias2 = z.entero(0, 30);
  a.coste = z.entero(0, 999);
  return a;
}

QString Usuario::algo(Programa& programa) {
  Catalogo& c = programa.aplicacion().catalogo();
  switch (t_.azar.entero(0, 9)) {
    case 0:
    case 1:
      return nuevo(c);
    case 2:
    case 3:
      return cambiar(c);
    case 4:
      return precios(c);
    case 5:
      return recodificar(c);
    case 6:
      return borrar(c);
    case 7:
      return trasladar(c);
    case 8:
      return t_.azar.ocurre(0.3) ? importar(programa) : oferta(programa);
    default:
      return oferta(programa);
  }
}

QString Usuario::nuevo(Catalogo& c) {
  const C clave{t_.azar.entero(1, t_.secciones),
                t_.azar.ocurre(0.1) ? 12000 + t_.azar.entero(0, 9) : t_.azar.entero(3, kCodigos)};
  const auto r = c.crear(alAzar(clave), kVentana);
  return u"nuevo %1/%2 %3"_s.arg(clave.seccion)
      .arg(clave.codigo)
      .arg(r ? QString() : r.error().texto);
}

QString Usuario::cambiar(Catalogo& c) {
  const auto clave = uno();
  if (!clave) return {};
  const auto r = c.modificar(*clave, alAzar(*clave), kVentana);
  return u"cambia %1/%2 %3"_s.arg(clave->seccion)
      .arg(clave->codigo)
      .arg(r ? QString() : r.error().texto);
}

QString Usuario::precios(Catalogo& c) {
  const auto clave = uno();
  if (!clave) return {};
  const auto r = c.ponerPrecios(*clave, alAzar(*clave).precios, kVentana);
  return u"precios de %1/%2 %3"_s.arg(clave->seccion)
      .arg(clave->codigo)
      .arg(r ? QString() : r.error().texto);
}

QString Usuario::recodificar(Catalogo& c) {
  const auto clave = uno();
  if (!clave) return {};
  auto a = c.leer(*clave);
  if (!a || !*a) return {};
  (*a)->clave.codigo = t_.azar.entero(3, kCodigos);
  const auto r = c.modificar(*clave, **a, kVentana);
  return u"%1/%2 pasa a %3 %4"_s.arg(clave->seccion)
      .arg(clave->codigo)
      .arg((*a)->clave.codigo)
      .arg(r ? QString() : r.error().texto);
}

QString Usuario::borrar(Catalogo& c) {
  const auto clave = uno();
  if (!clave) return {};
  const C claves[] = {*clave};
  const auto r = c.borrar(claves);
  return u"borra %1/%2 %3"_s.arg(clave->seccion)
      .arg(clave->codigo)
      .arg(r ? QString() : r.error().texto);
}

QString Usuario::trasladar(Catalogo& c) {
  const auto clave = uno();
  if (!clave) return {};
  const C claves[] = {*clave};
  const int destino = t_.azar.entero(1, t_.secciones);
  const bool mueve = t_.azar.ocurre(0.5);
  const auto r = mueve ? c.mover(claves, destino) : c.copiar(claves, destino, kVentana);
  return u"%1 %2/%3 a %4 %5"_s.arg(mueve ? u"mueve"_s : u"copia"_s)
      .arg(clave->seccion)
      .arg(clave->codigo)
      .arg(destino)
      .arg(r ? QString() : r.error().texto);
}

// An offer of one article in the groups of its section: made, changed, moved in time or withdrawn.
QString Usuario::oferta(Programa& p) {
  const auto clave = uno();
  if (!clave) return {};
  precios::Ofertas& ofertas = p.aplicacion().ofertas();
  std::vector<int> grupos;
  for (const Grupo& g : t_.grupos)
    if (g.seccion == clave->seccion && t_.azar.ocurre(0.7)) grupos.push_back(g.codigo);
  if (grupos.empty()) return {};
  const Fecha hoy = t_.reloj.ahora().dia();
  const int que = t_.azar.entero(0, 5);
  if (que <= 3) {
    precios::OfertaNueva o;
    o.seccion = clave->seccion;
    o.codigo = clave->codigo;
    for (qint64& precio : o.precios) precio = t_.azar.entero(1, 900);
    const int desde = t_.azar.entero(-2, 2), dias = t_.azar.entero(0, 3);
    const auto v = precios::Vigencia::de(t_.azar.ocurre(0.3) ? precios::Dia() : hoy + desde,
                                         t_.azar.ocurre(0.3) ? precios::Dia() : hoy + desde + dias);
    if (!v) return {};
    o.vigencia = *v;
    const auto r = ofertas.guardar(o, grupos);
    return u"oferta de %1/%2 %3"_s.arg(clave->seccion)
        .arg(clave->codigo)
        .arg(r ? QString() : r.error().texto);
  }
  const precios::ClaveOferta cual{grupos.front(), clave->seccion, clave->codigo};
  if (que == 4) {
    const precios::ClaveOferta claves[] = {cual};
    const auto r = ofertas.borrar(claves, t_.azar.ocurre(0.5));
    return u"sin oferta de %1/%2 %3"_s.arg(clave->seccion)
        .arg(clave->codigo)
        .arg(r ? QString() : r.error().texto);
  }
  const auto r =
      ofertas.cambiarFechas({.grupo = cual.grupo}, t_.azar.ocurre(0.3),
                            t_.azar.ocurre(0.5) ? precios::Extremo::Desde : precios::Extremo::Hasta,
                            t_.azar.ocurre(0.3) ? precios::Dia() : hoy + t_.azar.entero(-2, 2));
  return u"fechas de ofertas del grupo %1 %2"_s.arg(cual.grupo)
      .arg(r ? QString() : r.error().texto);
}

// Imports a file of a few lines over existing articles; the machines don't get them by themselves.
QString Usuario::importar(Programa& p) {
  const QString ruta = t_.carpeta() + u"/articulos.PLU"_s;
  QByteArray fichero;
  const int seccion = t_.azar.entero(1, t_.secciones);
  for (int n = t_.azar.entero(1, 4); n > 0; --n) {
    const auto cifras = [&](int valor, int ancho) {
      return QByteArray::number(valor).rightJustified(ancho, '0');
    };
    fichero += cifras(seccion, 2) + cifras(t_.azar.entero(3, kCodigos), 4) +
               QByteArray("IMPORTADO").leftJustified(20) + QByteArray(10, ' ') +
               cifras(t_.azar.entero(0, 2), 1) + cifras(10, 6) + cifras(t_.azar.entero(1, 999), 6) +
               QByteArray(4, ' ') + cifras(t_.azar.entero(1, 5), 2) + QByteArray(21, ' ') + "\r\n";
  }
  QFile f(ruta);
  if (!f.open(QIODevice::WriteOnly) || f.write(fichero) != fichero.size())
    qFatal("no se puede escribir");
  f.close();
  auto imp = importar::ImpPLU::abrir(p.aplicacion().catalogo(), ruta);
  if (!imp) return imp.error().texto;
  importadas.insert(seccion);
  for (;;) {
    const auto mas = (*imp)->paso(importar::SiExiste::Sobreescribirlo);
    if (!mas) return mas.error().texto;
    if (!*mas) break;
  }
  const auto fin = (*imp)->acabar();
  return u"importa %1 líneas en la sección %2 %3"_s.arg((*imp)->cuenta().lineas)
      .arg(seccion)
      .arg(fin ? QString() : fin.error().texto);
}

}  // namespace tarvo::dias
