// What the machines of one wire may still have to say to questions that are over: the answers to
// copies of a frame, an answer that comes after its time. None of them tells what it answers but by
// its code, so a frame whose answer proves something must not go out while one of its code is owed.
// Lives as long as the program, by wire: a link may close and open again in between.
#pragma once

#include <algorithm>
#include <vector>

namespace tarvo::enlace {

class Deudas {
 public:
  // May an answer with that code belong to an earlier question, of whatever machine of the wire?
  bool debida(int codigo) const {
    return std::ranges::find(debidas_, codigo, &Deuda::codigo) != debidas_.end();
  }
  bool ninguna() const { return debidas_.empty(); }
  // A question was answered. A machine answers in the order in which it was asked: after an
  // answer that can't be an earlier one's, its copies of earlier questions have been answered too.
  void contestada(int addr, int codigo, bool repetida) {
    if (!debida(codigo))
      std::erase_if(debidas_, [&](const Deuda& d) { return d.addr == addr && !d.callada; });
    if (repetida) anotar({addr, codigo, false});
  }
  // It wasn't, and its answer may come at any time: only a quiet line ends the doubt.
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
