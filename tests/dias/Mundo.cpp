#include "dias/Mundo.h"

#include <QCryptographicHash>
#include <algorithm>
#include <cmath>

namespace tarvo::dias {

using noches::disco, simulador::Averia, simulador::Tipo;
using namespace Qt::StringLiterals;

namespace {

constexpr int kArticulos = 1, kBorrar = 10, kSoloPrecios = 11, kPaseo = 24;
constexpr qint64 kMaxEnvio = 12 * 3600 * 1000LL;

}  // namespace

Veredicto correrSemilla(quint64 semilla, std::function<void(const QString&)> alTrazar) {
  return Mundo(semilla, std::move(alTrazar)).correr();
}

Mundo::Mundo(quint64 semilla, std::function<void(const QString&)> alTrazar)
    : alTrazar_(std::move(alTrazar)),
      t_(semilla, QDate(2026, 1, 1).addDays(static_cast<int>(semilla % 360))),
      usuario_(t_) {
  if (!alTrazar_) return;
  for (const Grupo& g : t_.grupos)
    alTrazar_(u"grupo %1: tipo %2, sección %3, tarifa %4"_s.arg(g.codigo)
                  .arg(static_cast<int>(g.tipo))
                  .arg(g.seccion)
                  .arg(g.tarifa));
  t_.hilos.alPasar = [this](char sentido, const QByteArray& b) {
    QString s;
    for (const char c : b.left(160))
      s += c >= 32 && c < 127 ? QString(QLatin1Char(c))
                              : u"<%1>"_s.arg(static_cast<unsigned char>(c));
    alTrazar_(u"    %1 %2 %3"_s.arg(t_.reloj.monotono()).arg(QLatin1Char(sentido)).arg(s));
  };
}

void Mundo::traza(const QString& linea) {
  huella_ += linea.toUtf8().replace(t_.carpeta().toUtf8(), "") + '\n';
  if (alTrazar_) alTrazar_(linea);
}

Veredicto Mundo::correr() {
  arrancar();
  const int dias = t_.azar.entero(1, 4);
  for (int n = 0; n < dias && v_.diferencias.isEmpty(); ++n) {
    dia(n);
    ++v_.dias;
  }
  programa_.reset();
  disco().soltar();
  v_.huella = QCryptographicHash::hash(huella_ + t_.base->todo(), QCryptographicHash::Md5).toHex();
  return v_;
}

void Mundo::arrancar() {
  programa_.reset();
  disco().soltar();
  auto p = Programa::arrancar(t_.carpeta(), t_.reloj, t_.hilos, t_.azar.siguiente());
  if (!p) return fallar(u"no arranca: "_s + p.error().texto);
  programa_ = std::move(*p);
}

// --- days ---------------------------------------------------------------------------------------

void Mundo::dia(int n) {
  if (alTrazar_) alTrazar_(u"=== día %1, %2"_s.arg(n + 1).arg(t_.reloj.ahora().general()));
  for (int k = t_.azar.entero(2, 14); k > 0 && v_.diferencias.isEmpty(); --k) suceso();
  if (v_.diferencias.isEmpty()) finDelDia();
  if (v_.diferencias.isEmpty())
    t_.reloj.avanzar(static_cast<qint64>((std::floor(t_.reloj.ahora().dias()) + 1 + 8.0 / 24 -
                                          t_.reloj.ahora().dias()) *
                                         86400) *
                     1000);
}

void Mundo::suceso() {
  Azar& z = t_.azar;
  const int que = z.entero(0, 9);
  if (que <= 5) {
    for (int k = z.entero(1, 4); k > 0; --k) traza(u"  usuario: "_s + usuario_.algo(*programa_));
    ++v_.cambios;
  } else if (que <= 8) {
    Envio e;
    e.clase = z.ocurre(0.7)   ? kArticulos
              : z.ocurre(0.4) ? kSoloPrecios
              : z.ocurre(0.5) ? kPaseo
                              : kBorrar;
    e.todo = e.clase == kBorrar || z.ocurre(0.3);
    if (e.clase == kArticulos && z.ocurre(0.2))
      e.desde = z.entero(3, 20), e.hasta = e.desde + z.entero(0, 20);
    if (z.ocurre(0.3)) (z.ocurre(0.5) ? e.corteEvento : e.corteConfirmacion) = z.entero(1, 60);
    std::vector<const Grupo*> grupos;
    for (const Grupo& g : t_.grupos)
      if (z.ocurre(0.8)) grupos.push_back(&g);
    percances(false);
    enviar(grupos, e);
  } else {
    memoriaVieja();
  }
}

// A machine comes back with an old memory.
void Mundo::memoriaVieja() {
  auto& m = t_.maquinas[static_cast<std::size_t>(
      t_.azar.entero(0, static_cast<int>(t_.maquinas.size()) - 1))];
  if (t_.azar.ocurre(0.5)) {
    m.vieja = m.maquina->memoria().catalogo;
    return;
  }
  traza(u"  la memoria del grupo %1 vuelve atrás"_s.arg(m.grupo->codigo));
  for (const auto& [codigo, articulo] : m.vieja) sobran_[m.grupo->codigo].insert(codigo);
  m.maquina->memoria().catalogo = m.vieja;
  viejas_.insert(m.grupo->codigo);
}

// The last sending of the day has good wires. Each group gets what its kind needs after the day's
// events.
void Mundo::finDelDia() {
  percances(true);
  for (const Grupo& g : t_.grupos) {
    const bool vieja = viejas_.contains(g.codigo);
    const bool importado = usuario_.importadas.contains(g.seccion);
    Envio e{.clase = kArticulos, .todo = importado || (vieja && !g.vek()), .calma = true};
    if (vieja && g.tipo == Tipo::Birch) e.todo = true;
    if (vieja && g.tipo == Tipo::Balanzas)
      enviar({&g}, {.clase = kPaseo, .todo = true, .calma = true});
    if (!g.vek()) enviar({&g}, {.clase = kBorrar, .todo = true, .calma = true});
    enviar({&g}, e);
    if (!v_.diferencias.isEmpty()) return;
    if (problemas_.contains(g.codigo))
      return fallar(u"el envío en calma al grupo %1 acaba mal"_s.arg(g.codigo));
    comprobarTodo(g);
    viejas_.erase(g.codigo);
  }
  usuario_.importadas.clear();
}

void Mundo::percances(bool calma) {
  Azar& z = t_.azar;
  t_.hilos.averias = {};
  if (!calma && z.ocurre(0.2)) t_.hilos.averias = {0.1, 0.1, z.ocurre(0.5) ? 0.01 : 0.0, 0.05};
  for (auto& m : t_.maquinas) {
    simulador::Fallos f;
    for (int k = calma || z.ocurre(0.4) ? 0 : z.entero(1, 3); k > 0; --k) {
      const auto a = static_cast<Averia>(z.entero(0, static_cast<int>(Averia::Total) - 1));
      if (a == Averia::BitsCambiados || a == Averia::VentaEnMedio || a == Averia::VentaDetras)
        continue;
      const bool rara = a == Averia::Oscura || a == Averia::ListaSinFin || a == Averia::Basura;
      f.probabilidad[static_cast<std::size_t>(a)] =
          std::pow(10.0, -0.7 - z.entero(0, 20) / 10.0) / (rara ? 10 : 1);
    }
    // A slow answer is at its worst before a refusal, which it may hide.
    const bool lenta = !calma && z.ocurre(0.2);
    if (lenta) {
      f.probabilidad[static_cast<std::size_t>(z.ocurre(0.6) ? Averia::AckLento
                                                            : Averia::RespuestaLenta)] = 0.1;
      f.probabilidad[static_cast<std::size_t>(m.grupo->tipo == Tipo::Ebony ? Averia::Rechazo
                                                                           : Averia::Err)] = 0.3;
    }
    // A machine obeying an order for another number than the one it was given can't be detected.
    f.probabilidad[static_cast<std::size_t>(Averia::OtroNumero)] = 0;
    // Refuses some or all of what it is sent: full, or faulty.
    if (!calma && z.ocurre(0.15))
      f.guion.push_back({Averia::Err, z.ocurre(0.3) ? 0 : z.entero(1, 8), m.grupo->vek() ? 100 : -1,
                         0, z.entero(1, 5)});
    m.maquina->cambiarPercances(simulador::Percances(f, z.siguiente()));
  }
}

// --- sending ------------------------------------------------------------------------------------

void Mundo::InformeProblema(TipoTarea clase, int grupo, int error, int, qint64 codigo) {
  problemas_.insert(grupo);
  traza(u"  clase %1 grupo %2: error %3, %4"_s.arg(numeroDe(clase))
            .arg(grupo)
            .arg(error)
            .arg(codigo));
}

void Mundo::InformeAviso(const totals::Aviso& aviso) {
  avisos_[aviso.grupo] += aviso.texto;
  traza(u"  aviso grupo %1%2: %3"_s.arg(aviso.grupo)
            .arg(aviso.grave ? u" (!)"_s : QString())
            .arg(aviso.texto));
}

void Mundo::enviar(const std::vector<const Grupo*>& grupos, Envio e) {
  ++v_.envios;
  alaVez_ = false;
  avisos_.clear();
  problemas_.clear();
  auto& motor = programa_->aplicacion().gestcomm();
  motor.VigilaProcesos(t_.azar.entero(0, 4), true, this);
  if (alTrazar_)
    alTrazar_(u"--- envío clase %1 %2 [%3..%4]%5"_s.arg(e.clase)
                  .arg(e.todo ? u"completo"_s : u"optimizado"_s)
                  .arg(e.desde)
                  .arg(e.hasta)
                  .arg(e.calma ? u" en calma"_s : QString()));
  for (const Grupo* g : grupos) {
    const auto r =
        motor.NuevaTarea(g->codigo, e.todo, e.desde, e.hasta, *deNumero<TipoTarea>(e.clase));
    const bool vale = e.clase == kArticulos || (e.clase == kBorrar ? !g->vek() : g->vek());
    if ((r == motor::Pedida::EnCola) != vale)
      return fallar(u"grupo %1, clase %2: NuevaTarea da %3"_s.arg(g->codigo).arg(e.clase).arg(
          static_cast<int>(r)));
  }
  const double dia = std::floor(t_.reloj.ahora().dias());
  const bool entero = correrCola(e);
  const bool todoDicho = entero && !alaVez_ && e.clase == kArticulos && e.todo && e.desde == 0 &&
                         e.hasta == 9999999 && std::floor(t_.reloj.ahora().dias()) == dia;
  for (const Grupo* g : grupos)
    if (todoDicho && !problemas_.contains(g->codigo)) comprobarCompleto(*g);
  if (!entero) {
    if (alTrazar_) alTrazar_(u"  !!! corte"_s);
    disco().cortado = true;
    programa_.reset();
    arrancar();
  }
  if (v_.diferencias.isEmpty()) comprobarAfirmado();
}

bool Mundo::correrCola(const Envio& e) {
  auto& d = disco();
  if (e.corteConfirmacion > 0) d.cortarEn = d.confirmaciones + e.corteConfirmacion;
  const qint64 inicio = t_.reloj.monotono();
  auto& motor = programa_->aplicacion().gestcomm();
  for (qint64 evento = 0; !motor.tareas().empty(); ++evento) {
    if (d.cortado || evento == e.corteEvento) return false;
    // The user goes on working while the frames pass.
    if (!e.calma && t_.azar.ocurre(0.002)) {
      traza(u"  usuario, a la vez: "_s + usuario_.algo(*programa_));
      alaVez_ = true;
    }
    if (!t_.reloj.siguiente() || t_.reloj.monotono() - inicio > kMaxEnvio) {
      fallar(u"el envío no acaba"_s);
      return true;
    }
  }
  d.cortarEn = -1;
  return !d.cortado;
}

// --- what must be so ----------------------------------------------------------------------------

const simulador::Articulo* Mundo::enMaquina(const MaquinaViva& m, const Esperado& debe,
                                            qint64 codigo) const {
  const auto& catalogo = m.maquina->memoria().catalogo;
  if (m.grupo->tipo != Tipo::Registradora) {
    const auto it = catalogo.find(static_cast<int>(codigo));
    return it == catalogo.end() ? nullptr : &it->second;
  }
  const auto barras = debe.barras.find(codigo);
  if (barras == debe.barras.end()) return nullptr;
  for (const auto& [otro, a] : catalogo)
    if (a.barras == barras->second.trimmed()) return &a;
  return nullptr;
}

void Mundo::comparar(const Grupo& g, const Esperado& debe, qint64 codigo, const QString& cuando) {
  const QString quien = u"%1, grupo %2 (tipo %3), artículo %4: "_s.arg(cuando)
                            .arg(g.codigo)
                            .arg(static_cast<int>(g.tipo))
                            .arg(codigo);
  for (const auto& m : t_.maquinas) {
    if (m.grupo != &g) continue;
    const auto* a = enMaquina(m, debe, codigo);
    if (!a) {
      fallar(quien + u"la máquina no lo tiene"_s);
      continue;
    }
    const auto tiene = leida(g, a->ficha);
    const QString difiere =
        tiene ? diferencias(debe.caben.at(codigo), *tiene) : u"el registro está roto"_s;
    if (!difiere.isEmpty()) fallar(quien + difiere);
  }
}

// When Cross says that a group holds an article as it is here, it does. What can't be known is left
// out: a restored memory, an import, prices of an offer still to be sent.
void Mundo::comprobarAfirmado() {
  for (const Grupo& g : t_.grupos) {
    if (!g.vek() || viejas_.contains(g.codigo) || usuario_.importadas.contains(g.seccion)) continue;
    const Esperado debe = esperado(*t_.base, g, t_.reloj.ahora().dias());
    t_.base->filas(
        "SELECT plu FROM [Cross] WHERE borra=0 AND Secc=" + QByteArray::number(g.seccion) +
            " AND Grupo=" + QByteArray::number(g.codigo) +
            " AND NOT EXISTS (SELECT 1 FROM OFERTAS WHERE GRUPO=[Cross].Grupo AND "
            "SECCION=[Cross].Secc AND CODIGO=plu)",
        [&](const auto& f) {
          const qint64 codigo = f.entero(0);
          if (debe.caben.contains(codigo))
            comparar(g, debe, codigo, u"dado por enviado"_s);
          else if (debe.fuera.contains(codigo))
            fallar(u"grupo %1: el artículo %2 no cabe y consta como enviado"_s.arg(g.codigo).arg(
                codigo));
        });
  }
}

// A complete sending that succeeded: every article not noted as withheld is in the machines.
void Mundo::comprobarCompleto(const Grupo& g) {
  std::set<qint64> nombrados;
  t_.base->filas("SELECT CODPLU FROM Retenidos WHERE GRUPO=" + QByteArray::number(g.codigo),
                 [&](const auto& f) { nombrados.insert(f.entero(0)); });
  const Esperado debe = esperado(*t_.base, g, t_.reloj.ahora().dias());
  for (const auto& [codigo, ficha] : debe.caben)
    if (!nombrados.contains(codigo)) comparar(g, debe, codigo, u"envío completo"_s);
}

void Mundo::comprobarTodo(const Grupo& g) {
  const Esperado debe = esperado(*t_.base, g, t_.reloj.ahora().dias());
  for (const auto& [codigo, ficha] : debe.caben) comparar(g, debe, codigo, u"al final del día"_s);
  const QString avisos = avisos_[g.codigo].join(u'\n');
  for (const auto& [codigo, campo] : debe.fuera)
    if (!avisos.contains(QString::number(codigo).rightJustified(7, u'0')))
      fallar(
          u"grupo %1: nadie dice que el artículo %2 no cabe (%3)"_s.arg(g.codigo).arg(codigo).arg(
              QLatin1String(campo)));
  for (const auto& m : t_.maquinas) {
    if (m.grupo != &g || g.tipo == Tipo::Registradora) continue;
    for (const auto& [codigo, a] : m.maquina->memoria().catalogo)
      if (!debe.caben.contains(codigo) && !debe.fuera.contains(codigo))
        fallar(u"grupo %1: a la máquina le sobra el artículo %2"_s.arg(g.codigo).arg(codigo));
  }
}

}  // namespace tarvo::dias
