// A shop with the whole program and its main window, on machines that never answer, and windows of
// other rooms that only record how they were opened.
#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include "app/AjustesPersonal.h"
#include "app/Datos.h"
#include "app/ventanas/Manana.h"
#include "app/ventanas/RegistrarVentanas.h"
#include "app/ventanas/SysTray.h"
#include "comm/cables/FabricaReal.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {

// A stand-in.
class Suplente final : public ventanas::Ventana {
 public:
  Suplente(ventanas::Contexto& c, const QString& n) : Ventana(c, n) {}
  template <class P>
  Resultado<> entrar(const P& puerta) {
    puerta_ = puerta;
    return {};
  }
  // The door with which it was opened.
  template <class P>
  P como() const {
    const P* p = std::any_cast<P>(&puerta_);
    EXPECT_TRUE(p);
    return p ? *p : P();
  }
  bool QueryUnload() override { return seNiega; }
  bool seNiega = false;

 private:
  std::any puerta_;
};

struct MesaPrincipal : Tienda {
  explicit MesaPrincipal(const QStringList& suplentes = {u"gestcomm"_s, u"VerTot"_s, u"VerCols"_s,
                                                         u"CerrSes"_s, u"Automat"_s, u"Cronos"_s,
                                                         u"VeoLog"_s},
                         const QByteArray& susAjustes = {})
      : ajustes(susAjustes) {
    bien(aplicacion.empezar());
    app::registrarVentanasPrincipal(todas(), aplicacion);
    suplir<articles::PuertaBrowPLUs, automation::PuertaAutomat, automation::PuertaCronos,
           automation::PuertaVeoLog, comm::PuertaEstadoEnvio, comm::PuertaGestcomm,
           precios::PuertaCambioLote, totals::PuertaCerrSes, totals::PuertaDudasCero,
           totals::PuertaVerCols, totals::PuertaVerTot>(suplentes);
  }

  ventanas::Ventanas& todas() { return escritorio.ventanas(); }
  Suplente* suplente(const QString& nombre) {
    return static_cast<Suplente*>(todas().cargada(nombre));
  }
  ventanas::Ventana* principal() {
    auto* v = todas().abrir(u"MainTarvo"_s);
    EXPECT_TRUE(QTest::qWaitForWindowActive(v));
    return v;
  }
  // The main window after the morning's board has been read and shown.
  ventanas::Ventana* conManana() {
    auto* v = principal();
    EXPECT_TRUE(esperar([&] { return v->findChild<app::Manana*>()->leida(); }));
    QTest::qWait(20);  // for the layout
    return v;
  }
  void fichero(const QString& nombre, const QByteArray& bytes) {
    QFile f(carpeta.filePath(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }
  template <class... P>
  void suplir(const QStringList& cuales) {
    const auto uno = [&]<class Q>(std::type_identity<Q>) {
      if (cuales.contains(Q::kNombre)) todas().registrar<Q, Suplente>();
    };
    (uno(std::type_identity<P>()), ...);
  }
  // A night that read group 1 but not group 2.
  void nocheMala();

  std::vector<app::Personal>& personal() {
    return fondo->ajustes.de<app::AjustesPersonal>().personal;
  }
  QString carpetaConAjustes() {
    if (!ajustes.isEmpty()) fichero(u"TARVO.INI"_s, ajustes);
    return carpeta.path();
  }

  dao::Database& base() override { return *fondo->db; }

  const QByteArray ajustes;
  QTemporaryDir carpeta;
  Textos textos = bien(Textos::leer(QStringLiteral(TARVO_DATOS "/textos/es.txt")));
  RelojReal reloj;
  std::unique_ptr<app::Fondo> fondo = bien(app::Fondo::abrir(
      carpetaConAjustes(), Idioma::Espanol, textos, reloj, app::SiFaltaLaBase::Crearla));
  app::Datos datos{{}, textos};
  enlace::FabricaReal fabrica{reloj, fondo->ajustes};
  app::Aplicacion aplicacion{*fondo, reloj, fabrica, 1, datos};
  ventanas::Escritorio escritorio{
      *qApp, *fondo->db, fondo->ajustes, textos, reloj, ventanas::Cara::Clara, {}};
};

// The item of the board whose accessible name contains a text; null if none.
inline QAbstractButton* pieza(QWidget& v, const QString& texto) {
  for (auto* p : v.findChildren<app::Pieza*>())
    if (p->isVisible() && p->accessibleName().contains(texto)) return p;
  return nullptr;
}

}  // namespace tarvo::prueba
