#include "articles/LotesAMedias.h"

#include <algorithm>

#include "articles/TextosArticles.h"

namespace tarvo::articles {

namespace {

Resultado<> ponerSecciones(dao::Database& db, LoteAMedias& lote) {
  QStringList nombres;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT NMSECC, NOMSEC FROM SECCS WHERE EXISTS (SELECT 1 FROM LoteAntes WHERE "
                   u"LOTE=? AND SECCION=NMSECC) ORDER BY NMSECC",
                   lote.lote.numero),
      [&](const dao::Recordset& fila) -> Resultado<> {
        lote.secciones.push_back(static_cast<int>(fila.entero(0)));
        nombres << Ceros(fila.entero(0), 3) + u' ' + fila.texto(1);
        return {};
      }));
  lote.donde = nombres.join(u", ");
  return {};
}

}  // namespace

Resultado<std::vector<LoteAMedias>> lotesAMedias(Catalogo& catalogo) {
  dao::Database& db = catalogo.base();
  std::vector<LoteAMedias> salida;
  if (!db.existeTabla(u"LoteArticulos")) return salida;
  const auto uno = [&](const dao::Recordset& fila) -> Resultado<> {
    LoteAMedias l{{fila.entero(0), fila.fecha(1), fila.entero(2), false}, fila.texto(3), {}, {}, 0};
    l.porHacer = fila.entero(4);
    TARVO_INTENTAR(ponerSecciones(db, l));
    salida.push_back(std::move(l));
    return {};
  };
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT A.LOTE, A.CUANDO, (SELECT count(*) FROM LoteAntes L WHERE "
                   u"L.LOTE=A.LOTE), A.VENTANA, (SELECT count(*) FROM LotePorHacer H WHERE "
                   u"H.LOTE=A.LOTE) FROM LoteArticulos A WHERE A.ACABADO=0 AND EXISTS "
                   u"(SELECT 1 FROM LoteAntes E WHERE E.LOTE=A.LOTE) ORDER BY A.LOTE"),
      uno));
  return salida;
}

Resultado<std::optional<QString>> motivoDeEspera(Catalogo& catalogo, int seccion) {
  TARVO_TOMAR(const auto lotes, lotesAMedias(catalogo));
  for (const LoteAMedias& l : lotes)
    if (std::ranges::find(l.secciones, seccion) != l.secciones.end())
      return decirAMedias(l, catalogo.textos());
  return std::nullopt;
}

QString decirAMedias(const LoteAMedias& l, const Textos& textos) {
  const QString que = textos(l.porHacer > 0 ? kTxLoteAMedias : kTxLoteCortado,
                             {l.lote.cuando.general(), l.lote.articulos, l.porHacer});
  return l.donde.isEmpty() ? que : textos(kTxLoteDeSeccion, {l.donde, que});
}

}  // namespace tarvo::articles
