#include "app/AjustesPersonal.h"

#include "core/ajustes/Sala.h"

namespace tarvo::app {

namespace {

using A = AjustesPersonal;

constexpr Limites kPersonales{1, 200};

bool leerPersonal(A& a, int indice, const QString& v) {
  const auto sitio = static_cast<size_t>(indice);
  const qsizetype barra = v.indexOf(u'|');
  // An entry without its process could not be run.
  if (barra < 0 || v.sliced(barra + 1).trimmed().isEmpty()) return false;
  if (a.personal.size() < sitio) a.personal.resize(sitio);
  a.personal[sitio - 1] = {v.left(barra), v.mid(barra + 1)};
  return true;
}

bool hayPersonal(const A& a, int indice) {
  return static_cast<size_t>(indice) <= a.personal.size();
}

QString escribirPersonal(const A& a, int indice, Idioma) {
  if (!hayPersonal(a, indice)) return {};
  const Personal& p = a.personal[static_cast<size_t>(indice) - 1];
  return p.titulo + u'|' + p.proceso;
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
