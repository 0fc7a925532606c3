#include "articles/LotesAMedias.h"

#include <algorithm>

#include "articles/TextosArticles.h"

namespace tarvo::articles {

namespace {

Resultado<std::vector<int>> seccionesDe(dao::Database& db, qint64 lote) {
  TARVO_TOMAR(auto rs, db.consultar(u"SELECT NMSECC FROM SECCS WHERE EXISTS (SELECT 1 FROM "
                                    u"LoteAntes WHERE LOTE=? AND SECCION=NMSECC) ORDER BY NMSECC",
                                    lote));
  std::vector<int> salida;
  while (!rs->Eof()) {
    salida.push_back(static_cast<int>(rs->entero(0)));
    TARVO_INTENTAR(rs->MoveNext());
  }
  return salida;
}

}  // namespace

Resultado<std::vector<LoteAMedias>> lotesAMedias(Catalogo& catalogo) {
  dao::Database& db = catalogo.base();
  std::vector<LoteAMedias> salida;
  if (!db.existeTabla(u"LoteArticulos")) return salida;
  TARVO_TOMAR(auto rs,
              db.consultar(u"SELECT A.LOTE, A.CUANDO, (SELECT count(*) FROM LoteAntes L WHERE "
                           u"L.LOTE=A.LOTE), A.VENTANA, (SELECT count(*) FROM LotePorHacer H WHERE "
                           u"H.LOTE=A.LOTE) FROM LoteArticulos A WHERE A.ACABADO=0 AND EXISTS "
                           u"(SELECT 1 FROM LoteAntes E WHERE E.LOTE=A.LOTE) ORDER BY A.LOTE"));
  while (!rs->Eof()) {
    LoteAMedias l{{rs->entero(0), rs->fecha(1), rs->entero(2), false}, rs->texto(3), {}, 0};
    l.porHacer = rs->entero(4);
    TARVO_TOMAR(l.secciones, seccionesDe(db, l.lote.numero));
    salida.push_back(std::move(l));
    TARVO_INTENTAR(rs->MoveNext());
  }
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
  return textos(l.porHacer > 0 ? kTxLoteAMedias : kTxLoteCortado,
                {l.lote.cuando.general(), l.lote.articulos, l.porHacer});
}

}  // namespace tarvo::articles
