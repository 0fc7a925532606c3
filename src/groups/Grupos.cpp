#include "groups/Grupos.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <ranges>
#include <set>

#include "comm/cables/Parametros.h"
#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
#include "groups/TextosGroups.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using articles::Cambios;
using dao::conMarcas;
using dao::Transaccion;

namespace {

// Kept by a group's code without a foreign key, besides the tables of other rooms: table, column.
constexpr std::pair<const char16_t*, const char16_t*> kPropias[] = {
    {u"Sesiones", u"CODGPO"}, {u"OFERTAS", u"GRUPO"}, {u"Cross", u"Grupo"}};

QString enSitios(const Textos& textos, const QString& que, const std::set<int>& sitios) {
  QStringList numeros;
  for (const int s : sitios) numeros << QString::number(s + 1);
  return Plural(textos(kTxEnSitios), static_cast<int>(sitios.size()))
      .arg(que, numeros.join(u", "_s));
}

// Addresses of registers: each its own, and none 0 where there are several.
void faltasDeCajas(const devices::Grupo& g, const Textos& textos,
                   std::vector<Grupos::Falta>& faltas) {
  std::map<int, std::set<int>> deCada;
  std::set<int> malas, repetidas;
  for (const auto& [numero, miembro] : g.LasBalanzas) {
    const auto* caja = std::get_if<devices::Registradora>(&miembro);
    const int suya = caja ? caja->Direccion.value_or(-1) : -1;
    const bool sola = g.LasBalanzas.size() < 2;
    const bool mala = suya < 0 || suya > kUltimaDireccion || (suya == 0 && !sola);
    (mala ? malas : deCada[suya]).insert(numero);
  }
  for (const auto& [direccion, suyas] : deCada)
    if (suyas.size() > 1) repetidas.insert(suyas.begin(), suyas.end());
  const QString regla = reglaDireccion(textos);
  if (!malas.empty())
    faltas.push_back({Grupos::FaltaDe::Direccion,
                      enSitios(textos, textos(kTxDireccionIncorrecta), malas) + u' ' + regla, regla,
                      malas});
  if (!repetidas.empty())
    faltas.push_back({Grupos::FaltaDe::Direccion,
                      enSitios(textos, textos(kTxDireccionRepetida), repetidas),
                      textos(kTxDireccionRepetida), repetidas});
}

int modelo(const devices::Miembro& m) {
  return std::visit([](const auto& maquina) { return maquina.tipo(); }, m);
}

std::map<int, int> direccionesDe(const devices::Grupo& g) {
  std::map<int, int> d;
  for (const auto& [numero, miembro] : g.LasBalanzas)
    if (const auto* caja = std::get_if<devices::Registradora>(&miembro))
      d[numero] = caja->Direccion.value_or(0);
  return d;
}

// With the same numbers as before a register keeps its number. A list that became longer or shorter
// may have been numbered anew: then its address tells which it is, as it does in the books; and so
// it does where the same addresses are only in another order.
void compararCajas(const devices::Grupo& antes, const devices::Grupo& ahora,
                   Cambios::CambioDeGrupo& c) {
  const auto viejas = direccionesDe(antes), nuevas = direccionesDe(ahora);
  std::set<int> teniendo, quedan;
  for (const auto& [numero, direccion] : viejas) teniendo.insert(direccion);
  for (const auto& [numero, direccion] : nuevas) quedan.insert(direccion);
  if (teniendo == quedan) return;
  if (std::ranges::equal(std::views::keys(viejas), std::views::keys(nuevas))) {
    for (const auto& [numero, direccion] : viejas)
      if (nuevas.at(numero) != direccion) c.direcciones[direccion] = nuevas.at(numero);
    return;
  }
  std::ranges::set_difference(teniendo, quedan,
                              std::inserter(c.cajasQueSeVan, c.cajasQueSeVan.end()));
}

}  // namespace

Grupos::Grupos(articles::Catalogo& catalogo, const Ajustes& ajustes)
    : db_(catalogo.base()),
      textos_(catalogo.textos()),
      cambios_(catalogo.cambios()),
      ajustes_(ajustes) {}

