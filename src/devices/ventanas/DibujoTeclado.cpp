#include "devices/ventanas/DibujoTeclado.h"

#include <QTextLayout>
#include <cmath>

#include "core/textos/Textos.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::devices {

using namespace Qt::StringLiterals;
using ventanas::colorDe;
using ventanas::Tinte;

namespace {

constexpr double kMasAncha = 1.5, kMasEstrecha = 0.85;  // a key's width by its height
constexpr double kAngulo = 137.5;  // between the hues of departments: neighbours differ
constexpr double kLetraDeTecla = 0.2, kLetraNumero = 0.15;  // of the height of a key
constexpr int kMasEstrechas = 72;                           // per cent of the width of letters
constexpr int kLetraMenor = 8, kNumeroMenor = 7, kLetraMayor = 22;  // pixels at 100 %

QColor mezcla(const QColor& a, const QColor& b, double parte) {
  const auto entre = [parte](float x, float y) { return static_cast<float>(x + (y - x) * parte); };
  return QColor::fromRgbF(entre(a.redF(), b.redF()), entre(a.greenF(), b.greenF()),
                          entre(a.blueF(), b.blueF()));
}

bool oscuro() {
  return colorDe(Tinte::Base).lightnessF() < 0.5F;
}

QColor carcasa() {
  return mezcla(colorDe(Tinte::Borde), colorDe(Tinte::Fondo), 0.6);
}

struct Colores {
  QColor cara, letra;
};
Colores coloresDe(const CaraDeTecla& c) {
  const QColor texto = colorDe(Tinte::Texto);
  switch (c.tipo) {
    case TipoTecla::Numerica:
      return {mezcla(texto, colorDe(Tinte::Fondo), 0.2), colorDe(Tinte::Base)};
    case TipoTecla::PluDirecto:
      return {c.departamento > 0 ? colorDeDepartamento(c.departamento) : colorDe(Tinte::Base),
              texto};
    case TipoTecla::Operador:
    case TipoTecla::Tara:
    case TipoTecla::Departamento:
    case TipoTecla::Total:
      return {mezcla(colorDe(Tinte::Acento), colorDe(Tinte::Fondo), 0.8), texto};
    case TipoTecla::Funcion:
      break;
  }
  return {mezcla(colorDe(Tinte::Boton), colorDe(Tinte::Borde), 0.22), texto};
}

QFont letra(double pixeles, int laMenor = kLetraMenor) {
  QFont f;
  const double menor = ventanas::escalar(laMenor), mayor = ventanas::escalar(kLetraMayor);
  f.setPixelSize(static_cast<int>(std::lround(std::clamp(pixeles, menor, mayor))));
  return f;
}

// The text in as many lines as fit, the last one cut if there is more.
void escribir(QPainter& p, const QRectF& sitio, const QString& texto, QFont fuente) {
  double larga = 1;
  for (const QString& palabra : texto.split(u' '))
    larga = std::max(larga, QFontMetricsF(fuente).horizontalAdvance(palabra));
  const int entera = fuente.pixelSize();
  if (larga > sitio.width())
    fuente.setPixelSize(
        std::max(ventanas::escalar(kLetraMenor), static_cast<int>(entera * sitio.width() / larga)));
  // What doesn't fit in the smallest letters is narrowed, as far as it can be read.
  if (const double queda = larga * fuente.pixelSize() / entera; queda > sitio.width())
    fuente.setStretch(std::max(kMasEstrechas, static_cast<int>(95 * sitio.width() / queda)));
  const QFontMetricsF medida(fuente);
  const int caben = std::max(1, static_cast<int>(sitio.height() / medida.lineSpacing()));
  QTextLayout capa(texto, fuente);
  QTextOption opcion;
  opcion.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  capa.setTextOption(opcion);
  QStringList lineas;
  capa.beginLayout();
  for (QTextLine l = capa.createLine(); l.isValid(); l = capa.createLine()) {
    l.setLineWidth(sitio.width());
    if (lineas.size() + 1 == caben) {
      lineas << medida.elidedText(texto.mid(l.textStart()), Qt::ElideRight, sitio.width());
      break;
    }
    lineas << texto.mid(l.textStart(), l.textLength()).trimmed();
  }
  capa.endLayout();
  p.setFont(fuente);
  p.drawText(sitio, Qt::AlignCenter, lineas.join(u'\n'));
}

void marcar(QPainter& p, const QRectF& sitio) {
  const double lado = std::clamp(sitio.height() * 0.28, 9.0, 18.0);
  const QRectF r(sitio.right() - lado - 1, sitio.top() + 1, lado, lado);
  p.setPen(Qt::NoPen);
  p.setBrush(colorDe(Tinte::Mal));
  p.drawEllipse(r);
  QFont f;
  f.setBold(true);
  f.setPixelSize(static_cast<int>(lado * 0.75));
  p.setFont(f);
  p.setPen(colorDe(Tinte::Base));
  p.drawText(r, Qt::AlignCenter, u"!"_s);
}

QString rotulo(const CaraDeTecla& c) {
  if (c.nula) return {};
  return c.rotulo.isEmpty() && c.articulo ? Ceros(*c.articulo, 7) : c.rotulo;
}

}  // namespace

