// The price calculator: from the cost, the VAT, the margin and a rounding step the selling price,
// and back from a price to its margin. A value; money is in minor units of the native currency.
#pragma once

#include <QtGlobal>
#include <optional>

#include "core/dao/Database.h"

namespace tarvo::precios {

// `p` per cent of `x`, to the nearest whole unit.
qint64 Parte(double p, qint64 x);
// The next multiple of `paso` at or above `n`, also for a negative `n`; `n` itself with no step.
qint64 haciaArriba(qint64 n, qint64 paso);

// The greatest rounding step, which the setting still holds.
inline constexpr qint64 kRedondeoMayor = 32'767;

// Incluido: prices are understood with the VAT inside, and no figure of it is used.
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

  // A cell with this price. What its price implies is the margin, unless the margin is locked: then
  // the price follows. Where there is no cost no margin tells a price, and that of the cell stays.
  void entrar(qint64 coste, qint64 precio);
  void ponerIva(std::optional<double> pciva);  // none counts as 0

  // What a person may change. All other figures follow; a price that is given stays to the unit.
  void ponerCoste(qint64 coste);
  void ponerPcMargen(double pcMarg);
  void ponerMargen(qint64 margen);
  void ponerVenta(qint64 ventaN);
  void ponerCalculado(qint64 calcu);
  void ponerRedondeo(qint64 paso);  // of the present figure; 0 to kRedondeoMayor, 0 is none
  void ponerModo(ModoIva modo);     // the price stays

  // From now on this margin, with the two decimals that are shown.
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

// The VAT rate of a department of a section; 0 where there is no such department or rate.
Resultado<double> ivaDeDepartamento(dao::Database& db, int seccion, int departamento);

}  // namespace tarvo::precios
