#include "noches/Mundo.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <algorithm>
#include <set>

namespace tarvo::noches {

using simulador::Averia, simulador::Lista, simulador::Tipo, simulador::Venta;

namespace {

constexpr qint64 kMaxEventos = 3'000'000;
constexpr qint64 kMaxNoche = 12 * 3600 * 1000LL;

// A sale whose amount and weight always have the same sign, also when summed with its returns.
Venta venta(const simulador::Articulo& a, const PlanGrupo& g, Azar& azar) {
  Venta v;
  v.articulo = a.codigo;
  v.departamento = a.departamento;
  v.operador = azar.entero(1, static_cast<int>(g.operadores.size()));
  if (a.unidad == 2) v.cuenta = azar.entero(1, 4);
  if (a.unidad != 2) v.peso = azar.entero(1, 20) * 100;
  v.importe =
      a.unidad == 2 ? a.precio * v.cuenta : a.precio * v.peso / (a.unidad == 0 ? 1000 : 100);
  if (azar.ocurre(0.2)) v.descuento = v.importe / 10, v.importe -= v.descuento;
  return v;
}

QString nombreAveria(const simulador::Paso& p) {
  return simulador::nombreAveria(p.averia);
}

}  // namespace

Veredicto correrSemilla(quint64 semilla, std::function<void(const QString&)> alTrazar,
                        bool conCostumbres) {
  const Plan plan(semilla, conCostumbres);
  return Mundo(plan, std::move(alTrazar)).correr();
}

Veredicto Mundo::correr() {
  for (int n = 0; n < static_cast<int>(plan_.noches.size()) && oraculo_->diferencias.isEmpty();
       ++n) {
    editar(Edicion::Manana, n);
    dia(n);
    editar(Edicion::Tarde, n);
    if (!oraculo_->diferencias.isEmpty()) break;
    noche(n);
    editar(Edicion::SinContestar, n + 1);
    responder();
    if (plan_.noches[static_cast<std::size_t>(n)].otraVez && acabada_ &&
        oraculo_->diferencias.isEmpty()) {
      vender(*std::ranges::find(maquinas_, false, &MaquinaViva::fuera),
             {codigos_[static_cast<std::size_t>(n)]}, reloj_.ahora().qdate(), 0);
      noche(n);
      responder();
    }
    ++v_.noches;
  }
  programa_.reset();
  v_.diferencias = oraculo_->diferencias;
  huella_ += oraculo_->base().todo().replace(carpeta_.path().toUtf8(), "");
  v_.huella = QCryptographicHash::hash(huella_, QCryptographicHash::Md5).toHex();
  return v_;
}

void Mundo::traza(const QString& linea) {
  // A message may contain the folder, which has a different name each time.
  huella_ += linea.toUtf8().replace(carpeta_.path().toUtf8(), "");
  if (alTrazar_) alTrazar_(linea);
}

// --- days ---------------------------------------------------------------------------------------

void Mundo::vender(MaquinaViva& m, const std::vector<int>& articulos, QDate dia,
                   double devoluciones) {
  const auto& a = plan_.articulos.at(
      articulos[static_cast<std::size_t>(azar_.entero(0, static_cast<int>(articulos.size()) - 1))]);
  Venta v = venta(a, *m.grupo, azar_);
  v.cuando = Fecha::de(dia, QTime(azar_.entero(9, 20), azar_.entero(0, 59)));
  v.hora = v.cuando.qtime().hour();
  auto& memoria = m.maquina->memoria();
  memoria.vender(v);
  if (!azar_.ocurre(devoluciones)) return;
  v.importe = -v.importe, v.peso = -v.peso, v.descuento = -v.descuento;
  if (plan_.devuelveCuenta && m.grupo->tipo != Tipo::Registradora) v.cuenta = -v.cuenta;
  // A register skips a department whose returns equal its sales.
  if (m.grupo->tipo == Tipo::Registradora) v.importe += 1;
  memoria.vender(v);
}

// A piece sold on some day is returned. Cases that no decoder could distinguish are left out:
// weight and amount of different signs, and records that a register skips.
void Mundo::devolver(MaquinaViva& m, QDate dia) {
  const auto& memoria = m.maquina->memoria();
  if (memoria.libro().empty()) return;
  Venta v = memoria.libro()[static_cast<std::size_t>(
      gente_.entero(0, static_cast<int>(memoria.libro().size()) - 1))];
  const auto& c = memoria.contadores();
  const auto cabe = [&](const auto& cuentas, const auto& clave) {
    const auto it = cuentas.find(clave);
    return it != cuentas.end() && it->second.imp > v.importe && it->second.con > v.cuenta &&
           it->second.pes >= v.peso && it->second.sco >= v.descuento;
  };
  const bool porHoras = plan_.leidas.contains({m.grupo->codigo, kOperHora});
  const bool registradora = m.grupo->tipo == Tipo::Registradora;
  if (v.importe <= 0 || v.cuenta <= 0) return;
  if ((v.peso != 0 || registradora) && !cabe(c.articulos, v.articulo)) return;
  if (registradora && !cabe(c.departamentos, v.departamento)) return;
  if (porHoras && !cabe(c.operHora, std::pair(v.operador, v.hora))) return;
  v.cuando = Fecha::de(dia, QTime(v.hora, 30));
  v.importe = -v.importe, v.peso = -v.peso, v.descuento = -v.descuento;
  if (plan_.devuelveCuenta) v.cuenta = -v.cuenta;
  m.maquina->memoria().vender(v);
}

// The contents of a machine are in the books; another machine replaces it.
void Mundo::cambiarMaquinas() {
  for (auto& m : maquinas_)
    if (!m.fuera && gente_.ocurre(0.5) && m.maquina->memoria().libro().size() == m.alEmpezar) {
      m.maquina->memoria().ponerACero(reloj_.ahora(), 0, simulador::kTodos);
      if (alTrazar_)
        alTrazar_(QStringLiteral("  se cambia una máquina del grupo %1").arg(m.grupo->codigo));
    }
}

// The machines of two groups of a kind change their addresses with them.
void Mundo::canjearAccesos() {
  const auto solo = [this](const PlanGrupo* g) {
    return g->remoto == 3 && std::ranges::count(vivos_, g->linea(), &PlanGrupo::linea) == 1;
  };
  for (PlanGrupo* a : vivos_)
    for (PlanGrupo* b : vivos_) {
      if (a == b || a->tipo != b->tipo || !solo(a) || !solo(b)) continue;
      traza(QStringLiteral("  los grupos %1 y %2 cambian sus direcciones")
                .arg(a->codigo)
                .arg(b->codigo));
      std::swap(hilos_.cables[a->linea()], hilos_.cables[b->linea()]);
      std::swap(a->acceso, b->acceso);
      for (const PlanGrupo* g : {a, b})
        oraculo_->base().filas("UPDATE GRUPOS SET TELEF='" + g->acceso.toUtf8() +
                               "' WHERE CODGPO=" + QByteArray::number(g->codigo));
      return;
    }
}

void Mundo::hacerDia(QDate fecha) {
  const QByteArray d = QByteArray::number(Fecha::de(fecha).dias(), 'f', 1);
  oraculo_->base().filas(
      "INSERT INTO COLUMNA (LINK, TIPO, FECHA1, FECHAF, DESCR, stkABLE, stkADO, ACUM2, ACUM3, "
      "ACUM4) "
      "SELECT (SELECT COALESCE(MAX(LINK), 0)+1 FROM COLUMNA), 1, " +
      d + ", " + d +
      "+0.999988425925926, 'A mano', 0, 0, 0, 0, 0 WHERE NOT EXISTS (SELECT 1 FROM COLUMNA WHERE "
      "TIPO=1 AND FECHA1=" +
      d + ")");
}

void Mundo::responder() {
  std::map<int, std::vector<int>> dudas;
  oraculo_->base().filas(
      "SELECT GRUPO, ADDR FROM Dudas WHERE RESPUESTA IS NULL", [&](const Lector::Fila& f) {
        dudas[static_cast<int>(f.entero(0))].push_back(static_cast<int>(f.entero(1)));
      });
  for (const auto& [grupo, maquinas] : dudas) {
    const auto borradas = oraculo_->borradas(grupo, maquinas);
    for (const int addr : maquinas) responder(grupo, addr, borradas.contains(addr));
  }
}

void Mundo::responder(int grupo, int addr, bool si) {
  if (alTrazar_)
    alTrazar_(QStringLiteral("  alguien dice del grupo %1:%2: %3")
                  .arg(grupo)
                  .arg(addr)
                  .arg(si ? u"sí" : u"no"));
  const auto r = Programa::responder(carpeta_.path(), reloj_, hilos_, grupo, addr, si,
                                     [this](const QString& l) { traza(l); });
  disco().soltar();
  if (!r) fallar(QStringLiteral("la respuesta se rechaza: ") + r.error().texto);
  sinCero_ = true;
}

void Mundo::apuntar(MaquinaViva& m) {
  for (const auto& [lista, clase] :
       {std::pair{Lista::Pedidos, kPedidos}, {Lista::Inventarios, kInventarios}})
    if (plan_.leidas.contains({m.grupo->codigo, clase}))
      apuntar(m, lista, azar_.ocurre(0.3) ? 0 : azar_.entero(1, 9), azar_);
}

void Mundo::apuntar(MaquinaViva& m, Lista lista, int lineas, Azar& azar) {
  for (; lineas > 0; --lineas) {
    m.lineas.push_back({lista, ++peso_});
    m.maquina->memoria().apuntar(lista, {codigos_[0], peso_, azar.entero(0, 30)});
  }
}

// Each day sells an article of its own, not those of other days, so that counters wiped without the
// program's knowledge are never all as high as before. Otherwise this couldn't be detected.
void Mundo::dia(int n) {
  hoy_ = n;
  const QDate fecha = plan_.primerDia.addDays(n);
  const PlanNoche& p = plan_.noches[static_cast<std::size_t>(n)];
  if (p.cambio && todoBien_) cambiarMaquinas();
  if (p.canje) canjearAccesos();
  std::vector<int> pueden(codigos_.begin() + static_cast<std::ptrdiff_t>(plan_.noches.size()),
                          codigos_.end());
  for (auto& m : maquinas_) {
    if (m.fuera) continue;
    if (m.grupo->tipo == Tipo::Registradora && gente_.ocurre(p.sinVentas)) continue;
    vender(m, {codigos_[static_cast<std::size_t>(n)]}, fecha);
    for (int k = p.ventas < 0 ? azar_.entero(2, 25) : p.ventas; k > 0; --k)
      vender(m, pueden, fecha);
    if (gente_.ocurre(p.devueltas)) devolver(m, fecha);
    apuntar(m);
  }
  if (p.diaAMano) hacerDia(fecha);
  const double falta = Fecha::de(fecha, QTime(0, 0)) +
                       plan_.noches[static_cast<std::size_t>(n)].minuto / 1440.0 - reloj_.ahora();
  falta > 0 ? reloj_.avanzar(qRound64(falta * 86400) * 1000) : reloj_.saltarPared(falta);
}

// --- nights -------------------------------------------------------------------------------------

void Mundo::empezarNoche(const PlanNoche& n) {
  inicioNoche_ = reloj_.monotono();
  enNoche_ = 0;
  hilos_.averias = n.linea;
  for (std::size_t i = 0; i < maquinas_.size(); ++i) {
    auto& m = maquinas_[i];
    auto fallos = n.fallos[i % n.fallos.size()];
    const bool vek = m.grupo->tipo == Tipo::Balanzas || m.grupo->tipo == Tipo::Birch;
    const std::vector<int> ceros = vek                            ? std::vector{910, 915}
                                   : m.grupo->tipo == Tipo::Ebony ? std::vector{71}
                                                                  : std::vector{3054, 3056, 3058};
    const std::vector<int> plus = vek                            ? std::vector{830, 835}
                                  : m.grupo->tipo == Tipo::Ebony ? std::vector{67}
                                                                 : std::vector{2057};
    std::vector<simulador::Paso> guion;
    for (const auto& p : fallos.guion)
      for (const int codigo : p.codigo == -2   ? ceros
                              : p.codigo == -3 ? plus
                                               : std::vector{p.codigo}) {
        guion.push_back(p);
        guion.back().codigo = codigo;
      }
    fallos.guion = guion;
    // An answer that doesn't identify its lines or its list can't be distinguished from the right
    // one.
    const bool conListas = plan_.leidas.contains({m.grupo->codigo, kPedidos}) ||
                           plan_.leidas.contains({m.grupo->codigo, kInventarios});
    // Nor can one that skips zero totals, if a scale is asked for the next with sales.
    const bool salta = plan_.leidas.contains({m.grupo->codigo, kOperHora}) || plan_.optimizada;
    if (m.grupo->tipo == Tipo::Ebony || conListas || salta)
      fallos.probabilidad[static_cast<std::size_t>(Averia::OtroNumero)] = 0;
    // Frames of a register don't identify it, and a bare acknowledgement wakes any register with a
    // half-sent list. On a wire shared by two groups the source of its records is then unknown.
    const auto enElHilo = std::ranges::count(plan_.grupos, m.grupo->linea(), &PlanGrupo::linea);
    if (m.grupo->tipo == Tipo::Registradora && enElHilo > 1)
      for (const Averia a : {Averia::RespuestaPerdida, Averia::RespuestaTardia})
        fallos.probabilidad[static_cast<std::size_t>(a)] = 0;
    m.maquina->cambiarPercances(simulador::Percances(fallos, azar_.siguiente()));
    m.alEmpezar = m.maquina->memoria().libro().size();
    m.puestasAlEmpezar = m.maquina->memoria().puestas().size();
    m.incumple = std::ranges::count(guion, Averia::CeroIncumplido, &simulador::Paso::averia) > 0;
    for (std::size_t a = 0; a < fallos.probabilidad.size(); ++a)
      if (fallos.probabilidad[a] > 0 && alTrazar_)
        traza(QStringLiteral("  máquina %1: %2 %3")
                  .arg(i)
                  .arg(simulador::nombreAveria(static_cast<Averia>(a)))
                  .arg(fallos.probabilidad[a]));
    for (const auto& p : fallos.guion)
      if (alTrazar_)
        traza(QStringLiteral("  máquina %1: %2, trama %3 código %4 valor %5")
                  .arg(i)
                  .arg(nombreAveria(p))
                  .arg(p.trama)
                  .arg(p.codigo)
                  .arg(p.valor));
  }
}

void Mundo::noche(int n) {
  const PlanNoche& p = plan_.noches[static_cast<std::size_t>(n)];
  if (alTrazar_)
    alTrazar_(QStringLiteral("=== noche %1%2, %3")
                  .arg(n + 1)
                  .arg(p.calma ? u" en calma" : u"")
                  .arg(reloj_.ahora().general()));
  empezarNoche(p);
  int arranques = 0;
  std::optional<int> resultado;
  for (std::size_t i = 0;; ++i) {
    const Corte* corte = i < p.cortes.size() ? &p.cortes[i] : nullptr;
    resultado = arranque(p, corte);
    ++arranques;
    if (resultado || !oraculo_->diferencias.isEmpty()) break;
    if (!corte->vuelve) break;
    caido(*corte);
  }
  traza(QStringLiteral("--- resultado %1, %2 arranques, %3 eventos")
            .arg(resultado ? QString::number(*resultado) : QStringLiteral("ninguno"))
            .arg(arranques)
            .arg(enNoche_));
  v_.arranques += arranques;
  todoBien_ = resultado == 0;
  acabada_ = resultado.has_value();
  v_.conProblemas += resultado != 0;
  // Leftovers of earlier nights may be reported in the first calm one, and keep a group out of it;
  // after that there are none.
  const bool ultima = n + 1 == static_cast<int>(plan_.noches.size());
  oraculo_->finDeNoche(resultado, p.calma && (ultima || !hayFallos_), arranques);
  const bool todosACero = plan_.aCero.size() == vivos_.size();
  // For a machine not zeroed because of a doubt, this night has to report it.
  if (p.calma && resultado != 0 && todosACero && (ultima || !hayFallos_) && !sinCero_)
    fallar(QStringLiteral("noche en calma con resultado %1").arg(resultado.value_or(-1)));
  sinCero_ = false;
  hayFallos_ = hayFallos_ || !p.calma;
}

std::optional<int> Mundo::arranque(const PlanNoche& n, const Corte* corte) {
  auto& d = disco();
  d.soltar();
  if (n.fallaConfirmacion > 0 && enNoche_ == 0) d.fallarEn = d.confirmaciones + n.fallaConfirmacion;
  if (corte && corte->confirmacion > 0) d.cortarEn = d.confirmaciones + corte->confirmacion;
  auto p = Programa::arrancar(carpeta_.path(), plan_.proceso, reloj_, hilos_, azar_.siguiente(),
                              [this](const QString& l) { traza(l); });
  std::optional<int> resultado;
  if (!p) {
    traza(QStringLiteral("no arranca: ") + p.error().texto);
    resultado = d.cortado ? std::nullopt : std::optional(4);
  } else {
    programa_ = std::move(*p);
    for (qint64 evento = 0;; ++evento) {
      if (d.cortado || (corte && evento == corte->evento)) break;
      if ((resultado = programa_->resultado())) break;
      if (!paso(n)) break;
    }
    if (resultado && !programa_->guardarAjustes() && resultado == 0) resultado = 1;
  }
  d.cortado = true;  // while its objects are destroyed nothing reaches the disk or a machine
  programa_.reset();
  d.soltar();
  return resultado;
}

// One event of the clock. False if the night can't go on.
bool Mundo::paso(const PlanNoche& n) {
  if (enNoche_ == n.saltoEn) reloj_.saltarPared(n.salto);
  if (enNoche_ == n.llenoDesde) disco().llenar();
  if (enNoche_ == n.llenoDesde + n.llenoEventos) disco().vaciar();
  ++enNoche_;
  ++v_.eventos;
  if (!reloj_.siguiente()) {
    fallar(QStringLiteral("nadie espera nada y el proceso no ha acabado"));
    return false;
  }
  vigilar();
  if (enNoche_ < kMaxEventos && reloj_.monotono() - inicioNoche_ < kMaxNoche) return true;
  fallar(QStringLiteral("la noche no acaba: %1 eventos, %2 h")
             .arg(enNoche_)
             .arg((reloj_.monotono() - inicioNoche_) / 3600000.0));
  return false;
}

void Mundo::vigilar() {
  for (std::size_t i = 0; i < maquinas_.size(); ++i) {
    auto& m = maquinas_[i];
    const auto& memoria = m.maquina->memoria();
    if (memoria.puestas().size() != m.puestas) {
      m.puestas = memoria.puestas().size();
      if (m.fuera) fallar(QStringLiteral("se pone a cero una máquina que no es de la tienda"));
      if (alTrazar_)
        alTrazar_(QStringLiteral("  máquina %1 puesta a cero (%2), %3")
                      .arg(i)
                      .arg(memoria.puestas().back().conjuntos)
                      .arg(reloj_.ahora().general()));
      oraculo_->puestaACero(i);
    }
    std::set<Lista> olvidos;
    for (auto& l : m.lineas)
      if (!l.olvidada && memoria.lista(l.lista).empty()) {
        l.olvidada = true;
        olvidos.insert(l.lista);
      }
    if (!olvidos.empty()) oraculo_->listaOlvidada(i);
    if (!plan_.notas) continue;
    for (const Lista lista : olvidos)
      if (notas_.ocurre(0.4)) apuntar(m, lista, notas_.entero(1, 9), notas_);
  }
}

void Mundo::caido(const Corte& corte) {
  if (alTrazar_) alTrazar_(QStringLiteral("  !!! corte; vuelve a los %1 s").arg(corte.segundos));
  reloj_.avanzar(corte.segundos * 1000LL);
  // No returns: amounts that cancel out don't show if a group is read half before and half after a
  // cut.
  for (int n = 0; n < corte.ventas; ++n) {
    auto& m = maquinas_[static_cast<std::size_t>(
        azar_.entero(0, static_cast<int>(maquinas_.size()) - 1))];
    if (!m.fuera) vender(m, {codigos_[static_cast<std::size_t>(hoy_)]}, reloj_.ahora().qdate(), 0);
  }
}

}  // namespace tarvo::noches
