// VerTot: the list of periods and all operations on them. Until the window is closed, what was done
// here can be undone, the last step first.
#pragma once

#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/marco/Ventana.h"
#include "totals/periodos/Acumulaciones.h"
#include "totals/periodos/Papelera.h"
#include "totals/periodos/VerTot.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/Puertas.h"
#include "ui_VerTot.h"

namespace tarvo::totals {

class VerTotVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  VerTotVentana(ventanas::Contexto& contexto, const QString& nombre, Periodos& periodos);

  Resultado<> entrar(const PuertaVerTot& puerta);
  bool QueryUnload() override;

  void VerIntervalo(TipoTotal clase);

 private:
  using Pasos = std::function<Resultado<bool>(qint64 link)>;
  struct Vuelta {
    QString que;
    std::function<Resultado<>()> hacer;
    std::vector<qint64> vuelven = {};  // periods to be selected afterwards
    QString duda = {};                 // what isn't restored by it
  };
  struct Cuentas {
    int bien = 0, mal = 0;
  };

  void montar();
  void montarMenus();
  void montarAcciones();
  void montarDeshacer();
  void prepararParrilla();
  void tipoCambiado();
  void refrescar();
  void actualCambiada();
  void pintarLado();
  QString textoCuadre(const Columna& c);
  bool event(QEvent* evento) override;

  std::vector<qint64> elegidos();
  std::optional<Resumen> resumenDe(const std::vector<qint64>& links);
  // Runs one step per period, with progress; `alFinal` receives the numbers of successes and
  // failures.
  void porPasos(const QString& que, std::vector<qint64> links, Pasos paso,
                std::function<void(Cuentas)> alFinal);
  void decirCuentas(const QString& bien, int textoMal, Cuentas cuentas);
  void apuntar(const Vuelta& vuelta);
  void cerrarVisores(qint64 link);

  void editar(bool nuevo);
  void guardado(const Guardado& g);
  std::optional<QString> loQueSeDebe(const std::vector<qint64>& links);
  QString nombresDe(const std::vector<qint64>& links);
  void borrar(bool soloFilas);
  void acumular(int tipo);
  bool acumularConformes(const std::vector<qint64>& links, int tipo);
  Resultado<bool> acumularUno(qint64 link, int tipo, std::vector<Acumulacion>& hechas);
  void acumulados(const std::vector<Acumulacion>& hechas, Cuentas cuentas);
  void desacumular(int tipo);
  void sumar();
  void sumarEn(const std::vector<qint64>& links, bool nuevo);
  void descontar(bool deshacer);
  Resultado<bool> descontarUno(qint64 link, bool deshacer, std::vector<qint64>& hechos);
  Resultado<> desdescontar(const std::vector<qint64>& links, bool deshacer);
  void elegirPeriodo(qint64 link);
  void exportar();
  void importar();

  Ui::VerTot ui_;
  Periodos& p_;
  VerTot motor_;
  Papelera papelera_;
  QMenu *mnuAcu_ = nullptr, *mnDesAcu_ = nullptr, *mnuVer_ = nullptr;
  int tipo_ = 0;        // the kind in view, 0 all
  qint64 cambios_ = 0;  // of the database when the list was read
  ventanas::Deshacer* deshacer_ = nullptr;
  QToolButton* botonDeshacer_ = nullptr;
  std::unique_ptr<Temporizador> lado_;
};

}  // namespace tarvo::totals
