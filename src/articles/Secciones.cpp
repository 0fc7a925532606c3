#include "articles/Secciones.h"

#include <algorithm>
#include <cmath>

#include "articles/TextosArticles.h"
#include "core/dao/Recorrido.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using dao::Transaccion;

Ivas leerIvas(const QString& texto) {
  Ivas ivas{};
  const QStringList partes = texto.split(u'@');
  for (size_t i = 0; i < ivas.size() && i < static_cast<size_t>(partes.size()); ++i) {
    QString parte = partes[static_cast<qsizetype>(i)].trimmed();
    bool numero = false;
    const double x = parte.replace(u',', u'.').toDouble(&numero);
    if (numero && x >= 0 && x <= 100) ivas[i] = static_cast<int>(std::lround(x * 100));
  }
  return ivas;
}

QString escribirIvas(const Ivas& ivas) {
  QStringList partes;
  for (const int iva : ivas) partes << QString::number(iva / 100.0);
  return partes.join(u'@');
}

Resultado<int> Secciones::numeroLibre(dao::Abierta usados, int ultimo) {
  int mayor = 0, hueco = 1;
  TARVO_INTENTAR(dao::recorrer(std::move(usados), [&](const dao::Recordset& fila) {
    mayor = static_cast<int>(fila.entero(0));
    if (mayor == hueco) ++hueco;
  }));
  if (mayor < ultimo) return std::max(mayor, 0) + 1;
  if (hueco <= ultimo) return hueco;
  return fallo(Fallo::Restriccion, textos_(kTxSinNumeros, {ultimo}));
}

Resultado<int> Secciones::cuantos(QStringView cuenta, std::span<const dao::Valor> valores) {
  TARVO_TOMAR(auto rs, db_.OpenQuery(cuenta, valores));
  return rs->Eof() ? 0 : static_cast<int>(rs->entero(0));
}

Resultado<std::vector<Secciones::Rama>> Secciones::arbol() {
  TARVO_TOMAR(auto ramas,
              dao::reunir(db_.consultar(u"SELECT NMSECC, NOMSEC, IVAs FROM SECCS ORDER BY NMSECC"),
                          [](const dao::Recordset& fila) {
                            return Rama{static_cast<int>(fila.entero(0)),
                                        fila.texto(1),
                                        {leerIvas(fila.texto(2)), {}}};
                          }));
  const auto colgar = [&ramas](const dao::Recordset& fila) {
    const auto suya = std::ranges::find(ramas, static_cast<int>(fila.entero(0)), &Rama::numero);
    if (suya != ramas.end())
      suya->ivas.departamentos.push_back(
          {static_cast<int>(fila.entero(1)), static_cast<int>(fila.entero(3)), fila.texto(2)});
  };
  TARVO_INTENTAR(dao::recorrer(
      db_.consultar(u"SELECT SECCION, NUMDEP, NomDep, IVA FROM DEPTS ORDER BY SECCION, NUMDEP"),
      colgar));
  return ramas;
}

Resultado<Secciones::CuentaArticulos> Secciones::contarArticulos(dao::Database& db) {
  CuentaArticulos cuenta;
  TARVO_INTENTAR(dao::recorrer(db.consultar(u"SELECT SECCION, DEPTO, count(*) FROM PLUSES WHERE "
                                            u"CODPLU>2 GROUP BY SECCION, DEPTO"),
                               [&cuenta](const dao::Recordset& fila) {
                                 const auto seccion = static_cast<int>(fila.entero(0));
                                 const auto depto = static_cast<int>(fila.entero(1));
                                 if (depto != 0) cuenta[{seccion, depto}] = fila.entero(2);
                                 cuenta[{seccion, 0}] += fila.entero(2);
                               }));
  return cuenta;
}

Resultado<int> Secciones::nueva() {
  const auto numero =
      numeroLibre(db_.consultar(u"SELECT NMSECC FROM SECCS ORDER BY NMSECC"), kUltimaSeccion);
  if (!numero) return numero;
  TARVO_INTENTAR(db_.ejecutar(u"INSERT INTO SECCS (NMSECC, NOMSEC) VALUES (?, ?)", *numero,
                              textos_(kTxNuevaSeccion)));
  return numero;
}

Resultado<> Secciones::renombrar(int seccion, const QString& nombre) {
  if (nombre.trimmed().isEmpty()) return fallo(Fallo::Restriccion, textos_(kTxSinNombre));
  TARVO_INTENTAR(
      db_.ejecutar(u"UPDATE SECCS SET NOMSEC=? WHERE NMSECC=?", nombre.trimmed(), seccion));
  return {};
}

Resultado<Secciones::Cuentas> Secciones::cuentas(int seccion) {
  const std::array<dao::Valor, 1> clave{seccion};
  TARVO_TOMAR(const auto plus, cuantos(u"SELECT count(*) FROM PLUSES WHERE SECCION=?", clave));
  TARVO_TOMAR(const auto depts, cuantos(u"SELECT count(*) FROM DEPTS WHERE SECCION=?", clave));
  TARVO_TOMAR(const auto grupos, cuantos(u"SELECT count(*) FROM GRUPOS WHERE SECCION=?", clave));
  return Cuentas{plus, depts, grupos};
}

