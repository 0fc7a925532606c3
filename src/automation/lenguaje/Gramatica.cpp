#include "automation/lenguaje/Gramatica.h"

#include <algorithm>

namespace tarvo::automation {

namespace {

constexpr std::array<QStringView, 3> kVerbosSesion{u"ABRIR", u"OLVIDAR", u"CERRAR"};
constexpr std::array<QStringView, 1> kVerbosControl{u"ESPERA"};
constexpr std::array<QStringView, 9> kVerbosPeriodos{
    u"CREAR",    u"BORRAR", u"LIMPIAR", u"SELECCIONAR", u"SEL. ULTIMO",
    u"ACUMULAR", u"STOCK",  u"SUMAR",   u"DESACUMULAR"};
constexpr std::array<QStringView, 1> kVerbosExportar{u"TOTALIZA"};

}  // namespace

std::span<const QStringView> verbosDe(int clase) {
  switch (clase) {
    case kSesion:
      return kVerbosSesion;
    case kControl:
      return kVerbosControl;
    case kPeriodos:
      return kVerbosPeriodos;
    case kExportar:
      return kVerbosExportar;
    default:
      return {};
  }
}

int numeroVerbo(int clase, QStringView verbo) {
  const auto verbos = verbosDe(clase);
  const auto it = std::ranges::find(verbos, verbo);
  return it == verbos.end() ? 0 : static_cast<int>(it - verbos.begin()) + 1;
}

bool llevaRango(int tarea) {
  return tarea == 1 || tarea == 11 || tarea == 16;
}
bool llevaInforme(int tarea) {
  return tarea == 6;
}

QStringView cortar(QStringView& resto, QChar corte) {
  const auto en = resto.indexOf(corte);
  const QStringView campo = en < 0 ? resto : resto.first(en);
  resto = en < 0 ? QStringView() : resto.sliced(en + 1).trimmed();
  return campo.trimmed();
}

QString palabraClase(int clase) {
  static constexpr std::array<QStringView, 7> palabras{
      u"", u"TAREA", u"SESIÓN", u"CONTROL", u"PERIODOS", u"EXPORTAR", u"NOPER"};
  return clase > 0 && clase < 7 ? palabras[static_cast<size_t>(clase)].toString() : QString();
}

int PasoProceso::clase() const {
  return static_cast<int>(numero(0));
}
int PasoProceso::verbo() const {
  return static_cast<int>(numero(1));
}

qint64 PasoProceso::numero(int casilla) const {
  const auto* n = std::get_if<qint64>(&c[static_cast<size_t>(casilla)]);
  return n ? *n : 0;
}

bool PasoProceso::logico(int casilla) const {
  const auto* b = std::get_if<bool>(&c[static_cast<size_t>(casilla)]);
  return b && *b;
}

QString PasoProceso::texto(int casilla) const {
  const auto* t = std::get_if<QString>(&c[static_cast<size_t>(casilla)]);
  return t ? *t : QString();
}

}  // namespace tarvo::automation
