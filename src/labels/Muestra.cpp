#include "labels/Muestra.h"

#include "articles/CodigoBarras.h"
#include "core/dinero/Dinero.h"
#include "labels/Colocacion.h"
#include "labels/TextosLabels.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using articles::Articulo;
using articles::ClaveArticulo;

namespace {

constexpr qint64 kGramos = 1234, kGramosMayor = 99'999, kUnidadesMayor = 9'999;

QString& en(Ejemplo& e, TipoCampo tipo) {
  return e.textos[static_cast<size_t>(tipo)];
}

// Scales print no sign between thousands.
QString seguido(QString numero, Idioma idioma) {
  return numero.remove(idioma == Idioma::UK ? u',' : u'.');
}

// "C:0:text" without what precedes the text.
QString deCabecera(const QString& linea) {
  return linea.mid(4);
}

// The box within which two fields can't both be read.
bool seEstorban(const CampoEtiqueta& a, const Mancha& ma, const QRect& ta, const CampoEtiqueta& b,
                const Mancha& mb, const QRect& tb) {
  const bool dibujoA = a.tipo == TipoCampo::LineaGrafica || a.tipo == TipoCampo::Rectangulo;
  const bool dibujoB = b.tipo == TipoCampo::LineaGrafica || b.tipo == TipoCampo::Rectangulo;
  const QRect comun = ta & tb;
  if (comun.isEmpty() || (dibujoA && dibujoB)) return false;
  if (!dibujoA && !dibujoB) return true;
  // A drawing frames a text, unless one of its dots falls into it.
  const Mancha& dibujo = dibujoA ? ma : mb;
  for (int y = comun.top(); y <= comun.bottom(); ++y)
    for (int x = comun.left(); x <= comun.right(); ++x)
      if (dibujo.negro(x - dibujo.caja.left(), y - dibujo.caja.top())) return true;
  return false;
}

}  // namespace

QString Muestras::importe(qint64 n, int moneda) const {
  return seguido(VerImporte(ajustes_, n, moneda), ajustes_.idioma);
}

Ejemplo Muestras::de(const Articulo& a, qint64 cantidad) const {
  const Idioma idioma = ajustes_.idioma;
  const int nativa = ajustes_.MonedaNativa, otra = 1 - nativa;
  const qint64 precio = a.precios[0][0];
  const qint64 gramosDelPrecio = a.cada == articles::kPor100g ? 100 : 1000;
  const qint64 total =
      a.porPeso() ? (precio * cantidad + gramosDelPrecio / 2) / gramosDelPrecio : precio * cantidad;
  const Fecha hoy = catalogo_.reloj().ahora();
  const auto dia = [&](int dentroDe) { return (hoy + dentroDe).qdate().toString(u"dd/MM/yy"_s); };
  const QString medida = seguido(VerCantidad(idioma, cantidad, a.cada), idioma);
  Ejemplo e{.nombre = a.nombre};
  en(e, TipoCampo::Peso) = a.porPeso() ? medida : QString();
  en(e, TipoCampo::Precio) = importe(precio, nativa);
  en(e, TipoCampo::Importe) = importe(total, nativa);
  en(e, TipoCampo::Tara) = seguido(VerCantidad(idioma, 0, 0), idioma);
  en(e, TipoCampo::Unidades) = a.porPeso() ? u"1"_s : medida;
  en(e, TipoCampo::CodigoDeBarras) = articles::codigoImpreso(a);
  en(e, TipoCampo::NombrePlu) = a.nombre;
  en(e, TipoCampo::Descripcion) = a.textoEtq.simplified();
  en(e, TipoCampo::Fecha) = dia(0);
  en(e, TipoCampo::Caducidad1) = dia(a.numdias1);
  en(e, TipoCampo::Caducidad2) = dia(a.numdias2);
  en(e, TipoCampo::CodigoPlu) = QString::number(a.clave.codigo);
  en(e, TipoCampo::PrecioAlternativo) = importe(precio, otra);
  en(e, TipoCampo::ImporteAlternativo) = importe(total, otra);
  return e;
}

// The lines of the first scale of the section that has any, or of each number the longest of all.
Resultado<> Muestras::ponerCabecera(Ejemplo& e, int seccion, bool laMasLarga) const {
  bool hay = false;
  return dao::recorrer(
      catalogo_.base().consultar(
          u"SELECT BZAS.RZSOCIAL FROM BZAS INNER JOIN GRUPOS ON BZAS.SUGPO=GRUPOS.CODGPO WHERE "
          u"GRUPOS.SECCION=? AND BZAS.RZSOCIAL<>'' ORDER BY BZAS.SUGPO, BZAS.NMBZA",
          seccion),
      [&](const dao::Recordset& fila) {
        if (hay && !laMasLarga) return;
        hay = true;
        const QStringList lineas = fila.texto(0).split(u"\r\n"_s);
        for (size_t i = 0; i < e.razonSocial.size(); ++i) {
          const QString una = deCabecera(lineas.value(static_cast<qsizetype>(i)));
          if (una.size() > e.razonSocial[i].size()) e.razonSocial[i] = una;
        }
      });
}

Resultado<Ejemplo> Muestras::deArticulo(ClaveArticulo clave) {
  TARVO_TOMAR(const auto a, catalogo_.leer(clave));
  if (!a) return fallo(Fallo::NoExiste, catalogo_.textos()(kTxArticuloSeFue));
  Ejemplo e = de(*a, a->porPeso() ? kGramos : 1);
  TARVO_INTENTAR(ponerCabecera(e, clave.seccion, false));
  return e;
}

