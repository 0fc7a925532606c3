#include "core/dao/Apartado.h"

#include "core/dao/Marcas.h"

namespace tarvo::dao {

using namespace Qt::StringLiterals;

// {guardada}, {tabla}, {donde}, {columnas}, and the last in brackets as {lista}.
QString Apartado::enTabla(QStringView sentencia, const Parte& p) const {
  return conMarcas(sentencia,
                   {{u"guardada", u"[Ida%1_%2]"_s.arg(nombre_, p.tabla)},
                    {u"tabla", p.tabla},
                    {u"donde", p.donde},
                    {u"columnas", p.columnas},
                    {u"lista", p.columnas == u"*" ? QString() : u" (%1)"_s.arg(p.columnas)}});
}

Resultado<> Apartado::soltar() {
  for (const Parte& p : partes_)
    TARVO_INTENTAR(db_.ejecutar(enTabla(u"DROP TABLE IF EXISTS {guardada}", p)));
  return {};
}

Resultado<> Apartado::guardar(const Valor& parametro) {
  TARVO_INTENTAR(soltar());
  for (const Parte& p : partes_)
    TARVO_INTENTAR(db_.ejecutar(
        enTabla(u"CREATE TEMP TABLE {guardada} AS SELECT {columnas} FROM [{tabla}] WHERE {donde}",
                p),
        parametro));
  return {};
}

Resultado<> Apartado::reponer() {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  for (const Parte& p : partes_)
    TARVO_INTENTAR(
        db_.ejecutar(enTabla(u"INSERT INTO [{tabla}]{lista} SELECT * FROM {guardada}", p)));
  return t.confirmar();
}

}  // namespace tarvo::dao
