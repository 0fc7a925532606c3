// Clients that record their events, and a set of links on wires in memory under a virtual clock.
#pragma once

#include <gtest/gtest.h>

#include <QStringList>

#include "comm/cables/AjustesCables.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/enlace/comtvIP.h"
#include "comm/tramas/Trama.h"
#include "core/ajustes/Ajustes.h"
#include "enlace/CableMemoria.h"

// So that failures are readable.
inline void PrintTo(const QString& texto, std::ostream* salida) {
  *salida << '"' << texto.toStdString() << '"';
}

namespace tarvo::pruebas {

struct ClienteAnota final : enlace::ClienteEnlace {
  QStringList oido;
  std::function<void(const QString&)> alOir;
  std::function<bool(int, int, const QByteArray&)> regla;  // encaja; without it every frame fits

  void anotar(const QString& texto) {
    oido << texto;
    if (alOir) alOir(texto);
  }
  // The events since the last call.
  QString nuevo() { return std::exchange(oido, {}).join(QStringLiteral("; ")); }

  void Abrir_Evento(int, int error) override { anotar(QStringLiteral("Abrir %1").arg(error)); }
  void Cerrar_Evento(int, int error) override { anotar(QStringLiteral("Cerrar %1").arg(error)); }
  void EnvioVEK_Evento(int, int error, int addr, int codigo, const QByteArray& datos) override {
    anotar(texto("EnvioVEK", error, addr, codigo, datos));
  }
  void EnvioNDL_Evento(int, int error) override {
    anotar(QStringLiteral("EnvioNDL %1").arg(error));
  }
  void ReciboNDL_Evento(int, int error, int codigo, const QByteArray& datos) override {
    anotar(QStringLiteral("ReciboNDL %1 %2 %3")
               .arg(error)
               .arg(codigo)
               .arg(QString::fromLatin1(datos))
               .trimmed());
  }
  void ReciboVEK_Evento(int, int error, int addr, int codigo, const QByteArray& datos) override {
    anotar(texto("ReciboVEK", error, addr, codigo, datos));
  }
  void CD_Evento(int, bool portadora) override {
    anotar(QStringLiteral("CD %1").arg(portadora ? 1 : 0));
  }
  bool encaja(int, int addr, int codigo, const QByteArray& datos) override {
    return !regla || regla(addr, codigo, datos);
  }

 private:
  static QString texto(const char* nombre, int error, int addr, int codigo,
                       const QByteArray& datos) {
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(QLatin1String(nombre))
        .arg(error)
        .arg(addr)
        .arg(codigo)
        .arg(QString::fromLatin1(datos))
        .trimmed();
  }
};

struct CapturaAnota final : enlace::ClienteLinea {
  QStringList oido;
  QString nuevo() { return std::exchange(oido, {}).join(QStringLiteral("; ")); }
  void Abrir_Evento(int, int error) override { oido << QStringLiteral("Abrir %1").arg(error); }
  void Cerrar_Evento(int, int error) override { oido << QStringLiteral("Cerrar %1").arg(error); }
  void ReciboVEK_Evento(int, int addr, const QByteArray& datos) override {
    oido << QStringLiteral("Tx %1 %2").arg(addr).arg(QString::fromLatin1(datos));
  }
};

inline QByteArray vek(int secuencia, int codigo, const QByteArray& datos = {}, int addr = 1) {
  return tramas::construirVEK(secuencia, tramas::cuerpoVEK(addr, codigo, datos));
}

struct BancoEnlaces : testing::Test {
  RelojVirtual reloj{Fecha::deDias(46000.5)};
  Ajustes ajustes{QStringLiteral("/tienda"),
                  Idioma::Espanol,
                  {enlace::ajustesCables(), enlace::ajustesEnlace()}};
  enlace::AjustesCables& cables = ajustes.de<enlace::AjustesCables>();
  const enlace::AjustesEnlace& tiempos = ajustes.de<enlace::AjustesEnlace>();
  FabricaMemoria fabrica{reloj};
  Azar azar{7};
  enlace::Enlaces enlaces{reloj, ajustes, fabrica, azar};
  ClienteAnota motor;
  CapturaAnota captura;
  const QByteArray ack = QByteArray(1, tramas::kACK);

  MandoCable& cable() { return fabrica.cable(); }
  // Opens channel 0 and drops the events of doing so.
  enlace::comtvIP& abierto(enlace::Para para, int canal = 0, const QString& acceso = {}) {
    EXPECT_EQ(enlaces.AbrirEnlace(para, canal, 0, acceso, &motor, &captura), 0);
    reloj.avanzar(5);
    EXPECT_EQ((para == enlace::Para::VekCaptura ? captura.nuevo() : motor.nuevo()), u"Abrir 0");
    return *enlaces[canal];
  }
  // The number of frames (without acknowledgements) sent since the opening.
  size_t tramasEnviadas() {
    return static_cast<size_t>(std::ranges::count_if(
        cable().enviados, [](const QByteArray& b) { return b.startsWith(tramas::kSTX); }));
  }
};

}  // namespace tarvo::pruebas
