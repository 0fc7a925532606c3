#include "devices/Teclado.h"

#include <utility>

#include "core/textos/Textos.h"

namespace tarvo::devices {

using namespace Qt::StringLiterals;

namespace {

const QString kFin = u"\r\n"_s;

// A number in decimal digits only.
std::optional<qint64> digitos(QStringView t) {
  const QStringView limpio = t.trimmed();
  if (limpio.isEmpty()) return {};
  for (const QChar c : limpio)
    if (c < u'0' || c > u'9') return {};
  bool bien = false;
  const qint64 n = limpio.toLongLong(&bien);
  return bien ? std::optional(n) : std::nullopt;
}

// Each line of at least the head and its colon, with the number at its head, from 1 to `hasta`, and
// what follows the colon. A text that went through another editor may have lost its CRs.
template <class F>
void porLineas(const QString& texto, int enCabeza, int hasta, F&& una) {
  for (QStringView linea : QStringView(texto).split(u'\n')) {
    if (linea.endsWith(u'\r')) linea.chop(1);
    if (linea.size() <= enCabeza) continue;
    const auto n = digitos(linea.left(enCabeza));
    if (n && *n >= 1 && *n <= hasta) una(static_cast<int>(*n), linea.mid(enCabeza + 1));
  }
}

}  // namespace

Teclado::Teclado(int teclas)
    : codigos_(static_cast<size_t>(teclas), kTeclaNula),
      plus_(kPlusDirectos),
      taras_(kTarasDirectas) {}

void Teclado::mover(int de, int a) {
  if (de == a) return;
  codigo(a, codigo(de));
  codigo(de, kTeclaNula);
}

void Teclado::articulo(int directo, std::optional<qint64> articulo) {
  if (articulo && *articulo <= 0) articulo.reset();
  plus_.at(static_cast<size_t>(directo - 1)) = articulo;
}

void Teclado::leerTeclas(const QString& texto) {
  std::ranges::fill(codigos_, kTeclaNula);
  porLineas(texto, 3, teclas(), [this](int n, QStringView resto) {
    const QStringView cifras = resto.endsWith(u':') ? resto.chopped(1) : resto;
    if (const auto c = digitos(cifras); c && *c <= kTeclaNula) codigo(n, static_cast<int>(*c));
  });
}

void Teclado::leerDirectos(const QString& plus, const QString& taras) {
  porLineas(plus, 3, kPlusDirectos,
            [this](int n, QStringView resto) { articulo(n, digitos(resto)); });
  porLineas(taras, 2, kTarasDirectas, [this](int n, QStringView resto) {
    const auto gramos = digitos(resto);
    tara(n, gramos && *gramos <= 9999 ? std::optional(static_cast<int>(*gramos)) : std::nullopt);
  });
}

void Teclado::leer(const TextosTeclado& t) {
  leerTeclas(t.Teclado);
  leerDirectos(t.HARDPLU, t.TARASME);
}

TextosTeclado Teclado::escribir() const {
  TextosTeclado t;
  for (int n = 1; n <= teclas(); ++n) t.Teclado += Ceros(n, 3) + u':' + Ceros(codigo(n), 3) + kFin;
  for (int n = 1; n <= kPlusDirectos; ++n)
    t.HARDPLU += Ceros(n, 3) + u':' + (articulo(n) ? Ceros(*articulo(n), 7) : QString()) + kFin;
  for (int n = 1; n <= kTarasDirectas; ++n)
    t.TARASME += Ceros(n, 2) + u':' + (tara(n) ? Ceros(*tara(n), 4) : QString()) + kFin;
  return t;
}

QString Teclado::portapapeles() const {
  const TextosTeclado t = escribir();
  return QStringList{Ceros(teclas(), 3), t.Teclado, t.HARDPLU, t.TARASME}.join(u'|');
}

Teclado::Pegado Teclado::quePega(const QString& texto) const {
  const auto suyas = digitos(QStringView(texto).left(texto.indexOf(u'|')));
  if (!texto.contains(u'|') || !suyas || *suyas == 0) return Pegado::NoEsTeclado;
  return *suyas == teclas() ? Pegado::Igual : Pegado::OtrasTeclas;
}

void Teclado::pegar(const QString& texto) {
  const QStringList partes = texto.split(u'|');
  const Pegado que = quePega(texto);
  if (que == Pegado::NoEsTeclado) return;
  if (que == Pegado::Igual) leerTeclas(partes.value(1));
  leerDirectos(partes.value(2), partes.value(3));
}

void TecladoEbony::leer(const QString& texto) {
  std::ranges::fill(teclas_, Tecla{});
  porLineas(texto, 2, teclas(), [this](int n, QStringView resto) {
    const QChar letra = resto.isEmpty() ? QChar() : resto[0].toUpper();
    const auto valor = digitos(resto.mid(2));
    if (letra == u'P') tecla(n, {Tipo::PluDirecto, valor.value_or(0)});
    if (letra == u'T') tecla(n, {Tipo::Tara, valor.value_or(0)});
  });
}

QString TecladoEbony::escribir() const {
  QString t;
  for (int n = 1; n <= teclas(); ++n) {
    const Tecla& k = tecla(n);
    const QChar letra = k.tipo == Tipo::PluDirecto ? u'P' : k.tipo == Tipo::Tara ? u'T' : u'N';
    t += Ceros(n, 2) + u':' + letra + u':' + Ceros(k.tipo == Tipo::Nulo ? 0 : k.valor, 6) + kFin;
  }
  return t;
}

}  // namespace tarvo::devices