Resultado<std::vector<Resumen>> Grupos::todos() {
  return dao::reunir(
      db_.consultar(
          u"SELECT g.CODGPO, g.NOMGPO, COALESCE(g.seccion, 1), COALESCE(g.tipo, 1), "
          u"count(b.SUGPO), g.remoto FROM GRUPOS g LEFT JOIN BZAS b ON b.SUGPO=g.CODGPO GROUP BY "
          u"g.CODGPO ORDER BY 3, 1"),
      [](const dao::Recordset& f) {
        return Resumen{.codigo = static_cast<int>(f.entero(0)),
                       .nombre = f.texto(1),
                       .seccion = static_cast<int>(f.entero(2)),
                       .tipo = deNumero<TipoGrupo>(f.entero(3)),
                       .acceso = deNumero<TipoAcceso>(f.entero(5)),
                       .maquinas = static_cast<int>(f.entero(4))};
      });
}

Resultado<int> Grupos::codigoNuevo() {
  TARVO_TOMAR(const auto ultimo, db_.uno(u"SELECT COALESCE(MAX(CODGPO), 0) FROM GRUPOS"));
  if (ultimo.entero() < kUltimoCodigo) return static_cast<int>(ultimo.entero()) + 1;
  TARVO_TOMAR(
      const auto usados,
      dao::reunir(db_.consultar(u"SELECT CODGPO FROM GRUPOS WHERE CODGPO>0 ORDER BY CODGPO"),
                  [](const dao::Recordset& f) { return f.entero(0); }));
  for (int codigo = 1; codigo <= kUltimoCodigo; ++codigo)
    if (!std::ranges::binary_search(usados, codigo)) return codigo;
  return fallo(Fallo::Restriccion, textos_(kTxSinCodigos));
}

Resultado<devices::Grupo> Grupos::cargar(int codigo) {
  TARVO_TOMAR(const auto fila, db_.consultar(u"SELECT * FROM GRUPOS WHERE CODGPO=?", codigo));
  if (fila->Eof()) return fallo(Fallo::NoExiste, textos_(kTxGrupoNoEsta, {codigo}));
  devices::Grupo g(ajustes_.idioma);
  TARVO_INTENTAR(g.LetValues(db_, *fila));
  return g;
}

Resultado<GrupoEditado> Grupos::abrir(int codigo) {
  TARVO_TOMAR(auto grupo, cargar(codigo));
  TARVO_TOMAR(const auto nombre, db_.uno(u"SELECT NOMGPO FROM GRUPOS WHERE CODGPO=?", codigo));
  return GrupoEditado{std::move(grupo), codigo, nombre.texto(), {}};
}

Resultado<GrupoEditado> Grupos::nuevo(int seccion, bool cajas) {
  TARVO_TOMAR(const int codigo, codigoNuevo());
  devices::Grupo grupo(ajustes_.idioma);
  grupo.seccion = seccion;
  if (cajas) grupo.tipo(TipoGrupo::Registradoras);
  return GrupoEditado{std::move(grupo), codigo, {}, Marcas::todas()};
}

Resultado<std::vector<configuracion::Estado>> Grupos::estados(int codigo) {
  TARVO_TOMAR(const auto fila,
              db_.uno(u"SELECT COALESCE(tipo, 1) FROM GRUPOS WHERE CODGPO=?", codigo));
  TARVO_TOMAR(const auto addr,
              db_.uno(u"SELECT COALESCE(Addr, 1) FROM GRUPOS WHERE CODGPO=?", codigo));
  const auto tipo = deNumero<TipoGrupo>(fila.entero());
  if (!tipo) return std::vector<configuracion::Estado>{};
  return configuracion::estadoDe(
      db_, ajustes_, {.grupo = codigo, .tipo = *tipo, .addr = static_cast<int>(addr.entero())});
}

Resultado<std::vector<FormatoEtiqueta>> Grupos::formatos() {
  // Without a set the column is Null, or 0 by its default.
  return dao::reunir(
      db_.consultar(u"SELECT NUMETQ, CASE WHEN typeof(settxt)='text' AND settxt<>'' THEN settxt "
                    u"END FROM ETIQUETAS ORDER BY NUMETQ"),
      [](const dao::Recordset& f) {
        return FormatoEtiqueta{f.texto(0), f.nulo(1) ? std::nullopt : std::optional(f.texto(1))};
      });
}

