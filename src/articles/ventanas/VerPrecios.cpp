#include "articles/ventanas/VerPrecios.h"

#include <QIntValidator>

#include "articles/Listas.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/edicion/Opciones.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

// The title of a window, by its name; changes read from a file are listed by the file's name.
QString nombreVentana(const ventanas::Ventana& v, const QString& nombre) {
  static const std::map<QString, int> kConocidas{
      {u"BrowPLUs"_s, kTxDesdeLista},     {u"xEditPLU"_s, kTxDesdeEditor},
      {u"CalcPre"_s, kTxDesdeCalculo},    {u"FastAlta"_s, kTxDesdeAltaRapida},
      {u"FastModf"_s, kTxDesdeRapida},    {u"EntNmSc"_s, kTxDesdeCopia},
      {u"ImpPLU"_s, kTxDesdeImportacion}, {u"CambioLote"_s, kTxDesdeLote},
      {u"ImpTabla"_s, kTxDesdeTabla},     {u"MainTvc"_s, kTxDesdeConversion},
      {u"BrowGrupos"_s, kTxDesdeArbol}};
  const auto hallada = kConocidas.find(nombre);
  return hallada == kConocidas.end() ? nombre : v.t(hallada->second);
}

}  // namespace

std::vector<ventanas::Columna> columnasHistoria(const ventanas::Ventana& v, bool conArticulo) {
  const auto nivel = [&v](const dao::Valor& n) {
    return v.t(kTxPBase + static_cast<int>(std::clamp<qint64>(n.entero(), 0, kNiveles - 1)))
        .trimmed();
  };
  const auto tarifa = [](const dao::Valor& n) { return QString::number(n.entero() + 1); };
  const auto ventana = [&v](const dao::Valor& n) { return nombreVentana(v, n.texto()); };
  std::vector<ventanas::Columna> c{
      {.titulo = kTxCuando, .campo = u"CUANDO"_s, .clase = Clase::Momento, .ancho = 170}};
  if (conArticulo) {
    c.push_back({.titulo = ventanas::kTxCodigo,
                 .campo = columnaCodigoHistoria(),
                 .clase = Clase::Codigo,
                 .cifras = 7});
    c.push_back({.titulo = ventanas::kTxNombre, .campo = u"NOMPLU"_s, .ancho = 170});
  }
  c.push_back({.titulo = kTxNivel, .campo = u"NIVEL"_s, .ancho = 74, .ver = nivel});
  c.push_back({.titulo = kTxTarifa, .campo = u"TARIFA"_s, .ancho = 60, .ver = tarifa});
  c.push_back(
      {.titulo = ventanas::kTxAntes, .campo = u"ANTES"_s, .clase = Clase::Importe, .ancho = 80});
  c.push_back({.titulo = kTxAhora, .campo = u"AHORA"_s, .clase = Clase::Importe, .ancho = 80});
  c.push_back({.titulo = kTxQuien, .campo = u"QUIEN"_s, .ancho = 120, .rango = 1});
  c.push_back({.titulo = ventanas::kTxDesde,
               .campo = u"VENTANA"_s,
               .ancho = 140,
               .ver = ventana,
               .rango = 2});
  return c;
}

VerPrecios::VerPrecios(ventanas::Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  ventanas::Opciones tarifas{{-1, t(ventanas::kTxTodas)}};
  for (int tarifa = 0; tarifa < kTarifas; ++tarifa)
    tarifas.push_back({tarifa, QString::number(tarifa + 1)});
  ventanas::llenar(*ui_.LstTarifa, tarifas);
  ui_.txCod->setMaxLength(7);
  ui_.txCod->setValidator(new QIntValidator(0, kUltimoCodigo, this));
  ui_.Grid->preparar(contexto, nombre, columnasHistoria(*this, true));
  ui_.Grid->filtros()->addWidget(ui_.filtros);
  ui_.Grid->ponerVacia(t(kTxSinHistoria));
  connect(ui_.LstSec, &QComboBox::activated, this, &VerPrecios::filtrar);
  connect(ui_.LstTarifa, &QComboBox::activated, this, &VerPrecios::filtrar);
  connect(ui_.txCod, &QLineEdit::textEdited, this, &VerPrecios::filtrar);
  connect(ui_.Grid, &ventanas::Parrilla::fallo, this, [this](const Error& e) { decirFallo(e); });
}

Resultado<> VerPrecios::entrar(const PuertaVerPrecios& puerta) {
  TARVO_INTENTAR(ventanas::llenar(*ui_.LstSec, contexto().nombres.secciones(), 3));
  if (!ventanas::elegir(*ui_.LstSec, puerta.seccion)) ui_.LstSec->setCurrentIndex(0);
  ui_.txCod->setText(puerta.codigo > 0 ? verCodigo(puerta.codigo) : QString());
  filtrar();
  ui_.Grid->setFocus();
  return {};
}

void VerPrecios::filtrar() {
  FiltroHistoria f{.seccion = ui_.LstSec->currentData().toInt()};
  if (const qint64 codigo = ui_.txCod->text().toLongLong(); codigo > 0) f.codigo = codigo;
  if (const int tarifa = ui_.LstTarifa->currentData().toInt(); tarifa >= 0) f.tarifa = tarifa;
  haIdoBien(ui_.Grid->abrir(listaHistoria(f)));
}

}  // namespace tarvo::articles
