// The program's engines, connected as in Aplicacion, on a chosen clock and wires, and the night
// that the measurements run.
#pragma once

#include <QFile>

#include "Comun.h"
#include "automation/Automat.h"
#include "comm/maquinas/Campos.h"
#include "comm/tareas/Repertorio.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::banco {

// Read, memorised, zeroed, added to the week, taken out of the stock, exported.
inline const QString kProcesoNoche = QStringLiteral(
    "T:RXPLUS,ALL,Sí\r\nT:RXGRTOT,ALL\r\nC:ESPERA,1,No\r\nS:CERRAR,Ventas #D,Sí,Sí\r\n"
    "T:TX_ZERO,ALL\r\nC:ESPERA,1,No\r\nP:LIMPIAR\r\nP:SEL. ULTIMO\r\nP:ACUMULAR,2\r\n"
    "P:SEL. ULTIMO\r\nP:STOCK\r\nP:SEL. ULTIMO\r\nE:TOTALIZA,No,No,NOCHE\r\nS:ABRIR\r\n");

// A scale that has sold the same of each of `articulos` until it is told to forget, seen by one
// link. It reads only the necessary part of a frame: STX, two digits of the frame, one of the
// station, two of the address, three of the code, data.
class Ventas {
 public:
  explicit Ventas(int articulos) : articulos_(articulos) {}
  // The body of its answer.
  QByteArray responder(QByteArrayView trama) {
    const QByteArrayView codigo = trama.sliced(6, 3);
    const QByteArray cabeza = "01" + codigo.toByteArray();
    if (codigo == "910" || codigo == "915") articulos_ = 0;
    if (codigo == "830")
      return cabeza + trama.sliced(9, 7).toByteArray() + "000000250000001000" + "00001" +
             QByteArray(20, '0');
    if (codigo == "850")
      return cabeza + maquinas::Ceros(250 * articulos_, 9) + maquinas::Ceros(1000 * articulos_, 9) +
             "00000" + maquinas::Ceros(articulos_, 5);
    return cabeza;
  }

 private:
  int articulos_;  // with sales
};

class SinPreguntas final : public automation::Preguntas {
 public:
  std::optional<qint64> PromptNum(const QString&, const QString&) override { return {}; }
  std::optional<QString> PromptStr(const QString&, const QString&) override { return {}; }
  std::optional<std::pair<Fecha, Fecha>> PromptFch(const QString&, const QString&) override {
    return {};
  }
};

struct Motor {
  Motor(Ajustes& a, dao::Database& base, Reloj& clock, enlace::FabricaEnlaces& cables)
      : db(base), ajustes(a), reloj(clock), fabrica(cables) {
    bien(almacenes.asegurar());
    bien(sesion.cargar());
    automat.desatendido = true;
    automat.alEscribir = [this](const QString& linea) { lineas += linea + u'\n'; };
    automat.alTerminar = [this](automation::ResultadoProceso r) { fin = r; };
  }
  // Starts the night; `fin` is set when it has ended.
  void empezar() {
    auto proceso = bien(lenguaje.leer(kProcesoNoche));
    automat.PROCESO(std::move(proceso.pasos), {}, QStringLiteral("NOCHE"));
  }
  void comprobar(int filas) {
    const auto hay = bien(db.uno(u"SELECT count(*) FROM TOTPLU WHERE LINK>0")).entero();
    // The day's rows and the week's.
    if (fin != automation::ResultadoProceso::Bien || hay != 2 * qint64{filas})
      morir(QStringLiteral("%1 filas\n%2").arg(hay).arg(lineas));
  }

  dao::Database& db;
  Ajustes& ajustes;
  Reloj& reloj;
  enlace::FabricaEnlaces& fabrica;
  SinPreguntas preguntas;
  Azar azar{1};
  stock::Almacenes almacenes{db, reloj, textosDePrueba()};
  totals::Sesion sesion{db, ajustes, reloj, textosDePrueba()};
  totals::Periodos periodos{db, ajustes, almacenes, textosDePrueba()};
  totals::CerrSes cerrSes{sesion, periodos};
  totals::VerTot verTot{periodos};
  totals::XporTot xporTot{periodos};
  motor::RepertorioTareas repertorio = tareas::repertorio();
  enlace::Enlaces enlaces{reloj, ajustes, fabrica, azar};
  motor::gestcomm gestcomm{{db, ajustes, reloj, sesion, textosDePrueba()}, enlaces, repertorio};
  automation::Lenguaje lenguaje{repertorio, ajustes, textosDePrueba()};
  automation::Automat automat{{db, ajustes, reloj, sesion, gestcomm, repertorio, cerrSes, verTot,
                               xporTot, textosDePrueba()},
                              preguntas};
  QString lineas;
  std::optional<automation::ResultadoProceso> fin;
};

}  // namespace tarvo::banco
