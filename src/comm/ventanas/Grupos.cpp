#include "comm/ventanas/Grupos.h"

#include <ranges>

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "totals/libros/SinArticulos.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kGruposNombrados = 12;

// "0001 Name: 24 articles; sales of 12,50 that aren't in any period".
QString loQueTiene(const envios::Perdida& p, const std::optional<qint64>& sinPeriodo,
                   const ventanas::Ventana& quien) {
  const Ajustes& a = quien.contexto().ajustes;
  const bool sabido = p.articulos > 0;
  const QString articulos = quien.t(sabido ? kTxPerdidaArticulos : kTxPerdidaSinSaber,
                                    static_cast<int>(sabido ? p.articulos : p.deSeccion));
  const QString ventas =
      !sinPeriodo ? quien.t(kTxPerdidaSinVentas)
                  : quien.t(kTxPerdidaVentas)
                        .arg(VerImporte(a, *sinPeriodo, a.MonedaPreferente),
                             a.MonedaLogo[static_cast<size_t>(a.MonedaPreferente != 0)].trimmed());
  const QString cero = p.cero ? quien.t(kTxPerdidaCero).arg(p.cero->general()) : QString();
  return u"%1 %2: %3; %4%5"_s.arg(Ceros(p.grupo, 4), p.nombre, articulos, ventas, cero);
}

}  // namespace

bool consientePerder(ventanas::Ventana& quien, const envios::Grupos& losGrupos,
                     totals::Sesion& sesion, TipoTarea clase, const std::vector<int>& grupos) {
  if (clase != TipoTarea::TxZero && clase != TipoTarea::BorrPlu) return true;
  const auto perdidas = losGrupos.loQueSePierde(grupos);
  if (!quien.haIdoBien(perdidas)) return false;
  QStringList lineas{quien.t(clase == TipoTarea::BorrPlu ? kTxPreguntaBorrado : kTxPreguntaCero,
                             static_cast<int>(perdidas->size()))};
  for (const auto& p : *perdidas | std::views::take(kGruposNombrados)) {
    const auto sinPeriodo = sesion.sinPeriodo(p.grupo);
    if (!quien.haIdoBien(sinPeriodo)) return false;
    lineas << loQueTiene(p, *sinPeriodo, quien);
  }
  if (perdidas->size() > kGruposNombrados)
    lineas << quien.t(kTxPerdidaYMas, static_cast<int>(perdidas->size() - kGruposNombrados));
  const auto sinArticulos = totals::decirSinArticulos(sesion, grupos);
  if (!quien.haIdoBien(sinArticulos)) return false;
  if (!sinArticulos->isEmpty()) lineas << *sinArticulos;
  using namespace ventanas;
  return MyMsgBox::Decide(&quien, quien.contexto().textos, lineas.join(u'\n'),
                          kAceptoCancelo | kExclamacion | kPrudente);
}

void encolarGrupos(ventanas::Ventana& quien, motor::gestcomm& motor, const std::vector<int>& grupos,
                   const PeticionTarea& que) {
  bool usada = false;
  int puestas = 0;
  QStringList sinComunicar, fuera;
  for (const int grupo : grupos) {
    const auto r = motor.NuevaTarea(grupo, que.todo, que.desde, que.hasta, que.clase);
    puestas += r == motor::Pedida::EnCola ? 1 : 0;
    usada = usada || r == motor::Pedida::YaUsada;
    if (r == motor::Pedida::DestinoMalo) sinComunicar << Ceros(grupo, 4);
    if (r != motor::Pedida::Repetida) continue;
    const auto mismas = motor.MismasMaquinas(grupo);
    if (quien.haIdoBien(mismas)) fuera << *mismas;
  }
  if (!sinComunicar.isEmpty())
    fuera.prepend(quien.t(kTxNoEncolada).arg(sinComunicar.join(u", "_s)));
  if (!fuera.isEmpty() && puestas > 0) fuera.prepend(quien.t(kTxEncoladas, puestas));
  if (!fuera.isEmpty()) quien.decirDuda(fuera.join(u' '));
  if (usada)
    ventanas::MyMsgBox::Decide(
        &quien, quien.contexto().textos,
        QStringList{quien.t(kTxYaUsada1), quien.t(kTxYaUsada2), quien.t(kTxYaUsada3)}.join(u'\n'),
        ventanas::kCritico);
}

}  // namespace tarvo::comm
