#include "comm/envios/Perdidas.h"

#include "core/dao/Marcas.h"

namespace tarvo::envios {

namespace {

// The system articles 1 and 2 are in no machine.
constexpr auto kDeUnGrupo =
    uR"(
SELECT g.NOMGPO,
  (SELECT count(*) FROM Enviados e WHERE e.GRUPO=g.CODGPO),
  (SELECT count(*) FROM PLUSES p WHERE p.SECCION=g.SECCION AND p.CODPLU>2),
  (SELECT PZERO FROM Sesiones s WHERE s.CODGPO=g.CODGPO)
FROM GRUPOS g WHERE g.CODGPO=?)";

// Rows without a period are those of the inbox, unless a period has that reading: then they stay as
// the base of the next one. Every kind of reading that adds up all sales gives the amount; the
// largest is the most complete.
Resultado<> contarVentas(dao::Database& db, Perdida& p) {
  constexpr struct {
    TipoTarea clase;
    const char16_t* tabla;
  } kClases[] = {{TipoTarea::RxGrTot, u"TOTGRT"},
                 {TipoTarea::RxPlus, u"TOTPLU"},
                 {TipoTarea::RxDepar, u"TOTDEP"}};
  for (const auto& c : kClases) {
    const QString sql = dao::conMarcas(
        u"SELECT count(*), sum(IMP) FROM {totales} WHERE LINK=0 AND GRUPO=? AND NOT EXISTS (SELECT "
        u"1 FROM Lecturas WHERE Lecturas.GRUPO=? AND CLASE=? AND Lecturas.LINK IS NOT NULL AND "
        u"APARTE=0)",
        {{u"totales", QString::fromUtf16(c.tabla)}});
    TARVO_TOMAR(const auto rs, db.consultar(sql, p.grupo, p.grupo, c.clase));
    if (rs->entero(0) == 0) continue;
    p.ventas = p.hayVentas ? std::max(p.ventas, rs->entero(1)) : rs->entero(1);
    p.hayVentas = true;
  }
  return {};
}

}  // namespace

Resultado<std::vector<Perdida>> loQueSePierde(dao::Database& db, std::span<const int> grupos) {
  std::vector<Perdida> todas;
  for (const int grupo : grupos) {
    TARVO_TOMAR(const auto rs, db.consultar(QStringView(kDeUnGrupo), grupo));
    if (rs->Eof()) continue;
    Perdida p;
    p.grupo = grupo;
    p.nombre = rs->texto(0).trimmed();
    p.articulos = rs->entero(1);
    p.deSeccion = rs->entero(2);
    if (!rs->nulo(3) && rs->fecha(3).dias() > 0) p.cero = rs->fecha(3);
    TARVO_INTENTAR(contarVentas(db, p));
    todas.push_back(std::move(p));
  }
  return todas;
}

}  // namespace tarvo::envios
