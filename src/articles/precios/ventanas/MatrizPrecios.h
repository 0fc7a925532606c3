// The prices of an article: a row per tarifa, a column per level, a field for each. The arrows up
// and down and Tab move between fields; Enter is handled by the owner. A text counts once its field
// is left; before that, Escape restores the former one. A text that isn't a price, or that couldn't
// be stored, remains in its field, marked, and fallo() gives the reason.
#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "articles/precios/Limites.h"
#include "articles/precios/ParrillaRapida.h"
#include "core/ventanas/marco/Ventana.h"

class QGridLayout;
class QLineEdit;

namespace tarvo::precios {

class MatrizPrecios final : public QWidget {
  Q_OBJECT
 public:
  explicit MatrizPrecios(QWidget* padre = nullptr);
  // Creates that many levels and tarifas, all empty. Calling it again starts over.
  void preparar(ventanas::Contexto& contexto, int niveles = articles::kNiveles,
                int tarifas = articles::kTarifas);

  // Stores a changed price typed by the user. Without it a price only exists in its field.
  using Escribir = std::function<Resultado<>(Celda celda, qint64 precio)>;
  void alEscribir(Escribir escribir) { escribir_ = std::move(escribir); }

  // Replaces the contents of the fields, including pending texts.
  void poner(const articles::Precios& precios);
  void poner(Celda celda, qint64 precio);
  void limpiar();
  // The prices in the fields; hidden, empty and invalid ones are 0.
  articles::Precios precios() const;
  bool vale() const;   // all fields are valid
  bool vacia() const;  // all fields are empty
  // The field with a text that isn't stored yet.
  std::optional<Celda> pendiente() const;
  // Stores that text, as leaving the field does; false if it is refused.
  bool terminar();

  Celda actual() const { return actual_; }
  // Sets the current cell without moving the focus; it is highlighted after `ponerMarcada(true)`. A
  // cell outside the matrix is ignored.
  void ponerActual(Celda celda);
  void ponerMarcada(bool marcada);
  void irA(Celda celda);  // moves the focus there and selects the text
  bool tieneFoco() const;
  QWidget* ultimo() const { return ultimo_; }  // in the tab order

 Q_SIGNALS:
  void entrada(tarvo::precios::Celda celda);  // the focus has moved to another cell
  void intro(tarvo::precios::Celda celda);    // Enter, once the price is stored
  void fallo(tarvo::precios::Celda celda, const tarvo::Error& error);
  void resuelto();  // after fallo(): another price was typed, or it was given up

 private:
  std::expected<qint64, FaltaPrecio> leer(const QString& texto) const;
  struct Casilla {
    QLineEdit* campo = nullptr;
    qint64 precio = 0;
    QString texto;  // as set
  };
  Casilla& casilla(Celda c) {
    return casillas_[static_cast<size_t>(c.nivel)][static_cast<size_t>(c.tarifa)];
  }
  const Casilla& casilla(Celda c) const { return const_cast<MatrizPrecios*>(this)->casilla(c); }
  template <class F>
  void cadaCelda(F hacer) const {
    for (int nivel = 0; nivel < niveles_; ++nivel)
      for (int tarifa = 0; tarifa < tarifas_; ++tarifa) hacer(Celda{nivel, tarifa});
  }
  void hacerCampo(QGridLayout& cuadricula, Celda celda);
  void mostrar(Celda celda, qint64 precio, const QString& texto);
  bool terminar(Celda celda);
  bool queda(Celda celda, const QString& dicho, const Error& error);
  bool renunciar(Celda celda);
  void resolver();
  void pintarActual();
  bool eventFilter(QObject* objeto, QEvent* evento) override;
  bool tecla(Celda celda, int tecla);
  bool subirOBajar(Celda celda, int pasos);

  ventanas::Contexto* c_ = nullptr;
  std::array<std::array<Casilla, articles::kTarifas>, articles::kNiveles> casillas_{};
  Escribir escribir_;
  QWidget* ultimo_ = nullptr;
  int niveles_ = 0, tarifas_ = 0;
  bool rechazado_ = false, marcada_ = false;
  Celda actual_;
};

// Shows its failures on the strip of the window until they are resolved.
void decirLoDe(MatrizPrecios& matriz, ventanas::Ventana& ventana);

}  // namespace tarvo::precios
