// One warehouse.
#include "stock/Almacenes.h"
#include "stock/Listas.h"
#include "stock/Movimientos.h"

namespace tarvo::stock {

namespace {

Resultado<std::vector<int>> codigos(dao::Database& db, QStringView sql, int almacen) {
  return dao::reunir(db.consultar(sql, almacen),
                     [](const dao::Recordset& fila) { return static_cast<int>(fila.entero(0)); });
}

dao::Valor valorDe(std::optional<Fecha> f) {
  return f ? dao::Valor(*f) : dao::Valor();
}

}  // namespace

Almacen::Almacen(dao::Database& db, Reloj& reloj, const Textos& textos, Almacenes::Fila fila)
    : db_(&db), reloj_(&reloj), textos_(&textos), fila_(std::move(fila)) {}

int Almacen::Codigo() const {
  return fila_.CODALM;
}
QString Almacen::Nombre() const {
  return fila_.NOMALM;
}
std::optional<Fecha> Almacen::FechaInicio() const {
  return fila_.FCHINI;
}
std::optional<Fecha> Almacen::FechaRegulacion() const {
  return fila_.FCHREG;
}

Resultado<bool> Almacen::ponerCodigo(int c) {
  TARVO_TOMAR(const auto otro, Almacenes(*db_, *reloj_, *textos_).almacen(c));
  if (otro) {
    fila_ = otro->fila_;
    return true;
  }
  if (fila_.CODALM <= 0) return false;
  TARVO_TOMAR(const auto n,
              db_->ejecutar(u"update ALMACEN set CODALM=? where CODALM=?", c, fila_.CODALM));
  if (n > 0) fila_.CODALM = c;
  return n > 0;
}

Resultado<bool> Almacen::ponerNombre(const QString& nombre) {
  TARVO_TOMAR(const auto dueno, Almacenes(*db_, *reloj_, *textos_).CodigoAlmacen(nombre));
  if (dueno && *dueno != fila_.CODALM) return false;
  TARVO_TOMAR(const auto n,
              db_->ejecutar(u"update ALMACEN set NOMALM=? where CODALM=?", nombre, fila_.CODALM));
  if (n > 0) fila_.NOMALM = nombre;
  return n > 0;
}

Resultado<bool> Almacen::ponerFechaInicio(std::optional<Fecha> f) {
  TARVO_TOMAR(const auto n,
              db_->ejecutar(u"update ALMACEN set FCHINI=?, FCHREG=Null where CODALM=?", valorDe(f),
                            fila_.CODALM));
  if (n > 0) fila_.FCHINI = f, fila_.FCHREG.reset();
  return n > 0;
}

Resultado<bool> Almacen::ponerFechaRegulacion(std::optional<Fecha> f) {
  TARVO_TOMAR(const auto n, db_->ejecutar(u"update ALMACEN set FCHREG=? where CODALM=?", valorDe(f),
                                          fila_.CODALM));
  if (n > 0) fila_.FCHREG = f;
  return n > 0;
}

Resultado<std::vector<int>> Almacen::GruposInvolucrados() {
  return codigos(*db_, u"select CODGPO from GRUPOS where Almacen=? order by CODGPO", fila_.CODALM);
}
Resultado<std::vector<int>> Almacen::PedidosInvolucrados() {
  return codigos(*db_, u"select NUMPED from PEDI_CAB where Almacen=? order by NUMPED",
                 fila_.CODALM);
}
Resultado<std::vector<int>> Almacen::AlbaranesInvolucrados() {
  // A transfer has two warehouses.
  return codigos(*db_, u"select NUMALB from ALBA_CAB where ? in (Almacen, Origen) order by NUMALB",
                 fila_.CODALM);
}

Resultado<bool> Almacen::Inicializar(int modo) {
  if (modo != 1 && modo != 2) return false;
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(*db_));
  QString inicial = QStringLiteral("0");
  if (modo == 1)
    inicial = QStringLiteral(
        "coalesce(Inicial, 0)+coalesce(Entrada, 0)+coalesce(Compra, 0)-coalesce(Salida, 0)"
        "-coalesce(Venta, 0)-coalesce(Merma, 0)");
  TARVO_TOMAR(
      const auto n,
      db_->ejecutar(
          dao::conMarcas(u"update MovsAlm set Inicial={inicial}, Entrada=0, Compra=0, Salida=0, "
                         u"Venta=0, Merma=0, tag=Null where CODALM=?",
                         {{u"inicial", inicial}}),
          fila_.CODALM));
  if (n == 0) return false;
  TARVO_INTENTAR(borrarCeros(*db_, fila_.CODALM));
  const Almacenes::Fila antes = fila_;
  TARVO_INTENTAR(ponerFechaInicio(reloj_->ahora().dia()));
  if (const auto hecho = t.confirmar(); !hecho) {
    fila_ = antes;
    return std::unexpected(hecho.error());
  }
  return true;
}

Resultado<ItmAlm> Almacen::Item(int seccion, qint64 codigo) {
  ItmAlm item;
  TARVO_INTENTAR(item.Init(*db_, fila_.CODALM, seccion, codigo));
  return item;
}

Resultado<std::vector<Almacenes::FilaStock>> Almacen::Lista(int seccion, int vista, int orden) {
  return listarStock(*db_, fila_.CODALM, {seccion, vista, orden});
}

}  // namespace tarvo::stock
