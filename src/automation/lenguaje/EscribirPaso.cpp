// Writer of one step line.
#include <utility>

#include "automation/lenguaje/Gramatica.h"
#include "core/textos/Textos.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

// A free text made fit for a field: a comma or a line end would split the line.
QString sinCortes(QString texto) {
  for (QChar& c : texto)
    if (c == u',' || c == u'\r' || c == u'\n') c = u' ';
  return texto;
}

QString fechaEscrita(Fecha f) {
  return f == f.dia() ? f.corta() : f.general();
}

QString conAncho(const Referencia& r, int ancho) {
  const auto* n = std::get_if<qint64>(&r);
  return n ? Ceros(*n, ancho) : std::get<QString>(r);
}

QString fechaOTexto(const Momento& m) {
  const auto* f = std::get_if<Fecha>(&m);
  return f ? fechaEscrita(*f) : sinCortes(std::get<QString>(m));
}

// Writes what follows the letter of each kind of step.
class Escritor {
 public:
  Escritor(const motor::RepertorioTareas& repertorio, bool espanol)
      : repertorio_(repertorio), espanol_(espanol) {}

  QString campos(const PasoTarea& p) const {
    const auto* clase = repertorio_.de(p.tarea);
    const QString cabeza =
        (clase ? QString::fromUtf16(clase->clave) : QString()) + u',' + conAncho(p.grupo, 4);
    switch (colaDe(p.tarea)) {
      case ColaTarea::Nada:
        return cabeza;
      case ColaTarea::Informe:
        return cabeza + u", "_s + siNoDe(p.todo.value_or(false));
      case ColaTarea::Rango:
        break;
    }
    const PasoTarea::Rango rango = p.rango.value_or(PasoTarea::Rango{});
    return cabeza + u", "_s + siNoDe(p.todo.value_or(false)) + u", "_s + conAncho(rango.desde, 7) +
           u", "_s + conAncho(rango.hasta, 7);
  }

  QString campos(const PasoSesion& p) const {
    const QString verbo = palabraDe(p.verbo).toString();
    if (p.verbo != VerboSesion::Cerrar) return verbo;
    return verbo + u", "_s + sinCortes(p.descripcion) + u", "_s + siNoDe(p.todoAUno) + u", "_s +
           siNoDe(p.sustituir);
  }

  QString campos(const PasoControl& p) const {
    return p.kVerbo.toString() + u", "_s + conAncho(p.reintentos, 1) + u", "_s +
           siNoDe(p.borrarFallos);
  }

  QString campos(const PasoPeriodos& p) const {
    if (!p.verbo) return {};
    const QString verbo = palabraDe(*p.verbo).toString(), tipo = u',' + Ceros(p.tipo, 1);
    switch (*p.verbo) {
      case VerboPeriodos::Crear:
        return verbo + crear(p);
      case VerboPeriodos::Borrar:
      case VerboPeriodos::Seleccionar:
        return verbo + tipo + u',' + fechaOTexto(p.desde) + u',' + fechaOTexto(p.hasta);
      case VerboPeriodos::Acumular:
      case VerboPeriodos::Desacumular:
        return verbo + tipo;
      case VerboPeriodos::Limpiar:
      case VerboPeriodos::SelUltimo:
      case VerboPeriodos::Stock:
      case VerboPeriodos::Sumar:
        return verbo;
    }
    std::unreachable();
  }

  QString campos(const PasoExportar& p) const {
    if (!p.totaliza) return {};
    return p.kVerbo.toString() + u", "_s + siNoDe(p.corto) + u", "_s + siNoDe(p.borrar) + u',' +
           sinCortes(p.fichero);
  }

  QString campos(const PasoNoper& p) const { return p.texto; }

 private:
  QString siNoDe(bool si) const { return siNo(si, espanol_); }

  static QString crear(const PasoPeriodos& p) {
    const Intervalo& iv = p.intervalo;
    const bool libre = iv.tipo == totals::kOtros;  // for other kinds the limits follow from the day
    return u',' + QString::number(iv.tipo) + u',' +
           (libre ? fechaEscrita(iv.desde) : iv.desde.corta()) + u',' +
           (libre ? fechaEscrita(iv.hasta) : iv.hasta.corta()) + u',' + sinCortes(p.descripcion);
  }

  const motor::RepertorioTareas& repertorio_;
  bool espanol_;
};

}  // namespace

QString Lenguaje::EscribirPaso(const PasoProceso& paso) const {
  const Escritor escritor(r_, a_.EsEspanol());
  return std::visit(SegunPaso{[](std::monostate) { return QString(); },
                              [&]<class P>(const P& p) {
                                return QString(QChar(P::kLetra) + (u':' + escritor.campos(p)));
                              }},
                    paso);
}

QString Lenguaje::escribir(const FicheroProceso& f) const {
  auto fin = f.pasos.end();
  while (fin != f.pasos.begin() && enBlanco(*std::prev(fin))) --fin;
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
