#include "comm/exploracion/Accesos.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

#include "comm/cables/AjustesCables.h"
#include "core/ajustes/Ajustes.h"

namespace tarvo::exploracion {

namespace {

constexpr int kVigilarCts = 1;
constexpr int kUltimoPuerto = 0xFFFF, kUltimoDeDireccion = 255;

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

// Once.
void anadir(std::vector<Acceso>& accesos, Acceso acceso) {
  if (std::ranges::find(accesos, claveDe(acceso), claveDe) == accesos.end())
    accesos.push_back(std::move(acceso));
}

// Four numbers, of which one is too large: no name server knows it either.
bool direccionImposible(const QString& host) {
  static const QRegularExpression cuatro(QStringLiteral(R"(^\d+\.\d+\.\d+\.\d+$)"));
  const auto imposible = [](const QString& numero) {
    bool bien = false;
    return numero.toInt(&bien) > kUltimoDeDireccion || !bien;
  };
  return cuatro.match(host).hasMatch() && std::ranges::any_of(host.split(u'.'), imposible);
}

// The hosts of a name, or of an address whose last number is a range; none for a bad range.
QStringList hostsDe(const QString& texto) {
  static const QRegularExpression rango(
      QStringLiteral(R"(^(\d{1,3}\.\d{1,3}\.\d{1,3}\.)(\d{1,3})-(\d{1,3})$)"));
  const auto m = rango.match(texto);
  if (!m.hasMatch()) return {texto};
  const int desde = m.captured(2).toInt(), hasta = m.captured(3).toInt();
  QStringList hosts;
  for (int n = desde; n <= hasta && hasta <= kUltimoDeDireccion; ++n)
    hosts << m.captured(1) + QString::number(n);
  return hosts;
}

// "host:port", "host:port-port", "1.2.3.4-9:port".
enum class Leido { Bien, Malo, Demasiados };
Leido anadirPuertos(std::vector<Acceso>& accesos, const QString& texto) {
  const QString host = texto.section(u':', 0, 0).trimmed(), puertos = texto.section(u':', 1);
  const QString ultimo = puertos.contains(u'-') ? puertos.section(u'-', 1) : puertos;
  const int desde = puertoDe(puertos.section(u'-', 0, 0)), hasta = puertoDe(ultimo);
  const QStringList hosts = hostsDe(host);
  if (host.isEmpty() || host.contains(u',') || hosts.empty() || desde < 1 || hasta < desde ||
      std::ranges::any_of(hosts, direccionImposible))
    return Leido::Malo;
  if (static_cast<size_t>(hosts.size()) * static_cast<size_t>(hasta - desde + 1) > kMaxAccesos)
    return Leido::Demasiados;
  for (const QString& uno : hosts)
    for (int puerto = desde; puerto <= hasta; ++puerto) anadir(accesos, deTcp(uno, puerto));
  return Leido::Bien;
}

Leido anadirTexto(std::vector<Acceso>& accesos, const QString& texto) {
  if (!texto.contains(u'/')) {
    if (const Leido como = anadirPuertos(accesos, texto); como != Leido::Bien) return como;
  } else {
    anadir(accesos, deSerie({.Puerto = 0}, 0, texto));
  }
  return accesos.size() > kMaxAccesos ? Leido::Demasiados : Leido::Bien;
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
  for (const QString& texto : textos)
    if (anadirTexto(accesos, texto) != Leido::Bien) return std::nullopt;
  return accesos;
}

AccesosLeidos leerTexto(const QString& texto) {
  static const QRegularExpression separa(QStringLiteral("[\\s,;]+"));
  AccesosLeidos leidos;
  for (const QString& uno : texto.split(separa, Qt::SkipEmptyParts))
    switch (anadirTexto(leidos.accesos, uno)) {
      case Leido::Bien:
        break;
      case Leido::Malo:
        leidos.malos << uno;
        break;
      case Leido::Demasiados:
        return {.malos = leidos.malos, .demasiados = true};
    }
  return leidos;
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
  QString host = acceso.section(u':', 0, 0).trimmed().toLower();
  // Other names aren't looked up: a name server that doesn't answer takes minutes.
  if (host == u"localhost") host = QStringLiteral("127.0.0.1");
  const int puerto = acceso.section(u':', 1).section(u',', 0, 0).trimmed().toInt();
  return QStringLiteral("tcp:%1:%2").arg(host).arg(puerto);
}

QString claveDe(const Acceso& acceso) {
  return acceso.clase == Acceso::Clase::Serie ? claveDeSerie(acceso.nombre)
                                              : claveDeTcp(acceso.nombre);
}

}  // namespace tarvo::exploracion
