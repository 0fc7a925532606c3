#include "automation/lenguaje/Parametros.h"

#include <QJsonDocument>
#include <QJsonObject>

#include "core/textos/Textos.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

// Steps whose free text may bear names, and the slot that it stands in.
int casillaDeTexto(const PasoProceso& p) {
  if (p.clase() == kSesion && p.verbo() == kCerrar) return 2;
  return p.clase() == kExportar ? 4 : 0;
}

void cambiarEnTexto(PasoProceso& p, int casilla, const QString& nombre, const QString& valor) {
  if (auto* t = std::get_if<QString>(&p.c[static_cast<size_t>(casilla)]))
    CambiaTexto(nombre, valor, *t);
}

void rellenarNumero(PasoProceso& p, const QString& nombre, qint64 n) {
  if (p.clase() == kTarea)
    for (size_t i = 1; i < p.c.size(); ++i)
      if (p.c[i] == Casilla(nombre)) p.c[i] = n;
  if (p.clase() == kSesion && p.verbo() == kCerrar) cambiarEnTexto(p, 2, nombre, Ceros(n, 4));
}

void rellenarTexto(PasoProceso& p, const QString& nombre, const QString& texto) {
  if (const int casilla = casillaDeTexto(p)) cambiarEnTexto(p, casilla, nombre, texto);
}

void rellenarFechas(PasoProceso& p, const QString& nombre, const std::pair<Fecha, Fecha>& fechas) {
  if (p.clase() != kSesion && p.clase() != kPeriodos) return;
  if (p.c[3] == Casilla(nombre)) p.c[3] = fechas.first;
  if (p.c[4] == Casilla(nombre)) p.c[4] = fechas.second;
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
  if (paso.clase() != kNoper) return std::nullopt;
  const QString t = paso.texto(1);
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
