// Reader of one step line.
#include <algorithm>

#include "automation/lenguaje/Gramatica.h"
#include "automation/lenguaje/TextosLenguaje.h"
#include "core/textos/Textos.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::automation {

namespace {

QString citado(QStringView campo) {
  return u'"' + campo.left(40).toString() + u'"';
}

// Reads field by field. The first fault is kept, and later fields are ignored.
class Campos {
 public:
  Campos(QStringView resto, bool espanol, const Textos& textos)
      : resto_(resto), espanol_(espanol), textos_(textos) {}

  QStringView campo() { return cortar(resto_, u','); }
  QStringView todo() const { return resto_; }
  QString texto() { return campo().toString(); }

  // A number, a reference filled at run time, or the word for all groups.
  Referencia referencia() {
    const auto f = campo();
    bool es = false;
    const qint64 n = f.toLongLong(&es);
    if (es) return n;
    const bool referencia = f.size() == 2 && f.front() == u'%';
    if (!referencia && f != kTodosLosGrupos) fallo(kTxNoEsNumero, {citado(f)});
    return f.toString();
  }
  Referencia codigo(qint64 defecto) {
    return resto_.isEmpty() ? Referencia(defecto) : referencia();
  }

  bool logico(bool defecto) {
    const auto f = campo();
    if (f.isEmpty()) return defecto;
    const auto valor = leerSiNo(f, espanol_);
    if (!valor) fallo(kTxNoEsSiNo, {citado(f)});
    return valor.value_or(defecto);
  }

  Fecha fecha() {
    const auto f = campo();
    const auto valor = Fecha::leerConGuiones(f);
    if (!valor) fallo(kTxNoEsFecha, {citado(f)});
    return valor.value_or(Fecha());
  }
  Momento fechaOTexto() {
    const auto f = campo();
    if (const auto valor = Fecha::leerConGuiones(f)) return *valor;
    return f.toString();
  }
  // The leading digits of a field.
  qint64 clasePeriodo() {
    const auto f = campo();
    qsizetype n = 0;
    while (n < f.size() && n < 9 && f[n] >= u'0' && f[n] <= u'9') ++n;
    return f.first(n).toLongLong();
  }

  void fallo(int texto, std::initializer_list<Dato> datos = {}) {
    if (error_.isEmpty()) error_ = textos_(texto, datos);
  }
  const QString& error() const { return error_; }
  // The line is read, but not all of it counts.
  void reparo(int texto, std::initializer_list<Dato> datos) {
    if (!reparo_.isEmpty()) reparo_ += QStringLiteral("; ");
    reparo_ += textos_(texto, datos);
  }
  const QString& reparo() const { return reparo_; }

