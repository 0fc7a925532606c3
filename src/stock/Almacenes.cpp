#include "stock/Almacenes.h"

#include "stock/Listas.h"
#include "stock/Movimientos.h"
#include "stock/TextosStock.h"

namespace tarvo::stock {

namespace {

std::optional<Fecha> fechaDe(const dao::Recordset& r, int columna) {
  return r.nulo(columna) ? std::nullopt : std::optional(r.fecha(columna));
}

// Names that differ only in blanks and case are the same.
QString sinBlancos(QString nombre) {
  return nombre.remove(u' ').toUpper();
}

// The name given to a single warehouse no longer fits.
Resultado<> renombrarUnico(dao::Database& db, const std::vector<Almacenes::Fila>& filas,
                           const Textos& textos) {
  const QString unico = textos(kTxAlmacenUnico);
  for (const auto& f : filas)
    if (f.NOMALM == unico)
      TARVO_INTENTAR(db.ejecutar(u"update ALMACEN set NOMALM=? where CODALM=?",
                                 textos(kTxAlmacenNumero, {Ceros(f.CODALM, 4)}), f.CODALM));
  return {};
}

struct GrupoSuelto {
  int codigo;
  QString nombre;
};
Resultado<std::vector<GrupoSuelto>> gruposSinAlmacen(dao::Database& db) {
  return dao::reunir(
      db.consultar(
          u"select CODGPO, NOMGPO from GRUPOS where coalesce(Almacen, 0)=0 order by CODGPO"),
      [](const dao::Recordset& fila) {
        return GrupoSuelto{static_cast<int>(fila.entero(0)), fila.texto(1)};
      });
}

}  // namespace

Almacenes::Almacenes(dao::Database& db, Reloj& reloj, const Textos& textos)
    : db_(db), reloj_(reloj), textos_(textos) {}

Resultado<> Almacenes::asegurar() {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto filas, Lista());
  if (filas.empty()) {
    TARVO_INTENTAR(db_.ejecutar(u"insert into ALMACEN (CODALM, NOMALM) values (1, ?)",
                                textos_(kTxAlmacenUnico)));
    TARVO_INTENTAR(db_.ejecutar(u"update GRUPOS set Almacen=1"));
    return t.confirmar();
  }
  if (filas.size() > 1) TARVO_INTENTAR(renombrarUnico(db_, filas, textos_));
  TARVO_TOMAR(const auto sueltos, gruposSinAlmacen(db_));
  for (const GrupoSuelto& g : sueltos) {
    TARVO_TOMAR(const auto codigo, Siguiente());
    TARVO_TOMAR(const auto nuevo, Nuevo(codigo, textos_(kTxAlmacenDeGrupo, {g.nombre})));
    if (nuevo)
      TARVO_INTENTAR(db_.ejecutar(u"update GRUPOS set Almacen=? where CODGPO=?", codigo, g.codigo));
  }
  return t.confirmar();
}

Resultado<std::vector<Almacenes::Fila>> Almacenes::Lista() {
  return dao::reunir(
      db_.consultar(u"select CODALM, NOMALM, FCHINI, FCHREG from ALMACEN order by CODALM"),
      [](const dao::Recordset& r) {
        return Fila{static_cast<int>(r.entero(0)), r.texto(1), fechaDe(r, 2), fechaDe(r, 3)};
      });
}

Resultado<std::optional<Almacen>> Almacenes::almacen(int codigo) {
  TARVO_TOMAR(auto filas, Lista());
  for (Fila& f : filas)
    if (f.CODALM == codigo) return Almacen(db_, reloj_, textos_, std::move(f));
  return std::nullopt;
}

Resultado<int> Almacenes::Siguiente() {
  TARVO_TOMAR(const auto ultimo, db_.uno(u"select max(CODALM) from ALMACEN"));
  return ultimo.nulo() ? 1 : static_cast<int>(ultimo.entero()) + 1;
}

Resultado<std::optional<Almacen>> Almacenes::Nuevo(int codigo, const QString& nombre) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto filas, Lista());
  for (const Fila& f : filas)
    if (f.CODALM == codigo || sinBlancos(f.NOMALM) == sinBlancos(nombre)) return std::nullopt;
  TARVO_INTENTAR(
      db_.ejecutar(u"insert into ALMACEN (CODALM, NOMALM) values (?, ?)", codigo, nombre));
  TARVO_INTENTAR(t.confirmar());
  return Almacen(db_, reloj_, textos_, Fila{codigo, nombre, {}, {}});
}

Resultado<bool> Almacenes::Eliminar(int codigo) {
  TARVO_TOMAR(const auto filas, db_.ejecutar(u"delete from ALMACEN where CODALM=?", codigo));
  return filas > 0;
}

Resultado<std::optional<int>> Almacenes::CodigoAlmacen(const QString& nombre) {
  TARVO_TOMAR(const auto filas, Lista());
  for (const Fila& f : filas)
    if (f.NOMALM.compare(nombre, Qt::CaseInsensitive) == 0) return f.CODALM;
  return std::nullopt;
}

Resultado<std::vector<Almacenes::FilaStock>> Almacenes::ListaStock(int seccion, int vista,
                                                                   int orden) {
  return listarStock(db_, std::nullopt, {seccion, vista, orden});
}

}  // namespace tarvo::stock
