#include "articles/precios/CalcPre.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "articles/Secciones.h"

namespace tarvo::precios {

namespace {

constexpr double kMayor = std::numeric_limits<qint32>::max();  // of a price column
constexpr double kMayorPc = 99'999;

qint64 acotado(qint64 n) {
  return std::clamp(n, -static_cast<qint64>(kMayor), static_cast<qint64>(kMayor));
}

qint64 entera(double x) {
  return static_cast<qint64>(std::clamp(std::floor(0.5 + x), -kMayor, kMayor));
}

double tanto(double pc) {
  return std::isfinite(pc) ? std::clamp(pc, -kMayorPc, kMayorPc) : 0;
}

}  // namespace

qint64 Parte(double p, qint64 x) {
  return entera(static_cast<double>(x) * p / 100);
}

qint64 haciaArriba(qint64 n, qint64 paso) {
  if (paso <= 0) return n;
  const qint64 resto = n % paso;
  if (resto == 0) return n;
  return resto > 0 ? n + paso - resto : n - resto;
}

void CalcPre::entrar(qint64 coste, qint64 precio) {
  c_ = {};
  c_.costeN = acotado(coste);
  precioDado(precio);
  if (!fijo_) return;
  c_.pcMarg = *fijo_;
  recalcular();
}

void CalcPre::precioDado(qint64 precio) {
  if (modo_ == ModoIva::Incluido) return ponerVenta(precio);
  ponerCalculado(precio);
}

void CalcPre::ponerIva(std::optional<double> pciva) {
  iva_ = pciva;
  if (iva_) iva_ = std::clamp(tanto(*iva_), 0.0, kMayorPc);
  recalcular();
}

// When a price had no cost, the margin is now the implied one.
void CalcPre::ponerCoste(qint64 coste) {
  const bool habia = c_.costeN != 0;
  c_.costeN = acotado(coste);
  if (!fijo_ && (!habia || coste == 0)) margenDeVenta();
  recalcular();
}

void CalcPre::ponerPcMargen(double pcMarg) {
  c_.pcMarg = tanto(pcMarg);
  recalcular();
}

void CalcPre::ponerMargen(qint64 margen) {
  const auto c = static_cast<double>(c_.costeN);
  c_.pcMarg = c_.costeN == 0 ? 0 : static_cast<double>(acotado(margen)) * 100 / c;
  recalcular();
}

void CalcPre::ponerVenta(qint64 ventaN) {
  c_.VentaN = acotado(ventaN);
  margenDeVenta();
  recalcular();
}

void CalcPre::ponerCalculado(qint64 calcu) {
  c_.VentaN = netoDe(acotado(calcu));
  margenDeVenta();
  recalcular(acotado(calcu));
}

void CalcPre::ponerRedondeo(qint64 paso) {
  redondeo_ = std::clamp<qint64>(paso, 0, kRedondeoMayor);
  redondear();
}

void CalcPre::ponerModo(ModoIva modo) {
  if (modo == modo_) return;
  const qint64 precio = modo_ == ModoIva::Incluido ? c_.VentaN : c_.Calcu;
  modo_ = modo;
  precioDado(precio);
}

void CalcPre::bloquear(double pcMarg) {
  fijo_ = std::round(tanto(pcMarg) * 100) / 100;
  c_.pcMarg = *fijo_;
  recalcular();
}

qint64 CalcPre::netoDe(qint64 calcu) const {
  return iva_ ? entera(static_cast<double>(calcu) / (1 + *iva_ / 100)) : calcu;
}

void CalcPre::margenDeVenta() {
  const auto c = static_cast<double>(c_.costeN);
  c_.pcMarg = c_.costeN == 0 ? 0 : static_cast<double>(c_.VentaN - c_.costeN) * 100 / c;
}

// `calcuDado`: a price with VAT not to be altered by the rounding of its parts.
void CalcPre::recalcular(std::optional<qint64> calcuDado) {
  const double iva = iva_.value_or(0);
  const bool detallado = modo_ == ModoIva::Detallado;
  c_.IvaS = detallado ? Parte(iva, c_.costeN) : 0;
  c_.CosteB = acotado(c_.costeN + c_.IvaS);
  c_.Margen = Parte(c_.pcMarg, c_.costeN);
  if (c_.costeN != 0) c_.VentaN = acotado(c_.costeN + c_.Margen);
  c_.Calcu = calcuDado.value_or(acotado(c_.VentaN + (detallado ? Parte(iva, c_.VentaN) : 0)));
  c_.IvaR = c_.Calcu - c_.VentaN;
  redondear();
}

void CalcPre::redondear() {
  c_.PVP = haciaArriba(modo_ == ModoIva::Detallado ? c_.Calcu : c_.VentaN, redondeo_);
}

Resultado<double> ivaDeDepartamento(articles::Catalogo& catalogo, int seccion, int departamento) {
  TARVO_TOMAR(
      auto rs,
      catalogo.base().consultar(
          u"SELECT SECCS.IVAs, DEPTS.IVA FROM DEPTS LEFT JOIN SECCS ON DEPTS.SECCION=SECCS.NMSECC "
          u"WHERE (NMSECC=?) AND (NUMDEP=?)",
          seccion, departamento));
  if (rs->Eof()) return 0.0;
  const articles::Ivas tipos = articles::leerIvas(rs->texto(0));
  const qint64 cual = rs->entero(1);
  if (cual < 1 || cual > articles::kTiposIva) return 0.0;
  return static_cast<double>(tipos[static_cast<std::size_t>(cual - 1)]) / 100;
}

}  // namespace tarvo::precios
