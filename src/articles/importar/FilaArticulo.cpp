#include "articles/importar/FilaArticulo.h"

#include "articles/Limites.h"
#include "articles/importar/TextosImportar.h"
#include "core/dao/Orden.h"
#include "core/dinero/Dinero.h"

namespace tarvo::importar {

using articles::Articulo;
using articles::Falta;
using Motivo = Filas::Motivo;

namespace {

constexpr qsizetype kBarrasMayor = 20;  // digits of a whole bar code

constexpr qint64 kCantidadMayor = 999'999'999;

int nativa(const Ajustes& a) {
  return a.MonedaNativa != 0 ? 1 : 0;
}

// The number of a word in a series of texts "one|another"; 0 for the first text.
std::optional<int> palabra(const QString& texto, int primera, int cuantas, const Textos& t) {
  const QString clave = dao::claveOrden(texto.simplified());
  for (int i = 0; i < cuantas; ++i)
    for (const QString& p : t(primera + i).split(u'|'))
      if (dao::claveOrden(p) == clave) return i;
  return std::nullopt;
}

Campo campoDe(Falta f) {
  switch (f) {
    case Falta::Departamento:
      return Campo::Depto;
    case Falta::Formato:
      return Campo::Formato;
    case Falta::Minimo:
      return Campo::Minimo;
    case Falta::Hasta1:
      return Campo::Hasta1;
    case Falta::Hasta2:
      return Campo::Hasta2;
    case Falta::Descuento:
      return Campo::Descto;
    default:
      return Campo::Codigo;
  }
}

}  // namespace

Resultado<Departamentos> Departamentos::leer(dao::Database& db) {
  Departamentos d;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT NMSECC FROM SECCS"),
      [&](const dao::Recordset& fila) { d.deptos_[static_cast<int>(fila.entero(0))]; }));
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT SECCION, NUMDEP, NomDep FROM DEPTS"), [&](const dao::Recordset& fila) {
        d.deptos_[static_cast<int>(fila.entero(0))][static_cast<int>(fila.entero(1))] =
            dao::claveOrden(fila.texto(2).simplified());
      }));
  return d;
}

bool Departamentos::hay(int seccion, int depto) const {
  const auto s = deptos_.find(seccion);
  return s != deptos_.end() && s->second.contains(depto);
}

std::optional<int> Departamentos::porNombre(int seccion, const QString& nombre) const {
  const auto s = deptos_.find(seccion);
  if (s == deptos_.end()) return std::nullopt;
  const QString clave = dao::claveOrden(nombre.simplified());
  for (const auto& [numero, suyo] : s->second)
    if (suyo == clave) return numero;
  return std::nullopt;
}

std::optional<int> Departamentos::primero(int seccion) const {
  const auto s = deptos_.find(seccion);
  if (s == deptos_.end() || s->second.empty()) return std::nullopt;
  return s->second.begin()->first;
}

Filas::Filas(const Tabla& tabla, const Plan& plan, const Departamentos& deptos,
             const Ajustes& ajustes, const Textos& textos)
    : tabla_(tabla), plan_(plan), deptos_(deptos), ajustes_(ajustes), t_(textos) {
  for (size_t c = 0; c < plan.columnas.size(); ++c)
    if (plan.columnas[c]) donde_.emplace(*plan.columnas[c], static_cast<int>(c));
}

const QString* Filas::celda(int fila, Campo campo) const {
  const auto c = donde_.find(campo);
  if (c == donde_.end()) return nullptr;
  const QString& texto = tabla_.celda(fila, c->second);
  return texto.trimmed().isEmpty() ? nullptr : &texto;
}

Motivo Filas::noVale(Campo campo, const QString& texto) const {
  return t_(kTxNoVale, {titulo(campo, t_), texto.simplified().left(40)});
}

