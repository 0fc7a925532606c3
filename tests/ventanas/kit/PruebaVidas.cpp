// Activities under way in a window when it is unloaded: a question, rows read by another thread,
// work in slices. None may outlive the objects it depends on, nor stay open alone.
#include <QHeaderView>
#include <QPointer>
#include <QTableView>
#include <QTimer>
#include <span>

#include "Muestra.h"
#include "core/ventanas/marco/EscogeFecha.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"

namespace tarvo::prueba {

using namespace ventanas;

namespace {

constexpr int kFilas = 6000;  // more than are shown at once

struct Taller : Mesa {
  Taller() : Mesa(kTextosMuestra) {
    llenarArticulos(*this, kFilas);
    todas().registrar<PuertaDeMuestra, Muestra>(*db);
    todas().registrar<PuertaDePrincipal, Muestra>(*db);
  }
  Ventanas& todas() { return escritorio.ventanas(); }
  Muestra& abrir(const QString& nombre) { return *qobject_cast<Muestra*>(todas().abrir(nombre)); }
};

// A function of the window that asks, and after the answer uses the window's members.
void usar(Muestra& v, bool respuesta) {
  EXPECT_FALSE(respuesta) << "it wasn't answered with yes";
  v.decirDuda(v.nombre());
  v.ui.lista->irA(0);
}

bool preguntarA2(Muestra& v) {
  return v.contexto().ventanas.preguntar(PuertaDeMuestra{{.cual = u"2"_s}}, &v);
}

void menuDe(QWidget& control) {
  Q_EMIT control.customContextMenuRequested(QPoint(5, 5));
}

bool empezarTrabajo(Muestra& v, const std::function<void()>& alAcabar) {
  return v.trabajo().empezar(
      u"Contando"_s, [&v](Trabajo::Avance&) -> Resultado<bool> { return v.ui.lista->filas() > 0; },
      [alAcabar](const Resultado<Trabajo::Fin>&) { alAcabar(); });
}

struct EnMarcha {
  const char* que;
  int encima;  // number of windows waiting above it, each in its own event loop
  void (*empezar)(Muestra& v);
};

const EnMarcha kEnMarcha[] = {
    {"nothing", 0, [](Muestra&) {}},
    {"a box", 1,
     [](Muestra& v) {
       usar(v, MyMsgBox::Decide(&v, v.contexto().textos, u"¿Sigue?"_s, kAceptoCancelo));
     }},
    {"a box of a failure, over a control", 1,
     [](Muestra& v) {
       MyMsgBox::mostrarFallo(v.ui.lista, v.contexto().textos, u"No se guardó."_s, {}, u"13"_s);
       usar(v, false);
     }},
    {"a modal window", 1, [](Muestra& v) { usar(v, preguntarA2(v)); }},
    {"a box over a modal window", 2,
     [](Muestra& v) {
       QTimer::singleShot(0, &v, [&v] {
         auto* otra = qobject_cast<Muestra*>(v.contexto().ventanas.cargada(u"Muestra#2"_s));
         usar(*otra, MyMsgBox::Decide(otra, v.contexto().textos, u"¿Sigue?"_s));
       });
       usar(v, preguntarA2(v));
     }},
    {"the menu of a list", 1,
     [](Muestra& v) {
       menuDe(*v.ui.lista->vista());
       usar(v, false);
     }},
    {"the choice of columns", 1,
     [](Muestra& v) {
       menuDe(*v.ui.lista->vista()->horizontalHeader());
       usar(v, false);
     }},
    {"the choice of a file", 1,
     [](Muestra& v) {
       v.ui.lista->exportar();
       usar(v, false);
     }},
    {"a calendar", 0,
     [](Muestra& v) {
       auto* campo = v.ui.lista->campoBusca();
       new EscogeFecha(*campo, v.contexto());
       QTest::keyClick(campo, Qt::Key_F4);
     }},
    {"rows and sums from another thread", 0,
     [](Muestra& v) {
       for (int i = 0; i < 3; ++i) bien(v.ui.lista->filtrar(u"CODIGO>?"_s, {dao::Valor(i)}));
       EXPECT_TRUE(v.ui.lista->contando());
     }},
    {"a sort while rows come", 0,
     [](Muestra& v) {
       bien(v.ui.lista->filtrar({}));
       bien(v.ui.lista->ordenar(1, Qt::DescendingOrder));
       v.ui.lista->elegir({kFilas});
     }},
    {"work in slices", 0, [](Muestra& v) { EXPECT_TRUE(empezarTrabajo(v, [] {})); }},
    {"work whose end unloads its window", 0,
     [](Muestra& v) {
       EXPECT_TRUE(empezarTrabajo(v, [&v] { v.descargar(); }));
       QTimer::singleShot(0, &v, [&v] { v.trabajo().parar(); });
     }},
    {"a search", 0, [](Muestra& v) { v.ui.lista->buscar(u"no hay"_s); }},
    {"a file of rows", 0,
     [](Muestra& v) { v.ui.lista->exportarEn(v.contexto().ajustes.carpeta + u"/v.csv"_s); }},
    {"a sheet of rows", 0,
     [](Muestra& v) { v.ui.lista->exportarEn(v.contexto().ajustes.carpeta + u"/v.xlsx"_s); }},
};

struct Salida {
  const char* que;
  void (*hacer)(Taller& t);
};

const Salida kSalidas[] = {
    {"by name", [](Taller& t) { EXPECT_TRUE(t.todas().descargar(u"MainTarvo"_s)); }},
    {"with all", [](Taller& t) { EXPECT_FALSE(t.todas().DescargaTodo()); }},
    {"by itself",
     [](Taller& t) {
       if (Ventana* v = t.todas().cargada(u"MainTarvo"_s)) v->rechazar();
     }},
};

std::vector<QWidget*> loDeEncima() {
  std::vector<QWidget*> vistas;
  for (QWidget* w : QApplication::topLevelWidgets())
    if (w->isVisible() && (w->isModal() || w->windowType() == Qt::Popup)) vistas.push_back(w);
  return vistas;
}

// Calls `hacer` as soon as that many windows wait.
void cuandoEsperen(int cuantas, const std::function<void()>& hacer) {
  QTimer::singleShot(0, qApp, [cuantas, hacer] {
    std::ssize(loDeEncima()) < cuantas ? cuandoEsperen(cuantas, hacer) : hacer();
  });
}

void pulsarEscape() {
  QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
}

// A fast machine may have written the last row before the window was unloaded: a file is complete,
// or missing.
testing::AssertionResult todoONada(const QDir& carpeta) {
  for (const QString& nombre : carpeta.entryList({u"v.*"_s})) {
    QFile fichero(carpeta.filePath(nombre));
    if (!fichero.open(QIODevice::ReadOnly)) return testing::AssertionFailure() << "can't be read";
    const QByteArray bytes = fichero.readAll();
    const bool entera = nombre == u"v.csv"_s ? bytes.count("\r\n") == kFilas + 1
                                             : nombre == u"v.xlsx"_s && bytes.contains("PK\5\6");
    if (!entera) return testing::AssertionFailure() << "half a file: " << nombre.toStdString();
  }
  return testing::AssertionSuccess();
}

}  // namespace

TEST(Vidas, UnaVentanaSeVaConLoQueTieneEnMarcha) {
  for (const EnMarcha& cosa : kEnMarcha)
    for (const Salida& salida : kSalidas) {
      SCOPED_TRACE(std::string(cosa.que) + ", unloaded " + salida.que);
      Taller t;
      const QPointer<Muestra> v = &t.abrir(u"MainTarvo"_s);
      bool quedo = false;
      QTimer guardia;
      // A window left open would block the test for ever.
      QObject::connect(&guardia, &QTimer::timeout, [&] {
        for (QWidget* w : loDeEncima()) quedo = w->close();
      });
      guardia.start(30'000);
      cuandoEsperen(cosa.encima, [&] { salida.hacer(t); });
      cosa.empezar(*v);
      EXPECT_TRUE(esperar([&] { return !v; }));
      EXPECT_FALSE(quedo);
      EXPECT_TRUE(loDeEncima().empty());
      EXPECT_TRUE(t.todas().abiertas().empty());
      EXPECT_TRUE(todoONada(t.carpeta.path()));
    }
}

// The program ends during each of these activities.
TEST(Vidas, ElEscritorioSeVaConLoQueHayEnMarcha) {
  for (const EnMarcha& cosa : kEnMarcha) {
    if (cosa.encima > 0) continue;
    SCOPED_TRACE(cosa.que);
    Taller t;
    cosa.empezar(t.abrir(u"MainTarvo"_s));
    QApplication::processEvents();
  }
}

// The rows or columns are replaced while work uses the former ones: the work ends, and a file is
// complete or missing.
TEST(Vidas, LasFilasCambianBajoUnTrabajo) {
  const struct {
    const char* que;
    void (*cambiar)(Muestra& v);
  } cambios[] = {
      {"other columns",
       [](Muestra& v) {
         v.ui.lista->preparar(v.contexto(), v.nombre(), columnasArticulos());
         EXPECT_FALSE(v.ui.lista->trabajando());
         bien(v.ui.lista->abrir({.desde = u"ART"_s, .clave = u"CODIGO"_s}));
       }},
      {"a sort", [](Muestra& v) { bien(v.ui.lista->ordenar(1, Qt::AscendingOrder)); }},
      {"fewer rows", [](Muestra& v) { bien(v.ui.lista->filtrar(u"CODIGO<10"_s)); }},
      {"a refresh", [](Muestra& v) { bien(v.ui.lista->refrescar()); }},
  };
  for (const auto& cambio : cambios)
    for (const EnMarcha& cosa : std::span(kEnMarcha).last(3)) {
      SCOPED_TRACE(std::string(cosa.que) + ", " + cambio.que);
      Taller t;
      Muestra& v = t.abrir(u"MainTarvo"_s);
      cosa.empezar(v);
      ASSERT_TRUE(v.ui.lista->trabajando());
      cambio.cambiar(v);
      EXPECT_TRUE(esperar([&] { return !v.ui.lista->trabajando(); }));
      EXPECT_TRUE(QDir(t.carpeta.path()).entryList({u"v.*"_s}).isEmpty()) << "it would mix orders";
    }
}

// A dialog with unsaved changes keeps its owner; so does an unanswered question.
TEST(Vidas, QuienSeNiegaRetieneASuDueno) {
  Taller t;
  Muestra& v = t.abrir(u"MainTarvo"_s);
  cuandoEsperen(1, [&] {
    auto* encima = qobject_cast<Muestra*>(t.todas().cargada(u"Muestra#2"_s));
    encima->seNiega = true;
    EXPECT_FALSE(v.descargar());
    EXPECT_TRUE(v.isVisible());
    EXPECT_EQ(v.preguntas, 0) << "not asked while it can't close";
    encima->seNiega = false;
    EXPECT_TRUE(encima->descargar());
  });
  preguntarA2(v);
  v.alDescargar = [&] { return !MyMsgBox::Decide(&v, t.textos, u"¿Se va?"_s, kAceptoCancelo); };
  cuandoEsperen(1, [&] {
    EXPECT_FALSE(v.descargar()) << "the question is still open";
    pulsarEscape();
  });
  EXPECT_FALSE(v.descargar());
  EXPECT_TRUE(t.todas().cargada(u"MainTarvo"_s));
}

// Windows that are busy with something else while they are entered.
struct PuertaCorta : ComoMuestra {
  static constexpr QStringView kNombre = u"Corta";
};
struct Corta final : Muestra {
  Corta(Contexto& c, const QString& n, dao::Database& db) : Muestra(c, n, db) {
    alEntrar = [this] { descargar(); };
  }
};
struct PuertaLarga : ComoMuestra {
  static constexpr QStringView kNombre = u"Larga";
};
struct Larga final : Muestra {
  Larga(Contexto& c, const QString& n, dao::Database& db) : Muestra(c, n, db) {
    alEntrar = [this] { MyMsgBox::Decide(this, contexto().textos, u"¿Sigue?"_s); };
  }
};

// A window isn't opened if it or its owner is unloaded while it is being entered.
TEST(Vidas, UnaQueSeVaAlEntrar) {
  Taller t;
  t.todas().registrar<PuertaCorta, Corta>(*t.db);
  t.todas().registrar<PuertaLarga, Larga>(*t.db);
  EXPECT_FALSE(t.todas().abrir(PuertaCorta()));
  const QPointer<Muestra> dueno = &t.abrir(u"MainTarvo"_s);
  cuandoEsperen(1, [&] {
    EXPECT_TRUE(dueno->descargar());
    QTimer::singleShot(0, qApp, pulsarEscape);
  });
  EXPECT_FALSE(t.todas().abrir(PuertaLarga{{.falla = true}}, dueno));
  EXPECT_TRUE(esperar([&] { return !dueno; }));
  EXPECT_TRUE(t.todas().abiertas().empty());
}

}  // namespace tarvo::prueba
