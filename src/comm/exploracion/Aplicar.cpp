#include "comm/exploracion/Aplicar.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "articles/Secciones.h"
#include "comm/exploracion/Accesos.h"
#include "comm/exploracion/Resumen.h"
#include "comm/exploracion/TextosExploracion.h"
#include "core/dao/Database.h"
#include "devices/Modelos.h"
#include "devices/PrimerGrupo.h"
#include "totals/periodos/AjustesPeriodos.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::exploracion {

namespace {

// Groups of one kind of machine differ by their model only.
devices::Grupo vacio(const Hallazgo& h, const GrupoHallado& hallado, Idioma idioma) {
  devices::Grupo g(idioma);
  const bool nodal = h.resultado == ResultadoCanal::Nodal;
  g.tipo(nodal ? TipoGrupo::Ebony : TipoGrupo::Balanzas);
  if (nodal) g.NumGpo = hallado.estacion;
  for (size_t i = 0; i < hallado.balanzas.size(); ++i) {
    if (!hallado.balanzas[i]) continue;
    devices::Balanza balanza(idioma);
    balanza.tipo(nodal ? devices::kEbony : devices::kCedar);
    balanza.Numero = static_cast<int>(i);
    g.LasBalanzas.emplace(static_cast<int>(i), std::move(balanza));
  }
  return g;
}

void ponerAcceso(devices::Grupo& g, const Acceso& acceso) {
  const bool tcp = acceso.clase == Acceso::Clase::Tcp;
  g.Acceso = tcp ? TipoAcceso::TcpIp : TipoAcceso::Directo;
  if (tcp) g.Telefono = acceso.nombre;
  if (!tcp) g.Canal = acceso.canal;
}

// Seven working days with the hours of the settings.
QString horarioDe(const Ajustes& ajustes) {
  const auto& horas = ajustes.de<totals::AjustesPeriodos>();
  totals::Horario horario;
  horario.fill(totals::Jornada{horas.InicioHorario.dias(), horas.FinalHorario.dias()});
  return totals::EscribirHorario(horario);
}

// No channel was left for the device.
bool sinCanal(const Acceso& acceso) {
  return acceso.clase == Acceso::Clase::Serie && acceso.canal == 0;
}

bool conBalanzas(const GrupoHallado& g) {
  return std::ranges::find(g.balanzas, true) != g.balanzas.end();
}

bool hayGrupos(std::span<const Hallazgo> hallazgos) {
  return std::ranges::any_of(hallazgos, [](const Hallazgo& h) {
    return !sinCanal(h.acceso) && std::ranges::any_of(h.grupos, conBalanzas);
  });
}

}  // namespace

// What one application works with.
struct Aplicador::Obra {
  bool nueva = false, desdeCero = false;
  int seccion = 1, almacen = 0;
  QString horario;
  std::vector<GrupoQueEsta> estaban, seQuedan;
  YaEstan ya;  // those of the found groups that are there, and stay
  Aplicado hecho;

  bool seQueda(int codigo) const {
    return std::ranges::find(seQuedan, codigo, &GrupoQueEsta::codigo) != seQuedan.end();
  }
};

Aplicador::Aplicador(groups::Grupos& grupos, articles::Catalogo& catalogo, Ajustes& ajustes)
    : grupos_(grupos), catalogo_(catalogo), ajustes_(ajustes), t_(catalogo.textos()) {}

Resultado<bool> Aplicador::porEstrenar() {
  TARVO_TOMAR(const auto todos, grupos_.todos());
  if (todos.empty()) return true;
  if (todos.size() > 1) return false;
  const int codigo = todos.front().codigo;
  TARVO_TOMAR(const auto primero, grupos_.cargar(codigo));
  if (!devices::esPrimerGrupo(primero, todos.front().nombre, ajustes_.idioma)) return false;
  TARVO_TOMAR(const auto periodo, catalogo_.base().uno(u"SELECT 1 FROM COLUMNA LIMIT 1"));
  if (!periodo.nulo()) return false;
  TARVO_TOMAR(const bool usado, grupos_.conRastro(codigo));
  return !usado;
}

