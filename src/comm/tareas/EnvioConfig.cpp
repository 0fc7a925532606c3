// The sending of configuration: keyboards, tickets, options of a group and of its scales, labels.
// A refused frame goes once more after all others, and with it what belongs to it: a label position
// is cleared and filled anew. A silent machine is passed over until the others have theirs.
#include <QSet>
#include <algorithm>
#include <deque>
#include <iterator>
#include <utility>

#include "comm/configuracion/Aceptado.h"
#include "comm/tareas/EnvioArticulos.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"

namespace tarvo::tareas {

namespace {

using configuracion::Envio;
using configuracion::kTodoElGrupo;
using maquinas::Pieza;
using motor::Siguiente;

// After so many refusals in a row they aren't about the frames.
constexpr int kNegadasSeguidas = 20;
constexpr qsizetype kNombradas = 20;
constexpr qint64 kEsperaAnotar = 1000;  // ms

// A stored value as a person can read it in one line: its ends, if it is long.
QString visible(QString texto) {
  constexpr qsizetype kPrincipio = 30, kFinal = 25;
  for (QChar& c : texto)
    if (!c.isPrint()) c = u' ';
  texto = texto.trimmed();
  if (texto.size() <= kPrincipio + kFinal) return texto;
  return texto.first(kPrincipio) + u'…' + texto.last(kFinal);
}

// Sentences of one weight: each once, the first ones in full.
class Frases {
 public:
  void decir(const QString& frase) {
    if (dichas_.contains(frase)) return;
    dichas_ += frase;
    if (primeras_.size() < kNombradas) primeras_ += frase;
  }
  QStringList lista(int grupo, const Textos& textos) const {
    const auto mas = static_cast<int>(dichas_.size() - primeras_.size());
    if (mas == 0) return primeras_;
    return primeras_ + QStringList{Plural(textos(kTxConfigYMas, {grupo}), mas)};
  }

 private:
  QStringList primeras_;
  QSet<QString> dichas_;
};

class EnvioConfig final : public motor::CursoTarea {
 public:
  EnvioConfig(const motor::DatosTarea& t, const motor::Entorno& e) : t_(t), e_(e) {}

  Resultado<Siguiente> siguiente() override {
    if (!preparado_) TARVO_INTENTAR(preparar());
    if (cola_.empty()) return Siguiente::fin();
    if (!std::exchange(anunciado_, true)) TARVO_INTENTAR(anunciar());
    const Turno& turno = turnos_[cola_.front().turno];
    const Pieza& p = actual();
    return Siguiente{Siguiente::Enviar, turno.envio.addr, p.peticion.codigo, p.peticion.datos, 0,
                     {.limpia = true}};
  }
  bool encaja(int addr, int codigo, const QByteArray&) const override {
    if (t_.protocolo == Protocolo::Nodal) return true;
    const int suya = cola_.empty() ? 0 : turnos_[cola_.front().turno].envio.addr;
    return !cola_.empty() && codigo == actual().peticion.codigo &&
           (addr < 0 || suya == 0 || addr == suya);
  }
  Resultado<> respuesta(int, int, const QByteArray&) override {
    seguidas_ = 0;
    ++hechas_;
    Bloque& b = cola_.front();
    if (++b.pos < b.hasta) return {};
    return acabar(b.turno);
  }
  bool rechazada(int error) override {
    if (++seguidas_ >= kNegadasSeguidas) return false;
    Bloque b = cola_.front();
    Turno& turno = turnos_[b.turno];
    cola_.pop_front();
    if (std::exchange(b.otraVez, true)) {
      turno.negadas.push_back({b.pos, error});
      --turno.quedan;
      ++hechas_;
      return true;
    }
    b.pos = b.desde;
    cola_.push_back(b);
    return true;
  }
  bool sinRespuesta(int error) override {
    if (!esSilencio(error) || cola_.empty()) return false;
    const size_t suyo = cola_.front().turno;
    const bool sola = turnos_.size() < 2 || t_.protocolo == Protocolo::Nodal;
    if (sola || std::exchange(turnos_[suyo].callada, true)) return false;
    cola_.front().pos = cola_.front().desde;
    std::ranges::stable_partition(cola_, [suyo](const Bloque& b) { return b.turno != suyo; });
    return true;
  }
  void reposo() override { static_cast<void>(asentar()); }
  // The caller's transaction may fail, and the task close again.
  Resultado<std::vector<totals::Aviso>> cerrar() override {
    TARVO_INTENTAR(anotar());
    return avisos(true);
  }
  std::vector<totals::Aviso> abandonar() override {
    reposo();
    return preparado_ ? avisos(false) : std::vector<totals::Aviso>{};
  }
  QString reparo() const override {
    size_t mal = 0;
    for (const Turno& turno : turnos_) mal += turno.negadas.size() + turno.malas.size();
    return mal == 0 ? QString() : e_.textos(kTxReparoConfig, {mal});
  }
  // Where it reads otherwise than what is stored here.
  QString trajo() const override { return cambios().join(u'\n'); }
  QString MostrarTraza() const override {
    if (cola_.empty()) return {};
    const Turno& turno = turnos_[cola_.front().turno];
    const QString que = nombreDe(deQue(actual()));
    return turno.envio.maquina == kTodoElGrupo
               ? que
               : e_.textos(kTxPasoConfig, {turno.envio.maquina + 1, que});
  }
  qint64 avance() const override { return hechas_; }

