#include "comm/tareas/Listas.h"

#include <algorithm>
#include <utility>

#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"
#include "comm/tareas/Duda.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"
#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

namespace {

using motor::Siguiente;

class Lista : public motor::CursoTarea {
 public:
  Lista(const motor::DatosTarea& t, const motor::Entorno& e, Documento que)
      : t_(t), e_(e), que_(que), disco_(t_, e_, que) {}

  Resultado<Siguiente> siguiente() final {
    if (!empezada_) {
      TARVO_TOMAR(const auto notas,
                  e_.db.uno(u"SELECT count(*) FROM EstadoTarvo WHERE CLAVE=?", nota()));
      anotada_ = notas.entero() > 0;
      if (anotada_) dudar();
      empezada_ = true;
    }
    return paso();
  }
  // The machine may forget the list: the record goes with the end of the task.
  Resultado<std::vector<totals::Aviso>> cerrar() final {
    TARVO_INTENTAR(disco_.olvidada());
    if (anotada_) TARVO_INTENTAR(e_.db.ejecutar(u"DELETE FROM EstadoTarvo WHERE CLAVE=?", nota()));
    std::vector<totals::Aviso> avisos;
    malos_.avisar(t_.Grupo, e_.textos, avisos);
    if (const auto it = std::ranges::find(lineas_, true, &maquinas::Linea::redondeado);
        it != lineas_.end())
      avisos.push_back(
          {t_.Grupo, e_.textos(kTxPesosDePedido, {t_.Grupo, Ceros(it->articulo, 7)}), true});
    return avisos;
  }
  // Answers still owed to it may reach the group's next list.
  std::vector<totals::Aviso> abandonar() final {
    static_cast<void>(
        e_.db.ejecutar(u"INSERT OR REPLACE INTO EstadoTarvo (CLAVE, VALOR) VALUES (?, 1)", nota()));
    return {};
  }
  // The link or an answer failed: late answers may come, and frames don't identify their lines.
  void reanudar() override {
    if (ordenada_) return releer();
    if (lectura()) contraste_.romper();
  }
  // The order to forget may have been obeyed, and a new list entered since: the machine's list is
  // read before the order is repeated.
  bool sinRespuesta(int) final {
    if (!ordenada_ || std::exchange(insistida_, true)) return false;
    releer();
    return true;
  }
  void fallo() final { insistida_ = false; }
  void salto() final {
    if (lectura()) dudar();
  }
  QString MostrarTraza() const final { return e_.textos(kTxPasoLineas, {lineas_.size()}); }
  qint64 codigoActual() const final { return static_cast<qint64>(lineas_.size()); }

 protected:
  virtual Resultado<Siguiente> paso() = 0;
  bool dudosa() const { return contraste_.dudosa(); }
  void dudar() { contraste_.dudar(); }
  // Are lines being requested?
  virtual bool lectura() const = 0;
  // Requests the list from its beginning.
  virtual void empezar() = 0;
  // The order to forget, which the link must not repeat, once the list is on disk.
  Resultado<Siguiente> olvidar(int addr, const maquinas::Peticion& p) {
    TARVO_INTENTAR(aDisco());
    ordenada_ = true;
    constexpr bool kUnaVez = true;
    return Siguiente{Siguiente::Enviar, addr, p.codigo, p.datos, 0, {kUnaVez}};
  }
  void obedecida() { ordenada_ = false; }
  // The list now read is accepted: the machine has forgotten the one on disk.
  bool yaOlvidada() const { return releida_ && lineas_.empty(); }
  // A frame of lines has come, not yet added. If equal to the one before it, it may be a repeat; if
  // equal to the first, the list may have begun again.
  void anotarTrama(const QByteArray& datos) {
    if (lineas_.empty())
      primera_ = datos;
    else if (datos == primera_ || datos == ultima_)
      ++repeticiones_;
    if (repeticiones_ > 0 && datos == primera_) dudar();
    ultima_ = datos;
  }
  // The list has ended: true if it is accepted. A disturbed list has to come identical twice
  // running, or four times if it has frames that repeat others; it is read again from the start.
  Resultado<bool> vale() {
    const int veces = std::exchange(repeticiones_, 0) > 0 ? 4 : 2;
    const auto bien = contraste_.vale(lineas_, e_.textos, veces);
    if (!bien || !*bien) lineas_.clear();
    if (!bien) return falloEn(bien.error(), t_.Grupo, lugar(), e_.textos);
    entera_ = entera_ || *bien;
    return bien;
  }
  QString lugar() const {
    return e_.textos(
        kTxLugarLinea,
        {e_.textos(que_ == Documento::Pedido ? kTxPedido : kTxInventario), lineas_.size() + 1});
  }

