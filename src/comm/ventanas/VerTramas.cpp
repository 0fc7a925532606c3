#include "comm/ventanas/VerTramas.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QTableView>

#include "comm/enlace/LecturaTrama.h"
#include "comm/ventanas/NombresTramas.h"
#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;
using enlace::LecturaTrama;

namespace {

constexpr int kPulsoTramas = 100;
constexpr size_t kFilasMax = 2000, kHolgura = 400;  // rows kept; surplus before a clean-up
constexpr qsizetype kPorLinea = 16;
constexpr int kTodas = -1, kDeTarea = -2;  // entries of the list of lines besides the channels

// Replaces unprintable bytes by dots.
QString imprimible(const QByteArray& bytes) {
  QString s = QString::fromLatin1(bytes);
  for (QChar& c : s)
    if (!c.isPrint()) c = u'·';
  return s;
}

QString hexadecimal(const QByteArray& bytes) {
  return QString::fromLatin1(bytes.toHex(' ')).toUpper();
}

QString volcado(const QByteArray& bytes) {
  QStringList lineas;
  for (qsizetype i = 0; i < bytes.size(); i += kPorLinea) {
    const QByteArray trozo = bytes.mid(i, kPorLinea);
    lineas << u"%1  %2  %3"_s.arg(i, 4, 16, QLatin1Char('0'))
                  .arg(hexadecimal(trozo).leftJustified(3 * kPorLinea - 1), imprimible(trozo));
  }
  return lineas.join(u'\n');
}

QString siglaDe(LecturaTrama::Que que, const Textos& textos) {
  switch (que) {
    case LecturaTrama::Ack:
      return u"ACK"_s;
    case LecturaTrama::Nak:
      return u"NAK"_s;
    case LecturaTrama::Vek:
      return u"VEK"_s;
    case LecturaTrama::Nodal:
      return u"NODAL"_s;
    case LecturaTrama::Ruido:
      break;
  }
  return textos(kTxRuido);
}

std::vector<Columna> columnasTramas(const Textos& textos) {
  const QString sale = textos(kTxSale), llega = textos(kTxLlega), bien = textos(ventanas::kTxBien),
                mal = textos(kTxCheckMal);
  return {
      {.titulo = ventanas::kTxHora,
       .campo = u"hora"_s,
       .clase = Clase::Codigo,
       .ancho = 104,
       .ver =
           [](const dao::Valor& v) {
             return QTime::fromMSecsSinceStartOfDay(static_cast<int>(v.entero()))
                 .toString(u"HH:mm:ss.zzz");
           }},
      {.titulo = kTxColCanal, .campo = u"canal"_s, .clase = Clase::Entero, .ancho = 56},
      {.titulo = kTxColSentido,
       .campo = u"sentido"_s,
       .clase = Clase::Codigo,
       .ancho = 84,
       .ver = [=](const dao::Valor& v) { return v.logico() ? llega : sale; },
       .imagen = [](const dao::Valor& v) { return v.logico() ? u"recibir"_s : u"enviar"_s; }},
      {.titulo = kTxColClase, .campo = u"clase"_s, .clase = Clase::Codigo, .ancho = 92},
      {.titulo = kTxColSec, .campo = u"sec"_s, .clase = Clase::Entero, .ancho = 48, .rango = 3},
      {.titulo = kTxColEst, .campo = u"est"_s, .clase = Clase::Codigo, .ancho = 60, .rango = 2},
      {.titulo = kTxColDir, .campo = u"dir"_s, .clase = Clase::Entero, .ancho = 48, .rango = 1},
      {.titulo = ventanas::kTxCodigo, .campo = u"codigo"_s, .clase = Clase::Entero, .ancho = 68},
      {.titulo = kTxColNombre, .campo = u"nombre"_s, .clase = Clase::Codigo, .ancho = 190},
      {.titulo = kTxColDatos, .campo = u"datos"_s, .ancho = 260},
      {.titulo = kTxColCheck,
       .campo = u"check"_s,
       .ancho = 80,
       .ver = [=](const dao::Valor& v) { return v.logico() ? bien : mal; },
       .estado = [](const dao::Valor& v) { return v.logico() ? Estado::Bien : Estado::Mal; }},
      {.titulo = kTxColHexa, .campo = u"hexa"_s, .ancho = 300, .rango = 4}};
}

FilaViva filaPaso(const enlace::Paso& p, const Textos& textos) {
  const LecturaTrama l = enlace::leerPaso(p);
  const auto oNada = [](int n) { return n < 0 ? dao::Valor() : dao::Valor(n); };
  const int nombre = l.codigo < 0 ? 0 : nombreTrama(p.nodal, l.codigo);
  return {p.numero,
          {dao::Valor(p.hora), dao::Valor(p.canal + 1),
           dao::Valor(p.sentido == enlace::Sentido::Llega), dao::Valor(siglaDe(l.que, textos)),
           oNada(l.secuencia), dao::Valor(QString::fromLatin1(l.estacion)), oNada(l.addr),
           oNada(l.codigo), dao::Valor(nombre == 0 ? QString() : textos(nombre)),
           dao::Valor(imprimible(l.datos)), dao::Valor(l.buena), dao::Valor(hexadecimal(p.bytes))}};
}

}  // namespace