Escala Escala::paraCaber(const Geometria& g, QSizeF sitio) {
  if (g.tamano.isEmpty()) return {};
  Escala e{sitio.width() / g.tamano.width(), sitio.height() / g.tamano.height(), {}};
  e.x = std::min(e.x, e.y * kMasAncha);
  e.y = std::min(e.y, e.x / kMasEstrecha);
  e.origen = {(sitio.width() - g.tamano.width() * e.x) / 2,
              (sitio.height() - g.tamano.height() * e.y) / 2};
  return e;
}

QColor colorDeDepartamento(int departamento) {
  const auto tono = static_cast<float>(std::fmod(departamento * kAngulo, 360.0) / 360.0);
  return oscuro() ? QColor::fromHslF(tono, 0.36F, 0.27F) : QColor::fromHslF(tono, 0.62F, 0.84F);
}

void dibujarTecla(QPainter& p, const QRectF& sitio, const CaraDeTecla& c) {
  const double hueco = std::max(1.0, sitio.height() * 0.04), canto = sitio.height() * 0.08;
  const QRectF r = sitio.adjusted(hueco, hueco, -hueco, -hueco);
  const double redondo = r.height() * 0.1;
  if (c.nula) {  // a hole where a key could be
    p.setBrush(mezcla(carcasa(), colorDe(Tinte::Fondo), 0.5));
    p.setPen(QPen(colorDe(Tinte::Borde), 1, Qt::DashLine));
    p.drawRoundedRect(r.adjusted(0.5, 0.5, -0.5, -0.5), redondo, redondo);
    if (c.reparo) marcar(p, r);
    return;
  }
  const Colores color = coloresDe(c);
  p.setPen(Qt::NoPen);
  p.setBrush(mezcla(color.cara, QColor(Qt::black), oscuro() ? 0.45 : 0.25));
  p.drawRoundedRect(r, redondo, redondo);
  const QRectF tapa = r.adjusted(0, 0, 0, -canto);
  p.setPen(QPen(mezcla(color.cara, color.letra, 0.35), 1));
  p.setBrush(color.cara);
  p.drawRoundedRect(tapa.adjusted(0.5, 0.5, -0.5, -0.5), redondo, redondo);
  p.setPen(color.letra);
  const bool cifra = c.tipo == TipoTecla::Numerica;
  const QString numero =
      c.tipo == TipoTecla::PluDirecto && c.numero > 0 ? QString::number(c.numero) : QString();
  QRectF dentro = tapa.adjusted(2, 2, -2, -1);
  if (!numero.isEmpty()) {
    p.setFont(letra(r.height() * kLetraNumero, kNumeroMenor));
    p.drawText(dentro, Qt::AlignLeft | Qt::AlignTop, numero);
    dentro.setTop(dentro.top() + p.fontMetrics().height() * 0.85);
  }
  escribir(p, dentro, rotulo(c), letra(r.height() * (cifra ? 0.42 : kLetraDeTecla)));
  if (c.reparo) marcar(p, tapa);
}

void dibujarTeclado(QPainter& p, const Geometria& g, const Escala& escala,
                    std::span<const CaraDeTecla> todas, const QString& modelo) {
  p.setRenderHint(QPainter::Antialiasing);
  const double redondo = escala.y * 0.3;
  const QRectF entero = escala({{0, 0}, g.tamano});
  p.setPen(QPen(colorDe(Tinte::Borde), 1));
  p.setBrush(carcasa());
  p.drawRoundedRect(entero.adjusted(0.5, 0.5, -0.5, -0.5), redondo, redondo);
  p.setPen(Qt::NoPen);
  p.setBrush(mezcla(carcasa(), QColor(Qt::black), oscuro() ? 0.3 : 0.08));
  for (const QRectF& z : g.zonas) p.drawRoundedRect(escala(z), redondo / 3, redondo / 3);
  const QRectF visor = escala(g.visor);
  p.setBrush(mezcla(colorDe(Tinte::Texto), QColor(Qt::black), oscuro() ? 0.9 : 0.3));
  p.drawRoundedRect(visor, redondo / 3, redondo / 3);
  p.setPen(colorDe(Tinte::Texto));
  QFont f = letra(escala.y * 0.28);
  f.setBold(true);
  p.setFont(f);
  p.drawText(QRectF(entero.left() + escala.x * 0.4, visor.top(), visor.left(), visor.height()),
             Qt::AlignLeft | Qt::AlignVCenter, modelo);
  for (size_t i = 0; i < todas.size() && i < g.teclas.size(); ++i)
    dibujarTecla(p, escala(g.teclas[i]), todas[i]);
}

}  // namespace tarvo::devices
