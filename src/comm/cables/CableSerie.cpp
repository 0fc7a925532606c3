#include "comm/cables/CableSerie.h"

#include <QFileInfo>

namespace tarvo::enlace {

namespace {
constexpr int kMsLineas = 300;  // for a machine that raises its lines after ours
constexpr int kMsSalida = 200;  // for the last bytes to leave
}  // namespace

CableSerie::CableSerie(Reloj& reloj, std::shared_ptr<Ocupados> ocupados, RutaDePuerto rutaDe)
    : CableReal(reloj, std::move(ocupados)),
      rutaDe_(std::move(rutaDe)),
      puerto_([this](const QByteArray& bytes) { llegado(bytes); },
              [this] { fallado(kPuertoOcupado); }) {}

CableSerie::CableSerie(Reloj& reloj, std::shared_ptr<Ocupados> ocupados, QString ruta,
                       QString rs232)
    : CableSerie(reloj, std::move(ocupados), nullptr) {
  ruta_ = std::move(ruta);
  rs232_ = std::move(rs232);
}

bool CableSerie::configurar(const ParametrosLinea& parametros) {
  if (rutaDe_) {
    ruta_ = parametros.ruta.isEmpty() ? rutaDe_(parametros.puerto) : parametros.ruta;
    rs232_ = parametros.rs232;
    controlLinea_ = parametros.controlLinea;
  }
  return !ruta_.isEmpty();
}

// Two names of one device are one access.
QString CableSerie::acceso() const {
  const QString real = QFileInfo(ruta_).canonicalFilePath();
  return QStringLiteral("serie:") + (real.isEmpty() ? ruta_ : real);
}

int CableSerie::empezar() {
  const int razon = puerto_.abrir(ruta_, rs232_);
  if (razon != kBien) return razon;
  puerto_.falta(controlLinea_) ? plazo(kMsLineas) : abierto();
  return kBien;
}

void CableSerie::vencePlazo() {
  if (estado() == kCerrando) return cerrado(kBien);
  puerto_.falta(controlLinea_) ? fallado(kSinCtsDsr) : abierto();
}

void CableSerie::terminar() {
  plazo(kMsSalida);
}

void CableSerie::enviar(const QByteArray& bytes) {
  if (estado() == kConectado) puerto_.escribir(bytes);
}

}  // namespace tarvo::enlace
