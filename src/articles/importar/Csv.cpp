#include "articles/importar/Csv.h"

#include <QStringDecoder>
#include <algorithm>
#include <map>

#include "core/ajustes/Ficheros.h"

namespace tarvo::importar {

namespace {

constexpr qsizetype kMuestra = 64 * 1024;
constexpr int kLineasMuestra = 50;
constexpr qsizetype kCeldaMayor = 32 * 1024;
constexpr char16_t kSeparadores[] = {u';', u'\t', u',', u'|'};

// Whether most bytes at the odd (1) or even (0) places are zero and few others are.
bool cerosEn(QByteArrayView b, qsizetype resto) {
  qsizetype ceros = 0, otros = 0;
  for (qsizetype i = 0; i < b.size(); ++i)
    if (b[i] == 0) ++(i % 2 == resto ? ceros : otros);
  return b.size() >= 4 && ceros * 2 > b.size() / 2 && otros * 8 < ceros;
}

class Partidor {
 public:
  Partidor(QStringView texto, QChar separador) : t_(texto), separador_(separador) {
    if (t_.startsWith(QChar::ByteOrderMark)) ++i_;
  }

  Tabla partir(int filas) {
    while (i_ < t_.size() && !tabla_.llena() && tabla_.filas() < filas) fila();
    return std::move(tabla_);
  }

 private:
  void fila() {
    tabla_.empezarFila(linea_);
    for (;;) {
      tabla_.anadir(celda());
      if (i_ < t_.size() && t_[i_] == separador_ && !tabla_.llena()) {
        ++i_;
        continue;
      }
      return finDeLinea();
    }
  }
  bool enFin() const {
    return i_ >= t_.size() || t_[i_] == separador_ || t_[i_] == u'\n' || t_[i_] == u'\r';
  }
  void finDeLinea() {
    if (i_ < t_.size() && t_[i_] == u'\r') ++i_;
    if (i_ < t_.size() && t_[i_] == u'\n') ++i_;
    ++linea_;
  }
  QString celda() {
    QString salida;
    if (i_ < t_.size() && t_[i_] == u'"') entreComillas(salida);
    const qsizetype desde = i_;
    while (!enFin()) ++i_;
    return salida.append(t_.sliced(desde, i_ - desde));
  }
  // Moves past the closing quote; stays when there is none near enough.
  void entreComillas(QString& salida) {
    const qsizetype tope = std::min(t_.size(), i_ + kCeldaMayor);
    int lineas = 0;
    for (qsizetype j = i_ + 1; j < tope; ++j) {
      if (t_[j] != u'"') {
        lineas += t_[j] == u'\n' ? 1 : 0;
        salida += t_[j];
      } else if (j + 1 < t_.size() && t_[j + 1] == u'"') {
        salida += t_[j++];
      } else {
        i_ = j + 1;
        linea_ += lineas;
        return;
      }
    }
    salida.clear();
  }

  QStringView t_;
  QChar separador_;
  qsizetype i_ = 0;
  int linea_ = 1;
  Tabla tabla_;
};

}  // namespace

Codificacion averiguarCodificacion(QByteArrayView bytes) {
  if (bytes.startsWith("\xFF\xFE")) return Codificacion::Utf16LE;
  if (bytes.startsWith("\xFE\xFF")) return Codificacion::Utf16BE;
  const QByteArrayView muestra = bytes.first(std::min(bytes.size(), kMuestra));
  if (cerosEn(muestra, 1)) return Codificacion::Utf16LE;
  if (cerosEn(muestra, 0)) return Codificacion::Utf16BE;
  return bytes.isValidUtf8() ? Codificacion::Utf8 : Codificacion::Windows1252;
}

QString descodificarComo(const QByteArray& bytes, Codificacion codificacion) {
  switch (codificacion) {
    case Codificacion::Utf16LE:
      return QStringDecoder(QStringDecoder::Utf16LE)(bytes);
    case Codificacion::Utf16BE:
      return QStringDecoder(QStringDecoder::Utf16BE)(bytes);
    case Codificacion::Windows1252:
      return ficheros::descodificar1252(bytes);
    default:
      return QString::fromUtf8(bytes);
  }
}

QChar averiguarSeparador(QStringView texto) {
  const QStringView muestra = texto.first(std::min(texto.size(), kMuestra));
  QChar mejor = u';';
  int votos = 0;
  for (const QChar s : kSeparadores) {
    const Tabla t = Partidor(muestra, s).partir(kLineasMuestra);
    std::map<int, int> anchos;  // cells in a row, number of such rows
    for (int f = 0; f < t.filas(); ++f) {
      int n = 0;
      for (int c = 0; c < t.columnas(); ++c)
        if (!t.celda(f, c).isEmpty()) n = c + 1;
      if (n > 1) anchos[n] += n;
    }
    for (const auto& [ancho, suyos] : anchos)
      if (suyos > votos) votos = suyos, mejor = s;
  }
  return mejor;
}

Tabla partirCsv(QStringView texto, QChar separador) {
  Tabla t = Partidor(texto, separador).partir(std::numeric_limits<int>::max());
  t.quitarFilasVacias();
  return t;
}

}  // namespace tarvo::importar
