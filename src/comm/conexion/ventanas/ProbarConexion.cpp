#include "comm/conexion/ventanas/ProbarConexion.h"

#include <algorithm>

#include "comm/conexion/Palabras.h"
#include "comm/conexion/ventanas/TextosConexionVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::conexion {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

// An Escape so soon after the end was meant to stop the test.
constexpr qint64 kTrasFinMs = 500;
constexpr int kLineasDeConsejo = 3;

ventanas::Estado estadoDe(Que que) {
  switch (que) {
    case Que::Abierto:
    case Que::Contesta:
      return ventanas::Estado::Bien;
    case Que::Sobra:
    case Que::Rechaza:
      return ventanas::Estado::Duda;
    case Que::Pendiente:
    case Que::Preguntando:
    case Que::SinProbar:
      return ventanas::Estado::Ninguno;
    case Que::NoEsta:
    case Que::NoContesta:
    case Que::AMedias:
    case Que::Ruido:
    case Que::Cortado:
    case Que::NoAbre:
    case Que::SinDireccion:
    case Que::MismaDireccion:
      return ventanas::Estado::Mal;
  }
  std::unreachable();
}

bool pendiente(const Contestacion& c) {
  return c.que == Que::Pendiente || c.que == Que::Preguntando;
}

}  // namespace

ProbarConexion::ProbarConexion(Contexto& c, const QString& nombre, const Servicios& s)
    : Ventana(c, nombre), prueba_(s, c.ajustes, c.reloj, c.textos) {
  ui_.setupUi(cuerpo());
  enlazar();
  const Textos& textos = c.textos;
  ui_.lista->preparar(
      c, nombre,
      {{.titulo = kTxMaquina, .campo = u"maquina"_s, .ancho = 230},
       {.titulo = ventanas::kTxResultado,
        .campo = u"que"_s,
        .ancho = 330,
        .ver = [&textos](const dao::Valor& v) { return palabraDe(Que(v.entero()), textos); },
        .estado = [](const dao::Valor& v) { return estadoDe(Que(v.entero())); }},
       {.titulo = kTxTarda, .campo = u"ms"_s, .clase = Clase::Entero, .ancho = 100}});
  ui_.lista->vivas();
  ui_.lista->ponerUnaSola(true);
  ui_.lista->ponerBusca(false);
  ui_.lista->ponerPie(false);
  ui_.lista->vista()->setAccessibleName(t(kTxProbar));
  unir(ui_.OtraVez, u"refrescar"_s, Qt::CTRL | Qt::Key_R, [this] { probar(); });
  unir(ui_.Parar, u"parar"_s, Qt::Key_F8, [this] { parar(); });
  ui_.lista->ponerAcciones({ui_.OtraVez, ui_.Parar});
  ui_.Consejo->setMinimumHeight(kLineasDeConsejo * ui_.Consejo->fontMetrics().lineSpacing());
  for (QWidget* w : std::initializer_list<QWidget*>{ui_.Avance, ui_.rotConsejo}) {
    QSizePolicy sitio = w->sizePolicy();
    sitio.setRetainSizeWhenHidden(true);  // the list doesn't jump
    w->setSizePolicy(sitio);
  }
  connect(ui_.Salida, &QPushButton::clicked, this, [this] { aceptar(); });
  connect(ui_.lista, &Parrilla::actualCambiada, this, [this] { pintarConsejo(); });
  connect(ui_.lista, &Parrilla::fallo, this, [this](const Error& e) { decirFallo(e); });
  setWindowIcon(icono(u"conectado"_s));
  prueba_.alCambiar = [this] { pintar(); };
  prueba_.alAcabar = [this] { acabada(); };
}

Resultado<> ProbarConexion::entrar(const PuertaProbar& puerta) {
  grupo_ = puerta.grupo;
  if (!puerta.nombre.isEmpty()) setWindowTitle(t(kTxProbar) + u" · "_s + puerta.nombre);
  probar();
  ui_.lista->setFocus();
  return {};
}

void ProbarConexion::keyPressEvent(QKeyEvent* evento) {
  const bool reciente = hasta_ >= 0 && contexto().reloj.monotono() - hasta_ < kTrasFinMs;
  if (evento->key() != Qt::Key_Escape || (!prueba_.enMarcha() && !reciente))
    return Ventana::keyPressEvent(evento);
  evento->accept();
  parar();
}

void ProbarConexion::probar() {
  tira().quitar();
  if (const auto r = prueba_.empezar(grupo_); !r) decirDuda(r.error().texto);
  pintar();
}

void ProbarConexion::parar() {
  prueba_.parar();
  pintar();
}

void ProbarConexion::pintar() {
  const auto& contestan = prueba_.contestaciones();
  std::vector<FilaViva> filas;
  filas.reserve(contestan.size());
  for (const Contestacion& c : contestan)
    filas.push_back(
        {static_cast<qint64>(filas.size()),
         {dao::Valor(nombreDe(c, grupo_, contexto().textos)), dao::Valor(static_cast<int>(c.que)),
          c.ms < 0 ? dao::Valor() : dao::Valor(c.ms)}});
  ui_.lista->vivas().poner(std::move(filas));
  if (ui_.lista->filaActual() < 0 && !contestan.empty()) ui_.lista->irA(0);
  const bool marcha = prueba_.enMarcha();
  ui_.OtraVez->setEnabled(!marcha);
  ui_.Parar->setEnabled(marcha);
  ui_.Avance->setMaximum(std::max(1, static_cast<int>(contestan.size())));
  ui_.Avance->setValue(ui_.Avance->maximum() -
                       static_cast<int>(std::ranges::count_if(contestan, pendiente)));
  ui_.Avance->setVisible(marcha);
  pintarConsejo();
}

void ProbarConexion::pintarConsejo() {
  const auto& contestan = prueba_.contestaciones();
  const int fila = ui_.lista->filaActual();
  const auto cual = fila < 0 ? qint64{-1} : ui_.lista->clave(fila);
  ui_.Consejo->setText(
      cual < 0 || cual >= std::ssize(contestan)
          ? QString()
          : queMirar(contestan[static_cast<size_t>(cual)], grupo_, contexto().textos));
  ui_.rotConsejo->setVisible(!ui_.Consejo->text().isEmpty());
}

// The row to look at first becomes the current one.
void ProbarConexion::acabada() {
  hasta_ = contexto().reloj.monotono();
  pintar();
  const auto& contestan = prueba_.contestaciones();
  const auto mala = std::ranges::find_if(contestan, [this](const Contestacion& c) {
    return !queMirar(c, grupo_, contexto().textos).isEmpty();
  });
  if (mala != contestan.end()) ui_.lista->irA(ui_.lista->filaDe(mala - contestan.begin()));
  const QString texto = resumen(prueba_, contexto().textos);
  const bool alguna =
      std::ranges::find(contestan, Que::Contesta, &Contestacion::que) != contestan.end();
  if (todoBien(prueba_)) return decirBien(texto);
  if (alguna || prueba_.fin() != Prueba::Fin::Entera) return decirDuda(texto);
  decirFallo(texto);
}

}  // namespace tarvo::conexion
