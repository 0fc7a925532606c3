#include "app/Ordenes.h"

#include <QFileInfo>

#include "app/TextosApp.h"
#include "comm/exploracion/Accesos.h"

namespace tarvo::app {

namespace {

constexpr int kEsperaMayor = 24 * 60;  // minutes

std::optional<Idioma> idiomaDe(const QString& letras) {
  static constexpr std::pair<const char16_t*, Idioma> kIdiomas[] = {
      {u"es", Idioma::Espanol}, {u"it", Idioma::I},  {u"fr", Idioma::F},
      {u"uk", Idioma::UK},      {u"pl", Idioma::PL}, {u"pt", Idioma::P}};
  for (const auto& [nombre, idioma] : kIdiomas)
    if (letras == QStringView(nombre)) return idioma;
  return std::nullopt;
}

constexpr int kLetraDeIdioma = 0;  // its number in the table

// The language of the texts, by the letter in the table.
Idioma idiomaDeTabla(const QString& letra) {
  static constexpr std::pair<const char16_t*, Idioma> kLetras[] = {{u"I", Idioma::I},
                                                                   {u"F", Idioma::F},
                                                                   {u"UK", Idioma::UK},
                                                                   {u"PL", Idioma::PL},
                                                                   {u"P", Idioma::P}};
  for (const auto& [suya, idioma] : kLetras)
    if (letra.trimmed() == QStringView(suya)) return idioma;
  return Idioma::Espanol;
}

// Reads the arguments one by one; the first fault is kept.
class Lector {
 public:
  Lector(const QStringList& argumentos, const Textos& textos) : resto_(argumentos), t_(textos) {
    o_.idioma = idiomaDeTabla(textos(kLetraDeIdioma));
  }

  std::expected<Ordenes, QString> leer() {
    while (!resto_.isEmpty() && fallo_.isEmpty()) argumento(resto_.takeFirst());
    if (fallo_.isEmpty()) comprobar();
    if (!fallo_.isEmpty()) return std::unexpected(fallo_);
    return o_;
  }

 private:
  void argumento(const QString& a) {
    if (a == u"--carpeta")
      o_.carpeta = valor(a);
    else if (a == u"--sin-ventana")
      sinVentana_ = true;
    else if (a == u"--idioma")
      idioma(valor(a));
    else if (a == u"--dato")
      dato(valor(a));
    else if (a == u"--cuadre")
      cuadre();
    else if (a == u"--puesta-a-cero")
      puestaACero(a);
    else if (a == u"--explorar")
      o_.que = Ordenes::Que::Explorar;
    else if (a == u"--aplicar")
      o_.aplicar = true;
    else if (a == u"--ventana")
      o_.ventana = valor(a);
    else if (a == u"--espera")
      espera(valor(a));
    else if (a == u"--tema")
      tema(valor(a));
    else if (a == u"--ayuda")
      o_.que = Ordenes::Que::Ayuda;
    else if (a == u"--version")
      o_.que = Ordenes::Que::Version;
    else if (a.startsWith(u'-'))
      fallo_ = t_(kTxOpcionDesconocida).arg(a);
    else
      proceso(a);
  }

  QString valor(const QString& opcion) {
    if (resto_.isEmpty() || resto_.first().isEmpty()) fallo_ = t_(kTxFaltaValor).arg(opcion);
    return resto_.isEmpty() ? QString() : resto_.takeFirst();
  }

  void idioma(const QString& letras) {
    const auto hallado = idiomaDe(letras);
    if (hallado) o_.idioma = *hallado;
    if (!hallado && fallo_.isEmpty()) fallo_ = t_(kTxIdiomaDesconocido).arg(letras);
  }

  void espera(const QString& minutos) {
    bool numero = false;
    const int n = minutos.toInt(&numero);
    const bool bien = numero && n >= 0 && n <= kEsperaMayor;
    if (bien) o_.espera = n;
    if (!bien && fallo_.isEmpty()) fallo_ = t_(kTxEsperaMala).arg(minutos).arg(kEsperaMayor);
  }

  void tema(const QString& palabra) {
    const bool bien = palabra == u"claro" || palabra == u"oscuro";
    if (bien) o_.tema = palabra;
    if (!bien && fallo_.isEmpty()) fallo_ = t_(kTxTemaDesconocido).arg(palabra);
  }

  // "%1=5": a mark, one character, "=", the value.
  void dato(const QString& texto) {
    const bool bien =
        texto.size() >= 3 && QStringView(u"%$#").contains(texto[0]) && texto[2] == u'=';
    if (bien) o_.datos[texto.left(2)] = texto.mid(3);
    if (!bien && fallo_.isEmpty()) fallo_ = t_(kTxDatoMalo).arg(texto);
  }

