#include "simulador/Fallos.h"

#include <algorithm>

namespace tarvo::simulador {
namespace {

constexpr std::array<const char*, kAverias> kNombres{"ackPerdido",
                                                     "sorda",
                                                     "nak",
                                                     "err",
                                                     "rechazo",
                                                     "espera",
                                                     "ventaEnMedio",
                                                     "ventaDetras",
                                                     "oscura",
                                                     "otroNumero",
                                                     "ceroSinRespuesta",
                                                     "ceroRechazado",
                                                     "listaSinFin",
                                                     "cierreLimpio",
                                                     "corte",
                                                     "respuestaPerdida",
                                                     "respuestaTardia",
                                                     "respuestaDoble",
                                                     "mismoNumero",
                                                     "respuestaPartida",
                                                     "respuestaPegada",
                                                     "bitsCambiados",
                                                     "controlMalo",
                                                     "registroCorto",
                                                     "basura",
                                                     "otroCodigo",
                                                     "respuestaLenta",
                                                     "ackLento",
                                                     "ceroIncumplido"};

bool deRespuesta(const Paso& paso) {
  return (paso.averia > Averia::Corte && paso.averia < Averia::AckLento) ||
         (paso.averia == Averia::Corte && paso.valor > 0);
}

}  // namespace

QString nombreAveria(Averia averia) {
  return QString::fromLatin1(kNombres[static_cast<std::size_t>(averia)]);
}

std::optional<Averia> averiaDeNombre(const QString& nombre) {
  const auto sitio = std::ranges::find(kNombres, nombre.toStdString());
  if (sitio == kNombres.end()) return std::nullopt;
  return static_cast<Averia>(sitio - kNombres.begin());
}

int Sucesos::valor(Averia averia, int omision) const {
  const auto sitio = valor_.find(averia);
  return sitio == valor_.end() || sitio->second < 0 ? omision : sitio->second;
}

Percances::Percances(Fallos fallos, quint64 semilla) : fallos_(std::move(fallos)), azar_(semilla) {}

bool Percances::toca(const Paso& paso) const {
  if (paso.codigo >= 0 && paso.codigo != codigo_) return false;
  if (paso.trama == 0) return true;
  return paso.trama == (paso.codigo >= 0 ? porCodigo_.at(codigo_) : tramas_);
}

void Percances::sortear(Sucesos& sucesos, Averia primera, Averia ultima) {
  for (int i = static_cast<int>(primera); i <= static_cast<int>(ultima); ++i) {
    const double probabilidad = fallos_.probabilidad[static_cast<std::size_t>(i)];
    if (probabilidad > 0 && azar_.ocurre(probabilidad)) sucesos.poner(static_cast<Averia>(i));
  }
}

Sucesos Percances::peticion(int codigo) {
  codigo_ = codigo;
  ++tramas_;
  ++porCodigo_[codigo];
  Sucesos sucesos;
  for (const Paso& paso : fallos_.guion)
    if (!deRespuesta(paso) && toca(paso)) sucesos.poner(paso.averia, paso.valor);
  sortear(sucesos, Averia::AckPerdido, Averia::CierreLimpio);
  sortear(sucesos, Averia::AckLento, Averia::AckLento);
  return sucesos;
}

Sucesos Percances::mensaje(int indice) {
  Sucesos sucesos;
  for (const Paso& paso : fallos_.guion)
    if (deRespuesta(paso) && paso.mensaje == indice && toca(paso))
      sucesos.poner(paso.averia, paso.valor);
  sortear(sucesos, Averia::Corte, Averia::RespuestaLenta);
  if (sucesos.tiene(Averia::Corte))
    sucesos.poner(Averia::Corte, sucesos.valor(Averia::Corte, azar_.entero(1, 2)));
  return sucesos;
}

bool Percances::rechazaConexion() {
  if (fallos_.conexionesRechazadas <= 0) return false;
  --fallos_.conexionesRechazadas;
  return true;
}

}  // namespace tarvo::simulador
