// Records that can't be read whole. Each is asked for again. One that keeps coming in the same
// bytes is the machine's way of sending it, and would spoil every reading: it is taken with 0 for
// missing values, and this is reported. It must come four times, as a machine that cuts records now
// and then may do so twice; twice is enough where one of its length was taken already and the
// machine has given none longer. If it also gives a longer record of the same subject, the short
// one stays bad.
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
    return datos.size() >= enteroDe({codigo, sujeto}) &&
                   vecesDe({codigo, sujeto, datos}) >= hacenFalta(codigo, datos.size())
               ? maquinas::Rigor::Tolerante
               : maquinas::Rigor::Estricto;
  }
  // Every one stays bad, since the reading is a proof.
  void sinTolerancia() { siempre_ = true; }
  // It was read whole; no other record of the reading is about its subject.
  void entero(int codigo, const QByteArray& datos) {
    qsizetype& mayor = mayores_[codigo];
    mayor = std::max(mayor, datos.size());
  }
  // It was read whole, in a list that may come again.
  void entero(int codigo, const QByteArray& sujeto, const QByteArray& datos) {
    entero(codigo, datos);
    qsizetype& mayor = enteros_[{codigo, sujeto}];
    mayor = std::max(mayor, datos.size());
  }
  // It couldn't be read. A refusal or an empty answer never counts as a record.
  void anotar(int codigo, const QByteArray& sujeto, const QByteArray& datos) {
    if (!siempre_ && !datos.isEmpty() && !datos.startsWith("ERR"))
      repetido_ = ++vistos_[{codigo, sujeto, datos}] > 1;
  }
  // After a record that was noted: may the question be asked again at once? Once, and as long as
  // its answer stays the same, up to the four times; anew for each question and attempt.
  bool insistir() {
    if (vistos_.empty() || insistencias_ == kSeguro || (insistencias_ > 0 && !repetido_))
      return false;
    return ++insistencias_ > 0;
  }
  void otraPregunta() { insistencias_ = 0; }
  // It came again, and is taken at that place of the reading.
  void tomado(int codigo, const QByteArray& sujeto, const QByteArray& datos, const QString& lugar) {
    if (tomados_.empty()) primero_ = lugar;
    tomados_.emplace(codigo, sujeto, datos);
    largos_.emplace(codigo, datos.size());
  }
  // A longer one has come since: the place of the first short one taken.
  std::optional<QString> desmentido() const {
    const bool alguno = std::ranges::any_of(tomados_, [&](const Registro& r) {
      const auto& [codigo, sujeto, datos] = r;
      return datos.size() < enteroDe({codigo, sujeto}) ||
             (datos.size() < mayorDe(codigo) && vecesDe(r) < kSeguro);
    });
    return alguno ? std::optional(primero_) : std::nullopt;
  }
  void avisar(int grupo, const Textos& textos, std::vector<totals::Aviso>& avisos) const {
    if (!tomados_.empty())
      avisos.push_back(
          {grupo, textos(kTxRegistrosIncompletos, {grupo, tomados_.size(), primero_}), true});
  }

 private:
  static constexpr int kSeguro = 3;  // times that it must have come before it is taken
  using Registro = std::tuple<int, QByteArray, QByteArray>;
  using Sujeto = std::pair<int, QByteArray>;
  template <class M>
  static typename M::mapped_type en(const M& mapa, const typename M::key_type& clave) {
    const auto it = mapa.find(clave);
    return it == mapa.end() ? typename M::mapped_type{} : it->second;
  }
  qsizetype enteroDe(const Sujeto& sujeto) const { return en(enteros_, sujeto); }
  qsizetype mayorDe(int codigo) const { return en(mayores_, codigo); }
  int vecesDe(const Registro& r) const { return en(vistos_, r); }
  int hacenFalta(int codigo, qsizetype largo) const {
    return mayorDe(codigo) <= largo && largos_.contains({codigo, largo}) ? 1 : kSeguro;
  }
  std::map<Registro, int> vistos_;
  std::set<Registro> tomados_;
  std::set<std::pair<int, qsizetype>> largos_;  // of those taken
  std::map<Sujeto, qsizetype> enteros_;         // the longest of each
  std::map<int, qsizetype> mayores_;            // and of each code
  QString primero_;
  int insistencias_ = 0;
  bool siempre_ = false, repetido_ = false;
};

}  // namespace tarvo::tareas
