// The keys of TARVO.INI: one table gives their order and how each is read and written.
#include <QFileInfo>
#include <algorithm>
#include <limits>

#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ini.h"

namespace tarvo {

namespace {

constexpr int kMaxI16 = std::numeric_limits<qint16>::max();
constexpr int kMaxI32 = std::numeric_limits<qint32>::max();
constexpr size_t kDudas = 100;
constexpr qsizetype kLargoDuda = 80;
constexpr Limites kUnByte{0, 255};
constexpr int kPersonales = 200;  // custom menu entries
constexpr qsizetype kCadenasModem = 8;
constexpr qsizetype kPeriodos = 10000;  // of ÚltimosPeriodos

// Every reader of a value takes what it can, and returns false if that isn't all of it.
bool dentroDe(QStringView v, Limites limites, int& campo) {
  campo = ini::entero(v, limites.menor, limites.mayor);
  return ini::esEntero(v) && limites.admite(ini::real(v));
}
bool i16(QStringView v, int& campo) {
  return dentroDe(v, {-kMaxI16 - 1, kMaxI16}, campo);
}
bool i32(QStringView v, int& campo) {
  return dentroDe(v, {-kMaxI32 - 1, kMaxI32}, campo);
}
// An absurdly long wait, or one that is over before it begins, is a typing error: the old value
// stays.
template <Limites kLimites>
bool limitado(QStringView v, int& campo) {
  int leido = 0;
  const bool bien = dentroDe(v, kLimites, leido);
  const bool hayNumero = !v.isEmpty() && v.front().isDigit();
  if (hayNumero && kLimites.admite(ini::real(v))) campo = leido;
  return bien;
}

// A number that stands for no use of a channel changes nothing.
bool leerUso(QStringView v, TipoAcceso& campo) {
  int leido = 0;
  const bool entero = i16(v, leido);
  const auto uso = deNumero<TipoAcceso>(leido);
  if (!uso || *uso == TipoAcceso::Conector) return false;
  campo = *uso;
  return entero;
}

QString booleano(const Ajustes& a, bool b) {
  if (a.EsEspanol()) return b ? QStringLiteral("Sí") : QStringLiteral("No");
  return b ? QStringLiteral("Yes") : QStringLiteral("No");
}

bool leerBooleano(QStringView v, bool& campo) {
  const QString palabra = v.trimmed().toString().toUpper();
  const auto es = [&](std::initializer_list<const char16_t*> palabras) {
    return std::ranges::any_of(palabras, [&](const auto* p) { return palabra == QStringView(p); });
  };
  const bool cierta = es({u"SÍ", u"SI", u"YES", u"TRUE", u"VERDADERO"});
  campo = cierta || ini::real(v) != 0;
  return cierta || es({u"NO", u"FALSE", u"FALSO"}) || ini::esReal(v);
}

// The n-th part of a list, empty when there are fewer.
QStringView parte(QStringView lista, QChar separador, qsizetype n) {
  const auto partes = lista.split(separador);
  return n < partes.size() ? partes[n].trimmed() : QStringView();
}

QString par(int a, int b) {
  return QStringLiteral("%1|%2").arg(a).arg(b);
}

// Relative if it is inside the program's folder, under whatever name: a copied or moved folder
// takes all its files along.
QString rutaGuardada(const Ajustes& a, const QString& ruta) {
  const auto real = [](const QString& carpeta) {
    const QString canonica = QFileInfo(carpeta).canonicalFilePath();
    return canonica.isEmpty() ? carpeta : canonica;
  };
  const QString carpeta = real(a.carpeta);
  if (ruta.isEmpty()) return ruta;
  if (real(ruta) == carpeta) return QStringLiteral(".");
  const QFileInfo info(ruta);
  const QString dentro = real(info.path()) + u'/' + info.fileName();
  return dentro.startsWith(carpeta + u'/') ? dentro.mid(carpeta.size() + 1) : ruta;
}

QString rutaDada(const Ajustes& a, const QString& v, const QString& siVacia) {
  return v.isEmpty() ? siVacia : Ajustes::ruta(v, a.carpeta);
}

bool leerFecha(const QString& v, Fecha& f) {
  const auto leida = Fecha::leer(v);
  f = leida.value_or(f);
  return leida.has_value();
}
bool leerHora(const QString& v, Fecha& f) {
  const auto leida = Fecha::leerHora(v);
  f = leida.value_or(f);
  return leida.has_value();
}

bool leerCalculo(Ajustes& a, const QString& v) {
  auto& c = a.calculoPrecios;
  bool bien = leerBooleano(parte(v, u'|', 0), c.a);
  bien &= i16(parte(v, u'|', 1), c.b);
  c.conSegundo = v.count(u'|') >= 3;
  c.c = false;
  c.d = 0;
  if (!c.conSegundo) return bien;
  bien &= leerBooleano(parte(v, u'|', 2), c.c);
  return i16(parte(v, u'|', 3), c.d) && bien;
}

QString escribirCalculo(const Ajustes& a) {
  const auto& c = a.calculoPrecios;
  const QString primero = QStringLiteral("%1|%2").arg(booleano(a, c.a)).arg(c.b);
  return c.conSegundo ? QStringLiteral("%1|%2|%3").arg(primero, booleano(a, c.c)).arg(c.d)
                      : primero;
}

bool leerPeriodos(Ajustes& a, const QString& v) {
  a.UltimosPeriodos.clear();
  bool bien = true;
  for (const QStringView p : QStringView(v).split(u'|', Qt::SkipEmptyParts).mid(0, kPeriodos))
    bien &= i32(p, a.UltimosPeriodos.emplace_back());
  return bien;
}

QString escribirPeriodos(const Ajustes& a) {
  QStringList partes;
  for (const int p : a.UltimosPeriodos) partes << QString::number(p);
  return partes.join(u'|');
}

constexpr int kLetrasLogo = 3;  // always, in the file

bool leerLogos(Ajustes& a, const QString& v) {
  for (int i = 0; i < 2; ++i)
    a.MonedaLogo[static_cast<size_t>(i)] = parte(v, u',', i).left(kLetrasLogo).toString();
  return true;
}

// A single has seven good digits; the rest is noise from its binary form.
QString escribirEuro(const Ajustes& a) {
  return QString::number(QString::number(a.Euro, 'g', 7).toDouble(), 'f', 6);
}

bool leerFestivos(Ajustes& a, const QString& v) {
  bool bien = true;
  for (size_t i = 0; i < 7; ++i) {
    const QStringView dia = parte(v, u',', static_cast<qsizetype>(i));
    a.FestivoSemanal[i] = ini::real(dia) != 0;
    bien &= ini::esReal(dia);
  }
  return bien;
}

// The books are in the currency last used with the database, not in a guessed one.
bool leerNativa(Ajustes& a, const QString& v) {
  int leida = a.MonedaNativa;
  a.monedaLeida = dentroDe(v, kUnByte, leida);
  if (a.monedaLeida) a.MonedaNativa = leida;
  return a.monedaLeida;
}

bool leerReal(const QString& v, float& campo) {
  campo = static_cast<float>(ini::real(v));
  return ini::esReal(v);
}

bool leerTexto(const QString& v, QString& campo) {
  campo = v;
  return true;
}

QString escribirFestivos(const Ajustes& a) {
  QStringList partes;
  for (const bool festivo : a.FestivoSemanal) partes << QString::number(festivo ? 1 : 0);
  return partes.join(u',');
}

template <size_t N>
bool leerPar(const QString& v, std::array<int, N>& par2) {
  bool bien = true;
  for (size_t i = 0; i < N; ++i) bien &= i16(parte(v, u'|', static_cast<qsizetype>(i)), par2[i]);
  return bien;
}

struct Clave {
  const char16_t* nombre;                  // as written; null for a blank line
  bool (*leer)(Ajustes&, const QString&);  // false: not all of the value was understood
  QString (*escribir)(const Ajustes&);
};

QString n(int numero) {
  return QString::number(numero);
}

#define CLAVE_ENTERA(nombre, campo, lector)                                 \
  {nombre, [](Ajustes& a, const QString& v) { return lector(v, a.campo); }, \
   [](const Ajustes& a) { return n(a.campo); }}
#define BLANCO {nullptr, nullptr, nullptr}

const Clave kAntes[] = {
    {u"HomeDir",
     [](Ajustes& a, const QString& v) { return leerTexto(rutaDada(a, v, a.HomeDir), a.HomeDir); },
     [](const Ajustes& a) { return rutaGuardada(a, a.HomeDir); }},
    {u"BaseDatos",
     [](Ajustes& a, const QString& v) {
       return leerTexto(rutaDada(a, v, a.BaseDatos), a.BaseDatos);
     },
     [](const Ajustes& a) { return rutaGuardada(a, a.BaseDatos); }},
    {u"CopiaSeguridad",
     [](Ajustes& a, const QString& v) {
       return leerTexto(rutaDada(a, v, QString()), a.CopiaSeguridad);
     },
     [](const Ajustes& a) { return rutaGuardada(a, a.CopiaSeguridad); }},
    BLANCO,
    CLAVE_ENTERA(u"WhoAmI", WhoAmI, i16),
    CLAVE_ENTERA(u"TimeOut", TimeOut, limitado<kLimitesRespuesta>),
    CLAVE_ENTERA(u"TimeCero", TimeCero, limitado<kLimitesRespuesta>),
    CLAVE_ENTERA(u"IntentosManual", IntentosManual, limitado<kLimitesIntentos>),
    CLAVE_ENTERA(u"TimeACK", TimeACK, limitado<kLimitesRespuesta>),
    CLAVE_ENTERA(u"FactorEsperaNDL", FactorEsperaNDL, limitado<kLimitesEspera>),
    BLANCO,
    {u"CalculoPrecios", leerCalculo, escribirCalculo},
};

const Clave kDespues[] = {
    BLANCO,
    CLAVE_ENTERA(u"SesiónAbier", SesionAbier, i16),
    {u"SesiónHasta", [](Ajustes& a, const QString& v) { return leerFecha(v, a.SesionHasta); },
     [](const Ajustes& a) { return a.SesionHasta.general(); }},
    {u"SesiónACero", [](Ajustes& a, const QString& v) { return leerFecha(v, a.SesionACero); },
     [](const Ajustes& a) { return a.SesionACero.general(); }},
    {u"ÚltimosPeriodos", leerPeriodos, escribirPeriodos},
    {u"InicioHorario", [](Ajustes& a, const QString& v) { return leerHora(v, a.InicioHorario); },
     [](const Ajustes& a) { return a.InicioHorario.horaLarga().left(5); }},
    {u"FinalHorario", [](Ajustes& a, const QString& v) { return leerHora(v, a.FinalHorario); },
     [](const Ajustes& a) { return a.FinalHorario.horaLarga().left(5); }},
    {u"ToleranciaHora", [](Ajustes& a, const QString& v) { return leerReal(v, a.ToleranciaHora); },
     [](const Ajustes& a) { return QString::number(a.ToleranciaHora, 'f', 2); }},
    BLANCO,
    {u"MonedaNativa", leerNativa, [](const Ajustes& a) { return n(a.MonedaNativa); }},
    {u"MonedaPreferente",
     [](Ajustes& a, const QString& v) { return dentroDe(v, kUnByte, a.MonedaPreferente); },
     [](const Ajustes& a) { return n(a.MonedaPreferente); }},
    {u"MonedaLogo", leerLogos,
     [](const Ajustes& a) {
       return a.MonedaLogo[0].leftJustified(kLetrasLogo) + u',' +
              a.MonedaLogo[1].leftJustified(kLetrasLogo);
     }},
    {u"Euro", [](Ajustes& a, const QString& v) { return leerReal(v, a.Euro); }, escribirEuro},
    {u"FestivoSemanal", leerFestivos, escribirFestivos},
    CLAVE_ENTERA(u"NúmeroPedido", NumeroPedido, i32),
    CLAVE_ENTERA(u"NúmeroInventario", NumeroInventario, i32),
    {u"EnviarCambios", [](Ajustes& a, const QString& v) { return leerPar(v, a.EnviarCambios); },
     [](const Ajustes& a) { return par(a.EnviarCambios[0], a.EnviarCambios[1]); }},
    {u"OpcionesStockCompras",
     [](Ajustes& a, const QString& v) { return leerPar(v, a.OpcionesStockCompras); },
     [](const Ajustes& a) { return par(a.OpcionesStockCompras[0], a.OpcionesStockCompras[1]); }},
    BLANCO,
    CLAVE_ENTERA(u"ModoIntroRápido", ModoIntroRapido, i16),
    {u"ParrillaRápida",
     [](Ajustes& a, const QString& v) { return leerTexto(v.toUpper(), a.ParrillaRapida); },
     [](const Ajustes& a) { return a.ParrillaRapida; }},
    BLANCO,
};

const Clave kAlta[] = {
    BLANCO,
    {u"PrefijoCódigos",
     [](Ajustes& a, const QString& v) { return leerTexto(v.toUpper(), a.PrefijoCodigos); },
     [](const Ajustes& a) { return a.PrefijoCodigos; }},
    CLAVE_ENTERA(u"NúmPreciosAlta", NumPreciosAlta, i16),
    CLAVE_ENTERA(u"NúmTarifasAlta", NumTarifasAlta, i16),
    BLANCO,
};

#define CLAVE_CANAL(nombre, campo, lector)                                     \
  {nombre, [](ParamCanal& c, const QString& v) { return lector(v, c.campo); }, \
   [](const ParamCanal& c) { return n(c.campo); }}
#define CLAVE_CADENA(nombre, campo)                                                         \
  {nombre, [](ParamCanal& c, const QString& v) { return leerTexto(v.toUpper(), c.campo); }, \
   [](const ParamCanal& c) { return c.campo; }}

struct ClaveCanal {
  const char16_t* nombre;
  bool (*leer)(ParamCanal&, const QString&);
  QString (*escribir)(const ParamCanal&);
};

const ClaveCanal kCanal[] = {
    CLAVE_CANAL(u"Puerto", Puerto, i16),
    {u"Device", [](ParamCanal& c, const QString& v) { return leerUso(v, c.Device); },
     [](const ParamCanal& c) { return n(numeroDe(c.Device)); }},
    CLAVE_CADENA(u"RS232", RS232),
    CLAVE_CADENA(u"IniMdm0", IniMdm0),
    {u"IniMdmX",
     [](ParamCanal& c, const QString& v) {
       c.IniMdmX = v.isEmpty() ? QStringList() : v.toUpper().split(u';').mid(0, kCadenasModem);
       return true;
     },
     [](const ParamCanal& c) { return c.IniMdmX.join(u';'); }},
    CLAVE_CADENA(u"PfxDial", PfxDial),
    CLAVE_CANAL(u"Intentos", Intentos, limitado<kLimitesIntentos>),
    CLAVE_CANAL(u"Espera", Espera, limitado<kLimitesEspera>),
    CLAVE_CANAL(u"ATHang", ATHang, limitado<kLimitesEspera>),
    CLAVE_CANAL(u"ControlLinea", ControlLinea, i16),
};

bool es(const ini::Linea& linea, const char16_t* nombre) {
  return linea.clave == QString::fromUtf16(nombre).toUpper();
}

// How much of a line was understood: all of it, or else the value as it would be written now;
// nothing for an unknown key.
struct Leida {
  bool entera = false;
  QString vale;
};

Leida leerSinIndice(Ajustes& a, const ini::Linea& linea) {
  if (es(linea, u"AceptaOtroCodigo")) {
    a.AceptaOtroCodigo = linea.valor == u"1";
    const bool entera = a.AceptaOtroCodigo || linea.valor == u"0";
    return {entera, a.AceptaOtroCodigo ? QStringLiteral("1") : QStringLiteral("0")};
  }
  for (const std::span<const Clave> tabla : {std::span<const Clave>(kAntes), {kDespues}, {kAlta}})
    for (const Clave& c : tabla)
      if (c.nombre && es(linea, c.nombre)) return {c.leer(a, linea.valor), c.escribir(a)};
  return {};
}

bool leerPersonal(Ajustes& a, size_t indice, const QString& v) {
  if (a.personal.size() < indice) a.personal.resize(indice);
  const qsizetype barra = v.indexOf(u'|');
  a.personal[indice - 1] =
      barra < 0 ? Ajustes::Personal{v, {}} : Ajustes::Personal{v.left(barra), v.mid(barra + 1)};
  return true;
}

Leida leerConIndice(Ajustes& a, const ini::Linea& linea) {
  const auto dentro = [&](int desde, int hasta) {
    return linea.indice >= desde && linea.indice <= hasta;
  };
  const auto indice = static_cast<size_t>(linea.indice);
  if (es(linea, u"TextoEtiquetas") && dentro(21, 40))
    return {leerTexto(linea.valor, a.TextoEtiquetas[indice]), {}};
  if (es(linea, u"Personal") && dentro(1, kPersonales))
    return {leerPersonal(a, indice, linea.valor), {}};
  if (es(linea, u"RutaPuerto") && dentro(1, 16)) {
    if (!linea.valor.isEmpty()) a.RutaPuerto[linea.indice] = linea.valor;
    return {true, {}};
  }
  if (!dentro(1, static_cast<int>(a.canales.size()))) return {};
  for (const ClaveCanal& c : kCanal)
    if (es(linea, c.nombre)) {
      const bool entera = c.leer(a.canales[indice - 1], linea.valor);
      return {entera, c.escribir(a.canales[indice - 1])};
    }
  return {};
}

// Collects the lines of the file.
class Salida {
 public:
  void blanco() { texto_ += QStringLiteral("\r\n"); }
  void clave(const QString& nombre, const QString& valor) {
    texto_ += nombre + QStringLiteral("= ") + ini::enUnaLinea(valor) + QStringLiteral("\r\n");
  }
  void clave(const char16_t* nombre, int indice, const QString& valor) {
    clave(QStringLiteral("%1(%2)").arg(QString::fromUtf16(nombre)).arg(indice), valor);
  }
  void tabla(const Ajustes& a, std::span<const Clave> claves) {
    for (const Clave& c : claves)
      c.nombre ? clave(QString::fromUtf16(c.nombre), c.escribir(a)) : blanco();
  }
  QString texto_;
};

}  // namespace

void Ajustes::leer(const QString& texto) {
  personal.clear();
  RutaPuerto.clear();
  dudas.clear();
  monedaLeida = false;
  ini::recorrer(texto, [this](const ini::Linea& linea) {
    const Leida l = linea.clave.isEmpty() ? Leida{}
                    : linea.indice < 0    ? leerSinIndice(*this, linea)
                                          : leerConIndice(*this, linea);
    if (!l.entera && dudas.size() < kDudas)
      dudas.push_back({linea.entera.left(kLargoDuda), l.vale, linea.clave});
  });
  std::erase_if(personal,
                [](const Personal& p) { return p.titulo.isEmpty() && p.proceso.isEmpty(); });
}

void Ajustes::ponerMonedaNativa(int moneda) {
  MonedaNativa = moneda;
  for (Duda& d : dudas)
    if (d.clave == u"MONEDANATIVA") d.vale = n(moneda);
}

QString Ajustes::escribir() const {
  Salida s;
  s.tabla(*this, kAntes);
  for (size_t i = 0; i < canales.size(); ++i) {
    s.blanco();
    for (const ClaveCanal& c : kCanal)
      s.clave(c.nombre, static_cast<int>(i) + 1, c.escribir(canales[i]));
  }
  s.tabla(*this, kDespues);
  for (size_t i = 21; i < TextoEtiquetas.size(); ++i)
    s.clave(u"TextoEtiquetas", static_cast<int>(i), TextoEtiquetas[i]);
  s.tabla(*this, kAlta);
  for (size_t i = 0; i < personal.size(); ++i)
    s.clave(u"Personal", static_cast<int>(i) + 1, personal[i].titulo + u'|' + personal[i].proceso);
  for (const auto& [puerto, dispositivo] : RutaPuerto) s.clave(u"RutaPuerto", puerto, dispositivo);
  if (AceptaOtroCodigo) s.clave(QStringLiteral("AceptaOtroCodigo"), QStringLiteral("1"));
  return s.texto_;
}

#undef CLAVE_ENTERA
#undef CLAVE_CANAL
#undef CLAVE_CADENA
#undef BLANCO

}  // namespace tarvo
