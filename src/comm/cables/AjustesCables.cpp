#include "comm/cables/AjustesCables.h"

#include "core/ajustes/Sala.h"

namespace tarvo::enlace {

namespace {

using A = AjustesCables;

constexpr int kSitioCanal = 400, kCanalACanal = 100;
constexpr Limites kPuertosPropios{1, 16};
constexpr qsizetype kCadenasModem = 8;

// A number that stands for no use of a channel changes nothing.
bool leerUso(QStringView v, TipoAcceso& campo) {
  int leido = 0;
  const bool entero = ini::leer16(v, leido);
  const auto uso = deNumero<TipoAcceso>(leido);
  if (!uso || *uso == TipoAcceso::Conector) return false;
  campo = *uso;
  return entero;
}

QString verUso(TipoAcceso uso) {
  return ini::verEntero(numeroDe(uso));
}

bool leerCadenas(const QString& v, QStringList& campo) {
  campo = v.isEmpty() ? QStringList() : v.toUpper().split(u';').mid(0, kCadenasModem);
  return true;
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
  ClaveDe<A> suyas[] = {deCanal<&P::Puerto, ini::leer16>(u"Puerto"),
                        deCanal<&P::Device, leerUso, verUso>(u"Device"),
                        deCanal<&P::RS232, ini::leerMayusculas, ini::verTexto>(u"RS232"),
                        deCanal<&P::IniMdm0, ini::leerMayusculas, ini::verTexto>(u"IniMdm0"),
                        deCanal<&P::IniMdmX, leerCadenas, verCadenas>(u"IniMdmX"),
                        deCanal<&P::PfxDial, ini::leerMayusculas, ini::verTexto>(u"PfxDial"),
                        deCanal<&P::Intentos, ini::leerLimitado<kLimitesIntentos>>(u"Intentos"),
                        deCanal<&P::Espera, ini::leerLimitado<kLimitesEspera>>(u"Espera"),
                        deCanal<&P::ATHang, ini::leerLimitado<kLimitesEspera>>(u"ATHang"),
                        deCanal<&P::ControlLinea, ini::leer16>(u"ControlLinea")};
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

}  // namespace tarvo::enlace
