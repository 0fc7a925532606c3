// A whole shop on a virtual clock, with machine models at the far ends of its lines, and the
// assistant in front.
#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "app/Aplicacion.h"
#include "app/Datos.h"
#include "comm/cables/AjustesCables.h"
#include "comm/exploracion/ventanas/Puertas.h"
#include "comm/exploracion/ventanas/RegistrarVentanas.h"
#include "core/ventanas/marco/Tira.h"
#include "enlace/CableMemoria.h"
#include "simulador/Cable.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {

// What hangs on a line, by the device or "host:port": nothing on the others.
struct Lejos {
  simulador::Cable cable;
  std::vector<std::unique_ptr<simulador::Maquina>> maquinas;
  std::unique_ptr<simulador::Tubo> tubo;
  const pruebas::MandoCable* de = nullptr;  // the wire that it is connected to
};

struct MesaDeExploracion : Tienda {
  MesaDeExploracion() {
    bien(aplicacion.empezar());
    exploracion::registrarVentanasExploracion(escritorio.ventanas(),
                                              {.catalogo = aplicacion.catalogo(),
                                               .fabrica = aplicacion.fabrica(),
                                               .motor = aplicacion.gestcomm(),
                                               .semilla = 7});
    fabrica.preparar = [this](pruebas::MandoCable& m) {
      m.alEnviar = [this, &m](const QByteArray& b) { enviar(m, b); };
    };
  }
  static QString clave(const pruebas::MandoCable& m) {
    const auto& p = m.parametros;
    return p.host.isEmpty() ? p.ruta : u"%1:%2"_s.arg(p.host).arg(p.puertoTcp);
  }
  void maquina(const QString& donde, simulador::Tipo tipo, int direccion,
               const std::vector<int>& balanzas) {
    simulador::OpcionesMaquina o;
    o.tipo = tipo;
    o.estacion = o.direccion = direccion;
    o.balanzas = balanzas;
    auto& suyas = lejos[donde].maquinas;
    suyas.push_back(simulador::crearMaquina(o, reloj));
    lejos[donde].cable.poner(*suyas.back());
  }
  void abrir() {
    v = escritorio.ventanas().abrir(exploracion::PuertaWizInicio());
    ASSERT_TRUE(v);
    ASSERT_TRUE(esperar([this] { return v->isActiveWindow(); }));
  }
  // Moves the clock until it holds, with the windows running in between.
  template <class F>
  bool hasta(F condicion, int segundos = 300) {
    for (int i = 0; i < segundos * 10 && !condicion(); ++i) {
      reloj.avanzar(100);
      QCoreApplication::processEvents();
    }
    return condicion();
  }
  template <class W>
  W* control(const char16_t* nombre) {
    auto* w = v->findChild<W*>(QString::fromUtf16(nombre));
    EXPECT_NE(w, nullptr) << QString::fromUtf16(nombre).toStdString();
    return w;
  }
  void pulsar(const char16_t* boton) {
    auto* b = control<QPushButton>(boton);
    EXPECT_TRUE(b->isVisible() && b->isEnabled()) << QString::fromUtf16(boton).toStdString();
    QTest::mouseClick(b, Qt::LeftButton);
  }
  bool seVe(const char16_t* nombre) { return control<QWidget>(nombre)->isVisible(); }
  // Explores everything and shows what will be done.
  void hastaResultados() {
    pulsar(u"StartPoll");
    ASSERT_TRUE(hasta([this] { return seVe(u"Resumen"); }));
    pulsar(u"StartPoll");
    ASSERT_TRUE(seVe(u"frmfaseRes"));
  }
  // Without a button, with Return.
  template <class F>
  void responder(const QString& boton, F hacer) {
    QTimer::singleShot(0, qApp, [this, boton] {
      QWidget* w = QApplication::activeModalWidget();
      ASSERT_NE(w, nullptr);
      textoModal = w->findChild<QLabel*>(u"Mensaje"_s)->text();
      auto* suyo = w->findChild<QPushButton*>(boton);
      suyo ? QTest::mouseClick(suyo, Qt::LeftButton) : QTest::keyClick(w, Qt::Key_Return);
    });
    hacer();
  }
  QString grupos() {
    return leer(
        u"select CODGPO, tipo, remoto, TELEF, (select group_concat(NMBZA) from BZAS where "
        u"SUGPO=CODGPO) from GRUPOS order by CODGPO"_s);
  }
  dao::Database& base() override { return *fondo->db; }

  QTemporaryDir carpeta;
  Textos textos = bien(Textos::leer(QStringLiteral(TARVO_DATOS "/textos/es.txt")));
  RelojVirtual reloj{Fecha::deDias(46000.5)};
  std::map<QString, Lejos> lejos;
  std::unique_ptr<app::Fondo> fondo =
      bien(app::Fondo::abrir(carpeta.path(), Idioma::Espanol, textos, reloj));
  app::Datos datos{{}, textos};
  pruebas::FabricaMemoria fabrica{reloj};
  app::Aplicacion aplicacion{*fondo, reloj, fabrica, 1, datos};
  ventanas::Escritorio escritorio{
      *qApp, *fondo->db, fondo->ajustes, textos, reloj, ventanas::Cara::Clara, {}};
  ventanas::Ventana* v = nullptr;
  QString textoModal;

 private:
  void enviar(pruebas::MandoCable& m, const QByteArray& bytes) {
    const auto l = lejos.find(clave(m));
    if (l == lejos.end()) return;
    auto& tubo = l->second.tubo;
    if (std::exchange(l->second.de, &m) != &m) {
      tubo.reset();
      tubo = std::make_unique<simulador::Tubo>(l->second.cable, reloj);
      tubo->abrir([&m](const QByteArray& b) { m.entra(b); }, [](bool) {});
    }
    tubo->enviar(bytes);
  }
};

}  // namespace tarvo::prueba
