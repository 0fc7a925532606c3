#include "noches/Programa.h"

#include "textos/TextosDePrueba.h"

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
      : fondo(std::move(f)), aplicacion(*fondo, reloj, hilos, semilla, preguntas) {}

  std::unique_ptr<app::Fondo> fondo;
  SinPreguntas preguntas;
  app::Aplicacion aplicacion;
  groups::Grupos grupos{aplicacion.catalogo(), fondo->ajustes};
};

Programa::Programa() = default;
Programa::~Programa() = default;

Resultado<std::unique_ptr<Programa>> Programa::abrir(const QString& carpeta, Reloj& reloj,
                                                     Hilos& hilos, quint64 semilla) {
  auto fondo = app::Fondo::abrir(carpeta, Idioma::Espanol, textosDePrueba(), reloj);
  if (!fondo) return std::unexpected(fondo.error());
  std::unique_ptr<Programa> p(new Programa);
  p->d = std::make_unique<Interior>(std::move(*fondo), reloj, hilos, semilla);
  TARVO_INTENTAR(p->d->aplicacion.empezar());
  return p;
}

Resultado<std::unique_ptr<Programa>> Programa::arrancar(
    const QString& carpeta, const QStringList& proceso, Reloj& reloj, Hilos& hilos, quint64 semilla,
    std::function<void(const QString&)> alEscribir) {
  TARVO_TOMAR(auto p, abrir(carpeta, reloj, hilos, semilla));
  auto leido = p->d->aplicacion.lenguaje().leer(proceso.join(QStringLiteral("\r\n")) +
                                                QStringLiteral("\r\n"));
  if (!leido) return std::unexpected(leido.error());
  auto& a = p->d->aplicacion.automat();
  a.desatendido = true;
  a.alEscribir = std::move(alEscribir);
  a.alTerminar = [q = p.get()](automation::ResultadoProceso r) {
    q->resultado_ = static_cast<int>(r);
  };
  a.PROCESO(std::move(leido->pasos), QString(), QStringLiteral("NOCHE"));
  return p;
}

Resultado<> Programa::responder(const QString& carpeta, Reloj& reloj, Hilos& hilos, int grupo,
                                int addr, bool olvido,
                                const std::function<void(const QString&)>& alEscribir) {
  TARVO_TOMAR(const auto p, abrir(carpeta, reloj, hilos, 1));
  std::vector<totals::Aviso> avisos;
  TARVO_INTENTAR(p->aplicacion().cerrSes().responder(grupo, addr, olvido, avisos));
  for (const auto& a : avisos) alEscribir(a.texto);
  return p->aplicacion().sesion().reflejar();
}

app::Aplicacion& Programa::aplicacion() {
  return d->aplicacion;
}
groups::Grupos& Programa::grupos() {
  return d->grupos;
}
app::Fondo& Programa::fondo() {
  return *d->fondo;
}

Resultado<> Programa::guardarAjustes() const {
  return d->fondo->ajustes.GuardarConfig();
}

}  // namespace tarvo::noches
