#include "articles/importar/ventanas/ComunImportar.h"

#include "articles/importar/ventanas/TextosImportarVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using ventanas::Clase;

void prepararMalas(ventanas::Parrilla& lista, ventanas::Contexto& contexto,
                   const QString& ventana) {
  lista.preparar(contexto, ventana,
                 {{.titulo = kTxLinea, .campo = u"linea"_s, .clase = Clase::Entero, .ancho = 72},
                  {.titulo = ventanas::kTxMotivo, .campo = u"motivo"_s, .ancho = 420},
                  {.titulo = kTxDiceLaLinea, .campo = u"texto"_s, .ancho = 260}});
  lista.ponerVacia(contexto.textos(kTxSinMalas));
  lista.vivas();
}

void ponerMalas(ventanas::Parrilla& lista, const std::vector<LineaMala>& malas) {
  std::vector<ventanas::FilaViva> filas;
  filas.reserve(malas.size());
  qint64 clave = 0;
  for (const LineaMala& m : malas) filas.push_back({++clave, {m.numero, m.motivo, m.texto}});
  lista.vivas().poner(std::move(filas));
}

bool seguroDeCerrar(ventanas::Ventana& ventana, int texto) {
  return ventanas::MyMsgBox::Decide(
      &ventana, ventana.contexto().textos, ventana.t(texto),
      ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente);
}

bool Deshacedor::hayUltimo() const {
  const auto ultimo = lotes_.ultimo(v_.nombre());
  return ultimo && *ultimo;
}

void Deshacedor::avisar() {
  const auto ultimo = lotes_.ultimo(v_.nombre());
  if (ultimo && *ultimo && !(*ultimo)->acabado)
    v_.decirDuda(v_.t(ventanas::kTxAMedias, static_cast<int>((*ultimo)->articulos)));
}

void Deshacedor::deshacerUltimo(std::function<void()> alAcabar) {
  const auto ultimo = lotes_.ultimo(v_.nombre());
  if (!v_.haIdoBien(ultimo) || !*ultimo) return;
  const auto& t = v_.contexto().textos;
  const QString pregunta = v_.t(kTxConfirmarDeshacer, static_cast<int>((*ultimo)->articulos))
                               .arg((*ultimo)->cuando.general());
  const auto aviso = lotes_.avisoDeVuelta((*ultimo)->numero);
  if (!v_.haIdoBien(aviso)) return;
  if (!ventanas::MyMsgBox::Decide(
          &v_, t, *aviso ? **aviso : pregunta,
          *aviso ? ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente
                 : ventanas::kAceptoCancelo))
    return;
  empezar((*ultimo)->numero, (*ultimo)->articulos, [this, alAcabar = std::move(alAcabar)] {
    alAcabar();
    const auto& hecho = vuelta_->hecho();
    decirHecho(v_.contexto().textos(kTxDeshecho, {hecho.repuestos, hecho.quitados}));
  });
}

void Deshacedor::volver(qint64 lote, int articulos, const std::optional<Error>& error) {
  const auto decir = [this, error] {
    error ? v_.decirFallo(*error) : decirHecho(v_.t(kTxNadaImportado));
  };
  if (lote > 0) return empezar(lote, articulos, decir);
  vuelta_.reset();
  alCambiar_();
  decir();
}

void Deshacedor::empezar(qint64 lote, qint64 articulos, std::function<void()> alAcabar) {
  lote_ = lote;
  vuelta_ = std::make_unique<articles::Vuelta>(lotes_, lote, articulos, v_.nombre());
  v_.trabajo().empezar(
      v_.contexto().textos(ventanas::kTxDeshaciendo),
      [this](Trabajo::Avance& a) { return vuelta_->paso(a); },
      [this, alAcabar = std::move(alAcabar)](const Resultado<Trabajo::Fin>& fin) {
        acabar(fin, alAcabar);
      });
  alCambiar_();
}

void Deshacedor::acabar(const Resultado<Trabajo::Fin>& fin, const std::function<void()>& alAcabar) {
  alCambiar_();
  if (!v_.haIdoBien(fin)) return;
  if (*fin == Trabajo::Fin::Parado) return avisar();
  if (v_.haIdoBien(alDeshacer_(lote_))) alAcabar();
}

void Deshacedor::decirHecho(const QString& dicho) {
  const auto fuera = vuelta_ ? vuelta_->hecho().fuera : std::vector<articles::ClaveArticulo>{};
  if (fuera.empty()) return v_.decirBien(dicho);
  QStringList cuales;
  for (const auto& c : fuera) cuales << Ceros(c.seccion, 3) + u"  "_s + Ceros(c.codigo, 7);
  v_.decirDuda(dicho + u' ' + v_.t(kTxDeshechoFuera, static_cast<int>(fuera.size())),
               cuales.join(u'\n'));
}

bool Deshacedor::acabarYa() {
  return !vuelta_ || !v_.trabajo().enMarcha() ||
         (v_.haIdoBien(vuelta_->hastaElFinal()) && v_.haIdoBien(alDeshacer_(lote_)));
}

}  // namespace tarvo::importar
