// Reader of files: a process, with or without a timetable of its own, and a timetable.
#include "automation/lenguaje/Gramatica.h"
#include "automation/lenguaje/TextosLenguaje.h"
#include "core/ajustes/Ficheros.h"
#include "core/textos/Textos.h"

namespace tarvo::automation {

namespace {

constexpr qint64 kTamanoMaximo = 4 * 1024 * 1024;

std::vector<QStringView> lineasDe(const QString& texto) {
  auto lineas = QStringView(texto).split(u'\n');
  if (!lineas.empty() && lineas.back().isEmpty()) lineas.pop_back();
  for (auto& l : lineas)
    if (l.endsWith(u'\r')) l.chop(1);
  return {lineas.begin(), lineas.end()};
}

std::unexpected<Error> falloEnLinea(size_t indice, const QString& texto, const Textos& textos) {
  return fallo(Fallo::Formato, textos(kTxEnLinea, {indice + 1, texto}));
}

// "##:##:##;*,*,*,*,*,*,*;@"
bool pareceActivacion(QStringView l) {
  constexpr QStringView hora = u"##:##:##;";
  if (l.size() < hora.size() || !l.endsWith(u";@")) return false;
  for (qsizetype i = 0; i < hora.size(); ++i)
    if (hora[i] == u'#' ? l[i] < u'0' || l[i] > u'9' : l[i] != hora[i]) return false;
  return l.sliced(hora.size()).count(u',') >= 6;
}

// The head of a process file accepts the day flags only in exact spelling.
std::optional<bool> siNoExacto(QStringView campo, bool espanol) {
  const auto valor = leerSiNo(campo, espanol);
  const bool exacto = valor && (campo == siNo(*valor, espanol) || campo == u"Si");
  return exacto ? valor : std::nullopt;
}

std::optional<Fecha> horaDelDia(QStringView campo) {
  if (const auto h = Fecha::leerHora(campo)) return h;
  if (const auto f = Fecha::leer(campo)) return Fecha::deDias(f->hora());
  return std::nullopt;
}

using LectorSiNo = std::optional<bool> (*)(QStringView, bool);

std::optional<LineaActivacion> activacionDe(QStringView linea, bool espanol, LectorSiNo leerDia) {
  LineaActivacion a;
  const auto hora = horaDelDia(cortar(linea, u';'));
  if (!hora) return std::nullopt;
  a.hora = *hora;
  for (size_t i = 0; i < a.dias.size(); ++i) {
    const auto dia = leerDia(cortar(linea, i + 1 < a.dias.size() ? u',' : u';'), espanol);
    if (!dia) return std::nullopt;
    a.dias[i] = *dia;
  }
  a.nombre = linea.trimmed().toString();
  if (a.nombre.isEmpty()) return std::nullopt;
  return a;
}

// The states of the file reader.
enum class Zona { Comienzo, EnBatch, EnLlano, Acabado };

class LectorFichero {
 public:
  LectorFichero(const Lenguaje& lenguaje, bool espanol) : lenguaje_(lenguaje), espanol_(espanol) {}

  Resultado<> linea(QStringView l) {
    ++numero_;
    if (zona_ == Zona::Acabado) {
      mirarResto(l);
      return {};
    }
    const bool inicio = l.startsWith(kInicioBatch), final = l.startsWith(kFinalBatch);
    if (inicio || final) return marca(inicio);
    if (zona_ == Zona::Comienzo && pareceActivacion(l)) {
      if (auto a = activacionDe(l, espanol_, siNoExacto))
        f_.activaciones.push_back(std::move(*a));
      else
        omitir(numero_, kTxHoraOmitida);
      return {};
    }
    QString reparo;
    TARVO_TOMAR(auto paso, lenguaje_.LeerPaso(l, &reparo));
    if (!reparo.isEmpty()) omitir(numero_, reparo);
    return paso ? conPaso(std::move(*paso)) : sinPaso();
  }

  Resultado<FicheroProceso> acabar() {
    if (zona_ == Zona::EnBatch && !f_.pasos.empty())
      return fallo(Fallo::Formato, lenguaje_.textos()(kTxFaltaFinal, {kFinalBatch}));
    if (zona_ == Zona::EnBatch) omitir(inicio_, kTxSinFinal);
    if (corte_ > 0) omitir(corte_, kTxLineaOmitida);
    return std::move(f_);
  }

