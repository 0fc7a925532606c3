#include "articles/precios/ParrillaRapida.h"

#include <algorithm>

#include "articles/precios/AjustesPrecios.h"
#include "articles/precios/Limites.h"

namespace tarvo::precios {

namespace {

constexpr std::array kVistas{Vista::SoloVer,   Vista::SoloVer,   Vista::Modificar, Vista::SoloVer,
                             Vista::SoloVer,   Vista::Invisible, Vista::Invisible, Vista::Invisible,
                             Vista::Invisible, Vista::Invisible};

// 0, 1 or 2; nothing for any other text.
std::optional<int> deTres(QStringView s) {
  bool ok = false;
  const int n = s.trimmed().toInt(&ok);
  return ok && n >= 0 && n <= 2 ? std::optional(n) : std::nullopt;
}

}  // namespace

ParrillaRapida::ParrillaRapida() : vistas_(kVistas) {
  valores_[en(CampoFijo::Unidad)] = QStringLiteral("-1");
}

bool ParrillaRapida::esAjuste(QStringView ajuste) {
  const auto partes = ajuste.split(u',');
  constexpr qsizetype kNumeros = kColumnasRapidas + kCamposFijos;
  return partes.size() == kNumeros + qsizetype{kCamposFijos} &&
         std::all_of(partes.begin(), partes.begin() + kNumeros,
                     [](QStringView p) { return deTres(p).has_value(); });
}

ParrillaRapida ParrillaRapida::leer(QStringView ajuste) {
  ParrillaRapida p;
  const auto partes = ajuste.split(u',');
  const auto parte = [&](std::size_t i) {
    const auto n = static_cast<qsizetype>(i);
    return n < partes.size() ? partes[n] : QStringView();
  };
  for (std::size_t i = 0; i < kColumnasRapidas; ++i)
    if (const auto n = deTres(parte(i))) p.vistas_[i] = static_cast<Vista>(*n);
  for (std::size_t i = 0; i < kCamposFijos; ++i) {
    if (const auto n = deTres(parte(kColumnasRapidas + i)))
      p.politicas_[i] = static_cast<Politica>(*n);
    const std::size_t valor = kColumnasRapidas + kCamposFijos + i;
    if (static_cast<qsizetype>(valor) < partes.size())
      p.ponerValor(static_cast<CampoFijo>(i), parte(valor).toString());
  }
  return p;
}

QString ParrillaRapida::escribir() const {
  QStringList partes;
  for (const Vista v : vistas_) partes << QString::number(static_cast<int>(v));
  for (const Politica p : politicas_) partes << QString::number(static_cast<int>(p));
  for (const QString& v : valores_) partes << v;
  return partes.join(u',');
}

void ParrillaRapida::ponerValor(CampoFijo c, const QString& valor) {
  QString limpio = valor.simplified();
  valores_[en(c)] = limpio.remove(u',');
}

ModoIntro leerModoIntro(int ajuste) {
  return ajuste >= 0 && ajuste <= 2 ? static_cast<ModoIntro>(ajuste) : ModoIntro::PLU;
}

ModoIntro siguiente(ModoIntro modo) {
  return static_cast<ModoIntro>((static_cast<int>(modo) + 1) % 3);
}

std::optional<Celda> trasIntro(ModoIntro modo, Celda c) {
  using articles::kNiveles;
  using articles::kTarifas;
  if (modo == ModoIntro::PLU) return std::nullopt;
  // The cells in the order of the mode, as one row.
  const bool porPrecios = modo == ModoIntro::Precio;
  const int sitio = porPrecios ? c.tarifa * kNiveles + c.nivel : c.nivel * kTarifas + c.tarifa;
  const int otro = (sitio + 1) % (kNiveles * kTarifas);
  return porPrecios ? Celda{otro % kNiveles, otro / kNiveles}
                    : Celda{otro / kTarifas, otro % kTarifas};
}

std::expected<FormaAlta, FormaAlta::Mal> FormaAlta::de(const QString& prefijo, int precios,
                                                       int tarifas) {
  FormaAlta f;
  f.prefijo_ = prefijo.trimmed();
  f.precios_ = precios;
  f.tarifas_ = tarifas;
  if (!sonCifras(f.prefijo_)) return std::unexpected(Mal::PrefijoNoNumerico);
  if (f.prefijo_.size() > kPrefijoMayor) return std::unexpected(Mal::PrefijoLargo);
  if (precios < 1 || precios > articles::kNiveles) return std::unexpected(Mal::Precios);
  if (tarifas < 1 || tarifas > articles::kTarifas) return std::unexpected(Mal::Tarifas);
  return f;
}

FormaAlta FormaAlta::leer(const AjustesPrecios& a) {
  const bool vale = de(a.PrefijoCodigos, 1, 1).has_value();
  const int precios = std::clamp(a.NumPreciosAlta, 1, articles::kNiveles);
  const int tarifas = std::clamp(a.NumTarifasAlta, 1, articles::kTarifas);
  return de(vale ? a.PrefijoCodigos : QString(), precios, tarifas).value_or(FormaAlta());
}

std::optional<QString> FormaAlta::codigo(QStringView tecleado) const {
  const QStringView t = tecleado.trimmed();
  if (t.isEmpty() || t.size() > cifras() || !sonCifras(t)) return std::nullopt;
  return prefijo_ + t.toString().rightJustified(cifras(), u'0');
}

}  // namespace tarvo::precios
