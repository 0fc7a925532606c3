// TARVO.INI as a text: the keys of all rooms, in the order of their places.
#include <algorithm>
#include <set>

#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ficheros.h"
#include "core/ajustes/Ini.h"

namespace tarvo {

namespace {

constexpr size_t kDudas = 100;
constexpr qsizetype kLargoDuda = 80;
constexpr int kParrafo = 100;  // places between two blank lines

QString renglon(const QString& nombre, const QString& valor) {
  return nombre + QStringLiteral("= ") + ini::enUnaLinea(valor) + QStringLiteral("\r\n");
}

QString nombreDe(const ClaveIni& clave, int indice) {
  return indice < 0 ? clave.nombre : QStringLiteral("%1(%2)").arg(clave.nombre).arg(indice);
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
  rechazados_.clear();
  baseNombrada = monedaLeida = false;
  std::set<std::pair<QString, int>> aceptadas;
  ini::recorrer(texto, [&](const ini::Linea& linea) { leerLinea(linea, aceptadas); });
  for (const auto& rematar : trasLeer_) rematar(*this);
  for (auto& [donde, r] : rechazados_)
    r.vale = escrito(*claveDe(donde.first, donde.second), donde.second);
}

// What the file gets of a key; empty for one that isn't written.
QString Ajustes::escrito(const ClaveIni& clave, int indice) const {
  const bool va = !clave.seEscribe || clave.seEscribe(*this, indice);
  return va ? clave.escribir(*this, indice) : QString();
}

const ClaveIni* Ajustes::claveDe(const QString& clave, int indice) const {
  const auto c = std::ranges::find_if(claves_, [&](const ClaveIni& otra) {
    return otra.indices.admite(indice) && otra.nombre.compare(clave, Qt::CaseInsensitive) == 0;
  });
  return c == claves_.end() ? nullptr : &*c;
}

void Ajustes::leerLinea(const ini::Linea& linea, std::set<std::pair<QString, int>>& aceptadas) {
  const ClaveIni* clave = claveDe(linea.clave, linea.indice);
  const std::pair donde{linea.clave, linea.indice};
  const bool repetida = aceptadas.contains(donde);
  const QString antes = repetida ? clave->escribir(*this, linea.indice) : QString();
  const bool entera = clave && clave->leer(*this, linea.indice, linea.valor);
  if (entera) {
    aceptadas.insert(donde);
    rechazados_.erase(donde);
  } else if (repetida) {
    clave->leer(*this, linea.indice, antes);  // of a repeated key the accepted line stays
  } else if (clave) {
    rechazados_[donde] = {.escrito = linea.valor, .vale = escrito(*clave, linea.indice)};
  }
  if (!entera && dudas.size() < kDudas)
    dudas.push_back({linea.entera.left(kLargoDuda),
                     clave ? clave->escribir(*this, linea.indice) : QString(), linea.clave});
}

void Ajustes::confirmar(const QString& clave) {
  std::erase_if(rechazados_, [&](const auto& r) { return r.first.first == clave.toUpper(); });
}

const QString* Ajustes::rechazado(const ClaveIni& clave, int indice) const {
  const auto r = rechazados_.find({clave.nombre.toUpper(), indice});
  const bool sigue = r != rechazados_.end() && escrito(clave, indice) == r->second.vale;
  return sigue ? &r->second.escrito : nullptr;
}

void Ajustes::ponerMonedaNativa(int moneda) {
  MonedaNativa = moneda;
  for (Duda& d : dudas)
    if (d.clave == u"MONEDANATIVA") d.vale = QString::number(moneda);
  for (auto& [donde, r] : rechazados_)
    if (donde.first == u"MONEDANATIVA") r.vale = QString::number(moneda);
}

QString Ajustes::escribir() const {
  return componer(renglones());
}

Ajustes::Renglones Ajustes::renglones() const {
  Renglones todos;
  for (const ClaveIni& c : claves_)
    for (int i = c.indices.menor; i <= c.indices.mayor; ++i) {
      const QString* suyo = rechazado(c, i);
      if (!suyo && c.seEscribe && !c.seEscribe(*this, i)) continue;
      todos[{c.nombre.toUpper(), i}] = suyo ? *suyo : c.escribir(*this, i);
    }
  return todos;
}

// As this program would write the lines of the text.
Ajustes::Renglones Ajustes::renglonesDe(const QString& texto) const {
  Ajustes leidos(*this);
  leidos.leer(texto);
  return losDelTexto(leidos.renglones(), texto);
}

// Those whose keys the text has.
Ajustes::Renglones Ajustes::losDelTexto(const Renglones& todos, const QString& texto) {
  Renglones estan;
  ini::recorrer(texto, [&](const ini::Linea& l) {
    if (const auto suyo = todos.find({l.clave, l.indice}); suyo != todos.end()) estan.insert(*suyo);
  });
  return estan;
}

Ajustes::Renglones Ajustes::delFichero(const QByteArray& bytes) const {
  if (ultimo_ && ultimo_->bytes == bytes) return ultimo_->delFichero;
  return renglonesDe(ficheros::descodificar(bytes));
}

QString Ajustes::componer(const Renglones& renglones) const {
  QString texto;
  int parrafo = claves_.front().sitio / kParrafo;
  for (const ClaveIni& c : claves_) {
    if (c.sitio / kParrafo != parrafo) texto += QStringLiteral("\r\n");
    parrafo = c.sitio / kParrafo;
    for (int i = c.indices.menor; i <= c.indices.mayor; ++i) {
      const auto suyo = renglones.find({c.nombre.toUpper(), i});
      if (suyo != renglones.end()) texto += renglon(nombreDe(c, i), suyo->second);
    }
  }
  return texto;
}

// Ours of the keys that this program has changed, those of the text of the keys that only others
// have; a key that it lacks stays, as another program may be writing the file right now. REQUIRES
// that the file has been read or written.
Ajustes::Renglones Ajustes::juntar(const Renglones& ahora, const Renglones& suyos,
                                   std::vector<Pisada>& perdidas) const {
  const auto en = [](const Renglones& r, const Renglones::key_type& clave) {
    const auto hallado = r.find(clave);
    return hallado == r.end() ? std::nullopt : std::optional(hallado->second);
  };
  Renglones todos;
  for (const ClaveIni& c : claves_)
    for (int i = c.indices.menor; i <= c.indices.mayor; ++i) {
      const Renglones::key_type clave{c.nombre.toUpper(), i};
      const auto nuestro = en(ahora, clave), suyo = en(suyos, clave);
      const bool cambiado = nuestro != en(ultimo_->nuestros, clave);
      if (cambiado && suyo && suyo != en(ultimo_->delFichero, clave) && suyo != nuestro)
        perdidas.push_back({nombreDe(c, i), *suyo, nuestro.value_or(QString())});
      if (const auto& vale = suyo && !cambiado ? suyo : nuestro) todos[clave] = *vale;
    }
  return todos;
}

// Those that this program hasn't changed itself, by their names in the file. REQUIRES as above.
QStringList Ajustes::ajenos(const Renglones& suyos) const {
  const Renglones ahora = renglones();
  QStringList nombres;
  for (const auto& [clave, suyo] : suyos) {
    const auto nuestro = ahora.find(clave), antes = ultimo_->nuestros.find(clave);
    const bool hay = nuestro != ahora.end(), habia = antes != ultimo_->nuestros.end();
    const bool cambiado = hay != habia || (hay && nuestro->second != antes->second);
    const bool igual = hay && nuestro->second == suyo;
    if (!cambiado && !igual) nombres << nombreDe(*claveDe(clave.first, clave.second), clave.second);
  }
  return nombres;
}

}  // namespace tarvo
