// TARVO.INI as a text: the keys of all rooms, in the order of their places.
#include <algorithm>
#include <set>

#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ini.h"

namespace tarvo {

namespace {

constexpr size_t kDudas = 100;
constexpr qsizetype kLargoDuda = 80;
constexpr int kParrafo = 100;  // places between two blank lines

QString renglon(const QString& nombre, const QString& valor) {
  return nombre + QStringLiteral("= ") + ini::enUnaLinea(valor) + QStringLiteral("\r\n");
}

}  // namespace

void Ajustes::faltaSala(const char* tipo) {
  qFatal("ajustes de una sala que no se ha nombrado: %s", tipo);
}

void Ajustes::ponerSala(const SalaDeAjustes& sala) {
  for (const std::any& otra : deLasSalas_)
    if (otra.type() == sala.valor.type())
      qFatal("ajustes de una sala nombrados dos veces: %s", otra.type().name());
  deLasSalas_.push_back(sala.valor);
  claves_.insert(claves_.end(), sala.claves.begin(), sala.claves.end());
  if (sala.antesDeLeer) antesDeLeer_.push_back(sala.antesDeLeer);
  if (sala.trasLeer) trasLeer_.push_back(sala.trasLeer);
}

void Ajustes::ordenarClaves() {
  std::ranges::sort(claves_, {}, &ClaveIni::sitio);
  const auto vecina = std::ranges::adjacent_find(claves_, {}, &ClaveIni::sitio);
  if (vecina != claves_.end()) qFatal("dos ajustes en el sitio %d", vecina->sitio);
  std::set<std::pair<QString, int>> nombres;
  for (const ClaveIni& c : claves_)
    if (!nombres.emplace(c.nombre.toUpper(), c.indices.menor).second)
      qFatal("dos ajustes de un nombre: %s", qPrintable(c.nombre));
}

void Ajustes::leer(const QString& texto) {
  for (const auto& preparar : antesDeLeer_) preparar(*this);
  dudas.clear();
  monedaLeida = false;
  ini::recorrer(texto, [this](const ini::Linea& linea) {
    const auto clave = std::ranges::find_if(claves_, [&](const ClaveIni& c) {
      return c.indices.admite(linea.indice) && c.nombre.toUpper() == linea.clave;
    });
    const bool conocida = clave != claves_.end();
    const bool entera = conocida && clave->leer(*this, linea.indice, linea.valor);
    if (!entera && dudas.size() < kDudas)
      dudas.push_back({linea.entera.left(kLargoDuda),
                       conocida ? clave->escribir(*this, linea.indice) : QString(), linea.clave});
  });
  for (const auto& rematar : trasLeer_) rematar(*this);
}

void Ajustes::ponerMonedaNativa(int moneda) {
  MonedaNativa = moneda;
  for (Duda& d : dudas)
    if (d.clave == u"MONEDANATIVA") d.vale = QString::number(moneda);
}

QString Ajustes::escribir() const {
  QString texto;
  int parrafo = claves_.front().sitio / kParrafo;
  for (const ClaveIni& c : claves_) {
    if (c.sitio / kParrafo != parrafo) texto += QStringLiteral("\r\n");
    parrafo = c.sitio / kParrafo;
    for (int i = c.indices.menor; i <= c.indices.mayor; ++i) {
      if (c.seEscribe && !c.seEscribe(*this, i)) continue;
      const QString nombre = i < 0 ? c.nombre : QStringLiteral("%1(%2)").arg(c.nombre).arg(i);
      texto += renglon(nombre, c.escribir(*this, i));
    }
  }
  return texto;
}

}  // namespace tarvo
