#include "groups/ventanas/EdIvaDept.h"

#include <QTableView>
#include <cmath>

#include "core/dinero/Dinero.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "devices/Modelos.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kTipos = 5, kTasaMayor = 100'00;

}  // namespace

EdIvaDept::EdIvaDept(Contexto& contexto, const QString& nombre) : FichaDe(contexto, nombre) {
  auto f = formulario(kTxTituloIva);
  GrdTpos_ = f.parrilla(kTxTiposDeIva, u"GrdTpos"_s, 2);
  GrdDeps_ = f.parrilla(kTxDepartamentosYTipo, u"GrdDeps"_s, 3);
  acabar({480, 600}, {.textoAcepto = ventanas::kTxGuardar});
  GrdTpos_->preparar(contexto, nombre,
                     {{.titulo = ventanas::kTxTipo, .campo = u"tipo"_s, .clase = Clase::Entero},
                      {.titulo = kTxIva,
                       .campo = u"tasa"_s,
                       .clase = Clase::Porcentaje,
                       .ancho = 120,
                       .editar = [this](qint64 n, const QString& s) {
                         return ponerTasa(static_cast<int>(n), s);
                       }}});
  GrdDeps_->preparar(
      contexto, nombre,
      {{.titulo = ventanas::kTxCodigo, .campo = u"numero"_s, .clase = Clase::Codigo, .cifras = 2},
       {.titulo = ventanas::kTxDepartamento, .campo = u"nombre"_s},
       {.titulo = ventanas::kTxTipo,
        .campo = u"tipo"_s,
        .clase = Clase::Entero,
        .editar = [this](qint64 n, const QString& s) { return ponerTipo(static_cast<int>(n), s); },
        .largo = 1}});
  for (Parrilla* p : {GrdTpos_, GrdDeps_}) {
    p->ponerBusca(false);
    p->ponerPie(false);
    p->ponerEscribeAlTeclear(true);
    p->bajarTrasIntro();
    p->vivas();
    connect(p, &Parrilla::fallo, this, &Ventana::decirPendiente);
    connect(p, &Parrilla::resuelto, this, &Ventana::resuelto);
  }
}

Resultado<> EdIvaDept::entrar(const PuertaEdIvaDept& puerta) {
  setWindowTitle(tituloDe(*this, kTxTituloIva, puerta.nombre, 0));
  TARVO_INTENTAR(editar(puerta.grupo));
  pintar();
  for (Parrilla* p : {GrdDeps_, GrdTpos_})
    if (p->filas() > 0)
      p->vista()->setCurrentIndex(p->modelo()->index(0, p->modelo()->columnCount() - 1));
  GrdTpos_->vista()->setFocus();
  return {};
}

void EdIvaDept::pintar() {
  std::vector<FilaViva> tasas, depts;
  for (int n = 1; n <= kTipos; ++n)
    tasas.push_back({n, {n, static_cast<qint64>(std::lround(r.TipoIVA(n) * 100))}});
  for (int n = 1; n <= devices::MaxDepartamentos(r.tipo()); ++n)
    depts.push_back({n, {n, r.NombreDepartamento(n), r.IVADepartam(n)}});
  GrdTpos_->vivas().poner(std::move(tasas));
  GrdDeps_->vivas().poner(std::move(depts));
}

Resultado<> EdIvaDept::ponerTasa(int tipo, const QString& texto) {
  const auto tasa = LeerPorcentaje(texto);
  if (!tasa || *tasa >= kTasaMayor) return fallo(Fallo::Formato, t(kTxTasaMala));
  r.TipoIVA(tipo, static_cast<float>(*tasa) / 100);
  pintar();
  return {};
}

Resultado<> EdIvaDept::ponerTipo(int departamento, const QString& texto) {
  const int tipo = texto.toInt();
  if (tipo < 1 || tipo > kTipos) return fallo(Fallo::Formato, t(kTxTipoMalo).arg(kTipos));
  r.IVADepartam(departamento, tipo);
  pintar();
  return {};
}

}  // namespace tarvo::groups
