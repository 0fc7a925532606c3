// What each key does, and what is wrong with it.
#include <algorithm>

#include "core/textos/Textos.h"
#include "devices/TecladoEditado.h"
#include "devices/TecladosDefault.h"
#include "devices/TextosDevices.h"

namespace tarvo::devices {

namespace {

class Pintor {
 public:
  Pintor(const CodigosDeTecla& codigos, const ArticulosDeTecla& existen, const Textos& textos,
         bool birch)
      : codigos_(codigos),
        existen_(existen),
        vacia_(existen.empty() || existen.rbegin()->first < kPrimerArticuloDeTecla),
        t_(textos),
        birch_(birch) {}

  CaraDeTecla comun(const Teclado& t, int tecla) const {
    const int codigo = t.codigo(tecla);
    CaraDeTecla c{.tipo = codigos_.tipo(codigo),
                  .nula = codigo == kTeclaNula,
                  .numero = codigos_.numero(codigo)};
    c.queHace = c.rotulo = codigos_.nombre(codigo, birch_);
    if (c.tipo == TipoTecla::Numerica) c.rotulo = QString::number(c.numero);
    if (c.tipo == TipoTecla::PluDirecto) vende(c, t.articulo(c.numero));
    if (c.tipo == TipoTecla::Tara) pesa(c, t.tara(c.numero));
    if (c.queHace.isEmpty()) poner(c, Reparo::SinFuncion, t_(kTxSinFuncion, {codigo}));
    return c;
  }

  CaraDeTecla ebony(const TecladoEbony::Tecla& k) const {
    CaraDeTecla c{.nula = k.tipo == TecladoEbony::Tipo::Nulo};
    switch (k.tipo) {
      case TecladoEbony::Tipo::PluDirecto:
        c.tipo = TipoTecla::PluDirecto;
        c.queHace = t_(kTxPluDirecto);
        vende(c, k.valor > 0 ? std::optional(k.valor) : std::nullopt);
        break;
      case TecladoEbony::Tipo::Tara:
        c.tipo = TipoTecla::Tara;
        c.queHace = c.rotulo = t_(kTxTaraDirecta);
        pesa(c, k.valor);
        break;
      case TecladoEbony::Tipo::Nulo:
        c.queHace = codigos_.nombre(kTeclaNula);
        break;
    }
    return c;
  }

  void repetidas(std::vector<CaraDeTecla>& todas) const {
    std::map<qint64, std::vector<int>> donde;
    for (size_t i = 0; i < todas.size(); ++i)
      if (todas[i].articulo) donde[*todas[i].articulo].push_back(static_cast<int>(i) + 1);
    for (const auto& [articulo, teclas] : donde)
      for (const int tecla : teclas) {
        CaraDeTecla& c = todas[static_cast<size_t>(tecla) - 1];
        if (teclas.size() < 2 || c.reparo) continue;
        const int otra = tecla == teclas.front() ? teclas[1] : teclas.front();
        poner(c, Reparo::Repetido, t_(kTxTambienEn, {articulo, otra}));
      }
  }

 private:
  static void poner(CaraDeTecla& c, Reparo reparo, const QString& texto) {
    c.reparo = reparo;
    c.queLePasa = texto;
  }
  void vende(CaraDeTecla& c, std::optional<qint64> articulo) const {
    c.rotulo.clear();
    c.articulo = articulo;
    if (!articulo) {
      c.queHace = t_(kTxTeclaSinArticulo, {c.queHace});
      return;
    }
    const auto esta = existen_.find(*articulo);
    if (esta != existen_.end()) {
      c.rotulo = esta->second.nombre;
      c.departamento = esta->second.departamento;
    }
    c.queHace = t_(kTxTeclaVende, {c.queHace, Ceros(*articulo, 7), c.rotulo}).trimmed();
    if (*articulo < kPrimerArticuloDeTecla)
      poner(c, Reparo::DeSistema, t_(kTxDeSistema, {*articulo}));
    else if (esta == existen_.end() && !vacia_)
      poner(c, Reparo::NoEsta, t_(kTxArticuloNoEsta, {*articulo}));
  }
  void pesa(CaraDeTecla& c, std::optional<qint64> gramos) const {
    if (gramos) c.queHace = t_(kTxTeclaTara, {c.queHace, *gramos});
  }

  const CodigosDeTecla& codigos_;
  const ArticulosDeTecla& existen_;
  const bool vacia_;  // a section that has no articles yet: none of its keys lost one
  const Textos& t_;
  const bool birch_;
};

}  // namespace

std::vector<CaraDeTecla> caras(const TecladoEditado& teclado, const CodigosDeTecla& codigos,
                               const ArticulosDeTecla& existen, const Textos& textos) {
  const Pintor pintor(codigos, existen, textos, teclado.modelo() == kBirch);
  std::vector<CaraDeTecla> todas;
  for (int tecla = 1; tecla <= teclado.teclas(); ++tecla)
    todas.push_back(teclado.esEbony() ? pintor.ebony(teclado.ebony().tecla(tecla))
                                      : pintor.comun(teclado.comun(), tecla));
  pintor.repetidas(todas);
  return todas;
}

std::set<int> codigosQueFaltan(const TecladoEditado& teclado, Idioma idioma) {
  std::set<int> faltan;
  if (teclado.esEbony()) return faltan;
  TecladoEditado deFabrica(teclado.modelo());
  deFabrica.leer({TecladoDefecto(teclado.modelo(), idioma), {}, {}});
  const auto tiene = [](const Teclado& t, int codigo) {
    for (int tecla = 1; tecla <= t.teclas(); ++tecla)
      if (t.codigo(tecla) == codigo) return true;
    return false;
  };
  for (const int codigo : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, kTeclaTotal})
    if (tiene(deFabrica.comun(), codigo) && !tiene(teclado.comun(), codigo)) faltan.insert(codigo);
  return faltan;
}

}  // namespace tarvo::devices
