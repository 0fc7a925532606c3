#include "noches/Programa.h"

#include "comm/tareas/Registro.h"
#include "core/esquema/Esquema.h"
#include "textos/TextosDePrueba.h"
#include "totals/TablasLibros.h"
#include "totals/TablasTotales.h"

namespace tarvo::noches {

namespace {

class SinPreguntas final : public automation::Preguntas {
  std::optional<qint64> PromptNum(const QString&, const QString&) override { return {}; }
  std::optional<QString> PromptStr(const QString&, const QString&) override { return {}; }
  std::optional<std::pair<Fecha, Fecha>> PromptFch(const QString&, const QString&) override {
    return {};
  }
};

}  // namespace

struct Programa::Interior {
  Interior(std::unique_ptr<app::Fondo> f, Reloj& reloj, Hilos& hilos, quint64 semilla)
      : fondo(std::move(f)),
        db(*fondo->db),
        almacenes(db, reloj, fondo->textos),
        sesion(db, fondo->ajustes, reloj, fondo->textos),
        periodos(db, fondo->ajustes, almacenes, fondo->textos),
        cerrSes(sesion, periodos),
        verTot(periodos, db, fondo->ajustes),
        xporTot(db, periodos, fondo->ajustes),
        registro(tareas::registro()),
        azar(semilla),
        enlaces(reloj, fondo->ajustes, hilos, azar),
        gestcomm({db, fondo->ajustes, reloj, sesion, fondo->textos}, enlaces, registro),
        lenguaje(registro, fondo->ajustes, fondo->textos),
        automat({db, fondo->ajustes, reloj, sesion, gestcomm, registro, cerrSes, verTot, xporTot,
                 fondo->textos},
                preguntas) {}

  Resultado<> empezar() {
    TARVO_INTENTAR(almacenes.asegurar());
    TARVO_INTENTAR(tareas::asegurarTablasTareas(db));
    return sesion.cargar();
  }

  std::unique_ptr<app::Fondo> fondo;
  dao::Database& db;
  stock::Almacenes almacenes;
  totals::Sesion sesion;
  totals::Periodos periodos;
  totals::CerrSes cerrSes;
  totals::VerTot verTot;
  totals::XporTot xporTot;
  motor::RegistroTareas registro;
  Azar azar;
  enlace::Enlaces enlaces;
  motor::gestcomm gestcomm;
  automation::Lenguaje lenguaje;
  SinPreguntas preguntas;
  automation::Automat automat;
};

Programa::Programa() = default;
Programa::~Programa() = default;

Resultado<std::unique_ptr<Programa>> Programa::arrancar(
    const QString& carpeta, const QStringList& proceso, Reloj& reloj, Hilos& hilos, quint64 semilla,
    std::function<void(const QString&)> alEscribir) {
  auto fondo = app::Fondo::abrir(carpeta, Idioma::Espanol, textosDePrueba(), reloj);
  if (!fondo) return std::unexpected(fondo.error());
  std::unique_ptr<Programa> p(new Programa);
  p->d = std::make_unique<Interior>(std::move(*fondo), reloj, hilos, semilla);
  TARVO_INTENTAR(p->d->empezar());
  auto leido = p->d->lenguaje.leer(proceso.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n"));
  if (!leido) return std::unexpected(leido.error());
  auto& a = p->d->automat;
  a.desatendido = true;
  a.alEscribir = std::move(alEscribir);
  a.alTerminar = [q = p.get()](automation::ResultadoProceso r) {
    q->resultado_ = static_cast<int>(r);
  };
  a.PROCESO(std::move(leido->pasos), QString(), QStringLiteral("NOCHE"));
  return p;
}

Resultado<> Programa::guardarAjustes() const {
  return d->fondo->ajustes.GuardarConfig();
}

}  // namespace tarvo::noches
