// Imports the former system's articles into the catalogue, in slices. Each is due to the machines;
// the whole run is one undoable batch, whose sections SeccionesHechas then removes.
#pragma once

#include "articles/Lotes.h"
#include "articles/importar/LineaTvc.h"
#include "articles/importar/Lineas.h"
#include "articles/importar/SeccionesHechas.h"

namespace tarvo::importar {

class MainTvc {
 public:
  static constexpr int kLineasPorPaso = 100;

  // REQUIRES that the catalogue outlives it. Errors: those of leerFichero; Formato for a file
  // without lines, and for one in the other layout of .PLU files.
  static Resultado<std::unique_ptr<MainTvc>> abrir(articles::Catalogo& catalogo,
                                                   const QString& ruta);

  // The next lines, as one transaction: true while there is more to do.
  Resultado<bool> paso(const DestinoTvc& destino);
  // Closes the batch, however the run ended.
  Resultado<> acabar();

  struct Cuenta {
    int lineas = 0, nuevos = 0, cambiados = 0;
    int sinTarifa = 0;  // lines whose section is not assigned to any tarifa
    std::vector<LineaMala> malas;
  };
  const Cuenta& cuenta() const { return cuenta_; }
  const QString& actual() const { return actual_; }  // 25 characters of the last line
  qint64 leidos() const { return lineas_.leidos(); }
  qint64 tamano() const { return lineas_.tamano(); }

 private:
  MainTvc(articles::Catalogo& catalogo, QByteArray bytes);
  Resultado<bool> lineas(const DestinoTvc& destino);
  Resultado<bool> linea(const DestinoTvc& destino);
  Resultado<> convertir(const RegistroTvc& r, const SitioTvc& sitio, const QString& prefijo);
  // Why the line can't be converted, in words; empty for a good one.
  QString falta(const RegistroTvc& r, const DestinoTvc& destino) const;
  Resultado<> ponerInicial(articles::ClaveArticulo clave, qint64 inicial);

  dao::Database& db_;
  articles::Catalogo& catalogo_;
  articles::Lotes lotes_;
  SeccionesHechas hechas_;
  Lineas lineas_;
  Cuenta cuenta_;
  QString actual_;
  qint64 lote_ = 0;
};

}  // namespace tarvo::importar