 private:
  QStringView resto_;
  bool espanol_;
  const Textos& textos_;
  QString error_, reparo_;
};

PasoProceso leerTarea(Campos& f, const motor::RepertorioTareas& repertorio) {
  const auto clave = f.campo();
  const auto* clase = clave.isEmpty() ? nullptr : repertorio.porClave(clave);
  if (!clase) {
    f.fallo(kTxNoEsTarea, {citado(clave)});
    return {};
  }
  PasoTarea p{.tarea = clase->tarea, .grupo = f.referencia(), .todo = {}, .rango = {}};
  switch (colaDe(p.tarea)) {
    case ColaTarea::Nada:
      break;
    case ColaTarea::Informe:
      p.todo = f.logico(true);
      break;
    case ColaTarea::Rango:
      p.todo = f.logico(true);
      p.rango.emplace().desde = f.codigo(kPrimerCodigo);
      p.rango->hasta = f.codigo(kUltimoCodigo);
      if (const auto codigo = p.rango->imposible())
        f.fallo(kTxCodigoImposible, {*codigo, Ceros(kPrimerCodigo, 7), kUltimoCodigo});
      if (p.rango->alReves())
        f.fallo(kTxCodigosAlReves,
                {std::get<qint64>(p.rango->desde), std::get<qint64>(p.rango->hasta)});
      break;
  }
  return p;
}

PasoProceso leerSesion(Campos& f) {
  const auto palabra = f.campo();
  const auto verbo = verboSesion(palabra);
  if (!verbo) f.fallo(kTxNoEsOrden, {citado(palabra), PasoSesion::kPalabra});
  PasoSesion p;
  p.verbo = verbo.value_or(VerboSesion::Abrir);
  if (p.verbo != VerboSesion::Cerrar) return p;
  p.descripcion = f.texto();
  p.todoAUno = f.logico(true);
  p.sustituir = f.logico(true);
  return p;
}

PasoProceso leerControl(Campos& f) {
  const auto palabra = f.campo();
  if (palabra != PasoControl::kVerbo)
    f.fallo(kTxNoEsOrden, {citado(palabra), PasoControl::kPalabra});
  PasoControl p;
  p.reintentos = f.referencia();
  p.borrarFallos = f.logico(false);
  return p;
}

// The last date counts for a period of free dates only.
Intervalo leerIntervalo(Campos& f) {
  const auto tipo = static_cast<int>(f.clasePeriodo());
  if (tipo < totals::kDiario || tipo > totals::kOtros) f.fallo(kTxNoEsClasePeriodo);
  const Fecha desde = f.fecha();
  if (tipo == totals::kOtros) return {tipo, desde, f.fecha()};
  const auto final = f.campo();
  if (!f.error().isEmpty()) return {};
  const auto fecha = Fecha::leerConGuiones(final);
  if (!final.isEmpty() && (!fecha || *fecha < desde.dia()))
    f.reparo(kTxFinalPasado, {final.toString()});
  const auto lleno = totals::LimitesPeriodo(tipo, desde, desde);
  if (fecha && *fecha > lleno.hasta)
    f.reparo(kTxFinalFuera, {final.toString(), lleno.hasta.corta()});
  return {tipo, lleno.desde, lleno.hasta};
}

PasoProceso leerPeriodos(Campos& f) {
  PasoPeriodos p;
  p.verbo = verboPeriodos(f.campo());
  if (!p.verbo) return p;
  switch (*p.verbo) {
    case VerboPeriodos::Crear:
      p.intervalo = leerIntervalo(f);
      p.descripcion = f.texto();
      break;
    case VerboPeriodos::Borrar:
    case VerboPeriodos::Seleccionar:
      p.tipo = f.clasePeriodo();
      p.desde = f.fechaOTexto();
      p.hasta = f.fechaOTexto();
      break;
    case VerboPeriodos::Acumular:
    case VerboPeriodos::Desacumular:
      p.tipo = f.clasePeriodo();
      break;
    case VerboPeriodos::Limpiar:
    case VerboPeriodos::SelUltimo:
    case VerboPeriodos::Stock:
    case VerboPeriodos::Sumar:
      break;
  }
  return p;
}

PasoProceso leerExportar(Campos& f) {
  PasoExportar p;
  p.totaliza = f.campo() == PasoExportar::kVerbo;
  if (!p.totaliza) return p;
  p.corto = f.logico(false);
  p.borrar = f.logico(false);
  p.fichero = f.texto();
  return p;
}

// Nothing for a line that doesn't begin like any kind of step.
std::optional<PasoProceso> leerCampos(QStringView palabra, Campos& f,
                                      const motor::RepertorioTareas& repertorio) {
  if (palabra.isEmpty()) return std::nullopt;
  switch (palabra.front().unicode()) {
    case PasoTarea::kLetra:
      return leerTarea(f, repertorio);
    case PasoSesion::kLetra:
      return leerSesion(f);
    case PasoControl::kLetra:
      return leerControl(f);
    case PasoPeriodos::kLetra:
      return leerPeriodos(f);
    case PasoExportar::kLetra:
      return leerExportar(f);
    case PasoNoper::kLetra:
      return PasoNoper{f.todo().toString()};
    default:
      return std::nullopt;
  }
}

// False for a step whose verb is unknown.
bool haceAlgo(const PasoProceso& paso) {
  const auto* periodos = std::get_if<PasoPeriodos>(&paso);
  const auto* exportar = std::get_if<PasoExportar>(&paso);
  return (!periodos || periodos->verbo) && (!exportar || exportar->totaliza);
}

// What a line holds beyond its fields. A task that was meant to do less than it would isn't sent;
// after the last text of another step there may be the rest of it, after a comma.
void mirarSobras(const PasoProceso& paso, Campos& f) {
  const auto resto = f.todo();
  const bool hay = std::ranges::any_of(resto, [](QChar c) { return c != u',' && !c.isSpace(); });
  if (!hay || std::holds_alternative<PasoNoper>(paso) || !haceAlgo(paso)) return;
  if (std::holds_alternative<PasoTarea>(paso))
    f.fallo(kTxSobraCampo, {citado(resto)});
  else
    f.reparo(kTxNoCuentaSobra, {citado(resto)});
}

}  // namespace

Resultado<std::optional<PasoProceso>> Lenguaje::LeerPaso(QStringView linea, QString* reparo) const {
  if (linea.trimmed().isEmpty()) return PasoProceso{};
  const QStringView palabra = cortar(linea, u':');
  Campos f(linea, a_.EsEspanol(), t_);
  auto paso = leerCampos(palabra, f, r_);
  if (paso) mirarSobras(*paso, f);
  if (!f.error().isEmpty()) return fallo(Fallo::Formato, f.error());
  if (reparo) *reparo = f.reparo();
  return paso;
}

}  // namespace tarvo::automation
