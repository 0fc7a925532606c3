#include <algorithm>
#include <utility>

#include "comm/maquinas/Caja.h"
#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/GranTotal.h"
#include "comm/tareas/TextosTareas.h"
#include "core/dinero/Dinero.h"

namespace tarvo::tareas {

namespace {

using motor::Siguiente;

std::unexpected<Error> suprimido(const QString& texto) {
  return tarvo::fallo(Fallo::Restriccion, texto, motor::kErrorSuprimido);
}

// Tells each machine of a group to forget its counters. The intention is on disk before a machine's
// first frame, the outcome right after its answer; for a register, which clears one set of counters
// with each frame, set by set. If the run continues an interrupted one, the machine was left half
// cleared, or an order got no answer, it must first show that it holds what was read from it. After
// its answer it is asked once whether it obeyed: one that still has its sales was not zeroed, and
// one that doesn't tell is judged by its next reading. A register may have cleared its grand total
// alone, which may come to nothing anyway: it is asked for its articles as well, a list that is
// empty if it obeyed.
class Cero final : public motor::CursoTarea {
 public:
  Cero(const motor::DatosTarea& t, const motor::Entorno& e) : t_(t), e_(e), toda_(t.Todo) {}
  Resultado<Siguiente> siguiente() override;
  bool encaja(int addr, int codigo, const QByteArray& datos) const override;
  Resultado<> respuesta(int addr, int codigo, const QByteArray& datos) override;
  void reanudar() override {
    if (prueba_)
      prueba_->reanudar();
    else
      dudar();
  }
  void fallo() override {
    if (t_.Tipo == TipoGrupo::Birch) toda_ = false;
    m_.insistida = false;
    if (m_.confirmada)
      dejarDeVer();
    else if (!prueba_)
      dudar();
  }
  // At once, while the link is up and nothing new is sold: the grand total is read, and then the
  // order repeated.
  bool sinRespuesta(int) override {
    if (m_.confirmada) {
      dejarDeVer();
      return true;
    }
    if (prueba_ || !m_.anunciada || std::exchange(m_.insistida, true)) return false;
    dudar();
    return true;
  }
  Resultado<std::vector<totals::Aviso>> cerrar() override { return std::move(avisos_); }
  qint64 avance() const override { return static_cast<qint64>(maquina_); }
  QString MostrarTraza() const override {
    return pasos() == 1 ? e_.textos(kTxPasoCero) : e_.textos(kTxPasoCeroDe, {m_.paso, pasos()});
  }

 private:
  Resultado<> preparar();
  Resultado<> mirar();
  void dudar();
  bool debeProbar() const { return (comprobar_ || m_.dudosa) && !m_.probada; }
  Resultado<std::optional<Siguiente>> probar();
  Resultado<std::optional<Siguiente>> leer(TipoTarea clase, totals::Contadores& leido);
  Resultado<std::optional<Siguiente>> ver();
  Resultado<std::optional<Siguiente>> verGranTotal();
  Resultado<std::optional<Siguiente>> verArticulos();
  void dejarDeVer() {
    prueba_.reset();
    m_.sinVer = true;
  }
  Resultado<> desmentida(TipoTotal clase, const totals::Contadores& leido, bool igual);
  Resultado<> juzgar(const totals::Contadores& leido);
  Resultado<> parteHecha();
  Resultado<> hecha(bool visto = false);
  Siguiente trama() const;
  int pasos() const {
    return t_.Tipo == TipoGrupo::Registradoras ? maquinas::caja::kPasosCero
           : t_.Tipo == TipoGrupo::Ebony       ? 2
                                               : 1;
  }
  int addr() const { return pendientes_[maquina_]; }

