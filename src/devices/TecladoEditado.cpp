#include "devices/TecladoEditado.h"

#include <algorithm>

#include "core/textos/Textos.h"
#include "devices/TextosDevices.h"

namespace tarvo::devices {

namespace {

constexpr qint64 kArticuloMayorEbony = 999'999;
constexpr int kBaseDirectos = 20;  // the code of direct PLU n is 20 + n, in every language

}  // namespace

TecladoEditado::TecladoEditado(int modelo)
    : modelo_(modelo),
      comun_(modelo == kEbony ? 0 : TeclasDeFormulario(modelo)),
      ebony_(modelo == kEbony ? TeclasDeFormulario(modelo) : 0) {}

void TecladoEditado::leer(const TextosTeclado& t) {
  esEbony() ? ebony_.leer(t.Teclado) : comun_.leer(t);
  hardplu_ = t.HARDPLU;
  tarasme_ = t.TARASME;
}

TextosTeclado TecladoEditado::escribir() const {
  return esEbony() ? TextosTeclado{ebony_.escribir(), hardplu_, tarasme_} : comun_.escribir();
}

void TecladoEditado::mover(int de, int a) {
  if (!esEbony()) return comun_.mover(de, a);
  if (de == a) return;
  ebony_.tecla(a, ebony_.tecla(de));
  ebony_.tecla(de, {});
}

void TecladoEditado::anular(int tecla) {
  esEbony() ? ebony_.tecla(tecla, {}) : comun_.codigo(tecla, kTeclaNula);
}

bool TecladoEditado::nula(int tecla) const {
  return esEbony() ? ebony_.tecla(tecla).tipo == TecladoEbony::Tipo::Nulo
                   : comun_.codigo(tecla) == kTeclaNula;
}

int TecladoEditado::directo(int tecla) const {
  const int n = comun_.codigo(tecla) - kBaseDirectos;
  return n >= 1 && n <= kPlusDirectos ? n : 0;
}

std::optional<qint64> TecladoEditado::articulo(int tecla) const {
  if (esEbony()) {
    const auto& k = ebony_.tecla(tecla);
    return k.tipo == TecladoEbony::Tipo::PluDirecto && k.valor > 0 ? std::optional(k.valor)
                                                                   : std::nullopt;
  }
  const int n = directo(tecla);
  return n > 0 ? comun_.articulo(n) : std::nullopt;
}

std::set<qint64> TecladoEditado::articulos() const {
  std::set<qint64> todos;
  for (int tecla = 1; tecla <= teclas(); ++tecla)
    if (const auto a = articulo(tecla)) todos.insert(*a);
  for (int n = 1; !esEbony() && n <= kPlusDirectos; ++n)
    if (const auto a = comun_.articulo(n)) todos.insert(*a);
  return todos;
}

// One that no key uses: the first without an article, else the first; 0 if there is none.
int TecladoEditado::directoLibre() const {
  std::set<int> usados;
  for (int tecla = 1; tecla <= teclas(); ++tecla) usados.insert(directo(tecla));
  int libre = 0;
  for (int n = kPlusDirectos; n >= 1; --n)
    if (!usados.contains(n) && (!comun_.articulo(n) || libre == 0 || comun_.articulo(libre)))
      libre = n;
  return libre;
}

Resultado<> TecladoEditado::vender(int tecla, qint64 articulo, const Textos& textos) {
  if (articulo < kPrimerArticuloDeTecla) return fallo(Fallo::Restriccion, textos(kTxNoVaEnTecla));
  if (esEbony()) {
    if (articulo > kArticuloMayorEbony)
      return fallo(Fallo::Restriccion, textos(kTxNoCabeEnTecla, {articulo}));
    ebony_.tecla(tecla, {TecladoEbony::Tipo::PluDirecto, articulo});
    return {};
  }
  int n = directo(tecla);
  for (int otra = 1; n > 0 && otra <= teclas(); ++otra)
    if (otra != tecla && directo(otra) == n) n = 0;
  if (n == 0) n = directoLibre();
  if (n == 0) return fallo(Fallo::Restriccion, textos(kTxSinPluDirecto));
  comun_.codigo(tecla, kBaseDirectos + n);
  comun_.articulo(n, articulo);
  return {};
}

TecladoEditado::Relleno TecladoEditado::rellenar(std::span<const qint64> lista,
                                                 const std::set<qint64>& existen,
                                                 const Textos& textos) {
  std::set<qint64> puestos;
  std::vector<int> libres;
  for (int tecla = 1; tecla <= teclas(); ++tecla) {
    const auto a = articulo(tecla);
    const bool directa =
        esEbony() ? !nula(tecla) && ebony_.tecla(tecla).tipo == TecladoEbony::Tipo::PluDirecto
                  : directo(tecla) > 0;
    if (a && *a >= kPrimerArticuloDeTecla && existen.contains(*a))
      puestos.insert(*a);
    else if (directa || nula(tecla))
      libres.push_back(tecla);
  }
  Relleno r;
  auto libre = libres.begin();
  for (const qint64 a : lista) {
    if (puestos.contains(a)) continue;
    if (libre != libres.end() && vender(*libre, a, textos)) {
      ++libre;
      ++r.puestos;
    } else {
      ++r.noCaben;
    }
  }
  return r;
}

}  // namespace tarvo::devices