 private:
  Resultado<> marca(bool inicio) {
    if (inicio && zona_ == Zona::Comienzo)
      zona_ = Zona::EnBatch, inicio_ = numero_;
    else if (!inicio && zona_ == Zona::EnBatch)
      zona_ = Zona::Acabado;
    else
      return fallo(Fallo::Formato,
                   lenguaje_.textos()(kTxFueraDeSitio, {inicio ? kInicioBatch : kFinalBatch}));
    return {};
  }

  Resultado<> conPaso(PasoProceso paso) {
    f_.pasos.push_back(std::move(paso));
    if (zona_ == Zona::Comienzo) zona_ = Zona::EnLlano;
    return {};
  }

  Resultado<> sinPaso() {
    if (zona_ == Zona::EnBatch) return fallo(Fallo::Formato, lenguaje_.textos()(kTxSinLetra));
    if (zona_ == Zona::EnLlano)
      zona_ = Zona::Acabado, corte_ = numero_;
    else
      omitir(numero_, kTxLineaOmitida);
    return {};
  }

  // Anything may follow the closing mark; after a mere non-step line, further steps were meant to
  // be run.
  void mirarResto(QStringView l) {
    if (corte_ == 0 || l.trimmed().isEmpty()) return;
    const auto paso = lenguaje_.LeerPaso(l);
    if (!paso || !*paso) return;
    omitir(std::exchange(corte_, 0), kTxRestoOmitido);
  }

  void omitir(size_t numero, int texto) { omitir(numero, lenguaje_.textos()(texto)); }
  void omitir(size_t numero, const QString& texto) {
    f_.omitidas += lenguaje_.textos()(kTxEnLinea, {numero, texto});
  }

  const Lenguaje& lenguaje_;
  bool espanol_;
  Zona zona_ = Zona::Comienzo;
  size_t numero_ = 0;  // of the present line
  size_t corte_ = 0;   // the line where the steps of a plain file ended
  size_t inicio_ = 0;  // the line of the opening mark
  FicheroProceso f_;
};

}  // namespace

Lenguaje::Lenguaje(const motor::RepertorioTareas& repertorio, const Ajustes& ajustes,
                   const Textos& textos)
    : r_(repertorio), a_(ajustes), t_(textos) {}

Resultado<FicheroProceso> Lenguaje::leer(const QString& texto) const {
  LectorFichero lector(*this, a_.EsEspanol());
  const auto lineas = lineasDe(texto);
  for (size_t i = 0; i < lineas.size(); ++i)
    if (auto r = lector.linea(lineas[i]); !r) return falloEnLinea(i, r.error().texto, t_);
  return lector.acabar();
}

Resultado<FicheroProceso> Lenguaje::LeerProceso(const QString& ruta) const {
  TARVO_TOMAR(const auto texto, leerTexto(ruta));
  return leer(texto);
}

std::optional<LineaActivacion> Lenguaje::leerActivacion(QStringView linea) const {
  return activacionDe(linea, a_.EsEspanol(), leerSiNo);
}

Resultado<std::vector<LineaActivacion>> Lenguaje::leerCro(const QString& texto,
                                                          bool proceso) const {
  std::vector<LineaActivacion> entradas;
  bool enBloque = false;
  const auto lineas = lineasDe(texto);
  for (size_t i = 0; i < lineas.size(); ++i) {
    const auto l = lineas[i].trimmed();
    if (enBloque) {
      enBloque = !l.startsWith(kFinalBatch);
      if (!enBloque && proceso) break;
    } else if (l.startsWith(kInicioBatch)) {
      enBloque = true;
    } else if (!l.isEmpty()) {
      auto entrada = leerActivacion(l);
      if (!entrada) return falloEnLinea(i, t_(kTxNoEsActivacion), t_);
      entradas.push_back(std::move(*entrada));
    }
  }
  return entradas;
}

Resultado<QString> Lenguaje::leerTexto(const QString& ruta) const {
  TARVO_TOMAR(auto bytes, ficheros::leerBytes(ruta, kTamanoMaximo));
  if (bytes.contains('\0')) return fallo(Fallo::Formato, t_(kTxNoEsTexto, {ruta}));
  return ficheros::descodificar(bytes);
}

}  // namespace tarvo::automation
