#include <algorithm>

#include "comm/envios/Remesa.h"
#include "comm/motor/Negativa.h"
#include "comm/tareas/EnvioArticulos.h"
#include "comm/tareas/Fabricas.h"
#include "comm/tareas/TextosTareas.h"
#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

namespace {

using motor::Siguiente;

// Walks the file of the scales, article by article, and corrects our knowledge of it: so the next
// sending restores what a machine with an older memory has lost. A single article is kept as it
// came, for the person who asked for it.
class RecorridoDeFichas final : public motor::CursoTarea {
 public:
  RecorridoDeFichas(const motor::DatosTarea& t, const motor::Entorno& e)
      : t_(t),
        e_(e),
        remesa_(e.db, e.reloj, e.textos, destinoDe(t)),
        siguiente_(std::max<qint64>(t.Desde, 1)),
        hasta_(std::min(t.Hasta, maquinas::kUltimoArticuloVek)) {}

  Resultado<Siguiente> siguiente() override {
    if (!abierta_) TARVO_INTENTAR(remesa_.abrir());
    abierta_ = true;
    if (siguiente_ <= hasta_) {
      const maquinas::Peticion p = maquinas::pedirArticulo(siguiente_);
      // After the first answer none of an earlier question fits: their numbers are lower.
      return Siguiente{
          Siguiente::Enviar, 0, p.codigo,
          p.datos,           0, {.limpia = siguiente_ == std::max<qint64>(t_.Desde, 1)}};
    }
    TARVO_INTENTAR(remesa_.asentar());
    return Siguiente::fin();
  }
  bool encaja(int, int codigo, const QByteArray& datos) const override {
    return codigo == maquinas::pedirArticulo(siguiente_).codigo &&
           maquinas::codigoDeFicha(datos).value_or(-1) >= siguiente_;
  }
  Resultado<> respuesta(int, int, const QByteArray& datos) override {
    if (motor::numeroDeNegativa(datos) == kNumeroNoExiste) return hasta(kDetrasDeTodos, {});
    const auto ficha = maquinas::leerFicha(datos);
    if (!ficha)
      return falloEn(malRegistro(ficha.error(), e_.textos).error(), t_.Grupo,
                     e_.textos(kTxLugarArticulo, {Ceros(siguiente_, 7)}), e_.textos);
    return hasta(ficha->codigo, datos);
  }
  void reposo() override { static_cast<void>(remesa_.asentar()); }
  Resultado<std::vector<totals::Aviso>> cerrar() override { return avisos(); }
  std::vector<totals::Aviso> abandonar() override {
    reposo();
    return avisos();
  }
  QString MostrarTraza() const override {
    return e_.textos(kTxPasoArticulo, {Ceros(codigoActual(), 7)});
  }
  qint64 codigoActual() const override { return std::min(siguiente_, hasta_); }
  qint64 avance() const override { return siguiente_; }

 private:
  static constexpr qint64 kDetrasDeTodos = maquinas::kUltimoArticuloVek + 1;
  // The scales have no article before that number, and this record under it.
  Resultado<> hasta(qint64 codigo, const QByteArray& registro) {
    if (t_.Desde == t_.Hasta) {
      const bool suyo = codigo == t_.Hasta;
      TARVO_INTENTAR(envios::Tenencias(e_.db, e_.reloj, destinoDe(t_))
                         .guardarFicha(t_.Hasta, suyo ? std::optional(registro) : std::nullopt));
    }
    remesa_.hueco(siguiente_, std::min(codigo - 1, hasta_));
    if (codigo <= hasta_ && codigo >= maquinas::kPrimerArticulo) remesa_.leido(codigo, registro);
    siguiente_ = codigo + 1;
    return {};
  }
  std::vector<totals::Aviso> avisos() const {
    const envios::Resumen& r = remesa_.resumen();
    return {{t_.Grupo, e_.textos(kTxFichasLeidas, {t_.Grupo, r.iguales, r.distintos, r.sobrantes}),
             false}};
  }

  const motor::DatosTarea t_;
  const motor::Entorno e_;
  envios::Remesa remesa_;
  qint64 siguiente_;
  const qint64 hasta_;
  bool abierta_ = false;
};

}  // namespace

Curso crearRxDatPlu(const motor::DatosTarea& t, const motor::Entorno& e) {
  return std::make_unique<RecorridoDeFichas>(t, e);
}

}  // namespace tarvo::tareas