Resultado<Ejemplo> Muestras::peorCaso(int seccion) {
  const auto mayor = [&](QStringView que) {
    return catalogo_.base().uno(
        dao::conMarcas(u"SELECT CODPLU FROM PLUSES WHERE SECCION=? AND CODPLU>=? ORDER BY {que} "
                       u"DESC, CODPLU LIMIT 1",
                       {{u"que", que.toString()}}),
        seccion, articles::kPrimerCodigo);
  };
  const auto articulo = [&](const dao::Valor& codigo) {
    return catalogo_.leer({seccion, codigo.entero()});
  };
  TARVO_TOMAR(const auto conNombre, mayor(u"length(NOMPLU)"));
  if (conNombre.nulo()) return fallo(Fallo::NoExiste, catalogo_.textos()(kTxSeccionVacia));
  TARVO_TOMAR(const auto conTexto, mayor(u"length(TEXTO_ETQ)"));
  TARVO_TOMAR(const auto conPrecio, mayor(u"PRECIO_00"));
  TARVO_TOMAR(const auto conBarras, mayor(u"length(ifnull(CodBarExt,''))"));
  TARVO_TOMAR(const auto conCodigo, mayor(u"CODPLU"));
  TARVO_TOMAR(const auto nombrado, articulo(conNombre));
  TARVO_TOMAR(const auto descrito, articulo(conTexto));
  TARVO_TOMAR(const auto caro, articulo(conPrecio));
  TARVO_TOMAR(const auto cifrado, articulo(conBarras));
  if (!nombrado || !descrito || !caro || !cifrado)
    return fallo(Fallo::NoExiste, catalogo_.textos()(kTxArticuloSeFue));
  Ejemplo e = de(*caro, caro->porPeso() ? kGramosMayor : kUnidadesMayor);
  e.nombre = catalogo_.textos()(kTxElPeorCaso);
  en(e, TipoCampo::Peso) = seguido(VerCantidad(ajustes_.idioma, kGramosMayor, 0), ajustes_.idioma);
  en(e, TipoCampo::Tara) = en(e, TipoCampo::Peso);
  en(e, TipoCampo::Unidades) = QString::number(kUnidadesMayor);
  en(e, TipoCampo::NombrePlu) = nombrado->nombre;
  en(e, TipoCampo::Descripcion) = descrito->textoEtq.simplified();
  en(e, TipoCampo::CodigoDeBarras) = articles::codigoImpreso(*cifrado);
  en(e, TipoCampo::CodigoPlu) = QString::number(conCodigo.entero());
  TARVO_INTENTAR(ponerCabecera(e, seccion, true));
  return e;
}

QString contenidoDe(const CampoEtiqueta& c, const Ejemplo& e, const LectorTextos& textos) {
  if (c.tipo == TipoCampo::LineaTexto) return textos(c.Ntxt);
  if (c.tipo == TipoCampo::RazonSocial)
    return e.razonSocial[static_cast<size_t>(std::clamp(c.NmL, 1, 6) - 1)];
  return e.textos[static_cast<size_t>(c.tipo)];
}

bool Impresion::negro(int x, int y) const {
  return std::ranges::any_of(campos, [&](const Mancha& m) {
    return m.caja.contains(x, y) && m.negro(x - m.caja.left(), y - m.caja.top());
  });
}

Impresion imprimir(const Formato& formato, const Ejemplo& ejemplo, const LectorTextos& textos,
                   const FuenteImpresora& fuente) {
  Impresion salida;
  salida.area = areaDe(formato).size();
  const QRect area(QPoint(), salida.area);
  std::vector<QRect> tintas;
  using Que = Tropiezo::Que;
  for (size_t i = 0; i < formato.campos.size(); ++i) {
    const CampoEtiqueta& c = formato.campos[i];
    QString contenido = contenidoDe(c, ejemplo, textos);
    const int cabenSuyos = caracteresDe(c.tipo);
    const int caben =
        esTexto(c.tipo)
            ? std::min(cabenSuyos > 0 ? cabenSuyos : kAnchoCabezal,
                       (kAnchoCabezal - 1) / kMedidas[static_cast<size_t>(c.fuente)].avance())
            : kAnchoCabezal;
    if (esTexto(c.tipo) && contenido.size() > caben) {
      salida.tropiezos.push_back({.que = Que::Cortado, .campo = i, .letras = contenido.mid(caben)});
      contenido.truncate(caben);
    }
    Mancha m = manchaDe(c, contenido, fuente);
    const QRect tinta = m.tinta();
    if (c.tipo == TipoCampo::CodigoDeBarras && tinta.isEmpty() && c.Altu > 0)
      salida.tropiezos.push_back({.que = Que::SinBarras, .campo = i});
    if (!tinta.isEmpty() && !area.contains(tinta))
      salida.tropiezos.push_back({.que = Que::Fuera, .campo = i});
    for (size_t j = 0; j < i; ++j)
      if (seEstorban(formato.campos[j], salida.campos[j], tintas[j], c, m, tinta))
        salida.tropiezos.push_back({.que = Que::Encima, .campo = i, .otro = j});
    salida.campos.push_back(std::move(m));
    tintas.push_back(tinta);
  }
  return salida;
}

}  // namespace tarvo::labels
