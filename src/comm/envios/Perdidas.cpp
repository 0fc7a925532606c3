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

// Rows without a period are in no book while the open session holds them, or a session was closed
// without memorising them and the group hasn't been read whole since. Of a memorised reading they
// stay as the base of the next one, and once its machines are zeroed they are a mere copy. Every
// kind of reading that adds up all sales gives the amount; the largest is the most complete.
Resultado<> contarVentas(dao::Database& db, Perdida& p) {
  constexpr struct {
    TipoTarea clase;
    const char16_t *tabla, *marca;
  } kClases[] = {{TipoTarea::RxGrTot, u"TOTGRT", u"SS_GRT"},
                 {TipoTarea::RxPlus, u"TOTPLU", u"SS_PLU"},
                 {TipoTarea::RxDepar, u"TOTDEP", u"SS_DEP"}};
  for (const auto& c : kClases) {
    const QString sql = dao::conMarcas(
        u"SELECT count(*), sum(IMP) FROM {totales} WHERE LINK=0 AND GRUPO=? AND NOT EXISTS (SELECT "
        u"1 FROM Lecturas WHERE Lecturas.GRUPO=? AND CLASE=? AND Lecturas.LINK IS NOT NULL AND "
        u"APARTE=0) AND (EXISTS (SELECT 1 FROM Sesiones, EstadoTarvo WHERE CODGPO=? AND {marca} "
        u"AND CLAVE='SesionAbier' AND VALOR=2) OR EXISTS (SELECT 1 FROM Olvidos o WHERE o.GRUPO=? "
        u"AND o.SEC>(SELECT COALESCE(MAX(SEC), 0) FROM Lecturas l WHERE l.GRUPO=o.GRUPO AND "
        u"ESTADO=2 AND ENTERA<>0)))",
        {{u"totales", QString::fromUtf16(c.tabla)}, {u"marca", QString::fromUtf16(c.marca)}});
    TARVO_TOMAR(const auto rs, db.consultar(sql, p.grupo, p.grupo, c.clase, p.grupo, p.grupo));
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
