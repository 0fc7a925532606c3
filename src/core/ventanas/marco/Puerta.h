// Doors: the arguments of a window and its result, as plain structs that any room of windows may
// include without linking the window. They are declared in the Puertas.h of its room.
//
//   struct PuertaEdiParms {
//     static constexpr QStringView kNombre = u"EdiParms";  // for the command line and the registry
//     using Salida = ParamCanal;  // the result; omitted if there is none
//     int numero = 1;
//     ParamCanal canal;
//   };
//
// A default-constructed door opens its window from the command line and for pictures. The door of a
// window with several instances has `QString instancia() const`; each instance has one window.
#pragma once

#include <QString>
#include <concepts>

namespace tarvo::ventanas {

template <class P>
concept EsPuerta = std::default_initializable<P> && std::copyable<P> && requires {
  { P::kNombre } -> std::convertible_to<QStringView>;
};

template <class P>
concept ConSalida = EsPuerta<P> && requires { typename P::Salida; };

template <EsPuerta P>
QString nombreDe(const P& puerta) {
  QString nombre = QStringView(P::kNombre).toString();
  if constexpr (requires { puerta.instancia(); })
    if (const QString cual = puerta.instancia(); !cual.isEmpty()) nombre += u'#' + cual;
  return nombre;
}

}  // namespace tarvo::ventanas
