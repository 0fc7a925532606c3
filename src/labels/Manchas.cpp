#include "labels/Manchas.h"

#include "articles/CodigoBarras.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnchoBarras = 100, kAnchoTexto = kAnchoCabezal - 1;

Mancha vacia(const QRect& caja) {
  return {caja, std::vector<quint8>(static_cast<size_t>(caja.width()) *
                                    static_cast<size_t>(caja.height()))};
}

void poner(Mancha& m, int x, int y) {
  if (x >= 0 && y >= 0 && x < m.caja.width() && y < m.caja.height())
    m.puntos[static_cast<size_t>(y) * static_cast<size_t>(m.caja.width()) +
             static_cast<size_t>(x)] = 1;
}

// A dot of a drawing of `ancho` by `alto` after its quarter turns.
QPoint girado(int x, int y, int ancho, int alto, int vueltas) {
  switch (vueltas) {
    case 1:
      return {alto - y - 1, x};
    case 2:
      return {ancho - x - 1, alto - y - 1};
    case 3:
      return {y, ancho - x - 1};
    default:
      return {x, y};
  }
}

const MedidaFuente& medidaDe(const CampoEtiqueta& c) {
  return kMedidas[static_cast<size_t>(std::clamp(c.fuente, 0, kFuentes - 1))];
}

// The turned box of a text or a bar code: the anchor is its bottom left corner before turning.
QRect girada(const CampoEtiqueta& c, int ancho, int alto) {
  switch (c.rotacion) {
    case 1:
      return {c.X, c.Y, alto, ancho};
    case 2:
      return {c.X - ancho, c.Y, ancho, alto};
    case 3:
      return {c.X - alto, c.Y - ancho, alto, ancho};
    default:
      return {c.X, c.Y - alto, ancho, alto};
  }
}

QRect cajaLinea(const CampoEtiqueta& c) {
  const int lado = c.Esp / 2;
  switch (c.rotacion) {
    case 1:
      return {c.X - lado, c.Y, c.Esp, c.Lon};
    case 2:
      return {c.X - c.Lon, c.Y - lado, c.Lon, c.Esp};
    case 3:
      return {c.X - lado, c.Y - c.Lon, c.Esp, c.Lon};
    default:
      return {c.X, c.Y - lado, c.Lon, c.Esp};
  }
}

int anchoTexto(const CampoEtiqueta& c, qsizetype letras) {
  return static_cast<int>(std::min<qsizetype>(letras * medidaDe(c).avance(), kAnchoTexto));
}

Mancha texto(const CampoEtiqueta& c, const QString& contenido, const FuenteImpresora& fuente) {
  Mancha m = vacia(cajaDe(c, contenido));
  const QString codigos = caracteresFuente(contenido);
  const MedidaFuente& f = medidaDe(c);
  // The blank columns after the last character don't turn with the others.
  const int ancho = anchoTexto(c, codigos.size()) - 2;
  for (qsizetype p = 0; p < codigos.size(); ++p)
    for (int i = 0; i < f.ancho; ++i) {
      const int x = static_cast<int>(p) * f.avance() + i;
      if (x >= ancho) return m;
      for (int j = 0; j < f.alto; ++j) {
        if (!fuente.negro(c.fuente, codigos[p].unicode(), i, j)) continue;
        const QPoint donde = girado(x, j, ancho, f.alto, c.rotacion);
        poner(m, donde.x(), donde.y());
      }
    }
  return m;
}

Mancha barras(const CampoEtiqueta& c, const QString& numero) {
  Mancha m = vacia(cajaDe(c, numero));
  const std::vector<bool> modulos = articles::modulosBarras(numero);
  const int margen = std::max(0, (kAnchoBarras - static_cast<int>(modulos.size())) / 2);
  for (size_t i = 0; i < modulos.size(); ++i)
    for (int j = 0; modulos[i] && j < c.Altu; ++j) {
      const QPoint donde =
          girado(margen + static_cast<int>(i), j, kAnchoBarras, c.Altu, c.rotacion);
      poner(m, donde.x(), donde.y());
    }
  return m;
}