Resultado<Secciones::LoQueSeVa> Secciones::loQueSeVa(int seccion) {
  LoQueSeVa v;
  TARVO_TOMAR(v.cuentas, cuentas(seccion));
  const std::array<dao::Valor, 2> propios{seccion, kPrimerCodigo};
  TARVO_TOMAR(v.cuentas.plus,
              cuantos(u"SELECT count(*) FROM PLUSES WHERE SECCION=? AND CODPLU>=?", propios));
  const std::array<dao::Valor, 1> clave{seccion};
  TARVO_TOMAR(
      v.maquinas,
      cuantos(
          u"SELECT count(*) FROM BZAS WHERE SUGPO IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)",
          clave));
  TARVO_TOMAR(v.ofertas,
              cuantos(u"SELECT count(*) FROM OFERTAS WHERE ? IN (SECCION, (SELECT g.SECCION FROM "
                      u"GRUPOS g WHERE g.CODGPO=OFERTAS.GRUPO))",
                      clave));
  TARVO_TOMAR(v.existencias,
              cuantos(u"SELECT count(*) FROM (SELECT DISTINCT CODIGO FROM MovsAlm WHERE SECCION=?)",
                      clave));
  TARVO_TOMAR(v.historia, cuantos(u"SELECT count(*) FROM HistoriaPrecios WHERE SECCION=?", clave));
  TARVO_TOMAR(const auto grupos, gruposDe(seccion));
  for (const int grupo : grupos)
    for (const auto& sala : cambios_.salas())
      if (sala.tareas) v.tareas += sala.tareas(grupo);
  TARVO_TOMAR(v.ventas, ventasDe(seccion));
  return v;
}

Resultado<std::vector<int>> Secciones::gruposDe(int seccion) {
  return dao::reunir(
      db_.consultar(u"SELECT CODGPO FROM GRUPOS WHERE SECCION=? ORDER BY CODGPO", seccion),
      [](const dao::Recordset& fila) { return static_cast<int>(fila.entero(0)); });
}

Resultado<std::vector<Secciones::VentasDeGrupo>> Secciones::ventasDe(int seccion) {
  std::vector<VentasDeGrupo> ventas;
  const auto uno = [&](const dao::Recordset& fila) -> Resultado<> {
    for (const auto& sala : cambios_.salas()) {
      if (!sala.ventas) continue;
      const int grupo = static_cast<int>(fila.entero(0));
      TARVO_TOMAR(const auto importe, sala.ventas(grupo));
      if (importe) ventas.push_back({grupo, fila.texto(1), *importe});
    }
    return {};
  };
  TARVO_INTENTAR(dao::recorrer(
      db_.consultar(u"SELECT CODGPO, NOMGPO FROM GRUPOS WHERE SECCION=? ORDER BY CODGPO", seccion),
      uno));
  return ventas;
}

Resultado<> Secciones::borrar(int seccion) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_INTENTAR(borrarGrupos(seccion));
  for (const QString& orden :
       {u"DELETE FROM [Cross] WHERE Secc=?"_s, u"DELETE FROM OFERTAS WHERE SECCION=?"_s,
        u"DELETE FROM HistoriaPrecios WHERE SECCION=?"_s, u"DELETE FROM SECCS WHERE NMSECC=?"_s})
    TARVO_INTENTAR(db_.ejecutar(orden, seccion));
  TARVO_INTENTAR(t.confirmar());
  cambios_.olvidarSeccion(seccion);
  return {};
}

// The only place where groups are deleted with their section, and with all that is kept by their
// numbers.
Resultado<> Secciones::borrarGrupos(int seccion) {
  TARVO_TOMAR(const auto grupos, gruposDe(seccion));
  for (const int grupo : grupos)
    for (const auto& sala : cambios_.salas())
      if (sala.puedeIrse) TARVO_INTENTAR(sala.puedeIrse(grupo));
  for (const int grupo : grupos)
    for (const auto& sala : cambios_.salas()) TARVO_INTENTAR(sala.olvidar(grupo));
  for (const QStringView orden :
       {u"DELETE FROM BZAS WHERE SUGPO IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)",
        u"DELETE FROM Sesiones WHERE CODGPO IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)",
        u"DELETE FROM [Cross] WHERE Grupo IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)",
        u"DELETE FROM OFERTAS WHERE GRUPO IN (SELECT CODGPO FROM GRUPOS WHERE SECCION=?)",
        u"DELETE FROM GRUPOS WHERE SECCION=?"})
    TARVO_INTENTAR(db_.ejecutar(orden, seccion));
  return {};
}

Resultado<Ivas> Secciones::ivas(int seccion) {
  const auto texto = db_.uno(u"SELECT IVAs FROM SECCS WHERE NMSECC=?", seccion);
  if (!texto) return std::unexpected(texto.error());
  return leerIvas(texto->texto());
}