  const motor::DatosTarea t_;
  const motor::Entorno e_;
  // The progress of the present machine.
  struct Marcha {
    int paso = 1;
    bool mirada = false;      // this run's earlier orders to it were looked up
    bool anunciada = false;   // the present order is on disk
    bool dudosa = false;      // it was given an order, with unknown effect
    bool probada = false;     // it has shown its contents
    bool insistida = false;   // a silence was followed by a question in this attempt
    bool confirmada = false;  // it has confirmed the order
    bool visto = false;       // and its grand total was seen to be cleared
    bool sinVer = false;      // but it doesn't tell (the rest)
  };

  bool toda_, preparada_ = false, comprobar_ = false, sinLectura_ = false;
  std::vector<totals::Aviso> avisos_;
  std::vector<int> pendientes_;  // machines yet to forget, by address; 0 where the group is one
  size_t maquina_ = 0;
  Marcha m_;
  std::unique_ptr<Totales> prueba_;  // the reading of the grand total or the articles under way
  QStringList desmentidas_;          // reports of machines that didn't obey
};

Resultado<> Cero::preparar() {
  if (preparada_) return {};
  TARVO_TOMAR(const auto permiso, e_.sesion.permisoCero(t_.Grupo));
  if (!permiso.permitido) return suprimido(permiso.motivo);
  comprobar_ = permiso.comprobar;
  sinLectura_ = permiso.sinLectura;
  avisos_ = permiso.avisos;
  if (t_.Tipo == TipoGrupo::Registradoras && t_.Direcciones.empty())
    return suprimido(e_.textos(kTxSinCajasQueBorrar, {t_.Grupo}));
  std::vector<int> todas =
      t_.Tipo == TipoGrupo::Registradoras ? t_.Direcciones : std::vector<int>{0};
  for (const int a : todas) {
    if (std::ranges::find(pendientes_, a) != pendientes_.end()) continue;
    // Registers that forgot before a restart are skipped; a single machine is asked what it holds.
    TARVO_TOMAR(const auto ya, e_.sesion.ceroYaHecho(t_.Grupo, a));
    if (!ya || (t_.Tipo != TipoGrupo::Registradoras && !comprobar_)) pendientes_.push_back(a);
  }
  preparada_ = true;
  return {};
}

// Nothing once the present machine's grand total, or articles, are read.
Resultado<std::optional<Siguiente>> Cero::leer(TipoTarea clase, totals::Contadores& leido) {
  if (!prueba_) {
    motor::DatosTarea t = t_;
    t.Clase = clase;
    t.Desde = 0, t.Hasta = motor::DatosTarea{}.Hasta;
    t.Direcciones = {addr()};
    prueba_ = clase == TipoTarea::RxPlus ? crearArticulosDeCaja(t, e_) : crearGranTotal(t, e_);
    prueba_->paraOtra();
  }
  TARVO_TOMAR(auto s, prueba_->siguiente());
  if (s.que != Siguiente::Fin) return s;
  for (const auto& [maquina, filas] : prueba_->lectura().maquinas)
    for (const auto& [clave, c] : filas) leido += c;
  prueba_.reset();
  return std::nullopt;
}

// Compares the machine's grand total with what was read from it. Nothing if the machine may be told
// to forget now, or is finished.
Resultado<std::optional<Siguiente>> Cero::probar() {
  totals::Contadores leido;
  TARVO_TOMAR(auto s, leer(TipoTarea::RxGrTot, leido));
  if (s) return s;
  TARVO_INTENTAR(juzgar(leido));
  return std::nullopt;
}

// Has the machine that has just confirmed obeyed? The order counts as done unless it is seen that
// it didn't.
Resultado<std::optional<Siguiente>> Cero::ver() {
  if (!m_.sinVer && !m_.visto) return verGranTotal();
  if (!m_.sinVer && t_.Tipo == TipoGrupo::Registradoras) return verArticulos();
  TARVO_INTENTAR(hecha(m_.visto));
  return std::nullopt;
}

Resultado<std::optional<Siguiente>> Cero::verGranTotal() {
  totals::Contadores leido;
  TARVO_TOMAR(auto s, leer(TipoTarea::RxGrTot, leido));
  if (s) return s;
  TARVO_TOMAR(const auto r, e_.sesion.compararGranTotal(t_.Grupo, addr(), leido));
  using C = totals::Sesion::Comparacion;
  m_.visto = leido.cero() || r == C::Cero;
  if (!m_.visto) TARVO_INTENTAR(desmentida(TipoTotal::GranTotal, leido, r == C::Igual));
  return std::nullopt;
}

// Only articles that were read whole before can be compared.
Resultado<std::optional<Siguiente>> Cero::verArticulos() {
  using C = totals::Sesion::Comparacion;
  TARVO_TOMAR(const auto antes, e_.sesion.articulosLeidos(t_.Grupo, addr()));
  if (!antes) {
    TARVO_INTENTAR(hecha(true));
    return std::nullopt;
  }
  totals::Contadores leido;
  TARVO_TOMAR(auto s, leer(TipoTarea::RxPlus, leido));
  if (s) return s;
  const C r = totals::Sesion::compararArticulos(*antes, leido);
  if (r == C::Cero)
    TARVO_INTENTAR(hecha(true));
  else
    TARVO_INTENTAR(desmentida(TipoTotal::PLUs, leido, r == C::Igual));
  return std::nullopt;
}

// The order stays unconfirmed.
Resultado<> Cero::desmentida(TipoTotal clase, const totals::Contadores& leido, bool igual) {
  TARVO_INTENTAR(e_.sesion.ceroDesmentido(t_.Grupo, addr(), clase, igual));
  const QString queda = VerImporte(e_.ajustes, leido.IMP, e_.ajustes.MonedaNativa ? 1 : 0);
  if (clase == TipoTotal::PLUs)
    desmentidas_ << e_.textos(kTxCajaSigueConArticulos, {t_.Grupo, queda, addr()});
  else
    desmentidas_ << (addr() == 0 ? e_.textos(kTxSigueConVentas, {t_.Grupo, queda})
                                 : e_.textos(kTxCajaSigueConVentas, {t_.Grupo, queda, addr()}));
  ++maquina_;
  m_ = {};
  return {};
}

// Resumes the machine where it was left, by the grand total just read. Which frame of a register
// clears what is unknown: its orders continue only if it has sold nothing since it was read, or
// since its grand total was cleared.
Resultado<> Cero::juzgar(const totals::Contadores& leido) {
  TARVO_TOMAR(const auto r, e_.sesion.compararGranTotal(t_.Grupo, addr(), leido));
  using C = totals::Sesion::Comparacion;
  const bool sinBase = r == C::SinLectura || r == C::OtrasClases;
  if (r == C::OtrasClases && t_.Tipo != TipoGrupo::Registradoras && leido.cero()) {
    return hecha(true);
  } else if (r == C::SinLectura && comprobar_ && sinLectura_) {
    m_.probada = true;
    return {};
  } else if (sinBase && !comprobar_ &&
             (t_.Tipo == TipoGrupo::Registradoras || r == C::SinLectura)) {
    m_.anunciada = m_.anunciada && m_.paso == 1;
    m_.paso = 1;
  } else if (t_.Tipo == TipoGrupo::Registradoras && (leido.cero() || r == C::Igual)) {
    m_.probada = true;
    return {};
  } else if (r == C::Mas || sinBase || t_.Tipo == TipoGrupo::Registradoras) {
    return suprimido(e_.textos(kTxGuardaVentas, {t_.Grupo, addr()}));
  } else if (r == C::Cero) {
    return hecha(true);
  }
  m_.probada = true;
  return {};
}

// The machine's progress: a confirmed set is not cleared again.
Resultado<> Cero::mirar() {
  if (m_.mirada || t_.Tipo != TipoGrupo::Registradoras) return {};
  TARVO_TOMAR(const auto p, e_.sesion.partesHechas(t_.Grupo, addr()));
  m_.paso = std::min(p.siguiente, pasos());
  m_.dudosa = m_.dudosa || p.empezada;
  m_.mirada = true;
  return {};
}

// An unanswered order may have been obeyed, and the machine may have sold since: it isn't repeated
// on trust.
void Cero::dudar() {
  if (!m_.anunciada) return;
  if (t_.Tipo == TipoGrupo::Ebony) m_.paso = 1;
  m_.dudosa = true;
  m_.probada = m_.mirada = false;
}

Resultado<Siguiente> Cero::siguiente() {
  TARVO_INTENTAR(preparar());
  while (maquina_ < pendientes_.size()) {
    if (m_.confirmada) {
      TARVO_TOMAR(auto s, ver());
      if (s) return *s;
      continue;
    }
    TARVO_INTENTAR(mirar());
    if (debeProbar()) {
      TARVO_TOMAR(auto s, probar());
      if (s) return *s;
      continue;
    }
    if (!m_.anunciada)
      TARVO_INTENTAR(e_.sesion.anunciarCero(t_.Grupo, addr(),
                                            t_.Tipo == TipoGrupo::Registradoras ? m_.paso : 0));
    m_.anunciada = true;
    return trama();
  }
  if (!desmentidas_.isEmpty()) return suprimido(desmentidas_.join(u' '));
  return Siguiente::fin();
}

Siguiente Cero::trama() const {
  constexpr bool kUnaVez = true;
  if (t_.Tipo == TipoGrupo::Registradoras)
    return {Siguiente::Enviar, addr(), maquinas::caja::puestaACero(m_.paso).codigo, {}, 0,
            {kUnaVez}};
  const int cero = e_.ajustes.de<motor::AjustesMotor>().TimeCero;
  if (t_.Tipo != TipoGrupo::Ebony)
    return {Siguiente::Enviar, 0, maquinas::vek::puestaACero(toda_).codigo, {}, cero, {kUnaVez}};
  if (m_.paso == 1)
    return {Siguiente::Enviar, t_.Addr, maquinas::nodal::puestaACero().codigo, {}, 0, {kUnaVez}};
  return {Siguiente::EsperarNODAL, t_.Addr, 0, {}, cero};
}

bool Cero::encaja(int addrTrama, int codigo, const QByteArray& datos) const {
  if (prueba_) return prueba_->encaja(addrTrama, codigo, datos);
  // Any frame of an Ebony machine after the order is its answer.
  return t_.Tipo == TipoGrupo::Ebony || (maquina_ < pendientes_.size() && codigo == trama().codigo);
}

Resultado<> Cero::respuesta(int addrTrama, int codigo, const QByteArray& datos) {
  if (prueba_) return prueba_->respuesta(addrTrama, codigo, datos);
  if (maquina_ >= pendientes_.size()) return {};
  if (m_.paso == pasos()) {
    m_.confirmada = true;
    return {};
  }
  if (t_.Tipo == TipoGrupo::Registradoras) return parteHecha();
  ++m_.paso;
  return {};
}

Resultado<> Cero::parteHecha() {
  TARVO_INTENTAR(e_.sesion.parteHecha(t_.Grupo, addr(), m_.paso));
  ++m_.paso;
  m_.anunciada = false;
  return {};
}

Resultado<> Cero::hecha(bool visto) {
  const bool ultima = maquina_ + 1 == pendientes_.size() && desmentidas_.isEmpty();
  // A register clears its kinds of total one after another.
  using V = totals::Sesion::Visto;
  const V que = !visto ? V::Nada : t_.Tipo == TipoGrupo::Registradoras ? V::GranTotal : V::Todo;
  TARVO_INTENTAR(e_.sesion.ceroHecho(t_.Grupo, addr(), ultima, que));
  ++maquina_;
  m_ = {};
  return {};
}

}  // namespace

Curso crearTxZero(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<Cero>(t, e);
}

}  // namespace tarvo::tareas
