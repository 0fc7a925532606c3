#include "devices/ivasDep.h"

#include <algorithm>

#include "devices/Fila.h"
#include "devices/Modelos.h"

namespace tarvo::devices {

namespace {

float tasaDe(const dao::Recordset& fila, int departamento) {
  int indice = 0;
  leerColumna(fila, conNumero(u"IVD", departamento), indice);
  if (indice < 1 || indice > 5) return 0;
  const int c = fila.columna(conNumero(u"IVA", indice));
  return c < 0 || fila.nulo(c) ? 0 : static_cast<float>(fila.real(c) / 100);
}

}  // namespace

Resultado<ivasDep> ivasDep::leer(dao::Database& db) {
  ivasDep tabla;
  TARVO_INTENTAR(
      dao::recorrer(db.consultar(u"select * from Grupos"), [&tabla](const dao::Recordset& fila) {
        Fila f;
        std::optional<TipoGrupo> tipo = TipoGrupo::Balanzas;
        leerColumna(fila, u"CODGPO", f.grupo);
        leerColumna(fila, u"tipo", tipo);
        const int ultimo = std::min(MaxDepartamentos(tipo), kDepartamentos);
        for (int n = 1; n <= ultimo; ++n) f.tasas[static_cast<size_t>(n - 1)] = tasaDe(fila, n);
        tabla.grupos_.push_back(f);
      }));
  return tabla;
}

float ivasDep::IVA(int grupo, int departamento) const {
  if (departamento < 1 || departamento > kDepartamentos) return 0;
  const auto f = std::ranges::find(grupos_, grupo, &Fila::grupo);
  return f == grupos_.end() ? 0 : f->tasas[static_cast<size_t>(departamento - 1)];
}

QString ivasDep::FormulaRPT() const {
  QStringList lineas{QStringLiteral("if ({@Dpt}<1) or ({@Dpt}>20) then"), QStringLiteral("   0 ")};
  for (const Fila& f : grupos_) {
    QStringList tasas;
    for (const float tasa : f.tasas) tasas << QString::number(tasa);
    lineas << QStringLiteral("else if {@Gpo}=%1 then").arg(f.grupo)
           << QStringLiteral("   [%1][{@Dpt}] ").arg(tasas.join(QStringLiteral(", ")));
  }
  lineas << QStringLiteral("else ") << QStringLiteral("   0 ");
  return lineas.join(QStringLiteral("\r\n"));
}

}  // namespace tarvo::devices
