// The answers that the machines of one wire may still owe to questions that are over: answers to
// copies of a frame, and late answers. Only the code of an answer shows what it answers, so a frame
// whose answer proves something must not go out while an answer with its code is owed. Kept by wire
// for as long as the program runs: a link may close and open again in between.
#pragma once

#include <algorithm>
#include <vector>

namespace tarvo::enlace {

class Deudas {
 public:
  // May an answer with that code belong to an earlier question, to any machine of the wire?
  bool debida(int codigo) const {
    return std::ranges::find(debidas_, codigo, &Deuda::codigo) != debidas_.end();
  }
  bool ninguna() const { return debidas_.empty(); }
  // A question was answered. A machine answers in the order in which it was asked: after an answer
  // that can't belong to an earlier question, the copies of earlier ones have been answered too.
  void contestada(int addr, int codigo, bool repetida) {
    if (!debida(codigo))
      std::erase_if(debidas_, [&](const Deuda& d) { return d.addr == addr && !d.callada; });
    if (repetida) anotar({addr, codigo, false});
  }
  // A question got no answer, which may still come at any time: only a quiet line ends the doubt.
  void callada(int addr, int codigo) { anotar({addr, codigo, true}); }
  // The line has been quiet.
  void saldar() { debidas_.clear(); }

 private:
  struct Deuda {
    int addr, codigo;
    bool callada;
    bool operator==(const Deuda&) const = default;
  };
  void anotar(Deuda d) {
    if (std::ranges::find(debidas_, d) == debidas_.end()) debidas_.push_back(d);
  }
  std::vector<Deuda> debidas_;
};

}  // namespace tarvo::enlace
