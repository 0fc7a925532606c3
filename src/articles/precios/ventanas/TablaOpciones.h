// Rows of a name and three options, exactly one of which is set.
#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "core/textos/Textos.h"
#include "core/ventanas/edicion/Campo.h"

class QButtonGroup;

namespace tarvo::precios {

class TablaOpciones final : public QWidget {
  Q_OBJECT
 public:
  explicit TablaOpciones(QWidget* padre = nullptr) : QWidget(padre) {}
  // The text numbers of the first name and of the first option; the others follow.
  void preparar(const Textos& textos, int nombres, int cuantas, int opciones);
  void poner(int fila, int opcion);
  int valor(int fila) const;  // 0 to 2
  void enfocar(int fila);     // moves the focus to its current option
  int filas() const { return static_cast<int>(filas_.size()); }

  // Creates a field of a sheet bound to it; `donde` has one value per row.
  template <class T, std::size_t N>
  ventanas::Campo* campo(std::array<T, N>& donde) {
    auto* c = new ventanas::CampoVivo(*this, nullptr,
                                      {.estado =
                                           [this] {
                                             QString todas;
                                             for (int i = 0; i < filas(); ++i)
                                               todas += QString::number(valor(i));
                                             return todas;
                                           },
                                       .aControl =
                                           [this, &donde] {
                                             for (int i = 0; i < filas(); ++i)
                                               poner(i, static_cast<int>(donde[std::size_t(i)]));
                                           },
                                       .aMiembro =
                                           [this, &donde] {
                                             for (int i = 0; i < filas(); ++i)
                                               donde[std::size_t(i)] = static_cast<T>(valor(i));
                                           }});
    connect(this, &TablaOpciones::cambiada, c, &ventanas::CampoVivo::haCambiado);
    setFocusProxy(primero_);
    return c;
  }

 Q_SIGNALS:
  void cambiada();

 private:
  std::vector<QButtonGroup*> filas_;
  QWidget* primero_ = nullptr;
};

}  // namespace tarvo::precios
