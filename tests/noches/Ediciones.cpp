// What people do to the groups between two nights, through the engine that the windows use: the
// plan follows, and the machines are where the plan says.
#include <QRegularExpression>
#include <algorithm>

#include "comm/configuracion/Aceptado.h"
#include "devices/Modelos.h"
#include "noches/Mundo.h"

namespace tarvo::noches {

using simulador::Tipo;

namespace {

constexpr qint64 kMaxEnvio = 3 * 3600 * 1000LL;

devices::Miembro miembro(Tipo tipo, int numero, int direccion) {
  if (tipo == Tipo::Registradora) {
    devices::Registradora r;
    r.Numero = numero, r.Direccion = direccion;
    return r;
  }
  devices::Balanza b;
  b.tipo(tipo == Tipo::Ebony   ? devices::kEbony
         : tipo == Tipo::Birch ? devices::kBirch
                               : devices::kRowan);
  b.Numero = numero, b.Direccion = direccion;
  return b;
}

QStringList lineas(const QByteArray& todo) {
  QStringList l = QString::fromUtf8(todo).split(u'\n');
  l.sort();
  return l;
}

bool esRestriccion(const Resultado<>& r) {
  return !r && r.error().clase == Fallo::Restriccion;
}

}  // namespace

// One edition: the program that runs for it, the group, and what is drawn.
class Mundo::Mano {
 public:
  Mano(Mundo& mundo, quint64 semilla) : w_(mundo), azar_(semilla) {
    cual_ = static_cast<std::size_t>(entre(0, static_cast<int>(w_.vivos_.size()) - 1));
    p_ = &grupo();
  }

  void hacer(Edicion::Que que) {
    if (!abrir()) return;
    static constexpr const char16_t* kNombres[] = {u"guarda igual",      u"quita una máquina",
                                                   u"añade una máquina", u"cambia una dirección",
                                                   u"otro código",       u"otra clase",
                                                   u"configura",         u"borra y repone",
                                                   u"borra y rehace",    u"copia"};
    w_.traza(QStringLiteral("  alguien, grupo %1: %2")
                 .arg(p_->codigo)
                 .arg(QString::fromUtf16(kNombres[que])));
    (this->*kQue[que])();
    if (programa_) comprobarLoAceptado();
    cerrar();
  }

 private:
  using Accion = void (Mano::*)();
  int entre(int a, int b) { return azar_.entero(a, b); }
  PlanGrupo& grupo() { return *w_.vivos_[cual_]; }
  groups::Grupos& grupos() { return programa_->grupos(); }
  QString nombre() const { return QStringLiteral("G%1").arg(p_->codigo); }
  QByteArray todo() { return w_.oraculo_->base().todo(); }

  bool abrir() {
    disco().soltar();
    auto p = Programa::abrir(w_.carpeta_.path(), w_.reloj_, w_.hilos_, azar_.siguiente());
    if (!p) w_.fallar(QStringLiteral("no se abre: ") + p.error().texto);
    if (p) programa_ = std::move(*p);
    return p.has_value();
  }
  void cerrar() {
    disco().cortado = true;
    programa_.reset();
    disco().soltar();
  }
  void debe(const Resultado<>& r, const char16_t* que) {
    if (!r) w_.fallar(QStringLiteral("%1: %2").arg(que, r.error().texto));
  }
  std::optional<devices::Grupo> cargar() {
    auto g = grupos().cargar(p_->codigo);
    if (!g) w_.fallar(g.error().texto);
    return g ? std::optional(std::move(*g)) : std::nullopt;
  }

  // Its machines that are asked.
  std::vector<std::size_t> suyas() const {
    std::vector<std::size_t> v;
    for (std::size_t i = 0; i < w_.maquinas_.size(); ++i)
      if (w_.maquinas_[i].grupo == p_ && !w_.maquinas_[i].fuera) v.push_back(i);
    return v;
  }
  // What leaves with a refused edition has not left.
  void seQuedan(const std::vector<std::size_t>& cuales) {
    for (const std::size_t i : cuales) {
      w_.maquinas_[i].fuera = false;
      w_.maquinas_[i].contado.clear();
    }
  }
  int direccionLibre() const {
    std::set<int> usadas;
    for (const auto& m : w_.maquinas_)
      if (m.grupo->linea() == p_->linea()) usadas.insert(m.maquina->opciones().direccion);
    for (int d = 1; d <= 16; ++d)
      if (!usadas.contains(d)) return d;
    return 0;
  }

  // --- the group's machines ---

  void guardarIgual() {
    auto g = cargar();
    if (!g) return;
    debe(grupos().guardar(*g, p_->codigo, nombre()), u"guardar");
    const QStringList antes = lineas(todo());
    auto otra = cargar();
    debe(grupos().guardar(*otra, p_->codigo, nombre()), u"guardar");
    if (lineas(todo()) != antes) w_.fallar(QStringLiteral("guardar un grupo igual lo cambia"));
  }

