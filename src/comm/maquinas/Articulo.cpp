#include "comm/maquinas/Articulo.h"

#include <utility>

#include "comm/maquinas/Letras.h"

namespace tarvo::maquinas {

namespace {

// Readers drop a frame above 64 KiB; 12 bytes of it aren't data.
constexpr qint64 kMaximoRegistro = 64 * 1024 - 12;
constexpr char kFinRegistro = 19, kBarras = 22;
constexpr qint64 kUltimoTipoBarras = 1;
constexpr int kAnchoPrefijo = 7, kAnchoCodigoCompuesto = 6, kAnchoCodigoBarras = 13;

constexpr qint64 tope(int ancho) {
  qint64 n = 1;
  for (; ancho > 0; --ancho) n *= 10;
  return n - 1;
}

bool soloCifras(QStringView texto) {
  for (const QChar c : texto)
    if (c < u'0' || c > u'9') return false;
  return true;
}

int anchoNombre(TipoGrupo tipo) {
  return tipo == TipoGrupo::Ebony ? 16 : 20;
}

// Lines end in one CR.
Escrito escribirParrafo(TipoGrupo tipo, QString texto, qsizetype ancho) {
  texto.replace(QStringLiteral("\r\n"), QStringLiteral("\r"));
  return escribirLetras(tipo, texto.replace(u'\n', u'\r'), ancho, true);
}

// Writes field after field; the first that doesn't fit is kept as the reason.
class Escritor {
 public:
  Escritor(TipoGrupo tipo, qsizetype tamano) : tipo_(tipo) { registro_.reserve(tamano); }

  void fijo(QByteArrayView bytes) { registro_.append(bytes); }
  void numero(CampoPLU campo, qint64 n, int ancho, qint64 minimo = 0) {
    hastaTope(campo, n, ancho, minimo, tope(ancho));
  }
  void hastaTope(CampoPLU campo, qint64 n, int ancho, qint64 minimo, qint64 maximo) {
    if (entre(campo, n, minimo, maximo)) cifras(n, ancho);
  }
  // False, with the reason kept, for a number outside the limits.
  bool entre(CampoPLU campo, qint64 n, qint64 minimo, qint64 maximo) {
    if (n < minimo) negar({campo, NoCabe::Pequeno, minimo, QString::number(n)});
    if (n > maximo) negar({campo, NoCabe::Grande, maximo, QString::number(n)});
    return n >= minimo && n <= maximo;
  }
  // Text beyond the width is cut, as on any display.
  void nombre(const QString& texto, int ancho) {
    const QByteArray letras = escribirLetras(tipo_, texto, ancho).bytes;
    registro_.append(letras).append(ancho - letras.size(), ' ');
  }
  void parrafo(CampoPLU campo, const QString& texto) {
    const qint64 sitio = kMaximoRegistro - registro_.size() - 1;
    const QByteArray letras = escribirParrafo(tipo_, texto, sitio + 1).bytes;
    if (letras.size() > sitio) return negar({campo, NoCabe::Largo, sitio, texto.left(20)});
    registro_.append(letras);
  }
  void negar(NoCabe motivo) {
    if (!falta_) falta_ = std::move(motivo);
  }
  Cabe<QByteArray> fin() {
    if (falta_) return std::unexpected(*falta_);
    return std::move(registro_);
  }

 private:
  // The hot path: a list of articles is mostly digits.
  void cifras(qint64 n, int ancho) {
    registro_.resize(registro_.size() + ancho);
    for (char* p = registro_.data() + registro_.size(); ancho > 0; --ancho, n /= 10)
      *--p = static_cast<char>('0' + n % 10);
  }

