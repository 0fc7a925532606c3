#include "core/ventanas/edicion/Opciones.h"

#include <QSignalBlocker>

#include "core/textos/Textos.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

Opciones conCodigo(const std::vector<CodigoNombre>& lista, int cifras) {
  Opciones hechas;
  hechas.reserve(lista.size());
  for (const auto& [codigo, nombre] : lista)
    hechas.push_back({codigo, Ceros(codigo, cifras) + u"  "_s + nombre});
  return hechas;
}

Opciones numeros(std::initializer_list<qint64> valores) {
  Opciones hechas;
  for (const qint64 n : valores) hechas.push_back({n, QString::number(n)});
  return hechas;
}

Opciones deTextos(const Textos& textos, int primero, int cuantos) {
  Opciones hechas;
  for (int i = 0; i < cuantos; ++i) hechas.push_back({i, textos(primero + i)});
  return hechas;
}

void llenar(QComboBox& lista, const Opciones& opciones) {
  const QSignalBlocker callada(lista);
  const QVariant antes = lista.currentData();
  lista.clear();
  for (const Opcion& o : opciones) lista.addItem(o.texto, o.valor);
  if (antes.isValid() && elegir(lista, antes.toLongLong())) return;
  lista.setCurrentIndex(lista.count() > 0 ? 0 : -1);
}

Resultado<> llenar(QComboBox& lista, const Nombres::Lista& nombres, int cifras) {
  TARVO_TOMAR(const auto filas, nombres);
  llenar(lista, conCodigo(filas, cifras));
  return {};
}

bool elegir(QComboBox& lista, qint64 valor) {
  const int sitio = lista.findData(valor);
  lista.setCurrentIndex(sitio);
  return sitio >= 0;
}

qint64 elegido(const QComboBox& lista, qint64 siNinguno) {
  const QVariant dato = lista.currentData();
  return dato.isValid() ? dato.toLongLong() : siNinguno;
}

}  // namespace tarvo::ventanas
