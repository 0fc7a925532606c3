#include "core/ventanas/parrilla/Exportar.h"

#include <QSaveFile>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/parrilla/Hoja.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFilasPorTrozo = 64;

QString celdaCsv(QString texto) {
  const bool suelta = !texto.contains(u';') && !texto.contains(u'"') && !texto.contains(u'\n') &&
                      !texto.contains(u'\r');
  return suelta ? texto : u'"' + texto.replace(u'"', u"\"\""_s) + u'"';
}

// A CSV file that appears under its name when it is complete.
class Csv {
 public:
  explicit Csv(const QString& ruta) : fichero_(ruta) {}

  Resultado<> abrir() {
    return fichero_.open(QIODevice::WriteOnly) && fichero_.write("\xEF\xBB\xBF") == 3
               ? Resultado<>()
               : error();
  }
  Resultado<> linea(const QStringList& celdas) {
    QStringList hechas;
    for (const QString& c : celdas) hechas << celdaCsv(c);
    const QByteArray bytes = hechas.join(u';').toUtf8() + "\r\n";
    return fichero_.write(bytes) == bytes.size() ? Resultado<>() : error();
  }
  Resultado<> cerrar() { return fichero_.commit() ? Resultado<>() : error(); }

 private:
  Resultado<> error() const { return fallo(Fallo::SinPermiso, fichero_.errorString()); }
  QSaveFile fichero_;
};

struct Escritura {
  explicit Escritura(Exportacion e) : que(std::move(e)), csv(que.ruta), hoja(que.ruta, que.hoja) {}

  QStringList titulos() const {
    QStringList lista;
    for (const int c : que.columnas)
      lista << que.modelo->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
    return lista;
  }
  Resultado<> abrir() {
    if (enHoja) return hoja.abrir(*que.modelo, que.columnas, titulos());
    TARVO_INTENTAR(csv.abrir());
    return csv.linea(titulos());
  }
  Resultado<> escribir(int f) {
    if (enHoja) return hoja.fila(f);
    QStringList celdas;
    for (const int c : que.columnas) celdas << que.modelo->texto(f, c);
    return csv.linea(celdas);
  }
  Resultado<bool> paso(Trabajo::Avance& avance) {
    const int total = que.modelo->rowCount();
    for (int i = 0; i < kFilasPorTrozo && fila < total; ++i) TARVO_INTENTAR(escribir(fila++));
    avance.hechos = fila;
    avance.total = total;
    if (fila < total) return true;
    TARVO_INTENTAR(enHoja ? hoja.cerrar() : csv.cerrar());
    return false;
  }

  Exportacion que;
  Csv csv;
  Hoja hoja;
  bool enHoja = que.ruta.endsWith(u".xlsx", Qt::CaseInsensitive);
  int fila = 0;
};

}  // namespace

Resultado<Trabajo::Paso> exportar(Exportacion que) {
  auto escritura = std::make_shared<Escritura>(std::move(que));
  TARVO_INTENTAR(escritura->abrir());
  return [escritura](Trabajo::Avance& avance) { return escritura->paso(avance); };
}

}  // namespace tarvo::ventanas
