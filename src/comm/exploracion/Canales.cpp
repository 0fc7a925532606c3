#include "comm/exploracion/Canales.h"

#include <algorithm>

#include "comm/cables/Conectores.h"
#include "comm/exploracion/Accesos.h"

namespace tarvo::exploracion {

namespace {

using enlace::AjustesCables;
using enlace::ParamCanal;

TipoAcceso usoDe(ResultadoCanal resultado) {
  switch (resultado) {
    case ResultadoCanal::SinPuerto:
    case ResultadoCanal::SinCts:
    case ResultadoCanal::Cable:
      return TipoAcceso::Ninguno;
    case ResultadoCanal::Modem:
      return TipoAcceso::Modem;
    case ResultadoCanal::Vek:
    case ResultadoCanal::Nodal:
      return TipoAcceso::Directo;
  }
  return TipoAcceso::Ninguno;
}

QString claveDeGrupo(const devices::Grupo& g, const Ajustes& ajustes) {
  const auto& cables = ajustes.de<AjustesCables>();
  if (g.Acceso == TipoAcceso::TcpIp) return claveDeTcp(g.Telefono);
  if (g.Acceso == TipoAcceso::Directo) {
    const bool bien = g.Canal >= 1 && g.Canal <= static_cast<int>(cables.canales.size());
    if (!bien) return {};
    const int puerto = cables.canales[static_cast<size_t>(g.Canal) - 1].Puerto;
    return claveDeSerie(enlace::rutaDePuerto(cables, puerto));
  }
  if (g.Acceso != TipoAcceso::Conector) return {};
  const QString destino = enlace::conector(ajustes, g.Telefono);
  const QString clase = destino.section(u':', 0, 0).trimmed().toLower();
  const QString resto = destino.section(u':', 1).trimmed();
  if (clase == u"tcp") return claveDeTcp(resto);
  return clase == u"serie" ? claveDeSerie(resto.section(u',', 0, 0).trimmed()) : QString();
}

}  // namespace

ParamCanal* Canales::libre() {
  int numero = 0;
  for (ParamCanal& canal : cables_.canales) {
    ++numero;
    const bool enUso = std::ranges::any_of(cables_.canales, [&](const ParamCanal& otro) {
      return otro.Puerto == canal.Puerto && otro.Device != TipoAcceso::Ninguno;
    });
    if (!enUso && std::ranges::find(grupos_, numero, &GrupoQueEsta::canal) == grupos_.end())
      return &canal;
  }
  return nullptr;
}

void Canales::usar(std::span<Hallazgo> hallazgos, bool entera) {
  for (const Hallazgo& h : hallazgos) {
    const TipoAcceso uso = usoDe(h.resultado);
    if (h.acceso.canal > 0 && (entera || uso != TipoAcceso::Ninguno))
      cables_.canales[static_cast<size_t>(h.acceso.canal) - 1].Device = uso;
  }
  for (Hallazgo& h : hallazgos) {
    const TipoAcceso uso = usoDe(h.resultado);
    const bool leFalta = h.acceso.clase == Acceso::Clase::Serie && h.acceso.canal == 0;
    ParamCanal* canal = leFalta && uso != TipoAcceso::Ninguno ? libre() : nullptr;
    if (!canal) continue;
    canal->Device = uso;
    canal->RS232 = h.acceso.linea.rs232;
    cables_.RutaPuerto[canal->Puerto] = h.acceso.nombre;
    h.acceso.canal = static_cast<int>(canal - cables_.canales.data()) + 1;
  }
}

bool Canales::asegurarTcp() {
  const auto hay = std::ranges::find(cables_.canales, TipoAcceso::TcpIp, &ParamCanal::Device);
  if (hay != cables_.canales.end()) return true;
  ParamCanal* canal = libre();
  if (canal) canal->Device = TipoAcceso::TcpIp;
  return canal != nullptr;
}

Resultado<std::vector<GrupoQueEsta>> gruposQueEstan(groups::Grupos& grupos,
                                                    const Ajustes& ajustes) {
  TARVO_TOMAR(const auto todos, grupos.todos());
  std::vector<GrupoQueEsta> estan;
  for (const groups::Resumen& r : todos) {
    TARVO_TOMAR(const auto g, grupos.cargar(r.codigo));
    const int canal = g.Acceso == TipoAcceso::Directo ? g.Canal : 0;
    GrupoQueEsta esta{r.codigo, claveDeGrupo(g, ajustes), canal, g.tipo(), g.NumGpo};
    for (const auto& [numero, maquina] : g.LasBalanzas) esta.numeros.insert(numero);
    estan.push_back(std::move(esta));
  }
  return estan;
}

namespace {

bool alcanza(const GrupoQueEsta& g, const QString& clave, const Hallazgo& h,
             const GrupoHallado& hallado) {
  const bool nodal = h.resultado == ResultadoCanal::Nodal;
  if (!g.tipo || g.clave != clave) return false;
  const bool suyo = g.tipo == TipoGrupo::Ebony;
  return suyo == nodal && (!nodal || g.nodo == hallado.estacion);
}

std::set<int> numerosDe(const GrupoHallado& hallado) {
  std::set<int> numeros;
  for (size_t i = 0; i < hallado.balanzas.size(); ++i)
    if (hallado.balanzas[i]) numeros.insert(static_cast<int>(i));
  return numeros;
}

std::optional<int> quienEsElMismo(std::span<const GrupoQueEsta> grupos, const Hallazgo& h,
                                  const GrupoHallado& hallado) {
  const std::set<int> numeros = numerosDe(hallado);
  const QString clave = claveDe(h.acceso);
  std::optional<int> cual;
  for (const GrupoQueEsta& g : grupos) {
    const bool mismo = alcanza(g, clave, h, hallado) && g.tipo != TipoGrupo::Registradoras &&
                       !numeros.empty() && g.numeros == numeros;
    if (mismo && cual) return std::nullopt;
    if (mismo) cual = g.codigo;
  }
  return cual;
}

template <class F>
YaEstan porHallado(std::span<const Hallazgo> hallazgos, F quien) {
  YaEstan ya;
  for (const Hallazgo& h : hallazgos) {
    auto& suyos = ya.emplace_back();
    for (const GrupoHallado& g : h.grupos) suyos.push_back(quien(h, g));
  }
  return ya;
}

}  // namespace

std::optional<int> quienLaTiene(std::span<const GrupoQueEsta> grupos, const Hallazgo& h,
                                const GrupoHallado& hallado) {
  const QString clave = claveDe(h.acceso);
  for (const GrupoQueEsta& g : grupos)
    if (alcanza(g, clave, h, hallado)) return g.codigo;
  return std::nullopt;
}

YaEstan quienesLasTienen(std::span<const GrupoQueEsta> grupos,
                         std::span<const Hallazgo> hallazgos) {
  return porHallado(hallazgos, [&](const Hallazgo& h, const GrupoHallado& g) {
    return quienLaTiene(grupos, h, g);
  });
}

YaEstan quienesSonLosMismos(std::span<const GrupoQueEsta> grupos,
                            std::span<const Hallazgo> hallazgos) {
  std::set<int> usados;
  return porHallado(hallazgos, [&](const Hallazgo& h, const GrupoHallado& g) {
    const auto cual = quienEsElMismo(grupos, h, g);
    return cual && usados.insert(*cual).second ? cual : std::nullopt;
  });
}

Silencio silencioDe(const GrupoQueEsta& grupo, std::span<const Hallazgo> hallazgos) {
  const std::vector<int> todas(grupo.numeros.begin(), grupo.numeros.end());
  if (grupo.tipo == TipoGrupo::Registradoras) return {Silencio::Por::NoSeBuscan, todas};
  std::set<int> callan = grupo.numeros;
  bool explorado = false;
  for (const Hallazgo& h : hallazgos) {
    if (grupo.clave.isEmpty() || claveDe(h.acceso) != grupo.clave) continue;
    explorado = true;
    for (const GrupoHallado& hallado : h.grupos)
      if (alcanza(grupo, grupo.clave, h, hallado))
        for (const int numero : numerosDe(hallado)) callan.erase(numero);
  }
  if (!explorado) return {Silencio::Por::SinExplorar, todas};
  return {Silencio::Por::Callan, {callan.begin(), callan.end()}};
}

}  // namespace tarvo::exploracion