  const motor::DatosTarea t_;
  const motor::Entorno e_;
  const Documento que_;
  std::vector<maquinas::Linea> lineas_;
  QByteArray ultima_;     // frame of lines of the present reading
  int repeticiones_ = 0;  // frames of the present reading like its first or the one before
  bool entera_ = false;   // a list was complete
  Malos malos_;

 private:
  QString nota() const { return QStringLiteral("ListaAbandonada%1").arg(t_.Grupo); }
  Resultado<> aDisco() {
    if (enDisco_) return {};
    TARVO_INTENTAR(disco_.guardar(lineas_));
    enDisco_ = true;
    return {};
  }
  void releer() {
    ordenada_ = enDisco_ = false;
    releida_ = true;
    contraste_.romper();
    lineas_.clear();
    ultima_.clear();
    repeticiones_ = 0;
    empezar();
  }

  ListaRecibida disco_;
  bool enDisco_ = false, empezada_ = false, anotada_ = false;
  bool ordenada_ = false;   // the machine was told to forget, without a result so far
  bool insistida_ = false;  // a silence was followed by a question in this attempt
  bool releida_ = false;    // the present reading follows such an order
  Contraste<std::vector<maquinas::Linea>> contraste_{5};
  QByteArray primera_;  // frame of the present reading
};

// Kinds 1 and 4: requested from a line number on, some lines in each answer.
class ListaVek final : public Lista {
 public:
  using Lista::Lista;

  Resultado<Siguiente> paso() override {
    if (fase_ == 0) return Siguiente::fin();
    if (fase_ == 2) return olvidar(0, peticion());
    if (lineas_.size() > kUltimaLinea)
      return tarvo::fallo(Fallo::Formato, e_.textos(kTxListaSinFin, {t_.Grupo, lugar()}), 7);
    ++preguntada_;
    const maquinas::Peticion p = peticion();
    return Siguiente{Siguiente::Enviar, 0, p.codigo, p.datos};
  }
  // An answer doesn't identify its lines. One equal to the last answer taken may be its repetition:
  // it isn't taken until the question has been asked again. A list that must come several times
  // takes it, and must come more often.
  bool encaja(int, int codigo, const QByteArray& datos) const override {
    return codigo == peticion().codigo &&
           (fase_ != 1 || dudosa() || preguntada_ > 1 || datos != ultima_);
  }
  Resultado<> respuesta(int, int, const QByteArray& datos) override {
    if (fase_ == 2) {
      obedecida();
      fase_ = 0;
      return {};
    }
    const maquinas::Peticion p = peticion();
    const maquinas::Rigor rigor = malos_.rigor(p.codigo, p.datos, datos);
    const auto r = maquinas::vek::leerLineas(datos, rigor);
    if (!r) {
      malos_.anotar(p.codigo, p.datos, datos);
      return falloEn(malRegistro(r.error(), e_.textos).error(), t_.Grupo, lugar(), e_.textos);
    }
    if (rigor == maquinas::Rigor::Tolerante) malos_.tomado(p.codigo, p.datos, datos, lugar());
    anotarTrama(datos);
    lineas_.insert(lineas_.end(), r->lineas.begin(), r->lineas.end());
    preguntada_ = 0;
    leidas_ = std::max(leidas_, lineas_.size());
    if (!r->fin) return {};
    ultima_.clear();
    TARVO_TOMAR(const auto bien, vale());
    if (bien) fase_ = yaOlvidada() ? 0 : 2;
    return {};
  }
  qint64 avance() const override { return static_cast<qint64>(leidas_) + entera_; }

 private:
  static constexpr size_t kUltimaLinea = 999;  // three digits ask
  maquinas::Peticion peticion() const {
    const bool inventario = que_ == Documento::Inventario;
    return fase_ == 2 ? maquinas::vek::olvidarLista(inventario)
                      : maquinas::vek::lineas(static_cast<int>(lineas_.size()), inventario);
  }
  bool lectura() const override { return fase_ == 1; }
  void empezar() override {
    fase_ = 1;
    preguntada_ = 0;
  }
  int fase_ = 1;        // 1 ask lines, 2 may be forgotten, 0 done
  size_t leidas_ = 0;   // greatest number of lines so far
  int preguntada_ = 0;  // how often the present question was asked
};

// Kind 2: one request, frames until the end of the list, the permission to forget it, and the end
// once more.
class ListaNodalPedido final : public Lista {
 public:
  using Lista::Lista;