Resultado<std::vector<Grupos::Falta>> Grupos::faltas(const devices::Grupo& g, int codigo,
                                                     const QString& nombre) {
  std::vector<Falta> f;
  const auto falta = [&](FaltaDe de, int texto) { f.push_back({de, textos_(texto), {}, {}}); };
  if (codigo < 1 || codigo > kUltimoCodigo) falta(FaltaDe::Codigo, kTxNumeroInadecuado);
  TARVO_TOMAR(const auto otro, db_.uno(u"SELECT count(*) FROM GRUPOS WHERE CODGPO=?", codigo));
  if (otro.entero() > 0 && g.codigo() != codigo) falta(FaltaDe::Codigo, kTxCodigoExiste);
  if (nombre.trimmed().isEmpty()) falta(FaltaDe::Nombre, kTxSinNombre);
  const bool cajas = g.tipo() == TipoGrupo::Registradoras;
  if (g.LasBalanzas.empty()) falta(FaltaDe::Maquinas, cajas ? kTxSinCajas : kTxSinBalanzas);
  TARVO_TOMAR(const auto seccion, db_.uno(u"SELECT count(*) FROM SECCS WHERE NMSECC=?", g.seccion));
  if (seccion.entero() == 0) falta(FaltaDe::Seccion, kTxSeccionNoValida);
  const bool conTexto = g.Acceso == TipoAcceso::Modem || g.Acceso == TipoAcceso::Conector;
  if (conTexto && g.Telefono.trimmed().isEmpty()) falta(FaltaDe::Telefono, kTxSinTelefono);
  if (g.Acceso == TipoAcceso::TcpIp && !enlace::seAbrePorTcp(g.Telefono))
    falta(FaltaDe::Telefono, kTxSinPuerto);
  if (cajas) faltasDeCajas(g, textos_, f);
  return f;
}

// Under what is stored of it: a number or an address says which machine it is.
Resultado<Cambios::CambioDeGrupo> Grupos::cambioDe(const devices::Grupo& g, int codigo) {
  TARVO_TOMAR(const auto antes, cargar(*g.codigo()));
  Cambios::CambioDeGrupo c{.antes = *g.codigo(), .ahora = codigo};
  c.otraClase = antes.tipo() != g.tipo();
  for (const auto& [numero, miembro] : antes.LasBalanzas) {
    const auto ahora = g.LasBalanzas.find(numero);
    if (c.otraClase || ahora == g.LasBalanzas.end() || modelo(ahora->second) != modelo(miembro))
      c.otrasMaquinas.insert(numero);
  }
  if (!c.otraClase && g.tipo() == TipoGrupo::Registradoras) compararCajas(antes, g, c);
  return c;
}

Resultado<> Grupos::puedeCambiar(int codigo) {
  for (const auto& sala : cambios_.salas())
    if (sala.puedeIrse) TARVO_INTENTAR(sala.puedeIrse(codigo));
  return {};
}

Resultado<> Grupos::sinVentasQueSeVayan(int codigo, int texto) {
  for (const auto& sala : cambios_.salas()) {
    if (!sala.ventas) continue;
    TARVO_TOMAR(const auto importe, sala.ventas(codigo));
    if (importe) return fallo(Fallo::Restriccion, textos_(texto, {codigo}));
  }
  return {};
}

// Before the group's row moves: rows with a foreign key follow it by themselves.
Resultado<> Grupos::mudar(int de, int a) {
  const auto una = [&](const QString& tabla, const QString& columna,
                       const QString& donde) -> Resultado<> {
    TARVO_INTENTAR(
        db_.ejecutar(conMarcas(u"UPDATE [{tabla}] SET {columna}=? WHERE {donde}{columna}=?",
                               {{u"tabla", tabla}, {u"columna", columna}, {u"donde", donde}}),
                     a, de));
    return {};
  };
  for (const auto& [tabla, columna] : kPropias)
    TARVO_INTENTAR(una(QString::fromUtf16(tabla), QString::fromUtf16(columna), {}));
  for (const auto& sala : cambios_.salas())
    if (!sala.conClave)
      for (const auto& t : sala.tablas) TARVO_INTENTAR(una(t.tabla, u"GRUPO"_s, t.donde));
  return {};
}