 private:
  struct Turno {
    Envio envio;
    size_t quedan = 0;                            // blocks
    std::vector<size_t> malas;                    // frames that can't be sent
    std::vector<std::pair<size_t, int>> negadas;  // refused twice, with the error
    bool callada = false, aceptado = false;
  };
  // Frames that go together: those of one subject.
  struct Bloque {
    size_t turno = 0, desde = 0, hasta = 0, pos = 0;
    bool otraVez = false;
  };

  // A subject, and its number.
  struct Que {
    maquinas::Asunto asunto = maquinas::Asunto::Tecla;
    int numero = 0;
    bool operator==(const Que&) const = default;
  };
  static Que deQue(const Pieza& p) { return {p.asunto, p.numero}; }

  const Pieza& actual() const {
    const Bloque& b = cola_.front();
    return turnos_[b.turno].envio.piezas[b.pos];
  }
  QString nombreDe(const Que& que) const {
    return e_.textos(kTxAsuntoConfig + static_cast<int>(que.asunto), {que.numero});
  }
  // It isn't sent.
  static bool esMala(const Turno& turno, const Que& que) {
    return std::ranges::any_of(turno.malas,
                               [&](size_t cual) { return deQue(turno.envio.piezas[cual]) == que; });
  }

  Resultado<> preparar() {
    configuracion::Destino d{.grupo = t_.Grupo, .tipo = t_.Tipo, .addr = t_.Addr};
    if (!t_.Todo) d.maquina = static_cast<int>(t_.Desde);
    TARVO_TOMAR(auto envios, configuracion::prepararEnvio(e_.db, e_.ajustes, t_.Clase, d));
    if (d.maquina && envios.empty())
      return tarvo::fallo(Fallo::NoExiste, e_.textos(kTxSinEsaBalanza, {t_.Grupo, *d.maquina + 1}));
    for (Envio& envio : envios) anadir(std::move(envio));
    preparado_ = true;
    return {};
  }
  void anadir(Envio envio) {
    Turno& turno = turnos_.emplace_back();
    turno.envio = std::move(envio);
    const auto& piezas = turno.envio.piezas;
    for (size_t i = 0, fin = 0; i < piezas.size(); i = fin) {
      bool valen = true;
      for (fin = i; fin < piezas.size() && deQue(piezas[fin]) == deQue(piezas[i]); ++fin)
        valen = valen && piezas[fin].vale;
      if (valen) {
        cola_.push_back({turnos_.size() - 1, i, fin, i});
        ++turno.quedan;
      } else {
        turno.malas.push_back(i);
      }
    }
  }

  // All in one transaction: a commit takes as long as the frames of a machine.
  Resultado<> anunciar() {
    TARVO_TOMAR(auto tr, dao::Transaccion::empezar(e_.db));
    for (const Turno& turno : turnos_)
      if (turno.quedan > 0)
        TARVO_INTENTAR(configuracion::anunciar(e_.db, t_.Grupo, t_.Clase, turno.envio.maquina));
    return tr.confirmar();
  }
  Resultado<> acabar(size_t cual) {
    cola_.pop_front();
    Turno& turno = turnos_[cual];
    if (--turno.quedan > 0 || !turno.malas.empty() || !turno.negadas.empty()) return {};
    turno.aceptado = true;
    if (porAnotar_.empty()) desde_ = e_.reloj.monotono();
    porAnotar_.emplace_back(cual, e_.reloj.ahora());
    return e_.reloj.monotono() - desde_ < kEsperaAnotar ? Resultado<>{} : asentar();
  }
  Resultado<> anotar() {
    for (const auto& [cual, cuando] : porAnotar_)
      TARVO_INTENTAR(
          configuracion::anotarAceptado(e_.db, t_.Grupo, t_.Clase, turnos_[cual].envio, cuando));
    return {};
  }
  Resultado<> asentar() {
    if (porAnotar_.empty()) return {};
    TARVO_TOMAR(auto tr, dao::Transaccion::empezar(e_.db));
    TARVO_INTENTAR(anotar());
    TARVO_INTENTAR(tr.confirmar());
    porAnotar_.clear();
    return {};
  }

