// The prices of an article: a row a tarifa, a column a level, a field each. Keys: the arrows up and
// down and Tab move among them; what Enter does is its owner's. What is typed counts once the field
// is left; Escape gives it up before. A text that is no price, or that couldn't be written, stays
// in its field, marked, and fallo() says why.
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
  // So many levels and tarifas, all empty. Called again it starts over.
  void preparar(ventanas::Contexto& contexto, int niveles = articles::kNiveles,
                int tarifas = articles::kTarifas);

  // Writes another price that a person typed. Without it a price only stands in its field.
  using Escribir = std::function<Resultado<>(Celda celda, qint64 precio)>;
  void alEscribir(Escribir escribir) { escribir_ = std::move(escribir); }

  // In place of whatever is there, also of what is typed and not written.
  void poner(const articles::Precios& precios);
  void poner(Celda celda, qint64 precio);
  void limpiar();
  // As the fields stand; those that aren't shown, are empty or can't be read are 0.
  articles::Precios precios() const;
  bool vale() const;   // all can be read
  bool vacia() const;  // nothing stands in them
  // The field in which something is typed that isn't written.
  std::optional<Celda> pendiente() const;
  // Writes it, as leaving the field does; false when it stays.
  bool terminar();

  Celda actual() const { return actual_; }
  // Without the focus; it is shown among the others while `marcada`. One that there isn't is none.
  void ponerActual(Celda celda);
  void ponerMarcada(bool marcada);
  void irA(Celda celda);  // the focus goes there, all of it selected
  bool tieneFoco() const;
  QWidget* ultimo() const { return ultimo_; }  // in the order of the tab key

 Q_SIGNALS:
  void entrada(tarvo::precios::Celda celda);  // the focus came to another cell
  void intro(tarvo::precios::Celda celda);    // Enter, once the price is written
  void fallo(tarvo::precios::Celda celda, const tarvo::Error& error);
  void resuelto();  // after it: another price was typed, or it was given up

 private:
  std::expected<qint64, FaltaPrecio> leer(const QString& texto) const;
  struct Casilla {
    QLineEdit* campo = nullptr;
    qint64 precio = 0;
    QString texto;  // as it was put
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

// What it refuses, on the strip of its window until it is settled.
void decirLoDe(MatrizPrecios& matriz, ventanas::Ventana& ventana);

}  // namespace tarvo::precios
