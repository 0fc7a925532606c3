#include "groups/Edicion.h"

#include <algorithm>
#include <set>

#include "comm/configuracion/Envio.h"
#include "devices/Modelos.h"
#include "groups/TextosGroups.h"

namespace tarvo::groups {

using devices::Balanza, devices::Grupo, devices::Maquina, devices::Miembro, devices::Registradora;

Marcas Marcas::todas() {
  Marcas m;
  m.puestas_.fill(true);
  return m;
}

std::vector<TareaDebida> Marcas::envios(TipoGrupo tipo) const {
  constexpr std::pair<Cambio, TareaDebida> kOrden[] = {
      {Cambio::Opciones, {TipoTarea::TxCfBal}}, {Cambio::Etiquetas, {TipoTarea::TxEtiq}},
      {Cambio::Config, {TipoTarea::TxCnfig}},   {Cambio::Teclado, {TipoTarea::TxTecla}},
      {Cambio::Ticket, {TipoTarea::TxTick}},    {Cambio::Tarifa, {TipoTarea::TxPlus, false}}};
  std::vector<TareaDebida> todos;
  for (const auto& [cambio, envio] : kOrden)
    if (tiene(cambio) &&
        (envio.clase == TipoTarea::TxPlus || configuracion::valePara(envio.clase, tipo)))
      todos.push_back(envio);
  return todos;
}

Maquina& maquinaDe(Miembro& miembro) {
  return std::visit([](auto& m) -> Maquina& { return m; }, miembro);
}

const Maquina& maquinaDe(const Miembro& miembro) {
  return std::visit([](const auto& m) -> const Maquina& { return m; }, miembro);
}

const Miembro* enSitio(const Grupo& grupo, int sitio) {
  const auto hallada = grupo.LasBalanzas.find(sitio);
  return hallada == grupo.LasBalanzas.end() ? nullptr : &hallada->second;
}

TipoGrupo tipoPara(const Miembro& miembro) {
  const auto* balanza = std::get_if<Balanza>(&miembro);
  return balanza ? balanza->TipoDeGrupo().value_or(TipoGrupo::Balanzas) : TipoGrupo::Registradoras;
}

namespace {

// The addresses of the registers in other places.
std::set<int> direccionesFuera(const Grupo& grupo, std::optional<int> de) {
  std::set<int> usadas;
  for (const auto& [numero, otra] : grupo.LasBalanzas)
    if (numero != de) usadas.insert(maquinaDe(otra).Direccion.value_or(0));
  return usadas;
}

int primeraLibre(const std::set<int>& usadas) {
  int libre = 1;
  while (usadas.contains(libre)) ++libre;
  return libre;
}

}  // namespace

Miembro maquinaNueva(const Grupo& grupo, std::optional<int> modelo, Idioma idioma) {
  if (modelo) {
    Balanza nueva(idioma);
    nueva.tipo(*modelo);
    return nueva;
  }
  Registradora nueva(idioma);
  nueva.Direccion = primeraLibre(direccionesFuera(grupo, std::nullopt));
  return nueva;
}

QString reglaDireccion(const Textos& textos) {
  return textos(kTxReglaDireccion, {kUltimaDireccion});
}

void darDireccion(const Grupo& grupo, int sitio, Miembro& miembro) {
  auto* caja = std::get_if<Registradora>(&miembro);
  if (!caja) return;
  const auto usadas = direccionesFuera(grupo, sitio);
  if (usadas.contains(caja->Direccion.value_or(0))) caja->Direccion = primeraLibre(usadas);
}

QString textoDe(const Miembro& miembro) {
  return std::visit([](const auto& m) { return m.Texto(); }, miembro);
}

std::optional<Miembro> leerMaquina(const QString& texto, bool cajas, Idioma idioma) {
  Balanza balanza(idioma);
  Registradora caja(idioma);
  if (cajas) return caja.Texto(texto) ? std::optional<Miembro>(caja) : std::nullopt;
  return balanza.Texto(texto) ? std::optional<Miembro>(balanza) : std::nullopt;
}

Resultado<> colocar(Grupo& grupo, int sitio, Miembro miembro, const Textos& textos) {
  const TipoGrupo tipo = tipoPara(miembro);
  if (!grupo.LasBalanzas.empty() && tipoPara(grupo.LasBalanzas.begin()->second) != tipo)
    return fallo(Fallo::Restriccion, textos(kTxIncompatibles));
  maquinaDe(miembro).Numero = sitio;
  grupo.LasBalanzas.insert_or_assign(sitio, std::move(miembro));
  if (grupo.LasBalanzas.size() == 1 && grupo.tipo() != tipo) grupo.tipo(tipo);
  return {};
}

void vaciar(Grupo& grupo, int sitio) {
  grupo.LasBalanzas.erase(sitio);
}

std::optional<int> sitioLibre(const Grupo& grupo, int desde) {
  for (int n = 0; n < kSitios; ++n)
    if (const int sitio = (std::max(desde, 0) + n) % kSitios; !enSitio(grupo, sitio)) return sitio;
  return std::nullopt;
}

void permutar(Grupo& grupo, int sitio, int otro) {
  auto una = grupo.LasBalanzas.extract(sitio), otra = grupo.LasBalanzas.extract(otro);
  const auto poner = [&grupo](auto& nodo, int donde) {
    if (nodo.empty()) return;
    nodo.key() = donde;
    maquinaDe(nodo.mapped()).Numero = donde;
    grupo.LasBalanzas.insert(std::move(nodo));
  };
  poner(una, otro);
  poner(otra, sitio);
}

std::optional<std::optional<QString>> juegoDe(const Balanza& balanza,
                                              const std::vector<FormatoEtiqueta>& formatos) {
  for (int k = 11; k <= 20; ++k) {
    const auto suyo = std::ranges::find(formatos, balanza.Formato(k), &FormatoEtiqueta::nombre);
    if (suyo != formatos.end()) return suyo->juego;
  }
  return std::nullopt;
}

std::vector<FormatoEtiqueta> ofrecidos(const Balanza& balanza,
                                       const std::vector<FormatoEtiqueta>& formatos) {
  const auto juego = juegoDe(balanza, formatos);
  if (!juego) return formatos;
  std::vector<FormatoEtiqueta> quedan;
  std::ranges::copy_if(formatos, std::back_inserter(quedan),
                       [&](const FormatoEtiqueta& f) { return f.juego == *juego; });
  return quedan;
}

bool conTresCasetes(int modelo) {
  return modelo == devices::kRowan || modelo == devices::kMaple || modelo == devices::kLarch ||
         modelo == devices::kBirch;
}

void copiarMensaje(const Miembro& de, Miembro& a) {
  maquinaDe(a).Publici = maquinaDe(de).Publici;
}

void copiarOpciones(const Miembro& de, Miembro& a) {
  const Maquina& m = maquinaDe(de);
  Maquina& n = maquinaDe(a);
  n.CB_Habil = m.CB_Habil, n.CB_tpEAN = m.CB_tpEAN;
  n.CB_pFija = m.CB_pFija, n.CB_Fmato = m.CB_Fmato;
  n.FG_PrLib = m.FG_PrLib, n.FG_PrEsp = m.FG_PrEsp, n.FG_Devol = m.FG_Devol;
  n.FG_Abono = m.FG_Abono, n.FG_DcSbt = m.FG_DcSbt, n.FG_HabDp = m.FG_HabDp;
  n.PL_digEn = m.PL_digEn, n.PL_pFija = m.PL_pFija;
}

void copiarCasetes(const Miembro& de, Miembro& a) {
  const auto* m = std::get_if<Balanza>(&de);
  auto* n = std::get_if<Balanza>(&a);
  if (!m || !n) return;
  for (int i = 1; i <= 3; ++i) n->CassModo(i, m->CassModo(i)), n->CassOper(i, m->CassOper(i));
  for (int k = 11; k <= 20; ++k) n->Formato(k, m->Formato(k));
}

void copiarCabecera(const Miembro& de, Miembro& a) {
  maquinaDe(a).RazonSo = maquinaDe(de).RazonSo;
}

}  // namespace tarvo::groups
