// The registry: how windows are made and reached, by name. A name may carry an instance behind "#"
// ("VerCols#12"): the factory is that of the part in front, and each whole name has one window.
#pragma once

#include <QObject>
#include <QStringList>
#include <functional>
#include <map>
#include <vector>

#include "core/ventanas/marco/Ventana.h"

namespace tarvo::ventanas {

class Ventanas final : public QObject {
  Q_OBJECT
 public:
  // Makes a window; `nombre` is the whole name, to be handed to Ventana's constructor.
  using Fabrica = std::function<Ventana*(Contexto& contexto, const QString& nombre)>;

  ~Ventanas() override;
  void setContexto(Contexto& contexto) { contexto_ = &contexto; }

  // `muestra`: arguments with which ./capturas opens it; a window that needs others can't be opened
  // by name alone.
  void registrar(const QString& nombre, Fabrica fabrica, Argumentos muestra = {});
  bool conoce(const QString& nombre) const;
  QStringList nombres() const;  // all registered, sorted
  const Argumentos& muestra(const QString& nombre) const;

  // Makes the window at its first naming, prepares it, shows it in front of its owner. Null when
  // the name is unknown or preparar() failed; the failure is shown on the owner's strip, or in a
  // box.
  Ventana* abrir(const QString& nombre, QWidget* dueno = nullptr,
                 const Argumentos& argumentos = {});
  // The same, modal; true when it was accepted.
  bool abrirModal(const QString& nombre, QWidget* dueno, const Argumentos& argumentos = {});

  Ventana* cargada(const QString& nombre) const;  // null when it isn't loaded
  std::vector<Ventana*> abiertas() const;         // in the order of their making
  // False when it refused; true when it went or wasn't loaded.
  bool descargar(const QString& nombre);
  // Unloads "gestcomm" first, then every other window but "Cronos" and `menos`. True refuses the
  // closing of the main window: a window stayed, and those that had not been asked yet stay too.
  bool DescargaTodo(const Ventana* menos = nullptr);

 Q_SIGNALS:
  void abierta(tarvo::ventanas::Ventana* ventana);
  void descargada(const QString& nombre);
  void vacio();  // the last window has gone

 private:
  Ventana* hacer(const QString& nombre, QWidget* dueno, const Argumentos& argumentos);
  void quitar(const QString& nombre);

  struct Entrada {
    Fabrica fabrica;
    Argumentos muestra;
  };
  Contexto* contexto_ = nullptr;
  std::map<QString, Entrada> registradas_;
  std::vector<Ventana*> abiertas_;
  std::vector<QPointer<Ventana>> idas_;  // unloaded, not yet deleted
};

// A factory for a window that takes these engines, which outlive it.
template <class V, class... Motores>
Ventanas::Fabrica fabrica(Motores&... motores) {
  return [&motores...](Contexto& c, const QString& nombre) { return new V(c, nombre, motores...); };
}

}  // namespace tarvo::ventanas
