#include "articles/BorradoDepartamento.h"

#include "articles/TextosArticles.h"

namespace tarvo::articles {

using dao::Transaccion;

Resultado<> BorradoDepartamento::borrar(const QString& ventana) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_TOMAR(auto fila,
              db_.consultar(u"SELECT NomDep, IVA FROM DEPTS WHERE SECCION=? AND NUMDEP=?", seccion_,
                            departamento_));
  if (fila->Eof()) return fallo(Fallo::NoExiste, textos_(kTxDepartamentoNoEsta));
  nombre_ = fila->texto(0);
  iva_ = static_cast<int>(fila->entero(1));
  TARVO_TOMAR(const auto lote, lotes_.empezar(ventana));
  const std::array<dao::Valor, 2> clave{seccion_, departamento_};
  TARVO_INTENTAR(lotes_.guardarDonde(lote, u"SECCION=? AND DEPTO=?", clave));
  TARVO_INTENTAR(secciones_.borrarDepartamento(seccion_, departamento_, lote));
  TARVO_INTENTAR(lotes_.acabar(lote));
  TARVO_INTENTAR(t.confirmar());
  lote_ = std::make_unique<LoteGuardado>(lotes_, lote);
  return {};
}

Resultado<std::optional<QString>> BorradoDepartamento::aviso() {
  return lotes_.avisoDeVuelta(lote_->lote());
}

Resultado<Lotes::Deshecho> BorradoDepartamento::reponer(const QString& ventana) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_INTENTAR(secciones_.reponerDepartamento(seccion_, departamento_, nombre_, iva_));
  auto hecho = lotes_.deshacer(lote_->lote(), ventana);
  if (hecho) TARVO_INTENTAR(t.confirmar());
  return hecho;
}

}  // namespace tarvo::articles
