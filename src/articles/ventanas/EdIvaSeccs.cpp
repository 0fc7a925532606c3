#include "articles/ventanas/EdIvaSeccs.h"

#include <cmath>

#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::Clase;

EdIvaSeccs::EdIvaSeccs(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo)
    : Ventana(contexto, nombre), secciones_(contexto.db, contexto.textos, catalogo.cambios()) {
  ui_.setupUi(cuerpo());
  enlazar();
  ui_.GrdTpos->preparar(
      contexto, nombre,
      {{.titulo = kTxTipo, .campo = u"tipo"_s, .clase = Clase::Entero},
       {.titulo = kTxIva,
        .campo = u"tasa"_s,
        .clase = Clase::Porcentaje,
        .ancho = 120,
        .editar = [this](qint64 c, const QString& s) { return ponerTasa(c, s); }}});
  ui_.GrdDeps->preparar(
      contexto, nombre,
      {{.titulo = kTxNumero, .campo = u"numero"_s, .clase = Clase::Codigo, .cifras = 2},
       {.titulo = kTxDepartamento, .campo = u"nombre"_s},
       {.titulo = kTxTipo,
        .campo = u"tipo"_s,
        .clase = Clase::Entero,
        .editar = [this](qint64 c, const QString& s) { return ponerTipo(c, s); },
        .largo = 1}});
  for (ventanas::Parrilla* p : {ui_.GrdTpos, ui_.GrdDeps}) {
    p->setBusca(false);
    p->setPie(false);
    p->setEscribeAlTeclear(true);
    connect(p, &ventanas::Parrilla::fallo, this, [this](const Error& e) { decirFallo(e); });
    p->vivas();
  }
  ui_.GrdDeps->setVacia(t(kTxSinDepartamentos));
  connect(ui_.Acepto, &QPushButton::clicked, this, &EdIvaSeccs::guardar);
  connect(ui_.Cancelo, &QPushButton::clicked, this, [this] { rechazar(); });
}

Resultado<> EdIvaSeccs::preparar(const ventanas::Argumentos& argumentos) {
  seccion_ = argumentos.value(u"seccion"_s, 1).toInt();
  TARVO_TOMAR(const auto nombre,
              contexto().db.uno(u"SELECT NOMSEC FROM SECCS WHERE NMSECC=?", seccion_));
  ui_.seccion->setText(Ceros(seccion_, 3) + u"  "_s + nombre.texto());
  TARVO_TOMAR(const auto ivas, secciones_.ivas(seccion_));
  ivas_ = antes_ = ivas;
  departamentos_.clear();
  TARVO_TOMAR(auto rs, contexto().db.consultar(
                           u"SELECT NUMDEP, NomDep, IVA FROM DEPTS WHERE SECCION=? ORDER BY NUMDEP",
                           seccion_));
  while (!rs->Eof()) {
    departamentos_.push_back(
        {static_cast<int>(rs->entero(0)), static_cast<int>(rs->entero(2)), rs->texto(1)});
    TARVO_INTENTAR(rs->MoveNext());
  }
  deptsAntes_ = departamentos_;
  pintar();
  for (ventanas::Parrilla* p : {ui_.GrdDeps, ui_.GrdTpos})
    if (p->filas() > 0)
      p->vista()->setCurrentIndex(p->modelo()->index(0, p->modelo()->columnCount() - 1));
  ui_.GrdTpos->setFocus();
  return {};
}

void EdIvaSeccs::pintar() {
  std::vector<ventanas::FilaViva> tasas, depts;
  for (int i = 0; i < kTiposIva; ++i)
    tasas.push_back({i, {i + 1, static_cast<qint64>(ivas_[static_cast<size_t>(i)])}});
  for (const Departamento& d : departamentos_)
    depts.push_back({d.numero, {d.numero, d.nombre, d.tipo}});
  ui_.GrdTpos->vivas().poner(std::move(tasas));
  ui_.GrdDeps->vivas().poner(std::move(depts));
}

Resultado<> EdIvaSeccs::ponerTasa(qint64 tipo, const QString& texto) {
  bool numero = false;
  const double x = QString(texto).remove(u'%').trimmed().replace(u',', u'.').toDouble(&numero);
  if (!numero || x < 0 || x > 100) return fallo(Fallo::Formato, t(kTxTasaMala));
  ivas_[static_cast<size_t>(tipo)] = static_cast<int>(std::lround(x * 100));
  pintar();
  return {};
}

Resultado<> EdIvaSeccs::ponerTipo(qint64 departamento, const QString& texto) {
  const int tipo = texto.toInt();
  if (tipo < 1 || tipo > kTiposIva) return fallo(Fallo::Formato, t(kTxTipoMalo).arg(kTiposIva));
  const auto d =
      std::ranges::find(departamentos_, static_cast<int>(departamento), &Departamento::numero);
  if (d != departamentos_.end()) d->tipo = tipo;
  pintar();
  return {};
}

Resultado<> EdIvaSeccs::escribir() {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(contexto().db));
  TARVO_INTENTAR(secciones_.ponerIvas(seccion_, ivas_));
  for (const Departamento& d : departamentos_)
    TARVO_INTENTAR(secciones_.ponerTipoIva(seccion_, d.numero, d.tipo));
  return tr.confirmar();
}

void EdIvaSeccs::guardar() {
  if (haIdoBien(escribir())) aceptar();
}

bool EdIvaSeccs::QueryUnload() {
  const bool igual = ivas_ == antes_ && departamentos_ == deptsAntes_;
  return !igual && !ventanas::MyMsgBox::Decide(
                       this, contexto().textos, t(kTxAbandonar),
                       ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente);
}

}  // namespace tarvo::articles
