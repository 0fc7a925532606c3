#include "app/AjustesPersonal.h"

#include "core/ajustes/Sala.h"

namespace tarvo::app {

namespace {

using A = AjustesPersonal;

constexpr Limites kPersonales{1, 200};

bool leerPersonal(A& a, int indice, const QString& v) {
  const auto sitio = static_cast<size_t>(indice);
  if (a.personal.size() < sitio) a.personal.resize(sitio);
  const qsizetype barra = v.indexOf(u'|');
  a.personal[sitio - 1] = barra < 0 ? Personal{v, {}} : Personal{v.left(barra), v.mid(barra + 1)};
  return true;
}

QString escribirPersonal(const A& a, int indice, Idioma) {
  const Personal& p = a.personal[static_cast<size_t>(indice) - 1];
  return p.titulo + u'|' + p.proceso;
}

bool hayPersonal(const A& a, int indice) {
  return static_cast<size_t>(indice) <= a.personal.size();
}

void quitarHuecos(A& a) {
  std::erase_if(a.personal,
                [](const Personal& p) { return p.titulo.isEmpty() && p.proceso.isEmpty(); });
}

}  // namespace

SalaDeAjustes ajustesPersonal() {
  return salaDeAjustes(
      A(), {{1300, u"Personal", leerPersonal, escribirPersonal, kPersonales, hayPersonal}},
      {.antes = [](A& a) { a.personal.clear(); }, .despues = quitarHuecos});
}

}  // namespace tarvo::app
