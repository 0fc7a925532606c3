#include "totals/intercambio/Exportado.h"

#include <array>

namespace tarvo::totals {

namespace {

constexpr qsizetype kLargo = largoLinea(false), kCorto = largoLinea(true), kAnchoFechas = 19;

// Appends zero-filled numbers in their columns, and remembers whether all of them fitted.
class Escritor {
 public:
  explicit Escritor(const QString& codigo) : texto_(codigo) {}
  Escritor& campo(qint64 n, int ancho) {
    const QString cifras = QString::number(n).mid(n < 0 ? 1 : 0);
    const int libre = ancho - (n < 0 ? 1 : 0);
    cabe_ = cabe_ && cifras.size() <= libre;
    if (n < 0) texto_ += u'-';
    texto_ += cifras.rightJustified(libre, u'0');
    return *this;
  }
  Escritor& exigir(bool condicion) {
    cabe_ = cabe_ && condicion;
    return *this;
  }
  std::optional<QString> texto() const { return cabe_ ? std::optional(texto_) : std::nullopt; }

 private:
  QString texto_;
  bool cabe_ = true;
};

void claveLarga(Escritor& e, const FilaExport& f) {
  e.campo(f.GRUPO, 4).campo(f.SECCION, 3);
  if (f.clase == TipoTotal::OperHora)
    e.campo(f.CODI, 5).campo(f.HORA, 2);
  else
    e.campo(f.CODI, 7);
}

void claveCorta(Escritor& e, const FilaExport& f) {
  switch (f.clase) {
    case TipoTotal::GranTotal:
      e.campo(f.GRUPO, 6).exigir(f.CODI == 0 || f.CODI == f.GRUPO);  // no place for another
      break;
    case TipoTotal::Departamentos:
      e.campo(f.GRUPO, 2).campo(f.SECCION, 2).campo(f.CODI, 2);
      break;
    case TipoTotal::Horario:
      e.campo(f.GRUPO, 2).campo(0, 2).campo(f.CODI, 2);
      break;
    case TipoTotal::OperHora:
      e.campo(f.GRUPO, 2).campo(f.CODI, 2).campo(f.HORA, 2);
      break;
    case TipoTotal::PLUs:
    case TipoTotal::Operadores:
      e.campo(f.GRUPO, 2).campo(f.CODI, 4);
      break;
  }
}

// The place of a number in a line, counted from 0; width 0 for a missing one, which reads as 0.
struct Lugar {
  int desde = 0, ancho = 0;
};
struct Clave {
  Lugar grupo, codi, hora;
};
Clave claveDe(TipoTotal clase, bool corto) {
  if (!corto)
    return clase == TipoTotal::OperHora ? Clave{{2, 4}, {9, 5}, {14, 2}}
                                        : Clave{{2, 4}, {9, 7}, {}};
  switch (clase) {
    case TipoTotal::PLUs:
      return {{2, 2}, {4, 4}, {}};
    case TipoTotal::GranTotal:
      return {{2, 6}, {}, {}};
    case TipoTotal::Horario:
      return {{2, 2}, {6, 2}, {}};
    case TipoTotal::OperHora:
      return {{2, 2}, {4, 2}, {6, 2}};
    case TipoTotal::Operadores:
    case TipoTotal::Departamentos:
      return {{4, 2}, {6, 2}, {}};
  }
  std::unreachable();
}

// Digits, optionally preceded by a sign and blanks.
bool leerNumero(QStringView linea, Lugar lugar, qint64& n) {
  n = 0;
  if (lugar.ancho == 0) return true;
  const QStringView t = linea.mid(lugar.desde, lugar.ancho).trimmed();
  const QStringView cifras = t.startsWith(u'-') || t.startsWith(u'+') ? t.mid(1) : t;
  for (const QChar c : cifras)
    if (c < u'0' || c > u'9') return false;
  bool ok = false;
  n = t.toLongLong(&ok);
  return ok;
}

// Where a short line has its group. Ours has it first, followed by the code of an operator, or the
// section and code of a department; another system's has it where those begin. A group of ours may
// have been in another section when the line was written, or may have been deleted since: what
// comes first in a line of another system is not known.
struct ClaveCorta {
  Clave clave;
  bool supuesta = false;  // taken for another system's, though it may be of a group we had
};
std::optional<ClaveCorta> claveCortaDe(TipoTotal tipo, QStringView linea,
                                       const Secciones& secciones) {
  const Clave ajena = claveDe(tipo, true);
  if (tipo != TipoTotal::Operadores && tipo != TipoTotal::Departamentos) return ClaveCorta{ajena};
  qint64 delante = 0, detras = 0;
  if (!leerNumero(linea, {2, 2}, delante) || !leerNumero(linea, ajena.grupo, detras) ||
      delante == 0)  // never a group of ours
    return ClaveCorta{ajena};
  // A group with the code of its section: a department is in the same place in both.
  if (tipo == TipoTotal::Departamentos && delante == detras && secciones.contains(delante))
    return ClaveCorta{ajena};
  const auto grupo = secciones.find(delante);
  const bool deOtro = secciones.contains(detras);
  if (grupo == secciones.end())
    return deOtro ? std::optional(ClaveCorta{ajena, true}) : std::nullopt;
  const bool suSeccion = tipo == TipoTotal::Operadores || grupo->second == detras;
  if (deOtro || !suSeccion) return std::nullopt;
  return ClaveCorta{tipo == TipoTotal::Operadores ? Clave{{2, 2}, {4, 4}, {}}
                                                  : Clave{{2, 2}, {6, 2}, {}}};
}

const ClaseTotal* claseDeCodigo(QStringView codigo, const Ajustes& ajustes) {
  for (const ClaseTotal& c : enVigor(ajustes))
    if (codigo == QStringView(c.codigo)) return &c;
  return nullptr;
}

}  // namespace

std::optional<QString> lineaExport(const FilaExport& f, bool corto) {
  Escritor e(CodigoTotales(f.clase));
  corto ? claveCorta(e, f) : claveLarga(e, f);
  return e.campo(f.c.IMP, 10).campo(f.c.SCO, 10).campo(f.c.PES, 8).campo(f.c.CON, 6).texto();
}

std::expected<FilaExport, LineaMala> leerLineaExport(QStringView linea, const Ajustes& ajustes,
                                                     const Secciones& secciones) {
  const std::unexpected noEs(LineaMala::NoReconocible);
  if (linea.size() != kLargo && linea.size() != kCorto) return noEs;
  const ClaseTotal* c = claseDeCodigo(linea.left(2), ajustes);
  if (!c) return noEs;
  const bool corto = linea.size() == kCorto;
  const auto corta = corto ? claveCortaDe(c->tipo, linea, secciones)
                           : std::optional(ClaveCorta{claveDe(c->tipo, false)});
  if (!corta) return std::unexpected(LineaMala::Dudosa);
  const Clave* clave = &corta->clave;
  const int x = corto ? 8 : 16;
  FilaExport f;
  f.clase = c->tipo;
  f.supuesta = corta->supuesta;
  const bool bien =
      leerNumero(linea, clave->grupo, f.GRUPO) && leerNumero(linea, clave->codi, f.CODI) &&
      leerNumero(linea, clave->hora, f.HORA) && leerNumero(linea, {x, 10}, f.c.IMP) &&
      leerNumero(linea, {x + 10, 10}, f.c.SCO) && leerNumero(linea, {x + 20, 8}, f.c.PES) &&
      leerNumero(linea, {x + 28, 6}, f.c.CON);
  if (!bien) return noEs;
  return f;
}

QString cabeceraComentario(const Periodo& p, QString descr) {
  for (QChar& c : descr)
    if (c == u'\r' || c == u'\n') c = u' ';
  if (p.tipo == kOtros) return u'*' + descr;
  return QStringLiteral("*%1-%2").arg(descr, FormatoPeriodo(p.tipo, p.desde));
}

QString cabeceraFechas(const Periodo& p) {
  return QStringLiteral("*%1  %2").arg(p.desde.general(), p.hasta.general());
}

std::optional<std::pair<Fecha, Fecha>> leerFechas(QStringView linea) {
  const QStringView cuerpo = linea.mid(1);
  if (!linea.startsWith(u'*') || cuerpo.size() < kAnchoFechas) return std::nullopt;
  const auto desde = Fecha::leer(cuerpo.left(kAnchoFechas));
  const auto hasta = Fecha::leer(cuerpo.right(kAnchoFechas));
  if (!desde || !hasta) return std::nullopt;
  return std::pair(*desde, *hasta);
}

}  // namespace tarvo::totals