Resultado<> Grupos::guardar(devices::Grupo& g, int codigo, const QString& nombre) {
  TARVO_TOMAR(const auto mal, faltas(g, codigo, nombre));
  if (!mal.empty()) {
    QStringList lineas;
    for (const Falta& f : mal) lineas << f.texto;
    return fallo(Fallo::Restriccion, lineas.join(u'\n'));
  }
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  Cambios::CambioDeGrupo c{.antes = codigo, .ahora = codigo};
  if (const auto antes = g.codigo()) {
    TARVO_TOMAR(c, cambioDe(g, codigo));
    if (c.otraClase || *antes != codigo || c.hayOtrasCajas()) TARVO_INTENTAR(puedeCambiar(*antes));
    if (c.otraClase) {
      TARVO_INTENTAR(sinVentasQueSeVayan(*antes, kTxMemoriceAntesDeCambiar));
      for (const auto& sala : cambios_.salas()) TARVO_INTENTAR(sala.olvidar(*antes));
    } else if (!c.cajasQueSeVan.empty()) {
      TARVO_INTENTAR(sinVentasQueSeVayan(*antes, kTxMemoriceAntesDeQuitar));
    }
    if (*antes != codigo) TARVO_INTENTAR(mudar(*antes, codigo));
  }
  TARVO_INTENTAR(g.SaveAs(db_, codigo, nombre.trimmed()));
  for (const auto& sala : cambios_.salas())
    if (sala.cambia) TARVO_INTENTAR(sala.cambia(c));
  TARVO_INTENTAR(t.confirmar());
  for (const auto& sala : cambios_.salas())
    if (sala.cambiado) sala.cambiado(c);
  return {};
}

Resultado<> Grupos::renombrar(int codigo, const QString& nombre) {
  if (nombre.trimmed().isEmpty()) return fallo(Fallo::Restriccion, textos_(kTxSinNombre));
  TARVO_INTENTAR(
      db_.ejecutar(u"UPDATE GRUPOS SET NOMGPO=? WHERE CODGPO=?", nombre.trimmed(), codigo));
  return {};
}

Resultado<int> Grupos::copiar(int codigo, int seccion) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_TOMAR(const auto nombre, db_.uno(u"SELECT NOMGPO FROM GRUPOS WHERE CODGPO=?", codigo));
  if (nombre.nulo()) return fallo(Fallo::NoExiste, textos_(kTxGrupoNoEsta, {codigo}));
  TARVO_TOMAR(const int nuevo, codigoNuevo());
  struct Copia {
    QStringView tabla, clave, cambios;
  };
  const auto una = [&](const Copia& c, const auto&... valores) -> Resultado<> {
    const auto orden = [&c](QStringView sentencia) {
      return conMarcas(sentencia, {{u"tabla", c.tabla.toString()},
                                   {u"clave", c.clave.toString()},
                                   {u"cambios", c.cambios.toString()}});
    };
    TARVO_INTENTAR(db_.ejecutar(
        orden(u"CREATE TEMP TABLE CopiaDeGrupo AS SELECT * FROM {tabla} WHERE {clave}=?"), codigo));
    TARVO_INTENTAR(db_.ejecutar(orden(u"UPDATE CopiaDeGrupo SET {cambios}"), valores...));
    TARVO_INTENTAR(db_.ejecutar(orden(u"INSERT INTO {tabla} SELECT * FROM CopiaDeGrupo")));
    TARVO_INTENTAR(db_.ejecutar(u"DROP TABLE CopiaDeGrupo"));
    return {};
  };
  TARVO_INTENTAR(una({u"GRUPOS", u"CODGPO", u"CODGPO=?, NOMGPO=?, seccion=?"}, nuevo,
                     textos_(kTxCopiaDe).replace(u'#', nombre.texto()), seccion));
  TARVO_INTENTAR(una({u"BZAS", u"SUGPO", u"SUGPO=?"}, nuevo));
  TARVO_INTENTAR(db_.ejecutar(u"INSERT INTO Sesiones (CODGPO) VALUES (?)", nuevo));
  TARVO_INTENTAR(t.confirmar());
  return nuevo;
}

