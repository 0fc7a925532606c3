#include "comm/ventanas/NombresTramas.h"

#include <algorithm>
#include <iterator>

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/TextosVentanas.h"

namespace tarvo::comm {

namespace {

struct NombreTrama {
  int codigo;
  int texto;
};

constexpr NombreTrama kNombresVek[] = {{0, kTxTrama2600},
                                       {10, kTxTrama2601},
                                       {20, kTxTrama2602},
                                       {30, kTxTrama2603},
                                       {40, kTxTrama2604},
                                       {70, kTxTrama2605},
                                       {80, ventanas::kTxDepartamento},
                                       {90, kTxTrama2607},
                                       {100, ventanas::kTxArticulo},
                                       {101, kTxTrama2609},
                                       {120, kTxTrama2610},
                                       {200, kTxTrama2611},
                                       {210, kTxTrama2612},
                                       {220, kTxTrama2613},
                                       {230, kTxTrama2614},
                                       {240, kTxTrama2615},
                                       {250, kTxTrama2616},
                                       {260, kTxTrama2617},
                                       {270, kTxTrama2618},
                                       {300, kTxTrama2648},
                                       {310, kTxTrama2619},
                                       {320, ventanas::kTxCodigoDeBarras},
                                       {330, kTxTrama2621},
                                       {340, kTxTrama2622},
                                       {360, kTxTrama2623},
                                       {400, kTxTrama11000},
                                       {410, kTxTrama11001},
                                       {420, kTxTrama11002},
                                       {440, kTxTrama11001},
                                       {570, kTxTrama11003},
                                       {610, kTxTrama2624},
                                       {800, kTxTrama2625},
                                       {810, kTxTrama2626},
                                       {820, kTxTrama2627},
                                       {830, kTxTrama2628},
                                       {835, kTxTrama2629},
                                       {840, kTxTrama2630},
                                       {850, kTxTrama2631},
                                       {860, kTxTrama2631},
                                       {880, kTxTrama2632},
                                       {910, kTxTrama2633},
                                       {915, kTxTrama2634},
                                       {995, kTxTrama2635},
                                       {2057, kTxTrama2636},
                                       {2060, kTxTrama2637},
                                       {3054, kTxTrama2638},
                                       {3056, kTxTrama2639},
                                       {3058, kTxTrama2640},
                                       {4003, kTxTrama2641},
                                       {4098, kTxTrama2642}};
constexpr NombreTrama kNombresNodal[] = {
    {6, kTxTrama2643},  {7, kTxTrama2644},           {8, kTxTrama2645},  {21, kTxTrama2646},
    {26, kTxTrama2647}, {32, ventanas::kTxArticulo}, {33, kTxTrama2648}, {36, kTxTrama2601},
    {38, kTxTrama2649}, {39, kTxTrama2650},          {64, kTxTrama2631}, {65, kTxTrama2651},
    {66, kTxTrama2652}, {67, kTxTrama2636},          {71, kTxTrama2633}, {72, kTxTrama11003},
    {73, kTxTrama2642}, {75, kTxTrama2653},          {76, kTxTrama2654}, {77, kTxTrama2655}};

}  // namespace

int nombreTrama(bool nodal, int codigo) {
  const auto* const desde = nodal ? std::begin(kNombresNodal) : std::begin(kNombresVek);
  const auto* const hasta = nodal ? std::end(kNombresNodal) : std::end(kNombresVek);
  const auto* const n =
      std::find_if(desde, hasta, [codigo](const NombreTrama& t) { return t.codigo == codigo; });
  return n == hasta ? 0 : n->texto;
}

}  // namespace tarvo::comm
