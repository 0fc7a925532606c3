#include "core/ventanas/parrilla/Hoja.h"

#include <xlsxwriter.h>

#include <QFile>

#include "core/dinero/Dinero.h"
#include "core/ventanas/parrilla/ModeloParrilla.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFilasHoja = LXW_ROW_MAX - 1;  // below the header row
constexpr qsizetype kNombreHoja = 31;
constexpr double kAnchoColumna = 16;  // characters

// The name of a sheet may be neither empty nor too long, and some characters aren't allowed.
QByteArray nombreHoja(QString nombre) {
  for (const QChar c : {u'[', u']', u':', u'*', u'?', u'/', u'\\', u'\''}) nombre.remove(c);
  nombre = nombre.trimmed().left(kNombreHoja);
  return nombre.isEmpty() ? QByteArrayLiteral("TARVO") : nombre.toUtf8();
}

QByteArray conDecimales(int decimales) {
  return decimales > 0 ? "#,##0." + QByteArray(decimales, '0') : QByteArrayLiteral("#,##0");
}

// The number in a cell and its format; a cell without a format is written as text.
struct Numero {
  double valor = 0;
  QByteArray formato;
};

Numero numeroDe(const Columna& c, const dao::Valor& v, const Formato& f) {
  if (c.ver) return {};
  const Ajustes& a = f.ajustes();
  switch (c.clase) {
    case Clase::Codigo:
      return {v.real(), c.cifras > 0 ? QByteArray(c.cifras, '0') : QByteArrayLiteral("0")};
    case Clase::Entero:
      return {v.real(), conDecimales(0)};
    case Clase::Importe:
      return {v.real() / FactorMoneda(a, f.moneda()), conDecimales(DecimalesMoneda(a, f.moneda()))};
    case Clase::Fecha:
      return {v.fecha().dia().dias(), "dd/mm/yyyy"};
    case Clase::Hora:
      return {v.fecha().hora(), "hh:mm:ss"};
    case Clase::Momento:
      return {v.real(), "dd/mm/yyyy hh:mm:ss"};
    case Clase::Porcentaje:
      return {v.esEntero() ? v.real() / 10000 : v.real() / 100, "0.00%"};
    default:
      return {};
  }
}

}  // namespace

Hoja::Hoja(QString ruta, QString nombre)
    : ruta_(std::move(ruta)), parcial_(ruta_ + u".parcial"_s), nombre_(std::move(nombre)) {}

Hoja::~Hoja() {
  if (!libro_) return;
  workbook_close(libro_);
  QFile::remove(parcial_);
}

Resultado<> Hoja::comprobar(int codigo) const {
  if (codigo == LXW_NO_ERROR) return {};
  return fallo(Fallo::SinPermiso,
               ruta_ + u": "_s + QString::fromUtf8(lxw_strerror(static_cast<lxw_error>(codigo))),
               codigo);
}

lxw_format* Hoja::formato(const QByteArray& como) {
  auto& hecho = formatos_[como];
  if (!hecho) {
    hecho = workbook_add_format(libro_);
    como == "titulo" ? format_set_bold(hecho) : format_set_num_format(hecho, como.constData());
  }
  return hecho;
}

Resultado<> Hoja::abrir(const ModeloParrilla& modelo, std::vector<int> columnas,
                        const QStringList& titulos) {
  if (modelo.rowCount() > kFilasHoja) return comprobar(LXW_ERROR_WORKSHEET_INDEX_OUT_OF_RANGE);
  // The library would only report it at the very end.
  if (QFile prueba(parcial_); !prueba.open(QIODevice::WriteOnly))
    return fallo(Fallo::SinPermiso, ruta_ + u": "_s + prueba.errorString());
  modelo_ = &modelo;
  columnas_ = std::move(columnas);
  lxw_workbook_options opciones{};
  opciones.constant_memory = LXW_TRUE;
  libro_ = workbook_new_opt(QFile::encodeName(parcial_).constData(), &opciones);
  if (!libro_) return comprobar(LXW_ERROR_MEMORY_MALLOC_FAILED);
  hoja_ = workbook_add_worksheet(libro_, nombreHoja(nombre_).constData());
  worksheet_freeze_panes(hoja_, 1, 0);
  worksheet_set_column(hoja_, 0, static_cast<lxw_col_t>(columnas_.size()), kAnchoColumna, nullptr);
  for (qsizetype i = 0; i < titulos.size(); ++i)
    TARVO_INTENTAR(comprobar(worksheet_write_string(
        hoja_, 0, static_cast<lxw_col_t>(i), titulos[i].toUtf8().constData(), formato("titulo"))));
  return {};
}

Resultado<> Hoja::fila(int f) {
  for (size_t i = 0; i < columnas_.size(); ++i)
    TARVO_INTENTAR(
        comprobar(celda(static_cast<quint32>(f) + 1, f, static_cast<quint16>(i), columnas_[i])));
  return {};
}

int Hoja::celda(quint32 linea, int f, quint16 sitio, int columna) {
  const Columna& c = modelo_->columnas()[static_cast<size_t>(columna)];
  const dao::Valor v = modelo_->valor(f, columna);
  if (v.nulo() && !c.ver) return LXW_NO_ERROR;
  Numero n = numeroDe(c, v, modelo_->formato());
  if (c.clase == Clase::Cantidad && !c.ver) {
    const int cada = modelo_->cadaDe(f, c);
    const bool peso = cada == 0 || cada == 1;
    n = {peso ? v.real() / 1000 : v.real(), conDecimales(peso ? 3 : 0)};
  }
  if (!n.formato.isEmpty())
    return worksheet_write_number(hoja_, linea, sitio, n.valor, formato(n.formato));
  return worksheet_write_string(hoja_, linea, sitio,
                                modelo_->texto(f, columna).toUtf8().constData(), nullptr);
}

Resultado<> Hoja::cerrar() {
  const auto hecho = comprobar(workbook_close(std::exchange(libro_, nullptr)));
  if (!hecho) {
    QFile::remove(parcial_);
    return hecho;
  }
  if (std::rename(QFile::encodeName(parcial_).constData(), QFile::encodeName(ruta_).constData()) ==
      0)
    return {};
  QFile::remove(parcial_);
  return fallo(Fallo::SinPermiso, ruta_);
}

}  // namespace tarvo::ventanas
