#include "comm/cables/AjustesCables.h"

#include <algorithm>
#include <array>

#include "core/ajustes/Sala.h"

namespace tarvo::enlace {

namespace {

using A = AjustesCables;

constexpr int kSitioCanal = 400, kCanalACanal = 100;
constexpr Limites kPuertosPropios{1, 16}, kDosBits{0, 3};
constexpr qsizetype kCadenasModem = 8;
// Those of serial ports; a port set to any other can't be opened, or speaks to nobody.
constexpr std::array kVelocidades{
    50,     75,     110,    134,    150,    200,     300,     600,     1200,    1800,   2400,
    4800,   9600,   14400,  19200,  28800,  38400,   57600,   76800,   115200,  128000, 230400,
    256000, 460800, 500000, 576000, 921600, 1000000, 1500000, 2000000, 3000000, 4000000};

// A number that stands for no use of a channel changes nothing.
bool leerUso(QStringView v, TipoAcceso& campo) {
  const auto numero = ini::numeroEntre(v, ini::kDe16);
  const auto uso = numero ? deNumero<TipoAcceso>(*numero) : std::nullopt;
  if (!uso || *uso == TipoAcceso::Conector) return false;
  campo = *uso;
  return true;
}

QString verUso(TipoAcceso uso) {
  return ini::verEntero(numeroDe(uso));
}

bool leerCadenas(const QString& v, QStringList& campo) {
  const QStringList todas = v.isEmpty() ? QStringList() : v.toUpper().split(u';');
  if (todas.size() > kCadenasModem) return false;
  campo = todas;
  return true;
}

// "9600,O,7,1": speed, parity, data bits, stop bits. One that isn't whole changes nothing.
bool leerLinea(const QString& v, QString& campo) {
  static constexpr Limites kBits{5, 8}, kParadas{1, 2};
  const QString linea = v.toUpper();
  const auto partes = ini::partes(linea, u',');
  if (partes.size() != 4) return false;
  const auto baudios = ini::numeroEntre(partes[0], ini::kPositivo);
  const bool bien = baudios && std::ranges::find(kVelocidades, *baudios) != kVelocidades.end() &&
                    partes[1].size() == 1 && QStringView(u"EON").contains(partes[1]) &&
                    ini::numeroEntre(partes[2], kBits) && ini::numeroEntre(partes[3], kParadas);
  if (bien) campo = linea;
  return bien;
}

QString verCadenas(const QStringList& cadenas) {
  return cadenas.join(u';');
}

template <auto kCampo, auto kLeer, auto kEscribir = ini::verEntero>
ClaveDe<A> deCanal(const char16_t* nombre) {
  return {0, nombre,
          [](A& a, int n, const QString& v) {
            return kLeer(v, a.canales[static_cast<size_t>(n) - 1].*kCampo);
          },
          [](const A& a, int n, Idioma) {
            return kEscribir(a.canales[static_cast<size_t>(n) - 1].*kCampo);
          }};
}

void ponerCanal(std::vector<ClaveDe<A>>& claves, int canal) {
  using P = ParamCanal;
  ClaveDe<A> suyas[] = {deCanal<&P::Puerto, ini::leerLimitado<kPuertosPropios>>(u"Puerto"),
                        deCanal<&P::Device, leerUso, verUso>(u"Device"),
                        deCanal<&P::RS232, leerLinea, ini::verTexto>(u"RS232"),
                        deCanal<&P::IniMdm0, ini::leerMayusculas, ini::verTexto>(u"IniMdm0"),
                        deCanal<&P::IniMdmX, leerCadenas, verCadenas>(u"IniMdmX"),
                        deCanal<&P::PfxDial, ini::leerMayusculas, ini::verTexto>(u"PfxDial"),
                        deCanal<&P::Intentos, ini::leerLimitado<kLimitesIntentos>>(u"Intentos"),
                        deCanal<&P::Espera, ini::leerLimitado<kLimitesEspera>>(u"Espera"),
                        deCanal<&P::ATHang, ini::leerLimitado<kLimitesEspera>>(u"ATHang"),
                        deCanal<&P::ControlLinea, ini::leerLimitado<kDosBits>>(u"ControlLinea")};
  int sitio = kSitioCanal + (canal - 1) * kCanalACanal;
  for (ClaveDe<A>& c : suyas) {
    c.sitio = sitio++;
    c.indices = {canal, canal};
    claves.push_back(c);
  }
}

// An empty value is no device.
bool leerRuta(A& a, int puerto, const QString& v) {
  if (!v.isEmpty()) a.RutaPuerto[puerto] = v;
  return true;
}

QString escribirRuta(const A& a, int puerto, Idioma) {
  const auto ruta = a.RutaPuerto.find(puerto);
  return ruta == a.RutaPuerto.end() ? QString() : ruta->second;
}

}  // namespace

SalaDeAjustes ajustesCables() {
  std::vector<ClaveDe<A>> claves{
      {1301, u"RutaPuerto", leerRuta, escribirRuta, kPuertosPropios,
       [](const A& a, int puerto) { return a.RutaPuerto.contains(puerto); }}};
  for (int canal = 1; canal <= 4; ++canal) ponerCanal(claves, canal);
  return salaDeAjustes(A(), claves, {.antes = [](A& a) { a.RutaPuerto.clear(); }});
}

QString rutaDePuerto(const AjustesCables& ajustes, int puerto) {
  const auto propia = ajustes.RutaPuerto.find(puerto);
  if (propia != ajustes.RutaPuerto.end() && !propia->second.isEmpty()) return propia->second;
  if (!kPuertosPropios.admite(puerto)) return {};
  return QStringLiteral("/dev/ttyS%1").arg(puerto - 1);
}

}  // namespace tarvo::enlace
