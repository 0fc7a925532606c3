#include "comm/envios/Remesa.h"

#include <algorithm>
#include <utility>

#include "comm/envios/Motivos.h"

namespace tarvo::envios {

namespace {

constexpr int kEsperaDeNotas = 1000;  // ms
constexpr size_t kNotasJuntas = 5000;
// This many consecutive refusals have a common cause, whatever their code.
constexpr int kNegadasSeguidas = 20;

bool esDeLaRed(int error) {
  constexpr int kSinRed = 102, kRedInterna = 103;
  return error == kSinRed || error == kRedInterna;
}

}  // namespace

Remesa::Remesa(dao::Database& db, Reloj& reloj, const Textos& textos, const Destino& destino,
               Que que)
    : db_(db),
      reloj_(reloj),
      textos_(textos),
      destino_(destino),
      que_(que),
      lector_(db, destino),
      tenencias_(db, reloj, destino),
      // If writing fails now, it is retried, and a failure reported, with the next article.
      turno_(reloj.temporizador([this] { static_cast<void>(asentar()); })) {}

Remesa::~Remesa() = default;

Resultado<> Remesa::abrir() {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(tenencias_.empezar());
  return tr.confirmar();
}

Resultado<> Remesa::empezar(bool todo, Rango rango, bool porNumero) {
  TARVO_INTENTAR(abrir());
  TARVO_TOMAR(auto codigos, todo ? todosLosArticulos(db_, destino_, rango)
                                 : SaltarSinCambios(db_, destino_, rango, reloj_.ahora()));
  lista_ = std::move(codigos);
  if (todo && que_ == Que::Articulos) otraVez_ = rango;
  if (porNumero) return {};
  return rechazadosAlFinal(db_, destino_, lista_);
}

// --- the list ---

Resultado<const Remesa::Saliente*> Remesa::actual(bool conRetenidos) {
  for (;;) {
    while (pos_ == lote_.size() && leidos_ < lista_.size()) TARVO_INTENTAR(cargar());
    if (pos_ == lote_.size()) return nullptr;
    TARVO_TOMAR(const auto sigue, refrescar());
    if (sigue && (conRetenidos || !lote_[pos_].saliente.retenido())) break;
    quitarPrimero();
  }
  codigo_ = lote_[pos_].saliente.codigo;
  return &lote_[pos_].saliente;
}

maquinas::Cabe<QByteArray> Remesa::registroDe(const Preparado& p) const {
  return que_ == Que::Precios ? soloPreciosDe(p) : p.registro;
}

// REQUIRES a transaction.
Resultado<Remesa::Enviable> Remesa::preparar(Preparado p) {
  Enviable e;
  e.saliente.codigo = p.codigo;
  const auto registro = registroDe(p);
  if (registro) {
    if (que_ == Que::Articulos) e.huella = huellaDe(destino_.tipo, *registro);
    if (que_ == Que::Articulos && !p.letrasQueFaltan.isEmpty()) {
      TARVO_TOMAR(const auto probado, tenencias_.textoProbado(p.codigo, e.huella));
      e.textoNuevo = !probado;
    }
    TARVO_TOMAR(const auto eraSuyo, que_ == Que::Precios
                                        ? tenencias_.anunciarPrecios(p.codigo, *registro)
                                        : tenencias_.anunciar(p.codigo, e.huella));
    e.eraSuyo = eraSuyo;
    e.saliente.registro = *registro;
    resumen_.retenidos.erase(p.codigo);
  } else {
    const QString motivo = motivoDe(registro.error(), textos_);
    TARVO_INTENTAR(tenencias_.AnotarRetenido(p.codigo, motivo, 0));
    if (registro.error().motivo == maquinas::NoCabe::DeOtro)
      TARVO_INTENTAR(tenencias_.anunciarOtro(p.codigo));
    resumen_.retenidos[p.codigo] = motivo;
  }
  e.preparado = std::move(p);
  return e;
}

// The next lot, in the order of the list. Confirmations go to disk with its announcement, if that
// has something to write.
Resultado<> Remesa::cargar() {
  const auto trozo =
      std::span(lista_).subspan(leidos_, std::min(Lector::kLote, lista_.size() - leidos_));
  // Confirmations are judged by the changes since their own lot was read.
  if (db_.cambios() != cambios_) TARVO_INTENTAR(asentar());
  TARVO_TOMAR(auto leidos, lector_.leer(trozo, reloj_.ahora()));
  std::vector<Enviable> nuevos;
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  const qint64 antes = db_.cambios();
  for (const qint64 codigo : trozo) {
    const auto it = std::ranges::lower_bound(leidos, codigo, {}, &Preparado::codigo);
    if (it == leidos.end() || it->codigo != codigo) continue;  // it is gone
    TARVO_TOMAR(auto e, preparar(*it));
    nuevos.push_back(std::move(e));
  }
  const bool conNotas = db_.cambios() != antes || notas_.size() >= kNotasJuntas;
  if (conNotas) TARVO_INTENTAR(escribir(notas_, true));
  TARVO_INTENTAR(tr.confirmar());
  if (conNotas) olvidarNotas();
  leidos_ += trozo.size();
  lote_ = std::move(nuevos);
  pos_ = 0;
  cambios_ = db_.cambios();
  return {};
}

// The article may have been changed since the lot was read. False if it is gone.
Resultado<bool> Remesa::refrescar() {
  if (db_.cambios() == cambios_) return true;
  Enviable& e = lote_[pos_];
  const qint64 codigo = e.saliente.codigo;
  TARVO_TOMAR(auto leido, lector_.leer({&codigo, 1}, reloj_.ahora()));
  if (leido.empty()) return false;
  const auto registro = registroDe(leido.front());
  if (registro && *registro == e.saliente.registro) {
    e.preparado = std::move(leido.front());
    return true;
  }
  const bool eraSuyo = e.eraSuyo;
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(auto otro, preparar(std::move(leido.front())));
  TARVO_INTENTAR(tr.confirmar());
  e = std::move(otro);
  e.eraSuyo = e.eraSuyo || eraSuyo;
  return true;
}

void Remesa::quitarPrimero() {
  ++pos_;
}

void Remesa::enviado() {
  Enviable& e = lote_[pos_];
  ++resumen_.enviados;
  ++hechos_;
  negadasSeguidas_ = 0;
  resumen_.rechazados.erase(e.saliente.codigo);
  if (e.textoNuevo) resumen_.conOtrasLetras[e.saliente.codigo] = e.preparado.letrasQueFaltan;
  anotar({Nota::Enviado,
          e.saliente.codigo,
          0,
          std::move(e.preparado),
          e.eraSuyo,
          0,
          {},
          {},
          e.huella});
  quitarPrimero();
}

void Remesa::pasado() {
  quitarPrimero();
}

void Remesa::sinTomar(int error, const QString& motivo) {
  const qint64 codigo = lote_[pos_].saliente.codigo;
  resumen_.rechazados[codigo] = motivo;
  anotar({Nota::Rechazado, codigo, 0, {}, false, error, motivo});
  quitarPrimero();
}

bool Remesa::rechazado(int error, const QString& motivo) {
  const qint64 codigo = lote_[pos_].saliente.codigo;
  sinTomar(error, motivo);
  (final_ ? lista_ : negados_).push_back(codigo);
  ++negadasSeguidas_;
  if (final_ || esDeLaRed(error)) return false;
  faltaSitio_ = negadasSeguidas_ >= kNegadasSeguidas && hayQueHacerSitio();
  return faltaSitio_ || negadasSeguidas_ < kNegadasSeguidas;
}

bool Remesa::hayQueHacerSitio() {
  if (sitioHecho_ || !destino_.conCross()) return false;
  const auto codigos = borrables();
  return codigos && !codigos->empty();
}

bool Remesa::empezarFinal() {
  if (final_ || negados_.empty()) return false;
  final_ = true;
  lista_ = std::move(negados_);
  leidos_ = 0;
  lote_.clear();
  pos_ = 0;
  return true;
}

// --- deletions ---

Resultado<std::vector<qint64>> Remesa::borrables() const {
  auto codigos = articulosPorBorrar(db_, destino_);
  if (!codigos || !otraVez_) return codigos;
  TARVO_TOMAR(const auto antes, borradosAntes(db_, destino_, *otraVez_));
  std::vector<qint64> todos;
  std::ranges::set_union(*codigos, antes, std::back_inserter(todos));
  return todos;
}

Resultado<> Remesa::empezarBorrados() {
  TARVO_INTENTAR(asentar());
  if (std::exchange(faltaSitio_, false)) {
    sitioHecho_ = true;
    negadasSeguidas_ = 0;
  }
  TARVO_TOMAR(auto codigos, borrables());
  otraVez_.reset();
  borrados_ = std::move(codigos);
  posBorrados_ = 0;
  return {};
}

std::optional<qint64> Remesa::porBorrar() const {
  if (posBorrados_ == borrados_.size()) return {};
  return borrados_[posBorrados_];
}

void Remesa::borrado() {
  borrado(borrados_[posBorrados_++]);
}

void Remesa::borradoNegado() {
  borrados_.push_back(borrados_[posBorrados_++]);
}

void Remesa::borrado(qint64 codigo) {
  ++resumen_.borrados;
  ++hechos_;
  codigo_ = codigo;
  borradosNegadosSeguidos_ = 0;
  resumen_.rechazados.erase(codigo);
  std::erase(sinBorrar_, codigo);
  anotar({Nota::Borrado, codigo});
}

bool Remesa::borradoNegado(qint64 codigo, int error, const QString& motivo) {
  sigueTeniendo(codigo, motivo);
  sinBorrar_.push_back(codigo);
  return !esDeLaRed(error) && ++borradosNegadosSeguidos_ < kNegadasSeguidas;
}

void Remesa::sigueTeniendo(qint64 codigo, const QString& motivo) {
  resumen_.rechazados[codigo] = motivo;
  anotar({Nota::Sobra, codigo});
}

bool Remesa::empezarNegados() {
  if (sinBorrar_.empty()) return false;
  borrados_ = std::exchange(sinBorrar_, {});
  posBorrados_ = 0;
  return true;
}

void Remesa::leido(qint64 codigo, const QByteArray& registro) {
  ++hechos_;
  codigo_ = codigo;
  anotar({Nota::Leido, codigo, 0, {}, false, 0, {}, registro});
}

void Remesa::hueco(qint64 desde, qint64 hasta) {
  if (desde <= hasta) anotar({Nota::Hueco, desde, hasta});
}

Resultado<Remesa::Restan> Remesa::restan() const {
  Restan r;
  const auto sinTurno = [&](qint64 codigo) { return !resumen_.rechazados.contains(codigo); };
  for (const Enviable& e : std::span(lote_).subspan(pos_))
    if (!e.saliente.retenido() && sinTurno(e.saliente.codigo)) ++r.articulos;
  r.articulos += std::ranges::count_if(std::span(lista_).subspan(leidos_), sinTurno);
  if (!destino_.conCross()) return r;
  r.borrados = std::ranges::count_if(std::span(borrados_).subspan(posBorrados_), sinTurno);
  if (r.borrados > 0) return r;
  TARVO_TOMAR(const auto codigos, borrables());
  r.borrados = std::ranges::count_if(codigos, sinTurno);
  return r;
}

// --- to disk ---

void Remesa::anotar(Nota nota) {
  notas_.push_back(std::move(nota));
  if (!turno_->activo()) turno_->unaVez(kEsperaDeNotas);
}

Resultado<> Remesa::asentar() {
  if (notas_.empty()) return {};
  const bool alDia = db_.cambios() == cambios_;
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(escribir(notas_, alDia));
  TARVO_INTENTAR(tr.confirmar());
  olvidarNotas();
  if (alDia) cambios_ = db_.cambios();
  return {};
}

void Remesa::olvidarNotas() {
  notas_.clear();
  turno_->parar();
}

// `alDia`: nothing but this sending has changed the store since the articles were read.
Resultado<> Remesa::escribir(std::span<const Nota> notas, bool alDia) {
  TARVO_TOMAR(const auto ahora, comoEstan(notas, alDia));
  for (const Nota& n : notas) {
    const auto it = ahora.find(n.codigo);
    const bool igualQueFue = alDia && n.que == Nota::Enviado;
    TARVO_INTENTAR(escribirNota(n, igualQueFue         ? &n.preparado
                                   : it == ahora.end() ? nullptr
                                                       : &it->second));
  }
  return {};
}

// The confirmed articles as they are now: an answer may belong to their former state.
Resultado<std::map<qint64, Preparado>> Remesa::comoEstan(std::span<const Nota> notas, bool alDia) {
  std::map<qint64, Preparado> salida;
  std::vector<qint64> codigos;
  const auto leer = [&]() -> Resultado<> {
    TARVO_TOMAR(auto leidos, lector_.leer(codigos, reloj_.ahora()));
    for (Preparado& p : leidos) salida.insert_or_assign(p.codigo, std::move(p));
    codigos.clear();
    return {};
  };
  for (const Nota& n : notas) {
    if (n.que != Nota::Leido && (n.que != Nota::Enviado || alDia)) continue;
    codigos.push_back(n.codigo);
    if (codigos.size() == Lector::kLote) TARVO_INTENTAR(leer());
  }
  TARVO_INTENTAR(leer());
  return salida;
}

Resultado<> Remesa::escribirNota(const Nota& n, const Preparado* p) {
  switch (n.que) {
    case Nota::Enviado:
      if (que_ == Que::Precios) return tenencias_.AnotarPrecios(n.preparado, p, n.eraSuyo);
      return tenencias_.AnotarEnviado(n.codigo, *n.preparado.registro, n.huella, p);
    case Nota::Hueco:
      return n.codigo == n.hasta ? tenencias_.AnotarBorrado(n.codigo)
                                 : tenencias_.AnotarHueco(n.codigo, n.hasta);
    case Nota::Borrado:
      return tenencias_.AnotarOrdenBorrado(n.codigo);
    case Nota::Leido:
      return escribirLeido(n, p);
    case Nota::Sobra:
      return tenencias_.AnotarSobrante(n.codigo);
    case Nota::Rechazado:
      return tenencias_.AnotarRetenido(n.codigo, n.motivo, n.error);
  }
  return {};
}

// The group holds the article as it would be sent now, another form of it, or one that is gone
// here.
Resultado<> Remesa::escribirLeido(const Nota& n, const Preparado* ahora) {
  const bool igual = ahora && ahora->registro && maquinas::mismaFicha(n.registro, *ahora->registro);
  ++(igual ? resumen_.iguales : ahora ? resumen_.distintos : resumen_.sobrantes);
  if (igual)
    return tenencias_.AnotarEnviado(n.codigo, *ahora->registro,
                                    huellaDe(destino_.tipo, *ahora->registro), ahora);
  return tenencias_.AnotarDistinto(n.codigo, n.registro, ahora != nullptr);
}

}  // namespace tarvo::envios
