// Many articles written as one set, by the rules of one at a time: their earlier state goes into a
// batch, together with the price history, the changes due to the machines and the state the batch
// left them in. One statement serves all articles instead of one for each.
#pragma once

#include "articles/Lotes.h"

namespace tarvo::articles {

class Tanda {
 public:
  // A slice that keeps a window responsive.
  static constexpr size_t kArticulos = 500;
  // Nadie: imported articles reach the groups by a complete transmission.
  enum class Oyen { Todos, Nadie };

  // REQUIRES that the references outlive it.
  Tanda(Catalogo& catalogo, Lotes& lotes, QString ventana, Oyen oyen)
      : db_(catalogo.base()),
        catalogo_(catalogo),
        lotes_(lotes),
        ventana_(std::move(ventana)),
        oyen_(oyen) {}

  // One transaction: existing articles become these, the others are created. The history of a
  // created one has its first non-zero price, with who brought it and when. REQUIRES a batch,
  // distinct keys, existing sections; no system articles, and no bar code of another article of the
  // section.
  Resultado<> escribir(qint64 lote, std::span<const Articulo> articulos);

 private:
  Resultado<> tender(std::span<const Articulo> articulos);
  Resultado<> cambiarLosQueHay();
  Resultado<QStringList> columnasQueCambian();
  Resultado<> historia(const QString& columna, int nivel, int tarifa);
  Resultado<> hacerLosNuevos();

  dao::Database& db_;
  Catalogo& catalogo_;
  Lotes& lotes_;
  QString ventana_;
  Oyen oyen_;
  std::unique_ptr<dao::Sentencia> poner_;
};

}  // namespace tarvo::articles
