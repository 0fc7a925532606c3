#include "articles/ventanas/EnviarCambios.h"

#include <QActionGroup>

#include "articles/AjustesArticulos.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/QueHacemos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "comm/ventanas/Puertas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kDeArticulos = 1;  // index of the value for articles
constexpr int kNunca = 0, kPreguntar = 1, kSiempre = 2;

// Reports in the window from which the list was opened that the transmission has ended. Failed
// tasks remain in the window of communications, which then stays open.
class AvisoDeFin final : public QObject, public motor::Observador {
 public:
  AvisoDeFin(ventanas::Ventana& donde, motor::gestcomm& motor, int grupos)
      : QObject(&donde), donde_(donde), motor_(motor), grupos_(grupos) {
    const QString nombre = u"avisoDeFin"_s;  // one is enough: the queue ends once
    delete donde.findChild<QObject*>(nombre, Qt::FindDirectChildrenOnly);
    setObjectName(nombre);
    motor_.observar(this);
  }
  ~AvisoDeFin() override { motor_.dejarDeObservar(this); }

 private:
  void acabado() override {
    QMetaObject::invokeMethod(
        this,
        [this] {
          donde_.decirBien(donde_.t(kTxEnvioAcabado, grupos_));
          deleteLater();
        },
        Qt::QueuedConnection);
  }

  ventanas::Ventana& donde_;
  motor::gestcomm& motor_;
  int grupos_;
};

Resultado<std::vector<int>> gruposDe(const Nombres& nombres, const std::vector<int>& secciones) {
  std::vector<int> grupos;
  for (const int seccion : secciones) {
    TARVO_TOMAR(const auto suyos, nombres.gruposDe(seccion));
    for (const CodigoNombre& g : suyos) grupos.push_back(static_cast<int>(g.codigo));
  }
  return grupos;
}

void enviar(ventanas::Ventana& quien, const std::vector<int>& secciones, motor::gestcomm& motor) {
  const auto grupos = gruposDe(quien.contexto().nombres, secciones);
  if (!quien.haIdoBien(grupos) || grupos->empty()) return;
  ventanas::Ventana* comunicaciones = quien.abrir(comm::PuertaGestcomm());
  QStringList rechazados;
  for (const int grupo : *grupos)
    if (motor.NuevaTarea(grupo, false, 0, kUltimoCodigo, TipoTarea::TxPlus) !=
        motor::Pedida::EnCola)
      rechazados << Ceros(grupo, 4);
  if (!rechazados.isEmpty() && comunicaciones)
    comunicaciones->decirDuda(quien.t(kTxSinEncolar).arg(rechazados.join(u", "_s)));
  if (!rechazados.isEmpty()) return;  // that window stays open, so that it can be read
  if (auto* donde = qobject_cast<ventanas::Ventana*>(quien.dueno()))
    new AvisoDeFin(*donde, motor, static_cast<int>(grupos->size()));
  motor.TerminaCuandoPuedas();
}

Resultado<> guardar(Ajustes& ajustes, int valor) {
  ajustes.de<AjustesArticulos>().EnviarCambios[kDeArticulos] = valor;
  ajustes.confirmar(u"EnviarCambios"_s);
  return ajustes.GuardarConfig();
}

// Whether to send; nothing if the user goes back.
std::optional<bool> preguntar(ventanas::Ventana& quien) {
  const auto r = quien.preguntar(PuertaQueHacemos{});
  if (!r) return std::nullopt;
  if (r->noMas) quien.haIdoBien(guardar(quien.contexto().ajustes, r->si ? kSiempre : kNunca));
  return r->si;
}

}  // namespace

bool enviarAlSalir(ventanas::Ventana& quien, Catalogo& catalogo, motor::gestcomm& motor) {
  const auto secciones = catalogo.seccionesQueDifieren();
  if (!quien.haIdoBien(secciones)) return true;
  const int como = quien.contexto().ajustes.de<AjustesArticulos>().EnviarCambios[kDeArticulos];
  bool si = como == kSiempre;
  if (!secciones->empty() && como == kPreguntar) {
    const auto respuesta = preguntar(quien);
    if (!respuesta) return false;
    si = *respuesta;
  }
  catalogo.cambios().olvidarSecciones();
  if (si && !secciones->empty()) enviar(quien, *secciones, motor);
  return true;
}

void montarMenuEnvio(QMenu& menu, ventanas::Ventana& quien) {
  auto* uno = new QActionGroup(&menu);
  int valor = kNunca;
  for (const int texto : {kTxNoEnviar, kTxPreguntarEnvio, kTxEnviarSiempre}) {
    QAction* a = menu.addAction(quien.t(texto));
    a->setCheckable(true);
    a->setData(valor);
    uno->addAction(a);
    QObject::connect(a, &QAction::triggered, &quien, [&quien, valor] {
      quien.haIdoBien(guardar(quien.contexto().ajustes, valor));
    });
    ++valor;
  }
  QObject::connect(&menu, &QMenu::aboutToShow, &quien, [&menu, &quien] {
    for (QAction* a : menu.actions())
      a->setChecked(a->data().toInt() ==
                    quien.contexto().ajustes.de<AjustesArticulos>().EnviarCambios[kDeArticulos]);
  });
}

}  // namespace tarvo::articles
