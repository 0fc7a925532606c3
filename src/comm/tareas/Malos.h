// Records that can't be read whole. Each is asked for once more. One that comes again in the same
// bytes is the machine's way of sending it, and would spoil every reading: it is taken with 0 for
// missing values, and this is reported. If the machine also gives a longer record of the same
// subject, the short one stays bad.
#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "comm/maquinas/Campos.h"
#include "comm/motor/Tarea.h"
#include "comm/tareas/TextosTareas.h"

namespace tarvo::tareas {

class Malos {
 public:
  // `codigo`: of the question that the record answers. `sujeto`: what the record is about, as far
  // as that shows without reading its counters, and its machine.
  maquinas::Rigor rigor(int codigo, const QByteArray& sujeto, const QByteArray& datos) const {
    const bool visto = vistos_.contains({codigo, sujeto, datos});
    return visto && datos.size() >= enteroDe({codigo, sujeto}) ? maquinas::Rigor::Tolerante
                                                               : maquinas::Rigor::Estricto;
  }
  // Every one stays bad, since the reading is a proof.
  void sinTolerancia() { siempre_ = true; }
  // It was read whole.
  void entero(int codigo, const QByteArray& sujeto, const QByteArray& datos) {
    qsizetype& mayor = enteros_[{codigo, sujeto}];
    mayor = std::max(mayor, datos.size());
  }
  // It couldn't be read. A refusal or an empty answer never counts as a record.
  void anotar(int codigo, const QByteArray& sujeto, const QByteArray& datos) {
    if (!siempre_ && !datos.isEmpty() && !datos.startsWith("ERR"))
      vistos_.emplace(codigo, sujeto, datos);
  }
  // After a record that was noted: may the question be asked again at once? Once only, until the
  // next question or attempt.
  bool insistir() { return !siempre_ && !vistos_.empty() && !std::exchange(insistido_, true); }
  void otraPregunta() { insistido_ = false; }
  // It came again, and is taken at that place of the reading.
  void tomado(int codigo, const QByteArray& sujeto, const QByteArray& datos, const QString& lugar) {
    if (tomados_.empty()) primero_ = lugar;
    tomados_.emplace(codigo, sujeto, datos);
  }
  // A longer one has come since: the place of the first short one taken.
  std::optional<QString> desmentido() const {
    const bool alguno = std::ranges::any_of(tomados_, [&](const Registro& r) {
      return std::get<2>(r).size() < enteroDe({std::get<0>(r), std::get<1>(r)});
    });
    return alguno ? std::optional(primero_) : std::nullopt;
  }
  void avisar(int grupo, const Textos& textos, std::vector<totals::Aviso>& avisos) const {
    if (!tomados_.empty())
      avisos.push_back(
          {grupo, textos(kTxRegistrosIncompletos, {grupo, tomados_.size(), primero_}), true});
  }

 private:
  using Registro = std::tuple<int, QByteArray, QByteArray>;
  using Sujeto = std::pair<int, QByteArray>;
  qsizetype enteroDe(const Sujeto& sujeto) const {
    const auto it = enteros_.find(sujeto);
    return it == enteros_.end() ? 0 : it->second;
  }
  std::set<Registro> vistos_, tomados_;
  std::map<Sujeto, qsizetype> enteros_;  // the longest of each
  QString primero_;
  bool siempre_ = false, insistido_ = false;
};

}  // namespace tarvo::tareas
