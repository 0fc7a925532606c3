#include "labels/TextosEtiqueta.h"

namespace tarvo::labels {

namespace {

const QString kFinDeLinea = QStringLiteral("\r\n");

bool libre(int n) {
  return n >= kPrimerTextoLibre && n <= kUltimoTexto;
}

}  // namespace

QString LeerTexto(int n, const std::optional<QString>& juego, const Ajustes& ajustes) {
  if (n < 1 || n > kUltimoTexto) return {};
  if (!libre(n) || !juego) return ajustes.TextoEtiquetas[static_cast<size_t>(n)];
  return juego->split(kFinDeLinea).value(n - kPrimerTextoLibre);
}

void PonerTexto(int n, const QString& texto, std::optional<QString>& juego, Ajustes& ajustes) {
  if (!libre(n)) return;
  if (!juego) {
    ajustes.TextoEtiquetas[static_cast<size_t>(n)] = texto;
    return;
  }
  QStringList lineas = juego->split(kFinDeLinea);
  lineas.resize(kTextosLibres);
  lineas[n - kPrimerTextoLibre] = texto;
  *juego = lineas.join(kFinDeLinea);
}

}  // namespace tarvo::labels
