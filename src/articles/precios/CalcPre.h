// The price calculator: the selling price from the cost, the VAT, the margin and a rounding step,
// and the margin back from a price. A value; money is in minor units of the native currency.
#pragma once

#include <QtGlobal>
#include <optional>

#include "articles/Catalogo.h"

namespace tarvo::precios {

// `p` per cent of `x`, to the nearest whole unit.
qint64 Parte(double p, qint64 x);
// The next multiple of `paso` at or above `n`, also for a negative `n`; `n` itself without a step.
qint64 haciaArriba(qint64 n, qint64 paso);

// The greatest rounding step that fits the setting.
inline constexpr qint64 kRedondeoMayor = 32'767;

// Incluido: prices include the VAT, and none of its figures is used.
enum class ModoIva { Incluido, Detallado };

class CalcPre {
 public:
  struct Cifras {
    qint64 costeN = 0, IvaS = 0, CosteB = 0;  // net cost, VAT on it, gross cost
    double pcMarg = 0;                        // margin on the net cost, in per cent
    qint64 Margen = 0, VentaN = 0;            // margin as an amount, net price
    qint64 IvaR = 0, Calcu = 0;               // VAT on the net price, price with VAT
    qint64 PVP = 0;                           // rounded, the final price
    bool operator==(const Cifras&) const = default;
  };

  explicit CalcPre(ModoIva modo = ModoIva::Incluido, qint64 redondeo = 0)
      : modo_(modo), redondeo_(redondeo) {}

  const Cifras& cifras() const { return c_; }
  ModoIva modo() const { return modo_; }
  const std::optional<double>& pciva() const { return iva_; }
  qint64 redondeo() const { return redondeo_; }

  // Enters a cell with this price. The margin is the one implied by the price, unless it is locked:
  // then the price follows. Without a cost no margin determines a price, and the cell's own stays.
  void entrar(qint64 coste, qint64 precio);
  void ponerIva(std::optional<double> pciva);  // none counts as 0

  // What a person may change. All other figures follow; a given price stays to the unit.
  void ponerCoste(qint64 coste);
  void ponerPcMargen(double pcMarg);
  void ponerMargen(qint64 margen);
  void ponerVenta(qint64 ventaN);
  void ponerCalculado(qint64 calcu);
  void ponerRedondeo(qint64 paso);  // of the current figure; 0 to kRedondeoMayor, 0 is none
  void ponerModo(ModoIva modo);     // the price stays

  // Locks this margin, with the two displayed decimals.
  void bloquear(double pcMarg);
  void desbloquear() { fijo_.reset(); }
  const std::optional<double>& bloqueado() const { return fijo_; }

 private:
  qint64 netoDe(qint64 calcu) const;
  void margenDeVenta();
  void recalcular(std::optional<qint64> calcuDado = {});
  void redondear();
  void precioDado(qint64 precio);

  ModoIva modo_;
  qint64 redondeo_;
  std::optional<double> iva_, fijo_;
  Cifras c_;
};

// The VAT rate of a department of a section; 0 when there is no such department or rate.
Resultado<double> ivaDeDepartamento(articles::Catalogo& catalogo, int seccion, int departamento);

}  // namespace tarvo::precios