Resultado<YaEstan> Aplicador::quienesLasTienen(std::span<const Hallazgo> hallazgos) {
  TARVO_TOMAR(auto obra, preparar(hallazgos, false));
  return std::move(obra.ya);
}

Resultado<Aplicador::Sustitucion> Aplicador::siSustituye(std::span<const Hallazgo> hallazgos) {
  TARVO_TOMAR(auto obra, preparar(hallazgos, true));
  Sustitucion s{.mismos = std::move(obra.ya), .quedan = {}, .seVan = {}};
  enlace::AjustesCables cables = ajustes_.de<enlace::AjustesCables>();
  std::vector<Hallazgo> suyos(hallazgos.begin(), hallazgos.end());
  Canales(cables, obra.seQuedan).usar(suyos, true);
  const bool seVan = hayGrupos(suyos) || !obra.seQuedan.empty();
  TARVO_TOMAR(const auto todos, grupos_.todos());
  for (const groups::Resumen& g : todos) {
    if (!seVan || obra.seQueda(g.codigo)) {
      s.quedan.push_back(g);
      continue;
    }
    TARVO_TOMAR(const auto contiene, grupos_.loQueSeVa(g.codigo));
    const auto esta = std::ranges::find(obra.estaban, g.codigo, &GrupoQueEsta::codigo);
    s.seVan.push_back(
        {g, contiene, esta == obra.estaban.end() ? Silencio() : silencioDe(*esta, hallazgos)});
  }
  return s;
}

Resultado<std::optional<Aplicador::Seccion>> Aplicador::seccionDeNuevos() {
  TARVO_TOMAR(const auto fila, catalogo_.base().consultar(
                                   u"SELECT NMSECC, NOMSEC FROM SECCS ORDER BY NMSECC LIMIT 1"));
  if (fila->Eof()) return std::nullopt;
  return Seccion{static_cast<int>(fila->entero(0)), fila->texto(1)};
}

Resultado<Aplicado> Aplicador::aplicar(std::span<const Hallazgo> hallazgos, bool reemplazar) {
  auto& cables = ajustes_.de<enlace::AjustesCables>();
  const enlace::AjustesCables antes = cables;
  auto hecho = escribir(hallazgos, reemplazar);
  if (!hecho) cables = antes;
  return hecho;
}

Resultado<Aplicador::Obra> Aplicador::preparar(std::span<const Hallazgo> hallazgos,
                                               bool reemplazar) {
  TARVO_TOMAR(const bool nueva, porEstrenar());
  Obra obra{.nueva = nueva,
            .desdeCero = nueva || reemplazar,
            .horario = horarioDe(ajustes_),
            .estaban = {},
            .seQuedan = {},
            .ya = {},
            .hecho = {}};
  if (!nueva) {
    TARVO_TOMAR(obra.estaban, gruposQueEstan(grupos_, ajustes_));
  }
  obra.ya = reemplazar ? quienesSonLosMismos(obra.estaban, hallazgos)
                       : exploracion::quienesLasTienen(obra.estaban, hallazgos);
  std::set<int> mismos;
  for (const auto& suyos : obra.ya)
    for (const auto& cual : suyos)
      if (cual) mismos.insert(*cual);
  std::ranges::copy_if(obra.estaban, std::back_inserter(obra.seQuedan), [&](const GrupoQueEsta& g) {
    return !obra.desdeCero || mismos.contains(g.codigo);
  });
  return obra;
}

Resultado<Aplicado> Aplicador::escribir(std::span<const Hallazgo> hallazgos, bool reemplazar) {
  if (!contar(hallazgos).algo()) return Aplicado();
  TARVO_TOMAR(auto transaccion, dao::Transaccion::empezar(catalogo_.base()));
  TARVO_TOMAR(auto obra, preparar(hallazgos, reemplazar));
  std::vector<Hallazgo> suyos(hallazgos.begin(), hallazgos.end());
  Canales canales(ajustes_.de<enlace::AjustesCables>(), obra.seQuedan);
  canales.usar(suyos, obra.desdeCero);
  if (obra.desdeCero && (hayGrupos(suyos) || !obra.seQuedan.empty()))
    TARVO_INTENTAR(hacerSitio(obra));
  TARVO_INTENTAR(crearTodos(suyos, obra));
  const bool conTcp = std::ranges::any_of(
      obra.hecho.creados, [](const auto& c) { return c.acceso.clase == Acceso::Clase::Tcp; });
  if (conTcp && !canales.asegurarTcp()) obra.hecho.avisos << t_(kTxSinCanalTcp);
  TARVO_INTENTAR(ajustes_.GuardarConfig());
  TARVO_INTENTAR(transaccion.confirmar());
  return std::move(obra.hecho);
}

