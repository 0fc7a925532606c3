// CalcPre: the price calculator for the current article of a list. Without that list it moves
// through the codes of a section.
#pragma once

#include <map>

#include "articles/Catalogo.h"
#include "articles/precios/CalcPre.h"
#include "articles/precios/ParrillaRapida.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_CalcPre.h"

namespace tarvo::precios {

class CalcPreVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  CalcPreVentana(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaCalcPre& puerta);
  bool QueryUnload() override;

 protected:
  void keyPressEvent(QKeyEvent* evento) override;

 private:
  using Hacer = std::function<void()>;

  void montar();
  void alinear();
  void unirCaja(QLineEdit& caja, const Hacer& hacer);
  // Applies the value typed in the field; false, after reporting it, if the field then shows a
  // different value.
  bool tomar(QLineEdit& caja, const Hacer& hacer);
  void tocar();
  std::optional<QString> malTexto(const QLineEdit& caja, const QString& texto) const;
  bool retener(QLineEdit& caja, const QString& motivo);
  bool renunciar();
  bool esTanto(const QLineEdit& caja) const;  // a per cent or a step: a plain number
  std::optional<double> numero(const QLineEdit& caja, const QString& texto) const;
  // Applies the value of the field or cell that has the focus; false if the user has to check it
  // first.
  bool terminar();
  bool terminarCajas();
  bool cambiado() const;
  void ponerAjustes();
  void guardarAjustes();

  void vaciar();
  Resultado<> cargar(articles::ClaveArticulo clave);
  void reposicionado();
  void entrarEn(Celda celda);
  void pintar();
  void pintarModo();
  void bloquear(bool si);
  qint64 importe(const QLineEdit& caja) const;
  qint64& precio(Celda celda);

  // The reason why the figures can't be saved, in words.
  std::optional<QString> impedimento() const;
  bool conforme();
  bool guardar();
  void avisarDelGuardado();
  void salvar();
  void mover(int pasos);
  void dejarUltimo();  // there is no article after it

  Ui::CalcPre ui_;
  articles::Catalogo& catalogo_;
  CalcPre calc_;
  articles::Articulo articulo_;  // as read
  articles::Precios precios_{};
  DeLista lista_;
  std::map<QLineEdit*, Hacer> cajas_;
  QString dudaGuardada_;  // of the prices just stored
  std::function<void(const articles::Articulo&, const articles::Articulo&)> alGuardar_;
  bool seguida_ = false, moviendo_ = false, tocado_ = false;
  bool ajustado_ = false;  // a person has chosen one of its settings
};

}  // namespace tarvo::precios
