#include "comm/tareas/Listas.h"

#include "comm/maquinas/Nodal.h"
#include "comm/maquinas/Vek.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

namespace {

using motor::Siguiente;

class Lista : public motor::TrabajoTarea {
 public:
  Lista(const motor::DatosTarea& t, const motor::Entorno& e, Documento que)
      : t_(t), e_(e), que_(que), disco_(t_, e_, que) {}

  // The machine may forget the list: the note goes with the end of the task.
  Resultado<std::vector<totals::Aviso>> cerrar() final {
    TARVO_INTENTAR(disco_.olvidada());
    return std::vector<totals::Aviso>{};
  }
  QString MostrarTraza() const final { return QStringLiteral("L %1").arg(lineas_.size()); }
  qint64 codigoActual() const final { return static_cast<qint64>(lineas_.size()); }

 protected:
  Resultado<> aDisco() {
    if (enDisco_) return {};
    TARVO_INTENTAR(disco_.guardar(lineas_));
    enDisco_ = true;
    return {};
  }
  QString lugar() const {
    return QStringLiteral("%1, línea %2")
        .arg(que_ == Documento::Pedido ? QStringLiteral("pedido") : QStringLiteral("inventario"))
        .arg(lineas_.size() + 1);
  }

  const motor::DatosTarea t_;
  const motor::Entorno e_;
  const Documento que_;
  std::vector<maquinas::Linea> lineas_;

 private:
  ListaRecibida disco_;
  bool enDisco_ = false;
};

// Kinds 1 and 4: asked from a line number on, some lines an answer.
class ListaVek final : public Lista {
 public:
  using Lista::Lista;

  Resultado<Siguiente> siguiente() override {
    if (fase_ == 0) return Siguiente::fin();
    if (fase_ == 2) TARVO_INTENTAR(aDisco());
    if (fase_ == 1 && lineas_.size() > kUltimaLinea)
      return tarvo::fallo(
          Fallo::Formato,
          QStringLiteral("Grupo %1, %2: la lista no termina.").arg(t_.Grupo).arg(lugar()), 7);
    ++preguntada_;
    const maquinas::Peticion p = peticion();
    return Siguiente{Siguiente::Enviar, 0, p.codigo, p.datos};
  }
  // The answer doesn't say which lines it holds. The very answer that was taken last may be its
  // repetition: it isn't taken until the question has been asked again.
  bool encaja(int, int codigo, const QByteArray& datos) const override {
    return codigo == peticion().codigo && (fase_ != 1 || preguntada_ > 1 || datos != ultima_);
  }
  Resultado<> respuesta(int, int, const QByteArray& datos) override {
    if (fase_ == 2) {
      fase_ = 0;
      return {};
    }
    const auto r = maquinas::vek::leerLineas(datos);
    if (!r) return falloEn(r.error(), t_.Grupo, lugar());
    lineas_.insert(lineas_.end(), r->lineas.begin(), r->lineas.end());
    ultima_ = datos;
    preguntada_ = 0;
    if (r->fin) fase_ = 2;
    return {};
  }
  qint64 avance() const override { return static_cast<qint64>(lineas_.size()) + (fase_ != 1); }

 private:
  static constexpr size_t kUltimaLinea = 999;  // three digits ask
  maquinas::Peticion peticion() const {
    const bool inventario = que_ == Documento::Inventario;
    return fase_ == 2 ? maquinas::vek::olvidarLista(inventario)
                      : maquinas::vek::lineas(static_cast<int>(lineas_.size()), inventario);
  }
  int fase_ = 1;  // 1 ask lines, 2 may be forgotten, 0 done
  QByteArray ultima_;
  int preguntada_ = 0;  // how often the present question was asked
};

// Kind 2: one request, frames until the end of the list, the permission to forget it, and the end
// once more.
class ListaNodalPedido final : public Lista {
 public:
  using Lista::Lista;

  Resultado<Siguiente> siguiente() override {
    switch (fase_) {
      case 1:
        return enviar(maquinas::nodal::pedido());
      case 3:
        TARVO_INTENTAR(aDisco());
        return enviar(maquinas::nodal::olvidarPedido());
      case 2:
      case 4:
        return Siguiente{Siguiente::EsperarNODAL, t_.Addr, 0, {}};
      default:
        return Siguiente::fin();
    }
  }
  // Lines bear no number, so a frame with another request's code may be some of them, gone for good
  // if it were passed over: it is taken, and spoils the list.
  bool encaja(int, int codigo, const QByteArray&) const override {
    return fase_ != 4 || !deOtra(codigo);
  }
  Resultado<> respuesta(int, int codigo, const QByteArray& datos) override {
    if (fase_ == 1 || fase_ == 3) {
      ++fase_;
    } else if (codigo == maquinas::nodal::kFinDeLista) {
      if (fase_ == 4)
        fase_ = 0;
      else  // an end that comes alone may be a late one of another list: it must come twice
        fase_ = lineas_.empty() && !std::exchange(vacia_, true) ? 1 : 3;
    } else if (fase_ == 2) {
      if (deOtra(codigo))
        return falloEn({Fallo::Formato, 7,
                        QStringLiteral("ha llegado una trama de otra pregunta (%1)").arg(codigo)},
                       t_.Grupo, lugar());
      const auto r = maquinas::nodal::leerPedido(datos);
      if (!r) return falloEn(r.error(), t_.Grupo, lugar());
      if (!r->empty() && datos == ultima_ && !std::exchange(repetida_, true))
        return falloEn({Fallo::Formato, 7, QStringLiteral("ha llegado dos veces la misma trama")},
                       t_.Grupo, lugar());
      ultima_ = datos;
      lineas_.insert(lineas_.end(), r->begin(), r->end());
    }
    return {};
  }
  // A list that broke off starts again. The permission to forget is not given anew once the machine
  // has taken it.
  void reanudar() override {
    if (fase_ != 2) return;
    fase_ = 1;
    lineas_.clear();
    ultima_.clear();
  }
  qint64 avance() const override { return fase_ == 0 || fase_ > 2 ? 1 : 0; }

 private:
  bool deOtra(int codigo) const {
    const int mia =
        (fase_ == 2 ? maquinas::nodal::pedido() : maquinas::nodal::olvidarPedido()).codigo;
    return codigo != mia && maquinas::nodal::esDePeticion(codigo);
  }
  Siguiente enviar(const maquinas::Peticion& p) const {
    return {Siguiente::Enviar, t_.Addr, p.codigo, p.datos};
  }
  // A frame like the one before it may be that one sent twice, or lines that are alike: the list is
  // asked again, and what it then holds stands.
  QByteArray ultima_;
  bool repetida_ = false;
  bool vacia_ = false;  // the list ended at once when it was asked first
  int fase_ = 1;        // 1 ask, 2 lines, 3 may be forgotten, 4 wait for the end, 0 done
};

}  // namespace

Trabajo crearLista(const motor::DatosTarea& t, const motor::Entorno& e, Documento que) {
  if (t.Tipo == 2) return std::make_unique<ListaNodalPedido>(t, e, que);
  return std::make_unique<ListaVek>(t, e, que);
}

}  // namespace tarvo::tareas
