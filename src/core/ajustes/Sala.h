// How a room adds its settings: a plain struct whose values are the defaults, and a table of its
// keys.
//
//     struct AjustesStock {
//       int DiasInventario = 30;
//     };
//
//     SalaDeAjustes ajustesStock() {
//       return salaDeAjustes(AjustesStock(), {
//         clavePropia<&AjustesStock::DiasInventario, ini::leer16>(1303, u"DíasInventario"),
//       });
//     }
//
// src/app/AjustesSalas.cpp lists the room; the users of its settings call
// ajustes.de<AjustesStock>().
#pragma once

#include "core/ajustes/ValorIni.h"

namespace tarvo {

inline constexpr Limites kSinIndice{-1, -1};

// A key. `sitio` is its place in the file: unique, with a blank line between the hundreds.
// docs/formatos.md lists the places.
template <class T>
struct ClaveDe {
  int sitio;
  const char16_t* nombre;
  // Returns false for a value that it doesn't understand whole, which then stays in the file as it
  // was written, and is named; the setting keeps its value, or takes the number with which it
  // begins.
  bool (*leer)(T&, int indice, const QString& valor);
  QString (*escribir)(const T&, int indice, Idioma idioma);
  Limites indices = kSinIndice;                       // the numbers in brackets; a line for each
  bool (*seEscribe)(const T&, int indice) = nullptr;  // null: always
};

template <class M>
struct SalaDelCampo;
template <class T, class V>
struct SalaDelCampo<V T::*> {
  using Tipo = T;
};

// The key of a member, by one of the readers and one of the writers of ValorIni.h.
template <auto kCampo, auto kLeer, auto kEscribir = ini::verEntero>
constexpr auto clave(int sitio, const char16_t* nombre) {
  using T = typename SalaDelCampo<decltype(kCampo)>::Tipo;
  return ClaveDe<T>{sitio, nombre, [](T& t, int, const QString& v) { return kLeer(v, t.*kCampo); },
                    [](const T& t, int, Idioma) { return kEscribir(t.*kCampo); }};
}

// A key of this program alone: written only if it differs from its default.
template <auto kCampo, auto kLeer, auto kEscribir = ini::verEntero>
constexpr auto clavePropia(int sitio, const char16_t* nombre) {
  auto propia = clave<kCampo, kLeer, kEscribir>(sitio, nombre);
  using T = typename SalaDelCampo<decltype(kCampo)>::Tipo;
  propia.seEscribe = [](const T& t, int) { return t.*kCampo != T().*kCampo; };
  return propia;
}

template <class T, class A>
auto& parteDe(A& ajustes) {
  if constexpr (std::is_same_v<T, Ajustes>)
    return ajustes;
  else
    return ajustes.template de<T>();
}

template <class T>
ClaveIni claveIni(const ClaveDe<T>& c) {
  ClaveIni clave{
      .sitio = c.sitio,
      .nombre = QString::fromUtf16(c.nombre),
      .indices = c.indices,
      .leer = [f = c.leer](Ajustes& a, int i, const QString& v) { return f(parteDe<T>(a), i, v); },
      .escribir = [f = c.escribir](const Ajustes& a,
                                   int i) { return f(parteDe<T>(a), i, a.idioma); },
      .seEscribe = nullptr};
  if (c.seEscribe)
    clave.seEscribe = [f = c.seEscribe](const Ajustes& a, int i) { return f(parteDe<T>(a), i); };
  return clave;
}

// Called before and after the lines of a file are read: lists begin empty.
template <class T>
struct AlLeer {
  void (*antes)(T&) = nullptr;
  void (*despues)(T&) = nullptr;
};

template <class T>
SalaDeAjustes salaDeAjustes(T defectos, const std::vector<ClaveDe<T>>& claves,
                            AlLeer<T> alLeer = {}) {
  SalaDeAjustes sala{.valor = std::move(defectos), .claves = {}, .antesDeLeer = {}, .trasLeer = {}};
  sala.claves.reserve(claves.size());
  for (const ClaveDe<T>& c : claves) sala.claves.push_back(claveIni(c));
  if (alLeer.antes) sala.antesDeLeer = [f = alLeer.antes](Ajustes& a) { f(a.de<T>()); };
  if (alLeer.despues) sala.trasLeer = [f = alLeer.despues](Ajustes& a) { f(a.de<T>()); };
  return sala;
}

}  // namespace tarvo
