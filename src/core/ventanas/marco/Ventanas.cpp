#include "core/ventanas/marco/Ventanas.h"

#include <algorithm>
#include <ranges>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Recuerdos.h"
#include "core/ventanas/marco/Retenida.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

QString tipoDe(const QString& nombre) {
  return nombre.section(u'#', 0, 0);
}

void decirSobre(QWidget* dueno, const Textos& t, const Error& error) {
  if (auto* v = dueno ? qobject_cast<Ventana*>(dueno->window()) : nullptr)
    v->decirFallo(error);
  else
    MyMsgBox::mostrarFallo(dueno, t, error.texto, {},
                           error.numero ? QString::number(error.numero) : QString());
}

}  // namespace

Ventanas::~Ventanas() {
  // Windows still waiting for deferred deletion would outlive the objects they depend on.
  for (const QPointer<Ventana>& v : idas_) delete v.data();
  for (Ventana* v : std::exchange(abiertas_, {})) delete v;
}

bool Ventanas::conoce(const QString& nombre) const {
  return registradas_.contains(tipoDe(nombre));
}

QStringList Ventanas::nombres() const {
  QStringList lista;
  for (const auto& [nombre, entrada] : registradas_) lista << nombre;
  return lista;
}

Ventana* Ventanas::cargada(const QString& nombre) const {
  const auto hallada = std::ranges::find(abiertas_, nombre, &Ventana::nombre);
  return hallada == abiertas_.end() ? nullptr : *hallada;
}

std::vector<Ventana*> Ventanas::abiertas() const {
  return abiertas_;
}

// Creates and enters the window; null after the failure has been reported.
Ventana* Ventanas::hacer(const QString& nombre, QWidget* dueno, const std::any& puerta) {
  const auto entrada = registradas_.find(tipoDe(nombre));
  if (entrada == registradas_.end()) {
    decirSobre(dueno, contexto_->textos,
               {Fallo::NoExiste, 0, contexto_->textos(kTxSinVentana).arg(nombre)});
    return nullptr;
  }
  Ventana* v = cargada(nombre);
  const bool nueva = v == nullptr;
  if (nueva) v = entrada->second.fabrica(*contexto_, nombre);
  // Entering may ask a question, and a question lets windows be unloaded.
  const Retenida mientras(dueno), ella(v);
  const Entrada& e = entrada->second;
  const auto hecho = e.entrar(*v, puerta.has_value() || !e.muestra ? puerta : e.muestra());
  if (!hecho) {
    if (nueva) delete v;
    decirSobre(nueva ? dueno : v, contexto_->textos, hecho.error());
    return nullptr;
  }
  if (v->cerrada_) return nullptr;
  if (nueva) {
    abiertas_.push_back(v);
    connect(v, &Ventana::descargada, this, &Ventanas::quitar);
  }
  return v;
}

Ventana* Ventanas::mostrar(const QString& nombre, QWidget* dueno, const std::any& puerta) {
  Ventana* v = hacer(nombre, dueno, puerta);
  if (!v) return nullptr;
  v->mostrarSobre(dueno);
  Q_EMIT abierta(v);
  return v;
}

bool Ventanas::correr(const QString& nombre, QWidget* dueno, const std::any& puerta,
                      std::any& salida) {
  Ventana* v = hacer(nombre, dueno, puerta);
  if (!v) return false;
  if (dueno) v->dueno_ = dueno->window();
  v->salida_.reset();
  Q_EMIT abierta(v);
  const Retenida ella(v);  // its result is read after it has been hidden
  const bool aceptada = v->ejecutar();
  salida = std::move(v->salida_);
  return aceptada;
}

void Ventanas::quitar(const QString& nombre) {
  std::erase_if(idas_, [](const QPointer<Ventana>& v) { return v.isNull(); });
  idas_.emplace_back(cargada(nombre));
  std::erase_if(abiertas_, [&](const Ventana* v) { return v->nombre() == nombre; });
  // A failure to save the remembered settings is no reason to disturb the user.
  static_cast<void>(contexto_->recuerdos.guardar());
  Q_EMIT descargada(nombre);
  if (abiertas_.empty()) Q_EMIT vacio();
}

bool Ventanas::descargar(const QString& nombre) {
  Ventana* v = cargada(nombre);
  return !v || v->descargar();
}

bool Ventanas::DescargaTodo(const Ventana* menos) {
  if (!descargar(u"gestcomm"_s)) return true;
  // The last one first: a window that stays keeps those from which it was opened.
  const auto todas = abiertas();
  for (Ventana* v : std::views::reverse(todas)) {
    const bool sigue = std::ranges::find(abiertas_, v) != abiertas_.end();
    if (sigue && v != menos && v->nombre() != u"Cronos" && !v->descargar()) return true;
  }
  return false;
}

}  // namespace tarvo::ventanas
