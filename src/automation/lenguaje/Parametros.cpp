#include "automation/lenguaje/Parametros.h"

#include <QJsonDocument>
#include <QJsonObject>

#include "core/textos/Textos.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

// The free text of a step, which may contain names; null for a step without one.
QString* textoConNombres(PasoProceso& paso) {
  if (memoriza(paso)) return &std::get<PasoSesion>(paso).descripcion;
  auto* exportar = std::get_if<PasoExportar>(&paso);
  return exportar ? &exportar->fichero : nullptr;
}

template <class R, class V>
void rellenarReferencia(R& referencia, const QString& nombre, const V& valor) {
  if (referencia == R(nombre)) referencia = valor;
}

void rellenarNumero(PasoProceso& paso, const QString& nombre, qint64 n) {
  if (memoriza(paso)) CambiaTexto(nombre, Ceros(n, 4), std::get<PasoSesion>(paso).descripcion);
  auto* p = std::get_if<PasoTarea>(&paso);
  if (!p) return;
  rellenarReferencia(p->grupo, nombre, n);
  if (!p->rango) return;
  rellenarReferencia(p->rango->desde, nombre, n);
  rellenarReferencia(p->rango->hasta, nombre, n);
}

void rellenarTexto(PasoProceso& paso, const QString& nombre, const QString& texto) {
  if (QString* donde = textoConNombres(paso)) CambiaTexto(nombre, texto, *donde);
}

void rellenarFechas(PasoProceso& paso, const QString& nombre,
                    const std::pair<Fecha, Fecha>& fechas) {
  auto* p = std::get_if<PasoPeriodos>(&paso);
  if (!p) return;
  rellenarReferencia(p->desde, nombre, fechas.first);
  rellenarReferencia(p->hasta, nombre, fechas.second);
  if (p->descripcion == nombre) p->descripcion = fechas.first.corta();
}

QJsonValue aJson(const Respuesta& r) {
  if (const auto* n = std::get_if<qint64>(&r.valor)) return *n;
  if (const auto* t = std::get_if<QString>(&r.valor)) return *t;
  const auto& [desde, hasta] = std::get<2>(r.valor);
  return QJsonArray{desde.dias(), hasta.dias()};
}

std::optional<Respuesta> deJson(const QJsonObject& o) {
  const QString nombre = o.value(u"nombre").toString();
  const QJsonValue v = o.value(u"valor");
  if (nombre.size() != 2) return std::nullopt;
  if (v.isDouble()) return Respuesta{nombre, v.toInteger()};
  if (v.isString()) return Respuesta{nombre, v.toString()};
  const QJsonArray par = v.toArray();
  if (par.size() != 2) return std::nullopt;
  return Respuesta{nombre,
                   std::pair(Fecha::deDias(par[0].toDouble()), Fecha::deDias(par[1].toDouble()))};
}

}  // namespace

std::optional<Parametro> parametroDe(const PasoProceso& paso) {
  const auto* noper = std::get_if<PasoNoper>(&paso);
  if (!noper) return std::nullopt;
  const QString& t = noper->texto;
  if (t.size() < 3 || !QStringView(u"%$#").contains(t[0]) || t[2] != u',') return std::nullopt;
  return Parametro{t.left(2), t.mid(3).trimmed()};
}

void rellenar(std::vector<PasoProceso>& pasos, const Respuesta& respuesta) {
  for (auto& p : pasos) {
    if (const auto* n = std::get_if<qint64>(&respuesta.valor))
      rellenarNumero(p, respuesta.nombre, *n);
    else if (const auto* t = std::get_if<QString>(&respuesta.valor))
      rellenarTexto(p, respuesta.nombre, *t);
    else
      rellenarFechas(p, respuesta.nombre, std::get<2>(respuesta.valor));
  }
}

QString guardarRespuestas(const std::vector<Respuesta>& respuestas) {
  QJsonArray a;
  for (const auto& r : respuestas)
    a.append(QJsonObject{{u"nombre"_s, r.nombre}, {u"valor"_s, aJson(r)}});
  return QString::fromUtf8(QJsonDocument(a).toJson(QJsonDocument::Compact));
}

std::optional<std::vector<Respuesta>> recordarRespuestas(const QString& texto) {
  std::vector<Respuesta> respuestas;
  const auto a = QJsonDocument::fromJson(texto.toUtf8()).array();
  for (const QJsonValue v : a) {
    auto r = deJson(v.toObject());
    if (!r) return std::nullopt;
    respuestas.push_back(std::move(*r));
  }
  return respuestas;
}

}  // namespace tarvo::automation
