// New offers, one after another: NvaOfr. Takes "seccion", "nombre" of it and "grupo".
#pragma once

#include "articles/precios/CambioRapido.h"
#include "articles/precios/Ofertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_NvaOfr.h"

namespace tarvo::precios {

class NvaOfr final : public ventanas::Ventana {
  Q_OBJECT
 public:
  NvaOfr(ventanas::Contexto& contexto, const QString& nombre);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;
  bool QueryUnload() override;

 protected:
  void keyPressEvent(QKeyEvent* evento) override;

 private:
  struct Hallado {
    qint64 codigo = 0;
    QString nombre;
  };

  void montar();
  void WhoAmI(int seccion, const QString& nombre, int grupo);
  void pintarGrupo();
  void buscar();
  Resultado<std::optional<Hallado>> buscarArticulo(const QString& texto) const;
  QString preciosNormales(qint64 codigo);
  Resultado<std::vector<int>> destino();
  void salvar();
  std::optional<OfertaNueva> leerOferta();
  std::optional<Vigencia> leerVigencia();
  QString porQueNo(FaltaPrecio falta, std::size_t nivel, const QString& texto) const;
  // Takes out the groups whose offer a person doesn't want written over.
  bool preguntarPorLas(const OfertaNueva& oferta, std::vector<int>& grupos);
  void vaciar();
  void mal(const QString& texto, QLineEdit& campo);
  bool hayAlgoEscrito() const;

  Ui::NvaOfr ui_;
  Ofertas motor_;
  std::array<QLineEdit*, articles::kNiveles> precios_{};
  std::optional<Hallado> articulo_;
  int seccion_ = 0, grupo_ = 0;
  bool dejado_ = false;  // by Escape in the empty box
  QString nombreSeccion_;
  std::array<QString, 2> fechas_;  // those of the offer saved last
};

}  // namespace tarvo::precios