Resultado<> Secciones::ponerIvas(int seccion, const Ivas& ivas) {
  if (std::ranges::any_of(ivas, [](int iva) { return iva < 0 || iva > 100'00; }))
    return fallo(Fallo::Restriccion, textos_(kTxIvaIncorrecto));
  TARVO_INTENTAR(
      db_.ejecutar(u"UPDATE SECCS SET IVAs=? WHERE NMSECC=?", escribirIvas(ivas), seccion));
  return {};
}

Resultado<IvasSeccion> Secciones::ivasDe(int seccion) {
  IvasSeccion todo;
  TARVO_TOMAR(todo.tasas, ivas(seccion));
  TARVO_INTENTAR(dao::recorrer(
      db_.consultar(u"SELECT NUMDEP, NomDep, IVA FROM DEPTS WHERE SECCION=? ORDER BY NUMDEP",
                    seccion),
      [&](const dao::Recordset& fila) {
        todo.departamentos.push_back(
            {static_cast<int>(fila.entero(0)), static_cast<int>(fila.entero(2)), fila.texto(1)});
      }));
  return todo;
}

Resultado<> Secciones::ponerIvasDe(int seccion, const IvasSeccion& todo) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(ponerIvas(seccion, todo.tasas));
  for (const auto& d : todo.departamentos) TARVO_INTENTAR(ponerTipoIva(seccion, d.numero, d.tipo));
  return tr.confirmar();
}

// --- departments --------------------------------------------------------------------------------

Resultado<int> Secciones::nuevoDepartamento(int seccion) {
  const auto numero = numeroLibre(
      db_.consultar(u"SELECT NUMDEP FROM DEPTS WHERE SECCION=? ORDER BY NUMDEP", seccion),
      kUltimoDepartamento);
  if (!numero) return numero;
  TARVO_INTENTAR(db_.ejecutar(u"INSERT INTO DEPTS (SECCION, NUMDEP, NomDep) VALUES (?, ?, ?)",
                              seccion, *numero, textos_(kTxNuevoDepartamento)));
  return numero;
}

Resultado<> Secciones::quitarNuevo(int seccion, int departamento) {
  TARVO_TOMAR(const auto va, loQueSeVa(seccion));
  TARVO_TOMAR(const auto suyos, articulosDe(seccion, departamento));
  if (departamento == 0 ? !va.vacia() : suyos > 0)
    return fallo(Fallo::Restriccion, textos_(kTxNuevoConCosas));
  return departamento == 0 ? borrar(seccion) : borrarDepartamento(seccion, departamento);
}

Resultado<> Secciones::renombrarDepartamento(int seccion, int departamento, const QString& nombre) {
  if (nombre.trimmed().isEmpty()) return fallo(Fallo::Restriccion, textos_(kTxSinNombre));
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE DEPTS SET NomDep=? WHERE SECCION=? AND NUMDEP=?",
                              nombre.trimmed(), seccion, departamento));
  return {};
}

Resultado<> Secciones::ponerTipoIva(int seccion, int departamento, int tipo) {
  if (tipo < 1 || tipo > kTiposIva)
    return fallo(Fallo::Restriccion, textos_(kTxTipoIvaIncorrecto, {kTiposIva}));
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE DEPTS SET IVA=? WHERE SECCION=? AND NUMDEP=?", tipo, seccion,
                              departamento));
  return {};
}

Resultado<int> Secciones::articulosDe(int seccion, int departamento) {
  const std::array<dao::Valor, 3> clave{seccion, departamento, kPrimerCodigo};
  return cuantos(u"SELECT count(*) FROM PLUSES WHERE SECCION=? AND DEPTO=? AND CODPLU>=?", clave);
}

Resultado<> Secciones::reponerDepartamento(int seccion, int departamento, const QString& nombre,
                                           int tipoIva) {
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO DEPTS (SECCION, NUMDEP, NomDep, IVA) SELECT NMSECC, ?, ?, ? FROM SECCS WHERE "
      u"NMSECC=? AND NOT EXISTS (SELECT 1 FROM DEPTS WHERE SECCION=NMSECC AND NUMDEP=?)",
      departamento, nombre, tipoIva, seccion, departamento));
  return {};
}

Resultado<> Secciones::borrarDepartamento(int seccion, int departamento, qint64 lote) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_TOMAR(const auto tenia, articulosDe(seccion, departamento));
  if (tenia > 0) TARVO_INTENTAR(cambios_.SaleDepartamento(seccion, departamento));
  TARVO_INTENTAR(
      db_.ejecutar(u"DELETE FROM DEPTS WHERE SECCION=? AND NUMDEP=?", seccion, departamento));
  TARVO_INTENTAR(
      db_.ejecutar(u"DELETE ALL FROM PLUSES WHERE (SECCION = ?) AND (DEPTO = ?) AND CODPLU>=?",
                   seccion, departamento, kPrimerCodigo));
  if (tenia > 0) lote > 0 ? cambios_.MarcarSeccion(seccion, lote) : cambios_.MarcarSeccion(seccion);
  return t.confirmar();
}

}  // namespace tarvo::articles
