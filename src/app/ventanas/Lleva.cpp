#include "app/ventanas/Lleva.h"

namespace tarvo::app {

QString ventanaDe(const Lleva& lleva) {
  return std::visit(
      []<class P>(const P& p) -> QString {
        if constexpr (std::is_same_v<P, std::monostate>)
          return {};
        else if constexpr (std::is_same_v<P, PorNombre>)
          return p.ventana;
        else
          return ventanas::nombreDe(p);
      },
      lleva);
}

ventanas::Ventana* abrirLo(ventanas::Ventanas& todas, const Lleva& lleva, QWidget* dueno) {
  return std::visit(
      [&]<class P>(const P& p) -> ventanas::Ventana* {
        if constexpr (std::is_same_v<P, std::monostate>)
          return nullptr;
        else if constexpr (std::is_same_v<P, PorNombre>)
          return todas.abrir(p.ventana, dueno);
        else
          return todas.abrir(p, dueno);
      },
      lleva);
}

}  // namespace tarvo::app