  Resultado<Siguiente> paso() override {
    switch (fase_) {
      case 1:
        return enviar(maquinas::nodal::pedido());
      case 3:
        return olvidar(t_.Addr, maquinas::nodal::olvidarPedido());
      case 2:
      case 4:
        return Siguiente{Siguiente::EsperarNODAL, t_.Addr, 0, {}};
      default:
        return Siguiente::fin();
    }
  }
  // Lines have no number, so a frame with another request's code may contain some of them, lost for
  // good if it were passed over: it is taken, and spoils the list.
  bool encaja(int, int codigo, const QByteArray&) const override {
    return fase_ != 4 || !deOtra(codigo);
  }
  Resultado<> respuesta(int, int codigo, const QByteArray& datos) override {
    if (fase_ == 1 || fase_ == 3) {
      ++fase_;
    } else if (codigo == maquinas::nodal::kFinDeLista) {
      return fin();
    } else if (fase_ == 2) {
      if (deOtra(codigo))
        return falloEn({Fallo::Formato, 7, e_.textos(kTxTramaDeOtra, {codigo})}, t_.Grupo, lugar(),
                       e_.textos);
      const int preguntado = maquinas::nodal::pedido().codigo;
      const maquinas::Rigor rigor = malos_.rigor(preguntado, {}, datos);
      const auto r = maquinas::nodal::leerPedido(datos, rigor);
      if (!r) {
        malos_.anotar(preguntado, {}, datos);
        if (!malo_)
          malo_ = falloEn(malRegistro(r.error(), e_.textos).error(), t_.Grupo, lugar(), e_.textos)
                      .error();
        return {};
      }
      if (rigor == maquinas::Rigor::Tolerante) malos_.tomado(preguntado, {}, datos, lugar());
      const bool otraVez = !r->empty() && datos == ultima_;
      if (otraVez && !std::exchange(repetida_, true))
        return falloEn({Fallo::Formato, 7, e_.textos(kTxTramaRepetida)}, t_.Grupo, lugar(),
                       e_.textos);
      anotarTrama(datos);
      lineas_.insert(lineas_.end(), r->begin(), r->end());
    }
    return {};
  }
  // A list that broke off starts again.
  void reanudar() override {
    Lista::reanudar();
    malo_.reset();
    if (fase_ != 2) return;
    fase_ = 1;
    lineas_.clear();
    ultima_.clear();
    repeticiones_ = 0;
  }
  qint64 avance() const override { return entera_; }

 private:
  bool lectura() const override { return fase_ == 1 || fase_ == 2; }
  void empezar() override {
    fase_ = 1;
    vacia_ = false;
  }
  Resultado<> fin() {
    if (fase_ == 4) {
      obedecida();
      fase_ = 0;
      return {};
    }
    ultima_.clear();
    if (malo_) {
      fase_ = 1;
      lineas_.clear();
      repeticiones_ = 0;
      return std::unexpected(*std::exchange(malo_, {}));
    }
    // An end without lines may be a late one of another list: it must come twice.
    if (lineas_.empty() && !std::exchange(vacia_, true)) {
      fase_ = 1;
      return {};
    }
    if (vacia_ && !lineas_.empty()) dudar();  // it was requested twice, and may have come twice
    TARVO_TOMAR(const auto bien, vale());
    fase_ = !bien ? 1 : yaOlvidada() ? 0 : 3;
    return {};
  }
  bool deOtra(int codigo) const {
    const int mia =
        (fase_ == 2 ? maquinas::nodal::pedido() : maquinas::nodal::olvidarPedido()).codigo;
    return codigo != mia && maquinas::nodal::esDePeticion(codigo);
  }
  Siguiente enviar(const maquinas::Peticion& p) const {
    return {Siguiente::Enviar, t_.Addr, p.codigo, p.datos};
  }
  // A frame equal to the one before it may be a repeat, or hold equal lines: the list is requested
  // again until it comes identical twice without such frames, or four times with them.
  bool repetida_ = false;
  std::optional<Error> malo_;  // the first unreadable frame of lines
  bool vacia_ = false;         // the list ended at once at the first request
  int fase_ = 1;               // 1 ask, 2 lines, 3 may be forgotten, 4 wait for the end, 0 done
};

}  // namespace

Curso crearLista(const motor::DatosTarea& t, const motor::Entorno& e, Documento que) {
  if (t.Tipo == TipoGrupo::Ebony) return std::make_unique<ListaNodalPedido>(t, e, que);
  return std::make_unique<ListaVek>(t, e, que);
}

}  // namespace tarvo::tareas
