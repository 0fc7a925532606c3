// Reader of one step line.
#include "automation/TextosAutomation.h"
#include "automation/lenguaje/Gramatica.h"
#include "core/textos/Textos.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::automation {

namespace {

QString citado(QStringView campo) {
  return u'"' + campo.left(40).toString() + u'"';
}

// Written with slashes, or with dashes, the year first or last, as people do.
std::optional<Fecha> leerFecha(QStringView campo) {
  if (const auto f = Fecha::leer(campo)) return f;
  const qsizetype blanco = campo.indexOf(u' ');
  auto partes = campo.left(blanco < 0 ? campo.size() : blanco).split(u'-');
  if (partes.size() != 3) return std::nullopt;
  if (partes[0].size() == 4) std::swap(partes[0], partes[2]);
  const QString hora = blanco < 0 ? QString() : campo.mid(blanco).toString();
  return Fecha::leer(QStringLiteral("%1/%2/%3").arg(partes[0], partes[1], partes[2]) + hora);
}

// Takes field by field. The first fault stays, and the fields after it are read in vain.
class Campos {
 public:
  Campos(QStringView resto, bool espanol, const Textos& textos)
      : resto_(resto), espanol_(espanol), textos_(textos) {}

  QStringView campo() { return cortar(resto_, u','); }
  QStringView todo() const { return resto_; }
  QString texto() { return campo().toString(); }

  // A number, a reference to be filled at run time, or the word for all groups.
  Casilla referencia() {
    const auto f = campo();
    bool es = false;
    const qint64 n = f.toLongLong(&es);
    if (es) return n;
    const bool referencia = f.size() == 2 && f.front() == u'%';
    if (!referencia && f != u"ALL") fallo(kTxNoEsNumero, {citado(f)});
    return f.toString();
  }
  Casilla codigo(qint64 defecto) { return resto_.isEmpty() ? Casilla(defecto) : referencia(); }

  Casilla logico(bool defecto) {
    const auto f = campo();
    if (f.isEmpty()) return defecto;
    const auto valor = leerSiNo(f, espanol_);
    if (!valor) fallo(kTxNoEsSiNo, {citado(f)});
    return valor.value_or(defecto);
  }

  Fecha fecha() {
    const auto f = campo();
    const auto valor = leerFecha(f);
    if (!valor) fallo(kTxNoEsFecha, {citado(f)});
    return valor.value_or(Fecha());
  }
  Casilla fechaOTexto() {
    const auto f = campo();
    if (const auto valor = leerFecha(f)) return *valor;
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

 private:
  QStringView resto_;
  bool espanol_;
  const Textos& textos_;
  QString error_;
};

void leerTarea(Campos& f, const motor::RegistroTareas& registro, PasoProceso& p) {
  const auto clave = f.campo();
  const auto* tarea = clave.isEmpty() ? nullptr : registro.porClave(clave);
  if (!tarea) return f.fallo(kTxNoEsTarea, {citado(clave)});
  p.c[1] = qint64{numeroDe(tarea->tarea)};
  p.c[2] = f.referencia();
  if (llevaRango(numeroDe(tarea->tarea))) {
    p.c[3] = f.logico(true);
    p.c[4] = f.codigo(kPrimerCodigo);
    p.c[5] = f.codigo(kUltimoCodigo);
  } else if (llevaInforme(numeroDe(tarea->tarea))) {
    p.c[3] = f.logico(true);
  }
}

void leerSesion(Campos& f, int verbo, PasoProceso& p) {
  if (verbo != kCerrar) return;
  p.c[2] = f.texto();
  p.c[3] = f.logico(true);
  p.c[4] = f.logico(true);
}

void leerControl(Campos& f, PasoProceso& p) {
  p.c[2] = f.referencia();
  p.c[3] = f.logico(false);
}

Intervalo leerIntervalo(Campos& f) {
  const auto tipo = static_cast<int>(f.clasePeriodo());
  if (tipo < totals::kDiario || tipo > totals::kOtros) f.fallo(kTxNoEsClasePeriodo);
  const Fecha desde = f.fecha();
  if (tipo == totals::kOtros) return {tipo, desde, f.fecha()};
  f.campo();
  if (!f.error().isEmpty()) return {};
  const auto lleno = totals::LimitesPeriodo(tipo, desde, desde);
  return {tipo, lleno.desde, lleno.hasta};
}

void leerPeriodos(Campos& f, int verbo, PasoProceso& p) {
  switch (verbo) {
    case kCrear:
      p.c[2] = leerIntervalo(f);
      p.c[3] = f.texto();
      break;
    case kBorrar:
    case kSeleccionar:
      p.c[2] = f.clasePeriodo();
      p.c[3] = f.fechaOTexto();
      p.c[4] = f.fechaOTexto();
      break;
    case kAcumular:
    case kDesacumular:
      p.c[2] = f.clasePeriodo();
      break;
    default:
      break;
  }
}

void leerExportar(Campos& f, PasoProceso& p) {
  p.c[2] = f.logico(false);
  p.c[3] = f.logico(false);
  p.c[4] = f.texto();
}

int claseDe(QStringView palabra) {
  constexpr QStringView letras = u"TSCPEN";
  return palabra.isEmpty() ? 0 : static_cast<int>(letras.indexOf(palabra.front())) + 1;
}

// The verb of a class whose verbs are words. Only periods and exports keep an unknown one, as a
// step that does nothing.
int leerVerbo(Campos& f, int clase, PasoProceso& p) {
  const auto palabra = f.campo();
  const int verbo = numeroVerbo(clase, palabra);
  if (verbo == 0 && (clase == kSesion || clase == kControl))
    f.fallo(kTxNoEsOrden, {citado(palabra), palabraClase(clase)});
  p.c[1] = qint64{verbo};
  return verbo;
}

void leerCampos(Campos& f, int clase, const motor::RegistroTareas& registro, PasoProceso& p) {
  if (clase == kTarea) return leerTarea(f, registro, p);
  if (clase == kNoper) {
    p.c[1] = f.todo().toString();
    return;
  }
  const int verbo = leerVerbo(f, clase, p);
  if (verbo == 0) return;
  if (clase == kSesion) leerSesion(f, verbo, p);
  if (clase == kControl) leerControl(f, p);
  if (clase == kPeriodos) leerPeriodos(f, verbo, p);
  if (clase == kExportar) leerExportar(f, p);
}

}  // namespace

Resultado<std::optional<PasoProceso>> Lenguaje::LeerPaso(QStringView linea) const {
  if (linea.trimmed().isEmpty()) return PasoProceso{};
  const int clase = claseDe(cortar(linea, u':'));
  if (clase == 0) return std::nullopt;
  PasoProceso p;
  p.c[0] = qint64{clase};
  Campos f(linea, a_.EsEspanol(), t_);
  leerCampos(f, clase, r_, p);
  if (!f.error().isEmpty()) return fallo(Fallo::Formato, f.error());
  return p;
}

}  // namespace tarvo::automation
