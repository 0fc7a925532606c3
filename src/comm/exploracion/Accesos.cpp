#include "comm/exploracion/Accesos.h"

#include <QFileInfo>
#include <algorithm>

#include "comm/cables/AjustesCables.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo::exploracion {

namespace {

constexpr int kVigilarCts = 1;
constexpr int kUltimoPuerto = 0xFFFF;

Acceso deSerie(const enlace::ParamCanal& canal, int numero, const QString& ruta) {
  Acceso a{.canal = numero, .nombre = ruta};
  a.linea.device = TipoAcceso::Directo;
  a.linea.puerto = canal.Puerto;
  a.linea.ruta = ruta;
  a.linea.rs232 = canal.RS232;
  a.linea.controlLinea = kVigilarCts;
  return a;
}

Acceso deTcp(const QString& host, int puerto) {
  Acceso a{.clase = Acceso::Clase::Tcp, .nombre = QStringLiteral("%1:%2").arg(host).arg(puerto)};
  a.linea.device = TipoAcceso::TcpIp;
  a.linea.host = host;
  a.linea.puertoTcp = puerto;
  return a;
}

// A number of decimal digits alone; 0 for any other text, and for one out of range.
int puertoDe(const QString& texto) {
  const bool cifras = std::ranges::all_of(texto, [](QChar c) { return c >= u'0' && c <= u'9'; });
  const int puerto = cifras && texto.size() <= 5 ? texto.toInt() : 0;
  return puerto <= kUltimoPuerto ? puerto : 0;
}

// Once; true.
bool anadir(std::vector<Acceso>& accesos, Acceso acceso) {
  if (std::ranges::find(accesos, claveDe(acceso), claveDe) == accesos.end())
    accesos.push_back(std::move(acceso));
  return true;
}

// "host:port" or "host:port-port".
bool anadirPuertos(std::vector<Acceso>& accesos, const QString& texto) {
  const QString host = texto.section(u':', 0, 0).trimmed(), puertos = texto.section(u':', 1);
  const QString ultimo = puertos.contains(u'-') ? puertos.section(u'-', 1) : puertos;
  const int desde = puertoDe(puertos.section(u'-', 0, 0)), hasta = puertoDe(ultimo);
  if (host.isEmpty() || host.contains(u',') || desde < 1 || hasta < desde ||
      hasta - desde >= static_cast<int>(kMaxAccesos))
    return false;
  for (int puerto = desde; puerto <= hasta; ++puerto) anadir(accesos, deTcp(host, puerto));
  return true;
}

}  // namespace

std::vector<Acceso> accesosDe(const Ajustes& ajustes) {
  const auto& cables = ajustes.de<enlace::AjustesCables>();
  std::vector<Acceso> accesos;
  int numero = 0;
  for (const enlace::ParamCanal& canal : cables.canales) {
    ++numero;
    if (canal.Device != TipoAcceso::TcpIp)
      anadir(accesos, deSerie(canal, numero, enlace::rutaDePuerto(cables, canal.Puerto)));
  }
  return accesos;
}

std::optional<std::vector<Acceso>> leerAccesos(const QStringList& textos) {
  std::vector<Acceso> accesos;
  for (const QString& texto : textos) {
    const bool bien = texto.contains(u'/') ? anadir(accesos, deSerie({.Puerto = 0}, 0, texto))
                                           : anadirPuertos(accesos, texto);
    if (!bien || accesos.size() > kMaxAccesos) return std::nullopt;
  }
  return accesos;
}

std::vector<Acceso> conSusCanales(std::vector<Acceso> accesos, const Ajustes& ajustes) {
  for (const Acceso& suyo : accesosDe(ajustes))
    for (Acceso& a : accesos)
      if (claveDe(a) == claveDe(suyo)) a = suyo;
  return accesos;
}

QString claveDeSerie(const QString& ruta) {
  const QString real = QFileInfo(ruta).canonicalFilePath();
  return QStringLiteral("serie:") + (real.isEmpty() ? ruta : real);
}

QString claveDeTcp(const QString& acceso) {
  const QString host = acceso.section(u':', 0, 0).trimmed().toLower();
  const int puerto = acceso.section(u':', 1).section(u',', 0, 0).trimmed().toInt();
  return QStringLiteral("tcp:%1:%2").arg(host).arg(puerto);
}

QString claveDe(const Acceso& acceso) {
  return acceso.clase == Acceso::Clase::Serie ? claveDeSerie(acceso.nombre)
                                              : claveDeTcp(acceso.nombre);
}

}  // namespace tarvo::exploracion