  void quitarMaquina() {
    auto g = cargar();
    if (!g || g->LasBalanzas.size() < 2) return;
    auto it =
        std::next(g->LasBalanzas.begin(), entre(0, static_cast<int>(g->LasBalanzas.size()) - 1));
    const int numero = it->first;
    const auto* caja = std::get_if<devices::Registradora>(&it->second);
    const int direccion = caja ? caja->Direccion.value_or(0) : 0;
    g->LasBalanzas.erase(it);
    std::vector<std::size_t> seVa;
    for (const std::size_t i : suyas())
      if (caja && w_.maquinas_[i].maquina->opciones().direccion == direccion) seVa.push_back(i);
    if (caja) w_.oraculo_->seVan(seVa, true);
    const auto r = grupos().guardar(*g, p_->codigo, nombre());
    if (esRestriccion(r)) return seQuedan(seVa);
    debe(r, u"quitar");
    if (caja)
      std::erase(p_->direcciones, direccion);
    else
      for (const std::size_t i : suyas())
        w_.maquinas_[i].balanzas[numero] = w_.maquinas_[i].maquina->oidas().size();
  }

  void anadirMaquina() {
    auto g = cargar();
    if (!g || p_->tipo == Tipo::Ebony || g->LasBalanzas.size() > 2) return;
    int numero = 1;
    while (g->LasBalanzas.contains(numero)) ++numero;
    const int direccion = direccionLibre();
    g->LasBalanzas.insert_or_assign(numero, miembro(p_->tipo, numero, direccion));
    debe(grupos().guardar(*g, p_->codigo, nombre()), u"añadir");
    if (p_->tipo != Tipo::Registradora) return;
    p_->direcciones.push_back(direccion);
    w_.montarMaquina(*p_, direccion);
  }

  void cambiarDireccion() {
    auto g = cargar();
    if (!g || (p_->tipo != Tipo::Ebony && p_->tipo != Tipo::Registradora)) return;
    const auto todas = suyas();
    auto& m =
        w_.maquinas_[todas[static_cast<std::size_t>(entre(0, static_cast<int>(todas.size()) - 1))]];
    const int antes = m.maquina->opciones().direccion, ahora = direccionLibre();
    if (p_->tipo == Tipo::Ebony) g->NumGpo = ahora;
    for (auto& [numero, miembro] : g->LasBalanzas)
      if (auto* caja = std::get_if<devices::Registradora>(&miembro);
          caja && caja->Direccion == antes)
        caja->Direccion = ahora;
    debe(grupos().guardar(*g, p_->codigo, nombre()), u"cambiar la dirección");
    std::ranges::replace(p_->direcciones, antes, ahora);
    if (p_->tipo == Tipo::Ebony) p_->addr = ahora;
    m.maquina->ponerDireccion(ahora);
  }

  // Other machines, on a line of their own, take the place of the present ones.
  PlanGrupo& relevo(Tipo tipo) {
    PlanGrupo& nuevo = w_.plan_.grupos.emplace_back(*p_);
    nuevo.tipo = tipo;
    nuevo.remoto = 3;
    nuevo.acceso = QStringLiteral("10.0.1.%1:1024").arg(w_.plan_.grupos.size());
    nuevo.addr = 1;
    nuevo.direcciones = {1};
    return nuevo;
  }
  void describir(devices::Grupo& g, const PlanGrupo& p) {
    g.tipo(static_cast<TipoGrupo>(p.tipo));
    g.Acceso = TipoAcceso::TcpIp, g.Telefono = p.acceso, g.NumGpo = p.addr;
    g.LasBalanzas.clear();
    g.LasBalanzas.emplace(1, miembro(p.tipo, 1, p.direcciones[0]));
    for (std::size_t i = 0; i < p.operadores.size(); ++i)
      debe(g.CodOperador(static_cast<int>(i) + 1, p.operadores[i]), u"operador");
  }
  void montar(PlanGrupo& nuevo) {
    w_.vivos_[cual_] = p_ = &nuevo;
    for (const int d : nuevo.direcciones) w_.montarMaquina(nuevo, d);
  }

  void cambiarClase() {
    const auto tipo = static_cast<Tipo>(entre(1, 4));
    bool puede = tipo != p_->tipo;
    for (const auto& [suyo, clase] : w_.plan_.leidas)
      puede = puede && (suyo != p_->codigo || vale(clase, tipo));
    const bool conHora = !w_.plan_.proceso.filter(QStringLiteral("TX_HORA")).isEmpty();
    if (!puede || (conHora && !vale(7, tipo))) return;
    auto g = cargar();
    if (!g) return;
    const auto seVan = suyas();
    w_.oraculo_->seVan(seVan, true);
    PlanGrupo& nuevo = relevo(tipo);
    describir(*g, nuevo);
    const auto r = grupos().guardar(*g, p_->codigo, nombre());
    if (esRestriccion(r)) return seQuedan(seVan);
    debe(r, u"cambiar de clase");
    montar(nuevo);
  }

