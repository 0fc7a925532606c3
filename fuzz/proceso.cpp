// Process files and timetables: any bytes are read or refused, and what is read and written again
// reads the same.
#include <cstdint>
#include <cstdlib>

#include "automation/lenguaje/Proceso.h"
#include "core/ajustes/Ficheros.h"
#include "textos/TextosDePrueba.h"

namespace {

using namespace tarvo;

// One kind for each form of a task line.
motor::RepertorioTareas tareasDeCadaForma() {
  motor::RepertorioTareas r;
  const auto anadir = [&r](TipoTarea tarea, const char16_t* clave) {
    motor::ClaseTarea c;
    c.tarea = tarea;
    c.clave = clave;
    r.anadir(c);
  };
  anadir(TipoTarea::TxPlus, u"TXPLUS");
  anadir(TipoTarea::TxZero, u"TX_ZERO");
  anadir(TipoTarea::RxPlus, u"RXPLUS");
  anadir(TipoTarea::RxGrTot, u"RXGRTOT");
  return r;
}

void exigir(bool cierto) {
  if (!cierto) std::abort();
}

// Steps keep their texts as read, so only the text form is compared, after one writing.
void probarProceso(const automation::Lenguaje& l, const QString& texto) {
  const auto f = l.leer(texto);
  if (!f) {
    exigir(!f.error().texto.isEmpty());
    return;
  }
  for (const auto& p : f->pasos) {
    const QString linea = l.EscribirPaso(p);
    const auto otra = l.LeerPaso(linea);
    exigir(otra && *otra);
    exigir(l.EscribirPaso(**otra) == linea);
  }
  const QString escrito = l.escribir(*f);
  const auto g = l.leer(escrito);
  exigir(g && l.escribir(*g) == escrito);
}

void probarHorario(const automation::Lenguaje& l, const QString& texto) {
  for (const bool proceso : {false, true}) {
    const auto entradas = l.leerCro(texto, proceso);
    if (!entradas) continue;
    for (const auto& e : *entradas) {
      const auto otra = l.leerActivacion(l.escribirActivacion(e));
      exigir(otra && otra->dias == e.dias && otra->nombre == e.nombre);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
  const auto repertorio = tareasDeCadaForma();
  const QByteArray bytes(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamano));
  const QString texto = ficheros::descodificar(bytes);
  for (const Idioma idioma : {Idioma::Espanol, Idioma::UK}) {
    const Ajustes ajustes(QStringLiteral("/"), idioma);
    const automation::Lenguaje l(repertorio, ajustes, textosDePrueba());
    probarProceso(l, texto);
    probarHorario(l, texto);
  }
  return 0;
}
