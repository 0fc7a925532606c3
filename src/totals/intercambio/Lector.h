// Reading the lines of an export file. Internal to the room.
#pragma once

#include <QFile>
#include <memory>
#include <optional>

#include "core/ajustes/Ficheros.h"

namespace tarvo::totals {

// The lines of a file, one at a time, numbered from 1. Never more than one line is in memory.
class Lector {
 public:
  explicit Lector(std::unique_ptr<QIODevice> fichero) : f_(std::move(fichero)) {
    utf8_ = f_->peek(3) == "\xEF\xBB\xBF";
    if (utf8_) f_->skip(3);
    siguiente();
  }
  bool fin() const { return fin_; }
  // Nothing as long as every read succeeded.
  std::optional<QString> averia() const {
    const auto* fichero = qobject_cast<const QFileDevice*>(f_.get());
    const bool mal = fichero && fichero->error() != QFileDevice::NoError;
    return mal ? std::optional(f_->errorString()) : std::nullopt;
  }
  int numero() const { return numero_; }
  qint64 leidos() const { return f_->pos(); }
  qint64 tamano() const { return f_->size(); }
  const QString& linea() const { return linea_; }
  bool demasiadoLarga() const { return larga_; }
  bool esCabecera() const { return !fin_ && linea_.startsWith(u'*'); }
  bool enBlanco() const { return linea_.trimmed().isEmpty() && !larga_; }
  void siguiente() {
    QByteArray cruda = f_->readLine(kLineaMaxima + 3);  // with its end
    fin_ = cruda.isEmpty();
    linea_.clear();
    larga_ = false;
    if (fin_) return;
    ++numero_;
    if (!cruda.endsWith('\n') && !f_->atEnd()) return saltarResto();
    if (cruda.endsWith('\n')) cruda.chop(1);
    if (cruda.endsWith('\r')) cruda.chop(1);
    larga_ = cruda.size() > kLineaMaxima;
    if (!larga_) linea_ = utf8_ ? QString::fromUtf8(cruda) : ficheros::descodificar1252(cruda);
  }

 private:
  static constexpr qsizetype kLineaMaxima = 1024;  // a longer one is not one of our lines

  void saltarResto() {
    larga_ = true;
    for (QByteArray trozo; !trozo.endsWith('\n') && !f_->atEnd();) {
      trozo = f_->readLine(kLineaMaxima);
      if (trozo.isEmpty()) return;
    }
  }

  std::unique_ptr<QIODevice> f_;
  QString linea_;
  int numero_ = 0;
  bool utf8_ = false, larga_ = false, fin_ = false;
};

}  // namespace tarvo::totals