  // --- the group ---

  void enProceso(int antes, const QString& por) {
    w_.plan_.proceso.replaceInStrings(
        QRegularExpression(QStringLiteral("^(T:\\w+,)%1\\b").arg(antes)),
        QStringLiteral("\\1") + por);
  }
  void cambiarCodigo() {
    auto g = cargar();
    if (!g) return;
    const int antes = p_->codigo;
    int ahora = antes;
    for (const auto& otro : w_.plan_.grupos) ahora = std::max(ahora, otro.codigo);
    ahora += entre(1, 5);
    debe(grupos().guardar(*g, ahora, nombre()), u"cambiar el código");
    for (const auto& m : w_.maquinas_)
      if (m.grupo->codigo == antes) m.grupo->codigo = ahora;
    p_->codigo = ahora;
    std::set<std::pair<int, int>> leidas;
    for (const auto& [suyo, clase] : w_.plan_.leidas)
      leidas.insert({suyo == antes ? ahora : suyo, clase});
    w_.plan_.leidas = std::move(leidas);
    if (w_.plan_.aCero.erase(antes) > 0) w_.plan_.aCero.insert(ahora);
    enProceso(antes, QString::number(ahora));
    w_.oraculo_->otroCodigo(antes, ahora);
  }

  void borrarYReponer() {
    const QStringList antes = lineas(todo());
    groups::BorradoGrupo ida(grupos(), p_->codigo);
    debe(ida.borrar(), u"borrar");
    debe(ida.reponer(), u"reponer");
    if (lineas(todo()) != antes) w_.fallar(QStringLiteral("un grupo repuesto no es como era"));
  }

  void recrear() {
    const auto antes = cargar();
    const auto va = grupos().loQueSeVa(p_->codigo);
    if (!va) return w_.fallar(va.error().texto);
    w_.oraculo_->seVan(suyas(), !va->ventas.has_value());
    debe(grupos().borrar(p_->codigo), u"borrar");
    if (grupos().conRastro(p_->codigo).value_or(true))
      w_.fallar(QStringLiteral("del grupo borrado %1 queda rastro").arg(p_->codigo));
    PlanGrupo& nuevo = relevo(p_->tipo);
    devices::Grupo g;
    g.Almacen = antes->Almacen;
    describir(g, nuevo);
    debe(grupos().guardar(g, p_->codigo, nombre()), u"rehacer");
    montar(nuevo);
  }

  void copiar() {
    if (w_.vivos_.size() > 4) return;
    const auto codigo = grupos().copiar(p_->codigo, 1);
    if (!codigo) return w_.fallar(codigo.error().texto);
    const int original = p_->codigo;
    PlanGrupo& nuevo = relevo(p_->tipo);
    nuevo.codigo = *codigo;
    const auto leidas = w_.plan_.leidas;
    for (const auto& [suyo, clase] : leidas)
      if (suyo == original) w_.plan_.leidas.insert({*codigo, clase});
    if (w_.plan_.aCero.contains(original)) w_.plan_.aCero.insert(*codigo);
    const QRegularExpression suya(QStringLiteral("^(T:\\w+,)%1\\b").arg(original));
    for (qsizetype i = w_.plan_.proceso.size(); i-- > 0;)
      if (QString linea = w_.plan_.proceso[i]; linea.contains(suya))
        w_.plan_.proceso.insert(i, linea.replace(suya, QStringLiteral("\\1%1").arg(*codigo)));
    cual_ = w_.vivos_.size();
    w_.vivos_.push_back(&nuevo);
    montar(nuevo);
    auto g = cargar();
    if (!g) return;
    describir(*g, nuevo);
    debe(grupos().guardar(*g, *codigo, nombre()), u"guardar la copia");
  }

  // --- the configuration ---

