#include "groups/ventanas/AvanGpo.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

#include "core/ventanas/aspecto/Medidas.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kDias = 7, kSegundosMayor = 99;
constexpr double kMinutos = 24 * 60;
const QString kFormatoHora = u"HH:mm"_s;

QString horaDe(double parteDelDia) {
  return QTime(0, 0).addSecs(60 * qRound(parteDelDia * kMinutos)).toString(kFormatoHora);
}

std::optional<double> parte(const QString& s) {
  const auto h = Fecha::leerHora(s);
  return h ? std::optional(h->hora()) : std::nullopt;
}

}  // namespace

AvanGpo::AvanGpo(Contexto& contexto, const QString& nombre) : FichaDe(contexto, nombre) {
  auto f = formulario(kTxTituloAvan);
  tabstr_ = f.fichas(u"tabstr"_s);
  montarTique(f.ficha(tabstr_, kTxFichaTique, u"fichaTique"_s));
  montarTiempos(f.ficha(tabstr_, kTxFichaTiempos, u"fichaTiempos"_s));
  montarCodigos(f.ficha(tabstr_, kTxFichaCodigos, u"fichaCodigos"_s));
  montarHorario(f.ficha(tabstr_, kTxFichaHorario, u"fichaHorario"_s));
  acabar({520, 440}, {.textoAcepto = ventanas::kTxGuardar});
}

void AvanGpo::montarTique(Formulario f) {
  auto columnas = f.columnas(2);
  const QString nombres[] = {u"TkFch"_s, u"TkHor"_s, u"TkDes"_s, u"TkCam"_s,
                             u"TkIVA"_s, u"TkEur"_s, u"TkIng"_s, u"TkLog"_s};
  auto partes = columnas[0].grupo(kTxPartesTique, u"cajaPartes"_s);
  for (size_t n = 0; n < r.grupo.TicketFlags.size(); ++n)
    partes.casilla(kTxPartes + static_cast<int>(n), nombres[n], r.grupo.TicketFlags[n]);
  partes.muelle();
  auto copia = columnas[1].grupo(kTxCopiaTique, u"cajaCopia"_s);
  Campo& con = copia.casilla(kTxCopia, u"TkCop"_s, r.grupo.Copia);
  frmCop_ = copia.ancho(new QWidget(cuerpo()), u"frmCop"_s);
  Formulario dentro(*this, *new QVBoxLayout(frmCop_));
  frmCop_->layout()->setContentsMargins(0, 0, 0, 0);
  dentro.casilla(kTxCopiaBarras, u"TkBCRc"_s, r.grupo.CopiaBarras);
  dentro.fila(kTxPausaCopia, u"TkTpo"_s, numero(r.grupo.CopiaPausa, 0, kSegundosMayor));
  copia.muelle();
  connect(&con, &Campo::cambiado, this, &AvanGpo::verCopia);
}

void AvanGpo::montarTiempos(Formulario f) {
  f.fila(kTxTimeOutTecla, u"tte"_s, numero(r.grupo.TOTE, 0, kSegundosMayor));
  f.fila(kTxTimeOutPlu, u"tco"_s, numero(r.grupo.TOCO, 0, kSegundosMayor));
  f.casilla(kTxPitido, u"bip"_s, r.grupo.PITO);
  f.casilla(kTxSalidaTotal, u"sat"_s, r.grupo.SALT);
  f.casilla(kTxNumerosPrecio, u"prl"_s, r.grupo.PRLI);
  f.muelle();
}

void AvanGpo::montarCodigos(Formulario f) {
  auto peso = f.grupo(kTxCodigosPeso, u"cajaPeso"_s);
  peso.fila(kTxEan13, u"e13pe"_s, formato(r.grupo.E13_PE, kLargoEan13));
  peso.fila(kTxEan8, u"e08pe"_s, formato(r.grupo.E08_PE, kLargoEan8));
  auto cuerpos = f.grupo(kTxCodigosCuerpo, u"cajaCuerpo"_s);
  cuerpos.fila(kTxEan13, u"e13cu"_s, formato(r.grupo.E13_CU, kLargoEan13));
  cuerpos.fila(kTxEan8, u"e08cu"_s, formato(r.grupo.E08_CU, kLargoEan8));
  auto* nota = f.nota(u"notaFormatos"_s);
  nota->setText(t(kTxLetrasFormato).arg(kLetrasFormato));
  ponerLetra(*nota, Letra::Secundaria);
  f.muelle();
}

