#include "articles/ventanas/EdIvaSeccs.h"

#include <QLabel>

#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::Clase;

EdIvaSeccs::EdIvaSeccs(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo)
    : FichaDe(contexto, nombre), secciones_(catalogo) {
  auto f = formulario(kTxIvaPorDepartamentos);
  titulo_ = f.titulo(u"seccion"_s);
  tipos_ = f.parrilla(kTxTiposIva, u"GrdTpos"_s, 2);
  depts_ = f.parrilla(kTxDepartamentosYTipo, u"GrdDeps"_s, 3);
  acabar({560, 560}, {.textoAcepto = ventanas::kTxGuardar, .textoCancelo = ventanas::kTxCancelar});
  tipos_->preparar(contexto, nombre,
                   {{.titulo = ventanas::kTxTipo, .campo = u"tipo"_s, .clase = Clase::Entero},
                    {.titulo = kTxIva,
                     .campo = u"tasa"_s,
                     .clase = Clase::Porcentaje,
                     .ancho = 120,
                     .editar = [this](qint64 c, const QString& s) { return ponerTasa(c, s); }}});
  depts_->preparar(
      contexto, nombre,
      {{.titulo = kTxNumero, .campo = u"numero"_s, .clase = Clase::Codigo, .cifras = 2},
       {.titulo = ventanas::kTxDepartamento, .campo = u"nombre"_s},
       {.titulo = ventanas::kTxTipo,
        .campo = u"tipo"_s,
        .clase = Clase::Entero,
        .editar = [this](qint64 c, const QString& s) { return ponerTipo(c, s); },
        .largo = 1}});
  for (ventanas::Parrilla* p : {tipos_, depts_}) {
    p->ponerBusca(false);
    p->ponerPie(false);
    p->ponerEscribeAlTeclear(true);
    p->bajarTrasIntro();
    p->vivas();
  }
  depts_->ponerVacia(t(kTxSinDepartamentos));
}

Resultado<> EdIvaSeccs::entrar(const PuertaEdIvaSeccs& puerta) {
  seccion_ = puerta.seccion;
  TARVO_TOMAR(const auto nombre, contexto().nombres.seccion(seccion_));
  titulo_->setText(Ceros(seccion_, 3) + u"  "_s + nombre);
  TARVO_TOMAR(auto ivas, secciones_.ivasDe(seccion_));
  TARVO_INTENTAR(editar(std::move(ivas)));
  pintar();
  for (ventanas::Parrilla* p : {depts_, tipos_})
    if (p->filas() > 0)
      p->vista()->setCurrentIndex(p->modelo()->index(0, p->modelo()->columnCount() - 1));
  tipos_->setFocus();
  return {};
}

void EdIvaSeccs::pintar() {
  std::vector<ventanas::FilaViva> tasas, depts;
  for (int i = 0; i < kTiposIva; ++i)
    tasas.push_back({i, {i + 1, static_cast<qint64>(r.tasas[static_cast<size_t>(i)])}});
  for (const auto& d : r.departamentos) depts.push_back({d.numero, {d.numero, d.nombre, d.tipo}});
  tipos_->vivas().poner(std::move(tasas));
  depts_->vivas().poner(std::move(depts));
}

Resultado<> EdIvaSeccs::ponerTasa(qint64 tipo, const QString& texto) {
  const auto tasa = LeerPorcentaje(texto);
  if (!tasa || *tasa > 100'00) return fallo(Fallo::Formato, t(kTxTasaMala));
  r.tasas[static_cast<size_t>(tipo)] = *tasa;
  pintar();
  return {};
}

Resultado<> EdIvaSeccs::ponerTipo(qint64 departamento, const QString& texto) {
  const int tipo = texto.toInt();
  if (tipo < 1 || tipo > kTiposIva) return fallo(Fallo::Formato, t(kTxTipoMalo).arg(kTiposIva));
  const auto d = std::ranges::find(r.departamentos, static_cast<int>(departamento),
                                   &IvasSeccion::Departamento::numero);
  if (d != r.departamentos.end()) d->tipo = tipo;
  pintar();
  return {};
}

}  // namespace tarvo::articles
