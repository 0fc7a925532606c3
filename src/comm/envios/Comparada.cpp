#include "comm/envios/Comparada.h"

#include <algorithm>

#include "comm/envios/Motivos.h"
#include "comm/envios/TextosEnvios.h"
#include "core/dinero/Dinero.h"

namespace tarvo::envios {

namespace {

using maquinas::CampoPLU;

// The fields as plain texts, numbers as digits.
using Campos = std::array<QString, maquinas::kCamposPLU>;

size_t indice(CampoPLU campo) {
  return static_cast<size_t>(campo);
}

Campos deFicha(TipoGrupo tipo, const maquinas::Ficha& f) {
  Campos campos;
  for (size_t i = 0; i < campos.size(); ++i) {
    QString t = maquinas::textoDeBalanza(tipo, f.campos[i]);
    t.replace(u'\r', u'\n');
    while (t.endsWith(u' ')) t.chop(1);
    campos[i] = t;
  }
  constexpr int kBarras = 22;
  const QByteArray barras = f.campo(CampoPLU::BARRAS);
  if (!barras.isEmpty())
    campos[indice(CampoPLU::BARRAS)] = QString::number(barras.front() - kBarras);
  return campos;
}

Campos deArticulo(const maquinas::Articulo& a) {
  const auto n = [](qint64 valor) { return QString::number(valor); };
  return {a.nombre,           n(a.codigo),       n(a.precios[0]),
          n(a.cada),          n(a.formato),      n(a.barras),
          a.pfxBar.trimmed(), n(a.depto),        n(a.tara.value_or(1)),
          n(a.numdias1),      n(a.numdias2),     n(a.modificable ? 1 : 0),
          n(a.minimo),        n(a.descto / 100), n(a.hasta1),
          n(a.precios[1]),    n(a.hasta2),       n(a.precios[2]),
          a.textoEtq};
}

QString visto(const Campos& campos, CampoPLU cual, const Ajustes& ajustes, const Textos& textos) {
  constexpr int kCifrasCodigo = 7, kUnidades = 3;
  const QString& texto = campos[indice(cual)];
  bool esNumero = false;
  const qint64 n = texto.toLongLong(&esNumero);
  if (!esNumero) return texto;
  switch (cual) {
    case CampoPLU::NomPLU:
    case CampoPLU::TEXTO_ETQ:
      return texto;
    case CampoPLU::CodPLU:
    case CampoPLU::PFX_BAR:
      return texto.rightJustified(kCifrasCodigo, u'0');
    case CampoPLU::Precio0:
    case CampoPLU::Precio1:
    case CampoPLU::Precio2:
    case CampoPLU::minimo:
      return VerImporte(ajustes, n, ajustes.MonedaNativa != 0 ? 1 : 0);
    case CampoPLU::HASTA_1:
    case CampoPLU::HASTA_2:
      return VerCantidad(ajustes.idioma, n, campos[indice(CampoPLU::cada)].toInt());
    case CampoPLU::cada:
      if (n >= 0 && n < kUnidades) return textos(kTxUnidades + static_cast<int>(n));
      break;
    case CampoPLU::MDF_PRE:
      if (n == 0 || n == 1) return siNo(n == 1, ajustes.EsEspanol());
      break;
    default:
      break;
  }
  return QString::number(n);
}

struct Lado {
  std::optional<maquinas::Ficha> ficha;
  std::optional<Campos> campos;
  QString ver(CampoPLU cual, const Ajustes& ajustes, const Textos& textos) const {
    return campos ? visto(*campos, cual, ajustes, textos) : QString();
  }
};

Lado ladoDe(TipoGrupo tipo, const QByteArray& registro) {
  const auto ficha = maquinas::leerFicha(registro);
  if (!ficha) return {};
  return {*ficha, deFicha(tipo, *ficha)};
}

Lado ladoDe(TipoGrupo tipo, const maquinas::Articulo& articulo) {
  if (const auto registro = maquinas::TramaPLU(tipo, articulo)) return ladoDe(tipo, *registro);
  return {std::nullopt, deArticulo(articulo)};
}

std::vector<CampoComparado> enParalelo(const Lado& aqui, const Lado& alli, const Ajustes& ajustes,
                                       const Textos& textos) {
  std::vector<CampoComparado> salida;
  const bool porFicha = aqui.ficha && alli.ficha;
  const auto distintos =
      porFicha ? maquinas::diferencias(*aqui.ficha, *alli.ficha) : std::vector<CampoPLU>{};
  for (int i = 0; i < maquinas::kCamposPLU; ++i) {
    const auto campo = static_cast<CampoPLU>(i);
    if (campo == CampoPLU::CodBarExt) continue;
    CampoComparado c{nombreDeCampo(campo, textos), aqui.ver(campo, ajustes, textos),
                     alli.ver(campo, ajustes, textos), false};
    c.distinto = porFicha ? std::ranges::find(distintos, campo) != distintos.end()
                          : aqui.campos && alli.campos && c.aqui != c.alli;
    salida.push_back(std::move(c));
  }
  return salida;
}

}  // namespace

Resultado<FichaComparada> compararFicha(dao::Database& db, const Destino& d, qint64 codigo,
                                        const Ajustes& ajustes, const Textos& textos, Fecha ahora) {
  FichaComparada salida;
  TARVO_TOMAR(const auto rs,
              db.consultar(u"SELECT FICHA, CUANDO FROM FichasPedidas WHERE GRUPO=? AND CODPLU=?",
                           d.grupo, codigo));
  Lado aqui, alli;
  if (!rs->Eof()) {
    salida.cuando = rs->fecha(1);
    alli = ladoDe(d.tipo, QByteArray::fromHex(rs->texto(0).toLatin1()));
    salida.laTiene = alli.ficha.has_value();
  }
  TARVO_TOMAR(const auto articulo, Lector(db, d).articulo(codigo, ahora));
  if (articulo) aqui = ladoDe(d.tipo, *articulo);
  salida.campos = enParalelo(aqui, alli, ajustes, textos);
  return salida;
}

}  // namespace tarvo::envios
