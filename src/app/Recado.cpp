#include "app/Recado.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tarvo::app {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kAlzar("alzar"), kProceso("proceso"), kParar("parar");
constexpr int kEstadoMayor = 255;

QByteArray enLinea(const QJsonObject& o) {
  return QJsonDocument(o).toJson(QJsonDocument::Compact) + '\n';
}

QStringList textos(const QJsonValue& v) {
  QStringList lista;
  for (const auto& uno : v.toArray()) lista << uno.toString();
  return lista;
}

QJsonObject objeto(const QByteArray& linea) {
  return linea.size() > kMayorRecado ? QJsonObject() : QJsonDocument::fromJson(linea).object();
}

std::unexpected<Error> noSeEntiende(const QByteArray& linea) {
  return fallo(Fallo::Formato, QString::fromUtf8(linea.left(80)));
}

}  // namespace

QByteArray escribir(const Peticion& p) {
  if (p.que == Peticion::Que::Alzar)
    return enLinea({{u"que"_s, kAlzar}, {u"ventana"_s, p.ventana}});
  QJsonObject datos;
  for (const auto& [nombre, valor] : p.datos) datos[nombre] = valor;
  return enLinea({{u"que"_s, kProceso},
                  {u"nombre"_s, p.nombre},
                  {u"traza"_s, p.traza},
                  {u"pasos"_s, QJsonArray::fromStringList(p.pasos)},
                  {u"omitidas"_s, QJsonArray::fromStringList(p.omitidas)},
                  {u"datos"_s, datos}});
}

QByteArray escribir(const Respuesta& r) {
  switch (r.que) {
    case Respuesta::Que::Linea:
      return enLinea({{u"linea"_s, r.texto}});
    case Respuesta::Que::Aviso:
      return enLinea({{u"aviso"_s, r.texto}});
    case Respuesta::Que::Fin:
      return enLinea({{u"fin"_s, r.estado}});
    case Respuesta::Que::Vive:
      break;
  }
  return enLinea({{u"vive"_s, true}});
}

QByteArray escribirParar() {
  return enLinea({{u"que"_s, kParar}});
}

Resultado<Peticion> leerPeticion(const QByteArray& linea) {
  const QJsonObject o = objeto(linea);
  const QString que = o[u"que"_s].toString();
  Peticion p;
  if (que == kAlzar) {
    p.ventana = o[u"ventana"_s].toString();
    return p;
  }
  p.que = Peticion::Que::Proceso;
  p.nombre = o[u"nombre"_s].toString();
  p.traza = o[u"traza"_s].toString();
  // They become file names, and must never lead out of the folder.
  const QString nombres = p.nombre + p.traza;
  const bool conCarpeta = nombres.contains(u'/') || nombres.contains(u'\\');
  if (que != kProceso || p.nombre.isEmpty() || conCarpeta) return noSeEntiende(linea);
  p.pasos = textos(o[u"pasos"_s]);
  p.omitidas = textos(o[u"omitidas"_s]);
  const QJsonObject datos = o[u"datos"_s].toObject();
  for (auto d = datos.begin(); d != datos.end(); ++d) p.datos[d.key()] = d.value().toString();
  return p;
}

Resultado<Respuesta> leerRespuesta(const QByteArray& linea) {
  const QJsonObject o = objeto(linea);
  if (o.contains(u"linea"_s)) return Respuesta{Respuesta::Que::Linea, o[u"linea"_s].toString()};
  if (o.contains(u"aviso"_s)) return Respuesta{Respuesta::Que::Aviso, o[u"aviso"_s].toString()};
  if (o.contains(u"vive"_s)) return Respuesta{};
  const int estado = o[u"fin"_s].toInt(-1);
  if (estado < 0 || estado > kEstadoMayor) return noSeEntiende(linea);
  return Respuesta{Respuesta::Que::Fin, {}, estado};
}

bool esParar(const QByteArray& linea) {
  return objeto(linea)[u"que"_s].toString() == kParar;
}

}  // namespace tarvo::app