// A grid of seven days by two times, which Down and Return walk as well as Tab.
void AvanGpo::montarHorario(Formulario f) {
  auto* caja = f.ancho(new QWidget(cuerpo()), u"Horario"_s);
  auto* reja = new QGridLayout(caja);
  reja->setColumnStretch(3, 1);
  for (int c = 0; c < 2; ++c) reja->addWidget(new QLabel(t(kTxDe + c), caja), 0, c + 1);
  for (int d = 0; d < kDias; ++d) {
    const auto dia = static_cast<size_t>(d);
    reja->addWidget(new QLabel(t(kTxDiaSemana + d), caja), d + 1, 0);
    auto* falta = new QLabel(caja);
    reja->addWidget(falta, d + 1, 3);
    for (size_t c = 0; c < 2; ++c) {
      auto* linea = new QLineEdit(caja);
      linea->setObjectName(u"h%1%2"_s.arg(d).arg(c));
      reja->addWidget(linea, d + 1, static_cast<int>(c) + 1);
      campos_[dia][c] = &enlazarCampo(*linea, hora(r.horas[dia][c]), 0, falta);
      campos_[dia][c]->ponerNombre(t(kTxDiaSemana + d) + u' ' + t(kTxDe + static_cast<int>(c)));
    }
  }
  auto* nota = f.nota(u"notaHorario"_s, kTxNotaHorario);
  ponerLetra(*nota, Letra::Secundaria);
  f.muelle();
}

Modo AvanGpo::hora(QString& donde) const {
  return {.ver = [&donde] { return donde; },
          .poner = [this, &donde](const QString& s) -> Resultado<> {
            const auto leida = parte(s.trimmed());
            if (!s.trimmed().isEmpty() && !leida) return fallo(Fallo::Formato, t(kTxEscribaHora));
            donde = leida ? horaDe(*leida) : QString();
            return {};
          },
          .limites = t(kTxUnaHora),
          .letras = 5};
}

Modo AvanGpo::formato(QString& donde, int largo) const {
  return {.ver = [&donde] { return donde; },
          .poner = [this, &donde, largo](const QString& s) -> Resultado<> {
            const QString dicho = s.trimmed().toUpper();
            const bool letras =
                std::ranges::all_of(dicho, [](QChar c) { return kLetrasFormato.contains(c); });
            if (!letras) return fallo(Fallo::Formato, t(kTxLetrasFormato).arg(kLetrasFormato));
            if (dicho.size() > largo)
              return fallo(Fallo::Formato,
                           contexto().textos(kTxSobranLetras, {largo, dicho.size()}));
            donde = dicho;
            return {};
          },
          .limites = t(kTxHastaLetras).arg(largo),
          .letras = kLargoEan13};
}

Resultado<> AvanGpo::entrar(const PuertaAvanGpo& puerta) {
  setWindowTitle(tituloDe(*this, kTxTituloAvan, puerta.nombre, 0));
  GrupoAvanzado de{puerta.grupo, {}};
  if (const auto horario = totals::LeerHorario(de.grupo.Horario))
    for (size_t d = 0; d < kDias; ++d)
      if (const auto& jornada = (*horario)[d])
        de.horas[d] = {horaDe(jornada->abre), horaDe(jornada->cierra)};
  for (int n = 0; n < tabstr_->count() - 1; ++n) tabstr_->setTabVisible(n, !de.grupo.SonCes());
  tabstr_->setTabText(tabstr_->count() - 1,
                      t(de.grupo.SonCes() ? kTxHorarioComercial : kTxFichaHorario));
  TARVO_INTENTAR(editar(std::move(de)));
  tabstr_->setCurrentIndex(r.grupo.SonCes() ? tabstr_->count() - 1 : 0);
  verCopia();
  return {};
}

void AvanGpo::verCopia() {
  frmCop_->setVisible(r.grupo.Copia);
}

// A day has both times or none. Untouched hours stay as they are stored.
std::vector<Ficha::FaltaCampo> AvanGpo::comprobar() {
  std::vector<FaltaCampo> faltas;
  totals::Horario horario;
  bool alguna = false;
  for (size_t d = 0; d < kDias; ++d) {
    const auto abre = parte(r.horas[d][0]), cierra = parte(r.horas[d][1]);
    if (abre.has_value() != cierra.has_value())
      faltas.push_back({campos_[d][abre ? 1 : 0], t(kTxFaltaLaOtra)});
    if (abre && cierra) horario[d] = totals::Jornada{*abre, *cierra}, alguna = true;
  }
  if (r.horas != antes().horas)
    r.grupo.Horario = totals::EscribirHorario(alguna ? std::optional(horario) : std::nullopt);
  return faltas;
}

}  // namespace tarvo::groups
