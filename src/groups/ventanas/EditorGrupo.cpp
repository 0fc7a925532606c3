// What the editor of a group shows, and how each change is noted.
#include "groups/ventanas/EditorGrupo.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Tira.h"
#include "devices/Modelos.h"
#include "groups/ventanas/TextosGruposVentanas.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;
using configuracion::Situacion;

namespace {

QString dibujoDe(const devices::Miembro& m) {
  return std::holds_alternative<devices::Registradora>(m)
             ? u"caja"_s
             : u"maquina%1"_s.arg(
                   std::clamp(maquinaDe(m).tipo(), int{devices::kRowan}, int{devices::kBirch}));
}

Cambio cambioDe(TipoTarea clase) {
  switch (clase) {
    case TipoTarea::TxCfBal:
      return Cambio::Opciones;
    case TipoTarea::TxEtiq:
      return Cambio::Etiquetas;
    case TipoTarea::TxCnfig:
      return Cambio::Config;
    case TipoTarea::TxTecla:
      return Cambio::Teclado;
    default:
      return Cambio::Ticket;
  }
}

ventanas::Estado estadoDe(Situacion s) {
  switch (s) {
    case Situacion::Igual:
      return ventanas::Estado::Bien;
    case Situacion::Cambio:
      return ventanas::Estado::Duda;
    case Situacion::NuncaEnviada:
      return ventanas::Estado::Ninguno;
  }
  std::unreachable();
}

// Some machines hold what is stored here, and others don't.
bool soloAlgunas(const configuracion::Estado& e) {
  return !e.maquinas.empty() && std::ssize(e.maquinas) < e.cuantas;
}

}  // namespace

EditorGrupo::EditorGrupo(Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo,
                         motor::gestcomm& motor, bool cajas)
    : FichaDe(contexto, nombre), grupos_(catalogo, contexto.ajustes), motor_(motor), cajas_(cajas) {
  montar();
}

// An editor that is already open keeps what is being done in it.
Resultado<> EditorGrupo::entrar(const PuertaGrupo& puerta) {
  if (abierta_) return {};
  TARVO_TOMAR(auto editado, puerta.codigo ? grupos_.abrir(*puerta.codigo)
                                          : grupos_.nuevo(puerta.seccion, cajas_));
  nuevo_ = !puerta.codigo;
  alGuardar_ = puerta.alGuardar;
  abierto_ = previo_ = editado;
  TARVO_INTENTAR(editar(std::move(editado)));
  abierta_ = true;
  leerEstado();
  setWindowTitle(nuevo_ ? t(cajas_ ? kTxCajasNuevas : kTxGrupoNuevoTitulo)
                        : contexto().textos(kTxGrupoDe, {r.codigo, r.nombre}));
  sitios_->setCurrentRow(r.grupo.LasBalanzas.empty()
                             ? 0
                             : std::clamp(r.grupo.LasBalanzas.begin()->first, 0, kSitios - 1));
  mostrarDireccion();
  pintar();
  nuevo_ ? nom_->enfocar() : sitios_->setFocus();
  const auto fuera = std::ranges::count_if(
      r.grupo.LasBalanzas, [](const auto& m) { return m.first < 0 || m.first >= kSitios; });
  if (fuera > 0) decirDuda(t(kTxFueraDeSitio, static_cast<int>(fuera)));
  return {};
}

// --- showing
// --------------------------------------------------------------------------------------

void EditorGrupo::pintar() {
  pintarSitios();
  pintarAcceso();
  pintarEstado();
  permitir();
}

QString EditorGrupo::decirSitio(int sitio) const {
  const auto* m = enSitio(r.grupo, sitio);
  const QString numero = QString::number(sitio + 1);
  if (!m) return contexto().textos(kTxSitioVacio, {numero});
  if (const auto* caja = std::get_if<devices::Registradora>(m))
    return contexto().textos(
        kTxSitioCaja, {numero, caja->Direccion ? QString::number(*caja->Direccion) : u"?"_s});
  return contexto().textos(kTxSitioBalanza, {numero, devices::NombreModelo(maquinaDe(*m).tipo())});
}

void EditorGrupo::pintarSitios() {
  for (int n = 0; n < kSitios; ++n) {
    QListWidgetItem& item = *sitios_->item(n);
    const auto* m = enSitio(r.grupo, n);
    item.setText(decirSitio(n));
    item.setIcon(icono(m ? dibujoDe(*m) : u"sitio"_s));
    item.setData(Qt::UserRole, m ? QVariant(n) : QVariant());
    item.setForeground(colorDe(m ? Tinte::Texto : Tinte::TextoPalido));
  }
}

void EditorGrupo::mostrarFila(QWidget& control, bool si) {
  control.setVisible(si);
  for (QLabel* rotulo : cuerpo()->findChildren<QLabel*>()) {
    if (rotulo->buddy() == &control) rotulo->setVisible(si);
    if (!si && rotulo->objectName() == u"falta"_s + control.objectName()) rotulo->hide();
  }
}