  // The machine, as a person counts them, before what is told of it.
  QString lugar(const Turno& turno, const Que& de) const {
    const QString que = nombreDe(de);
    return turno.envio.maquina == kTodoElGrupo
               ? que
               : e_.textos(kTxAsuntoDeBalanza, {turno.envio.maquina + 1, que});
  }
  QStringList faltas() const {
    Frases frases;
    for (const Turno& turno : turnos_) {
      const auto& piezas = turno.envio.piezas;
      for (const auto& [cual, error] : turno.negadas)
        frases.decir(e_.textos(kTxConfigRechazada, {t_.Grupo, lugar(turno, deQue(piezas[cual])),
                                                    motivoDeRechazo(error, e_.textos)}));
      for (const size_t cual : turno.malas)
        frases.decir(e_.textos(kTxConfigNoVale, {t_.Grupo, lugar(turno, deQue(piezas[cual]))}));
    }
    return frases.lista(t_.Grupo, e_.textos);
  }
  // Where what is sent isn't what is stored.
  QStringList cambios() const {
    Frases frases;
    for (const Turno& turno : turnos_) {
      for (const Pieza& p : turno.envio.piezas)
        if (!p.cambiadas.isEmpty())
          frases.decir(
              e_.textos(kTxConfigOtrasLetras, {t_.Grupo, lugar(turno, deQue(p)), p.cambiadas}));
      for (const maquinas::Diferencia& d : turno.envio.diferencias)
        if (!esMala(turno, {d.asunto, d.numero}))
          frases.decir(e_.textos(
              kTxConfigDistinta + static_cast<int>(d.causa),
              {t_.Grupo, lugar(turno, {d.asunto, d.numero}), visible(d.escrito), visible(d.va)}));
    }
    return frases.lista(t_.Grupo, e_.textos);
  }
  std::vector<totals::Aviso> avisos(bool acabada) const {
    std::vector<totals::Aviso> salida;
    for (const QString& frase : faltas()) salida.push_back({t_.Grupo, frase, true});
    for (const QString& frase : cambios()) salida.push_back({t_.Grupo, frase, false});
    const QString resumen = acabada ? aceptado() : sinAcabar();
    if (!resumen.isEmpty()) salida.push_back({t_.Grupo, resumen, !acabada});
    return salida;
  }
  QString sinAcabar() const {
    QStringList faltan;
    for (const Turno& turno : turnos_)
      if (turno.quedan > 0 && turno.envio.maquina != kTodoElGrupo)
        faltan += QString::number(turno.envio.maquina + 1);
    if (faltan.isEmpty()) return {};
    return e_.textos(kTxConfigSinAcabar, {t_.Grupo, faltan.join(QStringLiteral(", "))});
  }
  QString aceptado() const {
    if (turnos_.empty()) return e_.textos(kTxNadaQueConfigurar, {t_.Grupo});
    const auto aceptan = std::ranges::count_if(turnos_, &Turno::aceptado);
    if (turnos_.front().envio.maquina != kTodoElGrupo)
      return e_.textos(kTxConfigDeBalanzas, {t_.Grupo, aceptan, turnos_.size()});
    return aceptan > 0 ? e_.textos(kTxConfigDeGrupo, {t_.Grupo}) : QString();
  }

  const motor::DatosTarea t_;
  const motor::Entorno e_;
  std::vector<Turno> turnos_;
  std::deque<Bloque> cola_;
  std::vector<std::pair<size_t, Fecha>> porAnotar_;  // what accepted all, and when
  qint64 desde_ = 0;                                 // the first of these (monotonic ms)
  bool preparado_ = false, anunciado_ = false;
  int seguidas_ = 0;
  qint64 hechas_ = 0;
};

}  // namespace

Curso crearEnvioConfig(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<EnvioConfig>(t, e);
}

}  // namespace tarvo::tareas