  void configurar() {
    auto g = cargar();
    if (!g || p_->tipo == Tipo::Registradora) return;
    const QString nueva = QStringLiteral("Oferta %1").arg(entre(1, 999'999));
    for (auto& [numero, miembro] : g->LasBalanzas)
      if (auto* b = std::get_if<devices::Balanza>(&miembro)) {
        b->Publici.mensaje = nueva;
        b->RazonSo =
            QStringLiteral("C:0:%1\r\n").arg(nueva) + QStringLiteral("C:0:\r\n").repeated(5);
        b->Teclado.Teclado.clear();
      }
    debe(grupos().guardar(*g, p_->codigo, nombre()), u"configurar");
    const bool calma = azar_.ocurre(0.6);
    w_.hilos_.averias = calma ? AveriasLinea{} : w_.hilos_.averias;
    for (const std::size_t i : suyas())
      if (calma) w_.maquinas_[i].maquina->cambiarPercances(simulador::Percances({}, 1));
    auto& motor = programa_->aplicacion().gestcomm();
    for (const TipoTarea clase : configuracion::kClases)
      if (configuracion::valePara(clase, static_cast<TipoGrupo>(p_->tipo)) &&
          motor.NuevaTarea(p_->codigo, true, 0, 9'999'999, clase) != motor::Pedida::EnCola)
        w_.fallar(QStringLiteral("no se encola la configuración"));
    // Before it begins.
    if (azar_.ocurre(0.3)) cambiarCodigo();
    esperar(calma);
    if (!programa_ || !calma) return;
    for (const auto& t : motor.tareas())
      w_.fallar(QStringLiteral("la configuración no llega: %1 %2 %3")
                    .arg(t.Estado)
                    .arg(t.Error)
                    .arg(t.textoError));
  }
  // The end of the queue, or of the program.
  void esperar(bool calma) {
    auto& motor = programa_->aplicacion().gestcomm();
    const qint64 corte = !calma && azar_.ocurre(0.5) ? entre(1, 400) : -1;
    const qint64 inicio = w_.reloj_.monotono();
    for (qint64 evento = 0; motor.CuantosQuedan().enCurso > 0; ++evento) {
      if (evento == corte) {
        cerrar();
        static_cast<void>(abrir());
        return;
      }
      if (!w_.reloj_.siguiente() || w_.reloj_.monotono() - inicio > kMaxEnvio) return;
    }
  }

  // A machine noted as having accepted the present configuration has heard it.
  void comprobarLoAceptado() {
    if (p_->tipo == Tipo::Registradora || suyas().empty()) return;
    const auto& m = w_.maquinas_[suyas().front()];
    auto& fondo = programa_->fondo();
    const configuracion::Destino destino{
        .grupo = p_->codigo, .tipo = static_cast<TipoGrupo>(p_->tipo), .addr = p_->addr};
    const auto estados = configuracion::estadoDe(*fondo.db, fondo.ajustes, destino);
    const auto g = cargar();
    if (!estados || !g) return w_.fallar(QStringLiteral("no se sabe qué se ha aceptado"));
    for (const auto& e : *estados) {
      const auto envios = configuracion::prepararEnvio(*fondo.db, fondo.ajustes, e.clase, destino);
      for (const auto& envio : *envios)
        for (const auto& [numero, miembro] : g->LasBalanzas) {
          const bool suyo = envio.maquina == configuracion::kTodoElGrupo || envio.maquina == numero;
          const bool dicho = std::ranges::find(e.maquinas, numero) == e.maquinas.end();
          if (suyo && dicho && !oyo(m, numero, envio))
            w_.fallar(QStringLiteral("grupo %1: la máquina %2 no tiene la configuración %3")
                          .arg(p_->codigo)
                          .arg(numero)
                          .arg(numeroDe(e.clase)));
        }
    }
  }
  static bool oyo(const MaquinaViva& m, int numero, const configuracion::Envio& envio) {
    const auto nueva = m.balanzas.find(numero);
    const auto desde = nueva == m.balanzas.end() ? 0 : nueva->second;
    const auto& oidas = m.maquina->oidas();
    return std::ranges::all_of(envio.piezas, [&](const maquinas::Pieza& pieza) {
      return std::any_of(oidas.begin() + static_cast<std::ptrdiff_t>(desde), oidas.end(),
                         [&](const simulador::Peticion& p) {
                           return p.codigo == pieza.peticion.codigo &&
                                  p.datos == pieza.peticion.datos;
                         });
    });
  }

  static constexpr Accion kQue[] = {
      &Mano::guardarIgual,  &Mano::quitarMaquina, &Mano::anadirMaquina, &Mano::cambiarDireccion,
      &Mano::cambiarCodigo, &Mano::cambiarClase,  &Mano::configurar,    &Mano::borrarYReponer,
      &Mano::recrear,       &Mano::copiar};
  Mundo& w_;
  Azar azar_;
  std::size_t cual_ = 0;
  PlanGrupo* p_ = nullptr;
  std::unique_ptr<Programa> programa_;
};

void Mundo::editar(Edicion::Cuando cuando, int noche) {
  if (noche >= static_cast<int>(plan_.noches.size())) return;
  for (const Edicion& e : plan_.noches[static_cast<std::size_t>(noche)].ediciones)
    if (e.cuando == cuando && oraculo_->diferencias.isEmpty()) Mano(*this, e.semilla).hacer(e.que);
}

}  // namespace tarvo::noches
