// The keys of TARVO.INI: one table says their order, how each is read and how it is written.
#include <algorithm>
#include <limits>

#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ini.h"

namespace tarvo {

namespace {

constexpr int kMaxI16 = std::numeric_limits<qint16>::max();
constexpr int kMaxI32 = std::numeric_limits<qint32>::max();
constexpr int kMaxEspera = 10 * 60 * 1000;  // ms
constexpr int kPersonales = 200;            // custom menu entries
constexpr qsizetype kCadenasModem = 8;
constexpr qsizetype kPeriodos = 10000;  // of ÚltimosPeriodos

int i16(QStringView v) {
  return ini::entero(v, -kMaxI16 - 1, kMaxI16);
}
int i32(QStringView v) {
  return ini::entero(v, -kMaxI32 - 1, kMaxI32);
}
// A wait that nobody would live to see is a slip.
int milisegundos(QStringView v) {
  return ini::entero(v, 0, kMaxEspera);
}

QString booleano(const Ajustes& a, bool b) {
  if (a.EsEspanol()) return b ? QStringLiteral("Sí") : QStringLiteral("No");
  return b ? QStringLiteral("Yes") : QStringLiteral("No");
}

bool leerBooleano(QStringView v) {
  const QString palabra = v.trimmed().toString().toUpper();
  for (const char16_t* cierta : {u"SÍ", u"SI", u"YES", u"TRUE", u"VERDADERO"})
    if (palabra == QStringView(cierta)) return true;
  return ini::real(v) != 0;
}

// The n-th part of a list, empty when there are fewer.
QStringView parte(QStringView lista, QChar separador, qsizetype n) {
  const auto partes = lista.split(separador);
  return n < partes.size() ? partes[n].trimmed() : QStringView();
}

QString par(int a, int b) {
  return QStringLiteral("%1|%2").arg(a).arg(b);
}

QString rutaDada(const Ajustes& a, const QString& v, const QString& siVacia) {
  return v.isEmpty() ? siVacia : Ajustes::ruta(v, a.carpeta);
}

void leerFecha(const QString& v, Fecha& f) {
  f = Fecha::leer(v).value_or(f);
}
void leerHora(const QString& v, Fecha& f) {
  f = Fecha::leerHora(v).value_or(f);
}

void leerCalculo(Ajustes& a, const QString& v) {
  auto& c = a.calculoPrecios;
  c.a = leerBooleano(parte(v, u'|', 0));
  c.b = i16(parte(v, u'|', 1));
  c.conSegundo = v.count(u'|') >= 3;
  c.c = c.conSegundo && leerBooleano(parte(v, u'|', 2));
  c.d = c.conSegundo ? i16(parte(v, u'|', 3)) : 0;
}

QString escribirCalculo(const Ajustes& a) {
  const auto& c = a.calculoPrecios;
  const QString primero = QStringLiteral("%1|%2").arg(booleano(a, c.a)).arg(c.b);
  return c.conSegundo ? QStringLiteral("%1|%2|%3").arg(primero, booleano(a, c.c)).arg(c.d)
                      : primero;
}

void leerPeriodos(Ajustes& a, const QString& v) {
  a.UltimosPeriodos.clear();
  for (const QStringView p : QStringView(v).split(u'|', Qt::SkipEmptyParts).mid(0, kPeriodos))
    a.UltimosPeriodos.push_back(i32(p));
}

QString escribirPeriodos(const Ajustes& a) {
  QStringList partes;
  for (const int p : a.UltimosPeriodos) partes << QString::number(p);
  return partes.join(u'|');
}

void leerLogos(Ajustes& a, const QString& v) {
  for (int i = 0; i < 2; ++i)
    a.MonedaLogo[static_cast<size_t>(i)] = parte(v, u',', i).left(3).toString();
}

// A single has seven good digits; what lies behind them is noise of its binary form.
QString escribirEuro(const Ajustes& a) {
  return QString::number(QString::number(a.Euro, 'g', 7).toDouble(), 'f', 6);
}

void leerFestivos(Ajustes& a, const QString& v) {
  for (size_t i = 0; i < 7; ++i)
    a.FestivoSemanal[i] = ini::real(parte(v, u',', static_cast<qsizetype>(i))) != 0;
}

QString escribirFestivos(const Ajustes& a) {
  QStringList partes;
  for (const bool festivo : a.FestivoSemanal) partes << QString::number(festivo ? 1 : 0);
  return partes.join(u',');
}

template <size_t N>
void leerPar(const QString& v, std::array<int, N>& par2) {
  for (size_t i = 0; i < N; ++i) par2[i] = i16(parte(v, u'|', static_cast<qsizetype>(i)));
}

struct Clave {
  const char16_t* nombre;  // as written; nothing for a blank line
  void (*leer)(Ajustes&, const QString&);
  QString (*escribir)(const Ajustes&);
};

QString n(int numero) {
  return QString::number(numero);
}

#define CLAVE_ENTERA(nombre, campo, lector)                           \
  {nombre, [](Ajustes& a, const QString& v) { a.campo = lector(v); }, \
   [](const Ajustes& a) { return n(a.campo); }}
#define BLANCO {nullptr, nullptr, nullptr}

const Clave kAntes[] = {
    {u"HomeDir", [](Ajustes& a, const QString& v) { a.HomeDir = rutaDada(a, v, a.HomeDir); },
     [](const Ajustes& a) { return a.HomeDir; }},
    {u"BaseDatos", [](Ajustes& a, const QString& v) { a.BaseDatos = rutaDada(a, v, a.BaseDatos); },
     [](const Ajustes& a) { return a.BaseDatos; }},
    {u"CopiaSeguridad",
     [](Ajustes& a, const QString& v) { a.CopiaSeguridad = rutaDada(a, v, QString()); },
     [](const Ajustes& a) { return a.CopiaSeguridad; }},
    BLANCO,
    CLAVE_ENTERA(u"WhoAmI", WhoAmI, i16),
    CLAVE_ENTERA(u"TimeOut", TimeOut, milisegundos),
    CLAVE_ENTERA(u"TimeCero", TimeCero, milisegundos),
    CLAVE_ENTERA(u"IntentosManual", IntentosManual, i16),
    CLAVE_ENTERA(u"TimeACK", TimeACK, milisegundos),
    CLAVE_ENTERA(u"FactorEsperaNDL", FactorEsperaNDL, milisegundos),
    BLANCO,
    {u"CalculoPrecios", leerCalculo, escribirCalculo},
};

const Clave kDespues[] = {
    BLANCO,
    CLAVE_ENTERA(u"SesiónAbier", SesionAbier, i16),
    {u"SesiónHasta", [](Ajustes& a, const QString& v) { leerFecha(v, a.SesionHasta); },
     [](const Ajustes& a) { return a.SesionHasta.general(); }},
    {u"SesiónACero", [](Ajustes& a, const QString& v) { leerFecha(v, a.SesionACero); },
     [](const Ajustes& a) { return a.SesionACero.general(); }},
    {u"ÚltimosPeriodos", leerPeriodos, escribirPeriodos},
    {u"InicioHorario", [](Ajustes& a, const QString& v) { leerHora(v, a.InicioHorario); },
     [](const Ajustes& a) { return a.InicioHorario.horaLarga().left(5); }},
    {u"FinalHorario", [](Ajustes& a, const QString& v) { leerHora(v, a.FinalHorario); },
     [](const Ajustes& a) { return a.FinalHorario.horaLarga().left(5); }},
    {u"ToleranciaHora",
     [](Ajustes& a, const QString& v) { a.ToleranciaHora = static_cast<float>(ini::real(v)); },
     [](const Ajustes& a) { return QString::number(a.ToleranciaHora, 'f', 2); }},
    BLANCO,
    {u"MonedaNativa", [](Ajustes& a, const QString& v) { a.MonedaNativa = ini::entero(v, 0, 255); },
     [](const Ajustes& a) { return n(a.MonedaNativa); }},
    {u"MonedaPreferente",
     [](Ajustes& a, const QString& v) { a.MonedaPreferente = ini::entero(v, 0, 255); },
     [](const Ajustes& a) { return n(a.MonedaPreferente); }},
    {u"MonedaLogo", leerLogos,
     [](const Ajustes& a) { return a.MonedaLogo[0] + u',' + a.MonedaLogo[1]; }},
    {u"Euro", [](Ajustes& a, const QString& v) { a.Euro = static_cast<float>(ini::real(v)); },
     escribirEuro},
    {u"FestivoSemanal", leerFestivos, escribirFestivos},
    CLAVE_ENTERA(u"NúmeroPedido", NumeroPedido, i32),
    CLAVE_ENTERA(u"NúmeroInventario", NumeroInventario, i32),
    {u"EnviarCambios", [](Ajustes& a, const QString& v) { leerPar(v, a.EnviarCambios); },
     [](const Ajustes& a) { return par(a.EnviarCambios[0], a.EnviarCambios[1]); }},
    {u"OpcionesStockCompras",
     [](Ajustes& a, const QString& v) { leerPar(v, a.OpcionesStockCompras); },
     [](const Ajustes& a) { return par(a.OpcionesStockCompras[0], a.OpcionesStockCompras[1]); }},
    BLANCO,
    CLAVE_ENTERA(u"ModoIntroRápido", ModoIntroRapido, i16),
    {u"ParrillaRápida", [](Ajustes& a, const QString& v) { a.ParrillaRapida = v; },
     [](const Ajustes& a) { return a.ParrillaRapida; }},
    BLANCO,
};

const Clave kAlta[] = {
    BLANCO,
    {u"PrefijoCódigos", [](Ajustes& a, const QString& v) { a.PrefijoCodigos = v; },
     [](const Ajustes& a) { return a.PrefijoCodigos; }},
    CLAVE_ENTERA(u"NúmPreciosAlta", NumPreciosAlta, i16),
    CLAVE_ENTERA(u"NúmTarifasAlta", NumTarifasAlta, i16),
    BLANCO,
};

#define CLAVE_CANAL(nombre, campo, lector)                               \
  {nombre, [](ParamCanal& c, const QString& v) { c.campo = lector(v); }, \
   [](const ParamCanal& c) { return n(c.campo); }}
#define CLAVE_CADENA(nombre, campo)                                        \
  {nombre, [](ParamCanal& c, const QString& v) { c.campo = v.toUpper(); }, \
   [](const ParamCanal& c) { return c.campo; }}

struct ClaveCanal {
  const char16_t* nombre;
  void (*leer)(ParamCanal&, const QString&);
  QString (*escribir)(const ParamCanal&);
};

const ClaveCanal kCanal[] = {
    CLAVE_CANAL(u"Puerto", Puerto, i16),
    CLAVE_CANAL(u"Device", Device, i16),
    CLAVE_CADENA(u"RS232", RS232),
    CLAVE_CADENA(u"IniMdm0", IniMdm0),
    {u"IniMdmX",
     [](ParamCanal& c, const QString& v) {
       c.IniMdmX = v.isEmpty() ? QStringList() : v.toUpper().split(u';').mid(0, kCadenasModem);
     },
     [](const ParamCanal& c) { return c.IniMdmX.join(u';'); }},
    CLAVE_CADENA(u"PfxDial", PfxDial),
    CLAVE_CANAL(u"Intentos", Intentos, i16),
    CLAVE_CANAL(u"Espera", Espera, i32),
    CLAVE_CANAL(u"ATHang", ATHang, i32),
    CLAVE_CANAL(u"ControlLinea", ControlLinea, i16),
};

bool es(const ini::Linea& linea, const char16_t* nombre) {
  return linea.clave == QString::fromUtf16(nombre).toUpper();
}

void leerSinIndice(Ajustes& a, const ini::Linea& linea) {
  if (es(linea, u"AceptaOtroCodigo")) a.AceptaOtroCodigo = linea.valor == u"1";
  for (const std::span<const Clave> tabla : {std::span<const Clave>(kAntes), {kDespues}, {kAlta}})
    for (const Clave& c : tabla)
      if (c.nombre && es(linea, c.nombre)) return c.leer(a, linea.valor);
}

void leerPersonal(Ajustes& a, size_t indice, const QString& v) {
  if (a.personal.size() < indice) a.personal.resize(indice);
  const qsizetype barra = v.indexOf(u'|');
  a.personal[indice - 1] =
      barra < 0 ? Ajustes::Personal{v, {}} : Ajustes::Personal{v.left(barra), v.mid(barra + 1)};
}

void leerConIndice(Ajustes& a, const ini::Linea& linea) {
  const auto dentro = [&](int desde, int hasta) {
    return linea.indice >= desde && linea.indice <= hasta;
  };
  const auto indice = static_cast<size_t>(linea.indice);
  if (es(linea, u"TextoEtiquetas") && dentro(21, 40)) a.TextoEtiquetas[indice] = linea.valor;
  if (es(linea, u"Personal") && dentro(1, kPersonales)) leerPersonal(a, indice, linea.valor);
  if (es(linea, u"RutaPuerto") && dentro(1, 16) && !linea.valor.isEmpty())
    a.RutaPuerto[linea.indice] = linea.valor;
  if (!dentro(1, static_cast<int>(a.canales.size()))) return;
  for (const ClaveCanal& c : kCanal)
    if (es(linea, c.nombre)) c.leer(a.canales[indice - 1], linea.valor);
}

// The lines of the file as they are made.
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
  ini::recorrer(texto, [this](const ini::Linea& linea) {
    linea.indice < 0 ? leerSinIndice(*this, linea) : leerConIndice(*this, linea);
  });
  std::erase_if(personal,
                [](const Personal& p) { return p.titulo.isEmpty() && p.proceso.isEmpty(); });
  fijarTextosEtiquetas();
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