VerTramas::VerTramas(Contexto& c, const QString& nombre, const Servicios& s)
    : Ventana(c, nombre),
      s_(s),
      escucha_(s.oido->tomar(s.enlaces, c.reloj)),
      pulso_(c.reloj.temporizador([this] { seguir(); })) {
  ui_.setupUi(cuerpo());
  ui_.division->setStretchFactor(0, 1);
  ui_.division->setSizes({escalar(440), escalar(100)});
  ui_.Que->setMinimumWidth(escalar(180));
  ponerLetra(*ui_.LblPausa, Letra::Secundaria);
  QFont fija = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fija.setPointSizeF(font().pointSizeF());
  ui_.Hexa->setFont(fija);
  enlazar();
  ui_.Pausa->setShortcut(Qt::Key_F7);
  ui_.Copiar->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_X);
  ui_.Guardar->setShortcut(Qt::CTRL | Qt::Key_S);
  ui_.Limpiar->setShortcut(Qt::CTRL | Qt::Key_L);
  ui_.Pausa->setIcon(icono(u"pausa"_s));
  ui_.Copiar->setIcon(icono(u"copiar"_s));
  ui_.Guardar->setIcon(icono(u"guardar"_s));
  ui_.Limpiar->setIcon(icono(u"quitar"_s));
  ui_.lista->preparar(c, nombre, columnasTramas(c.textos));
  ui_.lista->vivas();
  ui_.lista->filtros()->addWidget(ui_.filtros);
  ui_.lista->ponerVacia(t(kTxSinTramas));
  connect(ui_.lista, &Parrilla::actualCambiada, this, [this](int fila) { mostrarHexa(fila); });
  connect(ui_.Que, &QComboBox::activated, this, [this] { empezar(); });
  connect(ui_.Pausa, &QAction::toggled, this, [this](bool si) { pausar(si); });
  connect(ui_.Copiar, &QAction::triggered, this, [this] { copiar(); });
  connect(ui_.Guardar, &QAction::triggered, this, [this] { ui_.lista->exportar(); });
  connect(ui_.Limpiar, &QAction::triggered, this, [this] {
    vista_ = escucha_->ultimo();
    bytes_.clear();
    ui_.lista->vivas().poner(std::vector<FilaViva>());
    ui_.Hexa->clear();
  });
  pulso_->cada(kPulsoTramas);
  s_.motor.observar(this);
}

VerTramas::~VerTramas() {
  s_.motor.dejarDeObservar(this);
}

// A short task may have ended before the list is next updated.
void VerTramas::tareaCambiada(int id) {
  if (id != tarea_) return;
  if (const auto tarea = s_.motor.tarea(id); tarea && tarea->Canal >= 0) canalVisto_ = tarea->Canal;
}

Resultado<> VerTramas::entrar(const PuertaVerTramas& puerta) {
  tarea_ = puerta.tarea;
  const auto tarea = s_.motor.tarea(tarea_);
  canalTarea_ = -2;
  canalVisto_ = tarea && tarea->Canal >= 0 ? tarea->Canal : puerta.canal.value_or(-2);
  canales_ = -1;
  llenarLineas();
  const int quiere = tarea_ > 0 ? kDeTarea : puerta.canal.value_or(kTodas);
  if (!elegir(*ui_.Que, quiere)) ui_.Que->setCurrentIndex(0);
  ui_.Pausa->setChecked(false);
  empezar();
  ui_.lista->setFocus();
  return {};
}