std::expected<articles::ClaveArticulo, Motivo> Filas::clave(int fila) const {
  articles::ClaveArticulo k{plan_.seccion, 0};
  if (const QString* s = celda(fila, Campo::Seccion)) {
    const auto n = leerEntero(*s);
    if (!n || *n > 255) return std::unexpected(noVale(Campo::Seccion, *s));
    k.seccion = static_cast<int>(*n);
  }
  if (!deptos_.haySeccion(k.seccion))
    return std::unexpected(t_(kTxSinSeccion, {Ceros(k.seccion, 3)}));
  const QString* c = celda(fila, Campo::Codigo);
  if (!c) return std::unexpected(t_(kTxSinCodigo));
  const auto n = leerEntero(*c);
  if (!n || *n < 1 || *n > articles::kUltimoCodigo)
    return std::unexpected(noVale(Campo::Codigo, *c));
  k.codigo = *n;
  if (k.deSistema()) return std::unexpected(t_(kTxDelSistema, {Ceros(k.codigo, 7)}));
  return k;
}

// The unit comes first: quantities depend on it.
std::expected<Articulo, Motivo> Filas::aplicar(int fila, Articulo a, bool nuevo) const {
  const Articulo antes = a;
  for (const auto& [campo, columna] : donde_) {
    const QString* texto = celda(fila, campo);
    if (!texto) continue;
    if (auto mal = poner(a, campo, *texto)) return std::unexpected(*mal);
  }
  if (nuevo && a.nombre.isEmpty()) return std::unexpected(t_(kTxSinNombre));
  if (nuevo && a.depto == 0) {
    const auto depto = deptos_.primero(a.clave.seccion);
    if (!depto) return std::unexpected(t_(kTxSinDepartamentos, {Ceros(a.clave.seccion, 3)}));
    a.depto = *depto;
  }
  if (auto mal = faltaNueva(antes, a)) return std::unexpected(*mal);
  return a;
}

std::optional<Motivo> Filas::faltaNueva(const Articulo& antes, const Articulo& ahora) const {
  const auto viejas = articles::faltas(antes);
  for (const Falta f : articles::faltas(ahora))
    if (std::ranges::find(viejas, f) == viejas.end())
      return noVale(campoDe(f), verCampo(campoDe(f), ahora, ajustes_, t_));
  return std::nullopt;
}

std::optional<Motivo> Filas::poner(Articulo& a, Campo campo, const QString& texto) const {
  switch (campo) {
    case Campo::Seccion:
    case Campo::Codigo:
      return std::nullopt;  // the key is read separately
    case Campo::Nombre:
      a.nombre = texto.simplified();
      return articles::malNombre(a.nombre, t_);
    case Campo::TextoEtq:
      a.textoEtq = texto;
      return std::nullopt;
    case Campo::Cada:
      return ponerPalabra(a.cada, campo, texto, kTxUnidades, 3);
    case Campo::Barras:
      return ponerPalabra(a.barras, campo, texto, kTxClasesBarras, 2);
    case Campo::Modificable: {
      int no = 0;
      auto mal = ponerPalabra(no, campo, texto, kTxSiNo, 2);
      if (!mal) a.modificable = no == 0;
      return mal;
    }
    case Campo::Depto:
      return ponerDepto(a, texto);
    case Campo::PfxBar:
      return ponerCifras(a.pfxBar, campo, texto, articles::kPrefijoBarrasMayor);
    case Campo::CodBarExt: {
      QString codigo;
      auto mal = ponerCifras(codigo, campo, texto, kBarrasMayor);
      if (!mal) a.codBarExt = codigo;
      return mal;
    }
    case Campo::Descto:
      return ponerDescuento(a.descto, texto);
    case Campo::Formato:
      return ponerFormato(a.formato, texto);
    case Campo::Numdias1:
      return ponerEntero(a.numdias1, campo, texto, 0, articles::kDiasMayor);
    case Campo::Numdias2:
      return ponerEntero(a.numdias2, campo, texto, 0, articles::kDiasMayor);
    case Campo::Hasta1:
      return ponerCantidad(a.hasta1, campo, texto, a.cada);
    case Campo::Hasta2:
      return ponerCantidad(a.hasta2, campo, texto, a.cada);
    case Campo::StkMax:
      return ponerCantidad(a.stkMax, campo, texto, a.cada);
    case Campo::StkMin:
      return ponerCantidad(a.stkMin, campo, texto, a.cada);
    case Campo::Minimo:
      return ponerImporte(a.minimo, campo, texto);
    case Campo::Coste:
      return ponerImporte(a.coste, campo, texto);
    default:
      break;
  }
  const auto i = static_cast<size_t>(campo) - static_cast<size_t>(Campo::Precio);
  return ponerImporte(a.precios[i / articles::kTarifas][i % articles::kTarifas], campo, texto);
}

