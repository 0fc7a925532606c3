// What is done with sections and departments, and how a deleted department comes back.
#include "articles/ventanas/BrowGrupos.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::MyMsgBox;

void BrowGrupos::nuevaSeccion() {
  const auto numero = secciones_.nueva();
  if (!haIdoBien(numero)) return;
  RefrescoArbol();
  irA({*numero, 0});
  ui_.Renombrar->trigger();
}

void BrowGrupos::nuevoDepartamento() {
  const auto en = actual();
  if (!en) return;
  const auto numero = secciones_.nuevoDepartamento(en->seccion);
  if (!haIdoBien(numero)) return;
  RefrescoArbol();
  irA({en->seccion, *numero});
  ui_.Renombrar->trigger();
}

void BrowGrupos::copiar() {
  const auto en = actual();
  if (!en || copia_) return;
  copia_ =
      std::make_shared<CopiaSeccion>(contexto().db, contexto().textos, secciones_, en->seccion);
  actualCambiado();
  const auto paso = [copia = copia_](Trabajo::Avance& a) { return copia->paso(a.hechos, a.total); };
  trabajo().empezar(t(kTxCopiando), paso, [this](const Resultado<Trabajo::Fin>& fin) {
    const auto copia = std::exchange(copia_, nullptr);
    const int numero = copia->numero();
    const bool entera = fin && *fin == Trabajo::Fin::Acabado;
    const bool limpia = entera || haIdoBien(copia->deshacer());
    RefrescoArbol();
    if (entera) irA({numero, 0});
    if (!fin) return decirFallo(fin.error());
    if (limpia) entera ? decirBien(t(kTxSeccionCopiada)) : decirDuda(t(kTxCopiaParada));
  });
}

void BrowGrupos::borrar() {
  const auto en = actual();
  if (!en) return;
  en->departamento == 0 ? borrarSeccion(en->seccion) : borrarDepartamento(*en);
}

void BrowGrupos::borrarSeccion(int seccion) {
  const auto cuentas = secciones_.cuentas(seccion);
  if (!haIdoBien(cuentas)) return;
  const QString pregunta =
      QStringList{t(kTxBorraSeccion), t(kTxBorraPLUs) + QString::number(cuentas->plus),
                  t(kTxBorraDepts) + QString::number(cuentas->depts),
                  t(kTxBorraGrupos) + QString::number(cuentas->grupos)}
          .join(u'\n');
  if (!MyMsgBox::Decide(this, contexto().textos, pregunta,
                        ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente))
    return;
  if (!contexto().ventanas.descargar(u"BrowPLUs"_s)) return;
  const bool hecho = haIdoBien(secciones_.borrar(seccion));
  std::erase_if(borrados_, [&](const Borrado& b) { return b.nodo.seccion == seccion; });
  RefrescoArbol();
  if (hecho) decirBien(t(kTxSeccionBorrada));
}

void BrowGrupos::borrarDepartamento(Nodo nodo) {
  const auto cuantos = secciones_.articulosDe(nodo.seccion, nodo.departamento);
  if (!haIdoBien(cuantos)) return;
  const QString pregunta =
      t(kTxBorraDepartamento) + u'\n' + t(kTxBorraPLUs) + QString::number(*cuantos);
  if (!MyMsgBox::Decide(this, contexto().textos, pregunta,
                        ventanas::kAceptoCancelo | ventanas::kExclamacion))
    return;
  const Nodo vecino = vecinoDe(nodo);
  const auto borrado = borrarConLote(nodo);
  if (borrado) borrados_.push_back(*borrado);
  RefrescoArbol();
  if (borrado) irA(vecino);
  if (haIdoBien(borrado)) decirBien(t(kTxDepartamentoBorrado).arg(borrado->nombre));
}

// The department behind it, else the one in front of it, else its section.
BrowGrupos::Nodo BrowGrupos::vecinoDe(Nodo nodo) const {
  QTreeWidgetItem* item = buscar(nodo);
  if (!item || !item->parent()) return {nodo.seccion, 0};
  const QTreeWidgetItem* seccion = item->parent();
  const int sitio = seccion->indexOfChild(item);
  const QTreeWidgetItem* otro = seccion->child(sitio + 1);
  if (!otro) otro = seccion->child(sitio - 1);
  return otro ? nodoDe(*otro) : Nodo{nodo.seccion, 0};
}

Resultado<BrowGrupos::Borrado> BrowGrupos::borrarConLote(Nodo nodo) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(contexto().db));
  TARVO_TOMAR(auto fila,
              contexto().db.consultar(u"SELECT NomDep, IVA FROM DEPTS WHERE SECCION=? AND NUMDEP=?",
                                      nodo.seccion, nodo.departamento));
  if (fila->Eof()) return fallo(Fallo::NoExiste, this->t(kTxDepartamentoNoEsta));
  Borrado b{nodo, fila->texto(0), static_cast<int>(fila->entero(1)), 0};
  TARVO_TOMAR(const auto lote, lotes_.empezar(nombre()));
  b.lote = lote;
  const std::array<dao::Valor, 2> clave{nodo.seccion, nodo.departamento};
  TARVO_INTENTAR(lotes_.guardarDonde(b.lote, u"SECCION=? AND DEPTO=?", clave));
  TARVO_INTENTAR(secciones_.borrarDepartamento(nodo.seccion, nodo.departamento));
  TARVO_INTENTAR(lotes_.acabar(b.lote));
  TARVO_INTENTAR(t.confirmar());
  return b;
}

void BrowGrupos::deshacer() {
  if (borrados_.empty()) return;
  const Borrado b = borrados_.back();
  const auto reponer = [&]() -> Resultado<Lotes::Deshecho> {
    TARVO_TOMAR(auto t, dao::Transaccion::empezar(contexto().db));
    TARVO_INTENTAR(
        secciones_.reponerDepartamento(b.nodo.seccion, b.nodo.departamento, b.nombre, b.iva));
    auto hecho = lotes_.deshacer(b.lote, nombre());
    if (!hecho) return hecho;
    TARVO_INTENTAR(t.confirmar());
    return hecho;
  };
  const auto hecho = reponer();
  if (hecho || hecho.error().clase == Fallo::NoExiste) borrados_.pop_back();
  RefrescoArbol();
  irA(b.nodo);
  if (!haIdoBien(hecho)) return;
  const QString bien = t(kTxRepuestos, hecho->repuestos);
  hecho->fuera.empty() ? decirBien(bien)
                       : decirDuda(t(kTxNoRepuestos, static_cast<int>(hecho->fuera.size())), bien);
}

void BrowGrupos::verArticulos() {
  const auto en = actual();
  if (!en || copia_) return;
  contexto().ventanas.abrir(u"BrowPLUs"_s, this,
                            {{u"seccion"_s, en->seccion}, {u"departamento"_s, en->departamento}});
}

void BrowGrupos::abrirDe(const QString& ventana) {
  const auto en = actual();
  if (en) contexto().ventanas.abrir(ventana, this, {{u"seccion"_s, en->seccion}});
}

}  // namespace tarvo::articles
