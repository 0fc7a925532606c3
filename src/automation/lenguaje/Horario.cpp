#include "automation/lenguaje/Horario.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "automation/lenguaje/Gramatica.h"
#include "automation/lenguaje/TextosLenguaje.h"
#include "core/ajustes/Ficheros.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

// The yes word of any language, in any case.
bool esSi(QStringView campo) {
  QString palabra = campo.toString().toLower();
  if (!palabra.isEmpty()) palabra[0] = palabra[0].toUpper();
  return leerSiNo(palabra, true).value_or(leerSiNo(palabra, false).value_or(false));
}

LineaActivacion lineaSuelta(QStringView texto) {
  LineaActivacion l;
  l.hora = Fecha::leerHora(cortar(texto, u';')).value_or(Fecha());
  QStringView dias = cortar(texto, u';');
  for (bool& dia : l.dias) dia = esSi(cortar(dias, u','));
  l.nombre = texto.trimmed().toString().toUpper();
  return l;
}

}  // namespace

Resultado<Horario> leerHorario(const QString& texto, const Lenguaje& lenguaje) {
  const Textos& t = lenguaje.textos();
  Horario h;
  bool enBloque = false;
  int numero = 0;
  for (const QStringView linea : QStringView(texto).split(u'\n')) {
    const QStringView limpia = linea.trimmed();
    ++numero;
    if (limpia.startsWith(kInicioBatch)) enBloque = true;
    if (enBloque)
      h.bloque += limpia.toString() + u"\r\n"_s;
    else if (limpia.count(u';') >= 2)
      h.lineas.push_back(lineaSuelta(limpia));
    else if (!limpia.isEmpty())
      return fallo(Fallo::Formato, t(kTxEnLinea, {numero, t(kTxNoEsActivacion)}));
    if (limpia.startsWith(kFinalBatch)) enBloque = false;
  }
  return h;
}

QString escribirHorario(const Horario& horario, const Lenguaje& lenguaje) {
  QString texto;
  for (const auto& l : horario.lineas) texto += lenguaje.escribirActivacion(l) + u"\r\n"_s;
  return texto + horario.bloque;
}

Resultado<> guardarHorario(const QString& ruta, const Horario& horario, const Lenguaje& lenguaje) {
  const QString texto = escribirHorario(horario, lenguaje);
  TARVO_INTENTAR(lenguaje.leerCro(texto));
  return ficheros::escribirEntero(ruta, ficheros::codificar(texto));
}

Resultado<QString> retirarHorario(const QString& ruta) {
  const QString copia = ruta + u'~';
  QFile::remove(copia);
  QFile fichero(ruta);
  if (fichero.rename(copia)) return QFileInfo(copia).fileName();
  return fallo(fichero.exists() ? Fallo::SinPermiso : Fallo::NoExiste, fichero.errorString());
}

QStringList horariosDe(const QString& carpeta) {
  return QDir(carpeta).entryList({u"*.cro"_s}, QDir::Files | QDir::Readable,
                                 QDir::Name | QDir::IgnoreCase);
}

QStringList procesosDe(const QString& carpeta) {
  QStringList nombres;
  for (const QFileInfo& f : QDir(carpeta).entryInfoList(QDir::Files))
    if (f.suffix().compare(u"AUT", Qt::CaseInsensitive) == 0)
      nombres += f.completeBaseName().toUpper();
  nombres.removeDuplicates();
  nombres.sort();
  return nombres;
}

}  // namespace tarvo::automation
