#include "simulador/programa/BaseTienda.h"

#include <sqlite3.h>

#include <QRegularExpression>
#include <memory>

namespace tarvo::simulador {
namespace {

struct CerrarBase {
  void operator()(sqlite3* base) const { sqlite3_close(base); }
};
struct Finalizar {
  void operator()(sqlite3_stmt* consulta) const { sqlite3_finalize(consulta); }
};
using Base = std::unique_ptr<sqlite3, CerrarBase>;
using Consulta = std::unique_ptr<sqlite3_stmt, Finalizar>;

Error errorDe(sqlite3* base) {
  return {Fallo::NoEsBaseDatos, sqlite3_extended_errcode(base),
          QString::fromUtf8(sqlite3_errmsg(base))};
}

// Calls `fila` for each row of the result.
template <class Fila>
Resultado<> recorrer(sqlite3* base, const char* sql, Fila fila) {
  sqlite3_stmt* cruda = nullptr;
  if (sqlite3_prepare_v2(base, sql, -1, &cruda, nullptr) != SQLITE_OK)
    return std::unexpected(errorDe(base));
  const Consulta consulta(cruda);
  int paso = sqlite3_step(cruda);
  for (; paso == SQLITE_ROW; paso = sqlite3_step(cruda)) fila(cruda);
  if (paso != SQLITE_DONE) return std::unexpected(errorDe(base));
  return {};
}

QString texto(sqlite3_stmt* fila, int columna) {
  const auto* bytes = sqlite3_column_text(fila, columna);
  return bytes ? QString::fromUtf8(reinterpret_cast<const char*>(bytes)) : QString();
}

struct Maximos {
  int operadores, departamentos, codigo;
};
Maximos maximos(Tipo tipo) {
  switch (tipo) {
    case Tipo::Balanzas:
      return {20, 10, 9999999};
    case Tipo::Ebony:
      return {10, 10, 9999};
    case Tipo::Registradora:
      return {20, 40, 9999999};
    case Tipo::Birch:
      break;
  }
  return {20, 20, 9999999};
}

int puertoDe(int remoto, const QString& telefono) {
  static const QRegularExpression forma(QStringLiteral(":(\\d+)"));
  return remoto == 3 ? forma.match(telefono).captured(1).toInt() : 0;
}

// SECCION, CODPLU, NOMPLU, CADA, PRECIO_00, DEPTO, PFX_BAR, CodBarExt
Articulo articuloDeFila(sqlite3_stmt* fila) {
  Articulo articulo;
  articulo.seccion = sqlite3_column_int(fila, 0);
  articulo.codigo = sqlite3_column_int(fila, 1);
  articulo.nombre = texto(fila, 2);
  articulo.unidad = sqlite3_column_int(fila, 3);
  articulo.precio = sqlite3_column_int64(fila, 4);
  articulo.departamento = std::max(1, sqlite3_column_int(fila, 5));
  articulo.barras = sqlite3_column_type(fila, 7) == SQLITE_NULL
                        ? texto(fila, 6).trimmed().toLatin1() +
                              QByteArray::number(articulo.codigo).rightJustified(6, '0')
                        : texto(fila, 7).trimmed().toLatin1();
  return articulo;
}

using Secciones = std::map<int, Catalogo>;

Resultado<Secciones> leerArticulos(sqlite3* base) {
  Secciones secciones;
  TARVO_INTENTAR(
      recorrer(base,
               "SELECT SECCION, CODPLU, NOMPLU, CADA, PRECIO_00, DEPTO, PFX_BAR, CodBarExt "
               "FROM PLUSES WHERE CODPLU > 2",
               [&](sqlite3_stmt* fila) {
                 Articulo articulo = articuloDeFila(fila);
                 secciones[articulo.seccion][articulo.codigo] = std::move(articulo);
               }));
  return secciones;
}

struct FilaGrupo {
  int codigo = 0, seccion = 0, direccion = 0, remoto = 0;
  Tipo tipo = Tipo::Balanzas;
  QString nombre, telefono;
  std::vector<int> operadores;
};

Resultado<std::vector<FilaGrupo>> leerFilasGrupo(sqlite3* base) {
  std::string sql = "SELECT CODGPO, TIPO, SECCION, ADDR, remoto, TELEF, NOMGPO";
  for (int n = 1; n <= 20; ++n) {
    const std::string numero = std::to_string(n);
    sql += ", OP" + (n < 10 ? "0" + numero : numero) + "_C";
  }
  sql += " FROM GRUPOS WHERE TIPO BETWEEN 1 AND 4";
  std::vector<FilaGrupo> grupos;
  TARVO_INTENTAR(recorrer(base, sql.c_str(), [&](sqlite3_stmt* fila) {
    FilaGrupo grupo;
    grupo.codigo = sqlite3_column_int(fila, 0);
    grupo.tipo = static_cast<Tipo>(sqlite3_column_int(fila, 1));
    grupo.seccion = sqlite3_column_int(fila, 2);
    grupo.direccion = sqlite3_column_int(fila, 3);
    grupo.remoto = sqlite3_column_int(fila, 4);
    grupo.telefono = texto(fila, 5);
    grupo.nombre = texto(fila, 6);
    for (int n = 0; n < maximos(grupo.tipo).operadores; ++n)
      grupo.operadores.push_back(sqlite3_column_int(fila, 7 + n));
    grupos.push_back(std::move(grupo));
  }));
  return grupos;
}

struct Puesto {
  int numero = 0, direccion = 0;
};
using Puestos = std::map<int, std::vector<Puesto>>;  // by group

Resultado<Puestos> leerPuestos(sqlite3* base) {
  Puestos puestos;
  TARVO_INTENTAR(recorrer(base, "SELECT SUGPO, NMBZA, ADDR FROM BZAS ORDER BY SUGPO, NMBZA",
                          [&](sqlite3_stmt* fila) {
                            puestos[sqlite3_column_int(fila, 0)].push_back(
                                {sqlite3_column_int(fila, 1), sqlite3_column_int(fila, 2)});
                          }));
  return puestos;
}

// The articles of a section that fit this kind of machine.
Catalogo cargables(const Catalogo& seccion, Tipo tipo) {
  const Maximos limite = maximos(tipo);
  Catalogo catalogo;
  for (const auto& [codigo, articulo] : seccion)
    if (codigo <= limite.codigo && articulo.departamento <= limite.departamentos)
      catalogo[codigo] = articulo;
  return catalogo;
}

// Registers also sell articles unknown to the back-office: codes below and above all of the shop's
// own.
void ponerDesconocidos(Catalogo& catalogo) {
  for (const auto& [codigo, barras] :
       {std::pair{9000001, "0000000000017"}, {9000002, "9999999999994"}}) {
    Articulo articulo;
    articulo.codigo = codigo;
    articulo.nombre = QStringLiteral("Desconocido");
    articulo.unidad = 2;
    articulo.barras = barras;
    articulo.precio = 150;
    articulo.ajeno = true;
    catalogo[codigo] = articulo;
  }
}

PlanMaquina maquinaDe(const FilaGrupo& fila, const Catalogo& seccion) {
  PlanMaquina maquina;
  maquina.opciones.tipo = fila.tipo;
  maquina.opciones.nombre = fila.nombre;
  maquina.opciones.grupo = fila.codigo;
  maquina.opciones.direccion = fila.direccion;
  maquina.operadores = fila.operadores;
  maquina.catalogo = cargables(seccion, fila.tipo);
  return maquina;
}

GrupoTienda grupoDe(const FilaGrupo& fila, const Catalogo& seccion,
                    const std::vector<Puesto>& puestos) {
  GrupoTienda grupo;
  grupo.puerto = puertoDe(fila.remoto, fila.telefono);
  PlanMaquina maquina = maquinaDe(fila, seccion);
  if (fila.tipo != Tipo::Registradora) {
    for (const Puesto& puesto : puestos) maquina.opciones.balanzas.push_back(puesto.numero);
    grupo.maquinas.push_back(std::move(maquina));
    return grupo;
  }
  ponerDesconocidos(maquina.catalogo);
  for (const Puesto& puesto : puestos) {
    PlanMaquina caja = maquina;
    caja.opciones.nombre += QStringLiteral(" caja %1").arg(puesto.numero);
    caja.opciones.direccion = puesto.direccion;
    caja.opciones.balanzas = {puesto.numero};
    grupo.maquinas.push_back(std::move(caja));
  }
  return grupo;
}

}  // namespace

Resultado<std::map<int, GrupoTienda>> leerTienda(const QString& ruta) {
  sqlite3* cruda = nullptr;
  const int abierta =
      sqlite3_open_v2(ruta.toUtf8().constData(), &cruda, SQLITE_OPEN_READONLY, nullptr);
  const Base base(cruda);
  if (abierta != SQLITE_OK) {
    Error error = errorDe(cruda);
    error.texto = ruta + QStringLiteral(": ") + error.texto;
    return std::unexpected(error);
  }
  sqlite3_busy_timeout(cruda, 5000);
  TARVO_TOMAR(auto secciones, leerArticulos(cruda));
  TARVO_TOMAR(auto filas, leerFilasGrupo(cruda));
  TARVO_TOMAR(auto puestos, leerPuestos(cruda));
  std::map<int, GrupoTienda> tienda;
  for (const FilaGrupo& fila : filas)
    tienda[fila.codigo] = grupoDe(fila, secciones[fila.seccion], puestos[fila.codigo]);
  return tienda;
}

}  // namespace tarvo::simulador