void VerTramas::llenarLineas() {
  const auto canales = s_.motor.canales();
  if (static_cast<int>(canales.size()) == canales_) return;
  canales_ = static_cast<int>(canales.size());
  Opciones lineas;
  if (tarea_ > 0) lineas.push_back({kDeTarea, t(kTxLineaTarea).arg(Ceros(tarea_, 3))});
  lineas.push_back({kTodas, t(kTxTodosCanales)});
  for (int c = 0; c < canales_; ++c) {
    const QString& nombre = canales[static_cast<size_t>(c)].NombreEnlace;
    lineas.push_back({c, nombre.isEmpty() ? t(kTxCanal).arg(c + 1) : nombre});
  }
  llenar(*ui_.Que, lineas);
}

// A task that has ended keeps its last channel.
int VerTramas::canal() const {
  const auto que = static_cast<int>(elegido(*ui_.Que));
  return que != kDeTarea ? que : std::max(canalTarea_, kTodas);
}

// Starts again from the oldest step stored.
void VerTramas::empezar() {
  vista_ = 0;
  bytes_.clear();
  ui_.lista->vivas().poner(std::vector<FilaViva>());
  ui_.Hexa->clear();
  seguir();
}

void VerTramas::seguir() {
  llenarLineas();
  if (elegido(*ui_.Que) == kDeTarea) {
    if (canalVisto_ != canalTarea_) {
      canalTarea_ = canalVisto_;
      return empezar();
    }
    if (canalTarea_ < 0) return;  // it hasn't had a channel yet
  }
  if (ui_.Pausa->isChecked()) {
    const auto nuevas = static_cast<int>(escucha_->ultimo() - vista_);
    ui_.LblPausa->setText(nuevas > 0 ? t(kTxPausaPuesta, nuevas) : QString());
    return;
  }
  if (escucha_->ultimo() == vista_ || ui_.lista->trabajando()) return;
  QScrollBar* barra = ui_.lista->vista()->verticalScrollBar();
  const bool alFinal = barra->value() >= barra->maximum();
  escucha_->recorrer(vista_, canal(), [this](const enlace::Paso& p) { anadir(p); });
  vista_ = escucha_->ultimo();
  podar();
  if (alFinal) ui_.lista->vista()->scrollToBottom();
}

void VerTramas::anadir(const enlace::Paso& paso) {
  bytes_[paso.numero] = paso.bytes;
  ui_.lista->vivas().poner(filaPaso(paso, contexto().textos));
}

void VerTramas::podar() {
  if (bytes_.size() <= kFilasMax + kHolgura) return;
  while (bytes_.size() > kFilasMax) {
    ui_.lista->vivas().quitar(bytes_.begin()->first);
    bytes_.erase(bytes_.begin());
  }
}

void VerTramas::pausar(bool si) {
  ui_.LblPausa->clear();
  if (!si) seguir();
}

void VerTramas::mostrarHexa(int fila) {
  const auto b = fila < 0 ? bytes_.end() : bytes_.find(ui_.lista->clave(fila));
  ui_.Hexa->setPlainText(b == bytes_.end() ? QString() : volcado(b->second));
}

// Copies the selected rows, or all: one frame per line, its fields separated by tabs.
void VerTramas::copiar() {
  std::vector<int> filas = ui_.lista->filasElegidas();
  if (filas.empty())
    for (int f = 0; f < ui_.lista->filas(); ++f) filas.push_back(f);
  const ModeloParrilla& m = *ui_.lista->modelo();
  QStringList lineas;
  for (const int f : filas) {
    QStringList campos;
    for (int c = 0; c < m.columnCount(); ++c) campos << m.texto(f, c);
    lineas << campos.join(u'\t');
  }
  QGuiApplication::clipboard()->setText(lineas.join(u'\n'));
  if (!lineas.isEmpty()) decirBien(t(kTxCopiadas, static_cast<int>(lineas.size())));
}

}  // namespace tarvo::comm
