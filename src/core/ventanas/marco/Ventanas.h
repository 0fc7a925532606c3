// The registry: creates windows and finds them by name. A name may have an instance after "#"
// ("VerCols#12"): the part before it selects the factory, and each whole name has one window.
#pragma once

#include <QObject>
#include <QStringList>
#include <concepts>
#include <functional>
#include <map>
#include <vector>

#include "core/ventanas/marco/Puerta.h"
#include "core/ventanas/marco/Ventana.h"

namespace tarvo::ventanas {

class Ventanas final : public QObject {
  Q_OBJECT
 public:
  ~Ventanas() override;
  void ponerContexto(Contexto& contexto) { contexto_ = &contexto; }

  // Registers the window V of a door P, with its engines: lvalues outlive it, others are kept. Its
  // constructor takes the context, its whole name and the engines. V has
  // `Resultado<> entrar(const P&)`, called at every opening, also of a window already loaded; a
  // failure is shown, and a window not yet loaded isn't opened.
  template <EsPuerta P, class V, class... Motores>
  void registrar(Motores&&... motores) {
    registradas_[QStringView(P::kNombre).toString()] = {
        [dados = std::tuple<Motores...>(std::forward<Motores>(motores)...)](
            Contexto& c, const QString& nombre) -> Ventana* {
          return std::apply([&](auto&... m) { return new V(c, nombre, m...); }, dados);
        },
        [](Ventana& v, const std::any& puerta) {
          const P* dada = std::any_cast<P>(&puerta);
          return static_cast<V&>(v).entrar(dada ? *dada : P());
        },
        {}};
  }
  // Sets the door with which its window is opened by name alone, instead of a default-constructed
  // one: itself, or what makes it at the first such opening.
  template <EsPuerta P>
  void ponerMuestra(const P& puerta) {
    ponerMuestra([puerta] { return puerta; });
  }
  template <std::invocable H>
    requires EsPuerta<std::invoke_result_t<H>>
  void ponerMuestra(const H& hacerla) {
    const QString nombre = QStringView(std::invoke_result_t<H>::kNombre).toString();
    registradas_[nombre].muestra = [hacerla] { return std::any(hacerla()); };
  }
  bool conoce(const QString& nombre) const;
  template <EsPuerta P>
  bool conoce() const {
    return conoce(QStringView(P::kNombre).toString());
  }
  QStringList nombres() const;  // all registered names, sorted

  // Creates the window on its first use, with the sample of its door, and shows it on top of its
  // owner. Null if the name is unknown or it couldn't be entered; the failure is shown on the
  // owner's strip, or in a box. For names that come from outside: the command line.
  Ventana* abrir(const QString& nombre, QWidget* dueno = nullptr) {
    return mostrar(nombre, dueno, {});
  }
  // The window of a door. Null as above.
  template <EsPuerta P>
  Ventana* abrir(const P& puerta, QWidget* dueno = nullptr) {
    return mostrar(nombreDe(puerta), dueno, puerta);
  }
  // The same, modal: returns its result, nothing if it was abandoned. For a door without a result,
  // whether it was accepted.
  template <EsPuerta P>
  auto preguntar(const P& puerta, QWidget* dueno) {
    std::any salida;
    const bool aceptada = correr(nombreDe(puerta), dueno, puerta, salida);
    if constexpr (ConSalida<P>) {
      auto* dada = std::any_cast<typename P::Salida>(&salida);
      return dada ? std::optional(std::move(*dada)) : std::nullopt;
    } else {
      return aceptada;
    }
  }

  Ventana* cargada(const QString& nombre) const;  // null if it isn't loaded
  // The Recorrido of that window; null if it isn't loaded, or has none.
  Recorrido* recorrido(const QString& nombre) const {
    Ventana* v = cargada(nombre);
    return v ? v->recorrido() : nullptr;
  }
  template <EsPuerta P>
  Ventana* cargada(const P& puerta = {}) const {
    return cargada(nombreDe(puerta));
  }
  std::vector<Ventana*> abiertas() const;  // in the order of creation
  // False if it refused; true if it was unloaded or wasn't loaded.
  bool descargar(const QString& nombre);
  template <EsPuerta P>
  bool descargar(const P& puerta = {}) {
    return descargar(nombreDe(puerta));
  }
  // Unloads "gestcomm" first, then every other window except "Cronos" and `menos`. True refuses the
  // closing of the main window: a window stayed, and those not asked yet stay too.
  bool DescargaTodo(const Ventana* menos = nullptr);

 Q_SIGNALS:
  void abierta(tarvo::ventanas::Ventana* ventana);
  void descargada(const QString& nombre);
  void vacio();  // the last window has been unloaded

 private:
  Ventana* hacer(const QString& nombre, QWidget* dueno, const std::any& puerta);
  Ventana* mostrar(const QString& nombre, QWidget* dueno, const std::any& puerta);
  bool correr(const QString& nombre, QWidget* dueno, const std::any& puerta, std::any& salida);
  void quitar(const QString& nombre);

  struct Entrada {
    std::function<Ventana*(Contexto&, const QString&)> fabrica;
    std::function<Resultado<>(Ventana&, const std::any&)> entrar;
    std::function<std::any()> muestra = {};  // of its door
  };
  Contexto* contexto_ = nullptr;
  std::map<QString, Entrada> registradas_;
  std::vector<Ventana*> abiertas_;
  std::vector<QPointer<Ventana>> idas_;  // unloaded, not yet deleted
};

template <class P>
Ventana* Ventana::abrir(const P& puerta) {
  return c_.ventanas.abrir(puerta, this);
}

template <class P>
auto Ventana::preguntar(const P& puerta) {
  return c_.ventanas.preguntar(puerta, this);
}

}  // namespace tarvo::ventanas