void EditorGrupo::pintarAcceso() {
  const auto acceso = r.grupo.Acceso.value_or(TipoAcceso::Ninguno);
  const bool directo = acceso == TipoAcceso::Directo;
  const bool comunica = acceso != TipoAcceso::Ninguno;
  mostrarFila(telf_->control(), comunica && !directo);
  mostrarFila(*com_, directo);
  mostrarFila(*baudios_, directo || acceso == TipoAcceso::Modem);
  rs485_->setVisible(!r.grupo.SonCes());
  const QSignalBlocker quieto(rs485_);
  // An empty one stays while it is typed.
  const bool conNumero = r.grupo.NumGpo > 0 || addr_->control().hasFocus();
  rs485_->setChecked(conNumero);
  addr_->control().setVisible(r.grupo.SonCes() || conNumero);
  rotuloAddr_->setVisible(r.grupo.SonCes());  // an Ebony group always has a number
  QString texto = t(kTxAccesos + tarvo::numeroDe(acceso)).remove(u'&');
  if (directo) texto = contexto().textos(kTxEnlaceDirecto, {texto, r.grupo.Canal});
  if (comunica && !directo && !r.grupo.Telefono.isEmpty()) texto += u" · "_s + r.grupo.Telefono;
  const auto& maquinas = r.grupo.LasBalanzas;
  enlace_->poner(
      r.grupo.Acceso, texto,
      maquinas.empty() ? (cajas_ ? u"caja"_s : u"balanza"_s) : dibujoDe(maquinas.begin()->second),
      static_cast<int>(maquinas.size()));
}

void EditorGrupo::leerEstado() {
  if (nuevo_) return;
  auto estados = grupos_.estados(*r.grupo.codigo());
  if (haIdoBien(estados)) estados_ = std::move(*estados);
}

// It isn't the machine stored in that place: nothing has been sent to it.
bool EditorGrupo::esOtra(int sitio, const devices::Miembro& maquina) const {
  const auto antes = abierto_.grupo.LasBalanzas.find(sitio);
  return antes == abierto_.grupo.LasBalanzas.end() ||
         maquinaDe(antes->second).tipo() != maquinaDe(maquina).tipo();
}

