// Writer of one step line.
#include "automation/lenguaje/Gramatica.h"
#include "core/textos/Textos.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

// A free text as a field can hold it: a comma or a line end in it would part the line.
QString sinCortes(QString texto) {
  for (QChar& c : texto)
    if (c == u',' || c == u'\r' || c == u'\n') c = u' ';
  return texto;
}

QString fechaEscrita(Fecha f) {
  return f == f.dia() ? f.corta() : f.general();
}

QString conAncho(const Casilla& c, int ancho) {
  if (const auto* n = std::get_if<qint64>(&c)) return Ceros(*n, ancho);
  const auto* t = std::get_if<QString>(&c);
  return t ? *t : QString();
}

QString fechaOTexto(const Casilla& c) {
  if (const auto* f = std::get_if<Fecha>(&c)) return fechaEscrita(*f);
  const auto* t = std::get_if<QString>(&c);
  return t ? sinCortes(*t) : QString();
}

class Escritor {
 public:
  Escritor(const PasoProceso& paso, const motor::RegistroTareas& registro, bool espanol)
      : p_(paso), registro_(registro), espanol_(espanol) {}

  QString linea() const {
    switch (p_.clase()) {
      case kTarea:
        return u"T:"_s + tarea();
      case kSesion:
        return u"S:"_s + verbo() + (p_.verbo() == kCerrar ? cerrar() : QString());
      case kControl:
        return u"C:"_s + verbo() + u", "_s + conAncho(p_.c[2], 1) + u", "_s + siNoDe(3);
      case kPeriodos:
        return u"P:"_s + verbo() + periodos();
      case kExportar:
        return u"E:"_s + verbo() + (p_.verbo() == kTotaliza ? totaliza() : QString());
      case kNoper:
        return u"N:"_s + p_.texto(1);
      default:
        return {};
    }
  }

 private:
  QString siNoDe(int casilla) const { return siNo(p_.logico(casilla), espanol_); }

  QString verbo() const {
    const auto verbos = verbosDe(p_.clase());
    const auto n = static_cast<size_t>(p_.verbo());
    return n >= 1 && n <= verbos.size() ? verbos[n - 1].toString() : QString();
  }

  QString tarea() const {
    const auto cual = deNumero<TipoTarea>(p_.verbo());
    const auto* clase = cual ? registro_.de(*cual) : nullptr;
    const QString cabeza =
        (clase ? QString::fromUtf16(clase->clave) : QString()) + u',' + conAncho(p_.c[2], 4);
    if (llevaInforme(p_.verbo())) return cabeza + u", "_s + siNoDe(3);
    if (!llevaRango(p_.verbo())) return cabeza;
    return cabeza + u", "_s + siNoDe(3) + u", "_s + conAncho(p_.c[4], 7) + u", "_s +
           conAncho(p_.c[5], 7);
  }

  QString cerrar() const {
    return u", "_s + sinCortes(p_.texto(2)) + u", "_s + siNoDe(3) + u", "_s + siNoDe(4);
  }

  QString periodos() const {
    switch (p_.verbo()) {
      case kCrear:
        return crear();
      case kBorrar:
      case kSeleccionar:
        return u',' + conAncho(p_.c[2], 1) + u',' + fechaOTexto(p_.c[3]) + u',' +
               fechaOTexto(p_.c[4]);
      case kAcumular:
      case kDesacumular:
        return u',' + conAncho(p_.c[2], 1);
      default:
        return {};
    }
  }

  QString crear() const {
    const auto* i = std::get_if<Intervalo>(&p_.c[2]);
    const Intervalo iv = i ? *i : Intervalo{};
    const bool libre = iv.tipo == totals::kOtros;  // the others' limits follow from the day
    return u',' + QString::number(iv.tipo) + u',' +
           (libre ? fechaEscrita(iv.desde) : iv.desde.corta()) + u',' +
           (libre ? fechaEscrita(iv.hasta) : iv.hasta.corta()) + u',' + sinCortes(p_.texto(3));
  }

  QString totaliza() const {
    return u", "_s + siNoDe(2) + u", "_s + siNoDe(3) + u',' + sinCortes(p_.texto(4));
  }

  const PasoProceso& p_;
  const motor::RegistroTareas& registro_;
  bool espanol_;
};

}  // namespace

QString Lenguaje::EscribirPaso(const PasoProceso& paso) const {
  return Escritor(paso, r_, a_.EsEspanol()).linea();
}

QString Lenguaje::escribir(const FicheroProceso& f) const {
  auto fin = f.pasos.end();
  while (fin != f.pasos.begin() && std::prev(fin)->clase() == 0) --fin;
  QString pasos;
  for (auto p = f.pasos.begin(); p != fin; ++p) pasos += EscribirPaso(*p) + u"\r\n"_s;
  if (f.activaciones.empty()) return pasos;
  QString cabeza;
  for (const auto& a : f.activaciones) cabeza += escribirActivacion(a) + u"\r\n"_s;
  return cabeza + kInicioBatch.toString() + u"\r\n"_s + pasos + kFinalBatch.toString() + u"\r\n"_s;
}

QString Lenguaje::escribirActivacion(const LineaActivacion& l) const {
  QStringList dias;
  for (const bool d : l.dias) dias += siNo(d, a_.EsEspanol());
  return l.hora.horaLarga() + u';' + dias.join(u',') + u';' + l.nombre;
}

}  // namespace tarvo::automation