Resultado<> Aplicador::hacerSitio(Obra& obra) {
  TARVO_TOMAR(const auto todos, grupos_.todos());
  for (const groups::Resumen& g : todos) {
    if (obra.seQueda(g.codigo)) {
      obra.hecho.quedan.push_back(g);
      continue;
    }
    TARVO_INTENTAR(grupos_.borrar(g.codigo));
    if (!obra.nueva) obra.hecho.borrados.push_back(g);
  }
  return {};
}

Resultado<> Aplicador::crearTodos(std::span<const Hallazgo> hallazgos, Obra& obra) {
  TARVO_TOMAR(const auto seccion, seccionDeNuevos());
  if (seccion) {
    obra.seccion = seccion->numero;
  } else {
    TARVO_TOMAR(obra.seccion, articles::Secciones(catalogo_).nueva());
  }
  TARVO_TOMAR(const auto almacen,
              catalogo_.base().uno(u"SELECT CODALM FROM ALMACEN ORDER BY CODALM"));
  obra.almacen = static_cast<int>(almacen.entero());
  for (size_t i = 0; i < hallazgos.size(); ++i)
    TARVO_INTENTAR(crear(hallazgos[i], obra.ya[i], obra));
  return {};
}

Resultado<> Aplicador::crear(const Hallazgo& h, std::span<const std::optional<int>> ya,
                             Obra& obra) {
  if (sinCanal(h.acceso)) {
    if (h.resultado >= ResultadoCanal::Modem)
      obra.hecho.avisos << t_(kTxSinCanalLibre, {h.acceso.nombre});
    return {};
  }
  for (size_t i = 0; i < h.grupos.size(); ++i)
    TARVO_INTENTAR(crearGrupo(h, h.grupos[i], ya[i], obra));
  if (h.resultado == ResultadoCanal::Vek && h.grupos.size() > 1)
    obra.hecho.avisos << t_(kTxVariasEstaciones, {nombre(h.acceso, t_)});
  return {};
}

Resultado<> Aplicador::crearGrupo(const Hallazgo& h, const GrupoHallado& hallado,
                                  std::optional<int> ya, Obra& obra) {
  devices::Grupo g = vacio(h, hallado, ajustes_.idioma);
  const QString donde = nombre(h.acceso, t_);
  if (!conBalanzas(hallado)) {
    obra.hecho.avisos << t_(kTxSinNingunaBalanza, {donde, hallado.estacion});
    return {};
  }
  if (ya) {
    if (!obra.desdeCero) obra.hecho.avisos << t_(kTxYaLaTiene, {donde, hallado.estacion, *ya});
    return {};
  }
  ponerAcceso(g, h.acceso);
  g.seccion = obra.seccion;
  g.Almacen = obra.almacen;
  g.Horario = obra.horario;
  TARVO_TOMAR(const int cual, codigo(obra));
  const QString suNombre = t_(kTxGrupoCreado).replace(u'#', Ceros(cual, 4));
  TARVO_INTENTAR(grupos_.guardar(g, cual, suNombre));
  obra.hecho.creados.push_back({cual, suNombre, h.acceso});
  return {};
}

// From 1 on those of groups that stay, and those that rows of lost groups would pass to, are left
// out.
Resultado<int> Aplicador::codigo(const Obra& obra) {
  if (!obra.desdeCero) return grupos_.codigoNuevo();
  const auto& creados = obra.hecho.creados;
  for (int cual = creados.empty() ? 1 : creados.back().codigo + 1; cual < groups::kUltimoCodigo;
       ++cual) {
    TARVO_TOMAR(const bool usado, grupos_.conRastro(cual));
    if (!usado && !obra.seQueda(cual)) return cual;
  }
  return grupos_.codigoNuevo();
}

}  // namespace tarvo::exploracion