// Word and time for each kind of configuration that the machines take.
void EditorGrupo::pintarEstado() {
  while (QLayoutItem* item = estado_->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  notaEstado_->setText(nuevo_             ? t(kTxEstadoDeNuevo)
                       : estados_.empty() ? t(kTxEstadoNinguno)
                                          : QString());
  notaEstado_->setVisible(!notaEstado_->text().isEmpty());
  const auto nuevas = static_cast<int>(std::ranges::count_if(
      r.grupo.LasBalanzas, [this](const auto& m) { return esOtra(m.first, m.second); }));
  for (const auto& e : estados_) {
    const bool pendiente = r.marcas.tiene(cambioDe(e.clase)), algunas = soloAlgunas(e);
    const auto como =
        pendiente || algunas || nuevas > 0 ? ventanas::Estado::Duda : estadoDe(e.situacion);
    const int fila = estado_->rowCount();
    auto* imagen = new QLabel(cajaEstado_);
    imagen->setPixmap(iconoEstado(como).pixmap(escalar(kIcono)));
    estado_->addWidget(imagen, fila, 0);
    const int cual = static_cast<int>(std::ranges::find(configuracion::kClases, e.clase) -
                                      std::begin(configuracion::kClases));
    const int tienen = e.cuantas - static_cast<int>(e.maquinas.size());
    const QString palabra = pendiente    ? t(kTxSinGuardar)
                            : nuevas > 0 ? t(kTxSinEnviarAnadidas, nuevas)
                            : algunas    ? contexto().textos(kTxIgualEnAlgunas, {tienen, e.cuantas})
                                         : t(kTxSituaciones + static_cast<int>(e.situacion));
    auto* dice = new QLabel(t(kTxClases + cual) + u": "_s + palabra, cajaEstado_);
    dice->setWordWrap(true);  // so that the longest one doesn't set the width of the window
    estado_->addWidget(dice, fila, 1);
    if (e.cuando && nuevas == 0)
      estado_->addWidget(
          new QLabel(e.cuando->qdatetime().toString(u"dd/MM/yyyy HH:mm"_s), cajaEstado_), fila, 2);
  }
}

void EditorGrupo::permitir() {
  ordenes_->actualizar();
  ordenesMaquina_->actualizar();
  const bool hay = actual() != nullptr, ebony = r.grupo.SonCes();
  for (const QString& nombre : {u"MnPub"_s, u"MnOpc"_s, u"MnCas"_s})
    if (auto* a = findChild<QAction*>(nombre))
      a->setProperty(kPorQueNo, t(hay && ebony ? kTxNoEnEbony : kTxSitioSinMaquina));
  for (const QString& nombre : {u"copiar"_s, u"cortar"_s, u"borrar"_s, u"MnTec"_s, u"MnRzs"_s})
    if (auto* a = findChild<QAction*>(nombre)) a->setProperty(kPorQueNo, t(kTxSitioSinMaquina));
  for (const QString& nombre : {u"MnOps"_s, u"MnIva"_s, u"MnAvan"_s})
    findChild<QAction*>(nombre)->setProperty(kPorQueNo, t(kTxAntesUnaMaquina));
  if (dir_) mostrarFila(dir_->control(), hay);
}

// --- changes
// --------------------------------------------------------------------------------------

void EditorGrupo::anotar(const QString& que) {
  if (!abierta_ || r == previo_) return;
  deshacer_->apuntarIdaYVuelta(
      que,
      [this, antes = previo_]() -> Resultado<Vuelto> {
        volverA(antes);
        return Vuelto();
      },
      [this, despues = r]() -> Resultado<> {
        volverA(despues);
        return {};
      });
  previo_ = r;
}

void EditorGrupo::volverA(const GrupoEditado& otro) {
  r = otro;
  previo_ = otro;
  mostrar();
  pintar();
  revisar();
}

void EditorGrupo::anotarLoTecleado() {
  for (const auto& [campo, de] : vigilados_)
    if (campo->control().hasFocus()) anotar(campo->nombre());
}

// A failure and what is wrong with the stored group stay.
void EditorGrupo::quitarLoDicho() {
  quitarPista();
  if (tira().estado() == ventanas::Estado::Bien) tira().quitar();
}

void EditorGrupo::empezarOrden() {
  quitarLoDicho();
  anotarLoTecleado();
  mostrarDireccion();
}

void EditorGrupo::haCambiado(Campo& campo) {
  if (!abierta_) return;
  quitarLoDicho();
  tocados_.insert(&campo);
  revisar();
  pintarAcceso();
  if (&campo == dir_) pintarSitios();
  if (!qobject_cast<QLineEdit*>(&campo.control())) anotar(campo.nombre());
  pintarEstado();
}

// The faults of the fields that the person has touched, while they are typed.
void EditorGrupo::revisar() {
  std::set<Campo*> ilegibles;
  for (Campo* c : tocados_)
    if (!c->leer()) ilegibles.insert(c);
  const auto todas = grupos_.faltas(r.grupo, r.codigo, r.nombre);
  if (!todas) return;
  for (const auto& [campo, de] : vigilados_) {
    if (!de || !tocados_.contains(campo) || ilegibles.contains(campo)) continue;
    const auto suya = std::ranges::find_if(*todas, [&, cual = *de](const Grupos::Falta& f) {
      return f.de == cual && (f.sitios.empty() || f.sitios.contains(sitio()));
    });
    campo->marcar(suya == todas->end()   ? QString()
                  : suya->sitios.empty() ? suya->texto
                                         : suya->regla);
  }
  if (!faltaSitios_->isHidden()) pintarFaltaSitios(*todas);
}

// Below the places: what is wrong with the machines, whichever is shown.
void EditorGrupo::pintarFaltaSitios(const std::vector<Grupos::Falta>& faltas) {
  QStringList suyas;
  for (const Grupos::Falta& f : faltas)
    if (f.de == Grupos::FaltaDe::Maquinas || f.de == Grupos::FaltaDe::Direccion) suyas << f.texto;
  faltaSitios_->setText(suyas.join(u'\n'));
  faltaSitios_->setVisible(!suyas.isEmpty());
}

// Of the current register. What was typed for another one and can't be read is given up, in words.
void EditorGrupo::mostrarDireccion() {
  if (!dir_) return;
  const auto* antes = enSitio(r.grupo, sitioDireccion_);
  const QString dicha = static_cast<QLineEdit&>(dir_->control()).text();
  if (abierta_ && antes && dir_->tocado()) {
    const auto suya = maquinaDe(*antes).Direccion;
    decirPista(contexto().textos(
        kTxDireccionVuelve, {dicha, sitioDireccion_ + 1, suya ? QString::number(*suya) : u"?"_s}));
  }
  sitioDireccion_ = sitio();
  dir_->mostrar();
  if (abierta_ && tocados_.contains(dir_)) revisar();
}

// With a text that is no address the register has the one from before the typing, and not what the
// first digits made.
Resultado<> EditorGrupo::ponerDireccion(const QString& texto) {
  const auto hallada = r.grupo.LasBalanzas.find(sitioDireccion_);
  if (hallada == r.grupo.LasBalanzas.end()) return {};
  auto& direccion = maquinaDe(hallada->second).Direccion;
  bool numero = false;
  const int n = texto.trimmed().toInt(&numero);
  if (!texto.trimmed().isEmpty() && (!numero || n < 0 || n > kUltimaDireccion)) {
    const auto* antes = enSitio(previo_.grupo, sitioDireccion_);
    if (antes) direccion = maquinaDe(*antes).Direccion;
    return fallo(Fallo::Formato, reglaDireccion(contexto().textos));
  }
  direccion = numero ? std::optional(n) : std::nullopt;
  return {};
}

}  // namespace tarvo::groups