std::optional<Motivo> Filas::ponerEntero(int& donde, Campo campo, const QString& texto, int menor,
                                         int mayor) const {
  const auto n = leerEntero(texto);
  if (!n || *n < menor || *n > mayor) return noVale(campo, texto);
  donde = static_cast<int>(*n);
  return std::nullopt;
}

std::optional<Motivo> Filas::ponerFormato(int& donde, const QString& texto) const {
  const auto n = leerEntero(texto);
  if (!n) return noVale(Campo::Formato, texto);
  donde = static_cast<int>(std::min<qint64>(*n, 9999));
  return articles::malFormato(donde, t_);
}

std::optional<QString> Filas::importe(const QString& texto) const {
  auto n = leerDecimal(texto, plan_.signo);
  if (n && ajustes_.idioma != Idioma::UK) n->replace(u'.', u',');
  return n;
}

int Filas::redondeados(int fila) const {
  int cuantos = 0;
  for (const auto& [campo, columna] : donde_) {
    const bool dinero = esPrecio(campo) || campo == Campo::Coste || campo == Campo::Minimo;
    const QString* texto = dinero ? celda(fila, campo) : nullptr;
    const auto n = texto ? importe(*texto) : std::nullopt;
    if (n && SobranDecimales(ajustes_, *n, nativa(ajustes_))) ++cuantos;
  }
  return cuantos;
}

// Within the limits of all prices.
std::optional<Motivo> Filas::ponerImporte(qint64& donde, Campo campo, const QString& texto) const {
  const auto n = importe(texto);
  if (!n || n->startsWith(u'-')) return noVale(campo, texto);
  const auto importe = articles::comoPrecioRedondeado(*n, ajustes_, nativa(ajustes_));
  if (!importe) return articles::errorDe(importe.error(), texto, ajustes_, t_).texto;
  donde = *importe;
  return std::nullopt;
}

std::optional<Motivo> Filas::ponerCantidad(qint64& donde, Campo campo, const QString& texto,
                                           int cada) const {
  auto n = leerDecimal(texto, plan_.signo);
  if (!n || n->startsWith(u'-')) return noVale(campo, texto);
  const qint64 cantidad = ACantidad(Idioma::Espanol, n->replace(u'.', u','), cada);
  if (cantidad > kCantidadMayor) return noVale(campo, texto);
  donde = cantidad;
  return std::nullopt;
}

std::optional<Motivo> Filas::ponerDescuento(int& donde, const QString& texto) const {
  const auto n = leerDecimal(texto, plan_.signo);
  const double x = n ? n->toDouble() : -1;
  if (x < 0 || x * 100 > articles::kDescuentoMayor) return noVale(Campo::Descto, texto);
  donde = qRound(x * 100);
  return std::nullopt;
}

std::optional<Motivo> Filas::ponerDepto(Articulo& a, const QString& texto) const {
  const auto numero = leerEntero(texto);
  const auto suyo = numero ? std::optional(static_cast<int>(std::min<qint64>(*numero, 9999)))
                           : deptos_.porNombre(a.clave.seccion, texto);
  if (!suyo || !deptos_.hay(a.clave.seccion, *suyo))
    return t_(kTxSinDepartamento, {texto.simplified().left(40), Ceros(a.clave.seccion, 3)});
  a.depto = *suyo;
  return std::nullopt;
}

std::optional<Motivo> Filas::ponerPalabra(int& donde, Campo campo, const QString& texto,
                                          int palabras, int cuantas) const {
  const auto n = palabra(texto, palabras, cuantas, t_);
  if (!n) return noVale(campo, texto);
  donde = *n;
  return std::nullopt;
}

std::optional<Motivo> Filas::ponerCifras(QString& donde, Campo campo, const QString& texto,
                                         qsizetype mayor) const {
  const QString t = texto.trimmed();
  const bool bien = std::ranges::all_of(t, [](QChar c) { return c >= u'0' && c <= u'9'; });
  if (!bien || t.size() > mayor) return noVale(campo, texto);
  donde = t;
  return std::nullopt;
}

}  // namespace tarvo::importar