Mancha rectangulo(const CampoEtiqueta& c) {
  Mancha m = vacia(cajaDe(c, {}));
  const QRect dentro = QRect(QPoint(), m.caja.size()).adjusted(c.Esp, c.Esp, -c.Esp, -c.Esp);
  for (int y = 0; y < m.caja.height(); ++y)
    for (int x = 0; x < m.caja.width(); ++x)
      if (!dentro.contains(x, y)) poner(m, x, y);
  return m;
}

}  // namespace

QRect Mancha::tinta() const {
  QRect r;
  for (int y = 0; y < caja.height(); ++y)
    for (int x = 0; x < caja.width(); ++x)
      if (negro(x, y)) r |= QRect(caja.topLeft() + QPoint(x, y), QSize(1, 1));
  return r;
}

int caracteresDe(TipoCampo tipo) {
  switch (tipo) {
    case TipoCampo::Peso:
    case TipoCampo::Tara:
    case TipoCampo::Unidades:
      return 6;
    case TipoCampo::Precio:
    case TipoCampo::Importe:
    case TipoCampo::CodigoPlu:
    case TipoCampo::PrecioAlternativo:
    case TipoCampo::ImporteAlternativo:
      return 7;
    case TipoCampo::NombrePlu:
    case TipoCampo::Descripcion:
    case TipoCampo::RazonSocial:
      return 27;
    case TipoCampo::Fecha:
    case TipoCampo::Caducidad1:
    case TipoCampo::Caducidad2:
      return 8;
    default:
      return 0;
  }
}

QString muestraDe(const CampoEtiqueta& c, const LectorTextos& textos) {
  // Marks, not words: what a format looks like in any language.
  static const QString kMuestras[] = {{},
                                      u"-PESO-"_s,
                                      u"-PRECIO"_s,
                                      u"IMPORTE"_s,
                                      u"-TARA-"_s,
                                      u"-UNIDS"_s,
                                      u"2000000000008"_s,
                                      u"---NOMBRE PLU-------------"_s,
                                      u"----TEXTO DESCRIPCION------"_s,
                                      u"-FECHA--"_s,
                                      u"CADUC. 1"_s,
                                      u"CADUC. 2"_s,
                                      {},
                                      {},
                                      u"COD.PLU"_s,
                                      {},
                                      u"----RAZON SOCIAL-(#)-------"_s,
                                      u"PRE.ALT"_s,
                                      u"IMP.ALT"_s};
  if (c.tipo == TipoCampo::LineaTexto) {
    const QString texto = textos(c.Ntxt);
    return texto.isEmpty() ? QString(8, u' ') : texto;
  }
  QString muestra = kMuestras[static_cast<size_t>(c.tipo)];
  if (c.tipo == TipoCampo::RazonSocial) muestra.replace(u'#', QString::number(c.NmL));
  return muestra;
}

QRect cajaDe(const CampoEtiqueta& c, const QString& contenido) {
  switch (c.tipo) {
    case TipoCampo::CodigoDeBarras:
      return girada(c, kAnchoBarras, c.Altu);
    case TipoCampo::LineaGrafica:
      return cajaLinea(c);
    case TipoCampo::Rectangulo:
      return {QPoint(std::min(c.X, c.X2), std::min(c.Y, c.Y2)),
              QPoint(std::max(c.X, c.X2), std::max(c.Y, c.Y2))};
    default: {
      const int suyos = caracteresDe(c.tipo);
      return girada(c, anchoTexto(c, suyos > 0 ? suyos : std::max<qsizetype>(1, contenido.size())),
                    medidaDe(c).alto);
    }
  }
}

Mancha manchaDe(const CampoEtiqueta& c, const QString& contenido, const FuenteImpresora& fuente) {
  switch (c.tipo) {
    case TipoCampo::CodigoDeBarras:
      return barras(c, contenido);
    case TipoCampo::LineaGrafica: {
      Mancha m = vacia(cajaLinea(c));
      std::ranges::fill(m.puntos, 1);
      return m;
    }
    case TipoCampo::Rectangulo:
      return rectangulo(c);
    default:
      return texto(c, contenido, fuente);
  }
}

}  // namespace tarvo::labels