  const TipoGrupo tipo_;
  QByteArray registro_;
  std::optional<NoCabe> falta_;
};

void prefijo(Escritor& e, const QString& pfx) {
  const QString t = pfx.trimmed();
  if (!soloCifras(t)) return e.negar({CampoPLU::PFX_BAR, NoCabe::Cifras, 0, t});
  if (t.size() > kAnchoPrefijo)
    return e.negar({CampoPLU::PFX_BAR, NoCabe::Largo, kAnchoPrefijo, t});
  e.fijo(t.toLatin1().rightJustified(kAnchoPrefijo, '0'));
}

Cabe<QByteArray> deBalanza(TipoGrupo tipo, const Articulo& a) {
  Escritor e(tipo, 90 + a.textoEtq.size());
  e.nombre(a.nombre, anchoNombre(tipo));
  e.numero(CampoPLU::CodPLU, a.codigo, 7, 1);
  e.numero(CampoPLU::Precio0, a.precios[0], 6);
  e.hastaTope(CampoPLU::cada, a.cada, 1, 0, 2);
  e.numero(CampoPLU::Formato, a.formato, 2);
  if (e.entre(CampoPLU::BARRAS, a.barras, 0, kUltimoTipoBarras))
    e.fijo(QByteArray(1, static_cast<char>(kBarras + a.barras)));
  prefijo(e, a.pfxBar);
  e.numero(CampoPLU::Depto, a.depto, 2);
  e.numero(CampoPLU::Tara, a.tara.value_or(1), 2);
  e.numero(CampoPLU::NUMDIAS_1, a.numdias1, 5);
  e.numero(CampoPLU::NUMDIAS_2, a.numdias2, 5);
  e.fijo(a.modificable ? "1" : "0");
  e.numero(CampoPLU::minimo, a.minimo, 6);
  // A negative one must not round up to 0.
  e.numero(CampoPLU::DESCTO, a.descto < 0 ? a.descto : a.descto / 100, 2);
  e.numero(CampoPLU::HASTA_1, a.hasta1, 5);
  e.numero(CampoPLU::Precio1, a.precios[1], 6);
  e.numero(CampoPLU::HASTA_2, a.hasta2, 5);
  e.numero(CampoPLU::Precio2, a.precios[2], 6);
  e.parrafo(CampoPLU::TEXTO_ETQ, a.textoEtq);
  e.fijo(QByteArray(1, kFinRegistro));
  return e.fin();
}

Cabe<QByteArray> deEbony(const Articulo& a) {
  constexpr qint64 kDepartamentos = 10, kPor100g = 1, kPorUnidad = 2;
  Escritor e(TipoGrupo::Ebony, 32);
  e.fijo("99");
  e.numero(CampoPLU::CodPLU, a.codigo, 4, 1);
  e.nombre(a.nombre, anchoNombre(TipoGrupo::Ebony));
  // There, weighed articles are priced by the kilogram.
  const qint64 veces = a.cada == kPor100g ? 10 : 1;
  if (e.entre(CampoPLU::Precio0, a.precios[0], 0, tope(8) / veces))
    e.numero(CampoPLU::Precio0, a.precios[0] * veces, 8);
  if (e.entre(CampoPLU::cada, a.cada, 0, kPorUnidad))
    e.fijo(a.cada == kPorUnidad ? (a.modificable ? "4" : "2") : (a.modificable ? "3" : "1"));
  if (e.entre(CampoPLU::Depto, a.depto, 1, kDepartamentos))
    e.numero(CampoPLU::Depto, a.depto - 1, 1);
  return e.fin();
}

// Registers identify articles and their sales by bar code.
void codigoDeBarras(Escritor& e, const Articulo& a) {
  const QString fijo = a.codBarExt.value_or(QString()).trimmed();
  if (fijo.isEmpty()) {
    prefijo(e, a.pfxBar);
    return e.numero(CampoPLU::CodPLU, a.codigo, kAnchoCodigoCompuesto, 1);
  }
  if (!soloCifras(fijo)) return e.negar({CampoPLU::CodBarExt, NoCabe::Cifras, 0, fijo});
  if (fijo.size() > kAnchoCodigoBarras)
    return e.negar({CampoPLU::CodBarExt, NoCabe::Largo, kAnchoCodigoBarras, fijo});
  e.fijo(Campo(fijo.toLatin1(), kAnchoCodigoBarras));
}

Cabe<QByteArray> deCaja(const Articulo& a) {
  Escritor e(TipoGrupo::Registradoras, 53);
  codigoDeBarras(e, a);
  e.nombre(a.nombre, anchoNombre(TipoGrupo::Registradoras));
  e.numero(CampoPLU::Precio0, a.precios[0], 9);
  e.numero(CampoPLU::Precio1, a.precios[1], 9);
  e.numero(CampoPLU::Depto, a.depto, 2);
  return e.fin();
}

}  // namespace

Cabe<QByteArray> TramaPLU(TipoGrupo tipo, const Articulo& articulo) {
  switch (tipo) {
    case TipoGrupo::Ebony:
      return deEbony(articulo);
    case TipoGrupo::Registradoras:
      return deCaja(articulo);
    case TipoGrupo::Balanzas:
    case TipoGrupo::Birch:
      return deBalanza(tipo, articulo);
  }
  std::unreachable();
}

QString letrasQueFaltan(TipoGrupo tipo, const Articulo& a) {
  QString faltan = escribirLetras(tipo, a.nombre, anchoNombre(tipo)).cambiadas;
  if (tipo == TipoGrupo::Ebony || tipo == TipoGrupo::Registradoras) return faltan;
  for (const QChar c : escribirParrafo(tipo, a.textoEtq, kMaximoRegistro).cambiadas)
    if (c.isSurrogate() || !faltan.contains(c)) faltan += c;
  return faltan;
}

Cabe<QByteArray> TramaPrecios(const Articulo& a) {
  Escritor e(TipoGrupo::Balanzas, 25);
  e.numero(CampoPLU::CodPLU, a.codigo, 7, 1);
  e.numero(CampoPLU::Precio0, a.precios[0], 6);
  e.numero(CampoPLU::Precio1, a.precios[1], 6);
  e.numero(CampoPLU::Precio2, a.precios[2], 6);
  return e.fin();
}

Peticion enviarArticulo(TipoGrupo tipo, const QByteArray& registro) {
  switch (tipo) {
    case TipoGrupo::Ebony:
      return {32, registro};
    case TipoGrupo::Registradoras:
      return {4003, registro};
    case TipoGrupo::Balanzas:
    case TipoGrupo::Birch:
      return {100, registro};
  }
  std::unreachable();
}
Peticion enviarPrecios(const QByteArray& registro) {
  return {101, registro};
}
Peticion borrarArticulo(qint64 codigo) {
  return {120, Ceros(codigo, 7)};
}
Peticion pedirArticulo(qint64 desde) {
  return {101, Ceros(desde, 7)};
}
Peticion borrarArticulos(TipoGrupo tipo) {
  return tipo == TipoGrupo::Registradoras ? Peticion{4098, "00"} : Peticion{73, {}};
}

}  // namespace tarvo::maquinas