Resultado<Grupos::LoQueSeVa> Grupos::loQueSeVa(int codigo) {
  LoQueSeVa v;
  TARVO_TOMAR(const auto maquinas, db_.uno(u"SELECT count(*) FROM BZAS WHERE SUGPO=?", codigo));
  TARVO_TOMAR(const auto ofertas, db_.uno(u"SELECT count(*) FROM OFERTAS WHERE GRUPO=?", codigo));
  v.maquinas = static_cast<int>(maquinas.entero());
  v.ofertas = static_cast<int>(ofertas.entero());
  for (const auto& sala : cambios_.salas()) {
    if (sala.tareas) v.tareas += sala.tareas(codigo);
    if (!sala.ventas) continue;
    TARVO_TOMAR(const auto importe, sala.ventas(codigo));
    if (importe) v.ventas = v.ventas.value_or(0) + *importe;
  }
  return v;
}

Resultado<bool> Grupos::conRastro(int codigo) {
  TARVO_TOMAR(const auto leida,
              db_.uno(u"SELECT PZERO FROM Sesiones WHERE CODGPO=? AND PZERO IS NOT NULL", codigo));
  if (!leida.nulo()) return true;
  const auto hay = [&](const QString& tabla, const QString& donde) -> Resultado<bool> {
    TARVO_TOMAR(const auto fila,
                db_.uno(conMarcas(u"SELECT 1 FROM [{tabla}] WHERE {donde}GRUPO=? LIMIT 1",
                                  {{u"tabla", tabla}, {u"donde", donde}}),
                        codigo));
    return !fila.nulo();
  };
  for (const QString& tabla : {u"OFERTAS"_s, u"Cross"_s}) {
    TARVO_TOMAR(const bool suya, hay(tabla, {}));
    if (suya) return true;
  }
  for (const auto& sala : cambios_.salas()) {
    if (sala.tareas && sala.tareas(codigo) > 0) return true;
    for (const auto& t : sala.tablas) {
      TARVO_TOMAR(const bool suya, hay(t.tabla, t.donde));
      if (suya) return true;
    }
  }
  return false;
}

Resultado<> Grupos::borrar(int codigo) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_INTENTAR(puedeCambiar(codigo));
  for (const auto& sala : cambios_.salas()) TARVO_INTENTAR(sala.olvidar(codigo));
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM BZAS WHERE SUGPO=?", codigo));
  for (const auto& [tabla, columna] : kPropias)
    TARVO_INTENTAR(db_.ejecutar(conMarcas(u"DELETE FROM [{tabla}] WHERE {columna}=?",
                                          {{u"tabla", QString::fromUtf16(tabla)},
                                           {u"columna", QString::fromUtf16(columna)}}),
                                codigo));
  TARVO_TOMAR(const auto filas, db_.ejecutar(u"DELETE FROM GRUPOS WHERE CODGPO=?", codigo));
  if (filas == 0) return fallo(Fallo::NoExiste, textos_(kTxGrupoNoEsta, {codigo}));
  return t.confirmar();
}

// --- a deleted group ----------------------------------------------------------------------------

namespace {

std::vector<dao::Apartado::Parte> partes(const articles::Cambios& cambios) {
  std::vector<dao::Apartado::Parte> todas{{u"GRUPOS"_s, u"CODGPO=?"_s}, {u"BZAS"_s, u"SUGPO=?"_s}};
  for (const auto& [tabla, columna] : kPropias)
    todas.push_back({QString::fromUtf16(tabla), QString::fromUtf16(columna) + u"=?"_s});
  for (const auto& sala : cambios.salas())
    for (const auto& t : sala.tablas) todas.push_back({t.tabla, t.donde + u"GRUPO=?"_s});
  return todas;
}

}  // namespace

BorradoGrupo::BorradoGrupo(Grupos& grupos, int codigo)
    : grupos_(grupos),
      codigo_(codigo),
      apartado_(grupos.db_, u"Grupo%1"_s.arg(codigo), partes(grupos.cambios_)) {}

Resultado<> BorradoGrupo::borrar() {
  TARVO_TOMAR(auto t, Transaccion::empezar(grupos_.db_));
  TARVO_INTENTAR(apartado_.guardar(codigo_));
  TARVO_INTENTAR(grupos_.borrar(codigo_));
  return t.confirmar();
}

Resultado<> BorradoGrupo::reponer() {
  const auto hecho = apartado_.reponer();
  if (!hecho && hecho.error().clase == Fallo::Duplicado)
    return fallo(Fallo::Duplicado, grupos_.textos_(kTxGrupoNoVuelve, {codigo_}));
  return hecho;
}

}  // namespace tarvo::groups