  void cuadre() {
    o_.que = Ordenes::Que::Cuadre;
    if (resto_.isEmpty()) return;
    bool numero = false;
    const qint64 link = resto_.first().toLongLong(&numero);
    if (!numero) return;
    o_.link = link;
    resto_.removeFirst();
  }

  // "7 sí", or "7:11 no" for the register of that address.
  void puestaACero(const QString& opcion) {
    o_.que = Ordenes::Que::PuestaACero;
    const QStringList maquina = valor(opcion).split(u':');
    const QString dicho = valor(opcion).toLower();
    bool bien = maquina.size() <= 2, bienAddr = true;
    if (bien) o_.grupo = maquina.first().toInt(&bien);
    if (bien && maquina.size() == 2) o_.direccion = maquina.last().toInt(&bienAddr);
    o_.seBorro = dicho.size() == 2 && dicho.startsWith(u's');
    if (!bien || !bienAddr || (!o_.seBorro && dicho != u"no"))
      if (fallo_.isEmpty()) fallo_ = t_(kTxPuestaMala);
  }

  void proceso(const QString& a) {
    if (o_.que == Ordenes::Que::Explorar) {
      accesos_ << a;
      return;
    }
    if (conProceso_) fallo_ = t_(kTxSobraArgumento).arg(a);
    conProceso_ = true;
    o_.proceso = a;
  }

  void explorar() {
    auto accesos = exploracion::leerAccesos(accesos_);
    const bool sola =
        o_.que == Ordenes::Que::Explorar && !sinVentana_ && !conProceso_ && o_.ventana.isEmpty();
    if (!accesos || !sola) fallo_ = t_(kTxExplorarMal, {exploracion::kMaxAccesos});
    if (accesos) o_.accesos = std::move(*accesos);
  }

  void comprobar() {
    if (o_.que == Ordenes::Que::Ayuda || o_.que == Ordenes::Que::Version) return;
    if (o_.que == Ordenes::Que::Explorar || o_.aplicar) return explorar();
    if (o_.que == Ordenes::Que::Cuadre) {
      if (sinVentana_ || conProceso_) fallo_ = t_(kTxCuadreSolo);
      return;
    }
    if (o_.que == Ordenes::Que::PuestaACero) {
      if ((sinVentana_ || conProceso_) && fallo_.isEmpty()) fallo_ = t_(kTxPuestaMala);
      return;
    }
    if (!o_.ventana.isEmpty() && (sinVentana_ || conProceso_)) fallo_ = t_(kTxVentanaSola);
    if (!sinVentana_) return;
    o_.que = Ordenes::Que::Proceso;
    if (o_.proceso.trimmed().isEmpty()) fallo_ = t_(kTxFaltaProceso);
  }

  QStringList resto_;
  const Textos& t_;
  Ordenes o_;
  QString fallo_;
  QStringList accesos_;
  bool sinVentana_ = false, conProceso_ = false;
};

bool conCarpeta(const QString& nombre) {
  return nombre.contains(u'/') || nombre.contains(u'\\');
}

QString enDisco(const QString& nombre, const Ajustes& ajustes) {
  if (!conCarpeta(nombre)) return Ajustes::ruta(nombre, ajustes.HomeDir);
  const QFileInfo aqui(nombre);
  return aqui.isFile() ? aqui.absoluteFilePath() : Ajustes::ruta(nombre, ajustes.carpeta);
}

}  // namespace

std::expected<Ordenes, QString> leerOrdenes(const QStringList& argumentos, const Textos& textos) {
  return Lector(argumentos, textos).leer();
}

QString rutaProceso(QString argumento, const Ajustes& ajustes) {
  if (argumento.size() >= 2 && argumento.startsWith(u'"') && argumento.endsWith(u'"'))
    argumento = argumento.mid(1, argumento.size() - 2);
  const QString extension = QStringLiteral(".AUT");
  if (!argumento.contains(u'.')) return enDisco(argumento + extension, ajustes);
  const QString ruta = enDisco(argumento, ajustes);
  // The only dot may be in a folder's name.
  if (QFileInfo(ruta).isFile() || NombreFichero(argumento).contains(u'.')) return ruta;
  const QString conExtension = enDisco(argumento + extension, ajustes);
  return QFileInfo(conExtension).isFile() ? conExtension : ruta;
}

}  // namespace tarvo::app
